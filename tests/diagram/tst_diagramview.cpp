#include "view_fixtures.h"

#include <QSignalSpy>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

class tst_DiagramView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void oneCallShowsADiagram_data();
    void oneCallShowsADiagram();
    void smallDiagramIsCentredWithoutScrollBars();
    void largeDiagramBeginsAtItsCorner();
    void canvasGrowsWithTheContent_data();
    void canvasGrowsWithTheContent();
    void canvasShrinksWithTheContent();
    void canvasHoldsWhatConnectionsPaint();
    void visiblePartStaysWhereItIs_data();
    void visiblePartStaysWhereItIs();
    void canvasWaitsWhileAScrollBarIsDragged();
    void zoomKeepsThePointUnderTheCursor_data();
    void zoomKeepsThePointUnderTheCursor();
    void zoomedSmallDiagramNeedsNoScrollBars_data();
    void zoomedSmallDiagramNeedsNoScrollBars();
    void zoomIsLimited();
    void uselessScalesAreIgnored();
    void emptyDiagramZooms();
    void everythingFits_data();
    void everythingFits();
    void smallDiagramIsNotMagnifiedToFit();
    void normalScaleKeepsTheCentre();
    void pointIsCentred();
    void rectangleIsRevealed();
    void resizedViewKeepsItsCorner();
    void diagramShowsInOneView();
    void exchangedDiagramNoLongerReports();
    void nullShowsNothing();
    void damageIsReported();
    void scrollingIsNoDamage();
    void hiddenConnectionsAreRoutedBeforeThePaint();
    void gridStaysInTheBackground_data();
    void gridStaysInTheBackground();
};

void tst_DiagramView::oneCallShowsADiagram_data()
{
    QTest::addColumn<int>("order");
    QTest::newRow("filled, set, shown") << 0;
    QTest::newRow("set, filled, shown") << 1;
    QTest::newRow("set, shown, filled") << 2;
    QTest::newRow("filled, shown, set") << 3;
}

void tst_DiagramView::oneCallShowsADiagram()
{
    QFETCH(int, order);
    ViewScene scene;
    Diagram other;
    scene.view.setDiagram(&other);
    const auto fill = [&] {
        scene.diagram.add(painted<Rectangle>(Qt::red), QRect(20, 20, 60, 40));
    };
    const auto set = [&] { scene.view.setDiagram(&scene.diagram); };
    if (order == 0 || order == 3)
        fill();
    if (order != 3)
        set();
    if (order == 1)
        fill();
    QVERIFY(scene.show());
    if (order == 3)
        set();
    if (order == 2)
        fill();

    const QImage screen = scene.incremental();

    const QPoint middle = scene.view.fromContent(QPoint(50, 40));
    QVERIFY(screen.rect().contains(middle));
    QCOMPARE(colorAt(screen, middle.x(), middle.y()), QColor(Qt::red));
    QVERIFY(differenceOf(screen, scene.full()).isNull());
}

void tst_DiagramView::smallDiagramIsCentredWithoutScrollBars()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(1000, -500, 100, 60));
    QVERIFY(scene.show());

    const QPoint middle = scene.view.fromContent(QPoint(1050, -470));

    QVERIFY((middle - QPoint(200, 150)).manhattanLength() <= 2);
    QVERIFY(!scene.horizontalBar()->isVisible());
    QVERIFY(!scene.verticalBar()->isVisible());
    QCOMPARE(scene.view.viewport()->size(), QSize(400, 300));
}

void tst_DiagramView::largeDiagramBeginsAtItsCorner()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(1000, 2000, 900, 800));
    QVERIFY(scene.show());

    QCOMPARE(scene.view.getViewLocation(), QPoint(950, 1950));
    QVERIFY(scene.horizontalBar()->isVisible());
    QVERIFY(scene.verticalBar()->isVisible());
    QCOMPARE(scene.canvas(), QRect(950, 1950, 1000, 900));
}

void tst_DiagramView::canvasGrowsWithTheContent_data()
{
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("right and down") << QPoint(1500, 900);
    QTest::newRow("left and up") << QPoint(-1500, -900);
    QTest::newRow("left") << QPoint(-700, 20);
}

