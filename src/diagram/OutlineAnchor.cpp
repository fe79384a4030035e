#include <figura/diagram/OutlineAnchor.h>

namespace Velmora::Figura {

} // namespace Velmora::Figura
