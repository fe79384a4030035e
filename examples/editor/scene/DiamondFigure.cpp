#include "scene/DiamondFigure.h"

#include <QPainterPath>
#include <QPolygonF>

namespace Editor {

DiamondFigure::DiamondFigure(QObject *parent)
    : Shape(parent)
{
}

void DiamondFigure::regeneratePath(const QRectF &rect)
{
    const QPointF middle = rect.center();
    QPainterPath path;
    path.addPolygon(
        QPolygonF({QPointF(middle.x(), rect.top()), QPointF(rect.right(), middle.y()),
                   QPointF(middle.x(), rect.bottom()), QPointF(rect.left(), middle.y())}));
    path.closeSubpath();
    painterPath() = path;
}

} // namespace Editor
