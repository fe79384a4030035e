#pragma once

#include <figura/figure/Figure.h>
#include <figura/shape/Rectangle.h>

#include <QPixmap>

namespace Editor::Specimens {

/// A figure of a class on the stage, owned by it.
template<class Prop>
Prop *put(Velmora::Figura::Figure *stage, const QRect &rect)
{
    auto *prop = new Prop(stage);
    stage->add(prop, rect);
    return prop;
}

inline Velmora::Figura::Rectangle *putBox(Velmora::Figura::Figure *stage, const QRect &rect)
{
    return put<Velmora::Figura::Rectangle>(stage, rect);
}

/// A picture that needs no file.
QPixmap samplePixmap(int side);

} // namespace Editor::Specimens
