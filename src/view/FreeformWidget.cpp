#include <figura/view/FreeformWidget.h>

#include "secondturn_p.h"

#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/UpdateManager.h>

#include <QCoreApplication>
#include <QHoverEvent>
#include <QMessageLogger>

#include <algorithm>

namespace Velmora::Figura {

FreeformWidget::FreeformWidget(FreeformViewer *viewer, Qt::WindowFlags flags)
    : QWidget(viewer, flags)
    , m_viewer(viewer)
    , m_secondTurn(std::make_unique<SecondTurn>(this))
{
    setAttribute(Qt::WA_Hover);
    setAttribute(Qt::WA_MouseTracking);
    setTransformation(0.0, 0.0, 1.0);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setMinimumSize(300, 200);
}

FreeformWidget::~FreeformWidget() = default;

UpdateManager *FreeformWidget::getUpdateManager() const
{
    return m_updateManager;
}

void FreeformWidget::setUpdateManager(UpdateManager *manager)
{
    if (manager == m_updateManager)
        return;
    if (m_updateManager && m_updateManager->m_widget == this)
        m_updateManager->m_widget = nullptr;
    m_updateManager = manager;
    if (manager)
        manager->m_widget = this;
    if (m_content)
        m_content->setUpdateManager(manager);
}

QRect &FreeformWidget::elasticBand()
{
    return m_elasticBand;
}

bool FreeformWidget::setContent(Figure *content)
{
    auto *pane = qobject_cast<FreeformLayeredPane *>(content);
    if (!pane) {
        QMessageLogger().warning("FreeformWidget::setContent(): "
                                 "assigned content not a FreeformedLayeredPane");
        return false;
    }

    m_content = pane;
    pane->setBackgroundColor(Qt::transparent);
    pane->addNotify();
    connect(pane, SIGNAL(extentChanged()), this, SLOT(contentExtentChanged()));
    if (m_updateManager)
        m_updateManager->addInvalidFigure(pane);
    pane->setUpdateManager(m_updateManager);
    return true;
}

Figure *FreeformWidget::getContent() const
{
    return m_content;
}

bool FreeformWidget::isReady() const
{
    return m_content && m_updateManager;
}

QPointF FreeformWidget::toLogical(const QPointF &point)
{
    return m_toLogical.map(point);
}

QRectF FreeformWidget::toLogical(const QRectF &rect)
{
    return m_toLogical.mapRect(rect);
}

QPointF FreeformWidget::fromLogical(const QPointF &point)
{
    return m_toWidget.map(point);
}

QRectF FreeformWidget::fromLogical(const QRectF &rect)
{
    return m_toWidget.mapRect(rect);
}

QPointF FreeformWidget::getPointAtOrigin() const
{
    return {m_originX, m_originY};
}

void FreeformWidget::setPointAtOrigin(const QPoint &point)
{
    if (double(point.x()) != m_originX || double(point.y()) != m_originY)
        setTransformation(point.x(), point.y(), m_scale);
}

void FreeformWidget::setTransformation(double originX, double originY, double scale)
{
    m_originX = originX;
    m_originY = originY;
    m_scale = scale;
    m_toLogical = QTransform(1.0 / scale, 0.0, 0.0, 1.0 / scale, originX, originY);
    m_toWidget = m_toLogical.inverted();
    update();
}

void FreeformWidget::setMargins(int xMargin, int yMargin)
{
    m_xMargin = std::max(xMargin, 0);
    m_yMargin = std::max(yMargin, 0);
}

int FreeformWidget::getXMargin() const
{
    return m_xMargin;
}

int FreeformWidget::getYMargin() const
{
    return m_yMargin;
}

void FreeformWidget::enableExtentHandling(bool on)
{
    m_extentHandling = on;
    if (on)
        contentExtentChanged();
}

bool FreeformWidget::extentHandlingEnabled() const
{
    return m_extentHandling;
}

void FreeformWidget::contentExtentChanged()
{
    // Reading fills the layouts' caches. To grow the canvas here as well would move what the user
    // looks at with every figure that is dragged outwards.
    if (m_extentHandling)
        contentExtent();
}

void FreeformWidget::setHighlighted(bool highlighted)
{
    if (highlighted == m_highlighted)
        return;
    m_highlighted = highlighted;
    repaint();
}

bool FreeformWidget::isHighlighted() const
{
    return m_highlighted;
}

void FreeformWidget::setHighlightStyle(int style)
{
    m_highlightStyle = style;
    if (m_highlighted)
        repaint();
}

int FreeformWidget::getHighlightStyle() const
{
    return m_highlightStyle;
}

bool FreeformWidget::event(QEvent *event)
{
    // Posted, not sent, so that the viewer never handles it in the middle of our own handling.
    if (event->type() == QEvent::HoverMove && m_viewer) {
        const auto *hover = static_cast<QHoverEvent *>(event);
        QCoreApplication::postEvent(m_viewer,
                                    new QHoverEvent(hover->type(), hover->position(),
                                                    hover->globalPosition(), hover->oldPosF()));
    }
    return QWidget::event(event);
}

} // namespace Velmora::Figura
