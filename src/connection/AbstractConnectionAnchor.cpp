#include <figura/connection/AbstractConnectionAnchor.h>

#include <figura/figure/Figure.h>

namespace Velmora::Figura {

AbstractConnectionAnchor::AbstractConnectionAnchor(Figure *owner, QObject *parent)
    : ConnectionAnchorBase(parent)
    , m_owner(owner)
{
}

AbstractConnectionAnchor::AbstractConnectionAnchor(QObject *parent)
    : ConnectionAnchorBase(parent)
{
}

AbstractConnectionAnchor::AbstractConnectionAnchor(std::nullptr_t)
    : AbstractConnectionAnchor(static_cast<QObject *>(nullptr))
{
}

AbstractConnectionAnchor::~AbstractConnectionAnchor() = default;

void AbstractConnectionAnchor::addAnchorListener(IAnchorListener *listener)
{
    if (!listener)
        return;
    listen();
    ConnectionAnchorBase::addAnchorListener(listener);
}

// The first listener to go stops the anchor for all, on purpose: one anchor for each connection
// end.
void AbstractConnectionAnchor::removeAnchorListener(IAnchorListener *listener)
{
    ConnectionAnchorBase::removeAnchorListener(listener);
    stopListening();
}

// An owner that was destroyed is no longer listened to, whatever was noted.
bool AbstractConnectionAnchor::isListening() const
{
    return m_listening && m_owner;
}

void AbstractConnectionAnchor::listen()
{
    if (isListening() || !m_owner)
        return;
    m_owner->addAncestorListener(this);
    m_listening = true;
}

void AbstractConnectionAnchor::stopListening()
{
    if (isListening())
        m_owner->removeAncestorListener(this);
    m_listening = false;
}

Figure *AbstractConnectionAnchor::getOwner() const
{
    return m_owner;
}

void AbstractConnectionAnchor::setOwner(Figure *owner)
{
    stopListening();
    m_owner = owner;
    listen();
}

QPoint AbstractConnectionAnchor::getReferencePoint()
{
    if (!m_owner)
        return QPoint();
    QPoint centre = QRectF(m_owner->getBounds()).center().toPoint();
    return m_owner->translateToAbsolute(centre);
}

void AbstractConnectionAnchor::ancestorAdded(Figure * /*ancestor*/) {}

void AbstractConnectionAnchor::ancestorMoved(Figure * /*ancestor*/)
{
    Q_EMIT anchorMoved(this);
}

void AbstractConnectionAnchor::ancestorRemoved(Figure * /*ancestor*/) {}

} // namespace Velmora::Figura
