#include <figura/view/FreeformWidget.h>

#include "figure/paintreach_p.h"

#include <figura/geometry/IStyleConstants.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/UpdateManager.h>

#include <QPainter>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyleOptionRubberBand>

namespace Velmora::Figura {

QStyleOptionViewItem FreeformWidget::viewOptions()
{
    QStyleOptionViewItem option;
    option.initFrom(this);
    return option;
}

void FreeformWidget::paintEvent(QPaintEvent *event)
{
    if (!isReady())
        return;
    const QPointer<FreeformWidget> self(this);
    m_updateManager->performUpdate();
    if (!self || !isReady()) // validation runs the application's code
        return;

    QPainter painter(this);
    painter.save();
    // Filled only when set: an invalid colour would come out black instead of the palette's Base.
    const auto background = property("backgroundColor").value<QColor>();
    if (background.isValid())
        painter.fillRect(event->rect(), background);

    painter.setTransform(m_toWidget);
    paintContent(&painter, event->rect());
    paintElasticBand(&painter);
    painter.restore();
    paintHighlight(&painter);
}

// The damage in logical units. At scale 1 that is exact. At any other scale the units that are
// damaged only in part belong to it, and so do figures just outside that reach in with half of a
// one-unit pen, or with the whole pixel that even the thinnest line takes: rounding to the nearest
// would leave these pixels unpainted.
QRect FreeformWidget::optionRect(const QRect &widgetRect)
{
    if (m_scale == 1.0)
        return toLogical(QRectF(widgetRect)).toRect();
    const int more = PaintReach::pixelsAround(m_scale, devicePixelRatioF());
    return toLogical(QRectF(widgetRect.adjusted(-more, -more, more, more))).toAlignedRect();
}

void FreeformWidget::paintContent(QPainter *painter, const QRect &widgetRect)
{
    QStyleOptionViewItem option = viewOptions();
    option.rect = optionRect(widgetRect);
    m_content->render(painter, option);
}

void FreeformWidget::paintElasticBand(QPainter *painter)
{
    if (!m_elasticBand.isValid())
        return;
    // Cut off well outside the widget, so that a band far larger than it costs no more.
    const QRectF surroundings = toLogical(QRectF(rect().adjusted(-16, -16, 16, 16)));
    paintBand(painter, m_elasticBand & surroundings.toAlignedRect());
}

void FreeformWidget::paintHighlight(QPainter *painter)
{
    if (!m_highlighted || !m_viewer)
        return;

    const QPoint offset(m_viewer->horizontalScrollBar()->value(),
                        m_viewer->verticalScrollBar()->value());
    const QRect visible = m_viewer->viewport()->rect().translated(offset);
    if (m_highlightStyle == IStyleConstants::HIGHLIGHT_RUBBERBAND) {
        paintBand(painter, visible);
        return;
    }

    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.state |= QStyle::State_KeyboardFocusChange;
    option.rect = visible;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, painter, this);
}

void FreeformWidget::paintBand(QPainter *painter, const QRect &rect)
{
    QStyleOptionRubberBand option;
    option.initFrom(this);
    option.shape = QRubberBand::Rectangle;
    option.opaque = false;
    option.rect = rect;
    style()->drawControl(QStyle::CE_RubberBand, &option, painter, this);
}

} // namespace Velmora::Figura
