#include "placedlayout_p.h"

#include "line_p.h"

#include <figura/shape/Shape.h>

namespace Velmora::Figura {
namespace {

bool isLeftToFigure(const QRect &rect)
{
    return rect.width() < 1 || rect.height() < 1;
}

} // namespace

// Nothing listens to the extent, and to renew it with every change would take a look at all
// figures.
PlacedLayout::PlacedLayout(QObject *parent)
    : FreeformLayout(parent, false)
{
}

bool PlacedLayout::add(Figure *child, const QVariant &constraint, int index)
{
    const QPointer<Figure> added(child);
    if (!FreeformLayout::add(child, constraint, index))
        return false;
    rebuildPaths(added);
    return true;
}

bool PlacedLayout::remove(Figure *child)
{
    disconnect(m_chosen.take(child).watch);
    // Without the extent, as above.
    return XYLayout::remove(child); // NOLINT(bugprone-parent-virtual-call)
}

bool PlacedLayout::setConstraint(Figure *child, const QVariant &constraint)
{
    const bool isExact = constraint.typeId() == QMetaType::QRectF;
    // What was left to the figure is not to be resolved, as a layout by coordinates does.
    return Layout::setConstraint(child, // NOLINT(bugprone-parent-virtual-call)
                                 isExact ? QVariant(constraint.toRectF().toRect()) : constraint);
}

bool PlacedLayout::applyConstraint(Figure *child, const QVariant &constraint)
{
    const QPointer<PlacedLayout> alive(this);
    const QPointer<Figure> placed(child);
    Figure *const outer = m_applyingTo;
    m_applyingTo = child;
    const bool applied = FreeformLayout::applyConstraint(child, constraint);
    if (!alive)
        return applied;
    m_applyingTo = outer;
    if (placed && isLeftToFigure(constraint.toRect()))
        noteChoice(child);
    return applied;
}

// Another figure may get the address of one that is gone, and did not choose.
void PlacedLayout::noteChoice(Figure *child)
{
    Choice &choice = m_chosen[child];
    choice.size = child->getBounds().size();
    if (!choice.watch)
        choice.watch =
            connect(child, &QObject::destroyed, this, [this, child] { m_chosen.remove(child); });
}

void PlacedLayout::childMoved(Figure *child)
{
    if (!child || child == m_applyingTo)
        return;
    const QVariant constraint = getConstraint(child);
    if (constraint.typeId() != QMetaType::QRect)
        return;

    // A size that the figure chose stays its own choice, until somebody else chooses.
    const QSize chosen = m_chosen.value(child).size;
    const QRect before = constraint.toRect();
    QRect bounds = child->getBounds();
    if (before.width() < 1 && bounds.width() == chosen.width())
        bounds.setWidth(-1);
    if (before.height() < 1 && bounds.height() == chosen.height())
        bounds.setHeight(-1);

    const QPointer<PlacedLayout> alive(this);
    const QPointer<Figure> moved(child);
    if (setConstraint(child, bounds) && alive && moved)
        Q_EMIT constraintChanged(child);
}

} // namespace Velmora::Figura
