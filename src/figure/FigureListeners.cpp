// Ancestor and property-change listeners. They are connected by the text of their signatures, so
// that any QObject with the slots can listen.

#include <figura/figure/Figure.h>

#include "ancestorhub_p.h"
#include "listenerconnections_p.h"
#include "signals_p.h"

#include <figura/figure/AncestorHelper.h>
#include <figura/figure/IAncestorListener.h>
#include <figura/figure/IPropertyChangeListener.h>

namespace Velmora::Figura {

AncestorHub *Figure::ancestorHub()
{
    if (!m_ancestorHub)
        m_ancestorHub = new AncestorHub(this);
    return m_ancestorHub;
}

void Figure::addAncestorListener(IAncestorListener *listener)
{
    auto *object = dynamic_cast<QObject *>(listener);
    if (!object)
        return;

    if (!m_ancestorHelper)
        m_ancestorHelper = new AncestorHelper(this, AncestorHelper::Relay::ByCall);
    ListenerConnections &made = ensure(m_ancestorConnections);
    for (const char *signature :
         {"ancestorAdded(Figure*)", "ancestorMoved(Figure*)", "ancestorRemoved(Figure*)"})
        made.add(object, connectNormalized(this, signature, object, signature));
    ++m_ancestorListenerCount;
}

void Figure::removeAncestorListener(IAncestorListener *listener)
{
    auto *object = dynamic_cast<QObject *>(listener);
    if (!object)
        return;

    ensure(m_ancestorConnections).removeAll(object);
    // The count goes down for a stranger too, on purpose: whoever removes must have added.
    if (--m_ancestorListenerCount == 0)
        delete m_ancestorHelper;
}

void Figure::addPropertyChangeListener(IPropertyChangeListener *listener)
{
    auto *object = dynamic_cast<QObject *>(listener);
    if (!object)
        return;

    constexpr auto signature = "propertyChanged(QString,QVariant,QVariant)";
    const QMetaObject::Connection made = connectNormalized(this, signature, object, signature);
    ensure(m_propertyConnections).add(object, made);
}

void Figure::removePropertyChangeListener(IPropertyChangeListener *listener)
{
    if (auto *object = dynamic_cast<QObject *>(listener))
        ensure(m_propertyConnections).removeAll(object);
}

} // namespace Velmora::Figura
