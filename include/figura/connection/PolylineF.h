#pragma once

#include <figura/export.h>
#include <figura/shape/Shape.h>

#include <QList>
#include <QPointF>

namespace Velmora::Figura {

/// An open line through floating points, in the coordinate system of the bounds. Not filled at
/// first.
///
/// The points alone place a polyline: setBounds() and translate() do nothing to it. Its path, and
/// with it the bounds, follow the points while it is attached to a displayed tree; see
/// Shape::rebuildPath() otherwise. The bounds do not include the line width.
class FIGURA_EXPORT PolylineF : public Shape
{
    Q_OBJECT
    Q_PROPERTY(QList<QPointF> linePoints READ getLinePoints WRITE setLinePoints)
    Q_PROPERTY(QPointF start READ getStart WRITE setStart)
    Q_PROPERTY(QPointF end READ getEnd WRITE setEnd)

public:
    explicit PolylineF(QObject *parent = nullptr); ///< Without points.
    ~PolylineF() override;

    /// How far beside the line a point still hits it, in figure units. Read at every hit test.
    static int M_tolerance;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    virtual QList<QPointF> getLinePoints();                   ///< From the start to the end.
    virtual void setLinePoints(const QList<QPointF> &points); ///< Replaces all points.

    void addPoint(const QPointF &point);               ///< Appends \a point at the end.
    void insertPoint(const QPointF &point, int index); ///< \a index is clamped into the list.
    void setPoint(const QPointF &point, int index); ///< An index out of range is refused, warned.
    void removePoint(int index); ///< An index out of range is refused, warned. Does not repaint.
    void removeAllPoints();      ///< Does not repaint what is left.
    QPoint getPoint(int index) const;   ///< Rounded half away from zero; (0, 0) when out of range.
    QPointF getPointF(int index) const; ///< (0, 0) when out of range.
    int getPointCount() const;          ///< 0 at first.

    QPointF getStart() const;            ///< The first point; (0, 0) when there is none.
    QPointF getEnd() const;              ///< The last point; (0, 0) when there is none.
    void setStart(const QPointF &point); ///< Replaces the first point, or adds it to an empty line.
    void setEnd(const QPointF &point);   ///< Replaces the last point, or adds it to an empty line.
    /// Replaces the first and the last point, adding those that are missing.
    void setEndPoints(const QPointF &start, const QPointF &end);

    QRect resolveBounds(const QRect &rect) override; ///< \a rect as it is.
    QRect getBounds() override;                      ///< The path's bounding rectangle, rounded.
    void setBounds(const QRect &rect) override;      ///< Does nothing.
    /// Near the line within the tolerance, or in a child; the line width widens only the box that
    /// is tested first.
    bool contains(const QPoint &point) const override;
    void setLineWidth(int width) override;

protected:
    void primTranslate(int dx, int dy) override;      ///< Does nothing.
    void regeneratePath(const QRectF &rect) override; ///< From the points; \a rect is ignored.

private:
    friend class PolylineAccess; // the implementation shared with the other polyline

    bool lineContainsPoint(const QPointF &a, const QPointF &b, const QPointF &p,
                           int tolerance) const;

    QList<QPointF> m_points;
};

} // namespace Velmora::Figura
