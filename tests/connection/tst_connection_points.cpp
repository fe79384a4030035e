#include "connection_fixtures.h"

#include <QSignalSpy>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;
using PointsF = QList<QPointF>;

// What is stored is asked of the polyline, what is converted of the connection.
class tst_ConnectionPoints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void floatingPointsAreRoundedHalfAwayFromZero_data();
    void floatingPointsAreRoundedHalfAwayFromZero();
    void integerConnectionStoresRoundedPoints();
    void floatingConnectionStoresPointsAsTheyAre();
    void integerPointsReachBothClasses_data() { addConnectionClassRows(); }
    void integerPointsReachBothClasses();
    void pointsAreThoseOfTheLine();
    void singlePointsAreConverted_data() { addConnectionClassRows(); }
    void singlePointsAreConverted();
    void pointsOutOfRangeAreAtTheOrigin_data();
    void pointsOutOfRangeAreAtTheOrigin();
    void pointCountIsThatOfTheLine_data() { addConnectionClassRows(); }
    void pointCountIsThatOfTheLine();
    void convertedPointsAreSetThroughTheInterface();
    void settingPointsAnnouncesThePathOnce_data() { addConnectionClassRows(); }
    void settingPointsAnnouncesThePathOnce();
};

void tst_ConnectionPoints::floatingPointsAreRoundedHalfAwayFromZero_data()
{
    QTest::addColumn<QPointF>("floating");
    QTest::addColumn<QPoint>("rounded");
    QTest::newRow("halves") << QPointF(1.5, -1.5) << QPoint(2, -2);
    QTest::newRow("first halves") << QPointF(0.5, -0.5) << QPoint(1, -1);
    QTest::newRow("even halves") << QPointF(2.5, -2.5) << QPoint(3, -3);
    QTest::newRow("below halves") << QPointF(1.49, -1.49) << QPoint(1, -1);
    QTest::newRow("above halves") << QPointF(1.51, -1.51) << QPoint(2, -2);
    QTest::newRow("whole") << QPointF(7, -7) << QPoint(7, -7);
}

void tst_ConnectionPoints::floatingPointsAreRoundedHalfAwayFromZero()
{
    QFETCH(QPointF, floating);
    QFETCH(QPoint, rounded);
    PolylineConnection integer(nullptr);
    PolylineFConnection precise(nullptr);

    integer.setPointsF({floating, floating});
    precise.setPointsF({floating, floating});

    QCOMPARE(integer.getPoints(), Points({rounded, rounded}));
    QCOMPARE(precise.getPoints(), Points({rounded, rounded}));
    QCOMPARE(static_cast<IConnection &>(precise).getPoint(1), rounded);
}

void tst_ConnectionPoints::integerConnectionStoresRoundedPoints()
{
    PolylineConnection connection(nullptr);

    connection.setPointsF({{1.5, -1.5}, {3.25, 4}});

    QCOMPARE(connection.getLinePoints(), Points({{2, -2}, {3, 4}}));
    QCOMPARE(connection.getPointsF(), PointsF({{2, -2}, {3, 4}}));
}

void tst_ConnectionPoints::floatingConnectionStoresPointsAsTheyAre()
{
    PolylineFConnection connection(nullptr);

    connection.setPointsF({{1.5, -1.5}, {3.25, 4}});

    QCOMPARE(connection.getLinePoints(), PointsF({{1.5, -1.5}, {3.25, 4}}));
    QCOMPARE(connection.getPointsF(), PointsF({{1.5, -1.5}, {3.25, 4}}));
}

void tst_ConnectionPoints::integerPointsReachBothClasses()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);

    wire->connection().setPoints({{1, 2}, {-3, 4}, {5, 6}});

    QCOMPARE(wire->connection().getPoints(), Points({{1, 2}, {-3, 4}, {5, 6}}));
    QCOMPARE(wire->connection().getPointsF(), PointsF({{1, 2}, {-3, 4}, {5, 6}}));
}

void tst_ConnectionPoints::pointsAreThoseOfTheLine()
{
    PolylineConnection integer(nullptr);
    PolylineFConnection precise(nullptr);

    integer.addPoint(QPoint(7, 8));
    precise.addPoint(QPointF(7.5, 8));

    QCOMPARE(integer.getPoints(), Points({{0, 0}, {100, 100}, {7, 8}}));
    QCOMPARE(precise.getPointsF(), PointsF({{0, 0}, {100, 100}, {7.5, 8}}));
}

void tst_ConnectionPoints::singlePointsAreConverted()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);

    wire->connection().setPointsF({{1.5, -1.5}, {3.25, 4}});

    const bool floating = className == QStringLiteral("PolylineFConnection");
    QCOMPARE(wire->connection().getPoint(0), QPoint(2, -2));
    QCOMPARE(wire->connection().getPointF(0), floating ? QPointF(1.5, -1.5) : QPointF(2, -2));
    QCOMPARE(wire->connection().getPointF(1), floating ? QPointF(3.25, 4) : QPointF(3, 4));
}

void tst_ConnectionPoints::pointsOutOfRangeAreAtTheOrigin_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<int>("index");
    for (const char *name : {"PolylineConnection", "PolylineFConnection"}) {
        for (const int index : {-1, 2, 1000})
            QTest::addRow("%s: %d", name, index) << QString::fromLatin1(name) << index;
    }
}

void tst_ConnectionPoints::pointsOutOfRangeAreAtTheOrigin()
{
    QFETCH(QString, className);
    QFETCH(int, index);
    AnyConnectionPointer wire = makeConnection(className);
    wire->connection().setPoints({{1, 2}, {3, 4}});

    QCOMPARE(wire->connection().getPoint(index), QPoint(0, 0));
    QCOMPARE(wire->connection().getPointF(index), QPointF(0, 0));
}

void tst_ConnectionPoints::pointCountIsThatOfTheLine()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    QCOMPARE(wire->connection().getPointCount(), 2);

    wire->connection().setPoints({{1, 2}, {3, 4}, {5, 6}});
    QCOMPARE(wire->connection().getPointCount(), 3);

    wire->connection().setPointsF({});
    QCOMPARE(wire->connection().getPointCount(), 0);
}

void tst_ConnectionPoints::convertedPointsAreSetThroughTheInterface()
{
    class Integer : public PolylineConnection
    {
    public:
        Points given;
        void setPoints(const Points &points) override { given = points; }
    };
    class Floating : public PolylineFConnection
    {
    public:
        PointsF given;
        void setPointsF(const PointsF &points) override { given = points; }
    };
    Integer integer;
    Floating floating;

    integer.setPointsF({{1.5, 2}, {3, 4}});
    floating.setPoints({{1, 2}, {3, 4}});

    QCOMPARE(integer.given, Points({{2, 2}, {3, 4}}));
    QCOMPARE(floating.given, PointsF({{1, 2}, {3, 4}}));
}

void tst_ConnectionPoints::settingPointsAnnouncesThePathOnce()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    QSignalSpy announced(qobject_cast<Shape *>(&wire->figure()), &Shape::pathChanged);

    wire->connection().setPoints({{1, 2}, {3, 4}});
    QCOMPARE(announced.count(), 1);

    wire->connection().setPointsF({{1, 2}, {3, 4}});
    QCOMPARE(announced.count(), 2);
}

QTEST_MAIN(tst_ConnectionPoints)
#include "tst_connection_points.moc"
