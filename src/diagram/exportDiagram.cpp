#include <figura/diagram/exportDiagram.h>

namespace Velmora::Figura {

} // namespace Velmora::Figura
