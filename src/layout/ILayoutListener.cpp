#include <figura/layout/ILayoutListener.h>

namespace Velmora::Figura {

ILayoutListener::~ILayoutListener() = default;

} // namespace Velmora::Figura
