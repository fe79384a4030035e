#include "../world.h"

#include <figura/view/FreeformWidget.h>

#include <QScrollBar>

// Zooming, scrolling and the size of the window.

namespace Velmora::Figura::Storm {
namespace {

double scale(Numbers &numbers)
{
    return numbers.oneOf({1.0, 0.1, 0.33, 0.5, 0.75, 1.0, 1.1, 1.25, 1.5, 2.0, 3.0, 4.0, 7.3});
}

void setScale(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer())
        viewer->setScale(scale(numbers));
}

void setScaleTopLeft(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer()) {
        QPoint corner = numbers.point();
        viewer->setScale(scale(numbers), &corner);
    }
}

void setScaleAt(World &world, Numbers &numbers)
{
    if (FreeformWidget *widget = world.stage.widget()) {
        const QPoint point = numbers.point();
        widget->setScaleAt(scale(numbers), point);
    }
}

void scaleToFit(World &world, Numbers &)
{
    if (FreeformViewer *viewer = world.stage.viewer())
        viewer->scaleToFit();
}

void scaleToNormal(World &world, Numbers &)
{
    if (FreeformViewer *viewer = world.stage.viewer())
        viewer->scaleToNormal();
}

void setScaleBounds(World &world, Numbers &numbers)
{
    FreeformViewer *viewer = world.stage.viewer();
    if (!viewer)
        return;
    if (numbers.coin())
        viewer->resetScaleBounds();
    else
        viewer->setScaleBounds(0.5, scale(numbers));
}

void scroll(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer()) {
        viewer->horizontalScrollBar()->setValue(numbers.below(300));
        viewer->verticalScrollBar()->setValue(numbers.below(300));
    }
}

void setViewLocation(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer()) {
        const QPoint corner = numbers.point();
        viewer->setViewLocation(corner, numbers.coin());
    }
}

// What happens when the user lets go of a scroll bar.
void releaseSlider(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer()) {
        QScrollBar *bar =
            numbers.coin() ? viewer->horizontalScrollBar() : viewer->verticalScrollBar();
        bar->setSliderDown(true);
        bar->setSliderPosition(numbers.below(400));
        bar->setSliderDown(false);
    }
}

void resizeWindow(World &world, Numbers &numbers)
{
    FreeformViewer *viewer = world.stage.viewer();
    if (!viewer)
        return;
    const int width = numbers.between(60, 240);
    const QSize size(width, numbers.between(50, 180));
    if (numbers.oneIn(4))
        viewer->resizeViewport(size);
    else
        viewer->resize(size);
}

void setScrollBars(World &world, Numbers &numbers)
{
    if (FreeformViewer *viewer = world.stage.viewer()) {
        const auto policy = numbers.coin() ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
        viewer->setHorizontalScrollBarPolicy(policy);
        viewer->setVerticalScrollBarPolicy(policy);
    }
}

} // namespace

QList<Entry> zoomOperations()
{
    return {
        {"setScale", 1, 15, Place::OutsidePaint, setScale},
        {"setScaleTopLeft", 3, 6, Place::OutsidePaint, setScaleTopLeft},
        {"setScaleAt", 3, 6, Place::OutsidePaint, setScaleAt},
        {"scaleToFit", 0, 4, Place::OutsidePaint, scaleToFit},
        {"scaleToNormal", 0, 6, Place::OutsidePaint, scaleToNormal},
        {"setScaleBounds", 2, 3, Place::OutsidePaint, setScaleBounds},
        {"scroll", 2, 20, Place::OutsidePaint, scroll},
        {"setViewLocation", 3, 12, Place::OutsidePaint, setViewLocation},
        {"releaseSlider", 2, 4, Place::OutsidePaint, releaseSlider},
        {"resizeWindow", 3, 5, Place::OutsidePaint, resizeWindow},
        {"setScrollBars", 1, 2, Place::OutsidePaint, setScrollBars},
    };
}

} // namespace Velmora::Figura::Storm
