#pragma once

#include "model/Style.h"

#include <QList>
#include <QPoint>

namespace Editor {

enum class Routing { Straight, Bendpoint, Manhattan };
enum class Arrow { None, Open, Filled, Diamond };

/// One connection of a document.
struct Edge
{
    int id = 0; ///< Positive; no other node or edge of the document has it.
    int source = 0;
    int target = 0; ///< May be the source: a loop.
    Routing routing = Routing::Straight;
    QList<QPoint> bends; ///< In content units; they count for Routing::Bendpoint only.
    Arrow sourceArrow = Arrow::None;
    Arrow targetArrow = Arrow::Filled;
    QString label;
    int labelPercent = 50; ///< Where on the way from source to target the label is.
    QPoint labelOffset;    ///< From that point to the centre of the label.
    Style style;

    bool isLoop() const { return source == target; }
    bool operator==(const Edge &other) const = default;
};

} // namespace Editor
