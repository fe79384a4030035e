#include "../probe.h"

#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/layout/StackLayout.h>
#include <figura/layout/VBoxLayout.h>

// Layouts are exchanged and told what to do.

namespace Velmora::Figura::Storm {
namespace {

Layout *makeLayout(World &world, QObject *owner, Numbers &numbers)
{
    switch (numbers.below(6)) {
    case 0:
        return new ProbedLayout<XYLayout>(world, owner);
    case 1:
        return new ProbedLayout<HBoxLayout>(world, owner);
    case 2:
        return new ProbedLayout<VBoxLayout>(world, owner);
    case 3:
        return new ProbedLayout<StackLayout>(world, owner);
    case 4:
        return new ProbedLayout<DelegatingLayout>(world, owner);
    default:
        return new ProbedLayout<FreeformLayout>(world, owner, numbers.coin());
    }
}

void watch(World &world, Layout *layout)
{
    world.layouts.add(layout);
    if (auto *freely = qobject_cast<XYLayout *>(layout))
        QObject::connect(freely, &XYLayout::constraintChanged, layout,
                         [&world]() { world.happens(Moment::Constrained); });
}

Figure *pickPlain(World &world, Numbers &numbers)
{
    QList<Figure *> fitting;
    for (Figure *figure : world.figures.all()) {
        if (!qobject_cast<Layer *>(figure) && !qobject_cast<IConnection *>(figure))
            fitting.append(figure);
    }
    return fitting.value(numbers.below(int(fitting.size())));
}

// Whoever is told that one goes may destroy the others, or the figure.
QList<QPointer<Figure>> takeChildren(const QPointer<Figure> &figure)
{
    const QList<Figure *> present = figure->childFigures();
    const QList<QPointer<Figure>> children(present.begin(), present.end());
    for (const QPointer<Figure> &child : children) {
        if (figure && child)
            figure->remove(child);
    }
    return children;
}

// The former layout keeps its children, as documented: nobody shows them any more.
void leaveBehind(World &world, const QList<Figure *> &children)
{
    world.noteForgotten(children);
    if (!children.isEmpty())
        world.stage.askForFullRepaint();
}

// So they are taken out first and put back afterwards; only those that have come meanwhile are not.
void changeLayout(World &world, Numbers &numbers)
{
    const QPointer<Figure> figure = pickPlain(world, numbers);
    if (!figure)
        return;
    const QList<QPointer<Figure>> children = takeChildren(figure);
    if (!figure)
        return;
    leaveBehind(world, figure->childFigures());
    Layout *layout = makeLayout(world, numbers.coin() ? figure.data() : nullptr, numbers);
    watch(world, layout);
    const QPointer<Layout> former = figure->setLayoutManager(layout);
    for (const QPointer<Figure> &child : children) {
        if (child && figure && !child->getParentFigure())
            place(world, child, figure, numbers);
    }
    if (former && numbers.coin())
        delete former;
    if (figure)
        figure->revalidate();
}

void replaceLayout(World &world, Numbers &numbers)
{
    const QPointer<Figure> figure = pickPlain(world, numbers);
    if (!figure)
        return;
    leaveBehind(world, figure->childFigures());
    Layout *layout = makeLayout(world, figure, numbers);
    watch(world, layout);
    figure->setLayoutManager(layout);
    figure->revalidate();
}

void tuneLayout(World &world, Numbers &numbers)
{
    Figure *figure = world.figures.pick(numbers);
    Layout *layout = figure ? figure->getLayoutManager() : nullptr;
    if (!layout)
        return;
    layout->setSpacing(numbers.between(-2, 8));
    layout->setAlignment(numbers.oneOf<Qt::Alignment>(
        {Qt::AlignLeft, Qt::AlignCenter, Qt::AlignRight, Qt::AlignBottom | Qt::AlignHCenter}));
    layout->setExpandingDirections(Qt::Orientations(numbers.below(4)));
    figure->revalidate();
}

void monitorContent(World &world, Numbers &numbers)
{
    if (auto *layer = world.pick<FreeformLayer>(numbers))
        layer->setContentMonitored(numbers.coin());
}

} // namespace

QList<Entry> layoutOperations()
{
    return {
        {"changeLayout", 30, 25, Place::Anywhere, changeLayout},
        {"replaceLayout", 3, 3, Place::Anywhere, replaceLayout},
        {"tuneLayout", 4, 12, Place::Anywhere, tuneLayout},
        {"monitorContent", 2, 3, Place::Anywhere, monitorContent},
    };
}

} // namespace Velmora::Figura::Storm
