#include "graphfixtures.h"

#include "scene/EdgeConnection.h"
#include "scene/EdgeLine.h"
#include "scene/FontResolver.h"
#include "scene/SceneBuilder.h"
#include "scene/TextLine.h"
#include "window/GraphView.h"

#include <figura/shape/PixmapFigure.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformWidget.h>

#include <QImage>
#include <QPainter>
#include <QRegularExpression>

using namespace GraphViewer;
using namespace Velmora::Figura;
using Kind = ElementFigure::Kind;

namespace {

std::unique_ptr<GraphScene> scene(const QByteArray &text)
{
    return SceneBuilder(GraphFixtures::graph(text)).build();
}

template<typename T>
QList<T *> parts(Figure *element)
{
    QList<T *> found;
    for (Figure *child : element->childFigures()) {
        if (auto *part = dynamic_cast<T *>(child))
            found << part;
    }
    return found;
}

template<typename T>
QStringList titles(const QList<T *> &elements)
{
    QStringList result;
    for (const T *element : elements)
        result << element->title();
    return result;
}

// The whole scene in a view of its own size, with a margin of 20 around it.
class Shown
{
public:
    explicit Shown(GraphScene *scene, double scale = 1)
    {
        m_view.setScene(scene);
        m_view.resize((scene->area().size() + QSize(40, 40)) * scale + QSize(20, 20));
        m_view.setAttribute(Qt::WA_DontShowOnScreen);
        m_view.show();
        QPoint corner = scene->area().topLeft() - QPoint(20, 20);
        m_view.setScale(scale, &corner);
    }

    QImage image()
    {
        return m_view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

private:
    GraphView m_view;
};

QImage painted(GraphScene *scene, double scale = 1)
{
    return Shown(scene, scale).image();
}

QColor at(const QImage &image, int x, int y)
{
    return image.pixelColor(x + 20, y + 20);
}

int countInk(const QImage &image, const QRect &area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            count += at(image, x, y).lightness() < 200;
    }
    return count;
}

} // namespace

class tst_GraphScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void eachNodeClusterAndEdgeIsOneFigure();
    void anElementIsCalledByItsNameAndLabel();
    void aNodeFigureHasTheNodesBox();
    void aWideLabelDoesNotStretchItsNode();
    void aLabelIsMadeOfTextFigures();
    void anEdgeIsMadeOfLinesAndArrowHeads();
    void aCurveIsFlattenedClosely();
    void clustersLieBelowAndEdgesAboveUnlessTheGraphSaysOtherwise();
    void aFilledNodeIsPaintedInItsColors();
    void aHorizontalEdgeIsPainted();
    void aVerticalEdgeIsPainted();
    void anEdgeReachesTheNodeWhenMagnified();
    void aBrokenLineHasGaps_data();
    void aBrokenLineHasGaps();
    void aGradientFollowsItsNode();
    void anInvisibleNodeShowsNothingAndIsNotFound();
    void aLabelOutsideItsNodeIsPaintedInFull();
    void aPictureIsPaintedInItsBox();
    void aTextFillsTheWidthReservedForIt();
    void theCanvasMayGrowWithoutMovingAnything();
    void aNodeIsFoundInItsOutlineOnly();
    void aNodeWithoutAnOutlineIsFoundInItsBox();
    void anEdgeIsFoundBesideItsLine_data();
    void anEdgeIsFoundBesideItsLine();
    void theInnermostClusterIsFound();
    void aHotEdgeLightsUpAndGoesBack();
    void aHotNodeIsFramed();
    void anOutlineFitsOtherBounds();
    void aFontNameIsTakenApart_data();
    void aFontNameIsTakenApart();
    void anEmptyGraphHasAnArea();
};

void tst_GraphScene::eachNodeClusterAndEdgeIsOneFigure()
{
    const auto built = scene("digraph { subgraph cluster_a { a [shape=doublecircle] } "
                             "a -> b [color=\"red:blue:green\", label=x]; b -> c; c [shape=record, "
                             "label=\"1|2|3\"] }");

    QCOMPARE(built->elements(Kind::Node).size(), 3);
    QCOMPARE(built->elements(Kind::Cluster).size(), 1);
    QCOMPARE(built->edges().size(), 2);
    QCOMPARE(built->elements(Kind::Label).size(), 1);
}

