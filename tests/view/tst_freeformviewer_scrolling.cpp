#include "scene.h"

#include <QResizeEvent>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

void releaseSlider(QScrollBar *bar)
{
    bar->setSliderDown(true);
    bar->setSliderDown(false);
}

} // namespace

class tst_FreeformViewerScrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void viewIsMovedToTheLocationAtOnce_data();
    void viewIsMovedToTheLocationAtOnce();
    void movingTheViewGrowsTheContentWithoutMargins();
    void movingTheViewInsideTheBoundsLeavesThemAlone();
    void movingTheViewAtAScaleRoundsToPixels();
    void queuedMoveWaitsForTheEventLoop();
    void queuedMoveSeesTheSizeOfItsTime();
    void queuedMoveOfDestroyedViewerIsForgotten();
    void viewIsMovedThroughTheInterface();
    void movingTheViewRepaintsTheHighlight_data();
    void movingTheViewRepaintsTheHighlight();
    void resizeRepaintsTheHighlight_data();
    void resizeRepaintsTheHighlight();

    void scrollBarsSpanTheWidgetAfterZoom();
    void visibleScrollBarsAreReadyAfterZoom();
    void scrollingMovesTheWidget();

    void resizeGrowsTheContentToCoverTheViewport();
    void resizeDoesNotShrinkTheContent();
    void resizeAtAScaleCoversTheViewport();
    void showingTheViewerGivesTheContentItsFirstBounds();

    void releasedSliderShrinksTheContent_data();
    void releasedSliderShrinksTheContent();
    void releasedSliderKeepsTheVisiblePart();
    void slidingAloneShrinksNothing();
    void changeOfTheExtentDoesNotGrowTheCanvas();
};

void tst_FreeformViewerScrolling::viewIsMovedToTheLocationAtOnce_data()
{
    QTest::addColumn<QPoint>("location");
    QTest::newRow("right and down") << QPoint(120, 80);
    QTest::newRow("left and up") << QPoint(-120, -80);
    QTest::newRow("far away") << QPoint(5000, -7000);
    QTest::newRow("where it is") << QPoint(0, 0);
}

void tst_FreeformViewerScrolling::viewIsMovedToTheLocationAtOnce()
{
    QFETCH(QPoint, location);
    Scene scene;
    QVERIFY(scene.show());

    scene.viewer.setViewLocation(location, false);

    QCOMPARE(scene.viewer.getViewLocation(), location);
    QCOMPARE(scene.viewer.getViewRect(), QRect(location, QSize(400, 300)));
    QVERIFY(scene.pane.getBounds().contains(scene.viewer.getViewRect()));
}

void tst_FreeformViewerScrolling::movingTheViewGrowsTheContentWithoutMargins()
{
    Scene scene;
    QVERIFY(scene.show());

    scene.viewer.setViewLocation(QPoint(-30, 40));

    QCOMPARE(scene.pane.getBounds(), QRect(-30, 0, 430, 340));
    QCOMPARE(scene.widget()->size(), QSize(430, 340));
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(-30, 0));
    QCOMPARE(scene.scrollOffset(), QPoint(0, 40));
    QCOMPARE(scene.widget()->pos(), QPoint(0, -40));
}

void tst_FreeformViewerScrolling::movingTheViewInsideTheBoundsLeavesThemAlone()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.widget()->ensureViewable(QRect(-500, -500, 2000, 2000), false, true);
    scene.pane.freeformBounds.clear();

    scene.viewer.setViewLocation(QPoint(-500, 1200));

    QVERIFY(scene.pane.freeformBounds.isEmpty());
    QCOMPARE(scene.scrollOffset(), QPoint(0, 1700));
}

void tst_FreeformViewerScrolling::movingTheViewAtAScaleRoundsToPixels()
{
    Scene scene;
    QPoint topLeft;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 4001, 3001);
    scene.viewer.setScale(0.5, &topLeft);
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(-50, -50));

    scene.viewer.setViewLocation(QPoint(101, 204));

    // (151, 254) / 2: a half goes away from zero.
    QCOMPARE(scene.scrollOffset(), QPoint(76, 127));
}

void tst_FreeformViewerScrolling::queuedMoveWaitsForTheEventLoop()
{
    Scene scene;
    QVERIFY(scene.show());

    scene.viewer.setViewLocation(QPoint(120, 80), true);
    QCOMPARE(scene.viewer.getViewLocation(), QPoint(0, 0));
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 400, 300));

    QCoreApplication::processEvents();
    QCOMPARE(scene.viewer.getViewLocation(), QPoint(120, 80));
}

