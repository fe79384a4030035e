#include "scene.h"

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class ReadPane : public ExtentPane
{
public:
    int reads = 0;

    QRect getFreeformExtent() override
    {
        ++reads;
        return ExtentPane::getFreeformExtent();
    }
};

// Notes the order in which the widget is hidden, resized and shown.
class VisibilityLog : public QObject
{
public:
    explicit VisibilityLog(QWidget *widget) { widget->installEventFilter(this); }

    QStringList events;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Hide)
            events.append(QStringLiteral("hide"));
        else if (event->type() == QEvent::Resize)
            events.append(QStringLiteral("resize"));
        else if (event->type() == QEvent::Show)
            events.append(QStringLiteral("show"));
        return false;
    }
};

// Everything that an operation on the extent could have changed.
struct State
{
    QRect bounds;
    QPointF origin;
    QSize size;
    double scale;
    QPoint scroll;

    bool operator==(const State &other) const
    {
        return bounds == other.bounds && origin == other.origin && size == other.size &&
               scale == other.scale && scroll == other.scroll;
    }
};

State stateOf(Scene &scene)
{
    return {scene.pane.getBounds(), scene.widget()->getPointAtOrigin(), scene.widget()->size(),
            scene.widget()->getScale(), scene.scrollOffset()};
}

} // namespace

class tst_FreeformWidgetExtent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void negativeMarginsCountAsZero_data();
    void negativeMarginsCountAsZero();
    void extentHandlingIsSwitched();
    void extentIsReadOnlyWhileItIsHandled();
    void changeOfTheExtentLeavesTheCanvasAsItIs_data();
    void changeOfTheExtentLeavesTheCanvasAsItIs();

    void sizeHintIsTheMinimumWithoutContent();
    void sizeHintIsTheMinimumWithoutExtent();
    void sizeHintIsTheScaledExtentWithItsMargins_data();
    void sizeHintIsTheScaledExtentWithItsMargins();

    void invalidRectangleIsNeverMadeViewable();
    void rectangleInsideTheBoundsIsViewableAlready();
    void ensureViewableWithoutApplyOnlyAnswers();
    void ensureViewableGrowsTheBounds_data();
    void ensureViewableGrowsTheBounds();
    void ensureViewableMovesTheOriginToTheNewCorner();
    void ensureViewableLeavesTheOriginOfAnUnmovedCorner();
    void ensureViewableResizesTheWidgetInPixels();
    void ensureViewableKeepsTheSizeOfTheWidgetForEqualBounds();
    void firstBoundsAreTheRectangleItself();
    void flatBoundsDoNotCountWhenTheyGrow();
    void ensureViewableWithoutContentIsFalse();

    void minimizeViewableShrinksToTheExtentWithItsMargins();
    void minimizeViewableKeepsTheGivenRectangleInside();
    void minimizeViewableGrowsToo();
    void minimizeViewableWithEqualBoundsDoesNothing();
    void minimizeViewableResizesTheWidgetInPixels();
    void minimizeViewableHidesTheWidgetWhileItResizes();
    void minimizeViewableWithEqualSizeLeavesTheWidgetShown();
    void minimizeViewableWithoutContentDoesNothing();

    void savedBoundsAreGivenBack();
    void laterSaveReplacesTheEarlierOne();
    void boundsAreNeitherSavedNorRestoredWithoutContent();
};

void tst_FreeformWidgetExtent::negativeMarginsCountAsZero_data()
{
    QTest::addColumn<QPoint>("margins");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("x") << QPoint(-5, 10) << QPoint(0, 10);
    QTest::newRow("y") << QPoint(7, -1) << QPoint(7, 0);
    QTest::newRow("none") << QPoint(0, 0) << QPoint(0, 0);
    QTest::newRow("positive") << QPoint(1, 2) << QPoint(1, 2);
}