void tst_GraphScene::anElementIsCalledByItsNameAndLabel()
{
    const auto built = scene("digraph { a; b [label=\"two\\nlines\"]; a -> b [label=\"by\"]; "
                             "subgraph cluster_x { label=\"The box\"; c } }");

    QCOMPARE(titles(built->elements(Kind::Node)), QStringList({"a", "b: two lines", "c"}));
    QCOMPARE(titles(built->edges()), QStringList("a -> b: by"));
    QCOMPARE(titles(built->elements(Kind::Label)), QStringList("a -> b: by"));
    QCOMPARE(titles(built->elements(Kind::Cluster)), QStringList("cluster_x: The box"));
}

void tst_GraphScene::aNodeFigureHasTheNodesBox()
{
    const GraphModel graph = GraphFixtures::graph("graph { a [shape=box] b [shape=egg] a -- b }");

    const auto built = SceneBuilder(graph).build();

    for (int i = 0; i < 2; ++i) {
        const QRectF figure(built->elements(Kind::Node).at(i)->getBounds());
        QVERIFY(figure.adjusted(-1, -1, 1, 1).contains(graph.nodes.at(i).box));
        QVERIFY(graph.nodes.at(i).box.adjusted(-1, -1, 1, 1).contains(figure));
    }
}

void tst_GraphScene::aWideLabelDoesNotStretchItsNode()
{
    const auto built = scene("graph { a [shape=box, fixedsize=true, width=0.5, height=0.25, "
                             "label=\"far too long for this\"] b }");
    painted(built.get()); // lays out

    QCOMPARE(built->elements(Kind::Node).first()->getBounds().size(), QSize(36, 18));
}

void tst_GraphScene::aLabelIsMadeOfTextFigures()
{
    const auto built = scene("graph { a [shape=record, fontcolor=red, label=\"x|{y|z}\"] }");

    const QList<TextFigure *> texts = parts<TextFigure>(built->elements(Kind::Node).first());
    QCOMPARE(texts.size(), 3);
    QCOMPARE(texts.at(1)->getText(), QStringLiteral("y"));
    QCOMPARE(texts.at(1)->getTextColor(), QColor(Qt::red));
    QCOMPARE(texts.at(1)->getFont().pixelSize(), 14);
}

void tst_GraphScene::anEdgeIsMadeOfLinesAndArrowHeads()
{
    const GraphModel graph = GraphFixtures::graph("digraph { a -> b [dir=both, penwidth=3] }");

    const auto built = SceneBuilder(graph).build();

    EdgeConnection *edge = built->edges().first();
    const QList<PolylineF *> lines = parts<PolylineF>(edge);
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first()->getLineWidth(), 3);
    QCOMPARE(parts<OutlineFigure>(edge).size(), 2);
    const QPainterPath path = graph.edges.first().line.strokes.first().path;
    QCOMPARE(lines.first()->getStart(), path.pointAtPercent(0));
    QCOMPARE(lines.first()->getEnd(), path.pointAtPercent(1));
}

void tst_GraphScene::aCurveIsFlattenedClosely()
{
    QPainterPath path;
    path.cubicTo(0, 300, 300, 300, 300, 0);

    const QList<QPolygonF> lines = EdgeLine::flatten(path);

    QCOMPARE(lines.size(), 1);
    QPainterPath flat;
    flat.addPolygon(lines.first());
    for (double t = 0; t <= 1; t += 0.01) {
        const QPointF point = path.pointAtPercent(t);
        QPainterPath around;
        around.addEllipse(point, 0.1, 0.1);
        QVERIFY2(around.intersects(flat), qPrintable(QString::number(t)));
    }
}

void tst_GraphScene::clustersLieBelowAndEdgesAboveUnlessTheGraphSaysOtherwise()
{
    const auto keys = [](const GraphScene &built) {
        QStringList result;
        for (Figure *layer : built.layer(Kind::Node)->getParentFigure()->childFigures())
            result << layer->objectName();
        return result;
    };

    QCOMPARE(keys(*scene("graph { a }")),
             QStringList({"background", "clusters", "nodes", "edges", "labels"}));
    QCOMPARE(keys(*scene("graph { outputorder=edgesfirst; a }")),
             QStringList({"background", "clusters", "edges", "nodes", "labels"}));
}

