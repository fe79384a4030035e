#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

#include <array>
#include <map>
#include <set>

namespace Velmora::Figura::Test {

/// A second implementation of routing in horizontal and vertical segments, to compare the library's
/// with.
///
/// It shares no code with the library and is built another way: x and y are axes 0 and 1 of one
/// algorithm, a segment is named by the axis whose coordinate it holds, and a connection is a key.
class ManhattanReference
{
public:
    using Key = int;

    enum Axis { X, Y };

    /// Where a connection meets a box, in absolute coordinates.
    struct End
    {
        QPoint point;
        QRect box;
    };

    /// The box that stands in for the missing figure of an end.
    static QRect boxAround(const QPoint &point);
    /// The unit step out of the side of \a box nearest to \a point.
    static QPoint directionOut(const QRect &box, const QPoint &point);

    /// The points in coordinates that begin at the absolute point \a origin.
    QList<QPoint> route(Key key, const End &source, const End &target, const QPoint &origin);
    /// \a held is the axis whose coordinate the first of \a positions is.
    QList<QPoint> route(Key key, const QPoint &start, const QPoint &end,
                        const QList<int> &positions, Axis held);

    void release(Key key);
    bool isFree(Axis axis, int line) const;
    bool isHeldBy(Key key, Axis axis, int line) const;
    int heldLines(Key key) const; ///< How many lines \a key holds.

private:
    struct Bounds
    {
        int lower;
        int upper;
    };

    static Bounds boundsAround(int wanted, int before, int after);
    int lineNear(Key key, Axis axis, int wanted, int before, int after);
    void take(Key key, Axis axis, int line);

    std::array<std::set<int>, 2> m_taken;
    std::map<Key, std::array<std::set<int>, 2>> m_held;
};

} // namespace Velmora::Figura::Test
