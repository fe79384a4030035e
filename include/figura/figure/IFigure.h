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

    virtual Border *getBorder() const = 0;      ///< Null when there is none.
    virtual void setBorder(Border *border) = 0; ///< Not owned; null for none.

    virtual QSize getMinimumSize() = 0;                   ///< What the figure needs at least.
    virtual bool setMinimumSize(const QSize &size) = 0;   ///< False when \a size is refused.
    virtual QSize getMaximumSize() = 0;                   ///< What the figure takes at most.
    virtual bool setMaximumSize(const QSize &size) = 0;   ///< False when \a size is refused.
    virtual QSize getPreferredSize() = 0;                 ///< What the figure asks for.
    virtual bool setPreferredSize(const QSize &size) = 0; ///< Returns false in any case.

    virtual int getMargin() const = 0;      ///< Space between border and client area, on each side.
    virtual void setMargin(int margin) = 0; ///< A negative value counts as 0.
    virtual QRect getClientArea() = 0;      ///< The bounds less border and margin.
    virtual QRect calculateContentRect(const QRect &rect) = 0; ///< \a rect less border and margin.

    virtual QRect getBounds() = 0; ///< In the coordinate system of the parent's children.
    virtual void setBounds(const QRect &rect) = 0; ///< Moves and resizes.
    virtual QRect getBoundingRect() = 0;           ///< The area that is painted.

    virtual bool isEnabled() const = 0;        ///< The figure's own flag.
    virtual void setEnabled(bool enabled) = 0; ///< Does not reach the children.
    virtual bool isVisible() const = 0;        ///< The figure's own flag.
    virtual void setVisible(bool visible) = 0; ///< Hidden figures are neither painted nor hit.

    virtual QColor getBackgroundColor() = 0;                  ///< Qt::transparent paints none.
    virtual void setBackgroundColor(const QColor &color) = 0; ///< Repaints.

    virtual Figure *getTooltip() const = 0;       ///< Null when there is none.
    virtual void setTooltip(Figure *tooltip) = 0; ///< Not owned; for the application's use.

    virtual void addNotify() = 0;    ///< The subtree is part of a displayed tree from now on.
    virtual void removeNotify() = 0; ///< The subtree is so no longer.

    virtual Figure *getParentFigure() const = 0;      ///< Null for a root.
    virtual void setParentFigure(Figure *parent) = 0; ///< Called by layouts.

    virtual Layout *getLayoutManager() const = 0;         ///< Null when there is none.
    virtual Layout *setLayoutManager(Layout *layout) = 0; ///< Returns the previous one. Not owned.

    virtual UpdateManager *getUpdateManager() const = 0; ///< Null while not displayed.

    /// \a constraint is what the layout manager understands.
    virtual bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) = 0;
    /// With stretch factors in place of a constraint.
    virtual bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) = 0;
    virtual bool remove(Figure *child) = 0;     ///< False when \a child is not one of the children.
    virtual QList<Figure *> childFigures() = 0; ///< In paint order, the topmost last.
    virtual int childFigureCount() const = 0;   ///< 0 without a layout manager.

    /// The topmost figure at the point; null when it is outside.
    virtual Figure *findFigureAt(const QPoint &point) const = 0;
    /// The same among those that \a search accepts.
    virtual Figure *findFigureAt(int x, int y, const ITreeSearch &search) const = 0;
    virtual Figure *findFigureAt(int x, int y) const = 0; ///< \overload
    /// Appends the figures in \a rect.
    virtual void findFigures(QList<Figure *> &result, const QRect &rect, const ITreeSearch &search,
                             bool containedOnly) const = 0;
    /// The same for all figures, as a list.
    virtual QList<Figure *> findFigures(const QRect &rect, bool containedOnly) = 0;
    /// Blind to the \a excluded figures.
    virtual Figure *findFigureAtExcluding(int x, int y, const QList<Figure *> &excluded) const = 0;

    virtual bool contains(const QPoint &point) const = 0;  ///< Whether \a point hits the figure.
    virtual bool isContained(const QRect &rect) const = 0; ///< Whether the bounds lie in \a rect.
    /// Whether the bounds and \a rect overlap.
    virtual bool isIntersecting(const QRect &rect) const = 0;

    virtual Qt::Orientations expandingDirections() = 0; ///< Where the figure takes surplus space.
    /// For layouts that stretch.
    virtual void setExpandingDirections(Qt::Orientations directions) = 0;

    /// Paints what of the figure is in option.rect, in absolute coordinates.
    virtual void render(QPainter *painter, const QStyleOptionViewItem &option) = 0;
    virtual void invalidate() = 0; ///< Marks the figure alone as stale.
    virtual void validate() = 0;   ///< Lays out what is stale, this figure and those below.

    virtual void translate(int dx, int dy) = 0; ///< Follows a move of the parent.

    virtual QPointF &translateFromParent(QPointF &point) = 0; ///< From bounds to child coordinates.
    virtual QRectF &translateFromParent(QRectF &rect) = 0;    ///< \overload
    virtual QPoint &translateFromParent(QPoint &point) = 0;   ///< \overload
    virtual QRect &translateFromParent(QRect &rect) = 0;      ///< \overload
    virtual QPointF &translateToParent(QPointF &point) = 0;   ///< From child to bounds coordinates.
    virtual QRectF &translateToParent(QRectF &rect) = 0;      ///< \overload
    virtual QPoint &translateToParent(QPoint &point) = 0;     ///< \overload
    virtual QRect &translateToParent(QRect &rect) = 0;        ///< \overload
    virtual QPointF &translateToAbsolute(QPointF &point) = 0; ///< From bounds to root coordinates.
    virtual QRectF &translateToAbsolute(QRectF &rect) = 0;    ///< \overload
    virtual QPoint &translateToAbsolute(QPoint &point) = 0;   ///< \overload
    virtual QRect &translateToAbsolute(QRect &rect) = 0;      ///< \overload
    virtual QPointF &translateToRelative(QPointF &point) = 0; ///< From root to bounds coordinates.
    virtual QRectF &translateToRelative(QRectF &rect) = 0;    ///< \overload
    virtual QPoint &translateToRelative(QPoint &point) = 0;   ///< \overload
    virtual QRect &translateToRelative(QRect &rect) = 0;      ///< \overload

    virtual void addAncestorListener(IAncestorListener *listener) = 0; ///< Not owned.
    /// However often it was added.
    virtual void removeAncestorListener(IAncestorListener *listener) = 0;
    virtual void addPropertyChangeListener(IPropertyChangeListener *listener) = 0; ///< Not owned.
    /// However often it was added.
    virtual void removePropertyChangeListener(IPropertyChangeListener *listener) = 0;

    virtual void erase() = 0;      ///< Asks the parent to repaint the area of this figure.
    virtual void revalidate() = 0; ///< Marks as stale up to the root, which is queued.
    /// \a rect is in the coordinate system of the bounds.
    virtual void repaint(const QRect &rect) = 0;
    virtual void repaint(int x, int y, int w, int h) = 0; ///< \overload
    virtual void repaint() = 0;                           ///< The whole bounding rectangle.
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IFigure, "IFigure.Figura.Velmora.velmora.org")
