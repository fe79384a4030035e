#pragma once

#include "figure/workcounters_p.h"

#include <QList>
#include <QPointer>

namespace Velmora::Figura {

class Figure;

/// Calls \a visit with each child of \a owner, a Figure or a Layout, in list order.
///
/// What \a visit sets off may remove or destroy children, or \a owner itself. A list that still
/// shares its data with ours has not changed, so a child is looked for only after a change.
template<typename Owner, typename Visit>
void walkChildren(Owner *owner, Visit visit)
{
    const QList<Figure *> children = owner->childFigures();
    if (children.isEmpty())
        return;

    const QPointer<Owner> alive(owner);
    for (Figure *child : children) {
        if (!alive)
            return;
        const QList<Figure *> present = owner->childFigures();
        if (present.constData() == children.constData() || present.contains(child)) {
            ++workCounters().visited;
            visit(child);
        }
    }
}

} // namespace Velmora::Figura
