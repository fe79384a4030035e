#include "tools/PanTool.h"

#include "edit/Workbench.h"

#include <figura/diagram/DiagramView.h>

#include <QScrollBar>

namespace Editor {
namespace {

void scroll(QScrollBar *bar, int way)
{
    bar->setValue(bar->value() - way);
}

} // namespace

PanTool::PanTool(Workbench &bench)
    : Tool(bench)
{
}

Qt::CursorShape PanTool::cursor() const
{
    return m_isHeld ? Qt::ClosedHandCursor : Qt::OpenHandCursor;
}

void PanTool::press(const Pointer &pointer)
{
    m_last = pointer.screen;
    m_isHeld = true;
    Q_EMIT cursorWanted(cursor());
}

void PanTool::move(const Pointer &pointer)
{
    const QPoint way = pointer.screen - m_last;
    m_last = pointer.screen;
    scroll(bench().view()->horizontalScrollBar(), way.x());
    scroll(bench().view()->verticalScrollBar(), way.y());
}

void PanTool::release(const Pointer & /*pointer*/)
{
    m_isHeld = false;
    Q_EMIT cursorWanted(cursor());
}

void PanTool::cancel()
{
    if (!m_isHeld)
        Q_EMIT finished();
    m_isHeld = false;
    Q_EMIT cursorWanted(cursor());
}

} // namespace Editor
