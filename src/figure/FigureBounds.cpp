// Sizes, bounds and what follows from them.

#include <figura/figure/Figure.h>

#include "alive_p.h"
#include "childwalk_p.h"
#include "paintreach_p.h"

#include <figura/figure/Border.h>
#include <figura/layout/Layout.h>

namespace Velmora::Figura {
namespace {

bool fits(const QSize &inner, const QSize &outer)
{
    return inner.width() <= outer.width() && inner.height() <= outer.height();
}

bool refuse(const char *message)
{
    QMessageLogger().debug("%s", message);
    return false;
}

} // namespace

QSize Figure::getMinimumSize()
{
    QSize size(0, 0);
    if (Layout *layout = getLayoutManager()) {
        const Alive alive(this);
        const QSize needed = layout->getMinimumSize();
        if (!alive)
            return needed;
        size = applyMargin(needed);
        if (Border *border = getBorder(); border && size.isValid())
            border->getInsets().addTo(size);
    }
    return size.expandedTo(m_minimumSize);
}

bool Figure::setMinimumSize(const QSize &size)
{
    if (!fits(size, m_maximumSize))
        return refuse("Figure::setMinimumSize(): size out of bound");

    m_minimumSize = size;
    return true;
}

QSize Figure::getMaximumSize()
{
    return m_maximumSize;
}

bool Figure::setMaximumSize(const QSize &size)
{
    if (!fits(m_minimumSize, size))
        return refuse("Figure::setMaximumSize(): size out of bound");

    m_maximumSize = size;
    return true;
}

QSize Figure::getPreferredSize()
{
    if (isValid())
        return m_preferredSize;

    // Layouts and contents are measured by the application's code, which may destroy this figure.
    const Alive alive(this);
    Layout *layout = getLayoutManager();
    const bool useContent = !layout || getFlag(FLAG_USE_CONTENT_SIZE);
    const QSize needed = useContent ? calculateContentSize() : layout->getPreferredSize();
    if (!alive)
        return needed;
    QSize size = applyMargin(needed);
    if (Border *border = getBorder(); border && size.isValid())
        border->getInsets().addTo(size);

    const QSize minimum = getMinimumSize();
    if (alive)
        m_preferredSize = size.expandedTo(minimum).boundedTo(getMaximumSize());
    return alive ? m_preferredSize : size;
}

bool Figure::setPreferredSize(const QSize &size)
{
    if (!fits(m_minimumSize, size) || !fits(size, m_maximumSize))
        return refuse("Figure::setPreferredSize(): size out of bound");

    m_preferredSize = size;
    return false; // on purpose, although the size is stored
}

QSize Figure::calculateContentSize()
{
    QSize size = m_preferredSize;
    if (!size.isValid())
        return size;

    removeMargin(size);
    if (Border *border = getBorder())
        border->getInsets().removeFrom(size);
    return size;
}

QSize Figure::getResizeMinimum(int /*handle*/)
{
    return getMinimumSize();
}

QSize Figure::applyMargin(const QSize &size) const
{
    const int margin = getMargin();
    return size + QSize(margin, margin) * 2;
}

// Once, not twice, on purpose: see calculateContentSize().
QSize &Figure::removeMargin(QSize &size) const
{
    const int margin = getMargin();
    return size -= QSize(margin, margin);
}

QRect Figure::getClientArea()
{
    const Alive alive(this);
    const QRect bounds = resolveBounds(getBounds());
    return alive && bounds.isValid() ? calculateContentRect(bounds) : bounds;
}

QRect Figure::calculateContentRect(const QRect &rect)
{
    QRect content = rect;
    if (Border *border = getBorder())
        border->getInsets().applyTo(content);
    const int margin = getMargin();
    return content.adjusted(margin, margin, -margin, -margin);
}

QRect Figure::calculateRectForContent(const QRect &rect) const
{
    QRect outer = rect;
    if (Border *border = getBorder())
        border->getInsets().stripFrom(outer);
    const int margin = getMargin();
    return outer.adjusted(-margin, -margin, margin, margin);
}

QRect Figure::resolveBounds(const QRect &rect)
{
    if (rect.isValid())
        return rect;

    QRect resolved = rect;
    const QSize preferred = getPreferredSize();
    if (resolved.width() < 1 && preferred.width() >= 1)
        resolved.setWidth(preferred.width());
    if (resolved.height() < 1 && preferred.height() >= 1)
        resolved.setHeight(preferred.height());
    if (!resolved.isValid())
        QMessageLogger().debug("Figure::resolveBounds(): resolved bounds still invalid");
    return resolved;
}

QRect Figure::getBounds()
{
    return m_bounds;
}

QRect Figure::getBoundingRect()
{
    return getBounds();
}

void Figure::setBounds(const QRect &rect)
{
    // Whoever is asked for a size or told of a move, that of a child too, may destroy this figure.
    const Alive alive(this);
    const QRect bounds = resolveBounds(rect);
    if (!alive)
        return;
    const QPoint shift = bounds.topLeft() - m_bounds.topLeft();
    const bool resized = bounds.size() != m_bounds.size();
    if (shift.isNull() && !resized)
        return;

    if (isVisible())
        erase();
    if (alive && !shift.isNull())
        primTranslate(shift.x(), shift.y());
    if (alive)
        PaintReach::shiftChildren(*this, shift);
    if (alive && resized) {
        m_bounds.setSize(bounds.size());
        noteArea();
        invalidate();
    }
    if (alive)
        Q_EMIT figureMoved(this);
    if (alive)
        repaint();
}

void Figure::primTranslate(int dx, int dy)
{
    m_bounds.translate(dx, dy);
    noteArea();
    walkChildren(this, [dx, dy](Figure *child) { child->translate(dx, dy); });
}

void Figure::translate(int dx, int dy)
{
    const Alive alive(this);
    if (!useLocalCoordinates())
        primTranslate(dx, dy);
    if (!alive)
        return;
    PaintReach::shiftChildren(*this, QPoint(dx, dy));
    PaintReach::refresh(*this);
    Q_EMIT figureMoved(this);
}

} // namespace Velmora::Figura
