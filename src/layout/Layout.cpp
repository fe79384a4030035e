#include <figura/layout/Layout.h>

#include "areawalk_p.h"
#include "childtable_p.h"
#include "constraint_p.h"
#include "figure/childwalk_p.h"
#include "figure/figureguard_p.h"
#include "figure/ownclass_p.h"
#include "figure/paintreach_p.h"
#include "figure/paintregion_p.h"
#include "figure/privateflags_p.h"

#include <figura/layout/ILayoutListener.h>
#include <figura/layout/ILocator.h>

#include <QPainter>
#include <QStyleOptionViewItem>

namespace Velmora::Figura {
namespace {

/// Calls \a tell with each listener of \a layout.
///
/// A listener that is taken off while the others are told is not told any more. False when one of
/// them has destroyed the layout, which ends the round.
template<typename Tell>
bool tellAll(Layout *layout, const QList<ILayoutListener *> &listeners, Tell tell)
{
    const QPointer<Layout> alive(layout);
    const QList<ILayoutListener *> snapshot = listeners;
    for (ILayoutListener *listener : snapshot) {
        if (alive && listeners.contains(listener))
            tell(listener);
    }
    return !alive.isNull();
}

// Nobody else would delete an object that was made for the constraint alone.
void release(QObject *object)
{
    if (object && !object->parent())
        object->deleteLater();
}

bool isNotified(const Figure *figure)
{
    return figure && figure->getFlag(Figure::FLAG_NOTIFIED);
}

// Its parent figure was destroyed, of which it was told nothing.
bool isOrphan(const Figure *figure)
{
    return figure->getFlag(FLAG_HAD_PARENT) && !figure->getParentFigure();
}

// An orphan from a displayed tree is attached all the while: it must not be attached a second time,
// nor stay so in a tree that nobody shows.
void attach(Figure *child, bool isShown, bool wasAttached)
{
    if (isShown && !wasAttached)
        child->addNotify();
    else if (!isShown && wasAttached)
        child->removeNotify();
}

} // namespace

Layout::LayoutHelper::LayoutHelper(const QVariant &constraint, unsigned int verticalStretch,
                                   unsigned int horizontalStretch)
    : vStretch(verticalStretch)
    , hStretch(horizontalStretch)
{
    setConstraint(constraint);
}

Layout::LayoutHelper::LayoutHelper(const LayoutHelper &other)
    : vStretch(other.vStretch)
    , hStretch(other.hStretch)
    , m_constraint(other.m_constraint)
    , m_object(other.m_object ? std::make_unique<QPointer<QObject>>(*other.m_object) : nullptr)
{
}

Layout::LayoutHelper::~LayoutHelper() = default;

// A constraint whose object has been destroyed counts as none: its pointer must not be read.
QVariant Layout::LayoutHelper::getConstraint() const
{
    return m_object && !object() ? QVariant() : m_constraint;
}

QObject *Layout::LayoutHelper::object() const
{
    return m_object ? m_object->data() : nullptr;
}

void Layout::LayoutHelper::setConstraint(const QVariant &constraint)
{
    m_constraint = constraint;
    QObject *object = constraintObject(constraint);
    m_object = object ? std::make_unique<QPointer<QObject>>(object) : nullptr;
}

Layout::Layout(QObject *parent)
    : QObject(parent)
{
}

Layout::~Layout() = default;

bool Layout::add(Figure *child, const QVariant &constraint, int index)
{
    return insert(child, constraint, LayoutHelper(QVariant(), 0, 0), index);
}

bool Layout::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    return insert(child, QVariant(), LayoutHelper(QVariant(), vStretch, hStretch), index);
}

bool Layout::insert(Figure *child, const QVariant &constraint, const LayoutHelper &record,
                    int index)
{
    if (!m_figure || !child || table().find(child))
        return false;

    // Whoever is told on the way may take the child out again, or destroy it, what it is to be
    // placed by, or this layout. A child that is gone has no record.
    const LayoutHelper wanted(constraint, 0, 0);
    const bool wasAttached = isOrphan(child) && isNotified(child);
    const Arrival present(enlist(child, record, index));
    child->setParentFigure(m_figure);
    if (present)
        setConstraint(child, wanted.getConstraint());
    if (present)
        child->revalidate();
    if (present)
        attach(child, isNotified(m_figure), wasAttached);
    if (present)
        child->repaint();
    return bool(present);
}

ChildRecord *Layout::enlist(Figure *child, const LayoutHelper &record, int index)
{
    if (!m_table)
        m_table = std::make_unique<ChildTable>();
    return m_table->insert(this, child, record, index);
}

