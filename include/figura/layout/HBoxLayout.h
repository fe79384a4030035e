#pragma once

#include <figura/export.h>
#include <figura/layout/Layout.h>

namespace Velmora::Figura {

/// Places the visible children side by side from left to right.
///
/// Space beyond the preferred size is shared out by the horizontal stretch factors. A child that
/// expands in either direction fills its cell in both; any other is aligned in it. A constraint is
/// the child's size: a QSize, whose negative dimensions are kept, or a QSizeF, which is only
/// stored.
class FIGURA_EXPORT HBoxLayout : public Layout
{
    Q_OBJECT

public:
    /// The alignment is Qt::AlignCenter at first.
    explicit HBoxLayout(QObject *parent = nullptr);
    ~HBoxLayout() override;

    /// Sizes are stored raised to the child's minimum size.
    bool setConstraint(Figure *child, const QVariant &constraint) override;

protected:
    /// The widths and gaps added up, by the greatest height.
    QSize calculatePreferredSize() override;
    QSize calculateMinimumSize() override; ///< The same from the minimum sizes.
    bool performLayout(const QRect &clientArea) override;
    bool applyConstraint(Figure *child, const QVariant &constraint) override;
};

} // namespace Velmora::Figura
