#pragma once

#include <figura/connection/ManhattanConnectionRouter.h>

namespace Velmora::Figura::Storm {

/// A router that shows what it has reserved.
class WatchedRouter : public ManhattanConnectionRouter
{
    Q_OBJECT

public:
    using ManhattanConnectionRouter::isColumnReservedBy;
    using ManhattanConnectionRouter::isRowReservedBy;
    using ManhattanConnectionRouter::ManhattanConnectionRouter;
};

} // namespace Velmora::Figura::Storm
