#include "scene/Way.h"

#include <QLineF>

namespace Editor {
namespace {

struct Foot
{
    double distance = 0;
    double along = 0; // from the start of the segment
};

Foot footOn(const QLineF &line, const QPointF &point)
{
    const double length = line.length();
    if (length == 0)
        return {QLineF(line.p1(), point).length(), 0};
    const QPointF way(line.dx() / length, line.dy() / length);
    const double along = qBound(0.0, QPointF::dotProduct(point - line.p1(), way), length);
    return {QLineF(line.p1() + along * way, point).length(), along};
}

double lengthOf(const QList<QPoint> &way)
{
    double length = 0;
    for (qsizetype i = 1; i < way.size(); ++i)
        length += QLineF(way.at(i - 1), way.at(i)).length();
    return length;
}

} // namespace

QPoint Way::pointAt(const QList<QPoint> &way, int percent)
{
    if (way.isEmpty())
        return {};
    double rest = lengthOf(way) * percent / 100;
    for (qsizetype i = 1; i < way.size(); ++i) {
        const QLineF line(way.at(i - 1), way.at(i));
        if (rest <= line.length() && line.length() > 0)
            return line.pointAt(rest / line.length()).toPoint();
        rest -= line.length();
    }
    return way.last();
}

qsizetype Way::segmentNear(const QList<QPoint> &way, const QPoint &point)
{
    qsizetype best = 0;
    double distance = -1;
    for (qsizetype i = 1; i < way.size(); ++i) {
        const Foot foot = footOn(QLineF(way.at(i - 1), way.at(i)), point);
        if (distance >= 0 && foot.distance >= distance)
            continue;
        distance = foot.distance;
        best = i - 1;
    }
    return best;
}

int Way::percentNear(const QList<QPoint> &way, const QPoint &point)
{
    const double length = lengthOf(way);
    if (length == 0)
        return 50;
    const qsizetype segment = segmentNear(way, point);
    const Foot foot = footOn(QLineF(way.at(segment), way.at(segment + 1)), point);
    return qRound(100 * (lengthOf(way.mid(0, segment + 1)) + foot.along) / length);
}

bool Way::isOnLine(const QPoint &point, const QPoint &from, const QPoint &to, double tolerance)
{
    return footOn(QLineF(from, to), point).distance <= tolerance;
}

} // namespace Editor
