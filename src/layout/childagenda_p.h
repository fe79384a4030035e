#pragma once

#include "childtable_p.h"
#include "figure/childwalk_p.h"

#include <QPointer>

#include <vector>

namespace Velmora::Figura {

/// The children that are to be visited, in their order; more may be added while they are.
class ChildAgenda
{
public:
    ChildAgenda(ChildTable &table, Pending kind, const ChildTable::Batch &batch);

    bool isEmpty() const { return m_heap.empty(); }
    Figure *takeNext(); ///< Null when it is no child any more.
    /// Adds those that were noted since and lie ahead of the one taken last.
    void absorbNotes();

private:
    struct Due
    {
        int slot;
        Figure *figure;
        bool operator<(const Due &other) const { return slot > other.slot; } // the first on top
    };

    void add(const ChildRecord *record);
    void followNumbering();

    ChildTable &m_table;
    const Pending m_kind;
    std::vector<Due> m_heap;
    std::size_t m_seen = 0; // of those noted since
    bool m_absorbedAll = false;
    unsigned int m_removals;
    unsigned int m_numbering;
    const Figure *m_current = nullptr;
    int m_slot;
};

/// Calls \a visit with the children for which \a kind is pending, in their order, those included
/// that become so on the way and still lie ahead, and with all whose class is not known.
///
/// As with walkChildren(), \a visit may change the children and destroy the owner.
template<typename Owner, typename Visit>
void walkPending(Owner *owner, Layout *layout, Pending kind, Visit visit)
{
    ChildTable &table = ChildTable::of(layout);
    const ChildTable::Batch batch = table.take(kind);
    if (batch.all) {
        walkChildren(owner, visit);
        return;
    }

    if (batch.records.empty() && table.foreign().empty())
        return;
    const QPointer<Owner> aliveOwner(owner);
    const QPointer<Layout> aliveLayout(layout);
    ChildAgenda agenda(table, kind, batch);
    while (!agenda.isEmpty()) {
        if (Figure *child = agenda.takeNext())
            visit(child);
        if (!aliveOwner || !aliveLayout)
            return;
        agenda.absorbNotes();
    }
}

} // namespace Velmora::Figura
