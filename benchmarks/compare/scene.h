#pragma once

#include <QColor>
#include <QList>
#include <QPoint>
#include <QRect>

#include <array>

/// One line from a hub to a rectangle beside it, by their indices.
struct Edge
{
    int hub;
    int neighbour;
};

/// What every side shows: rectangles on a grid, one in eight a hub with four lines to others.
class Scene
{
public:
    static constexpr QSize box{40, 30};
    static constexpr int gap = 10;
    static constexpr QSize view{1600, 1000};

    explicit Scene(int count);

    int count() const { return m_count; }
    QRect area() const; ///< Holds all rectangles.
    QRect rect(int index) const;
    QColor color(int index) const;
    int indexAt(int column, int row) const; ///< Clamped into the grid.
    int columns() const { return m_columns; }
    int rows() const { return (m_count + m_columns - 1) / m_columns; }

    const QList<int> &hubs() const { return m_hubs; }
    const QList<Edge> &edges() const { return m_edges; }

private:
    void connectHub(int hub);

    int m_count;
    int m_columns;
    QList<int> m_hubs;
    QList<Edge> m_edges;
};

/// Where the line from the centre of \a box to \a target leaves \a box.
QPointF chop(const QRectF &box, const QPointF &target);

/// Numbers that only look random, the same in every run.
class Numbers
{
public:
    int below(int bound);

private:
    quint64 m_state = 88172645463325252ull;
};
