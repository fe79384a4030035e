#pragma once

#include <figura/export.h>
#include <figura/figure/Figure.h> // complete, so that signals with figures have meta-types

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QVariant>

#include <memory>

namespace Velmora::Figura {

class ChildTable;
class ILayoutListener;
struct ChildRecord;

/// Holds the children of one figure, its container, and places, paints and hit-tests them.
///
/// Children are not owned; one that is destroyed leaves the layout by itself. A constraint that is
/// a QObject without a parent is deleted later when it is replaced or its child is removed.
/// A subclass computes sizes of the client area (margin and border are added by Figure) and sets
/// the children's bounds in performLayout().
class FIGURA_EXPORT Layout : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Figure *figure READ getFigure)
    Q_PROPERTY(Qt::Alignment alignment READ getAligment WRITE setAlignment)
    Q_PROPERTY(int spacing READ getSpacing WRITE setSpacing)
    Q_PROPERTY(
        Qt::Orientations expandingDirections READ expandingDirections WRITE setExpandingDirections)

public:
    /// What a layout keeps for one child.
    class FIGURA_EXPORT LayoutHelper
    {
    public:
        /// The record of a child that was just added.
        LayoutHelper(const QVariant &constraint, unsigned int verticalStretch,
                     unsigned int horizontalStretch);
        LayoutHelper(const LayoutHelper &other); ///< Watches the same object.
        ~LayoutHelper();

        QVariant getConstraint() const; ///< Invalid once the object that it holds is destroyed.
        void setConstraint(const QVariant &constraint); ///< Only stores; the layout applies it.

        const unsigned int vStretch; ///< Summed by getVTotalStretch().
        const unsigned int hStretch; ///< Summed by getHTotalStretch().

    private:
        friend class ExtentTree; // reads rectangles without a copy
        friend class Layout;

        QObject *object() const; // in the constraint, while it lives

        QVariant m_constraint;
        std::unique_ptr<QPointer<QObject>> m_object; // only where the constraint holds one
    };

    /// Serves no figure yet: Figure::setLayoutManager() does that.
    explicit Layout(QObject *parent = nullptr);
    ~Layout() override;

    /// Makes \a child a child of the container, below those from \a index on; an index outside the
    /// children appends. False without a container, for null and for a child already there.
    virtual bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1);
    /// The same without a constraint. Always takes four arguments, so that add(child, 0, 0) cannot
    /// mean two things.
    virtual bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index);
    virtual bool remove(Figure *child);     ///< False when \a child is not one of the children.
    virtual QList<Figure *> childFigures(); ///< In paint order, the topmost last.
    virtual int childFigureCount() const;   ///< Hidden children count.

    virtual QVariant getConstraint(Figure *child); ///< Invalid when there is none.
    /// Stores and applies; false only when \a child is not one of the children.
    virtual bool setConstraint(Figure *child, const QVariant &constraint);

    virtual QSize getPreferredSize(); ///< Of the client area; cached until invalidate().
    virtual QSize getMinimumSize();   ///< Of the client area; cached until invalidate().

    virtual Qt::Orientations expandingDirections(); ///< Both directions at first.
    /// Whether the container takes surplus space. Only stores.
    virtual void setExpandingDirections(Qt::Orientations directions);

    // Searches, in the children's coordinates.
    /// Appends the figures below the visible children: see Figure::findFigures().
    virtual void findDescendantFigures(QList<Figure *> &result, const QRect &rect,
                                       const ITreeSearch &search, bool containedOnly) const;
    /// The topmost descendant at the point; \a search alone says what is excluded.
    virtual Figure *findDescendantAtExcluding(int x, int y, const ITreeSearch &search) const;

    /// Whether the children's coordinates begin at the container's client area.
    virtual bool isRelativeLayout() const;

    /// Paints the visible children in order, after laying them out if need be.
    virtual void render(QPainter *painter, const QStyleOptionViewItem &option);
    virtual bool layout(Figure *container); ///< Lays out unless done already; true when done.
    virtual void invalidate();              ///< Forgets the cached sizes and that it is laid out.

    virtual void addListener(ILayoutListener *listener); ///< Not owned; null is refused.
    /// Does nothing for one that was not added; null is refused.
    virtual void removeListener(ILayoutListener *listener);

protected:
    /// What the children like to have, without margin and border.
    virtual QSize calculatePreferredSize() = 0;
    /// What the children need at least, without margin and border.
    virtual QSize calculateMinimumSize() = 0;
    /// Sets the children's bounds. \a clientArea is in the children's coordinates. Returns whether
    /// they are laid out now; children of a layout that is not are not painted.
    virtual bool performLayout(const QRect &clientArea) = 0;

    virtual bool isClipping() const; ///< Whether painting is clipped to the client area.
    /// Lets a locator in \a constraint place \a child. False for null and for no constraint.
    virtual bool applyConstraint(Figure *child, const QVariant &constraint);

public:
    Figure *getFigure() const;      ///< The container.
    void setFigure(Figure *figure); ///< Called by Figure::setLayoutManager().

    /// Of children in their cells, for layouts that have cells.
    Qt::Alignment getAligment() const;          // spelt so on purpose: part of the interface
    void setAlignment(Qt::Alignment alignment); ///< Only stores.
    int getSpacing() const;       ///< The gap between children, for layouts that have one.
    void setSpacing(int spacing); ///< Only stores; not checked.

protected:
    bool isLaidOut() const;        ///< False from invalidate() until performLayout() says true.
    void setLaidOut(bool laidOut); ///< Sets the mark alone.
    LayoutHelper *
    getHelper(Figure *child) const;        ///< Null when \a child is not one of the children.
    unsigned int getHTotalStretch() const; ///< Of the visible children.
    unsigned int getVTotalStretch() const; ///< Of the visible children.

    /// How many children were destroyed while they were in this layout. What a subclass has cached
    /// about its children is stale when this has changed.
    unsigned int destroyedChildCount() const;

private:
    friend class ChildTable;
    friend class PaintReach; // keeps account of m_unclipped

    bool insert(Figure *child, const QVariant &constraint, const LayoutHelper &record, int index);
    ChildRecord *enlist(Figure *child, const LayoutHelper &record, int index);
    ChildRecord *dismiss(Figure *child);
    void forget(ChildRecord *destroyedChild);
    ChildTable &table() const;
    QList<QRect> paintedRects(const QPainter *painter, const QRect &rect) const;
    unsigned int totalStretch(const unsigned int LayoutHelper::*stretch) const;

    QPointer<Figure> m_figure;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    int m_spacing = 2;
    Qt::Orientations m_expandingDirections = Qt::Horizontal | Qt::Vertical;
    QSize m_preferredSize;
    QSize m_minimumSize;
    bool m_laidOut = false;
    std::unique_ptr<ChildTable> m_table; // made for the first child
    QRect m_unclipped; // what the children may paint, in their coordinates; none while clipped
    QList<ILayoutListener *> m_listeners;
    unsigned int m_destroyedChildren = 0;
};

} // namespace Velmora::Figura
