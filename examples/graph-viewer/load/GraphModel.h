#pragma once

#include "Drawing.h"

#include <QStringList>

namespace GraphViewer {

/// A node or a cluster: a box with what is drawn in and around it.
struct GraphBox
{
    QString name;
    QString shape; ///< As in the graph file; empty for a cluster.
    QRectF box;
    Drawing body;
    Drawing label;
};

/// What an edge has at its tail or at its head.
struct EdgeEnd
{
    QString arrow; ///< As in the graph file; "none" for none.
    Drawing label;
};

struct GraphEdge
{
    int tail = -1; ///< An index into the nodes.
    int head = -1;
    QString name;
    bool routed = false; ///< Some edges get no line: only routed ones have ends.
    QPointF start;       ///< At the tail, with the arrow head if there is one.
    QPointF end;
    QPainterPath curve; ///< The middle of the line, without the arrow heads.
    Drawing line;
    Drawing arrows;
    Drawing label;
    double arrowSize = 1;
    EdgeEnd atTail;
    EdgeEnd atHead;
};

/// A graph with its layout, in points, y downwards, the top left corner at (0, 0).
struct GraphModel
{
    QString name; ///< Empty when the file gives none.
    QString engine;
    QString folder; ///< Where the files of the pictures are.
    bool directed = false;
    bool edgesFirst = false; ///< Whether nodes are painted over edges.
    QRectF box;
    Drawing background;
    Drawing label;
    QList<GraphBox> clusters; ///< Outer ones before those inside them.
    QList<GraphBox> nodes;
    QList<GraphEdge> edges;
    QStringList remarks; ///< What the layout engine had to say, one line each.
};

/// A graph, or one line that says why there is none.
struct LoadReply
{
    GraphModel graph;
    QString error;

    bool ok() const { return error.isEmpty(); }

    static LoadReply failure(const QString &error)
    {
        LoadReply reply;
        reply.error = error;
        return reply;
    }
};

} // namespace GraphViewer
