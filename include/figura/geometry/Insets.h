#pragma once

#include <figura/export.h>

class QRect;
class QRectF;
class QSize;

namespace Velmora::Figura {

/// Space kept free on the four sides of a rectangle, in the units of that rectangle.
///
/// Values are not checked: a negative side widens instead of shrinking.
class FIGURA_EXPORT Insets
{
public:
    Insets();                                         ///< All four sides 0.
    Insets(int top, int left, int bottom, int right); ///< In this order.
    Insets(const Insets &other);                      ///< The same four values.
    virtual ~Insets();

    Insets &operator=(const Insets &other);     ///< Takes the four values over.
    bool operator==(const Insets &other) const; ///< True when all four sides are equal.
    bool operator!=(const Insets &other) const; ///< True when a side differs.

    /// Space at the top.
    int top() const { return m_top; }
    /// Space at the bottom.
    int bottom() const { return m_bottom; }
    /// Space at the right; see applyTo().
    int right() const { return m_right; }
    /// Space at the left; see applyTo().
    int left() const { return m_left; }

    /// Shrinks \a rect in place and returns it.
    ///
    /// The left edge moves by the right inset and the right edge by the left one, on purpose; the
    /// difference shows only with unequal left and right insets.
    QRect &applyTo(QRect &rect) const;
    QRectF &applyTo(QRectF &rect) const; ///< \overload

    /// Grows \a rect in place and returns it: the exact inverse of applyTo().
    QRect &stripFrom(QRect &rect) const;
    QRectF &stripFrom(QRectF &rect) const; ///< \overload

    QSize &addTo(QSize &size) const;      ///< Adds left + right and top + bottom; returns \a size.
    QSize &removeFrom(QSize &size) const; ///< Takes the same amounts off; returns \a size.

    bool isNull() const; ///< True when all four sides are 0.

private:
    int m_top = 0;
    int m_bottom = 0;
    int m_right = 0;
    int m_left = 0;
};

} // namespace Velmora::Figura
