#pragma once

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>

#include <figureprobe.h>

#include <memory>

namespace Velmora::Figura::Test {

/// A polyline of either class, so that a rule which both follow is tested once.
///
/// Points are given as floating ones; the integer class rounds them, so common tests use whole
/// numbers.
class AnyPolyline
{
public:
    virtual ~AnyPolyline() = default;

    virtual Shape &shape() = 0;
    virtual QStringList &log() = 0; ///< Every entry ends with the points at that moment.
    virtual QPainterPath path() const = 0;
    virtual QList<QRectF> announcedRects() const = 0;
    virtual void regeneratePath(const QRectF &rect) = 0;
    virtual void primTranslate(int dx, int dy) = 0;
    virtual int &tolerance() = 0; ///< That of the class.

    virtual void addPoint(const QPointF &point) = 0;
    virtual void insertPoint(const QPointF &point, int index) = 0;
    virtual void setPoint(const QPointF &point, int index) = 0;
    virtual void removePoint(int index) = 0;
    virtual void removeAllPoints() = 0;
    virtual QPoint getPoint(int index) const = 0;
    virtual int getPointCount() const = 0;
    virtual QPointF getStart() const = 0;
    virtual QPointF getEnd() const = 0;
    virtual void setStart(const QPointF &point) = 0;
    virtual void setEnd(const QPointF &point) = 0;
    virtual void setEndPoints(const QPointF &start, const QPointF &end) = 0;
    virtual QList<QPointF> getLinePoints() = 0;
    virtual void setLinePoints(const QList<QPointF> &points) = 0;
};

inline QPoint fromFloating(const QPointF &point, QPoint)
{
    return point.toPoint();
}

inline QPointF fromFloating(const QPointF &point, QPointF)
{
    return point;
}

inline QString toText(const QList<QPointF> &points)
{
    QStringList parts;
    for (const QPointF &point : points)
        parts.append(QStringLiteral("%1,%2").arg(point.x()).arg(point.y()));
    return parts.join(QLatin1Char(' '));
}

template<typename Line, typename Point>
class PolylineOf : public AnyPolyline
{
public:
    PolylineOf()
    {
        m_line.detail = [this] { return toText(getLinePoints()); };
    }

    Shape &shape() override { return m_line; }
    QStringList &log() override { return m_line.log; }
    QPainterPath path() const override { return m_line.getPainterPath(); }
    QList<QRectF> announcedRects() const override { return m_line.announcedRects; }
    void regeneratePath(const QRectF &rect) override { m_line.regeneratePath(rect); }
    void primTranslate(int dx, int dy) override { m_line.primTranslate(dx, dy); }
    int &tolerance() override { return Line::M_tolerance; }

    void addPoint(const QPointF &point) override { m_line.addPoint(own(point)); }
    void insertPoint(const QPointF &point, int index) override
    {
        m_line.insertPoint(own(point), index);
    }
    void setPoint(const QPointF &point, int index) override { m_line.setPoint(own(point), index); }
    void removePoint(int index) override { m_line.removePoint(index); }
    void removeAllPoints() override { m_line.removeAllPoints(); }
    QPoint getPoint(int index) const override { return m_line.getPoint(index); }
    int getPointCount() const override { return m_line.getPointCount(); }
    QPointF getStart() const override { return m_line.getStart(); }
    QPointF getEnd() const override { return m_line.getEnd(); }
    void setStart(const QPointF &point) override { m_line.setStart(own(point)); }
    void setEnd(const QPointF &point) override { m_line.setEnd(own(point)); }
    void setEndPoints(const QPointF &start, const QPointF &end) override
    {
        m_line.setEndPoints(own(start), own(end));
    }

    QList<QPointF> getLinePoints() override
    {
        QList<QPointF> result;
        for (const Point &point : m_line.getLinePoints())
            result.append(point);
        return result;
    }

    void setLinePoints(const QList<QPointF> &points) override
    {
        QList<Point> result;
        for (const QPointF &point : points)
            result.append(own(point));
        m_line.setLinePoints(result);
    }

private:
    class Probe : public ShapeProbe<Line>
    {
    public:
        using Line::primTranslate;
    };

    static Point own(const QPointF &point) { return fromFloating(point, Point()); }

    Probe m_line;
};

using AnyPolylinePointer = std::unique_ptr<AnyPolyline>;

/// \a className is Polyline or PolylineF.
inline AnyPolylinePointer makePolyline(const QString &className)
{
    if (className == QStringLiteral("PolylineF"))
        return std::make_unique<PolylineOf<PolylineF, QPointF>>();
    return std::make_unique<PolylineOf<Polyline, QPoint>>();
}

inline const QStringList polylineClasses{QStringLiteral("Polyline"), QStringLiteral("PolylineF")};

/// The path that a polyline has to have.
inline QPainterPath pathThrough(const QList<QPointF> &points)
{
    if (points.size() < 2)
        return QPainterPath();
    QPainterPath path(points.first());
    for (int i = 1; i < points.size(); ++i)
        path.lineTo(points[i]);
    return path;
}

} // namespace Velmora::Figura::Test
