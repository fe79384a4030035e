#include "GraphView.h"

#include "scene/GraphScene.h"

#include <figura/view/FreeformWidget.h>

#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

using Velmora::Figura::FreeformViewer;
using Velmora::Figura::FreeformWidget;

namespace GraphViewer {
namespace {

constexpr double zoomStep = 1.25;
constexpr double minimumScale = 0.002;
constexpr double maximumScale = 32;
constexpr int margin = 20;

// Qt's widgets cannot be larger than 2^24 pixels; the margin is for the empty paper around.
constexpr double largestCanvas = 12'000'000;

} // namespace

GraphView::GraphView(QWidget *parent)
    : FreeformViewer(parent)
{
    setXYMargins(margin, margin);
    // Graphs are drawn for white paper, whatever colours the desktop has.
    canvas()->setProperty("backgroundColor", QColor(Qt::white));
}

FreeformWidget *GraphView::canvas() const
{
    return static_cast<FreeformWidget *>(widget());
}

void GraphView::setScene(GraphScene *scene)
{
    m_scene = scene;
    setContent(scene->content());
    limitScale();
    showAll();
    update();
}

void GraphView::limitScale()
{
    const QSize size = m_scene->area().size();
    const int longest = qMax(size.width(), size.height());
    setScaleBounds(minimumScale, qMin(maximumScale, largestCanvas / longest));
}

void GraphView::showAll()
{
    if (!m_scene)
        return;
    scaleToFit();
    if (getScale() > 1)
        scaleToNormal();
}

// Only now is the size of the window known.
void GraphView::showEvent(QShowEvent *event)
{
    FreeformViewer::showEvent(event);
    if (!m_shownOnce)
        showAll();
    m_shownOnce = true;
}

void GraphView::zoomIn()
{
    zoomAbout(getScale() * zoomStep, centre());
}

void GraphView::zoomOut()
{
    zoomAbout(getScale() / zoomStep, centre());
}

void GraphView::zoomAbout(double scale, const QPointF &position)
{
    const QPointF content = toContent(position);
    canvas()->setScaleAt(scale, content.toPoint());
    // The canvas keeps whole units in place; far zoomed in, the rest is many pixels.
    scrollBy((fromContent(content) - position).toPoint());
    Q_EMIT scaleChanged(getScale());
}

void GraphView::scrollBy(const QPoint &pixels)
{
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + pixels.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + pixels.y());
}

QPointF GraphView::centre() const
{
    return QRectF(viewport()->rect()).center();
}

void GraphView::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        FreeformViewer::wheelEvent(event);
        return;
    }
    constexpr double notch = 120;
    zoomAbout(getScale() * std::pow(zoomStep, event->angleDelta().y() / notch), event->position());
    event->accept();
}

void GraphView::mousePressEvent(QMouseEvent *event)
{
    FreeformViewer::mousePressEvent(event);
    if (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton) {
        m_dragFrom = event->pos();
        setCursor(Qt::ClosedHandCursor);
    }
    event->accept();
}

void GraphView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_dragFrom)
        return;
    scrollBy(*m_dragFrom - event->pos());
    m_dragFrom = event->pos();
}

void GraphView::mouseReleaseEvent(QMouseEvent *)
{
    m_dragFrom.reset();
    unsetCursor();
}

} // namespace GraphViewer
