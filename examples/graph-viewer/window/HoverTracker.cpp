#include "HoverTracker.h"

#include "GraphView.h"
#include "scene/GraphScene.h"

#include <figura/view/FreeformWidget.h>

#include <QHoverEvent>

#include <cmath>

namespace GraphViewer {

HoverTracker::HoverTracker(GraphView *view)
    : QObject(view)
    , m_view(view)
{
    view->installEventFilter(this); // the canvas posts its hover events to the viewer
    view->canvas()->installEventFilter(this);
}

void HoverTracker::reset()
{
    setElement(nullptr);
}

bool HoverTracker::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_view && event->type() == QEvent::HoverMove)
        moveTo(static_cast<QHoverEvent *>(event)->position());
    else if (watched == m_view->canvas() && event->type() == QEvent::Leave)
        reset();
    return QObject::eventFilter(watched, event);
}

void HoverTracker::moveTo(const QPointF &canvasPosition)
{
    const QPoint point = m_view->canvas()->toLogical(canvasPosition).toPoint();
    GraphScene *scene = m_view->scene();
    setElement(scene ? scene->elementAt(point, tolerance()) : nullptr);
}

// A few pixels on the screen, whatever the zoom.
int HoverTracker::tolerance() const
{
    constexpr double pixels = 4;
    return qMax(1, static_cast<int>(std::ceil(pixels / m_view->getScale())));
}

void HoverTracker::setElement(Element *element)
{
    if (element == m_element.get())
        return;
    light(m_element.get(), false);
    light(element, true);
    m_element = element;
    Q_EMIT hovered(element ? element->title() : QString());
}

void HoverTracker::light(Element *element, bool on)
{
    if (!element)
        return;
    element->setHot(on);
    // Far zoomed out, lines are still one pixel wide, which is more than the units that the figure
    // asks to repaint.
    const QRectF rect = m_view->canvas()->fromLogical(QRectF(element->absoluteRect()));
    m_view->canvas()->update(rect.toAlignedRect().adjusted(-2, -2, 2, 2));
}

} // namespace GraphViewer
