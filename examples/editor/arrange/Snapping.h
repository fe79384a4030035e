#pragma once

#include <QLine>
#include <QList>
#include <QRect>

namespace Editor {

/// What is dragged, and which of its lines take part: a move has all three each way, a resize only
/// the sides that it moves.
struct SnapLines
{
    QList<int> xs;
    QList<int> ys;

    static SnapLines ofMoved(const QRect &rect);
    static SnapLines ofResized(const QRect &rect, Qt::Edges edges);
};

/// How far to push what is dragged, and the guides that say why.
struct Snap
{
    QPoint offset;
    QList<QLine> guides; ///< Through what is dragged and all that it is in line with.
};

/// The nearest grid line.
int toGrid(int coordinate, int step);
QPoint toGrid(const QPoint &point, int step);

/// Brings the lines of \a dragged into line with those of \a others, within \a tolerance.
Snap snapToOthers(const QRect &dragged, const SnapLines &lines, const QList<QRect> &others,
                  int tolerance);

/// The same with the grid: only the first line of each direction counts.
Snap snapToGrid(const SnapLines &lines, int step);

} // namespace Editor
