#pragma once

#include "load/Drawing.h"

#include <figura/shape/TextFigure.h>

namespace GraphViewer {

/// One run of text, exactly where the layout engine has put it.
///
/// The engine measures with its own fonts and to fractions of a unit, so the text is stretched to
/// the width that was reserved for it, from a baseline that need not lie on a whole unit.
class TextLine : public Velmora::Figura::TextFigure
{
    Q_OBJECT

public:
    /// \a origin is the corner of the figure that the line is to be part of.
    TextLine(const TextSpan &span, const QPoint &origin, QObject *parent);

    QRect box() const { return m_box; } ///< In the coordinates of the figure it is part of.

    /// The engine has already made room for the text; a wider font must not move anything.
    QSize getMinimumSize() override;

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    QRect m_box;
    QPointF m_baseline; // from the box's corner
    double m_unit = 1;  // what one unit of the font is in ours
    double m_stretch = 1;
};

} // namespace GraphViewer
