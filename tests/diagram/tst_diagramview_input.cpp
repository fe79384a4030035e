#include "view_fixtures.h"

#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QWheelEvent>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

constexpr int notch = 120;

// A view of something much larger than it is.
class LargeScene : public ViewScene
{
public:
    LargeScene() { diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000)); }

    QPoint scrolled() const { return {horizontalBar()->value(), verticalBar()->value()}; }

    void wheel(const QPoint &turned, Qt::KeyboardModifiers modifiers,
               const QPointF &position = QPointF(200, 150))
    {
        const QPointF inCanvas = view.getCanvas()->mapFrom(view.viewport(), position.toPoint());
        QWheelEvent event(inCanvas, view.viewport()->mapToGlobal(position), QPoint(), turned,
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // else parents would not get it
        QCoreApplication::instance()->notify(view.getCanvas(), &event);
    }

    // In viewport coordinates, though the canvas gets it.
    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons,
               const QPoint &position)
    {
        const QPointF inCanvas = view.getCanvas()->mapFrom(view.viewport(), position);
        QMouseEvent event(type, inCanvas, view.viewport()->mapToGlobal(QPointF(position)), button,
                          buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view.getCanvas(), &event);
    }

    void drag(Qt::MouseButton button, const QPoint &from, const QPoint &to)
    {
        mouse(QEvent::MouseButtonPress, button, button, from);
        mouse(QEvent::MouseMove, Qt::NoButton, button, (from + to) / 2);
        mouse(QEvent::MouseMove, Qt::NoButton, button, to);
        mouse(QEvent::MouseButtonRelease, button, Qt::NoButton, to);
    }
};

} // namespace

class tst_DiagramViewInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void wheelScrolls();
    void wheelWithShiftScrollsSideways();
    void wheelWithControlZoomsAboutTheCursor();
    void pinchZooms();
    void nativeGestureZooms();
    void middleButtonDragsThePaper();
    void spaceAndLeftButtonDragThePaper();
    void leftButtonAloneDragsNothing();
    void paperCanBeDraggedBeyondItsEdge();
    void panningIsTold();
    void cursorIsGivenBack();
    void repeatedSpaceIsOneSpace();
    void lostFocusEndsPanning();
    void keysZoom_data();
    void keysZoom();
    void keysScroll_data();
    void keysScroll();
    void clickIsStillRemembered();
};

void tst_DiagramViewInput::wheelScrolls()
{
    LargeScene scene;
    QVERIFY(scene.show());
    const QPoint before = scene.scrolled();

    scene.wheel(QPoint(0, -notch), Qt::NoModifier);
    QVERIFY(scene.scrolled().y() > before.y());
    QCOMPARE(scene.scrolled().x(), before.x());
    scene.wheel(QPoint(-notch, 0), Qt::NoModifier);
    QVERIFY(scene.scrolled().x() > before.x());
    QCOMPARE(scene.view.getScale(), 1.0);
}

void tst_DiagramViewInput::wheelWithShiftScrollsSideways()
{
    LargeScene scene;
    QVERIFY(scene.show());
    const QPoint before = scene.scrolled();

    scene.wheel(QPoint(0, -notch), Qt::ShiftModifier);

    QVERIFY(scene.scrolled().x() > before.x());
    QCOMPARE(scene.scrolled().y(), before.y());
}

void tst_DiagramViewInput::wheelWithControlZoomsAboutTheCursor()
{
    LargeScene scene;
    QVERIFY(scene.show());
    const QPointF position(310, 40);
    const QPointF content = scene.view.toContent(position);

    scene.wheel(QPoint(0, 3 * notch), Qt::ControlModifier, position);
    QVERIFY(scene.view.getScale() > 1.9);
    QVERIFY((scene.view.fromContent(content) - position).manhattanLength() <= 2.0);
    scene.wheel(QPoint(0, -3 * notch), Qt::ControlModifier, position);

    QVERIFY(qFuzzyCompare(scene.view.getScale(), 1.0));
    QVERIFY((scene.view.fromContent(content) - position).manhattanLength() <= 2.0);
}

