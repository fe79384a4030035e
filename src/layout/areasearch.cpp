#include "areasearch_p.h"

namespace Velmora::Figura {

AreaSearch &areaSearch()
{
    static AreaSearch search;
    return search;
}

} // namespace Velmora::Figura