void tst_DiagramView::canvasGrowsWithTheContent()
{
    QFETCH(QPoint, corner);
    ViewScene scene;
    auto *box = scene.diagram.add(painted<Rectangle>(), QRect(20, 20, 60, 40));
    QVERIFY(scene.show());

    box->setBounds(QRect(corner, QSize(60, 40)));
    scene.settle();

    QVERIFY(scene.canvas().contains(box->getBounds().adjusted(-50, -50, 50, 50)));
    scene.view.reveal(box->getBounds());
    scene.settle();
    const QPoint middle = scene.view.fromContent(box->getBounds().center());
    QVERIFY(scene.view.viewport()->rect().contains(middle));
    QCOMPARE(colorAt(scene.incremental(), middle.x(), middle.y()), QColor(0xd7, 0xe8, 0xfa));
}

void tst_DiagramView::canvasShrinksWithTheContent()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(20, 20, 60, 40));
    auto *far = scene.diagram.add(painted<Rectangle>(), QRect(5000, 20, 60, 40));
    QVERIFY(scene.show());
    const QRect before = scene.canvas();

    scene.diagram.remove(far);
    scene.settle();
    QVERIFY(scene.canvas().width() < before.width() / 4);

    // Paper that is only there to be visible goes when it no longer is.
    scene.view.centerOn(QPointF(3000, 3000));
    QVERIFY(scene.canvas().contains(QPoint(3100, 3100)));
    scene.view.centerOn(QPointF(50, 40));
    QVERIFY(!scene.canvas().contains(QPoint(3100, 3100)));
    QCOMPARE(scene.canvas().size(), QSize(400, 300));
}

void tst_DiagramView::canvasHoldsWhatConnectionsPaint()
{
    ViewScene scene;
    auto *left = scene.diagram.add(painted<Rectangle>(), QRect(20, 20, 60, 40));
    auto *right = scene.diagram.add(painted<Rectangle>(), QRect(220, 20, 60, 40));
    QVERIFY(scene.show());

    PolylineConnection *connection =
        scene.diagram.connect(left, right, Diagram::Routing::Bendpoints);
    scene.diagram.setBendpoints(connection, {QPoint(150, 2000)});
    scene.settle();

    QVERIFY(scene.canvas().contains(QPoint(150, 2040)));
}

void tst_DiagramView::visiblePartStaysWhereItIs_data()
{
    QTest::addColumn<double>("scale");
    for (double scale : {0.3, 0.77, 1.0, 1.25, 3.0})
        QTest::addRow("%g", scale) << scale;
}

// The canvas grows at the left in small steps, and each one is rounded to pixels anew.
void tst_DiagramView::visiblePartStaysWhereItIs()
{
    QFETCH(double, scale);
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 2000, 2000));
    auto *dragged = scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 60, 40));
    QVERIFY(scene.show());
    scene.view.zoomAbout(scale, QPointF(100, 100));
    const QPointF before = scene.view.fromContent(QPointF(77, 55));

    for (int step = 1; step <= 40; ++step) {
        dragged->setBounds(QRect(-step * 7, -step * 5, 60, 40));
        scene.settle();
        const QPointF now = scene.view.fromContent(QPointF(77, 55));
        QVERIFY(qAbs(now.x() - before.x()) <= 1.0);
        QVERIFY(qAbs(now.y() - before.y()) <= 1.0);
    }
}

void tst_DiagramView::canvasWaitsWhileAScrollBarIsDragged()
{
    ViewScene scene;
    auto *box = scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 1000, 1000));
    QVERIFY(scene.show());
    const QRect before = scene.canvas();

    scene.horizontalBar()->setSliderDown(true);
    box->setBounds(QRect(0, 0, 2000, 1000));
    scene.settle();
    QCOMPARE(scene.canvas(), before);
    scene.horizontalBar()->setSliderDown(false);
    scene.settle();

    QCOMPARE(scene.canvas(), before.adjusted(0, 0, 1000, 0));
}

void tst_DiagramView::zoomKeepsThePointUnderTheCursor_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::newRow("centre") << QPointF(200, 150);
    QTest::newRow("corner") << QPointF(0, 0);
    QTest::newRow("somewhere") << QPointF(313, 77);
}

