#pragma once

#include <figura/geometry/Transform.h>

#include <QList>
#include <QPoint>
#include <QPointF>

namespace Velmora::Figura {

/// The outline that both rotatable decorations share, and where it goes.
class ArrowHead
{
public:
    ArrowHead();

    void setLocation(const QPointF &location);
    void setReferencePoint(const QPointF &reference);
    void setRotation(double radians);
    void setScale(double x, double y);
    bool setTemplate(const QList<QPoint> &points); ///< Returns whether it has changed.

    QPoint location() const; ///< Rounded half away from zero.
    const Transform &transform() const;
    QList<QPoint> points() const; ///< The template, scaled, turned and moved.

private:
    QPointF m_location;
    QList<QPoint> m_template;
    Transform m_transform;
};

} // namespace Velmora::Figura
