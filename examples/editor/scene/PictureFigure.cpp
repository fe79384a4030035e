#include "scene/PictureFigure.h"

#include "files/Pictures.h"
#include "model/Content.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

namespace Editor {
namespace {

// A figure for pixmaps takes on their size, and a second one only within the limits of the first.
void releaseSize(Velmora::Figura::Figure *figure)
{
    figure->setMinimumSize({0, 0});
    figure->setMaximumSize({Limits::size, Limits::size});
}

} // namespace

PictureFigure::PictureFigure(QObject *parent)
    : PixmapFigure(QPixmap(), parent, Qt::transparent)
{
    releaseSize(this);
}

void PictureFigure::setPicture(const QByteArray &bytes)
{
    if (bytes == m_bytes)
        return;
    m_bytes = bytes;
    setPixmap(QPixmap::fromImage(Pictures::decoded(bytes)));
    releaseSize(this);
}

void PictureFigure::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    PixmapFigure::drawFigure(painter, option);
    painter->restore();
}

} // namespace Editor
