#include "tools/Tool.h"

namespace Editor {

Tool::Tool(Workbench &bench)
    : m_bench(bench)
{
}

void Tool::hover(const Pointer & /*pointer*/) {}

void Tool::doubleClick(const Pointer & /*pointer*/) {}

void Tool::leave() {}

} // namespace Editor
