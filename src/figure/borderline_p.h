#pragma once

#include <QLineF>
#include <QPainter>

namespace Velmora::Figura {

/// Draws one side of a border.
///
/// Scaled up, Qt stretches a line without length far beyond its ends, where nobody expects paint: a
/// point with the same pen looks as the line does unscaled.
template<class Line>
void drawBorderLine(QPainter *painter, const Line &line)
{
    if (line.isNull() && painter->deviceTransform().isScaling())
        painter->drawPoint(line.p1());
    else
        painter->drawLine(line);
}

} // namespace Velmora::Figura
