#pragma once

#include <figura/figure/Figure.h>

#include <QFont>

namespace Editor {

struct Style;

/// Text of several lines, wrapped to the width that it is given.
class TextBlock : public Velmora::Figura::Figure
{
    Q_OBJECT

public:
    explicit TextBlock(QObject *parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString &text);
    QFont font() const { return m_font; }
    void setFont(const QFont &font);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    void setAlignment(Qt::Alignment alignment); ///< The middle at first.

    static QFont fontOf(const Style &style);

protected:
    QSize calculateContentSize() override; ///< Of the lines as they are written, not wrapped.
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    QString m_text;
    QFont m_font;
    QColor m_color = Qt::black;
    Qt::Alignment m_alignment = Qt::AlignCenter;
};

} // namespace Editor
