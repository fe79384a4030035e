#include "diagram_fixtures.h"

#include <figura/connection/NullRouter.h>

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Routing = Diagram::Routing;
using Arrow = Diagram::Arrow;
using End = Diagram::End;

namespace {

// Two boxes side by side, 100 apart.
class Pair
{
public:
    Diagram diagram;
    Rectangle *left = diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    Rectangle *right = diagram.add(painted<Rectangle>(), QRect(140, 0, 40, 40));

    QList<QPoint> pointsOf(PolylineConnection *connection)
    {
        diagram.validate();
        return connection->getPoints();
    }
};

bool isRightAngled(const QList<QPoint> &points)
{
    for (qsizetype i = 1; i < points.size(); ++i) {
        const QPoint step = points.at(i) - points.at(i - 1);
        if (step.x() != 0 && step.y() != 0)
            return false;
    }
    return true;
}

} // namespace

class tst_DiagramConnections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void anchorFitsTheOutline_data();
    void anchorFitsTheOutline();
    void eachEndHasAnAnchorOfItsOwn();
    void connectionIsRoutedAtOnce();
    void connectionFollowsItsFigures_data();
    void connectionFollowsItsFigures();
    void connectionIsPainted_data();
    void connectionIsPainted();
    void connectionsLieAboveTheFigures();
    void strangersAreNotConnected();
    void ownConnectionIsTaken();
    void objectsCanStillBeConnected();
    void routingDecidesTheWay();
    void bendpointsOutliveChangesOfRouting();
    void bendpointsOutliveAChangeOfOrder();
    void loopLeadsRoundACorner_data();
    void loopLeadsRoundACorner();
    void reconnectedEndMoves();
    void reconnectingMakesNoLoopForever();
    void reroutingForgetsTheHistory();
    void connectionsAreListed();
    void signalsTellOfConnections();
    void removedFigureTakesItsConnectionsAlong();
    void removedContainerTakesInnerConnectionsAlong();
    void clearRemovesEverything();
    void arrowsAreSetAndTakenAway();
    void arrowsFollowTheLine();
    void labelStaysAtTheMiddle();
    void labelIsReplacedAndTakenAway();
    void connectionsAreFound();
    void strangersAreRefused();
};

void tst_DiagramConnections::anchorFitsTheOutline_data()
{
    QTest::addColumn<Figure *>("figure");
    QTest::addColumn<QByteArray>("anchor");
    const auto row = [](const char *name, Figure *figure, const char *anchor) {
        QTest::newRow(name) << figure << QByteArray("Velmora::Figura::") + anchor;
    };
    row("rectangle", new Rectangle, "ChopboxAnchor");
    row("rounded rectangle", new RoundedRectangle, "OutlineAnchor");
    row("ellipse", new Ellipse, "EllipseAnchor");
    row("polygon", diamond(), "OutlineAnchor");
    row("text", new TextFigure(QStringLiteral("x")), "ChopboxAnchor");
    row("picture", new PixmapFigure(QPixmap(10, 10)), "ChopboxAnchor");
    row("plain", new Figure(nullptr, Qt::red), "ChopboxAnchor");
}

void tst_DiagramConnections::anchorFitsTheOutline()
{
    QFETCH(Figure *, figure);
    QFETCH(QByteArray, anchor);
    Pair pair;
    pair.diagram.add(figure, QRect(300, 200, 40, 40));

    PolylineConnection *connection = pair.diagram.connect(pair.left, figure);

    auto *made = dynamic_cast<QObject *>(connection->getTargetAnchor());
    QCOMPARE(QByteArray(made->metaObject()->className()), anchor);
    QCOMPARE(connection->getTargetAnchor()->getOwner(), figure);
}

void tst_DiagramConnections::eachEndHasAnAnchorOfItsOwn()
{
    Pair pair;
    QSet<IConnectionAnchor *> anchors;

    for (int i = 0; i < 3; ++i) {
        PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);
        anchors << connection->getSourceAnchor() << connection->getTargetAnchor();
    }

    QCOMPARE(anchors.size(), 6);
}

