#pragma once

#include <QObject>
#include <QPoint>

namespace Editor {

class Workbench;

/// Where the mouse is.
struct Pointer
{
    QPoint at;     ///< In content coordinates.
    QPoint screen; ///< In pixels of the screen.
    Qt::KeyboardModifiers modifiers;
};

/// What the mouse does while the tool is chosen: one of select, create, connect and pan.
class Tool : public QObject
{
    Q_OBJECT

public:
    explicit Tool(Workbench &bench);

    virtual Qt::CursorShape cursor() const = 0;

    // The left button; move() only while it is held, hover() only while it is not.
    virtual void press(const Pointer &pointer) = 0;
    virtual void move(const Pointer &pointer) = 0;
    virtual void release(const Pointer &pointer) = 0;
    virtual void hover(const Pointer &pointer);
    virtual void doubleClick(const Pointer &pointer);
    virtual void cancel() = 0; ///< Takes back what the button has begun.
    virtual void leave();      ///< Another tool comes, or the mouse has left.

Q_SIGNALS:
    void finished();                          ///< The tool has done what it is for.
    void cursorWanted(Qt::CursorShape shape); ///< While hovering.
    void textEditWanted(int id);              ///< Of a node or an edge.

protected:
    Workbench &bench() const { return m_bench; }

private:
    Workbench &m_bench;
};

} // namespace Editor