bool Layout::remove(Figure *child)
{
    if (!child || !table().find(child))
        return false;

    const QPointer<Layout> alive(this);
    const FigureGuard guarded(child);
    if (!tellAll(this, m_listeners,
                 [this](ILayoutListener *listener) { listener->remove(m_figure); }))
        return true;

    ChildRecord *record = guarded ? dismiss(child) : nullptr;
    if (!record) // a listener was quicker
        return true;
    if (isNotified(m_figure)) {
        child->removeNotify();
        if (alive && m_figure)
            m_figure->revalidate();
    }
    if (guarded)
        child->erase();
    if (guarded)
        child->setParentFigure(nullptr);
    // A destroyed child has left by itself.
    if (alive && guarded && record)
        table().remove(record);
    return true;
}

// The child counts as removed from here on, although it stays in the list until all are told.
ChildRecord *Layout::dismiss(Figure *child)
{
    ChildRecord *record = table().find(child);
    if (record) {
        release(record->helper.object());
        table().dismiss(record);
    }
    return record;
}

void Layout::forget(ChildRecord *destroyedChild)
{
    table().remove(destroyedChild);
    ++m_destroyedChildren;
    if (isNotified(m_figure))
        m_figure->revalidate();
}

ChildTable &Layout::table() const
{
    return ChildTable::of(this);
}

unsigned int Layout::destroyedChildCount() const
{
    return m_destroyedChildren;
}

QList<Figure *> Layout::childFigures()
{
    return table().figures();
}

int Layout::childFigureCount() const
{
    return table().count();
}

QVariant Layout::getConstraint(Figure *child)
{
    const LayoutHelper *helper = getHelper(child);
    return helper ? helper->getConstraint() : QVariant();
}

bool Layout::setConstraint(Figure *child, const QVariant &constraint)
{
    if (!getHelper(child))
        return false;

    const LayoutHelper wanted(constraint, 0, 0); // a listener may destroy what it holds
    const bool differs = !sameConstraint(getHelper(child)->getConstraint(), constraint);
    if (differs && !tellAll(this, m_listeners, [&](ILayoutListener *listener) {
            listener->setConstraint(m_figure, wanted.getConstraint());
        }))
        return true;

    if (ChildRecord *record = table().find(child)) {
        QObject *replaced = record->helper.object();
        record->helper.setConstraint(wanted.getConstraint());
        table().note(record, Pending::Placement);
        table().note(record, Pending::Extent);
        if (replaced != record->helper.object())
            release(replaced);
        applyConstraint(child, record->helper.getConstraint());
    }
    return true;
}

bool Layout::applyConstraint(Figure *child, const QVariant &constraint)
{
    if (!child || !constraint.isValid())
        return false;
    if (ILocator *locator = constraintLocator(constraint))
        locator->relocate(child);
    return true;
}

QSize Layout::getPreferredSize()
{
    if (m_preferredSize.isValid())
        return m_preferredSize;
    const QPointer<Layout> alive(this);
    const QSize size = calculatePreferredSize();
    if (alive)
        m_preferredSize = size;
    return size;
}

QSize Layout::getMinimumSize()
{
    if (m_minimumSize.isValid())
        return m_minimumSize;
    const QPointer<Layout> alive(this);
    const QSize size = calculateMinimumSize();
    if (alive)
        m_minimumSize = size;
    return size;
}

Qt::Orientations Layout::expandingDirections()
{
    return m_expandingDirections;
}

void Layout::setExpandingDirections(Qt::Orientations directions)
{
    m_expandingDirections = directions & (Qt::Horizontal | Qt::Vertical);
}

void Layout::findDescendantFigures(QList<Figure *> &result, const QRect &rect,
                                   const ITreeSearch &search, bool containedOnly) const
{
    AreaWalk walk(const_cast<Layout *>(this), {&rect, 1}, AreaWalk::UPWARDS);
    while (Figure *child = walk.next()) {
        if (child->isVisible())
            child->findFigures(result, rect, search, containedOnly);
    }
}

Figure *Layout::findDescendantAtExcluding(int x, int y, const ITreeSearch &search) const
{
    const int reach = ChildGrid::tolerance();
    const QRect around(x - reach, y - reach, 2 * reach + 1, 2 * reach + 1);
    AreaWalk walk(const_cast<Layout *>(this), {&around, 1}, AreaWalk::DOWNWARDS);
    while (Figure *child = walk.next()) {
        if (!child->isVisible())
            continue;
        if (Figure *found = child->findFigureAt(x, y, search))
            return found;
    }
    return nullptr;
}

