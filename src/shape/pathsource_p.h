#pragma once

#include "pixelfill_p.h"

#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

namespace Velmora::Figura {

class Shape;

/// What a shape's path is made of, from the moment at which the path was due on.
///
/// Most paths are never needed: the shape is out of sight, or simple enough to be drawn without
/// one. The source takes a tenth of the room of the path, which is built when somebody looks at it.
class PathSource
{
public:
    /// What can be said of a path without it.
    struct Outline
    {
        bool isEmpty; ///< Without a single element.
        bool isClosed;
        bool isUpright; ///< A rectangle or an ellipse.
        QRectF bounds;  ///< Of its control points.
    };

    virtual ~PathSource() = default;

    virtual QPainterPath build() const = 0;
    virtual Outline outline() const = 0;
    /// Draws with the painter's pen and brush where that gives exactly the pixels of the path,
    /// moved by \a offset. False otherwise.
    bool draw(QPainter *painter, const QPointF &offset) const;
    /// The same with the pen and the brush that \a shape would give to the painter.
    static bool draw(const Shape *shape, QPainter *painter, const QColor &line, const QColor &fill,
                     const QPointF &offset);
    /// How wide, in pixels, the line of \a shape is whatever the scale; nothing where it grows.
    static std::optional<int> widthInPixels(const Shape *shape, const QPainter &painter);

    /// What the path answers, where that is known without it.
    virtual std::optional<bool> contains(const QPointF &point) const;

    /// Whether \a shape has the path of just that list of points, not only of equal ones.
    static bool isMadeOf(const Shape *shape, const void *points, qsizetype count);
    static void give(Shape *shape, std::unique_ptr<PathSource> source);
    static QRectF boundsOf(const Shape *shape);                     ///< Of its path, built or not.
    static Outline outlineOf(const Shape *shape);                   ///< Of its path, built or not.
    static bool contains(const Shape *shape, const QPointF &point); ///< Its path, built or not.
    static Outline outlineOf(const QPainterPath &path);

protected:
    /// Fills what an opaque hairline covers, and within it, unless \a fill is null.
    virtual bool fill(const PixelFill &pixels, const QPointF &offset, const QColor &line,
                      const QColor *fill) const;
    virtual bool isMadeOf(const void *points, qsizetype count) const;
    /// Draws the outline by something simpler than its path.
    virtual bool drawOutline(QPainter *painter, const QPointF &offset) const;
};

/// Of a rectangle, in as little room as its numbers allow: most of them are whole.
template<class Rect>
class RectangleSource : public PathSource
{
public:
    explicit RectangleSource(const Rect &rect)
        : m_rect(rect)
    {
    }

    QPainterPath build() const override;
    Outline outline() const override;
    std::optional<bool> contains(const QPointF &point) const override;

protected:
    bool fill(const PixelFill &pixels, const QPointF &offset, const QColor &line,
              const QColor *fill) const override;

private:
    QRectF rect() const { return m_rect; }

    const Rect m_rect;
};

std::unique_ptr<PathSource> makeRectangleSource(const QRectF &rect);

class EllipseSource : public PathSource
{
public:
    explicit EllipseSource(const QRectF &rect);

    QPainterPath build() const override;
    Outline outline() const override;

private:
    const QRectF m_rect;
};

/// An open line through points.
template<class Point>
class PointsSource : public PathSource
{
public:
    explicit PointsSource(const QList<Point> &points)
        : m_points(points)
    {
    }

    QPainterPath build() const override
    {
        QPainterPath path;
        if (m_points.size() < 2)
            return path;
        path.moveTo(m_points.first());
        for (qsizetype i = 1; i < m_points.size(); ++i)
            path.lineTo(m_points.at(i));
        return path;
    }

    Outline outline() const override
    {
        if (m_points.size() < 2 || !std::all_of(m_points.begin(), m_points.end(), isDrawable))
            return outlineOf(build());
        QPointF least = m_points.first();
        QPointF most = least;
        for (const QPointF point : m_points) {
            least = {qMin(least.x(), point.x()), qMin(least.y(), point.y())};
            most = {qMax(most.x(), point.x()), qMax(most.y(), point.y())};
        }
        const bool isClosed = QPointF(m_points.first()) == QPointF(m_points.last());
        return {false, isClosed, false, {least, most}};
    }

protected:
    bool fill(const PixelFill &pixels, const QPointF &offset, const QColor &line,
              const QColor *fill) const override
    {
        return !fill && isOneLine() &&
               pixels.fillLine(m_points.first() + offset, m_points.last() + offset, line);
    }

    bool isMadeOf(const void *points, qsizetype count) const override
    {
        return m_points.constData() == points && m_points.size() == count;
    }

    bool drawOutline(QPainter *painter, const QPointF &offset) const override
    {
        if (!isOneLine())
            return false;
        painter->drawLine(m_points.first() + offset, m_points.last() + offset);
        return true;
    }

private:
    bool isOneLine() const
    {
        return m_points.size() == 2 && m_points.first() != m_points.last() &&
               std::all_of(m_points.begin(), m_points.end(), isDrawable);
    }

    // A path leaves out what is no number.
    static bool isDrawable(const QPointF &point)
    {
        return std::abs(point.x()) < 1e100 && std::abs(point.y()) < 1e100;
    }

    const QList<Point> m_points;
};

} // namespace Velmora::Figura
