#pragma once

#include "childtable_p.h"

#include <QPointer>
#include <QRect>

#include <span>

namespace Velmora::Figura {

/// The children that may meet a rectangle, in the order of the children or against it.
///
/// When a child comes, goes or moves meanwhile, all those that lie ahead are handed out: what the
/// grid said may no longer hold.
class AreaWalk
{
public:
    enum Direction { UPWARDS, DOWNWARDS };

    AreaWalk(Layout *layout, std::span<const QRect> rects, Direction direction);

    Figure *next(); ///< Null at the end, and when the layout has been destroyed.

private:
    Figure *nextFound();
    Figure *nextOfAll();

    const QPointer<Layout> m_layout;
    ChildTable &m_table;
    const Direction m_direction;
    FoundChildren m_found;
    qsizetype m_position = 0;
    QList<Figure *> m_all;
    int m_firstSlot = 0;
    int m_slot = -1; // counted from the first
    quint64 m_revision = 0;
    bool m_askAll;
};

} // namespace Velmora::Figura
