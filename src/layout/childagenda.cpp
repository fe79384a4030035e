#include "childagenda_p.h"

#include "figure/workcounters_p.h"

#include <algorithm>
#include <utility>

namespace Velmora::Figura {

ChildAgenda::ChildAgenda(ChildTable &table, Pending kind, const ChildTable::Batch &batch)
    : m_table(table)
    , m_kind(kind)
    , m_removals(table.m_removals)
    , m_numbering(table.numbering())
    , m_slot(table.firstSlot() - 1)
{
    m_heap.reserve(batch.records.size() + table.foreign().size());
    for (const ChildRecord *record : batch.records) {
        if (record->classification == ChildRecord::Class::Own)
            m_heap.push_back({m_table.slotOf(record), record->figure});
    }
    for (const ChildRecord *record : table.foreign())
        m_heap.push_back({m_table.slotOf(record), record->figure});
    std::make_heap(m_heap.begin(), m_heap.end());
}

Figure *ChildAgenda::takeNext()
{
    std::pop_heap(m_heap.begin(), m_heap.end());
    const Due next = m_heap.back();
    m_heap.pop_back();
    m_slot = next.slot;
    m_current = next.figure;
    ++workCounters().visited;
    return m_table.find(next.figure) ? next.figure : nullptr;
}

void ChildAgenda::add(const ChildRecord *record)
{
    // The foreign ones were on the agenda from the beginning.
    if (!record || record->classification == ChildRecord::Class::Foreign ||
        m_table.slotOf(record) <= m_slot)
        return;
    m_heap.push_back({record->slot, record->figure});
    std::push_heap(m_heap.begin(), m_heap.end());
}

// The list has been closed up, or a child has come between others.
void ChildAgenda::followNumbering()
{
    if (std::exchange(m_numbering, m_table.numbering()) == m_table.numbering())
        return;
    std::vector<Due> heap;
    heap.reserve(m_heap.size());
    for (const Due &due : m_heap) {
        if (const ChildRecord *record = m_table.find(due.figure))
            heap.push_back({m_table.slotOf(record), due.figure});
    }
    m_heap.swap(heap);
    std::make_heap(m_heap.begin(), m_heap.end());
    if (const ChildRecord *current = m_table.find(m_current))
        m_slot = m_table.slotOf(current);
    else // where it was is lost; to turn to one that has been passed does less harm than to miss
         // one
        m_slot = m_table.firstSlot() - 1;
}

void ChildAgenda::absorbNotes()
{
    followNumbering();
    const auto &list = m_table.m_notes[static_cast<int>(m_kind)];
    if (list.all && !m_absorbedAll) {
        m_absorbedAll = true;
        for (int slot = m_slot + 1; slot < m_table.endSlot(); ++slot)
            add(m_table.recordAt(slot));
    }
    // A removal may have moved a note to the front.
    if (std::exchange(m_removals, m_table.m_removals) != m_table.m_removals)
        m_seen = 0;
    for (; m_seen < list.records.size(); ++m_seen)
        add(list.records[m_seen]);
}

} // namespace Velmora::Figura
