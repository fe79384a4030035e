#include "../probe.h"

#include <figura/connection/PolylineF.h>
#include <figura/decoration/Decoration.h>
#include <figura/layout/ILocator.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/RoundedRectangle.h>
#include <figura/shape/TextFigure.h>

#include <QPainterPath>

// Figures come, go and change their place in the tree.

namespace Velmora::Figura::Storm {
namespace {

constexpr int mostFigures = 60;

/// A decoration in the shape of an ellipse.
class Badge : public Decoration
{
public:
    using Decoration::Decoration;

protected:
    void regeneratePath(const QRectF &rect) override
    {
        painterPath() = QPainterPath();
        painterPath().addEllipse(rect);
    }
};

QPixmap pixmap(Numbers &numbers)
{
    QPixmap made(numbers.between(1, 24), numbers.between(1, 24));
    made.fill(QColor(30, 140, 60));
    return made;
}

template<class Line, class Points>
Line *bent(Line *line, const Points &points)
{
    line->setLinePoints(points);
    return line;
}

Figure *makeLine(World &world, QObject *owner, Numbers &numbers)
{
    const QPoint a = numbers.point();
    const QPoint b = numbers.point();
    const QPoint c = numbers.point();
    switch (numbers.below(3)) {
    case 0:
        return bent(new Probed<Polygon>(world, owner), QList<QPoint>{a, b, c});
    case 1:
        return bent(new Probed<Polyline>(world, owner), QList<QPoint>{a, b, c});
    default:
        return bent(new Probed<PolylineF>(world, owner), QList<QPointF>{a / 1.5, b / 1.5, c / 1.5});
    }
}

Figure *makePicture(World &world, QObject *owner, Numbers &numbers)
{
    switch (numbers.below(3)) {
    case 0:
        return new Probed<TextFigure>(world, QStringLiteral("storm"), owner, numbers.color());
    case 1:
        return new Probed<PixmapFigure>(world, pixmap(numbers), owner, numbers.color());
    default: {
        const Qt::Orientation orientation = numbers.coin() ? Qt::Vertical : Qt::Horizontal;
        const QColor color = numbers.color();
        return new Probed<LabelFigure>(world, QStringLiteral("label"), pixmap(numbers), orientation,
                                       owner, color);
    }
    }
}

Figure *makeShape(World &world, QObject *owner, Numbers &numbers)
{
    switch (numbers.below(4)) {
    case 0:
        return new Probed<Rectangle>(world, owner);
    case 1:
        return new Probed<Ellipse>(world, owner);
    case 2:
        return new Probed<RoundedRectangle>(world, owner);
    default: {
        QObject *locator = makeLocator(world, nullptr, numbers);
        Figure *reference = world.figures.pick(numbers);
        return new Probed<Badge>(world, reference, dynamic_cast<ILocator *>(locator), owner);
    }
    }
}

Figure *makePlain(World &world, QObject *owner, Numbers &numbers)
{
    auto *figure = new Probed<Figure>(world, owner, numbers.color());
    if (numbers.coin()) {
        auto *layout = new ProbedLayout<XYLayout>(world, figure);
        figure->setLayoutManager(layout);
        world.layouts.add(layout);
    }
    return figure;
}

using Maker = Figure *(*)(World &, QObject *, Numbers &);

template<Maker make>
void addNew(World &world, Numbers &numbers)
{
    world.ensureContent();
    Figure *parent = world.pickContainer(numbers);
    if (!parent || world.figures.isFull(mostFigures))
        return;
    const bool isOwned = numbers.coin();
    Figure *figure = world.adopt(make(world, isOwned ? parent : nullptr, numbers));
    place(world, figure, parent, numbers);
}

void remove(Figure *figure)
{
    if (Figure *parent = figure ? figure->getParentFigure() : nullptr)
        parent->remove(figure);
}

void removeFigure(World &world, Numbers &numbers)
{
    remove(world.pickMovable(numbers));
}

// Not below itself: the tree would become a circle.
void reparent(World &world, Numbers &numbers)
{
    const QPointer<Figure> figure = world.pickMovable(numbers);
    const QPointer<Figure> parent = world.pickContainer(numbers);
    if (!figure || !parent || isWithin(parent, figure))
        return;
    remove(figure);
    if (figure && parent && !figure->getParentFigure())
        place(world, figure, parent, numbers);
}

void constrain(World &world, Numbers &numbers)
{
    Figure *figure = world.pickMovable(numbers);
    Figure *parent = figure ? figure->getParentFigure() : nullptr;
    if (Layout *layout = parent ? parent->getLayoutManager() : nullptr)
        layout->setConstraint(figure, constraintFor(world, layout, numbers));
}

} // namespace

QList<Entry> figureOperations()
{
    return {
        {"addPlain", 12, 50, Place::Anywhere, addNew<makePlain>},
        {"addShape", 12, 45, Place::Anywhere, addNew<makeShape>},
        {"addLine", 16, 25, Place::Anywhere, addNew<makeLine>},
        {"addPicture", 14, 25, Place::Anywhere, addNew<makePicture>},
        {"removeFigure", 1, 12, Place::Anywhere, removeFigure},
        {"reparent", 10, 25, Place::Anywhere, reparent},
        {"constrain", 10, 30, Place::Anywhere, constrain},
    };
}

} // namespace Velmora::Figura::Storm
