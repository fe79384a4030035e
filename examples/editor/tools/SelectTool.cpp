#include "tools/SelectTool.h"

#include "arrange/Handle.h"
#include "edit/Workbench.h"
#include "feedback/Feedback.h"
#include "scene/Way.h"
#include "tools/BandDrag.h"
#include "tools/BendDrag.h"
#include "tools/ConnectDrag.h"
#include "tools/LabelDrag.h"
#include "tools/MoveDrag.h"
#include "tools/ReconnectDrag.h"
#include "tools/ResizeDrag.h"

#include <QApplication>

namespace Editor {

SelectTool::SelectTool(Workbench &bench)
    : Tool(bench)
{
}

SelectTool::~SelectTool() = default;

const Grip *SelectTool::gripAt(const QPoint &point) const
{
    return Grips::at(bench().feedback().grips(), point, bench().units(Grips::handleSize / 2 + 1));
}

const Grip *SelectTool::portAt(const QPoint &point) const
{
    return Grips::at(bench().feedback().ports(), point, bench().units(Grips::portSize / 2.0));
}

void SelectTool::press(const Pointer &pointer)
{
    m_start = pointer;
    m_toggled = m_clicked = 0;
    bench().scene().validate();
    m_begin = beginAt(pointer);
}

SelectTool::Begin SelectTool::beginAt(const Pointer &pointer)
{
    if (const Grip *grip = gripAt(pointer.at))
        return beginAtGrip(*grip);
    if (const Grip *port = portAt(pointer.at))
        return beginAtGrip(*port);
    Workbench &bench = this->bench();
    if (const int edge = bench.scene().labelAt(pointer.at)) {
        choose(edge, pointer);
        return [&bench, edge](const Pointer &at) {
            return std::make_unique<LabelDrag>(bench, at, edge);
        };
    }
    if (const int edge = bench.scene().edgeAt(pointer.at)) {
        choose(edge, pointer);
        return beginAtLine(edge, pointer.at);
    }
    const int node = bench.scene().nodeAt(pointer.at);
    if (node == 0) {
        if (!pointer.modifiers.testFlag(Qt::ShiftModifier))
            bench.selection().clear();
        return [&bench](const Pointer &at) { return std::make_unique<BandDrag>(bench, at); };
    }
    choose(node, pointer);
    return [&bench](const Pointer &at) { return std::make_unique<MoveDrag>(bench, at); };
}

// One of several stays with the others, for they may be about to be dragged together.
void SelectTool::choose(int id, const Pointer &pointer)
{
    Selection &selection = bench().selection();
    const bool chosen = selection.contains(id);
    if (pointer.modifiers.testFlag(Qt::ShiftModifier)) {
        if (chosen)
            m_toggled = id;
        else
            selection.toggle(id);
    } else if (chosen) {
        m_clicked = id;
    } else {
        selection.set({id});
    }
}

SelectTool::Begin SelectTool::beginAtGrip(const Grip &grip)
{
    Workbench &bench = this->bench();
    return [&bench, grip](const Pointer &at) -> std::unique_ptr<Drag> {
        switch (grip.kind) {
        case Grip::Kind::Resize:
            return std::make_unique<ResizeDrag>(bench, at, grip.id, grip.edges);
        case Grip::Kind::Bend:
            return std::make_unique<BendDrag>(bench, at, grip.id, grip.index,
                                              BendDrag::Bend::Present);
        case Grip::Kind::Segment:
            return std::make_unique<BendDrag>(bench, at, grip.id, grip.index, BendDrag::Bend::New);
        case Grip::Kind::Source:
            return std::make_unique<ReconnectDrag>(bench, at, grip.id, Reconnect::End::Source);
        case Grip::Kind::Target:
            return std::make_unique<ReconnectDrag>(bench, at, grip.id, Reconnect::End::Target);
        case Grip::Kind::Port:
            break;
        }
        return std::make_unique<ConnectDrag>(bench, at, grip.id);
    };
}

// Where the router finds the corners, dragging the line does nothing.
SelectTool::Begin SelectTool::beginAtLine(int edge, const QPoint &point)
{
    Workbench &bench = this->bench();
    if (bench.document().edge(edge)->routing == Routing::Manhattan)
        return {};
    const int segment = static_cast<int>(Way::segmentNear(bench.scene().points(edge), point));
    return [&bench, edge, segment](const Pointer &at) {
        return std::make_unique<BendDrag>(bench, at, edge, segment, BendDrag::Bend::New);
    };
}

void SelectTool::move(const Pointer &pointer)
{
    if (!m_drag) {
        const QPoint way = pointer.screen - m_start.screen;
        if (!m_begin || way.manhattanLength() < QApplication::startDragDistance())
            return;
        bench().feedback().setPortNode(0);
        m_drag = m_begin(m_start);
    }
    m_drag->moveTo(pointer);
}

void SelectTool::release(const Pointer &pointer)
{
    m_begin = nullptr;
    if (m_drag) {
        m_drag->finish(pointer);
        m_drag.reset();
    } else if (m_toggled) {
        bench().selection().toggle(m_toggled);
    } else if (m_clicked) {
        bench().selection().set({m_clicked});
    }
    m_toggled = m_clicked = 0;
}

void SelectTool::cancel()
{
    m_begin = nullptr;
    if (m_drag)
        m_drag->cancel();
    m_drag.reset();
}

// A little beyond its sides, so that the mouse reaches the ports.
int SelectTool::nodeToConnect(const QPoint &point) const
{
    const int node = bench().scene().nodeAt(point);
    if (node != 0)
        return node;
    const int shown = bench().feedback().portNode();
    const int reach = bench().units(Grips::portDistance + Grips::portSize);
    const QRect around = bench().scene().rect(shown).adjusted(-reach, -reach, reach, reach);
    return around.contains(point) ? shown : 0;
}

Qt::CursorShape SelectTool::cursorAt(const QPoint &point) const
{
    if (const Grip *grip = gripAt(point))
        return grip->kind == Grip::Kind::Resize ? handleCursor(grip->edges)
                                                : Qt::PointingHandCursor;
    if (portAt(point))
        return Qt::CrossCursor;
    if (bench().scene().edgeAt(point))
        return Qt::PointingHandCursor;
    return bench().scene().nodeAt(point) ? Qt::SizeAllCursor : Qt::ArrowCursor;
}

void SelectTool::hover(const Pointer &pointer)
{
    bench().scene().validate();
    bench().feedback().setPortNode(nodeToConnect(pointer.at));
    Q_EMIT cursorWanted(cursorAt(pointer.at));
}

void SelectTool::doubleClick(const Pointer &pointer)
{
    cancel();
    const int edge = bench().scene().edgeAt(pointer.at);
    const int id = edge ? edge : bench().scene().nodeAt(pointer.at);
    if (id != 0)
        Q_EMIT textEditWanted(id);
}

void SelectTool::leave()
{
    bench().feedback().setPortNode(0);
}

} // namespace Editor
