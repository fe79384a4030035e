#include "connection_fixtures.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/NullRouter.h>

#include <place.h>

#include <thread>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;
using PointsF = QList<QPointF>;

namespace {

class OpenRouter : public NullRouter
{
public:
    using NullRouter::getEndPoint;
    using NullRouter::getStartPoint;
    using NullRouter::NullRouter;
};

// Answers with a route that a test gives, and does nothing else of its own.
class GivenRouter : public AbstractRouter
{
public:
    PointsF points;

    QList<QPoint> doRoute(IConnection *) override
    {
        Points result;
        for (const QPointF &point : points)
            result.append(point.toPoint());
        return result;
    }

    PointsF doRouteF(IConnection *) override { return points; }
};

// Remembers what it was asked, and from where.
class SeenAnchor : public XYAnchor
{
public:
    QList<QPoint> references;

    using XYAnchor::XYAnchor;

    QPoint getLocation(const QPoint &reference) override
    {
        references.append(reference);
        return XYAnchor::getLocation(reference);
    }
};

// Not a QObject, so that nobody can tell when it goes.
class BareAnchor : public IConnectionAnchor
{
public:
    void addAnchorListener(IAnchorListener *) override {}
    QPoint getLocation(const QPoint &reference) override { return reference + QPoint(5, 6); }
    Figure *getOwner() const override { return nullptr; }
    QPoint getReferencePoint() override { return {}; }
    void removeAnchorListener(IAnchorListener *) override {}
};

class BareConnection : public PolylineConnection
{
public:
    BareConnection()
        : PolylineConnection(nullptr)
    {
    }

    IConnectionAnchor *getSourceAnchor() const override { return &m_source; }

private:
    mutable BareAnchor m_source;
};

} // namespace

class tst_Routers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void abstractRouterKeepsNoConstraint();
    void nullConnectionIsNotRouted();
    void routeSetsIntegerPoints();
    void routeFSetsFloatingPoints();
    void shortRouteIsRefused_data();
    void shortRouteIsRefused();
    void shortFloatingRouteIsRefusedInTheSameWords_data() { shortRouteIsRefused_data(); }
    void shortFloatingRouteIsRefusedInTheSameWords();
    void startLooksAtTheReferencePointOfTheTarget();
    void endLooksAtTheReferencePointOfTheSource();
    void anchorThatCannotBeWatchedIsAsked();
    void endPointsAreAtTheOriginWithoutAnAnchor();
    void endPointsAreAtTheOriginWithoutAConnection();
    void endPointsAreAbsolute();
    void straightRouteRunsBetweenTheBorders();
    void straightRouteIsInCoordinatesOfTheConnection();
    void straightFloatingRouteHasTheSamePoints();
    void straightRouteOfNothingIsEmpty();
    void straightRouteWithoutAnchorsHasTwoPointsAtTheOrigin();
    void straightRouteWithoutAnchorsIsConverted();
    void straightRouteAsksTheOverriddenEndPoints();
    void sharedRouterIsOneWithoutAParent();
    void sharedRouterMayBeAskedForFromAnyThread();
    void parentIsThatOfTheConstructor();
};

void tst_Routers::abstractRouterKeepsNoConstraint()
{
    GivenRouter router;
    PolylineConnection connection(nullptr);

    router.setConstraint(&connection, 42);
    router.invalidate(&connection);
    router.remove(&connection);
    router.remove(nullptr);

    QVERIFY(!router.getConstraint(&connection).isValid());
    QVERIFY(!router.getConstraint(nullptr).isValid());
}

void tst_Routers::nullConnectionIsNotRouted()
{
    GivenRouter router;

    router.route(nullptr);
    router.routeF(nullptr);
}

void tst_Routers::routeSetsIntegerPoints()
{
    GivenRouter router;
    router.points = {{1, 2}, {3, 4}, {5, 6}};
    PolylineFConnection connection(nullptr);

    router.route(&connection);

    QCOMPARE(connection.getPointsF(), router.points);
}

