#include <figura/view/IUpdateManager.h>

namespace Velmora::Figura {

IUpdateManager::~IUpdateManager() = default;

} // namespace Velmora::Figura
