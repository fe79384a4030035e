#pragma once

#include "tools/Drag.h"

#include <QList>

namespace Editor {

/// Moves a bend of an edge, which may be a new one. Dropped on the line between its neighbours, it
/// is gone.
class BendDrag : public Drag
{
public:
    enum class Bend { Present, New };

    BendDrag(Workbench &bench, const Pointer &start, int edge, int index, Bend bend);

    void moveTo(const Pointer &pointer) override;
    void finish(const Pointer &pointer) override;

private:
    QList<QPoint> with(const QPoint &point) const;

    int m_edge;
    int m_index;
    QList<QPoint> m_bends; // all but the one that is dragged
};

} // namespace Editor
