#include <figura/view/IFreeformFigure.h>

namespace Velmora::Figura {

IFreeformFigure::~IFreeformFigure() = default;

} // namespace Velmora::Figura