void tst_DiagramView::zoomKeepsThePointUnderTheCursor()
{
    QFETCH(QPointF, position);
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 700, 500));
    QVERIFY(scene.show());
    const QPointF content = scene.view.toContent(position);

    for (double scale : {1.25, 3.7, 16.0, 2.2, 0.9, 0.31, 1.0}) {
        scene.view.zoomAbout(scale, position);
        scene.settle();
        const QPointF now = scene.view.fromContent(content);
        QCOMPARE(scene.view.getScale(), scale);
        QVERIFY2(qAbs(now.x() - position.x()) <= 1.0 && qAbs(now.y() - position.y()) <= 1.0,
                 qPrintable(QString::number(scale)));
    }
}

void tst_DiagramView::zoomedSmallDiagramNeedsNoScrollBars_data()
{
    QTest::addColumn<double>("scale");
    for (double scale : {0.03, 0.3, 0.77, 1.1, 1.31})
        QTest::addRow("%g", scale) << scale;
}

void tst_DiagramView::zoomedSmallDiagramNeedsNoScrollBars()
{
    QFETCH(double, scale);
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(33, 44, 100, 60));
    QVERIFY(scene.show());

    scene.view.zoomAbout(scale, QPointF(200, 150));
    scene.settle();

    QVERIFY(!scene.horizontalBar()->isVisible());
    QVERIFY(!scene.verticalBar()->isVisible());
    QVERIFY(scene.view.getCanvas()->geometry().contains(scene.view.viewport()->rect()));
}

void tst_DiagramView::zoomIsLimited()
{
    ViewScene scene;
    auto *box = scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 100, 100));
    QVERIFY(scene.show());

    scene.view.zoomAbout(1e9, QPointF(200, 150));
    QCOMPARE(scene.view.getScale(), 32.0);
    scene.view.zoomAbout(1e-9, QPointF(200, 150));
    QCOMPARE(scene.view.getScale(), 0.02);
    scene.view.setScaleBounds(0.5, 2.0);
    scene.view.zoomAbout(1e9, QPointF(200, 150));
    QCOMPARE(scene.view.getScale(), 2.0);

    scene.view.setScaleBounds(0.02, 32.0);
    box->setBounds(QRect(0, 0, 3'000'000, 100));
    scene.view.zoomAbout(32, QPointF(200, 150));
    QVERIFY(scene.view.getCanvas()->width() < (1 << 24));
    QVERIFY(scene.view.getScale() < 5);
}

void tst_DiagramView::uselessScalesAreIgnored()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 100, 100));
    QVERIFY(scene.show());

    for (double scale : {0.0, -1.0, qQNaN(), qInf()})
        scene.view.zoomAbout(scale, QPointF(10, 10));

    QCOMPARE(scene.view.getScale(), 1.0);
}

void tst_DiagramView::emptyDiagramZooms()
{
    ViewScene scene;
    QVERIFY(scene.show());
    const QPointF content = scene.view.toContent(QPointF(100, 100));

    scene.view.zoomAbout(2.0, QPointF(100, 100));

    QCOMPARE(scene.view.getScale(), 2.0);
    QCOMPARE(scene.view.fromContent(content).toPoint(), QPoint(100, 100));
    scene.view.zoomToFit();
    QCOMPARE(scene.view.getScale(), 1.0);
}

void tst_DiagramView::everythingFits_data()
{
    QTest::addColumn<QRect>("content");
    QTest::newRow("wide") << QRect(-3000, 200, 6000, 100);
    QTest::newRow("high") << QRect(100, -2000, 40, 9000);
    QTest::newRow("large") << QRect(5000, 5000, 4000, 4000);
}

void tst_DiagramView::everythingFits()
{
    QFETCH(QRect, content);
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), content);
    QVERIFY(scene.show());

    scene.view.zoomToFit();
    scene.settle();

    QVERIFY(scene.view.getScale() < 1.0);
    const QRectF shown = scene.view.fromContent(QRectF(content));
    QVERIFY(QRectF(scene.view.viewport()->rect()).contains(shown));
    QVERIFY((shown.center() - QPointF(200, 150)).manhattanLength() < 4);
    QVERIFY(!scene.horizontalBar()->isVisible());
    QVERIFY(!scene.verticalBar()->isVisible());
}

