#include "../checks.h"
#include "../world.h"

namespace Velmora::Figura::Storm {

void runChecks(World &world)
{
    world.settle();
    for (const auto check :
         {checkTree, checkValidity, checkReservations, checkHitTest, checkPicture}) {
        if (!world.hasFault())
            check(world);
    }
    world.recover();
    world.settle();
}

} // namespace Velmora::Figura::Storm
