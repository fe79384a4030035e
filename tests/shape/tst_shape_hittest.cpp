#include <figura/layout/FreeformLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/RoundedRectangle.h>

#include <QRandomGenerator>
#include <QTest>

using namespace Velmora::Figura;

namespace {

// 1 on the outline of the ellipse in the rectangle, less inside, more outside.
double ellipseEquation(const QRectF &rect, const QPointF &p)
{
    const QPointF d = p - rect.center();
    const double u = d.x() / (rect.width() / 2);
    const double v = d.y() / (rect.height() / 2);
    return u * u + v * v;
}

QPoint randomPoint(QRandomGenerator &random, const QRect &rect)
{
    return QPoint(random.bounded(rect.left(), rect.right() + 1),
                  random.bounded(rect.top(), rect.bottom() + 1));
}

} // namespace

class tst_ShapeHittest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void ellipseIsMissedInTheCornersOfItsBounds();
    void randomEllipsesAgreeWithTheirEquation();
    void roundedCornerIsMissed();
    void shapeIsHitInsideItsPathEvenWhenNotFilled();
    void bandBetweenPathAndBoundsIsMissed();
    void shapeWithoutAPathIsMissedEverywhere();
    void storedPathIsTestedWhereItIsNotWhereItIsPainted();
    void childOutsideThePathIsMissed();
    void findFigureAtGoesByThePath();
    void rectangleSearchGoesByTheBounds();
};

void tst_ShapeHittest::ellipseIsMissedInTheCornersOfItsBounds()
{
    Ellipse ellipse;
    ellipse.addNotify();
    ellipse.setBounds(QRect(10, 20, 100, 60));

    QVERIFY(ellipse.contains(QPoint(60, 50)));
    QVERIFY(ellipse.contains(QPoint(14, 50)));
    QVERIFY(!ellipse.contains(QPoint(14, 24)));
    QVERIFY(!ellipse.contains(QPoint(105, 24)));
    QVERIFY(!ellipse.contains(QPoint(105, 75)));
    QVERIFY(!ellipse.contains(QPoint(14, 75)));
}

// The curve deviates from a true ellipse by less than a thousandth.
void tst_ShapeHittest::randomEllipsesAgreeWithTheirEquation()
{
    QRandomGenerator random(20240917);
    int hits = 0;
    int misses = 0;

    for (int i = 0; i < 200; ++i) {
        const QRect bounds(random.bounded(-200, 200), random.bounded(-200, 200),
                           random.bounded(20, 300), random.bounded(20, 300));
        Ellipse ellipse;
        ellipse.addNotify();
        ellipse.setBounds(bounds);
        for (int k = 0; k < 50; ++k) {
            const QPoint p = randomPoint(random, bounds);
            const double equation = ellipseEquation(QRectF(bounds).adjusted(0, 0, -1, -1), p);
            if (qAbs(equation - 1) < 0.01)
                continue;
            const bool hit = equation < 1;
            hit ? ++hits : ++misses;
            QCOMPARE(ellipse.contains(p), hit);
        }
    }

    QVERIFY(hits > 1000);
    QVERIFY(misses > 1000);
}

void tst_ShapeHittest::roundedCornerIsMissed()
{
    RoundedRectangle rounded;
    rounded.addNotify();
    rounded.setBounds(QRect(0, 0, 201, 201));

    QVERIFY(!rounded.contains(QPoint(2, 2)));
    QVERIFY(!rounded.contains(QPoint(198, 198)));
    QVERIFY(rounded.contains(QPoint(30, 2)));
    QVERIFY(rounded.contains(QPoint(2, 30)));
}

void tst_ShapeHittest::shapeIsHitInsideItsPathEvenWhenNotFilled()
{
    Rectangle rectangle;
    rectangle.setFill(false);
    rectangle.addNotify();
    rectangle.setBounds(QRect(10, 10, 100, 50));

    QVERIFY(rectangle.contains(QPoint(60, 35)));
}

void tst_ShapeHittest::bandBetweenPathAndBoundsIsMissed()
{
    Rectangle rectangle;
    rectangle.setLineWidth(20);
    rectangle.addNotify();
    rectangle.setBounds(QRect(0, 0, 100, 100));

    QVERIFY(!rectangle.contains(QPoint(5, 50)));
    QVERIFY(rectangle.contains(QPoint(15, 50)));
    QVERIFY(!rectangle.contains(QPoint(95, 50)));
}

void tst_ShapeHittest::shapeWithoutAPathIsMissedEverywhere()
{
    Rectangle rectangle;
    rectangle.setBounds(QRect(10, 10, 100, 50));

    QVERIFY(!rectangle.contains(QPoint(60, 35)));
    QVERIFY(!rectangle.contains(QPoint(0, 0)));
}

void tst_ShapeHittest::storedPathIsTestedWhereItIsNotWhereItIsPainted()
{
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    parent.setBounds(QRect(200, 200, 300, 300));
    parent.addNotify();
    Rectangle rectangle;
    parent.add(&rectangle);
    rectangle.setBounds(QRect(10, 10, 50, 50));

    QVERIFY(rectangle.contains(QPoint(30, 30)));
    QVERIFY(!rectangle.contains(QPoint(230, 230)));
}

void tst_ShapeHittest::childOutsideThePathIsMissed()
{
    Rectangle rectangle;
    rectangle.setLayoutManager(new FreeformLayout(&rectangle));
    rectangle.addNotify();
    rectangle.setBounds(QRect(10, 10, 50, 50));
    Figure child;
    rectangle.add(&child);
    child.setBounds(QRect(100, 100, 20, 20));

    QVERIFY(!rectangle.contains(QPoint(110, 110)));
}

void tst_ShapeHittest::findFigureAtGoesByThePath()
{
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    parent.setBounds(QRect(0, 0, 300, 300));
    parent.addNotify();
    Ellipse ellipse;
    parent.add(&ellipse);
    ellipse.setBounds(QRect(100, 100, 100, 100));

    QCOMPARE(parent.findFigureAt(150, 150), &ellipse);
    QCOMPARE(parent.findFigureAt(103, 103), &parent);
}

void tst_ShapeHittest::rectangleSearchGoesByTheBounds()
{
    Ellipse ellipse;
    ellipse.addNotify();
    ellipse.setBounds(QRect(100, 100, 100, 100));

    QVERIFY(ellipse.isIntersecting(QRect(90, 90, 15, 15)));
    QVERIFY(ellipse.isContained(QRect(100, 100, 100, 100)));
    QVERIFY(!ellipse.isContained(QRect(100, 100, 99, 100)));
}

QTEST_MAIN(tst_ShapeHittest)
#include "tst_shape_hittest.moc"
