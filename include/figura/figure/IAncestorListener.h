#pragma once

#include <figura/export.h>

#include <QObject>

namespace Velmora::Figura {

class Figure;

/// Learns what happens to the ancestors of a figure: Figure::addAncestorListener().
///
/// An implementation must be a QObject that declares these operations as slots.
class FIGURA_EXPORT IAncestorListener
{
public:
    virtual ~IAncestorListener();

    virtual void ancestorAdded(Figure *ancestor) = 0;   ///< \a ancestor is the new parent.
    virtual void ancestorMoved(Figure *ancestor) = 0;   ///< The watched figure itself counts too.
    virtual void ancestorRemoved(Figure *ancestor) = 0; ///< \a ancestor is the old parent.
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IAncestorListener,
                    "IAncestorListener.Figura.Velmora.velmora.org")
