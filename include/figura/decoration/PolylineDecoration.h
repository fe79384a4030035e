#pragma once

#include <figura/connection/Polyline.h>
#include <figura/decoration/IRotatableDecoration.h>
#include <figura/export.h>

#include <memory>

namespace Velmora::Figura {

class ArrowHead;
class Transform;

/// An open arrow head.
///
/// The outline is a template in units of its own, whose (0, 0) is the tip and whose body lies
/// towards negative x; it is scaled, turned and moved to the location.
class FIGURA_EXPORT PolylineDecoration : public Polyline, public IRotatableDecoration
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IRotatableDecoration)

public:
    /// 7 units long and 6 wide, with the tip at (0, 0), pointing right.
    explicit PolylineDecoration(QObject *parent = nullptr);
    ~PolylineDecoration() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

protected:
    virtual void recalculatePoints(); ///< Sets the points that location, rotation and scale give.

public:
    void setLocation(const QPointF &location) override;        ///< Where the tip goes.
    void setLocation(const QPoint &location) override;         ///< \overload
    void setReferencePoint(const QPointF &reference) override; ///< Where the body points back to.
    void setReferencePoint(const QPoint &reference) override;  ///< \overload

    void setRotation(double radians);              ///< From x toward y.
    void setScale(double x, double y);             ///< Figure units for one template unit.
    void setTemplate(const QList<QPoint> &points); ///< Equal points have no effect.

protected:
    QPoint getLocation() const;            ///< Rounded half away from zero.
    const Transform &getTransform() const; ///< From template units to the points.

private:
    std::unique_ptr<ArrowHead> m_head; // what both arrow heads share
};

} // namespace Velmora::Figura
