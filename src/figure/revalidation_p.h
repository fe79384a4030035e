#pragma once

#include <QPointer>

namespace Velmora::Figura {

class Figure;

/// The way of an invalidation from the figure where it began up to the one that is queued for it.
class Revalidation
{
public:
    explicit Revalidation(Figure *figure); ///< Begins a way, or goes on with the present one.
    ~Revalidation();
    Q_DISABLE_COPY_MOVE(Revalidation)

    static Figure *origin(); ///< Null when none is on its way.

private:
    const bool m_isFirst;
};

} // namespace Velmora::Figura