void tst_FreeformWidgetExtent::negativeMarginsCountAsZero()
{
    QFETCH(QPoint, margins);
    QFETCH(QPoint, expected);
    FreeformWidget widget(nullptr);

    widget.setMargins(margins.x(), margins.y());

    QCOMPARE(QPoint(widget.getXMargin(), widget.getYMargin()), expected);
}

void tst_FreeformWidgetExtent::extentHandlingIsSwitched()
{
    FreeformWidget widget(nullptr);

    widget.enableExtentHandling(false);
    QVERIFY(!widget.extentHandlingEnabled());
    widget.enableExtentHandling(true);
    QVERIFY(widget.extentHandlingEnabled());
}

void tst_FreeformWidgetExtent::extentIsReadOnlyWhileItIsHandled()
{
    ReadPane pane;
    FreeformWidget widget(nullptr);
    widget.setContent(&pane);

    widget.enableExtentHandling(false);
    pane.reads = 0;
    Q_EMIT pane.extentChanged();
    QCOMPARE(pane.reads, 0);

    widget.enableExtentHandling(true);
    QCOMPARE(pane.reads, 1);
    Q_EMIT pane.extentChanged();
    QCOMPARE(pane.reads, 2);
}

void tst_FreeformWidgetExtent::changeOfTheExtentLeavesTheCanvasAsItIs_data()
{
    QTest::addColumn<bool>("handling");
    QTest::newRow("handled") << true;
    QTest::newRow("not handled") << false;
}

// Growing the canvas is the viewer's business, on purpose.
void tst_FreeformWidgetExtent::changeOfTheExtentLeavesTheCanvasAsItIs()
{
    QFETCH(bool, handling);
    Scene scene;
    QVERIFY(scene.show());
    scene.widget()->enableExtentHandling(handling);
    const State before = stateOf(scene);

    scene.pane.extent = QRect(-500, -500, 3000, 3000);
    Q_EMIT scene.pane.extentChanged();
    scene.widget()->contentExtentChanged();
    scene.widget()->enableExtentHandling(true);
    QCoreApplication::processEvents();

    QVERIFY(stateOf(scene) == before);
}

void tst_FreeformWidgetExtent::sizeHintIsTheMinimumWithoutContent()
{
    FreeformWidget widget(nullptr);
    QCOMPARE(widget.sizeHint(), QSize(300, 200));

    widget.setMinimumSize(120, 130);
    QCOMPARE(widget.sizeHint(), QSize(120, 130));
}

void tst_FreeformWidgetExtent::sizeHintIsTheMinimumWithoutExtent()
{
    Scene scene;

    QCOMPARE(scene.widget()->sizeHint(), QSize(300, 200));
}

void tst_FreeformWidgetExtent::sizeHintIsTheScaledExtentWithItsMargins_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QRect>("extent");
    QTest::addColumn<QSize>("expected");
    QTest::newRow("scale 1") << 1.0 << QRect(0, 0, 600, 400) << QSize(620, 440);
    QTest::newRow("smaller than the minimum size") << 1.0 << QRect(0, 0, 6, 4) << QSize(26, 44);
    QTest::newRow("scale 2, off the origin") << 2.0 << QRect(-70, 30, 600, 400) << QSize(1240, 880);
    QTest::newRow("half a pixel rounds up") << 0.5 << QRect(0, 0, 601, 401) << QSize(311, 221);
}

void tst_FreeformWidgetExtent::sizeHintIsTheScaledExtentWithItsMargins()
{
    QFETCH(double, scale);
    QFETCH(QRect, extent);
    QFETCH(QSize, expected);
    Scene scene;
    scene.viewer.setXYMargins(10, 20);
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScale(scale);

    scene.pane.extent = extent;

    QCOMPARE(scene.widget()->sizeHint(), expected);
}

