#include "manhattan_fixtures.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/NullRouter.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/XYAnchor.h>

#include <place.h>
#include <rootfigure.h>

#include <QMetaMethod>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;
using Lines = QList<int>;

namespace {

const QPoint UP(0, -1);
const QPoint DOWN(0, 1);
const QPoint LEFT(-1, 0);
const QPoint RIGHT(1, 0);

QPoint toPoint(const Ray &ray)
{
    return QPoint(ray.x(), ray.y());
}

// A connection between two fixed points.
class Wire
{
public:
    explicit Wire(const QPoint &start = QPoint(100, 25), const QPoint &end = QPoint(200, 65))
        : m_source(start)
        , m_target(end)
    {
        connection.setSourceAnchor(&m_source);
        connection.setTargetAnchor(&m_target);
    }

    operator IConnection *() { return &connection; }

private:
    XYAnchor m_source;
    XYAnchor m_target;

public:
    PolylineConnection connection; // dies before its anchors
};

// A connection from the right side of one box to the left side of another, in a displayed tree.
// Its vertical segment wants column 150 and its horizontal segments are fixed.
class BoxWire
{
public:
    explicit BoxWire(Figure &root)
        : m_source(&m_left)
        , m_target(&m_right)
    {
        root.add(&m_left);
        root.add(&m_right);
        root.add(&connection);
        m_left.setBounds(QRect(1, 1, 100, 50));
        m_right.setBounds(QRect(200, 41, 100, 50));
        connection.setSourceAnchor(&m_source);
        connection.setTargetAnchor(&m_target);
    }

    operator IConnection *() { return &connection; }
    void moveTarget(int dx) { m_right.setBounds(m_right.getBounds().translated(dx, 0)); }

private:
    Figure m_left;
    Figure m_right;
    ChopboxAnchor m_source;
    ChopboxAnchor m_target;

public:
    PolylineConnection connection;
};

class Displayed : public RootFigure
{
public:
    Displayed()
        : RootFigure(nullptr)
    {
        setLayoutManager(new XYLayout(this));
        setBounds(QRect(0, 0, 1000, 1000));
    }
};

// Leaves and enters as it is told, whatever lies there.
class DirectedRouter : public OpenRouter
{
public:
    DirectedRouter(const QPoint &out, const QPoint &in)
        : m_out(out)
        , m_in(in)
    {
    }

    Ray getStartDirection(IConnection *) override { return Ray(m_out); }
    Ray getEndDirection(IConnection *) override { return Ray(m_in); }

private:
    QPoint m_out;
    QPoint m_in;
};

// Writes down what it is asked about directions, and answers as it is told.
class AskedRouter : public OpenRouter
{
public:
    struct Question
    {
        QRect box;
        QPoint point;
        bool reversed;
    };

    QList<Question> questions;
    QPoint answer{0, -1};

    Ray getDirection(const QRect &box, const QPoint &point, bool reversed) override
    {
        questions.append({box, point, reversed});
        return Ray(answer);
    }
};

// Decides by itself which lines are usable, and writes down who asks for them.
class PickyRouter : public OpenRouter
{
public:
    int step = 2; // lines that are no multiple of it are refused
    mutable Lines askedColumns;
    mutable Lines askedRows;
    mutable QList<IConnection *> asking;

    bool colUsable(IConnection *connection, int column) const override
    {
        askedColumns.append(column);
        asking.append(connection);
        return column % step == 0;
    }

    bool rowUsable(IConnection *connection, int row) const override
    {
        askedRows.append(row);
        asking.append(connection);
        return row % step == 0;
    }
};

// The one inner segment of three, searched near a line between two others.
int columnNear(OpenRouter &router, IConnection *connection, int wanted, int before, int after)
{
    const Points points = router.processPositions(Ray(before, -7), Ray(after, -9), {-7, wanted, -9},
                                                  true, connection);
    return points.at(1).x();
}

int rowNear(OpenRouter &router, IConnection *connection, int wanted, int before, int after)
{
    const Points points = router.processPositions(Ray(-7, before), Ray(-9, after), {-7, wanted, -9},
                                                  false, connection);
    return points.at(1).y();
}

} // namespace

class tst_ManhattanRouter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void constantsAreUnitRays();
    void answersToTheRouterInterface();
    void declaresNoMethodsOfItsOwn();
    void constructorPassesItsParentOn();
    void keepsNoConstraint();

    void directionIsOutOfTheNearestSide_data();
    void directionIsOutOfTheNearestSide();
    void startDirectionGoesByTheOwnersAbsoluteBox();
    void endDirectionGoesByTheOwnersAbsoluteBox();
    void endWithoutOwnerHasASmallBoxAroundIt();
    void endWithoutOwnerIsLeftDownwards();
    void ownerIsTakenByItsBoundsNotByTheChoppedBox();
    void overriddenDirectionIsUsed();

    void routeWithoutConnectionIsEmpty();
    void routeWithoutAnAnchorIsEmpty_data();
    void routeWithoutAnAnchorIsEmpty();
    void emptyRouteIsReportedAndLeavesThePoints();
    void routeTurnsAsTheDirectionsSay_data();
    void routeTurnsAsTheDirectionsSay();
    void routeRunsThroughTheMiddleColumnBetweenTwoBoxes();
    void routeIsInTheConnectionsOwnCoordinates();
    void directionsAreTakenInAbsoluteCoordinates();
    void floatingRouteHasTheSamePoints();
    void floatingConnectionGetsTheRoute();

    void pointsAlternateBetweenColumnsAndRows_data();
    void pointsAlternateBetweenColumnsAndRows();
    void movedLineBoundsTheSearchForTheFollowingOnes();
    void endIsNotAppendedTwice();
    void repeatedPointsInsideARouteAreKept();
    void firstAndLastLineAreNeitherMovedNorReserved();

    void lineIsSearchedNearTheWantedOne_data();
    void lineIsSearchedNearTheWantedOne();
    void neighboursMayComeInEitherOrder();
    void lineIsReservedOnlyWhenItWasFree_data();
    void lineIsReservedOnlyWhenItWasFree();

    void reservedLineIsUsableByNobody();
    void columnsAndRowsAreSeparate();
    void reservationBelongsToItsConnection();
    void nothingIsReservedForNoConnection();
    void searchForNoConnectionTakesALineButReservesNothing();
    void releaseFreesAllLinesOfOneConnection();
    void releaseOfAnUnknownConnectionIsIgnored();
    void lineReservedTwiceIsFreeAfterTheFirstRelease();
    void lineReservedAgainByTheSameConnectionIsFreedOnce();

    void secondConnectionBetweenTheSameBoxesTakesTheNextColumn();
    void sameConnectionRoutedAgainGetsItsColumnBack();
    void invalidatedConnectionReleasesItsLines();
    void removedConnectionReleasesItsLines();
    void movedFigureReleasesTheLinesOfItsConnection();
    void connectionThatLeavesTheTreeReleasesItsLines();
    void connectionThatGetsAnotherRouterReleasesItsLines();
    void destroyedConnectionReleasesItsLines();
    void connectionOutlivesTheRouterThatRoutedIt();
    void linesOfEarlierConnectionsStayTakenWithinOnePass();

    void overriddenUsabilityDecidesAboutColumns();
    void overriddenUsabilityDecidesAboutRows();
    void overriddenUsabilityCanRefuseEveryLine();
    void overriddenEndPointsAreUsed();
};

