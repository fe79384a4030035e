#include <figura/connection/IConnectionAnchor.h>

namespace Velmora::Figura {

IConnectionAnchor::~IConnectionAnchor() = default;

} // namespace Velmora::Figura
