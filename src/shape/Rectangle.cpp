#include <figura/shape/Rectangle.h>

namespace Velmora::Figura {

Rectangle::Rectangle(QObject *parent)
    : Shape(parent)
{
}

Rectangle::~Rectangle() = default;

void Rectangle::regeneratePath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    painterPath() = path;
}

} // namespace Velmora::Figura
