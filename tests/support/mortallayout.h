#pragma once

#include "fate.h"

#include <figura/layout/Layout.h>

namespace Velmora::Figura::Test {

/// A layout of class Base that announces what is asked of it.
template<class Base>
class MortalLayout : public Mortal<Base>
{
public:
    using Mortal<Base>::Mortal;
    using Mortal<Base>::with;

    QSize calculatePreferredSize() override
    {
        return with("calculatePreferredSize", [&] { return Base::calculatePreferredSize(); });
    }
    QSize calculateMinimumSize() override
    {
        return with("calculateMinimumSize", [&] { return Base::calculateMinimumSize(); });
    }
    bool performLayout(const QRect &area) override
    {
        return with("performLayout", [&] { return Base::performLayout(area); });
    }
    bool applyConstraint(Figure *child, const QVariant &constraint) override
    {
        return with("applyConstraint", [&] { return Base::applyConstraint(child, constraint); });
    }
    bool setConstraint(Figure *child, const QVariant &constraint) override
    {
        return with("setConstraint", [&] { return Base::setConstraint(child, constraint); });
    }
    bool layout(Figure *container) override
    {
        return with("layout", [&] { return Base::layout(container); });
    }
    void invalidate() override
    {
        with("invalidate", [&] { Base::invalidate(); });
    }
    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        with("render", [&] { Base::render(painter, option); });
    }
    bool remove(Figure *child) override
    {
        return with("remove", [&] { return Base::remove(child); });
    }
};

} // namespace Velmora::Figura::Test
