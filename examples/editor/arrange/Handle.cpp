#include "arrange/Handle.h"

#include <cmath>

namespace Editor {
namespace {

QSize shaped(const QSize &size, const QSize &model, Qt::Edges edges)
{
    const double ratio = double(model.width()) / model.height();
    const bool across = edges & (Qt::LeftEdge | Qt::RightEdge);
    const bool down = edges & (Qt::TopEdge | Qt::BottomEdge);
    if (across && (!down || size.width() >= size.height() * ratio))
        return {size.width(), qRound(size.width() / ratio)};
    return {qRound(size.height() * ratio), size.height()};
}

} // namespace

QList<Qt::Edges> resizeHandles()
{
    return {Qt::TopEdge | Qt::LeftEdge,     Qt::TopEdge,
            Qt::TopEdge | Qt::RightEdge,    Qt::RightEdge,
            Qt::BottomEdge | Qt::RightEdge, Qt::BottomEdge,
            Qt::BottomEdge | Qt::LeftEdge,  Qt::LeftEdge};
}

QPoint handlePoint(const QRect &rect, Qt::Edges edges)
{
    QPoint point = rect.center();
    if (edges.testFlag(Qt::LeftEdge))
        point.setX(rect.left());
    if (edges.testFlag(Qt::RightEdge))
        point.setX(rect.right());
    if (edges.testFlag(Qt::TopEdge))
        point.setY(rect.top());
    if (edges.testFlag(Qt::BottomEdge))
        point.setY(rect.bottom());
    return point;
}

Qt::CursorShape handleCursor(Qt::Edges edges)
{
    const bool across = edges & (Qt::LeftEdge | Qt::RightEdge);
    const bool down = edges & (Qt::TopEdge | Qt::BottomEdge);
    if (!down)
        return Qt::SizeHorCursor;
    if (!across)
        return Qt::SizeVerCursor;
    return edges.testFlag(Qt::TopEdge) == edges.testFlag(Qt::LeftEdge) ? Qt::SizeFDiagCursor
                                                                       : Qt::SizeBDiagCursor;
}

QRect resized(const QRect &rect, Qt::Edges edges, const QPoint &offset, int smallest,
              bool keepShape)
{
    QSize size = rect.size();
    if (edges.testFlag(Qt::LeftEdge))
        size.rwidth() -= offset.x();
    if (edges.testFlag(Qt::RightEdge))
        size.rwidth() += offset.x();
    if (edges.testFlag(Qt::TopEdge))
        size.rheight() -= offset.y();
    if (edges.testFlag(Qt::BottomEdge))
        size.rheight() += offset.y();
    size = size.expandedTo({smallest, smallest});
    if (keepShape)
        size = shaped(size, rect.size(), edges).expandedTo({smallest, smallest});

    QRect result(rect.topLeft(), size);
    if (edges.testFlag(Qt::LeftEdge))
        result.moveRight(rect.right());
    if (edges.testFlag(Qt::TopEdge))
        result.moveBottom(rect.bottom());
    return result;
}

} // namespace Editor
