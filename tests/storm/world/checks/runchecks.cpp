#include "../checks.h"
#include "../world.h"

namespace Velmora::Figura::Storm {
namespace {

void takeSecondTurns(World &world)
{
    world.stage.takeSecondTurns();
}

// What comes of the second turns has to be painted before anybody looks on.
void settleAgain(World &world)
{
    world.stage.settle();
}

} // namespace

void runChecks(World &world)
{
    world.settle();
    for (const auto check : {checkTree, takeSecondTurns, checkValidity, settleAgain,
                             checkReservations, checkHitTest, checkPicture, checkIndex}) {
        if (!world.hasFault())
            world.checkAtRest(check);
    }
    world.recover();
    world.settle();
}

} // namespace Velmora::Figura::Storm
