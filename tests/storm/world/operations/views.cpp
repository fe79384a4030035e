#include "../updatewatch.h"
#include "../world.h"

#include <figura/view/FreeformWidget.h>

#include <QCoreApplication>
#include <QMouseEvent>

// The viewer, its content and its manager.

namespace Velmora::Figura::Storm {
namespace {

constexpr int mostFigures = 70;

void highlightView(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer()) {
        viewer->setHighlightStyle(numbers.below(2));
        viewer->setHighlighted(numbers.coin());
    }
}

// A reference to a rectangle: nothing tells the viewer of the change.
void setElasticBand(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer()) {
        const QRect band = numbers.rect();
        viewer->elasticBand() = numbers.oneIn(3) ? QRect() : band;
        world.stage.askForFullRepaint();
    }
}

void setMargins(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer()) {
        const int x = numbers.between(-1, 60);
        viewer->setXYMargins(x, numbers.between(-1, 60));
    }
}

void handleExtent(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer())
        viewer->enableExtentHandling(numbers.coin());
}

void ensureViewable(World &world, Numbers &numbers)
{
    if (FreeformWidget *widget = world.stage.widget()) {
        const QRect rect = numbers.rect();
        widget->ensureViewable(rect, numbers.coin(), numbers.coin());
    }
}

void minimizeViewable(World &world, Numbers &numbers)
{
    if (FreeformWidget *widget = world.stage.widget())
        widget->minimizeViewable(numbers.rect());
}

// A dynamic property: nothing tells the widget of the change.
void setGround(World &world, Numbers &numbers)
{
    if (FreeformWidget *widget = world.stage.widget()) {
        const QColor color = numbers.color();
        widget->setProperty("backgroundColor", numbers.oneIn(4) ? QVariant() : QVariant(color));
        world.stage.askForFullRepaint();
    }
}

void click(World &world, Numbers &numbers)
{
    FreeformViewer *viewer = world.stage.viewer();
    if (!viewer)
        return;
    const QPoint point = numbers.point();
    QMouseEvent press(QEvent::MouseButtonPress, point, viewer->mapToGlobal(point), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewer, &press);
    viewer->getLastClickLocation();
    if (numbers.coin())
        viewer->resetLastClickLocation();
}

// The former content stays as it is, attached, and may come back.
void switchContent(World &world, Numbers &numbers)
{
    FreeformLayeredPane *pane = world.panes.pick(numbers);
    if (world.stage.viewer() && pane && !pane->getParentFigure())
        world.showContent(pane);
}

void addPane(World &world, Numbers &)
{
    if (!world.figures.isFull(mostFigures))
        world.makePane();
}

void changeManager(World &world, Numbers &)
{
    if (world.stage.viewer())
        world.watchUpdates();
    world.stage.askForFullRepaint(); // what the former one had queued is lost
}

void openViewer(World &world, Numbers &)
{
    const QPointer<FreeformLayeredPane> pane(world.content());
    world.openViewer();
    if (pane)
        world.showContent(pane);
    world.settle();
}

} // namespace

QList<Entry> viewOperations()
{
    return {
        {"highlightView", 2, 6, Place::OutsidePaint, highlightView},
        {"setElasticBand", 5, 6, Place::OutsidePaint, setElasticBand},
        {"setMargins", 2, 3, Place::Anywhere, setMargins},
        {"handleExtent", 1, 2, Place::OutsidePaint, handleExtent},
        {"ensureViewable", 6, 4, Place::OutsidePaint, ensureViewable},
        {"minimizeViewable", 4, 3, Place::OutsidePaint, minimizeViewable},
        {"setGround", 2, 2, Place::OutsidePaint, setGround},
        {"click", 3, 4, Place::OutsidePaint, click},
        {"switchContent", 1, 3, Place::OutsidePaint, switchContent},
        {"addPane", 0, 2, Place::Anywhere, addPane},
        {"changeManager", 0, 2, Place::OutsidePaint, changeManager},
        {"openViewer", 0, 2, Place::OutsideEvents, openViewer},
    };
}

} // namespace Velmora::Figura::Storm
