#include "childgrid_p.h"

#include "childtable_p.h"
#include "figure/paintreach_p.h"
#include "figure/workcounters_p.h"
#include "shape/pathsource_p.h"

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>
#include <figura/shape/Polygon.h>

#include <algorithm>
#include <typeinfo>

namespace Velmora::Figura {
namespace {

constexpr int smallestCell = 7; // the power of two that is the side of a cell
constexpr int highestLevel = 13;
constexpr int levelStep = 2; // how many powers each level is larger
constexpr quint64 everywhere = ~quint64(0);

int shiftOf(int level)
{
    return smallestCell + level * levelStep;
}

int levelOf(const QRect &area)
{
    const qint64 side = std::max(area.width(), area.height());
    int level = 0;
    while (level < highestLevel && side > (qint64(1) << shiftOf(level)))
        ++level;
    return level;
}

quint64 keyOf(int level, qint64 column, qint64 row)
{
    constexpr quint64 mask = (quint64(1) << 29) - 1;
    return quint64(level) << 58 | (quint64(column) & mask) << 29 | (quint64(row) & mask);
}

quint64 keyOf(const QRect &area)
{
    if (!area.isValid())
        return everywhere;
    const int level = levelOf(area);
    return keyOf(level, area.left() >> shiftOf(level), area.top() >> shiftOf(level));
}

// As QRect::intersects(), which takes longer because the rectangles may be of any kind.
bool meets(const QRect &area, const QRect &rect)
{
    return area.left() <= rect.right() && rect.left() <= area.right() &&
           area.top() <= rect.bottom() && rect.top() <= area.bottom();
}

// Its children may lie anywhere, and a point in one of them is in the polygon.
bool isHitByChildren(const Figure *figure) // of an own class
{
    return &typeid(*figure) == &typeid(Polygon) && figure->getLayoutManager();
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
    for (ChildRecord *record : batch.records)
        refresh(record);
    for (int slot = table.firstSlot(); batch.all && slot < table.endSlot(); ++slot) {
        if (ChildRecord *record = table.recordAt(slot))
            refresh(record);
    }
}

// Most moves end in the cell in which they began.
void ChildGrid::refresh(ChildRecord *record)
{
    const QRect area = areaOf(record);
    const quint64 key = keyOf(area);
    if (record->cellPosition >= 0 && record->cell == key) {
        m_cells.find(key)->at(record->cellPosition).area = area;
        return;
    }
    remove(record);
    insert(record, key, area);
}

void ChildGrid::insert(ChildRecord *record, quint64 key, const QRect &area)
{
    if (key != everywhere)
        ++m_levels[key >> 58];
    Cell &cell = m_cells[key];
    record->cell = key;
    record->cellPosition = static_cast<int>(cell.size());
    if (cell.size() == cell.capacity()) // doubled, it would take half as much room again
        cell.reserve(cell.size() + std::max<std::size_t>(2, cell.size() / 4));
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
    if (--m_count == 0)
        m_cells.clear(); // they are none, but take the room of many
}

bool ChildGrid::find(const QRect &rect, FoundChildren &found) const
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

void ChildGrid::collect(quint64 key, const QRect &rect, FoundChildren &found) const
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
