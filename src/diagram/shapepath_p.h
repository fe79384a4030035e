#pragma once

#include <figura/shape/Shape.h>

namespace Velmora::Figura {

/// The path of a shape, in the coordinate system of its bounds; empty while it is not built.
///
/// Shapes keep their paths to their subclasses; named through one, the operation may be called on
/// any shape.
inline const QPainterPath &pathOf(const Shape *shape)
{
    struct Reader : Shape
    {
        static const QPainterPath &read(const Shape *shape)
        {
            return (shape->*(&Reader::getPainterPath))();
        }
    };
    return Reader::read(shape);
}

} // namespace Velmora::Figura
