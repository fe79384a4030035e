#pragma once

#include <QPoint>
#include <QRect>

namespace Velmora::Figura {

/// Where the line from the centre of \a box towards \a reference meets the box.
QPoint chopBox(const QRect &box, const QPoint &reference);

/// Where the line from the centre of \a box towards \a reference meets the inscribed ellipse.
QPoint chopEllipse(const QRectF &box, const QPoint &reference);

} // namespace Velmora::Figura
