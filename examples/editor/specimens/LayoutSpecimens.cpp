#include "specimens/Props.h"
#include "specimens/Specimens.h"

#include <figura/connection/ConnectionLayer.h>
#include <figura/decoration/RelativeLocator.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/layout/StackLayout.h>
#include <figura/layout/VBoxLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/LayeredPane.h>

using namespace Velmora::Figura;

namespace Editor::Specimens {
namespace {

constexpr QRect area{6, 4, 148, 76};

// What a layout works in; its outline shows the area.
template<class LayoutType>
Figure *putFrame(Figure *stage)
{
    auto *frame = putBox(stage, area);
    frame->setFill(false);
    frame->setLineStyle(Qt::DotLine);
    frame->setMargin(6);
    frame->setLayoutManager(new LayoutType(frame));
    return frame;
}

void addBox(Figure *frame, const QSize &size)
{
    frame->add(new Rectangle(frame), size);
}

void addStretched(Figure *frame)
{
    auto *box = new Ellipse(frame);
    box->setMinimumSize({10, 10});
    box->setExpandingDirections(Qt::Horizontal | Qt::Vertical);
    frame->add(box, 1, 1, -1);
}

void buildXY(Figure *stage)
{
    Figure *frame = putFrame<XYLayout>(stage);
    putBox(frame, {4, 30, 40, 26});
    putBox(frame, {34, 6, 56, 34});
    put<Ellipse>(frame, {84, 26, 44, 34});
}

void buildHBox(Figure *stage)
{
    Figure *frame = putFrame<HBoxLayout>(stage);
    addBox(frame, {22, 26});
    addBox(frame, {22, 50});
    addStretched(frame);
    addBox(frame, {22, 38});
}

void buildVBox(Figure *stage)
{
    Figure *frame = putFrame<VBoxLayout>(stage);
    addBox(frame, {60, 14});
    addStretched(frame);
    addBox(frame, {110, 14});
}

void buildStack(Figure *stage)
{
    Figure *frame = putFrame<StackLayout>(stage);
    frame->add(new Rectangle(frame));
    frame->add(new Ellipse(frame));
}

void buildDelegating(Figure *stage)
{
    auto *frame = putBox(stage, {30, 16, 100, 52});
    frame->setLayoutManager(new DelegatingLayout(frame));
    for (const double x : {0.0, 0.5, 1.0}) {
        auto *knob = new Ellipse(frame);
        knob->setPreferredSize({16, 16});
        auto *locator = new RelativeLocator(frame, x, x == 0.5 ? 0.0 : 0.5, frame);
        frame->add(knob, QVariant::fromValue<QObject *>(locator));
    }
}

void buildFreeformLayer(Figure *stage)
{
    auto *layer = put<FreeformLayer>(stage, area);
    putBox(layer, {12, 10, 60, 30});
    put<Ellipse>(layer, {66, 34, 70, 36});
}

void buildLayeredPane(Figure *stage)
{
    auto *pane = put<LayeredPane>(stage, area);
    auto *below = new Layer(pane);
    below->setLayoutManager(new XYLayout(below));
    putBox(below, {6, 6, 90, 44});
    pane->addLayer(below, QStringLiteral("below"));
    auto *above = new Layer(pane);
    above->setLayoutManager(new XYLayout(above));
    put<Ellipse>(above, {50, 26, 90, 44});
    pane->addLayer(above, QStringLiteral("above"));
}

void buildFreeformLayeredPane(Figure *stage)
{
    auto *pane = put<FreeformLayeredPane>(stage, area);
    pane->setSnapSize(8);
    pane->setDrawGrid(true);
    auto *layer = new FreeformLayer(pane);
    pane->addLayer(layer, QStringLiteral("figures"));
    putBox(layer, {22, 20, 48, 32});
    put<Ellipse>(layer, {86, 30, 48, 32});
    layer->setFreeformBounds(area); // those of the pane were set before it had a layer
}

} // namespace

QList<Specimen> layouts()
{
    return {
        {"XYLayout", buildXY},
        {"HBoxLayout", buildHBox},
        {"VBoxLayout", buildVBox},
        {"StackLayout", buildStack},
        {"DelegatingLayout", buildDelegating},
    };
}

// The freeform layouts come with their layers.
QList<Specimen> layers()
{
    return {
        {"FreeformLayer", buildFreeformLayer},
        {"LayeredPane", buildLayeredPane},
        {"FreeformLayeredPane", buildFreeformLayeredPane},
    };
}

} // namespace Editor::Specimens
