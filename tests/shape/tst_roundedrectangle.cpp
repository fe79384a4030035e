#include <figura/shape/RoundedRectangle.h>

#include <figureprobe.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

using Probe = ShapeProbe<RoundedRectangle>;

// The corner ellipses have this size; the pen starts at the top of the first one.
QPainterPath roundedPath(const QRectF &rect, const QSizeF &corner)
{
    const double far = rect.right() - corner.width();
    const double low = rect.bottom() - corner.height();
    QPainterPath path;
    path.moveTo(rect.left() + corner.width() / 2, rect.top());
    path.arcTo(QRectF(rect.topLeft(), corner), 90, 90);
    path.arcTo(QRectF(QPointF(rect.left(), low), corner), 180, 90);
    path.arcTo(QRectF(QPointF(far, low), corner), 270, 90);
    path.arcTo(QRectF(QPointF(far, rect.top()), corner), 0, 90);
    path.closeSubpath();
    return path;
}

QPainterPath rectPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

} // namespace

class tst_RoundedRectangle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void cornersAreAQuarterOfEachSideAtFirst();
    void cornersArePercentOfWidthAndHeight_data();
    void cornersArePercentOfWidthAndHeight();
    void drawingStartsAtTheTopOfTheFirstCorner();
    void sidesAreTouchedAndCornersAreCut();
    void rectangleWithNegativeSizeIsNormalised();
    void cornersBelowOneAreSquare_data();
    void cornersBelowOneAreSquare();
    void squareCornersTakeTheRectangleAsItIs();
    void pathIsReplacedAsAWhole();
    void roundingIsLimitedAboveButNotBelow_data();
    void roundingIsLimitedAboveButNotBelow();
    void roundingNeitherRepaintsNorRebuilds();
    void newCornersShowAfterTheNextChangeOfBounds();
};

void tst_RoundedRectangle::cornersAreAQuarterOfEachSideAtFirst()
{
    Probe rounded;

    rounded.regeneratePath(QRectF(0, 0, 200, 100));

    QCOMPARE(rounded.getXRnd(), 25);
    QCOMPARE(rounded.getYRnd(), 25);
    QCOMPARE(rounded.getPainterPath(), roundedPath(QRectF(0, 0, 200, 100), QSizeF(50, 25)));
}

void tst_RoundedRectangle::cornersArePercentOfWidthAndHeight_data()
{
    QTest::addColumn<int>("xRnd");
    QTest::addColumn<int>("yRnd");
    QTest::addColumn<QSizeF>("corner");
    QTest::newRow("one percent") << 1 << 1 << QSizeF(2, 1);
    QTest::newRow("wide") << 50 << 10 << QSizeF(100, 10);
    QTest::newRow("high") << 10 << 50 << QSizeF(20, 50);
    QTest::newRow("the most") << 99 << 99 << QSizeF(198, 99);
}

void tst_RoundedRectangle::cornersArePercentOfWidthAndHeight()
{
    QFETCH(int, xRnd);
    QFETCH(int, yRnd);
    QFETCH(QSizeF, corner);
    Probe rounded;
    rounded.setXRnd(xRnd);
    rounded.setYRnd(yRnd);

    rounded.regeneratePath(QRectF(10, 20, 200, 100));

    QCOMPARE(rounded.getPainterPath(), roundedPath(QRectF(10, 20, 200, 100), corner));
}

void tst_RoundedRectangle::drawingStartsAtTheTopOfTheFirstCorner()
{
    Probe rounded;

    rounded.regeneratePath(QRectF(10, 20, 200, 100));

    const QPainterPath path = rounded.getPainterPath();
    QCOMPARE(QPointF(path.elementAt(0)), QPointF(35, 20));
    QCOMPARE(path.elementAt(0).type, QPainterPath::MoveToElement);
    QCOMPARE(path.currentPosition(), QPointF(35, 20));
}

void tst_RoundedRectangle::sidesAreTouchedAndCornersAreCut()
{
    Probe rounded;

    rounded.regeneratePath(QRectF(10, 20, 200, 100));

    const QPainterPath path = rounded.getPainterPath();
    QCOMPARE(path.boundingRect(), QRectF(10, 20, 200, 100));
    QVERIFY(path.contains(QPointF(110, 20.5)));
    QVERIFY(path.contains(QPointF(110, 119.5)));
    QVERIFY(path.contains(QPointF(10.5, 70)));
    QVERIFY(path.contains(QPointF(209.5, 70)));
    QVERIFY(!path.contains(QPointF(12, 22)));
    QVERIFY(!path.contains(QPointF(208, 22)));
    QVERIFY(!path.contains(QPointF(12, 118)));
    QVERIFY(!path.contains(QPointF(208, 118)));
}