// It is there for widgets whose size is about to change.
void tst_FreeformViewerScrolling::queuedMoveSeesTheSizeOfItsTime()
{
    Scene scene;
    QVERIFY(scene.show());

    scene.viewer.setViewLocation(QPoint(120, 80), true);
    scene.viewer.resize(500, 350);
    QCoreApplication::processEvents();

    QCOMPARE(scene.viewer.getViewRect(), QRect(120, 80, 500, 350));
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 620, 430));
}

void tst_FreeformViewerScrolling::queuedMoveOfDestroyedViewerIsForgotten()
{
    FreeformLayeredPane pane;
    auto viewer = std::make_unique<FreeformViewer>();
    viewer->setContent(&pane);
    viewer->setViewLocation(QPoint(120, 80), true);

    viewer.reset();
    QCoreApplication::processEvents();

    QVERIFY(!pane.getBounds().isValid());
}

void tst_FreeformViewerScrolling::viewIsMovedThroughTheInterface()
{
    Scene scene;
    QVERIFY(scene.show());
    IViewport *viewport = &scene.viewer;

    viewport->setViewLocation(QPoint(120, 80), false);

    QCOMPARE(viewport->getViewLocation(), QPoint(120, 80));
}

void tst_FreeformViewerScrolling::movingTheViewRepaintsTheHighlight_data()
{
    QTest::addColumn<bool>("highlighted");
    QTest::addColumn<int>("expected");
    QTest::newRow("highlighted") << true << 1;
    QTest::newRow("not highlighted") << false << 0;
}

void tst_FreeformViewerScrolling::movingTheViewRepaintsTheHighlight()
{
    QFETCH(bool, highlighted);
    QFETCH(int, expected);
    Scene scene;
    scene.viewer.setHighlighted(highlighted);
    QVERIFY(scene.show());
    EventCounter paints(scene.widget(), QEvent::Paint);

    // To where it is, so that scrolling asks for no paint of its own.
    scene.viewer.setViewLocation(QPoint(0, 0));

    QCOMPARE(paints.count, expected);
}

void tst_FreeformViewerScrolling::resizeRepaintsTheHighlight_data()
{
    movingTheViewRepaintsTheHighlight_data();
}

void tst_FreeformViewerScrolling::resizeRepaintsTheHighlight()
{
    QFETCH(bool, highlighted);
    QFETCH(int, expected);
    Scene scene;
    scene.viewer.setHighlighted(highlighted);
    QVERIFY(scene.show());
    EventCounter paints(scene.widget(), QEvent::Paint);

    // To the size it has, so that nothing else asks for a paint.
    const QSize size = scene.viewer.viewport()->size();
    QResizeEvent event(size, size);
    QCoreApplication::sendEvent(scene.viewer.viewport(), &event);
    QCoreApplication::processEvents();

    QCOMPARE(paints.count, expected);
}

void tst_FreeformViewerScrolling::scrollBarsSpanTheWidgetAfterZoom()
{
    Scene scene;
    QPoint topLeft(100, 120);
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);

    scene.viewer.setScale(3, &topLeft);

    QCOMPARE(scene.widget()->size(), QSize(2100, 1500));
    QCOMPARE(scene.horizontalBar()->minimum(), 0);
    QCOMPARE(scene.verticalBar()->minimum(), 0);
    QCOMPARE(scene.horizontalBar()->maximum(), 1700);
    QCOMPARE(scene.verticalBar()->maximum(), 1200);
    QCOMPARE(scene.horizontalBar()->pageStep(), 400);
    QCOMPARE(scene.verticalBar()->pageStep(), 300);
    QCOMPARE(scene.scrollOffset(), QPoint(450, 510));
    QCOMPARE(scene.widget()->pos(), QPoint(-450, -510));
}

// Bars that come up take room from the viewport, which then may show still more of the content.
void tst_FreeformViewerScrolling::visibleScrollBarsAreReadyAfterZoom()
{
    Scene scene;
    scene.viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    scene.viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    scene.addFigure(QRect(0, 0, 600, 400), Qt::red);
    QVERIFY(scene.show());

    scene.viewer.setScale(3);
    QCoreApplication::processEvents();

    const QSize widget = scene.widget()->size();
    const QSize viewport = scene.viewer.viewport()->size();
    QVERIFY(scene.horizontalBar()->isVisible());
    QVERIFY(scene.verticalBar()->isVisible());
    QVERIFY(viewport.width() < 400);
    QCOMPARE(scene.horizontalBar()->maximum(), widget.width() - viewport.width());
    QCOMPARE(scene.verticalBar()->maximum(), widget.height() - viewport.height());
    QCOMPARE(scene.horizontalBar()->pageStep(), viewport.width());
    QCOMPARE(scene.verticalBar()->pageStep(), viewport.height());
    QCOMPARE(scene.widget()->pos(), -scene.scrollOffset());
    QVERIFY(scene.pane.getBounds().contains(scene.viewer.getViewRect()));
}

