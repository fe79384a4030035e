#include "connection_fixtures.h"

#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/NullRouter.h>
#include <figura/connection/RelativeBendpoint.h>

#include <place.h>

#include <QRandomGenerator>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;
using PointsF = QList<QPointF>;

namespace {

class OpenRouter : public BendpointConnectionRouter
{
public:
    using BendpointConnectionRouter::BendpointConnectionRouter;
    using BendpointConnectionRouter::getBendpointList;
    using BendpointConnectionRouter::getBendpointLocation;
};

QVariant absolute(int x, int y)
{
    return QVariant::fromValue(AbsoluteBendpoint(x, y, nullptr));
}

// Two boxes and a connection between them, in a parent away from the origin.
class Boxes
{
public:
    Place parent{QPoint(1000, 2000)};
    Figure left;
    Figure right;
    ChopboxAnchor source{&left};
    ChopboxAnchor target{&right};
    PolylineConnection connection{nullptr};

    Boxes()
    {
        parent.add(&left);
        parent.add(&right);
        parent.add(&connection);
        left.setBounds(QRect(0, 0, 100, 50));
        right.setBounds(QRect(200, 0, 100, 50));
        connection.setSourceAnchor(&source);
        connection.setTargetAnchor(&target);
    }

    QPoint toAbsolute(QPoint point) { return connection.translateToAbsolute(point); }
    QPoint toRelative(QPoint point) { return connection.translateToRelative(point); }
};

} // namespace

class tst_BendpointRouter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void constraintIsUnknownAtFirst();
    void constraintIsKeptForItsConnection();
    void constraintIsReplaced();
    void invalidConstraintRemovesTheEntry();
    void emptyListIsAConstraint();
    void removedConnectionIsForgotten();
    void invalidationKeepsTheConstraint();
    void nullConnectionIsIgnored();
    void bendpointListIsThatOfTheConstraint();
    void bendpointListAsksTheOverriddenConstraint();
    void locationOfABendpointIsThatOfTheValue();
    void locationOfAnythingElseIsTheOrigin_data();
    void locationOfAnythingElseIsTheOrigin();
    void withoutAConstraintTheRouteIsStraight();
    void emptyListGivesAStraightRoute();
    void oneBendpointBendsTheRouteAndAimsTheEnds();
    void bendpointsFollowInListOrder();
    void endsAimAtTheFirstAndTheLastBendpoint();
    void strangeElementsCountAsTheOrigin();
    void relativeBendpointsMoveWithTheFigures();
    void overriddenBendpointLocationIsUsed();
    void floatingRouteIsTheIntegerOne();
    void floatingRouteAsksTheOverriddenOne();
    void randomRoutesAreAsTheReferenceSays();
    void constraintSetThroughTheConnectionRoutesIt_data() { addConnectionClassRows(); }
    void constraintSetThroughTheConnectionRoutesIt();
    void destroyedConnectionIsForgotten();
    void newConnectionInheritsNothing();
};

void tst_BendpointRouter::constraintIsUnknownAtFirst()
{
    PolylineConnection connection(nullptr);
    OpenRouter router(nullptr);

    QVERIFY(!router.getConstraint(&connection).isValid());
    QVERIFY(router.getBendpointList(&connection).isEmpty());
}

void tst_BendpointRouter::constraintIsKeptForItsConnection()
{
    PolylineConnection connection(nullptr);
    PolylineConnection other(nullptr);
    OpenRouter router(nullptr);

    router.setConstraint(&connection, QVariantList{absolute(1, 2)});

    QCOMPARE(router.getConstraint(&connection).toList().size(), 1);
    QVERIFY(!router.getConstraint(&other).isValid());
}

void tst_BendpointRouter::constraintIsReplaced()
{
    PolylineConnection connection(nullptr);
    OpenRouter router(nullptr);
    router.setConstraint(&connection, QVariantList{1, 2, 3});

    router.setConstraint(&connection, QVariantList{4});

    QCOMPARE(router.getConstraint(&connection), QVariant(QVariantList{4}));
}

