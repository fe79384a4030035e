#include "../checks.h"
#include "../world.h"

namespace Velmora::Figura::Storm {

void runChecks(World &world)
{
    world.settle();
    for (const auto check :
         {checkTree, checkValidity, checkReservations, checkHitTest, checkPicture, checkIndex}) {
        if (!world.hasFault())
            world.checkAtRest(check);
    }
    world.recover();
    world.settle();
}

} // namespace Velmora::Figura::Storm
