#include "view_fixtures.h"

#include <figura/view/UpdateManager.h>

#include <QSignalSpy>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// Names the protected operations of a pane.
class OpenPane : public FreeformLayeredPane
{
public:
    using FreeformLayeredPane::drawBackground;
    using FreeformLayeredPane::drawMainGrid;
    using FreeformLayeredPane::drawSubGrid;
};

} // namespace

class tst_DiagramViewStates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void sameDiagramIsNoChange();
    void viewWithoutAManagerKeepsItsPlace();
    void viewWithoutAContentReportsNothing();
    void ordinaryPaneIsZoomedToo();
    void shownAgainAViewIsWhereItWas();
    void draggedScrollBarKeepsItsRange_data();
    void draggedScrollBarKeepsItsRange();
    void largeAreaIsRevealedFromItsBeginning_data();
    void largeAreaIsRevealedFromItsBeginning();
    void gridIsPaintedWithoutAView();
    void gridOfAnEmptyViewIsAsOnAnyPane();
    void missingPainterPaintsNothing();
    void layersMayLieBeneathOthers_data();
    void layersMayLieBeneathOthers();
    void plainLayerNeedsNoBounds();
    void layersStayWhereTheyAre();
};

void tst_DiagramViewStates::sameDiagramIsNoChange()
{
    Diagram diagram;
    DiagramView view(&diagram);
    const QSignalSpy changed(&view, &DiagramView::diagramChanged);

    view.setDiagram(&diagram);

    QCOMPARE(changed.count(), 0);
    QCOMPARE(view.getContent(), diagram.getPane());
}

void tst_DiagramViewStates::viewWithoutAManagerKeepsItsPlace()
{
    ViewScene scene;
    auto *box = scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
    QVERIFY(scene.show());
    scene.view.centerOn(QPointF(1500, 1500));
    const QPoint before = scene.view.getViewLocation();

    scene.view.setUpdateManager(nullptr);
    scene.view.update();
    scene.settle();

    QCOMPARE(scene.view.getUpdateManager(), nullptr);
    QCOMPARE(scene.view.getViewLocation(), before);
    QCOMPARE(box->getBounds(), QRect(0, 0, 3000, 3000));
}

void tst_DiagramViewStates::viewWithoutAContentReportsNothing()
{
    ViewScene scene;
    auto *pane = new FreeformLayeredPane;
    QVERIFY(scene.show());
    scene.view.setContent(pane);
    delete pane;
    const QSignalSpy damaged(&scene.view, &DiagramView::contentDamaged);

    scene.view.update();
    scene.view.zoomAbout(0.5, QPointF(0, 0));
    scene.view.zoomToFit();
    scene.settle();

    QCOMPARE(scene.view.getContent(), nullptr);
    QCOMPARE(scene.view.getScale(), 1.0);
    QCOMPARE(damaged.count(), 0);
}

void tst_DiagramViewStates::ordinaryPaneIsZoomedToo()
{
    FreeformLayeredPane pane;
    FreeformLayer layer;
    Figure figure(nullptr, Qt::red);
    pane.addLayer(&layer, QStringLiteral("layer"));
    layer.add(&figure, QRect(0, 0, 100, 100));
    ViewScene scene;
    QVERIFY(scene.show());
    QVERIFY(scene.view.setContent(&pane));
    const QPointF position(10, 10);
    const QPointF content = scene.view.toContent(position);

    scene.view.zoomAbout(2.0, position);

    QCOMPARE(scene.view.getScale(), 2.0);
    QVERIFY((scene.view.fromContent(content) - position).manhattanLength() <= 2.0);
}

void tst_DiagramViewStates::shownAgainAViewIsWhereItWas()
{
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
    QVERIFY(scene.show());
    scene.view.centerOn(QPointF(1500, 1500));
    const QPoint before = scene.view.getViewLocation();

    scene.view.hide();
    QVERIFY(scene.show());

    QCOMPARE(scene.view.getViewLocation(), before);
}

void tst_DiagramViewStates::draggedScrollBarKeepsItsRange_data()
{
    QTest::addColumn<bool>("horizontal");
    QTest::newRow("horizontal") << true;
    QTest::newRow("vertical") << false;
}

void tst_DiagramViewStates::draggedScrollBarKeepsItsRange()
{
    QFETCH(bool, horizontal);
    ViewScene scene;
    auto *box = scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
    QVERIFY(scene.show());
    QScrollBar *bar = horizontal ? scene.horizontalBar() : scene.verticalBar();
    const int before = bar->maximum();

    bar->setSliderDown(true);
    box->setBounds(QRect(0, 0, 5000, 5000));
    scene.settle();
    QCOMPARE(bar->maximum(), before);
    bar->setSliderDown(false);
    scene.settle();

    QVERIFY(bar->maximum() > before);
}

void tst_DiagramViewStates::largeAreaIsRevealedFromItsBeginning_data()
{
    QTest::addColumn<QRect>("area");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("too wide") << QRect(1600, 1500, 900, 10) << QPoint(1600, 1400);
    QTest::newRow("too high") << QRect(1500, 1600, 10, 900) << QPoint(1400, 1600);
    QTest::newRow("left of it") << QRect(1300, 1500, 10, 10) << QPoint(1300, 1400);
    QTest::newRow("above it") << QRect(1500, 1300, 10, 10) << QPoint(1400, 1300);
}

