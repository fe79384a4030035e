#pragma once

#include <figura/diagram/export.h>

#include <QImage>
#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QTimer>
#include <QTransform>
#include <QWidget>

namespace Velmora::Figura {

class Diagram;
class DiagramView;

/// Shows the whole diagram of a view small, marks the visible part, and moves it by mouse.
///
/// Keeps a picture, and paints figures only where the content has changed, all changes of about a
/// tenth of a second at once: scrolling, zooming and repainting the view cost it nothing.
class FIGURA_DIAGRAM_EXPORT Overview : public QWidget
{
    Q_OBJECT
    Q_MOC_INCLUDE("figura/diagram/DiagramView.h")

    Q_PROPERTY(DiagramView *view READ getView WRITE setView)

public:
    /// Without a view.
    explicit Overview(QWidget *parent = nullptr);
    /// Accompanies \a view, which is not owned.
    explicit Overview(DiagramView *view, QWidget *parent = nullptr);
    ~Overview() override;

    /// Null when there is none.
    DiagramView *getView() const;
    void setView(DiagramView *view); ///< Not owned; null for none.

    QPointF toContent(const QPointF &position) const; ///< From pixels of this widget.
    QRectF fromContent(const QRectF &rect) const;     ///< To pixels of this widget.

    QSize sizeHint() const override; ///< In pixels.

protected:
    void paintEvent(QPaintEvent *event) override;      ///< From Qt.
    void showEvent(QShowEvent *event) override;        ///< From Qt.
    void resizeEvent(QResizeEvent *event) override;    ///< From Qt.
    void mousePressEvent(QMouseEvent *event) override; ///< From Qt.
    void mouseMoveEvent(QMouseEvent *event) override;  ///< From Qt.

private:
    void prepare();
    void restart();
    void noteDamage(const QRect &rect);
    void refresh();
    bool fitPicture();
    void paintDamage();
    void moveView(const QPointF &position);
    QTransform toPicture() const;

    QPointer<DiagramView> m_view;
    QImage m_picture;
    QRect m_area;     // what the picture shows, in content coordinates
    QRegion m_damage; // what of it is out of date, in content coordinates
    QPointF m_grip;   // where in the frame of the visible part the mouse holds it
    QTimer m_timer;
};

} // namespace Velmora::Figura
