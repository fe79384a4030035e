#include "workcounters_p.h"

namespace Velmora::Figura {

WorkCounters &workCounters()
{
    static WorkCounters counters;
    return counters;
}

} // namespace Velmora::Figura
