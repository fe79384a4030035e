#include "decoration_fixtures.h"

#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/decoration/MidpointLocator.h>

#include <place.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;

namespace {

class OpenLocator : public MidpointLocator
{
public:
    using MidpointLocator::getConnection;
    using MidpointLocator::getIndex;
    using MidpointLocator::getReferencePoint;
    using MidpointLocator::MidpointLocator;
    using MidpointLocator::setAlignment;
    using MidpointLocator::setConnection;
};

// Says something else about its points one by one than as a list.
class TwoFacedConnection : public PolylineConnection
{
public:
    QPoint getPoint(int index) override { return QPoint(100 * index, 1000); }
    int getPointCount() const override { return 50; }
    QList<QPoint> getPoints() override { return {}; }
};

void expectWarning(int index)
{
    const QString text =
        QStringLiteral("MidpointLocator::getReferencePoint(): index, %1, out-of-bound").arg(index);
    QTest::ignoreMessage(QtWarningMsg, qPrintable(text));
}

} // namespace

class tst_MidpointLocator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newLocatorKnowsConnectionAndIndex();
    void referencePointIsTheMiddleOfOneSegment_data();
    void referencePointIsTheMiddleOfOneSegment();
    void referencePointIsAbsolute();
    void segmentPastTheEndGoesToTheConnectionsOrigin();
    void segmentPastTheEndGoesToTheOriginOfTheConnectionsCoordinates();
    void negativeIndexIsNotRefused_data();
    void negativeIndexIsNotRefused();
    void indexFromTheCountOnIsRefused_data();
    void indexFromTheCountOnIsRefused();
    void missingConnectionIsReportedWithTheIndex();
    void alignmentIsNotUsed();
    void pointsAreAskedForOneByOne();
    void floatingPointsAreRoundedBeforeTheMiddleIsTaken();
    void overriddenConnectionIsUsed();

    void relocatePlacesALabelOnTheSegment();
    void relocateWithARefusedIndexGoesToTheOrigin();
    void hiddenLabelIsNeitherMovedNorReported();
};

void tst_MidpointLocator::newLocatorKnowsConnectionAndIndex()
{
    QObject parent;
    PolylineConnection connection;
    const auto *locator = new OpenLocator(&connection, 5, &parent);

    QCOMPARE(locator->getConnection(), &connection);
    QCOMPARE(locator->getIndex(), 5);
    QCOMPARE(locator->getAlignment(), ConnectionLocator::MIDDLE);
    QCOMPARE(locator->parent(), &parent);
}

void tst_MidpointLocator::referencePointIsTheMiddleOfOneSegment_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<int>("index");
    QTest::addColumn<QPoint>("expected");
    const Points four{{0, 0}, {10, 20}, {31, 41}, {90, 80}};
    QTest::newRow("first") << four << 0 << QPoint(5, 10);
    QTest::newRow("second") << four << 1 << QPoint(20, 30);
    QTest::newRow("third") << four << 2 << QPoint(60, 60);
    QTest::newRow("half the way is truncated, not half the sum")
        << Points{{0, 0}, {-3, 5}} << 0 << QPoint(-1, 2);
    QTest::newRow("from the other end it is truncated the other way")
        << Points{{-3, 5}, {0, 0}} << 0 << QPoint(-2, 3);
}

void tst_MidpointLocator::referencePointIsTheMiddleOfOneSegment()
{
    QFETCH(Points, points);
    QFETCH(int, index);
    QFETCH(QPoint, expected);
    PolylineConnection connection;
    connection.setPoints(points);
    OpenLocator locator(&connection, index);

    QCOMPARE(locator.getReferencePoint(), expected);
}

void tst_MidpointLocator::referencePointIsAbsolute()
{
    Place outer(QPoint(300, 400));
    Place inner(QPoint(10, -20));
    outer.add(&inner);
    PolylineConnection connection;
    inner.add(&connection);
    connection.setPoints({{1, 2}, {4, 5}});
    OpenLocator locator(&connection, 0);

    QCOMPARE(locator.getReferencePoint(), QPoint(312, 383));
}

void tst_MidpointLocator::segmentPastTheEndGoesToTheConnectionsOrigin()
{
    PolylineConnection connection;
    connection.setPoints({{0, 0}, {10, 20}, {40, 60}});
    OpenLocator locator(&connection, 2);

    QCOMPARE(locator.getReferencePoint(), QPoint(20, 30));
}

void tst_MidpointLocator::segmentPastTheEndGoesToTheOriginOfTheConnectionsCoordinates()
{
    Place place(QPoint(100, 200));
    PolylineConnection connection;
    place.add(&connection);
    connection.setPoints({{0, 0}, {10, 20}, {40, 60}});
    OpenLocator locator(&connection, 2);

    QCOMPARE(locator.getReferencePoint(), QPoint(120, 230));
}

