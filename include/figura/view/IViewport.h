#pragma once

#include <figura/export.h>

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace Velmora::Figura {

class Figure;

/// The visible part of a figure tree. Viewport coordinates are pixels of the visible area, content
/// coordinates those of the root figure.
class FIGURA_EXPORT IViewport
{
public:
    virtual ~IViewport();

    /// The root figure; null when there is none. Not owned.
    virtual Figure *getContent() const = 0;
    /// One page along \a orientation, in pixels.
    virtual int getPageStep(Qt::Orientation orientation) const = 0;
    virtual QPoint getViewLocation() = 0;         ///< The content point at the top left pixel.
    virtual QRect getViewRect() = 0;              ///< The visible area in content coordinates.
    virtual bool setContent(Figure *content) = 0; ///< False when \a content is refused. Not owned.
    /// Scrolls \a location, in content coordinates, to the top left; \a queued for later.
    virtual void setViewLocation(const QPoint &location, bool queued) = 0;
    virtual void update() = 0;  ///< Asks for a repaint of all that is visible.
    virtual void repaint() = 0; ///< Repaints all that is visible at once.
    virtual void resizeViewport(const QSize &size) = 0; ///< \a size in pixels.
    /// Space around the content, in content units.
    virtual void setXYMargins(int xMargin, int yMargin) = 0;

    virtual QPointF toContent(const QPointF &point) = 0; ///< From viewport to content coordinates.
    virtual QPoint toContent(const QPoint &point) = 0;   ///< \overload
    virtual QRectF toContent(const QRectF &rect) = 0;    ///< \overload
    virtual QRect toContent(const QRect &rect) = 0;      ///< \overload
    /// From content to viewport coordinates.
    virtual QPointF fromContent(const QPointF &point) = 0;
    virtual QPoint fromContent(const QPoint &point) = 0; ///< \overload
    virtual QRectF fromContent(const QRectF &rect) = 0;  ///< \overload
    virtual QRect fromContent(const QRect &rect) = 0;    ///< \overload
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IViewport, "IViewport.Figura.Velmora.velmora.org")
