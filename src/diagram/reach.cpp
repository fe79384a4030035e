#include "reach_p.h"

#include "line_p.h"

#include <figura/shape/Shape.h>

#include <algorithm>

namespace Velmora::Figura {
namespace {

int lineWidth(const Figure *figure)
{
    const auto *shape = qobject_cast<const Shape *>(figure);
    return shape ? shape->getLineWidth() : 0;
}

} // namespace

int reachOf(Figure *figure)
{
    int widest = lineWidth(figure);
    if (!isLine(figure))
        return 1;
    const QList<Figure *> children = figure->childFigures();
    for (const Figure *child : children)
        widest = std::max(widest, lineWidth(child));
    return widest + 1;
}

QRect paintedRect(Figure *figure)
{
    const QRect rect = figure->getBoundingRect();
    if (!rect.isValid() || !isLine(figure))
        return rect;
    const int reach = reachOf(figure) - 1;
    return rect.adjusted(-reach, -reach, reach, reach);
}

} // namespace Velmora::Figura
