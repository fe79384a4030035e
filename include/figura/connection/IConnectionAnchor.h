#pragma once

#include <figura/export.h>

#include <QObject>

class QPoint;

namespace Velmora::Figura {

class Figure;
class IAnchorListener;

/// Says where one end of a connection lies. All points are in absolute coordinates.
///
/// Use one anchor for each connection end: taking any listener off stops an anchor with an owner
/// for all its other listeners.
class FIGURA_EXPORT IConnectionAnchor
{
public:
    virtual ~IConnectionAnchor();

    virtual void addAnchorListener(IAnchorListener *listener) = 0; ///< Not owned.
    virtual QPoint getLocation(const QPoint &reference) = 0;       ///< As seen from \a reference.
    virtual Figure *getOwner() const = 0;                          ///< Null when there is none.
    virtual QPoint getReferencePoint() = 0; ///< What the anchor at the other end looks towards.
    /// Does nothing for one that was not added.
    virtual void removeAnchorListener(IAnchorListener *listener) = 0;
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IConnectionAnchor,
                    "IConnectionAnchor.Figura.Velmora.velmora.org")