void tst_FreeformWidgetExtent::invalidRectangleIsNeverMadeViewable()
{
    Scene scene;
    QVERIFY(scene.show());
    const State before = stateOf(scene);

    QVERIFY(!scene.widget()->ensureViewable(QRect(), true, true));
    QVERIFY(!scene.widget()->ensureViewable(QRect(1000, 1000, 10, 0), true, true));

    QVERIFY(stateOf(scene) == before);
}

void tst_FreeformWidgetExtent::rectangleInsideTheBoundsIsViewableAlready()
{
    Scene scene;
    QVERIFY(scene.show());
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 400, 300));
    const State before = stateOf(scene);

    QVERIFY(!scene.widget()->ensureViewable(QRect(390, 290, 10, 10), true, true));
    QVERIFY(!scene.widget()->ensureViewable(QRect(0, 0, 400, 300), true, true));

    QVERIFY(stateOf(scene) == before);
}

void tst_FreeformWidgetExtent::ensureViewableWithoutApplyOnlyAnswers()
{
    Scene scene;
    QVERIFY(scene.show());
    const State before = stateOf(scene);

    QVERIFY(scene.widget()->ensureViewable(QRect(391, 290, 10, 10), true, false));
    QVERIFY(scene.widget()->ensureViewable(QRect(-1, 0, 10, 10), false, false));

    QVERIFY(stateOf(scene) == before);
}

void tst_FreeformWidgetExtent::ensureViewableGrowsTheBounds_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<bool>("withMargins");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("to the right, without margins")
        << QRect(380, 10, 100, 20) << false << QRect(0, 0, 480, 300);
    QTest::newRow("to the right, with margins")
        << QRect(380, 10, 100, 20) << true << QRect(0, -10, 490, 310);
    QTest::newRow("to the upper left, without margins")
        << QRect(-30, -40, 10, 10) << false << QRect(-30, -40, 430, 340);
    QTest::newRow("to the upper left, with margins")
        << QRect(-30, -40, 10, 10) << true << QRect(-40, -60, 440, 360);
    QTest::newRow("away from the bounds")
        << QRect(1000, 2000, 10, 10) << false << QRect(0, 0, 1010, 2010);
}

void tst_FreeformWidgetExtent::ensureViewableGrowsTheBounds()
{
    QFETCH(QRect, rect);
    QFETCH(bool, withMargins);
    QFETCH(QRect, expected);
    Scene scene;
    scene.viewer.setXYMargins(10, 20);
    QVERIFY(scene.show());
    scene.pane.freeformBounds.clear();

    QVERIFY(scene.widget()->ensureViewable(rect, withMargins, true));

    QCOMPARE(scene.pane.getBounds(), expected);
    QCOMPARE(scene.layer.getBounds(), expected);
    QCOMPARE(scene.pane.freeformBounds, QList<QRect>{expected});
    QCOMPARE(scene.widget()->size(), expected.size());
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(expected.topLeft()));
}

void tst_FreeformWidgetExtent::ensureViewableMovesTheOriginToTheNewCorner()
{
    Scene scene;
    QVERIFY(scene.show());

    scene.widget()->ensureViewable(QRect(-30, 10, 20, 20), false, true);

    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(-30, 0));
    QCOMPARE(scene.widget()->fromLogical(QPointF(0, 0)), QPointF(30, 0));
}

// The origin is only touched when the corner of the bounds moves.
void tst_FreeformWidgetExtent::ensureViewableLeavesTheOriginOfAnUnmovedCorner()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.widget()->setPointAtOrigin(QPoint(7, 8));

    scene.widget()->ensureViewable(QRect(0, 0, 500, 20), false, true);

    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(7, 8));
}

void tst_FreeformWidgetExtent::ensureViewableResizesTheWidgetInPixels()
{
    Scene scene;
    QPoint topLeft;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScale(2, &topLeft);
    QCOMPARE(scene.pane.getBounds(), QRect(-50, -50, 700, 500));

    QVERIFY(scene.widget()->ensureViewable(QRect(-60, 0, 11, 501), false, true));

    QCOMPARE(scene.pane.getBounds(), QRect(-60, -50, 710, 551));
    QCOMPARE(scene.widget()->size(), QSize(1420, 1102));
    QCOMPARE(scene.widget()->getScale(), 2.0);
}

