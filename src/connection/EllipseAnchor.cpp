#include <figura/connection/EllipseAnchor.h>

#include "chop_p.h"

#include <figura/figure/Figure.h>

namespace Velmora::Figura {

EllipseAnchor::EllipseAnchor(Figure *owner, QObject *parent)
    : AbstractConnectionAnchor(owner, parent)
{
}

EllipseAnchor::EllipseAnchor(QObject *parent)
    : AbstractConnectionAnchor(parent)
{
}

EllipseAnchor::EllipseAnchor(std::nullptr_t)
    : AbstractConnectionAnchor(nullptr)
{
}

EllipseAnchor::~EllipseAnchor() = default;

QPoint EllipseAnchor::getLocation(const QPoint &reference)
{
    Figure *owner = getOwner();
    if (!owner) {
        QMessageLogger().warning("EllipseAnchor::getLocation(): no owner present");
        return QPoint();
    }
    QRectF box = owner->getBounds();
    return chopEllipse(owner->translateToAbsolute(box), reference);
}

} // namespace Velmora::Figura