void tst_DiagramView::smallDiagramIsNotMagnifiedToFit()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 20, 20));
    QVERIFY(scene.show());
    scene.view.zoomAbout(8.0, QPointF(10, 10));

    scene.view.zoomToFit();

    QCOMPARE(scene.view.getScale(), 1.0);
    QVERIFY((scene.view.fromContent(QPoint(10, 10)) - QPoint(200, 150)).manhattanLength() <= 2);
}

void tst_DiagramView::normalScaleKeepsTheCentre()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
    QVERIFY(scene.show());
    scene.view.zoomAbout(0.25, QPointF(0, 0));
    scene.view.centerOn(QPointF(1500, 1200));
    QSignalSpy scaled(&scene.view, &DiagramView::scaleChanged);

    scene.view.zoomToNormal();

    QCOMPARE(scene.view.getScale(), 1.0);
    const QPointF centre = QRectF(scene.view.viewport()->rect()).center();
    QVERIFY((scene.view.toContent(centre) - QPointF(1500, 1200)).manhattanLength() < 12);
    QCOMPARE(scaled.count(), 1);
    QCOMPARE(scaled.at(0).at(0).toDouble(), 1.0);
}

void tst_DiagramView::pointIsCentred()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
    QVERIFY(scene.show());

    scene.view.centerOn(QPointF(-100, 5000));
    scene.settle();

    const QPointF centre = QRectF(scene.view.viewport()->rect()).center();
    QVERIFY((scene.view.toContent(centre) - QPointF(-100, 5000)).manhattanLength() < 20);
}

void tst_DiagramView::rectangleIsRevealed()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
    QVERIFY(scene.show());
    const QPoint before = scene.view.getViewLocation();

    scene.view.reveal(QRect(before + QPoint(10, 10), QSize(50, 50)));
    QCOMPARE(scene.view.getViewLocation(), before);
    scene.view.reveal(QRect(1000, 2000, 100, 100));
    QCOMPARE(scene.view.getViewRect().bottomRight(), QPoint(1099, 2099));
    scene.view.reveal(QRect(500, 600, 100, 100));
    QCOMPARE(scene.view.getViewLocation(), QPoint(500, 600));
    scene.view.reveal(QRect());
    QCOMPARE(scene.view.getViewLocation(), QPoint(500, 600));
    scene.view.reveal(QRect(100, 100, 2000, 2000));
    QCOMPARE(scene.view.getViewLocation(), QPoint(100, 100));
}

void tst_DiagramView::resizedViewKeepsItsCorner()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
    QVERIFY(scene.show());
    scene.view.centerOn(QPointF(2900, 2900));
    const QPoint before = scene.view.getViewLocation();

    scene.view.resize(700, 600);
    scene.settle();
    QCOMPARE(scene.view.getViewLocation(), before);
    QVERIFY(scene.canvas().contains(scene.view.getViewRect()));
    QVERIFY(scene.view.getCanvas()->geometry().contains(scene.view.viewport()->rect()));
    scene.view.resize(300, 200);
    scene.settle();

    QCOMPARE(scene.view.getViewLocation(), before);
}

void tst_DiagramView::diagramShowsInOneView()
{
    ViewScene scene;
    auto *box = scene.diagram.add(painted<Rectangle>(Qt::red), QRect(20, 20, 60, 40));
    QVERIFY(scene.show());
    DiagramView second;
    second.resize(400, 300);

    second.setDiagram(&scene.diagram);
    second.show();
    QVERIFY(QTest::qWaitForWindowExposed(&second));

    QCOMPARE(scene.view.getDiagram(), nullptr);
    QCOMPARE(second.getDiagram(), &scene.diagram);
    QCOMPARE(countPixels(scene.incremental(), Qt::red), 0);
    QVERIFY(countPixels(second.grab().toImage(), Qt::red) > 1000);
    scene.view.setDiagram(&scene.diagram);
    box->setBounds(QRect(30, 20, 60, 40));
    QCOMPARE(second.getDiagram(), nullptr);
    QVERIFY(countPixels(scene.incremental(), Qt::red) > 1000);
}

