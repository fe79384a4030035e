#pragma once

#include "tools/Drag.h"

#include <QHash>
#include <QRect>

namespace Editor {

/// Moves the selected nodes; they snap to others and to the grid, and can be dropped into lanes.
///
/// Shift keeps them on a horizontal or vertical line, Alt does without snapping.
class MoveDrag : public Drag
{
public:
    MoveDrag(Workbench &bench, const Pointer &start);

    void moveTo(const Pointer &pointer) override;
    void finish(const Pointer &pointer) override;

private:
    QPoint offsetFor(const Pointer &pointer) const;
    void leaveLanes();
    void moveBy(const QPoint &offset);
    int laneUnder(const QPoint &point) const;
    bool canEnterLane() const;
    void showLane(const QPoint &point);

    QList<int> m_nodes;
    QHash<int, QRect> m_places; // at the start
    QRect m_box;                // around them
    QList<QRect> m_others;      // to snap to
    QPoint m_offset;
    bool m_isOutOfLanes = false;
};

} // namespace Editor
