#include "extenttree_p.h"

#include <bit>
#include <optional>

namespace Velmora::Figura {
namespace {

constexpr int fewLeaves = 16;

// Nothing for a child that does not count, or that has to be asked itself.
std::optional<QRect> knownRect(const ChildRecord *record)
{
    if (!record || record->dismissed || record->classification == ChildRecord::Class::Foreign ||
        !record->figure->getFlag(Figure::FLAG_VISIBLE))
        return {};
    const QVariant constraint = record->helper.getConstraint();
    const int type = constraint.typeId();
    const bool isRectangle = type == QMetaType::QRect || type == QMetaType::QRectF;
    return isRectangle ? std::optional(constraint.toRect()) : std::nullopt;
}

} // namespace

bool ExtentTree::update(ChildTable &table)
{
    const ChildTable::Batch batch = table.take(Pending::Extent);
    const std::vector<int> emptied = table.takeEmptiedSlots();
    const int leaves = table.endSlot() - m_firstSlot;
    if (batch.all || m_numbering != table.numbering() || leaves > m_leaves || table.count() == 0) {
        rebuild(table);
        return m_unclearCount == 0;
    }
    for (int slot : emptied) {
        if (slot - m_firstSlot < m_leaves) // else it has come and gone meanwhile
            set(slot - m_firstSlot, nullptr);
    }
    for (const ChildRecord *record : batch.records)
        set(table.slotOf(record) - m_firstSlot, record);
    return m_unclearCount == 0;
}

void ExtentTree::rebuild(ChildTable &table)
{
    m_firstSlot = table.firstSlot();
    const int count = table.endSlot() - m_firstSlot;
    m_numbering = table.numbering();
    m_leaves = static_cast<int>(std::bit_ceil(static_cast<unsigned int>(qMax(count, fewLeaves))));
    m_nodes = std::vector<QRect>(std::size_t(m_leaves) * 2); // no more room than these need
    m_unclear = std::vector<bool>(m_leaves);
    m_unclearCount = 0;
    for (int slot = 0; slot < count; ++slot)
        setLeaf(slot, table.recordAt(m_firstSlot + slot));
    for (int node = m_leaves - 1; node >= 1; --node)
        m_nodes[node] = unionBelow(node);
}

QRect ExtentTree::unionBelow(int node) const
{
    const std::size_t left = std::size_t(node) * 2;
    return m_nodes[left] | m_nodes[left + 1];
}

void ExtentTree::setLeaf(int slot, const ChildRecord *record)
{
    const std::optional<QRect> rect = knownRect(record);
    const bool unclear = rect && !rect->isValid();
    m_unclearCount += int(unclear) - int(m_unclear[slot]);
    m_unclear[slot] = unclear;
    m_nodes[m_leaves + slot] = unclear ? QRect() : rect.value_or(QRect());
}

void ExtentTree::set(int slot, const ChildRecord *record)
{
    setLeaf(slot, record);
    for (int node = (m_leaves + slot) / 2; node >= 1; node /= 2) {
        const QRect united = unionBelow(node);
        if (united == m_nodes[node])
            return;
        m_nodes[node] = united;
    }
}

} // namespace Velmora::Figura