void tst_MidpointLocator::negativeIndexIsNotRefused_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("before the first point") << -1 << QPoint(125, 235);
    QTest::newRow("farther") << -2 << QPoint(100, 200);
    QTest::newRow("far") << -1000000 << QPoint(100, 200);
}

void tst_MidpointLocator::negativeIndexIsNotRefused()
{
    QFETCH(int, index);
    QFETCH(QPoint, expected);
    Place place(QPoint(100, 200));
    PolylineConnection connection;
    place.add(&connection);
    connection.setPoints({{50, 70}, {10, 20}});
    OpenLocator locator(&connection, index);

    QCOMPARE(locator.getReferencePoint(), expected);
}

void tst_MidpointLocator::indexFromTheCountOnIsRefused_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<int>("index");
    const Points three{{1, 2}, {3, 4}, {5, 6}};
    QTest::newRow("the count") << three << 3;
    QTest::newRow("beyond") << three << 5;
    QTest::newRow("far beyond") << three << 1000000;
    QTest::newRow("no points") << Points() << 0;
}

void tst_MidpointLocator::indexFromTheCountOnIsRefused()
{
    QFETCH(Points, points);
    QFETCH(int, index);
    Place place(QPoint(100, 200));
    PolylineConnection connection;
    place.add(&connection);
    connection.setPoints(points);
    OpenLocator locator(&connection, index);

    expectWarning(index);
    QCOMPARE(locator.getReferencePoint(), QPoint(0, 0));
}

void tst_MidpointLocator::missingConnectionIsReportedWithTheIndex()
{
    OpenLocator first(nullptr, 0);
    OpenLocator negative(nullptr, -4);

    expectWarning(0);
    QCOMPARE(first.getReferencePoint(), QPoint(0, 0));
    expectWarning(-4);
    QCOMPARE(negative.getReferencePoint(), QPoint(0, 0));
}

void tst_MidpointLocator::alignmentIsNotUsed()
{
    PolylineConnection connection;
    connection.setPoints({{0, 0}, {10, 20}, {30, 40}});
    OpenLocator locator(&connection, 1);

    locator.setAlignment(ConnectionLocator::SOURCE);

    QCOMPARE(locator.getReferencePoint(), QPoint(20, 30));
}

void tst_MidpointLocator::pointsAreAskedForOneByOne()
{
    TwoFacedConnection connection;
    OpenLocator locator(&connection, 7);

    QCOMPARE(locator.getReferencePoint(), QPoint(750, 1000));
}

void tst_MidpointLocator::floatingPointsAreRoundedBeforeTheMiddleIsTaken()
{
    PolylineFConnection connection;
    connection.setPointsF({{0.5, 0.4}, {3.3, 5.4}});
    OpenLocator locator(&connection, 0);

    QCOMPARE(locator.getReferencePoint(), QPoint(2, 2));
}

void tst_MidpointLocator::overriddenConnectionIsUsed()
{
    class OtherLocator : public OpenLocator
    {
    public:
        using OpenLocator::OpenLocator;
        IConnection *other = nullptr;
        IConnection *getConnection() const override { return other; }
    };
    PolylineConnection connection;
    OtherLocator locator(nullptr, 0);
    locator.other = &connection;

    QCOMPARE(locator.getReferencePoint(), QPoint(50, 50));
}

void tst_MidpointLocator::relocatePlacesALabelOnTheSegment()
{
    PolylineConnection connection;
    connection.setPoints({{0, 0}, {10, 20}, {30, 40}});
    Label label(QSize(20, 10));
    MidpointLocator locator(&connection, 1);
    locator.setRelativePosition(IPositionConstants::SOUTH);
    locator.setGap(5);

    locator.relocate(&label);

    QCOMPARE(label.getBounds(), QRect(10, 35, 20, 10));
}

void tst_MidpointLocator::relocateWithARefusedIndexGoesToTheOrigin()
{
    PolylineConnection connection;
    Label label(QSize(20, 10));
    label.setBounds(QRect(1, 2, 3, 4));

    expectWarning(2);
    MidpointLocator(&connection, 2).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(-10, -5, 20, 10));
}

void tst_MidpointLocator::hiddenLabelIsNeitherMovedNorReported()
{
    PolylineConnection connection;
    Label label(QSize(20, 10));
    label.setBounds(QRect(1, 2, 3, 4));
    label.setVisible(false);

    MidpointLocator(&connection, 2).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(1, 2, 3, 4));
}

QTEST_MAIN(tst_MidpointLocator)
#include "tst_midpointlocator.moc"