void tst_ManhattanRouter::constantsAreUnitRays()
{
    QCOMPARE(toPoint(ManhattanConnectionRouter::UP), QPoint(0, -1));
    QCOMPARE(toPoint(ManhattanConnectionRouter::DOWN), QPoint(0, 1));
    QCOMPARE(toPoint(ManhattanConnectionRouter::LEFT), QPoint(-1, 0));
    QCOMPARE(toPoint(ManhattanConnectionRouter::RIGHT), QPoint(1, 0));
}

void tst_ManhattanRouter::answersToTheRouterInterface()
{
    ManhattanConnectionRouter router;
    void *const expected = static_cast<IConnectionRouter *>(&router);

    QCOMPARE(router.qt_metacast("IConnectionRouter"), expected);
    QCOMPARE(router.qt_metacast("IConnectionRouter.Figura.Velmora.velmora.org"), expected);
}

void tst_ManhattanRouter::declaresNoMethodsOfItsOwn()
{
    const QMetaObject &meta = ManhattanConnectionRouter::staticMetaObject;

    QCOMPARE(meta.className(), "Velmora::Figura::ManhattanConnectionRouter");
    QCOMPARE(meta.superClass(), &AbstractRouter::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_ManhattanRouter::constructorPassesItsParentOn()
{
    QObject parent;
    const auto *router = new ManhattanConnectionRouter(&parent);

    QCOMPARE(router->parent(), &parent);
}

void tst_ManhattanRouter::keepsNoConstraint()
{
    ManhattanConnectionRouter router;
    Wire wire;

    router.setConstraint(wire, QVariant(17));

    QVERIFY(!router.getConstraint(wire).isValid());
}

void tst_ManhattanRouter::directionIsOutOfTheNearestSide_data()
{
    QTest::addColumn<QRect>("box");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QPoint>("direction");
    const QRect box(0, 0, 101, 51); // right edge 100, bottom edge 50
    QTest::newRow("left") << box << QPoint(3, 25) << LEFT;
    QTest::newRow("right") << box << QPoint(97, 25) << RIGHT;
    QTest::newRow("top") << box << QPoint(50, 3) << UP;
    QTest::newRow("bottom") << box << QPoint(50, 47) << DOWN;
    QTest::newRow("outside at the left") << box << QPoint(-20, 25) << LEFT;
    QTest::newRow("outside at the right") << box << QPoint(120, 25) << RIGHT;
    QTest::newRow("outside above") << box << QPoint(50, -20) << UP;
    QTest::newRow("outside below") << box << QPoint(50, 70) << DOWN;

    QTest::newRow("top wins over left") << box << QPoint(4, 4) << UP;
    QTest::newRow("top wins over right") << box << QPoint(96, 4) << UP;
    QTest::newRow("bottom wins over left") << box << QPoint(4, 46) << DOWN;
    QTest::newRow("bottom wins over right") << box << QPoint(96, 46) << DOWN;
    QTest::newRow("bottom wins over top") << box << QPoint(50, 25) << DOWN;
    QTest::newRow("left wins over right") << QRect(0, 0, 51, 1001) << QPoint(25, 500) << LEFT;
    QTest::newRow("right only when strictly nearer")
        << QRect(0, 0, 51, 1001) << QPoint(26, 500) << RIGHT;
    QTest::newRow("all sides alike") << QRect(0, 0, 11, 11) << QPoint(5, 5) << DOWN;

    QTest::newRow("right edge is the last column")
        << QRect(0, 0, 10, 1000) << QPoint(5, 300) << RIGHT;
    QTest::newRow("bottom edge is the last row") << QRect(0, 0, 1000, 11) << QPoint(300, 5) << DOWN;
    QTest::newRow("below zero") << QRect(-60, -40, 21, 11) << QPoint(-58, -35) << LEFT;
    QTest::newRow("distance counts, not the side of the corner") << box << QPoint(-10, -3) << UP;
}

void tst_ManhattanRouter::directionIsOutOfTheNearestSide()
{
    QFETCH(QRect, box);
    QFETCH(QPoint, point);
    QFETCH(QPoint, direction);
    ManhattanConnectionRouter router;

    QCOMPARE(toPoint(router.getDirection(box, point, false)), direction);
    QCOMPARE(toPoint(router.getDirection(box, point, true)), -direction);
}

void tst_ManhattanRouter::startDirectionGoesByTheOwnersAbsoluteBox()
{
    Place place(QPoint(300, 200));
    Figure figure;
    place.add(&figure);
    figure.setBounds(QRect(10, 10, 100, 50));
    ChopboxAnchor source(&figure);
    XYAnchor target(QPoint(900, 235));
    PolylineConnection connection;
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);
    AskedRouter router;

    const Ray direction = router.getStartDirection(&connection);

    QCOMPARE(router.questions.size(), 1);
    QCOMPARE(router.questions[0].box, QRect(310, 210, 100, 50));
    QCOMPARE(router.questions[0].point, router.getStartPoint(&connection));
    QCOMPARE(router.questions[0].point, source.getLocation(QPoint(900, 235)));
    QVERIFY(!router.questions[0].reversed);
    QCOMPARE(toPoint(direction), UP);
    QCOMPARE(toPoint(ManhattanConnectionRouter().getStartDirection(&connection)), RIGHT);
}

void tst_ManhattanRouter::endDirectionGoesByTheOwnersAbsoluteBox()
{
    Place place(QPoint(300, 200));
    Figure figure;
    place.add(&figure);
    figure.setBounds(QRect(10, 10, 100, 50));
    XYAnchor source(QPoint(10, 235));
    ChopboxAnchor target(&figure);
    PolylineConnection connection;
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);
    AskedRouter router;

    const Ray direction = router.getEndDirection(&connection);

    QCOMPARE(router.questions.size(), 1);
    QCOMPARE(router.questions[0].box, QRect(310, 210, 100, 50));
    QCOMPARE(router.questions[0].point, router.getEndPoint(&connection));
    QCOMPARE(router.questions[0].point, target.getLocation(QPoint(10, 235)));
    QVERIFY(!router.questions[0].reversed);
    QCOMPARE(toPoint(direction), UP);
    QCOMPARE(toPoint(ManhattanConnectionRouter().getEndDirection(&connection)), LEFT);
}

