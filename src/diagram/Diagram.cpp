#include <figura/diagram/Diagram.h>

namespace Velmora::Figura {

} // namespace Velmora::Figura
