#include "figuresheet_p.h"

#include "settle_p.h"

namespace Velmora::Figura {

void FigureSheet::validate()
{
    if (getFlag(FLAG_VALID))
        return;

    QList<QPointer<Figure>> stale;
    const QList<Figure *> children = childFigures();
    for (Figure *child : children) {
        if (!child->getFlag(FLAG_VALID))
            stale << child;
    }

    Sheet<FreeformLayer>::validate();
    for (const QPointer<Figure> &figure : std::as_const(stale)) {
        if (figure)
            settle(figure);
        if (figure)
            buildMissingPaths(figure);
    }
}

} // namespace Velmora::Figura
