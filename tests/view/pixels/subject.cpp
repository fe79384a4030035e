#include "subject.h"

#include <figura/figure/SimpleBorder.h>
#include <figura/layout/Layout.h>

namespace Velmora::Figura::Test {

void addBoundsSteps(Subject &subject)
{
    PixelStage &stage = subject.stage;
    Figure *figure = subject.figure;
    const auto place = [figure](const QRect &bounds) { figure->setBounds(bounds); };
    const QRect first = figure->getBounds();
    const int few = stage.units(5);

    subject.then("moves by one unit", [=] { place(first.translated(1, 1)); });
    subject.then("moves a little", [=] { place(first.translated(-few, few)); });
    subject.then("moves away", [=, &stage] { place(first.translated(stage.units(60), few)); });
    subject.then("grows", [=] { place(first.adjusted(-few, -1, few, few)); });
    subject.then("shrinks", [=] { place(QRect(first.topLeft(), first.size() / 3)); });
    subject.then("becomes tiny", [=] { place(QRect(first.center(), QSize(2, 3))); });
    subject.then("becomes a point", [=] { place(QRect(first.center(), QSize(1, 1))); });
    subject.then("moves while tiny", [=] { place(QRect(first.topLeft(), QSize(2, 3))); });
    subject.then("returns", [=] { place(first); });
}

void addFigureSteps(Subject &subject)
{
    Figure *figure = subject.figure;
    auto *border = new SimpleBorder(figure, 3);
    Figure *parent = figure->getParentFigure();
    const QVariant constraint = parent->getLayoutManager()->getConstraint(figure);

    subject.then("is highlighted", [=] { figure->highlightClientArea(true); });
    subject.then("has another highlight", [=] { figure->setHighlightStyle(0); });
    subject.then("is highlighted no more", [=] { figure->highlightClientArea(false); });
    subject.then("hides", [=] { figure->setVisible(false); });
    subject.then("shows", [=] { figure->setVisible(true); });
    subject.then("has another background", [=] { figure->setBackgroundColor(Qt::yellow); });
    // Neither a border nor being disabled asks for a repaint.
    subject.then("gets a border", [=] {
        figure->setBorder(border);
        figure->repaint();
    });
    subject.then("is disabled", [=] {
        figure->setEnabled(false);
        figure->repaint();
    });
    subject.then("is removed", [=] { parent->remove(figure); });
    subject.then("is added again", [=] { parent->add(figure, constraint); });
}

void addProbeSteps(Subject &subject)
{
    PixelStage &stage = subject.stage;
    auto *probe = new Figure(&stage.top, QColor(255, 0, 0, 90));
    Figure *figure = subject.figure;
    stage.top.add(probe, stage.units(-150, -100, 4, 4));
    const auto walk = [&](const QByteArray &where, auto corner) {
        subject.then("is passed " + where, [=] {
            const QRect bounds = figure->getBoundingRect();
            probe->setBounds(QRect(corner(bounds), probe->getBounds().size()));
        });
    };
    const int off = stage.units(4) + 1;

    walk("inside", [](const QRect &r) { return r.center(); });
    walk("at the left", [=](const QRect &r) { return QPoint(r.left() - off, r.center().y()); });
    walk("nearer", [=](const QRect &r) { return QPoint(r.left() - off + 1, r.center().y()); });
    walk("at the top", [=](const QRect &r) { return QPoint(r.center().x(), r.top() - off); });
    walk("at the right", [](const QRect &r) { return QPoint(r.right() + 1, r.center().y()); });
    walk("farther", [](const QRect &r) { return QPoint(r.right() + 2, r.center().y()); });
    walk("at the bottom", [](const QRect &r) { return QPoint(r.center().x(), r.bottom() + 1); });
    walk("at a corner", [](const QRect &r) { return r.bottomRight() + QPoint(1, 1); });
}

} // namespace Velmora::Figura::Test
