#pragma once

#include "tools/Drag.h"

namespace Editor {

/// Moves the label of an edge along it and beside it.
class LabelDrag : public Drag
{
public:
    LabelDrag(Workbench &bench, const Pointer &start, int edge);

    void moveTo(const Pointer &pointer) override;

private:
    int m_edge;
    QPoint m_grip; // from the pointer to the middle of the label
};

} // namespace Editor