void tst_GraphScene::aFilledNodeIsPaintedInItsColors()
{
    const auto built = scene("graph { a [shape=box, fixedsize=true, width=1, height=1, label=\"\", "
                             "style=filled, fillcolor=yellow, color=blue, penwidth=4] }");

    const QImage image = painted(built.get());

    QCOMPARE(at(image, 36, 36), QColor(Qt::yellow));
    QCOMPARE(at(image, 36, 0), QColor(Qt::blue));
    QCOMPARE(at(image, 0, 36), QColor(Qt::blue));
    QCOMPARE(at(image, -5, 36), QColor(Qt::white));
}

void tst_GraphScene::aHorizontalEdgeIsPainted()
{
    const auto built = scene("digraph { rankdir=LR; node [width=1, height=0.5, fixedsize=true]; "
                             "edge [arrowhead=none, color=red, penwidth=2]; a -> b }");

    const QImage image = painted(built.get());

    QCOMPARE(at(image, 90, 18), QColor(Qt::red));
}

void tst_GraphScene::aVerticalEdgeIsPainted()
{
    const auto built = scene("digraph { node [width=1, height=0.5, fixedsize=true]; "
                             "edge [arrowhead=none, color=red, penwidth=2]; a -> b }");

    const QImage image = painted(built.get());

    QCOMPARE(at(image, 36, 54), QColor(Qt::red));
}

// Shapes in whole units would leave up to half a unit free, which is eight pixels here.
void tst_GraphScene::anEdgeReachesTheNodeWhenMagnified()
{
    const auto built = scene("digraph { rankdir=LR; nodesep=0.123; node [shape=box, style=filled, "
                             "label=\"\", width=0.777, height=0.333, fixedsize=true, color=black, "
                             "fillcolor=black]; a -> b; }");
    const QRectF head(built->elements(Kind::Node).last()->getBounds());

    const QImage image = painted(built.get(), 16);

    const int y = qRound(head.center().y() * 16);
    int gap = 0;
    for (int x = qRound(head.left() * 16) - 60; x < head.left() * 16 + 20; ++x)
        gap += image.pixelColor(x + 320, y + 320).lightness() > 200;
    QVERIFY2(gap <= 8, qPrintable(QString::number(gap))); // half of the edge's own pen
}

void tst_GraphScene::aBrokenLineHasGaps_data()
{
    QTest::addColumn<QByteArray>("style");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    for (int width : {1, 3}) {
        QTest::addRow("solid, %d", width) << QByteArray("solid") << width << 120 << 120;
        QTest::addRow("dashed, %d", width) << QByteArray("dashed") << width << 50 << 75;
        QTest::addRow("dotted, %d", width) << QByteArray("dotted") << width << 20 << 45;
    }
}

void tst_GraphScene::aBrokenLineHasGaps()
{
    QFETCH(QByteArray, style);
    QFETCH(int, width);
    QFETCH(int, least);
    QFETCH(int, most);
    const auto built =
        scene("digraph { rankdir=LR; ranksep=2; edge [arrowhead=none, style=" + style +
              ", penwidth=" + QByteArray::number(width) +
              "]; node [width=1, height=0.5, fixedsize=true]; a -> b }");

    const QImage image = painted(built.get());

    const int ink = countInk(image, QRect(80, 18, 120, 1));
    QVERIFY2(ink >= least && ink <= most, qPrintable(QString::number(ink)));
}

void tst_GraphScene::aGradientFollowsItsNode()
{
    const auto built = scene("graph { a [shape=box, fixedsize=true, width=2, height=1, label=\"\", "
                             "style=filled, fillcolor=\"red:blue\"] }");
    ElementFigure *node = built->elements(Kind::Node).first();
    Shown shown(built.get());

    const QImage before = shown.image();
    QVERIFY(at(before, 10, 36).red() > 200);
    QVERIFY(at(before, 134, 36).blue() > 200);

    node->setBounds(node->getBounds().translated(-15, 0)); // within the margin
    const QImage after = shown.image();
    QCOMPARE(at(after, 10, 36), at(before, 25, 36));
    QCOMPARE(at(after, 119, 36), at(before, 134, 36));
}

void tst_GraphScene::anInvisibleNodeShowsNothingAndIsNotFound()
{
    const auto built = scene("graph { a [style=invis] }");

    const QImage image = painted(built.get());

    QCOMPARE(countInk(image, built->area()), 0);
    QVERIFY(!built->elementAt(built->area().center(), 2));
}

