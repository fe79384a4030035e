#include "../checks.h"
#include "../updatewatch.h"
#include "../world.h"

namespace Velmora::Figura::Storm {

// What a pass has promised is checked after that pass; here it is about what the pass has dropped,
// and a widget would show.
void checkValidity(World &world)
{
    const UpdateWatch *manager = world.updateManager();
    if (!manager || !world.stage.widget() || manager->isPending()) // something is never at rest
        return;
    for (Figure *figure : world.drops.leftInvalid(manager))
        world.report("validity", describe(figure) + " was dropped and stays invalid");
}

} // namespace Velmora::Figura::Storm
