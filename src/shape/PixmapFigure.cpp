#include <figura/shape/PixmapFigure.h>

#include "figure/figureguard_p.h"

#include <QPainter>
#include <QStyleOptionViewItem>

namespace Velmora::Figura {

PixmapFigure::PixmapFigure(const QPixmap &pixmap, QObject *parent, const QColor &backgroundColor)
    : Figure(parent, backgroundColor)
{
    setPixmap(pixmap);
}

PixmapFigure::PixmapFigure(QObject *parent)
    : Figure(parent, Qt::white)
{
}

PixmapFigure::~PixmapFigure() = default;

QPixmap PixmapFigure::getPixmap() const
{
    return m_pixmap;
}

void PixmapFigure::setPixmap(const QPixmap &pixmap)
{
    m_pixmap = pixmap;

    // The limits of a former pixmap still hold here and may refuse the new ones, on purpose.
    const QSize size = applyMargin(calculateContentSize());
    setPreferredSize(size);
    setMinimumSize(size);
    setMaximumSize(size);
    const FigureGuard alive(this);
    revalidate();
    if (alive)
        repaint();
}

QSize PixmapFigure::calculateContentSize()
{
    return m_pixmap.size();
}

void PixmapFigure::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    painter->drawPixmap(option.rect, m_pixmap);
}

} // namespace Velmora::Figura
