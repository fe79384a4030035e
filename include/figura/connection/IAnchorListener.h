#pragma once

#include <figura/export.h>

#include <QObject>

namespace Velmora::Figura {

class IConnectionAnchor;

/// Is told when the answers of an anchor may have changed: IConnectionAnchor::addAnchorListener().
///
/// An implementation must be a QObject that declares the operation as a slot.
class FIGURA_EXPORT IAnchorListener
{
public:
    virtual ~IAnchorListener();

    virtual void anchorMoved(IConnectionAnchor *anchor) = 0; ///< Ask \a anchor again.
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IAnchorListener, "IAnchorListener.Figura.Velmora.velmora.org")
