#include <figura/diagram/DiagramView.h>

#include "diagrampane_p.h"

#include <figura/view/FreeformWidget.h>
#include <figura/view/UpdateManager.h>

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QtNumeric>

#include <algorithm>
#include <cmath>

// How large the canvas is, and which part of it is visible.
//
// The canvas holds the content with its margins and what is visible. It is measured anew whenever
// either changes, such that the content point at the top left pixel stays there.

namespace Velmora::Figura {
namespace {

constexpr double zoomStep = 1.25;

// Qt's widgets cannot be larger than 2^24 pixels.
constexpr double largestCanvas = 12'000'000;

bool isInside(double from, double to, double viewFrom, double viewTo)
{
    constexpr double tolerance = 1.0; // whole units are not always whole pixels
    return from >= viewFrom - tolerance && to <= viewTo + tolerance;
}

// The least move of the interval that shows the other one, or else its beginning.
double revealed(double from, double length, double wantedFrom, double wantedLength)
{
    if (wantedFrom < from || wantedLength > length)
        return wantedFrom;
    return std::max(from, wantedFrom + wantedLength - length);
}

Qt::ScrollBarPolicy policy(bool needed)
{
    return needed ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
}

} // namespace

void DiagramView::queueFollow()
{
    if (m_followQueued)
        return;
    m_followQueued = true;
    QMetaObject::invokeMethod(this, &DiagramView::follow, Qt::QueuedConnection);
}

// Not while a scroll bar is dragged: it would change its range under the mouse.
void DiagramView::follow()
{
    m_followQueued = false;
    if (horizontalScrollBar()->isSliderDown() || verticalScrollBar()->isSliderDown())
        return;
    if (UpdateManager *manager = getUpdateManager())
        manager->performUpdate();
    showAt(corner());
}

QSizeF DiagramView::viewSize() const
{
    return QSizeF(viewport()->size()) / getScale();
}

// Scroll bars count whole pixels. What they cannot say is kept until somebody else moves them.
QPointF DiagramView::corner()
{
    if (m_corner && m_cornerScale == getScale())
        return *m_corner;
    return toContent(QPointF(0, 0));
}

QRect DiagramView::paperOfContent() const
{
    auto *pane = qobject_cast<FreeformLayeredPane *>(getContent());
    if (!getCanvas())
        return {};
    const QRect extent = pane ? pane->getFreeformExtent() : QRect();
    const int x = getCanvas()->getXMargin();
    const int y = getCanvas()->getYMargin();
    return extent.isValid() ? extent.adjusted(-x, -y, x, y) : QRect();
}

void DiagramView::showAt(const QPointF &corner)
{
    if (!getCanvas() || !getContent() || m_adjusting)
        return;
    const QScopedValueRollback<bool> adjusting(m_adjusting, true);
    m_corner = corner;
    m_cornerScale = getScale();

    const QRect paper = paperOfContent();
    chooseScrollBars(paper);
    QRectF area(corner, viewSize());
    if (paper.isValid())
        area |= QRectF(paper);
    resizeCanvas(area);
    scrollTo(corner);
}

// By the view without scroll bars, so that one that appears cannot make itself necessary.
void DiagramView::chooseScrollBars(const QRect &content)
{
    const QRectF paper(content);
    const QRectF view(*m_corner, QSizeF(maximumViewportSize()) / getScale());
    const bool fitsAcross = isInside(paper.left(), paper.right(), view.left(), view.right());
    const bool fitsDown = isInside(paper.top(), paper.bottom(), view.top(), view.bottom());
    setHorizontalScrollBarPolicy(policy(content.isValid() && !fitsAcross));
    setVerticalScrollBarPolicy(policy(content.isValid() && !fitsDown));
}

void DiagramView::resizeCanvas(const QRectF &area)
{
    constexpr double noise = 1e-6; // of the division and multiplication by the scale
    const double scale = getScale();
    const QPoint origin(static_cast<int>(std::floor(area.left())),
                        static_cast<int>(std::floor(area.top())));
    const QSizeF exact((area.right() - origin.x()) * scale, (area.bottom() - origin.y()) * scale);
    const QSize pixels(static_cast<int>(std::ceil(exact.width() - noise)),
                       static_cast<int>(std::ceil(exact.height() - noise)));

    static_cast<FreeformLayeredPane *>(getContent())
        ->setFreeformBounds(QRectF(origin, QSizeF(pixels) / scale).toAlignedRect());
    FreeformWidget *canvas = getCanvas();
    canvas->setPointAtOrigin(origin);
    if (canvas->size() != pixels) {
        canvas->resize(pixels);
        Q_EMIT viewChanged();
    }
}

// The ranges too, which the scroll area renews only while it is visible.
void DiagramView::scrollTo(const QPointF &corner)
{
    const QPoint pixel = getCanvas()->fromLogical(corner).toPoint();
    const QSize room = getCanvas()->size() - viewport()->size();
    horizontalScrollBar()->setRange(0, std::max(room.width(), 0));
    verticalScrollBar()->setRange(0, std::max(room.height(), 0));
    horizontalScrollBar()->setValue(pixel.x());
    verticalScrollBar()->setValue(pixel.y());
}

void DiagramView::scrollContentsBy(int dx, int dy)
{
    FreeformViewer::scrollContentsBy(dx, dy);
    if (!m_adjusting) {
        m_corner.reset();
        queueFollow(); // paper that was only there to be visible may go
    }
    Q_EMIT viewChanged();
}

void DiagramView::resizeEvent(QResizeEvent *event)
{
    const QPointF kept = corner();
    {
        const QScopedValueRollback<bool> adjusting(m_adjusting, true);
        FreeformViewer::resizeEvent(event);
    }
    showAt(kept);
    Q_EMIT viewChanged();
}

void DiagramView::showEvent(QShowEvent *event)
{
    FreeformViewer::showEvent(event);
    if (m_placed)
        follow();
    else
        place();
}

// What a diagram that comes into view shows first.
void DiagramView::place()
{
    m_placed = true;
    if (m_diagram)
        m_diagram->validate();
    const QRectF paper(paperOfContent());
    if (paper.isEmpty()) {
        showAt(QPointF(0, 0));
        return;
    }
    const QSizeF view = QSizeF(maximumViewportSize()) / getScale();
    const QPointF centred = paper.center() - QPointF(view.width(), view.height()) / 2.0;
    showAt(QPointF(paper.width() > view.width() ? paper.left() : std::round(centred.x()),
                   paper.height() > view.height() ? paper.top() : std::round(centred.y())));
}

double DiagramView::largestScale() const
{
    const QRect paper = paperOfContent();
    return largestCanvas / std::max({paper.width(), paper.height(), 1});
}

void DiagramView::zoomAbout(double scale, const QPointF &position)
{
    if (!(scale > 0.0) || !qIsFinite(scale) || !getCanvas())
        return;
    const QPointF fixed = corner() + position / getScale();
    {
        const QScopedValueRollback<bool> adjusting(m_adjusting, true);
        auto *pane = dynamic_cast<DiagramPane *>(getContent());
        if (pane)
            pane->setStandIn(getViewRect());
        getCanvas()->setScaleAt(std::min(scale, largestScale()), fixed.toPoint());
        if (pane)
            pane->setStandIn(QRect());
    }
    // The base keeps whole units in place; far zoomed in, the rest is many pixels.
    showAt(fixed - position / getScale());
    Q_EMIT scaleChanged(getScale());
}

void DiagramView::zoomIn()
{
    zoomAbout(getScale() * zoomStep, QRectF(viewport()->rect()).center());
}

void DiagramView::zoomOut()
{
    zoomAbout(getScale() / zoomStep, QRectF(viewport()->rect()).center());
}

void DiagramView::zoomToNormal()
{
    zoomAbout(1.0, QRectF(viewport()->rect()).center());
}

void DiagramView::zoomToFit()
{
    if (m_diagram)
        m_diagram->validate();
    const QRectF paper(paperOfContent());
    if (paper.isEmpty()) {
        zoomToNormal();
        return;
    }
    const QSizeF visible(maximumViewportSize());
    const double fitting =
        std::min({1.0, visible.width() / paper.width(), visible.height() / paper.height()});
    zoomAbout(fitting, QPointF(0, 0));
    const QSizeF view = visible / getScale();
    showAt(paper.center() - QPointF(view.width(), view.height()) / 2.0);
}

void DiagramView::centerOn(const QPointF &point)
{
    const QSizeF view = viewSize();
    showAt(point - QPointF(view.width(), view.height()) / 2.0);
}

void DiagramView::reveal(const QRect &rect)
{
    const QSizeF view = viewSize();
    const QPointF now = corner();
    const QPointF wanted(revealed(now.x(), view.width(), rect.x(), rect.width()),
                         revealed(now.y(), view.height(), rect.y(), rect.height()));
    if (rect.isValid() && wanted != now)
        showAt(wanted);
}

} // namespace Velmora::Figura
