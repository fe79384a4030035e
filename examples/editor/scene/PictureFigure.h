#pragma once

#include <figura/shape/PixmapFigure.h>

namespace Editor {

/// A picture of any size, scaled smoothly.
class PictureFigure : public Velmora::Figura::PixmapFigure
{
    Q_OBJECT

public:
    explicit PictureFigure(QObject *parent = nullptr);

    void setPicture(const QByteArray &bytes); ///< Of an image file; damaged ones show nothing.

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    QByteArray m_bytes;
};

} // namespace Editor
