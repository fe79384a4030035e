#include "connectioncore_p.h"

#include "figure/announcedobject_p.h"
#include "figure/childwalk_p.h"
#include "figure/figureguard_p.h"
#include "figure/paintreach_p.h"
#include "layout/childtable_p.h"

#include <figura/connection/IConnection.h>
#include <figura/connection/IConnectionAnchor.h>
#include <figura/connection/IConnectionRouter.h>
#include <figura/connection/NullRouter.h>
#include <figura/decoration/ArrowLocator.h>
#include <figura/decoration/IRotatableDecoration.h>
#include <figura/figure/Figure.h>
#include <figura/view/IViewport.h>
#include <figura/view/UpdateManager.h>

#include <utility>

namespace Velmora::Figura {
namespace {

constexpr int boundsAllowance = 1; // around the line and around each child

QRect grown(const QRect &rect)
{
    return rect.adjusted(-boundsAllowance, -boundsAllowance, boundsAllowance, boundsAllowance);
}

QObject *asObject(IConnectionRouter *router)
{
    return dynamic_cast<QObject *>(router);
}

void updateWholeView(UpdateManager *manager)
{
    IFigureViewer *viewer = manager->getViewer();
    if (IViewport *viewport = viewer ? viewer->getViewport() : nullptr)
        viewport->update();
}

} // namespace

ConnectionCore::ConnectionCore(Figure *figure, IConnection *connection, IAnchorListener *listener,
                               const char *className)
    : source{ConnectionLocator::SOURCE, "setSourceDecoration", {}, {}}
    , target{ConnectionLocator::TARGET, "setTargetDecoration", {}, {}}
    , m_figure(figure)
    , m_connection(connection)
    , m_listener(listener)
    , m_className(className)
{
}

// Decorations are owned; one that has a QObject parent is deleted by that.
ConnectionCore::~ConnectionCore()
{
    for (QObject *decoration : {source.decoration.object(), target.decoration.object()}) {
        if (decoration && !decoration->parent())
            decoration->deleteLater();
    }
}

void ConnectionCore::setAnchor(End &end, IConnectionAnchor *anchor)
{
    if (anchor == end.anchor.get())
        return;

    // Anchors may be the application's own, and destroy whom they are to tell, or one another.
    const FigureGuard alive(m_figure);
    const InterfacePointer<IConnectionAnchor> next(anchor);
    unhook(end);
    if (!alive)
        return;
    end.anchor = next;
    if (m_figure->getParentFigure())
        hook(end);
    if (alive)
        alive->revalidate();
}

void ConnectionCore::hook(End &end)
{
    if (end.anchor && !std::exchange(end.hooked, true))
        end.anchor->addAnchorListener(m_listener);
}

void ConnectionCore::unhook(End &end)
{
    if (std::exchange(end.hooked, false) && end.anchor)
        end.anchor->removeAnchorListener(m_listener);
}

bool ConnectionCore::isConnected() const
{
    return source.anchor && target.anchor;
}

IConnectionRouter *ConnectionCore::router() const
{
    IConnectionRouter *router = m_router.get();
    return router ? router : NullRouter::instance();
}

void ConnectionCore::setRouter(IConnectionRouter *router)
{
    IConnectionRouter *next = router ? router : NullRouter::instance();
    IConnectionRouter *previous = this->router();
    if (next == previous)
        return;

    // Whoever is told may destroy the connection, and this with it, or one of the routers.
    const FigureGuard alive(m_figure);
    const AnnouncedObject<QObject> before(asObject(previous));
    const AnnouncedObject<QObject> after(asObject(next));
    const InterfacePointer<IConnectionRouter> adopted(next);
    previous->remove(m_connection);
    if (!alive)
        return;
    m_router = adopted;
    Q_EMIT alive->propertyChanged(IConnection::PROPERTY_CONNECTION_ROUTER, before.value(),
                                  after.value());
    if (alive)
        alive->revalidate();
}

void ConnectionCore::setDecoration(End &end, IRotatableDecoration *decoration)
{
    if (decoration == end.decoration.get())
        return;

    const FigureGuard alive(m_figure);
    const InterfacePointer<IRotatableDecoration> next(decoration);
    release(end.decoration.get());
    if (!alive)
        return;
    end.decoration = next;
    if (auto *figure = dynamic_cast<Figure *>(next.get())) {
        auto *locator = new ArrowLocator(m_connection, end.alignment, figure);
        m_figure->add(figure, QVariant::fromValue<QObject *>(locator), -1);
    } else {
        // Reported for null as well, on purpose.
        QMessageLogger().warning("%s::%s(): decoration not a figure", m_className,
                                 end.decorationSetter);
    }
}

void ConnectionCore::release(IRotatableDecoration *decoration)
{
    if (auto *figure = dynamic_cast<Figure *>(decoration)) {
        const FigureGuard released(figure);
        m_figure->remove(figure);
        if (released)
            figure->deleteLater();
    }
}

QRect ConnectionCore::bounds() const
{
    return m_bounds;
}

void ConnectionCore::updateBounds(const QRect &lineBounds)
{
    QRect bounds = lineBounds;
    if (!bounds.isNull()) {
        bounds = grown(bounds);
        walkChildren(m_figure, [&bounds](Figure *child) {
            const QRect childBounds = child ? child->getBounds() : QRect();
            if (!childBounds.isNull())
                bounds |= grown(childBounds);
        });
    }
    m_bounds = bounds;
    ChildTable::note(m_figure, Pending::Area);
    if (bounds.isNull())
        return;
    const FigureGuard figure(m_figure); // a slot may destroy the connection
    figure->repaint(bounds);
    if (figure)
        Q_EMIT figure->figureMoved(figure);
}

void ConnectionCore::eraseBounds()
{
    UpdateManager *manager = m_figure->getUpdateManager();
    if (!manager)
        return;
    // Before the first layout nobody knows where the line is.
    if (!m_bounds.isValid()) {
        updateWholeView(manager);
        return;
    }
    if (Figure *parent = m_figure->getParentFigure()) {
        QRect rect = m_bounds;
        const PaintReach::Damage damage(*m_figure);
        manager->addDirtyRegion(parent, parent->translateToParent(rect));
    }
}

} // namespace Velmora::Figura
