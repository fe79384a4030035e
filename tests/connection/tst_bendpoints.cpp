#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/RelativeBendpoint.h>
#include <figura/connection/XYAnchor.h>

#include <place.h>

#include <QRandomGenerator>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// One coordinate between two reference points. The share of the target side is taken in single
// precision, all else in double.
int between(float weight, int source, int sourceOffset, int target, int targetOffset)
{
    const float targetShare = weight * float(target + targetOffset);
    return int((1.0 - double(weight)) * double(source + sourceOffset) + double(targetShare));
}

// A connection between two fixed points.
class Wire
{
public:
    Wire(const QPoint &start, const QPoint &end)
        : source(start)
        , target(end)
    {
        connection.setSourceAnchor(&source);
        connection.setTargetAnchor(&target);
    }

    XYAnchor source;
    XYAnchor target;
    PolylineConnection connection{nullptr};
};

} // namespace

class tst_Bendpoints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void absoluteBendpointIsAtTheOriginAtFirst();
    void absoluteBendpointTakesItsPlaceFromTheConstructor();
    void absoluteBendpointKeepsWhatIsSet();
    void absoluteBendpointIsNullAtTheOriginOnly_data();
    void absoluteBendpointIsNullAtTheOriginOnly();
    void copyOfAnAbsoluteBendpointHasNoParent();
    void assignmentOfAnAbsoluteBendpointTakesTheLocationOnly();
    void absoluteBendpointTravelsByValue();
    void relativeBendpointHasItsDefaults();
    void relativeBendpointIsMadeOfNothing();
    void relativeBendpointIsMadeOfAConnectionOfEitherClass();
    void relativeBendpointKeepsWhatIsSet();
    void relativeBendpointIsNullWithoutAConnection();
    void copyOfARelativeBendpointHasEverythingButTheParent();
    void relativeBendpointTravelsByValue();
    void settingTheLocationOfARelativeBendpointDoesNothing();
    void relativeBendpointIsAtTheOriginWithoutAnEnd();
    void relativeBendpointLiesBetweenTheReferencePoints_data();
    void relativeBendpointLiesBetweenTheReferencePoints();
    void unsetOffsetsShiftByMinusOne();
    void relativeBendpointIsTruncatedTowardZero();
    void relativeBendpointIsInCoordinatesOfTheConnection();
    void relativeBendpointFollowsItsAnchors();
    void relativeBendpointsAreWhereTheReferenceSays();
    void singlePrecisionDecidesThePixel();
    void relativeBendpointForgetsADestroyedConnection();
    void bendpointsAreMetaTypes();
};

void tst_Bendpoints::absoluteBendpointIsAtTheOriginAtFirst()
{
    QCOMPARE(AbsoluteBendpoint(nullptr).getLocation(), QPoint(0, 0));
    QCOMPARE(AbsoluteBendpoint().getLocation(), QPoint(0, 0));
}

void tst_Bendpoints::absoluteBendpointTakesItsPlaceFromTheConstructor()
{
    QObject parent;

    AbsoluteBendpoint byCoordinates(3, 4, &parent);
    AbsoluteBendpoint byPoint(QPoint(5, 6), &parent);

    QCOMPARE(byCoordinates.getLocation(), QPoint(3, 4));
    QCOMPARE(byPoint.getLocation(), QPoint(5, 6));
    QCOMPARE(byCoordinates.parent(), &parent);
    QCOMPARE(byPoint.parent(), &parent);
    QCOMPARE(AbsoluteBendpoint(3, 4, nullptr).getLocation(), QPoint(3, 4));
}

void tst_Bendpoints::absoluteBendpointKeepsWhatIsSet()
{
    AbsoluteBendpoint bendpoint(3, 4, nullptr);

    bendpoint.setLocation(QPoint(-7, 8));

    QCOMPARE(bendpoint.getLocation(), QPoint(-7, 8));
}

void tst_Bendpoints::absoluteBendpointIsNullAtTheOriginOnly_data()
{
    QTest::addColumn<QPoint>("location");
    QTest::addColumn<bool>("expected");
    QTest::newRow("origin") << QPoint(0, 0) << true;
    QTest::newRow("to the right") << QPoint(1, 0) << false;
    QTest::newRow("below") << QPoint(0, 1) << false;
    QTest::newRow("elsewhere") << QPoint(-1, 1) << false;
}

