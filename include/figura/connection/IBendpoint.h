#pragma once

#include <figura/export.h>

#include <QObject>

class QPoint;

namespace Velmora::Figura {

/// A point that a connection passes through, in the coordinate system of the connection's bounds.
class FIGURA_EXPORT IBendpoint
{
public:
    virtual ~IBendpoint();

    virtual QPoint getLocation() = 0; ///< Where the connection is to pass.
    /// Moves the bendpoint, unless its place follows from others.
    virtual void setLocation(const QPoint &location) = 0;
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IBendpoint, "IBendpoint.Figura.Velmora.velmora.org")
