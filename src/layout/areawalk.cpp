#include "areawalk_p.h"

#include "areasearch_p.h"
#include "figure/ownclass_p.h"
#include "figure/workcounters_p.h"

#include <algorithm>

namespace Velmora::Figura {

AreaWalk::AreaWalk(Layout *layout, std::span<const QRect> rects, Direction direction)
    : m_layout(layout)
    , m_table(ChildTable::of(layout))
    , m_direction(direction)
{
    m_askAll = areaSearch().isPlain || !isOwnClass(layout) || !m_table.findIn(rects, m_found);
    if (m_askAll)
        m_table.figures();
    m_all = m_table.figuresAndGaps();
    m_firstSlot = m_table.firstSlot();
    m_revision = m_table.revision();
    if (direction == DOWNWARDS) {
        std::reverse(m_found.begin(), m_found.end());
        m_slot = static_cast<int>(m_all.size());
    }
}

Figure *AreaWalk::next()
{
    if (!m_layout)
        return nullptr;
    m_askAll = m_askAll || m_revision != m_table.revision();
    ++workCounters().visited;
    return m_askAll ? nextOfAll() : nextFound();
}

Figure *AreaWalk::nextFound()
{
    if (m_position == m_found.size())
        return nullptr;
    const ChildRecord *record = m_found[m_position++];
    m_slot = record->slot - m_firstSlot;
    return record->figure;
}

Figure *AreaWalk::nextOfAll()
{
    const int step = m_direction == UPWARDS ? 1 : -1;
    for (m_slot += step; m_slot >= 0 && m_slot < m_all.size(); m_slot += step) {
        Figure *figure = m_all.at(m_slot);
        if (figure && (m_revision == m_table.revision() || m_table.find(figure)))
            return figure;
    }
    return nullptr;
}

} // namespace Velmora::Figura
