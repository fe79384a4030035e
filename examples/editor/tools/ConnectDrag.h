#pragma once

#include "tools/Drag.h"

namespace Editor {

/// Connects a node with the one under the mouse, which is marked meanwhile.
class ConnectDrag : public Drag
{
public:
    ConnectDrag(Workbench &bench, const Pointer &start, int source);

    void moveTo(const Pointer &pointer) override;
    void finish(const Pointer &pointer) override;

private:
    int targetAt(const QPoint &point) const;

    int m_source;
    bool m_hasLeft = false; // only who comes back means a loop
};

} // namespace Editor
