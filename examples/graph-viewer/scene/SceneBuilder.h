#pragma once

#include "EdgeLabel.h"
#include "GraphScene.h"

#include "load/GraphModel.h"

#include <memory>

namespace GraphViewer {

/// Makes figures of a graph: one for each node, cluster, edge and label.
class SceneBuilder
{
public:
    explicit SceneBuilder(const GraphModel &graph);

    std::unique_ptr<GraphScene> build();

private:
    void addBackground();
    ElementFigure *addBox(const GraphBox &box, ElementFigure::Kind kind);
    void countEdges();
    void addEdge(const GraphEdge &edge);
    double lane(const GraphEdge &edge);
    void addEdgeLabels(const GraphEdge &edge, EdgeConnection *figure);
    void addEdgeLabel(const Drawing &label, EdgeLabel::Place place, const QString &title,
                      EdgeConnection *figure);

    ElementFigure *addElement(ElementFigure::Kind kind, const QString &title, const Stroke &outline,
                              const QRectF &box);
    void addParts(ElementFigure *element, const Drawing &drawing, int firstStroke = 0);

    const GraphModel &m_graph;
    std::unique_ptr<GraphScene> m_scene;
    QList<ElementFigure *> m_nodes;
    struct Bundle
    {
        int edges = 0;
        int placed = 0;
    };
    QHash<std::pair<int, int>, Bundle> m_bundles; // edges between the same two nodes
};

} // namespace GraphViewer