void tst_FreeformViewerScrolling::scrollingMovesTheWidget()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.widget()->ensureViewable(QRect(0, 0, 2000, 2000), false, true);

    scene.scrollTo(QPoint(70, 90));

    QCOMPARE(scene.widget()->pos(), QPoint(-70, -90));
    QCOMPARE(scene.viewer.getViewRect(), QRect(70, 90, 400, 300));
}

void tst_FreeformViewerScrolling::resizeGrowsTheContentToCoverTheViewport()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.viewer.setViewLocation(QPoint(30, 40));
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 430, 340));

    scene.viewer.resize(600, 500);

    QCOMPARE(scene.viewer.viewport()->size(), QSize(600, 500));
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 630, 540));
    QCOMPARE(scene.widget()->size(), QSize(630, 540));
    QCOMPARE(scene.viewer.getViewRect(), QRect(30, 40, 600, 500));
}

void tst_FreeformViewerScrolling::resizeDoesNotShrinkTheContent()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.freeformBounds.clear();

    scene.viewer.resize(350, 250);

    QVERIFY(scene.pane.freeformBounds.isEmpty());
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(scene.horizontalBar()->maximum(), 50);
    QCOMPARE(scene.verticalBar()->maximum(), 50);
}

void tst_FreeformViewerScrolling::resizeAtAScaleCoversTheViewport()
{
    Scene scene;
    QPoint topLeft;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 300, 200);
    scene.viewer.setScale(0.5, &topLeft);
    QCOMPARE(scene.pane.getBounds(), QRect(-50, -50, 850, 650));

    scene.viewer.resize(500, 400);

    QCOMPARE(scene.pane.getBounds(), QRect(-50, -50, 1050, 850));
    QCOMPARE(scene.widget()->size(), QSize(525, 425));
}

void tst_FreeformViewerScrolling::showingTheViewerGivesTheContentItsFirstBounds()
{
    Scene scene;
    QVERIFY(!scene.pane.getBounds().isValid());

    QVERIFY(scene.show());

    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(scene.layer.getBounds(), QRect(0, 0, 400, 300));
}

void tst_FreeformViewerScrolling::releasedSliderShrinksTheContent_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::newRow("horizontal") << Qt::Horizontal;
    QTest::newRow("vertical") << Qt::Vertical;
}

void tst_FreeformViewerScrolling::releasedSliderShrinksTheContent()
{
    QFETCH(Qt::Orientation, orientation);
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(100, 100, 500, 400);
    scene.widget()->ensureViewable(QRect(-1000, -1000, 5000, 5000), false, true);
    scene.viewer.setViewLocation(QPoint(100, 90));

    releaseSlider(orientation == Qt::Horizontal ? scene.horizontalBar() : scene.verticalBar());

    QCOMPARE(scene.pane.getBounds(), QRect(50, 50, 600, 500));
    QCOMPARE(scene.widget()->size(), QSize(600, 500));
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(50, 50));
}

void tst_FreeformViewerScrolling::releasedSliderKeepsTheVisiblePart()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(100, 100, 500, 400);
    scene.widget()->ensureViewable(QRect(-1000, -1000, 5000, 5000), false, true);
    scene.viewer.setViewLocation(QPoint(-200, -100));

    releaseSlider(scene.horizontalBar());

    QCOMPARE(scene.pane.getBounds(), QRect(-200, -100, 850, 650));
}

void tst_FreeformViewerScrolling::slidingAloneShrinksNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(100, 100, 500, 400);
    scene.widget()->ensureViewable(QRect(-1000, -1000, 5000, 5000), false, true);

    scene.horizontalBar()->setSliderDown(true);
    scene.horizontalBar()->setSliderPosition(700);
    scene.verticalBar()->setValue(300);

    QCOMPARE(scene.pane.getBounds(), QRect(-1000, -1000, 5000, 5000));
}

// The canvas follows zooming, scrolling and resizing only, on purpose.
void tst_FreeformViewerScrolling::changeOfTheExtentDoesNotGrowTheCanvas()
{
    Scene scene;
    Figure *figure = scene.addFigure(QRect(10, 10, 20, 20), Qt::red);
    QVERIFY(scene.show());
    QCOMPARE(scene.pane.getFreeformExtent(), QRect(10, 10, 20, 20));

    figure->setBounds(QRect(1000, 1000, 20, 20));
    QCoreApplication::processEvents();

    QCOMPARE(scene.pane.getFreeformExtent(), QRect(1000, 1000, 20, 20));
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(scene.widget()->size(), QSize(400, 300));
}

QTEST_MAIN(tst_FreeformViewerScrolling)
#include "tst_freeformviewer_scrolling.moc"
