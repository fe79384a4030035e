// Hit testing.

#include <figura/figure/Figure.h>

#include "figureextras_p.h"
#include "figureguard_p.h"
#include "layout/childtable_p.h"

#include <figura/figure/ExclusionSearch.h>
#include <figura/layout/Layout.h>

namespace Velmora::Figura {
namespace {

class DefaultSearch : public ITreeSearch
{
public:
    bool accept(const Figure * /*figure*/) const override { return true; }
    bool prune(const Figure * /*figure*/) const override { return false; }
};

const DefaultSearch &defaultSearch()
{
    static const DefaultSearch search;
    return search;
}

} // namespace

// What a search asks, and how a figure answers, is the application's code: it may destroy figures,
// the one that is asked included. It is then as if that one did not meet the point.
//
// Searches are const to their callers, but the operations that they stand on are not declared so.
// They remain calls through the virtual table, so that overrides take effect.

bool Figure::contains(const QPoint &point) const
{
    return const_cast<Figure *>(this)->getBounds().contains(point);
}

bool Figure::isContained(const QRect &rect) const
{
    return rect.contains(const_cast<Figure *>(this)->getBounds());
}

bool Figure::isIntersecting(const QRect &rect) const
{
    return rect.intersects(const_cast<Figure *>(this)->getBounds());
}

Figure *Figure::findFigureAt(const QPoint &point) const
{
    return findFigureAt(point.x(), point.y());
}

Figure *Figure::findFigureAt(int x, int y) const
{
    return findFigureAt(x, y, defaultSearch());
}

Figure *Figure::findFigureAtExcluding(int x, int y, const QList<Figure *> &excluded) const
{
    return findFigureAt(x, y, ExclusionSearch(excluded, nullptr));
}

Figure *Figure::findFigureAt(int x, int y, const ITreeSearch &search) const
{
    QPoint point(x, y);
    const FigureGuard alive(this);
    if (!contains(point) || !alive || search.prune(this) || !alive)
        return nullptr;

    auto *self = const_cast<Figure *>(this);
    self->translateFromParent(point);
    Layout *layout = presentLayout();
    const bool mayHaveChildren = layout && !ChildTable::isBarren(layout);
    Figure *found =
        mayHaveChildren ? layout->findDescendantAtExcluding(point.x(), point.y(), search) : nullptr;
    if (found || !alive)
        return found;
    return search.accept(this) && alive ? self : nullptr;
}

QList<Figure *> Figure::findFigures(const QRect &rect, bool containedOnly)
{
    QList<Figure *> result;
    findFigures(result, rect, defaultSearch(), containedOnly);
    return result;
}

void Figure::findFigures(QList<Figure *> &result, const QRect &rect, const ITreeSearch &search,
                         bool containedOnly) const
{
    const FigureGuard alive(this);
    if (!isIntersecting(rect) || !alive || search.prune(this) || !alive)
        return;

    auto *self = const_cast<Figure *>(this);
    Layout *layout = presentLayout();
    if (layout && !ChildTable::isBarren(layout)) {
        QRect inside = rect;
        layout->findDescendantFigures(result, self->translateFromParent(inside), search,
                                      containedOnly);
    }
    if (!alive || (containedOnly && !isContained(rect)))
        return;
    if (alive && search.accept(this) && alive)
        result.append(self);
}

} // namespace Velmora::Figura