void tst_GraphScene::aLabelOutsideItsNodeIsPaintedInFull()
{
    const auto built = scene("graph { a [shape=box, fixedsize=true, width=0.2, height=0.5, "
                             "label=\"WWWWWWWWWWWW\"] b [pos=x, width=4] a -- b }");
    ElementFigure *node = built->elements(Kind::Node).first();
    const QRect text = parts<TextLine>(node).first()->box().translated(node->getBounds().topLeft());
    QVERIFY(text.left() < node->getBounds().left() - 30);

    const QImage image = painted(built.get());

    QVERIFY(countInk(image, QRect(text.left(), text.top(), 30, text.height())) > 50);
}

void tst_GraphScene::aPictureIsPaintedInItsBox()
{
    const GraphFixtures::Folder folder;
    QImage picture(400, 400, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    QVERIFY(picture.save(folder.path(QStringLiteral("p.png"))));
    const QString path = folder.write(QStringLiteral("p.gv"),
                                      "graph { a [shape=box, fixedsize=true, width=1, height=1, "
                                      "label=\"\", image=\"p.png\", imagescale=both] }");
    const LoadReply reply = GraphLoader().load(path);
    QVERIFY2(reply.ok(), qPrintable(reply.error));

    const auto built = SceneBuilder(reply.graph).build();

    QCOMPARE(parts<PixmapFigure>(built->elements(Kind::Node).first()).size(), 1);
    QCOMPARE(built->area(), QRect(0, 0, 72, 72));
    QCOMPARE(at(painted(built.get()), 36, 36), QColor(Qt::magenta));
}

void tst_GraphScene::aTextFillsTheWidthReservedForIt()
{
    TextSpan span;
    span.text = QStringLiteral("MMMMMMMM");
    span.left = QPointF(10.25, 40.5);
    QFont font = FontResolver::font(span.style);
    span.width = QFontMetricsF(font).horizontalAdvance(span.text) * 1.3;

    TextLine line(span, {}, nullptr);
    line.setBounds(line.box());
    QImage image(300, 80, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    line.render(&painter, option);

    int last = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y)
            last = image.pixelColor(x, y).lightness() < 128 ? x : last;
    }
    QVERIFY2(qAbs(last - (span.left.x() + span.width)) < 4, qPrintable(QString::number(last)));
}

void tst_GraphScene::theCanvasMayGrowWithoutMovingAnything()
{
    const auto built = scene("digraph { subgraph cluster_a { label=x; a } a -> b [label=y] }");
    const auto rects = [&built] {
        QList<QRect> result;
        for (EdgeConnection *edge : built->edges())
            result << edge->absoluteRect() << edge->childFigures().first()->getBounds();
        for (Kind kind : {Kind::Cluster, Kind::Node, Kind::Label}) {
            for (ElementFigure *element : built->elements(kind))
                result << element->absoluteRect() << element->childFigures().first()->getBounds();
        }
        return result;
    };
    GraphView view;
    view.setScene(built.get());
    view.setAttribute(Qt::WA_DontShowOnScreen);
    view.show();
    view.grab(); // lays out
    const QList<QRect> before = rects();

    view.setViewLocation(QPoint(-500, -700));
    view.grab(); // validates
    view.setScale(0.25);
    view.grab();
    view.setViewLocation(QPoint(-2000, -100));
    view.grab();

    QCOMPARE(rects(), before);
}

void tst_GraphScene::aNodeIsFoundInItsOutlineOnly()
{
    const auto built = scene("graph { a [width=2, height=1, label=\"\"] }");
    ElementFigure *node = built->elements(Kind::Node).first();
    painted(built.get());

    QCOMPARE(built->elementAt(QPoint(72, 36), 1), node);
    QCOMPARE(built->elementAt(QPoint(3, 36), 1), node);
    QVERIFY(!built->elementAt(QPoint(4, 4), 1));
}

void tst_GraphScene::aNodeWithoutAnOutlineIsFoundInItsBox()
{
    const auto built = scene("graph { a [shape=none, width=2, height=1, label=x] }");
    painted(built.get());

    QCOMPARE(built->elementAt(QPoint(4, 4), 1), built->elements(Kind::Node).first());
}

void tst_GraphScene::anEdgeIsFoundBesideItsLine_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<bool>("found");
    QTest::newRow("on it") << 0 << 2 << true;
    QTest::newRow("close") << 2 << 4 << true;
    QTest::newRow("too far") << 6 << 4 << false;
    QTest::newRow("close when zoomed out") << 30 << 40 << true;
}

