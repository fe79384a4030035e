#include <figura/connection/Bendpoint.h>

namespace Velmora::Figura {

Bendpoint::Bendpoint(QObject *parent)
    : QObject(parent)
{
}

Bendpoint::~Bendpoint() = default;

} // namespace Velmora::Figura
