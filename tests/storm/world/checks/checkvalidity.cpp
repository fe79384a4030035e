#include "../checks.h"
#include "../updatewatch.h"
#include "../world.h"

namespace Velmora::Figura::Storm {

// What a pass has promised is checked after that pass; here it is about what the pass has dropped.
void checkValidity(World &world)
{
    UpdateWatch *manager = world.updateManager();
    if (!manager)
        return;
    for (Figure *figure : manager->leftInvalid())
        world.report("validity", describe(figure) + " was dropped and stays invalid");
}

} // namespace Velmora::Figura::Storm
