#pragma once

#include "Element.h"
#include "OutlineFigure.h"

namespace GraphViewer {

/// One element of the graph: its outline, and its parts as children (texts, further outlines,
/// pictures), which may reach beyond it.
class ElementFigure : public OutlineFigure, public Element
{
    Q_OBJECT

public:
    enum class Kind { Background, Cluster, Node, Edge, Label };

    /// An element with an empty \a outline consists of its parts alone.
    ElementFigure(Kind kind, const QString &title, const Stroke &outline, const QRect &box,
                  QObject *parent);

    Kind kind() const { return m_kind; }
    QString title() const override { return m_title; }
    QRect home() const { return m_box; }      ///< Where the layout engine has put it.
    QString shape() const { return m_shape; } ///< Of a node, as in the graph file.
    void setShape(const QString &shape) { m_shape = shape; }

    /// \a box is relative to the corner of this element's box.
    void addPart(Figure *part, const QRect &box);

    void setHot(bool hot) override;
    QRect absoluteRect() override;

    QRect getBoundingRect() override;
    bool contains(const QPoint &point) const override; ///< In the outline or in a part.

private:
    bool isNear(const QPoint &point) const;
    bool partContains(const QPoint &point) const;

    Kind m_kind;
    QString m_title;
    QString m_shape;
    QRect m_box;
    QMargins m_overhang; // how far the parts reach beyond the bounds
};

} // namespace GraphViewer
