#pragma once

#include <QPointF>
#include <QRect>

#include <optional>

class QColor;
class QPainter;
class QTransform;

namespace Velmora::Figura {

/// Fills exactly the pixels that Qt gives to an opaque hairline and to what it encloses.
///
/// Such a line takes every pixel that it touches, which makes rectangles of what is upright: to
/// fill these takes a small part of the time of a stroke. That holds on images whose pixels are
/// opaque colours, as long as nothing is turned, smoothed or blended.
class PixelFill
{
public:
    /// Nothing where lines have to be stroked.
    static std::optional<PixelFill> on(QPainter *painter);

    // False, and nothing done, where the stroke may have other pixels: where it ends with the
    // device, is less than a pixel long, or slants. Logical coordinates.
    bool fillFrame(const QRectF &rect, const QColor &line) const;
    bool fillRectangle(const QRectF &rect, const QColor &line, const QColor &inside) const;
    bool fillLine(const QPointF &from, const QPointF &to, const QColor &line) const;

private:
    PixelFill(QPainter *painter, const QTransform &transform, const QSize &device);

    std::optional<QRect> pixelsOf(const QRectF &rect) const;
    bool isOnDevice(const QPointF &topLeft, const QPointF &bottomRight) const;
    void fill(const QRect &pixels, const QColor &color) const;

    QPainter *m_painter;
    const QTransform &m_transform; // the painter's
    QSize m_device;
};

} // namespace Velmora::Figura
