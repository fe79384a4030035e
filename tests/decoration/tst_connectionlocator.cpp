#include "decoration_fixtures.h"

#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/decoration/ConnectionLocator.h>

#include <place.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Pos = IPositionConstants;
using Points = QList<QPoint>;

namespace {

// The one value between TARGET and the end of what two bits can say.
const auto UNKNOWN = static_cast<ConnectionLocator::Alignment>(3);

class OpenLocator : public ConnectionLocator
{
public:
    using ConnectionLocator::ConnectionLocator;
    using ConnectionLocator::getConnection;
    using ConnectionLocator::getLocation;
    using ConnectionLocator::getLocationIndex;
    using ConnectionLocator::getReferencePoint;
    using ConnectionLocator::setAlignment;
    using ConnectionLocator::setConnection;
};

} // namespace

class tst_ConnectionLocator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void alignmentsHaveTheirNumbers();
    void newLocatorIsInTheMiddle();
    void newLocatorMayBeGivenAnAlignment();
    void constructorsPassTheirParentOn();
    void settersOnlyStore();

    void locationIsThatOfTheAlignment_data();
    void locationIsThatOfTheAlignment();
    void locationIndexIsThatOfTheAlignment_data();
    void locationIndexIsThatOfTheAlignment();

    void referencePointIsAPointOfTheConnection();
    void referencePointIsAbsolute();
    void referencePointOfAFloatingConnectionIsRounded();
    void referencePointWithoutConnectionIsTheOrigin();
    void referencePointUsesOverriddenOperations();

    void relocatePlacesALabelBesideTheConnection_data();
    void relocatePlacesALabelBesideTheConnection();
    void hiddenLabelIsNotMoved();
};

void tst_ConnectionLocator::alignmentsHaveTheirNumbers()
{
    QCOMPARE(int(ConnectionLocator::MIDDLE), 0);
    QCOMPARE(int(ConnectionLocator::SOURCE), 1);
    QCOMPARE(int(ConnectionLocator::TARGET), 2);
}

void tst_ConnectionLocator::newLocatorIsInTheMiddle()
{
    PolylineConnection connection;
    const OpenLocator locator(&connection);

    QCOMPARE(locator.getAlignment(), ConnectionLocator::MIDDLE);
    QCOMPARE(locator.getConnection(), &connection);
    QCOMPARE(locator.getGap(), 0);
    QCOMPARE(locator.getRelativePosition(), Pos::CENTER);
}

void tst_ConnectionLocator::newLocatorMayBeGivenAnAlignment()
{
    PolylineConnection connection;
    const OpenLocator locator(&connection, ConnectionLocator::TARGET);

    QCOMPARE(locator.getAlignment(), ConnectionLocator::TARGET);
    QCOMPARE(locator.getConnection(), &connection);
}

void tst_ConnectionLocator::constructorsPassTheirParentOn()
{
    QObject parent;
    PolylineConnection connection;
    const auto *middle = new ConnectionLocator(&connection, &parent);
    const auto *source = new ConnectionLocator(&connection, ConnectionLocator::SOURCE, &parent);

    QCOMPARE(middle->parent(), &parent);
    QCOMPARE(source->parent(), &parent);
    QCOMPARE(source->getAlignment(), ConnectionLocator::SOURCE);
}

void tst_ConnectionLocator::settersOnlyStore()
{
    PolylineConnection first;
    PolylineConnection second;
    OpenLocator locator(&first);

    locator.setAlignment(ConnectionLocator::SOURCE);
    locator.setConnection(&second);

    QCOMPARE(locator.getAlignment(), ConnectionLocator::SOURCE);
    QCOMPARE(locator.getConnection(), &second);
    locator.setConnection(nullptr);
    QCOMPARE(locator.getConnection(), nullptr);
}

