#pragma once

#include <QList>
#include <QPoint>

namespace Editor {

/// Arithmetic with the points of a connection.
namespace Way {

/// The point so far along the way, by length; (0, 0) of an empty way.
QPoint pointAt(const QList<QPoint> &way, int percent);

int percentNear(const QList<QPoint> &way, const QPoint &point); ///< The inverse, of the nearest.

/// The segment that is nearest to \a point: 0 for the first one.
qsizetype segmentNear(const QList<QPoint> &way, const QPoint &point);

/// Whether \a point is on the straight line between the two others, within \a tolerance.
bool isOnLine(const QPoint &point, const QPoint &from, const QPoint &to, double tolerance);

} // namespace Way

} // namespace Editor
