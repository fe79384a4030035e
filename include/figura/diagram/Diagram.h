#pragma once

#include <figura/connection/PolylineConnection.h> // complete, so that signals have meta-types
#include <figura/diagram/export.h>
#include <figura/figure/Figure.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QPolygonF>
#include <QRect>
#include <QSet>

#include <memory>

class QPainter;

namespace Velmora::Figura {

class BendRouter;
class ConnectionLayer;
class DiagramLinks;
class DiagramPane;
class DiagramView;
class FreeformLayer;
class FreeformLayeredPane;
class IConnectionAnchor;
class ManhattanConnectionRouter;
class TextFigure;

/// The content of a diagram: figures, the connections between them, and room for feedback on top.
///
/// Works the same whether it is shown or not: what is added is built, placed and connected at once.
/// Owns its layers and all that is added to it. What the program destroys itself leaves the diagram
/// and takes its connections along. What lies inside a figure follows its moves, whatever layout it
/// has; and the paper may grow and shrink without moving anything.
/// All points and rectangles are in content coordinates, those of the figures. What cannot be done
/// changes nothing and gives false, null or an empty value. GUI thread only.
class FIGURA_DIAGRAM_EXPORT Diagram : public QObject
{
    Q_OBJECT
    Q_MOC_INCLUDE("figura/connection/ConnectionLayer.h")
    Q_MOC_INCLUDE("figura/view/FreeformLayer.h")
    Q_MOC_INCLUDE("figura/view/FreeformLayeredPane.h")

    Q_PROPERTY(FreeformLayeredPane *pane READ getPane)
    Q_PROPERTY(FreeformLayer *figureLayer READ getFigureLayer)
    Q_PROPERTY(ConnectionLayer *connectionLayer READ getConnectionLayer)
    Q_PROPERTY(FreeformLayer *feedbackLayer READ getFeedbackLayer)
    Q_PROPERTY(QList<Figure *> figures READ getFigures)
    Q_PROPERTY(QList<PolylineConnection *> connections READ getConnections)
    Q_PROPERTY(QRect extent READ getExtent)
    Q_PROPERTY(bool antialiased READ isAntialiased WRITE setAntialiased)

public:
    /// How a connection finds its way.
    enum class Routing {
        Straight,   ///< One line.
        Bendpoints, ///< Through the points of setBendpoints().
        Manhattan,  ///< Horizontal and vertical segments.
    };
    Q_ENUM(Routing)

    /// The decoration at an end of a connection.
    enum class Arrow {
        None,
        Open,   ///< Two strokes.
        Filled, ///< A triangle.
    };
    Q_ENUM(Arrow)

    /// Which end of a connection.
    enum class End { Source, Target };
    Q_ENUM(End)

    static const QString FIGURES;     ///< The keys of the layers in the pane, from below:
    static const QString CONNECTIONS; ///< "figures", "connections" and
    static const QString FEEDBACK;    ///< "feedback".

    /// Empty, with its layers. \a parent owns it as a QObject.
    explicit Diagram(QObject *parent = nullptr);
    ~Diagram() override;

    using QObject::connect; // not hidden by the connect() below

    // The layers. All are owned by the diagram.

    /// What a viewer takes as its content. DiagramView::setDiagram() does more than setContent().
    FreeformLayeredPane *getPane() const;
    /// Where the figures are. Never null.
    FreeformLayer *getFigureLayer() const;
    /// Where the connections are, above the figures. Never null.
    ConnectionLayer *getConnectionLayer() const;
    /// For handles, guides and bands, above all else: add figures to it with a rectangle. They
    /// count neither for the extent nor for render(), and they are not exported.
    FreeformLayer *getFeedbackLayer() const;

    // Figures.

    /// Adds \a figure at \a rect below those from \a index on, on top for any other index. Takes
    /// ownership. A width or height below 1 stands for the preferred one, and follows it. A
    /// polyline or polygon is fitted into \a rect, or stays at its points when that is invalid.
    /// Returns the figure; null when it is null, a connection, or already part of a figure tree.
    template<class FigureType>
    FigureType *add(FigureType *figure, const QRect &rect, int index = -1)
    {
        return addFigure(figure, rect, index) ? figure : nullptr;
    }

    /// Removes a figure of this diagram, its connections and those of the figures inside it, or one
    /// connection. All are deleted later. False for what is not part of the diagram.
    bool remove(Figure *figure);
    void clear(); ///< Removes all figures and connections; the feedback layer stays as it is.

    QList<Figure *> getFigures() const; ///< As added, in paint order; without those inside them.
    bool contains(const Figure *figure) const; ///< For a figure or a connection of this diagram.

    /// Moves and resizes a figure that was added, or one inside it (then in the coordinates of its
    /// parent's children). Fits the points of a polyline or polygon into \a rect.
    bool setBounds(Figure *figure, const QRect &rect);

    int getIndex(const Figure *figure) const; ///< The place in the paint order; -1 for strangers.
    /// Moves a figure or connection within its layer: 0 is the lowest, any index outside the top.
    bool setIndex(Figure *figure, int index);

    /// Writes \a text into the middle of \a figure, in black or white, whichever can be read on its
    /// fill, or replaces what such a call wrote before.
    /// \a figure may be a text or label figure itself. Returns what shows the text; null for null
    /// and for a figure with children of its own.
    static TextFigure *setText(Figure *figure, const QString &text);

    // Connections.

    /// An anchor for one connection end that fits the outline of \a figure: EllipseAnchor for an
    /// ellipse, OutlineAnchor for other shapes that are not rectangles, else ChopboxAnchor.
    static IConnectionAnchor *createAnchor(Figure *figure, QObject *parent);

