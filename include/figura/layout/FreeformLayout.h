#pragma once

#include <figura/export.h>
#include <figura/layout/XYLayout.h>

#include <QRect>

#include <memory>

namespace Velmora::Figura {

class ExtentTree;

/// An XYLayout that keeps the freeform extent: the union of its children's rectangles, which may
/// lie anywhere, also at negative coordinates. Children share the container's own coordinates.
class FIGURA_EXPORT FreeformLayout : public XYLayout
{
    Q_OBJECT
    Q_PROPERTY(QRect freeformExtent READ getFreeformExtent NOTIFY extentChanged)
    Q_PROPERTY(bool contentMonitored READ isContentMonitored WRITE setContentMonitored)

public:
    /// With \a contentMonitored the extent follows the moves of the children.
    explicit FreeformLayout(QObject *parent = nullptr, bool contentMonitored = true);
    ~FreeformLayout() override;

    /// The cached extent, computed when there is none. Adding a child does not renew it, removing
    /// one does. Invalid while nothing counts.
    QRect getFreeformExtent();

    bool isContentMonitored() const; ///< As given to the constructor or set last.
    /// Switches the watch over the container itself; the children are connected by add().
    void setContentMonitored(bool monitored);

    /// As in XYLayout; connects \a child when the content is monitored.
    bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) override;
    /// \overload
    bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override;
    bool remove(Figure *child) override;       ///< As in XYLayout; computes the extent anew.
    bool isRelativeLayout() const override;    ///< False.
    QPoint getOrigin(Figure *figure) override; ///< Always (0, 0).

Q_SIGNALS:
    void extentChanged(); ///< The extent has become another.

public Q_SLOTS:
    void examineExtent(); ///< Computes the extent anew and announces a change.

protected:
    /// The union of the children's rectangles, computed anew each time.
    QRect calculateFreeformExtent();

    QSize calculatePreferredSize() override; ///< The minimum size, without further allowance.
    QSize calculateMinimumSize() override;   ///< The size of the extent.

private:
    bool watch(Figure *child);
    const QRect &cachedExtent();
    QRect uniteChildren();
    QRect contribution(Figure *child);

    QRect m_extent;               // invalid: not computed yet
    unsigned int m_extentAge = 0; // destroyedChildCount() when the extent was computed
    std::unique_ptr<ExtentTree> m_tree;
    bool m_contentMonitored;
};

} // namespace Velmora::Figura
