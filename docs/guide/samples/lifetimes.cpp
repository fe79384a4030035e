#include "scenes.h"

#include <QPixmap>

using namespace Velmora::Figura;

namespace GuideSamples {
namespace {

/// Two figures and the line between them.
struct Couple
{
    Figure *source = nullptr;
    Figure *target = nullptr;
    PolylineConnection *connection = nullptr;
};

Couple addCouple(FreeformLayer *nodes, ConnectionLayer *lines, int y)
{
    Couple couple;
    couple.source = addShape<Rectangle>(nodes, blue, QRect(20, y, 80, 40));
    couple.target = addShape<Ellipse>(nodes, sand, QRect(260, y, 80, 40));
    couple.connection = new PolylineConnection(lines);
    // An anchor belongs to its figure: it goes when the figure goes.
    couple.connection->setSourceAnchor(new ChopboxAnchor(couple.source, couple.source));
    couple.connection->setTargetAnchor(new EllipseAnchor(couple.target, couple.target));
    couple.connection->setTargetDecoration(new PolygonDecoration(couple.connection));
    lines->add(couple.connection);
    return couple;
}

// A connection is not owned by what it connects: the program takes it away as well.
void deleteWithConnection(const Couple &couple)
{
    delete couple.connection;
    delete couple.target;
}

} // namespace

QImage survivors()
{
    FreeformLayeredPane pane; // owns its layers, and these their figures
    auto *nodes = new FreeformLayer(&pane);
    pane.addLayer(nodes, QStringLiteral("nodes"));
    auto *lines = new ConnectionLayer(&pane);
    pane.addLayer(lines, QStringLiteral("lines"));

    addCouple(nodes, lines, 20);
    const Couple loose = addCouple(nodes, lines, 80);
    const Couple gone = addCouple(nodes, lines, 140);
    rebuildPaths(&pane);

    FreeformViewer viewer;
    viewer.setContent(&pane);
    viewer.resize(380, 220);
    viewer.show();
    viewer.grab(); // routes the lines, as the first paint does

    delete loose.target; // the line stays where it was: it has only one end left
    deleteWithConnection(gone);
    return viewer.grab().toImage();
}

} // namespace GuideSamples
