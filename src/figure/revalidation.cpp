#include "revalidation_p.h"

#include <figura/figure/Figure.h>

namespace Velmora::Figura {
namespace {

QPointer<Figure> &present()
{
    static QPointer<Figure> figure;
    return figure;
}

} // namespace

Revalidation::Revalidation(Figure *figure)
    : m_isFirst(!present())
{
    if (m_isFirst)
        present() = figure;
}

Revalidation::~Revalidation()
{
    if (m_isFirst)
        present().clear();
}

Figure *Revalidation::origin()
{
    return present();
}

} // namespace Velmora::Figura
