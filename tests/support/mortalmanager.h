#pragma once

#include "fate.h"

#include <figura/view/UpdateManager.h>

namespace Velmora::Figura::Test {

/// An update manager without a viewer that announces what figures report to it.
class MortalManager : public Mortal<UpdateManager>
{
public:
    using Mortal::Mortal;
    using UpdateManager::addDirtyRegion;

    void addDirtyRegion(Figure *, const QRect &) override
    {
        with("addDirtyRegion", [] {});
    }
    void addInvalidFigure(Figure *) override
    {
        with("addInvalidFigure", [] {});
    }
};

} // namespace Velmora::Figura::Test
