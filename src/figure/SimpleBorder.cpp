#include <figura/figure/SimpleBorder.h>

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
        painter->drawLine(rect.left(), rect.top(), rect.right(), rect.top());
    if (insets.right() > 0)
        painter->drawLine(rect.right(), rect.top(), rect.right(), rect.bottom());
    if (insets.bottom() > 0)
        painter->drawLine(rect.right(), rect.bottom(), rect.left(), rect.bottom());
    if (insets.left() > 0)
        painter->drawLine(rect.left(), rect.bottom(), rect.left(), rect.top());
    painter->restore();
}

} // namespace Velmora::Figura
