#pragma once

#include "EdgeRouting.h"
#include "ElementFigure.h"

#include <figura/view/FreeformLayeredPane.h>

namespace Velmora::Figura {
class FreeformLayer;
}

namespace GraphViewer {

class EdgeLabel;

/// The figures of one graph: the content of a viewer.
///
/// The content pane has a single layer, the diagram, which holds the others; so the diagram can be
/// printed and copied as a whole, without the grid behind it.
class GraphScene
{
public:
    static const QString DiagramKey;

    /// Arrows end inside a node when they point to a field of it, so edges lie over nodes unless
    /// the graph wants it otherwise.
    explicit GraphScene(bool edgesFirst);
    ~GraphScene();
    Q_DISABLE_COPY_MOVE(GraphScene)

    Velmora::Figura::FreeformLayeredPane *content() { return &m_content; }
    Velmora::Figura::FreeformLayer *layer(ElementFigure::Kind kind) const;
    QRect area(); ///< What the figures cover.

    ElementFigure *add(std::unique_ptr<ElementFigure> element);
    QList<ElementFigure *> elements(ElementFigure::Kind kind) const; ///< All kinds but edges.

    /// For the \a lane see EdgeRouting::apply().
    EdgeConnection *addEdge(std::unique_ptr<EdgeConnection> edge, double lane);
    EdgeLabel *addLabel(std::unique_ptr<EdgeLabel> label, EdgeConnection *edge);
    QList<EdgeConnection *> edges() const;

    Routing routing() const { return m_routing; }
    void setRouting(Routing routing);

    /// Edges of nodes that were moved run straight where the layout engine's way was asked for.
    void moveNode(ElementFigure *node, const QPoint &corner);
    void settle(); ///< Has the canvas follow the nodes that were moved.

    /// The topmost element with a title, or null. Lines are hit from up to \a tolerance beside
    /// them.
    Element *elementAt(const QPoint &point, int tolerance) const;

private:
    struct Edge
    {
        EdgeConnection *figure;
        double lane;
        QList<EdgeLabel *> labels;
    };

    void route(const Edge &edge);

    EdgeRouting m_routers;
    Routing m_routing = Routing::Engine;
    QList<Edge> m_edges;
    QHash<const EdgeConnection *, qsizetype> m_edgeIndices;
    QMultiHash<const ElementFigure *, qsizetype> m_edgesOfNode;
    QSet<const ElementFigure *> m_movedNodes;
    Velmora::Figura::FreeformLayeredPane m_content;
    QMap<ElementFigure::Kind, Velmora::Figura::FreeformLayer *> m_layers;
};

} // namespace GraphViewer