void tst_ManhattanRouter::endWithoutOwnerHasASmallBoxAroundIt()
{
    Wire wire(QPoint(40, 60), QPoint(-5, 0));
    AskedRouter router;

    router.getStartDirection(wire);
    router.getEndDirection(wire);

    QCOMPARE(router.questions.size(), 2);
    QCOMPARE(router.questions[0].box, QRect(39, 59, 2, 2));
    QCOMPARE(router.questions[0].point, QPoint(40, 60));
    QCOMPARE(router.questions[1].box, QRect(-6, -1, 2, 2));
    QCOMPARE(router.questions[1].point, QPoint(-5, 0));
    QVERIFY(!router.questions[1].reversed);
}

// Its bottom and its right side lie on the point, and the bottom wins.
void tst_ManhattanRouter::endWithoutOwnerIsLeftDownwards()
{
    Wire wire;
    ManhattanConnectionRouter router;

    QCOMPARE(toPoint(router.getStartDirection(wire)), DOWN);
    QCOMPARE(toPoint(router.getEndDirection(wire)), DOWN);
}

// Chopping counts one pixel more at the left and the top; the direction does not.
void tst_ManhattanRouter::ownerIsTakenByItsBoundsNotByTheChoppedBox()
{
    Figure figure;
    figure.setBounds(QRect(10, 10, 21, 21));
    ChopboxAnchor source(&figure);
    XYAnchor target(QPoint(-200, -200));
    PolylineConnection connection;
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);
    AskedRouter router;

    router.getStartDirection(&connection);

    QCOMPARE(router.questions[0].point, QPoint(9, 9));
    QCOMPARE(router.questions[0].box, QRect(10, 10, 21, 21));
}

void tst_ManhattanRouter::overriddenDirectionIsUsed()
{
    Wire wire(QPoint(100, 25), QPoint(300, 65));
    AskedRouter router;
    router.answer = RIGHT;

    const Points points = router.doRoute(wire);

    QCOMPARE(router.questions.size(), 2);
    QCOMPARE(points, (Points{{100, 25}, {110, 25}, {110, 65}, {300, 65}}));
}

void tst_ManhattanRouter::routeWithoutConnectionIsEmpty()
{
    ManhattanConnectionRouter router;

    QCOMPARE(router.doRoute(nullptr), Points());
    QCOMPARE(router.doRouteF(nullptr), QList<QPointF>());
    router.route(nullptr);
    router.routeF(nullptr);
}

void tst_ManhattanRouter::routeWithoutAnAnchorIsEmpty_data()
{
    QTest::addColumn<bool>("hasSource");
    QTest::addColumn<bool>("hasTarget");
    QTest::newRow("no source") << false << true;
    QTest::newRow("no target") << true << false;
    QTest::newRow("neither") << false << false;
}

void tst_ManhattanRouter::routeWithoutAnAnchorIsEmpty()
{
    QFETCH(bool, hasSource);
    QFETCH(bool, hasTarget);
    XYAnchor anchor(QPoint(10, 10));
    PolylineConnection connection;
    connection.setSourceAnchor(hasSource ? &anchor : nullptr);
    connection.setTargetAnchor(hasTarget ? &anchor : nullptr);
    ManhattanConnectionRouter router;

    QCOMPARE(router.doRoute(&connection), Points());
    QCOMPARE(router.doRouteF(&connection), QList<QPointF>());
}

void tst_ManhattanRouter::emptyRouteIsReportedAndLeavesThePoints()
{
    PolylineConnection connection;
    ManhattanConnectionRouter router;

    QTest::ignoreMessage(QtWarningMsg, "AbstractRouter::route(): invalid route");
    router.route(&connection);
    QTest::ignoreMessage(QtWarningMsg, "AbstractRouter::route(): invalid route");
    router.routeF(&connection);

    QCOMPARE(connection.getPoints(), (Points{{0, 0}, {100, 100}}));
}

