#pragma once

#include <figura/export.h>
#include <figura/figure/IFigure.h>
#include <figura/geometry/IStyleConstants.h>

#include <QPointer>
#include <QString>

#include <memory>

namespace Velmora::Figura {

class AncestorHelper;
class AncestorHub;
class ChildTable;
struct ChildRecord;
struct FigureExtras;

/// The base class of every drawable element: a rectangle in a tree of figures.
///
/// A figure lays out, paints and hit-tests its children through its layout manager, which also
/// holds them; without a layout manager it has none. Bounds are in the coordinate system of the
/// parent's children: relative to the parent's client area when the parent uses local coordinates,
/// else the parent's own system. "Absolute" is the system of the root figure.
///
/// Nothing that is set on a figure (layout manager, border, tooltip, children) becomes owned by it;
/// all of them follow their QObject parents, and one that is destroyed counts as not set.
/// Refusals are reported on Qt's debug channel and change nothing. GUI thread only.
class FIGURA_EXPORT Figure : public QObject, public virtual IFigure
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IFigure)
    Q_MOC_INCLUDE("figura/figure/Border.h")
    Q_MOC_INCLUDE("figura/layout/Layout.h")
    Q_MOC_INCLUDE("figura/view/UpdateManager.h")
    // None notifies: figureMoved() carries the figure, not the value that Qt would expect there.
    Q_PROPERTY(QRect bounds READ getBounds WRITE setBounds)
    Q_PROPERTY(QRect boundingRect READ getBoundingRect)
    Q_PROPERTY(QRect clientArea READ getClientArea)
    Q_PROPERTY(QSize minimumSize READ getMinimumSize WRITE setMinimumSize)
    Q_PROPERTY(QSize maximumSize READ getMaximumSize WRITE setMaximumSize)
    Q_PROPERTY(QSize preferredSize READ getPreferredSize WRITE setPreferredSize)
    Q_PROPERTY(int margin READ getMargin WRITE setMargin)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible)
    Q_PROPERTY(QColor backgroundColor READ getBackgroundColor WRITE setBackgroundColor)
    Q_PROPERTY(
        Qt::Orientations expandingDirections READ expandingDirections WRITE setExpandingDirections)
    Q_PROPERTY(int highlightStyle READ getHighlightStyle WRITE setHighlightStyle)
    Q_PROPERTY(bool clientAreaHighlighted READ isClientAreaHighlighted WRITE highlightClientArea)
    Q_PROPERTY(Border *border READ getBorder WRITE setBorder)
    Q_PROPERTY(Figure *tooltip READ getTooltip WRITE setTooltip)
    Q_PROPERTY(Layout *layoutManager READ getLayoutManager WRITE setLayoutManager)
    Q_PROPERTY(UpdateManager *updateManager READ getUpdateManager)
    Q_PROPERTY(Figure *parent READ getParentFigure)
    Q_PROPERTY(QList<Figure *> childFigures READ childFigures)

public:
    // The flag bits of getFlag() and setFlag().
    static constexpr int FLAG_VALID = 0x1;    ///< Laid out since the last change.
    static constexpr int FLAG_VISIBLE = 0x4;  ///< Set at first.
    static constexpr int FLAG_ENABLED = 0x10; ///< Set at first.
    static constexpr int FLAG_USE_CONTENT_SIZE =
        0x40; ///< Prefer the content's size to the layout's.
    static constexpr int FLAG_NOTIFIED = static_cast<int>(0x80000000u); ///< In a displayed tree.

    static const QString PROPERTY_PARENT; ///< "parent", announced by setParentFigure().

    /// \a parent is the owner as a QObject, not the parent figure.
    explicit Figure(QObject *parent = nullptr, const QColor &backgroundColor = Qt::transparent);
    ~Figure() override;

    // New operations stand before the overrides: the order of the virtual table depends on it.

    /// \a rect with a width or height below 1 taken from the preferred size; its position is kept.
    /// A result that is still invalid is reported and returned all the same.
    virtual QRect resolveBounds(const QRect &rect);

    /// The smallest size for interactive resizing: the minimum size, whatever \a handle is.
    virtual QSize getResizeMinimum(int handle);

