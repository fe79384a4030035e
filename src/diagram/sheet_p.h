#pragma once

#include "reach_p.h"

#include <figura/figure/Figure.h>

namespace Velmora::Figura {

/// A layer or pane whose bounds are only the part of the paper that is in use.
///
/// Elsewhere a layer that moves its corner moves the figures in it that have a layout of certain
/// kinds, and tells all connections to route anew. Paper that grows must do neither.
template<class Base>
class Sheet : public Base
{
public:
    using Base::Base;

    QRect getBounds() override { return m_area; }
    void setBounds(const QRect &rect) override { m_area = rect; }
    void translate(int /*dx*/, int /*dy*/) override {}

    /// Measured anew each time: not every change of a figure is announced.
    QRect getFreeformExtent() override
    {
        QRect extent;
        const QList<Figure *> children = this->childFigures();
        for (Figure *child : children) {
            if (child->isVisible())
                extent |= paintedRect(child);
        }
        return extent;
    }

private:
    QRect m_area{0, 0, 1, 1}; // until somebody shows it: layouts complain of having no room at all
};

} // namespace Velmora::Figura
