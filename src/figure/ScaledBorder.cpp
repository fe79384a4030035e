#include <figura/figure/ScaledBorder.h>

#include "borderline_p.h"

#include <QLineF>
#include <QPainter>
#include <QStyleOptionViewItem>

namespace Velmora::Figura {
namespace {

// Each line is shifted by half of its own width, also on the right and at the bottom.
QLineF topLine(const QRect &r, double half)
{
    return {r.left() + half, r.top() + half, static_cast<double>(r.right()), r.top() + half};
}

QLineF rightLine(const QRect &r, double half)
{
    return {r.right() + half, r.top() + half, r.right() + half, static_cast<double>(r.bottom())};
}

QLineF bottomLine(const QRect &r, double half)
{
    return {static_cast<double>(r.right()), r.bottom() + half, r.left() + half, r.bottom() + half};
}

QLineF leftLine(const QRect &r, double half)
{
    return {r.left() + half, static_cast<double>(r.bottom()), r.left() + half, r.top() + half};
}

} // namespace

ScaledBorder::ScaledBorder(QObject *parent, int width)
    : Border(parent)
{
    if (width >= 1)
        Border::setInsets(Insets(width, width, width, width));
}

ScaledBorder::~ScaledBorder() = default;

void ScaledBorder::setInnerMarginBorder(int margin)
{
    m_innerMargin = margin;
}

void ScaledBorder::render(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter || getInsets().isNull() || !option.rect.isValid())
        return;

    const QRect outer = toBorderRect(option.rect);
    drawBorderRect(painter, outer, getInsets());
    if (m_innerMargin > 0) {
        const int m = m_innerMargin;
        drawBorderRect(painter, outer.adjusted(m, m, -m, -m), getInsets());
    }
}

void ScaledBorder::drawBorderRect(QPainter *painter, const QRect &rect, const Insets &insets) const
{
    if (!painter || !rect.isValid())
        return;

    QPen pen = createPen();
    const auto drawSide = [&](int width, QLineF (*line)(const QRect &, double)) {
        if (width <= 0)
            return;
        pen.setWidth(width);
        painter->setPen(pen);
        drawBorderLine(painter, line(rect, width / 2.0));
    };

    painter->save();
    painter->setPen(pen);
    drawSide(insets.top(), topLine);
    drawSide(insets.right(), rightLine);
    drawSide(insets.bottom(), bottomLine);
    drawSide(insets.left(), leftLine);
    painter->restore();
}

} // namespace Velmora::Figura