void tst_DiagramView::exchangedDiagramNoLongerReports()
{
    ViewScene scene;
    auto *box = scene.diagram.add(painted<Rectangle>(), QRect(20, 20, 60, 40));
    QVERIFY(scene.show());
    Diagram next;
    const QSignalSpy changed(&scene.view, &DiagramView::diagramChanged);
    scene.view.setDiagram(&next);
    QCOMPARE(changed.count(), 1);
    scene.settle();
    const QSignalSpy damaged(&scene.view, &DiagramView::contentDamaged);

    box->setBounds(QRect(100, 100, 60, 40));
    scene.settle();

    QCOMPARE(damaged.count(), 0);
}

void tst_DiagramView::nullShowsNothing()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(Qt::red), QRect(20, 20, 60, 40));
    QVERIFY(scene.show());

    scene.view.setDiagram(nullptr);

    QCOMPARE(scene.view.getDiagram(), nullptr);
    QCOMPARE(countPixels(scene.incremental(), Qt::red), 0);
    scene.view.zoomToFit();
    scene.view.zoomIn();
    scene.view.centerOn(QPointF(100, 100));
    scene.settle();
}

void tst_DiagramView::damageIsReported()
{
    ViewScene scene;
    auto *box = scene.diagram.add(painted<Rectangle>(), QRect(20, 20, 60, 40));
    QVERIFY(scene.show());
    QRegion damage;
    connect(&scene.view, &DiagramView::contentDamaged, this,
            [&](const QRect &rect) { damage |= rect; });

    box->setEnabledBGColor(Qt::red);
    QVERIFY(damage.boundingRect().contains(box->getBounds()));
    QVERIFY(damage.boundingRect().width() < 80);
    box->setBounds(QRect(120, 20, 60, 40));
    QVERIFY(damage.boundingRect().contains(QRect(20, 20, 160, 40)));
    disconnect(&scene.view, nullptr, this, nullptr);
}

void tst_DiagramView::scrollingIsNoDamage()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
    QVERIFY(scene.show());
    const QSignalSpy damaged(&scene.view, &DiagramView::contentDamaged);
    const QSignalSpy viewed(&scene.view, &DiagramView::viewChanged);

    scene.horizontalBar()->setValue(100);
    scene.view.zoomIn();
    scene.view.centerOn(QPointF(500, 500));
    scene.view.resize(500, 200);
    scene.incremental();

    QCOMPARE(damaged.count(), 0);
    QVERIFY(viewed.count() >= 4);
}

// What validates the figures makes connections stale, and the manager forgets what it hears then.
void tst_DiagramView::hiddenConnectionsAreRoutedBeforeThePaint()
{
    ViewScene scene;
    auto *text = scene.diagram.add(new TextFigure(QStringLiteral("a")), QRect(20, 20, -1, -1));
    auto *box = scene.diagram.add(painted<Rectangle>(), QRect(20, 120, 60, 40));
    PolylineConnection *connection = scene.diagram.connect(box, text);
    QVERIFY(scene.show());
    const QPoint before = connection->getPoints().constLast();

    text->setText(QStringLiteral("much longer than before, so that its middle moves"));
    scene.incremental();

    QVERIFY(connection->getPoints().constLast() != before);
    QVERIFY(text->getBounds().adjusted(-2, -2, 2, 2).contains(connection->getPoints().constLast()));
}

void tst_DiagramView::gridStaysInTheBackground_data()
{
    QTest::addColumn<QColor>("paper");
    QTest::newRow("light") << QColor(Qt::white);
    QTest::newRow("dark") << QColor(0x1d, 0x21, 0x25);
}

void tst_DiagramView::gridStaysInTheBackground()
{
    QFETCH(QColor, paper);
    ViewScene scene;
    scene.view.getCanvas()->setProperty("backgroundColor", paper);
    scene.diagram.getPane()->setSnapSize(10);
    scene.diagram.getPane()->setDrawGrid(true);
    QVERIFY(scene.show());

    const QImage image = scene.full();

    int contrast = 0;
    for (int x = 0; x < image.width(); ++x)
        contrast = qMax(contrast, qAbs(qGray(image.pixel(x, 25)) - qGray(paper.rgb())));
    QVERIFY2(contrast > 15 && contrast < 110, qPrintable(QString::number(contrast)));
}

QTEST_MAIN(tst_DiagramView)
#include "tst_diagramview.moc"
