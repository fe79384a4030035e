#pragma once

#include <figura/export.h>
#include <figura/view/IFigureViewer.h>
#include <figura/view/IViewport.h>

#include <QPointer>
#include <QScrollArea>

class QMimeData;
class QPrinter;

namespace Velmora::Figura {

class FreeformWidget;
class PageLayout;

/// The widget that an application places in its window: shows a FreeformLayeredPane, scrolled and
/// zoomed.
///
/// Owns its inner widget and its update manager, but neither content nor page layout. Viewport
/// coordinates are pixels of the visible area; content coordinates are those of the figures.
class FIGURA_EXPORT FreeformViewer : public QScrollArea, public IFigureViewer, public IViewport
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IFigureViewer Velmora::Figura::IViewport)
    Q_MOC_INCLUDE("figura/figure/Figure.h")
    Q_MOC_INCLUDE("figura/layout/PageLayout.h")
    Q_MOC_INCLUDE("figura/view/UpdateManager.h")
    Q_PROPERTY(double scale READ getScale WRITE setScale NOTIFY scaleChanged)
    Q_PROPERTY(QPoint viewLocation READ getViewLocation WRITE setViewLocation)
    Q_PROPERTY(QRect viewRect READ getViewRect)
    Q_PROPERTY(Figure *content READ getContent WRITE setContent)
    Q_PROPERTY(UpdateManager *updateManager READ getUpdateManager WRITE setUpdateManager)
    Q_PROPERTY(PageLayout *pageLayout READ getPageLayout WRITE setPageLayout)
    Q_PROPERTY(bool extentHandling READ extentHandlingEnabled WRITE enableExtentHandling)

public:
    /// Comes with its widget and its update manager, without content.
    explicit FreeformViewer(QWidget *parent = nullptr);
    ~FreeformViewer() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    virtual void print(QPrinter *printer, const QString &layerName,
                       const QRect &rect = QRect()) const; ///< See FreeformWidget::print().
    /// Stores the picture of FreeformWidget::printToPixmap() as image data; null is ignored.
    virtual void copy(QMimeData *mimeData, const QString &layerName, const QRect &rect = QRect());

    // IFigureViewer

    UpdateManager *getUpdateManager() override; ///< Null after setUpdateManager() took it away.
    /// Deletes the previous one later, even when it is \a manager itself. Takes no null for an
    /// update manager: null only drops the previous one.
    void setUpdateManager(UpdateManager *manager) override;
    IViewport *getViewport() override; ///< This viewer.
    void updateContentRect(const QRect &rect) override;
    QRect &elasticBand() override;
    QPoint toGlobal(const QPoint &point) override;
    QPoint fromGlobal(const QPoint &point) override;

    // IViewport

    Figure *getContent() const override;                         ///< Null when there is none.
    int getPageStep(Qt::Orientation orientation) const override; ///< In pixels; else 0.
    QPoint getViewLocation() override; ///< The content point at the viewport's top left pixel.
    QRect getViewRect() override;      ///< The visible area in content coordinates.
    bool setContent(Figure *content) override; ///< See FreeformWidget::setContent().
    /// Scrolls so that \a location is at the top left, growing the content if need be. With
    /// \a queued it happens on the next turn of the event loop.
    void setViewLocation(const QPoint &location, bool queued = false) override;
    using QWidget::update;
    void update() override; ///< Of the inner widget.
    using QWidget::repaint;
    void repaint() override; ///< Of the inner widget.
    /// Resizes the viewer and its viewport to \a size, in pixels.
    void resizeViewport(const QSize &size) override;
    void setXYMargins(int xMargin, int yMargin) override; ///< See FreeformWidget::setMargins().

    QPointF toContent(const QPointF &point) override;   ///< From viewport coordinates.
    QPoint toContent(const QPoint &point) override;     ///< Halves round away from zero.
    QRectF toContent(const QRectF &rect) override;      ///< \overload
    QRect toContent(const QRect &rect) override;        ///< \overload
    QPointF fromContent(const QPointF &point) override; ///< To viewport coordinates.
    QPoint fromContent(const QPoint &point) override;   ///< Halves round away from zero.
    QRectF fromContent(const QRectF &rect) override;    ///< \overload
    QRect fromContent(const QRect &rect) override;      ///< \overload

    double getScale() const;               ///< Pixels per content unit; 1 at first.
    void resetScaleBounds();               ///< See FreeformWidget::resetScaleBounds().
    void enableExtentHandling(bool on);    ///< See FreeformWidget::enableExtentHandling().
    bool extentHandlingEnabled() const;    ///< True at first.
    void setHighlighted(bool highlighted); ///< See FreeformWidget::setHighlighted().
    void setHighlightStyle(int style);     ///< See FreeformWidget::setHighlightStyle().

    /// Rules for printed pages; not owned, null for none.
    void setPageLayout(PageLayout *pageLayout);
    PageLayout *getPageLayout() const; ///< Null when there is none.

    /// Where the mouse was pressed last, in content coordinates. Without a press it is the centre
    /// of the view rectangle, which is then kept until resetLastClickLocation().
    QPoint getLastClickLocation();
    /// The next question is answered by the view rectangle, unless a press comes first.
    void resetLastClickLocation();

    /// Keeps the scroll area from placing the widget in the middle of a zoom.
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void scaleChanged(double newScale); ///< After every request, even when the scale is the same.

public Q_SLOTS:
    void setScale(double scale, QPoint *pTopLeft = nullptr); ///< See FreeformWidget::setScale().
    void scaleToFit();    ///< Fits twice: the first pass may bring or take scroll bars.
    void scaleToNormal(); ///< Scale 1.
    void setScaleBounds(double a, double b); ///< See FreeformWidget::setScaleBounds().

private Q_SLOTS:
    void evaluateContentBounds();
    void moveViewTo(int x, int y);

protected:
    /// Grows the canvas so that it fills the viewport.
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override; ///< Scrolls, except in the middle of a zoom.
    /// Also remembers the place: getLastClickLocation().
    void mousePressEvent(QMouseEvent *event) override;

private:
    friend class FreeformWidget; // calls updateScrollBars() after a zoom

    void updateScrollBars(int x, int y);
    void scrollTo(int x, int y);
    void placeWidget();
    QPoint scrollOffset() const;
    QRect damagedPixels(const QRect &rect) const;
    void refreshHighlight();

    QPointer<FreeformWidget> m_widget;
    QPointer<UpdateManager> m_updateManager;
    QList<QPointer<UpdateManager>> m_pointingHere; // all managers that may know this viewer
    QRect m_noBand;                                // handed out while there is no widget
    QPoint m_lastClickLocation;
    bool m_lastClickValid = false;
    QPointer<PageLayout> m_pageLayout;
};

} // namespace Velmora::Figura
