#pragma once

#include <QRect>

#include <algorithm>
#include <limits>

// What the grid of a pane is made of: drawn in one place, measured in another.

namespace Velmora::Figura {

inline bool hasGrid(bool isDrawn, int snapSize)
{
    return isDrawn && snapSize >= 2;
}

inline int mainSpacing(int snapSize)
{
    return std::min(snapSize, std::numeric_limits<int>::max() / 5) * 5;
}

/// The first lines lie before a positive corner, where the grid would be if it went on.
inline QRect withFirstLines(const QRect &rect, int spacing)
{
    return rect.adjusted(-std::max(rect.left() % spacing, 0), -std::max(rect.top() % spacing, 0), 0,
                         0);
}

/// How far the grid of \a rect begins before its corner. The main grid begins farthest out: all its
/// lines are lines of the other one as well.
inline int gridReach(const QRect &rect, int snapSize)
{
    const QRect lined = withFirstLines(rect, mainSpacing(snapSize));
    return std::max(rect.left() - lined.left(), rect.top() - lined.top());
}

} // namespace Velmora::Figura
