#include "updatewatch.h"

#include "world.h"

#include <figura/decoration/Decoration.h>
#include <figura/figure/Figure.h>

namespace Velmora::Figura::Storm {
namespace {

bool isValid(const Figure *figure)
{
    return figure->getFlag(Figure::FLAG_VALID);
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
        ++m_passes;
        m_world.happens(Moment::Validate);
    });
}

void UpdateWatch::addInvalidFigure(Figure *figure)
{
    if (figure)
        (m_validating ? m_late : m_queued).append(figure);
    UpdateManager::addInvalidFigure(figure);
}

void UpdateWatch::noteInvalidated(Figure *figure)
{
    noteServed();
    if (m_validating)
        m_invalidated.insert(figure);
}

// What has become valid was not lost, even if it becomes invalid once more: by a change of its size
// alone, say, for which nobody asks for an update.
void UpdateWatch::noteServed()
{
    for (Drop &drop : m_drops)
        drop.isLost = drop.isLost && drop.figure && !isValid(drop.figure);
}

void UpdateWatch::performUpdate()
{
    const QPointer<UpdateWatch> self(this);
    if (m_validating || !getViewer()) { // an update in an update, set off by a slot
        UpdateManager::performUpdate();
        return;
    }

    for (const QPointer<Figure> &figure : std::exchange(m_queued, {})) {
        if (figure)
            promise(figure);
    }
    m_validating = true;
    UpdateManager::performUpdate();
    if (!self)
        return;
    m_validating = false;
    reportBroken();
    recordDrops();
}

// Validation goes down as far as figures are invalid.
void UpdateWatch::promise(Figure *figure)
{
    if (isValid(figure) || !becomesValid(figure))
        return;
    Figure *parent = figure->getParentFigure();
    m_promises.append(Promise{figure, parent, parent != nullptr});
    const QList<Figure *> children = figure->childFigures();
    for (Figure *child : children)
        promise(child);
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

void UpdateWatch::recordDrops()
{
    noteServed();
    QSet<Figure *> seen;
    for (const QPointer<Figure> &figure : std::exchange(m_late, {})) {
        if (!figure || !becomesValid(figure) || seen.contains(figure))
            continue;
        seen.insert(figure);
        auto known = std::find_if(m_drops.begin(), m_drops.end(),
                                  [&](const Drop &drop) { return drop.figure == figure; });
        if (known == m_drops.end())
            known = m_drops.insert(known, Drop{figure});
        ++known->passes;
        known->isLost = !isValid(figure);
    }
}

void UpdateWatch::forgetServed()
{
    m_drops.removeIf([](const Drop &drop) { return !drop.figure || isValid(drop.figure); });
}

// One that is queued by every pass, or by every other one as two that disturb each other, is let go
// of in the end.
QList<Figure *> UpdateWatch::leftInvalid()
{
    QList<Figure *> left;
    for (const Drop &drop : std::as_const(m_drops)) {
        if (drop.figure && drop.passes == 1 && drop.isLost && !isValid(drop.figure) &&
            drop.figure->getUpdateManager() == this)
            left.append(drop.figure);
    }
    return left;
}

} // namespace Velmora::Figura::Storm
