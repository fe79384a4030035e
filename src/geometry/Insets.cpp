#include <figura/geometry/Insets.h>

#include <QRect>
#include <QRectF>
#include <QSize>

namespace Velmora::Figura {
namespace {

// Left and right cross over on purpose; only unequal insets show it.
template<class Rect>
Rect &shrink(Rect &rect, const Insets &insets)
{
    rect.adjust(insets.right(), insets.top(), -insets.left(), -insets.bottom());
    return rect;
}

template<class Rect>
Rect &grow(Rect &rect, const Insets &insets)
{
    rect.adjust(-insets.right(), -insets.top(), insets.left(), insets.bottom());
    return rect;
}

} // namespace

Insets::Insets() = default;

Insets::Insets(int top, int left, int bottom, int right)
    : m_top(top)
    , m_bottom(bottom)
    , m_right(right)
    , m_left(left)
{
}

Insets::Insets(const Insets &other) = default;

Insets::~Insets() = default;

Insets &Insets::operator=(const Insets &other) = default;

bool Insets::operator==(const Insets &other) const
{
    return m_top == other.m_top && m_bottom == other.m_bottom && m_right == other.m_right &&
           m_left == other.m_left;
}

bool Insets::operator!=(const Insets &other) const
{
    return !(*this == other);
}

QRect &Insets::applyTo(QRect &rect) const
{
    return shrink(rect, *this);
}

QRectF &Insets::applyTo(QRectF &rect) const
{
    return shrink(rect, *this);
}

QRect &Insets::stripFrom(QRect &rect) const
{
    return grow(rect, *this);
}

QRectF &Insets::stripFrom(QRectF &rect) const
{
    return grow(rect, *this);
}

QSize &Insets::addTo(QSize &size) const
{
    return size += QSize(m_left + m_right, m_top + m_bottom);
}

QSize &Insets::removeFrom(QSize &size) const
{
    return size -= QSize(m_left + m_right, m_top + m_bottom);
}

bool Insets::isNull() const
{
    return *this == Insets();
}

} // namespace Velmora::Figura
