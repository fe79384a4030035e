#include <figura/layout/FreeformStackLayout.h>

#include "figure/childwalk_p.h"

#include <figura/view/IFreeformFigure.h>

namespace Velmora::Figura {

FreeformStackLayout::FreeformStackLayout(QObject *parent)
    : StackLayout(parent)
{
    setLaidOut(true);
}

FreeformStackLayout::~FreeformStackLayout() = default;

QRect FreeformStackLayout::calculateFreeformExtent()
{
    QRect extent;
    if (!getFigure())
        return extent;
    walkChildren(this, [&extent](Figure *child) {
        if (auto *freeform = qobject_cast<IFreeformFigure *>(child))
            extent |= freeform->getFreeformExtent();
    });
    return extent;
}

// A destroyed layer tells nothing of its extent, so the union that counted it is void.
const QRect &FreeformStackLayout::cachedExtent()
{
    if (m_extentAge != destroyedChildCount())
        m_extent = QRect();
    m_extentAge = destroyedChildCount();
    return m_extent;
}

QRect FreeformStackLayout::getFreeformExtent()
{
    if (cachedExtent().isValid())
        return m_extent;
    const QPointer<FreeformStackLayout> alive(this);
    const QRect extent = calculateFreeformExtent();
    if (alive)
        m_extent = extent;
    return extent;
}

void FreeformStackLayout::examineExtent()
{
    const QPointer<FreeformStackLayout> alive(this);
    const QRect extent = calculateFreeformExtent();
    if (!alive || extent == cachedExtent())
        return;
    m_extent = extent;
    Q_EMIT extentChanged();
}

void FreeformStackLayout::setFreeformBounds(const QRect &rect)
{
    walkChildren(this, [&rect](Figure *child) {
        auto *freeform = qobject_cast<IFreeformFigure *>(child);
        if (freeform && child->isVisible())
            freeform->setFreeformBounds(rect);
    });
}

QRect FreeformStackLayout::getCurrentChildBounds() const
{
    return m_childBounds;
}

QSize FreeformStackLayout::calculateMinimumSize()
{
    return getFreeformExtent().size();
}

QSize FreeformStackLayout::calculatePreferredSize()
{
    return getMinimumSize();
}

bool FreeformStackLayout::performLayout(const QRect & /*clientArea*/)
{
    const QRect bounds = getCurrentChildBounds();
    if (!bounds.isValid())
        return true;
    walkChildren(this, [&bounds](Figure *child) {
        auto *freeform = qobject_cast<IFreeformFigure *>(child);
        if (freeform && child->isVisible() && child->getBounds() != bounds)
            freeform->setFreeformBounds(bounds);
    });
    return true;
}

} // namespace Velmora::Figura
