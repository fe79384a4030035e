#pragma once

#include <figura/FiguraDiagram.h>

#include <pixels.h>

#include <QPainter>

namespace Velmora::Figura::Test {

/// A shape of the given kind, in colours that no palette changes.
template<class ShapeType>
ShapeType *painted(const QColor &fill = QColor(0xd7, 0xe8, 0xfa))
{
    auto *shape = new ShapeType;
    shape->setEnabledFGColor(Qt::black);
    shape->setEnabledBGColor(fill);
    shape->setFill(true);
    return shape;
}

/// A diamond as wide and high as 40 units before it is fitted.
inline Polygon *diamond()
{
    auto *shape = painted<Polygon>();
    shape->setLinePoints({QPoint(20, 0), QPoint(40, 20), QPoint(20, 40), QPoint(0, 20)});
    return shape;
}

inline QImage picture(Diagram &diagram, const QSize &size = QSize(400, 300))
{
    return paintedImage(
        size, [&](QPainter *painter) { diagram.render(painter, QRect(QPoint(0, 0), size)); });
}

/// The colour of \a image there, as it is seen.
inline QColor colorAt(const QImage &image, int x, int y)
{
    return image.pixelColor(x, y);
}

/// Where the pictures differ by more than \a tolerance in a channel. The painter rounds smooth
/// edges differently under another clip, by little.
inline QRect differenceOf(const QImage &a, const QImage &b, int tolerance = 0)
{
    const auto differ = [tolerance](const QColor &one, const QColor &other) {
        return qAbs(one.red() - other.red()) > tolerance ||
               qAbs(one.green() - other.green()) > tolerance ||
               qAbs(one.blue() - other.blue()) > tolerance;
    };
    QRect difference;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y) && differ(a.pixelColor(x, y), b.pixelColor(x, y)))
                difference |= QRect(x, y, 1, 1);
        }
    }
    return difference;
}

} // namespace Velmora::Figura::Test
