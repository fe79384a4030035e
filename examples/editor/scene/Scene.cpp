#include "scene/Scene.h"

#include "model/Document.h"
#include "scene/EdgeFigure.h"
#include "scene/LaneFigure.h"
#include "scene/NodeFigures.h"

#include <figura/diagram/Diagram.h>

using Velmora::Figura::Diagram;
using Velmora::Figura::Figure;
using Velmora::Figura::rebuildPaths;

// What happens when the document changes; SceneGeometry.cpp has the questions.

namespace Editor {
namespace {

Diagram::Routing toDiagram(Routing routing)
{
    switch (routing) {
    case Routing::Bendpoint:
        return Diagram::Routing::Bendpoints;
    case Routing::Manhattan:
        return Diagram::Routing::Manhattan;
    case Routing::Straight:
        break;
    }
    return Diagram::Routing::Straight;
}

bool looksDiffer(Node a, const Node &b)
{
    a.rect = b.rect;
    return a != b;
}

} // namespace

Scene::Scene(Document &document, Diagram &diagram)
    : m_document(document)
    , m_diagram(diagram)
{
    connectDocument();
    build();
}

Scene::~Scene()
{
    m_diagram.clear();
}

void Scene::connectDocument()
{
    connect(&m_document, &Document::reset, this, &Scene::build);
    connect(&m_document, &Document::nodeInserted, this, &Scene::insertNode);
    connect(&m_document, &Document::nodeRemoved, this, &Scene::removeNode);
    connect(&m_document, &Document::nodeChanged, this, &Scene::changeNode);
    connect(&m_document, &Document::nodesReordered, this, &Scene::reorder);
    connect(&m_document, &Document::edgeInserted, this, &Scene::insertEdge);
    connect(&m_document, &Document::edgeRemoved, this, &Scene::removeEdge);
    connect(&m_document, &Document::edgeChanged, this, &Scene::changeEdge);
}

// Lanes first: what is in them needs them.
void Scene::build()
{
    m_diagram.clear();
    m_nodes.clear();
    m_edges.clear();
    m_ids.clear();
    for (const bool inLanes : {false, true}) {
        for (const int id : m_document.nodeOrder()) {
            if ((m_document.node(id)->lane != 0) == inLanes)
                insertNode(id);
        }
    }
    for (const int id : m_document.edgeOrder())
        insertEdge(id);
    settle();
}

void Scene::setTheme(const Theme &theme)
{
    m_theme = &theme;
    for (const Shown &shown : std::as_const(m_nodes))
        NodeFigures::update(shown.figure, shown.node, theme);
    for (auto edge = m_edges.cbegin(); edge != m_edges.cend(); ++edge)
        edge.value()->show(*m_document.edge(edge.key()), theme);
}

// While a lane is being removed or brought back, what was in it may be there without it.
void Scene::insertNode(int id)
{
    const Node &node = *m_document.node(id);
    Shown shown{node, NodeFigures::create(node, nullptr), lane(node.lane)};
    m_ids.insert(shown.figure, id);
    NodeFigures::update(shown.figure, node, *m_theme);
    place(shown);
    m_nodes.insert(id, shown);
    if (node.kind != NodeKind::Lane)
        return;
    const QList<int> children = m_document.nodesIn(id);
    for (const int child : children) {
        if (m_nodes.contains(child))
            rebuildNode(child);
    }
}

void Scene::place(const Shown &shown)
{
    const int index = placeBefore(shown.node.id);
    if (!shown.lane) {
        m_diagram.add(shown.figure, shown.node.rect, index);
        return;
    }
    shown.figure->setParent(shown.lane);
    shown.lane->insert(shown.figure, shown.node.rect.size(), index);
    rebuildPaths(shown.figure);
}

// How many of those that share its place are below it; -1, on top, for the usual case.
int Scene::placeBefore(int id) const
{
    const QList<int> &order = m_document.nodeOrder();
    if (order.last() == id)
        return -1;
    LaneFigure *home = lane(m_document.node(id)->lane);
    int index = 0;
    for (const int other : order) {
        if (other == id)
            break;
        const auto shown = m_nodes.constFind(other);
        index += shown != m_nodes.cend() && shown->lane == home;
    }
    return index;
}

void Scene::unplace(const Shown &shown)
{
    m_ids.remove(shown.figure);
    if (!shown.lane) {
        m_diagram.remove(shown.figure);
        return;
    }
    shown.lane->take(shown.figure);
    shown.figure->deleteLater();
}

void Scene::removeNode(int id)
{
    const Shown shown = m_nodes.take(id);
    const QList<int> orphans = nodesShownIn(qobject_cast<LaneFigure *>(shown.figure));
    for (const int orphan : orphans)
        rebuildNode(orphan);
    unplace(shown);
}

QList<int> Scene::nodesShownIn(const LaneFigure *lane) const
{
    QList<int> result;
    if (!lane)
        return result;
    const QList<Figure *> figures = lane->figures();
    for (const Figure *figure : figures)
        result << m_ids.value(figure);
    return result;
}

// A figure that leaves the diagram or a lane takes its connections along.
void Scene::rebuildNode(int id)
{
    QList<int> edges = m_document.edgesOf(id);
    edges.removeIf([this](int edge) { return !m_edges.contains(edge); });
    for (const int edge : std::as_const(edges))
        removeEdge(edge);
    unplace(m_nodes.take(id));
    insertNode(id);
    for (const int edge : std::as_const(edges))
        insertEdge(edge);
}

void Scene::changeNode(int id)
{
    const Node &node = *m_document.node(id);
    Shown &shown = m_nodes[id];
    if (shown.node.lane != node.lane || shown.node.specimen != node.specimen) {
        rebuildNode(id);
        return;
    }
    if (shown.node.rect != node.rect)
        moveTo(shown, node);
    if (looksDiffer(shown.node, node))
        NodeFigures::update(shown.figure, node, *m_theme);
    shown.node = node;
}

void Scene::moveTo(Shown &shown, const Node &node)
{
    if (shown.lane)
        shown.lane->resize(shown.figure, node.rect.size());
    else
        m_diagram.setBounds(shown.figure, node.rect);
}

void Scene::reorder()
{
    QList<Figure *> now = m_diagram.getFigures();
    qsizetype index = 0;
    for (const int id : m_document.nodeOrder()) {
        const Shown &shown = m_nodes[id];
        if (shown.node.kind == NodeKind::Lane)
            reorderLane(id);
        if (shown.lane)
            continue;
        if (now.value(index) != shown.figure) {
            m_diagram.setIndex(shown.figure, static_cast<int>(index));
            now.move(now.indexOf(shown.figure), index);
        }
        ++index;
    }
}

void Scene::reorderLane(int id)
{
    LaneFigure *home = lane(id);
    QList<int> wanted = m_document.nodesIn(id);
    wanted.removeIf([this, home](int node) { return m_nodes.value(node).lane != home; });
    if (wanted == nodesShownIn(home))
        return;
    for (const int node : std::as_const(wanted)) {
        const Shown &shown = m_nodes[node];
        home->take(shown.figure);
        home->insert(shown.figure, shown.node.rect.size(), -1);
    }
}

void Scene::insertEdge(int id)
{
    const Edge &edge = *m_document.edge(id);
    auto *connection = new EdgeFigure;
    m_edges.insert(id, connection);
    m_ids.insert(connection, id);
    m_diagram.add(connection, figure(edge.source), figure(edge.target), toDiagram(edge.routing));
    const QList<int> &order = m_document.edgeOrder();
    if (order.last() != id)
        m_diagram.setIndex(connection, static_cast<int>(order.indexOf(id)));
    route(connection, edge);
    connection->show(edge, *m_theme);
}

void Scene::route(EdgeFigure *connection, const Edge &edge)
{
    m_diagram.setRouting(connection, toDiagram(edge.routing));
    if (m_diagram.getBendpoints(connection) != edge.bends)
        m_diagram.setBendpoints(connection, edge.bends);
}

void Scene::removeEdge(int id)
{
    EdgeFigure *connection = m_edges.take(id);
    m_ids.remove(connection);
    m_diagram.remove(connection);
}

void Scene::changeEdge(int id)
{
    const Edge &edge = *m_document.edge(id);
    EdgeFigure *connection = m_edges.value(id);
    Figure *source = figure(edge.source);
    Figure *target = figure(edge.target);
    if (m_diagram.getSource(connection) != source || m_diagram.getTarget(connection) != target)
        m_diagram.reconnect(connection, source, target);
    route(connection, edge);
    connection->show(edge, *m_theme);
}

} // namespace Editor