void tst_Bendpoints::absoluteBendpointIsNullAtTheOriginOnly()
{
    QFETCH(QPoint, location);

    QTEST(AbsoluteBendpoint(location, nullptr).isNull(), "expected");
}

void tst_Bendpoints::copyOfAnAbsoluteBendpointHasNoParent()
{
    QObject parent;
    AbsoluteBendpoint original(3, 4, &parent);

    AbsoluteBendpoint copy(original);

    QCOMPARE(copy.getLocation(), QPoint(3, 4));
    QVERIFY(!copy.parent());
}

void tst_Bendpoints::assignmentOfAnAbsoluteBendpointTakesTheLocationOnly()
{
    QObject parent;
    QObject otherParent;
    AbsoluteBendpoint original(3, 4, &otherParent);
    AbsoluteBendpoint bendpoint(5, 6, &parent);

    bendpoint = original;

    QCOMPARE(bendpoint.getLocation(), QPoint(3, 4));
    QCOMPARE(bendpoint.parent(), &parent);
}

void tst_Bendpoints::absoluteBendpointTravelsByValue()
{
    AbsoluteBendpoint original(3, 4, nullptr);
    const QVariant packed = QVariant::fromValue(original);
    original.setLocation(QPoint(50, 60));

    auto unpacked = packed.value<AbsoluteBendpoint>();

    QCOMPARE(unpacked.getLocation(), QPoint(3, 4));
    QVERIFY(!packed.canConvert<RelativeBendpoint>());
    QVERIFY(!QVariant(QPoint(3, 4)).canConvert<AbsoluteBendpoint>());
}

void tst_Bendpoints::relativeBendpointHasItsDefaults()
{
    RelativeBendpoint bendpoint(nullptr);

    QVERIFY(!bendpoint.getConnection());
    QCOMPARE(bendpoint.getWeight(), 0.5F);
    QCOMPARE(bendpoint.getRelativeDim1(), QSize(-1, -1));
    QCOMPARE(bendpoint.getRelativeDim2(), QSize(-1, -1));
}

void tst_Bendpoints::relativeBendpointIsMadeOfNothing()
{
    QObject parent;

    QVERIFY(!RelativeBendpoint().getConnection());
    QVERIFY(!RelativeBendpoint(nullptr).parent());
    QCOMPARE(RelativeBendpoint(&parent).parent(), &parent);
}

void tst_Bendpoints::relativeBendpointIsMadeOfAConnectionOfEitherClass()
{
    QObject parent;
    PolylineConnection integer(nullptr);
    PolylineFConnection floating(nullptr);
    IConnection *plain = &integer;

    RelativeBendpoint ofInteger(&integer);
    RelativeBendpoint ofFloating(&floating, &parent);
    RelativeBendpoint ofInterface(plain, &parent);

    QCOMPARE(ofInteger.getConnection(), &integer);
    QVERIFY(!ofInteger.parent());
    QCOMPARE(ofFloating.getConnection(), &floating);
    QCOMPARE(ofFloating.parent(), &parent);
    QCOMPARE(ofInterface.getConnection(), plain);
}

void tst_Bendpoints::relativeBendpointKeepsWhatIsSet()
{
    PolylineConnection connection(nullptr);
    RelativeBendpoint bendpoint(nullptr);

    bendpoint.setConnection(&connection);
    bendpoint.setWeight(0.75F);
    bendpoint.setRelativeDimensions(QSize(1, 2), QSize(-3, -4));

    QCOMPARE(bendpoint.getConnection(), &connection);
    QCOMPARE(bendpoint.getWeight(), 0.75F);
    QCOMPARE(bendpoint.getRelativeDim1(), QSize(1, 2));
    QCOMPARE(bendpoint.getRelativeDim2(), QSize(-3, -4));
}

void tst_Bendpoints::relativeBendpointIsNullWithoutAConnection()
{
    PolylineConnection connection(nullptr);

    QVERIFY(RelativeBendpoint(nullptr).isNull());
    QVERIFY(!RelativeBendpoint(&connection).isNull());
}

