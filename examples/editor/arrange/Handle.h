#pragma once

#include <QList>
#include <QRect>

namespace Editor {

/// The eight places where a figure is taken to be resized; each names the sides that it moves.
QList<Qt::Edges> resizeHandles();

/// Where the handle of these sides is on \a rect.
QPoint handlePoint(const QRect &rect, Qt::Edges edges);

Qt::CursorShape handleCursor(Qt::Edges edges);

/// \a rect with these sides moved by \a offset, but never smaller than \a smallest each way: the
/// other sides stay. With \a keepShape the ratio of width and height stays as well.
QRect resized(const QRect &rect, Qt::Edges edges, const QPoint &offset, int smallest,
              bool keepShape);

} // namespace Editor
