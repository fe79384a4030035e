#include "scene.h"

#include <QPaintEvent>
#include <QRandomGenerator>
#include <QTest>

#include <cmath>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Shown at a scale, with the point at origin at (-50, -50), and scrolled.
class ScrolledScene : public Scene
{
public:
    ScrolledScene(double scale, const QPoint &scroll)
    {
        QPoint topLeft;
        pane.extent = QRect(0, 0, 4000, 3000);
        isShown = show();
        viewer.setScale(scale, &topLeft);
        scrollTo(scroll);
    }

    bool isShown = false;
};

// Collects what is painted of a widget.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget *widget) { widget->installEventFilter(this); }

    QRegion region;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
};

} // namespace

class tst_FreeformViewerCoordinates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void contentAndViewportAreTheSameAtFirst();
    void pointsFollowScaleOriginAndScrollValues_data();
    void pointsFollowScaleOriginAndScrollValues();
    void integerPointsRoundHalvesAwayFromZero_data();
    void integerPointsRoundHalvesAwayFromZero();
    void rectanglesAreMappedAsTheirCorners();
    void integerRectanglesAreMappedAsFloatingOnesAndRoundedThen_data();
    void integerRectanglesAreMappedAsFloatingOnesAndRoundedThen();
    void mappingThereAndBackIsTheIdentity();
    void viewRectIsTheVisibleContent();
    void viewLocationIsTheContentAtTheTopLeftPixel_data();
    void viewLocationIsTheContentAtTheTopLeftPixel();
    void globalPointsAreThoseOfTheScrolledWidget();
    void damagedContentIsUpdatedOnTheWidget_data();
    void damagedContentIsUpdatedOnTheWidget();
    void invalidRectangleUpdatesNothing();
    void mappingIsThatOfTheViewportAsInterface();
};

void tst_FreeformViewerCoordinates::contentAndViewportAreTheSameAtFirst()
{
    FreeformViewer viewer;

    QCOMPARE(viewer.toContent(QPoint(7, -9)), QPoint(7, -9));
    QCOMPARE(viewer.fromContent(QRectF(1.5, 2.5, 3, 4)), QRectF(1.5, 2.5, 3, 4));
    QCOMPARE(viewer.getViewLocation(), QPoint(0, 0));
}

void tst_FreeformViewerCoordinates::pointsFollowScaleOriginAndScrollValues_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QPoint>("scroll");
    QTest::addColumn<QPoint>("viewportPoint");
    QTest::addColumn<QPointF>("content");

    QTest::newRow("scale 2") << 2.0 << QPoint(100, 40) << QPoint(10, 10) << QPointF(5, -25);
    QTest::newRow("scale 2, odd") << 2.0 << QPoint(100, 40) << QPoint(11, 13)
                                  << QPointF(5.5, -23.5);
    QTest::newRow("scale 2, unscrolled")
        << 2.0 << QPoint(0, 0) << QPoint(0, 0) << QPointF(-50, -50);
    QTest::newRow("scale 0.5") << 0.5 << QPoint(30, 20) << QPoint(15, 5) << QPointF(40, 0);
    QTest::newRow("above and left of the viewport")
        << 4.0 << QPoint(100, 40) << QPoint(-104, -48) << QPointF(-51, -52);
}

void tst_FreeformViewerCoordinates::pointsFollowScaleOriginAndScrollValues()
{
    QFETCH(double, scale);
    QFETCH(QPoint, scroll);
    QFETCH(QPoint, viewportPoint);
    QFETCH(QPointF, content);
    ScrolledScene scene(scale, scroll);
    QVERIFY(scene.isShown);
    QCOMPARE(scene.scrollOffset(), scroll);
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(-50, -50));

    QCOMPARE(scene.viewer.toContent(QPointF(viewportPoint)), content);
    QCOMPARE(scene.viewer.fromContent(content), QPointF(viewportPoint));
}