void tst_RoundedRectangle::rectangleWithNegativeSizeIsNormalised()
{
    Probe rounded;

    rounded.regeneratePath(QRectF(200, 100, -200, -100));

    QCOMPARE(rounded.getPainterPath(), roundedPath(QRectF(0, 0, 200, 100), QSizeF(50, 25)));
}

void tst_RoundedRectangle::cornersBelowOneAreSquare_data()
{
    QTest::addColumn<int>("xRnd");
    QTest::addColumn<int>("yRnd");
    QTest::newRow("both") << 0 << 0;
    QTest::newRow("width") << 0 << 25;
    QTest::newRow("height") << 25 << 0;
    QTest::newRow("negative width") << -5 << 25;
    QTest::newRow("negative height") << 25 << -5;
}

void tst_RoundedRectangle::cornersBelowOneAreSquare()
{
    QFETCH(int, xRnd);
    QFETCH(int, yRnd);
    Probe rounded;
    rounded.setXRnd(xRnd);
    rounded.setYRnd(yRnd);

    rounded.regeneratePath(QRectF(10, 20, 200, 100));

    QCOMPARE(rounded.getPainterPath(), rectPath(QRectF(10, 20, 200, 100)));
}

void tst_RoundedRectangle::squareCornersTakeTheRectangleAsItIs()
{
    Probe rounded;
    rounded.setXRnd(0);

    rounded.regeneratePath(QRectF(200, 100, -200, -100));

    QCOMPARE(QPointF(rounded.getPainterPath().elementAt(0)), QPointF(200, 100));
    QCOMPARE(rounded.getPainterPath(), rectPath(QRectF(200, 100, -200, -100)));
}

void tst_RoundedRectangle::pathIsReplacedAsAWhole()
{
    Probe rounded;
    rounded.regeneratePath(QRectF(500, 500, 200, 100));
    rounded.regeneratePath(QRectF(0, 0, 200, 100));
    QCOMPARE(rounded.getPainterPath(), roundedPath(QRectF(0, 0, 200, 100), QSizeF(50, 25)));

    rounded.setXRnd(0);
    rounded.regeneratePath(QRectF(0, 0, 200, 100));

    QCOMPARE(rounded.getPainterPath(), rectPath(QRectF(0, 0, 200, 100)));
}

void tst_RoundedRectangle::roundingIsLimitedAboveButNotBelow_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("stored");
    QTest::newRow("98") << 98 << 98;
    QTest::newRow("99") << 99 << 99;
    QTest::newRow("100") << 100 << 99;
    QTest::newRow("150") << 150 << 99;
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("-5") << -5 << -5;
}

void tst_RoundedRectangle::roundingIsLimitedAboveButNotBelow()
{
    QFETCH(int, value);
    QFETCH(int, stored);
    RoundedRectangle rounded;

    rounded.setXRnd(value);
    QCOMPARE(rounded.getXRnd(), stored);
    QCOMPARE(rounded.getYRnd(), 25);

    rounded.setXRnd(1);
    rounded.setYRnd(value);
    QCOMPARE(rounded.getXRnd(), 1);
    QCOMPARE(rounded.getYRnd(), stored);
}

void tst_RoundedRectangle::roundingNeitherRepaintsNorRebuilds()
{
    Probe rounded;
    rounded.addNotify();
    rounded.setBounds(QRect(0, 0, 201, 101));
    rounded.log.clear();

    rounded.setXRnd(50);
    rounded.setYRnd(50);

    QCOMPARE(rounded.log, QStringList());
    QCOMPARE(rounded.getPainterPath(), roundedPath(QRectF(0, 0, 200, 100), QSizeF(50, 25)));
}

void tst_RoundedRectangle::newCornersShowAfterTheNextChangeOfBounds()
{
    Probe rounded;
    rounded.addNotify();
    rounded.setBounds(QRect(0, 0, 201, 101));
    rounded.setXRnd(50);

    rounded.setBounds(QRect(5, 5, 201, 101));

    QCOMPARE(rounded.getPainterPath(), roundedPath(QRectF(5, 5, 200, 100), QSizeF(100, 25)));
}

QTEST_MAIN(tst_RoundedRectangle)
#include "tst_roundedrectangle.moc"
