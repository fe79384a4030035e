#pragma once

#include <QPoint>

namespace Velmora::Figura {

/// Half way from \a a to \a b, the halves truncated toward zero.
inline QPoint midpoint(const QPoint &a, const QPoint &b)
{
    return QPoint((b.x() - a.x()) / 2 + a.x(), (b.y() - a.y()) / 2 + a.y());
}

} // namespace Velmora::Figura
