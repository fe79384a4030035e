#include "revalidation_p.h"

namespace Velmora::Figura {
namespace {

const FigureGuard *present = nullptr;

} // namespace

Revalidation::Revalidation(Figure *figure)
    : m_figure(origin() ? nullptr : figure)
{
    if (m_figure)
        present = &m_figure;
}

Revalidation::~Revalidation()
{
    if (present == &m_figure)
        present = nullptr;
}

Figure *Revalidation::origin()
{
    return present ? present->get() : nullptr;
}

} // namespace Velmora::Figura
