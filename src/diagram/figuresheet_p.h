#pragma once

#include "sheet_p.h"

#include <figura/view/FreeformLayer.h>

namespace Velmora::Figura {

/// The layer of the figures. After each layout what is inside them is in its place, and built.
class FigureSheet : public Sheet<FreeformLayer>
{
public:
    using Sheet<FreeformLayer>::Sheet;

    void validate() override;
};

} // namespace Velmora::Figura