void tst_DiagramConnections::connectionIsRoutedAtOnce()
{
    Pair pair;

    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);

    QCOMPARE(connection->getPoints(), QList<QPoint>({QPoint(40, 19), QPoint(139, 19)}));
}

void tst_DiagramConnections::connectionFollowsItsFigures_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("moved through the diagram") << 0;
    QTest::newRow("moved by itself") << 1;
    QTest::newRow("another connection removed before") << 2;
    QTest::newRow("order changed before") << 3;
}

void tst_DiagramConnections::connectionFollowsItsFigures()
{
    QFETCH(int, way);
    Pair pair;
    PolylineConnection *other = pair.diagram.connect(pair.left, pair.right);
    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);
    if (way == 2)
        pair.diagram.remove(other);
    if (way == 3)
        pair.diagram.setIndex(pair.right, 0);

    if (way == 1)
        pair.right->setBounds(QRect(140, 100, 40, 40));
    else
        pair.diagram.setBounds(pair.right, QRect(140, 100, 40, 40));

    const QList<QPoint> points = pair.pointsOf(connection);
    QVERIFY(pair.right->getBounds().adjusted(-2, -2, 2, 2).contains(points.constLast()));
    QVERIFY(points.constLast().y() >= 99);
}

void tst_DiagramConnections::connectionIsPainted_data()
{
    QTest::addColumn<bool>("shown");
    QTest::newRow("not shown") << false;
    QTest::newRow("shown") << true;
}

void tst_DiagramConnections::connectionIsPainted()
{
    QFETCH(bool, shown);
    Pair pair;
    pair.diagram.setAntialiased(false);
    DiagramView view;
    if (shown) {
        view.setDiagram(&pair.diagram);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
    }

    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);
    connection->setEnabledFGColor(Qt::red);

    QCOMPARE(colorAt(picture(pair.diagram), 90, 19), QColor(Qt::red));
    if (!shown)
        return;
    QCoreApplication::processEvents();
    const QPoint middle = view.fromContent(QPoint(90, 19));
    QCOMPARE(colorAt(view.viewport()->grab().toImage(), middle.x(), middle.y()), QColor(Qt::red));
}

void tst_DiagramConnections::connectionsLieAboveTheFigures()
{
    Pair pair;
    pair.diagram.setAntialiased(false);
    pair.diagram.connect(pair.left, pair.right)->setEnabledFGColor(Qt::red);

    pair.diagram.add(painted<Rectangle>(Qt::blue), QRect(70, 0, 40, 40));

    QCOMPARE(colorAt(picture(pair.diagram), 90, 19), QColor(Qt::red));
    QCOMPARE(colorAt(picture(pair.diagram), 90, 30), QColor(Qt::blue));
}

void tst_DiagramConnections::strangersAreNotConnected()
{
    Pair pair;
    Rectangle stranger;
    Diagram other;
    auto *foreign = other.add(new Rectangle, QRect(0, 0, 10, 10));

    QCOMPARE(pair.diagram.connect(pair.left, nullptr), nullptr);
    QCOMPARE(pair.diagram.connect(nullptr, pair.left), nullptr);
    QCOMPARE(pair.diagram.connect(pair.left, &stranger), nullptr);
    QCOMPARE(pair.diagram.connect(foreign, pair.left), nullptr);
    QCOMPARE(pair.diagram.connect(pair.diagram.getFigureLayer(), pair.left), nullptr);
    QVERIFY(pair.diagram.getConnections().isEmpty());
}

void tst_DiagramConnections::ownConnectionIsTaken()
{
    Pair pair;
    auto *own = new PolylineConnection;

    QVERIFY(pair.diagram.add(own, pair.left, pair.right, Routing::Manhattan));
    QVERIFY(!pair.diagram.add(own, pair.left, pair.right));
    QVERIFY(!pair.diagram.add(static_cast<PolylineConnection *>(nullptr), pair.left, pair.right));

    QCOMPARE(own->parent(), pair.diagram.getConnectionLayer());
    QCOMPARE(pair.diagram.getRouting(own), Routing::Manhattan);
    QCOMPARE(own->getPoint(0), QPoint(40, 19));
}