void tst_GraphScene::anEdgeIsFoundBesideItsLine()
{
    QFETCH(int, distance);
    QFETCH(int, tolerance);
    QFETCH(bool, found);
    const auto built = scene("digraph { rankdir=LR; ranksep=2; a -> b }");
    painted(built.get());

    const Element *element =
        built->elementAt(built->area().center() + QPoint(0, distance), tolerance);

    QCOMPARE(element == built->edges().first(), found);
}

void tst_GraphScene::theInnermostClusterIsFound()
{
    const auto built =
        scene("graph { subgraph cluster_o { subgraph cluster_i { label=in; a } b -- a } }");
    painted(built.get());
    const QRect inner = built->elements(Kind::Cluster).last()->getBounds();

    const Element *element = built->elementAt(inner.topLeft() + QPoint(3, 3), 1);

    QVERIFY(element);
    QCOMPARE(element->title(), QStringLiteral("cluster_i: in"));
}

void tst_GraphScene::aHotEdgeLightsUpAndGoesBack()
{
    const auto built = scene("digraph { a -> b [color=blue] }");
    EdgeConnection *edge = built->edges().first();
    auto *line = parts<PolylineF>(edge).first();
    auto *head = parts<OutlineFigure>(edge).first();

    edge->setHot(true);
    QVERIFY(line->getEnabledFGColor() != QColor(Qt::blue));
    QCOMPARE(head->getEnabledBGColor(), line->getEnabledFGColor());

    edge->setHot(true); // twice must not forget the colours
    edge->setHot(false);
    QCOMPARE(line->getEnabledFGColor(), QColor(Qt::blue));
    QCOMPARE(head->getEnabledBGColor(), QColor(Qt::blue));
}

void tst_GraphScene::aHotNodeIsFramed()
{
    const auto built = scene("graph { a }");
    ElementFigure *node = built->elements(Kind::Node).first();
    Shown shown(built.get());
    const QImage before = shown.image();

    node->setHot(true);
    QVERIFY(shown.image() != before);

    node->setHot(false);
    QCOMPARE(shown.image(), before);
}

void tst_GraphScene::anOutlineFitsOtherBounds()
{
    const auto built = scene("graph { a [shape=triangle, width=1, height=1] }");
    ElementFigure *node = built->elements(Kind::Node).first();
    painted(built.get());
    const QRect bounds = node->getBounds();
    QVERIFY(!node->contains(bounds.topLeft() + QPoint(4, 4)));

    node->setBounds(QRect(bounds.topLeft(), bounds.size() * 3));
    rebuildPaths(node);

    QVERIFY(node->contains(node->getBounds().center()));
    QVERIFY(!node->contains(node->getBounds().topLeft() + QPoint(4, 4)));
    QVERIFY(node->contains(QPoint(bounds.center().x() + bounds.width(), bounds.bottom() + 80)));
}

void tst_GraphScene::aFontNameIsTakenApart_data()
{
    QTest::addColumn<QString>("face");
    QTest::addColumn<QString>("family");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<bool>("italic");
    QTest::newRow("default") << "Times-Roman"
                             << "Times" << false << false;
    QTest::newRow("both") << "Helvetica-BoldOblique"
                          << "Helvetica" << true << true;
    QTest::newRow("demi") << "AvantGarde-Demi"
                          << "AvantGarde" << true << false;
    QTest::newRow("two suffixes") << "Helvetica-Narrow-Bold"
                                  << "Helvetica" << true << false;
    QTest::newRow("a family") << "DejaVu Sans"
                              << "DejaVu Sans" << false << false;
    QTest::newRow("a hyphen of its own") << "Foo-Bar"
                                         << "Foo-Bar" << false << false;
}

void tst_GraphScene::aFontNameIsTakenApart()
{
    QFETCH(QString, face);
    TextStyle style;
    style.face = face;

    const QFont font = FontResolver::font(style);

    QTEST(font.family(), "family");
    QTEST(font.bold(), "bold");
    QTEST(font.italic(), "italic");
}

void tst_GraphScene::anEmptyGraphHasAnArea()
{
    const auto built = scene("graph {}");

    QVERIFY(built->area().isValid());
    painted(built.get());
}

QTEST_MAIN(tst_GraphScene)
#include "tst_graph_scene.moc"