    /// Connects two figures, each added to the diagram or inside one that was. From a figure to
    /// itself the line is a loop. Null when an end is missing or a stranger. Owned by the diagram.
    PolylineConnection *connect(Figure *source, Figure *target,
                                Routing routing = Routing::Straight);
    /// The same with a connection of the program's own class. Takes ownership.
    bool add(PolylineConnection *connection, Figure *source, Figure *target,
             Routing routing = Routing::Straight);
    /// Moves the ends of \a connection. Its route, decorations and label stay.
    bool reconnect(PolylineConnection *connection, Figure *source, Figure *target);

    QList<PolylineConnection *> getConnections() const; ///< In paint order.
    /// Those that begin or end at \a figure itself, each once, in the order of their making.
    QList<PolylineConnection *> getConnections(const Figure *figure) const;
    /// As given to connect() or reconnect(); null for strangers.
    Figure *getSource(const PolylineConnection *connection) const;
    /// As getSource(), at the other end.
    Figure *getTarget(const PolylineConnection *connection) const;

    /// Straight for strangers.
    Routing getRouting(const PolylineConnection *connection) const;
    bool setRouting(PolylineConnection *connection, Routing routing); ///< Bendpoints are kept.
    /// As set, whatever the routing is.
    QList<QPoint> getBendpoints(const PolylineConnection *connection) const;
    /// Takes effect while the routing is Routing::Bendpoints, and is kept while it is not.
    bool setBendpoints(PolylineConnection *connection, const QList<QPoint> &points);
    /// Routes all connections anew, in paint order, so that Manhattan routes depend only on what
    /// the diagram holds and not on how it came to hold it.
    void reroute();

    /// None for strangers.
    Arrow getArrow(const PolylineConnection *connection, End end) const;
    /// In the colour and width that the line has now.
    bool setArrow(PolylineConnection *connection, End end, Arrow arrow);

    /// Keeps \a text at the middle of the connection; an empty text takes the label away. Returns
    /// the label, owned by the connection, which may be styled; null when there is none.
    TextFigure *setLabel(PolylineConnection *connection, const QString &text);
    /// Null when there is none.
    TextFigure *getLabel(const PolylineConnection *connection) const;

    // Asking.

    /// The topmost figure at \a point that was added; what lies inside it, its own findFigureAt()
    /// tells. Connections are above all figures: ask for them first.
    Figure *findFigureAt(const QPoint &point) const;
    PolylineConnection *findConnectionAt(const QPoint &point) const; ///< Within a tolerance.
    /// The visible figures that meet \a rect, or with \a containedOnly those that lie in it.
    QList<Figure *> findFigures(const QRect &rect, bool containedOnly) const;

    /// The area that all visible figures and connections paint; invalid while there are none.
    QRect getExtent();
    /// The same for some figures and the connections between them.
    QRect getExtent(const QList<Figure *> &figures);

    /// Lays out and routes now what is stale; otherwise the next paint does it.
    void validate();

    // Painting.

    /// Smooth edges, on at first.
    bool isAntialiased() const;
    /// Repaints.
    void setAntialiased(bool on);

    /// Paints what meets \a area, unclipped, without background, grid and feedback.
    void render(QPainter *painter, const QRect &area);
    /// The same for some figures and the connections between them.
    void render(QPainter *painter, const QRect &area, const QList<Figure *> &figures);

Q_SIGNALS:
    /// After \a figure was added.
    void figureAdded(Figure *figure);
    /// After a figure has left. One that the program destroyed is only an address by now.
    void figureRemoved(Figure *figure);
    void figureMoved(Figure *figure); ///< After a figure that was added has moved or resized.
    /// After \a connection was added.
    void connectionAdded(PolylineConnection *connection);
    void connectionRemoved(PolylineConnection *connection); ///< As figureRemoved().

private:
    friend class DiagramPane; // asks for what is painted
    friend class DiagramView; // a diagram shows in one view

    bool addFigure(Figure *figure, const QRect &rect, int index);
    void watch(Figure *figure);
    void watchLine(Figure *figure);
    void unwatch(Figure *figure);
    void settleMoved(Figure *figure);
    void noteReach(const Figure *figure);
    void noteAllReaches();
    void forgetDestroyed(Figure *figure);
    bool isAdded(const Figure *figure) const;
    Figure *addedFigure(Figure *inside) const;
    QRect paintedExtent();

    void watchForDestruction(Figure *figure);
    void setEnds(PolylineConnection *connection, Figure *source, Figure *target);
    void applyRouting(PolylineConnection *connection);
    void removeConnection(PolylineConnection *connection);
    void removeConnectionsInside(Figure *figure);
    void removeLooseConnections();
    QList<PolylineConnection *> connectionsBetween(const QList<Figure *> &figures) const;
    void renderThese(QPainter *painter, const QRect &area, const QList<Figure *> &figures,
                     const QList<PolylineConnection *> &connections);

    DiagramPane *m_pane;
    FreeformLayer *m_figureLayer;
    ConnectionLayer *m_connectionLayer;
    FreeformLayer *m_feedbackLayer;
    BendRouter *m_bendRouter;
    ManhattanConnectionRouter *m_manhattanRouter;
    std::unique_ptr<DiagramLinks> m_links;
    std::unique_ptr<QObject> m_watch; // receives what the content tells; goes first
    QSet<const Figure *> m_added;
    QSet<const Figure *> m_watchedForDestruction;
    QHash<const Figure *, QPolygonF> m_outlines; // of polylines, before they are fitted
    bool m_fitting = false;
    int m_reach = 2; // how far beyond its bounds a figure may paint
    bool m_antialiased = true;
    QPointer<QObject> m_view;
};

} // namespace Velmora::Figura
