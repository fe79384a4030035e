#include "graphfixtures.h"

#include "scene/ArrowHeads.h"
#include "scene/EdgeConnection.h"
#include "scene/EdgeLabel.h"
#include "scene/SceneBuilder.h"
#include "window/GraphView.h"
#include "window/NodeDrag.h"

#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/NullRouter.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformWidget.h>

#include <QImage>
#include <QRegularExpression>

using namespace GraphViewer;
using namespace Velmora::Figura;
using Kind = ElementFigure::Kind;

namespace {

// A graph in a view at scale 1, laid out.
class Shown
{
public:
    explicit Shown(const QByteArray &text, Routing routing = Routing::Engine)
        : scene(SceneBuilder(GraphFixtures::graph(text)).build())
        , drag(&view)
    {
        scene->setRouting(routing);
        view.resize(700, 600);
        view.setScene(scene.get());
        view.setAttribute(Qt::WA_DontShowOnScreen);
        view.show();
        view.setScale(1);
        validate();
    }

    QImage validate() { return view.viewport()->grab().toImage(); }

    QPoint onCanvas(const QPoint &content)
    {
        return view.canvas()->fromLogical(QPointF(content)).toPoint();
    }

    ElementFigure *node(int index) const { return scene->elements(Kind::Node).at(index); }
    EdgeConnection *edge(int index) const { return scene->edges().at(index); }

    std::unique_ptr<GraphScene> scene;
    GraphView view;
    NodeDrag drag;
};

// What each anchor says for the point that the line comes from.
QString differenceAtEnds(EdgeConnection *edge)
{
    const QList<QPoint> points = edge->getPoints();
    IConnectionAnchor *source = edge->getSourceAnchor();
    IConnectionAnchor *target = edge->getTargetAnchor();
    const bool bends =
        points.size() > 2 && dynamic_cast<BendpointConnectionRouter *>(edge->getConnectionRouter());
    const QPoint start = source->getLocation(bends ? points.at(1) : target->getReferencePoint());
    const QPoint end =
        target->getLocation(bends ? points.at(points.size() - 2) : source->getReferencePoint());
    if (points.first() == start && points.last() == end)
        return {};
    return QStringLiteral("from %1,%2 to %3,%4, not from %5,%6 to %7,%8")
        .arg(points.first().x())
        .arg(points.first().y())
        .arg(points.last().x())
        .arg(points.last().y())
        .arg(start.x())
        .arg(start.y())
        .arg(end.x())
        .arg(end.y());
}

int countColor(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color;
    }
    return count;
}

template<typename T>
QList<T *> decorations(EdgeConnection *edge)
{
    QList<T *> found;
    for (Figure *child : edge->childFigures()) {
        if (auto *decoration = dynamic_cast<T *>(child))
            found << decoration;
    }
    return found;
}

void addRoutings()
{
    QTest::addColumn<Routing>("routing");
    const QStringList names = EdgeRouting::names();
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << EdgeRouting::fromName(name);
}

} // namespace

class tst_GraphConnections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void anEdgeConnectsItsTwoNodes();
    void anchorsSuitTheShapeOfTheirNode_data();
    void anchorsSuitTheShapeOfTheirNode();
    void theRoutingDecidesThePoints();
    void endsLieOnTheAnchors_data() { addRoutings(); }
    void endsLieOnTheAnchors();
    void theEnginesDrawingIsShownInItsRoutingOnly();
    void aManhattanRouteHasNoSlopes();
    void parallelEdgesCanBeToldApart_data() { addRoutings(); }
    void parallelEdgesCanBeToldApart();
    void aLoopIsVisible_data() { addRoutings(); }
    void aLoopIsVisible();
    void arrowHeadsFollowTheAttributes_data();
    void arrowHeadsFollowTheAttributes();
    void anArrowNameStandsForAShape_data();
    void anArrowNameStandsForAShape();
    void labelsAreAtTheEnginesPlaceOrWithTheirEdge();
    void aDraggedNodeTakesItsEdgesAlong_data() { addRoutings(); }
    void aDraggedNodeTakesItsEdgesAlong();
    void aDraggedNodeTakesItsLoopAlong();
    void edgesOfOtherNodesStayAsTheEngineHasThem();
    void aNodeThatGoesWhileItIsDraggedIsForgotten();
    void aLabelOnALineHasPaperBeneath();
    void theCanvasGrowsWithANodeThatIsDraggedOutOfIt();
    void draggingThePaperMovesNoNode();
};

