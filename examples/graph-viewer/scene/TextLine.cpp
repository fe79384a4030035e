#include "TextLine.h"

#include "FontResolver.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStyleOptionViewItem>

namespace GraphViewer {
namespace {

constexpr double raisedSize = 0.65;

bool isRaisedOrLowered(const TextStyle &style)
{
    return style.traits & (TextStyle::Superscript | TextStyle::Subscript);
}

TextStyle shrunk(TextStyle style)
{
    if (isRaisedOrLowered(style))
        style.size *= raisedSize;
    return style;
}

double rise(const TextStyle &style)
{
    if (style.traits & TextStyle::Superscript)
        return 0.35 * style.size;
    return style.traits & TextStyle::Subscript ? -0.15 * style.size : 0;
}

// A width that is far off is no measure of this text: it may be in a script that one of the two
// fonts lacks.
double stretchTo(double width, double natural)
{
    return width > 0 && natural > 0 ? qBound(0.5, width / natural, 1.5) : 1.0;
}

} // namespace

TextLine::TextLine(const TextSpan &span, const QPoint &origin, QObject *parent)
    : TextFigure(span.text, parent, Qt::transparent)
{
    const TextStyle style = shrunk(span.style);
    setFont(FontResolver::font(style));
    setTextColor(style.color);

    const QFontMetricsF metrics(getFont());
    m_unit = style.size / getFont().pixelSize();
    m_stretch = stretchTo(span.width, metrics.horizontalAdvance(span.text) * m_unit);

    const QPointF left = span.left - origin - QPointF(0, rise(span.style));
    const QRectF area(left.x(), left.y() - metrics.ascent() * m_unit, qMax(span.width, 1.0),
                      metrics.height() * m_unit);
    m_box = area.toAlignedRect();
    m_baseline = left - m_box.topLeft();
}

QSize TextLine::getMinimumSize()
{
    return {};
}

void TextLine::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    painter->setPen(getTextColor());
    painter->setFont(getFont());
    painter->translate(option.rect.topLeft() + m_baseline);
    painter->scale(m_unit * m_stretch, m_unit);
    painter->drawText(QPointF(), getText());
}

} // namespace GraphViewer
