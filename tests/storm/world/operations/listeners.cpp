#include "../listeners.h"

// Listeners of figures and layouts.

namespace Velmora::Figura::Storm {
namespace {

constexpr int mostListeners = 12;

FigureListener *makeListener(World &world, Numbers &numbers)
{
    if (world.listeners.isFull(mostListeners))
        return qobject_cast<FigureListener *>(world.listeners.pick(numbers));
    auto *listener = new FigureListener(world);
    world.listeners.add(listener);
    return listener;
}

void listen(World &world, Numbers &numbers)
{
    Figure *figure = world.figures.pick(numbers);
    FigureListener *listener = makeListener(world, numbers);
    if (figure && listener)
        listener->listenTo(figure, numbers.coin());
}

void stopListening(World &world, Numbers &numbers)
{
    if (auto *listener = qobject_cast<FigureListener *>(world.listeners.pick(numbers)))
        listener->stopListening();
}

} // namespace

QList<Entry> listenerOperations()
{
    return {
        {"listen", 4, 8, Place::Anywhere, listen},
        {"stopListening", 1, 4, Place::Anywhere, stopListening},
    };
}

} // namespace Velmora::Figura::Storm
