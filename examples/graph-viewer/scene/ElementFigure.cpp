#include "ElementFigure.h"

#include <figura/connection/PolylineF.h>
#include <figura/geometry/IStyleConstants.h>
#include <figura/layout/XYLayout.h>

using Velmora::Figura::Figure;
using Velmora::Figura::IStyleConstants;
using Velmora::Figura::PolylineF;
using Velmora::Figura::XYLayout;

namespace GraphViewer {

// The parts' layout is a relative one: figures in a layer that share the layer's coordinates with
// their own children would be shifted each time the canvas grows to the left or to the top.
ElementFigure::ElementFigure(Kind kind, const QString &title, const Stroke &outline,
                             const QRect &box, QObject *parent)
    : OutlineFigure(outline, {}, parent)
    , m_kind(kind)
    , m_title(title)
    , m_box(box)
{
    setLayoutManager(new XYLayout(this));
    // A band over a whole cluster would hide what is in it.
    setHighlightStyle(kind == Kind::Cluster ? IStyleConstants::HIGHLIGHT_FOCUSRECT
                                            : IStyleConstants::HIGHLIGHT_RUBBERBAND);
}

void ElementFigure::addPart(Figure *part, const QRect &box)
{
    add(part, box);
    const QRect own(QPoint(), m_box.size());
    const QRect reach = part->getBoundingRect().united(box).adjusted(-1, -1, 1, 1);
    m_overhang.setLeft(qMax(m_overhang.left(), own.left() - reach.left()));
    m_overhang.setTop(qMax(m_overhang.top(), own.top() - reach.top()));
    m_overhang.setRight(qMax(m_overhang.right(), reach.right() - own.right()));
    m_overhang.setBottom(qMax(m_overhang.bottom(), reach.bottom() - own.bottom()));
}

void ElementFigure::setHot(bool hot)
{
    highlightClientArea(hot);
}

QRect ElementFigure::absoluteRect()
{
    QRect rect = getBoundingRect();
    return translateToAbsolute(rect);
}

QRect ElementFigure::getBoundingRect()
{
    return OutlineFigure::getBoundingRect().united(getBounds() + m_overhang);
}

bool ElementFigure::contains(const QPoint &point) const
{
    return isNear(point) && (OutlineFigure::contains(point) || partContains(point));
}

// Every move of the mouse asks every edge, and most of them are far away.
bool ElementFigure::isNear(const QPoint &point) const
{
    const int reach = PolylineF::M_tolerance;
    return const_cast<ElementFigure *>(this)
        ->getBoundingRect()
        .adjusted(-reach, -reach, reach, reach)
        .contains(point);
}

bool ElementFigure::partContains(const QPoint &point) const
{
    // Asking for children and translating changes nothing, but is not declared const.
    auto *self = const_cast<ElementFigure *>(this);
    QPoint inside = point;
    self->translateFromParent(inside);
    const QList<Figure *> parts = self->childFigures();
    return std::any_of(parts.cbegin(), parts.cend(),
                       [&inside](const Figure *part) { return part->contains(inside); });
}

} // namespace GraphViewer
