#include "model/Document.h"
#include "scene/EdgeFigure.h"
#include "scene/LaneFigure.h"
#include "scene/Scene.h"
#include "scene/TextBlock.h"

#include <figura/diagram/Diagram.h>

using Velmora::Figura::Figure;

namespace Editor {
namespace {

QRect absolute(Figure *figure)
{
    QRect rect = figure->getBounds();
    return figure->translateToAbsolute(rect);
}

} // namespace

Figure *Scene::figure(int node) const
{
    return m_nodes.value(node).figure;
}

LaneFigure *Scene::lane(int node) const
{
    return qobject_cast<LaneFigure *>(figure(node));
}

EdgeFigure *Scene::connection(int edge) const
{
    return m_edges.value(edge);
}

QRect Scene::rect(int node) const
{
    Figure *shown = figure(node);
    return shown ? absolute(shown) : QRect();
}

QHash<int, QRect> Scene::rects(const QList<int> &nodes) const
{
    QHash<int, QRect> result;
    for (const int node : nodes)
        result.insert(node, rect(node));
    return result;
}

QList<QPoint> Scene::points(int edge) const
{
    EdgeFigure *shown = connection(edge);
    return shown ? shown->getPoints() : QList<QPoint>();
}

QRect Scene::boundsOf(int edge) const
{
    EdgeFigure *shown = connection(edge);
    return shown ? shown->getBounds() : QRect();
}

QRect Scene::labelRect(int edge) const
{
    const EdgeFigure *shown = connection(edge);
    return shown && shown->label() ? absolute(shown->label()) : QRect();
}

// In a lane the search goes on: the diagram only knows what was added to it.
int Scene::nodeAt(const QPoint &point) const
{
    const Figure *found = m_diagram.findFigureAt(point);
    if (const auto *home = qobject_cast<const LaneFigure *>(found))
        found = home->findFigureAt(point);
    while (found && !m_ids.contains(found))
        found = found->getParentFigure();
    return m_ids.value(found);
}

int Scene::laneAt(const QPoint &point, const QList<int> &except) const
{
    const QList<int> &order = m_document.nodeOrder();
    for (auto id = order.crbegin(); id != order.crend(); ++id) {
        if (m_document.node(*id)->kind == NodeKind::Lane && !except.contains(*id) &&
            rect(*id).contains(point))
            return *id;
    }
    return 0;
}

int Scene::edgeAt(const QPoint &point) const
{
    return m_ids.value(m_diagram.findConnectionAt(point));
}

int Scene::labelAt(const QPoint &point) const
{
    const int edge = edgeAt(point); // a label is part of its connection
    return edge != 0 && labelRect(edge).contains(point) ? edge : 0;
}

QList<int> Scene::elementsIn(const QRect &area) const
{
    QList<int> result;
    for (const int node : m_document.nodeOrder()) {
        if (area.contains(rect(node)))
            result << node;
    }
    for (const int edge : m_document.edgeOrder()) {
        if (area.contains(boundsOf(edge)))
            result << edge;
    }
    return result;
}

QList<Figure *> Scene::figuresOf(const QList<int> &nodes) const
{
    QList<Figure *> result;
    for (const int node : nodes) {
        if (Figure *shown = figure(node))
            result << shown;
    }
    return result;
}

// An empty diagram has no bounds to lay out in, and says so.
void Scene::validate() const
{
    if (!m_nodes.isEmpty())
        m_diagram.validate();
}

void Scene::settle() const
{
    const QList<int> &order = m_document.edgeOrder();
    const bool needed = std::any_of(order.cbegin(), order.cend(), [this](int id) {
        return m_document.edge(id)->routing == Routing::Manhattan;
    });
    if (needed)
        m_diagram.reroute();
}

} // namespace Editor
