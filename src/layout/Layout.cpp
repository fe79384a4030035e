#include <figura/layout/Layout.h>

#include "constraint_p.h"
#include "figure/childwalk_p.h"
#include "figure/paintreach_p.h"

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

// Children leave from either end far more often than from the middle.
void removeChild(QList<Figure *> &children, Figure *child)
{
    if (!children.isEmpty() && children.constLast() == child)
        children.removeLast();
    else
        children.removeOne(child);
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

} // namespace

Layout::LayoutHelper::LayoutHelper(const QVariant &constraint, unsigned int verticalStretch,
                                   unsigned int horizontalStretch)
    : vStretch(verticalStretch)
    , hStretch(horizontalStretch)
{
    setConstraint(constraint);
}

// A constraint whose object has been destroyed counts as none: its pointer must not be read.
QVariant Layout::LayoutHelper::getConstraint() const
{
    return m_holdsObject && !m_object ? QVariant() : m_constraint;
}

void Layout::LayoutHelper::setConstraint(const QVariant &constraint)
{
    m_constraint = constraint;
    m_object = constraintObject(constraint);
    m_holdsObject = !m_object.isNull();
}

Layout::Layout(QObject *parent)
    : QObject(parent)
{
}

Layout::~Layout()
{
    qDeleteAll(m_helpers);
}

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
    if (!m_figure || !child || m_helpers.contains(child))
        return false;

    // Whoever is told on the way may take the child out again, or destroy it or this layout.
    const QPointer<Layout> alive(this);
    const auto isPresent = [&alive, child]() { return alive && alive->m_helpers.contains(child); };
    enlist(child, record, index);
    child->setParentFigure(m_figure);
    if (isPresent())
        setConstraint(child, constraint);
    if (isPresent())
        child->revalidate();
    if (isPresent() && isNotified(m_figure))
        child->addNotify();
    if (isPresent())
        child->repaint();
    return isPresent();
}

void Layout::enlist(Figure *child, const LayoutHelper &record, int index)
{
    const bool inside = index >= 0 && index < m_children.size();
    m_children.insert(inside ? index : m_children.size(), child);
    auto *helper = new LayoutHelper(record);
    helper->m_childWatch =
        connect(child, &QObject::destroyed, this, [this, child]() { forget(child); });
    m_helpers.insert(child, helper);
}

bool Layout::remove(Figure *child)
{
    if (!child || !m_helpers.contains(child))
        return false;

    const QPointer<Layout> alive(this);
    const QPointer<Figure> guarded(child);
    if (!tellAll(this, m_listeners,
                 [this](ILayoutListener *listener) { listener->remove(m_figure); }))
        return true;

    const QMetaObject::Connection watch = dismiss(child);
    if (guarded && isNotified(m_figure)) {
        child->removeNotify();
        if (alive && m_figure)
            m_figure->revalidate();
    }
    if (guarded)
        child->erase();
    if (guarded)
        child->setParentFigure(nullptr);
    disconnect(watch);
    if (alive)
        removeChild(m_children, child);
    return true;
}

// Takes the record of a child away, with what it alone held. The watch over the child goes on until
// the child has left the list too.
QMetaObject::Connection Layout::dismiss(Figure *child)
{
    LayoutHelper *helper = m_helpers.take(child);
    if (!helper)
        return {};

    const QMetaObject::Connection watch = helper->m_childWatch;
    release(helper->m_object);
    delete helper;
    return watch;
}

void Layout::forget(Figure *destroyedChild)
{
    delete m_helpers.take(destroyedChild);
    removeChild(m_children, destroyedChild);
    ++m_destroyedChildren;
    if (isNotified(m_figure))
        m_figure->revalidate();
}

unsigned int Layout::destroyedChildCount() const
{
    return m_destroyedChildren;
}

QList<Figure *> Layout::childFigures()
{
    return m_children;
}

int Layout::childFigureCount() const
{
    return static_cast<int>(m_children.size());
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

    const bool differs = !sameConstraint(getHelper(child)->getConstraint(), constraint);
    if (differs && !tellAll(this, m_listeners, [&](ILayoutListener *listener) {
            listener->setConstraint(m_figure, constraint);
        }))
        return true;

    if (LayoutHelper *helper = getHelper(child)) {
        QObject *replaced = helper->m_object;
        helper->setConstraint(constraint);
        if (replaced != helper->m_object)
            release(replaced);
        applyConstraint(child, constraint);
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
    if (!m_preferredSize.isValid())
        m_preferredSize = calculatePreferredSize();
    return m_preferredSize;
}

QSize Layout::getMinimumSize()
{
    if (!m_minimumSize.isValid())
        m_minimumSize = calculateMinimumSize();
    return m_minimumSize;
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
    for (Figure *child : m_children) {
        if (child->isVisible())
            child->findFigures(result, rect, search, containedOnly);
    }
}

Figure *Layout::findDescendantAtExcluding(int x, int y, const ITreeSearch &search) const
{
    for (auto child = m_children.crbegin(); child != m_children.crend(); ++child) {
        if (!(*child)->isVisible())
            continue;
        if (Figure *found = (*child)->findFigureAt(x, y, search))
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
    if (!alive || !m_laidOut)
        return;

    painter->save();
    if (isClipping())
        painter->setClipRect(option.rect, Qt::IntersectClip);
    walkChildren(this, [painter, &option](Figure *child) {
        if (child->isVisible())
            child->render(painter, option);
    });
    painter->restore();
}

bool Layout::layout(Figure *container)
{
    if (!container)
        return false;
    if (m_laidOut)
        return true;

    const QPointer<Layout> alive(this);
    const QPointer<Figure> guarded(container);
    bool takenOver = false;
    const bool told = tellAll(this, m_listeners, [&](ILayoutListener *listener) {
        if (guarded)
            takenOver = listener->layout(container) || takenOver;
    });
    if (!told || !guarded)
        return false;

    if (!takenOver) {
        QRect area = container->getClientArea();
        container->translateFromParent(area);
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
    return m_helpers.value(child);
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
    for (Figure *child : m_children) {
        const LayoutHelper *helper = getHelper(child);
        if (helper && child->isVisible())
            total += helper->*stretch;
    }
    return total;
}

} // namespace Velmora::Figura
