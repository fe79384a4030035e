#include "pixelfill_p.h"

#include <QColor>
#include <QPaintEngine>
#include <QPainter>

#include <cmath>

namespace Velmora::Figura {
namespace {

// Gray images round a colour in one way when it is filled and in another when it is stroked.
constexpr int fewestBits = 32;

// From here on the raster engine cuts off.
constexpr int largestDevice = 32767;

bool isWhole(double value)
{
    return std::abs(value) < (1 << 24) && value == std::floor(value);
}

bool isWhole(const QPointF &point)
{
    return isWhole(point.x()) && isWhole(point.y());
}

bool isUpright(const QTransform &transform)
{
    return transform.type() <= QTransform::TxScale && transform.m11() > 0 && transform.m22() > 0;
}

bool blends(const QPainter *painter)
{
    return painter->testRenderHint(QPainter::Antialiasing) || painter->opacity() != 1.0 ||
           painter->compositionMode() != QPainter::CompositionMode_SourceOver;
}

QPoint pixelAt(const QPointF &point)
{
    return QPoint(static_cast<int>(std::floor(point.x())), static_cast<int>(std::floor(point.y())));
}

} // namespace

PixelFill::PixelFill(QPainter *painter, const QTransform &transform, const QSize &device)
    : m_painter(painter)
    , m_transform(transform)
    , m_device(device)
{
}

std::optional<PixelFill> PixelFill::on(QPainter *painter)
{
    const QPaintEngine *engine = painter->paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster)
        return std::nullopt;
    const QTransform &transform = painter->deviceTransform();
    const QPaintDevice *device = engine->paintDevice(); // of a widget: what it is buffered in
    if (!isUpright(transform) || blends(painter) || !device || device->depth() < fewestBits)
        return std::nullopt;
    const QSize size = QSize(device->width(), device->height());
    return PixelFill(painter, transform, size.boundedTo(QSize(largestDevice, largestDevice)));
}

bool PixelFill::fillFrame(const QRectF &rect, const QColor &line) const
{
    const std::optional<QRect> outer = pixelsOf(rect);
    if (!outer)
        return false;
    const QRect inner = outer->adjusted(0, 1, 0, -1);
    fill(QRect(outer->left(), outer->top(), outer->width(), 1), line);
    fill(QRect(outer->left(), outer->bottom(), outer->width(), 1), line);
    fill(QRect(inner.left(), inner.top(), 1, inner.height()), line);
    fill(QRect(inner.right(), inner.top(), 1, inner.height()), line);
    return true;
}

// The line first, below the rest: that takes two steps instead of five.
bool PixelFill::fillRectangle(const QRectF &rect, const QColor &line, const QColor &inside) const
{
    const std::optional<QRect> outer = pixelsOf(rect);
    if (!outer)
        return false;
    fill(*outer, line);
    fill(outer->adjusted(1, 1, -1, -1), inside);
    return true;
}

bool PixelFill::fillLine(const QPointF &from, const QPointF &to, const QColor &line) const
{
    if ((from.x() == to.x()) == (from.y() == to.y()))
        return false;
    const QPointF first = m_transform.map(QPointF(qMin(from.x(), to.x()), qMin(from.y(), to.y())));
    const QPointF last = m_transform.map(QPointF(qMax(from.x(), to.x()), qMax(from.y(), to.y())));
    if (!isOnDevice(first, last))
        return false;
    fill(QRect(pixelAt(first), pixelAt(last)), line);
    return true;
}

// Qt leaves out a corner of a path that begins left of the device. Where units are pixels it stays,
// or scrolling would bring the gap into sight.
std::optional<QRect> PixelFill::pixelsOf(const QRectF &rect) const
{
    const QPointF first = m_transform.map(rect.topLeft());
    const QPointF last = m_transform.map(rect.bottomRight());
    const bool isLarge = last.x() - first.x() >= 1.0 && last.y() - first.y() >= 1.0;
    const bool isExact =
        m_transform.type() <= QTransform::TxTranslate && isWhole(first) && isWhole(last);
    if (!isLarge || !(isExact || isOnDevice(first, last)))
        return std::nullopt;
    return QRect(pixelAt(first), pixelAt(last));
}

bool PixelFill::isOnDevice(const QPointF &topLeft, const QPointF &bottomRight) const
{
    return topLeft.x() >= 0 && topLeft.y() >= 0 && bottomRight.x() < m_device.width() &&
           bottomRight.y() < m_device.height();
}

void PixelFill::fill(const QRect &pixels, const QColor &color) const
{
    if (pixels.isEmpty())
        return;
    const double x = m_transform.m11();
    const double y = m_transform.m22();
    m_painter->fillRect(QRectF((pixels.x() - m_transform.dx()) / x,
                               (pixels.y() - m_transform.dy()) / y, pixels.width() / x,
                               pixels.height() / y),
                        color);
}

} // namespace Velmora::Figura