void tst_GraphConnections::anEdgeConnectsItsTwoNodes()
{
    const Shown shown("digraph { a -> b; b -> c; c -> a; b -> b; a -> d [style=invis] }");

    QCOMPARE(shown.scene->edges().size(), 4); // what is invisible is no connection
    QStringList ends;
    for (EdgeConnection *edge : shown.scene->edges()) {
        QCOMPARE(edge->getSourceAnchor()->getOwner(), edge->tail());
        QCOMPARE(edge->getTargetAnchor()->getOwner(), edge->head());
        ends << edge->tail()->title() + edge->head()->title();
    }
    ends.sort();
    QCOMPARE(ends, QStringList({"ab", "bb", "bc", "ca"}));
}

void tst_GraphConnections::anchorsSuitTheShapeOfTheirNode_data()
{
    QTest::addColumn<QByteArray>("shape");
    QTest::addColumn<bool>("round");
    for (const char *shape : {"ellipse", "oval", "circle", "doublecircle", "point"})
        QTest::newRow(shape) << QByteArray(shape) << true;
    for (const char *shape : {"box", "record", "diamond", "plaintext", "house"})
        QTest::newRow(shape) << QByteArray(shape) << false;
}

void tst_GraphConnections::anchorsSuitTheShapeOfTheirNode()
{
    QFETCH(QByteArray, shape);
    QFETCH(bool, round);

    const Shown shown("digraph { node [shape=" + shape + "] a -> b }");

    for (IConnectionAnchor *anchor :
         {shown.edge(0)->getSourceAnchor(), shown.edge(0)->getTargetAnchor()}) {
        QCOMPARE(dynamic_cast<EllipseAnchor *>(anchor) != nullptr, round);
        QCOMPARE(dynamic_cast<ChopboxAnchor *>(anchor) != nullptr, !round);
    }
}

void tst_GraphConnections::theRoutingDecidesThePoints()
{
    Shown shown("digraph { a -> b; a -> c; b -> d; c -> d; a -> d }");
    EdgeConnection *bent = nullptr;
    for (EdgeConnection *edge : shown.scene->edges())
        bent = edge->engineBends().isEmpty() ? bent : edge;
    QVERIFY(bent);
    QCOMPARE(bent->getPoints().mid(1, bent->getPointCount() - 2), bent->engineBends());

    shown.scene->setRouting(Routing::Straight);
    shown.validate();
    QCOMPARE(bent->getConnectionRouter(), NullRouter::instance());
    QCOMPARE(bent->getPointCount(), 2);

    shown.scene->setRouting(Routing::Engine);
    shown.validate();
    QCOMPARE(bent->getPoints().mid(1, bent->getPointCount() - 2), bent->engineBends());
}

void tst_GraphConnections::endsLieOnTheAnchors()
{
    QFETCH(Routing, routing);

    const Shown shown("digraph { node [shape=box] a -> b; a -> c; b -> d [dir=both]; c -> d; "
                      "e [shape=circle]; a -> e -> d; e -> e; b -> c; c -> b }",
                      routing);

    for (EdgeConnection *edge : shown.scene->edges()) {
        const QString difference = differenceAtEnds(edge);
        QVERIFY2(difference.isEmpty(), qPrintable(edge->title() + QLatin1Char(' ') + difference));
    }
}

void tst_GraphConnections::theEnginesDrawingIsShownInItsRoutingOnly()
{
    Shown shown("digraph { a -> b }");
    const QImage before = shown.validate();
    QVERIFY(shown.edge(0)->showsEngineDrawing());
    QVERIFY(!decorations<PolygonDecoration>(shown.edge(0)).first()->isVisible());

    shown.scene->setRouting(Routing::Straight);
    QVERIFY(shown.validate() != before);
    QVERIFY(!shown.edge(0)->showsEngineDrawing());
    QVERIFY(decorations<PolygonDecoration>(shown.edge(0)).first()->isVisible());

    shown.scene->setRouting(Routing::Engine);
    QCOMPARE(shown.validate(), before);
}

void tst_GraphConnections::aManhattanRouteHasNoSlopes()
{
    const Shown shown("digraph { a -> b; a -> c; b -> d; c -> e }", Routing::Manhattan);

    for (EdgeConnection *edge : shown.scene->edges()) {
        const QList<QPoint> points = edge->getPoints();
        for (int i = 1; i < points.size(); ++i) {
            const QPoint way = points.at(i) - points.at(i - 1);
            QVERIFY2(way.x() == 0 || way.y() == 0, qPrintable(edge->title()));
        }
    }
}

void tst_GraphConnections::parallelEdgesCanBeToldApart()
{
    QFETCH(Routing, routing);

    Shown shown("digraph { a -> b [color=red]; a -> b [color=blue]; a -> b [color=lime]; "
                "b -> a [color=magenta] }",
                routing);

    const QImage image = shown.validate();
    for (const QColor &color :
         {QColor(Qt::red), QColor(Qt::blue), QColor(0, 255, 0), QColor(Qt::magenta)})
        QVERIFY2(countColor(image, color) > 15, qPrintable(color.name()));
    QSet<QPoint> middles;
    for (EdgeConnection *edge : shown.scene->edges())
        middles << edge->getPoint(1) << edge->getPoint(edge->getPointCount() / 2);
    QVERIFY(middles.size() >= 4);
}

