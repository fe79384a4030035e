#include "../checks.h"

#include <figura/figure/Figure.h>

#include <QPoint>
#include <QRect>

namespace Velmora::Figura::Storm {

QList<Figure *> figuresHolding(Figure *root, const QPoint &point)
{
    if (!root || !root->contains(point))
        return {};
    QList<Figure *> found{root};
    QPoint inside = point;
    root->translateFromParent(inside);
    for (Figure *child : root->childFigures()) {
        if (child->isVisible())
            found += figuresHolding(child, inside);
    }
    return found;
}

QList<Figure *> figuresMeeting(Figure *root, const QRect &rect)
{
    if (!root || !root->isIntersecting(rect))
        return {};
    QList<Figure *> found;
    QRect inside = rect;
    root->translateFromParent(inside);
    for (Figure *child : root->childFigures()) {
        if (child->isVisible())
            found += figuresMeeting(child, inside);
    }
    return found << root;
}

} // namespace Velmora::Figura::Storm