bool Layout::isRelativeLayout() const
{
    return true;
}

bool Layout::isClipping() const
{
    return true;
}

void Layout::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    if (!painter || !m_figure)
        return;
    const QPointer<Layout> alive(this);
    if (!m_laidOut)
        layout(m_figure);
    if (!alive || !m_figure || !m_laidOut || ChildTable::paintsNothing(this))
        return;

    painter->save();
    if (isClipping())
        painter->setClipRect(option.rect, Qt::IntersectClip);
    AreaWalk walk(this, paintedRects(painter, option.rect), AreaWalk::UPWARDS);
    while (Figure *child = walk.next()) {
        if (child->isVisible())
            child->render(painter, option);
    }
    painter->restore();
}

// The damaged rectangles in the children's coordinates, as far as these follow from absolute ones;
// an invalid one, which makes every child be asked, where a subclass translates in its own way.
QList<QRect> Layout::paintedRects(const QPainter *painter, const QRect &rect) const
{
    if (!isClipping())
        return {QRect()};
    for (const Figure *figure = m_figure; figure; figure = figure->getParentFigure()) {
        if (!isOwnClass(figure))
            return {QRect()};
    }
    QPoint origin;
    m_figure->translateToParent(origin);
    m_figure->translateToAbsolute(origin);
    QList<QRect> rects = PaintRegion::rectsFor(painter, rect);
    for (QRect &part : rects)
        part.translate(-origin);
    return rects;
}

bool Layout::layout(Figure *container)
{
    if (!container)
        return false;
    if (m_laidOut)
        return true;

    const QPointer<Layout> alive(this);
    const FigureGuard guarded(container);
    bool takenOver = false;
    const bool told = tellAll(this, m_listeners, [&](ILayoutListener *listener) {
        if (guarded)
            takenOver = listener->layout(container) || takenOver;
    });
    if (!told || !guarded)
        return false;

    if (!takenOver) {
        QRect area = container->getClientArea();
        if (!alive || !guarded)
            return false;
        container->translateFromParent(area);
        ++workCounters().laidOut;
        const bool laidOut = performLayout(area);
        if (!alive)
            return false;
        m_laidOut = laidOut;
        PaintReach::collect(*this);
    }
    const bool laidOut = m_laidOut;
    tellAll(this, m_listeners, [&](ILayoutListener *listener) {
        if (guarded)
            listener->postLayout(container);
    });
    return laidOut;
}

void Layout::invalidate()
{
    if (!tellAll(this, m_listeners,
                 [this](ILayoutListener *listener) { listener->invalidate(m_figure); }))
        return;
    m_laidOut = false;
    m_preferredSize = QSize();
    m_minimumSize = QSize();
}

void Layout::addListener(ILayoutListener *listener)
{
    if (!listener) {
        QMessageLogger().warning("Layout::addListener(): null listener");
        return;
    }
    if (!m_listeners.contains(listener))
        m_listeners.append(listener);
}

void Layout::removeListener(ILayoutListener *listener)
{
    if (!listener) {
        QMessageLogger().warning("Layout::removeListener(): null listener");
        return;
    }
    m_listeners.removeOne(listener);
}

Figure *Layout::getFigure() const
{
    return m_figure;
}

void Layout::setFigure(Figure *figure)
{
    m_figure = figure;
    if (m_table)
        m_table->noteAll(Pending::Area); // the grid relies on whose children they are
}

Qt::Alignment Layout::getAligment() const
{
    return m_alignment;
}

void Layout::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
}

int Layout::getSpacing() const
{
    return m_spacing;
}

void Layout::setSpacing(int spacing)
{
    m_spacing = spacing;
}

bool Layout::isLaidOut() const
{
    return m_laidOut;
}

void Layout::setLaidOut(bool laidOut)
{
    m_laidOut = laidOut;
}

Layout::LayoutHelper *Layout::getHelper(Figure *child) const
{
    ChildRecord *record = table().find(child);
    return record ? &record->helper : nullptr;
}

unsigned int Layout::getHTotalStretch() const
{
    return totalStretch(&LayoutHelper::hStretch);
}

unsigned int Layout::getVTotalStretch() const
{
    return totalStretch(&LayoutHelper::vStretch);
}

unsigned int Layout::totalStretch(const unsigned int LayoutHelper::*stretch) const
{
    unsigned int total = 0;
    for (Figure *child : table().figures()) {
        const LayoutHelper *helper = getHelper(child);
        if (helper && child->isVisible())
            total += helper->*stretch;
    }
    return total;
}

} // namespace Velmora::Figura
