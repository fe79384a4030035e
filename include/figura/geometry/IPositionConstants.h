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
    static constexpr int NONE = 0;   ///< No direction.
    static constexpr int NORTH = 1;  ///< Towards smaller y.
    static constexpr int CENTER = 2; ///< The middle; of both sets.
    static constexpr int SOUTH = 4;  ///< Towards greater y.
    static constexpr int WEST = 8;   ///< Towards smaller x.
    static constexpr int EAST = 16;  ///< Towards greater x.

    static constexpr int NORTH_EAST = NORTH | EAST;   ///< The upper right corner.
    static constexpr int NORTH_WEST = NORTH | WEST;   ///< The upper left corner.
    static constexpr int SOUTH_EAST = SOUTH | EAST;   ///< The lower right corner.
    static constexpr int SOUTH_WEST = SOUTH | WEST;   ///< The lower left corner.
    static constexpr int NORTH_SOUTH = NORTH | SOUTH; ///< Both vertical directions.
    static constexpr int EAST_WEST = EAST | WEST;     ///< Both horizontal directions.

    static constexpr int LEFT = 1;    ///< Alignment code.
    static constexpr int RIGHT = 4;   ///< Alignment code.
    static constexpr int TOP = 8;     ///< Alignment code.
    static constexpr int MIDDLE = 16; ///< Alignment code: the middle between top and bottom.
    static constexpr int BOTTOM = 32; ///< Alignment code.
};

} // namespace Velmora::Figura
