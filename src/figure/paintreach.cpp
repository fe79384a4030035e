#include "figureextras_p.h"
#include "paintreach_p.h"

#include "layout/childtable_p.h"
#include "shape/pathsource_p.h"
#include "view/grid_p.h"

#include <figura/figure/SimpleBorder.h>
#include <figura/layout/Layout.h>
#include <figura/shape/Shape.h>
#include <figura/shape/TextFigure.h>
#include <figura/view/FreeformLayeredPane.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Velmora::Figura {
namespace {

int reachOfDamage = 0;

// So that rectangles far out do not overflow when they are grown.
constexpr double longestReach = 1 << 20;

QRect grown(const QRect &rect, int reach)
{
    return rect.adjusted(-reach, -reach, reach, reach);
}

// Negative when \a painted lies well inside.
double excess(const QRectF &painted, const QRect &bounds)
{
    const QRectF edges(bounds);
    const double beyond =
        std::max({edges.left() - painted.left(), edges.top() - painted.top(),
                  painted.right() - edges.right(), painted.bottom() - edges.bottom()});
    return std::min(beyond, longestReach);
}

int excess(const QRect &painted, const QRect &bounds)
{
    return static_cast<int>(excess(QRectF(painted), bounds));
}

// Lines are as wide as the inset and may lie next to the edge; negative insets lead outwards. A
// simple border has thin lines however wide it is.
int reachOf(const Border *border)
{
    if (!border)
        return 0;
    const Insets &insets = border->getInsets();
    const auto [inmost, utmost] =
        std::minmax({insets.left(), insets.top(), insets.right(), insets.bottom()});
    const bool isThin = qobject_cast<const SimpleBorder *>(border);
    return std::max({1, -inmost, isThin ? 1 : utmost});
}

// The square caps of open paths and of dashes stick out with their corners. The thinnest line may
// take a whole pixel more where it ends, or turns on a slant.
double halfLine(const Shape &shape, const PathSource::Outline &outline)
{
    const int width = std::max(shape.getLineWidth(), 1);
    const bool hasCaps = !outline.isClosed || shape.getLineStyle() != Qt::SolidLine;
    const double half = hasCaps ? width / 2.0 * std::numbers::sqrt2 : width / 2.0;
    const bool isExact = width > 1 || (outline.isUpright && !hasCaps);
    return isExact ? half : half + 1.0;
}

int reachOfLine(const Shape &shape, const PathSource::Outline &outline, const QRect &bounds)
{
    if (outline.isEmpty)
        return 1;
    const double half = halfLine(shape, outline);
    const QRectF line = outline.bounds.adjusted(-half, -half, half, half);
    // At least one, because even a line inside comes to lie on the edge when it is smoothed.
    return std::max(1, static_cast<int>(std::floor(excess(line, bounds))) + 1);
}

QRect absolute(Figure &figure, QRect rect)
{
    figure.translateToAbsolute(rect);
    return rect;
}

QRect absoluteContent(Figure &figure)
{
    return figure.calculateContentRect(absolute(figure, figure.getBoundingRect()));
}

} // namespace

PaintReach::Damage::Damage(const Figure &figure)
    : m_outer(reachOfDamage)
{
    reachOfDamage = std::max(reachOfDamage, figure.m_reach);
}

PaintReach::Damage::~Damage()
{
    reachOfDamage = m_outer;
}

int PaintReach::Damage::reach()
{
    return reachOfDamage;
}

int PaintReach::refresh(Figure &figure)
{
    return refresh(figure, figure.getBoundingRect());
}

int PaintReach::refresh(Figure &figure, const QRect &boundingRect)
{
    if (!boundingRect.isValid())
        return 0;
    const int reach = measure(figure, boundingRect);
    raise(figure, reach);
    noteInParents(figure, grown(boundingRect, figure.m_reach));
    return reach;
}

void PaintReach::raise(Figure &figure, int reach)
{
    if (reach <= figure.m_reach)
        return;
    figure.m_reach = reach;
    ChildTable::note(&figure, Pending::Area);
}

QRect PaintReach::paintedArea(const Figure &figure, const QRect &boundingRect)
{
    return grown(boundingRect, figure.m_reach + 1);
}

void PaintReach::settle(Figure &figure, const QRect &damage, int reach)
{
    if (figure.m_reach != reach && damage.contains(figure.getBoundingRect()))
        figure.m_reach = reach;
}