void tst_DiagramConnections::objectsCanStillBeConnected()
{
    Pair pair;
    int calls = 0;

    pair.diagram.connect(&pair.diagram, &Diagram::figureMoved, &pair.diagram, [&] { ++calls; });
    pair.left->setBounds(QRect(0, 0, 50, 50));

    QCOMPARE(calls, 1);
}

void tst_DiagramConnections::routingDecidesTheWay()
{
    Pair pair;
    pair.diagram.setBounds(pair.right, QRect(140, 90, 40, 40));
    PolylineConnection *connection =
        pair.diagram.connect(pair.left, pair.right, Routing::Manhattan);
    QVERIFY(isRightAngled(pair.pointsOf(connection)));
    QVERIFY(connection->getPointCount() > 2);

    QVERIFY(pair.diagram.setRouting(connection, Routing::Bendpoints));
    QVERIFY(pair.diagram.setBendpoints(connection, {QPoint(20, 200), QPoint(160, 200)}));
    QCOMPARE(pair.pointsOf(connection).mid(1, 2),
             QList<QPoint>({QPoint(20, 200), QPoint(160, 200)}));

    QVERIFY(pair.diagram.setRouting(connection, Routing::Straight));
    QCOMPARE(pair.pointsOf(connection).size(), 2);
    QCOMPARE(connection->getConnectionRouter(), NullRouter::instance());
}

void tst_DiagramConnections::bendpointsOutliveChangesOfRouting()
{
    Pair pair;
    PolylineConnection *connection =
        pair.diagram.connect(pair.left, pair.right, Routing::Bendpoints);
    const QList<QPoint> bends{QPoint(20, 200), QPoint(160, 200)};
    pair.diagram.setBendpoints(connection, bends);

    pair.diagram.setRouting(connection, Routing::Manhattan);
    QCOMPARE(pair.diagram.getBendpoints(connection), bends);
    pair.diagram.setRouting(connection, Routing::Bendpoints);
    QCOMPARE(pair.pointsOf(connection).size(), 4);
    pair.diagram.setBendpoints(connection, {});
    QCOMPARE(pair.pointsOf(connection).size(), 2);
}

void tst_DiagramConnections::bendpointsOutliveAChangeOfOrder()
{
    Pair pair;
    PolylineConnection *connection =
        pair.diagram.connect(pair.left, pair.right, Routing::Bendpoints);
    PolylineConnection *upper = pair.diagram.connect(pair.left, pair.right);
    pair.diagram.setBendpoints(connection, {QPoint(20, 200)});

    QVERIFY(pair.diagram.setIndex(connection, -1));

    QCOMPARE(pair.diagram.getConnections(), QList<PolylineConnection *>({upper, connection}));
    QCOMPARE(pair.pointsOf(connection).size(), 3);
    pair.left->setBounds(QRect(0, 50, 40, 40));
    QVERIFY(pair.pointsOf(connection).constFirst().y() > 80);
}

void tst_DiagramConnections::loopLeadsRoundACorner_data()
{
    QTest::addColumn<Routing>("routing");
    QTest::newRow("straight") << Routing::Straight;
    QTest::newRow("bendpoints") << Routing::Bendpoints;
    QTest::newRow("Manhattan") << Routing::Manhattan;
}

void tst_DiagramConnections::loopLeadsRoundACorner()
{
    QFETCH(Routing, routing);
    Pair pair;

    PolylineConnection *loop = pair.diagram.connect(pair.left, pair.left, routing);

    QVERIFY(loop);
    const QRect area = loop->getBounds();
    QVERIFY(area.right() > pair.left->getBounds().right() + 10);
    QVERIFY(area.top() < pair.left->getBounds().top() - 10);
    QCOMPARE(pair.diagram.getConnections(pair.left).size(), 1);
    pair.left->setBounds(QRect(0, 100, 40, 40));
    pair.diagram.validate();
    QCOMPARE(loop->getBounds(), area.translated(0, 100));
}

