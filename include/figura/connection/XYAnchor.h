#pragma once

#include <figura/connection/ConnectionAnchorBase.h>
#include <figura/export.h>

#include <QPoint>

namespace Velmora::Figura {

/// An anchor at a fixed absolute point, without an owner.
class FIGURA_EXPORT XYAnchor : public ConnectionAnchorBase
{
    Q_OBJECT
    Q_PROPERTY(QPoint location READ getReferencePoint WRITE setLocation)

public:
    /// \a location is in absolute coordinates.
    explicit XYAnchor(const QPoint &location = QPoint(), QObject *parent = nullptr);
    ~XYAnchor() override;

    QPoint getLocation(const QPoint &reference) override; ///< The point, whatever \a reference is.
    Figure *getOwner() const override;                    ///< Null.
    QPoint getReferencePoint() override;                  ///< The point.
    void setLocation(const QPoint &location);             ///< Announces anchorMoved() always.

private:
    QPoint m_location;
};

} // namespace Velmora::Figura
