#pragma once

#include "model/Edge.h"

namespace Velmora::Figura {
class IRotatableDecoration;
}

namespace Editor {

/// The decorations at the ends of edges.
namespace ArrowHeads {

struct Look
{
    QColor line;
    QColor paper; ///< Fills what is hollow.
    int lineWidth = 1;
};

/// The caller owns it. For Arrow::None it is an invisible one: a connection takes no null.
Velmora::Figura::IRotatableDecoration *create(Arrow arrow, const Look &look);

double trim(Arrow arrow, const Look &look); ///< How far the line has to end before the tip.

} // namespace ArrowHeads

} // namespace Editor
