#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

namespace Velmora::Figura::Test {

/// A second implementation of placing a label near the end of a connection, to compare the
/// library's with. It turns no coordinates: each of the four sides has a formula of its own.
struct EndpointReference
{
    enum Side { Down = 1, Right, Up, Left };

    int uDistance = 14;
    int vDistance = 4;

    /// Which way a line leaves that begins at \a start and has no box.
    static Side sideOf(const QPoint &start, const QPoint &next);
    /// Which side of \a box the point lies at, by the diagonals of the box.
    static Side sideOf(const QPoint &start, const QRect &box);

    QRect place(const QSize &label, const QPoint &start, const QPoint &next, Side side) const;

private:
    int across(int from, double rise, int along, int extent) const;
};

} // namespace Velmora::Figura::Test
