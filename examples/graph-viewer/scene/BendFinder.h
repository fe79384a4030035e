#pragma once

#include <QList>
#include <QPoint>

class QPainterPath;
class QRect;

namespace GraphViewer {

/// Turns a curve into bendpoints: few, in whole units, and none inside the nodes at its ends.
namespace BendFinder {

QList<QPoint> bends(const QPainterPath &curve, const QRect &tail, const QRect &head);

} // namespace BendFinder

} // namespace GraphViewer
