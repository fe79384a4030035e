#include "childtable_p.h"

#include "areasearch_p.h"
#include "figure/ownclass_p.h"
#include "figure/workcounters_p.h"

#include <algorithm>
#include <utility>

namespace Velmora::Figura {
namespace {

bool liesBelow(const ChildRecord *a, const ChildRecord *b)
{
    return a->slot < b->slot;
}

constexpr quint16 nowhere = 0xFFFF;

Arrival *latestArrival = nullptr;

} // namespace

ChildRecord::ChildRecord(Layout *holder, Figure *child, const Layout::LayoutHelper &constraints)
    : helper(constraints)
    , figure(child)
    , layout(holder)
{
    positions.fill(nowhere);
}

Arrival::Arrival(ChildRecord *record)
    : m_record(record)
    , m_outer(std::exchange(latestArrival, this))
{
}

Arrival::~Arrival()
{
    latestArrival = m_outer;
}

void Arrival::recordLeaves(const ChildRecord *record)
{
    for (Arrival *arrival = latestArrival; arrival; arrival = arrival->m_outer) {
        if (arrival->m_record == record)
            arrival->m_record = nullptr;
    }
}

ChildTable &ChildTable::of(const Layout *layout)
{
    static ChildTable none; // many layouts never get a child
    return layout->m_table ? *layout->m_table : none;
}

void ChildTable::note(const Figure *figure, Pending kind)
{
    for (ChildRecord *record = figure->m_records; record; record = record->next)
        of(record->layout).note(record, kind);
}

void ChildTable::figureDestroyed(Figure *figure)
{
    while (ChildRecord *record = figure->m_records)
        record->layout->forget(record);
}

ChildTable::ChildTable()
{
    noteChange();
}

ChildTable::~ChildTable()
{
    for (ChildRecord *record : std::as_const(m_records)) {
        if (!record)
            continue;
        Arrival::recordLeaves(record);
        unlink(record);
        delete record;
    }
}

// The figure knows no more of its record.
void ChildTable::unlink(const ChildRecord *record)
{
    ChildRecord **link = &record->figure->m_records;
    while (*link != record)
        link = &(*link)->next;
    *link = record->next;
}

ChildRecord *ChildTable::insert(Layout *layout, Figure *figure, const Layout::LayoutHelper &helper,
                                int index)
{
    noteChange();
    auto *record = new ChildRecord(layout, figure, helper);
    record->next = figure->m_records;
    figure->m_records = record;
    m_index.insert(figure, record);

    if (index >= 0 && index < count()) {
        closeGaps();
        m_figures.insert(index, figure);
        m_records.insert(index, record);
        m_numbered = false;
        ++m_numbering;
    } else {
        record->slot = endSlot();
        m_figures.append(figure);
        m_records.append(record);
    }
    for (Pending kind : {Pending::Validation, Pending::Placement, Pending::Extent, Pending::Area})
        note(record, kind);
    return record;
}

void ChildTable::dismiss(ChildRecord *record)
{
    m_index.remove(record->figure);
    record->dismissed = true;
    Arrival::recordLeaves(record);
    noteChange();
    note(record, Pending::Extent);
}

void ChildTable::remove(ChildRecord *record)
{
    const int slot = slotOf(record);
    if (!record->dismissed)
        dismiss(record);
    for (int kind = 0; kind <= foreignKind; ++kind)
        drop(record, kind);
    unlink(record);
    vacate(slot);
    ++m_removals;
    noteChange();
    if (m_grid)
        m_grid->remove(record);
    noteEmptied(slot);
    delete record;
    if (m_figures.isEmpty())
        giveBack();
}

// Containers keep the room that they once had. That of a layer should not outlive a diagram.
void ChildTable::giveBack()
{
    m_figures = {};
    m_records = {};
    m_index = {};
    for (Notes &list : m_notes)
        list.records = {};
}

void ChildTable::vacate(int slot)
{
    if (slot == endSlot() - 1) {
        m_figures.removeLast();
        m_records.removeLast();
    } else if (slot == m_firstSlot) {
        m_figures.removeFirst();
        m_records.removeFirst();
        ++m_firstSlot;
    } else {
        m_figures[slot - m_firstSlot] = nullptr;
        m_records[slot - m_firstSlot] = nullptr;
        ++m_gaps;
    }
    if (m_gaps > slotCount() / 2) // nobody may ever look
        closeGaps();
}

// One count for all tables.
void ChildTable::noteChange()
{
    static quint64 changes = 0;
    m_revision = ++changes;
}

const QList<Figure *> &ChildTable::figures()
{
    closeGaps();
    return m_figures;
}

void ChildTable::closeGaps()
{
    if (m_gaps == 0)
        return;
    workCounters().shifted += slotCount();
    m_figures.removeAll(nullptr);
    m_records.removeAll(nullptr);
    m_gaps = 0;
    m_numbered = false;
    ++m_numbering;
}

void ChildTable::number()
{
    if (m_numbered)
        return;
    workCounters().shifted += slotCount();
    for (int slot = m_firstSlot; slot < endSlot(); ++slot) {
        if (ChildRecord *record = recordAt(slot))
            record->slot = slot;
    }
    m_numbered = true;
}

int ChildTable::slotOf(const ChildRecord *record)
{
    number();
    return record->slot;
}

int ChildTable::positionOf(const ChildRecord *record, int kind)
{
    if (kind == foreignKind)
        return record->foreignPosition;
    const quint16 position = record->positions[kind];
    return position == nowhere ? -1 : position;
}

void ChildTable::setPosition(ChildRecord *record, int kind, int position)
{
    if (kind == foreignKind)
        record->foreignPosition = position;
    else
        record->positions[kind] = position < 0 ? nowhere : static_cast<quint16>(position);
}

void ChildTable::append(ChildRecord *record, int kind)
{
    Notes &list = notes(kind);
    setPosition(record, kind, static_cast<int>(list.records.size()));
    list.records.push_back(record);
}

void ChildTable::note(ChildRecord *record, Pending kind)
{
    if (kind == Pending::Area)
        noteChange();
    Notes &list = notes(static_cast<int>(kind));
    if (list.all || positionOf(record, static_cast<int>(kind)) >= 0)
        return;
    // To tell so many apart would cost more than to visit all.
    const std::size_t share = kind == Pending::Extent ? 8 : 2;
    const std::size_t most = std::max<std::size_t>(fewNotes, m_figures.size() / share);
    if (list.records.size() >= std::min(most, mostNotes))
        noteAll(kind);
    else
        append(record, static_cast<int>(kind));
}

void ChildTable::noteAll(Pending kind)
{
    Notes &list = notes(static_cast<int>(kind));
    for (ChildRecord *record : list.records)
        setPosition(record, static_cast<int>(kind), -1);
    list.all = true;
    list.records = {};
    if (kind == Pending::Extent)
        m_emptiedSlots = {};
}

void ChildTable::drop(ChildRecord *record, int kind)
{
    const int position = positionOf(record, kind);
    if (position < 0)
        return;
    auto &records = notes(kind).records;
    records[position] = records.back();
    setPosition(records[position], kind, position);
    records.pop_back();
    setPosition(record, kind, -1);
}

void ChildTable::noteEmptied(int slot)
{
    if (notes(static_cast<int>(Pending::Extent)).all)
        return;
    m_emptiedSlots.push_back(slot);
    if (m_emptiedSlots.size() > std::max<std::size_t>(fewNotes, m_figures.size() / 8))
        noteAll(Pending::Extent);
}

std::vector<int> ChildTable::takeEmptiedSlots()
{
    return std::exchange(m_emptiedSlots, {});
}

bool ChildTable::isPending(Pending kind) const
{
    const Notes &list = notes(static_cast<int>(kind));
    return list.all || !list.records.empty();
}

ChildTable::Batch ChildTable::take(Pending kind)
{
    Notes &list = notes(static_cast<int>(kind));
    if (list.all) {
        std::for_each(m_records.cbegin(), m_records.cend(), [this](auto *r) { classify(r); });
    }
    for (ChildRecord *record : list.records) {
        setPosition(record, static_cast<int>(kind), -1);
        classify(record);
    }
    Batch batch{list.all, {}};
    batch.records.swap(list.records);
    list.all = false;
    return batch;
}

// Not before the figure is asked for something: until its constructor has run it seems to be of a
// base class.
void ChildTable::classify(ChildRecord *record)
{
    if (!record || record->classification != ChildRecord::Class::Unknown)
        return;
    const bool own = isOwnClass(record->figure);
    record->classification = own ? ChildRecord::Class::Own : ChildRecord::Class::Foreign;
    if (!own)
        append(record, foreignKind);
}

bool ChildTable::isBarren(const Layout *layout)
{
    return of(layout).count() == 0 && isOwnClass(layout);
}

bool ChildTable::paintsNothing(const Layout *layout)
{
    return isBarren(layout) && layout->m_laidOut;
}

// When nearly all are found, to walk the list takes less time than to put them in its order.
bool ChildTable::findIn(std::span<const QRect> rects, FoundChildren &found)
{
    if (count() < areaSearch().fewestChildren)
        return false;
    if (!m_grid)
        m_grid = std::make_unique<ChildGrid>();
    m_grid->update(*this);
    for (const QRect &rect : rects) {
        if (!rect.isValid() || !m_grid->find(rect, found))
            return false;
    }
    if (found.size() >= count() - count() / 8)
        return false;
    number();
    std::sort(found.begin(), found.end(), liesBelow);
    if (rects.size() > 1)
        found.erase(std::unique(found.begin(), found.end()), found.end());
#ifndef NDEBUG
    static unsigned int searches = 0;
    if (++searches % 1000 == 0)
        checkFound(rects, found);
#endif
    return true;
}

// A change that nobody noted would show only in pixels and clicks.
void ChildTable::checkFound(std::span<const QRect> rects, const FoundChildren &found) const
{
    for (ChildRecord *record : m_records) {
        if (!record)
            continue;
        const QRect area = ChildGrid::areaOf(record);
        const bool isConcerned =
            !area.isValid() || std::any_of(rects.begin(), rects.end(), [&area](const QRect &rect) {
                return area.intersects(rect);
            });
        const bool isFound = std::binary_search(found.begin(), found.end(), record, liesBelow);
        if (isConcerned && !isFound)
            qFatal("ChildGrid does not know where a child is");
    }
}

} // namespace Velmora::Figura