void tst_BendpointRouter::invalidConstraintRemovesTheEntry()
{
    PolylineConnection connection(nullptr);
    OpenRouter router(nullptr);
    router.setConstraint(&connection, QVariantList{1, 2, 3});

    router.setConstraint(&connection, QVariant());

    QVERIFY(!router.getConstraint(&connection).isValid());
}

void tst_BendpointRouter::emptyListIsAConstraint()
{
    PolylineConnection connection(nullptr);
    OpenRouter router(nullptr);

    router.setConstraint(&connection, QVariantList());

    QVERIFY(router.getConstraint(&connection).isValid());
}

void tst_BendpointRouter::removedConnectionIsForgotten()
{
    PolylineConnection connection(nullptr);
    PolylineConnection other(nullptr);
    OpenRouter router(nullptr);
    router.setConstraint(&connection, QVariantList{1});
    router.setConstraint(&other, QVariantList{2});

    router.remove(&connection);
    router.remove(&connection);

    QVERIFY(!router.getConstraint(&connection).isValid());
    QVERIFY(router.getConstraint(&other).isValid());
}

void tst_BendpointRouter::invalidationKeepsTheConstraint()
{
    PolylineConnection connection(nullptr);
    OpenRouter router(nullptr);
    router.setConstraint(&connection, QVariantList{1});

    router.invalidate(&connection);

    QVERIFY(router.getConstraint(&connection).isValid());
}

void tst_BendpointRouter::nullConnectionIsIgnored()
{
    OpenRouter router(nullptr);

    router.setConstraint(nullptr, QVariantList{1});
    router.remove(nullptr);
    router.invalidate(nullptr);

    QVERIFY(!router.getConstraint(nullptr).isValid());
}

void tst_BendpointRouter::bendpointListIsThatOfTheConstraint()
{
    PolylineConnection connection(nullptr);
    OpenRouter router(nullptr);

    router.setConstraint(&connection, QVariantList{1, 2});
    QCOMPARE(router.getBendpointList(&connection), QVariantList({1, 2}));

    router.setConstraint(&connection, 42); // not a list
    QCOMPARE(router.getBendpointList(&connection), QVariantList());
}

void tst_BendpointRouter::bendpointListAsksTheOverriddenConstraint()
{
    class Fixed : public OpenRouter
    {
    public:
        Fixed()
            : OpenRouter(nullptr)
        {
        }
        QVariant getConstraint(IConnection *) override { return QVariantList{7}; }
    };

    QCOMPARE(Fixed().getBendpointList(nullptr), QVariantList{7});
}

void tst_BendpointRouter::locationOfABendpointIsThatOfTheValue()
{
    Boxes boxes;
    RelativeBendpoint relative(&boxes.connection);
    relative.setRelativeDimensions(QSize(0, 0), QSize(0, 0));
    OpenRouter router(nullptr);

    QCOMPARE(router.getBendpointLocation(absolute(-3, 4)), QPoint(-3, 4));
    // half way between (49, 24) and (249, 24)
    QCOMPARE(router.getBendpointLocation(QVariant::fromValue(relative)), QPoint(149, 24));
}

void tst_BendpointRouter::locationOfAnythingElseIsTheOrigin_data()
{
    QTest::addColumn<QVariant>("element");
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("a point") << QVariant(QPoint(3, 4));
    QTest::newRow("a number") << QVariant(42);
    QTest::newRow("a text") << QVariant(QStringLiteral("3, 4"));
}

void tst_BendpointRouter::locationOfAnythingElseIsTheOrigin()
{
    QFETCH(QVariant, element);

    QCOMPARE(OpenRouter(nullptr).getBendpointLocation(element), QPoint(0, 0));
}

void tst_BendpointRouter::withoutAConstraintTheRouteIsStraight()
{
    Boxes boxes;

    QCOMPARE(OpenRouter(nullptr).doRoute(&boxes.connection), Points({{100, 24}, {199, 24}}));
    QCOMPARE(OpenRouter(nullptr).doRoute(&boxes.connection),
             NullRouter(nullptr).doRoute(&boxes.connection));
}

