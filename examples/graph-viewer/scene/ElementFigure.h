#pragma once

#include "OutlineFigure.h"

namespace GraphViewer {

/// One element of the graph: its outline, and its parts as children (texts, further outlines,
/// pictures, the lines of an edge), which may reach beyond it.
class ElementFigure : public OutlineFigure
{
    Q_OBJECT

public:
    enum class Kind { Background, Cluster, Node, Edge, Label };

    /// An element with an empty \a outline consists of its parts alone.
    ElementFigure(Kind kind, const QString &title, const Stroke &outline, const QRect &box,
                  QObject *parent);

    Kind kind() const { return m_kind; }
    QString title() const { return m_title; } ///< What the user calls it; may be empty.
    QRect home() const { return m_box; }

    /// \a box is relative to the corner of this element's box.
    void addPart(Figure *part, const QRect &box);

    virtual void setHot(bool hot); ///< Shows that the mouse is over it.
    QRect absoluteRect();          ///< All that it paints, in the coordinates of the whole graph.

    QRect getBoundingRect() override;
    bool contains(const QPoint &point) const override; ///< In the outline or in a part.

private:
    bool isNear(const QPoint &point) const;
    bool partContains(const QPoint &point) const;

    Kind m_kind;
    QString m_title;
    QRect m_box;
    QMargins m_overhang; // how far the parts reach beyond the bounds
};

} // namespace GraphViewer