void tst_DiagramConnections::reconnectedEndMoves()
{
    Pair pair;
    auto *third = pair.diagram.add(painted<Ellipse>(), QRect(140, 200, 40, 40));
    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);
    pair.diagram.setArrow(connection, End::Target, Arrow::Filled);
    pair.diagram.setLabel(connection, QStringLiteral("name"));

    QVERIFY(pair.diagram.reconnect(connection, pair.left, third));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QCOMPARE(pair.diagram.getTarget(connection), third);
    QCOMPARE(pair.diagram.getConnections(pair.right).size(), 0);
    QCOMPARE(pair.diagram.getConnections(third).size(), 1);
    QVERIFY(pair.pointsOf(connection).constLast().y() > 190);
    QCOMPARE(pair.diagram.getArrow(connection, End::Target), Arrow::Filled);
    QVERIFY(pair.diagram.getLabel(connection));
    third->setBounds(QRect(140, 300, 40, 40));
    QVERIFY(pair.pointsOf(connection).constLast().y() > 290);
}

void tst_DiagramConnections::reconnectingMakesNoLoopForever()
{
    Pair pair;
    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);

    pair.diagram.reconnect(connection, pair.left, pair.left);
    QVERIFY(pair.pointsOf(connection).size() > 2);
    pair.diagram.reconnect(connection, pair.left, pair.right);

    QCOMPARE(pair.pointsOf(connection).size(), 2);
}

// The router gives each line to the first who asks, and moves make others the first.
void tst_DiagramConnections::reroutingForgetsTheHistory()
{
    Pair pair;
    auto *low = pair.diagram.add(painted<Rectangle>(), QRect(140, 100, 40, 40));
    QList<PolylineConnection *> connections;
    for (int i = 0; i < 4; ++i)
        connections << pair.diagram.connect(pair.left, low, Routing::Manhattan);
    const auto routes = [&] {
        QList<QList<QPoint>> all;
        for (PolylineConnection *connection : connections)
            all << connection->getPoints();
        return all;
    };
    pair.diagram.reroute();
    const QList<QList<QPoint>> before = routes();

    pair.diagram.setRouting(connections.at(0), Routing::Straight);
    pair.diagram.validate();
    low->setBounds(QRect(140, 200, 40, 40));
    pair.diagram.validate();
    low->setBounds(QRect(140, 100, 40, 40));
    pair.diagram.validate();
    pair.diagram.setRouting(connections.at(0), Routing::Manhattan);
    pair.diagram.validate();
    QVERIFY(routes() != before);
    pair.diagram.reroute();

    QCOMPARE(routes(), before);
}

void tst_DiagramConnections::connectionsAreListed()
{
    Pair pair;
    PolylineConnection *there = pair.diagram.connect(pair.left, pair.right);
    PolylineConnection *back = pair.diagram.connect(pair.right, pair.left);
    PolylineConnection *loop = pair.diagram.connect(pair.left, pair.left);

    QCOMPARE(pair.diagram.getConnections(), QList<PolylineConnection *>({there, back, loop}));
    QCOMPARE(pair.diagram.getConnections(pair.left),
             QList<PolylineConnection *>({there, back, loop}));
    QCOMPARE(pair.diagram.getConnections(pair.right), QList<PolylineConnection *>({there, back}));
    QCOMPARE(pair.diagram.getSource(back), pair.right);
    QCOMPARE(pair.diagram.getTarget(back), pair.left);
}

void tst_DiagramConnections::signalsTellOfConnections()
{
    Pair pair;
    const QSignalSpy added(&pair.diagram, &Diagram::connectionAdded);
    const QSignalSpy removed(&pair.diagram, &Diagram::connectionRemoved);

    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.at(0).at(0).value<PolylineConnection *>(), connection);
    QVERIFY(pair.diagram.contains(connection));
    QVERIFY(pair.diagram.remove(connection));
    QCOMPARE(removed.count(), 1);
    QVERIFY(!pair.diagram.contains(connection));
    QVERIFY(!pair.diagram.remove(connection));
}

