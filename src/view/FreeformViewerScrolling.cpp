#include <figura/view/FreeformViewer.h>

#include <figura/view/FreeformWidget.h>

#include <QEvent>
#include <QRegion>
#include <QScrollBar>
#include <QStyle>

// What the viewport shows: the mapping between viewport and content, and the scroll bars.

namespace Velmora::Figura {

QPoint FreeformViewer::scrollOffset() const
{
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

QPointF FreeformViewer::toContent(const QPointF &point)
{
    const QPointF inWidget = point + scrollOffset();
    return m_widget ? m_widget->toLogical(inWidget) : inWidget;
}

QPoint FreeformViewer::toContent(const QPoint &point)
{
    return toContent(QPointF(point)).toPoint();
}

QRectF FreeformViewer::toContent(const QRectF &rect)
{
    const QRectF inWidget = rect.translated(scrollOffset());
    return m_widget ? m_widget->toLogical(inWidget) : inWidget;
}

QRect FreeformViewer::toContent(const QRect &rect)
{
    return toContent(QRectF(rect)).toRect();
}

QPointF FreeformViewer::fromContent(const QPointF &point)
{
    return (m_widget ? m_widget->fromLogical(point) : point) - scrollOffset();
}

QPoint FreeformViewer::fromContent(const QPoint &point)
{
    return fromContent(QPointF(point)).toPoint();
}

QRectF FreeformViewer::fromContent(const QRectF &rect)
{
    return (m_widget ? m_widget->fromLogical(rect) : rect).translated(-scrollOffset());
}

QRect FreeformViewer::fromContent(const QRect &rect)
{
    return fromContent(QRectF(rect)).toRect();
}

int FreeformViewer::getPageStep(Qt::Orientation orientation) const
{
    switch (orientation) {
    case Qt::Horizontal:
        return horizontalScrollBar()->pageStep();
    case Qt::Vertical:
        return verticalScrollBar()->pageStep();
    }
    return 0;
}

QPoint FreeformViewer::getViewLocation()
{
    return toContent(QPointF(0, 0)).toPoint();
}

QRect FreeformViewer::getViewRect()
{
    return toContent(viewport()->rect());
}

void FreeformViewer::setViewLocation(const QPoint &location, bool queued)
{
    if (queued) {
        QMetaObject::invokeMethod(this, "moveViewTo", Qt::QueuedConnection,
                                  Q_ARG(int, location.x()), Q_ARG(int, location.y()));
    } else {
        moveViewTo(location.x(), location.y());
    }
}

void FreeformViewer::moveViewTo(int x, int y)
{
    if (!m_widget)
        return;
    const QPointer<FreeformViewer> self(this);
    m_widget->ensureViewable(QRect(QPoint(x, y), getViewRect().size()), false, true);
    if (!self || !m_widget)
        return;

    const QPoint corner = m_widget->fromLogical(QPointF(x, y)).toPoint();
    scrollTo(corner.x(), corner.y());
    if (self && m_widget && m_widget->isHighlighted())
        m_widget->repaint();
}

void FreeformViewer::resizeViewport(const QSize &size)
{
    resize(size);
    viewport()->resize(size);
}

void FreeformViewer::updateScrollBars(int x, int y)
{
    if (!m_widget)
        return;
    const QSize canvas = m_widget->size();
    const QSize visible = viewport()->size();
    horizontalScrollBar()->setRange(0, canvas.width() - visible.width());
    horizontalScrollBar()->setPageStep(visible.width());
    verticalScrollBar()->setRange(0, canvas.height() - visible.height());
    verticalScrollBar()->setPageStep(visible.height());
    const QPointer<FreeformViewer> self(this);
    scrollTo(x, y);
    if (self && m_widget)
        placeWidget();
}

// The scroll bars tell whoever listens, who may destroy the viewer.
void FreeformViewer::scrollTo(int x, int y)
{
    const QPointer<FreeformViewer> self(this);
    horizontalScrollBar()->setValue(x);
    if (self)
        verticalScrollBar()->setValue(y);
}

// The scroll area would do it, but it is kept out while the zoom resizes the widget.
void FreeformViewer::placeWidget()
{
    const QRect visible = viewport()->rect();
    const QSize canvas = m_widget->size();
    const QRect scrolled =
        QStyle::visualRect(layoutDirection(), visible, QRect(-scrollOffset(), canvas));
    const QRect aligned =
        QStyle::visualRect(layoutDirection(), visible,
                           QStyle::alignedRect(Qt::LeftToRight, Qt::AlignLeft, canvas, visible));
    m_widget->move(canvas.width() < visible.width() ? aligned.x() : scrolled.x(),
                   canvas.height() < visible.height() ? aligned.y() : scrolled.y());
}

void FreeformViewer::resizeEvent(QResizeEvent *event)
{
    const QPointer<FreeformViewer> self(this);
    if (event && m_widget)
        m_widget->ensureViewable(getViewRect(), false, true);
    if (!self)
        return;
    QScrollArea::resizeEvent(event);
    // The scroll area paints the corner between its bars, but asks for nothing when it moves it.
    // One that is resized while it is being resized does so only after the window was painted.
    update(QRegion(rect()) - viewport()->geometry());
    refreshHighlight();
}

bool FreeformViewer::eventFilter(QObject *watched, QEvent *event)
{
    // In the middle of a zoom the scroll area would place the widget by the former scroll values.
    if (event->type() == QEvent::Resize && watched == widget() && m_widget &&
        m_widget->isResizing())
        return false;
    return QScrollArea::eventFilter(watched, event);
}

void FreeformViewer::scrollContentsBy(int dx, int dy)
{
    if (m_widget && m_widget->isResizing())
        return;
    QScrollArea::scrollContentsBy(dx, dy);
    refreshHighlight();
}

void FreeformViewer::evaluateContentBounds()
{
    if (m_widget)
        m_widget->minimizeViewable(toContent(viewport()->rect()));
}

// The frame belongs to the visible area, but is painted on the widget, which scrolls it away.
void FreeformViewer::refreshHighlight()
{
    if (m_widget && m_widget->isHighlighted())
        m_widget->update();
}

} // namespace Velmora::Figura
