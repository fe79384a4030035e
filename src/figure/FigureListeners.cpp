// Ancestor and property-change listeners. They are connected by the text of their signatures, so
// that any QObject with the slots can listen.

#include <figura/figure/Figure.h>

#include <figura/figure/AncestorHelper.h>
#include <figura/figure/IAncestorListener.h>
#include <figura/figure/IPropertyChangeListener.h>

namespace Velmora::Figura {

void Figure::addAncestorListener(IAncestorListener *listener)
{
    auto *object = dynamic_cast<QObject *>(listener);
    if (!object)
        return;

    if (!m_ancestorHelper)
        m_ancestorHelper = new AncestorHelper(this, nullptr);
    connect(this, SIGNAL(ancestorAdded(Figure *)), object, SLOT(ancestorAdded(Figure *)));
    connect(this, SIGNAL(ancestorMoved(Figure *)), object, SLOT(ancestorMoved(Figure *)));
    connect(this, SIGNAL(ancestorRemoved(Figure *)), object, SLOT(ancestorRemoved(Figure *)));
    ++m_ancestorListenerCount;
}

void Figure::removeAncestorListener(IAncestorListener *listener)
{
    auto *object = dynamic_cast<QObject *>(listener);
    if (!object)
        return;

    disconnect(this, SIGNAL(ancestorAdded(Figure *)), object, SLOT(ancestorAdded(Figure *)));
    disconnect(this, SIGNAL(ancestorMoved(Figure *)), object, SLOT(ancestorMoved(Figure *)));
    disconnect(this, SIGNAL(ancestorRemoved(Figure *)), object, SLOT(ancestorRemoved(Figure *)));
    // The count goes down for a stranger too, on purpose: whoever removes must have added.
    if (--m_ancestorListenerCount == 0)
        delete m_ancestorHelper;
}

void Figure::addPropertyChangeListener(IPropertyChangeListener *listener)
{
    if (auto *object = dynamic_cast<QObject *>(listener))
        connect(this, SIGNAL(propertyChanged(const QString &, const QVariant &, const QVariant &)),
                object, SLOT(propertyChanged(const QString &, const QVariant &, const QVariant &)));
}

void Figure::removePropertyChangeListener(IPropertyChangeListener *listener)
{
    if (auto *object = dynamic_cast<QObject *>(listener))
        disconnect(
            this, SIGNAL(propertyChanged(const QString &, const QVariant &, const QVariant &)),
            object, SLOT(propertyChanged(const QString &, const QVariant &, const QVariant &)));
}

} // namespace Velmora::Figura
