#pragma once

#include "childgrid_p.h"

#include <figura/layout/Layout.h>

#include <QHash>
#include <QList>

#include <array>
#include <memory>
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

    ChildRecord(Layout *holder, Figure *child, Layout::LayoutHelper constraints);

    Layout::LayoutHelper helper;
    Figure *const figure;
    Layout *const layout;
    ChildRecord *next = nullptr; // the figure's record in another layout
    quint64 joined = 0;          ///< When the child came in: the same for no other record.
    int slot = -1;
    std::array<int, 5> positions; // in the list of each kind of pending work; last: foreign ones
    Class classification = Class::Unknown;
    bool dismissed = false; // no child any more, though still in the list
    int cellPosition = -1;  // in the grid
    quint64 cell = 0;
    int moves = 0; // of it that are being followed up, each within the one before
};

/// The children of a layout in their order, their records, and what is pending for them.
///
/// A child that leaves only empties its slot; the list is closed up when somebody asks for it. So
/// one leaves as quickly from the middle as from an end. Slots do not begin at 0, lest all others
/// had to be numbered anew when the first one goes.
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

    ChildTable();
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

    int firstSlot() const { return m_firstSlot; }
    int endSlot() const { return m_firstSlot + slotCount(); } ///< Behind the last one.
    int slotOf(const ChildRecord *record);
    ChildRecord *recordAt(int slot) const { return m_records.at(slot - m_firstSlot); } ///< Or null.
    unsigned int numbering() const { return m_numbering; } ///< Other slots, another number.
    /// Another one with every child that comes, goes or may have another area; that of no other
    /// table, so that a new one at the address of a destroyed one is told apart.
    quint64 revision() const { return m_revision; }

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

    Notes &notes(int kind) { return m_notes[kind]; }
    const Notes &notes(int kind) const { return m_notes[kind]; }
    void append(ChildRecord *record, int kind);
    void drop(ChildRecord *record, int kind);
    void classify(ChildRecord *record);
    void checkFound(const QList<QRect> &rects, const std::vector<ChildRecord *> &found) const;
    int slotCount() const { return static_cast<int>(m_figures.size()); } // gaps included
    static void unlink(const ChildRecord *record);
    void vacate(int slot);
    void giveBack();
    void closeGaps();
    void noteChange();
    void noteEmptied(int slot);
    void number();

    QList<Figure *> m_figures;      // null: a gap
    QList<ChildRecord *> m_records; // of the same slots
    QHash<const Figure *, ChildRecord *> m_index;
    std::array<Notes, 5> m_notes;
    std::vector<int> m_emptiedSlots;
    int m_gaps = 0;
    int m_firstSlot = 0;
    bool m_numbered = true;
    unsigned int m_numbering = 0;
    unsigned int m_removals = 0;
    quint64 m_revision = 0;
    std::unique_ptr<ChildGrid> m_grid;
};

} // namespace Velmora::Figura
