#pragma once

#include <QRect>
#include <QString>

namespace GraphViewer {

/// What the user takes for one thing: a node, a cluster, an edge, a label. Implemented by figures.
class Element
{
public:
    virtual ~Element() = default;

    virtual QString title() const = 0; ///< What the user calls it; may be empty.
    virtual void setHot(bool hot) = 0; ///< Shows that the mouse is over it.
    virtual QRect absoluteRect() = 0;  ///< All that it paints, in the graph's coordinates.
};

} // namespace GraphViewer
