#pragma once

#include <figura/figure/Figure.h>

namespace Editor {

/// One thing that helps editing and is no part of the document.
struct Mark
{
    enum class Kind {
        Outline, ///< Around what is selected.
        Handle,  ///< A square to drag.
        Bend,    ///< A disc to drag.
        Segment, ///< A small circle: a bend that could be.
        Port,    ///< Where connections begin.
        Guide,   ///< A thin line.
        Target,  ///< Around the figure that a connection would end at.
        Line,    ///< A connection that is being made.
        Bar,     ///< Where something would be dropped.
    };

    Kind kind;
    QRect rect;          ///< In content coordinates.
    bool rising = false; ///< Of lines: from the lower left to the upper right.

    bool operator==(const Mark &other) const = default;
};

/// Paints a mark with lines of a constant width on the screen, whatever the zoom.
class MarkFigure : public Velmora::Figura::Figure
{
    Q_OBJECT

public:
    MarkFigure(Mark::Kind kind, const QColor &color, const QColor &paper,
               QObject *parent = nullptr);

    Mark::Kind kind() const { return m_kind; }
    void setRising(bool rising);

    bool contains(const QPoint &point) const override; ///< Never: tools look for themselves.

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    void drawRound(QPainter *painter, const QRectF &rect) const;
    void drawLine(QPainter *painter, const QRectF &rect) const;
    QPen pen() const;

    Mark::Kind m_kind;
    QColor m_color;
    QColor m_paper;
    bool m_rising = false;
};

} // namespace Editor
