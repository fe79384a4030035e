#include <figura/shape/Ellipse.h>

#include "pathsource_p.h"

namespace Velmora::Figura {

Ellipse::Ellipse(QObject *parent)
    : Shape(parent)
{
}

Ellipse::~Ellipse() = default;

void Ellipse::regeneratePath(const QRectF &rect)
{
    PathSource::give(this, std::make_unique<EllipseSource>(rect));
}

} // namespace Velmora::Figura
