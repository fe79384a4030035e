#include "ElementSearch.h"

#include "ElementFigure.h"

using Velmora::Figura::Figure;

namespace GraphViewer {

bool ElementSearch::accept(const Figure *figure) const
{
    const auto *element = qobject_cast<const ElementFigure *>(figure);
    return element && !element->title().isEmpty();
}

// Parts answer for their element; a search that went into them would end there.
bool ElementSearch::prune(const Figure *figure) const
{
    const Figure *parent = figure->getParentFigure();
    return parent && qobject_cast<const ElementFigure *>(parent);
}

} // namespace GraphViewer
