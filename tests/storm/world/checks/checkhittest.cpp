#include "../checks.h"
#include "../world.h"

namespace Velmora::Figura::Storm {
namespace {

// The whole window, and a little beyond.
const QList<QPoint> &probes()
{
    static const QList<QPoint> points = [] {
        QList<QPoint> made;
        for (int y = -25; y < 200; y += 23) {
            for (int x = -25; x < 260; x += 29)
                made.append(QPoint(x, y));
        }
        return made;
    }();
    return points;
}

QByteArray at(const QPoint &point)
{
    return " at (" + QByteArray::number(point.x()) + ", " + QByteArray::number(point.y()) + ")";
}

void checkPoint(World &world, Figure *root, const QPoint &point)
{
    const QList<Figure *> holding = figuresHolding(root, point);
    Figure *expected = holding.isEmpty() ? nullptr : holding.last();
    Figure *found = root->findFigureAt(point);
    if (found != expected)
        world.report("hit test",
                     describe(found) + " found" + at(point) + " instead of " + describe(expected));
}

// With the topmost one left out, the next one below shows, which may be its parent.
void checkExcluding(World &world, Figure *root, const QPoint &point)
{
    QList<Figure *> holding = figuresHolding(root, point);
    if (holding.isEmpty())
        return;
    Figure *excluded = holding.takeLast();
    Figure *expected = holding.isEmpty() ? nullptr : holding.last();
    Figure *found = root->findFigureAtExcluding(point.x(), point.y(), {excluded});
    if (found != expected)
        world.report("hit test", describe(found) + " found beside " + describe(excluded) +
                                     at(point) + " instead of " + describe(expected));
}

void checkRect(World &world, Figure *root, const QRect &rect)
{
    const QList<Figure *> meeting = figuresMeeting(root, rect);
    const QList<Figure *> found = root->findFigures(rect, false);
    if (found != meeting)
        world.report("hit test", QByteArray::number(found.size()) + " figures found in a " +
                                     "rectangle" + at(rect.topLeft()) + " instead of " +
                                     QByteArray::number(meeting.size()));
}

} // namespace

void checkHitTest(World &world)
{
    Figure *root = world.content();
    if (!root)
        return;
    for (const QPoint &point : probes()) {
        checkPoint(world, root, point);
        if ((point.x() + point.y()) % 3 == 0)
            checkExcluding(world, root, point);
    }
    for (const QPoint &corner : {QPoint(-30, -30), QPoint(20, 30), QPoint(110, 70)})
        checkRect(world, root, QRect(corner, QSize(60, 50)));
}

} // namespace Velmora::Figura::Storm
