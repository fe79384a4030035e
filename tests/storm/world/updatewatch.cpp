#include "updatewatch.h"

#include "world.h"

#include <figura/decoration/Decoration.h>
#include <figura/figure/Figure.h>

#include <algorithm>

namespace Velmora::Figura::Storm {
namespace {

bool isValid(const Figure *figure)
{
    return figure->getFlag(Figure::FLAG_VALID);
}

bool isWithinDecoration(const Figure *figure)
{
    while (figure && !qobject_cast<const Decoration *>(figure))
        figure = figure->getParentFigure();
    return figure;
}

// A decoration follows its locator at each pass and never becomes valid, on purpose.
bool becomesValid(const Figure *figure)
{
    return !qobject_cast<const Decoration *>(figure);
}

} // namespace

UpdateWatch::UpdateWatch(World &world)
    : m_world(world)
{
    connect(this, &UpdateManager::aboutToValidate, this, [this]() {
        const QPointer<UpdateWatch> self(this);
        ++m_changes;
        m_world.happens(Moment::Validate);
        if (self)
            beginPass();
    });
}

void UpdateWatch::addDirtyRegion(Figure *figure, const QRect &rect)
{
    if (m_world.stage.isPainting() && isWithinDecoration(figure))
        ++m_changes;
    UpdateManager::addDirtyRegion(figure, rect);
}

void UpdateWatch::addInvalidFigure(Figure *figure)
{
    if (figure)
        queue(figure);
    UpdateManager::addInvalidFigure(figure);
}

// Whoever is still to come in the pass is in time.
void UpdateWatch::queue(Figure *figure)
{
    if (!m_queued.contains(figure))
        m_queued.append(figure);
    if (m_passing && !m_coming.contains(figure))
        m_late.append(figure);
}

void UpdateWatch::beginPass()
{
    m_passing = true;
    m_coming = m_queued;
    m_validations = m_world.validations;
}

// Only the pass itself takes figures from the queue; others are validated on the way.
void UpdateWatch::noteValidating(Figure *figure)
{
    if (m_passing && m_validations == m_world.validations)
        m_coming.remove(0, m_coming.indexOf(figure) + 1);
}

void UpdateWatch::noteInvalidated(Figure *figure)
{
    m_world.drops.noteServed();
    if (m_validating)
        m_invalidated.insert(figure);
}

void UpdateWatch::performUpdate()
{
    const QPointer<UpdateWatch> self(this);
    if (m_validating || !getViewer()) {
        performNestedUpdate();
        return;
    }

    if (m_world.stage.isSecondTurn())
        m_world.drops.takeTurns();
    else if (isPending())
        m_world.drops.grantTurns();
    for (const QPointer<Figure> &figure : std::as_const(m_queued)) {
        if (figure)
            promise(figure);
    }
    m_validating = true;
    UpdateManager::performUpdate();
    if (!self)
        return;
    m_validating = false;
    m_passing = false;
    m_queued.clear();
    reportBroken();
    m_world.drops.record(std::exchange(m_late, {}));
}

// An update in an update, set off by a slot, leaves nothing for the outer one.
void UpdateWatch::performNestedUpdate()
{
    const QPointer<UpdateWatch> self(this);
    const bool wasPassing = m_passing;
    UpdateManager::performUpdate();
    if (!self || !getViewer())
        return;
    m_passing = wasPassing;
    m_queued.clear();
    m_coming.clear();
}

// Validation goes down as far as figures are invalid, but not to one that is just being removed: it
// is listed until all are told.
void UpdateWatch::promise(Figure *figure)
{
    if (isValid(figure) || !becomesValid(figure))
        return;
    Figure *parent = figure->getParentFigure();
    m_promises.append(Promise{figure, parent, parent != nullptr});
    const QList<Figure *> children = figure->childFigures();
    for (Figure *child : children) {
        if (child->getParentFigure() == figure)
            promise(child);
    }
}

// What was invalidated again, moved elsewhere or lost its layout, is nobody's fault; nor is what
// hangs below that.
bool UpdateWatch::isBroken(const Promise &promise) const
{
    Figure *figure = promise.figure;
    if (!figure || isValid(figure) || m_invalidated.contains(figure) || !isProbed(figure) ||
        m_world.isForgotten(figure))
        return false;
    if (!promise.hasParent)
        return true;
    return promise.parent && figure->getParentFigure() == promise.parent && isValid(promise.parent);
}

void UpdateWatch::reportBroken()
{
    for (const Promise &promise : std::exchange(m_promises, {})) {
        if (isBroken(promise))
            m_world.report("validity", describe(promise.figure) + " was not validated");
    }
    m_invalidated.clear();
}

bool UpdateWatch::isPending() const
{
    return std::any_of(m_queued.begin(), m_queued.end(),
                       [](const QPointer<Figure> &figure) { return !figure.isNull(); });
}

} // namespace Velmora::Figura::Storm
