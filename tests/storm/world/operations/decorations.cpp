#include "../probe.h"

#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/decoration/Decoration.h>
#include <figura/decoration/Locator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/decoration/RelativeLocator.h>
#include <figura/shape/TextFigure.h>

// Arrow heads, labels on lines, and what places them.

namespace Velmora::Figura::Storm {
namespace {

constexpr int mostFigures = 80;

/// Calls \a change with one of the connections, whichever of the two classes it is of.
template<class Change>
void withConnection(World &world, Numbers &numbers, Change change)
{
    auto *connection = world.pick<IConnection>(numbers);
    if (auto *integer = dynamic_cast<PolylineConnection *>(connection))
        change(integer);
    else if (auto *floating = dynamic_cast<PolylineFConnection *>(connection))
        change(floating);
}

IRotatableDecoration *makeHead(World &world, Numbers &numbers)
{
    const double scale = numbers.between(1, 3);
    if (numbers.coin()) {
        auto *head = new Probed<PolygonDecoration>(world, nullptr);
        head->setScale(scale, scale);
        head->setFill(numbers.coin());
        return world.adopt(head);
    }
    auto *head = new Probed<PolylineDecoration>(world, nullptr);
    head->setScale(scale, scale);
    return world.adopt(head);
}

void decorate(World &world, Numbers &numbers)
{
    withConnection(world, numbers, [&](auto *connection) {
        const bool atSource = numbers.coin();
        const bool takesOff = numbers.oneIn(5) || world.figures.isFull(mostFigures);
        IRotatableDecoration *head = takesOff ? nullptr : makeHead(world, numbers);
        if (atSource)
            connection->setSourceDecoration(head);
        else
            connection->setTargetDecoration(head);
    });
}

template<class Head>
void turn(Head *head, Numbers &numbers)
{
    const QPointer<Head> alive(head);
    head->setRotation(numbers.below(63) / 10.0);
    if (alive)
        head->setLocation(numbers.point());
    if (alive)
        head->setTemplate({QPoint(-numbers.between(2, 9), 3), QPoint(0, 0), QPoint(-7, -3)});
}

void turnHead(World &world, Numbers &numbers)
{
    if (auto *filled = world.pick<PolygonDecoration>(numbers))
        turn(filled, numbers);
    if (auto *open = world.pick<PolylineDecoration>(numbers))
        turn(open, numbers);
}

Figure *makeLabel(World &world, QObject *owner, Numbers &numbers)
{
    if (numbers.coin())
        return new Probed<TextFigure>(world, QStringLiteral("edge"), owner, numbers.color());
    auto *label = new Probed<Figure>(world, owner, numbers.color());
    label->setPreferredSize(QSize(12, 8));
    return label;
}

void addLabel(World &world, Numbers &numbers)
{
    auto *connection = world.pick<IConnection>(numbers);
    auto *figure = dynamic_cast<Figure *>(connection);
    if (!figure || world.figures.isFull(mostFigures))
        return;
    Figure *label = world.adopt(makeLabel(world, numbers.coin() ? figure : nullptr, numbers));
    QObject *locator = makeLocator(world, connection, numbers);
    figure->add(label, QVariant::fromValue(locator));
}

void tuneLocator(World &world, Numbers &numbers)
{
    QObject *locator = world.locators.pick(numbers);
    if (auto *beside = qobject_cast<Locator *>(locator)) {
        beside->setGap(numbers.below(20));
        beside->setRelativePosition(numbers.below(32));
    } else if (auto *relative = qobject_cast<RelativeLocator *>(locator)) {
        relative->setLocation(numbers.below(32));
        relative->setReferenceFigure(world.figures.pick(numbers));
    }
}

void tuneBadge(World &world, Numbers &numbers)
{
    auto *badge = world.pick<Decoration>(numbers);
    if (!badge)
        return;
    badge->setManagedExternally(numbers.oneIn(4));
    badge->setLocator(dynamic_cast<ILocator *>(world.locators.pick(numbers)));
    if (!badge->getFlag(Figure::FLAG_NOTIFIED)) // it leaves the owner whom it has joined
        badge->setOwner(world.figures.pick(numbers));
}

} // namespace

QList<Entry> decorationOperations()
{
    return {
        {"decorate", 5, 20, Place::Anywhere, decorate},
        {"turnHead", 8, 6, Place::Anywhere, turnHead},
        {"addLabel", 14, 20, Place::Anywhere, addLabel},
        {"tuneLocator", 3, 6, Place::Anywhere, tuneLocator},
        {"tuneBadge", 4, 4, Place::Anywhere, tuneBadge},
    };
}

} // namespace Velmora::Figura::Storm
