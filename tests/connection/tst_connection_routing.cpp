#include "connection_fixtures.h"

#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/NullRouter.h>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

struct Announcement
{
    QString name;
    QVariant oldValue;
    QVariant newValue;
    IConnectionRouter *router; // that the connection has by then
};

// A router that is no QObject.
class BareRouter : public IConnectionRouter
{
public:
    QVariant getConstraint(IConnection *) override { return QVariant(); }
    void invalidate(IConnection *) override {}
    void remove(IConnection *) override {}
    void route(IConnection *) override {}
    void routeF(IConnection *) override {}
    QList<QPoint> doRoute(IConnection *) override { return {}; }
    QList<QPointF> doRouteF(IConnection *) override { return {}; }
    void setConstraint(IConnection *, const QVariant &) override {}
};

} // namespace

class tst_ConnectionRouting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void propertyNamesAreFixed();
    void newConnectionUsesTheSharedRouter_data() { addConnectionClassRows(); }
    void newConnectionUsesTheSharedRouter();
    void nullRouterOfANewConnectionDoesNothing_data() { addConnectionClassRows(); }
    void nullRouterOfANewConnectionDoesNothing();
    void sameRouterDoesNothing_data() { addConnectionClassRows(); }
    void sameRouterDoesNothing();
    void nullRouterInstallsTheSharedOne_data() { addConnectionClassRows(); }
    void nullRouterInstallsTheSharedOne();
    void newRouterIsAnnouncedWithTheFormerOneAsObjects_data() { addConnectionClassRows(); }
    void newRouterIsAnnouncedWithTheFormerOneAsObjects();
    void formerRouterForgetsBeforeTheAnnouncement_data() { addConnectionClassRows(); }
    void formerRouterForgetsBeforeTheAnnouncement();
    void routerThatIsNoObjectIsAnnouncedAsNull_data() { addConnectionClassRows(); }
    void routerThatIsNoObjectIsAnnouncedAsNull();
    void pointsAreNeverAnnounced_data() { addConnectionClassRows(); }
    void pointsAreNeverAnnounced();
    void constraintGoesToTheRouterAndRevalidates_data() { addConnectionClassRows(); }
    void constraintGoesToTheRouterAndRevalidates();
    void constraintComesFromTheRouter_data() { addConnectionClassRows(); }
    void constraintComesFromTheRouter();
    void constraintIsLostOnLeavingTheTree_data() { addConnectionClassRows(); }
    void constraintIsLostOnLeavingTheTree();
    void detachedConnectionKeepsItsConstraintUntilItLeavesATree_data() { addConnectionClassRows(); }
    void detachedConnectionKeepsItsConstraintUntilItLeavesATree();
};

void tst_ConnectionRouting::propertyNamesAreFixed()
{
    QCOMPARE(IConnection::PROPERTY_CONNECTION_ROUTER, QStringLiteral("connectionRouter"));
    QCOMPARE(IConnection::PROPERTY_POINTS, QStringLiteral("points"));
    QCOMPARE(IConnection::PROPERTY_POINTSF, QStringLiteral("pointsf"));
}

void tst_ConnectionRouting::newConnectionUsesTheSharedRouter()
{
    QFETCH(QString, className);

    QCOMPARE(makeConnection(className)->connection().getConnectionRouter(), NullRouter::instance());
}

void tst_ConnectionRouting::nullRouterOfANewConnectionDoesNothing()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    wire->log.clear();
    int announcements = 0;
    connect(&wire->figure(), &Figure::propertyChanged, this, [&] { ++announcements; });

    wire->connection().setConnectionRouter(nullptr);

    QCOMPARE(announcements, 0);
    QCOMPARE(wire->log, QStringList());
    QCOMPARE(wire->connection().getConnectionRouter(), NullRouter::instance());
}

void tst_ConnectionRouting::sameRouterDoesNothing()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    LoggingRouter router(&wire->log);
    wire->connection().setConnectionRouter(&router);
    wire->log.clear();

    wire->connection().setConnectionRouter(&router);

    QCOMPARE(wire->log, QStringList());
    wire->connection().setConnectionRouter(nullptr);
}

void tst_ConnectionRouting::nullRouterInstallsTheSharedOne()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    LoggingRouter router;
    wire->connection().setConnectionRouter(&router);
    router.own.clear();
    QStringList announced;
    connect(&wire->figure(), &Figure::propertyChanged, this,
            [&](const QString &name) { announced.append(name); });

    wire->connection().setConnectionRouter(nullptr);

    QCOMPARE(wire->connection().getConnectionRouter(), NullRouter::instance());
    QCOMPARE(router.own, QStringList{"router remove"});
    QCOMPARE(announced, QStringList{"connectionRouter"});
}