void tst_ConnectionLocator::locationIsThatOfTheAlignment_data()
{
    QTest::addColumn<ConnectionLocator::Alignment>("alignment");
    QTest::addColumn<Points>("points");
    QTest::addColumn<QPoint>("expected");
    const auto middle = ConnectionLocator::MIDDLE;
    const auto source = ConnectionLocator::SOURCE;
    const auto target = ConnectionLocator::TARGET;
    const Points four{{1, 2}, {10, 20}, {31, 41}, {90, 80}};
    const Points three{{1, 2}, {10, 20}, {31, 41}};

    QTest::newRow("middle of none") << middle << Points() << QPoint(0, 0);
    QTest::newRow("middle of one") << middle << Points{{7, 8}} << QPoint(7, 8);
    QTest::newRow("middle of two") << middle << Points{{10, 20}, {30, 60}} << QPoint(20, 40);
    QTest::newRow("middle of three") << middle << three << QPoint(10, 20);
    QTest::newRow("middle of four") << middle << four << QPoint(20, 30);
    QTest::newRow("middle of five")
        << middle << Points{{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10}} << QPoint(5, 6);
    QTest::newRow("middle of six")
        << middle << Points{{0, 0}, {1, 1}, {10, 20}, {30, 40}, {5, 5}, {6, 6}} << QPoint(20, 30);
    QTest::newRow("half the way is truncated, not half the sum")
        << middle << Points{{0, 0}, {-3, 5}} << QPoint(-1, 2);
    QTest::newRow("from the other end it is truncated the other way")
        << middle << Points{{-3, 5}, {0, 0}} << QPoint(-2, 3);

    QTest::newRow("source of none") << source << Points() << QPoint(0, 0);
    QTest::newRow("source of one") << source << Points{{7, 8}} << QPoint(7, 8);
    QTest::newRow("source of four") << source << four << QPoint(1, 2);
    QTest::newRow("target of none") << target << Points() << QPoint(0, 0);
    QTest::newRow("target of one") << target << Points{{7, 8}} << QPoint(7, 8);
    QTest::newRow("target of four") << target << four << QPoint(90, 80);
    QTest::newRow("another alignment") << UNKNOWN << four << QPoint(0, 0);
}

void tst_ConnectionLocator::locationIsThatOfTheAlignment()
{
    QFETCH(ConnectionLocator::Alignment, alignment);
    QFETCH(Points, points);
    QFETCH(QPoint, expected);
    OpenLocator locator(nullptr, alignment);

    QCOMPARE(locator.getLocation(points), expected);
}

void tst_ConnectionLocator::locationIndexIsThatOfTheAlignment_data()
{
    QTest::addColumn<ConnectionLocator::Alignment>("alignment");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::newRow("middle of none") << ConnectionLocator::MIDDLE << 0 << -1;
    QTest::newRow("middle of one") << ConnectionLocator::MIDDLE << 1 << 0;
    QTest::newRow("middle of two") << ConnectionLocator::MIDDLE << 2 << 0;
    QTest::newRow("middle of three") << ConnectionLocator::MIDDLE << 3 << 1;
    QTest::newRow("middle of four") << ConnectionLocator::MIDDLE << 4 << 1;
    QTest::newRow("middle of fewer than none") << ConnectionLocator::MIDDLE << -3 << -1;
    QTest::newRow("source of none") << ConnectionLocator::SOURCE << 0 << 0;
    QTest::newRow("source of four") << ConnectionLocator::SOURCE << 4 << 0;
    QTest::newRow("target of none") << ConnectionLocator::TARGET << 0 << -1;
    QTest::newRow("target of four") << ConnectionLocator::TARGET << 4 << 3;
    QTest::newRow("another alignment") << UNKNOWN << 4 << -1;
}

void tst_ConnectionLocator::locationIndexIsThatOfTheAlignment()
{
    QFETCH(ConnectionLocator::Alignment, alignment);
    QFETCH(int, count);
    QFETCH(int, index);
    const OpenLocator locator(nullptr, alignment);

    QCOMPARE(locator.getLocationIndex(count), index);
}

