#include "../world.h"

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>
#include <figura/shape/RoundedRectangle.h>
#include <figura/shape/Shape.h>

// Pens, fills and paths.

namespace Velmora::Figura::Storm {
namespace {

void setLineWidth(World &world, Numbers &numbers)
{
    if (auto *shape = world.pick<Shape>(numbers))
        shape->setLineWidth(numbers.below(10));
}

void setLineStyle(World &world, Numbers &numbers)
{
    if (auto *shape = world.pick<Shape>(numbers))
        shape->setLineStyle(Qt::PenStyle(numbers.below(6)));
}

void setEnds(World &world, Numbers &numbers)
{
    const QPointer<Shape> shape = world.pick<Shape>(numbers);
    if (!shape)
        return;
    shape->setCapStyle(numbers.oneOf({Qt::FlatCap, Qt::SquareCap, Qt::RoundCap}));
    if (shape)
        shape->setJoinStyle(numbers.oneOf({Qt::MiterJoin, Qt::BevelJoin, Qt::RoundJoin}));
}

void setShapeColor(World &world, Numbers &numbers)
{
    auto *shape = world.pick<Shape>(numbers);
    if (!shape)
        return;
    const QColor color = numbers.color();
    switch (numbers.below(4)) {
    case 0:
        return shape->setEnabledFGColor(color);
    case 1:
        return shape->setEnabledBGColor(color);
    case 2:
        return shape->setDisabledFGColor(color);
    default:
        return shape->setDisabledBGColor(color);
    }
}

void setFill(World &world, Numbers &numbers)
{
    if (auto *shape = world.pick<Shape>(numbers))
        shape->setFill(numbers.coin());
}

void rebuildPath(World &world, Numbers &numbers)
{
    if (auto *shape = world.pick<Shape>(numbers))
        shape->rebuildPath();
}

void rebuildTree(World &world, Numbers &numbers)
{
    rebuildPaths(world.figures.pick(numbers));
}

void setRoundness(World &world, Numbers &numbers)
{
    if (auto *shape = world.pick<RoundedRectangle>(numbers)) {
        shape->setXRnd(numbers.between(-1, 100));
        shape->setYRnd(numbers.between(-1, 100));
    }
}

} // namespace

QList<Entry> shapeOperations()
{
    return {
        {"setLineWidth", 2, 25, Place::Anywhere, setLineWidth},
        {"setLineStyle", 2, 6, Place::Anywhere, setLineStyle},
        {"setEnds", 3, 4, Place::Anywhere, setEnds},
        {"setShapeColor", 3, 12, Place::Anywhere, setShapeColor},
        {"setFill", 2, 6, Place::Anywhere, setFill},
        {"rebuildPath", 1, 8, Place::Anywhere, rebuildPath},
        {"rebuildTree", 1, 4, Place::Anywhere, rebuildTree},
        {"setRoundness", 3, 4, Place::Anywhere, setRoundness},
    };
}

} // namespace Velmora::Figura::Storm