int PaintReach::measure(Figure &figure, const QRect &boundingRect)
{
    const int highlight = figure.isClientAreaHighlighted() ? 1 : 0;
    return std::max({highlight, reachOf(figure.getBorder()), measureLook(figure, boundingRect),
                     measureChildren(figure, boundingRect)});
}

// Figures of the application that draw by themselves are taken to stay inside their bounds.
int PaintReach::measureLook(Figure &figure, const QRect &boundingRect)
{
    if (const auto *shape = qobject_cast<const Shape *>(&figure))
        return reachOfLine(*shape, PathSource::outlineOf(shape), boundingRect);
    if (const auto *text = qobject_cast<const TextFigure *>(&figure))
        return text->m_inkReach;
    if (const auto *pane = qobject_cast<const FreeformLayeredPane *>(&figure))
        return measureGrid(*pane, absolute(figure, boundingRect));
    return 0;
}

int PaintReach::measureGrid(const FreeformLayeredPane &pane, const QRect &absoluteRect)
{
    if (!hasGrid(pane.m_drawGrid, pane.m_snapSize))
        return 0;
    return std::min(gridReach(absoluteRect, pane.m_snapSize), int(longestReach));
}

int PaintReach::measureChildren(Figure &figure, const QRect &boundingRect)
{
    const Layout *layout = figure.presentLayout();
    if (!layout || !layout->m_unclipped.isValid())
        return 0;
    QRect painted = layout->m_unclipped;
    return std::max(0, excess(figure.translateToParent(painted), boundingRect));
}

// A layout that does not clip lets its children paint beyond its figure; all others end it here.
void PaintReach::noteInParents(Figure &figure, const QRect &painted)
{
    Figure *parent = figure.getParentFigure();
    Layout *layout = parent ? parent->presentLayout() : nullptr;
    if (!layout || layout->isClipping())
        return;

    layout->m_unclipped |= painted;
    QRect inParent = painted;
    parent->translateToParent(inParent);
    const QRect bounds = parent->getBoundingRect();
    if (bounds.isValid())
        raise(*parent, excess(inParent, bounds));
    noteInParents(*parent, inParent);
}

// Which of them did is theirs to know: both places count until the next layout.
void PaintReach::shiftChildren(const Figure &figure, const QPoint &shift)
{
    Layout *layout = figure.presentLayout();
    if (layout && layout->m_unclipped.isValid() && !figure.useLocalCoordinates())
        layout->m_unclipped |= layout->m_unclipped.translated(shift);
}

void PaintReach::collect(Layout &layout)
{
    layout.m_unclipped = QRect();
    if (layout.isClipping())
        return;
    for (Figure *child : ChildTable::of(&layout).figures()) {
        const QRect rect = child->getBoundingRect();
        if (rect.isValid())
            layout.m_unclipped |= grown(rect, child->m_reach);
    }
}

// Where units are no device pixels, the half of a one-unit pen beyond the bounds counts as well.
bool PaintReach::meets(const Figure &figure, const QRect &boundingRect, const QRect &damage,
                       const QPainter *painter)
{
    const QRect area = grown(boundingRect, figure.m_reach);
    if (area.intersects(damage))
        return true;
    const QPaintDevice *device = painter->device();
    return grown(area, 1).intersects(damage) && device && device->devicePixelRatio() != 1.0;
}

// Children are painted where they meet the client area, and then all of them, also what an
// unclipped layout lets stick out. So damage outside concerns the children inside, too: all of the
// client area is painted that a whole paint gets to.
QRect PaintReach::childDamage(Figure &figure, const QRect &content, const QRect &damage)
{
    const QRect inside = damage & content;
    const Layout *layout = figure.presentLayout();
    if (!layout || !layout->m_unclipped.isValid())
        return inside;

    QRect painted = layout->m_unclipped;
    figure.translateToAbsolute(figure.translateToParent(painted));
    const QRect reached = damage & grown(painted, 1);
    if (reached.isEmpty() || content.contains(reached))
        return inside;

    QRect whole = content;
    for (Figure *parent = figure.getParentFigure(); parent; parent = parent->getParentFigure())
        whole &= absoluteContent(*parent);
    return whole;
}

int PaintReach::pixelsAround(double scale, double devicePixelRatio)
{
    if (scale == 1.0 && devicePixelRatio == 1.0)
        return 0;
    return static_cast<int>(std::ceil(scale / 2.0)) + 1;
}

} // namespace Velmora::Figura
