#include <figura/figure/Border.h>

namespace Velmora::Figura {

Border::Border(QObject *parent)
    : QObject(parent)
{
}

Border::~Border() = default;

const Insets &Border::getInsets() const
{
    return m_insets;
}

void Border::setInsets(const Insets &insets)
{
    m_insets = insets;
}

QPen Border::createPen() const
{
    QPen pen(m_color);
    pen.setStyle(m_penStyle);
    pen.setCapStyle(m_capStyle);
    pen.setJoinStyle(m_joinStyle);
    return pen;
}

QRect Border::toBorderRect(const QRect &rect) const
{
    if (!rect.isValid())
        return {};

    const Insets &insets = getInsets();
    return {
        QPoint(rect.left() + insets.left() / 2, rect.top() + insets.top() / 2),
        QPoint(rect.right() - (insets.right() - 1) / 2, rect.bottom() - (insets.bottom() - 1) / 2)};
}

QColor Border::getColor() const
{
    return m_color;
}

void Border::setColor(const QColor &color)
{
    m_color = color;
}

Qt::PenStyle Border::getPenStyle() const
{
    return m_penStyle;
}

void Border::setPenStyle(Qt::PenStyle style)
{
    m_penStyle = style;
}

Qt::PenCapStyle Border::getPenCapStyle() const
{
    return m_capStyle;
}

void Border::setPenCapStyle(Qt::PenCapStyle style)
{
    m_capStyle = style;
}

Qt::PenJoinStyle Border::getPenJoinStyle() const
{
    return m_joinStyle;
}

void Border::setPenJoinStyle(Qt::PenJoinStyle style)
{
    m_joinStyle = style;
}

} // namespace Velmora::Figura