void tst_GraphConnections::aLoopIsVisible()
{
    QFETCH(Routing, routing);

    Shown shown("digraph { a -> a [color=red] }", routing);

    QVERIFY(countColor(shown.validate(), Qt::red) > 15);
    QVERIFY(shown.edge(0)->getPointCount() >= 4);
}

void tst_GraphConnections::arrowHeadsFollowTheAttributes_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<int>("filled");
    QTest::addColumn<int>("open");
    QTest::newRow("a normal one at the head") << QByteArray() << 1 << 0;
    QTest::newRow("both ends") << QByteArray("dir=both") << 2 << 0;
    QTest::newRow("back") << QByteArray("dir=back, arrowtail=vee") << 0 << 1;
    QTest::newRow("the tail's counts only when it is shown")
        << QByteArray("arrowtail=vee") << 1 << 0;
    QTest::newRow("none") << QByteArray("arrowhead=none") << 0 << 0;
    QTest::newRow("no direction") << QByteArray("dir=none") << 0 << 0;
    QTest::newRow("diamond and crow")
        << QByteArray("dir=both, arrowhead=diamond, arrowtail=crow") << 1 << 1;
}

void tst_GraphConnections::arrowHeadsFollowTheAttributes()
{
    QFETCH(QByteArray, attributes);
    QFETCH(int, filled);
    QFETCH(int, open);

    const Shown shown("digraph { a -> b [color=red, " + attributes + "] }", Routing::Straight);

    const QList<PolygonDecoration *> polygons = decorations<PolygonDecoration>(shown.edge(0));
    QCOMPARE(polygons.size(), filled);
    QCOMPARE(decorations<PolylineDecoration>(shown.edge(0)).size(), open);
    for (PolygonDecoration *polygon : polygons)
        QCOMPARE(polygon->getEnabledBGColor(), QColor(Qt::red));
}

void tst_GraphConnections::anArrowNameStandsForAShape_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("points");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("hollow");
    QTest::newRow("normal") << "normal" << 3 << true << false;
    QTest::newRow("hollow") << "onormal" << 3 << true << true;
    QTest::newRow("an old name") << "empty" << 3 << true << true;
    QTest::newRow("inv") << "inv" << 3 << true << false;
    QTest::newRow("diamond") << "ediamond" << 4 << true << true;
    QTest::newRow("box") << "box" << 4 << true << false;
    QTest::newRow("dot") << "dot" << 8 << true << false;
    QTest::newRow("the first of two") << "dotvee" << 8 << true << false;
    QTest::newRow("vee") << "vee" << 3 << false << false;
    QTest::newRow("open") << "open" << 3 << false << false;
    QTest::newRow("crow") << "crow" << 5 << false << false;
    QTest::newRow("none") << "none" << 0 << true << false;
    QTest::newRow("unknown") << "xyz" << 3 << true << false;
}

void tst_GraphConnections::anArrowNameStandsForAShape()
{
    QFETCH(QString, name);

    const ArrowHeads::Shape shape = ArrowHeads::shape(name);

    QTEST(int(shape.outline.size()), "points");
    QTEST(shape.closed, "closed");
    QTEST(shape.hollow, "hollow");
}

void tst_GraphConnections::labelsAreAtTheEnginesPlaceOrWithTheirEdge()
{
    Shown shown("digraph { rankdir=LR; a -> b [label=mid, taillabel=t, headlabel=h] }");
    const QList<ElementFigure *> labels = shown.scene->elements(Kind::Label);
    QCOMPARE(labels.size(), 3);
    for (ElementFigure *label : labels)
        QCOMPARE(label->getBounds(), label->home());

    shown.scene->setRouting(Routing::Straight);
    shown.validate();

    EdgeConnection *edge = shown.edge(0);
    const QPoint middle = (edge->getPoint(0) + edge->getPoint(1)) / 2;
    QVERIFY((labels.at(0)->getBounds().center() - middle).manhattanLength() <= 3);
    QCOMPARE(labels.at(1)->getBounds().topLeft(), edge->getPoint(0) + QPoint(14, 4));
    QCOMPARE(labels.at(2)->getBounds().right() + 1, edge->getPoint(1).x() - 14);

    shown.scene->setRouting(Routing::Engine);
    shown.validate();
    for (ElementFigure *label : labels)
        QCOMPARE(label->getBounds(), label->home());
}

