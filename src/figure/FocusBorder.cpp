#include <figura/figure/FocusBorder.h>

#include <QApplication>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyleOptionViewItem>

namespace Velmora::Figura {

FocusBorder::FocusBorder(QObject *parent)
    : SimpleBorder(parent, 1)
{
}

FocusBorder::~FocusBorder() = default;

void FocusBorder::render(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter || !option.rect.isValid())
        return;
    const QRect rect = toBorderRect(option.rect);
    if (!rect.isValid())
        return;

    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.rect = rect;
    focus.state |= QStyle::State_KeyboardFocusChange; // without it, styles draw nothing
    focus.backgroundColor = Qt::transparent;
    QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter);
}

} // namespace Velmora::Figura
