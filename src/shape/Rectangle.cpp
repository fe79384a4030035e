#include <figura/shape/Rectangle.h>

#include "pathsource_p.h"

namespace Velmora::Figura {

Rectangle::Rectangle(QObject *parent)
    : Shape(parent)
{
}

Rectangle::~Rectangle() = default;

void Rectangle::regeneratePath(const QRectF &rect)
{
    PathSource::give(this, makeRectangleSource(rect));
}

} // namespace Velmora::Figura
