#pragma once

#include <figura/export.h>

#include <QObject>

class QPoint;

namespace Velmora::Figura {

/// A two-dimensional integer vector.
///
/// Results are new rays without a parent; copies do not take over the parent either.
class FIGURA_EXPORT Ray : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int x READ x)
    Q_PROPERTY(int y READ y)

public:
    explicit Ray(QObject *parent = nullptr);                      ///< The null vector (0, 0).
    Ray(int x, int y, QObject *parent = nullptr);                 ///< The vector (\a x, \a y).
    explicit Ray(const QPoint &point, QObject *parent = nullptr); ///< From (0, 0) to \a point.
    Ray(const QPoint &from, const QPoint &to, QObject *parent = nullptr); ///< \a to - \a from.
    Ray(const Ray &from, const Ray &to, QObject *parent = nullptr);       ///< \a to - \a from.
    Ray(const Ray &other); ///< The same vector, without a parent.
    ~Ray() override;

    Ray &operator=(const Ray &other);        ///< Takes the vector over; the parent stays.
    bool operator==(const Ray &other) const; ///< True when both components are equal.

    /// The horizontal part.
    int x() const { return m_x; }
    /// The vertical part; downwards is positive.
    int y() const { return m_y; }

    int dotProduct(const Ray &r) const;   ///< x * r.x + y * r.y.
    int similarity(const Ray &r) const;   ///< |dot product|: 0 for perpendicular rays.
    int assimilarity(const Ray &r) const; ///< |cross product|: 0 for parallel rays.
    Ray getAdded(const Ray &r) const;     ///< The sum of both.
    Ray getAveraged(const Ray &r) const;  ///< Half of the sum, each part truncated toward zero.
    Ray getScaled(int s) const;           ///< Both components times \a s.
    bool isHorizontal() const;            ///< True when x is not 0, so for a diagonal ray too.
    double length() const;                ///< The Euclidean length.

private:
    int m_x = 0;
    int m_y = 0;
};

} // namespace Velmora::Figura
