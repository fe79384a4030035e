#include <figura/figure/IAncestorListener.h>

namespace Velmora::Figura {

// Defined here so that the virtual table and the type information exist once, in the library.
IAncestorListener::~IAncestorListener() = default;

} // namespace Velmora::Figura
