#pragma once

#include "script.h"

#include <QMap>

namespace Velmora::Figura::Storm {

/// The moments in which the library runs code of the application.
enum class Moment {
    Draw,        ///< drawFigure() of a figure.
    Arrange,     ///< performLayout() of a layout.
    Validate,    ///< aboutToValidate().
    Moved,       ///< figureMoved().
    Parented,    ///< propertyChanged().
    Path,        ///< pathChanged().
    Extent,      ///< extentChanged().
    Scaled,      ///< scaleChanged().
    AnchorMoved, ///< anchorMoved().
    Constrained, ///< constraintChanged().
    Ancestor,    ///< ancestorAdded(), ancestorMoved() and ancestorRemoved().
    Destroyed,   ///< destroyed() of a figure.
    Count
};

/// Operations that wait for their moment to come.
class Traps
{
public:
    /// The next operation that comes by is kept for \a moment.
    void arm(Moment moment) { m_armed = moment; }
    /// Keeps \a operation if one is waited for; false when it is to run now.
    bool capture(const Operation &operation);
    /// The oldest operation that waits for \a moment.
    std::optional<Operation> take(Moment moment);
    void clear();

private:
    std::optional<Moment> m_armed;
    QMap<Moment, Script> m_waiting;
};

} // namespace Velmora::Figura::Storm
