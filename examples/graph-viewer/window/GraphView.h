#pragma once

#include <figura/view/FreeformViewer.h>

#include <optional>

namespace Velmora::Figura {
class FreeformWidget;
}

namespace GraphViewer {

class GraphScene;

/// Shows a scene: the wheel scrolls, Ctrl+wheel zooms about the cursor, dragging moves the paper.
class GraphView : public Velmora::Figura::FreeformViewer
{
    Q_OBJECT

public:
    explicit GraphView(QWidget *parent = nullptr);

    /// Not owned, and not null. It is shown as a whole, but not magnified.
    void setScene(GraphScene *scene);
    GraphScene *scene() const { return m_scene; }

    Velmora::Figura::FreeformWidget *canvas() const;

    /// Zooms so that what is under \a position, in viewport coordinates, stays there.
    void zoomAbout(double scale, const QPointF &position);

public Q_SLOTS:
    void zoomIn();
    void zoomOut();
    void showAll(); ///< Fits the graph, but does not magnify it.

protected:
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void limitScale();
    void scrollBy(const QPoint &pixels);
    QPointF centre() const;

    GraphScene *m_scene = nullptr;
    bool m_shownOnce = false;
    std::optional<QPoint> m_dragFrom;
};

} // namespace GraphViewer
