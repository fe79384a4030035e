#pragma once

#include <figura/connection/ManhattanConnectionRouter.h>

namespace Velmora::Figura::Test {

/// A router whose protected operations can be called from outside.
class OpenRouter : public ManhattanConnectionRouter
{
public:
    using ManhattanConnectionRouter::getEndPoint;
    using ManhattanConnectionRouter::getStartPoint;
    using ManhattanConnectionRouter::isColumnReservedBy;
    using ManhattanConnectionRouter::isRowReservedBy;
    using ManhattanConnectionRouter::processPositions;
    using ManhattanConnectionRouter::removeReservedLines;
    using ManhattanConnectionRouter::reserveColumn;
    using ManhattanConnectionRouter::reserveRow;
};

} // namespace Velmora::Figura::Test
