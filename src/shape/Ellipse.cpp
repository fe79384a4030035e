#include <figura/shape/Ellipse.h>

namespace Velmora::Figura {

Ellipse::Ellipse(QObject *parent)
    : Shape(parent)
{
}

Ellipse::~Ellipse() = default;

void Ellipse::regeneratePath(const QRectF &rect)
{
    QPainterPath path;
    path.addEllipse(rect);
    painterPath() = path;
}

} // namespace Velmora::Figura
