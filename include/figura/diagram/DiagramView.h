#pragma once

#include <figura/diagram/Diagram.h> // complete, so that the signal's argument has a meta-type
#include <figura/diagram/export.h>
#include <figura/view/FreeformViewer.h>

#include <QCursor>
#include <QPointer>

#include <optional>

class QGestureEvent;
class QNativeGestureEvent;

namespace Velmora::Figura {

/// Shows a Diagram, and behaves as people expect.
///
/// The canvas grows and shrinks with the content, and what is visible stays where it is on the
/// screen meanwhile. The wheel scrolls, with Shift sideways; with Ctrl it zooms about the cursor,
/// as pinching does. The space bar with the left button, and the middle button, drag the paper. The
/// arrow, page, Home and End keys scroll; the keys for zooming in and out zoom, Ctrl+0 shows 100 %
/// and Ctrl+9 everything.
///
/// Positions named so are in viewport coordinates: pixels of the visible area.
class FIGURA_DIAGRAM_EXPORT DiagramView : public FreeformViewer
{
    Q_OBJECT
    Q_MOC_INCLUDE("figura/view/FreeformWidget.h")

    Q_PROPERTY(Diagram *diagram READ getDiagram WRITE setDiagram NOTIFY diagramChanged)
    Q_PROPERTY(FreeformWidget *canvas READ getCanvas)
    Q_PROPERTY(bool panning READ isPanning)

public:
    /// Without a diagram.
    explicit DiagramView(QWidget *parent = nullptr);
    /// Shows \a diagram, which is not owned.
    explicit DiagramView(Diagram *diagram, QWidget *parent = nullptr);
    ~DiagramView() override;

    /// Null when there is none.
    Diagram *getDiagram() const;
    /// Shows \a diagram, which is not owned; null for none. A diagram shows in one view: any other
    /// lets it go. What fits is centred, else the top left corner is shown.
    void setDiagram(Diagram *diagram);

    /// The widget that paints, and gets the mouse events first.
    FreeformWidget *getCanvas() const;

    /// Zooms so that what is under \a position stays there. The scale is kept within the limits of
    /// setScaleBounds(), at first 0.02 and 32, and below what makes the canvas too large for Qt.
    void zoomAbout(double scale, const QPointF &position);

    /// Scrolls no farther than needed to show \a rect, in content coordinates; the corner nearest
    /// to the top left, when it is too large.
    void reveal(const QRect &rect);

    void centerOn(const QPointF &point); ///< In content coordinates; the canvas grows if need be.

    /// True from the press of the space bar or the middle button to the release: a tool that
    /// watches the canvas stands back meanwhile.
    bool isPanning() const;

    void setUpdateManager(UpdateManager *manager) override;
    void updateContentRect(const QRect &rect) override;
    using QWidget::update;
    void update() override;

Q_SIGNALS:
    /// What shows \a rect, in content coordinates, is to be painted anew because it has changed.
    /// Scrolling, zooming and exposing do not count.
    void contentDamaged(const QRect &rect);
    void viewChanged(); ///< Another part of the diagram is visible, or at another scale.
    /// \a diagram, which may be null, is shown from now on.
    void diagramChanged(Diagram *diagram);

public Q_SLOTS:
    void zoomIn(); ///< By a quarter about the centre.
    /// The reverse of zoomIn().
    void zoomOut();
    void zoomToFit();    ///< Shows everything, at most at scale 1.
    void zoomToNormal(); ///< Scale 1, about the centre.

protected:
    bool viewportEvent(QEvent *event) override;          ///< From Qt.
    void wheelEvent(QWheelEvent *event) override;        ///< From Qt.
    void mousePressEvent(QMouseEvent *event) override;   ///< From Qt.
    void mouseMoveEvent(QMouseEvent *event) override;    ///< From Qt.
    void mouseReleaseEvent(QMouseEvent *event) override; ///< From Qt.
    void keyPressEvent(QKeyEvent *event) override;       ///< From Qt.
    void keyReleaseEvent(QKeyEvent *event) override;     ///< From Qt.
    void focusOutEvent(QFocusEvent *event) override;     ///< From Qt.
    void showEvent(QShowEvent *event) override;          ///< From Qt.
    void resizeEvent(QResizeEvent *event) override;      ///< From Qt.
    void scrollContentsBy(int dx, int dy) override;      ///< From Qt.

private:
    void prepare();
    void letGo();
    void take(Diagram *diagram);
    void place();

    void queueFollow();
    void follow();
    void showAt(const QPointF &corner);
    void resizeCanvas(const QRectF &area);
    void chooseScrollBars(const QRect &content);
    void scrollTo(const QPointF &corner);
    QRect paperOfContent() const;
    QPointF corner();
    QSizeF viewSize() const;
    double largestScale() const;

    void startPan(const QPoint &position);
    void endPan();
    void setSpaceHeld(bool held);
    bool zoomByKey(const QKeyEvent *event);
    bool scrollByKey(const QKeyEvent *event);
    bool gestureEvent(QGestureEvent *event);
    bool nativeGestureEvent(QNativeGestureEvent *event);

    QPointer<Diagram> m_diagram;
    FreeformLayeredPane *m_emptyPane; // the content while there is no diagram
    QMetaObject::Connection m_validation;
    std::optional<QPointF> m_corner; // what rounding to pixels would lose, while nobody scrolls
    double m_cornerScale = 0.0;      // the scale at which that is true
    bool m_adjusting = false;
    bool m_followQueued = false;
    bool m_placed = false;
    bool m_spaceHeld = false;
    std::optional<QPoint> m_panFrom;
    QPointF m_panCorner;
    std::optional<QCursor> m_cursorBefore;
};

} // namespace Velmora::Figura
