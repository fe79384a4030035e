#pragma once

#include "tools/Drag.h"

#include <QRect>

namespace Editor {

/// Resizes a node by one of its eight handles. Shift keeps its shape, Alt does without snapping.
class ResizeDrag : public Drag
{
public:
    ResizeDrag(Workbench &bench, const Pointer &start, int node, Qt::Edges edges);

    void moveTo(const Pointer &pointer) override;

private:
    int m_node;
    Qt::Edges m_edges;
    QRect m_rect; // at the start
    QList<QRect> m_others;
};

} // namespace Editor
