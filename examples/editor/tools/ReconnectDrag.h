#pragma once

#include "commands/Reconnect.h"
#include "tools/Drag.h"

namespace Editor {

/// Takes one end of an edge to another node.
class ReconnectDrag : public Drag
{
public:
    ReconnectDrag(Workbench &bench, const Pointer &start, int edge, Reconnect::End end);

    void moveTo(const Pointer &pointer) override;
    void finish(const Pointer &pointer) override;

private:
    int m_edge;
    Reconnect::End m_end;
    QPoint m_otherEnd;
};

} // namespace Editor
