#pragma once

#include "childtable_p.h"

#include <QRect>

#include <optional>
#include <vector>

namespace Velmora::Figura {

/// The union of the rectangles of a layout's children.
///
/// A tree of unions over the slots of the children: when one child changes, one branch is united
/// anew, wherever the child was; also when it held an edge of the whole. A leaf stands for a few
/// children in a row, which are asked again together: the tree would take eight times the room
/// otherwise.
class ExtentTree
{
public:
    /// Takes in what has changed. False when a child of a known class has a rectangle that is not
    /// valid, so that only the child itself can say what it contributes.
    bool update(ChildTable &table);

    QRect total() const { return m_nodes.empty() ? QRect() : m_nodes[1]; }

private:
    static std::optional<QRect> knownRect(const ChildRecord *record);
    void rebuild(ChildTable &table);
    void refresh(const ChildTable &table, int slot);
    QRect unionBelow(int node) const;
    void takeLeaf(const ChildTable &table, int leaf);

    std::vector<QRect> m_nodes;  // 1 is the root, the leaves are the last half
    std::vector<bool> m_unclear; // leaves with a child whose rectangle is not valid
    int m_unclearCount = 0;
    int m_leaves = 0;
    int m_firstSlot = 0; // of the first leaf
    unsigned int m_numbering = 0;
};

} // namespace Velmora::Figura
