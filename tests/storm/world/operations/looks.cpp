#include "../world.h"

// What all figures can be told about their looks.

namespace Velmora::Figura::Storm {
namespace {

// A hidden content is painted all the same, but reports no damage of its own.
void setVisible(World &world, Numbers &numbers)
{
    Figure *figure = world.figures.pick(numbers);
    if (figure && figure != world.content())
        figure->setVisible(!figure->isVisible() || numbers.oneIn(4));
}

// Neither repaints nor reaches the children.
void setEnabled(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers)) {
        figure->setEnabled(numbers.coin());
        figure->repaint();
        world.stage.askForFullRepaint();
    }
}

void setBackgroundColor(World &world, Numbers &numbers)
{
    Figure *figure = world.pickMovable(numbers);
    if (figure)
        figure->setBackgroundColor(numbers.color());
}

void highlight(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->highlightClientArea(!figure->isClientAreaHighlighted());
}

void setHighlightStyle(World &world, Numbers &numbers)
{
    if (Figure *figure = world.figures.pick(numbers))
        figure->setHighlightStyle(numbers.below(2));
}

void setTooltip(World &world, Numbers &numbers)
{
    Figure *figure = world.figures.pick(numbers);
    Figure *tooltip = world.figures.pick(numbers);
    if (!figure)
        return;
    figure->setTooltip(numbers.oneIn(4) ? nullptr : tooltip);
    if (Figure *shown = figure->getTooltip())
        shown->getBounds();
}

} // namespace

QList<Entry> lookOperations()
{
    return {
        {"setVisible", 2, 25, Place::Anywhere, setVisible},
        {"setEnabled", 2, 6, Place::Anywhere, setEnabled},
        {"setBackgroundColor", 2, 15, Place::Anywhere, setBackgroundColor},
        {"highlight", 1, 12, Place::Anywhere, highlight},
        {"setHighlightStyle", 2, 5, Place::Anywhere, setHighlightStyle},
        {"setTooltip", 3, 5, Place::Anywhere, setTooltip},
    };
}

} // namespace Velmora::Figura::Storm
