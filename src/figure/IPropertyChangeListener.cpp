#include <figura/figure/IPropertyChangeListener.h>

namespace Velmora::Figura {

// Defined here so that the virtual table and the type information exist once, in the library.
IPropertyChangeListener::~IPropertyChangeListener() = default;

} // namespace Velmora::Figura
