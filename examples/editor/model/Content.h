#pragma once

#include "model/Edge.h"
#include "model/Node.h"

#include <QRect>

namespace Editor {

/// All that a document says; also a part of one that travels through the clipboard.
struct Content
{
    QList<Node> nodes; ///< The last one is on top. Within a lane they are laid out in this order.
    QList<Edge> edges; ///< The last one is on top.

    bool isEmpty() const { return nodes.isEmpty() && edges.isEmpty(); }
    bool operator==(const Content &other) const = default;
};

/// What a document may hold. Beyond it neither the canvas nor the user could follow.
namespace Limits {
constexpr int id = 1'000'000'000;
constexpr int nodes = 20'000;
constexpr int edges = 50'000;
constexpr int bends = 1'000;              ///< Of one edge.
constexpr int text = 10'000;              ///< Characters of one text.
constexpr int picture = 16 * 1024 * 1024; ///< Bytes of one picture.
constexpr int size = 20'000;              ///< Width and height of a node.
constexpr int smallestSize = 8;

/// Where nodes and bends may lie.
constexpr QRect area{-100'000, -100'000, 200'001, 200'001};
} // namespace Limits

/// \a rect, made as large and moved as far as a node may be.
QRect fitted(const QRect &rect);

/// \a offset, shortened so that \a rect stays where a node may be.
QPoint fittedOffset(const QRect &rect, const QPoint &offset);

/// The nearest point where a bend may be.
QPoint fitted(const QPoint &point);

/// Why \a content is no document, as "nodes[3].lane: ..."; empty for one that holds together.
QString problemOf(const Content &content);

} // namespace Editor
