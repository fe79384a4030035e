#pragma once

#include <figura/export.h>
#include <figura/layout/Layout.h>

namespace Velmora::Figura {

/// Gives every visible child the whole client area. Hidden children count for the sizes.
class FIGURA_EXPORT StackLayout : public Layout
{
    Q_OBJECT

public:
    explicit StackLayout(QObject *parent = nullptr); ///< \a parent owns the layout as a QObject.
    ~StackLayout() override;

    bool isRelativeLayout() const override; ///< False.

protected:
    QSize calculatePreferredSize() override; ///< Invalid without children.
    QSize calculateMinimumSize() override;   ///< Invalid without children.
    bool performLayout(const QRect &clientArea) override;
};

} // namespace Velmora::Figura
