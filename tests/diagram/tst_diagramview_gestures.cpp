#include "view_fixtures.h"

#include <QGestureEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QPointingDevice>
#include <QSwipeGesture>
#include <QWheelEvent>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

constexpr int notch = 120;

/// A view whose event handlers can be called without an event.
class OpenView : public DiagramView
{
public:
    using DiagramView::DiagramView;
    using DiagramView::mousePressEvent;
};

/// A shown view of something much larger, to which input comes by its viewport.
class InputScene
{
public:
    InputScene()
    {
        diagram.add(painted<Rectangle>(), QRect(0, 0, 3000, 3000));
        view.setFrameShape(QFrame::NoFrame);
        view.resize(400, 300);
        view.setDiagram(&diagram);
        view.show();
    }

    bool isShown() { return QTest::qWaitForWindowExposed(&view); }
    QPoint scrolled() const
    {
        return {view.horizontalScrollBar()->value(), view.verticalScrollBar()->value()};
    }

    void wheel(const QPoint &turned, Qt::KeyboardModifiers modifiers)
    {
        const QPointF position(100, 100);
        QWheelEvent event(position, view.viewport()->mapToGlobal(position), QPoint(), turned,
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons,
               const QPoint &position)
    {
        QMouseEvent event(type, position, view.viewport()->mapToGlobal(QPointF(position)), button,
                          buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    bool gesture(QGesture *made)
    {
        QGestureEvent event({made});
        event.setWidget(view.viewport());
        event.setAccepted(made, false);
        QCoreApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted(made);
    }

    Diagram diagram;
    OpenView view;
};

} // namespace

class tst_DiagramViewGestures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void controlTakesTheWheelOfEitherDirection();
    void sidewaysWheelStaysSidewaysWithShift();
    void pinchZoomsOnlyByItsScale_data();
    void pinchZoomsOnlyByItsScale();
    void otherGesturesAreNotTaken();
    void otherNativeGesturesZoomNothing();
    void keysNeedTheirModifiers_data();
    void keysNeedTheirModifiers();
    void otherButtonsDragNothing_data();
    void otherButtonsDragNothing();
    void otherButtonDoesNotEndADrag();
    void spaceDuringADragKeepsTheCursorToRestore();
    void canvasMayGoInADrag();
    void missingEventIsIgnored();
};

void tst_DiagramViewGestures::controlTakesTheWheelOfEitherDirection()
{
    InputScene scene;
    QVERIFY(scene.isShown());

    scene.wheel(QPoint(notch, 0), Qt::ControlModifier);

    QCOMPARE(scene.view.getScale(), 1.25);
}

void tst_DiagramViewGestures::sidewaysWheelStaysSidewaysWithShift()
{
    InputScene scene;
    QVERIFY(scene.isShown());
    const QPoint before = scene.scrolled();

    scene.wheel(QPoint(-notch, 0), Qt::ShiftModifier);

    QVERIFY(scene.scrolled().x() > before.x());
    QCOMPARE(scene.scrolled().y(), before.y());
}

void tst_DiagramViewGestures::pinchZoomsOnlyByItsScale_data()
{
    QTest::addColumn<QPinchGesture::ChangeFlags>("changes");
    QTest::addColumn<double>("expected");
    QTest::newRow("scaled") << QPinchGesture::ChangeFlags(QPinchGesture::ScaleFactorChanged) << 2.0;
    QTest::newRow("turned") << QPinchGesture::ChangeFlags(QPinchGesture::RotationAngleChanged)
                            << 1.0;
}

void tst_DiagramViewGestures::pinchZoomsOnlyByItsScale()
{
    QFETCH(QPinchGesture::ChangeFlags, changes);
    QFETCH(double, expected);
    InputScene scene;
    QVERIFY(scene.isShown());
    QPinchGesture pinch;
    pinch.setChangeFlags(changes);
    pinch.setScaleFactor(2.0);
    pinch.setCenterPoint(scene.view.viewport()->mapToGlobal(QPointF(100, 100)));

    QVERIFY(scene.gesture(&pinch));

    QCOMPARE(scene.view.getScale(), expected);
}

void tst_DiagramViewGestures::otherGesturesAreNotTaken()
{
    InputScene scene;
    QVERIFY(scene.isShown());
    scene.view.viewport()->grabGesture(Qt::SwipeGesture);
    QSwipeGesture swipe;

    QVERIFY(!scene.gesture(&swipe));

    QCOMPARE(scene.view.getScale(), 1.0);
}

void tst_DiagramViewGestures::otherNativeGesturesZoomNothing()
{
    InputScene scene;
    QVERIFY(scene.isShown());
    const QPointF position(100, 100);
    QNativeGestureEvent turn(Qt::RotateNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                             position, position, scene.view.viewport()->mapToGlobal(position), 0.5,
                             QPointF());

    QCoreApplication::sendEvent(scene.view.viewport(), &turn);

    QCOMPARE(scene.view.getScale(), 1.0);
}

void tst_DiagramViewGestures::keysNeedTheirModifiers_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifier>("modifier");
    QTest::newRow("plus") << Qt::Key_Plus << Qt::NoModifier;
    QTest::newRow("equals") << Qt::Key_Equal << Qt::NoModifier;
    QTest::newRow("minus") << Qt::Key_Minus << Qt::NoModifier;
    QTest::newRow("0") << Qt::Key_0 << Qt::NoModifier;
    QTest::newRow("9") << Qt::Key_9 << Qt::NoModifier;
    QTest::newRow("space with Control") << Qt::Key_Space << Qt::ControlModifier;
}

