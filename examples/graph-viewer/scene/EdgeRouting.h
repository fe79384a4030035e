#pragma once

#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ManhattanConnectionRouter.h>

#include <QStringList>

namespace GraphViewer {

class EdgeConnection;

/// How the edges run between their nodes.
enum class Routing { Engine, Straight, Manhattan };

/// The routers of one graph.
class EdgeRouting
{
public:
    static QStringList names(); ///< For users, in the order of the values.
    static Routing fromName(const QString &name);

    /// \a lane tells edges between the same two nodes apart: 0 for the one in the middle, and
    /// further out on either side, as seen from the tail, for the others.
    void apply(EdgeConnection *edge, Routing routing, double lane);

private:
    void bend(EdgeConnection *edge, const QVariantList &bends);
    QVariantList engineBends(EdgeConnection *edge) const;
    QVariantList loopBends(EdgeConnection *edge) const;
    QVariantList laneBend(EdgeConnection *edge, double lane) const;

    Velmora::Figura::BendpointConnectionRouter m_bendpoints;
    Velmora::Figura::ManhattanConnectionRouter m_manhattan;
};

} // namespace GraphViewer
