#pragma once

#include <figura/export.h>

#include <QPointer>
#include <QRect>
#include <QStyleOptionViewItem>
#include <QTransform>
#include <QWidget>

#include <memory>

class QPrinter;

namespace Velmora::Figura {

class Figure;
class FreeformLayeredPane;
class FreeformViewer;
class Layer;
class SecondTurn;
class UpdateManager;
class WidgetDamage;

/// The inner widget of a FreeformViewer: shows a figure tree, validates it before every paint, and
/// maps between widget pixels and logical (content) coordinates.
///
/// A widget point (x, y) shows the logical point (x / scale, y / scale) + point at origin. The area
/// behind the figures is filled with the dynamic property "backgroundColor" when that is set, else
/// it shows the palette's Base colour. Owns neither content nor update manager.
class FIGURA_EXPORT FreeformWidget : public QWidget
{
    Q_OBJECT
    Q_MOC_INCLUDE("figura/figure/Figure.h")
    Q_MOC_INCLUDE("figura/view/UpdateManager.h")
    Q_PROPERTY(double scale READ getScale WRITE setScale)
    Q_PROPERTY(QPointF pointAtOrigin READ getPointAtOrigin)
    Q_PROPERTY(Figure *content READ getContent WRITE setContent)
    Q_PROPERTY(UpdateManager *updateManager READ getUpdateManager WRITE setUpdateManager)
    Q_PROPERTY(int xMargin READ getXMargin)
    Q_PROPERTY(int yMargin READ getYMargin)
    Q_PROPERTY(bool extentHandling READ extentHandlingEnabled WRITE enableExtentHandling)
    Q_PROPERTY(bool resizing READ isResizing)
    Q_PROPERTY(bool highlighted READ isHighlighted WRITE setHighlighted)
    Q_PROPERTY(int highlightStyle READ getHighlightStyle WRITE setHighlightStyle)

public:
    /// Made by \a viewer for itself.
    explicit FreeformWidget(FreeformViewer *viewer, Qt::WindowFlags flags = Qt::WindowFlags());
    ~FreeformWidget() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    virtual UpdateManager *getUpdateManager() const;       ///< Null when there is none.
    virtual void setUpdateManager(UpdateManager *manager); ///< Not owned; handed to the content.
    virtual QRect &elasticBand(); ///< The rubber band, in logical coordinates; drawn while valid.

    /// Prints one layer, scaled to fit one page (the content rectangle of the viewer's page
    /// layout). \a rect is the area in logical coordinates; when invalid, it is the extent of the
    /// freeform layers inside that layer. The margins are added. Does nothing without content,
    /// update manager, layer or area, or on an aborted or failed printer.
    virtual void print(QPrinter *printer, const QString &layerName,
                       const QRect &rect = QRect()) const;
    /// The same area at scale 1 on the palette's Base colour; null where print() does nothing.
    virtual QPixmap printToPixmap(const QString &layerName, const QRect &rect = QRect());

    virtual QPointF toLogical(const QPointF &point); ///< From widget pixels to logical coordinates.
    virtual QRectF toLogical(const QRectF &rect);    ///< \overload
    /// From logical coordinates to widget pixels.
    virtual QPointF fromLogical(const QPointF &point);
    virtual QRectF fromLogical(const QRectF &rect); ///< \overload

    virtual QStyleOptionViewItem viewOptions(); ///< What figures are rendered with.

    QSize sizeHint() const override; ///< The scaled extent with margins, else the minimum size.

    /// Takes a FreeformLayeredPane; anything else, and null, is refused with a warning. The former
    /// content is let go as it is. Makes the content's background transparent.
    bool setContent(Figure *content);
    Figure *getContent() const; ///< Null when there is none.

    QPointF getPointAtOrigin() const; ///< The logical point at widget pixel (0, 0).
    /// Changes the mapping and repaints; neither widget nor content is resized.
    void setPointAtOrigin(const QPoint &point);

