#include "subject.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/MidpointLocator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/TextFigure.h>

namespace Velmora::Figura::Test {
namespace {

Rectangle *addNode(Subject &subject, int x, int y)
{
    PixelStage &stage = subject.stage;
    auto *node = new Rectangle(&stage.ground);
    node->setEnabledBGColor(QColor(255, 255, 200));
    stage.ground.add(node, stage.units(x, y, 35, 25));
    return node;
}

QVariant constraint(QObject *locator)
{
    return QVariant::fromValue(locator);
}

TextFigure *addLabels(Subject &subject, Figure *line, IConnection *connection)
{
    auto *middle = new TextFigure(QStringLiteral("fly"), line, QColor(255, 255, 255));
    QFont font;
    font.setPixelSize(subject.stage.units(11) + 3);
    middle->setFont(font);
    line->add(middle, constraint(new MidpointLocator(connection, 0, middle)));
    auto *end = new TextFigure(QStringLiteral("0..n"), line, Qt::transparent);
    end->setFont(font);
    line->add(end, constraint(new ConnectionEndpointLocator(connection, true, end)));
    return middle;
}

template<class Connection>
Connection *connect(Subject &subject, Figure *source, Figure *target)
{
    auto *line = new Connection(&subject.stage.stage);
    line->setLineWidth(subject.lineWidth);
    line->setEnabledFGColor(QColor(0, 60, 140));
    line->setSourceAnchor(new ChopboxAnchor(source, source));
    line->setTargetAnchor(new ChopboxAnchor(target, target));
    subject.stage.stage.add(line);
    subject.figure = line;
    return line;
}

template<class Head, class Connection>
Head *makeHead(const Subject &subject, Connection *line)
{
    auto *head = new Head(line);
    const int size = subject.stage.units(4);
    head->setScale(size, size);
    head->setLineWidth(subject.lineWidth);
    return head;
}

void addMoves(Subject &subject, Figure *node)
{
    PixelStage &stage = subject.stage;
    const QRect first = node->getBounds();
    const auto to = [=, &stage](int x, int y) {
        node->setBounds(first.translated(stage.units(x, y, 1, 1).topLeft()));
    };
    subject.then("node moves by a unit", [=] { node->setBounds(first.translated(1, 0)); });
    subject.then("node moves down", [=] { to(0, 60); });
    subject.then("node moves beside", [=] { to(-70, 50); });
    subject.then("node returns", [=] { to(0, 0); });
    subject.then("node grows", [=] { node->setBounds(first.adjusted(-3, -3, 5, 5)); });
}

template<class Connection>
void addEndSteps(Subject &subject, Connection *line)
{
    subject.then("gets an arrow", [=, &subject] {
        line->setTargetDecoration(makeHead<PolygonDecoration>(subject, line));
    });
    subject.then("gets a forked tail", [=, &subject] {
        line->setSourceDecoration(makeHead<PolylineDecoration>(subject, line));
    });
    subject.then("gets another arrow", [=, &subject] {
        line->setTargetDecoration(makeHead<PolylineDecoration>(subject, line));
    });
}

template<class Connection>
void buildConnection(Subject &subject)
{
    Rectangle *source = addNode(subject, 15, 20);
    Rectangle *target = addNode(subject, 140, 50);
    auto *line = connect<Connection>(subject, source, target);
    TextFigure *label = addLabels(subject, line, line);

    addEndSteps(subject, line);
    addMoves(subject, target);
    subject.then("has a longer label", [=] { label->setText(QStringLiteral("butterfly")); });
    subject.then("has a coloured label", [=] { label->setBackgroundColor(Qt::cyan); });
    subject.then("label is moved away", [=, &subject] {
        label->setBounds(label->getBounds().translated(0, subject.stage.units(45)));
    });
    subject.then("moved label changes", [=] { label->setTextColor(Qt::red); });
    addProbeSteps(subject);
    subject.then("has a wide pen", [=] { line->setLineWidth(line->getLineWidth() + 5); });
    addMoves(subject, source);
    subject.then("has a thin pen", [=] { line->setLineWidth(1); });
    addFigureSteps(subject);
}

void buildRouted(Subject &subject)
{
    Rectangle *source = addNode(subject, 15, 20);
    Rectangle *target = addNode(subject, 140, 70);
    auto *line = connect<PolylineConnection>(subject, source, target);
    line->setConnectionRouter(new ManhattanConnectionRouter(line));
    line->setTargetDecoration(makeHead<PolygonDecoration>(subject, line));
    auto *label = new LabelFigure(QStringLiteral("f"), QPixmap(), Qt::Horizontal, line, Qt::white);
    line->add(label, constraint(new MidpointLocator(line, 1, label)));

    addMoves(subject, target);
    addMoves(subject, source);
    subject.then("has no router", [=] { line->setConnectionRouter(nullptr); });
    addProbeSteps(subject);
}

} // namespace

QList<Kind> connectionKinds()
{
    return {{"connection", buildConnection<PolylineConnection>},
            {"floating connection", buildConnection<PolylineFConnection>},
            {"routed connection", buildRouted}};
}

} // namespace Velmora::Figura::Test
