#pragma once

#include <QPainterPath>
#include <QPointF>

#include <optional>

namespace Velmora::Figura {

/// Where the line from \a from towards \a to crosses the outline of \a path last before \a to; if
/// it does not, where it crosses it first beyond. Nothing when it never does.
std::optional<QPointF> lastCrossing(const QPainterPath &path, const QPointF &from,
                                    const QPointF &to);

} // namespace Velmora::Figura