protected:
    /// Lays the children out, through the layout manager.
    virtual void layout();

    /// The size of what the figure itself shows, without margin and border.
    ///
    /// The base takes the margin off the stored preferred size once, while getPreferredSize() adds
    /// it on both sides: a plain invalid figure with a margin grows at each call, on purpose.
    virtual QSize calculateContentSize();

    /// Fills option.rect with the background colour, unless that is Qt::transparent.
    /// As for all drawing operations, option.rect is in absolute coordinates and the painter's
    /// state may be changed without restoring it, except in drawChildren().
    virtual void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const;
    /// What the figure itself shows, between background and border: nothing in the base.
    virtual void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const;
    /// Lets \a border, if there is one, draw itself in option.rect.
    virtual void drawBorder(QPainter *painter, const QStyleOptionViewItem &option,
                            const Border *border) const;
    /// Lets the layout manager paint the children.
    virtual void drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const;

    /// True for a figure that bounds the effect of its children's changes: revalidate() stops
    /// there.
    virtual bool isValidateRoot() const;

    /// Moves the bounds, then translates each child.
    virtual void primTranslate(int dx, int dy);

public:
    // Size, place and looks.

    Border *getBorder() const override; ///< Null when there is none.
    void
    setBorder(Border *border) override; ///< Only stores; asks neither for layout nor for paint.

    /// At least (0, 0) without a layout manager; with one, what the layout needs plus margin and
    /// border. Never below the stored minimum.
    QSize getMinimumSize() override;
    /// Refused, with a message and false, when \a size exceeds the maximum. Does not revalidate.
    bool setMinimumSize(const QSize &size) override;
    QSize getMaximumSize() override; ///< The stored value; layouts are not asked.
    /// Refused, with a message and false, when \a size is below the stored minimum.
    bool setMaximumSize(const QSize &size) override;
    /// The stored value while the figure is valid, else computed anew and stored.
    QSize getPreferredSize() override;
    /// Stores \a size if it lies within the limits, else reports it. Returns false in both cases.
    bool setPreferredSize(const QSize &size) override;

    int getMargin() const override;      ///< Space between border and client area, on each side.
    void setMargin(int margin) override; ///< A negative value counts as 0. Only stores.

    /// The bounds less border and margin, in the coordinate system of the bounds.
    QRect getClientArea() override;
    /// \a rect less border and margin. The border's left and right insets cross over (Insets).
    QRect calculateContentRect(const QRect &rect) override;

    QRect getBounds() override; ///< In the coordinate system of the parent's children.
    /// Moves and resizes to resolveBounds(\a rect); announces it with figureMoved(). A move takes
    /// the children along, a resize invalidates. Equal bounds have no effect.
    void setBounds(const QRect &rect) override;
    QRect getBoundingRect() override; ///< The area that the figure paints: its bounds.

    bool isEnabled() const override;        ///< The figure's own flag; ancestors are not asked.
    void setEnabled(bool enabled) override; ///< Neither repaints nor reaches the children.
    bool isVisible() const override;        ///< The figure's own flag; ancestors are not asked.
    /// Repaints the area and revalidates. Equal values have no effect.
    void setVisible(bool visible) override;

    QColor getBackgroundColor() override;                  ///< Qt::transparent, unless given.
    void setBackgroundColor(const QColor &color) override; ///< Repaints always.

    Figure *getTooltip() const override;       ///< Null when there is none.
    void setTooltip(Figure *tooltip) override; ///< Stored for the application's use only.

    Qt::Orientations expandingDirections() override; ///< The layout manager's, if there is one.
    /// For layouts that stretch; counts while there is no layout manager.
    void setExpandingDirections(Qt::Orientations directions) override;

    // The tree.

    void addNotify() override;    ///< Marks the subtree as displayed; a second call is reported.
    void removeNotify() override; ///< The reverse, children first.

    Figure *getParentFigure() const override; ///< Null for a root.
    /// Called by layouts. Announces PROPERTY_PARENT even when nothing changed; null detaches.
    void setParentFigure(Figure *parent) override;

    Layout *getLayoutManager() const override; ///< Null when there is none.
    /// Returns the previous layout, which keeps its children and is not deleted. Null is refused:
    /// it returns null and changes nothing. The layout already installed is returned all the same.
    Layout *setLayoutManager(Layout *layout) override;

    /// The root's update manager; null while the figure is not part of a displayed tree.
    UpdateManager *getUpdateManager() const override;

    /// Gives \a child to the layout manager. \a constraint is what that layout understands; an
    /// \a index outside the children appends. False without a layout, for null and for a child that
    /// is already there.
    bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) override;
    /// With stretch factors in place of a constraint: for the boxes.
    bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override;
    bool remove(Figure *child) override;     ///< False when \a child is not one of the children.
    QList<Figure *> childFigures() override; ///< In paint order, the topmost last.
    int childFigureCount() const override;   ///< 0 without a layout manager.

    // Hit testing. Points and rectangles are in the coordinate system of this figure's bounds.

    Figure *findFigureAt(const QPoint &point) const override; ///< \overload
    /// The topmost descendant at the point that \a search accepts, else this figure, else null.
    Figure *findFigureAt(int x, int y, const ITreeSearch &search) const override;
    /// The topmost descendant at the point, else this figure, else null.
    Figure *findFigureAt(int x, int y) const override;
    /// Appends the figures that intersect \a rect, descendants before their ancestor. With
    /// \a containedOnly a figure must lie in \a rect as a whole; its descendants are asked anyway.
    void findFigures(QList<Figure *> &result, const QRect &rect, const ITreeSearch &search,
                     bool containedOnly) const override;
    /// The same for all figures, as a list.
    QList<Figure *> findFigures(const QRect &rect, bool containedOnly) override;
    /// As findFigureAt(), blind to the \a excluded figures and to all below them.
    Figure *findFigureAtExcluding(int x, int y, const QList<Figure *> &excluded) const override;

    bool contains(const QPoint &point) const override; ///< The edges belong to the figure.
    /// Whether the bounds lie in \a rect as a whole.
    bool isContained(const QRect &rect) const override;
    /// Whether the bounds and \a rect overlap.
    bool isIntersecting(const QRect &rect) const override;

    // Painting and validation.

    /// Paints the figure and its subtree where they meet option.rect, in absolute coordinates.
    /// A null painter paints nothing; invalid bounds are reported and paint nothing.
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;
    void invalidate() override; ///< Marks this figure's layout as stale; tells nobody.
    void validate() override;   ///< Lays out this figure and then its children, unless valid.

    // Coordinates. Each operation changes its argument in place and returns it.

    /// Follows a move of the parent: shifts a figure that shares its parent's coordinates with its
    /// own children, and always emits figureMoved().
    void translate(int dx, int dy) override;

    QPointF &translateFromParent(QPointF &point) override; ///< From bounds to child coordinates.
    QRectF &translateFromParent(QRectF &rect) override;    ///< \overload
    QPoint &translateFromParent(QPoint &point) override;   ///< \overload
    QRect &translateFromParent(QRect &rect) override;      ///< \overload
    QPointF &translateToParent(QPointF &point) override;   ///< From child to bounds coordinates.
    QRectF &translateToParent(QRectF &rect) override;      ///< \overload
    QPoint &translateToParent(QPoint &point) override;     ///< \overload
    QRect &translateToParent(QRect &rect) override;        ///< \overload
    QPointF &translateToAbsolute(QPointF &point) override; ///< From bounds to root coordinates.
    QRectF &translateToAbsolute(QRectF &rect) override;    ///< \overload
    QPoint &translateToAbsolute(QPoint &point) override;   ///< \overload
    QRect &translateToAbsolute(QRect &rect) override;      ///< \overload
    QPointF &translateToRelative(QPointF &point) override; ///< From root to bounds coordinates.
    QRectF &translateToRelative(QRectF &rect) override;    ///< \overload
    QPoint &translateToRelative(QPoint &point) override;   ///< \overload
    QRect &translateToRelative(QRect &rect) override;      ///< \overload

    /// True when the children's coordinates begin at this figure's client area.
    bool useLocalCoordinates() const;
    /// The inverse of calculateContentRect().
    QRect calculateRectForContent(const QRect &rect) const;

    // Listeners. A listener must be a QObject that declares the interface's operations as slots,
    // with the argument types spelt as in the interface; any other object is ignored. Not owned.

    /// Added twice, it is called twice; a single removal disconnects it altogether.
    void addAncestorListener(IAncestorListener *listener) override;
    /// Does nothing for one that was not added.
    void removeAncestorListener(IAncestorListener *listener) override;
    /// As addAncestorListener().
    void addPropertyChangeListener(IPropertyChangeListener *listener) override;
    /// Does nothing for one that was not added.
    void removePropertyChangeListener(IPropertyChangeListener *listener) override;

    // Flags and the highlight.

    bool getFlag(int mask) const; ///< True when any bit of \a mask is set.

    int getHighlightStyle() const;     ///< A rubber band at first.
    void setHighlightStyle(int style); ///< A value of IStyleConstants; any but 0 is a rubber band.
    void highlightClientArea(bool on); ///< Draws the highlight over the client area and children.
    bool isClientAreaHighlighted() const; ///< False at first.

