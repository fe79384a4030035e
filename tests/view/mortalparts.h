#pragma once

#include "fate.h"

#include <figura/connection/IAnchorListener.h>
#include <figura/connection/IConnectionAnchor.h>
#include <figura/connection/IConnectionRouter.h>
#include <figura/figure/IAncestorListener.h>
#include <figura/figure/IPropertyChangeListener.h>
#include <figura/figure/ITreeSearch.h>
#include <figura/layout/ILayoutListener.h>
#include <figura/layout/Layout.h>
#include <figura/layout/PageLayout.h>
#include <figura/view/Layer.h>

#include <QPoint>

namespace Velmora::Figura::Test {

/// A layout of class Base that announces what is asked of it.
template<class Base>
class MortalLayout : public Mortal<Base>
{
public:
    using Mortal<Base>::Mortal;
    using Mortal<Base>::with;

    QSize calculatePreferredSize() override
    {
        return with("calculatePreferredSize", [&] { return Base::calculatePreferredSize(); });
    }
    QSize calculateMinimumSize() override
    {
        return with("calculateMinimumSize", [&] { return Base::calculateMinimumSize(); });
    }
    bool performLayout(const QRect &area) override
    {
        return with("performLayout", [&] { return Base::performLayout(area); });
    }
    bool applyConstraint(Figure *child, const QVariant &constraint) override
    {
        return with("applyConstraint", [&] { return Base::applyConstraint(child, constraint); });
    }
    bool setConstraint(Figure *child, const QVariant &constraint) override
    {
        return with("setConstraint", [&] { return Base::setConstraint(child, constraint); });
    }
    bool layout(Figure *container) override
    {
        return with("layout", [&] { return Base::layout(container); });
    }
    void invalidate() override
    {
        with("invalidate", [&] { Base::invalidate(); });
    }
    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        with("render", [&] { Base::render(painter, option); });
    }
    bool remove(Figure *child) override
    {
        return with("remove", [&] { return Base::remove(child); });
    }
};

/// A router of class Base that announces what is asked of it.
template<class Base>
class MortalRouter : public Mortal<Base>
{
public:
    using Mortal<Base>::Mortal;
    using Mortal<Base>::with;

    void invalidate(IConnection *connection) override
    {
        with("invalidate", [&] { Base::invalidate(connection); });
    }
    void remove(IConnection *connection) override
    {
        with("remove", [&] { Base::remove(connection); });
    }
    void route(IConnection *connection) override
    {
        with("route", [&] { Base::route(connection); });
    }
    void routeF(IConnection *connection) override
    {
        with("routeF", [&] { Base::routeF(connection); });
    }
    QList<QPoint> doRoute(IConnection *connection) override
    {
        return with("doRoute", [&] { return Base::doRoute(connection); });
    }
    void setConstraint(IConnection *connection, const QVariant &constraint) override
    {
        with("setConstraint", [&] { Base::setConstraint(connection, constraint); });
    }
};

/// An anchor of class Base that announces what is asked of it.
template<class Base>
class MortalAnchor : public Mortal<Base>
{
public:
    using Mortal<Base>::Mortal;
    using Mortal<Base>::with;

    void addAnchorListener(IAnchorListener *listener) override
    {
        with("addAnchorListener", [&] { Base::addAnchorListener(listener); });
    }
    void removeAnchorListener(IAnchorListener *listener) override
    {
        with("removeAnchorListener", [&] { Base::removeAnchorListener(listener); });
    }
    QPoint getLocation(const QPoint &reference) override
    {
        return with("getLocation", [&] { return Base::getLocation(reference); });
    }
    QPoint getReferencePoint() override
    {
        return with("getReferencePoint", [&] { return Base::getReferencePoint(); });
    }

    int listenerCount() const { return this->receivers(SIGNAL(anchorMoved(IConnectionAnchor *))); }
};

/// A locator of class Base, derived from Locator, that announces what is asked of it.
template<class Base>
class MortalLocator : public Mortal<Base>
{
public:
    using Mortal<Base>::Mortal;
    using Mortal<Base>::with;

    void relocate(Figure *target) override
    {
        with("relocate", [&] { Base::relocate(target); });
    }
    QPoint getReferencePoint() override
    {
        return with("getReferencePoint", [&] { return Base::getReferencePoint(); });
    }
};

/// A page that announces what is asked of it.
class MortalPage : public Mortal<PageLayout>
{
public:
    using Mortal::Mortal;

    QRectF getContentRect(QPainter *painter) override
    {
        return with("getContentRect", [&] { return PageLayout::getContentRect(painter); });
    }
    void decoratePage(QPainter *, const QVariant &) override
    {
        with("decoratePage", [] {});
    }
};

/// Listens to everything that has a listener interface, and is an object of its own.
class MortalListener : public QObject,
                       public IAncestorListener,
                       public IPropertyChangeListener,
                       public IAnchorListener
{
    Q_OBJECT

public:
    explicit MortalListener(Fate *fate)
        : m_fate(fate)
    {
    }

public Q_SLOTS:
    void ancestorAdded(Figure *) override { reach("ancestorAdded"); }
    void ancestorMoved(Figure *) override { reach("ancestorMoved"); }
    void ancestorRemoved(Figure *) override { reach("ancestorRemoved"); }
    void propertyChanged(const QString &, const QVariant &before, const QVariant &after) override
    {
        // Both are read, as a listener would: they must be alive, or null.
        for (const QVariant &value : {before, after}) {
            if (auto *object = value.value<QObject *>())
                object->objectName();
        }
        reach("propertyChanged");
    }
    void anchorMoved(IConnectionAnchor *) override { reach("anchorMoved"); }

private:
    void reach(const char *slot) { m_fate->reach("listener", slot); }

    Fate *m_fate;
};

/// Is told of a layout. No object: it outlives everything.
class FatefulLayoutListener : public ILayoutListener
{
public:
    explicit FatefulLayoutListener(Fate *fate)
        : m_fate(fate)
    {
    }

    void invalidate(Figure *) override { reach("invalidate"); }
    bool layout(Figure *) override
    {
        reach("layout");
        return false;
    }
    void postLayout(Figure *) override { reach("postLayout"); }
    void remove(Figure *) override { reach("remove"); }
    void setConstraint(Figure *, const QVariant &) override { reach("setConstraint"); }

private:
    void reach(const char *operation) { m_fate->reach("layout listener", operation); }

    Fate *m_fate;
};

/// A search that takes every figure but the layers, which lie over one another.
class FatefulSearch : public ITreeSearch
{
public:
    explicit FatefulSearch(Fate *fate)
        : m_fate(fate)
    {
    }

    bool accept(const Figure *figure) const override
    {
        const bool isLayer = qobject_cast<const Layer *>(figure);
        m_fate->reach("search", "accept");
        return !isLayer;
    }
    bool prune(const Figure *) const override
    {
        m_fate->reach("search", "prune");
        return false;
    }

private:
    Fate *m_fate;
};

} // namespace Velmora::Figura::Test
