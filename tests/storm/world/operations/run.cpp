#include "../checks.h"
#include "../world.h"

#include <QCoreApplication>

#include <cstdlib>

// What drives the storm itself.

namespace Velmora::Figura::Storm {
namespace {

void check(World &world, Numbers &)
{
    runChecks(world);
}

void settle(World &world, Numbers &)
{
    world.settle();
}

void processEvents(World &, Numbers &)
{
    QCoreApplication::processEvents();
}

void whenNext(World &world, Numbers &numbers)
{
    world.catchNext(Moment(numbers.below(int(Moment::Count))));
}

void endInOrder(World &world, Numbers &numbers)
{
    world.setOrderOfEnd(numbers.below(8));
}

// These two prove that a storm notices, and boils down, what goes wrong.

void complain(World &world, Numbers &numbers)
{
    world.report("complaint", QByteArray::number(numbers.below(1000)));
}

void crash(World &, Numbers &)
{
    std::abort();
}

} // namespace

QList<Entry> runOperations()
{
    return {
        {"check", 0, 35, Place::Top, check},
        {"settle", 0, 20, Place::Top, settle},
        {"processEvents", 0, 15, Place::Top, processEvents},
        {"whenNext", 1, 45, Place::Top, whenNext},
        {"endInOrder", 1, 2, Place::Anywhere, endInOrder},
        {"complain", 1, 0, Place::Anywhere, complain},
        {"crash", 0, 0, Place::Anywhere, crash},
    };
}

} // namespace Velmora::Figura::Storm
