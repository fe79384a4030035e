#include <figura/figure/IFigure.h>

namespace Velmora::Figura {

// Defined here so that the virtual table and the type information exist once, in the library.
IFigure::~IFigure() = default;

} // namespace Velmora::Figura
