#include <figura/figure/ITreeSearch.h>

namespace Velmora::Figura {

// Defined here so that the virtual table and the type information exist once, in the library.
ITreeSearch::~ITreeSearch() = default;

} // namespace Velmora::Figura
