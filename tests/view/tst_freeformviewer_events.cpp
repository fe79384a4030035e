#include "scene.h"

#include <QHoverEvent>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Keeps what hover events reach a viewer.
class HoverLog : public QObject
{
public:
    struct Hover
    {
        QEvent::Type type;
        QPointF position;
        QPointF oldPosition;
        Qt::KeyboardModifiers modifiers;
        const QPointingDevice *device;
    };

    explicit HoverLog(FreeformViewer *viewer) { viewer->installEventFilter(this); }

    QList<Hover> hovers;

    bool eventFilter(QObject *, QEvent *event) override
    {
        const bool isHover = event->type() == QEvent::HoverMove ||
                             event->type() == QEvent::HoverEnter ||
                             event->type() == QEvent::HoverLeave;
        if (isHover) {
            const auto *hover = static_cast<QHoverEvent *>(event);
            hovers.append({hover->type(), hover->position(), hover->oldPosF(), hover->modifiers(),
                           hover->pointingDevice()});
        }
        return false;
    }
};

bool sendHover(QWidget *widget, QEvent::Type type, const QPointF &position, const QPointF &old,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QHoverEvent event(type, position, widget->mapToGlobal(position), old, modifiers);
    return QCoreApplication::sendEvent(widget, &event);
}

// QTest would warn of events that nobody accepts, as nobody does with a press on empty ground.
void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &position,
               Qt::MouseButton button = Qt::LeftButton)
{
    const Qt::MouseButton pressed = type == QEvent::MouseMove ? Qt::NoButton : button;
    QMouseEvent event(type, position, widget->mapToGlobal(QPointF(position)), pressed, button,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

// Counts the mouse events that get through to the widget's own handlers.
class HandlingWidget : public FreeformWidget
{
public:
    using FreeformWidget::FreeformWidget;

    int presses = 0;
    int keys = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
    void keyPressEvent(QKeyEvent *) override { ++keys; }
};

// Calls back from inside a zoom, when the content gets its bounds.
template<class Callback>
void whileResizing(Scene &scene, QObject *context, Callback callback)
{
    QObject::connect(&scene.pane, &Figure::figureMoved, context, [&scene, callback] {
        if (scene.widget()->isResizing())
            callback();
    });
}

} // namespace

class tst_FreeformViewerEvents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void hoverMoveIsPostedToTheViewer();
    void postedHoverCarriesNoModifiersAndThePrimaryDevice();
    void postedHoverKeepsFractions();
    void otherEventsAreNotPosted();
    void hoverOnWidgetWithoutViewerIsNotPosted();
    void mouseOverTheWidgetHovers();
    void eventsStillReachTheWidget();

    void lastClickIsTheCentreOfTheViewAtFirst();
    void lastClickStaysAfterScrollingUntilReset();
    void pressIsRecordedInContentCoordinates_data();
    void pressIsRecordedInContentCoordinates();
    void laterPressReplacesTheEarlierOne();
    void resetForgetsThePress();
    void pressReplacesTheKeptCentre();
    void pressIsLeftToWhoeverHoldsTheViewer();
    void releaseAndMoveAreNotRecorded();

    void resizeOfTheWidgetIsKeptFromTheScrollAreaWhileZooming();
    void otherEventsReachTheScrollAreaWhileZooming();
    void resizeOfTheWidgetReachesTheScrollAreaOtherwise();
    void scrollingIsIgnoredWhileZooming();
    void widgetIsNotMovedInTheMiddleOfAZoom();
};

void tst_FreeformViewerEvents::hoverMoveIsPostedToTheViewer()
{
    Scene scene;
    HoverLog log(&scene.viewer);

    sendHover(scene.widget(), QEvent::HoverMove, QPointF(30, 40), QPointF(10, 20));
    QVERIFY(log.hovers.isEmpty());
    QCoreApplication::sendPostedEvents(&scene.viewer, QEvent::HoverMove);

    QCOMPARE(log.hovers.size(), 1);
    QCOMPARE(log.hovers.first().type, QEvent::HoverMove);
    QCOMPARE(log.hovers.first().position, QPointF(30, 40));
    QCOMPARE(log.hovers.first().oldPosition, QPointF(10, 20));
}

void tst_FreeformViewerEvents::postedHoverCarriesNoModifiersAndThePrimaryDevice()
{
    Scene scene;
    HoverLog log(&scene.viewer);

    sendHover(scene.widget(), QEvent::HoverMove, QPointF(1, 2), QPointF(3, 4),
              Qt::ControlModifier | Qt::ShiftModifier);
    QCoreApplication::sendPostedEvents(&scene.viewer, QEvent::HoverMove);

    QCOMPARE(log.hovers.size(), 1);
    QCOMPARE(log.hovers.first().modifiers, Qt::KeyboardModifiers(Qt::NoModifier));
    QCOMPARE(log.hovers.first().device, QPointingDevice::primaryPointingDevice());
}

