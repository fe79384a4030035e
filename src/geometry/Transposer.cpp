#include <figura/geometry/Transposer.h>

namespace Velmora::Figura {

Transposer::Transposer(QObject *parent)
    : QObject(parent)
{
}

Transposer::~Transposer() = default;

void Transposer::enable()
{
    setEnabled(true);
}

void Transposer::disable()
{
    setEnabled(false);
}

void Transposer::setEnabled(bool enabled)
{
    m_enabled = enabled;
}

bool Transposer::isEnabled() const
{
    return m_enabled;
}

} // namespace Velmora::Figura
