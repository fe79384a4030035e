#include <figura/layout/XYLayout.h>

#include "constraint_p.h"
#include "figure/childwalk_p.h"

#include <figura/layout/ILocator.h>

namespace Velmora::Figura {
namespace {

constexpr int preferredAllowance = 10;

bool isRectangle(const QVariant &constraint)
{
    const int type = constraint.typeId();
    return type == QMetaType::QRect || type == QMetaType::QRectF;
}

// The preferred size is asked for only where it is needed: asking an invalid figure has effects.
// Being asked may also be the end of it.
template<typename Rect>
QVariant resolved(Rect rect, const QPointer<Figure> &child)
{
    const QSize minimum = child->getMinimumSize();
    const bool ownWidth = rect.width() >= 0;
    const bool ownHeight = rect.height() >= 0;
    const bool isAsked = child && !(ownWidth && ownHeight);
    const QSize preferred = isAsked ? child->getPreferredSize() : QSize();

    using Length = decltype(rect.width());
    rect.setWidth(ownWidth ? qMax<Length>(rect.width(), minimum.width()) : preferred.width());
    rect.setHeight(ownHeight ? qMax<Length>(rect.height(), minimum.height()) : preferred.height());
    return rect;
}

} // namespace

XYLayout::XYLayout(QObject *parent)
    : Layout(parent)
{
}

XYLayout::~XYLayout() = default;

bool XYLayout::add(Figure *child, const QVariant &constraint, int index)
{
    if (!Layout::add(child, constraint, index))
        return false;
    connect(child, SIGNAL(figureMoved(Figure *)), this, SLOT(childMoved(Figure *)));
    return true;
}

bool XYLayout::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    if (!Layout::add(child, vStretch, hStretch, index))
        return false;
    connect(child, SIGNAL(figureMoved(Figure *)), this, SLOT(childMoved(Figure *)));
    return true;
}

bool XYLayout::remove(Figure *child)
{
    if (child)
        disconnect(child, SIGNAL(figureMoved(Figure *)), this, SLOT(childMoved(Figure *)));
    return Layout::remove(child);
}

bool XYLayout::setConstraint(Figure *child, const QVariant &constraint)
{
    if (!child)
        return false;
    if (!isRectangle(constraint))
        return Layout::setConstraint(child, constraint);

    const QPointer<XYLayout> alive(this);
    const QPointer<Figure> guarded(child);
    const QVariant complete = constraint.typeId() == QMetaType::QRect
                                  ? resolved(constraint.toRect(), guarded)
                                  : resolved(constraint.toRectF(), guarded);
    return alive && guarded && Layout::setConstraint(child, complete);
}

bool XYLayout::applyConstraint(Figure *child, const QVariant &constraint)
{
    if (!Layout::applyConstraint(child, constraint))
        return false;
    if (isRectangle(constraint))
        child->setBounds(constraint.toRect());
    return true;
}

bool XYLayout::performLayout(const QRect & /*clientArea*/)
{
    walkChildren(this, [this](Figure *child) {
        if (child->isVisible())
            applyConstraint(child, getConstraint(child));
    });
    return true;
}

QSize XYLayout::calculateMinimumSize()
{
    if (!getFigure())
        return QSize();

    QRect area(0, 0, 1, 1);
    walkChildren(this, [this, &area](Figure *child) {
        if (!child->isVisible())
            return;
        QRect rect = getConstraint(child).toRect();
        rect.setSize(rect.size().expandedTo(child->getPreferredSize()));
        area |= rect;
    });
    return area.size();
}

QSize XYLayout::calculatePreferredSize()
{
    return getMinimumSize() + QSize(preferredAllowance, preferredAllowance);
}

QPoint XYLayout::getOrigin(Figure *figure)
{
    const QRect area = figure ? figure->getClientArea() : QRect();
    return area.isValid() ? area.topLeft() : QPoint();
}

void XYLayout::childMoved(Figure *child)
{
    if (!child || !isLaidOut())
        return;

    const QPointer<XYLayout> alive(this);
    const QPointer<Figure> moved(child);
    const QVariant constraint = getConstraint(child);
    bool changed = false;
    if (isRectangle(constraint)) {
        // The marker for "as preferred" survives the move.
        const QRectF before = constraint.toRectF();
        QRect bounds = child->getBounds();
        if (before.width() < 0)
            bounds.setWidth(-1);
        if (before.height() < 0)
            bounds.setHeight(-1);
        changed = setConstraint(child, bounds);
    } else if (ILocator *locator = constraintLocator(constraint)) {
        locator->relocate(child);
        changed = true;
    }
    if (changed && alive && moved)
        Q_EMIT constraintChanged(child);
}

} // namespace Velmora::Figura
