#pragma once

#include <figura/connection/ConnectionAnchorBase.h>
#include <figura/export.h>
#include <figura/figure/IAncestorListener.h>

#include <QPointer>

namespace Velmora::Figura {

/// An anchor on a figure, its owner, which it follows while it has listeners.
///
/// The owner is not owned by the anchor; one that is destroyed counts as none.
class FIGURA_EXPORT AbstractConnectionAnchor : public ConnectionAnchorBase, public IAncestorListener
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IAncestorListener)
    Q_MOC_INCLUDE("figura/figure/Figure.h")
    Q_PROPERTY(Figure *owner READ getOwner WRITE setOwner)

public:
    /// An anchor on \a owner, which may be null.
    explicit AbstractConnectionAnchor(Figure *owner, QObject *parent = nullptr);
    explicit AbstractConnectionAnchor(QObject *parent = nullptr); ///< Without an owner.
    explicit AbstractConnectionAnchor(std::nullptr_t);            ///< With neither.
    ~AbstractConnectionAnchor() override;

    /// Begins to follow the owner; a null listener is ignored.
    void addAnchorListener(IAnchorListener *listener) override;
    /// Stops following the owner, on purpose even when other listeners remain.
    void removeAnchorListener(IAnchorListener *listener) override;

    Figure *getOwner() const override;
    void setOwner(Figure *owner); ///< Follows the new owner at once, with or without listeners.

    /// The rounded centre of the owner's bounds; (0, 0) without an owner.
    QPoint getReferencePoint() override;

public Q_SLOTS:
    void ancestorAdded(Figure *ancestor) override;   ///< Does nothing.
    void ancestorMoved(Figure *ancestor) override;   ///< Announces anchorMoved().
    void ancestorRemoved(Figure *ancestor) override; ///< Does nothing.

private:
    bool isListening() const;
    void listen();
    void stopListening();

    QPointer<Figure> m_owner;
    bool m_listening = false;
};

} // namespace Velmora::Figura