void tst_ManhattanRouter::routeTurnsAsTheDirectionsSay_data()
{
    QTest::addColumn<QPoint>("out");
    QTest::addColumn<QPoint>("in");
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<Points>("points");

    // Towards each other.
    QTest::newRow("right to left, ahead") << RIGHT << LEFT << QPoint(100, 25) << QPoint(201, 65)
                                          << Points{{100, 25}, {150, 25}, {150, 65}, {201, 65}};
    QTest::newRow("left to right, ahead") << LEFT << RIGHT << QPoint(201, 65) << QPoint(100, 25)
                                          << Points{{201, 65}, {150, 65}, {150, 25}, {100, 25}};
    QTest::newRow("down to up, ahead") << DOWN << UP << QPoint(50, 100) << QPoint(90, 301)
                                       << Points{{50, 100}, {50, 200}, {90, 200}, {90, 301}};
    QTest::newRow("right to left, behind")
        << RIGHT << LEFT << QPoint(200, 20) << QPoint(101, 80)
        << Points{{200, 20}, {210, 20}, {210, 50}, {90, 50}, {90, 80}, {101, 80}};
    QTest::newRow("up to down, behind")
        << UP << DOWN << QPoint(20, 100) << QPoint(80, 200)
        << Points{{20, 100}, {20, 90}, {50, 90}, {50, 210}, {80, 210}, {80, 200}};
    QTest::newRow("beside counts as ahead") << RIGHT << LEFT << QPoint(100, 20) << QPoint(100, 80)
                                            << Points{{100, 20}, {100, 20}, {100, 80}};

    // Both the same way. Ahead, the stub is the one of the start, on purpose.
    QTest::newRow("right to right, ahead") << RIGHT << RIGHT << QPoint(100, 20) << QPoint(300, 80)
                                           << Points{{100, 20}, {110, 20}, {110, 80}, {300, 80}};
    QTest::newRow("right to right, behind") << RIGHT << RIGHT << QPoint(300, 20) << QPoint(100, 80)
                                            << Points{{300, 20}, {110, 20}, {110, 80}, {100, 80}};
    QTest::newRow("up to up, ahead") << UP << UP << QPoint(20, 300) << QPoint(80, 100)
                                     << Points{{20, 300}, {20, 290}, {80, 290}, {80, 100}};
    QTest::newRow("up to up, behind") << UP << UP << QPoint(20, 100) << QPoint(80, 300)
                                      << Points{{20, 100}, {20, 290}, {80, 290}, {80, 300}};
    QTest::newRow("down to down, beside") << DOWN << DOWN << QPoint(20, 100) << QPoint(80, 100)
                                          << Points{{20, 100}, {20, 110}, {80, 110}, {80, 100}};

    // Round a corner.
    QTest::newRow("right to up, ahead") << RIGHT << UP << QPoint(100, 25) << QPoint(200, 100)
                                        << Points{{100, 25}, {200, 25}, {200, 100}};
    QTest::newRow("up to right, ahead") << UP << RIGHT << QPoint(200, 100) << QPoint(100, 25)
                                        << Points{{200, 100}, {200, 25}, {100, 25}};
    QTest::newRow("right to up, straight to the side")
        << RIGHT << UP << QPoint(100, 50) << QPoint(200, 50) << Points{{100, 50}, {200, 50}};
    QTest::newRow("right to up, target behind")
        << RIGHT << UP << QPoint(100, 25) << QPoint(50, 100)
        << Points{{100, 25}, {110, 25}, {110, 62}, {50, 62}, {50, 100}};
    QTest::newRow("right to up, target above")
        << RIGHT << UP << QPoint(100, 225) << QPoint(200, 100)
        << Points{{100, 225}, {150, 225}, {150, 90}, {200, 90}, {200, 100}};
    QTest::newRow("right to up, target behind and above")
        << RIGHT << UP << QPoint(100, 225) << QPoint(50, 100)
        << Points{{100, 225}, {110, 225}, {110, 90}, {50, 90}, {50, 100}};
    QTest::newRow("down to left, target behind")
        << DOWN << LEFT << QPoint(25, 100) << QPoint(100, 50)
        << Points{{25, 100}, {25, 110}, {62, 110}, {62, 50}, {100, 50}};
    QTest::newRow("down to left, target at the left")
        << DOWN << LEFT << QPoint(225, 100) << QPoint(100, 200)
        << Points{{225, 100}, {225, 150}, {90, 150}, {90, 200}, {100, 200}};

    // Lines below 1 are taken as they are, and stubs without their sign.
    QTest::newRow("negative middle") << RIGHT << LEFT << QPoint(-101, 25) << QPoint(-50, 65)
                                     << Points{{-101, 25}, {-75, 25}, {-75, 65}, {-50, 65}};
    QTest::newRow("middle truncated toward zero")
        << RIGHT << LEFT << QPoint(-51, 25) << QPoint(-50, 65)
        << Points{{-51, 25}, {-50, 25}, {-50, 65}};
    QTest::newRow("negative stub of the start flips")
        << RIGHT << RIGHT << QPoint(-100, 20) << QPoint(300, 80)
        << Points{{-100, 20}, {90, 20}, {90, 80}, {300, 80}};
    QTest::newRow("negative stub of the end flips")
        << RIGHT << UP << QPoint(100, 25) << QPoint(200, -50)
        << Points{{100, 25}, {150, 25}, {150, 60}, {200, 60}, {200, -50}};
    QTest::newRow("stub that crosses zero flips")
        << LEFT << LEFT << QPoint(4, 20) << QPoint(-300, 80)
        << Points{{4, 20}, {6, 20}, {6, 80}, {-300, 80}};
}

void tst_ManhattanRouter::routeTurnsAsTheDirectionsSay()
{
    QFETCH(QPoint, out);
    QFETCH(QPoint, in);
    QFETCH(QPoint, start);
    QFETCH(QPoint, end);
    QFETCH(Points, points);
    DirectedRouter router(out, in);
    Wire wire(start, end);

    QCOMPARE(router.doRoute(wire), points);
}

void tst_ManhattanRouter::routeRunsThroughTheMiddleColumnBetweenTwoBoxes()
{
    Displayed root;
    OpenRouter router;
    BoxWire wire(root);
    wire.connection.setConnectionRouter(&router);

    root.validate();

    QCOMPARE(wire.connection.getPoints(), router.doRoute(wire));
    const Points points = wire.connection.getPoints();
    QCOMPARE(points.size(), 4);
    QCOMPARE(points[0].x(), 101);
    QCOMPARE(points[1], QPoint(150, points[0].y()));
    QCOMPARE(points[2], QPoint(150, points[3].y()));
    QCOMPARE(points[3].x(), 199);
    QVERIFY(router.isColumnReservedBy(wire, 150));
}

