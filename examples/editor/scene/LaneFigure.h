#pragma once

#include <figura/shape/Rectangle.h>

namespace Velmora::Figura {
class Layout;
}

namespace Editor {

class TextBlock;

/// A swim lane: a title, and below it a box layout with the figures in the lane.
class LaneFigure : public Velmora::Figura::Rectangle
{
    Q_OBJECT

public:
    explicit LaneFigure(QObject *parent = nullptr);

    static constexpr int titleHeight = 28;

    TextBlock *title() const { return m_title; }

    Qt::Orientation flow() const { return m_flow; }
    void setFlow(Qt::Orientation flow); ///< Keeps what is in the lane.

    /// Nothing: what does not fit is cut off. Otherwise the size of a lane would depend on when it
    /// was given what it holds.
    QSize getMinimumSize() override;

    /// Neither takes nor gives ownership. An \a index outside appends.
    void insert(Figure *figure, const QSize &size, int index);
    void take(Figure *figure);
    void resize(Figure *figure, const QSize &size);
    QList<Figure *> figures() const;

    /// Between which figures something dropped at \a point, in content coordinates, would go.
    int indexAt(const QPoint &point) const;
    /// Where such an index is: a thin bar in content coordinates.
    QRect gapAt(int index) const;

private:
    Velmora::Figura::Layout *createLayout() const;
    QRect absolute(Figure *figure) const;

    TextBlock *m_title;
    Figure *m_body;
    Qt::Orientation m_flow = Qt::Vertical;
};

} // namespace Editor
