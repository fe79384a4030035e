#pragma once

#include "figureguard_p.h"

namespace Velmora::Figura {

/// The way of an invalidation from the figure where it began up to the one that is queued for it.
class Revalidation
{
public:
    explicit Revalidation(Figure *figure); ///< Begins a way, or goes on with the present one.
    ~Revalidation();
    Q_DISABLE_COPY_MOVE(Revalidation)

    static Figure *origin(); ///< Null when none is on its way.

private:
    const FigureGuard m_figure; // null unless the way began here
};

} // namespace Velmora::Figura
