#pragma once

#include "GraphModel.h"
#include "XdotParser.h"

#include <QHash>

struct Agedge_s;
struct Agnode_s;
struct Agraph_s;
struct bezier;

namespace GraphViewer {

/// Takes a graph that is laid out, with its drawing operations attached, over into our structures.
class GraphReader
{
public:
    explicit GraphReader(Agraph_s *graph);

    GraphModel read();

private:
    void readNodes();
    void readEdges();
    void readClusters(Agraph_s *graph);
    GraphBox readNode(Agnode_s *node);
    GraphEdge readEdge(Agedge_s *edge);
    void readEnds(Agedge_s *edge, GraphEdge *result) const;
    void readBackground();

    QRectF toScene(double left, double bottom, double right, double top) const;
    Drawing drawing(void *element, std::initializer_list<const char *> attributes);
    void readCurve(const bezier &curve, QPainterPath *path) const;
    EdgeEnd readEnd(Agedge_s *edge, bool head);
    bool hasArrow(Agedge_s *edge, bool head) const;
    QString attribute(void *element, const char *name) const; ///< Empty when there is none.
    QString text(const char *bytes) const;

    Agraph_s *m_graph;
    QTransform m_toScene;
    XdotParser m_parser;
    QHash<Agnode_s *, int> m_nodeIndices;
    GraphModel m_model;
};

} // namespace GraphViewer
