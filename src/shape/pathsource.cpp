#include "pathsource_p.h"

#include "figure/paintregion_p.h"
#include "layout/childtable_p.h"

#include <figura/shape/Shape.h>

#include <QPaintEngine>
#include <QPainter>

#include <cmath>

namespace Velmora::Figura {
namespace {

// From this resolution on a device counts as a printer, where lines keep their size in units.
constexpr int PRINTER_DPI = 150;

// And as small as the numbers of a QRect.
bool isWhole(double value)
{
    return std::abs(value) < (1 << 30) && value == std::floor(value);
}

bool isOpaque(const QColor &color)
{
    return color.alpha() == 255;
}

bool isRaster(const QPainter *painter)
{
    const QPaintEngine *engine = painter->paintEngine();
    return engine && engine->type() == QPaintEngine::Raster;
}

bool isHairline(const QPen &pen)
{
    return pen.style() == Qt::SolidLine && pen.isCosmetic() && pen.widthF() <= 1.0 &&
           pen.brush().style() == Qt::SolidPattern && isOpaque(pen.color());
}

bool isFlat(const QBrush &brush)
{
    return brush.style() == Qt::NoBrush ||
           (brush.style() == Qt::SolidPattern && isOpaque(brush.color()));
}

} // namespace

bool PathSource::draw(QPainter *painter, const QPointF &offset) const
{
    const QPen &pen = painter->pen();
    const QBrush &brush = painter->brush();
    const bool isFilled = brush.style() != Qt::NoBrush;
    if (isHairline(pen) && isFlat(brush)) {
        const std::optional<PixelFill> pixels = PixelFill::on(painter);
        const QColor line = pen.color();
        const QColor inside = brush.color();
        if (pixels && fill(*pixels, offset, line, isFilled ? &inside : nullptr))
            return true;
    }
    // A recording would tell a line from a path.
    return !isFilled && isRaster(painter) && drawOutline(painter, offset);
}

bool PathSource::draw(const Shape *shape, QPainter *painter, const QColor &line, const QColor &fill,
                      const QPointF &offset)
{
    if (!shape->m_source || !isOpaque(line) || (shape->m_fill && !isOpaque(fill)))
        return false;
    const std::optional<int> width = widthInPixels(shape, *painter);
    if (!width || *width < 0 || *width > 1)
        return false;
    const std::optional<PixelFill> pixels = PixelFill::on(painter);
    return pixels && shape->m_source->fill(*pixels, offset, line, shape->m_fill ? &fill : nullptr);
}

std::optional<int> PathSource::widthInPixels(const Shape *shape, const QPainter &painter)
{
    if (shape->m_lineStyle != Qt::SolidLine || PaintRegion::dotsPerInch(&painter) >= PRINTER_DPI)
        return std::nullopt;
    const double scaledWidth = shape->m_lineWidth * painter.transform().m11();
    return static_cast<int>(scaledWidth + 0.4999); // exactly half a pixel rounds down
}

bool PathSource::fill(const PixelFill & /*pixels*/, const QPointF & /*offset*/,
                      const QColor & /*line*/, const QColor * /*fill*/) const
{
    return false;
}

bool PathSource::isMadeOf(const void * /*points*/, qsizetype /*count*/) const
{
    return false;
}

bool PathSource::drawOutline(QPainter * /*painter*/, const QPointF & /*offset*/) const
{
    return false;
}

std::optional<bool> PathSource::contains(const QPointF & /*point*/) const
{
    return {};
}

bool PathSource::isMadeOf(const Shape *shape, const void *points, qsizetype count)
{
    return shape->m_source && shape->m_source->isMadeOf(points, count);
}

void PathSource::give(Shape *shape, std::unique_ptr<PathSource> source)
{
    shape->m_path = QPainterPath();
    shape->m_source = std::move(source);
    shape->m_isBuilt = false;
    ChildTable::note(shape, Pending::Area);
}

QRectF PathSource::boundsOf(const Shape *shape)
{
    return shape->m_source ? shape->m_source->outline().bounds : shape->m_path.boundingRect();
}

PathSource::Outline PathSource::outlineOf(const Shape *shape)
{
    return shape->m_source ? shape->m_source->outline() : outlineOf(shape->m_path);
}

PathSource::Outline PathSource::outlineOf(const QPainterPath &path)
{
    if (path.elementCount() == 0)
        return {true, false, false, {}};
    const QPointF first(path.elementAt(0));
    return {false, path.currentPosition() == first, false, path.controlPointRect()};
}

bool PathSource::contains(const Shape *shape, const QPointF &point)
{
    const bool isBuilt = shape->m_isBuilt || !shape->m_source;
    const std::optional<bool> known = isBuilt ? std::nullopt : shape->m_source->contains(point);
    return known ? *known : shape->getPainterPath().contains(point);
}

template<class Rect>
QPainterPath RectangleSource<Rect>::build() const
{
    QPainterPath path;
    path.addRect(rect());
    return path;
}

template<class Rect>
PathSource::Outline RectangleSource<Rect>::outline() const
{
    return {rect().isNull(), !rect().isNull(), true, rect().normalized()};
}

// As the winding number has it, the left and the upper edge are inside, the others are not.
template<class Rect>
std::optional<bool> RectangleSource<Rect>::contains(const QPointF &point) const
{
    const QRectF area = rect().normalized();
    return point.x() >= area.left() && point.x() < area.right() && point.y() >= area.top() &&
           point.y() < area.bottom();
}

template<class Rect>
bool RectangleSource<Rect>::fill(const PixelFill &pixels, const QPointF &offset, const QColor &line,
                                 const QColor *fill) const
{
    const QRectF moved = rect().translated(offset);
    return fill ? pixels.fillRectangle(moved, line, *fill) : pixels.fillFrame(moved, line);
}

std::unique_ptr<PathSource> makeRectangleSource(const QRectF &rect)
{
    const bool isWholeRect =
        isWhole(rect.x()) && isWhole(rect.y()) && isWhole(rect.width()) && isWhole(rect.height());
    if (!isWholeRect)
        return std::make_unique<RectangleSource<QRectF>>(rect);
    const QRect whole(int(rect.x()), int(rect.y()), int(rect.width()), int(rect.height()));
    return std::make_unique<RectangleSource<QRect>>(whole);
}

EllipseSource::EllipseSource(const QRectF &rect)
    : m_rect(rect)
{
}

QPainterPath EllipseSource::build() const
{
    QPainterPath path;
    path.addEllipse(m_rect);
    return path;
}

PathSource::Outline EllipseSource::outline() const
{
    return {m_rect.isNull(), !m_rect.isNull(), true, m_rect.normalized()};
}

} // namespace Velmora::Figura
