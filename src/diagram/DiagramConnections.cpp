#include <figura/diagram/Diagram.h>

#include "bendrouter_p.h"
#include "diagramlinks_p.h"

#include "eachchild_p.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/decoration/ConnectionLocator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/diagram/OutlineAnchor.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Rectangle.h>

#include <QGuiApplication>
#include <QPalette>

// The connections of a diagram.

namespace Velmora::Figura {
namespace {

QColor lineColor(const PolylineConnection *connection)
{
    const QColor color = connection->getEnabledFGColor();
    return color.isValid()
               ? color
               : QGuiApplication::palette().color(QPalette::Active, QPalette::ButtonText);
}

template<class Head>
Head *createHead(PolylineConnection *connection)
{
    auto *head = new Head(connection);
    const int width = connection->getLineWidth();
    const double factor = 1.0 + 0.5 * width; // a wide line would hide a small head
    head->setScale(7.0 * factor, 3.0 * factor);
    head->setLineWidth(width);
    head->setEnabledFGColor(lineColor(connection));
    head->setEnabledBGColor(lineColor(connection));
    return head;
}

IRotatableDecoration *createHead(PolylineConnection *connection, Diagram::Arrow arrow)
{
    if (arrow == Diagram::Arrow::Open)
        return createHead<PolylineDecoration>(connection);
    return createHead<PolygonDecoration>(connection);
}

void discard(Figure *child)
{
    if (!child)
        return;
    if (Figure *parent = child->getParentFigure())
        parent->remove(child);
    child->deleteLater();
}

TextFigure *createLabel(PolylineConnection *connection)
{
    auto *label = new TextFigure(connection);
    label->setAlignment(Qt::AlignCenter);
    label->setMargin(1);
    auto *locator = new ConnectionLocator(connection, ConnectionLocator::MIDDLE, label);
    connection->add(label, QVariant::fromValue<QObject *>(locator));
    return label;
}

} // namespace

IConnectionAnchor *Diagram::createAnchor(Figure *figure, QObject *parent)
{
    if (qobject_cast<Ellipse *>(figure))
        return new EllipseAnchor(figure, parent);
    auto *shape = qobject_cast<Shape *>(figure);
    if (shape && !qobject_cast<Rectangle *>(figure))
        return new OutlineAnchor(shape, parent);
    return new ChopboxAnchor(figure, parent);
}

PolylineConnection *Diagram::connect(Figure *source, Figure *target, Routing routing)
{
    if (!addedFigure(source) || !addedFigure(target))
        return nullptr;
    auto *connection = new PolylineConnection;
    return add(connection, source, target, routing) ? connection : nullptr;
}

bool Diagram::add(PolylineConnection *connection, Figure *source, Figure *target, Routing routing)
{
    if (!connection || connection->getParentFigure() ||
        connection->getFlag(Figure::FLAG_NOTIFIED) || !addedFigure(source) || !addedFigure(target))
        return false;

    const QPointer<PolylineConnection> added(connection);
    connection->setParent(m_connectionLayer);
    m_links->insert(connection, routing);
    setEnds(connection, source, target);
    m_connectionLayer->add(connection);
    applyRouting(connection);
    connect(connection, &QObject::destroyed, m_watch.get(), [this, connection]() {
        if (m_links->remove(connection))
            Q_EMIT connectionRemoved(connection);
    });
    connection->validate();
    Q_EMIT connectionAdded(connection);
    return !added.isNull();
}

bool Diagram::reconnect(PolylineConnection *connection, Figure *source, Figure *target)
{
    if (!m_links->find(connection) || !addedFigure(source) || !addedFigure(target))
        return false;
    setEnds(connection, source, target);
    applyRouting(connection); // it may have become a loop
    return true;
}

// One anchor for each end, as anchors want it. Those that were made here go with the next ones.
void Diagram::setEnds(PolylineConnection *connection, Figure *source, Figure *target)
{
    auto *former = dynamic_cast<QObject *>(connection->getSourceAnchor());
    auto *formerTarget = dynamic_cast<QObject *>(connection->getTargetAnchor());
    m_links->setEnds(connection, source, target);
    watchForDestruction(source);
    watchForDestruction(target);
    connection->setSourceAnchor(createAnchor(source, connection));
    connection->setTargetAnchor(createAnchor(target, connection));
    for (QObject *anchor : {former, formerTarget}) {
        if (anchor && anchor->parent() == connection)
            anchor->deleteLater();
    }
}

void Diagram::applyRouting(PolylineConnection *connection)
{
    const DiagramLink *link = m_links->find(connection);
    const bool loop = link->source == link->target;
    if (loop || link->routing == Routing::Bendpoints)
        connection->setConnectionRouter(m_bendRouter);
    else if (link->routing == Routing::Manhattan)
        connection->setConnectionRouter(m_manhattanRouter);
    else
        connection->setConnectionRouter(nullptr);
}

void Diagram::removeConnection(PolylineConnection *connection)
{
    if (!m_links->remove(connection))
        return;
    disconnect(connection, nullptr, m_watch.get(), nullptr);
    m_connectionLayer->remove(connection);
    connection->deleteLater();
    Q_EMIT connectionRemoved(connection);
}

void Diagram::removeConnectionsInside(Figure *figure)
{
    const QList<PolylineConnection *> connections = m_links->at(figure);
    for (PolylineConnection *connection : connections)
        removeConnection(connection);
    visitChildren(figure, [this](Figure *child) { removeConnectionsInside(child); });
}

// A figure that was destroyed may leave others behind that were inside it.
void Diagram::removeLooseConnections()
{
    const QList<PolylineConnection *> connections = m_links->all();
    for (PolylineConnection *connection : connections) {
        const DiagramLink *link = m_links->find(connection);
        if (link && (!addedFigure(link->source) || !addedFigure(link->target)))
            removeConnection(connection);
    }
}

QList<PolylineConnection *> Diagram::getConnections() const
{
    QList<PolylineConnection *> connections;
    const QList<Figure *> children = m_connectionLayer->childFigures();
    for (Figure *child : children) {
        auto *connection = qobject_cast<PolylineConnection *>(child);
        if (connection && m_links->find(connection))
            connections << connection;
    }
    return connections;
}

QList<PolylineConnection *> Diagram::getConnections(const Figure *figure) const
{
    return m_links->at(figure);
}

Figure *Diagram::getSource(const PolylineConnection *connection) const
{
    const DiagramLink *link = m_links->find(connection);
    return link ? link->source : nullptr;
}

Figure *Diagram::getTarget(const PolylineConnection *connection) const
{
    const DiagramLink *link = m_links->find(connection);
    return link ? link->target : nullptr;
}

Diagram::Routing Diagram::getRouting(const PolylineConnection *connection) const
{
    const DiagramLink *link = m_links->find(connection);
    return link ? link->routing : Routing::Straight;
}

bool Diagram::setRouting(PolylineConnection *connection, Routing routing)
{
    DiagramLink *link = m_links->find(connection);
    if (!link)
        return false;
    link->routing = routing;
    applyRouting(connection);
    return true;
}

QList<QPoint> Diagram::getBendpoints(const PolylineConnection *connection) const
{
    if (!m_links->find(connection))
        return {};
    return m_bendRouter->bendpoints(const_cast<PolylineConnection *>(connection));
}

bool Diagram::setBendpoints(PolylineConnection *connection, const QList<QPoint> &points)
{
    if (!m_links->find(connection))
        return false;
    m_bendRouter->setBendpoints(connection, points);
    connection->revalidate();
    connection->repaint(); // what is invalid waits for the next paint
    return true;
}

// All lines are given back before the first connection takes one.
void Diagram::reroute()
{
    const QList<PolylineConnection *> connections = getConnections();
    for (PolylineConnection *connection : connections)
        connection->revalidate();
    validate();
}

Diagram::Arrow Diagram::getArrow(const PolylineConnection *connection, End end) const
{
    DiagramLink *link = m_links->find(connection);
    return link && link->head(end).figure ? link->head(end).arrow : Arrow::None;
}

bool Diagram::setArrow(PolylineConnection *connection, End end, Arrow arrow)
{
    DiagramLink *link = m_links->find(connection);
    if (!link)
        return false;

    // Not by setting no decoration at the connection: that warns.
    DiagramLink::Head &head = link->head(end);
    discard(head.figure);
    head = {arrow, nullptr};
    if (arrow == Arrow::None)
        return true;
    IRotatableDecoration *decoration = createHead(connection, arrow);
    head.figure = dynamic_cast<Figure *>(decoration);
    if (end == End::Source)
        connection->setSourceDecoration(decoration);
    else
        connection->setTargetDecoration(decoration);
    connection->repaint();
    return true;
}

TextFigure *Diagram::setLabel(PolylineConnection *connection, const QString &text)
{
    DiagramLink *link = m_links->find(connection);
    if (!link)
        return nullptr;
    if (text.isEmpty()) {
        discard(link->label);
        link->label.clear();
        return nullptr;
    }
    if (!link->label)
        link->label = createLabel(connection);
    link->label->setText(text);
    connection->repaint();
    return link->label;
}

TextFigure *Diagram::getLabel(const PolylineConnection *connection) const
{
    const DiagramLink *link = m_links->find(connection);
    return link ? link->label.data() : nullptr;
}

} // namespace Velmora::Figura