// Reserved are then lines of the connection's own coordinates, too.
void tst_ManhattanRouter::routeIsInTheConnectionsOwnCoordinates()
{
    Place place(QPoint(-40, 7));
    DirectedRouter router(RIGHT, LEFT);
    Wire wire(QPoint(100, 25), QPoint(200, 65));
    place.add(&wire.connection);

    QCOMPARE(router.doRoute(wire), (Points{{140, 18}, {190, 18}, {190, 58}, {240, 58}}));
    QVERIFY(router.isColumnReservedBy(wire, 190));
    QVERIFY(router.colUsable(wire, 150));
}

void tst_ManhattanRouter::directionsAreTakenInAbsoluteCoordinates()
{
    Place place(QPoint(-40, 7));
    AskedRouter router;
    Wire wire(QPoint(100, 25), QPoint(200, 65));
    place.add(&wire.connection);

    router.doRoute(wire);

    QCOMPARE(router.questions.size(), 2);
    QCOMPARE(router.questions[0].point, QPoint(100, 25));
    QCOMPARE(router.questions[1].point, QPoint(200, 65));
}

void tst_ManhattanRouter::floatingRouteHasTheSamePoints()
{
    DirectedRouter router(RIGHT, LEFT);
    Wire wire;

    QCOMPARE(router.doRouteF(wire), (QList<QPointF>{{100, 25}, {150, 25}, {150, 65}, {200, 65}}));
    QCOMPARE(router.doRoute(wire), (Points{{100, 25}, {150, 25}, {150, 65}, {200, 65}}));
}

void tst_ManhattanRouter::floatingConnectionGetsTheRoute()
{
    XYAnchor source(QPoint(100, 25));
    XYAnchor target(QPoint(200, 65));
    PolylineFConnection connection;
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);
    DirectedRouter router(RIGHT, LEFT);

    router.routeF(&connection);

    QCOMPARE(connection.getPointsF(), (QList<QPointF>{{100, 25}, {150, 25}, {150, 65}, {200, 65}}));
}

void tst_ManhattanRouter::pointsAlternateBetweenColumnsAndRows_data()
{
    QTest::addColumn<Lines>("positions");
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<Points>("points");
    QTest::newRow("none") << Lines() << true << Points{{10, 20}, {90, 80}};
    QTest::newRow("one") << Lines{20} << true << Points{{10, 20}, {90, 80}};
    QTest::newRow("two, horizontal first")
        << Lines{20, 90} << true << Points{{10, 20}, {90, 20}, {90, 80}};
    QTest::newRow("two, vertical first")
        << Lines{10, 80} << false << Points{{10, 20}, {10, 80}, {90, 80}};
    QTest::newRow("three, horizontal first")
        << Lines{20, 44, 80} << true << Points{{10, 20}, {44, 20}, {44, 80}, {90, 80}};
    QTest::newRow("three, vertical first")
        << Lines{10, 44, 90} << false << Points{{10, 20}, {10, 44}, {90, 44}, {90, 80}};
    QTest::newRow("four, horizontal first")
        << Lines{20, 44, 66, 90} << true
        << Points{{10, 20}, {44, 20}, {44, 66}, {90, 66}, {90, 80}};
    QTest::newRow("five, vertical first")
        << Lines{10, 44, 66, 30, 90} << false
        << Points{{10, 20}, {10, 44}, {66, 44}, {66, 30}, {90, 30}, {90, 80}};
    QTest::newRow("last one need not meet the end")
        << Lines{20, 44, 70} << true << Points{{10, 20}, {44, 20}, {44, 70}, {90, 80}};
}

void tst_ManhattanRouter::pointsAlternateBetweenColumnsAndRows()
{
    QFETCH(Lines, positions);
    QFETCH(bool, horizontal);
    QFETCH(Points, points);
    OpenRouter router;
    Wire wire;

    QCOMPARE(router.processPositions(Ray(10, 20), Ray(90, 80), positions, horizontal, wire),
             points);
}

// Column 100 is taken, so the first column moves to 102. Seen from there the second one, wanted at
// 102 too, lies on its bound and is not looked for any farther.
void tst_ManhattanRouter::movedLineBoundsTheSearchForTheFollowingOnes()
{
    OpenRouter router;
    Wire other;
    Wire wire;
    router.reserveColumn(other, 100);

    const Points points =
        router.processPositions(Ray(10, 20), Ray(300, 80), {20, 100, 44, 102, 80}, true, wire);

    QCOMPARE(points, (Points{{10, 20}, {102, 20}, {102, 44}, {104, 44}, {104, 80}, {300, 80}}));
    QVERIFY(router.isColumnReservedBy(wire, 102));
    QVERIFY(!router.isColumnReservedBy(wire, 104));
}

void tst_ManhattanRouter::endIsNotAppendedTwice()
{
    OpenRouter router;
    Wire wire;

    const Points points =
        router.processPositions(Ray(10, 20), Ray(44, 80), {20, 44, 80}, true, wire);

    QCOMPARE(points, (Points{{10, 20}, {44, 20}, {44, 80}}));
}

void tst_ManhattanRouter::repeatedPointsInsideARouteAreKept()
{
    OpenRouter router;
    Wire wire;

    const Points points =
        router.processPositions(Ray(10, 20), Ray(90, 80), {20, 10, 20, 90}, true, wire);

    QCOMPARE(points, (Points{{10, 20}, {10, 20}, {10, 20}, {90, 20}, {90, 80}}));
}

void tst_ManhattanRouter::firstAndLastLineAreNeitherMovedNorReserved()
{
    OpenRouter router;
    Wire other;
    Wire wire;
    router.reserveRow(other, 20);
    router.reserveRow(other, 81);

    const Points points =
        router.processPositions(Ray(10, 20), Ray(90, 81), {20, 44, 81}, true, wire);

    QCOMPARE(points, (Points{{10, 20}, {44, 20}, {44, 81}, {90, 81}}));
    QVERIFY(!router.isRowReservedBy(wire, 20));
    QVERIFY(!router.isRowReservedBy(wire, 81));
    QVERIFY(router.isColumnReservedBy(wire, 44));
}

