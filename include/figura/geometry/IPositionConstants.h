#pragma once

#include <figura/export.h>

namespace Velmora::Figura {

/// Direction, position and alignment codes: bit flags that combine by OR.
///
/// The compass codes (NORTH .. SOUTH_WEST) and the alignment codes (LEFT .. BOTTOM) are two sets
/// that overlap numerically on purpose; CENTER belongs to both. An operation that takes a code says
/// which of the two it reads.
struct FIGURA_EXPORT IPositionConstants
{
    static constexpr int NONE = 0;
    static constexpr int NORTH = 1;
    static constexpr int CENTER = 2;
    static constexpr int SOUTH = 4;
    static constexpr int WEST = 8;
    static constexpr int EAST = 16;

    static constexpr int NORTH_EAST = NORTH | EAST;
    static constexpr int NORTH_WEST = NORTH | WEST;
    static constexpr int SOUTH_EAST = SOUTH | EAST;
    static constexpr int SOUTH_WEST = SOUTH | WEST;
    static constexpr int NORTH_SOUTH = NORTH | SOUTH;
    static constexpr int EAST_WEST = EAST | WEST;

    static constexpr int LEFT = 1;
    static constexpr int RIGHT = 4;
    static constexpr int TOP = 8;
    static constexpr int MIDDLE = 16;
    static constexpr int BOTTOM = 32;
};

} // namespace Velmora::Figura