void tst_BendpointRouter::emptyListGivesAStraightRoute()
{
    Boxes boxes;
    OpenRouter router(nullptr);

    router.setConstraint(&boxes.connection, QVariantList());

    QCOMPARE(router.doRoute(&boxes.connection), Points({{100, 24}, {199, 24}}));
}

void tst_BendpointRouter::oneBendpointBendsTheRouteAndAimsTheEnds()
{
    Boxes boxes;
    OpenRouter router(nullptr);

    router.setConstraint(&boxes.connection, QVariantList{absolute(50, 80)});

    const QPoint aim(1050, 2080);
    QCOMPARE(router.doRoute(&boxes.connection),
             Points({boxes.toRelative(boxes.source.getLocation(aim)), QPoint(50, 80),
                     boxes.toRelative(boxes.target.getLocation(aim))}));
    QCOMPARE(router.doRoute(&boxes.connection).first(), QPoint(50, 50));
}

void tst_BendpointRouter::bendpointsFollowInListOrder()
{
    Boxes boxes;
    OpenRouter router(nullptr);

    router.setConstraint(&boxes.connection,
                         QVariantList{absolute(150, 80), absolute(20, 90), absolute(150, 80)});

    QCOMPARE(router.doRoute(&boxes.connection).mid(1, 3), Points({{150, 80}, {20, 90}, {150, 80}}));
    QCOMPARE(router.doRoute(&boxes.connection).size(), 5);
}

void tst_BendpointRouter::endsAimAtTheFirstAndTheLastBendpoint()
{
    Boxes boxes;
    OpenRouter router(nullptr);

    router.setConstraint(&boxes.connection, QVariantList{absolute(49, -90), absolute(250, 90)});

    const Points route = router.doRoute(&boxes.connection);
    QCOMPARE(route.first(), boxes.toRelative(boxes.source.getLocation(QPoint(1049, 1910))));
    QCOMPARE(route.last(), boxes.toRelative(boxes.target.getLocation(QPoint(1250, 2090))));
    QCOMPARE(route.first().y(), -1);
    QCOMPARE(route.last().y(), 50);
}

void tst_BendpointRouter::strangeElementsCountAsTheOrigin()
{
    Boxes boxes;
    OpenRouter router(nullptr);

    router.setConstraint(&boxes.connection, QVariantList{absolute(150, 80), QPoint(7, 8), 42});

    const Points route = router.doRoute(&boxes.connection);
    QCOMPARE(route.mid(1, 3), Points({{150, 80}, {0, 0}, {0, 0}}));
    QCOMPARE(route.last(), boxes.toRelative(boxes.target.getLocation(QPoint(1000, 2000))));
}

void tst_BendpointRouter::relativeBendpointsMoveWithTheFigures()
{
    Boxes boxes;
    OpenRouter router(nullptr);
    RelativeBendpoint relative(&boxes.connection);
    relative.setRelativeDimensions(QSize(0, 40), QSize(0, 40));
    router.setConstraint(&boxes.connection, QVariantList{QVariant::fromValue(relative)});
    QCOMPARE(router.doRoute(&boxes.connection).at(1), QPoint(149, 64));

    boxes.right.setBounds(QRect(400, 100, 100, 50));

    QCOMPARE(router.doRoute(&boxes.connection).at(1), QPoint(249, 114));
}

void tst_BendpointRouter::overriddenBendpointLocationIsUsed()
{
    class Shifted : public BendpointConnectionRouter
    {
    public:
        Shifted()
            : BendpointConnectionRouter(nullptr)
        {
        }

    protected:
        QPoint getBendpointLocation(const QVariant &) override { return QPoint(49, -90); }
        QVariantList getBendpointList(IConnection *) override { return {1}; }
    };
    Boxes boxes;

    const Points route = Shifted().doRoute(&boxes.connection);

    QCOMPARE(route.at(1), QPoint(49, -90));
    QCOMPARE(route.first(), boxes.toRelative(boxes.source.getLocation(QPoint(1049, 1910))));
}

