#pragma once

#include "childgrid_p.h"
#include "figure/childwalk_p.h"

#include <figura/layout/Layout.h>

#include <array>
#include <vector>

namespace Velmora::Figura {

/// What is still to be done for a child. A layout visits only the children concerned.
enum class Pending {
    Validation, ///< validate() may do something.
    Placement,  ///< Its bounds, its constraint or its visibility have changed since it was placed.
    Extent,     ///< The rectangle that it contributes to the extent may have changed.
    Area,       ///< It may be painted or hit somewhere else than before.
};

/// One child in one layout. A figure knows all of its records, so that it can say what changes.
struct ChildRecord
{
    enum class Class { Unknown, Own, Foreign };

    ChildRecord(Layout *layout, Figure *figure, const Layout::LayoutHelper &helper);

    Layout::LayoutHelper helper;
    Figure *const figure;
    Layout *const layout;
    ChildRecord *next = nullptr; // the figure's record in another layout
    int slot = -1;
    std::array<int, 5> positions; // in the list of each kind of pending work; last: foreign ones
    Class classification = Class::Unknown;
    bool dismissed = false; // no child any more, though still in the list
    int cellPosition = -1;  // in the grid
    quint64 cell = 0;
};

/// The children of a layout in their order, their records, and what is pending for them.
///
/// A child that leaves only empties its slot; the list is closed up when somebody asks for it. So
/// one leaves as quickly from the middle as from an end.
class ChildTable
{
public:
    /// What was pending. `all`: the records are not told apart, every child may be concerned.
    struct Batch
    {
        bool all = false;
        std::vector<ChildRecord *> records;
    };

    static ChildTable &of(const Layout *layout);

    /// Tells the layouts of \a figure, whatever they are.
    static void note(const Figure *figure, Pending kind);
    static void figureDestroyed(Figure *figure);

    ChildTable() = default;
    ~ChildTable();
    ChildTable(const ChildTable &) = delete;
    ChildTable &operator=(const ChildTable &) = delete;

    /// A dangling pointer finds nothing.
    ChildRecord *find(const Figure *figure) const { return m_index.value(figure); }
    int count() const { return slotCount() - m_gaps; }
    const QList<Figure *> &figures(); ///< Without gaps.

    ChildRecord *insert(Layout *layout, Figure *figure, const Layout::LayoutHelper &helper,
                        int index);
    void dismiss(ChildRecord *record); ///< find() no longer finds it.
    void remove(ChildRecord *record);  ///< From the list too. Deletes the record.

    void note(ChildRecord *record, Pending kind);
    void noteAll(Pending kind);
    bool isPending(Pending kind) const;
    Batch take(Pending kind); ///< Nothing of the kind is pending afterwards.

    /// Slots that were emptied since the extent was taken last; meaningless after a batch of all.
    std::vector<int> takeEmptiedSlots();

    /// Those whose class is not known, and which therefore have to be asked each time. Complete
    /// once a batch was taken that held all new records, as each kind does.
    const std::vector<ChildRecord *> &foreign() const { return notes(foreignKind).records; }

    int slotCount() const { return static_cast<int>(m_figures.size()); } ///< Gaps included.
    int slotOf(const ChildRecord *record);
    ChildRecord *recordAt(int slot) const { return m_records.at(slot); } ///< Null: a gap.
    unsigned int numbering() const { return m_numbering; } ///< Other slots, another number.
    /// Grows with every child that comes, goes or may have another area.
    unsigned int revision() const { return m_revision; }

    /// All that may meet one of \a rects, in their order. False when it is as well to ask all.
    bool findIn(const QList<QRect> &rects, std::vector<ChildRecord *> &found);
    const QList<Figure *> &figuresAndGaps() const { return m_figures; }

private:
    friend class ChildAgenda;

    struct Notes
    {
        bool all = false;
        std::vector<ChildRecord *> records;
    };

    static constexpr int foreignKind = 4;
    static constexpr std::size_t fewNotes = 64;
    static constexpr int fewChildren = 32; // asked one by one as quickly

    Notes &notes(int kind) { return m_notes[kind]; }
    const Notes &notes(int kind) const { return m_notes[kind]; }
    void append(ChildRecord *record, int kind);
    void drop(ChildRecord *record, int kind);
    void classify(ChildRecord *record);
    void checkFound(const QList<QRect> &rects, const std::vector<ChildRecord *> &found) const;
    void closeGaps();
    void noteEmptied(int slot);
    void number();

    QList<Figure *> m_figures;      // null: a gap
    QList<ChildRecord *> m_records; // of the same slots
    QHash<const Figure *, ChildRecord *> m_index;
    std::array<Notes, 5> m_notes;
    std::vector<int> m_emptiedSlots;
    int m_gaps = 0;
    bool m_numbered = true;
    unsigned int m_numbering = 0;
    unsigned int m_removals = 0;
    unsigned int m_revision = 0;
    std::unique_ptr<ChildGrid> m_grid;
};

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

    ChildTable &m_table;
    const Pending m_kind;
    std::vector<Due> m_heap;
    std::size_t m_seen = 0; // of those noted since
    bool m_absorbedAll = false;
    unsigned int m_removals;
    int m_slot = -1;
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

/// The children that may meet a rectangle, in the order of the children or against it.
///
/// When a child comes, goes or moves meanwhile, all those that lie ahead are handed out: what the
/// grid said may no longer hold.
class AreaWalk
{
public:
    enum Direction { UPWARDS, DOWNWARDS };

    AreaWalk(Layout *layout, const QList<QRect> &rects, Direction direction);

    Figure *next(); ///< Null at the end, and when the layout has been destroyed.

private:
    Figure *nextFound();
    Figure *nextOfAll();

    const QPointer<Layout> m_layout;
    ChildTable &m_table;
    const Direction m_direction;
    std::vector<ChildRecord *> m_found;
    std::size_t m_position = 0;
    QList<Figure *> m_all;
    int m_slot = -1;
    unsigned int m_revision = 0;
    bool m_askAll;
};

} // namespace Velmora::Figura
