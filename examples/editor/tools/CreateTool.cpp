#include "tools/CreateTool.h"

#include "edit/Operations.h"
#include "edit/Workbench.h"
#include "feedback/Feedback.h"
#include "tools/Snapper.h"

#include <QApplication>

namespace Editor {
namespace {

QSize usualSize(NodeKind kind)
{
    switch (kind) {
    case NodeKind::Diamond:
        return {120, 80};
    case NodeKind::Text:
        return {120, 30};
    case NodeKind::Lane:
        return {200, 320};
    case NodeKind::Specimen:
        return {180, 120};
    default:
        return {120, 60};
    }
}

} // namespace

CreateTool::CreateTool(Workbench &bench)
    : Tool(bench)
{
}

Node CreateTool::patternOf(NodeKind kind)
{
    Node node;
    node.kind = kind;
    node.rect.setSize(usualSize(kind));
    if (kind == NodeKind::Text)
        node.text = tr("Text");
    if (kind == NodeKind::Lane)
        node.text = tr("Lane");
    return node;
}

void CreateTool::press(const Pointer &pointer)
{
    m_start = pointer;
    m_isDrag = false;
}

QRect CreateTool::dragged(const Pointer &pointer) const
{
    const QPoint from = Snapper::snapped(bench(), m_start->at);
    const QPoint to = Snapper::snapped(bench(), pointer.at);
    return QRect(from, QSize(to.x() - from.x(), to.y() - from.y())).normalized();
}

void CreateTool::move(const Pointer &pointer)
{
    const QPoint way = pointer.screen - m_start->screen;
    m_isDrag = m_isDrag || way.manhattanLength() >= QApplication::startDragDistance();
    if (m_isDrag)
        bench().feedback().setTarget(dragged(pointer));
}

void CreateTool::release(const Pointer &pointer)
{
    if (!m_start)
        return;
    Node node = m_pattern;
    if (m_isDrag) {
        node.rect = dragged(pointer);
    } else {
        node.rect.moveCenter(pointer.at);
        node.rect.moveTopLeft(Snapper::snapped(bench(), node.rect.topLeft()));
    }
    m_start.reset();
    bench().feedback().clear();
    Operations::create(bench(), node);
    Q_EMIT finished();
}

void CreateTool::cancel()
{
    m_start.reset();
    bench().feedback().clear();
    Q_EMIT finished();
}

} // namespace Editor
