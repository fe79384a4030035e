#include "world.h"

#include <figura/connection/IConnection.h>
#include <figura/decoration/BendpointLocator.h>
#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/ConnectionLocator.h>
#include <figura/decoration/MidpointLocator.h>
#include <figura/decoration/RelativeLocator.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/layout/VBoxLayout.h>
#include <figura/layout/XYLayout.h>

#include <QScopedValueRollback>

namespace Velmora::Figura::Storm {
namespace {

/// A locator whose reference may be the target itself or something that moves with it. In an XY
/// layout every move relocates the child, so that an application has to break the circle.
template<class Base>
class PatientLocator : public Base
{
public:
    using Base::Base;

    void relocate(Figure *target) override
    {
        if (m_busy)
            return;
        const QPointer<QObject> alive(this);
        m_busy = true;
        Base::relocate(target);
        if (alive)
            m_busy = false;
    }

private:
    bool m_busy = false;
};

template<class T>
T *placed(T *locator, Numbers &numbers)
{
    locator->setGap(numbers.below(12));
    locator->setRelativePosition(numbers.below(32));
    return locator;
}

QObject *relativeLocator(World &world, QObject *owner, Numbers &numbers)
{
    Figure *reference = world.figures.pick(numbers);
    if (numbers.coin())
        return new PatientLocator<RelativeLocator>(reference, numbers.below(32), owner);
    const double x = numbers.below(5) / 4.0;
    return new PatientLocator<RelativeLocator>(reference, x, numbers.below(5) / 4.0, owner);
}

QObject *locatorOn(IConnection *connection, QObject *owner, Numbers &numbers)
{
    switch (numbers.below(4)) {
    case 0:
        return placed(new PatientLocator<ConnectionLocator>(
                          connection, ConnectionLocator::Alignment(numbers.below(3)), owner),
                      numbers);
    case 1:
        return placed(new PatientLocator<MidpointLocator>(connection, numbers.below(3), owner),
                      numbers);
    case 2:
        return placed(new PatientLocator<BendpointLocator>(connection, numbers.below(3), owner),
                      numbers);
    default:
        return new PatientLocator<ConnectionEndpointLocator>(connection, numbers.coin(), owner);
    }
}

} // namespace

// Without an owner it is the layout that deletes the locator, or the end of the world.
QObject *makeLocator(World &world, IConnection *connection, Numbers &numbers)
{
    QObject *owner = numbers.coin() ? world.figures.pick(numbers) : nullptr;
    QObject *locator = connection && !numbers.oneIn(4) ? locatorOn(connection, owner, numbers)
                                                       : relativeLocator(world, owner, numbers);
    world.locators.add(locator);
    return locator;
}

QVariant constraintFor(World &world, Layout *layout, Numbers &numbers)
{
    auto *connection = qobject_cast<IConnection *>(layout->getFigure());
    const bool placesByLocator = qobject_cast<DelegatingLayout *>(layout);
    if (placesByLocator || (qobject_cast<XYLayout *>(layout) && numbers.oneIn(12)))
        return QVariant::fromValue(makeLocator(world, connection, numbers));

    QRect rect = numbers.rect();
    if (numbers.oneIn(10))
        rect.setSize(QSize(-1, -1)); // as preferred
    if (qobject_cast<XYLayout *>(layout))
        return numbers.oneIn(6) ? QVariant(QRectF(rect)) : QVariant(rect);
    const bool isBox = qobject_cast<HBoxLayout *>(layout) || qobject_cast<VBoxLayout *>(layout);
    return isBox && numbers.coin() ? QVariant(rect.size()) : QVariant();
}

} // namespace Velmora::Figura::Storm
