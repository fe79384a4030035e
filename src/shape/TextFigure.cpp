#include <figura/shape/TextFigure.h>

#include "figure/figureguard_p.h"

#include <figura/figure/Border.h>

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <algorithm>
#include <cmath>

namespace Velmora::Figura {
namespace {

int roundedUpTo(int step, int value)
{
    return qRound(std::ceil(static_cast<double>(value) / step) * step);
}

// Slanted letters and stacked accents leave the box of their line. Ink that just fills the box
// counts one unit, for smoothing spreads it.
int inkReach(const QFontMetrics &metrics, const QString &text)
{
    int reach = 0;
    for (const QString &line : text.split(u'\n')) {
        const QRect ink = metrics.tightBoundingRect(line);
        const QRect box(0, -metrics.ascent(), metrics.horizontalAdvance(line), metrics.height());
        if (ink.isValid())
            reach = std::max({reach, box.left() - ink.left() + 1, box.top() - ink.top() + 1,
                              ink.right() - box.right() + 1, ink.bottom() - box.bottom() + 1});
    }
    return reach;
}

} // namespace

TextFigure::TextFigure(const QString &text, QObject *parent, const QColor &backgroundColor)
    : Figure(parent, backgroundColor)
{
    setText(text);
}

TextFigure::TextFigure(QObject *parent)
    : Figure(parent, Qt::white)
{
}

TextFigure::~TextFigure() = default;

QString TextFigure::getText() const
{
    return m_text;
}

void TextFigure::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    updateSize();
}

QFont TextFigure::getFont() const
{
    return m_font;
}

void TextFigure::setFont(const QFont &font)
{
    if (font == m_font)
        return;
    m_font = font;
    updateSize();
}

int TextFigure::getIndent() const
{
    return m_indent;
}

void TextFigure::setIndent(int indent)
{
    // Compared before it is clamped, on purpose: the same negative value updates each time.
    if (indent == m_indent)
        return;
    m_indent = std::max(indent, 0);
    updateSize();
}

QColor TextFigure::getTextColor() const
{
    return m_textColor;
}

void TextFigure::setTextColor(const QColor &color)
{
    if (color == m_textColor)
        return;
    m_textColor = color;
    repaint();
}

Qt::Alignment TextFigure::getAlignment() const
{
    return m_alignment;
}

void TextFigure::setAlignment(Qt::Alignment alignment)
{
    if (alignment == m_alignment)
        return;
    m_alignment = alignment;
    repaint();
}

void TextFigure::setSnapToGrid(bool snap)
{
    m_snapToGrid = snap;
}

QSize TextFigure::calculateContentSize()
{
    const QFontMetrics metrics(m_font);
    const QSize size(m_indent + metrics.horizontalAdvance(m_text), metrics.lineSpacing());
    return m_snapToGrid ? snapped(size) : size;
}

// Content, margin and border together are to make up whole steps, so the latter two come off.
QSize TextFigure::snapped(const QSize &size)
{
    const QSize whole(roundedUpTo(m_gridStep, size.width()),
                      roundedUpTo(m_gridStep, size.height()));
    QSize total = applyMargin(whole);
    if (const Border *border = getBorder())
        border->getInsets().addTo(total);
    return whole * 2.0 - total;
}

void TextFigure::updateSize()
{
    m_inkReach = inkReach(QFontMetrics(m_font), m_text);
    const QSize size = applyMargin(calculateContentSize());
    setMinimumSize(size);
    setPreferredSize(size);
    const FigureGuard alive(this);
    revalidate();
    if (alive)
        repaint();
}

void TextFigure::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    painter->save();
    painter->setPen(QPen(m_textColor));
    painter->setFont(m_font);
    const QRect rect = option.rect.adjusted(m_indent, 0, 0, 0);
    painter->drawText(rect, static_cast<int>(m_alignment.toInt()), m_text);
    painter->restore();
}

} // namespace Velmora::Figura
