#include <figura/view/IViewport.h>

namespace Velmora::Figura {

IViewport::~IViewport() = default;

} // namespace Velmora::Figura
