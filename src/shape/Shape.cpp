#include <figura/shape/Shape.h>

#include "pathsource_p.h"

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>

#include "figure/childwalk_p.h"
#include "figure/figureextras_p.h"
#include "figure/figureguard_p.h"
#include "figure/ownclass_p.h"
#include "figure/signals_p.h"
#include "layout/childtable_p.h"

#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QStyleOptionViewItem>

#include <optional>
#include <utility>

#include <cmath>

namespace Velmora::Figura {
namespace {

constexpr auto pathSignal = "pathChanged(QRectF)";
constexpr auto pathSlot = "regeneratePath(QRectF)";

// What half the line takes off each side; an odd width loses its extra pixel right and bottom.
QMargins halfLine(int lineWidth)
{
    const double half = lineWidth / 2.0;
    const int smaller = static_cast<int>(std::floor(half));
    const int larger = static_cast<int>(std::ceil(half));
    return {smaller, smaller, larger, larger};
}

// Not isEmpty(), which also holds for a path that has moved somewhere.
bool isUnbuilt(const QPainterPath &path)
{
    return path == QPainterPath();
}

// Leaves the painter as it was. The own classes change nothing but pen and brush, and to keep these
// takes a tenth of the time of save() and restore().
class KeptState
{
public:
    KeptState(QPainter *painter, bool onlyTools)
        : m_painter(painter)
        , m_tools(onlyTools ? std::optional(std::pair(painter->pen(), painter->brush()))
                            : std::nullopt)
    {
        if (!m_tools)
            m_painter->save();
    }
    ~KeptState()
    {
        if (!m_tools) {
            m_painter->restore();
            return;
        }
        m_painter->setPen(m_tools->first);
        m_painter->setBrush(m_tools->second);
    }
    Q_DISABLE_COPY_MOVE(KeptState)

private:
    QPainter *m_painter;
    const std::optional<std::pair<QPen, QBrush>> m_tools;
};

// Polylines take their bounds from the path: invalid ones may only say that it is not built yet.
bool isPlacedByPoints(const Shape *shape)
{
    return qobject_cast<const Polyline *>(shape) || qobject_cast<const PolylineF *>(shape);
}

} // namespace

Shape::Shape(QObject *parent)
    : Figure(parent, Qt::transparent)
{
}

Shape::~Shape() = default;

void Shape::setLineWidth(int width)
{
    if (width == m_lineWidth)
        return;
    m_lineWidth = width;
    ChildTable::note(this, Pending::Area);
    repaint();
}

int Shape::getLineWidth() const
{
    return m_lineWidth;
}

Qt::PenStyle Shape::getLineStyle() const
{
    return static_cast<Qt::PenStyle>(m_lineStyle);
}

void Shape::setLineStyle(Qt::PenStyle style)
{
    if (style == m_lineStyle)
        return;
    m_lineStyle = static_cast<quint16>(style);
    repaint();
}

Qt::PenCapStyle Shape::getCapStyle() const
{
    return static_cast<Qt::PenCapStyle>(m_capStyle);
}

void Shape::setCapStyle(Qt::PenCapStyle style)
{
    if (style == m_capStyle)
        return;
    m_capStyle = static_cast<quint16>(style);
    repaint();
}

Qt::PenJoinStyle Shape::getJoinStyle() const
{
    return static_cast<Qt::PenJoinStyle>(m_joinStyle);
}

void Shape::setJoinStyle(Qt::PenJoinStyle style)
{
    if (style == m_joinStyle)
        return;
    m_joinStyle = static_cast<quint16>(style);
    repaint();
}

QColor Shape::getEnabledFGColor() const
{
    return m_enabledFGColor;
}

// The setters of colours and fill repaint without comparing, on purpose.
void Shape::setEnabledFGColor(const QColor &color)
{
    m_enabledFGColor = color;
    repaint();
}

QColor Shape::getEnabledBGColor() const
{
    return m_enabledBGColor;
}

void Shape::setEnabledBGColor(const QColor &color)
{
    m_enabledBGColor = color;
    repaint();
}

QColor Shape::getDisabledFGColor() const
{
    const bool areSet = m_extras && m_extras->disabledColors;
    return areSet ? m_extras->disabledColors->pen : QColor();
}

void Shape::setDisabledFGColor(const QColor &color)
{
    ownDisabledColors().pen = color;
    repaint();
}

// The foreground, on purpose: it is what a disabled shape is filled with.
QColor Shape::getDisabledBGColor() const
{
    return getDisabledFGColor();
}

void Shape::setDisabledBGColor(const QColor &color)
{
    ownDisabledColors().fill = color;
    repaint();
}

bool Shape::getFill() const
{
    return m_fill;
}

void Shape::setFill(bool fill)
{
    m_fill = fill;
    repaint();
}

void Shape::rebuildPath()
{
    const QRect bounds = getBounds();
    if (!bounds.isValid() && !isPlacedByPoints(this))
        return;

    const FigureGuard alive(this);
    erase(); // the area may change with the path
    const QRect resolved = alive ? resolveBounds(bounds) : bounds;
    if (!alive)
        return;
    regeneratePath(pathRect(resolved));
    if (alive)
        repaint();
}

void Shape::setBounds(const QRect &rect)
{
    const FigureGuard alive(this);
    const QRect resolved = resolveBounds(rect);
    if (alive && resolved != getBounds())
        Q_EMIT pathChanged(pathRect(resolved)); // before the bounds are stored, on purpose
    if (alive)
        Figure::setBounds(rect);
}

bool Shape::contains(const QPoint &point) const
{
    return PathSource::contains(this, QPointF(point));
}

void Shape::addNotify()
{
    const FigureGuard alive(this);
    Figure::addNotify();
    if (alive)
        connectNormalized(this, pathSignal, this, pathSlot);
}

void Shape::removeNotify()
{
    disconnectNormalized(this, pathSignal, this, pathSlot);
    Figure::removeNotify();
}

// Whoever asks for this is going to change the path, which then has no other source.
QPainterPath &Shape::painterPath()
{
    buildPath();
    m_source.reset();
    ChildTable::note(this, Pending::Area);
    return m_path;
}

const QPainterPath &Shape::getPainterPath() const
{
    buildPath();
    return m_path;
}

void Shape::buildPath() const
{
    if (m_isBuilt)
        return;
    m_path = m_source->build();
    m_isBuilt = true;
}

QPointF Shape::absoluteOrigin() const
{
    QPointF origin;
    if (getFlag(FLAG_NOTIFIED))
        const_cast<Shape *>(this)->translateToAbsolute(origin);
    return origin;
}

QPainterPath Shape::absolutePath(const QPainterPath &path) const
{
    const QPointF origin = absoluteOrigin();
    // Mapping by nothing hands the same shared path back, with all that Qt has cached for it.
    return QTransform::fromTranslate(origin.x(), origin.y()).map(path);
}

void Shape::clipToPath(QPainter *painter) const
{
    if (!isUnbuilt(getPainterPath()))
        painter->setClipPath(absolutePath(m_path), Qt::IntersectClip);
}

void Shape::drawShape(QPainter *painter, const QStyleOptionViewItem & /*option*/) const
{
    if (m_source && m_source->draw(painter, absoluteOrigin()))
        return;
    // Qt keeps five kilobytes with a path that was drawn, as long as the path lives.
    const QPainterPath path = m_isBuilt || !m_source ? m_path : m_source->build();
    if (!isUnbuilt(path))
        painter->drawPath(absolutePath(path));
}

void Shape::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter)
        return;

    const Colors colors =
        isEnabled() ? enabledColors(option.palette) : disabledColors(option.palette);
    const bool isOwn = isOwnClass(this);
    if (isOwn && PathSource::draw(this, painter, colors.pen, colors.fill, absoluteOrigin()))
        return;

    const KeptState kept(painter, isOwn);
    painter->setBrush(m_fill ? QBrush(colors.fill, Qt::SolidPattern) : QBrush(Qt::NoBrush));
    painter->setPen(createPen(*painter, colors.pen));

    drawInside(painter, option);
}

