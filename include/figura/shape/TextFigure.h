#pragma once

#include <figura/export.h>
#include <figura/figure/Figure.h>

#include <QFont>

namespace Velmora::Figura {

/// One line of text, drawn in its bounds. A change of text, font or indent sets the minimum and the
/// preferred size anew.
class FIGURA_EXPORT TextFigure : public Figure
{
    Q_OBJECT

public:
    /// The size is that of \a text in the application's font.
    explicit TextFigure(const QString &text, QObject *parent = nullptr,
                        const QColor &backgroundColor = Qt::white);
    explicit TextFigure(QObject *parent = nullptr); ///< Empty text on white.
    ~TextFigure() override;

    QString getText() const;           ///< Empty at first.
    void setText(const QString &text); ///< Equal text has no effect.
    QFont getFont() const;             ///< The application's font at first.
    void setFont(const QFont &font);   ///< Equal fonts have no effect.

    int getIndent() const;      ///< Space before the text, in figure units.
    void setIndent(int indent); ///< A negative value counts as 0, but only after the comparison.

    QColor getTextColor() const;                ///< Invalid at first, which paints black.
    void setTextColor(const QColor &color);     ///< Repaints when it differs.
    Qt::Alignment getAlignment() const;         ///< Qt::AlignLeft at first.
    void setAlignment(Qt::Alignment alignment); ///< Inside the bounds; does not change the size.

    /// Rounds the size up to whole steps of 5 units, from the next change of content on.
    void setSnapToGrid(bool snap);

protected:
    QSize calculateContentSize() override;
    /// The text, in option.rect less the indent.
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    friend class PaintReach; // asks for m_inkReach

    QSize snapped(const QSize &size);
    void updateSize();

    Qt::Alignment m_alignment = Qt::AlignLeft;
    QString m_text;
    QFont m_font;
    int m_indent = 0;
    QColor m_textColor;
    int m_gridStep = 5;
    int m_inkReach = 0; // how far glyphs stick out of the box that the font reserves for them
    bool m_snapToGrid = false;
};

} // namespace Velmora::Figura
