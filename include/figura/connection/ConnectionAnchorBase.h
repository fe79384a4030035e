#pragma once

#include <figura/connection/IConnectionAnchor.h>
#include <figura/export.h>

#include <QObject>

#include <memory>

namespace Velmora::Figura {

class ListenerConnections;

/// The listeners of an anchor: they are the receivers of its signal.
class FIGURA_EXPORT ConnectionAnchorBase : public QObject, public IConnectionAnchor
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IConnectionAnchor)

public:
    /// \a parent owns the anchor as a QObject.
    explicit ConnectionAnchorBase(QObject *parent = nullptr);
    ~ConnectionAnchorBase() override;

    /// A listener that is not a QObject, or null, is refused with a warning. Added twice, it is
    /// called twice.
    void addAnchorListener(IAnchorListener *listener) override;
    void removeAnchorListener(IAnchorListener *listener) override; ///< However often it was added.

Q_SIGNALS:
    /// The answers of \a anchor, this one, may have changed.
    void anchorMoved(IConnectionAnchor *anchor);

private:
    std::unique_ptr<ListenerConnections> m_listeners;
};

} // namespace Velmora::Figura
