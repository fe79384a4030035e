#pragma once

#include "feedback/Grips.h"
#include "tools/Tool.h"

#include <functional>
#include <memory>

namespace Editor {

class Drag;

/// Selects, moves, resizes, connects by ports, bends and reconnects: whatever the mouse takes hold
/// of.
class SelectTool : public Tool
{
    Q_OBJECT

public:
    explicit SelectTool(Workbench &bench);
    ~SelectTool() override;

    Qt::CursorShape cursor() const override { return Qt::ArrowCursor; }
    void press(const Pointer &pointer) override;
    void move(const Pointer &pointer) override;
    void release(const Pointer &pointer) override;
    void hover(const Pointer &pointer) override;
    void doubleClick(const Pointer &pointer) override;
    void cancel() override;
    void leave() override;

private:
    using Begin = std::function<std::unique_ptr<Drag>(const Pointer &start)>;

    Begin beginAt(const Pointer &pointer);
    Begin beginAtGrip(const Grip &grip);
    Begin beginAtLine(int edge, const QPoint &point);
    void choose(int id, const Pointer &pointer);
    const Grip *gripAt(const QPoint &point) const;
    const Grip *portAt(const QPoint &point) const;
    Qt::CursorShape cursorAt(const QPoint &point) const;
    int nodeToConnect(const QPoint &point) const;

    Begin m_begin; // what a drag from here would be
    Pointer m_start;
    int m_toggled = 0; // a click takes it out of the selection, but a drag does not
    int m_clicked = 0; // a click selects it alone
    std::unique_ptr<Drag> m_drag;
};

} // namespace Editor
