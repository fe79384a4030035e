#include <figura/diagram/OutlineAnchor.h>

#include "outline_p.h"
#include "shapepath_p.h"

#include <QMessageLogger>

namespace Velmora::Figura {
namespace {

QPainterPath outlineOf(Figure *owner)
{
    const auto *shape = qobject_cast<const Shape *>(owner);
    if (shape && !pathOf(shape).isEmpty())
        return pathOf(shape);
    QPainterPath box;
    box.addRect(owner->getBounds());
    return box;
}

} // namespace

OutlineAnchor::OutlineAnchor(Shape *owner, QObject *parent)
    : AbstractConnectionAnchor(owner, parent)
{
}

OutlineAnchor::~OutlineAnchor() = default;

QPoint OutlineAnchor::getLocation(const QPoint &reference)
{
    Figure *owner = getOwner();
    if (!owner) {
        QMessageLogger().warning("OutlineAnchor::getLocation(): no owner present");
        return QPoint();
    }

    QPointF centre = getReferencePoint();
    QPointF towards = reference;
    owner->translateToRelative(centre);
    owner->translateToRelative(towards);
    QPointF end = lastCrossing(outlineOf(owner), centre, towards).value_or(centre);
    return owner->translateToAbsolute(end).toPoint();
}

} // namespace Velmora::Figura
