#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>

class QMouseEvent;

namespace GraphViewer {

class ElementFigure;
class GraphView;

/// Moves the node under the mouse while the left button is held; its edges follow.
class NodeDrag : public QObject
{
    Q_OBJECT

public:
    explicit NodeDrag(GraphView *view);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool press(const QMouseEvent *event);
    bool move(const QMouseEvent *event);
    bool release(const QMouseEvent *event);
    QPoint content(const QMouseEvent *event) const;

    GraphView *m_view;
    QPointer<ElementFigure> m_node;
    QPoint m_grip; // from the corner of the node
};

} // namespace GraphViewer
