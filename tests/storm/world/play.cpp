#include "play.h"

#include "checks.h"
#include "world.h"

namespace Velmora::Figura::Storm {
namespace {

void run(World &world, const Script &script)
{
    for (const Operation &operation : script) {
        if (world.hasFault())
            return;
        world.perform(operation);
    }
    if (!world.hasFault())
        runChecks(world);
}

} // namespace

// The end of the world counts too, so the fault outlives it.
QByteArray play(const Script &script)
{
    QByteArray fault;
    {
        World world(fault);
        run(world, script);
    }
    return fault;
}

} // namespace Velmora::Figura::Storm
