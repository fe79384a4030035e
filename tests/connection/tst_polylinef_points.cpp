#include <figura/connection/PolylineF.h>

#include <QTest>

using namespace Velmora::Figura;

class tst_PolylineFPoints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void getPointRoundsHalvesAwayFromZero_data();
    void getPointRoundsHalvesAwayFromZero();
    void getPointFIsNotRounded();
    void getPointFOutOfRangeIsTheOriginWithoutAWarning();
    void endsKeepTheirFractions();
    void settersKeepFractions();
    void listKeepsFractions();
};

void tst_PolylineFPoints::getPointRoundsHalvesAwayFromZero_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("halves of both signs") << QPointF(2.5, -2.5) << QPoint(3, -3);
    QTest::newRow("the other way about") << QPointF(-2.5, 2.5) << QPoint(-3, 3);
    QTest::newRow("below a half") << QPointF(2.4, -2.4) << QPoint(2, -2);
    QTest::newRow("above a half") << QPointF(2.6, -2.6) << QPoint(3, -3);
    QTest::newRow("half of one") << QPointF(0.5, -0.5) << QPoint(1, -1);
    QTest::newRow("near zero") << QPointF(0.25, -0.25) << QPoint(0, 0);
    QTest::newRow("whole") << QPointF(7, -7) << QPoint(7, -7);
    QTest::newRow("large") << QPointF(100000.5, -100000.5) << QPoint(100001, -100001);
}

void tst_PolylineFPoints::getPointRoundsHalvesAwayFromZero()
{
    QFETCH(QPointF, point);
    QFETCH(QPoint, expected);
    PolylineF line;

    line.addPoint(point);

    QCOMPARE(line.getPoint(0), expected);
}

void tst_PolylineFPoints::getPointFIsNotRounded()
{
    PolylineF line;

    line.setLinePoints({QPointF(2.5, -2.5), QPointF(0.125, 7)});

    QCOMPARE(line.getPointF(0), QPointF(2.5, -2.5));
    QCOMPARE(line.getPointF(1), QPointF(0.125, 7));
}

void tst_PolylineFPoints::getPointFOutOfRangeIsTheOriginWithoutAWarning()
{
    PolylineF line;
    QCOMPARE(line.getPointF(0), QPointF(0, 0));
    line.setLinePoints({QPointF(2.5, -2.5), QPointF(0.125, 7)});

    QCOMPARE(line.getPointF(-1), QPointF(0, 0));
    QCOMPARE(line.getPointF(2), QPointF(0, 0));
}

void tst_PolylineFPoints::endsKeepTheirFractions()
{
    PolylineF line;

    line.setEndPoints(QPointF(2.5, -2.5), QPointF(0.125, 7));

    QCOMPARE(line.getStart(), QPointF(2.5, -2.5));
    QCOMPARE(line.getEnd(), QPointF(0.125, 7));
}

void tst_PolylineFPoints::settersKeepFractions()
{
    PolylineF line;
    line.addPoint(QPointF(0.25, 0.25));
    line.insertPoint(QPointF(0.5, 0.5), 0);

    line.setPoint(QPointF(0.75, 0.75), 1);
    line.setStart(QPointF(0.375, 0.375));

    QCOMPARE(line.getLinePoints(), QList<QPointF>({QPointF(0.375, 0.375), QPointF(0.75, 0.75)}));
    line.setEnd(QPointF(0.625, 0.625));
    QCOMPARE(line.getEnd(), QPointF(0.625, 0.625));
}

void tst_PolylineFPoints::listKeepsFractions()
{
    PolylineF line;
    const QList<QPointF> points{QPointF(0.1, 0.2), QPointF(-3.75, 1e6)};

    line.setLinePoints(points);

    QCOMPARE(line.getLinePoints(), points);
}

QTEST_MAIN(tst_PolylineFPoints)
#include "tst_polylinef_points.moc"
