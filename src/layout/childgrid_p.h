#pragma once

#include <QHash>
#include <QRect>
#include <QVarLengthArray>

#include <array>
#include <vector>

namespace Velmora::Figura {

class ChildTable;
struct ChildRecord;

/// What a search has found; most find so few that they need no memory of their own.
using FoundChildren = QVarLengthArray<ChildRecord *, 64>;

/// Tells which children may lie in a rectangle, without asking each of them.
///
/// A child lies in one cell of a grid, chosen by its corner, on the level whose cells are just
/// large enough for it. A search looks at the cells that it covers, and at those before them, into
/// which a child may reach. Areas are taken anew only for children that noted a change, when a
/// search is made. Children whose area cannot be known are found by every search.
class ChildGrid
{
public:
    void update(ChildTable &table);
    void remove(ChildRecord *record);

    /// Appends all records whose area may meet \a rect. False when so many cells are concerned that
    /// it is as well to ask every child.
    bool find(const QRect &rect, FoundChildren &found) const;

    /// Where \a record may be painted or hit; nothing when only the figure itself can say.
    static QRect areaOf(const ChildRecord *record);

    /// How far a line may be missed and still be hit, at most.
    static int tolerance();

private:
    struct Entry
    {
        QRect area;
        ChildRecord *record;
    };
    using Cell = std::vector<Entry>;

    void insert(ChildRecord *record, quint64 key, const QRect &area);
    void refresh(ChildRecord *record);
    void collect(quint64 key, const QRect &rect, FoundChildren &found) const;

    QHash<quint64, Cell> m_cells;
    std::array<int, 14> m_levels{}; // how many children are on each level
    int m_count = 0;
};

} // namespace Velmora::Figura
