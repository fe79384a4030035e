#include <figura/decoration/Locator.h>

#include "figure/figureguard_p.h"

#include <figura/figure/Figure.h>

namespace Velmora::Figura {
namespace {

// -1, 0 or +1. The lower side wins when a position names both.
int side(int position, int lower, int upper)
{
    if (position & lower)
        return -1;
    return position & upper ? 1 : 0;
}

} // namespace

Locator::Locator(QObject *parent)
    : QObject(parent)
{
}

Locator::~Locator() = default;

int Locator::getGap() const
{
    return m_gap;
}

void Locator::setGap(int gap)
{
    m_gap = gap;
}

int Locator::getRelativePosition() const
{
    return m_relativePosition;
}

void Locator::setRelativePosition(int position)
{
    m_relativePosition = position;
}

QRect Locator::getNewBounds(const QSize &size, const QPoint &point)
{
    const int halfWidth = size.width() / 2;
    const int halfHeight = size.height() / 2;
    const int position = getRelativePosition();
    QRect bounds(point, size);
    bounds.translate(-halfWidth, -halfHeight);
    bounds.translate((halfWidth + getGap()) *
                         side(position, IPositionConstants::WEST, IPositionConstants::EAST),
                     (halfHeight + getGap()) *
                         side(position, IPositionConstants::NORTH, IPositionConstants::SOUTH));
    return bounds;
}

void Locator::relocate(Figure *target)
{
    if (!target || !target->isVisible())
        return;

    // Both the measuring and the asking are left to subclasses, which may destroy either object.
    const QPointer<Locator> alive(this);
    const FigureGuard guarded(target);
    const QSize size = target->getPreferredSize();
    QPoint point = alive ? getReferencePoint() : QPoint();
    if (!alive || !guarded)
        return;
    target->translateToRelative(point);
    target->setBounds(getNewBounds(size, point));
}

} // namespace Velmora::Figura
