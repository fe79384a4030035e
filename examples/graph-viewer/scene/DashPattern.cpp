#include "DashPattern.h"

#include <QPainter>

namespace GraphViewer {

void DashPattern::apply(QPainter *painter)
{
    QPen pen = painter->pen();
    const double unit = 1 / qMax(1.0, pen.widthF()); // patterns count in widths of the pen
    if (pen.style() == Qt::DashLine)
        pen.setDashPattern({6 * unit, 6 * unit});
    else if (pen.style() == Qt::DotLine)
        pen.setDashPattern({2 * unit, 6 * unit});
    else
        return;
    pen.setCapStyle(Qt::FlatCap); // others reach into the gaps
    painter->setPen(pen);
}

} // namespace GraphViewer