void tst_DiagramViewGestures::keysNeedTheirModifiers()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifier, modifier);
    InputScene scene;
    QVERIFY(scene.isShown());
    scene.view.zoomAbout(0.5, QPointF(0, 0));

    QTest::keyPress(&scene.view, key, modifier);

    QCOMPARE(scene.view.getScale(), 0.5);
    QVERIFY(!scene.view.isPanning());
}

void tst_DiagramViewGestures::otherButtonsDragNothing_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
}

void tst_DiagramViewGestures::otherButtonsDragNothing()
{
    QFETCH(Qt::MouseButton, button);
    InputScene scene;
    QVERIFY(scene.isShown());

    scene.mouse(QEvent::MouseButtonPress, button, button, QPoint(50, 50));

    QVERIFY(!scene.view.isPanning());
}

void tst_DiagramViewGestures::otherButtonDoesNotEndADrag()
{
    InputScene scene;
    QVERIFY(scene.isShown());
    scene.mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, QPoint(50, 50));

    scene.mouse(QEvent::MouseButtonRelease, Qt::RightButton, Qt::MiddleButton, QPoint(50, 50));
    QVERIFY(scene.view.isPanning());
    scene.mouse(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, QPoint(50, 50));
    QVERIFY(!scene.view.isPanning());
}

void tst_DiagramViewGestures::spaceDuringADragKeepsTheCursorToRestore()
{
    InputScene scene;
    QVERIFY(scene.isShown());
    scene.view.getCanvas()->setCursor(Qt::CrossCursor);

    scene.mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, QPoint(50, 50));
    QTest::keyPress(&scene.view, Qt::Key_Space);
    scene.mouse(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, QPoint(50, 50));
    QCOMPARE(scene.view.getCanvas()->cursor().shape(), Qt::OpenHandCursor);
    QTest::keyRelease(&scene.view, Qt::Key_Space);

    QCOMPARE(scene.view.getCanvas()->cursor().shape(), Qt::CrossCursor);
}

void tst_DiagramViewGestures::canvasMayGoInADrag()
{
    InputScene scene;
    QVERIFY(scene.isShown());
    scene.mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, QPoint(50, 50));

    delete scene.view.getCanvas();
    scene.mouse(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, QPoint(50, 50));

    QVERIFY(!scene.view.isPanning());
}

void tst_DiagramViewGestures::missingEventIsIgnored()
{
    InputScene scene;
    const QPoint before = scene.view.getLastClickLocation();

    scene.view.mousePressEvent(nullptr);

    QCOMPARE(scene.view.getLastClickLocation(), before);
    QVERIFY(!scene.view.isPanning());
}

QTEST_MAIN(tst_DiagramViewGestures)
#include "tst_diagramview_gestures.moc"
