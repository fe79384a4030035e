#include <figura/connection/IConnectionRouter.h>

namespace Velmora::Figura {

IConnectionRouter::~IConnectionRouter() = default;

} // namespace Velmora::Figura