void tst_FreeformViewerCoordinates::integerPointsRoundHalvesAwayFromZero_data()
{
    QTest::addColumn<QPoint>("viewportPoint");
    QTest::addColumn<QPoint>("content");

    QTest::newRow("positive half") << QPoint(11, 91) << QPoint(6, 16);    // 5.5, 15.5
    QTest::newRow("negative half") << QPoint(-5, 13) << QPoint(-3, -24);  // -2.5, -23.5
    QTest::newRow("half below zero") << QPoint(-1, 59) << QPoint(-1, -1); // -0.5, -0.5
    QTest::newRow("half above zero") << QPoint(1, 61) << QPoint(1, 1);    // 0.5, 0.5
    QTest::newRow("whole") << QPoint(10, 10) << QPoint(5, -25);
}

void tst_FreeformViewerCoordinates::integerPointsRoundHalvesAwayFromZero()
{
    QFETCH(QPoint, viewportPoint);
    QFETCH(QPoint, content);
    ScrolledScene scene(2, QPoint(100, 40));
    QVERIFY(scene.isShown);

    QCOMPARE(scene.viewer.toContent(viewportPoint), content);

    // At half the scale it is the way back that meets halves.
    scene.widget()->setScale(0.5);
    scene.widget()->setPointAtOrigin(QPoint(0, 0));
    scene.scrollTo(QPoint(0, 0));
    QCOMPARE(scene.viewer.fromContent(QPoint(11, -5)), QPoint(6, -3));
    QCOMPARE(scene.viewer.fromContent(QPoint(-1, 1)), QPoint(-1, 1));
}

void tst_FreeformViewerCoordinates::rectanglesAreMappedAsTheirCorners()
{
    ScrolledScene scene(2, QPoint(100, 40));
    QVERIFY(scene.isShown);

    QCOMPARE(scene.viewer.toContent(QRectF(10, 10, 7, 5)), QRectF(5, -25, 3.5, 2.5));
    QCOMPARE(scene.viewer.fromContent(QRectF(5, -25, 3.5, 2.5)), QRectF(10, 10, 7, 5));
}

void tst_FreeformViewerCoordinates::integerRectanglesAreMappedAsFloatingOnesAndRoundedThen_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QRect>("content");
    QTest::newRow("scale 0.5, odd") << 0.5 << QRect(1, 1, 3, 3);
    QTest::newRow("scale 0.5, negative") << 0.5 << QRect(-31, -33, 5, 7);
    QTest::newRow("scale 3") << 3.0 << QRect(10, 20, 30, 40);
    QTest::newRow("scale 1.3") << 1.3 << QRect(-7, 77, 33, 44);
}

void tst_FreeformViewerCoordinates::integerRectanglesAreMappedAsFloatingOnesAndRoundedThen()
{
    QFETCH(double, scale);
    QFETCH(QRect, content);
    ScrolledScene scene(scale, QPoint(0, 0));
    QVERIFY(scene.isShown);

    QCOMPARE(scene.viewer.fromContent(content), scene.viewer.fromContent(QRectF(content)).toRect());
    QCOMPARE(scene.viewer.toContent(content), scene.viewer.toContent(QRectF(content)).toRect());
}

void tst_FreeformViewerCoordinates::mappingThereAndBackIsTheIdentity()
{
    ScrolledScene scene(1.7, QPoint(333, 222));
    QVERIFY(scene.isShown);
    QRandomGenerator random(4711);

    for (int i = 0; i < 100; ++i) {
        const QPointF point(random.bounded(2000.0) - 1000, random.bounded(2000.0) - 1000);
        const QPointF back = scene.viewer.toContent(scene.viewer.fromContent(point));
        QVERIFY(std::abs(back.x() - point.x()) < 1e-9);
        QVERIFY(std::abs(back.y() - point.y()) < 1e-9);
    }
}

void tst_FreeformViewerCoordinates::viewRectIsTheVisibleContent()
{
    ScrolledScene scene(2, QPoint(100, 40));
    QVERIFY(scene.isShown);

    QCOMPARE(scene.viewer.getViewRect(), QRect(0, -30, 200, 150));

    scene.scrollTo(QPoint(101, 41));
    QCOMPARE(scene.viewer.getViewRect(), QRectF(0.5, -29.5, 200, 150).toRect());
}

