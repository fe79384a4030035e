#include <figura/layout/XYLayout.h>

#include "childagenda_p.h"
#include "constraint_p.h"
#include "figure/figureguard_p.h"
#include "figure/ownclass_p.h"
#include "figure/signals_p.h"

#include <figura/layout/ILocator.h>

namespace Velmora::Figura {
namespace {

constexpr int preferredAllowance = 10;

// To follow a move up may move the child once more, to its minimum size or back to its locator. One
// that grows whenever it is asked, or flees from its locator, would go on for ever.
constexpr int mostFollowedMoves = 8;

bool isRectangle(const QVariant &constraint)
{
    const int type = constraint.typeId();
    return type == QMetaType::QRect || type == QMetaType::QRectF;
}

// The bounds that a constraint alone decides; invalid when something else has a say.
QRect asPlaced(const QVariant &constraint)
{
    const QRect rect = isRectangle(constraint) ? constraint.toRect() : QRect();
    return rect.isValid() ? rect : QRect();
}

int childMovedSlot()
{
    static const int slot = XYLayout::staticMetaObject.indexOfSlot("childMoved(Figure*)");
    return slot;
}

/// Counts how often the move of a child is followed up within itself.
class FollowedMove
{
public:
    FollowedMove(const Layout *layout, Figure *child)
        : m_layout(layout)
        , m_child(child)
        , m_isOneTooMany(step(1) > mostFollowedMoves)
    {
    }
    ~FollowedMove() { step(-1); }
    FollowedMove(const FollowedMove &) = delete;
    FollowedMove &operator=(const FollowedMove &) = delete;

    bool isOneTooMany() const { return m_isOneTooMany; }

private:
    int step(int by) const
    {
        ChildRecord *record =
            m_layout && m_child ? ChildTable::of(m_layout).find(m_child) : nullptr;
        if (!record)
            return 0;
        record->moves = static_cast<short>(qMax(record->moves + by, 0));
        return record->moves;
    }

    const QPointer<const Layout> m_layout;
    const FigureGuard m_child;
    const bool m_isOneTooMany;
};

// The preferred size is asked for only where it is needed: asking an invalid figure has effects.
// Being asked may also be the end of it.
template<typename Rect>
QVariant resolved(Rect rect, const FigureGuard &child)
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
    connectMoves(child, this, childMovedSlot());
    return true;
}

bool XYLayout::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    if (!Layout::add(child, vStretch, hStretch, index))
        return false;
    connectMoves(child, this, childMovedSlot());
    return true;
}

bool XYLayout::remove(Figure *child)
{
    if (child)
        disconnectMoves(child, this, childMovedSlot());
    return Layout::remove(child);
}

bool XYLayout::setConstraint(Figure *child, const QVariant &constraint)
{
    if (!child)
        return false;
    if (!isRectangle(constraint))
        return Layout::setConstraint(child, constraint);

    const QPointer<XYLayout> alive(this);
    const FigureGuard guarded(child);
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
    // A child that still has the bounds of its constraint is left alone by all but a subclass.
    if (isOwnClass(this))
        walkPending(this, this, Pending::Placement, [this](Figure *child) { place(child); });
    else
        walkChildren(this, [this](Figure *child) { place(child); });
    return true;
}

void XYLayout::place(Figure *child)
{
    if (!child->isVisible())
        return;
    const QVariant constraint = getConstraint(child);
    const QPointer<XYLayout> alive(this);
    applyConstraint(child, constraint);

    // A locator, a preferred size or an own idea of the bounds may have another answer next time.
    ChildRecord *record = alive ? ChildTable::of(this).find(child) : nullptr;
    if (record && constraint.isValid() && child->getBounds() != asPlaced(constraint))
        ChildTable::of(this).note(record, Pending::Placement);
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

    const FollowedMove move(this, child);
    if (move.isOneTooMany())
        return;
    const QPointer<XYLayout> alive(this);
    const FigureGuard moved(child);
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
