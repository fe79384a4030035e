#pragma once

#include <figura/export.h>
#include <figura/layout/StackLayout.h>

#include <QRect>

namespace Velmora::Figura {

/// The stack of freeform layers in a FreeformLayeredPane; keeps the union of their extents.
///
/// The layers take their bounds from setFreeformBounds(); a layout pass leaves them alone.
class FIGURA_EXPORT FreeformStackLayout : public StackLayout
{
    Q_OBJECT
    Q_PROPERTY(QRect freeformExtent READ getFreeformExtent NOTIFY extentChanged)

public:
    explicit FreeformStackLayout(QObject *parent = nullptr); ///< Counts as laid out at first.
    ~FreeformStackLayout() override;

    // The slot stands first: the order of the virtual table depends on it.
public Q_SLOTS:
    virtual void examineExtent(); ///< Computes the extent anew and announces a change.

public:
    /// The cached extent, computed when there is none; hidden layers count.
    QRect getFreeformExtent();
    /// Passes \a rect on to the visible freeform children.
    void setFreeformBounds(const QRect &rect);

Q_SIGNALS:
    void extentChanged(); ///< The union of the extents has become another.

protected:
    QRect calculateFreeformExtent();     ///< The union, computed anew each time.
    QRect getCurrentChildBounds() const; ///< Invalid: a layout pass leaves the layers alone.

    QSize calculatePreferredSize() override; ///< The minimum size.
    QSize calculateMinimumSize() override;   ///< The size of the extent.
    bool performLayout(const QRect &clientArea) override;

private:
    const QRect &cachedExtent();

    QRect m_extent;               // invalid: not computed yet
    unsigned int m_extentAge = 0; // destroyedChildCount() when the extent was computed
    QRect m_childBounds;          // stays invalid, so that performLayout() leaves the layers alone
};

} // namespace Velmora::Figura