void tst_FreeformViewerCoordinates::viewLocationIsTheContentAtTheTopLeftPixel_data()
{
    QTest::addColumn<QPoint>("scroll");
    QTest::addColumn<QPoint>("location");
    QTest::newRow("whole") << QPoint(100, 40) << QPoint(0, -30);
    QTest::newRow("halves") << QPoint(111, 13) << QPoint(6, -44); // 5.5, -43.5
}

void tst_FreeformViewerCoordinates::viewLocationIsTheContentAtTheTopLeftPixel()
{
    QFETCH(QPoint, scroll);
    QFETCH(QPoint, location);
    ScrolledScene scene(2, scroll);
    QVERIFY(scene.isShown);

    QCOMPARE(scene.viewer.getViewLocation(), location);
}

void tst_FreeformViewerCoordinates::globalPointsAreThoseOfTheScrolledWidget()
{
    ScrolledScene scene(2, QPoint(100, 40));
    QVERIFY(scene.isShown);
    const QPoint corner = scene.viewer.viewport()->mapToGlobal(QPoint(0, 0));

    QCOMPARE(scene.viewer.toGlobal(QPoint(100, 40)), corner);
    QCOMPARE(scene.viewer.fromGlobal(corner), QPoint(100, 40));
    QCOMPARE(scene.viewer.toGlobal(QPoint(107, 49)), corner + QPoint(7, 9));
}

void tst_FreeformViewerCoordinates::damagedContentIsUpdatedOnTheWidget_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QRect>("content");
    QTest::newRow("scale 1") << 1.0 << QRect(0, 0, 30, 40);
    QTest::newRow("scale 2") << 2.0 << QRect(5, 6, 30, 40);
    QTest::newRow("scale 1.3") << 1.3 << QRect(5, 6, 33, 44);
}

void tst_FreeformViewerCoordinates::damagedContentIsUpdatedOnTheWidget()
{
    QFETCH(double, scale);
    QFETCH(QRect, content);
    ScrolledScene scene(scale, QPoint(0, 0));
    QVERIFY(scene.isShown);
    settle(&scene.viewer);
    PaintedRegion painted(scene.widget());
    const QRect expected = scene.widget()->fromLogical(QRectF(content)).toRect();

    scene.viewer.updateContentRect(content);
    QVERIFY(painted.region.isEmpty());
    QTRY_VERIFY(!painted.region.isEmpty());

    // Where units are not device pixels a little more is painted, so that pixels on the edge are
    // not left out: at least half of a one-unit pen and the pixel that Qt smooths.
    const bool isExact = scale == 1.0 && scene.viewer.devicePixelRatioF() == 1.0;
    const int least = isExact ? 0 : int(std::ceil(scale / 2)) + 1;
    const int more = isExact ? 0 : int(scale) + 3;
    QVERIFY(
        painted.region.boundingRect().contains(expected.adjusted(-least, -least, least, least)));
    QVERIFY(expected.adjusted(-more, -more, more, more).contains(painted.region.boundingRect()));
}

void tst_FreeformViewerCoordinates::invalidRectangleUpdatesNothing()
{
    ScrolledScene scene(2, QPoint(0, 0));
    QVERIFY(scene.isShown);
    settle(&scene.viewer);
    PaintedRegion painted(scene.widget());

    scene.viewer.updateContentRect(QRect());
    QCoreApplication::processEvents();

    QVERIFY(painted.region.isEmpty());
}

void tst_FreeformViewerCoordinates::mappingIsThatOfTheViewportAsInterface()
{
    ScrolledScene scene(2, QPoint(100, 40));
    QVERIFY(scene.isShown);
    IViewport *viewport = scene.viewer.getViewport();

    QCOMPARE(viewport->toContent(QPoint(10, 10)), QPoint(5, -25));
    QCOMPARE(viewport->fromContent(QPoint(5, -25)), QPoint(10, 10));
    QCOMPARE(viewport->getViewRect(), QRect(0, -30, 200, 150));
    QCOMPARE(viewport->getViewLocation(), QPoint(0, -30));
}

QTEST_MAIN(tst_FreeformViewerCoordinates)
#include "tst_freeformviewer_coordinates.moc"
