#pragma once

#include <figura/export.h>

namespace Velmora::Figura {

/// How a highlight is drawn over a figure's client area.
struct FIGURA_EXPORT IStyleConstants
{
    static constexpr int HIGHLIGHT_FOCUSRECT = 0;  ///< The style's focus rectangle.
    static constexpr int HIGHLIGHT_RUBBERBAND = 1; ///< The style's rubber band.
};

} // namespace Velmora::Figura