Q_SIGNALS:
    /// \a pAncestor is the new parent of this figure or of an ancestor.
    void ancestorAdded(Figure *pAncestor);
    /// \a pAncsetor has moved; this figure counts too.
    void ancestorMoved(Figure *pAncsetor); // spelt so on purpose: part of the interface
    /// \a pAncestor was the parent of this figure or of an ancestor.
    void ancestorRemoved(Figure *pAncestor);
    /// The bounds of \a pFigure, this figure, have changed or were translated.
    void figureMoved(Figure *pFigure);
    /// A named property has changed, such as PROPERTY_PARENT.
    void propertyChanged(const QString &propertyName, const QVariant &oldValue,
                         const QVariant &newValue);

public Q_SLOTS:
    void erase() override;      ///< Asks the parent to repaint the area of this figure.
    void revalidate() override; ///< Invalidates up to the root, which is queued for validation.
    void repaint() override;    ///< Asks for a repaint of the bounding rectangle.
    void repaint(int x, int y, int w, int h) override; ///< \overload
    /// \a rect is in the coordinate system of the bounds; an invalid one is ignored.
    void repaint(const QRect &rect) override;

protected:
    void setFlag(int mask, bool on); ///< Sets or clears all bits of \a mask.
    bool isValid() const;            ///< Whether the figure was laid out since the last change.
    void setValid(bool valid);       ///< Sets the flag alone.

    QSize applyMargin(const QSize &size) const; ///< \a size with the margin on both sides.
    QSize &removeMargin(QSize &size) const;     ///< Takes the margin off once, not twice.

    void setChildrenEnabled(bool enabled); ///< Calls setEnabled() on each child.

