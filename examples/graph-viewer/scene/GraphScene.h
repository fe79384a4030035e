#pragma once

#include "ElementFigure.h"

#include <figura/view/FreeformLayeredPane.h>

namespace Velmora::Figura {
class FreeformLayer;
}

namespace GraphViewer {

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
    QList<ElementFigure *> elements(ElementFigure::Kind kind) const;

    /// The topmost element with a title, or null. Lines are hit from up to \a tolerance beside
    /// them.
    ElementFigure *elementAt(const QPoint &point, int tolerance) const;

private:
    Velmora::Figura::FreeformLayeredPane m_content;
    QMap<ElementFigure::Kind, Velmora::Figura::FreeformLayer *> m_layers;
};

} // namespace GraphViewer
