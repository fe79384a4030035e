#include "paintregion_p.h"

#include <QPainter>

namespace Velmora::Figura {
namespace {

PaintRegion *current = nullptr;

} // namespace

PaintRegion::PaintRegion(const QPainter *painter, const QList<QRect> &rects)
    : m_painter(painter)
    , m_rects(rects)
    , m_outer(current)
{
    current = this;
}

PaintRegion::~PaintRegion()
{
    current = m_outer;
}

QList<QRect> PaintRegion::rectsFor(const QPainter *painter, const QRect &rect)
{
    if (!current || current->m_painter != painter)
        return {rect};
    QList<QRect> parts;
    for (const QRect &damaged : current->m_rects) {
        if (damaged.intersects(rect))
            parts.append(damaged & rect);
    }
    return parts;
}

int PaintRegion::dotsPerInch(const QPainter *painter)
{
    if (!current || current->m_painter != painter)
        return painter->device()->physicalDpiX();
    if (current->m_dotsPerInch == 0)
        current->m_dotsPerInch = painter->device()->physicalDpiX();
    return current->m_dotsPerInch;
}

} // namespace Velmora::Figura