void tst_ManhattanRouter::lineIsSearchedNearTheWantedOne_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<Lines>("taken");
    QTest::addColumn<int>("found");

    QTest::newRow("even and free") << 150 << 100 << 200 << Lines{} << 150;
    QTest::newRow("odd goes down to even") << 151 << 100 << 200 << Lines{} << 150;
    QTest::newRow("smallest line") << 2 << -100 << 200 << Lines{} << 2;
    QTest::newRow("3 goes down to 2") << 3 << -100 << 200 << Lines{} << 2;
    QTest::newRow("1 goes down to 0") << 1 << -100 << 200 << Lines{} << 0;
    QTest::newRow("0 stays") << 0 << -100 << 200 << Lines{} << 0;
    QTest::newRow("0 stays even when taken") << 0 << -100 << 200 << Lines{0} << 0;
    QTest::newRow("negative even stays") << -4 << -100 << 200 << Lines{-4} << -4;
    QTest::newRow("negative odd stays odd") << -5 << -100 << 200 << Lines{} << -5;

    QTest::newRow("next above") << 150 << 100 << 200 << Lines{150} << 152;
    QTest::newRow("then below") << 150 << 100 << 200 << Lines{150, 152} << 148;
    QTest::newRow("then farther above") << 150 << 100 << 200 << Lines{150, 152, 148} << 154;
    QTest::newRow("then farther below") << 150 << 100 << 200 << Lines{150, 152, 148, 154} << 146;
    QTest::newRow("odd lines are never in the way") << 151 << 100 << 200 << Lines{151} << 150;

    // Whether a line is free is asked before whether it lies within the bounds.
    QTest::newRow("free on the lower bound") << 100 << 100 << 200 << Lines{} << 100;
    QTest::newRow("free on the upper bound") << 200 << 100 << 200 << Lines{} << 200;
    QTest::newRow("taken on the lower bound") << 100 << 100 << 200 << Lines{100} << 102;
    QTest::newRow("above the lower bound, taken or not")
        << 100 << 100 << 200 << Lines{100, 102} << 102;
    QTest::newRow("taken on the upper bound") << 200 << 100 << 200 << Lines{200} << 198;
    QTest::newRow("below the upper bound, taken or not")
        << 200 << 100 << 200 << Lines{200, 198} << 198;
    QTest::newRow("free beyond the upper bound") << 100 << 90 << 101 << Lines{100} << 102;
    QTest::newRow("taken beyond the upper bound") << 100 << 90 << 101 << Lines{100, 102} << 100;
    QTest::newRow("free beyond the lower bound") << 100 << 99 << 200 << Lines{100, 102} << 98;
    QTest::newRow("taken beyond the lower bound") << 100 << 99 << 200 << Lines{100, 102, 98} << 100;
    QTest::newRow("no room at all") << 100 << 100 << 100 << Lines{100} << 102;

    // Beyond both neighbours the nearer one bounds the search, and its mirror image.
    QTest::newRow("above both, free on the mirrored bound")
        << 104 << 50 << 100 << Lines{104, 106, 102} << 108;
    QTest::newRow("above both, taken on the mirrored bound")
        << 104 << 50 << 100 << Lines{104, 106, 102, 108} << 106;
    QTest::newRow("above both, taken on the nearer one")
        << 105 << 50 << 100 << Lines{104, 106, 102, 108, 100} << 102;
    QTest::newRow("above both, free beyond the nearer one")
        << 105 << 50 << 101 << Lines{104, 106, 102, 108} << 100;
    QTest::newRow("below both, free on the nearer one")
        << 100 << 106 << 200 << Lines{100, 102, 98, 104, 96} << 106;
    QTest::newRow("below both, taken on the nearer one")
        << 100 << 106 << 200 << Lines{100, 102, 98, 104, 96, 106} << 104;
    QTest::newRow("below both, taken on the mirrored bound")
        << 101 << 106 << 200 << Lines{100, 102, 98, 104, 96} << 98;

    // The way up is never longer than the way down to zero.
    QTest::newRow("2 is given up at once") << 2 << -100 << 200 << Lines{2} << 2;
    QTest::newRow("4 looks at 6") << 4 << -100 << 200 << Lines{4} << 6;
    QTest::newRow("4 looks at 2") << 4 << -100 << 200 << Lines{4, 6} << 2;
    QTest::newRow("4 is given up before 8") << 4 << -100 << 200 << Lines{4, 6, 2} << 4;
    QTest::newRow("6 looks at 10") << 6 << -100 << 200 << Lines{6, 8, 4} << 10;
    QTest::newRow("6 is given up before 12") << 6 << -100 << 200 << Lines{6, 8, 4, 10, 2} << 6;
}

void tst_ManhattanRouter::lineIsSearchedNearTheWantedOne()
{
    QFETCH(int, wanted);
    QFETCH(int, before);
    QFETCH(int, after);
    QFETCH(Lines, taken);
    QFETCH(int, found);
    OpenRouter router;
    Wire other;
    Wire wire;
    for (const int line : taken) {
        router.reserveColumn(other, line);
        router.reserveRow(other, line);
    }

    QCOMPARE(columnNear(router, wire, wanted, before, after), found);
    QCOMPARE(rowNear(router, wire, wanted, before, after), found);
}

void tst_ManhattanRouter::neighboursMayComeInEitherOrder()
{
    OpenRouter router;
    Wire other;
    Wire wire;
    router.reserveColumn(other, 100);
    router.reserveRow(other, 200);

    QCOMPARE(columnNear(router, wire, 100, 200, 100), 102);
    QCOMPARE(rowNear(router, wire, 200, 200, 100), 198);
}

void tst_ManhattanRouter::lineIsReservedOnlyWhenItWasFree_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<Lines>("taken");
    QTest::addColumn<int>("found");
    QTest::addColumn<bool>("reserved");
    QTest::newRow("wanted line") << 150 << Lines{} << 150 << true;
    QTest::newRow("even line below an odd one") << 151 << Lines{} << 150 << true;
    QTest::newRow("next line") << 150 << Lines{150} << 152 << true;
    QTest::newRow("line within the lower bound") << 100 << Lines{100} << 102 << false;
    QTest::newRow("line within the upper bound") << 200 << Lines{200} << 198 << false;
    QTest::newRow("line zero") << 1 << Lines{} << 0 << false;
    QTest::newRow("negative line") << -6 << Lines{} << -6 << false;
    QTest::newRow("line given up") << 2 << Lines{2} << 2 << false;
}