private:
    friend class AncestorHelper; // watches through the hubs
    friend class ChildTable;     // keeps the records of a child
    friend class FreeformWidget; // hands the root figure its update manager
    friend class PaintReach;     // keeps account of m_reach
    friend class Shape;          // has extras of its own

    void setUpdateManager(UpdateManager *manager);
    AncestorHub *ancestorHub();
    QPoint clientOffset();
    void noteFlags(quint32 changed) const;
    void noteArea() const;
    void validateChildren();
    void drawOwn(QPainter *painter, const QStyleOptionViewItem &option);
    void drawHighlight(QPainter *painter, const QStyleOptionViewItem &option,
                       const QRect &rect) const;

    FigureExtras &extras();
    Layout *presentLayout() const; // null also while nobody has asked for it
    bool isLayoutDue() const;
    bool isLeaf() const;
    void makeLayout();
    QSize ownMinimumSize() const; // what was set
    QSize ownMaximumSize() const;

    QPointer<Figure> m_parentFigure;
    ChildRecord *m_records = nullptr;       // one in each layout that has this figure as a child
    std::unique_ptr<FigureExtras> m_extras; // made when there is something in it
    QSize m_preferredSize; // what the application set, and the cache of what was computed last
    QRect m_bounds;
    quint32 m_flags = FLAG_VISIBLE | FLAG_ENABLED;
    int m_reach = 0; // how far it may have painted beyond its bounding rectangle
    QColor m_backgroundColor;
};

} // namespace Velmora::Figura
