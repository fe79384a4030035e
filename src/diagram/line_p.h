#pragma once

#include <QPolygonF>
#include <QRect>

namespace Velmora::Figura {

class Figure;

/// Whether \a figure is placed by its points: setBounds() does nothing to it.
bool isLine(const Figure *figure);

/// The points of a line.
QPolygonF outlineOfLine(Figure *line);

/// Gives \a line the points of \a outline, moved and stretched so that \a rect becomes its bounds.
void fitLine(Figure *line, const QPolygonF &outline, const QRect &rect);

} // namespace Velmora::Figura
