#include "BendFinder.h"

#include "EdgeLine.h"

#include <QLineF>

namespace GraphViewer {
namespace {

double distance(const QPointF &point, const QLineF &line)
{
    const double length = line.length();
    if (length == 0)
        return QLineF(point, line.p1()).length();
    const QPointF d = line.p2() - line.p1();
    const QPointF v = point - line.p1();
    return qAbs(v.x() * d.y() - v.y() * d.x()) / length;
}

// Keeps the point farthest from the straight line, as long as that is visibly far, and so on in
// both halves (Douglas and Peucker).
void simplify(const QPolygonF &points, qsizetype first, qsizetype last, QPolygonF *kept)
{
    constexpr double visible = 0.4;
    const QLineF chord(points.at(first), points.at(last));
    qsizetype farthest = first;
    double most = visible;
    for (qsizetype i = first + 1; i < last; ++i) {
        const double away = distance(points.at(i), chord);
        if (away > most) {
            most = away;
            farthest = i;
        }
    }
    if (farthest == first)
        return;
    simplify(points, first, farthest, kept);
    *kept << points.at(farthest);
    simplify(points, farthest, last, kept);
}

} // namespace

QList<QPoint> BendFinder::bends(const QPainterPath &curve, const QRect &tail, const QRect &head)
{
    const QList<QPolygonF> lines = EdgeLine::flatten(curve);
    if (lines.isEmpty() || lines.first().size() < 3)
        return {};
    const QPolygonF &points = lines.first();
    QPolygonF kept;
    simplify(points, 0, points.size() - 1, &kept);

    QList<QPoint> bends;
    for (const QPointF &point : std::as_const(kept)) {
        const QPoint bend = point.toPoint();
        if (!tail.contains(bend) && !head.contains(bend) && !bends.endsWith(bend))
            bends << bend;
    }
    return bends;
}

} // namespace GraphViewer
