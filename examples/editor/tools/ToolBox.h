#pragma once

#include "tools/CreateTool.h"

#include <memory>

class QInputEvent;
class QKeyEvent;
class QMouseEvent;

namespace Velmora::Figura {
class FreeformWidget;
}

namespace Editor {

class ConnectTool;
class PanTool;
class SelectTool;

/// Has the four tools and hands the events of the canvas to the chosen one.
class ToolBox : public QObject
{
    Q_OBJECT

public:
    explicit ToolBox(Workbench &bench);
    ~ToolBox() override;

    enum class Kind { Select, Create, Connect, Pan };

    Kind kind() const; ///< Of the chosen tool.

    void select();
    void connectNodes();
    void pan();
    void create(const Node &pattern);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void toolChanged();
    void textEditWanted(int id);
    void pointerMoved(const QPoint &content);

private:
    void choose(Tool *tool);
    void adopt(Tool *tool);
    bool handleCanvas(QEvent *event);
    bool press(const QMouseEvent *event);
    bool move(const QMouseEvent *event);
    bool release(const QMouseEvent *event);
    bool doubleClick(const QMouseEvent *event);
    bool pressKey(const QKeyEvent *event);
    bool nudge(const QKeyEvent *event);
    void cancel();
    void keepInView(const QPoint &content);
    Pointer pointerOf(const QMouseEvent *event) const;

    Workbench &m_bench;
    Velmora::Figura::FreeformWidget *m_canvas;
    std::unique_ptr<SelectTool> m_select;
    std::unique_ptr<CreateTool> m_create;
    std::unique_ptr<ConnectTool> m_connect;
    std::unique_ptr<PanTool> m_pan;
    Tool *m_current = nullptr;
    bool m_isHeld = false; // the left button, by the current tool
    int m_nudges = -1;     // the series of the arrow key that is held
};

} // namespace Editor
