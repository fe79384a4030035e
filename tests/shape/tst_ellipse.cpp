#include <figura/shape/Ellipse.h>

#include <figureprobe.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

class tst_Ellipse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void pathIsTheEllipseInTheRectangle();
    void pathTouchesTheMiddleOfEachSide();
    void pathIsReplacedAsAWhole();
    void pathFollowsTheBoundsWhileAttached();
};

void tst_Ellipse::pathIsTheEllipseInTheRectangle()
{
    ShapeProbe<Ellipse> ellipse;

    ellipse.regeneratePath(QRectF(10, 20, 100, 60));

    QPainterPath expected;
    expected.addEllipse(QRectF(10, 20, 100, 60));
    QCOMPARE(ellipse.getPainterPath(), expected);
}

void tst_Ellipse::pathTouchesTheMiddleOfEachSide()
{
    ShapeProbe<Ellipse> ellipse;

    ellipse.regeneratePath(QRectF(10, 20, 100, 60));

    const QPainterPath path = ellipse.getPainterPath();
    QCOMPARE(path.boundingRect(), QRectF(10, 20, 100, 60));
    QVERIFY(path.contains(QPointF(60, 20.5)) && !path.contains(QPointF(60, 19.5)));
    QVERIFY(path.contains(QPointF(60, 79.5)) && !path.contains(QPointF(60, 80.5)));
    QVERIFY(path.contains(QPointF(10.5, 50)) && !path.contains(QPointF(9.5, 50)));
    QVERIFY(path.contains(QPointF(109.5, 50)) && !path.contains(QPointF(110.5, 50)));
}

void tst_Ellipse::pathIsReplacedAsAWhole()
{
    ShapeProbe<Ellipse> ellipse;
    ellipse.regeneratePath(QRectF(500, 500, 10, 10));

    ellipse.regeneratePath(QRectF(10, 20, 100, 60));

    QPainterPath expected;
    expected.addEllipse(QRectF(10, 20, 100, 60));
    QCOMPARE(ellipse.getPainterPath(), expected);
}

void tst_Ellipse::pathFollowsTheBoundsWhileAttached()
{
    ShapeProbe<Ellipse> ellipse;
    ellipse.setLineWidth(3);
    ellipse.addNotify();

    ellipse.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(ellipse.getPainterPath().boundingRect(), QRectF(11, 11, 97, 47));
}

QTEST_MAIN(tst_Ellipse)
#include "tst_ellipse.moc"