void tst_FreeformViewerEvents::postedHoverKeepsFractions()
{
    Scene scene;
    HoverLog log(&scene.viewer);

    sendHover(scene.widget(), QEvent::HoverMove, QPointF(1.25, 2.5), QPointF(3.75, -4.5));
    QCoreApplication::sendPostedEvents(&scene.viewer, QEvent::HoverMove);

    QCOMPARE(log.hovers.first().position, QPointF(1.25, 2.5));
    QCOMPARE(log.hovers.first().oldPosition, QPointF(3.75, -4.5));
}

void tst_FreeformViewerEvents::otherEventsAreNotPosted()
{
    Scene scene;
    HoverLog log(&scene.viewer);

    sendHover(scene.widget(), QEvent::HoverEnter, QPointF(1, 2), QPointF(3, 4));
    sendHover(scene.widget(), QEvent::HoverLeave, QPointF(1, 2), QPointF(3, 4));
    QCoreApplication::sendPostedEvents(&scene.viewer);

    QVERIFY(log.hovers.isEmpty());
}

void tst_FreeformViewerEvents::hoverOnWidgetWithoutViewerIsNotPosted()
{
    FreeformWidget widget(nullptr);
    QWidget plain;

    // Posting to nobody would be warned of.
    const bool answer = sendHover(&widget, QEvent::HoverMove, QPointF(1, 2), QPointF(3, 4));

    QCOMPARE(answer, sendHover(&plain, QEvent::HoverMove, QPointF(1, 2), QPointF(3, 4)));
}

void tst_FreeformViewerEvents::mouseOverTheWidgetHovers()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::mouseMove(scene.viewer.windowHandle(), QPoint(50, 60));
    QCoreApplication::processEvents();
    HoverLog log(&scene.viewer);

    QTest::mouseMove(scene.viewer.windowHandle(), QPoint(70, 80));
    QTRY_VERIFY(!log.hovers.isEmpty());

    QCOMPARE(log.hovers.last().position, QPointF(70, 80));
}

void tst_FreeformViewerEvents::eventsStillReachTheWidget()
{
    FreeformViewer viewer;
    HandlingWidget widget(&viewer);

    QTest::mousePress(&widget, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::keyPress(&widget, Qt::Key_A);

    QCOMPARE(widget.presses, 1);
    QCOMPARE(widget.keys, 1);
}

void tst_FreeformViewerEvents::lastClickIsTheCentreOfTheViewAtFirst()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.viewer.setViewLocation(QPoint(100, -200));

    QCOMPARE(scene.viewer.getLastClickLocation(), QRect(100, -200, 400, 300).center());
}

void tst_FreeformViewerEvents::lastClickStaysAfterScrollingUntilReset()
{
    Scene scene;
    QVERIFY(scene.show());
    const QPoint centre = scene.viewer.getLastClickLocation();

    scene.viewer.setViewLocation(QPoint(1000, 1000));
    QCOMPARE(scene.viewer.getLastClickLocation(), centre);

    scene.viewer.resetLastClickLocation();
    QCOMPARE(scene.viewer.getLastClickLocation(), QRect(1000, 1000, 400, 300).center());
}

void tst_FreeformViewerEvents::pressIsRecordedInContentCoordinates_data()
{
    QTest::addColumn<bool>("onWidget");
    QTest::newRow("on the widget") << true;
    QTest::newRow("on the viewport") << false;
}

void tst_FreeformViewerEvents::pressIsRecordedInContentCoordinates()
{
    QFETCH(bool, onWidget);
    Scene scene;
    QPoint topLeft(0, 0);
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScale(2, &topLeft);
    QCOMPARE(scene.scrollOffset(), QPoint(100, 100));

    if (onWidget)
        sendMouse(scene.widget(), QEvent::MouseButtonPress, QPoint(111, 130));
    else
        sendMouse(scene.viewer.viewport(), QEvent::MouseButtonPress, QPoint(11, 30));

    QCOMPARE(scene.viewer.getLastClickLocation(), QPoint(6, 15)); // 5.5, 15
}

void tst_FreeformViewerEvents::laterPressReplacesTheEarlierOne()
{
    Scene scene;
    QVERIFY(scene.show());

    sendMouse(scene.viewer.viewport(), QEvent::MouseButtonPress, QPoint(11, 30));
    sendMouse(scene.viewer.viewport(), QEvent::MouseButtonPress, QPoint(21, 40), Qt::RightButton);

    QCOMPARE(scene.viewer.getLastClickLocation(), QPoint(21, 40));
}

