#include <figura/diagram/DiagramView.h>

#include <figura/view/FreeformWidget.h>

#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

// Wheel, gestures, mouse and keys.

namespace Velmora::Figura {
namespace {

constexpr double zoomStep = 1.25;
constexpr double wheelNotch = 120.0;

bool isZoomIn(const QKeyEvent *event)
{
    // The plus sign shares its key with the equals sign on many keyboards.
    const bool equals = event->key() == Qt::Key_Equal || event->key() == Qt::Key_Plus;
    return event->matches(QKeySequence::ZoomIn) ||
           (equals && event->modifiers().testFlag(Qt::ControlModifier));
}

bool isControl(const QKeyEvent *event, Qt::Key key)
{
    return event->key() == key && event->modifiers().testFlag(Qt::ControlModifier);
}

} // namespace

void DiagramView::wheelEvent(QWheelEvent *event)
{
    const QPoint turned = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        const int delta = turned.y() != 0 ? turned.y() : turned.x();
        zoomAbout(getScale() * std::pow(zoomStep, delta / wheelNotch), event->position());
        event->accept();
    } else if (event->modifiers().testFlag(Qt::ShiftModifier) && turned.x() == 0) {
        QWheelEvent sideways(event->position(), event->globalPosition(),
                             event->pixelDelta().transposed(), turned.transposed(),
                             event->buttons(), Qt::NoModifier, event->phase(), event->inverted());
        FreeformViewer::wheelEvent(&sideways);
        event->setAccepted(sideways.isAccepted());
    } else {
        FreeformViewer::wheelEvent(event);
    }
}

bool DiagramView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Gesture && gestureEvent(static_cast<QGestureEvent *>(event)))
        return true;
    if (event->type() == QEvent::NativeGesture &&
        nativeGestureEvent(static_cast<QNativeGestureEvent *>(event)))
        return true;
    return FreeformViewer::viewportEvent(event);
}

bool DiagramView::gestureEvent(QGestureEvent *event)
{
    auto *pinch = static_cast<QPinchGesture *>(event->gesture(Qt::PinchGesture));
    if (!pinch)
        return false;
    if (pinch->changeFlags().testFlag(QPinchGesture::ScaleFactorChanged)) {
        const QPointF position = viewport()->mapFromGlobal(pinch->centerPoint());
        zoomAbout(getScale() * pinch->scaleFactor(), position);
    }
    event->accept(pinch);
    return true;
}

bool DiagramView::nativeGestureEvent(QNativeGestureEvent *event)
{
    if (event->gestureType() != Qt::ZoomNativeGesture)
        return false;
    zoomAbout(getScale() * (1.0 + event->value()),
              viewport()->mapFromGlobal(event->globalPosition()));
    event->accept();
    return true;
}

bool DiagramView::isPanning() const
{
    return m_spaceHeld || m_panFrom;
}

void DiagramView::mousePressEvent(QMouseEvent *event)
{
    FreeformViewer::mousePressEvent(event);
    if (!event)
        return;
    const bool left = event->button() == Qt::LeftButton;
    if (event->button() == Qt::MiddleButton || (left && m_spaceHeld))
        startPan(event->pos());
    event->accept();
}

void DiagramView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_panFrom) {
        FreeformViewer::mouseMoveEvent(event);
        return;
    }
    showAt(m_panCorner - QPointF(event->pos() - *m_panFrom) / getScale());
    event->accept();
}

void DiagramView::mouseReleaseEvent(QMouseEvent *event)
{
    const bool pans = event->button() == Qt::MiddleButton || event->button() == Qt::LeftButton;
    if (m_panFrom && pans)
        endPan();
    FreeformViewer::mouseReleaseEvent(event);
}

void DiagramView::startPan(const QPoint &position)
{
    if (!getCanvas())
        return;
    m_panFrom = position;
    m_panCorner = corner();
    if (!m_cursorBefore)
        m_cursorBefore = getCanvas()->cursor();
    getCanvas()->setCursor(Qt::ClosedHandCursor);
}

void DiagramView::endPan()
{
    m_panFrom.reset();
    if (!getCanvas())
        return;
    if (m_spaceHeld) {
        getCanvas()->setCursor(Qt::OpenHandCursor);
    } else if (m_cursorBefore) {
        getCanvas()->setCursor(*m_cursorBefore);
        m_cursorBefore.reset();
    }
}

void DiagramView::setSpaceHeld(bool held)
{
    if (held == m_spaceHeld || !getCanvas())
        return;
    m_spaceHeld = held;
    if (held && !m_cursorBefore)
        m_cursorBefore = getCanvas()->cursor();
    if (held)
        getCanvas()->setCursor(Qt::OpenHandCursor);
    else if (!m_panFrom)
        endPan();
}

void DiagramView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier)
        setSpaceHeld(true);
    else if (!zoomByKey(event) && !scrollByKey(event))
        FreeformViewer::keyPressEvent(event);
}

void DiagramView::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space)
        FreeformViewer::keyReleaseEvent(event);
    else if (!event->isAutoRepeat())
        setSpaceHeld(false);
}

// Without the focus the release of the key would not be seen.
void DiagramView::focusOutEvent(QFocusEvent *event)
{
    setSpaceHeld(false);
    FreeformViewer::focusOutEvent(event);
}

bool DiagramView::zoomByKey(const QKeyEvent *event)
{
    if (isZoomIn(event))
        zoomIn();
    else if (event->matches(QKeySequence::ZoomOut))
        zoomOut();
    else if (isControl(event, Qt::Key_0))
        zoomToNormal();
    else if (isControl(event, Qt::Key_9))
        zoomToFit();
    else
        return false;
    return true;
}

// Arrows and pages are known to the scroll area.
bool DiagramView::scrollByKey(const QKeyEvent *event)
{
    const bool home = event->key() == Qt::Key_Home;
    if (!home && event->key() != Qt::Key_End)
        return false;
    for (QScrollBar *bar : {horizontalScrollBar(), verticalScrollBar()})
        bar->setValue(home ? bar->minimum() : bar->maximum());
    return true;
}

} // namespace Velmora::Figura
