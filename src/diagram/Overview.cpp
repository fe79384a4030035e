#include <figura/diagram/Overview.h>

namespace Velmora::Figura {

} // namespace Velmora::Figura
