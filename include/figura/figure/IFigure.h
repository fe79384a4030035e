#pragma once

#include <figura/export.h>

#include <QColor>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QVariant>

class QPainter;
class QStyleOptionViewItem;

namespace Velmora::Figura {

class Border;
class Figure;
class IAncestorListener;
class IPropertyChangeListener;
class ITreeSearch;
class Layout;
class UpdateManager;

/// What every drawable element can do; Figure implements all of it and documents each operation.
///
/// The order of the operations is part of the binary interface.
class FIGURA_EXPORT IFigure
{
public:
    virtual ~IFigure();

    virtual Border *getBorder() const = 0;
    virtual void setBorder(Border *border) = 0;

    virtual QSize getMinimumSize() = 0;
    virtual bool setMinimumSize(const QSize &size) = 0;
    virtual QSize getMaximumSize() = 0;
    virtual bool setMaximumSize(const QSize &size) = 0;
    virtual QSize getPreferredSize() = 0;
    virtual bool setPreferredSize(const QSize &size) = 0;

    virtual int getMargin() const = 0;
    virtual void setMargin(int margin) = 0;
    virtual QRect getClientArea() = 0;
    virtual QRect calculateContentRect(const QRect &rect) = 0;

    virtual QRect getBounds() = 0;
    virtual void setBounds(const QRect &rect) = 0;
    virtual QRect getBoundingRect() = 0;

    virtual bool isEnabled() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual bool isVisible() const = 0;
    virtual void setVisible(bool visible) = 0;

    virtual QColor getBackgroundColor() = 0;
    virtual void setBackgroundColor(const QColor &color) = 0;

    virtual Figure *getTooltip() const = 0;
    virtual void setTooltip(Figure *tooltip) = 0;

    virtual void addNotify() = 0;
    virtual void removeNotify() = 0;

    virtual Figure *getParentFigure() const = 0;
    virtual void setParentFigure(Figure *parent) = 0;

    virtual Layout *getLayoutManager() const = 0;
    virtual Layout *setLayoutManager(Layout *layout) = 0;

    virtual UpdateManager *getUpdateManager() const = 0;

    virtual bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) = 0;
    virtual bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) = 0;
    virtual bool remove(Figure *child) = 0;
    virtual QList<Figure *> childFigures() = 0;
    virtual int childFigureCount() const = 0;

    virtual Figure *findFigureAt(const QPoint &point) const = 0;
    virtual Figure *findFigureAt(int x, int y, const ITreeSearch &search) const = 0;
    virtual Figure *findFigureAt(int x, int y) const = 0;
    virtual void findFigures(QList<Figure *> &result, const QRect &rect, const ITreeSearch &search,
                             bool containedOnly) const = 0;
    virtual QList<Figure *> findFigures(const QRect &rect, bool containedOnly) = 0;
    virtual Figure *findFigureAtExcluding(int x, int y, const QList<Figure *> &excluded) const = 0;

    virtual bool contains(const QPoint &point) const = 0;
    virtual bool isContained(const QRect &rect) const = 0;
    virtual bool isIntersecting(const QRect &rect) const = 0;

    virtual Qt::Orientations expandingDirections() = 0;
    virtual void setExpandingDirections(Qt::Orientations directions) = 0;

    virtual void render(QPainter *painter, const QStyleOptionViewItem &option) = 0;
    virtual void invalidate() = 0;
    virtual void validate() = 0;

    virtual void translate(int dx, int dy) = 0;

    virtual QPointF &translateFromParent(QPointF &point) = 0;
    virtual QRectF &translateFromParent(QRectF &rect) = 0;
    virtual QPoint &translateFromParent(QPoint &point) = 0;
    virtual QRect &translateFromParent(QRect &rect) = 0;
    virtual QPointF &translateToParent(QPointF &point) = 0;
    virtual QRectF &translateToParent(QRectF &rect) = 0;
    virtual QPoint &translateToParent(QPoint &point) = 0;
    virtual QRect &translateToParent(QRect &rect) = 0;
    virtual QPointF &translateToAbsolute(QPointF &point) = 0;
    virtual QRectF &translateToAbsolute(QRectF &rect) = 0;
    virtual QPoint &translateToAbsolute(QPoint &point) = 0;
    virtual QRect &translateToAbsolute(QRect &rect) = 0;
    virtual QPointF &translateToRelative(QPointF &point) = 0;
    virtual QRectF &translateToRelative(QRectF &rect) = 0;
    virtual QPoint &translateToRelative(QPoint &point) = 0;
    virtual QRect &translateToRelative(QRect &rect) = 0;

    virtual void addAncestorListener(IAncestorListener *listener) = 0;
    virtual void removeAncestorListener(IAncestorListener *listener) = 0;
    virtual void addPropertyChangeListener(IPropertyChangeListener *listener) = 0;
    virtual void removePropertyChangeListener(IPropertyChangeListener *listener) = 0;

    virtual void erase() = 0;
    virtual void revalidate() = 0;
    virtual void repaint(const QRect &rect) = 0;
    virtual void repaint(int x, int y, int w, int h) = 0;
    virtual void repaint() = 0;
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IFigure, "IFigure.Figura.Velmora.velmora.org")
