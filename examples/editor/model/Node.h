#pragma once

#include "model/Style.h"

#include <QByteArray>
#include <QRect>

namespace Editor {

enum class NodeKind { Rectangle, Rounded, Ellipse, Diamond, Text, Picture, Lane, Specimen };

/// One figure of a document.
struct Node
{
    int id = 0; ///< Positive; no other node or edge of the document has it.
    NodeKind kind = NodeKind::Rectangle;
    QRect rect;   ///< In content units. Of a node in a lane only the size counts.
    int lane = 0; ///< The lane that holds the node; 0 for none. Lanes are in no lane.
    QString text;
    Style style;
    QByteArray picture;                  ///< Of pictures: the bytes of an image file.
    QString specimen;                    ///< Of specimens: what is shown.
    Qt::Orientation flow = Qt::Vertical; ///< Of lanes: which way their nodes are laid out.

    bool operator==(const Node &other) const = default;
};

} // namespace Editor
