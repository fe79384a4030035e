#include "../world.h"

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>

// The points of polylines, those of connections too.

namespace Velmora::Figura::Storm {
namespace {

/// Calls \a change with one of the lines, whichever of the two classes it is of.
template<class Change>
void withLine(World &world, Numbers &numbers, Change change)
{
    if (numbers.coin()) {
        if (auto *line = world.pick<PolylineF>(numbers))
            change(line);
    } else if (auto *line = world.pick<Polyline>(numbers)) {
        change(line);
    }
}

// Also beside the list, which is refused.
template<class Line>
int index(Line *line, Numbers &numbers)
{
    return numbers.between(-1, line->getPointCount());
}

void addPoint(World &world, Numbers &numbers)
{
    withLine(world, numbers, [&](auto *line) {
        if (line->getPointCount() < 12)
            line->addPoint(numbers.point());
    });
}

void insertPoint(World &world, Numbers &numbers)
{
    withLine(world, numbers, [&](auto *line) {
        const QPoint point = numbers.point();
        if (line->getPointCount() < 12)
            line->insertPoint(point, index(line, numbers));
    });
}

void setPoint(World &world, Numbers &numbers)
{
    withLine(world, numbers, [&](auto *line) {
        const QPoint point = numbers.point();
        line->setPoint(point, index(line, numbers));
    });
}

void removePoint(World &world, Numbers &numbers)
{
    withLine(world, numbers, [&](auto *line) { line->removePoint(index(line, numbers)); });
}

void removeAllPoints(World &world, Numbers &numbers)
{
    withLine(world, numbers, [](auto *line) { line->removeAllPoints(); });
}

void setEndPoints(World &world, Numbers &numbers)
{
    withLine(world, numbers, [&](auto *line) {
        const QPoint start = numbers.point();
        line->setEndPoints(start, numbers.point());
    });
}

} // namespace

QList<Entry> lineOperations()
{
    return {
        {"addPoint", 4, 10, Place::Anywhere, addPoint},
        {"insertPoint", 5, 8, Place::Anywhere, insertPoint},
        {"setPoint", 5, 15, Place::Anywhere, setPoint},
        {"removePoint", 3, 6, Place::Anywhere, removePoint},
        {"removeAllPoints", 2, 2, Place::Anywhere, removeAllPoints},
        {"setEndPoints", 6, 6, Place::Anywhere, setEndPoints},
    };
}

} // namespace Velmora::Figura::Storm
