#include "decoration_fixtures.h"

#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/decoration/BendpointLocator.h>

#include <place.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;

namespace {

class OpenLocator : public BendpointLocator
{
public:
    using BendpointLocator::BendpointLocator;
    using BendpointLocator::getConnection;
    using BendpointLocator::getIndex;
    using BendpointLocator::getReferencePoint;
    using BendpointLocator::setAlignment;
};

// Says something else about its points one by one than as a list.
class TwoFacedConnection : public PolylineConnection
{
public:
    QPoint getPoint(int) override { return QPoint(-1, -1); }
    int getPointCount() const override { return 0; }
    QList<QPoint> getPoints() override { return {{1, 2}, {3, 4}, {5, 6}}; }
};

void expectWarning(int index)
{
    const QString text =
        QStringLiteral("BendpointLocator::getReferencePoint(): index, %1, out-of-bound").arg(index);
    QTest::ignoreMessage(QtWarningMsg, qPrintable(text));
}

} // namespace

class tst_BendpointLocator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newLocatorKnowsConnectionAndIndex();
    void referencePointIsOnePoint_data();
    void referencePointIsOnePoint();
    void referencePointIsAbsolute();
    void negativeIndexIsTheConnectionsOriginWithoutWarning_data();
    void negativeIndexIsTheConnectionsOriginWithoutWarning();
    void indexFromTheCountOnIsRefused_data();
    void indexFromTheCountOnIsRefused();
    void missingConnectionIsReportedWithTheIndex();
    void alignmentIsNotUsed();
    void pointsAreAskedForAsAList();
    void floatingPointIsRounded();
    void overriddenConnectionIsUsed();

    void relocatePlacesALabelAtThePoint();
    void relocateWithARefusedIndexGoesToTheOrigin();
    void hiddenLabelIsNeitherMovedNorReported();
};

void tst_BendpointLocator::newLocatorKnowsConnectionAndIndex()
{
    QObject parent;
    PolylineConnection connection;
    const auto *locator = new OpenLocator(&connection, 5, &parent);

    QCOMPARE(locator->getConnection(), &connection);
    QCOMPARE(locator->getIndex(), 5);
    QCOMPARE(locator->getAlignment(), ConnectionLocator::MIDDLE);
    QCOMPARE(locator->parent(), &parent);
}

void tst_BendpointLocator::referencePointIsOnePoint_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("first") << 0 << QPoint(1, 2);
    QTest::newRow("second") << 1 << QPoint(30, 40);
    QTest::newRow("last") << 2 << QPoint(-5, 6);
}

void tst_BendpointLocator::referencePointIsOnePoint()
{
    QFETCH(int, index);
    QFETCH(QPoint, expected);
    PolylineConnection connection;
    connection.setPoints({{1, 2}, {30, 40}, {-5, 6}});
    OpenLocator locator(&connection, index);

    QCOMPARE(locator.getReferencePoint(), expected);
}

void tst_BendpointLocator::referencePointIsAbsolute()
{
    Place outer(QPoint(300, 400));
    Place inner(QPoint(10, -20));
    outer.add(&inner);
    PolylineConnection connection;
    inner.add(&connection);
    connection.setPoints({{1, 2}, {4, 5}});
    OpenLocator locator(&connection, 1);

    QCOMPARE(locator.getReferencePoint(), QPoint(314, 385));
}

void tst_BendpointLocator::negativeIndexIsTheConnectionsOriginWithoutWarning_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("-1") << -1;
    QTest::newRow("far") << -1000000;
}

void tst_BendpointLocator::negativeIndexIsTheConnectionsOriginWithoutWarning()
{
    QFETCH(int, index);
    Place place(QPoint(100, 200));
    PolylineConnection connection;
    place.add(&connection);
    connection.setPoints({{50, 70}, {10, 20}});
    OpenLocator locator(&connection, index);

    QCOMPARE(locator.getReferencePoint(), QPoint(100, 200));
}

void tst_BendpointLocator::indexFromTheCountOnIsRefused_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<int>("index");
    const Points three{{1, 2}, {3, 4}, {5, 6}};
    QTest::newRow("the count") << three << 3;
    QTest::newRow("beyond") << three << 5;
    QTest::newRow("far beyond") << three << 1000000;
    QTest::newRow("no points") << Points() << 0;
}

void tst_BendpointLocator::indexFromTheCountOnIsRefused()
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

void tst_BendpointLocator::missingConnectionIsReportedWithTheIndex()
{
    OpenLocator first(nullptr, 0);
    OpenLocator negative(nullptr, -4);

    expectWarning(0);
    QCOMPARE(first.getReferencePoint(), QPoint(0, 0));
    expectWarning(-4);
    QCOMPARE(negative.getReferencePoint(), QPoint(0, 0));
}

void tst_BendpointLocator::alignmentIsNotUsed()
{
    PolylineConnection connection;
    connection.setPoints({{0, 0}, {10, 20}, {30, 40}});
    OpenLocator locator(&connection, 1);

    locator.setAlignment(ConnectionLocator::TARGET);

    QCOMPARE(locator.getReferencePoint(), QPoint(10, 20));
}

void tst_BendpointLocator::pointsAreAskedForAsAList()
{
    TwoFacedConnection connection;
    OpenLocator locator(&connection, 2);

    QCOMPARE(locator.getReferencePoint(), QPoint(5, 6));
}

void tst_BendpointLocator::floatingPointIsRounded()
{
    PolylineFConnection connection;
    connection.setPointsF({{0, 0}, {2.5, -2.5}});
    OpenLocator locator(&connection, 1);

    QCOMPARE(locator.getReferencePoint(), QPoint(3, -3));
}

void tst_BendpointLocator::overriddenConnectionIsUsed()
{
    class OtherLocator : public OpenLocator
    {
    public:
        using OpenLocator::OpenLocator;
        IConnection *other = nullptr;
        IConnection *getConnection() const override { return other; }
    };
    PolylineConnection connection;
    OtherLocator locator(nullptr, 1);
    locator.other = &connection;

    QCOMPARE(locator.getReferencePoint(), QPoint(100, 100));
}

void tst_BendpointLocator::relocatePlacesALabelAtThePoint()
{
    PolylineConnection connection;
    connection.setPoints({{0, 0}, {10, 20}, {30, 40}});
    Label label(QSize(20, 10));
    BendpointLocator locator(&connection, 1);
    locator.setRelativePosition(IPositionConstants::NORTH_WEST);
    locator.setGap(2);

    locator.relocate(&label);

    QCOMPARE(label.getBounds(), QRect(-12, 8, 20, 10));
}

void tst_BendpointLocator::relocateWithARefusedIndexGoesToTheOrigin()
{
    PolylineConnection connection;
    Label label(QSize(20, 10));
    label.setBounds(QRect(1, 2, 3, 4));

    expectWarning(2);
    BendpointLocator(&connection, 2).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(-10, -5, 20, 10));
}

void tst_BendpointLocator::hiddenLabelIsNeitherMovedNorReported()
{
    PolylineConnection connection;
    Label label(QSize(20, 10));
    label.setBounds(QRect(1, 2, 3, 4));
    label.setVisible(false);

    BendpointLocator(&connection, 2).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(1, 2, 3, 4));
}

QTEST_MAIN(tst_BendpointLocator)
#include "tst_bendpointlocator.moc"
