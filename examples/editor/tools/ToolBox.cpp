#include "tools/ToolBox.h"

#include "commands/ChangeElements.h"
#include "edit/Operations.h"
#include "edit/Workbench.h"
#include "tools/ConnectTool.h"
#include "tools/PanTool.h"
#include "tools/SelectTool.h"

#include <figura/diagram/DiagramView.h>
#include <figura/view/FreeformWidget.h>

#include <QKeyEvent>
#include <QMouseEvent>

namespace Editor {
namespace {

QPoint direction(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

ToolBox::ToolBox(Workbench &bench)
    : m_bench(bench)
    , m_canvas(bench.view()->getCanvas())
    , m_select(std::make_unique<SelectTool>(bench))
    , m_create(std::make_unique<CreateTool>(bench))
    , m_connect(std::make_unique<ConnectTool>(bench))
    , m_pan(std::make_unique<PanTool>(bench))
{
    for (Tool *tool : std::initializer_list<Tool *>{m_select.get(), m_create.get(), m_connect.get(),
                                                    m_pan.get()})
        adopt(tool);
    choose(m_select.get());
    m_canvas->installEventFilter(this);
    bench.view()->installEventFilter(this);
}

ToolBox::~ToolBox() = default;

void ToolBox::adopt(Tool *tool)
{
    connect(tool, &Tool::finished, this, &ToolBox::select);
    connect(tool, &Tool::textEditWanted, this, &ToolBox::textEditWanted);
    connect(tool, &Tool::cursorWanted, this,
            [this](Qt::CursorShape shape) { m_canvas->setCursor(shape); });
}

void ToolBox::choose(Tool *tool)
{
    if (m_current && m_current != tool)
        m_current->leave();
    m_current = tool;
    m_isHeld = false;
    m_canvas->setCursor(tool->cursor());
    Q_EMIT toolChanged();
}

ToolBox::Kind ToolBox::kind() const
{
    if (m_current == m_create.get())
        return Kind::Create;
    if (m_current == m_connect.get())
        return Kind::Connect;
    return m_current == m_pan.get() ? Kind::Pan : Kind::Select;
}

void ToolBox::select()
{
    choose(m_select.get());
}

void ToolBox::connectNodes()
{
    choose(m_connect.get());
}

void ToolBox::pan()
{
    choose(m_pan.get());
}

void ToolBox::create(const Node &pattern)
{
    m_create->setPattern(pattern);
    choose(m_create.get());
}

// Keys go to the view, the mouse to the canvas in it. While the view drags the paper, both are its.
bool ToolBox::eventFilter(QObject *watched, QEvent *event)
{
    if (m_bench.view()->isPanning())
        return false;
    if (watched == m_canvas)
        return handleCanvas(event);
    if (event->type() == QEvent::KeyPress)
        return pressKey(static_cast<QKeyEvent *>(event));
    return false;
}

bool ToolBox::handleCanvas(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonDblClick:
        return doubleClick(static_cast<QMouseEvent *>(event));
    case QEvent::Leave:
        if (!m_isHeld)
            m_current->leave();
        return false;
    default:
        return false;
    }
}

Pointer ToolBox::pointerOf(const QMouseEvent *event) const
{
    return {m_canvas->toLogical(event->position()).toPoint(), event->globalPosition().toPoint(),
            event->modifiers()};
}

bool ToolBox::press(const QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    m_bench.view()->setFocus(Qt::MouseFocusReason);
    m_isHeld = true;
    m_current->press(pointerOf(event));
    return true;
}

bool ToolBox::move(const QMouseEvent *event)
{
    const Pointer pointer = pointerOf(event);
    Q_EMIT pointerMoved(pointer.at);
    if (m_isHeld && event->buttons().testFlag(Qt::LeftButton)) {
        m_current->move(pointer);
        if (kind() != Kind::Pan)
            keepInView(pointer.at);
    } else if (event->buttons() == Qt::NoButton) {
        m_current->hover(pointer);
    }
    return m_isHeld;
}

// A drag beyond the edge scrolls.
void ToolBox::keepInView(const QPoint &content)
{
    const QPoint position = m_bench.view()->fromContent(content);
    if (!m_bench.view()->viewport()->rect().contains(position))
        m_bench.view()->reveal(QRect(content, QSize(1, 1)));
}

bool ToolBox::release(const QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_isHeld)
        return false;
    m_isHeld = false;
    m_current->release(pointerOf(event));
    return true;
}

bool ToolBox::doubleClick(const QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    m_isHeld = false;
    m_current->doubleClick(pointerOf(event));
    return true;
}

void ToolBox::cancel()
{
    if (!m_isHeld && kind() == Kind::Select)
        m_bench.selection().clear();
    m_isHeld = false;
    m_current->cancel();
}

bool ToolBox::pressKey(const QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        cancel();
        return true;
    case Qt::Key_Tab:
        Operations::walk(m_bench, 1);
        return true;
    case Qt::Key_Backtab:
        Operations::walk(m_bench, -1);
        return true;
    default:
        return nudge(event);
    }
}

// Keys that repeat themselves make one step.
bool ToolBox::nudge(const QKeyEvent *event)
{
    const QPoint way = direction(event->key());
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    const bool far = held == Qt::ShiftModifier;
    if (way.isNull() || m_bench.selection().nodes().isEmpty() || (held && !far))
        return false;
    if (!event->isAutoRepeat() || m_nudges < 0)
        m_nudges = ChangeElements::newSeries();
    constexpr int farStep = 10;
    Operations::nudge(m_bench, far ? way * farStep : way, m_nudges);
    return true;
}

} // namespace Editor
