#include "paintregion_p.h"

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

} // namespace Velmora::Figura