void tst_Bendpoints::copyOfARelativeBendpointHasEverythingButTheParent()
{
    QObject parent;
    PolylineConnection connection(nullptr);
    RelativeBendpoint original(&connection, &parent);
    original.setWeight(0.25F);
    original.setRelativeDimensions(QSize(1, 2), QSize(3, 4));

    RelativeBendpoint copy(original);

    QCOMPARE(copy.getConnection(), &connection);
    QCOMPARE(copy.getWeight(), 0.25F);
    QCOMPARE(copy.getRelativeDim1(), QSize(1, 2));
    QCOMPARE(copy.getRelativeDim2(), QSize(3, 4));
    QVERIFY(!copy.parent());
}

void tst_Bendpoints::relativeBendpointTravelsByValue()
{
    Wire wire(QPoint(0, 0), QPoint(100, 50));
    RelativeBendpoint original(&wire.connection);
    original.setRelativeDimensions(QSize(0, 0), QSize(0, 0));
    const QVariant packed = QVariant::fromValue(original);
    original.setWeight(1);

    auto unpacked = packed.value<RelativeBendpoint>();

    QCOMPARE(unpacked.getLocation(), QPoint(50, 25));
    QVERIFY(!packed.canConvert<AbsoluteBendpoint>());
}

void tst_Bendpoints::settingTheLocationOfARelativeBendpointDoesNothing()
{
    Wire wire(QPoint(0, 0), QPoint(100, 50));
    RelativeBendpoint bendpoint(&wire.connection);
    bendpoint.setRelativeDimensions(QSize(0, 0), QSize(0, 0));

    bendpoint.setLocation(QPoint(7, 8));

    QCOMPARE(bendpoint.getLocation(), QPoint(50, 25));
}

void tst_Bendpoints::relativeBendpointIsAtTheOriginWithoutAnEnd()
{
    Wire wire(QPoint(10, 20), QPoint(100, 50));
    RelativeBendpoint bendpoint(&wire.connection);
    QVERIFY(bendpoint.getLocation() != QPoint(0, 0));

    wire.connection.setSourceAnchor(nullptr);
    QCOMPARE(bendpoint.getLocation(), QPoint(0, 0));

    wire.connection.setSourceAnchor(&wire.source);
    wire.connection.setTargetAnchor(nullptr);
    QCOMPARE(bendpoint.getLocation(), QPoint(0, 0));

    QCOMPARE(RelativeBendpoint(nullptr).getLocation(), QPoint(0, 0));
}

void tst_Bendpoints::relativeBendpointLiesBetweenTheReferencePoints_data()
{
    QTest::addColumn<float>("weight");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("half way") << 0.5F << QPoint(50, 25);
    QTest::newRow("a quarter, truncated") << 0.25F << QPoint(25, 12);
    QTest::newRow("at the source") << 0.0F << QPoint(0, 0);
    QTest::newRow("at the target") << 1.0F << QPoint(100, 50);
    QTest::newRow("beyond the target") << 2.0F << QPoint(200, 100);
    QTest::newRow("before the source") << -0.5F << QPoint(-50, -25);
}

void tst_Bendpoints::relativeBendpointLiesBetweenTheReferencePoints()
{
    QFETCH(float, weight);
    Wire wire(QPoint(0, 0), QPoint(100, 50));
    RelativeBendpoint bendpoint(&wire.connection);
    bendpoint.setRelativeDimensions(QSize(0, 0), QSize(0, 0));

    bendpoint.setWeight(weight);

    QTEST(bendpoint.getLocation(), "expected");
}

void tst_Bendpoints::unsetOffsetsShiftByMinusOne()
{
    Wire wire(QPoint(10, 20), QPoint(110, 70));
    RelativeBendpoint bendpoint(&wire.connection);

    QCOMPARE(bendpoint.getLocation(), QPoint(59, 44));
    bendpoint.setWeight(0);
    QCOMPARE(bendpoint.getLocation(), QPoint(9, 19));
    bendpoint.setWeight(1);
    QCOMPARE(bendpoint.getLocation(), QPoint(109, 69));
}

