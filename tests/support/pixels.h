#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRect>

#include <functional>

namespace Velmora::Figura::Test {

/// A white picture of the given size, painted on without antialiasing unless \a paint turns it on.
inline QImage paintedImage(const QSize &size, const std::function<void(QPainter *)> &paint)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint(&painter);
    return image;
}

/// The colour at a point of the widget that was grabbed, however many pixels a unit has there.
inline QColor colorAt(const QImage &grab, const QPoint &point)
{
    const QPointF middle = (QPointF(point) + QPointF(0.5, 0.5)) * grab.devicePixelRatio();
    return grab.pixelColor(int(middle.x()), int(middle.y()));
}

/// How many pixels inside \a area have exactly this colour.
inline int countPixels(const QImage &image, const QColor &color, const QRect &area)
{
    const QRect inside = area & image.rect();
    int count = 0;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            count += image.pixel(x, y) == color.rgba() ? 1 : 0;
    }
    return count;
}

inline int countPixels(const QImage &image, const QColor &color)
{
    return countPixels(image, color, image.rect());
}

/// The smallest rectangle that holds all pixels of this colour; invalid when there are none.
inline QRect extentOf(const QImage &image, const QColor &color)
{
    QRect extent;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == color.rgba())
                extent |= QRect(x, y, 1, 1);
        }
    }
    return extent;
}

/// True when all of \a area, which must lie in the picture, has this colour.
inline bool isFilled(const QImage &image, const QRect &area, const QColor &color)
{
    return image.rect().contains(area) &&
           countPixels(image, color, area) == area.width() * area.height();
}

} // namespace Velmora::Figura::Test