void tst_DiagramConnections::removedFigureTakesItsConnectionsAlong()
{
    Pair pair;
    auto *third = pair.diagram.add(new Rectangle, QRect(0, 200, 40, 40));
    const QPointer<PolylineConnection> to = pair.diagram.connect(third, pair.left);
    const QPointer<PolylineConnection> from = pair.diagram.connect(pair.left, pair.right);
    PolylineConnection *stays = pair.diagram.connect(third, pair.right);
    const QSignalSpy removed(&pair.diagram, &Diagram::connectionRemoved);

    pair.diagram.remove(pair.left);
    QCOMPARE(pair.diagram.getConnections(), QList<PolylineConnection *>({stays}));
    QCOMPARE(removed.count(), 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(to.isNull());
    QVERIFY(from.isNull());
    QCOMPARE(pair.pointsOf(stays).size(), 2);
}

void tst_DiagramConnections::removedContainerTakesInnerConnectionsAlong()
{
    Pair pair;
    auto *lane = painted<Rectangle>();
    lane->setLayoutManager(new XYLayout(lane));
    auto *inner = new Rectangle(lane);
    lane->add(inner, QRect(10, 10, 30, 30));
    pair.diagram.add(lane, QRect(0, 200, 100, 100));
    PolylineConnection *connection = pair.diagram.connect(pair.left, inner);
    QVERIFY(connection);
    QVERIFY(QRect(9, 209, 32, 32).contains(connection->getPoints().constLast()));

    lane->setBounds(QRect(50, 200, 100, 100));
    QVERIFY(QRect(59, 209, 32, 32).contains(pair.pointsOf(connection).constLast()));
    pair.diagram.remove(lane);

    QVERIFY(pair.diagram.getConnections().isEmpty());
}

void tst_DiagramConnections::clearRemovesEverything()
{
    Pair pair;
    pair.diagram.connect(pair.left, pair.right);
    const QSignalSpy figures(&pair.diagram, &Diagram::figureRemoved);
    const QSignalSpy connections(&pair.diagram, &Diagram::connectionRemoved);
    auto *handle = new Rectangle(&pair.diagram);
    pair.diagram.getFeedbackLayer()->add(handle, QRect(0, 0, 5, 5));

    pair.diagram.clear();

    QVERIFY(pair.diagram.getFigures().isEmpty());
    QVERIFY(pair.diagram.getConnections().isEmpty());
    QCOMPARE(figures.count(), 2);
    QCOMPARE(connections.count(), 1);
    QCOMPARE(pair.diagram.getFeedbackLayer()->childFigureCount(), 1);
    QVERIFY(!pair.diagram.getExtent().isValid());
}

void tst_DiagramConnections::arrowsAreSetAndTakenAway()
{
    Pair pair;
    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);
    QCOMPARE(pair.diagram.getArrow(connection, End::Target), Arrow::None);

    QVERIFY(pair.diagram.setArrow(connection, End::Target, Arrow::Filled));
    QVERIFY(pair.diagram.setArrow(connection, End::Source, Arrow::Open));
    pair.diagram.validate();
    QCOMPARE(pair.diagram.getArrow(connection, End::Target), Arrow::Filled);
    QCOMPARE(pair.diagram.getArrow(connection, End::Source), Arrow::Open);
    QCOMPARE(connection->childFigureCount(), 2);

    QVERIFY(pair.diagram.setArrow(connection, End::Target, Arrow::Open));
    QCOMPARE(connection->childFigureCount(), 2);
    QVERIFY(pair.diagram.setArrow(connection, End::Target, Arrow::None));
    QVERIFY(pair.diagram.setArrow(connection, End::Source, Arrow::None));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    pair.diagram.validate();
    QCOMPARE(connection->childFigureCount(), 0);
    QCOMPARE(pair.diagram.getArrow(connection, End::Target), Arrow::None);
}

