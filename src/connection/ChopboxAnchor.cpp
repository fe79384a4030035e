#include <figura/connection/ChopboxAnchor.h>

#include "chop_p.h"

#include <figura/figure/Figure.h>

namespace Velmora::Figura {

ChopboxAnchor::ChopboxAnchor(Figure *owner, QObject *parent)
    : AbstractConnectionAnchor(owner, parent)
{
}

ChopboxAnchor::ChopboxAnchor(QObject *parent)
    : AbstractConnectionAnchor(parent)
{
}

ChopboxAnchor::ChopboxAnchor(std::nullptr_t)
    : AbstractConnectionAnchor(nullptr)
{
}

ChopboxAnchor::~ChopboxAnchor() = default;

QRect ChopboxAnchor::getBox()
{
    Figure *owner = getOwner();
    return owner ? owner->getBounds() : QRect();
}

bool ChopboxAnchor::operator==(const ChopboxAnchor &other) const
{
    return getOwner() == other.getOwner() && const_cast<ChopboxAnchor *>(this)->getBox() ==
                                                 const_cast<ChopboxAnchor &>(other).getBox();
}

QPoint ChopboxAnchor::getLocation(const QPoint &reference)
{
    Figure *owner = getOwner();
    if (!owner) {
        QMessageLogger().warning("ChopboxAnchor::getLocation(): no owner present");
        return QPoint();
    }
    QRect box = getBox().adjusted(-1, -1, 0, 0);
    return chopBox(owner->translateToAbsolute(box), reference);
}

QPoint ChopboxAnchor::getReferencePoint()
{
    Figure *owner = getOwner();
    if (!owner) {
        QMessageLogger().warning("ChopboxAnchor::getReferencePoint(): no owner present");
        return QPoint();
    }
    QPoint centre = getBox().center();
    return owner->translateToAbsolute(centre);
}

} // namespace Velmora::Figura
