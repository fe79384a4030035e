#include "line_p.h"

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>

namespace Velmora::Figura {
namespace {

double share(double value, double from, double length)
{
    return length > 0.0 ? (value - from) / length : 0.0;
}

QPolygonF fitted(const QPolygonF &outline, const QRectF &rect)
{
    const QRectF box = outline.boundingRect();
    QPolygonF points;
    for (const QPointF &point : outline) {
        points << QPointF(rect.x() + share(point.x(), box.x(), box.width()) * rect.width(),
                          rect.y() + share(point.y(), box.y(), box.height()) * rect.height());
    }
    return points;
}

} // namespace

bool isLine(const Figure *figure)
{
    return qobject_cast<const Polyline *>(figure) || qobject_cast<const PolylineF *>(figure);
}

QPolygonF outlineOfLine(Figure *line)
{
    if (auto *integer = qobject_cast<Polyline *>(line)) {
        const QList<QPoint> points = integer->getLinePoints();
        return QPolygonF(QList<QPointF>(points.cbegin(), points.cend()));
    }
    auto *floating = qobject_cast<PolylineF *>(line);
    return floating ? QPolygonF(floating->getLinePoints()) : QPolygonF();
}

void fitLine(Figure *line, const QPolygonF &outline, const QRect &rect)
{
    const QPolygonF points = fitted(outline, rect);
    if (auto *floating = qobject_cast<PolylineF *>(line)) {
        floating->setLinePoints(points);
    } else if (auto *integer = qobject_cast<Polyline *>(line)) {
        integer->setLinePoints(points.toPolygon());
    }
}

} // namespace Velmora::Figura
