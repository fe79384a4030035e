#include "traps.h"

namespace Velmora::Figura::Storm {

bool Traps::capture(const Operation &operation)
{
    if (!m_armed)
        return false;
    m_waiting[*m_armed].append(operation);
    m_armed.reset();
    return true;
}

std::optional<Operation> Traps::take(Moment moment)
{
    const auto waiting = m_waiting.find(moment);
    if (waiting == m_waiting.end())
        return std::nullopt;
    const Operation operation = waiting->takeFirst();
    if (waiting->isEmpty())
        m_waiting.erase(waiting);
    return operation;
}

void Traps::clear()
{
    m_armed.reset();
    m_waiting.clear();
}

} // namespace Velmora::Figura::Storm