void tst_BendpointRouter::floatingRouteIsTheIntegerOne()
{
    Boxes boxes;
    OpenRouter router(nullptr);
    router.setConstraint(&boxes.connection, QVariantList{absolute(50, 80)});

    PointsF expected;
    for (const QPoint &point : router.doRoute(&boxes.connection))
        expected.append(point);

    QCOMPARE(router.doRouteF(&boxes.connection), expected);
}

void tst_BendpointRouter::floatingRouteAsksTheOverriddenOne()
{
    class Fixed : public BendpointConnectionRouter
    {
    public:
        Fixed()
            : BendpointConnectionRouter(nullptr)
        {
        }
        Points doRoute(IConnection *) override { return {{1, 2}, {3, 4}}; }
    };

    QCOMPARE(Fixed().doRouteF(nullptr), PointsF({{1, 2}, {3, 4}}));
}

void tst_BendpointRouter::randomRoutesAreAsTheReferenceSays()
{
    QRandomGenerator random(20264);
    const auto place = [&] { return random.bounded(-400, 400); };
    Boxes boxes;
    OpenRouter router(nullptr);
    for (int i = 0; i < 3000; ++i) {
        boxes.left.setBounds(QRect(place(), place(), random.bounded(1, 90), random.bounded(1, 90)));
        boxes.right.setBounds(
            QRect(place(), place(), random.bounded(1, 90), random.bounded(1, 90)));
        Points bends;
        QVariantList constraint;
        for (int count = random.bounded(1, 5); count > 0; --count) {
            bends.append(QPoint(place(), place()));
            constraint.append(absolute(bends.last().x(), bends.last().y()));
        }
        router.setConstraint(&boxes.connection, constraint);

        // The parent lies at (1000, 2000), and anchors look at absolute points.
        const QPoint corner(1000, 2000);
        Points expected = bends;
        expected.prepend(boxes.source.getLocation(bends.first() + corner) - corner);
        expected.append(boxes.target.getLocation(bends.last() + corner) - corner);
        QCOMPARE(router.doRoute(&boxes.connection), expected);
    }
}

void tst_BendpointRouter::constraintSetThroughTheConnectionRoutesIt()
{
    QFETCH(QString, className);
    DisplayedTree tree;
    XYAnchor source(QPoint(10, 20));
    XYAnchor target(QPoint(90, 20));
    BendpointConnectionRouter router(nullptr);
    AnyConnectionPointer wire = makeConnection(className);
    wire->connection().setConnectionRouter(&router);
    tree.root.add(&wire->figure());
    wire->connection().setSourceAnchor(&source);
    wire->connection().setTargetAnchor(&target);

    wire->connection().setRoutingConstraint(QVariantList{absolute(50, 80)});
    tree.root.validate();

    QCOMPARE(wire->connection().getPoints(), Points({{10, 20}, {50, 80}, {90, 20}}));
    auto kept = wire->connection().getRoutingConstraint().toList().value(0);
    QCOMPARE(kept.value<AbsoluteBendpoint>().getLocation(), QPoint(50, 80));
}

void tst_BendpointRouter::destroyedConnectionIsForgotten()
{
    OpenRouter router(nullptr);
    auto connection = std::make_unique<PolylineConnection>(nullptr);
    IConnection *address = connection.get();
    router.setConstraint(address, QVariantList{1});

    connection.reset();

    QVERIFY(!router.getConstraint(address).isValid()); // only compares the address
}

// The same storage twice: the second connection has the address of the first one.
void tst_BendpointRouter::newConnectionInheritsNothing()
{
    OpenRouter router(nullptr);
    alignas(PolylineConnection) std::byte storage[sizeof(PolylineConnection)];
    auto *first = new (storage) PolylineConnection(nullptr);
    router.setConstraint(first, QVariantList{absolute(1, 2)});
    first->~PolylineConnection();

    auto *second = new (storage) PolylineConnection(nullptr);

    QVERIFY(!router.getConstraint(second).isValid());
    second->~PolylineConnection();
}

QTEST_MAIN(tst_BendpointRouter)
#include "tst_bendpointrouter.moc"
