#include "NodeDrag.h"

#include "GraphView.h"
#include "scene/GraphScene.h"

#include <figura/view/FreeformWidget.h>

#include <QMouseEvent>

namespace GraphViewer {

NodeDrag::NodeDrag(GraphView *view)
    : QObject(view)
    , m_view(view)
{
    view->canvas()->installEventFilter(this);
}

bool NodeDrag::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent *>(event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool NodeDrag::press(const QMouseEvent *event)
{
    GraphScene *scene = m_view->scene();
    if (!scene || event->button() != Qt::LeftButton)
        return false;
    const QPoint point = content(event);
    auto *node = dynamic_cast<ElementFigure *>(scene->elementAt(point, 0));
    if (!node || node->kind() != ElementFigure::Kind::Node)
        return false;
    m_node = node;
    m_grip = point - node->getBounds().topLeft();
    m_view->canvas()->setCursor(Qt::SizeAllCursor);
    return true;
}

bool NodeDrag::move(const QMouseEvent *event)
{
    if (!m_node)
        return false;
    const QPoint corner = content(event) - m_grip;
    if (corner != m_node->getBounds().topLeft())
        m_view->scene()->moveNode(m_node, corner);
    return true;
}

// The canvas grows now and not on the way: it would slide away under the mouse.
bool NodeDrag::release(const QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    m_view->canvas()->unsetCursor(); // also when another graph has come meanwhile
    if (!m_node)
        return false;
    m_view->scene()->settle();
    m_view->canvas()->ensureViewable(m_node->absoluteRect(), true, true);
    m_node = nullptr;
    return true;
}

QPoint NodeDrag::content(const QMouseEvent *event) const
{
    return m_view->canvas()->toLogical(event->position()).toPoint();
}

} // namespace GraphViewer
