#pragma once

#include <figura/export.h>
#include <figura/layout/Layout.h>

namespace Velmora::Figura {

/// Lets each child be placed by the ILocator that is its constraint; other children stay put.
/// Children share the container's own coordinates and are not clipped.
class FIGURA_EXPORT DelegatingLayout : public Layout
{
    Q_OBJECT

public:
    /// \a parent owns the layout as a QObject.
    explicit DelegatingLayout(QObject *parent = nullptr);
    ~DelegatingLayout() override;

    bool isRelativeLayout() const override; ///< False.

protected:
    /// The largest preferred width and height of the children.
    QSize calculatePreferredSize() override;
    QSize calculateMinimumSize() override; ///< From the children's preferred sizes, on purpose.
    bool performLayout(const QRect &clientArea) override;
    bool isClipping() const override; ///< False.
};

} // namespace Velmora::Figura
