#include <figura/layout/FreeformLayout.h>

#include "extenttree_p.h"
#include "figure/childwalk_p.h"
#include "figure/figureguard_p.h"
#include "figure/ownclass_p.h"
#include "figure/signals_p.h"

#include <figura/figure/Border.h>

namespace Velmora::Figura {
namespace {

int examineExtentSlot()
{
    static const int slot = FreeformLayout::staticMetaObject.indexOfSlot("examineExtent()");
    return slot;
}

} // namespace

FreeformLayout::FreeformLayout(QObject *parent, bool contentMonitored)
    : XYLayout(parent)
    , m_tree(std::make_unique<ExtentTree>())
    , m_contentMonitored(contentMonitored)
{
}

FreeformLayout::~FreeformLayout() = default;

bool FreeformLayout::add(Figure *child, const QVariant &constraint, int index)
{
    return XYLayout::add(child, constraint, index) && watch(child);
}

bool FreeformLayout::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    return XYLayout::add(child, vStretch, hStretch, index) && watch(child);
}

bool FreeformLayout::watch(Figure *child)
{
    if (m_contentMonitored)
        connectMoves(child, this, examineExtentSlot());
    return true;
}

bool FreeformLayout::remove(Figure *child)
{
    const QPointer<FreeformLayout> alive(this);
    const FigureGuard removed(child);
    if (!XYLayout::remove(child))
        return false;
    if (!alive)
        return true;
    if (removed)
        disconnectMoves(child, this, examineExtentSlot());
    examineExtent();
    return true;
}

bool FreeformLayout::isRelativeLayout() const
{
    return false;
}

QPoint FreeformLayout::getOrigin(Figure * /*figure*/)
{
    return QPoint();
}

bool FreeformLayout::isContentMonitored() const
{
    return m_contentMonitored;
}

// It is the container that is watched here, while add() watches the children; both are meant.
void FreeformLayout::setContentMonitored(bool monitored)
{
    Figure *container = getFigure();
    if (container && monitored && !m_contentMonitored)
        connect(container, SIGNAL(figureMoved(Figure *)), this, SLOT(examineExtent()));
    else if (container && !monitored && m_contentMonitored)
        disconnect(container, SIGNAL(figureMoved(Figure *)), this, SLOT(examineExtent()));
    m_contentMonitored = monitored;
}

QRect FreeformLayout::calculateFreeformExtent()
{
    const FigureGuard container(getFigure());
    if (!container)
        return {};

    QRect extent = uniteChildren();
    if (const Border *border = container ? container->getBorder() : nullptr)
        border->getInsets().stripFrom(extent);
    return extent;
}

// The tree knows what a child of a known class contributes. All others are asked each time.
QRect FreeformLayout::uniteChildren()
{
    ChildTable &table = ChildTable::of(this);
    if (!isOwnClass(this) || !m_tree->update(table)) {
        QRect extent;
        walkChildren(this, [this, &extent](Figure *child) { extent |= contribution(child); });
        return extent;
    }

    QRect extent = m_tree->total();
    QList<Figure *> foreign;
    for (const ChildRecord *record : table.foreign())
        foreign.append(record->figure);
    const QPointer<FreeformLayout> alive(this);
    for (Figure *child : std::as_const(foreign)) {
        if (alive && table.find(child))
            extent |= contribution(child);
    }
    return extent;
}

QRect FreeformLayout::contribution(Figure *child)
{
    const QVariant constraint = getConstraint(child);
    const int type = constraint.typeId();
    if (!child->isVisible() || (type != QMetaType::QRect && type != QMetaType::QRectF))
        return {};
    return child->resolveBounds(constraint.toRect());
}

// A destroyed child tells nothing of its rectangle, so the extent that counted it is void.
const QRect &FreeformLayout::cachedExtent()
{
    if (m_extentAge != destroyedChildCount())
        m_extent = QRect();
    m_extentAge = destroyedChildCount();
    return m_extent;
}

QRect FreeformLayout::getFreeformExtent()
{
    if (cachedExtent().isValid())
        return m_extent;
    const QPointer<FreeformLayout> alive(this);
    const QRect extent = calculateFreeformExtent();
    if (alive)
        m_extent = extent;
    return extent;
}

void FreeformLayout::examineExtent()
{
    const QPointer<FreeformLayout> alive(this);
    const QRect extent = calculateFreeformExtent();
    if (!alive || extent == cachedExtent())
        return;
    m_extent = extent;
    Q_EMIT extentChanged();
}

QSize FreeformLayout::calculateMinimumSize()
{
    return getFreeformExtent().size();
}

QSize FreeformLayout::calculatePreferredSize()
{
    return getMinimumSize();
}

} // namespace Velmora::Figura