void tst_Routers::routeFSetsFloatingPoints()
{
    GivenRouter router;
    router.points = {{1.25, 2}, {3, 4.75}};
    PolylineFConnection connection(nullptr);

    router.routeF(&connection);

    QCOMPARE(connection.getPointsF(), router.points);
}

void tst_Routers::shortRouteIsRefused_data()
{
    QTest::addColumn<PointsF>("points");
    QTest::newRow("none") << PointsF();
    QTest::newRow("one point") << PointsF{{1, 2}};
}

void tst_Routers::shortRouteIsRefused()
{
    QFETCH(PointsF, points);
    GivenRouter router;
    router.points = points;
    PolylineConnection connection(nullptr);

    QTest::ignoreMessage(QtWarningMsg, "AbstractRouter::route(): invalid route");
    router.route(&connection);

    QCOMPARE(connection.getPoints(), Points({{0, 0}, {100, 100}}));
}

// The floating form speaks of route() on purpose.
void tst_Routers::shortFloatingRouteIsRefusedInTheSameWords()
{
    QFETCH(PointsF, points);
    GivenRouter router;
    router.points = points;
    PolylineFConnection connection(nullptr);

    QTest::ignoreMessage(QtWarningMsg, "AbstractRouter::route(): invalid route");
    router.routeF(&connection);

    QCOMPARE(connection.getPointsF(), PointsF({{0, 0}, {100, 100}}));
}

void tst_Routers::startLooksAtTheReferencePointOfTheTarget()
{
    SeenAnchor source(QPoint(1, 2));
    SeenAnchor target(QPoint(30, 40));
    PolylineConnection connection(nullptr);
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);

    QCOMPARE(OpenRouter(nullptr).getStartPoint(&connection), QPoint(1, 2));

    QCOMPARE(source.references, Points({{30, 40}}));
    QCOMPARE(target.references, Points());
}

void tst_Routers::endLooksAtTheReferencePointOfTheSource()
{
    SeenAnchor source(QPoint(1, 2));
    SeenAnchor target(QPoint(30, 40));
    PolylineConnection connection(nullptr);
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);

    QCOMPARE(OpenRouter(nullptr).getEndPoint(&connection), QPoint(30, 40));

    QCOMPARE(target.references, Points({{1, 2}}));
    QCOMPARE(source.references, Points());
}

void tst_Routers::anchorThatCannotBeWatchedIsAsked()
{
    XYAnchor target(QPoint(30, 40));
    BareConnection connection;
    connection.setTargetAnchor(&target);

    QCOMPARE(OpenRouter(nullptr).getStartPoint(&connection), QPoint(35, 46));
}

void tst_Routers::endPointsAreAtTheOriginWithoutAnAnchor()
{
    XYAnchor anchor(QPoint(30, 40));
    PolylineConnection onlySource(nullptr);
    PolylineConnection onlyTarget(nullptr);
    onlySource.setSourceAnchor(&anchor);
    onlyTarget.setTargetAnchor(&anchor);
    OpenRouter router(nullptr);

    QCOMPARE(router.getStartPoint(&onlySource), QPoint(0, 0));
    QCOMPARE(router.getEndPoint(&onlySource), QPoint(0, 0));
    QCOMPARE(router.getStartPoint(&onlyTarget), QPoint(0, 0));
    QCOMPARE(router.getEndPoint(&onlyTarget), QPoint(0, 0));
}

void tst_Routers::endPointsAreAtTheOriginWithoutAConnection()
{
    OpenRouter router(nullptr);

    QCOMPARE(router.getStartPoint(nullptr), QPoint(0, 0));
    QCOMPARE(router.getEndPoint(nullptr), QPoint(0, 0));
}

void tst_Routers::endPointsAreAbsolute()
{
    Place parent(QPoint(1000, 2000));
    XYAnchor source(QPoint(1, 2));
    XYAnchor target(QPoint(30, 40));
    PolylineConnection connection(nullptr);
    parent.add(&connection);
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);
    OpenRouter router(nullptr);

    QCOMPARE(router.getStartPoint(&connection), QPoint(1, 2));
    QCOMPARE(router.getEndPoint(&connection), QPoint(30, 40));
}

