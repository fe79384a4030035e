#pragma once

#include <figura/export.h>

#include <QObject>
#include <QRect>

namespace Velmora::Figura {

/// A figure whose extent follows its content, at negative coordinates too.
class FIGURA_EXPORT IFreeformFigure
{
public:
    virtual ~IFreeformFigure();

    /// The area that the content takes; invalid while there is none.
    virtual QRect getFreeformExtent() = 0;
    /// Sets the bounds, and those of all freeform figures inside.
    virtual void setFreeformBounds(const QRect &rect) = 0;

    virtual void extentChanged() = 0; ///< A signal of the implementing class.
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IFreeformFigure, "IFreeformFigure.Figura.Velmora.velmora.org")
