#pragma once

#include <figura/figure/Figure.h>

#include <QList>
#include <QPointer>

namespace Velmora::Figura {

/// Calls \a visit with each child of \a figure in order. What is called on the way may remove or
/// destroy children, or the figure itself: who is no child any more is passed over.
template<typename Visit>
void visitChildren(Figure *figure, Visit visit)
{
    const QPointer<Figure> alive(figure);
    const QList<Figure *> found = figure->childFigures();
    const QList<QPointer<Figure>> children(found.begin(), found.end());
    for (const QPointer<Figure> &child : children) {
        if (alive && child && child->getParentFigure() == alive)
            visit(child.data());
    }
}

} // namespace Velmora::Figura