// What is handed to drawShape() is only seen by a class of the application.
void Shape::drawInside(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (isOwnClass(this)) {
        drawShape(painter, option);
        return;
    }
    QStyleOptionViewItem inner(option);
    inner.rect = option.rect.marginsRemoved(halfLine(m_lineWidth));
    drawShape(painter, inner);
}

QRectF Shape::pathRect(const QRect &bounds) const
{
    return bounds.marginsRemoved(halfLine(m_lineWidth));
}

void Shape::adoptPaletteColor(QColor &color, const QColor &paletteColor) const
{
    if (color.isValid())
        return;
    color = paletteColor;
    const_cast<Shape *>(this)->repaint();
}

Shape::Colors Shape::enabledColors(const QPalette &palette) const
{
    if (m_enabledFGColor.isValid() && m_enabledBGColor.isValid())
        return {m_enabledFGColor, m_enabledBGColor};
    adoptPaletteColor(m_enabledFGColor, palette.color(QPalette::Active, QPalette::ButtonText));
    adoptPaletteColor(m_enabledBGColor, palette.color(QPalette::Active, QPalette::Button));
    return {m_enabledFGColor, m_enabledBGColor};
}

// Painting fills in what the palette says.
DisabledColors &Shape::ownDisabledColors() const
{
    std::unique_ptr<DisabledColors> &colors = const_cast<Shape *>(this)->extras().disabledColors;
    if (!colors)
        colors = std::make_unique<DisabledColors>();
    return *colors;
}

Shape::Colors Shape::disabledColors(const QPalette &palette) const
{
    // The roles cross over and the foreground fills as well, on purpose. The background is stored
    // anew only when even the palette had no foreground, and never painted with.
    DisabledColors &colors = ownDisabledColors();
    adoptPaletteColor(colors.pen, palette.color(QPalette::Disabled, QPalette::Button));
    if (!colors.pen.isValid()) {
        colors.fill = QColor();
        adoptPaletteColor(colors.fill, palette.color(QPalette::Disabled, QPalette::ButtonText));
    }
    return {colors.pen, colors.pen};
}

QPen Shape::createPen(const QPainter &painter, const QColor &color) const
{
    QPen pen(color);
    pen.setStyle(getLineStyle());

    if (const std::optional<int> width = PathSource::widthInPixels(this, painter)) {
        pen.setWidth(*width);
        pen.setCosmetic(true);
    } else {
        pen.setWidth(m_lineWidth * painter.transform().m11() > 1.0 ? m_lineWidth : 0);
    }
    return pen;
}

void rebuildPaths(Figure *root)
{
    if (!root)
        return;
    const FigureGuard alive(root);
    if (auto *shape = qobject_cast<Shape *>(root))
        shape->rebuildPath();
    if (alive)
        walkChildren(root, rebuildPaths);
}

} // namespace Velmora::Figura
