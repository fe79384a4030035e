#include "chop_p.h"

#include <cmath>

namespace Velmora::Figura {
namespace {

int roundedAway(float value)
{
    return static_cast<int>(value < 0.0F ? value - 0.5F : value + 0.5F);
}

} // namespace

// Single precision and the truncated centre are meant: they decide the last pixel of every end.
QPoint chopBox(const QRect &box, const QPoint &reference)
{
    const auto centreX = static_cast<float>(box.x() + box.width() * 0.5);
    const auto centreY = static_cast<float>(box.y() + box.height() * 0.5);
    const QPoint centre(static_cast<int>(centreX), static_cast<int>(centreY));
    if (box.isEmpty() || reference == centre)
        return centre;

    const float dx = static_cast<float>(reference.x()) - centreX;
    const float dy = static_cast<float>(reference.y()) - centreY;
    const float scale = qMax(std::abs(dy) / static_cast<float>(box.height()),
                             std::abs(dx) / static_cast<float>(box.width()));
    const auto share = static_cast<float>(0.5 / static_cast<double>(scale));
    return QPoint(roundedAway(centreX + share * dx), roundedAway(centreY + share * dy));
}

QPoint chopEllipse(const QRectF &box, const QPoint &reference)
{
    const QPointF centre = box.center();
    const double dx = reference.x() - centre.x();
    const double dy = reference.y() - centre.y();
    if (dx == 0.0)
        return QPointF(reference.x(), dy > 0.0 ? box.y() + box.height() : box.y()).toPoint();
    if (dy == 0.0)
        return QPointF(dx > 0.0 ? box.x() + box.width() : box.x(), reference.y()).toPoint();

    if (box.isNull()) // no direction leads out of a point; the formula would divide 0 by 0
        return centre.toPoint();

    const double k = box.width() * dy / (box.height() * dx);
    const double ex = box.width() * std::copysign(0.5, dx) / std::sqrt(k * k + 1.0);
    const double ey = box.height() * std::copysign(0.5, dy) / std::sqrt(1.0 / (k * k) + 1.0);
    return (centre + QPointF(ex, ey)).toPoint();
}

} // namespace Velmora::Figura
