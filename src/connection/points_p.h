#pragma once

#include <QList>
#include <QPoint>
#include <QPointF>

namespace Velmora::Figura {

inline QList<QPointF> toFloating(const QList<QPoint> &points)
{
    return QList<QPointF>(points.cbegin(), points.cend());
}

/// Each coordinate rounded half away from zero.
inline QList<QPoint> toInteger(const QList<QPointF> &points)
{
    QList<QPoint> rounded;
    rounded.reserve(points.size());
    for (const QPointF &point : points)
        rounded.append(point.toPoint());
    return rounded;
}

} // namespace Velmora::Figura
