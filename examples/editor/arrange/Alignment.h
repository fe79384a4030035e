#pragma once

#include <QList>
#include <QRect>

namespace Editor {

enum class Side { Left, Centre, Right, Top, Middle, Bottom };

/// The rectangles, moved so that they have this side (or centre line) in common: that of their
/// union.
QList<QRect> aligned(const QList<QRect> &rects, Side side);

/// The rectangles, moved so that the gaps between them are equal, to a unit. The outermost stay.
QList<QRect> distributed(const QList<QRect> &rects, Qt::Orientation orientation);

} // namespace Editor
