#include "commands/ReorderNodes.h"

#include "model/Document.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>

namespace Editor {
namespace {

using Step = ReorderNodes::Step;

// The chosen ones move together: a block that has reached the end does not overtake itself.
void moveForward(QList<int> &order, const QSet<int> &chosen)
{
    for (qsizetype i = order.size() - 2; i >= 0; --i) {
        if (chosen.contains(order.at(i)) && !chosen.contains(order.at(i + 1)))
            order.swapItemsAt(i, i + 1);
    }
}

QList<int> reordered(QList<int> order, const QSet<int> &chosen, Step step)
{
    const auto isChosen = [&chosen](int id) { return chosen.contains(id); };
    const auto isOther = [&chosen](int id) { return !chosen.contains(id); };
    switch (step) {
    case Step::ToFront:
        std::stable_partition(order.begin(), order.end(), isOther);
        break;
    case Step::ToBack:
        std::stable_partition(order.begin(), order.end(), isChosen);
        break;
    case Step::Forward:
        moveForward(order, chosen);
        break;
    case Step::Backward:
        std::reverse(order.begin(), order.end());
        moveForward(order, chosen);
        std::reverse(order.begin(), order.end());
        break;
    }
    return order;
}

} // namespace

ReorderNodes::ReorderNodes(Document &document, const QList<int> &nodes, Step step)
    : ChangeElements(
          QCoreApplication::translate("Editor", "Change order"), document,
          {{}, {}, reordered(document.nodeOrder(), {nodes.cbegin(), nodes.cend()}, step)})
{
}

} // namespace Editor