void tst_FreeformViewerEvents::resetForgetsThePress()
{
    Scene scene;
    QVERIFY(scene.show());
    sendMouse(scene.viewer.viewport(), QEvent::MouseButtonPress, QPoint(11, 30));

    scene.viewer.resetLastClickLocation();

    QCOMPARE(scene.viewer.getLastClickLocation(), QRect(0, 0, 400, 300).center());
}

void tst_FreeformViewerEvents::pressReplacesTheKeptCentre()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.viewer.getLastClickLocation();

    sendMouse(scene.viewer.viewport(), QEvent::MouseButtonPress, QPoint(11, 30));

    QCOMPARE(scene.viewer.getLastClickLocation(), QPoint(11, 30));
}

void tst_FreeformViewerEvents::pressIsLeftToWhoeverHoldsTheViewer()
{
    QWidget holder;
    FreeformViewer viewer(&holder);
    EventCounter presses(&holder, QEvent::MouseButtonPress);

    sendMouse(viewer.viewport(), QEvent::MouseButtonPress, QPoint(10, 10));

    QCOMPARE(presses.count, 1);
}

void tst_FreeformViewerEvents::releaseAndMoveAreNotRecorded()
{
    Scene scene;
    QVERIFY(scene.show());
    sendMouse(scene.viewer.viewport(), QEvent::MouseButtonPress, QPoint(11, 30));

    sendMouse(scene.viewer.viewport(), QEvent::MouseMove, QPoint(50, 50));
    sendMouse(scene.viewer.viewport(), QEvent::MouseButtonRelease, QPoint(60, 60));

    QCOMPARE(scene.viewer.getLastClickLocation(), QPoint(11, 30));
}

void tst_FreeformViewerEvents::resizeOfTheWidgetIsKeptFromTheScrollAreaWhileZooming()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);
    QList<bool> answers;
    int range = -1;
    whileResizing(scene, this, [&] {
        QResizeEvent event(QSize(5000, 5000), scene.widget()->size());
        scene.horizontalBar()->setRange(0, 12345);
        answers.append(scene.viewer.eventFilter(scene.widget(), &event));
        range = scene.horizontalBar()->maximum();
    });

    scene.viewer.setScale(2);

    QCOMPARE(answers, QList<bool>{false});
    QCOMPARE(range, 12345); // The scroll area would have set its own.
    QCOMPARE(scene.horizontalBar()->maximum(), 1000);
}

void tst_FreeformViewerEvents::otherEventsReachTheScrollAreaWhileZooming()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);
    int viewportResizes = 0;
    int range = -1;
    whileResizing(scene, this, [&] {
        // A resize, but not of the widget: that of the viewport becomes one of the viewer.
        EventCounter counter(scene.viewer.viewport(), QEvent::Resize);
        scene.horizontalBar()->setRange(0, 12345);
        QResizeEvent event(QSize(400, 300), QSize(400, 300));
        QCoreApplication::sendEvent(scene.viewer.viewport(), &event);
        viewportResizes += counter.count;
        range = scene.horizontalBar()->maximum();
    });

    scene.viewer.setScale(2);

    QCOMPARE(viewportResizes, 1);
    QVERIFY(range != 12345);
}

void tst_FreeformViewerEvents::resizeOfTheWidgetReachesTheScrollAreaOtherwise()
{
    Scene scene;
    QVERIFY(scene.show());

    scene.widget()->resize(1234, 987);

    QCOMPARE(scene.horizontalBar()->maximum(), 834);
    QCOMPARE(scene.verticalBar()->maximum(), 687);
}

void tst_FreeformViewerEvents::scrollingIsIgnoredWhileZooming()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScale(2);
    QList<QPoint> moves;
    whileResizing(scene, this, [&] {
        const QPoint before = scene.widget()->pos();
        scene.scrollTo(QPoint(7, 9));
        moves.append(scene.widget()->pos() - before);
        QCOMPARE(scene.scrollOffset(), QPoint(7, 9));
    });

    scene.pane.extent = QRect(-10, -10, 700, 500);
    scene.viewer.setScale(3);

    QCOMPARE(moves, QList<QPoint>{QPoint(0, 0)});
    QCOMPARE(scene.widget()->pos(), -scene.scrollOffset());
}

// Every step on the way would be seen as a jump.
void tst_FreeformViewerEvents::widgetIsNotMovedInTheMiddleOfAZoom()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScale(2);
    EventCounter moves(scene.widget(), QEvent::Move);

    scene.viewer.setScale(3);

    QCOMPARE(moves.count, 1);
}

QTEST_MAIN(tst_FreeformViewerEvents)
#include "tst_freeformviewer_events.moc"
