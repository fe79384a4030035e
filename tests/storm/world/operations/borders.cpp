#include "../world.h"

#include <figura/figure/FocusBorder.h>
#include <figura/figure/ScaledBorder.h>
#include <figura/figure/SimpleBorder.h>

// Borders only store what they are told, so each change is followed by a repaint.

namespace Velmora::Figura::Storm {
namespace {

Border *makeBorder(QObject *owner, Numbers &numbers)
{
    const int width = numbers.below(7);
    switch (numbers.below(3)) {
    case 0:
        return new SimpleBorder(owner, width);
    case 1: {
        auto *border = new ScaledBorder(owner, width);
        border->setInnerMarginBorder(numbers.below(4));
        return border;
    }
    default:
        return new FocusBorder(owner);
    }
}

void show(World &world, Figure *figure, Border *border)
{
    const QPointer<Figure> alive(figure);
    figure->setBorder(border);
    figure->revalidate();
    if (alive)
        world.stage.askForFullRepaint();
}

void giveBorder(World &world, Numbers &numbers)
{
    Figure *figure = world.figures.pick(numbers);
    if (!figure)
        return;
    Border *border = makeBorder(numbers.coin() ? figure : nullptr, numbers);
    world.adopt(border);
    show(world, figure, border);
}

void shareBorder(World &world, Numbers &numbers)
{
    Figure *figure = world.figures.pick(numbers);
    Border *border = world.borders.pick(numbers);
    if (figure)
        show(world, figure, numbers.oneIn(3) ? nullptr : border);
}

void changeBorder(World &world, Numbers &numbers)
{
    Border *border = world.borders.pick(numbers);
    if (!border)
        return;
    border->setColor(numbers.color());
    border->setPenStyle(Qt::PenStyle(numbers.below(6)));
    const int top = numbers.below(9);
    const int left = numbers.below(9);
    border->setInsets(Insets(top, left, numbers.below(5), numbers.below(5)));
    world.stage.askForFullRepaint();
}

} // namespace

QList<Entry> borderOperations()
{
    return {
        {"giveBorder", 5, 20, Place::Anywhere, giveBorder},
        {"shareBorder", 3, 8, Place::Anywhere, shareBorder},
        {"changeBorder", 7, 6, Place::Anywhere, changeBorder},
    };
}

} // namespace Velmora::Figura::Storm
