#include "GraphScene.h"

#include "EdgeConnection.h"
#include "EdgeLabel.h"
#include "ElementSearch.h"
#include "SmoothPane.h"

#include <figura/connection/ConnectionLayer.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/view/FreeformLayer.h>

using Velmora::Figura::ConnectionLayer;
using Velmora::Figura::Figure;
using Velmora::Figura::FreeformLayer;
using Velmora::Figura::FreeformLayout;
using Velmora::Figura::PolylineF;

namespace GraphViewer {
namespace {

using Kind = ElementFigure::Kind;

QString keyOf(Kind kind)
{
    switch (kind) {
    case Kind::Background:
        return QStringLiteral("background");
    case Kind::Cluster:
        return QStringLiteral("clusters");
    case Kind::Node:
        return QStringLiteral("nodes");
    case Kind::Edge:
        return QStringLiteral("edges");
    case Kind::Label:
        return QStringLiteral("labels");
    }
    return {};
}

QList<Kind> paintOrder(bool edgesFirst)
{
    QList<Kind> order = {Kind::Background, Kind::Cluster, Kind::Node, Kind::Edge, Kind::Label};
    if (edgesFirst)
        order.swapItemsAt(2, 3);
    return order;
}

// Nodes move while they are dragged, and the extent is examined when they are let go; watching each
// of them would examine it for every node that is added.
FreeformLayer *createLayer(Kind kind, QObject *parent)
{
    if (kind != Kind::Edge)
        return new FreeformLayer(parent, false);
    auto *layer = new ConnectionLayer(parent, false);
    layer->setAntialias(true);
    return layer;
}

} // namespace

const QString GraphScene::DiagramKey = QStringLiteral("diagram");

GraphScene::GraphScene(bool edgesFirst)
{
    auto *diagram = new SmoothPane(&m_content);
    for (Kind kind : paintOrder(edgesFirst)) {
        FreeformLayer *layer = createLayer(kind, diagram);
        diagram->addLayer(layer, keyOf(kind));
        m_layers.insert(kind, layer);
    }
    m_content.addLayer(diagram, DiagramKey);
}

GraphScene::~GraphScene() = default;

FreeformLayer *GraphScene::layer(ElementFigure::Kind kind) const
{
    return m_layers.value(kind);
}

QRect GraphScene::area()
{
    return m_content.getFreeformExtent();
}

ElementFigure *GraphScene::add(std::unique_ptr<ElementFigure> element)
{
    FreeformLayer *parent = layer(element->kind());
    element->setParent(parent);
    parent->add(element.get(), element->home());
    return element.release();
}

QList<ElementFigure *> GraphScene::elements(ElementFigure::Kind kind) const
{
    QList<ElementFigure *> found;
    const QList<Figure *> children = layer(kind)->childFigures();
    for (Figure *child : children)
        found << qobject_cast<ElementFigure *>(child);
    found.removeAll(nullptr);
    return found;
}

EdgeConnection *GraphScene::addEdge(std::unique_ptr<EdgeConnection> edge, double lane)
{
    FreeformLayer *parent = layer(Kind::Edge);
    EdgeConnection *figure = edge.release();
    figure->setParent(parent);
    parent->add(figure);
    const qsizetype index = m_edges.size();
    m_edges << Edge{figure, lane, {}};
    m_edgeIndices.insert(figure, index);
    m_edgesOfNode.insert(figure->tail(), index);
    m_edgesOfNode.insert(figure->head(), index);
    route(m_edges.last());
    return figure;
}

EdgeLabel *GraphScene::addLabel(std::unique_ptr<EdgeLabel> label, EdgeConnection *edge)
{
    auto *figure = static_cast<EdgeLabel *>(add(std::move(label)));
    m_edges[m_edgeIndices.value(edge)].labels << figure;
    return figure;
}

QList<EdgeConnection *> GraphScene::edges() const
{
    QList<EdgeConnection *> found;
    for (const Edge &edge : m_edges)
        found << edge.figure;
    return found;
}

void GraphScene::setRouting(Routing routing)
{
    m_routing = routing;
    for (const Edge &edge : std::as_const(m_edges))
        route(edge);
}

void GraphScene::route(const Edge &edge)
{
    const bool moved =
        m_movedNodes.contains(edge.figure->tail()) || m_movedNodes.contains(edge.figure->head());
    Routing routing = m_routing;
    if (moved && routing == Routing::Engine)
        routing = Routing::Straight;
    else if (!moved && edge.figure->isLoop())
        routing = Routing::Engine; // no other way leads from a node to itself
    m_routers.apply(edge.figure, routing, edge.lane);
    for (EdgeLabel *label : edge.labels)
        label->followEdge(routing != Routing::Engine);
}

void GraphScene::moveNode(ElementFigure *node, const QPoint &corner)
{
    m_movedNodes.insert(node);
    node->setBounds({corner, node->getBounds().size()}); // the layer's layout takes it over
    const QList<qsizetype> edges = m_edgesOfNode.values(node);
    for (qsizetype edge : edges)
        route(m_edges.at(edge));
}

void GraphScene::settle()
{
    for (Kind kind : {Kind::Node, Kind::Label})
        qobject_cast<FreeformLayout *>(layer(kind)->getLayoutManager())->examineExtent();
}

Element *GraphScene::elementAt(const QPoint &point, int tolerance) const
{
    PolylineF::M_tolerance = tolerance;
    const ElementSearch search;
    return dynamic_cast<Element *>(m_content.findFigureAt(point.x(), point.y(), search));
}

} // namespace GraphViewer