    double getScale() const; ///< Widget pixels per logical unit.
    /// Zooms about the centre of the visible area, or so that \a at becomes its top left corner; a
    /// negative \a scale fits the content. Returns the scale in force; without an extent nothing
    /// changes.
    double setScale(double scale, const QPoint *at = nullptr);
    /// Zooms so that the logical point \a at stays where it is on the screen.
    double setScaleAt(double scale, const QPoint &at);
    /// Limits the scale, given in either order; they work only when both are positive.
    void setScaleBounds(double a, double b);
    void resetScaleBounds(); ///< No limits; does not rescale.

    /// Space around the extent in logical units; negative values count as 0. Does not repaint.
    void setMargins(int xMargin, int yMargin);
    int getXMargin() const; ///< 50 at first.
    int getYMargin() const; ///< 50 at first.

    void enableExtentHandling(bool on); ///< Whether contentExtentChanged() reads the new extent.
    bool extentHandlingEnabled() const; ///< True at first.
    bool isResizing() const;            ///< True while a change of scale resizes the widget.

    /// Grows the content so that it holds \a rect. Returns whether it has to grow; with \a apply
    /// false it only answers.
    bool ensureViewable(const QRect &rect, bool withMargins, bool apply);
    /// Shrinks the content to its extent with margins, but never so that \a rect is left outside.
    void minimizeViewable(const QRect &rect);

    void saveBounds();    ///< Remembers the content's bounds.
    void restoreBounds(); ///< Gives them back to it.

    void setHighlighted(bool highlighted); ///< A frame around the visible area.
    bool isHighlighted() const;            ///< False at first.
    void setHighlightStyle(int style);     ///< 1 is a rubber band, any other value a focus frame.
    int getHighlightStyle() const;         ///< A focus frame at first.

public Q_SLOTS:
    /// Leaves the canvas as it is, on purpose: the viewer grows and shrinks it.
    void contentExtentChanged();

protected:
    bool event(QEvent *event) override; ///< Passes hover moves on to the viewer.
    /// Validates what is queued, then renders the damaged part of the content.
    void paintEvent(QPaintEvent *event) override;

private:
    friend class FreeformViewer;
    friend class UpdateManager; // hands over what a pass has dropped

    void showNothingAfter(QObject *part);
    void setTransformation(double originX, double originY, double scale);
    double clampedScale(double scale) const;
    double adjustSizeToScale(double scale, const QPoint *at);
    double applyScale(double scale, const QPoint *fixedPoint, const QPoint *topLeft);
    double fitToViewport(double request);
    void resizeTo(const QRect &bounds);

    bool isReady() const;
    QRect contentExtent() const;
    QRect viewRect();
    QRect withMargins(const QRect &rect) const;
    QRect printArea(Layer *layer, const QRect &rect) const;
    void printContent(QPainter *painter, Figure *figure, const QRect &rect) const;
    QRect optionRect(const QRect &widgetRect);
    void paintAll(QPaintEvent *event);
    void paintContent(QPainter *painter, const QRegion &widgetRegion);
    void paintElasticBand(QPainter *painter);
    void paintHighlight(QPainter *painter);
    void paintBand(QPainter *painter, const QRect &rect);

    QPointer<FreeformLayeredPane> m_content;
    QPointer<UpdateManager> m_updateManager;
    QRect m_elasticBand;
    double m_originX = 0.0;
    double m_originY = 0.0;
    double m_scale = 1.0;
    int m_xMargin = 50;
    int m_yMargin = 50;
    bool m_resizing = false;
    double m_minimumScale = -1.0; // -1.0: unbounded
    double m_maximumScale = -1.0;
    bool m_extentHandling = true;
    bool m_highlighted = false;
    int m_highlightStyle = 0; // a focus frame, unlike Figure, whose default is the rubber band
    QPointer<FreeformViewer> m_viewer;
    QRect m_savedBounds;
    QTransform m_toWidget;
    QTransform m_toLogical;
    const std::unique_ptr<WidgetDamage> m_damage;
    const std::unique_ptr<SecondTurn> m_secondTurn;
};

} // namespace Velmora::Figura
