// Connections stay attached: three figures, lines between them, and one figure that wanders about.
#include <figura/Figura.h>

#include <QApplication>
#include <QPropertyAnimation>

using namespace Velmora::Figura;

namespace {

template<typename ShapeType>
Shape *makeNode(const QString &name, const QColor &color, Figure *layer, const QRect &place)
{
    auto *node = new ShapeType(layer);
    node->setEnabledBGColor(color);
    node->setLayoutManager(new StackLayout(node));
    auto *text = new TextFigure(name, node, Qt::transparent);
    text->setAlignment(Qt::AlignCenter);
    node->add(text);
    layer->add(node, place);
    return node;
}

PolylineConnection *connectFigures(IConnectionAnchor *source, IConnectionAnchor *target,
                                   ConnectionLayer *layer)
{
    auto *connection = new PolylineConnection(layer);
    connection->setSourceAnchor(source);
    connection->setTargetAnchor(target);
    connection->setTargetDecoration(new PolygonDecoration(connection));
    layer->add(connection);
    return connection;
}

void addLabel(PolylineConnection *connection, const QString &text)
{
    auto *label = new TextFigure(text, connection);
    auto *place = new ConnectionLocator(connection, connection); // in the middle of the line
    connection->add(label, QVariant::fromValue<QObject *>(place));
}

// Back and forth between two places, for as long as the program runs.
void wander(Figure *figure, const QPoint &from, const QPoint &to)
{
    const QSize size = figure->getBounds().size();
    const QRect home(from, size);
    auto *animation = new QPropertyAnimation(figure, "bounds", figure);
    animation->setDuration(4000);
    animation->setLoopCount(-1);
    animation->setKeyValues({{0.0, home}, {0.5, QRect(to, size)}, {1.0, home}});
    animation->start();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    FreeformLayeredPane pane;
    auto *nodes = new FreeformLayer(&pane);
    pane.addLayer(nodes, QStringLiteral("nodes"));
    auto *lines = new ConnectionLayer(&pane);
    pane.addLayer(lines, QStringLiteral("lines")); // above the figures that it connects
    lines->setConnectionRouter(new ManhattanConnectionRouter(lines));

    const QColor blue(0xd7, 0xe8, 0xfa);
    const QColor sand(0xfb, 0xe3, 0xc0);
    auto *order = makeNode<Rectangle>(QStringLiteral("Order"), blue, nodes, QRect(40, 50, 90, 50));
    auto *stock = makeNode<Ellipse>(QStringLiteral("Stock"), sand, nodes, QRect(230, 120, 90, 60));
    auto *bill = makeNode<Rectangle>(QStringLiteral("Bill"), blue, nodes, QRect(390, 30, 90, 50));

    // One anchor for each end of each connection, owned by the figure that it sits on.
    addLabel(
        connectFigures(new ChopboxAnchor(order, order), new EllipseAnchor(stock, stock), lines),
        QStringLiteral("reserves"));
    connectFigures(new ChopboxAnchor(order, order), new ChopboxAnchor(bill, bill), lines);
    auto *paid =
        connectFigures(new EllipseAnchor(stock, stock), new ChopboxAnchor(bill, bill), lines);
    paid->setConnectionRouter(NullRouter::instance()); // this one straight
    paid->setLineStyle(Qt::DashLine);
    rebuildPaths(&pane);

    FreeformViewer viewer;
    viewer.setContent(&pane);
    viewer.resize(540, 240);
    viewer.show();
    if (argc == 2) // a picture of the window instead of the window
        return viewer.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    wander(stock, QPoint(230, 120), QPoint(60, 150));
    return app.exec();
}
