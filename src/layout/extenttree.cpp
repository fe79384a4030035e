#include "extenttree_p.h"

#include <bit>

namespace Velmora::Figura {
namespace {

constexpr int fewLeaves = 4;
constexpr int childrenOfLeaf = 8;

} // namespace

// Nothing for a child that does not count, or that has to be asked itself.
std::optional<QRect> ExtentTree::knownRect(const ChildRecord *record)
{
    if (!record || record->dismissed || record->classification == ChildRecord::Class::Foreign ||
        !record->figure->getFlag(Figure::FLAG_VISIBLE))
        return {};
    const QVariant &constraint = record->helper.m_constraint; // no object when it is a rectangle
    switch (constraint.typeId()) {
    case QMetaType::QRect:
        return *static_cast<const QRect *>(constraint.constData());
    case QMetaType::QRectF:
        return constraint.toRect();
    default:
        return {};
    }
}

bool ExtentTree::update(ChildTable &table)
{
    const ChildTable::Batch batch = table.take(Pending::Extent);
    const std::vector<int> emptied = table.takeEmptiedSlots();
    const bool isOutgrown = table.endSlot() - m_firstSlot > m_leaves * childrenOfLeaf;
    const bool isStale = m_numbering != table.numbering() || isOutgrown;
    if (batch.all || isStale || table.count() == 0) {
        rebuild(table);
        return m_unclearCount == 0;
    }
    for (int slot : emptied)
        refresh(table, slot);
    for (const ChildRecord *record : batch.records)
        refresh(table, table.slotOf(record));
    return m_unclearCount == 0;
}

void ExtentTree::rebuild(ChildTable &table)
{
    m_firstSlot = table.firstSlot();
    const int count = table.endSlot() - m_firstSlot;
    m_numbering = table.numbering();
    const int needed = (count + childrenOfLeaf - 1) / childrenOfLeaf;
    m_leaves = static_cast<int>(std::bit_ceil(static_cast<unsigned int>(qMax(needed, fewLeaves))));
    m_nodes = std::vector<QRect>(std::size_t(m_leaves) * 2); // no more room than these need
    m_unclear = std::vector<bool>(m_leaves);
    m_unclearCount = 0;
    for (int leaf = 0; leaf < needed; ++leaf)
        takeLeaf(table, leaf);
    for (int node = m_leaves - 1; node >= 1; --node)
        m_nodes[node] = unionBelow(node);
}

QRect ExtentTree::unionBelow(int node) const
{
    const std::size_t left = std::size_t(node) * 2;
    return m_nodes[left] | m_nodes[left + 1];
}

void ExtentTree::takeLeaf(const ChildTable &table, int leaf)
{
    const int first = qMax(m_firstSlot + leaf * childrenOfLeaf, table.firstSlot());
    const int end = qMin(m_firstSlot + (leaf + 1) * childrenOfLeaf, table.endSlot());
    QRect united;
    bool unclear = false;
    for (int slot = first; slot < end; ++slot) {
        const std::optional<QRect> rect = knownRect(table.recordAt(slot));
        unclear = unclear || (rect && !rect->isValid());
        if (rect && rect->isValid())
            united |= *rect;
    }
    m_unclearCount += int(unclear) - int(m_unclear[leaf]);
    m_unclear[leaf] = unclear;
    m_nodes[m_leaves + leaf] = united;
}

// A slot beyond the leaves is that of a child that has come and gone meanwhile.
void ExtentTree::refresh(const ChildTable &table, int slot)
{
    const int leaf = (slot - m_firstSlot) / childrenOfLeaf;
    if (leaf >= m_leaves)
        return;
    takeLeaf(table, leaf);
    for (int node = (m_leaves + leaf) / 2; node >= 1; node /= 2) {
        const QRect united = unionBelow(node);
        if (united == m_nodes[node])
            return;
        m_nodes[node] = united;
    }
}

} // namespace Velmora::Figura
