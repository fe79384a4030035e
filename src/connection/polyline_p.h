#pragma once

#include "figure/alive_p.h"
#include "figure/childwalk_p.h"
#include "layout/childtable_p.h"
#include "shape/pathsource_p.h"

#include <figura/figure/Figure.h>

#include <QMessageLogger>
#include <QPainterPath>
#include <QPainterPathStroker>

#include <cmath>

namespace Velmora::Figura {

/// Whether a child of \a figure contains \a point; decorations thus count as part of their line.
inline bool anyChildContains(const Figure *figure, const QPoint &point)
{
    const ChildWalk walk(figure);
    for (Figure *child : walk.children()) {
        if (walk.isPresent(child) && child->contains(point))
            return true;
    }
    return false;
}

/// What Polyline and PolylineF have in common: all but the type of their points.
///
/// `Line` is one of the two classes, `Point` the type of its points.
class PolylineAccess
{
public:
    template<class Line, class Point>
    static void addPoint(Line *line, const Point &point)
    {
        line->m_points.append(point);
        if (announce(line))
            line->repaint();
    }

    template<class Line, class Point>
    static void insertPoint(Line *line, const Point &point, int index)
    {
        line->m_points.insert(qBound(0, index, line->getPointCount()), point);
        if (announce(line))
            line->repaint();
    }

    template<class Line, class Point>
    static void setPoint(Line *line, const Point &point, int index, const char *refusal)
    {
        if (!hasPoint(line, index, refusal) || !erase(line))
            return;
        line->m_points[index] = point;
        if (announce(line))
            line->repaint();
    }

    template<class Line>
    static void removePoint(Line *line, int index, const char *refusal)
    {
        if (!hasPoint(line, index, refusal) || !erase(line))
            return;
        // What is left lies within the old area, so no repaint has to follow; but for points that
        // came while nobody listened, which become a path only now.
        const QRectF before = PathSource::boundsOf(line);
        line->m_points.removeAt(index);
        if (announce(line) && (before | PathSource::boundsOf(line)) != before)
            line->repaint();
    }

    template<class Line>
    static void removeAllPoints(Line *line)
    {
        if (!erase(line))
            return;
        line->m_points.clear();
        announce(line);
    }

    template<class Line, class Points>
    static void setLinePoints(Line *line, const Points &points)
    {
        const Points next = points; // those of a connection may be meant, and go with it
        if (!erase(line))
            return;
        line->m_points = next;
        if (announce(line))
            line->repaint();
    }

    template<class Line, class Point>
    static void setStart(Line *line, const Point &point)
    {
        if (line->m_points.isEmpty())
            line->addPoint(point);
        else
            line->setPoint(point, 0);
    }

    template<class Line, class Point>
    static void setEnd(Line *line, const Point &point)
    {
        if (line->m_points.size() < 2)
            line->addPoint(point);
        else
            line->setPoint(point, line->getPointCount() - 1);
    }

    template<class Line>
    static QRect pathBounds(const Line *line)
    {
        return PathSource::boundsOf(line).toRect();
    }

    /// The cheap test of the box comes first. The line width widens only this box, not the stroke.
    template<class Line>
    static bool contains(const Line *line, const QPoint &point)
    {
        const int reach = line->getLineWidth() / 2 + Line::M_tolerance;
        const QRect box =
            const_cast<Line *>(line)->getBounds().adjusted(-reach, -reach, reach, reach);
        return box.contains(point) &&
               (strokeContains(line, point) || anyChildContains(line, point));
    }

    template<class Line>
    static void setLineWidth(Line *line, int width)
    {
        if (width == line->getLineWidth())
            return;
        const QPointer<Line> alive(line);
        if (width < line->getLineWidth())
            line->erase();
        if (alive)
            line->Shape::setLineWidth(width);
        if (!alive)
            return;
        // Points that came while nobody listened become a path only now.
        const QPainterPath before = line->getPainterPath();
        if (announce(line) && line->getPainterPath() != before)
            line->repaint();
    }

    /// Asks for the points by the virtual operation, so that a subclass may supply others. A
    /// connection announces its path twice while it is laid out.
    template<class Point, class Line>
    static void regeneratePath(Line *line)
    {
        const QList<Point> points = line->getLinePoints();
        if (PathSource::isMadeOf(line, points.constData(), points.size()))
            ChildTable::note(line, Pending::Area);
        else
            PathSource::give(line, std::make_unique<PointsSource<Point>>(points));
    }

    /// Whether \a p is within \a tolerance of the segment. `Rect` is the rectangle of `Point`s.
    ///
    /// In double arithmetic for both kinds of points: with integer ones every step is exact far
    /// beyond the range in which their products would overflow.
    template<class Rect, class Point>
    static bool segmentContains(const Point &a, const Point &b, const Point &p, int tolerance)
    {
        const int t = tolerance;
        if (!Rect(a, b).normalized().adjusted(-t, -t, t, t).contains(p))
            return false;
        if (a.x() == b.x() || a.y() == b.y())
            return true; // the box is the answer

        const QPointF d = QPointF(b) - QPointF(a);
        const QPointF v = QPointF(p) - QPointF(a);
        const double cross = v.x() * d.y() - v.y() * d.x();
        const double squaredDistance = std::trunc(cross * cross / QPointF::dotProduct(d, d));
        return squaredDistance <= static_cast<double>(t) * t;
    }

private:
    /// False when that has destroyed the line.
    template<class Line>
    static bool erase(Line *line)
    {
        const Alive alive(line);
        line->erase();
        return bool(alive);
    }

    /// The empty rectangle says nothing: the points alone make the path. False when a slot has
    /// destroyed the line.
    template<class Line>
    static bool announce(Line *line)
    {
        const Alive alive(line);
        ChildTable::note(line, Pending::Area);
        Q_EMIT line->pathChanged(QRectF());
        return bool(alive);
    }

    template<class Line>
    static bool hasPoint(const Line *line, int index, const char *refusal)
    {
        if (index >= 0 && index < line->getPointCount())
            return true;
        QMessageLogger().warning("%s", refusal);
        return false;
    }

    template<class Line>
    static bool strokeContains(const Line *line, const QPoint &point)
    {
        QPainterPathStroker stroker;
        stroker.setWidth(2 * Line::M_tolerance);
        return stroker.createStroke(line->getPainterPath()).contains(QPointF(point));
    }
};

} // namespace Velmora::Figura
