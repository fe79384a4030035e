#include <figura/connection/IBendpoint.h>

namespace Velmora::Figura {

IBendpoint::~IBendpoint() = default;

} // namespace Velmora::Figura