void tst_ConnectionRouting::newRouterIsAnnouncedWithTheFormerOneAsObjects()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    LoggingRouter router;
    QList<Announcement> announced;
    connect(&wire->figure(), &Figure::propertyChanged, this,
            [&](const QString &name, const QVariant &before, const QVariant &after) {
                announced.append({name, before, after, wire->connection().getConnectionRouter()});
            });

    wire->connection().setConnectionRouter(&router);

    QCOMPARE(announced.size(), 1);
    QCOMPARE(announced.first().name, QStringLiteral("connectionRouter"));
    QCOMPARE(announced.first().oldValue.metaType(), QMetaType::fromType<QObject *>());
    QCOMPARE(announced.first().newValue.metaType(), QMetaType::fromType<QObject *>());
    QCOMPARE(announced.first().oldValue.value<QObject *>(), NullRouter::instance());
    QCOMPARE(announced.first().newValue.value<QObject *>(), &router);
    QCOMPARE(announced.first().router, &router);
}

void tst_ConnectionRouting::formerRouterForgetsBeforeTheAnnouncement()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    LoggingRouter former(&wire->log);
    LoggingRouter next;
    wire->connection().setConnectionRouter(&former);
    wire->log.clear();
    next.log = &wire->log;
    connect(&wire->figure(), &Figure::propertyChanged, this,
            [&] { wire->log.append(QStringLiteral("announced")); });

    wire->connection().setConnectionRouter(&next);

    QCOMPARE(wire->log, QStringList({"router remove", "announced", "revalidate", "invalidate",
                                     "router invalidate"}));
    next.log = &next.own;
}

void tst_ConnectionRouting::routerThatIsNoObjectIsAnnouncedAsNull()
{
    QFETCH(QString, className);
    BareRouter router;
    AnyConnectionPointer wire = makeConnection(className);
    QList<QVariant> announced;
    connect(
        &wire->figure(), &Figure::propertyChanged, this,
        [&](const QString &, const QVariant &, const QVariant &after) { announced.append(after); });

    wire->connection().setConnectionRouter(&router);

    QCOMPARE(wire->connection().getConnectionRouter(), &router);
    QCOMPARE(announced.size(), 1);
    QCOMPARE(announced.first().metaType(), QMetaType::fromType<QObject *>());
    QVERIFY(!announced.first().value<QObject *>());
}

void tst_ConnectionRouting::pointsAreNeverAnnounced()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    int announcements = 0;
    connect(&wire->figure(), &Figure::propertyChanged, this, [&] { ++announcements; });

    wire->connection().setPoints({{1, 2}, {3, 4}});
    wire->connection().setPointsF({{1, 2}, {3, 4.5}});

    QCOMPARE(announcements, 0);
}

void tst_ConnectionRouting::constraintGoesToTheRouterAndRevalidates()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    LoggingRouter router;
    wire->connection().setConnectionRouter(&router);
    router.log = &wire->log;
    wire->log.clear();

    wire->connection().setRoutingConstraint(42);

    QCOMPARE(router.constraint, QVariant(42));
    QCOMPARE(wire->log,
             QStringList({"router constraint", "revalidate", "invalidate", "router invalidate"}));
    router.log = &router.own;
}

void tst_ConnectionRouting::constraintComesFromTheRouter()
{
    QFETCH(QString, className);
    LoggingRouter router;
    AnyConnectionPointer wire = makeConnection(className);
    QVERIFY(!wire->connection().getRoutingConstraint().isValid());
    wire->connection().setConnectionRouter(&router);

    router.constraint = QStringLiteral("kept");

    QCOMPARE(wire->connection().getRoutingConstraint(), QVariant(QStringLiteral("kept")));
}

void tst_ConnectionRouting::constraintIsLostOnLeavingTheTree()
{
    QFETCH(QString, className);
    BendpointConnectionRouter router;
    DisplayedTree tree;
    AnyConnectionPointer wire = makeConnection(className);
    wire->connection().setConnectionRouter(&router);
    tree.root.add(&wire->figure());
    wire->connection().setRoutingConstraint(QVariantList{1});
    QVERIFY(wire->connection().getRoutingConstraint().isValid());

    QVERIFY(tree.root.remove(&wire->figure()));

    QVERIFY(!wire->connection().getRoutingConstraint().isValid());
}

void tst_ConnectionRouting::detachedConnectionKeepsItsConstraintUntilItLeavesATree()
{
    QFETCH(QString, className);
    BendpointConnectionRouter router;
    DisplayedTree tree;
    AnyConnectionPointer wire = makeConnection(className);
    wire->connection().setConnectionRouter(&router);
    wire->connection().setRoutingConstraint(QVariantList{1});

    tree.root.add(&wire->figure());

    QVERIFY(wire->connection().getRoutingConstraint().isValid());
}

QTEST_MAIN(tst_ConnectionRouting)
#include "tst_connection_routing.moc"
