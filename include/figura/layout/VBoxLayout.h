#pragma once

#include <figura/export.h>
#include <figura/layout/Layout.h>

namespace Velmora::Figura {

/// Places the visible children one below the other from top to bottom.
///
/// Space beyond the preferred size is shared out by the vertical stretch factors. A child that
/// expands in either direction fills its cell in both; any other is aligned in it. A constraint is
/// the child's size: a QSize, whose negative dimensions are kept, or a QSizeF, which is only
/// stored.
class FIGURA_EXPORT VBoxLayout : public Layout
{
    Q_OBJECT

public:
    /// The alignment is Qt::AlignLeft | Qt::AlignVCenter at first.
    explicit VBoxLayout(QObject *parent = nullptr);
    ~VBoxLayout() override;

    /// Sizes are stored raised to the child's minimum size.
    bool setConstraint(Figure *child, const QVariant &constraint) override;

protected:
    /// The heights and gaps added up, by the greatest width.
    QSize calculatePreferredSize() override;
    QSize calculateMinimumSize() override; ///< The same from the minimum sizes.
    bool performLayout(const QRect &clientArea) override;
    bool applyConstraint(Figure *child, const QVariant &constraint) override;
};

} // namespace Velmora::Figura