void tst_FreeformWidgetExtent::ensureViewableKeepsTheSizeOfTheWidgetForEqualBounds()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.widget()->resize(777, 666);

    scene.widget()->ensureViewable(QRect(0, 0, 400, 300), false, true);

    QCOMPARE(scene.widget()->size(), QSize(777, 666));
}

void tst_FreeformWidgetExtent::firstBoundsAreTheRectangleItself()
{
    Scene scene;
    QVERIFY(!scene.pane.getBounds().isValid());

    QVERIFY(scene.widget()->ensureViewable(QRect(100, 200, 500, 400), false, true));

    QCOMPARE(scene.pane.getBounds(), QRect(100, 200, 500, 400));
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(100, 200));
    QCOMPARE(scene.widget()->size(), QSize(500, 400));
}

void tst_FreeformWidgetExtent::flatBoundsDoNotCountWhenTheyGrow()
{
    Scene scene;
    QTest::ignoreMessage(QtDebugMsg, "Figure::resolveBounds(): resolved bounds still invalid");
    scene.pane.setBounds(QRect(0, 0, 0, 10));
    QVERIFY(!scene.pane.getBounds().isValid());

    QVERIFY(scene.widget()->ensureViewable(QRect(100, 200, 500, 400), false, true));

    QCOMPARE(scene.pane.getBounds(), QRect(100, 200, 500, 400));
}

void tst_FreeformWidgetExtent::ensureViewableWithoutContentIsFalse()
{
    FreeformWidget widget(nullptr);
    widget.resize(400, 300);

    QVERIFY(!widget.ensureViewable(QRect(0, 0, 1000, 1000), true, true));

    QCOMPARE(widget.size(), QSize(400, 300));
    QCOMPARE(widget.getPointAtOrigin(), QPointF(0, 0));
}

void tst_FreeformWidgetExtent::minimizeViewableShrinksToTheExtentWithItsMargins()
{
    Scene scene;
    scene.viewer.setXYMargins(10, 20);
    QVERIFY(scene.show());
    scene.widget()->ensureViewable(QRect(-1000, -1000, 5000, 5000), false, true);
    scene.pane.extent = QRect(100, 100, 480, 360);

    scene.widget()->minimizeViewable(QRect());

    QCOMPARE(scene.pane.getBounds(), QRect(90, 80, 500, 400));
    QCOMPARE(scene.layer.getBounds(), QRect(90, 80, 500, 400));
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(90, 80));
    QCOMPARE(scene.widget()->size(), QSize(500, 400));
}

void tst_FreeformWidgetExtent::minimizeViewableKeepsTheGivenRectangleInside()
{
    Scene scene;
    scene.viewer.setXYMargins(10, 20);
    QVERIFY(scene.show());
    scene.widget()->ensureViewable(QRect(-1000, -1000, 5000, 5000), false, true);
    scene.pane.extent = QRect(100, 100, 480, 360);

    scene.widget()->minimizeViewable(QRect(0, 0, 10, 10));
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 590, 480));
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(0, 0));
    QCOMPARE(scene.widget()->size(), QSize(590, 480));

    // No margins around the rectangle, and an invalid one does not count.
    scene.widget()->minimizeViewable(QRect(-500, -500, 0, 10));
    QCOMPARE(scene.pane.getBounds(), QRect(90, 80, 500, 400));
}

void tst_FreeformWidgetExtent::minimizeViewableGrowsToo()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 900, 800);

    scene.widget()->minimizeViewable(QRect());

    QCOMPARE(scene.pane.getBounds(), QRect(-50, -50, 1000, 900));
}

