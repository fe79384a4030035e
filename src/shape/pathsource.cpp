#include "pathsource_p.h"

#include "layout/childtable_p.h"

#include <figura/shape/Shape.h>

#include <QPaintEngine>
#include <QPainter>

#include <cmath>

namespace Velmora::Figura {
namespace {

bool isWhole(double value)
{
    return std::abs(value) < (1 << 24) && value == std::floor(value);
}

bool isOpaque(const QColor &color)
{
    return color.alpha() == 255;
}

// Units are pixels of an image, and nothing is blended.
bool isPlain(const QPainter *painter)
{
    const QPaintEngine *engine = painter->paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster)
        return false;
    const QTransform &transform = painter->deviceTransform();
    return transform.type() <= QTransform::TxTranslate && isWhole(transform.dx()) &&
           isWhole(transform.dy()) && painter->opacity() == 1.0 &&
           painter->compositionMode() == QPainter::CompositionMode_SourceOver &&
           !painter->testRenderHint(QPainter::Antialiasing);
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

bool PathSource::draw(QPainter * /*painter*/, const QPointF & /*offset*/) const
{
    return false;
}

std::optional<bool> PathSource::contains(const QPointF & /*point*/) const
{
    return {};
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

RectangleSource::RectangleSource(const QRectF &rect)
    : m_rect(rect)
{
}

QPainterPath RectangleSource::build() const
{
    QPainterPath path;
    path.addRect(m_rect);
    return path;
}

PathSource::Outline RectangleSource::outline() const
{
    return {m_rect.isNull(), !m_rect.isNull(), true, m_rect.normalized()};
}

// As the winding number has it, the left and the upper edge are inside, the others are not.
std::optional<bool> RectangleSource::contains(const QPointF &point) const
{
    const QRectF rect = m_rect.normalized();
    return point.x() >= rect.left() && point.x() < rect.right() && point.y() >= rect.top() &&
           point.y() < rect.bottom();
}

// The outline lies on the pixels that follow the right and the lower edge, as that of a path does.
// Qt leaves out a corner of a path that begins left of the device; here it stays, or scrolling
// would bring the gap into sight.
bool RectangleSource::draw(QPainter *painter, const QPointF &offset) const
{
    const QRectF moved = m_rect.translated(offset);
    const QRect rect = moved.toRect();
    if (QRectF(rect) != moved || !isWhole(moved.x()) || !isWhole(moved.y()) || rect.width() < 2 ||
        rect.height() < 2 || !isPlain(painter) || !isHairline(painter->pen()) ||
        !isFlat(painter->brush()))
        return false;

    const QColor line = painter->pen().color();
    if (painter->brush().style() != Qt::NoBrush)
        painter->fillRect(rect.adjusted(1, 1, 0, 0), painter->brush().color());
    const int right = rect.left() + rect.width();
    const int bottom = rect.top() + rect.height();
    painter->fillRect(QRect(rect.left(), rect.top(), rect.width() + 1, 1), line);
    painter->fillRect(QRect(rect.left(), bottom, rect.width() + 1, 1), line);
    painter->fillRect(QRect(rect.left(), rect.top() + 1, 1, rect.height() - 1), line);
    painter->fillRect(QRect(right, rect.top() + 1, 1, rect.height() - 1), line);
    return true;
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