void tst_DiagramConnections::arrowsFollowTheLine()
{
    Pair pair;
    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);
    connection->setEnabledFGColor(Qt::red);
    connection->setLineWidth(3);

    pair.diagram.setArrow(connection, End::Target, Arrow::Filled);
    pair.right->setBounds(QRect(140, 200, 40, 40));
    pair.diagram.validate();

    auto *head = qobject_cast<Shape *>(connection->childFigures().constFirst());
    QCOMPARE(head->getEnabledFGColor(), QColor(Qt::red));
    QCOMPARE(head->getEnabledBGColor(), QColor(Qt::red));
    QCOMPARE(head->getLineWidth(), 3);
    QVERIFY(head->getBounds().adjusted(-2, -2, 2, 2).contains(connection->getPoints().constLast()));
}

void tst_DiagramConnections::labelStaysAtTheMiddle()
{
    Pair pair;
    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);

    TextFigure *label = pair.diagram.setLabel(connection, QStringLiteral("name"));
    pair.diagram.validate();
    QVERIFY((label->getBounds().center() - QPoint(90, 19)).manhattanLength() <= 3);
    pair.right->setBounds(QRect(140, 200, 40, 40));
    pair.diagram.validate();
    QVERIFY((label->getBounds().center() - QPoint(90, 119)).manhattanLength() <= 3);
    label->setText(QStringLiteral("a longer name"));
    pair.diagram.validate();

    QVERIFY((label->getBounds().center() - QPoint(90, 119)).manhattanLength() <= 3);
    QCOMPARE(label->getBounds().size(), label->getPreferredSize());
}

void tst_DiagramConnections::labelIsReplacedAndTakenAway()
{
    Pair pair;
    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);
    TextFigure *label = pair.diagram.setLabel(connection, QStringLiteral("one"));

    QCOMPARE(pair.diagram.setLabel(connection, QStringLiteral("two")), label);
    QCOMPARE(pair.diagram.getLabel(connection)->getText(), QStringLiteral("two"));
    QCOMPARE(pair.diagram.setLabel(connection, QString()), nullptr);
    QCOMPARE(pair.diagram.getLabel(connection), nullptr);
    QCOMPARE(connection->childFigureCount(), 0);
}

void tst_DiagramConnections::connectionsAreFound()
{
    Pair pair;
    PolylineConnection *connection = pair.diagram.connect(pair.left, pair.right);

    QCOMPARE(pair.diagram.findConnectionAt(QPoint(90, 22)), connection);
    QCOMPARE(pair.diagram.findConnectionAt(QPoint(90, 60)), nullptr);
    connection->setVisible(false);
    QCOMPARE(pair.diagram.findConnectionAt(QPoint(90, 22)), nullptr);
}

void tst_DiagramConnections::strangersAreRefused()
{
    Pair pair;
    PolylineConnection stranger;

    QVERIFY(!pair.diagram.reconnect(&stranger, pair.left, pair.right));
    QVERIFY(!pair.diagram.setRouting(&stranger, Routing::Manhattan));
    QVERIFY(!pair.diagram.setBendpoints(&stranger, {QPoint(1, 1)}));
    QVERIFY(!pair.diagram.setArrow(&stranger, End::Source, Arrow::Open));
    QCOMPARE(pair.diagram.setLabel(&stranger, QStringLiteral("x")), nullptr);
    QCOMPARE(pair.diagram.getLabel(&stranger), nullptr);
    QCOMPARE(pair.diagram.getSource(&stranger), nullptr);
    QCOMPARE(pair.diagram.getTarget(&stranger), nullptr);
    QVERIFY(pair.diagram.getBendpoints(&stranger).isEmpty());
    QCOMPARE(pair.diagram.getArrow(&stranger, End::Source), Arrow::None);
    QVERIFY(!pair.diagram.remove(&stranger));
}

QTEST_MAIN(tst_DiagramConnections)
#include "tst_diagram_connections.moc"