void tst_DiagramViewInput::pinchZooms()
{
    LargeScene scene;
    QVERIFY(scene.show());
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    QWidget *canvas = scene.view.getCanvas();
    const auto at = [&](int x, int y) {
        return canvas->mapFrom(scene.view.viewport(), QPoint(x, y));
    };

    QTest::touchEvent(canvas, screen.get()).press(0, at(190, 150)).press(1, at(210, 150));
    for (int spread = 12; spread <= 60; spread += 4)
        QTest::touchEvent(canvas, screen.get())
            .move(0, at(200 - spread, 150))
            .move(1, at(200 + spread, 150));
    QTest::touchEvent(canvas, screen.get()).release(0, at(140, 150)).release(1, at(260, 150));

    QVERIFY2(scene.view.getScale() > 2.0, qPrintable(QString::number(scene.view.getScale())));
}

void tst_DiagramViewInput::nativeGestureZooms()
{
    LargeScene scene;
    QVERIFY(scene.show());
    const QPointF position(310, 40);
    const QPointF content = scene.view.toContent(position);
    const QPointF inCanvas =
        scene.view.getCanvas()->mapFrom(scene.view.viewport(), position.toPoint());
    QNativeGestureEvent gesture(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                                inCanvas, inCanvas, scene.view.viewport()->mapToGlobal(position),
                                0.5, QPointF());

    QCoreApplication::sendEvent(scene.view.getCanvas(), &gesture);

    QCOMPARE(scene.view.getScale(), 1.5);
    QVERIFY((scene.view.fromContent(content) - position).manhattanLength() <= 2.0);
}

void tst_DiagramViewInput::middleButtonDragsThePaper()
{
    LargeScene scene;
    QVERIFY(scene.show());
    scene.view.centerOn(QPointF(1500, 1500));
    const QPoint content = scene.view.toContent(QPoint(200, 150));

    scene.drag(Qt::MiddleButton, QPoint(200, 150), QPoint(120, 190));

    QCOMPARE(scene.view.fromContent(content), QPoint(120, 190));
    QVERIFY(!scene.view.isPanning());
}

void tst_DiagramViewInput::spaceAndLeftButtonDragThePaper()
{
    LargeScene scene;
    QVERIFY(scene.show());
    scene.view.centerOn(QPointF(1500, 1500));
    const QPoint content = scene.view.toContent(QPoint(200, 150));

    QTest::keyPress(&scene.view, Qt::Key_Space);
    scene.drag(Qt::LeftButton, QPoint(200, 150), QPoint(120, 190));
    QTest::keyRelease(&scene.view, Qt::Key_Space);
    scene.drag(Qt::LeftButton, QPoint(120, 190), QPoint(20, 20));

    QCOMPARE(scene.view.fromContent(content), QPoint(120, 190));
}

void tst_DiagramViewInput::leftButtonAloneDragsNothing()
{
    LargeScene scene;
    QVERIFY(scene.show());
    const QPoint before = scene.scrolled();

    scene.drag(Qt::LeftButton, QPoint(200, 150), QPoint(20, 20));

    QCOMPARE(scene.scrolled(), before);
}

void tst_DiagramViewInput::paperCanBeDraggedBeyondItsEdge()
{
    LargeScene scene;
    QVERIFY(scene.show());
    const QPoint content = scene.view.toContent(QPoint(20, 20));

    scene.drag(Qt::MiddleButton, QPoint(20, 20), QPoint(350, 280));
    QCOMPARE(scene.view.fromContent(content), QPoint(350, 280));
    QVERIFY(scene.canvas().left() < -300);
    scene.drag(Qt::MiddleButton, QPoint(350, 280), QPoint(20, 20));

    QCOMPARE(scene.view.fromContent(content), QPoint(20, 20));
    QCOMPARE(scene.canvas().left(), -50);
}

void tst_DiagramViewInput::panningIsTold()
{
    LargeScene scene;
    QVERIFY(scene.show());

    QVERIFY(!scene.view.isPanning());
    QTest::keyPress(&scene.view, Qt::Key_Space);
    QVERIFY(scene.view.isPanning());
    QTest::keyRelease(&scene.view, Qt::Key_Space);
    QVERIFY(!scene.view.isPanning());
    scene.mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, QPoint(10, 10));
    QVERIFY(scene.view.isPanning());
    scene.mouse(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, QPoint(10, 10));
    QVERIFY(!scene.view.isPanning());
}

