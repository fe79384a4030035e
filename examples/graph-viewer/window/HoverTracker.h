#pragma once

#include "scene/Element.h"

#include <figura/figure/InterfacePointer.h>

namespace GraphViewer {

class GraphView;

/// Lights up the element under the mouse and tells its title.
class HoverTracker : public QObject
{
    Q_OBJECT

public:
    explicit HoverTracker(GraphView *view);

    void reset(); ///< Puts the light out until the mouse moves again.

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void hovered(const QString &title); ///< Empty when the mouse has left.

private:
    void moveTo(const QPointF &canvasPosition);
    void setElement(Element *element);
    void light(Element *element, bool on);
    int tolerance() const;

    GraphView *m_view;
    Velmora::Figura::InterfacePointer<Element> m_element;
};

} // namespace GraphViewer
