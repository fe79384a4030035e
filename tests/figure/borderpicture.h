#pragma once

#include <pixels.h>

#include <figura/figure/Border.h>
#include <figura/figure/Figure.h>

#include <QStyleOptionViewItem>

namespace Velmora::Figura::Test {

inline QStyleOptionViewItem optionFor(const QRect &rect)
{
    QStyleOptionViewItem option;
    option.rect = rect;
    return option;
}

/// Figures of 60 x 40 in a row, one for each border, on pale yellow so that the bounds show.
inline QImage pictureOf(const QList<Border *> &borders)
{
    return paintedImage(QSize(int(borders.size()) * 80 + 20, 80), [&](QPainter *painter) {
        int x = 20;
        for (Border *border : borders) {
            Figure figure(nullptr, QColor(255, 250, 200));
            figure.setBorder(border);
            figure.setBounds(QRect(x, 20, 60, 40));
            figure.render(painter, optionFor(QRect(0, 0, 10000, 80)));
            x += 80;
        }
    });
}

} // namespace Velmora::Figura::Test
