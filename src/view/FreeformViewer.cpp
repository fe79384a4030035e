#include <figura/view/FreeformViewer.h>

#include "damage_p.h"
#include "figure/paintreach_p.h"

#include <figura/figure/Figure.h>
#include <figura/layout/PageLayout.h>
#include <figura/view/FreeformWidget.h>
#include <figura/view/UpdateManager.h>

#include <QMimeData>
#include <QMouseEvent>
#include <QPixmap>
#include <QScrollBar>

// The widget may be gone (QScrollArea hands it out), and events arrive before it is there.

namespace Velmora::Figura {

FreeformViewer::FreeformViewer(QWidget *parent)
    : QScrollArea(parent)
    , m_widget(new FreeformWidget(this))
{
    FreeformViewer::setUpdateManager(new UpdateManager(this));
    setBackgroundRole(QPalette::Dark);
    setWidget(m_widget);
    connect(horizontalScrollBar(), SIGNAL(sliderReleased()), this, SLOT(evaluateContentBounds()));
    connect(verticalScrollBar(), SIGNAL(sliderReleased()), this, SLOT(evaluateContentBounds()));
}

FreeformViewer::~FreeformViewer()
{
    // Managers may outlive the viewer, those that wait for their deletion included.
    for (const QPointer<UpdateManager> &manager : std::as_const(m_pointingHere)) {
        if (manager && manager->getViewer() == this)
            manager->setViewer(nullptr);
    }
}

void FreeformViewer::print(QPrinter *printer, const QString &layerName, const QRect &rect) const
{
    if (m_widget)
        m_widget->print(printer, layerName, rect);
}

void FreeformViewer::copy(QMimeData *mimeData, const QString &layerName, const QRect &rect)
{
    if (mimeData && m_widget)
        mimeData->setImageData(m_widget->printToPixmap(layerName, rect));
}

UpdateManager *FreeformViewer::getUpdateManager()
{
    return m_updateManager;
}

void FreeformViewer::setUpdateManager(UpdateManager *manager)
{
    // Also when it is the same one, which the caller must not do.
    if (m_updateManager)
        m_updateManager->deleteLater();
    m_updateManager = manager;
    if (!manager)
        return;

    m_pointingHere.removeAll(nullptr);
    m_pointingHere.append(manager);
    manager->setViewer(this);
    if (m_widget)
        m_widget->setUpdateManager(manager);
}

IViewport *FreeformViewer::getViewport()
{
    return this;
}

void FreeformViewer::updateContentRect(const QRect &rect)
{
    if (m_widget && m_widget->m_damage->isWanted())
        m_widget->m_damage->add(damagedPixels(rect));
}

// At scale 1 whole units are whole pixels. At any other scale the nearest pixels may not hold all
// of the rectangle.
QRect FreeformViewer::damagedPixels(const QRect &rect) const
{
    if (!rect.isValid())
        return m_widget->fromLogical(QRectF(rect)).toRect();

    const int reach = PaintReach::Damage::reach();
    const int more =
        PaintReach::pixelsAround(m_widget->getScale(), m_widget->m_damage->devicePixelRatio());
    return m_widget->fromLogical(QRectF(rect.adjusted(-reach, -reach, reach, reach)))
        .toAlignedRect()
        .adjusted(-more, -more, more, more);
}

QRect &FreeformViewer::elasticBand()
{
    if (m_widget)
        return m_widget->elasticBand();
    m_noBand = QRect();
    return m_noBand;
}

QPoint FreeformViewer::toGlobal(const QPoint &point)
{
    return m_widget ? m_widget->mapToGlobal(point) : point;
}

QPoint FreeformViewer::fromGlobal(const QPoint &point)
{
    return m_widget ? m_widget->mapFromGlobal(point) : point;
}

Figure *FreeformViewer::getContent() const
{
    return m_widget ? m_widget->getContent() : nullptr;
}

bool FreeformViewer::setContent(Figure *content)
{
    return m_widget && m_widget->setContent(content);
}

void FreeformViewer::update()
{
    if (m_widget)
        m_widget->update();
}

void FreeformViewer::repaint()
{
    if (m_widget)
        m_widget->repaint();
}

void FreeformViewer::setXYMargins(int xMargin, int yMargin)
{
    if (m_widget)
        m_widget->setMargins(xMargin, yMargin);
}

double FreeformViewer::getScale() const
{
    return m_widget ? m_widget->getScale() : 1.0;
}

void FreeformViewer::resetScaleBounds()
{
    if (m_widget)
        m_widget->resetScaleBounds();
}

void FreeformViewer::enableExtentHandling(bool on)
{
    if (m_widget)
        m_widget->enableExtentHandling(on);
}

bool FreeformViewer::extentHandlingEnabled() const
{
    return m_widget && m_widget->extentHandlingEnabled();
}

void FreeformViewer::setHighlighted(bool highlighted)
{
    if (m_widget)
        m_widget->setHighlighted(highlighted);
}

void FreeformViewer::setHighlightStyle(int style)
{
    if (m_widget)
        m_widget->setHighlightStyle(style);
}

void FreeformViewer::setPageLayout(PageLayout *pageLayout)
{
    m_pageLayout = pageLayout;
}

PageLayout *FreeformViewer::getPageLayout() const
{
    return m_pageLayout;
}

QPoint FreeformViewer::getLastClickLocation()
{
    if (!m_lastClickValid) {
        m_lastClickLocation = getViewRect().center();
        m_lastClickValid = true;
    }
    return m_lastClickLocation;
}

void FreeformViewer::resetLastClickLocation()
{
    m_lastClickValid = false;
}

void FreeformViewer::mousePressEvent(QMouseEvent *event)
{
    if (!event)
        return;
    m_lastClickLocation = toContent(event->pos());
    m_lastClickValid = true;
    QScrollArea::mousePressEvent(event);
}

void FreeformViewer::setScale(double scale, QPoint *pTopLeft)
{
    if (!m_widget)
        return;
    const QPointer<FreeformViewer> self(this);
    const double scaleInForce = m_widget->setScale(scale, pTopLeft);
    if (self)
        Q_EMIT scaleChanged(scaleInForce);
}

void FreeformViewer::scaleToFit()
{
    // The second pass sees the viewport that the scroll bars leave after the first one.
    const QPointer<FreeformViewer> self(this);
    for (int pass = 0; pass < 2 && self; ++pass)
        setScale(-1.0, nullptr);
}

void FreeformViewer::scaleToNormal()
{
    setScale(1.0, nullptr);
}

void FreeformViewer::setScaleBounds(double a, double b)
{
    if (m_widget)
        m_widget->setScaleBounds(a, b);
}

} // namespace Velmora::Figura
