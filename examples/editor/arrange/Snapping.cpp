#include "arrange/Snapping.h"

#include <cmath>
#include <cstdlib>
#include <optional>

namespace Editor {
namespace {

QRect transposed(const QRect &rect)
{
    return {rect.y(), rect.x(), rect.height(), rect.width()};
}

QLine transposed(const QLine &line)
{
    return {line.y1(), line.x1(), line.y2(), line.x2()};
}

QList<int> verticals(const QRect &rect)
{
    return {rect.left(), rect.center().x(), rect.right()};
}

// The smallest push that brings one of the lines onto one of the others.
std::optional<int> nearestPush(const QList<int> &lines, const QList<QRect> &others, int tolerance)
{
    std::optional<int> best;
    for (const QRect &other : others) {
        for (const int wanted : verticals(other)) {
            for (const int line : lines) {
                const int push = wanted - line;
                if (std::abs(push) <= tolerance && (!best || std::abs(push) < std::abs(*best)))
                    best = push;
            }
        }
    }
    return best;
}

// One guide for each line in common, as long as all that it connects.
QList<QLine> guidesAt(const QRect &dragged, const QList<int> &lines, const QList<QRect> &others)
{
    QList<QLine> guides;
    for (const int x : lines) {
        int top = dragged.top();
        int bottom = dragged.bottom();
        bool shared = false;
        for (const QRect &other : others) {
            if (!verticals(other).contains(x))
                continue;
            shared = true;
            top = qMin(top, other.top());
            bottom = qMax(bottom, other.bottom());
        }
        if (shared)
            guides << QLine(x, top, x, bottom);
    }
    return guides;
}

struct Push
{
    int distance = 0;
    bool found = false;
};

Push pushAcross(const QList<int> &lines, const QList<QRect> &others, int tolerance)
{
    const std::optional<int> push = nearestPush(lines, others, tolerance);
    return {push.value_or(0), push.has_value()};
}

QList<int> shifted(QList<int> lines, int distance)
{
    for (int &line : lines)
        line += distance;
    return lines;
}

QList<QRect> transposed(const QList<QRect> &rects)
{
    QList<QRect> result;
    result.reserve(rects.size());
    for (const QRect &rect : rects)
        result << transposed(rect);
    return result;
}

} // namespace

SnapLines SnapLines::ofMoved(const QRect &rect)
{
    return {verticals(rect), verticals(transposed(rect))};
}

SnapLines SnapLines::ofResized(const QRect &rect, Qt::Edges edges)
{
    SnapLines lines;
    if (edges.testFlag(Qt::LeftEdge))
        lines.xs << rect.left();
    if (edges.testFlag(Qt::RightEdge))
        lines.xs << rect.right();
    if (edges.testFlag(Qt::TopEdge))
        lines.ys << rect.top();
    if (edges.testFlag(Qt::BottomEdge))
        lines.ys << rect.bottom();
    return lines;
}

int toGrid(int coordinate, int step)
{
    return step * static_cast<int>(std::floor((coordinate + step / 2.0) / step));
}

QPoint toGrid(const QPoint &point, int step)
{
    return {toGrid(point.x(), step), toGrid(point.y(), step)};
}

Snap snapToOthers(const QRect &dragged, const SnapLines &lines, const QList<QRect> &others,
                  int tolerance)
{
    const QList<QRect> turned = transposed(others);
    const Push across = pushAcross(lines.xs, others, tolerance);
    const Push down = pushAcross(lines.ys, turned, tolerance);
    Snap snap{{across.distance, down.distance}, {}};

    const QRect moved = dragged.translated(snap.offset);
    if (across.found)
        snap.guides = guidesAt(moved, shifted(lines.xs, across.distance), others);
    if (down.found) {
        const QList<QLine> horizontal =
            guidesAt(transposed(moved), shifted(lines.ys, down.distance), turned);
        for (const QLine &guide : horizontal)
            snap.guides << transposed(guide);
    }
    return snap;
}

Snap snapToGrid(const SnapLines &lines, int step)
{
    const auto push = [step](const QList<int> &list) {
        return list.isEmpty() ? 0 : toGrid(list.first(), step) - list.first();
    };
    return {{push(lines.xs), push(lines.ys)}, {}};
}

} // namespace Editor
