#include "GraphScene.h"

#include "ElementSearch.h"
#include "SmoothPane.h"

#include <figura/connection/PolylineF.h>
#include <figura/view/FreeformLayer.h>

using Velmora::Figura::Figure;
using Velmora::Figura::FreeformLayer;
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

} // namespace

const QString GraphScene::DiagramKey = QStringLiteral("diagram");

GraphScene::GraphScene(bool edgesFirst)
{
    auto *diagram = new SmoothPane(&m_content);
    for (Kind kind : paintOrder(edgesFirst)) {
        // Nothing moves in here, so nobody needs to watch for it.
        auto *layer = new FreeformLayer(diagram, false);
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
    return found;
}

ElementFigure *GraphScene::elementAt(const QPoint &point, int tolerance) const
{
    PolylineF::M_tolerance = tolerance;
    const ElementSearch search;
    return qobject_cast<ElementFigure *>(m_content.findFigureAt(point.x(), point.y(), search));
}

} // namespace GraphViewer
