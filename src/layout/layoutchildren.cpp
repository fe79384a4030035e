#include "layoutchildren_p.h"

#include <algorithm>
#include <limits>

namespace Velmora::Figura {
namespace {

// Room for 32 children in a row between two others before all keys are given anew.
constexpr qint64 KEY_STEP = qint64(1) << 32;

bool isFarFromTheEnd(qint64 key)
{
    constexpr qint64 limit = std::numeric_limits<qint64>::max() - KEY_STEP;
    return key < limit && key > -limit;
}

} // namespace

LayoutChildren::LayoutChildren()
{
    noteChange();
}

LayoutChildren::~LayoutChildren()
{
    qDeleteAll(m_records);
}

LayoutChildren &LayoutChildren::of(const Layout *layout)
{
    return *layout->m_children;
}

const QList<Figure *> &LayoutChildren::figures()
{
    closeGaps();
    return m_figures;
}

int LayoutChildren::count() const
{
    return static_cast<int>(m_figures.size() - m_gaps);
}

LayoutChildren::Record *LayoutChildren::record(const Figure *child) const
{
    return m_records.value(child);
}

quint64 LayoutChildren::revision() const
{
    return m_revision;
}

quint64 LayoutChildren::effort() const
{
    return m_effort;
}

void LayoutChildren::insert(int index, Figure *child, std::unique_ptr<Record> record)
{
    noteChange();
    const bool inside = index >= 0 && index < count();
    if (inside)
        closeGaps();
    const qsizetype place = inside ? index : m_figures.size();
    record->m_key = keyAt(place);
    record->m_joined = m_revision;
    m_keys.insert(place, record->m_key);
    m_figures.insert(place, child);
    m_records.insert(child, record.release());
}

std::unique_ptr<LayoutChildren::Record> LayoutChildren::takeRecord(const Figure *child)
{
    noteChange();
    return std::unique_ptr<Record>(m_records.take(child));
}

void LayoutChildren::remove(const Figure *child, const Record *record)
{
    const qsizetype place = placeOf(child, record);
    if (place < 0)
        return;
    noteChange();
    if (place == m_figures.size() - 1) {
        m_figures.removeLast();
        m_keys.removeLast();
    } else if (place == 0) {
        m_figures.removeFirst();
        m_keys.removeFirst();
        m_firstGap = std::max<qsizetype>(m_firstGap - 1, 0);
    } else {
        m_firstGap = m_gaps > 0 ? std::min(m_firstGap, place) : place;
        m_figures[place] = nullptr;
        ++m_gaps;
    }
    if (m_gaps > m_figures.size() / 2) // nobody may ever look
        closeGaps();
}

// A key for a new entry at place, which the entry that stands there makes room for.
qint64 LayoutChildren::keyAt(qsizetype place)
{
    if (m_keys.isEmpty())
        return 0;
    if (place == m_keys.size() && isFarFromTheEnd(m_keys.constLast()))
        return m_keys.constLast() + KEY_STEP;
    if (place == 0 && isFarFromTheEnd(m_keys.constFirst()))
        return m_keys.constFirst() - KEY_STEP;
    if (place > 0 && place < m_keys.size()) {
        const qint64 before = m_keys.at(place - 1);
        if (const qint64 room = m_keys.at(place) - before; room > 1)
            return before + room / 2;
    }
    spreadKeys();
    return keyAt(place);
}

void LayoutChildren::spreadKeys()
{
    for (qsizetype place = 0; place < m_keys.size(); ++place) {
        m_keys[place] = place * KEY_STEP;
        if (Record *known = record(m_figures.at(place)))
            known->m_key = m_keys.at(place);
    }
}

// While a child leaves it may have been added again, and its former key been given to another one.
qsizetype LayoutChildren::placeOf(const Figure *child, const Record *record)
{
    if (record) {
        const auto found = std::lower_bound(m_keys.cbegin(), m_keys.cend(), record->m_key);
        const qsizetype place = found - m_keys.cbegin();
        if (place < m_figures.size() && m_figures.at(place) == child)
            return place;
    }
    m_effort += quint64(m_figures.size());
    return m_figures.indexOf(child);
}

void LayoutChildren::closeGaps()
{
    if (m_gaps == 0)
        return;
    m_effort += quint64(m_figures.size() - m_firstGap);
    qsizetype kept = m_firstGap;
    for (qsizetype place = m_firstGap; place < m_figures.size(); ++place) {
        if (!m_figures.at(place))
            continue;
        m_figures[kept] = m_figures.at(place);
        m_keys[kept] = m_keys.at(place);
        ++kept;
    }
    m_figures.resize(kept);
    m_keys.resize(kept);
    m_gaps = 0;
}

// One count for all lists, so that a new list at the address of a destroyed one is told apart.
void LayoutChildren::noteChange()
{
    static quint64 changes = 0;
    m_revision = ++changes;
}

} // namespace Velmora::Figura
