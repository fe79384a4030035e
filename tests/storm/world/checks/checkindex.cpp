#include "../checks.h"
#include "../updatewatch.h"
#include "../world.h"

#include "layout/areasearch_p.h"

#include <QScopedValueRollback>

namespace Velmora::Figura::Storm {
namespace {

int changesOf(const World &world)
{
    const UpdateWatch *manager = world.updateManager();
    return manager ? manager->changes() : 0;
}

} // namespace

// Hit tests are held against the plain way elsewhere; this is for painting. What is changed by
// one of the two pictures is not to be seen in the other.
void checkIndex(World &world)
{
    if (!world.stage.widget())
        return;
    const int changes = changesOf(world);
    const QImage looked = world.stage.full();
    const QScopedValueRollback<bool> plain(areaSearch().isPlain, true);
    if (world.stage.full() != looked && changesOf(world) == changes)
        world.report("index", "children that show are not found where they lie");
}

} // namespace Velmora::Figura::Storm
