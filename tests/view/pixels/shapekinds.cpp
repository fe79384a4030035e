#include "subject.h"

#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/RoundedRectangle.h>

namespace Velmora::Figura::Test {
namespace {

void addPenSteps(Subject &subject, Shape *shape)
{
    const int width = subject.lineWidth;
    subject.then("has a wider pen", [=] { shape->setLineWidth(width + 4); });
    subject.then("moves with the wider pen",
                 [=] { shape->setBounds(shape->getBounds().translated(2, 1)); });
    subject.then("has a thin pen", [=] { shape->setLineWidth(1); });
    subject.then("has dashes", [=] { shape->setLineStyle(Qt::DashLine); });
    subject.then("has a wider dashed pen", [=] { shape->setLineWidth(width + 2); });
    subject.then("has its pen again", [=] {
        shape->setLineStyle(Qt::SolidLine);
        shape->setLineWidth(width);
    });
    subject.then("is not filled", [=] { shape->setFill(false); });
    subject.then("is filled", [=] { shape->setFill(true); });
}

template<class ShapeType>
ShapeType *onStage(Subject &subject)
{
    PixelStage &stage = subject.stage;
    auto *shape = new ShapeType(&stage.stage);
    shape->setLineWidth(subject.lineWidth);
    shape->setEnabledFGColor(QColor(20, 90, 20));
    shape->setEnabledBGColor(QColor(255, 190, 190));
    stage.stage.add(shape, stage.units(40, 35, 61, 47));
    subject.figure = shape;
    return shape;
}

template<class ShapeType>
void buildShape(Subject &subject)
{
    addPenSteps(subject, onStage<ShapeType>(subject));
    addBoundsSteps(subject);
    addFigureSteps(subject);
    addProbeSteps(subject);
}

// The percentages are stored only: the application repaints when it has rebuilt the path.
void buildRounder(Subject &subject)
{
    auto *shape = onStage<RoundedRectangle>(subject);
    subject.then("is rounder", [=] {
        shape->setXRnd(90);
        shape->setYRnd(70);
        shape->rebuildPath();
    });
    addPenSteps(subject, shape);
    addBoundsSteps(subject);
    addProbeSteps(subject);
}

// Narrower than the pen, so that the path is turned inside out.
template<class ShapeType>
void buildSliver(Subject &subject)
{
    auto *shape = onStage<ShapeType>(subject);
    const QPoint corner = shape->getBounds().topLeft();
    subject.then("is a sliver", [=] { shape->setBounds(QRect(corner, QSize(2, 40))); });
    subject.then("moves", [=] { shape->setBounds(QRect(corner, QSize(2, 40)).translated(1, 3)); });
    const QSize asWideAsThePen(subject.lineWidth, subject.lineWidth);
    subject.then("is a dot", [=] { shape->setBounds(QRect(corner, asWideAsThePen)); });
    subject.then("is a dashed dot", [=] { shape->setLineStyle(Qt::DashLine); });
    subject.then("moves", [=] { shape->setBounds(QRect(corner + QPoint(2, 1), asWideAsThePen)); });
    addProbeSteps(subject);
}

void buildParent(Subject &subject)
{
    PixelStage &stage = subject.stage;
    auto *shape = onStage<Rectangle>(subject);
    shape->setLayoutManager(new XYLayout(shape));
    auto *child = new Ellipse(shape);
    child->setLineWidth(subject.lineWidth);
    shape->add(child, stage.units(30, 20, 50, 40));
    subject.then("child moves", [=, &stage] { child->setBounds(stage.units(45, 30, 50, 40)); });
    subject.then("child leaves", [=, &stage] { child->setBounds(stage.units(-45, 3, 40, 30)); });
    addBoundsSteps(subject);
    addFigureSteps(subject);
    addProbeSteps(subject);
}

} // namespace

QList<Kind> shapeKinds()
{
    return {{"rectangle", buildShape<Rectangle>},
            {"rounded rectangle", buildShape<RoundedRectangle>},
            {"very rounded rectangle", buildRounder},
            {"ellipse", buildShape<Ellipse>},
            {"sliver of an ellipse", buildSliver<Ellipse>},
            {"sliver of a rectangle", buildSliver<Rectangle>},
            {"sliver of a rounded rectangle", buildSliver<RoundedRectangle>},
            {"rectangle with a child", buildParent}};
}

} // namespace Velmora::Figura::Test
