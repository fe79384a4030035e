#pragma once

#include <figura/export.h>
#include <figura/figure/IFigure.h>

namespace Velmora::Figura {

/// A decoration that is put with its tip at a point and turned to point away from another one.
/// Points are in the coordinate system of its bounds.
class FIGURA_EXPORT IRotatableDecoration : public virtual IFigure
{
public:
    ~IRotatableDecoration(); // takes no slot of its own: the virtual one is that of IFigure

    virtual void setLocation(const QPointF &location) = 0; ///< Where the tip goes.
    virtual void setLocation(const QPoint &location) = 0;  ///< \overload
    virtual void
    setReferencePoint(const QPointF &reference) = 0;             ///< Where the body points back to.
    virtual void setReferencePoint(const QPoint &reference) = 0; ///< \overload
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IRotatableDecoration,
                    "IRotatableDecoration.Figura.Velmora.velmora.org")
