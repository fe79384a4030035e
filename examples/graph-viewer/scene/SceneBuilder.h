#pragma once

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
    void addBox(const GraphBox &box, ElementFigure::Kind kind);
    void addEdge(const GraphEdge &edge);
    void addEdgeLabel(const GraphEdge &edge);

    ElementFigure *addElement(ElementFigure::Kind kind, const QString &title, const Stroke &outline,
                              const QRectF &box);
    void addParts(ElementFigure *element, const Drawing &drawing, int firstStroke = 0);
    void addLines(ElementFigure *element, const Drawing &drawing);

    const GraphModel &m_graph;
    std::unique_ptr<GraphScene> m_scene;
};

} // namespace GraphViewer
