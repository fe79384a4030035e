#include <figura/layout/ILocator.h>

namespace Velmora::Figura {

ILocator::~ILocator() = default;

} // namespace Velmora::Figura
