#include "subject.h"

#include <figura/figure/ScaledBorder.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/layout/StackLayout.h>
#include <figura/layout/VBoxLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/TextFigure.h>

namespace Velmora::Figura::Test {
namespace {

// With a margin, so that children end before their parent does.
template<class LayoutType>
Figure *onStage(Subject &subject)
{
    PixelStage &stage = subject.stage;
    auto *figure = new Figure(&stage.stage, QColor(235, 215, 255));
    figure->setLayoutManager(new LayoutType(figure));
    figure->setMargin(2);
    stage.stage.add(figure, stage.units(40, 35, 81, 67));
    subject.figure = figure;
    return figure;
}

Rectangle *addChild(Subject &subject, Figure *parent, const QRect &constraint)
{
    auto *child = new Rectangle(parent);
    child->setLineWidth(subject.lineWidth);
    child->setEnabledBGColor(QColor(255, 255, 255, 150));
    parent->add(child, constraint);
    return child;
}

void addChildSteps(Subject &subject, Figure *child, const QPoint &origin)
{
    PixelStage &stage = subject.stage;
    const auto put = [=, &stage](int x, int y) {
        child->setBounds(stage.units(x, y, 30, 22).translated(origin));
    };
    subject.then("child moves", [=] { put(20, 25); });
    subject.then("child sticks out right", [=] { put(65, 20); });
    subject.then("child sticks out left", [=] { put(-18, 30); });
    subject.then("child sticks out below", [=] { put(30, 58); });
    subject.then("child is outside", [=] { put(100, 70); });
    subject.then("child touches", [=] { put(-29, 10); });
    subject.then("child is back", [=] { put(5, 5); });
    subject.then("child hides", [=] { child->setVisible(false); });
    subject.then("child shows", [=] { child->setVisible(true); });
}

template<class LayoutType>
void buildPlaces(Subject &subject)
{
    Figure *figure = onStage<LayoutType>(subject);
    const QPoint origin = figure->useLocalCoordinates() ? QPoint() : figure->getBounds().topLeft();
    Rectangle *child =
        addChild(subject, figure, subject.stage.units(10, 10, 30, 22).translated(origin));
    child->setLayoutManager(new XYLayout(child));
    addChild(subject, child, subject.stage.units(12, 8, 30, 30));

    addChildSteps(subject, child, origin);
    addBoundsSteps(subject);
    addFigureSteps(subject);
    addProbeSteps(subject);
}

template<class LayoutType>
void buildRow(Subject &subject)
{
    Figure *figure = onStage<LayoutType>(subject);
    Rectangle *first = addChild(subject, figure, QRect());
    auto *text = new TextFigure(QStringLiteral("fj"), figure, Qt::transparent);
    figure->add(text, 1, 1, -1);
    first->setPreferredSize(QSize(subject.stage.units(20), subject.stage.units(20)));

    subject.then("text changes", [=] { text->setText(QStringLiteral("ffjj")); });
    subject.then("first hides", [=] { first->setVisible(false); });
    subject.then("first shows", [=] { first->setVisible(true); });
    subject.then("has a wide border", [=] {
        figure->setBorder(new ScaledBorder(figure, 5));
        figure->revalidate();
        figure->repaint();
    });
    addBoundsSteps(subject);
    addProbeSteps(subject);
}

// Nothing clips the children here, nor those of a child of the same sort.
void buildLoose(Subject &subject)
{
    Figure *figure = onStage<DelegatingLayout>(subject);
    auto *inner = new Figure(figure, QColor(200, 255, 230));
    inner->setLayoutManager(new DelegatingLayout(inner));
    figure->add(inner);
    inner->setBounds(subject.stage.units(60, 50, 30, 30));
    auto *leaf = new Ellipse(inner);
    leaf->setLineWidth(subject.lineWidth);
    inner->add(leaf);
    leaf->setBounds(subject.stage.units(70, 55, 40, 30));

    const QPoint origin = figure->getBounds().topLeft();
    addChildSteps(subject, leaf, origin);
    addChildSteps(subject, inner, origin);
    addBoundsSteps(subject);
    addFigureSteps(subject);
    addProbeSteps(subject);
}

} // namespace

QList<Kind> containerKinds()
{
    return {{"places", buildPlaces<XYLayout>}, {"free places", buildPlaces<FreeformLayout>},
            {"row", buildRow<HBoxLayout>},     {"column", buildRow<VBoxLayout>},
            {"stack", buildRow<StackLayout>},  {"loose children", buildLoose}};
}

} // namespace Velmora::Figura::Test
