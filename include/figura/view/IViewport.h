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

    virtual Figure *getContent() const = 0;
    virtual int getPageStep(Qt::Orientation orientation) const = 0;
    virtual QPoint getViewLocation() = 0;
    virtual QRect getViewRect() = 0;
    virtual bool setContent(Figure *content) = 0;
    virtual void setViewLocation(const QPoint &location, bool queued) = 0;
    virtual void update() = 0;
    virtual void repaint() = 0;
    virtual void resizeViewport(const QSize &size) = 0;
    virtual void setXYMargins(int xMargin, int yMargin) = 0;

    virtual QPointF toContent(const QPointF &point) = 0;
    virtual QPoint toContent(const QPoint &point) = 0;
    virtual QRectF toContent(const QRectF &rect) = 0;
    virtual QRect toContent(const QRect &rect) = 0;
    virtual QPointF fromContent(const QPointF &point) = 0;
    virtual QPoint fromContent(const QPoint &point) = 0;
    virtual QRectF fromContent(const QRectF &rect) = 0;
    virtual QRect fromContent(const QRect &rect) = 0;
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IViewport, "IViewport.Figura.Velmora.velmora.org")
