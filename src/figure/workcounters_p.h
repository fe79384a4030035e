#pragma once

#include <figura/export.h>

namespace Velmora::Figura {

/// How often the dear steps were taken since the process began. Tests see by it what is left out:
/// the figures of the application's own classes, which could count, are never left out.
struct WorkCounters
{
    long visited = 0;  ///< Children that a layout or a figure turned to.
    long painted = 0;  ///< Figures that drew themselves.
    long laidOut = 0;  ///< Layouts that placed their children.
    long shifted = 0;  ///< Children whose place in the list was written anew.
    long compared = 0; ///< Areas of children that a grid held against that of a search.
};

FIGURA_EXPORT WorkCounters &workCounters();

} // namespace Velmora::Figura
