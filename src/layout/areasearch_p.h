#pragma once

#include <figura/export.h>

namespace Velmora::Figura {

/// When children are looked up by their area. Tests take the plain way to compare with, and the
/// other one also where few children would not be worth it.
struct AreaSearch
{
    int fewestChildren = 32; // fewer are asked one by one as quickly
    bool isPlain = false;    ///< All children are asked.
};

FIGURA_EXPORT AreaSearch &areaSearch();

} // namespace Velmora::Figura
