#include "../updatewatch.h"
#include "../world.h"

#include <figura/view/FreeformWidget.h>

// Whatever can be destroyed, is. A figure may be queued, painted or laid out meanwhile.

namespace Velmora::Figura::Storm {
namespace {

// What only a full repaint shows is asked for: a layout tells nobody when it dies.
template<class T>
void destroy(World &world, T *object)
{
    delete object;
    world.stage.askForFullRepaint();
}

void destroyFigure(World &world, Numbers &numbers)
{
    delete world.pickMovable(numbers);
}

void destroyLater(World &world, Numbers &numbers)
{
    if (Figure *figure = world.pickMovable(numbers))
        figure->deleteLater();
}

void destroyConnection(World &world, Numbers &numbers)
{
    delete dynamic_cast<Figure *>(world.pick<IConnection>(numbers));
}

void destroyLayer(World &world, Numbers &numbers)
{
    delete world.pick<Layer>(numbers);
}

void destroyLayout(World &world, Numbers &numbers)
{
    Layout *layout = world.layouts.pick(numbers);
    if (!layout)
        return;
    world.noteForgotten(layout->childFigures());
    destroy(world, layout);
}

void destroyBorder(World &world, Numbers &numbers)
{
    delete world.borders.pick(numbers);
}

void destroyAnchor(World &world, Numbers &numbers)
{
    delete world.anchors.pick(numbers);
}

void destroyRouter(World &world, Numbers &numbers)
{
    delete world.routers.pick(numbers);
}

void destroyLocator(World &world, Numbers &numbers)
{
    delete world.locators.pick(numbers);
}

void destroyListener(World &world, Numbers &numbers)
{
    delete world.listeners.pick(numbers);
}

void destroyPageLayout(World &world, Numbers &numbers)
{
    delete world.pageLayouts.pick(numbers);
}

void destroyManager(World &world, Numbers &)
{
    destroy(world, world.updateManager()); // without one nothing is painted
}

void destroyWidget(World &world, Numbers &)
{
    delete world.stage.widget();
}

void destroyViewer(World &world, Numbers &)
{
    world.stage.close();
}

} // namespace

QList<Entry> destroyOperations()
{
    return {
        {"destroyFigure", 1, 60, Place::Anywhere, destroyFigure},
        {"destroyLater", 1, 8, Place::Anywhere, destroyLater},
        {"destroyConnection", 1, 15, Place::Anywhere, destroyConnection},
        {"destroyLayer", 1, 4, Place::Anywhere, destroyLayer},
        {"destroyLayout", 1, 5, Place::Anywhere, destroyLayout},
        {"destroyBorder", 1, 6, Place::Anywhere, destroyBorder},
        {"destroyAnchor", 1, 6, Place::Anywhere, destroyAnchor},
        {"destroyRouter", 1, 4, Place::Anywhere, destroyRouter},
        {"destroyLocator", 1, 6, Place::Anywhere, destroyLocator},
        {"destroyListener", 1, 3, Place::Anywhere, destroyListener},
        {"destroyPageLayout", 1, 1, Place::Anywhere, destroyPageLayout},
        {"destroyManager", 0, 1, Place::OutsidePaint, destroyManager},
        {"destroyWidget", 0, 1, Place::OutsideEvents, destroyWidget},
        {"destroyViewer", 0, 1, Place::OutsideEvents, destroyViewer},
    };
}

} // namespace Velmora::Figura::Storm
