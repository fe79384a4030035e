#pragma once

#include <figura/decoration/IRotatableDecoration.h>
#include <figura/export.h>
#include <figura/shape/Polygon.h>

#include <memory>

namespace Velmora::Figura {

class ArrowHead;
class Transform;

/// A filled arrow head, black at first.
///
/// The outline is a template in units of its own, whose (0, 0) is the tip and whose body lies
/// towards negative x; it is scaled, turned and moved to the location.
class FIGURA_EXPORT PolygonDecoration : public Polygon, public IRotatableDecoration
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IRotatableDecoration)

public:
    /// 7 units long and 6 wide, with the tip at (0, 0), pointing right.
    explicit PolygonDecoration(QObject *parent = nullptr);
    ~PolygonDecoration() override;

    void setLocation(const QPointF &location) override;        ///< Where the tip goes.
    void setLocation(const QPoint &location) override;         ///< \overload
    void setReferencePoint(const QPointF &reference) override; ///< Where the body points back to.
    void setReferencePoint(const QPoint &reference) override;  ///< \overload

    void setRotation(double radians);              ///< From x toward y.
    void setScale(double x, double y);             ///< Figure units for one template unit.
    void setTemplate(const QList<QPoint> &points); ///< Equal points have no effect.

private:
    void recalculatePoints();

    std::unique_ptr<ArrowHead> m_head; // what both arrow heads share
};

} // namespace Velmora::Figura
