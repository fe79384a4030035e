#include <figura/decoration/ArrowLocator.h>

#include "figure/figureguard_p.h"

#include <figura/connection/IConnection.h>
#include <figura/decoration/IRotatableDecoration.h>
#include <figura/figure/Figure.h>

namespace Velmora::Figura {

ArrowLocator::ArrowLocator(IConnection *connection, Alignment alignment, QObject *parent)
    : ConnectionLocator(connection, alignment == MIDDLE ? SOURCE : alignment, parent)
{
}

ArrowLocator::~ArrowLocator() = default;

void ArrowLocator::relocate(Figure *target)
{
    if (!target || !target->isVisible())
        return;

    auto *decoration = qobject_cast<IRotatableDecoration *>(target);
    IConnection *connection = getConnection();
    if (!decoration || !connection) {
        QMessageLogger().warning("ArrowLocator::relocate(): no connection or target figure not a "
                                 "rotatable decoration");
        return;
    }

    // A decoration announces its new path each time, and a slot may destroy it, or this locator.
    const QPointer<ArrowLocator> alive(this);
    const FigureGuard guarded(target);

    // The tip goes to its place before the points are counted, on purpose.
    const int count = connection->getPointCount();
    decoration->setLocation(connection->getPointF(getLocationIndex(count)));
    connection = alive && guarded ? getConnection() : nullptr;
    if (!connection)
        return;
    if (count < 2) {
        QMessageLogger().warning(
            "ArrowLocator::relocate(): connection contains less than 2 points");
        return;
    }
    if (getAlignment() == SOURCE)
        decoration->setReferencePoint(connection->getPointF(1));
    else if (getAlignment() == TARGET)
        decoration->setReferencePoint(connection->getPointF(count - 2));
}

} // namespace Velmora::Figura
