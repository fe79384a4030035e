#pragma once

#include <figura/export.h>
#include <figura/shape/Shape.h>

#include <QList>
#include <QPoint>

namespace Velmora::Figura {

/// An open line through integer points, in the coordinate system of the bounds. Not filled at
/// first.
///
/// The points alone place a polyline: setBounds() and translate() do nothing to it. Its path, and
/// with it the bounds, follow the points while it is attached to a displayed tree; see
/// Shape::rebuildPath() otherwise. The bounds do not include the line width.
class FIGURA_EXPORT Polyline : public Shape
{
    Q_OBJECT
    Q_PROPERTY(QList<QPoint> linePoints READ getLinePoints WRITE setLinePoints)
    Q_PROPERTY(QPoint start READ getStart WRITE setStart)
    Q_PROPERTY(QPoint end READ getEnd WRITE setEnd)

public:
    explicit Polyline(QObject *parent = nullptr); ///< Without points.
    ~Polyline() override;

    /// How far beside the line a point still hits it, in figure units. Read at every hit test.
    static int M_tolerance;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    virtual QList<QPoint> getLinePoints();                   ///< From the start to the end.
    virtual void setLinePoints(const QList<QPoint> &points); ///< Replaces all points.

    void addPoint(const QPoint &point);               ///< Appends \a point at the end.
    void insertPoint(const QPoint &point, int index); ///< \a index is clamped into the list.
    void setPoint(const QPoint &point, int index);    ///< An index out of range is refused, warned.
    void removePoint(int index); ///< An index out of range is refused, warned. Does not repaint.
    void removeAllPoints();      ///< Does not repaint what is left.
    QPoint getPoint(int index) const; ///< (0, 0) when out of range.
    int getPointCount() const;        ///< 0 at first.

    QPoint getStart() const;            ///< The first point; (0, 0) when there is none.
    QPoint getEnd() const;              ///< The last point; (0, 0) when there is none.
    void setStart(const QPoint &point); ///< Replaces the first point, or adds it to an empty line.
    void setEnd(const QPoint &point);   ///< Replaces the last point, or adds it to an empty line.
    /// Replaces the first and the last point, adding those that are missing.
    void setEndPoints(const QPoint &start, const QPoint &end);

    QRect resolveBounds(const QRect &rect) override; ///< \a rect as it is.
    /// The path's bounding rectangle, rounded; with exactly two points at least 1 wide and high.
    QRect getBounds() override;
    void setBounds(const QRect &rect) override; ///< Does nothing.
    /// Near the line within the tolerance, or in a child; the line width widens only the box that
    /// is tested first.
    bool contains(const QPoint &point) const override;
    void setLineWidth(int width) override;

protected:
    void primTranslate(int dx, int dy) override;      ///< Does nothing.
    void regeneratePath(const QRectF &rect) override; ///< From the points; \a rect is ignored.

private:
    friend class PolylineAccess; // the implementation shared with the other polyline

    bool lineContainsPoint(const QPoint &a, const QPoint &b, const QPoint &p, int tolerance) const;

    QList<QPoint> m_points;
};

} // namespace Velmora::Figura