void tst_DiagramViewStates::largeAreaIsRevealedFromItsBeginning()
{
    QFETCH(QRect, area);
    QFETCH(QPoint, corner);
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
    QVERIFY(scene.show());
    scene.view.centerOn(QPointF(1400, 1400) +
                        QPointF(QSizeF(scene.view.viewport()->size()).width() / 2.0,
                                QSizeF(scene.view.viewport()->size()).height() / 2.0));
    QCOMPARE(scene.view.getViewLocation(), QPoint(1400, 1400));

    scene.view.reveal(area);

    QCOMPARE(scene.view.getViewLocation(), corner);
}

void tst_DiagramViewStates::gridIsPaintedWithoutAView()
{
    Diagram diagram;
    FreeformLayeredPane *pane = diagram.getPane();
    pane->setDrawGrid(true);
    pane->setBounds(QRect(0, 0, 100, 100));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 100, 100);

    const QImage image =
        paintedImage(QSize(100, 100), [&](QPainter *painter) { pane->render(painter, option); });

    QVERIFY(countPixels(image, Qt::gray) > 0); // as dark as it is on a white paper
}

void tst_DiagramViewStates::gridOfAnEmptyViewIsAsOnAnyPane()
{
    const DiagramView view;
    auto *pane = qobject_cast<FreeformLayeredPane *>(view.getContent());
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 60, 60);

    const QImage image = paintedImage(QSize(60, 60), [&](QPainter *painter) {
        (pane->*&OpenPane::drawMainGrid)(painter, option);
    });

    QVERIFY(countPixels(image, Qt::gray) > 0);
}

void tst_DiagramViewStates::missingPainterPaintsNothing()
{
    Diagram diagram;
    auto *box = diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    FreeformLayeredPane *pane = diagram.getPane();
    pane->setDrawGrid(true);
    const QStyleOptionViewItem option;
    const QRect before = pane->getBounds();

    diagram.render(nullptr, QRect(0, 0, 500, 500));
    diagram.render(nullptr, QRect(0, 0, 500, 500), {box});
    pane->render(nullptr, option);
    (pane->*&OpenPane::drawBackground)(nullptr, option);
    (pane->*&OpenPane::drawMainGrid)(nullptr, option);
    (pane->*&OpenPane::drawSubGrid)(nullptr, option);

    QCOMPARE(pane->getBounds(), before);
    QCOMPARE(colorAt(picture(diagram), 20, 20), box->getEnabledBGColor());
}

void tst_DiagramViewStates::layersMayLieBeneathOthers_data()
{
    QTest::addColumn<bool>("beneath");
    QTest::newRow("beneath the figures") << true;
    QTest::newRow("above the figures") << false;
}

void tst_DiagramViewStates::layersMayLieBeneathOthers()
{
    QFETCH(bool, beneath);
    ViewScene scene;
    scene.diagram.add(painted<Rectangle>(Qt::red), QRect(0, 0, 100, 100));
    QVERIFY(scene.show());
    auto *layer = new FreeformLayer(&scene.diagram);
    layer->add(new Figure(layer, Qt::green), QRect(50, 50, 100, 100));

    FreeformLayeredPane *pane = scene.diagram.getPane();
    if (beneath)
        pane->addLayerBeneath(layer, QStringLiteral("late"), scene.diagram.getFigureLayer());
    else
        pane->addLayerAbove(layer, QStringLiteral("late"), scene.diagram.getFigureLayer());

    QCOMPARE(pane->childFigures().indexOf(layer), beneath ? 0 : 1);
    const QPoint common = scene.view.fromContent(QPoint(75, 75));
    const QPoint alone = scene.view.fromContent(QPoint(125, 125));
    QCOMPARE(colorAt(scene.full(), common.x(), common.y()), QColor(beneath ? Qt::red : Qt::green));
    QCOMPARE(colorAt(scene.full(), alone.x(), alone.y()), QColor(Qt::green));
}

void tst_DiagramViewStates::plainLayerNeedsNoBounds()
{
    Diagram diagram;
    auto *layer = new Layer(&diagram);

    diagram.getPane()->addLayer(layer, QStringLiteral("plain"));

    QCOMPARE(diagram.getPane()->getLayer(QStringLiteral("plain")), layer);
    QCOMPARE(layer->getBounds(), QRect());
}

void tst_DiagramViewStates::layersStayWhereTheyAre()
{
    Diagram diagram;
    auto *box = diagram.add(new Rectangle, QRect(10, 10, 40, 40));
    for (FreeformLayer *layer :
         {static_cast<FreeformLayer *>(diagram.getFigureLayer()), diagram.getFeedbackLayer()}) {
        const QRect before = layer->getBounds();

        layer->translate(5, 5);

        QCOMPARE(layer->getBounds(), before);
    }
    diagram.getConnectionLayer()->translate(5, 5);
    diagram.getPane()->translate(5, 5);
    QCOMPARE(box->getBounds(), QRect(10, 10, 40, 40));
}

QTEST_MAIN(tst_DiagramViewStates)
#include "tst_diagramview_states.moc"
