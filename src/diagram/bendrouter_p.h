#pragma once

#include <figura/connection/BendpointConnectionRouter.h>

namespace Velmora::Figura {

/// Routes through bendpoints, which outlive a change of routing, and in a loop from a figure to
/// itself.
class BendRouter : public BendpointConnectionRouter
{
public:
    using BendpointConnectionRouter::BendpointConnectionRouter;

    QList<QPoint> bendpoints(IConnection *connection);
    void setBendpoints(IConnection *connection, const QList<QPoint> &points);

    /// Keeps them, since the connection may come back; one that is destroyed loses them.
    void remove(IConnection * /*connection*/) override {}

protected:
    QList<QVariant> getBendpointList(IConnection *connection) override;
};

} // namespace Velmora::Figura
