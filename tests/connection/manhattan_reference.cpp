#include "manhattan_reference.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace Velmora::Figura::Test {
namespace {

using Axis = ManhattanReference::Axis;

const int STUB = 10;

Axis across(Axis axis)
{
    return axis == Axis::X ? Axis::Y : Axis::X;
}

int coordinate(const QPoint &point, Axis axis)
{
    return axis == Axis::X ? point.x() : point.y();
}

Axis axisOf(const QPoint &direction)
{
    return direction.x() != 0 ? Axis::X : Axis::Y;
}

int dot(const QPoint &a, const QPoint &b)
{
    return a.x() * b.x() + a.y() * b.y();
}

// Without its sign, on purpose: below zero the stub lies on the far side of the origin.
int stub(const QPoint &end, const QPoint &direction)
{
    return std::abs(coordinate(end + STUB * direction, axisOf(direction)));
}

int middle(const QPoint &start, const QPoint &end, Axis axis)
{
    return (coordinate(start, axis) + coordinate(end, axis)) / 2;
}

// What lies between the first and the last segment, which the two ends hold.
QList<int> innerPositions(const QPoint &start, const QPoint &out, const QPoint &end,
                          const QPoint &in)
{
    const QPoint way = end - start;
    const Axis axis = axisOf(out);
    const bool turnsBack = dot(out, way) < 0;
    const bool overshoots = dot(in, way) > 0;

    const int facing = dot(out, in);
    if (facing > 0)
        return {turnsBack ? stub(end, in) : stub(start, out)};
    if (facing < 0 && turnsBack)
        return {stub(start, out), middle(start, end, across(axis)), stub(end, in)};
    if (facing < 0)
        return {middle(start, end, axis)};
    if (!turnsBack && !overshoots)
        return {};
    return {turnsBack ? stub(start, out) : middle(start, end, axis),
            overshoots ? stub(end, in) : middle(start, end, across(axis))};
}

} // namespace

QRect ManhattanReference::boxAround(const QPoint &point)
{
    return QRect(point - QPoint(1, 1), point);
}

QPoint ManhattanReference::directionOut(const QRect &box, const QPoint &point)
{
    // The earlier of two equally near sides is taken.
    const std::pair<int, QPoint> sides[] = {
        {std::abs(point.y() - (box.y() + box.height() - 1)), QPoint(0, 1)},
        {std::abs(point.y() - box.y()), QPoint(0, -1)},
        {std::abs(point.x() - box.x()), QPoint(-1, 0)},
        {std::abs(point.x() - (box.x() + box.width() - 1)), QPoint(1, 0)},
    };
    return std::min_element(std::begin(sides), std::end(sides),
                            [](const auto &a, const auto &b) { return a.first < b.first; })
        ->second;
}

QList<QPoint> ManhattanReference::route(Key key, const End &source, const End &target,
                                        const QPoint &origin)
{
    const QPoint out = directionOut(source.box, source.point);
    const QPoint in = directionOut(target.box, target.point);
    const QPoint start = source.point - origin;
    const QPoint end = target.point - origin;

    const Axis held = across(axisOf(out));
    QList<int> positions = innerPositions(start, out, end, in);
    positions.prepend(coordinate(start, held));
    positions.append(coordinate(end, positions.size() % 2 == 0 ? held : across(held)));
    return route(key, start, end, positions, held);
}

QList<QPoint> ManhattanReference::route(Key key, const QPoint &start, const QPoint &end,
                                        const QList<int> &positions, Axis held)
{
    release(key);
    const int count = int(positions.size());
    QList<int> line = positions;
    line.prepend(coordinate(start, across(held)));
    line.append(coordinate(end, count % 2 == 0 ? held : across(held)));

    QList<QPoint> points{start};
    for (int i = 2; i <= count; ++i) {
        held = across(held);
        if (i < count)
            line[i] = lineNear(key, held, line[i], line[i - 2], line[i + 2]);
        points.append(held == X ? QPoint(line[i], line[i - 1]) : QPoint(line[i - 1], line[i]));
    }
    if (points.last() != end)
        points.append(end);
    return points;
}

void ManhattanReference::release(Key key)
{
    const auto found = m_held.find(key);
    if (found == m_held.end())
        return;
    for (const Axis axis : {X, Y}) {
        for (const int line : found->second[axis])
            m_taken[axis].erase(line);
    }
    m_held.erase(found);
}

bool ManhattanReference::isFree(Axis axis, int line) const
{
    return m_taken[axis].count(line) == 0;
}

bool ManhattanReference::isHeldBy(Key key, Axis axis, int line) const
{
    const auto found = m_held.find(key);
    return found != m_held.end() && found->second[axis].count(line) != 0;
}

int ManhattanReference::heldLines(Key key) const
{
    const auto found = m_held.find(key);
    return found == m_held.end() ? 0 : int(found->second[X].size() + found->second[Y].size());
}

// Between the neighbours; for a line beyond both, as far to its other side as the nearer one is.
ManhattanReference::Bounds ManhattanReference::boundsAround(int wanted, int before, int after)
{
    const auto [low, high] = std::minmax({before, after});
    if (wanted < low)
        return {2 * wanted - low, low};
    if (wanted > high)
        return {high, 2 * wanted - high};
    return {low, high};
}

int ManhattanReference::lineNear(Key key, Axis axis, int wanted, int before, int after)
{
    const int first = wanted > 0 ? wanted / 2 * 2 : wanted;
    if (first < 1)
        return first;

    const Bounds bounds = boundsAround(wanted, before, after);
    for (int offset = 0; offset < first; offset += 2) {
        for (const int sign : {1, -1}) {
            const int line = first + sign * offset;
            if (isFree(axis, line)) {
                take(key, axis, line);
                return line;
            }
            if (line <= bounds.lower)
                return line + 2;
            if (line >= bounds.upper)
                return line - 2;
        }
    }
    return first;
}

void ManhattanReference::take(Key key, Axis axis, int line)
{
    m_taken[axis].insert(line);
    m_held[key][axis].insert(line);
}

} // namespace Velmora::Figura::Test
