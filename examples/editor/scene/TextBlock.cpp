#include "scene/TextBlock.h"

#include "model/Style.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionViewItem>

namespace Editor {

TextBlock::TextBlock(QObject *parent)
    : Figure(parent, Qt::transparent)
{
}

void TextBlock::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    revalidate();
    repaint();
}

void TextBlock::setFont(const QFont &font)
{
    if (font == m_font)
        return;
    m_font = font;
    revalidate();
    repaint();
}

void TextBlock::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    repaint();
}

void TextBlock::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    repaint();
}

// A point counts as 4/3 units, whatever the screen: a document looks the same everywhere.
QFont TextBlock::fontOf(const Style &style)
{
    QFont font;
    if (!style.fontFamily.isEmpty())
        font.setFamily(style.fontFamily);
    font.setPixelSize(qRound(style.fontSize * 4 / 3.0));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    return font;
}

QSize TextBlock::calculateContentSize()
{
    if (m_text.isEmpty())
        return {0, 0};
    const QFontMetrics metrics(m_font);
    return metrics.size(0, m_text) + QSize(4, 2);
}

void TextBlock::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (m_text.isEmpty())
        return;
    painter->setFont(m_font);
    painter->setPen(m_color);
    painter->drawText(option.rect, static_cast<int>(m_alignment) | Qt::TextWordWrap, m_text);
}

} // namespace Editor