void tst_ManhattanRouter::lineIsReservedOnlyWhenItWasFree()
{
    QFETCH(int, wanted);
    QFETCH(Lines, taken);
    QFETCH(int, found);
    QFETCH(bool, reserved);
    const int before = wanted < 100 ? -100 : 100;
    OpenRouter router;
    Wire other;
    Wire wire;
    for (const int line : taken) {
        router.reserveColumn(other, line);
        router.reserveRow(other, line);
    }

    QCOMPARE(columnNear(router, wire, wanted, before, 200), found);
    QCOMPARE(router.isColumnReservedBy(wire, found), reserved);
    QCOMPARE(rowNear(router, wire, wanted, before, 200), found);
    QCOMPARE(router.isRowReservedBy(wire, found), reserved);
}

void tst_ManhattanRouter::reservedLineIsUsableByNobody()
{
    OpenRouter router;
    Wire wire;
    Wire other;
    router.reserveColumn(wire, 40);
    router.reserveRow(wire, 60);

    QVERIFY(!router.colUsable(wire, 40));
    QVERIFY(!router.colUsable(other, 40));
    QVERIFY(!router.colUsable(nullptr, 40));
    QVERIFY(!router.rowUsable(wire, 60));
    QVERIFY(!router.rowUsable(other, 60));
    QVERIFY(!router.rowUsable(nullptr, 60));
    QVERIFY(router.colUsable(other, 42));
    QVERIFY(router.rowUsable(other, 62));
}

void tst_ManhattanRouter::columnsAndRowsAreSeparate()
{
    OpenRouter router;
    Wire wire;

    router.reserveColumn(wire, 40);
    router.reserveRow(wire, 60);

    QVERIFY(router.rowUsable(wire, 40));
    QVERIFY(router.colUsable(wire, 60));
    QVERIFY(!router.isRowReservedBy(wire, 40));
    QVERIFY(!router.isColumnReservedBy(wire, 60));
}

void tst_ManhattanRouter::reservationBelongsToItsConnection()
{
    OpenRouter router;
    Wire wire;
    Wire other;

    router.reserveColumn(wire, 40);
    router.reserveRow(wire, 60);

    QVERIFY(router.isColumnReservedBy(wire, 40));
    QVERIFY(router.isRowReservedBy(wire, 60));
    QVERIFY(!router.isColumnReservedBy(other, 40));
    QVERIFY(!router.isRowReservedBy(other, 60));
    QVERIFY(!router.isColumnReservedBy(nullptr, 40));
    QVERIFY(!router.isRowReservedBy(nullptr, 60));
}

void tst_ManhattanRouter::nothingIsReservedForNoConnection()
{
    OpenRouter router;

    router.reserveColumn(nullptr, 40);
    router.reserveRow(nullptr, 60);

    QVERIFY(router.colUsable(nullptr, 40));
    QVERIFY(router.rowUsable(nullptr, 60));
}

void tst_ManhattanRouter::searchForNoConnectionTakesALineButReservesNothing()
{
    OpenRouter router;
    Wire other;
    router.reserveColumn(other, 150);

    QCOMPARE(columnNear(router, nullptr, 150, 100, 200), 152);
    QVERIFY(router.colUsable(nullptr, 152));
}

void tst_ManhattanRouter::releaseFreesAllLinesOfOneConnection()
{
    OpenRouter router;
    Wire wire;
    Wire other;
    for (const int line : {40, 42}) {
        router.reserveColumn(wire, line);
        router.reserveRow(wire, line);
    }
    router.reserveColumn(other, 44);
    router.reserveRow(other, 44);

    router.removeReservedLines(wire);

    for (const int line : {40, 42}) {
        QVERIFY(router.colUsable(nullptr, line));
        QVERIFY(router.rowUsable(nullptr, line));
        QVERIFY(!router.isColumnReservedBy(wire, line));
        QVERIFY(!router.isRowReservedBy(wire, line));
    }
    QVERIFY(!router.colUsable(nullptr, 44));
    QVERIFY(!router.rowUsable(nullptr, 44));
    QVERIFY(router.isColumnReservedBy(other, 44));
}

void tst_ManhattanRouter::releaseOfAnUnknownConnectionIsIgnored()
{
    OpenRouter router;
    Wire wire;
    Wire other;
    router.reserveColumn(wire, 40);

    router.removeReservedLines(nullptr);
    router.removeReservedLines(other);
    router.invalidate(nullptr);
    router.invalidate(other);
    router.remove(nullptr);
    router.remove(other);

    QVERIFY(router.isColumnReservedBy(wire, 40));
    QVERIFY(!router.colUsable(nullptr, 40));
}

void tst_ManhattanRouter::lineReservedTwiceIsFreeAfterTheFirstRelease()
{
    OpenRouter router;
    Wire wire;
    Wire other;
    router.reserveColumn(wire, 40);
    router.reserveColumn(other, 40);

    router.removeReservedLines(wire);

    QVERIFY(router.colUsable(nullptr, 40));
    QVERIFY(router.isColumnReservedBy(other, 40));
}

void tst_ManhattanRouter::lineReservedAgainByTheSameConnectionIsFreedOnce()
{
    OpenRouter router;
    Wire wire;
    router.reserveRow(wire, 40);
    router.reserveRow(wire, 40);

    router.removeReservedLines(wire);

    QVERIFY(router.rowUsable(nullptr, 40));
    QVERIFY(!router.isRowReservedBy(wire, 40));
}

void tst_ManhattanRouter::secondConnectionBetweenTheSameBoxesTakesTheNextColumn()
{
    DirectedRouter router(RIGHT, LEFT);
    Wire first;
    Wire second;
    Wire third;

    QCOMPARE(router.doRoute(first).at(1).x(), 150);
    QCOMPARE(router.doRoute(second).at(1).x(), 152);
    QCOMPARE(router.doRoute(third).at(1).x(), 148);
}

void tst_ManhattanRouter::sameConnectionRoutedAgainGetsItsColumnBack()
{
    DirectedRouter router(RIGHT, LEFT);
    Wire first;
    Wire second;
    router.doRoute(first);
    const Points before = router.doRoute(second);

    QCOMPARE(router.doRoute(second), before);
    QCOMPARE(router.doRoute(first).at(1).x(), 150);
}

