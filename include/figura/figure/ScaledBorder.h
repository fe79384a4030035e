#pragma once

#include <figura/export.h>
#include <figura/figure/Border.h>

namespace Velmora::Figura {

/// A frame whose lines are as wide as the insets, single or double.
class FIGURA_EXPORT ScaledBorder : public Border
{
    Q_OBJECT

public:
    /// Takes \a width on each side; below 1 it takes no space and paints nothing.
    explicit ScaledBorder(QObject *parent = nullptr, int width = 1);
    ~ScaledBorder() override;

    /// The distance of a second, inner frame; below 1 there is none. Only stores.
    void setInnerMarginBorder(int margin);

    void render(QPainter *painter, const QStyleOptionViewItem &option) const override;

    /// Draws a line on each side of \a rect whose inset is above 0, as wide as that inset.
    void drawBorderRect(QPainter *painter, const QRect &rect, const Insets &insets) const;

private:
    int m_innerMargin = 0;
};

} // namespace Velmora::Figura
