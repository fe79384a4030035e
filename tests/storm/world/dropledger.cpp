#include "dropledger.h"

#include <figura/decoration/Decoration.h>
#include <figura/figure/Figure.h>
#include <figura/view/UpdateManager.h>

#include <QSet>

namespace Velmora::Figura::Storm {
namespace {

bool isValid(const Figure *figure)
{
    return figure->getFlag(Figure::FLAG_VALID);
}

bool isValidUpToTheRoot(const Figure *figure)
{
    while (figure && isValid(figure))
        figure = figure->getParentFigure();
    return !figure;
}

} // namespace

void DropLedger::record(const QList<QPointer<Figure>> &late)
{
    noteServed();
    QSet<Figure *> seen;
    for (const QPointer<Figure> &figure : late) {
        // A decoration follows its locator at each pass and never becomes valid, on purpose.
        if (!figure || qobject_cast<Decoration *>(figure) || seen.contains(figure))
            continue;
        seen.insert(figure);
        Drop &drop = entryOf(figure);
        drop.isLost = !isValid(figure);
        drop.isLetGo = drop.hadTurn;
        drop.isDue = drop.isDue || !(drop.hadTurn || isValidUpToTheRoot(figure));
    }
}

DropLedger::Drop &DropLedger::entryOf(Figure *figure)
{
    for (Drop &drop : m_drops) {
        if (drop.figure == figure)
            return drop;
    }
    m_drops.append(Drop{figure});
    return m_drops.last();
}

// What has become valid was not lost, even if it becomes invalid once more: by a change of its size
// alone, say, for which nobody asks for an update.
void DropLedger::noteServed()
{
    for (Drop &drop : m_drops)
        drop.isLost = drop.isLost && drop.figure && !isValid(drop.figure);
}

// Of those that are valid nothing is remembered; but a turn that is still to come stays so,
// whatever a paint that was quicker has made of the figure.
void DropLedger::grantTurns()
{
    m_drops.removeIf(
        [](const Drop &drop) { return !drop.figure || (isValid(drop.figure) && !drop.isDue); });
    for (Drop &drop : m_drops)
        drop.hadTurn = false;
}

// Those that are valid by then do not need theirs, and have another one when they are dropped
// again.
void DropLedger::takeTurns()
{
    for (Drop &drop : m_drops) {
        drop.hadTurn = drop.hadTurn || (drop.isDue && !isValidUpToTheRoot(drop.figure));
        drop.isDue = false;
    }
}

QList<Figure *> DropLedger::leftInvalid(const UpdateManager *manager) const
{
    QList<Figure *> left;
    for (const Drop &drop : m_drops) {
        if (drop.figure && drop.isLost && !drop.isLetGo && !isValid(drop.figure) &&
            drop.figure->getUpdateManager() == manager)
            left.append(drop.figure);
    }
    return left;
}

} // namespace Velmora::Figura::Storm
