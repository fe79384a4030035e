#include "specimens/ConnectionSpecimens.h"

#include "specimens/Props.h"
#include "specimens/Specimens.h"

#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/connection/NullRouter.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/RelativeBendpoint.h>
#include <figura/connection/XYAnchor.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/diagram/OutlineAnchor.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/RoundedRectangle.h>

using namespace Velmora::Figura;

namespace Editor::Specimens {
namespace {

constexpr QRect lowerLeft{6, 48, 44, 28};
constexpr QRect upperRight{110, 8, 44, 28};

void buildNullRouter(Figure *stage)
{
    linkedBoxes(stage)->setConnectionRouter(NullRouter::instance());
}

PolylineConnection *bent(Figure *stage, const QList<QVariant> &bendpoints)
{
    PolylineConnection *connection = linkedBoxes(stage);
    connection->setConnectionRouter(new BendpointConnectionRouter(stage));
    connection->setRoutingConstraint(bendpoints);
    return connection;
}

void buildBendpointRouter(Figure *stage)
{
    bent(stage, {QVariant::fromValue(AbsoluteBendpoint(80, 66)),
                 QVariant::fromValue(AbsoluteBendpoint(80, 18))});
}

void buildRelativeBendpoint(Figure *stage)
{
    PolylineConnection *connection = bent(stage, {});
    RelativeBendpoint bend(connection);
    bend.setRelativeDimensions({40, 10}, {-40, 50});
    connection->setRoutingConstraint(QList<QVariant>{QVariant::fromValue(bend)});
}

void buildManhattanRouter(Figure *stage)
{
    linkedBoxes(stage)->setConnectionRouter(new ManhattanConnectionRouter(stage));
}

void buildChopbox(Figure *stage)
{
    link(stage, putBox(stage, lowerLeft), putBox(stage, upperRight));
}

template<class Round>
void buildAnchor(Figure *stage, const std::function<IConnectionAnchor *(Round *)> &create)
{
    auto *connection = new PolylineConnection(stage);
    auto *source = put<Round>(stage, lowerLeft);
    auto *target = put<Round>(stage, upperRight);
    stage->add(connection);
    connection->setSourceAnchor(create(source));
    connection->setTargetAnchor(create(target));
    connection->setTargetDecoration(new PolygonDecoration);
}

void buildEllipseAnchor(Figure *stage)
{
    buildAnchor<Ellipse>(stage, [](Ellipse *owner) { return new EllipseAnchor(owner, owner); });
}

void buildOutlineAnchor(Figure *stage)
{
    buildAnchor<RoundedRectangle>(
        stage, [](RoundedRectangle *owner) { return new OutlineAnchor(owner, owner); });
}

// Its point is absolute, so that it has to be told when the stage moves.
void buildXYAnchor(Figure *stage)
{
    auto *connection = new PolylineConnection(stage);
    auto *box = putBox(stage, lowerLeft);
    stage->add(connection);
    auto *anchor = new XYAnchor(QPoint(), stage);
    const auto follow = [stage, anchor] {
        QPoint point(140, 14);
        stage->translateToParent(point);
        stage->translateToAbsolute(point);
        anchor->setLocation(point);
    };
    QObject::connect(stage, &Figure::figureMoved, anchor, follow);
    connection->setSourceAnchor(new ChopboxAnchor(box, box));
    connection->setTargetAnchor(anchor);
    connection->setTargetDecoration(new PolylineDecoration);
}

void buildFloatingConnection(Figure *stage)
{
    auto *connection = new PolylineFConnection(stage);
    auto *source = put<Ellipse>(stage, lowerLeft);
    auto *target = put<Ellipse>(stage, upperRight);
    stage->add(connection);
    connection->setSourceAnchor(new EllipseAnchor(source, source));
    connection->setTargetAnchor(new EllipseAnchor(target, target));
}

void buildPolygonDecoration(Figure *stage)
{
    auto *head = new PolygonDecoration;
    head->setScale(18, 8);
    linkedBoxes(stage)->setTargetDecoration(head);
}

void buildPolylineDecoration(Figure *stage)
{
    auto *head = new PolylineDecoration;
    head->setScale(18, 8);
    head->setLineWidth(2);
    linkedBoxes(stage)->setTargetDecoration(head);
}

} // namespace

PolylineConnection *link(Figure *stage, Figure *source, Figure *target)
{
    auto *connection = new PolylineConnection(stage);
    stage->add(connection);
    connection->setSourceAnchor(new ChopboxAnchor(source, source));
    connection->setTargetAnchor(new ChopboxAnchor(target, target));
    connection->setTargetDecoration(new PolygonDecoration);
    return connection;
}

PolylineConnection *linkedBoxes(Figure *stage)
{
    return link(stage, putBox(stage, lowerLeft), putBox(stage, upperRight));
}

QList<Specimen> connections()
{
    return {
        {"NullRouter", buildNullRouter},
        {"BendpointConnectionRouter", buildBendpointRouter},
        {"ManhattanConnectionRouter", buildManhattanRouter},
        {"RelativeBendpoint", buildRelativeBendpoint},
        {"ChopboxAnchor", buildChopbox},
        {"EllipseAnchor", buildEllipseAnchor},
        {"OutlineAnchor", buildOutlineAnchor},
        {"XYAnchor", buildXYAnchor},
        {"PolylineFConnection", buildFloatingConnection},
        {"PolygonDecoration", buildPolygonDecoration},
        {"PolylineDecoration", buildPolylineDecoration},
    };
}

} // namespace Editor::Specimens
