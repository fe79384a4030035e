#include "subject.h"

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>

namespace Velmora::Figura::Test {
namespace {

template<class Line>
auto zigzag(const PixelStage &stage)
{
    using Points = decltype(std::declval<Line>().getLinePoints());
    Points points;
    for (const QPoint &pixel : {QPoint(30, 40), QPoint(95, 55), QPoint(50, 90), QPoint(105, 100)})
        points.append(stage.units(pixel.x(), pixel.y(), 1, 1).topLeft());
    return points;
}

template<class Line>
Line *onStage(Subject &subject)
{
    auto *line = new Line(&subject.stage.stage);
    line->setLineWidth(subject.lineWidth);
    line->setEnabledFGColor(QColor(90, 20, 120));
    subject.stage.stage.add(line);
    line->setLinePoints(zigzag<Line>(subject.stage));
    subject.figure = line;
    return line;
}

template<class Line>
void addPointSteps(Subject &subject, Line *line)
{
    PixelStage &stage = subject.stage;
    const auto at = [&stage](int x, int y) { return stage.units(x, y, 1, 1).topLeft(); };

    subject.then("moves a point", [=] { line->setPoint(at(120, 50), 1); });
    subject.then("moves it by one", [=] { line->setPoint(at(120, 50) + QPoint(1, 1), 1); });
    subject.then("has a new start", [=] { line->setStart(at(25, 20)); });
    subject.then("has a new end", [=] { line->setEnd(at(60, 120)); });
    subject.then("has one more point", [=] { line->addPoint(at(80, 125)); });
    subject.then("has one more inside", [=] { line->insertPoint(at(150, 70), 2); });
    subject.then("has one less", [=] { line->removePoint(2); });
    subject.then("is one segment", [=] { line->setLinePoints({at(40, 40), at(90, 77)}); });
    subject.then("is steep", [=] { line->setLinePoints({at(40, 40), at(40, 90)}); });
    subject.then("has all its points", [=, &stage] { line->setLinePoints(zigzag<Line>(stage)); });
    subject.then("has no points", [=] { line->removeAllPoints(); });
    subject.then("has them again", [=, &stage] { line->setLinePoints(zigzag<Line>(stage)); });
}

template<class Line>
void addPenSteps(Subject &subject, Line *line)
{
    const int width = subject.lineWidth;
    subject.then("has a wide pen", [=] { line->setLineWidth(width + 6); });
    subject.then("has a thin pen", [=] { line->setLineWidth(1); });
    subject.then("has dashes", [=] { line->setLineStyle(Qt::DashDotLine); });
    subject.then("has its pen", [=] { line->setLineWidth(width); });
    subject.then("is filled", [=] { line->setFill(true); });
}

template<class Line>
void buildLine(Subject &subject)
{
    Line *line = onStage<Line>(subject);
    addPenSteps(subject, line);
    addPointSteps(subject, line);
    addFigureSteps(subject);
    addProbeSteps(subject);
}

// The layout lets the child stick out of the line's bounds, wherever that goes.
void buildLineWithChild(Subject &subject)
{
    PixelStage &stage = subject.stage;
    auto *line = onStage<Polyline>(subject);
    line->setLayoutManager(new DelegatingLayout(line));
    auto *child = new Rectangle(line);
    child->setLineWidth(subject.lineWidth);
    line->add(child);
    const auto put = [=, &stage](int x, int y) { child->setBounds(stage.units(x, y, 40, 25)); };

    subject.then("child comes", [=] { put(60, 60); });
    subject.then("child sticks out", [=] { put(85, 95); });
    subject.then("child moves outside", [=] { put(90, 99); });
    subject.then("line shrinks",
                 [=, &stage] { line->setPoint(stage.units(50, 60, 1, 1).topLeft(), 3); });
    subject.then("child changes", [=] { child->setLineWidth(3); });
    subject.then("child hides", [=] { child->setVisible(false); });
    subject.then("child shows", [=] { child->setVisible(true); });
    addFigureSteps(subject);
    addProbeSteps(subject);
    subject.then("child leaves", [=] { put(150, 120); });
}

} // namespace

QList<Kind> polylineKinds()
{
    return {{"polyline", buildLine<Polyline>},
            {"floating polyline", buildLine<PolylineF>},
            {"polygon", buildLine<Polygon>},
            {"polyline with a child", buildLineWithChild}};
}

} // namespace Velmora::Figura::Test
