#pragma once

#include <figura/export.h>
#include <figura/figure/Border.h>

namespace Velmora::Figura {

/// A frame of one-pixel lines, however much space it takes.
class FIGURA_EXPORT SimpleBorder : public Border
{
    Q_OBJECT

public:
    /// Takes \a width on each side; below 1 it takes no space and paints nothing.
    explicit SimpleBorder(QObject *parent = nullptr, int width = 1);
    ~SimpleBorder() override;

    void render(QPainter *painter, const QStyleOptionViewItem &option) const override;

    /// Draws a line on each side of \a rect whose inset is above 0: top, right, bottom, left.
    void drawBorderRect(QPainter *painter, const QRect &rect, const Insets &insets) const;
};

} // namespace Velmora::Figura
