#include <figura/figure/SimpleBorder.h>

#include "borderline_p.h"

#include <QPainter>
#include <QStyleOptionViewItem>

namespace Velmora::Figura {

SimpleBorder::SimpleBorder(QObject *parent, int width)
    : Border(parent)
{
    if (width >= 1)
        Border::setInsets(Insets(width, width, width, width));
}

SimpleBorder::~SimpleBorder() = default;

void SimpleBorder::render(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter || getInsets().isNull() || !option.rect.isValid())
        return;

    drawBorderRect(painter, toBorderRect(option.rect), getInsets());
}

void SimpleBorder::drawBorderRect(QPainter *painter, const QRect &rect, const Insets &insets) const
{
    if (!painter || !rect.isValid())
        return;

    painter->save();
    // The insets say only which sides are drawn: their width is not applied to the pen, on purpose.
    painter->setPen(createPen());
    if (insets.top() > 0)
        drawBorderLine(painter, QLine(rect.topLeft(), rect.topRight()));
    if (insets.right() > 0)
        drawBorderLine(painter, QLine(rect.topRight(), rect.bottomRight()));
    if (insets.bottom() > 0)
        drawBorderLine(painter, QLine(rect.bottomRight(), rect.bottomLeft()));
    if (insets.left() > 0)
        drawBorderLine(painter, QLine(rect.bottomLeft(), rect.topLeft()));
    painter->restore();
}

} // namespace Velmora::Figura
