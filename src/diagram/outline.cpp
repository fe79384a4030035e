#include "outline_p.h"

#include <QPolygonF>

namespace Velmora::Figura {
namespace {

double cross(const QPointF &a, const QPointF &b)
{
    return a.x() * b.y() - a.y() * b.x();
}

// How far along from + t * direction the edge is met. Parallel edges are not: their neighbours are.
std::optional<double> meeting(const QPointF &from, const QPointF &direction, const QPointF &a,
                              const QPointF &b)
{
    const QPointF edge = b - a;
    const double denominator = cross(direction, edge);
    if (denominator == 0.0)
        return std::nullopt;
    const double along = cross(a - from, edge) / denominator;
    const double onEdge = cross(a - from, direction) / denominator;
    if (along < 0.0 || onEdge < 0.0 || onEdge > 1.0)
        return std::nullopt;
    return along;
}

// The last one up to 1 is better than any beyond, and of those the first.
bool isBetter(double candidate, double best)
{
    if (candidate <= 1.0)
        return best > 1.0 || candidate > best;
    return best > 1.0 && candidate < best;
}

} // namespace

std::optional<QPointF> lastCrossing(const QPainterPath &path, const QPointF &from,
                                    const QPointF &to)
{
    const QPointF direction = to - from;
    std::optional<double> best;
    const QList<QPolygonF> outlines = path.toSubpathPolygons();
    for (const QPolygonF &outline : outlines) {
        for (qsizetype i = 1; i < outline.size(); ++i) {
            const std::optional<double> met =
                meeting(from, direction, outline.at(i - 1), outline.at(i));
            if (met && (!best || isBetter(*met, *best)))
                best = met;
        }
    }
    if (!best)
        return std::nullopt;
    return from + *best * direction;
}

} // namespace Velmora::Figura
