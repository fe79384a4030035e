#include "../probe.h"

#include <figura/connection/ConnectionLayer.h>

// Panes and their layers.

namespace Velmora::Figura::Storm {
namespace {

constexpr int mostFigures = 70;

Layer *makeLayer(World &world, QObject *owner, Numbers &numbers)
{
    switch (numbers.below(4)) {
    case 0:
        return world.adopt(new Probed<FreeformLayer>(world, owner, numbers.coin()));
    case 1: {
        auto *pane = world.adopt(new Probed<FreeformLayeredPane>(world, owner));
        world.panes.add(pane);
        return pane;
    }
    default:
        return world.adopt(new Probed<ConnectionLayer>(world, owner, numbers.coin()));
    }
}

void addLayer(World &world, Numbers &numbers)
{
    world.ensureContent();
    FreeformLayeredPane *pane = world.panes.pick(numbers);
    if (!pane || world.figures.isFull(mostFigures) || world.pick<Layer>(numbers) == nullptr)
        return;
    Layer *neighbour = world.pick<Layer>(numbers);
    Layer *layer = makeLayer(world, numbers.coin() ? pane : nullptr, numbers);
    if (numbers.coin())
        pane->addLayerAbove(layer, world.newKey(), neighbour);
    else
        pane->addLayerBeneath(layer, world.newKey(), neighbour);
}

void removeLayer(World &world, Numbers &numbers)
{
    auto *layer = world.pick<Layer>(numbers);
    auto *pane = qobject_cast<LayeredPane *>(layer ? layer->getParentFigure() : nullptr);
    if (pane)
        pane->removeLayer(layer->objectName());
}

// What is the content of a viewer has no parent: in another pane it would have that one's manager.
void addLayerAgain(World &world, Numbers &numbers)
{
    auto *layer = world.pick<Layer>(numbers);
    FreeformLayeredPane *pane = world.panes.pick(numbers);
    if (layer && pane && layer != world.content() && !layer->getParentFigure() &&
        !isWithin(pane, layer))
        pane->addLayer(layer, world.newKey());
}

void pad(World &world, Numbers &numbers)
{
    if (auto *layer = world.pick<FreeformLayer>(numbers))
        layer->setExtentPadding(numbers.between(-1, 30));
}

// Only stored, for the next paint.
void antialias(World &world, Numbers &numbers)
{
    if (auto *layer = world.pick<ConnectionLayer>(numbers)) {
        layer->setAntialias(numbers.coin());
        world.stage.askForFullRepaint();
    }
}

void drawGrid(World &world, Numbers &numbers)
{
    const QPointer<FreeformLayeredPane> pane = world.panes.pick(numbers);
    if (!pane)
        return;
    pane->setDrawGrid(numbers.coin());
    if (pane)
        pane->setSnapSize(numbers.between(-1, 14));
}

} // namespace

QList<Entry> layerOperations()
{
    return {
        {"addLayer", 8, 8, Place::Anywhere, addLayer},
        {"removeLayer", 1, 3, Place::Anywhere, removeLayer},
        {"addLayerAgain", 2, 4, Place::Anywhere, addLayerAgain},
        {"pad", 2, 3, Place::Anywhere, pad},
        {"antialias", 2, 5, Place::Anywhere, antialias},
        {"drawGrid", 3, 6, Place::Anywhere, drawGrid},
    };
}

} // namespace Velmora::Figura::Storm
