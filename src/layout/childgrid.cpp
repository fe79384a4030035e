#include "childgrid_p.h"

#include "childtable_p.h"
#include "figure/paintreach_p.h"
#include "figure/workcounters_p.h"
#include "shape/pathsource_p.h"

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>
#include <figura/shape/Polygon.h>

#include <algorithm>

namespace Velmora::Figura {
namespace {

constexpr int smallestCell = 7; // the power of two that is the side of a cell
constexpr int levelStep = 2;    // how many powers each level is larger
constexpr int levelCount = 14;
constexpr quint64 everywhere = ~quint64(0);

int shiftOf(int level)
{
    return smallestCell + level * levelStep;
}

int levelOf(const QRect &area)
{
    const qint64 side = std::max(area.width(), area.height());
    int level = 0;
    while (level < levelCount - 1 && side > (qint64(1) << shiftOf(level)))
        ++level;
    return level;
}

quint64 keyOf(int level, qint64 column, qint64 row)
{
    constexpr quint64 mask = (quint64(1) << 29) - 1;
    return quint64(level) << 58 | (quint64(column) & mask) << 29 | (quint64(row) & mask);
}

// As QRect::intersects(), which takes longer because the rectangles may be of any kind.
bool meets(const QRect &area, const QRect &rect)
{
    return area.left() <= rect.right() && rect.left() <= area.right() &&
           area.top() <= rect.bottom() && rect.top() <= area.bottom();
}

// Its children may lie anywhere, and a point in one of them is in the polygon.
bool isHitByChildren(const Figure *figure)
{
    return figure->getLayoutManager() && qobject_cast<const Polygon *>(figure);
}

} // namespace

int ChildGrid::tolerance()
{
    return std::max({Polyline::M_tolerance, PolylineF::M_tolerance, 0});
}

QRect ChildGrid::areaOf(const ChildRecord *record)
{
    Figure *figure = record->figure;
    if (record->classification != ChildRecord::Class::Own ||
        figure->getParentFigure() != record->layout->getFigure() || isHitByChildren(figure))
        return {};

    const QRect bounds = figure->getBoundingRect();
    if (!bounds.isValid())
        return {};
    const QRect painted = PaintReach::paintedArea(*figure, bounds);
    const auto *shape = qobject_cast<const Shape *>(figure);
    if (!shape)
        return painted;
    const int pen = std::abs(shape->getLineWidth()) / 2 + 1;
    const QRect path = PathSource::outlineOf(shape).bounds.toAlignedRect();
    return painted | (path | bounds).adjusted(-pen, -pen, pen, pen);
}

void ChildGrid::update(ChildTable &table)
{
    if (!table.isPending(Pending::Area))
        return;
    const ChildTable::Batch batch = table.take(Pending::Area);
    if (!batch.all) {
        for (ChildRecord *record : batch.records) {
            remove(record);
            insert(record);
        }
        return;
    }
    clear();
    for (int slot = table.firstSlot(); slot < table.endSlot(); ++slot) {
        if (ChildRecord *record = table.recordAt(slot))
            insert(record);
    }
}

void ChildGrid::clear()
{
    m_cells.clear();
    m_levels.assign(levelCount, 0);
    m_count = 0;
}

void ChildGrid::insert(ChildRecord *record)
{
    m_levels.resize(levelCount);
    const QRect area = areaOf(record);
    quint64 key = everywhere;
    if (area.isValid()) {
        const int level = levelOf(area);
        key = keyOf(level, area.left() >> shiftOf(level), area.top() >> shiftOf(level));
        ++m_levels[level];
    }
    Cell &cell = m_cells[key];
    record->cell = key;
    record->cellPosition = static_cast<int>(cell.size());
    cell.push_back({area, record});
    ++m_count;
}

void ChildGrid::remove(ChildRecord *record)
{
    if (record->cellPosition < 0)
        return;
    Cell &cell = m_cells[record->cell];
    cell[record->cellPosition] = cell.back();
    cell[record->cellPosition].record->cellPosition = record->cellPosition;
    cell.pop_back();
    if (cell.empty())
        m_cells.remove(record->cell);
    if (record->cell != everywhere)
        --m_levels[record->cell >> 58];
    record->cellPosition = -1;
    --m_count;
}

bool ChildGrid::find(const QRect &rect, std::vector<ChildRecord *> &found) const
{
    for (int level = 0; level < static_cast<int>(m_levels.size()); ++level) {
        if (m_levels[level] == 0)
            continue;
        const int shift = shiftOf(level);
        const qint64 side = qint64(1) << shift;
        const qint64 firstColumn = (rect.left() - side) >> shift;
        const qint64 lastColumn = qint64(rect.right()) >> shift;
        const qint64 firstRow = (rect.top() - side) >> shift;
        const qint64 lastRow = qint64(rect.bottom()) >> shift;
        if ((lastColumn - firstColumn + 1) * (lastRow - firstRow + 1) > m_count)
            return false;
        for (qint64 row = firstRow; row <= lastRow; ++row) {
            for (qint64 column = firstColumn; column <= lastColumn; ++column)
                collect(keyOf(level, column, row), rect, found);
        }
    }
    if (const auto cell = m_cells.constFind(everywhere); cell != m_cells.constEnd()) {
        for (const Entry &entry : *cell)
            found.push_back(entry.record);
    }
    return true;
}

void ChildGrid::collect(quint64 key, const QRect &rect, std::vector<ChildRecord *> &found) const
{
    const auto cell = m_cells.constFind(key);
    if (cell == m_cells.constEnd())
        return;
    workCounters().compared += static_cast<long>(cell->size());
    for (const Entry &entry : *cell) {
        if (meets(entry.area, rect))
            found.push_back(entry.record);
    }
}

} // namespace Velmora::Figura
