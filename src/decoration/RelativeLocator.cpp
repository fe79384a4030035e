#include <figura/decoration/RelativeLocator.h>

#include "figure/figureguard_p.h"

#include <figura/figure/Figure.h>
#include <figura/geometry/IPositionConstants.h>

namespace Velmora::Figura {
namespace {

// 0 and 1 for one of the two sides alone; the middle for neither and for both.
double fraction(int location, int lower, int upper)
{
    const int sides = location & (lower | upper);
    if (sides == lower)
        return 0.0;
    return sides == upper ? 1.0 : 0.5;
}

} // namespace

RelativeLocator::RelativeLocator(Figure *reference, int location, QObject *parent)
    : QObject(parent)
    , m_reference(reference)
{
    RelativeLocator::setLocation(location);
}

RelativeLocator::RelativeLocator(Figure *reference, double relativeX, double relativeY,
                                 QObject *parent)
    : QObject(parent)
    , m_reference(reference)
    , m_relativeX(relativeX)
    , m_relativeY(relativeY)
{
}

RelativeLocator::~RelativeLocator() = default;

void RelativeLocator::setReferenceFigure(Figure *reference)
{
    m_reference = reference;
}

Figure *RelativeLocator::getReferenceFigure() const
{
    return m_reference;
}

void RelativeLocator::setLocation(int location)
{
    m_relativeX = fraction(location, IPositionConstants::WEST, IPositionConstants::EAST);
    m_relativeY = fraction(location, IPositionConstants::NORTH, IPositionConstants::SOUTH);
}

QRect RelativeLocator::getReferenceBox()
{
    Figure *reference = getReferenceFigure();
    return reference ? reference->getBounds() : QRect();
}

double RelativeLocator::relativeX() const
{
    return m_relativeX;
}

double RelativeLocator::relativeY() const
{
    return m_relativeY;
}

void RelativeLocator::relocate(Figure *target)
{
    Figure *reference = getReferenceFigure();
    if (!target || !target->isVisible() || !reference)
        return;

    // The last pixel is what the conversions map, not the edge beyond it.
    QRectF box = QRectF(getReferenceBox()).adjusted(0, 0, -1, -1);
    reference->translateToAbsolute(box);
    target->translateToRelative(box);
    box.adjust(0, 0, 1, 1);

    const QPointer<RelativeLocator> alive(this);
    const FigureGuard guarded(target);
    const QSize size = target->getPreferredSize();
    if (!alive || !guarded) // figures are measured by the application's code
        return;
    const double dx = box.width() * relativeX() - (size.width() + 1) / 2; // NOLINT: halves of ints
    const double dy = box.height() * relativeY() - (size.height() + 1) / 2; // NOLINT
    box.translate(static_cast<int>(dx), static_cast<int>(dy));
    box.setSize(size);
    target->setBounds(box.toRect());
}

} // namespace Velmora::Figura
