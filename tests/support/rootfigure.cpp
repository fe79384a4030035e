#include <rootfigure.h>

namespace Velmora::Figura::Test {

RootFigure::RootFigure(UpdateManager *manager)
    : m_manager(manager)
{
    setFlag(FLAG_NOTIFIED, true);
}

UpdateManager *RootFigure::getUpdateManager() const
{
    return getFlag(FLAG_NOTIFIED) ? m_manager : nullptr;
}

} // namespace Velmora::Figura::Test