void tst_DiagramViewInput::cursorIsGivenBack()
{
    LargeScene scene;
    QVERIFY(scene.show());
    scene.view.getCanvas()->setCursor(Qt::CrossCursor);

    QTest::keyPress(&scene.view, Qt::Key_Space);
    QCOMPARE(scene.view.getCanvas()->cursor().shape(), Qt::OpenHandCursor);
    scene.mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, QPoint(10, 10));
    QCOMPARE(scene.view.getCanvas()->cursor().shape(), Qt::ClosedHandCursor);
    QTest::keyRelease(&scene.view, Qt::Key_Space);
    QCOMPARE(scene.view.getCanvas()->cursor().shape(), Qt::ClosedHandCursor);
    scene.mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(10, 10));

    QCOMPARE(scene.view.getCanvas()->cursor().shape(), Qt::CrossCursor);
}

void tst_DiagramViewInput::repeatedSpaceIsOneSpace()
{
    LargeScene scene;
    QVERIFY(scene.show());
    QTest::keyPress(&scene.view, Qt::Key_Space);

    QKeyEvent released(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "),
                       true);
    QCoreApplication::sendEvent(&scene.view, &released);

    QVERIFY(scene.view.isPanning());
}

void tst_DiagramViewInput::lostFocusEndsPanning()
{
    LargeScene scene;
    QVERIFY(scene.show());
    QTest::keyPress(&scene.view, Qt::Key_Space);

    QFocusEvent lost(QEvent::FocusOut);
    QCoreApplication::sendEvent(&scene.view, &lost);

    QVERIFY(!scene.view.isPanning());
}

void tst_DiagramViewInput::keysZoom_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<double>("expected");
    QTest::newRow("in") << Qt::Key_Plus << 0.625;
    QTest::newRow("in, without Shift") << Qt::Key_Equal << 0.625;
    QTest::newRow("out") << Qt::Key_Minus << 0.4;
    QTest::newRow("100 %") << Qt::Key_0 << 1.0;
    QTest::newRow("everything") << Qt::Key_9 << 300 / 3100.0;
}

void tst_DiagramViewInput::keysZoom()
{
    QFETCH(Qt::Key, key);
    QFETCH(double, expected);
    LargeScene scene;
    QVERIFY(scene.show());
    scene.view.zoomAbout(0.5, QPointF(0, 0));

    QTest::keyClick(&scene.view, key, Qt::ControlModifier);

    QVERIFY2(qAbs(scene.view.getScale() - expected) < 1e-6,
             qPrintable(QString::number(scene.view.getScale())));
}

void tst_DiagramViewInput::keysScroll_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QPoint>("direction");
    QTest::newRow("left") << Qt::Key_Left << QPoint(-1, 0);
    QTest::newRow("right") << Qt::Key_Right << QPoint(1, 0);
    QTest::newRow("up") << Qt::Key_Up << QPoint(0, -1);
    QTest::newRow("down") << Qt::Key_Down << QPoint(0, 1);
    QTest::newRow("page up") << Qt::Key_PageUp << QPoint(0, -1);
    QTest::newRow("page down") << Qt::Key_PageDown << QPoint(0, 1);
    QTest::newRow("home") << Qt::Key_Home << QPoint(-1, -1);
    QTest::newRow("end") << Qt::Key_End << QPoint(1, 1);
}

void tst_DiagramViewInput::keysScroll()
{
    QFETCH(Qt::Key, key);
    QFETCH(QPoint, direction);
    LargeScene scene;
    QVERIFY(scene.show());
    scene.view.centerOn(QPointF(1500, 1500));
    scene.settle();
    const QPoint before = scene.scrolled();

    QTest::keyClick(&scene.view, key);

    const QPoint moved = scene.scrolled() - before;
    const auto sign = [](int value) { return (value > 0) - (value < 0); };
    QCOMPARE(QPoint(sign(moved.x()), sign(moved.y())), direction);
}

void tst_DiagramViewInput::clickIsStillRemembered()
{
    LargeScene scene;
    QVERIFY(scene.show());
    const QPoint content = scene.view.toContent(QPoint(33, 44));

    scene.mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, QPoint(33, 44));

    QCOMPARE(scene.view.getLastClickLocation(), content);
}

QTEST_MAIN(tst_DiagramViewInput)
#include "tst_diagramview_input.moc"
