// A router of one's own: connections that swing from figure to figure in an arc.
#include <figura/Figura.h>

#include <QApplication>

using namespace Velmora::Figura;

namespace {

class ArcRouter : public AbstractRouter
{
public:
    /// The arc stands off the straight line by \a bulge times its length, to the left for one who
    /// walks from source to target; a negative one to the right.
    explicit ArcRouter(double bulge, QObject *parent = nullptr)
        : AbstractRouter(parent)
        , m_bulge(bulge)
    {
    }

    QList<QPointF> doRouteF(IConnection *connection) override
    {
        if (!connection || !connection->getSourceAnchor() || !connection->getTargetAnchor())
            return {};
        const QPointF control = controlPoint(connection);

        // Anchors are asked in absolute coordinates, and from where the line comes: here that is
        // the control point of the arc, not the other anchor.
        QPointF start = connection->getSourceAnchor()->getLocation(control.toPoint());
        QPointF end = connection->getTargetAnchor()->getLocation(control.toPoint());
        QPointF middle = control;

        // The points belong to the connection, in whose coordinates they are.
        connection->translateToRelative(start);
        connection->translateToRelative(end);
        connection->translateToRelative(middle);
        return arc(start, middle, end);
    }

    QList<QPoint> doRoute(IConnection *connection) override
    {
        QList<QPoint> points;
        const QList<QPointF> exact = doRouteF(connection);
        for (const QPointF &point : exact)
            points.append(point.toPoint());
        return points;
    }

private:
    QPointF controlPoint(IConnection *connection) const
    {
        const QPointF from = connection->getSourceAnchor()->getReferencePoint();
        const QPointF to = connection->getTargetAnchor()->getReferencePoint();
        const QPointF along = to - from;
        const QPointF left(along.y(), -along.x());
        return (from + to) / 2 + 2 * m_bulge * left;
    }

    static QList<QPointF> arc(const QPointF &start, const QPointF &control, const QPointF &end)
    {
        constexpr int steps = 24;
        QList<QPointF> points;
        for (int i = 0; i <= steps; ++i) {
            const double t = double(i) / steps;
            points.append((1 - t) * (1 - t) * start + 2 * t * (1 - t) * control + t * t * end);
        }
        return points;
    }

    double m_bulge;
};

Figure *makeNode(FreeformLayer *layer, const QPoint &topLeft, const QColor &color)
{
    auto *node = new Ellipse(layer);
    node->setEnabledBGColor(color);
    layer->add(node, QRect(topLeft, QSize(50, 50)));
    return node;
}

void connectFigures(Figure *source, Figure *target, ConnectionLayer *layer)
{
    auto *connection = new PolylineFConnection(layer);
    connection->setSourceAnchor(new EllipseAnchor(source, source));
    connection->setTargetAnchor(new EllipseAnchor(target, target));
    connection->setTargetDecoration(new PolygonDecoration(connection));
    layer->add(connection);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    FreeformLayeredPane pane;
    auto *nodes = new FreeformLayer(&pane);
    pane.addLayer(nodes, QStringLiteral("nodes"));
    auto *lines = new ConnectionLayer(&pane);
    pane.addLayer(lines, QStringLiteral("lines"));
    lines->setAntialias(true);
    lines->setConnectionRouter(new ArcRouter(0.25, lines)); // owned by the layer, like its lines

    Figure *left = makeNode(nodes, QPoint(40, 130), QColor(0xd7, 0xe8, 0xfa));
    Figure *top = makeNode(nodes, QPoint(210, 30), QColor(0xfb, 0xe3, 0xc0));
    Figure *right = makeNode(nodes, QPoint(380, 130), QColor(0xd9, 0xee, 0xd3));
    connectFigures(left, top, lines);
    connectFigures(top, right, lines);
    connectFigures(right, left, lines);
    rebuildPaths(&pane);

    FreeformViewer viewer;
    viewer.setContent(&pane);
    viewer.resize(480, 300);
    viewer.show();
    if (argc == 2) // a picture of the window instead of the window
        return viewer.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    return app.exec();
}
