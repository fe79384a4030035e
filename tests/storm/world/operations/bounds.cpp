#include "../world.h"

// Where figures are, how large they are, and what they ask for.

namespace Velmora::Figura::Storm {
namespace {

void moveFigure(World &world, Numbers &numbers)
{
    if (Figure *figure = world.pickMovable(numbers))
        figure->setBounds(QRect(numbers.point(), figure->getBounds().size()));
}

void nudge(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers)) {
        if (figure == world.content())
            world.stage.askForFullRepaint(); // where it was, no parent has anything to repaint
        const int dx = numbers.between(-4, 4);
        figure->setBounds(figure->getBounds().translated(dx, numbers.between(-4, 4)));
    }
}

// A change of size alone leaves the figure invalid without asking for an update, as documented.
void resize(World &world, Numbers &numbers)
{
    const QPointer<Figure> figure = world.pickMovable(numbers);
    if (!figure)
        return;
    figure->setBounds(numbers.rect());
    if (figure)
        figure->revalidate();
}

void translate(World &world, Numbers &numbers)
{
    const QPointer<Figure> figure = world.pickMovable(numbers);
    if (!figure)
        return;
    const int dx = numbers.between(-9, 9);
    figure->translate(dx, numbers.between(-9, 9));
    world.stage.askForFullRepaint(); // it only follows what the parent has damaged
}

void setMinimumSize(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->setMinimumSize(numbers.size() / 2);
}

void setMaximumSize(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->setMaximumSize(numbers.size() * 3);
}

void setPreferredSize(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->setPreferredSize(numbers.size());
}

// Only stored: the area inside is another one from now on.
void setMargin(World &world, Numbers &numbers)
{
    const QPointer<Figure> figure = world.figures.pick(numbers);
    if (!figure)
        return;
    figure->setMargin(numbers.between(-1, 6));
    figure->revalidate();
    world.stage.askForFullRepaint();
}

void setExpandingDirections(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->setExpandingDirections(Qt::Orientations(numbers.below(4)));
}

void validate(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->validate();
}

void revalidate(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->revalidate();
}

void repaint(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->repaint();
}

void eraseFigure(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->erase();
}

} // namespace

QList<Entry> boundsOperations()
{
    return {
        {"moveFigure", 3, 60, Place::Anywhere, moveFigure},
        {"nudge", 3, 30, Place::Anywhere, nudge},
        {"resize", 5, 40, Place::Anywhere, resize},
        {"translate", 3, 6, Place::Anywhere, translate},
        {"setMinimumSize", 3, 6, Place::Anywhere, setMinimumSize},
        {"setMaximumSize", 3, 4, Place::Anywhere, setMaximumSize},
        {"setPreferredSize", 3, 8, Place::Anywhere, setPreferredSize},
        {"setMargin", 2, 8, Place::Anywhere, setMargin},
        {"setExpandingDirections", 2, 4, Place::Anywhere, setExpandingDirections},
        {"validate", 1, 6, Place::Anywhere, validate},
        {"revalidate", 1, 15, Place::Anywhere, revalidate},
        {"repaint", 1, 5, Place::Anywhere, repaint},
        {"erase", 1, 3, Place::Anywhere, eraseFigure},
    };
}

} // namespace Velmora::Figura::Storm
