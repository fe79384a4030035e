#include "scenes.h"

using namespace Velmora::Figura;

namespace GuideSamples {
namespace {

PolylineConnection *connectPair(FreeformLayer *nodes, ConnectionLayer *lines, int x)
{
    auto *source = addShape<Rectangle>(nodes, blue, QRect(x, 30, 60, 40));
    auto *target = addShape<Ellipse>(nodes, sand, QRect(x + 90, 130, 60, 60));

    auto *connection = new PolylineConnection(lines);
    connection->setSourceAnchor(new ChopboxAnchor(source, source));
    connection->setTargetAnchor(new EllipseAnchor(target, target));
    connection->setTargetDecoration(new PolygonDecoration(connection));
    lines->add(connection);
    return connection;
}

void bendTwice(PolylineConnection *connection, const QPoint &first, const QPoint &second)
{
    auto *router = new BendpointConnectionRouter(connection);
    connection->setConnectionRouter(router);
    const QList<QVariant> bendpoints{QVariant::fromValue(AbsoluteBendpoint(first)),
                                     QVariant::fromValue(AbsoluteBendpoint(second))};
    connection->setRoutingConstraint(bendpoints);
}

void label(PolylineConnection *connection, const QString &text)
{
    auto *figure = new TextFigure(text, connection);
    auto *place = new ConnectionEndpointLocator(connection, false, connection); // near the source
    connection->add(figure, QVariant::fromValue<QObject *>(place));
}

} // namespace

QImage routers()
{
    FreeformLayeredPane pane;
    auto *nodes = new FreeformLayer(&pane);
    pane.addLayer(nodes, QStringLiteral("nodes"));
    auto *lines = new ConnectionLayer(&pane);
    pane.addLayer(lines, QStringLiteral("lines"));

    PolylineConnection *straight = connectPair(nodes, lines, 20);
    label(straight, QStringLiteral("straight"));

    PolylineConnection *bent = connectPair(nodes, lines, 220);
    bendTwice(bent, QPoint(310, 50), QPoint(250, 140));
    label(bent, QStringLiteral("bendpoints"));

    PolylineConnection *square = connectPair(nodes, lines, 420);
    square->setConnectionRouter(new ManhattanConnectionRouter(square));
    label(square, QStringLiteral("Manhattan"));
    return grab(&pane, QSize(600, 220));
}

} // namespace GuideSamples
