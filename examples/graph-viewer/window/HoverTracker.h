#pragma once

#include <QObject>
#include <QPointer>

namespace GraphViewer {

class ElementFigure;
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
    void setElement(ElementFigure *element);
    void light(ElementFigure *element, bool on);
    int tolerance() const;

    GraphView *m_view;
    QPointer<ElementFigure> m_element;
};

} // namespace GraphViewer