void tst_Routers::straightRouteRunsBetweenTheBorders()
{
    Figure left;
    Figure right;
    left.setBounds(QRect(0, 0, 100, 50));
    right.setBounds(QRect(200, 0, 100, 50));
    ChopboxAnchor source(&left);
    ChopboxAnchor target(&right);
    PolylineConnection connection(nullptr);
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);

    QCOMPARE(NullRouter(nullptr).doRoute(&connection), Points({{100, 24}, {199, 24}}));
}

void tst_Routers::straightRouteIsInCoordinatesOfTheConnection()
{
    Place parent(QPoint(1000, 2000));
    XYAnchor source(QPoint(1001, 2002));
    XYAnchor target(QPoint(30, 40));
    PolylineConnection connection(nullptr);
    parent.add(&connection);
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);

    QCOMPARE(NullRouter(nullptr).doRoute(&connection), Points({{1, 2}, {-970, -1960}}));
}

void tst_Routers::straightFloatingRouteHasTheSamePoints()
{
    Place parent(QPoint(1000, 2000));
    XYAnchor source(QPoint(1001, 2002));
    XYAnchor target(QPoint(30, 40));
    PolylineFConnection connection(nullptr);
    parent.add(&connection);
    connection.setSourceAnchor(&source);
    connection.setTargetAnchor(&target);

    QCOMPARE(NullRouter(nullptr).doRouteF(&connection), PointsF({{1, 2}, {-970, -1960}}));
}

void tst_Routers::straightRouteOfNothingIsEmpty()
{
    NullRouter router(nullptr);

    QCOMPARE(router.doRoute(nullptr), Points());
    QCOMPARE(router.doRouteF(nullptr), PointsF());
}

void tst_Routers::straightRouteWithoutAnchorsHasTwoPointsAtTheOrigin()
{
    PolylineConnection connection(nullptr);

    NullRouter(nullptr).route(&connection);

    QCOMPARE(connection.getPoints(), Points({{0, 0}, {0, 0}}));
}

void tst_Routers::straightRouteWithoutAnchorsIsConverted()
{
    Place parent(QPoint(1000, 2000));
    PolylineConnection connection(nullptr);
    parent.add(&connection);

    NullRouter(nullptr).route(&connection);

    QCOMPARE(connection.getPoints(), Points({{-1000, -2000}, {-1000, -2000}}));
}

void tst_Routers::straightRouteAsksTheOverriddenEndPoints()
{
    class Fixed : public NullRouter
    {
    public:
        Fixed()
            : NullRouter(nullptr)
        {
        }

    protected:
        QPoint getEndPoint(IConnection *) override { return QPoint(7, 8); }
        QPoint getStartPoint(IConnection *) override { return QPoint(5, 6); }
    };
    PolylineConnection connection(nullptr);

    QCOMPARE(Fixed().doRoute(&connection), Points({{5, 6}, {7, 8}}));
    QCOMPARE(Fixed().doRouteF(&connection), PointsF({{5, 6}, {7, 8}}));
}

void tst_Routers::sharedRouterIsOneWithoutAParent()
{
    QVERIFY(NullRouter::instance());
    QCOMPARE(NullRouter::instance(), NullRouter::instance());
    QVERIFY(!NullRouter::instance()->parent());
}

void tst_Routers::sharedRouterMayBeAskedForFromAnyThread()
{
    NullRouter *found = nullptr;

    std::thread([&found] { found = NullRouter::instance(); }).join();

    QCOMPARE(found, NullRouter::instance());
}

void tst_Routers::parentIsThatOfTheConstructor()
{
    QObject parent;

    QCOMPARE(NullRouter(&parent).parent(), &parent);
}

QTEST_MAIN(tst_Routers)
#include "tst_routers.moc"
