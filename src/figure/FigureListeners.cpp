// Ancestor and property-change listeners. They are connected by the text of their signatures, so
// that any QObject with the slots can listen.

#include <figura/figure/Figure.h>

#include "connection/connectionobject_p.h"
#include "figureextras_p.h"
#include "signals_p.h"

#include <figura/figure/IAncestorListener.h>
#include <figura/figure/IPropertyChangeListener.h>

namespace Velmora::Figura {

AncestorHub *Figure::ancestorHub()
{
    QPointer<AncestorHub> &hub = extras().ancestorHub;
    if (!hub)
        hub = new AncestorHub(this);
    return hub;
}

void Figure::addAncestorListener(IAncestorListener *listener)
{
    QObject *object = objectOf(listener);
    if (!object)
        return;

    FigureExtras &own = extras();
    if (!own.ancestorHelper)
        own.ancestorHelper.reset(new AncestorHelper(this, AncestorHelper::Relay::ByCall));
    ListenerConnections &made = ensure(own.ancestorConnections);
    for (const char *signature :
         {"ancestorAdded(Figure*)", "ancestorMoved(Figure*)", "ancestorRemoved(Figure*)"})
        made.add(object, connectNormalized(this, signature, object, signature));
    ++own.ancestorListenerCount;
}

void Figure::removeAncestorListener(IAncestorListener *listener)
{
    QObject *object = objectOf(listener);
    if (!object)
        return;

    FigureExtras &own = extras();
    ensure(own.ancestorConnections).removeAll(object);
    // The count goes down for a stranger too, on purpose: whoever removes must have added.
    if (--own.ancestorListenerCount == 0)
        own.ancestorHelper.reset();
}

void Figure::addPropertyChangeListener(IPropertyChangeListener *listener)
{
    auto *object = dynamic_cast<QObject *>(listener);
    if (!object)
        return;

    constexpr auto signature = "propertyChanged(QString,QVariant,QVariant)";
    const QMetaObject::Connection made = connectNormalized(this, signature, object, signature);
    ensure(extras().propertyConnections).add(object, made);
}

void Figure::removePropertyChangeListener(IPropertyChangeListener *listener)
{
    if (auto *object = dynamic_cast<QObject *>(listener))
        ensure(extras().propertyConnections).removeAll(object);
}

} // namespace Velmora::Figura
