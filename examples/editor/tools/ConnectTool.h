#pragma once

#include "tools/Tool.h"

#include <memory>

namespace Editor {

class Drag;

/// Connects nodes: press on one, release on the other.
class ConnectTool : public Tool
{
    Q_OBJECT

public:
    explicit ConnectTool(Workbench &bench);
    ~ConnectTool() override;

    Qt::CursorShape cursor() const override { return Qt::CrossCursor; }
    void press(const Pointer &pointer) override;
    void move(const Pointer &pointer) override;
    void release(const Pointer &pointer) override;
    void hover(const Pointer &pointer) override; ///< Marks where a connection could begin.
    void cancel() override;
    void leave() override;

private:
    std::unique_ptr<Drag> m_drag;
};

} // namespace Editor
