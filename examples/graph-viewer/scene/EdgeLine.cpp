#include "EdgeLine.h"

#include "DashPattern.h"

#include <QTransform>

namespace GraphViewer {

EdgeLine::EdgeLine(const QPolygonF &points, const QPen &pen, QObject *parent)
    : PolylineF(parent)
{
    setLineStyle(pen.style());
    setLineWidth(qMax(1, qRound(pen.widthF())));
    setEnabledFGColor(pen.color());
    setLinePoints(points);
    rebuildPath(); // its bounds are asked for before it is shown
}

QRect EdgeLine::getBoundingRect()
{
    const int reach = getLineWidth() / 2 + 1;
    return getBounds().adjusted(-reach, -reach, reach, reach);
}

void EdgeLine::drawShape(QPainter *painter, const QStyleOptionViewItem &option) const
{
    DashPattern::apply(painter);
    PolylineF::drawShape(painter, option);
}

QList<QPolygonF> EdgeLine::flatten(const QPainterPath &path)
{
    constexpr double magnification = 8;
    QList<QPolygonF> lines =
        path.toSubpathPolygons(QTransform::fromScale(magnification, magnification));
    for (QPolygonF &line : lines)
        line = QTransform::fromScale(1 / magnification, 1 / magnification).map(line);
    return lines;
}

} // namespace GraphViewer
