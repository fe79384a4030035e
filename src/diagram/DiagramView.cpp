#include <figura/diagram/DiagramView.h>

namespace Velmora::Figura {

} // namespace Velmora::Figura
