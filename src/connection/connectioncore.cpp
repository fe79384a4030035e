#include "connectioncore_p.h"

#include "figure/childwalk_p.h"
#include "figure/paintreach_p.h"

#include <figura/connection/IConnection.h>
#include <figura/connection/IConnectionAnchor.h>
#include <figura/connection/IConnectionRouter.h>
#include <figura/connection/NullRouter.h>
#include <figura/decoration/ArrowLocator.h>
#include <figura/decoration/IRotatableDecoration.h>
#include <figura/figure/Figure.h>
#include <figura/view/IViewport.h>
#include <figura/view/UpdateManager.h>

namespace Velmora::Figura {
namespace {

constexpr int boundsAllowance = 1; // around the line and around each child

QRect grown(const QRect &rect)
{
    return rect.adjusted(-boundsAllowance, -boundsAllowance, boundsAllowance, boundsAllowance);
}

QVariant asVariant(IConnectionRouter *router)
{
    return QVariant::fromValue(dynamic_cast<QObject *>(router));
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
    unhook(end);
    end.anchor = anchor;
    if (m_figure->getParentFigure())
        hook(end);
    m_figure->revalidate();
}

void ConnectionCore::hook(End &end)
{
    if (!end.anchor || end.hooked)
        return;
    end.anchor->addAnchorListener(m_listener);
    end.hooked = true;
}

void ConnectionCore::unhook(End &end)
{
    if (end.anchor && end.hooked)
        end.anchor->removeAnchorListener(m_listener);
    end.hooked = false;
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

    // Whoever is told may destroy the connection, and this with it.
    Figure *const figure = m_figure;
    const QPointer<Figure> alive(figure);
    previous->remove(m_connection);
    if (!alive)
        return;
    const QVariant before = asVariant(previous);
    m_router = next;
    Q_EMIT figure->propertyChanged(IConnection::PROPERTY_CONNECTION_ROUTER, before,
                                   asVariant(next));
    if (alive)
        figure->revalidate();
}

void ConnectionCore::setDecoration(End &end, IRotatableDecoration *decoration)
{
    if (decoration == end.decoration.get())
        return;

    const QPointer<Figure> alive(m_figure);
    release(end.decoration.get());
    if (!alive)
        return;
    end.decoration = decoration;
    if (auto *figure = dynamic_cast<Figure *>(decoration)) {
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
        const QPointer<Figure> released(figure);
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
    if (bounds.isNull())
        return;
    m_figure->repaint(bounds);
    Q_EMIT m_figure->figureMoved(m_figure); // last, for a slot may destroy the connection
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
