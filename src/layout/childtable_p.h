#pragma once

#include "childgrid_p.h"

#include <figura/layout/Layout.h>

#include <QHash>
#include <QList>

#include <array>
#include <memory>
#include <span>
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
    enum class Class : quint8 { Unknown, Own, Foreign };

    ChildRecord(Layout *holder, Figure *child, const Layout::LayoutHelper &constraints);

    Layout::LayoutHelper helper;
    Figure *const figure;
    Layout *const layout;
    ChildRecord *next = nullptr; // the figure's record in another layout
    quint64 cell = 0;            // of the grid
    int cellPosition = -1;
    int slot = -1;
    int foreignPosition = -1;         // among those whose class is not known
    std::array<quint16, 4> positions; // in the list of each kind of pending work
    short moves = 0; // of it that are being followed up, each within the one before
    Class classification = Class::Unknown;
    bool dismissed = false; // no child any more, though still in the list
};

/// A child that has just been added, until all are told. Null as soon as it is no child any more,
/// also when it comes in a second time.
class Arrival
{
public:
    explicit Arrival(ChildRecord *record);
    ~Arrival();
    Q_DISABLE_COPY_MOVE(Arrival)

    explicit operator bool() const { return m_record != nullptr; }

    static void recordLeaves(const ChildRecord *record);

private:
    ChildRecord *m_record;
    Arrival *m_outer;
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
    bool findIn(std::span<const QRect> rects, FoundChildren &found);
    /// Whether to look for children of \a layout can lead to nothing, whoever asks.
    static bool isBarren(const Layout *layout);
    /// The same for painting them, which also lays them out when that is due.
    static bool paintsNothing(const Layout *layout);
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
    static constexpr std::size_t mostNotes = 0xFFFF; // as far as a position counts

    Notes &notes(int kind) { return m_notes[kind]; }
    const Notes &notes(int kind) const { return m_notes[kind]; }
    static int positionOf(const ChildRecord *record, int kind);
    static void setPosition(ChildRecord *record, int kind, int position);
    void append(ChildRecord *record, int kind);
    void drop(ChildRecord *record, int kind);
    void classify(ChildRecord *record);
    void checkFound(std::span<const QRect> rects, const FoundChildren &found) const;
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
