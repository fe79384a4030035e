#include <figura/connection/IAnchorListener.h>

namespace Velmora::Figura {

IAnchorListener::~IAnchorListener() = default;

} // namespace Velmora::Figura
