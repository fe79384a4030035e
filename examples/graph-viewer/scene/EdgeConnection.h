#pragma once

#include "Element.h"

#include "load/GraphModel.h"

#include <figura/connection/PolylineFConnection.h>

#include <QHash>

namespace GraphViewer {

class ElementFigure;

/// An edge: a connection between the figures of its two nodes.
///
/// Routed as the layout engine has it, it shows the engine's own drawing, which is finer than whole
/// units; otherwise it draws the line and the arrow heads of its route. Lights up in a colour of
/// its own, because a frame around a long line says little.
class EdgeConnection : public Velmora::Figura::PolylineFConnection, public Element
{
    Q_OBJECT

public:
    EdgeConnection(const QString &title, const GraphEdge &edge, ElementFigure *tail,
                   ElementFigure *head, QObject *parent);

    ElementFigure *tail() const { return m_tail; }
    ElementFigure *head() const { return m_head; }
    bool isLoop() const { return m_tail == m_head; }

    /// Where the engine's curve bends, between the nodes, in whole units.
    QList<QPoint> engineBends() const { return m_bends; }

    bool showsEngineDrawing() const { return m_showsDrawing; }
    void showEngineDrawing(bool show);

    QString title() const override { return m_title; }
    void setHot(bool hot) override;
    QRect absoluteRect() override;

    QRect getBoundingRect() override; ///< With the pen; a straight line has no area without it.
    void revalidate() override;

protected:
    void layout() override;
    void regeneratePath(const QRectF &rect) override;
    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    struct Colors
    {
        QColor line;
        QColor fill;
    };

    void adoptPen(const Drawing &line);
    void addDrawing(const GraphEdge &edge);
    void addPart(Shape *part, const QRect &box);
    void addArrowHeads(const GraphEdge &edge);
    void showParts(bool show);
    void light(Velmora::Figura::Shape *shape, bool hot);

    QString m_title;
    ElementFigure *m_tail;
    ElementFigure *m_head;
    QList<QPoint> m_bends;
    QList<Velmora::Figura::Shape *> m_drawing; // children while they are shown
    bool m_showsDrawing = true;
    double m_tailTrim = 0; // how far the line ends before the tips of the arrow heads
    double m_headTrim = 0;
    QHash<Velmora::Figura::Shape *, Colors> m_ownColors; // empty unless it is lit up
};

} // namespace GraphViewer
