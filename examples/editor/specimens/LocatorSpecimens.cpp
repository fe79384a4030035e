#include "specimens/Badge.h"
#include "specimens/ConnectionSpecimens.h"
#include "specimens/Props.h"
#include "specimens/Specimens.h"

#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/decoration/ArrowLocator.h>
#include <figura/decoration/BendpointLocator.h>
#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/ConnectionLocator.h>
#include <figura/decoration/MidpointLocator.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/decoration/RelativeLocator.h>
#include <figura/shape/Ellipse.h>

using namespace Velmora::Figura;

namespace Editor::Specimens {
namespace {

PolylineConnection *bentLink(Figure *stage)
{
    PolylineConnection *connection = linkedBoxes(stage);
    connection->setConnectionRouter(new BendpointConnectionRouter(stage));
    connection->setRoutingConstraint(
        QList<QVariant>{QVariant::fromValue(AbsoluteBendpoint(80, 68)),
                        QVariant::fromValue(AbsoluteBendpoint(80, 16))});
    return connection;
}

void putKnob(PolylineConnection *connection, QObject *locator)
{
    auto *knob = new Ellipse(connection);
    knob->setPreferredSize({14, 14});
    connection->add(knob, QVariant::fromValue(locator));
}

void buildArrowLocator(Figure *stage)
{
    PolylineConnection *connection = linkedBoxes(stage);
    auto *head = new PolylineDecoration(connection);
    head->setScale(14, 6);
    auto *locator = new ArrowLocator(connection, ConnectionLocator::SOURCE, connection);
    connection->add(head, QVariant::fromValue<QObject *>(locator));
}

void buildBendpointLocator(Figure *stage)
{
    PolylineConnection *connection = bentLink(stage);
    putKnob(connection, new BendpointLocator(connection, 1, connection));
}

void buildMidpointLocator(Figure *stage)
{
    PolylineConnection *connection = bentLink(stage);
    putKnob(connection, new MidpointLocator(connection, 1, connection));
}

void buildConnectionLocator(Figure *stage)
{
    PolylineConnection *connection = linkedBoxes(stage);
    putKnob(connection, new ConnectionLocator(connection, connection));
}

void buildEndpointLocator(Figure *stage)
{
    PolylineConnection *connection = linkedBoxes(stage);
    for (const bool end : {false, true})
        putKnob(connection, new ConnectionEndpointLocator(connection, end, connection));
}

void buildRelativeLocator(Figure *stage)
{
    auto *box = putBox(stage, {30, 18, 100, 50});
    auto *locator = new RelativeLocator(box, IPositionConstants::NORTH_EAST, stage);
    stage->add(new Badge(box, locator, stage));
}

} // namespace

QList<Specimen> locators()
{
    return {
        {"ArrowLocator", buildArrowLocator},
        {"BendpointLocator", buildBendpointLocator},
        {"MidpointLocator", buildMidpointLocator},
        {"ConnectionLocator", buildConnectionLocator},
        {"ConnectionEndpointLocator", buildEndpointLocator},
        {"RelativeLocator", buildRelativeLocator},
    };
}

} // namespace Editor::Specimens
