#pragma once

#include <figura/shape/PixmapFigure.h>

namespace GraphViewer {

/// An image in the size that the graph gives it, which may be smaller than the image's own.
class PictureFigure : public Velmora::Figura::PixmapFigure
{
    Q_OBJECT

public:
    PictureFigure(const QString &file, QObject *parent)
        : PixmapFigure(QPixmap(file), parent, Qt::transparent)
    {
    }

    QSize getMinimumSize() override { return {}; }
};

} // namespace GraphViewer