void tst_ConnectionLocator::referencePointIsAPointOfTheConnection()
{
    PolylineConnection connection;
    connection.setPoints({{10, 20}, {30, 60}, {70, 5}});
    OpenLocator locator(&connection);

    QCOMPARE(locator.getReferencePoint(), QPoint(30, 60));
    locator.setAlignment(ConnectionLocator::SOURCE);
    QCOMPARE(locator.getReferencePoint(), QPoint(10, 20));
    locator.setAlignment(ConnectionLocator::TARGET);
    QCOMPARE(locator.getReferencePoint(), QPoint(70, 5));
}

void tst_ConnectionLocator::referencePointIsAbsolute()
{
    Place outer(QPoint(300, 400));
    Place inner(QPoint(10, -20));
    outer.add(&inner);
    PolylineConnection connection;
    inner.add(&connection);
    connection.setPoints({{1, 2}, {3, 4}, {5, 6}});
    OpenLocator locator(&connection);

    QCOMPARE(locator.getReferencePoint(), QPoint(313, 384));
    connection.setPoints({});
    QCOMPARE(locator.getReferencePoint(), QPoint(310, 380)); // (0, 0) of the connection
}

void tst_ConnectionLocator::referencePointOfAFloatingConnectionIsRounded()
{
    PolylineFConnection connection;
    connection.setPointsF({{0, 0}, {2.5, -2.5}, {9, 9}});
    OpenLocator locator(&connection);

    QCOMPARE(locator.getReferencePoint(), QPoint(3, -3));
}

void tst_ConnectionLocator::referencePointWithoutConnectionIsTheOrigin()
{
    OpenLocator locator(nullptr);

    QCOMPARE(locator.getReferencePoint(), QPoint(0, 0));
}

void tst_ConnectionLocator::referencePointUsesOverriddenOperations()
{
    class OtherLocator : public OpenLocator
    {
    public:
        using OpenLocator::OpenLocator;

        IConnection *other = nullptr;
        Points points;

        IConnection *getConnection() const override { return other; }
        QPoint getLocation(QList<QPoint> given) override
        {
            points = given;
            return QPoint(17, 18);
        }
    };
    Place place(QPoint(100, 200));
    PolylineConnection ignored;
    PolylineConnection used;
    place.add(&used);
    used.setPoints({{1, 2}, {3, 4}});
    OtherLocator locator(&ignored);
    locator.other = &used;

    QCOMPARE(locator.getReferencePoint(), QPoint(117, 218));
    QCOMPARE(locator.points, (Points{{1, 2}, {3, 4}}));
}

void tst_ConnectionLocator::relocatePlacesALabelBesideTheConnection_data()
{
    QTest::addColumn<ConnectionLocator::Alignment>("alignment");
    QTest::addColumn<int>("position");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("on the middle")
        << ConnectionLocator::MIDDLE << Pos::CENTER << QRect(20, 55, 20, 10);
    QTest::newRow("above the source")
        << ConnectionLocator::SOURCE << Pos::NORTH << QRect(0, 7, 20, 10);
    QTest::newRow("right of the target")
        << ConnectionLocator::TARGET << Pos::EAST << QRect(73, 0, 20, 10);
}

void tst_ConnectionLocator::relocatePlacesALabelBesideTheConnection()
{
    QFETCH(ConnectionLocator::Alignment, alignment);
    QFETCH(int, position);
    QFETCH(QRect, expected);
    PolylineConnection connection;
    connection.setPoints({{10, 20}, {30, 60}, {70, 5}});
    auto *locator = new ConnectionLocator(&connection, alignment, &connection);
    locator->setRelativePosition(position);
    locator->setGap(3);
    Label label(QSize(20, 10));

    connection.add(&label, QVariant::fromValue<QObject *>(locator));

    QCOMPARE(label.getBounds(), expected);
}

void tst_ConnectionLocator::hiddenLabelIsNotMoved()
{
    PolylineConnection connection;
    Label label(QSize(20, 10));
    label.setBounds(QRect(1, 2, 3, 4));
    label.setVisible(false);

    ConnectionLocator(&connection).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(1, 2, 3, 4));
}

QTEST_MAIN(tst_ConnectionLocator)
#include "tst_connectionlocator.moc"
