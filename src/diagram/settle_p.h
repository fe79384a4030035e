#pragma once

namespace Velmora::Figura {

class Figure;

/// Puts what lies inside \a figure in its place again.
///
/// Under layouts whose children share the coordinates of the figure, a move of the figure reaches
/// only those children that have such a layout themselves; the others would stay behind.
void settle(Figure *figure);

/// Builds the paths of the shapes in \a figure that have none: those that got their bounds before
/// they were attached.
void buildMissingPaths(Figure *figure);

} // namespace Velmora::Figura
