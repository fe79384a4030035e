#include <figura/view/Layer.h>

namespace Velmora::Figura {

Layer::Layer(QObject *parent)
    : Figure(parent, Qt::transparent)
{
}

Layer::~Layer() = default;

bool Layer::isValidateRoot() const
{
    return true;
}

} // namespace Velmora::Figura