void tst_ManhattanRouter::invalidatedConnectionReleasesItsLines()
{
    DirectedRouter router(RIGHT, LEFT);
    Wire first;
    Wire second;
    router.doRoute(first);

    router.invalidate(first);

    QVERIFY(router.colUsable(nullptr, 150));
    QCOMPARE(router.doRoute(second).at(1).x(), 150);
}

void tst_ManhattanRouter::removedConnectionReleasesItsLines()
{
    DirectedRouter router(RIGHT, LEFT);
    Wire first;
    Wire second;
    router.doRoute(first);

    router.remove(first);

    QVERIFY(router.colUsable(nullptr, 150));
    QCOMPARE(router.doRoute(second).at(1).x(), 150);
}

void tst_ManhattanRouter::movedFigureReleasesTheLinesOfItsConnection()
{
    Displayed root;
    OpenRouter router;
    BoxWire wire(root);
    wire.connection.setConnectionRouter(&router);
    root.validate();
    QVERIFY(router.isColumnReservedBy(wire, 150));

    wire.moveTarget(20);

    QVERIFY(router.colUsable(nullptr, 150));
    root.validate();
    QVERIFY(router.isColumnReservedBy(wire, 160));
}

void tst_ManhattanRouter::connectionThatLeavesTheTreeReleasesItsLines()
{
    Displayed root;
    OpenRouter router;
    BoxWire wire(root);
    wire.connection.setConnectionRouter(&router);
    root.validate();

    root.remove(&wire.connection);

    QVERIFY(router.colUsable(nullptr, 150));
    QVERIFY(!router.isColumnReservedBy(wire, 150));
}

void tst_ManhattanRouter::connectionThatGetsAnotherRouterReleasesItsLines()
{
    Displayed root;
    OpenRouter router;
    BoxWire wire(root);
    wire.connection.setConnectionRouter(&router);
    root.validate();

    wire.connection.setConnectionRouter(nullptr);

    QCOMPARE(wire.connection.getConnectionRouter(), NullRouter::instance());
    QVERIFY(router.colUsable(nullptr, 150));
}

void tst_ManhattanRouter::destroyedConnectionReleasesItsLines()
{
    DirectedRouter router(RIGHT, LEFT);
    auto first = std::make_unique<Wire>();
    Wire second;
    router.doRoute(*first);

    first.reset();

    QVERIFY(router.colUsable(nullptr, 150));
    QCOMPARE(router.doRoute(second).at(1).x(), 150);
}

void tst_ManhattanRouter::connectionOutlivesTheRouterThatRoutedIt()
{
    auto router = std::make_unique<DirectedRouter>(RIGHT, LEFT);
    auto wire = std::make_unique<Wire>();
    wire->connection.setConnectionRouter(router.get());
    router->route(*wire);

    router.reset();

    QCOMPARE(wire->connection.getPoints().size(), 4);
    wire->connection.revalidate();
    wire.reset();
}

// The one that moves is routed anew around the others, which keep their lines.
void tst_ManhattanRouter::linesOfEarlierConnectionsStayTakenWithinOnePass()
{
    Displayed root;
    OpenRouter router;
    BoxWire first(root);
    BoxWire second(root);
    first.connection.setConnectionRouter(&router);
    second.connection.setConnectionRouter(&router);

    root.validate();
    QVERIFY(router.isColumnReservedBy(first, 150));
    QVERIFY(router.isColumnReservedBy(second, 152));

    first.connection.revalidate();
    root.validate();
    QVERIFY(router.isColumnReservedBy(first, 150));
    QVERIFY(router.isColumnReservedBy(second, 152));

    first.connection.revalidate();
    second.connection.revalidate();
    QVERIFY(router.colUsable(nullptr, 150));
    QVERIFY(router.colUsable(nullptr, 152));
}

void tst_ManhattanRouter::overriddenUsabilityDecidesAboutColumns()
{
    PickyRouter router;
    router.step = 50;
    Wire wire;

    QCOMPARE(columnNear(router, wire, 146, 100, 200), 150);
    QCOMPARE(router.askedColumns, (Lines{146, 148, 144, 150}));
    QCOMPARE(router.askedRows, Lines());
    QCOMPARE(router.asking, (QList<IConnection *>{wire, wire, wire, wire}));
    QVERIFY(router.isColumnReservedBy(wire, 150));
}

void tst_ManhattanRouter::overriddenUsabilityDecidesAboutRows()
{
    PickyRouter router;
    router.step = 50;
    Wire wire;

    QCOMPARE(rowNear(router, wire, 146, 100, 200), 150);
    QCOMPARE(router.askedRows, (Lines{146, 148, 144, 150}));
    QCOMPARE(router.askedColumns, Lines());
    QCOMPARE(router.asking, (QList<IConnection *>{wire, wire, wire, wire}));
    QVERIFY(router.isRowReservedBy(wire, 150));
}

void tst_ManhattanRouter::overriddenUsabilityCanRefuseEveryLine()
{
    PickyRouter router;
    router.step = 100000;
    Wire wire;

    QCOMPARE(columnNear(router, wire, 146, 140, 154), 142);
    QCOMPARE(router.askedColumns, (Lines{146, 148, 144, 150, 142, 152, 140}));
    QVERIFY(!router.isColumnReservedBy(wire, 142));
}

void tst_ManhattanRouter::overriddenEndPointsAreUsed()
{
    class ShiftedRouter : public DirectedRouter
    {
    public:
        using DirectedRouter::DirectedRouter;

    protected:
        QPoint getStartPoint(IConnection *) override { return QPoint(300, 10); }
        QPoint getEndPoint(IConnection *) override { return QPoint(400, 30); }
    };
    ShiftedRouter router(RIGHT, LEFT);
    Wire wire;

    QCOMPARE(router.doRoute(wire), (Points{{300, 10}, {350, 10}, {350, 30}, {400, 30}}));
}

QTEST_MAIN(tst_ManhattanRouter)
#include "tst_manhattanrouter.moc"
