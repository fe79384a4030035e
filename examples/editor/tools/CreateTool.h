#pragma once

#include "model/Node.h"
#include "tools/Tool.h"

#include <optional>

namespace Editor {

/// Makes a node where the mouse clicks, in its usual size, or as large as a rectangle is dragged.
class CreateTool : public Tool
{
    Q_OBJECT

public:
    explicit CreateTool(Workbench &bench);

    void setPattern(const Node &pattern) { m_pattern = pattern; } ///< Its size is the usual one.
    static Node patternOf(NodeKind kind);

    Qt::CursorShape cursor() const override { return Qt::CrossCursor; }
    void press(const Pointer &pointer) override;
    void move(const Pointer &pointer) override;
    void release(const Pointer &pointer) override;
    void cancel() override;

private:
    QRect dragged(const Pointer &pointer) const;

    Node m_pattern;
    std::optional<Pointer> m_start;
    bool m_isDrag = false;
};

} // namespace Editor
