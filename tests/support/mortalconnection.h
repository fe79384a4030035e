#pragma once

#include "fate.h"

#include <figura/connection/IConnectionAnchor.h>
#include <figura/connection/IConnectionRouter.h>

#include <QPoint>

namespace Velmora::Figura::Test {

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

} // namespace Velmora::Figura::Test