void tst_Bendpoints::relativeBendpointIsTruncatedTowardZero()
{
    Wire wire(QPoint(0, 0), QPoint(-101, -51));
    RelativeBendpoint bendpoint(&wire.connection);
    bendpoint.setRelativeDimensions(QSize(0, 0), QSize(0, 0));

    QCOMPARE(bendpoint.getLocation(), QPoint(-50, -25));
}

void tst_Bendpoints::relativeBendpointIsInCoordinatesOfTheConnection()
{
    Place parent(QPoint(1000, 2000));
    Wire wire(QPoint(1000, 2000), QPoint(1100, 2050));
    parent.add(&wire.connection);
    RelativeBendpoint bendpoint(&wire.connection);
    bendpoint.setRelativeDimensions(QSize(0, 0), QSize(0, 0));

    QCOMPARE(bendpoint.getLocation(), QPoint(50, 25));
}

void tst_Bendpoints::relativeBendpointFollowsItsAnchors()
{
    Wire wire(QPoint(0, 0), QPoint(100, 50));
    RelativeBendpoint bendpoint(&wire.connection);
    bendpoint.setRelativeDimensions(QSize(4, 0), QSize(0, 6));

    wire.target.setLocation(QPoint(200, 100));

    QCOMPARE(bendpoint.getLocation(), QPoint(102, 53));
}

void tst_Bendpoints::relativeBendpointsAreWhereTheReferenceSays()
{
    QRandomGenerator random(20263);
    Wire wire(QPoint(0, 0), QPoint(0, 0));
    RelativeBendpoint bendpoint(&wire.connection);
    for (int i = 0; i < 20000; ++i) {
        const int reach = i % 3 == 0 ? 30000000 : 3000; // far beyond what single precision holds
        const auto coordinate = [&] { return random.bounded(-reach, reach); };
        const QPoint source(coordinate(), coordinate());
        const QPoint target(coordinate(), coordinate());
        const QSize dim1(random.bounded(-200, 200), random.bounded(-200, 200));
        const QSize dim2(random.bounded(-200, 200), random.bounded(-200, 200));
        const auto weight = float(random.bounded(1.0));
        wire.source.setLocation(source);
        wire.target.setLocation(target);
        bendpoint.setRelativeDimensions(dim1, dim2);
        bendpoint.setWeight(weight);

        const QPoint expected(
            between(weight, source.x(), dim1.width(), target.x(), dim2.width()),
            between(weight, source.y(), dim1.height(), target.y(), dim2.height()));
        QCOMPARE(bendpoint.getLocation(), expected);
    }
}

// 16777217 is the first whole number that single precision cannot tell from its neighbour. The
// source side keeps it; only the target side loses it.
void tst_Bendpoints::singlePrecisionDecidesThePixel()
{
    Wire wire(QPoint(16777217, 0), QPoint(0, 16777217));
    RelativeBendpoint bendpoint(&wire.connection);
    bendpoint.setRelativeDimensions(QSize(0, 0), QSize(0, 0));

    bendpoint.setWeight(0);
    QCOMPARE(bendpoint.getLocation(), QPoint(16777217, 0));
    bendpoint.setWeight(1);
    QCOMPARE(bendpoint.getLocation(), QPoint(0, 16777216));
}

void tst_Bendpoints::relativeBendpointForgetsADestroyedConnection()
{
    auto connection = std::make_unique<PolylineConnection>(nullptr);
    RelativeBendpoint bendpoint(connection.get());
    const QVariant packed = QVariant::fromValue(bendpoint);

    connection.reset();

    QVERIFY(bendpoint.isNull());
    QCOMPARE(bendpoint.getLocation(), QPoint(0, 0));
    QCOMPARE(packed.value<RelativeBendpoint>().getLocation(), QPoint(0, 0));
}

void tst_Bendpoints::bendpointsAreMetaTypes()
{
    QVERIFY(QMetaType::fromName("Velmora::Figura::AbsoluteBendpoint").isValid());
    QVERIFY(QMetaType::fromName("Velmora::Figura::RelativeBendpoint").isValid());
    // Their equality is not defined, so even a copy is unequal.
    const QVariant packed = QVariant::fromValue(AbsoluteBendpoint(3, 4, nullptr));
    const QVariant copy = packed;
    QVERIFY(packed != copy);
}

QTEST_MAIN(tst_Bendpoints)
#include "tst_bendpoints.moc"
