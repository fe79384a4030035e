#include "exportpages_p.h"

#include <figura/diagram/Diagram.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Velmora::Figura {
namespace {

// Rounding must not make a page of nothing.
int pagesFor(double length, double page)
{
    constexpr double noise = 1e-6;
    return std::max(1, static_cast<int>(std::ceil(length / page - noise)));
}

// Many logical units for one of the device, of which figures know nothing: where they seem to be no
// larger than on the device, they make lines of one unit hairlines.
void refine(QPainter *painter)
{
    constexpr int detail = 16;
    const QRect view = painter->viewport();
    painter->setWindow(QRect(view.topLeft() * detail, view.size() * detail));
    painter->scale(detail, detail);
}

} // namespace

void ExportSubject::paint(QPainter *painter) const
{
    if (background.isValid())
        painter->fillRect(area, background);
    if (figures.isEmpty())
        diagram->render(painter, area);
    else
        diagram->render(painter, area, figures);
}

ExportPages::ExportPages(const DiagramExport &options, const QRect &subject, const QSizeF &paper,
                         double unit)
    : area(subject)
    , page(paper)
{
    if (options.tiled) {
        scale = unit * options.tileScale;
        columns = pagesFor(area.width() * scale, page.width());
        rows = pagesFor(area.height() * scale, page.height());
        return;
    }
    scale = std::min({unit, page.width() / area.width(), page.height() / area.height()});
}

QTransform ExportPages::transform(int index) const
{
    const int row = index / columns;
    const int column = index % columns;
    QTransform transform;
    transform.translate(-column * page.width(), -row * page.height());
    transform.scale(scale, scale);
    transform.translate(-area.x(), -area.y());
    return transform;
}

bool paintPages(QPainter *painter, const ExportSubject &subject, const ExportPages &pages,
                const std::function<bool()> &newPage)
{
    refine(painter);
    for (int index = 0; index < pages.count(); ++index) {
        if (index > 0 && !newPage())
            return false;
        painter->save();
        painter->setClipRect(QRectF(QPointF(0, 0), pages.page));
        painter->setTransform(pages.transform(index), true);
        subject.paint(painter);
        painter->restore();
    }
    return true;
}

} // namespace Velmora::Figura
