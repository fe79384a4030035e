#pragma once

#include "model/Content.h"
#include "scene/Theme.h"

#include <QHash>
#include <QObject>

namespace Velmora::Figura {
class Diagram;
class Figure;
} // namespace Velmora::Figura

namespace Editor {

class Document;
class EdgeFigure;
class LaneFigure;

/// Keeps a diagram in step with a document: a figure for each node, a connection for each edge.
///
/// Points and rectangles are in content coordinates.
class Scene : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned; both have to outlive the scene.
    Scene(Document &document, Velmora::Figura::Diagram &diagram);
    ~Scene() override;

    Document &document() const { return m_document; }
    Velmora::Figura::Diagram &diagram() const { return m_diagram; }

    const Theme &theme() const { return *m_theme; }
    void setTheme(const Theme &theme); ///< Has to live on.

    Velmora::Figura::Figure *figure(int node) const; ///< Null when there is none.
    LaneFigure *lane(int node) const;                ///< Null when it is no lane.
    EdgeFigure *connection(int edge) const;

    QRect rect(int node) const; ///< Where it is shown; of a node in a lane, too.
    QHash<int, QRect> rects(const QList<int> &nodes) const;
    QList<QPoint> points(int edge) const; ///< The way that its line takes.
    QRect boundsOf(int edge) const;       ///< With its arrow heads and label.
    QRect labelRect(int edge) const;      ///< Invalid without a label.

    // The topmost one at the point; 0 for none. A connection is above all nodes.
    int nodeAt(const QPoint &point) const;
    int laneAt(const QPoint &point, const QList<int> &except) const;
    int edgeAt(const QPoint &point) const;
    int labelAt(const QPoint &point) const;         ///< The edge whose label it is.
    QList<int> elementsIn(const QRect &rect) const; ///< Those that lie in it as a whole.
    QList<Velmora::Figura::Figure *> figuresOf(const QList<int> &nodes) const; ///< For exports.

    /// Lays out all that is stale, so that the geometry above holds.
    void validate() const;

    /// Routes anew what does not depend on the document alone: routes in horizontal and vertical
    /// segments keep out of each other's way, and the first one to come has the choice.
    void settle() const;

private:
    struct Shown
    {
        Node node;
        Velmora::Figura::Figure *figure = nullptr;
        LaneFigure *lane = nullptr; // the one that it is in
    };

    void connectDocument();
    void build();
    void insertNode(int id);
    void removeNode(int id);
    void changeNode(int id);
    void rebuildNode(int id);
    void reorder();
    void reorderLane(int lane);
    void place(const Shown &shown);
    void unplace(const Shown &shown);
    int placeBefore(int id) const;
    void moveTo(Shown &shown, const Node &node);
    void insertEdge(int id);
    void removeEdge(int id);
    void changeEdge(int id);
    void route(EdgeFigure *connection, const Edge &edge);
    QList<int> nodesShownIn(const LaneFigure *lane) const;

    Document &m_document;
    Velmora::Figura::Diagram &m_diagram;
    const Theme *m_theme = &Theme::light();
    QHash<int, Shown> m_nodes;
    QHash<int, EdgeFigure *> m_edges;
    QHash<const Velmora::Figura::Figure *, int> m_ids;
};

} // namespace Editor
