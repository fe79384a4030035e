#include "ElementSearch.h"

#include "Element.h"

#include <figura/figure/Figure.h>

using Velmora::Figura::Figure;

namespace GraphViewer {

bool ElementSearch::accept(const Figure *figure) const
{
    const auto *element = dynamic_cast<const Element *>(figure);
    return element && !element->title().isEmpty();
}

// Parts answer for their element; a search that went into them would end there.
bool ElementSearch::prune(const Figure *figure) const
{
    const Figure *parent = figure->getParentFigure();
    return parent && dynamic_cast<const Element *>(parent);
}

} // namespace GraphViewer
