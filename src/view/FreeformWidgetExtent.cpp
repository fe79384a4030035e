#include <figura/view/FreeformWidget.h>

#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>

#include <QtNumeric>

#include <algorithm>

// How large the canvas is: scale, size and point at origin of the widget, and the content's bounds.

namespace Velmora::Figura {
namespace {

bool isUsableScale(double scale)
{
    return scale > 0.0 && qIsFinite(scale);
}

QRect scaledAbout(const QPoint &centre, double factor, const QRect &rect)
{
    return QTransform::fromScale(factor, factor)
        .mapRect(rect.translated(-centre))
        .translated(centre);
}

} // namespace

QSize FreeformWidget::sizeHint() const
{
    const QRect extent = contentExtent();
    if (!extent.isValid())
        return minimumSize();

    // The mapping is not const in the interface, though it changes nothing.
    auto *self = const_cast<FreeformWidget *>(this);
    return self->fromLogical(QRectF(withMargins(extent))).size().toSize();
}

double FreeformWidget::getScale() const
{
    return m_scale;
}

double FreeformWidget::setScale(double scale, const QPoint *at)
{
    return scale < 0.0 ? fitToViewport(scale) : adjustSizeToScale(scale, at);
}

double FreeformWidget::setScaleAt(double scale, const QPoint &at)
{
    const double clamped = clampedScale(scale);
    if (scale < 0.0 || !isUsableScale(clamped) || clamped == m_scale)
        return m_scale;
    return applyScale(clamped, &at, nullptr);
}

void FreeformWidget::setScaleBounds(double a, double b)
{
    m_minimumScale = std::min(a, b);
    m_maximumScale = std::max(a, b);
    if (m_minimumScale > 0.0)
        adjustSizeToScale(m_scale, nullptr);
}

void FreeformWidget::resetScaleBounds()
{
    m_minimumScale = -1.0;
    m_maximumScale = -1.0;
}

bool FreeformWidget::isResizing() const
{
    return m_resizing;
}

// A single bound does not clamp at all, on purpose.
double FreeformWidget::clampedScale(double scale) const
{
    if (m_minimumScale > 0.0 && m_maximumScale > 0.0)
        return std::clamp(scale, m_minimumScale, m_maximumScale);
    return scale;
}

// The fitting scale is in force and returned without regard to the scale bounds; they clamp only
// what adjustSizeToScale() makes of it.
double FreeformWidget::fitToViewport(double request)
{
    const QPointer<FreeformWidget> self(this);
    const QRect content = contentExtent();
    if (!self || !content.isValid())
        return request;

    const QRect extent = withMargins(content);
    const QSize visible = m_viewer ? m_viewer->viewport()->size() : size();
    const double scale = std::min(double(visible.width()) / extent.width(),
                                  double(visible.height()) / extent.height());
    if (!isUsableScale(scale))
        return m_scale;

    m_scale = scale;
    const QPoint half(int(visible.width() / scale) / 2, int(visible.height() / scale) / 2);
    const QPoint topLeft = extent.center() - half;
    adjustSizeToScale(scale, &topLeft);
    return scale;
}

double FreeformWidget::adjustSizeToScale(double scale, const QPoint *at)
{
    const double clamped = clampedScale(scale);
    if (!isUsableScale(clamped) || (clamped == m_scale && !at))
        return m_scale;
    return applyScale(clamped, nullptr, at);
}

// Without a fixed point the view keeps its own centre.
double FreeformWidget::applyScale(double scale, const QPoint *fixedPoint, const QPoint *topLeft)
{
    // Figures are measured and announce their new bounds: the application may destroy the viewer.
    const QPointer<FreeformWidget> self(this);
    QRect extent = contentExtent();
    if (!self)
        return scale;
    if (!extent.isValid() || !m_content)
        return m_scale;

    const bool wasResizing = m_resizing; // a slot may zoom again while we tell of the first zoom
    m_resizing = true;
    extent = withMargins(extent);
    QRect view = viewRect();
    if (scale != m_scale)
        view = scaledAbout(fixedPoint ? *fixedPoint : view.center(), m_scale / scale, view);
    if (topLeft)
        view.moveTopLeft(*topLeft);
    if (!extent.contains(view))
        extent |= view;

    setTransformation(extent.x(), extent.y(), scale);

    m_content->setFreeformBounds(extent);
    if (!self)
        return scale;

    resizeTo(extent);
    if (m_viewer) {
        const QPoint corner = fromLogical(QPointF(view.topLeft())).toPoint();
        m_viewer->updateScrollBars(corner.x(), corner.y());
    }
    if (self)
        m_resizing = wasResizing;
    return scale;
}

bool FreeformWidget::ensureViewable(const QRect &rect, bool withMargins, bool apply)
{
    if (!m_content || !rect.isValid())
        return false;
    const QRect bounds = m_content->getBounds();
    if (bounds.contains(rect))
        return false;

    QRect grown = withMargins ? this->withMargins(rect) : rect;
    if (bounds.isValid())
        grown |= bounds;
    if (!apply)
        return true;

    const QPointer<FreeformWidget> self(this);
    m_content->setFreeformBounds(grown);
    if (!self)
        return true;
    if (grown.topLeft() != bounds.topLeft())
        setPointAtOrigin(grown.topLeft());
    resizeTo(grown);
    return true;
}

void FreeformWidget::minimizeViewable(const QRect &rect)
{
    if (!m_content)
        return;
    const QPointer<FreeformWidget> self(this);
    const QRect bounds = m_content->getBounds();
    const QRect extent = contentExtent();
    if (!self || !m_content)
        return;
    QRect shrunk = withMargins(extent);
    if (rect.isValid())
        shrunk |= rect;
    if (shrunk == bounds)
        return;

    m_content->setFreeformBounds(shrunk);
    if (!self)
        return;
    setPointAtOrigin(shrunk.topLeft());
    if (shrunk.size() != bounds.size()) {
        hide();
        resizeTo(shrunk);
        show();
    }
}

void FreeformWidget::saveBounds()
{
    if (m_content)
        m_savedBounds = m_content->getBounds();
}

void FreeformWidget::restoreBounds()
{
    if (m_content)
        m_content->setBounds(m_savedBounds);
}

void FreeformWidget::resizeTo(const QRect &bounds)
{
    resize(fromLogical(QRectF(bounds)).toRect().size());
}

QRect FreeformWidget::contentExtent() const
{
    return m_content ? m_content->getFreeformExtent() : QRect();
}

// Without a viewer all of the widget counts as visible.
QRect FreeformWidget::viewRect()
{
    return m_viewer ? m_viewer->getViewRect() : toLogical(QRectF(rect())).toRect();
}

QRect FreeformWidget::withMargins(const QRect &rect) const
{
    return rect.adjusted(-m_xMargin, -m_yMargin, m_xMargin, m_yMargin);
}

} // namespace Velmora::Figura
