#include <figura/view/FreeformWidget.h>

#include "figure/childwalk_p.h"

#include <figura/layout/PageLayout.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/UpdateManager.h>

#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QVariant>

#include <algorithm>

namespace Velmora::Figura {
namespace {

QRectF pageRect(PageLayout *pageLayout, QPainter *painter)
{
    if (pageLayout)
        return pageLayout->getContentRect(painter);
    return QRectF(0, 0, painter->device()->width(), painter->device()->height());
}

// Puts the area's top left on the page's, scaled by factor.
QTransform pageTransform(const QRect &area, const QRectF &page, double factor)
{
    QTransform toLogical(1.0 / factor, 0.0, 0.0, 1.0 / factor, area.x(), area.y());
    toLogical.translate(-page.x(), -page.y());
    return toLogical.inverted();
}

// Qt's PDF engine is not told of a pen that equals the painter's first one: what is outlined with
// it comes out in a hairline. Another pen in between makes it listen.
void announcePen(QPainter *painter)
{
    const QPen pen = painter->pen();
    painter->setPen(Qt::NoPen);
    painter->setPen(pen);
}

bool hasFailed(const QPrinter *printer)
{
    const QPrinter::PrinterState state = printer->printerState();
    return state == QPrinter::Aborted || state == QPrinter::Error;
}

} // namespace

void FreeformWidget::print(QPrinter *printer, const QString &layerName, const QRect &rect) const
{
    if (!printer)
        return;
    QPainter painter(printer);
    if (!painter.isActive() || !isReady())
        return;
    // Validation, measuring and painting are the application's code, which may destroy anything.
    const QPointer<const FreeformWidget> self(this);
    m_updateManager->performUpdate();
    const QPointer<Layer> layer(self && m_content ? m_content->getLayer(layerName) : nullptr);
    const QRect area = self ? printArea(layer, rect) : QRect();
    if (!self || !area.isValid())
        return;

    const QPointer<PageLayout> pageLayout(m_viewer ? m_viewer->getPageLayout() : nullptr);
    const QRectF page = pageRect(pageLayout, &painter);
    const double factor = std::min(page.width() / area.width(), page.height() / area.height());
    if (factor <= 0.0 || hasFailed(printer))
        return;

    painter.save();
    painter.setTransform(pageTransform(area, page, factor));
    if (self) {
        announcePen(&painter);
        printContent(&painter, layer, area);
    }
    painter.restore();
    if (pageLayout)
        pageLayout->decoratePage(&painter, QVariant());
}

QPixmap FreeformWidget::printToPixmap(const QString &layerName, const QRect &rect)
{
    const QPointer<Layer> layer(isReady() ? m_content->getLayer(layerName) : nullptr);
    if (!layer)
        return {};
    const QPointer<FreeformWidget> self(this);
    m_updateManager->performUpdate();
    const QRect area = self ? printArea(layer, rect) : QRect();
    if (!self || !area.isValid())
        return {};

    QPixmap pixmap(area.size());
    if (pixmap.toImage().isNull()) // too large, of which the pixmap itself does not tell
        return {};
    pixmap.fill(palette().color(QPalette::Base));
    QPainter painter(&pixmap);
    painter.translate(-area.topLeft());
    printContent(&painter, layer, area);
    return pixmap;
}

// Only the freeform layers inside the layer count, not the layer itself. So an ordinary layer has
// no area of its own, on purpose, and the caller names the rectangle.
QRect FreeformWidget::printArea(Layer *layer, const QRect &rect) const
{
    if (!layer)
        return {};
    const QPointer<const FreeformWidget> self(this);
    QRect area = rect;
    if (!rect.isValid()) {
        area = QRect();
        walkChildren(layer, [&area](Figure *child) {
            if (auto *freeformLayer = qobject_cast<FreeformLayer *>(child))
                area |= freeformLayer->getFreeformExtent();
        });
    }
    return self && area.isValid() ? withMargins(area) : QRect();
}

void FreeformWidget::printContent(QPainter *painter, Figure *figure, const QRect &rect) const
{
    if (!painter || !figure)
        return;
    painter->save();
    // The options are not const in the interface, though making them changes nothing.
    QStyleOptionViewItem option = const_cast<FreeformWidget *>(this)->viewOptions();
    option.rect = rect;
    figure->render(painter, option);
    painter->restore();
}

} // namespace Velmora::Figura
