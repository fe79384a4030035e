#include <figura/decoration/IRotatableDecoration.h>

namespace Velmora::Figura {

IRotatableDecoration::~IRotatableDecoration() = default;

} // namespace Velmora::Figura
