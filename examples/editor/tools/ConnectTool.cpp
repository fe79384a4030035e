#include "tools/ConnectTool.h"

#include "edit/Workbench.h"
#include "feedback/Feedback.h"
#include "tools/ConnectDrag.h"

namespace Editor {

ConnectTool::ConnectTool(Workbench &bench)
    : Tool(bench)
{
}

ConnectTool::~ConnectTool() = default;

void ConnectTool::press(const Pointer &pointer)
{
    bench().scene().validate();
    if (const int node = bench().scene().nodeAt(pointer.at))
        m_drag = std::make_unique<ConnectDrag>(bench(), pointer, node);
}

void ConnectTool::move(const Pointer &pointer)
{
    if (m_drag)
        m_drag->moveTo(pointer);
}

void ConnectTool::release(const Pointer &pointer)
{
    if (m_drag)
        m_drag->finish(pointer);
    m_drag.reset();
}

void ConnectTool::hover(const Pointer &pointer)
{
    bench().scene().validate();
    const int node = bench().scene().nodeAt(pointer.at);
    bench().feedback().setTarget(bench().scene().rect(node));
}

// Without a drag it is the tool itself that is given up.
void ConnectTool::cancel()
{
    const bool isDragging = m_drag != nullptr;
    m_drag.reset();
    if (!isDragging)
        Q_EMIT finished();
}

void ConnectTool::leave()
{
    bench().feedback().clear();
}

} // namespace Editor
