#include <figura/shape/Rectangle.h>

#include <figureprobe.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

class tst_Rectangle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void pathIsTheRectangle();
    void pathIsReplacedAsAWhole();
    void pathFollowsTheBoundsWhileAttached_data();
    void pathFollowsTheBoundsWhileAttached();
};

void tst_Rectangle::pathIsTheRectangle()
{
    ShapeProbe<Rectangle> rectangle;

    rectangle.regeneratePath(QRectF(1.5, 2, 30, 40));

    const QPainterPath path = rectangle.getPainterPath();
    QCOMPARE(path.elementCount(), 5);
    QCOMPARE(path.toFillPolygon(),
             QPolygonF(QList<QPointF>({{1.5, 2}, {31.5, 2}, {31.5, 42}, {1.5, 42}, {1.5, 2}})));
    for (int i = 1; i < path.elementCount(); ++i)
        QCOMPARE(path.elementAt(i).type, QPainterPath::LineToElement);
}

void tst_Rectangle::pathIsReplacedAsAWhole()
{
    ShapeProbe<Rectangle> rectangle;
    rectangle.painterPath().addEllipse(QRectF(500, 500, 10, 10));
    rectangle.painterPath().setFillRule(Qt::WindingFill);

    rectangle.regeneratePath(QRectF(1, 2, 30, 40));

    QPainterPath expected;
    expected.addRect(QRectF(1, 2, 30, 40));
    QCOMPARE(rectangle.getPainterPath(), expected);
}

void tst_Rectangle::pathFollowsTheBoundsWhileAttached_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QRectF>("expected");
    QTest::newRow("line width 1") << 1 << QRectF(10, 10, 99, 49);
    QTest::newRow("line width 3") << 3 << QRectF(11, 11, 97, 47);
}

void tst_Rectangle::pathFollowsTheBoundsWhileAttached()
{
    QFETCH(int, width);
    QFETCH(QRectF, expected);
    ShapeProbe<Rectangle> rectangle;
    rectangle.setLineWidth(width);
    rectangle.addNotify();

    rectangle.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(rectangle.getPainterPath().boundingRect(), expected);
}

QTEST_MAIN(tst_Rectangle)
#include "tst_rectangle.moc"