void tst_GraphConnections::aDraggedNodeTakesItsEdgesAlong()
{
    QFETCH(Routing, routing);
    Shown shown("digraph { a -> b [label=x]; a -> c; b -> c; c -> a }", routing);
    ElementFigure *node = shown.node(0);
    const QPoint from = node->getBounds().center();
    const QRect before = node->getBounds();
    QWidget *canvas = shown.view.canvas();

    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, shown.onCanvas(from));
    for (int step = 1; step <= 4; ++step) {
        const QPoint to = from + QPoint(11, 7) * step;
        QTest::mouseMove(canvas, shown.onCanvas(to));
        shown.validate();
        QCOMPARE(node->getBounds(), before.translated(to - from));
        for (EdgeConnection *edge : shown.scene->edges()) {
            const QString difference = differenceAtEnds(edge);
            QVERIFY2(difference.isEmpty(), qPrintable(edge->title() + difference));
        }
    }
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier,
                        shown.onCanvas(from + QPoint(44, 28)));
    shown.validate();

    QCOMPARE(node->getBounds(), before.translated(44, 28));
    QTest::mouseMove(canvas, shown.onCanvas(from));
    QCOMPARE(node->getBounds(), before.translated(44, 28)); // let go of
}

void tst_GraphConnections::aDraggedNodeTakesItsLoopAlong()
{
    Shown shown("digraph { a -> a }");
    const QList<QPoint> before = shown.edge(0)->getPoints();

    shown.scene->moveNode(shown.node(0), shown.node(0)->getBounds().topLeft() + QPoint(30, 20));
    shown.validate();

    QCOMPARE(shown.edge(0)->getPointCount(), before.size());
    for (int i = 1; i + 1 < before.size(); ++i)
        QCOMPARE(shown.edge(0)->getPoint(i), before.at(i) + QPoint(30, 20));
}

void tst_GraphConnections::edgesOfOtherNodesStayAsTheEngineHasThem()
{
    Shown shown("digraph { a -> b; b -> c }");

    shown.scene->moveNode(shown.node(0), QPoint(60, 5));

    QVERIFY(!shown.edge(0)->showsEngineDrawing());
    QVERIFY(shown.edge(1)->showsEngineDrawing());
}

void tst_GraphConnections::aNodeThatGoesWhileItIsDraggedIsForgotten()
{
    Shown shown("digraph { a -> b }");
    const QPoint from = shown.onCanvas(shown.node(0)->getBounds().center());
    QTest::mousePress(shown.view.canvas(), Qt::LeftButton, Qt::NoModifier, from);

    auto other = SceneBuilder(GraphFixtures::graph("digraph { c -> d }")).build();
    shown.view.setScene(other.get());
    shown.scene = std::move(other);
    shown.validate();
    const QRect before = shown.node(0)->getBounds();
    QTest::mouseMove(shown.view.canvas(), from + QPoint(20, 20));
    QTest::mouseRelease(shown.view.canvas(), Qt::LeftButton, Qt::NoModifier, from + QPoint(20, 20));

    QCOMPARE(shown.node(0)->getBounds(), before);
    QCOMPARE(shown.view.canvas()->cursor().shape(), shown.view.cursor().shape());
}

void tst_GraphConnections::aLabelOnALineHasPaperBeneath()
{
    Shown shown("digraph { rankdir=LR; a -> b [label=MMM, color=blue, penwidth=3] }",
                Routing::Straight);
    const QRect label = shown.scene->elements(Kind::Label).first()->getBounds();

    const QImage image = shown.validate();

    QVERIFY(countColor(image, Qt::blue) > 15);
    QCOMPARE(countColor(image.copy(shown.view.fromContent(label)), Qt::blue), 0);
}

void tst_GraphConnections::theCanvasGrowsWithANodeThatIsDraggedOutOfIt()
{
    Shown shown("digraph { a -> b }");
    const QPoint from = shown.node(0)->getBounds().center();
    const QPoint to = from + QPoint(900, 0);
    QWidget *canvas = shown.view.canvas();

    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, shown.onCanvas(from));
    QTest::mouseMove(canvas, shown.onCanvas(to));
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, shown.onCanvas(to));
    shown.validate();

    QVERIFY(shown.scene->area().contains(shown.node(0)->getBounds()));
    const QRect canvasRect = shown.view.canvas()->rect();
    QVERIFY(canvasRect.contains(shown.onCanvas(shown.node(0)->getBounds().bottomRight())));
}

void tst_GraphConnections::draggingThePaperMovesNoNode()
{
    Shown shown("digraph { a -> b }");
    const QRect before = shown.node(0)->getBounds();
    QWidget *canvas = shown.view.canvas();

    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
    QTest::mouseMove(canvas, QPoint(40, 40));
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, QPoint(40, 40));
    shown.validate();

    QCOMPARE(shown.node(0)->getBounds(), before);
}

QTEST_MAIN(tst_GraphConnections)
#include "tst_graph_connections.moc"
