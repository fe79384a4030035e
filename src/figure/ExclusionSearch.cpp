#include <figura/figure/ExclusionSearch.h>

#include <figura/figure/Figure.h>

namespace Velmora::Figura {

ExclusionSearch::ExclusionSearch(const QList<Figure *> &excluded, QObject *parent)
    : QObject(parent)
    , m_excluded(excluded)
{
}

ExclusionSearch::~ExclusionSearch() = default;

bool ExclusionSearch::accept(const Figure * /*figure*/) const
{
    return true; // what is excluded has been pruned before anybody asks
}

bool ExclusionSearch::prune(const Figure *figure) const
{
    return !figure || m_excluded.contains(figure);
}

} // namespace Velmora::Figura
