#include "reach_p.h"

#include "eachchild_p.h"
#include "line_p.h"

#include <figura/shape/Shape.h>

#include <algorithm>

namespace Velmora::Figura {

int reachOf(const Figure *figure)
{
    const auto *shape = qobject_cast<const Shape *>(figure);
    return shape ? shape->getLineWidth() + 1 : 1;
}

int reachOfTree(Figure *figure)
{
    int reach = reachOf(figure);
    visitChildren(figure, [&reach](Figure *child) { reach = std::max(reach, reachOfTree(child)); });
    return reach;
}

QRect paintedRect(Figure *figure)
{
    const QRect rect = figure->getBoundingRect();
    if (!rect.isValid() || !isLine(figure))
        return rect;
    const int reach = reachOfTree(figure) - 1;
    return rect.adjusted(-reach, -reach, reach, reach);
}

} // namespace Velmora::Figura
