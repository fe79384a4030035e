#include <figura/geometry/GeometryUtils.h>
#include <figura/geometry/IPositionConstants.h>

#include <QPoint>
#include <QRect>
#include <QTest>

using namespace Velmora::Figura;
using Pos = IPositionConstants;

class tst_GeometryUtils : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void orthogonalDistanceAddsBothAxes_data();
    void orthogonalDistanceAddsBothAxes();
    void positionToAPointFollowsTheLongerAxis_data();
    void positionToAPointFollowsTheLongerAxis();
    void positionToARectangleNamesTheSideOrCorner_data();
    void positionToARectangleNamesTheSideOrCorner();
    void positionToAnEmptyRectangleIsNeverInside_data();
    void positionToAnEmptyRectangleIsNeverInside();
    void positionInsideARectangleOfNegativeSizeIsNone();
};

void tst_GeometryUtils::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_GeometryUtils::orthogonalDistanceAddsBothAxes_data()
{
    QTest::addColumn<QPoint>("p");
    QTest::addColumn<QPoint>("q");
    QTest::addColumn<int>("distance");

    QTest::newRow("same point") << QPoint(3, 4) << QPoint(3, 4) << 0;
    QTest::newRow("right and down") << QPoint(1, 2) << QPoint(11, 5) << 13;
    QTest::newRow("left and up") << QPoint(11, 5) << QPoint(1, 2) << 13;
    QTest::newRow("across the origin") << QPoint(-1, 2) << QPoint(1, -2) << 6;
}

void tst_GeometryUtils::orthogonalDistanceAddsBothAxes()
{
    QFETCH(QPoint, p);
    QFETCH(QPoint, q);

    QTEST(GeometryUtils::orthogonalDistance(p, q), "distance");
}

void tst_GeometryUtils::positionToAPointFollowsTheLongerAxis_data()
{
    QTest::addColumn<QPoint>("p");
    QTest::addColumn<int>("position");

    QTest::newRow("equal points") << QPoint(100, 200) << Pos::SOUTH;
    QTest::newRow("north") << QPoint(103, 190) << Pos::NORTH;
    QTest::newRow("south") << QPoint(97, 210) << Pos::SOUTH;
    QTest::newRow("west") << QPoint(90, 203) << Pos::WEST;
    QTest::newRow("east") << QPoint(110, 197) << Pos::EAST;
    QTest::newRow("tie to the lower right") << QPoint(105, 205) << Pos::SOUTH;
    QTest::newRow("tie to the lower left") << QPoint(95, 205) << Pos::SOUTH;
    QTest::newRow("tie to the upper right") << QPoint(105, 195) << Pos::NORTH;
    QTest::newRow("tie to the upper left") << QPoint(95, 195) << Pos::NORTH;
    QTest::newRow("straight east") << QPoint(101, 200) << Pos::EAST;
    QTest::newRow("straight west") << QPoint(99, 200) << Pos::WEST;
}

void tst_GeometryUtils::positionToAPointFollowsTheLongerAxis()
{
    QFETCH(QPoint, p);

    QTEST(GeometryUtils::relativePosition(p, QPoint(100, 200)), "position");
}

void tst_GeometryUtils::positionToARectangleNamesTheSideOrCorner_data()
{
    QTest::addColumn<QPoint>("p");
    QTest::addColumn<int>("position");

    QTest::newRow("first inside") << QPoint(10, 20) << Pos::NONE;
    QTest::newRow("last inside") << QPoint(39, 59) << Pos::NONE;
    QTest::newRow("just west") << QPoint(9, 30) << Pos::WEST;
    QTest::newRow("just east") << QPoint(40, 30) << Pos::EAST;
    QTest::newRow("just north") << QPoint(20, 19) << Pos::NORTH;
    QTest::newRow("just south") << QPoint(20, 60) << Pos::SOUTH;
    QTest::newRow("north west") << QPoint(9, 19) << Pos::NORTH_WEST;
    QTest::newRow("north east") << QPoint(40, 19) << Pos::NORTH_EAST;
    QTest::newRow("south west") << QPoint(9, 60) << Pos::SOUTH_WEST;
    QTest::newRow("south east") << QPoint(40, 60) << Pos::SOUTH_EAST;
}

void tst_GeometryUtils::positionToARectangleNamesTheSideOrCorner()
{
    QFETCH(QPoint, p);

    QTEST(GeometryUtils::relativePosition(p, QRect(10, 20, 30, 40)), "position");
}

void tst_GeometryUtils::positionToAnEmptyRectangleIsNeverInside_data()
{
    QTest::addColumn<QPoint>("p");
    QTest::addColumn<int>("position");

    QTest::newRow("the corner itself") << QPoint(10, 20) << Pos::SOUTH_EAST;
    QTest::newRow("before it") << QPoint(9, 19) << Pos::NORTH_WEST;
}

void tst_GeometryUtils::positionToAnEmptyRectangleIsNeverInside()
{
    QFETCH(QPoint, p);

    QTEST(GeometryUtils::relativePosition(p, QRect(10, 20, 0, 0)), "position");
}

// Such a rectangle contains points, although they lie before its position.
void tst_GeometryUtils::positionInsideARectangleOfNegativeSizeIsNone()
{
    const QRect inverted(10, 10, -5, -5);
    QVERIFY(inverted.contains(QPoint(7, 7)));

    QCOMPARE(GeometryUtils::relativePosition(QPoint(7, 7), inverted), Pos::NONE);
}

QTEST_APPLESS_MAIN(tst_GeometryUtils)
#include "tst_geometryutils.moc"
