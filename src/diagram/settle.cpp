#include "settle_p.h"

#include "eachchild_p.h"
#include "shapepath_p.h"

#include <figura/layout/Layout.h>

namespace Velmora::Figura {

void settle(Figure *figure)
{
    if (!figure->getLayoutManager())
        return;
    const QPointer<Figure> alive(figure);
    if (!figure->useLocalCoordinates()) {
        figure->invalidate();
        figure->validate();
    }
    if (alive)
        visitChildren(figure, settle);
}

void buildMissingPaths(Figure *figure)
{
    auto *shape = qobject_cast<Shape *>(figure);
    if (shape && pathOf(shape) == QPainterPath() && shape->getBounds().isValid())
        shape->rebuildPath();
    visitChildren(figure, buildMissingPaths);
}

} // namespace Velmora::Figura
