#pragma once

#include <figura/decoration/ConnectionLocator.h>
#include <figura/export.h>

namespace Velmora::Figura {

/// Puts a rotatable decoration at one end of a connection and turns it along the last segment.
class FIGURA_EXPORT ArrowLocator : public ConnectionLocator
{
    Q_OBJECT

public:
    /// MIDDLE counts as SOURCE: an arrow sits at an end.
    ArrowLocator(IConnection *connection, Alignment alignment, QObject *parent = nullptr);
    ~ArrowLocator() override;

    /// Leaves null and hidden figures alone. Warns when there is no connection, when \a target is
    /// not a rotatable decoration, and for fewer than two points.
    void relocate(Figure *target) override;
};

} // namespace Velmora::Figura