void tst_FreeformWidgetExtent::minimizeViewableWithEqualBoundsDoesNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(50, 50, 300, 200);
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 400, 300));
    scene.widget()->setPointAtOrigin(QPoint(7, 8));
    scene.widget()->resize(777, 666);
    scene.pane.freeformBounds.clear();

    scene.widget()->minimizeViewable(QRect());

    QVERIFY(scene.pane.freeformBounds.isEmpty());
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(7, 8));
    QCOMPARE(scene.widget()->size(), QSize(777, 666));
}

void tst_FreeformWidgetExtent::minimizeViewableResizesTheWidgetInPixels()
{
    Scene scene;
    QPoint topLeft;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScale(2, &topLeft);
    scene.pane.extent = QRect(0, 0, 501, 301);

    scene.widget()->minimizeViewable(QRect());

    QCOMPARE(scene.pane.getBounds(), QRect(-50, -50, 601, 401));
    QCOMPARE(scene.widget()->size(), QSize(1202, 802));
}

void tst_FreeformWidgetExtent::minimizeViewableHidesTheWidgetWhileItResizes()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 500, 400);
    VisibilityLog log(scene.widget());

    scene.widget()->minimizeViewable(QRect());

    // Hidden, the widget is told of its new size only when it is shown.
    QCOMPARE(log.events, (QStringList{QStringLiteral("hide"), QStringLiteral("resize"),
                                      QStringLiteral("show")}));
    QVERIFY(scene.widget()->isVisible());
}

void tst_FreeformWidgetExtent::minimizeViewableWithEqualSizeLeavesTheWidgetShown()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(-50, -60, 300, 200);
    VisibilityLog log(scene.widget());

    scene.widget()->minimizeViewable(QRect());

    QCOMPARE(scene.pane.getBounds(), QRect(-100, -110, 400, 300));
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(-100, -110));
    QVERIFY(log.events.isEmpty());
}

void tst_FreeformWidgetExtent::minimizeViewableWithoutContentDoesNothing()
{
    FreeformWidget widget(nullptr);
    widget.resize(400, 300);

    widget.minimizeViewable(QRect(0, 0, 1000, 1000));

    QCOMPARE(widget.size(), QSize(400, 300));
    QCOMPARE(widget.getPointAtOrigin(), QPointF(0, 0));
}

void tst_FreeformWidgetExtent::savedBoundsAreGivenBack()
{
    Scene scene;
    QVERIFY(scene.show());
    const QRect saved = scene.pane.getBounds();
    scene.widget()->saveBounds();
    scene.pane.setBounds(QRect(-10, -20, 700, 600));

    scene.widget()->restoreBounds();

    QCOMPARE(scene.pane.getBounds(), saved);
}

void tst_FreeformWidgetExtent::laterSaveReplacesTheEarlierOne()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.widget()->saveBounds();
    scene.pane.setBounds(QRect(-10, -20, 700, 600));
    scene.widget()->saveBounds();
    scene.pane.setBounds(QRect(0, 0, 5, 5));

    scene.widget()->restoreBounds();
    QCOMPARE(scene.pane.getBounds(), QRect(-10, -20, 700, 600));
    scene.pane.setBounds(QRect(1, 1, 5, 5));
    scene.widget()->restoreBounds();
    QCOMPARE(scene.pane.getBounds(), QRect(-10, -20, 700, 600));
}

void tst_FreeformWidgetExtent::boundsAreNeitherSavedNorRestoredWithoutContent()
{
    FreeformLayeredPane pane;
    FreeformWidget widget(nullptr);
    pane.setFreeformBounds(QRect(0, 0, 400, 300));
    widget.setContent(&pane);
    widget.saveBounds();
    FreeformWidget empty(nullptr);

    empty.saveBounds();
    empty.restoreBounds();

    QCOMPARE(pane.getBounds(), QRect(0, 0, 400, 300));
}

QTEST_MAIN(tst_FreeformWidgetExtent)
#include "tst_freeformwidget_extent.moc"
