#pragma once

class QObject;

namespace Velmora::Figura {
class Figure;
}

namespace Editor {

struct Node;
struct Theme;
class TextBlock;

/// The figures that show nodes.
namespace NodeFigures {

/// The figure for this kind of node, without bounds and looks; owned by \a parent.
Velmora::Figura::Figure *create(const Node &node, QObject *parent);

/// Gives \a figure, which was made for a node of this kind, its looks and contents.
void update(Velmora::Figura::Figure *figure, const Node &node, const Theme &theme);

/// What shows the text of the node; null for a figure without one.
TextBlock *textOf(Velmora::Figura::Figure *figure);

} // namespace NodeFigures

} // namespace Editor
