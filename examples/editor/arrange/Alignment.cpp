#include "arrange/Alignment.h"

#include <algorithm>
#include <numeric>

namespace Editor {
namespace {

QRect united(const QList<QRect> &rects)
{
    return std::accumulate(rects.cbegin(), rects.cend(), QRect(),
                           [](const QRect &all, const QRect &rect) { return all | rect; });
}

QRect aligned(QRect rect, const QRect &all, Side side)
{
    switch (side) {
    case Side::Left:
        rect.moveLeft(all.left());
        break;
    case Side::Centre:
        rect.moveLeft(all.left() + (all.width() - rect.width()) / 2);
        break;
    case Side::Right:
        rect.moveRight(all.right());
        break;
    case Side::Top:
        rect.moveTop(all.top());
        break;
    case Side::Middle:
        rect.moveTop(all.top() + (all.height() - rect.height()) / 2);
        break;
    case Side::Bottom:
        rect.moveBottom(all.bottom());
        break;
    }
    return rect;
}

QRect transposed(const QRect &rect)
{
    return {rect.y(), rect.x(), rect.height(), rect.width()};
}

QList<QRect> transposed(QList<QRect> rects)
{
    std::transform(rects.cbegin(), rects.cend(), rects.begin(),
                   [](const QRect &rect) { return transposed(rect); });
    return rects;
}

// By their middles, so that one that lies within another does not change places with it.
QList<qsizetype> fromLeftToRight(const QList<QRect> &rects)
{
    QList<qsizetype> order(rects.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&rects](qsizetype a, qsizetype b) {
        return rects.at(a).center().x() < rects.at(b).center().x();
    });
    return order;
}

QList<QRect> distributedAcross(QList<QRect> rects)
{
    if (rects.size() < 3)
        return rects;
    const QList<qsizetype> order = fromLeftToRight(rects);
    const int left = rects.at(order.first()).left();
    const QRect last = rects.at(order.last());
    int taken = 0;
    for (const QRect &rect : std::as_const(rects))
        taken += rect.width();
    const double gap = double(last.left() + last.width() - left - taken) / double(order.size() - 1);

    double position = left;
    for (const qsizetype index : order) {
        rects[index].moveLeft(qRound(position));
        position += rects.at(index).width() + gap;
    }
    return rects;
}

} // namespace

QList<QRect> aligned(const QList<QRect> &rects, Side side)
{
    const QRect all = united(rects);
    QList<QRect> result;
    for (const QRect &rect : rects)
        result << aligned(rect, all, side);
    return result;
}

QList<QRect> distributed(const QList<QRect> &rects, Qt::Orientation orientation)
{
    if (orientation == Qt::Horizontal)
        return distributedAcross(rects);
    return transposed(distributedAcross(transposed(rects)));
}

} // namespace Editor
