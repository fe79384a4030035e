#pragma once

#include <figura/figure/Figure.h>

namespace Velmora::Figura::Test {

/// A displayed root without any widget: attached from the start, with an update manager of the
/// test's own. A test that adds children gives it a layout first.
class RootFigure : public Figure
{
public:
    explicit RootFigure(UpdateManager *manager);

    UpdateManager *getUpdateManager() const override; ///< Null after removeNotify(), as always.

private:
    UpdateManager *m_manager;
};

} // namespace Velmora::Figura::Test
