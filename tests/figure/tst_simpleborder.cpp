#include "borderpicture.h"

#include <golden.h>
#include <recordingdevice.h>

#include <figura/figure/SimpleBorder.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

QList<PaintCall> rendered(const Border &border, const QRect &rect)
{
    return record([&](QPainter *painter) { border.render(painter, optionFor(rect)); });
}

} // namespace

class tst_SimpleBorder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void widthGivesTheInsetsOnAllSides_data();
    void widthGivesTheInsetsOnAllSides();
    void takesAParent();
    void nothingIsPaintedWithoutAPainterInsetsOrRect();
    void tooSmallRectPaintsNothing();
    void linesRunOnTheBorderRectInOrder();
    void everyLineIsOnePixelWideWhateverTheWidth_data();
    void everyLineIsOnePixelWideWhateverTheWidth();
    void scaleOfThePainterDoesNotMatter_data();
    void scaleOfThePainterDoesNotMatter();
    void onlySidesWithAnInsetAreDrawn_data();
    void onlySidesWithAnInsetAreDrawn();
    void drawBorderRectTakesTheGivenInsets();
    void drawBorderRectRefusesANullPainterAndAnInvalidRect();
    void painterStateIsRestored();
    void pixelsOfAWideBorderFormOneThinFrame();
    void frameOfOnePixelIsPaintedAtAnyScale_data();
    void frameOfOnePixelIsPaintedAtAnyScale();
    void picture();
};

void tst_SimpleBorder::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_SimpleBorder::widthGivesTheInsetsOnAllSides_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("inset");

    QTest::newRow("negative") << -5 << 0;
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("five") << 5 << 5;
}

void tst_SimpleBorder::widthGivesTheInsetsOnAllSides()
{
    QFETCH(int, width);
    QFETCH(int, inset);

    QCOMPARE(SimpleBorder(nullptr, width).getInsets(), Insets(inset, inset, inset, inset));
}

void tst_SimpleBorder::takesAParent()
{
    QObject parent;

    QCOMPARE((new SimpleBorder(&parent, 1))->parent(), &parent);
}

void tst_SimpleBorder::nothingIsPaintedWithoutAPainterInsetsOrRect()
{
    const SimpleBorder border(nullptr, 1);

    border.render(nullptr, optionFor(QRect(0, 0, 10, 10)));
    QCOMPARE(rendered(SimpleBorder(nullptr, 0), QRect(0, 0, 10, 10)).size(), 0);
    QCOMPARE(rendered(border, QRect()).size(), 0);
    QCOMPARE(rendered(border, QRect(5, 5, 10, 0)).size(), 0);
}

void tst_SimpleBorder::tooSmallRectPaintsNothing()
{
    QCOMPARE(rendered(SimpleBorder(nullptr, 8), QRect(0, 0, 5, 5)).size(), 0);
}

void tst_SimpleBorder::linesRunOnTheBorderRectInOrder()
{
    const auto calls = rendered(SimpleBorder(nullptr, 4), QRect(100, 200, 50, 60));

    QCOMPARE(calls.size(), 4);
    for (const PaintCall &call : calls) {
        QCOMPARE(call.kind, PaintCall::Lines);
        QCOMPARE(call.lines.size(), 1);
        QVERIFY(call.isInteger);
    }
    QCOMPARE(linesOf(calls), QList<QLineF>({{102, 202, 148, 202},
                                            {148, 202, 148, 258},
                                            {148, 258, 102, 258},
                                            {102, 258, 102, 202}}));
}

void tst_SimpleBorder::everyLineIsOnePixelWideWhateverTheWidth_data()
{
    QTest::addColumn<int>("width");

    QTest::newRow("one") << 1;
    QTest::newRow("five") << 5;
    QTest::newRow("twenty") << 20;
}

// The width takes space but is not drawn, on purpose.
void tst_SimpleBorder::everyLineIsOnePixelWideWhateverTheWidth()
{
    QFETCH(int, width);
    SimpleBorder border(nullptr, width);
    border.setColor(Qt::red);
    border.setPenStyle(Qt::DashLine);

    const auto calls = rendered(border, QRect(0, 0, 100, 100));

    QCOMPARE(calls.size(), 4);
    for (const PaintCall &call : calls)
        QCOMPARE(call.pen, QPen(Qt::red, 1, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin));
}

void tst_SimpleBorder::scaleOfThePainterDoesNotMatter_data()
{
    QTest::addColumn<double>("scale");

    QTest::newRow("a tenth") << 0.1;
    QTest::newRow("triple") << 3.0;
}

void tst_SimpleBorder::scaleOfThePainterDoesNotMatter()
{
    QFETCH(double, scale);
    const SimpleBorder border(nullptr, 4);

    const auto calls = record([&](QPainter *painter) {
        painter->scale(scale, scale);
        border.render(painter, optionFor(QRect(0, 0, 100, 100)));
    });

    QCOMPARE(calls.size(), 4);
    for (const PaintCall &call : calls)
        QCOMPARE(call.pen.widthF(), 1.0);
}

void tst_SimpleBorder::onlySidesWithAnInsetAreDrawn_data()
{
    QTest::addColumn<Insets>("insets");
    QTest::addColumn<QList<QLineF>>("lines");

    const QLineF top(0, 0, 9, 0);
    const QLineF right(9, 0, 9, 9);
    const QLineF bottom(9, 9, 0, 9);
    const QLineF left(0, 9, 0, 0);
    QTest::newRow("top") << Insets(1, 0, 0, 0) << QList<QLineF>{top};
    QTest::newRow("left") << Insets(0, 1, 0, 0) << QList<QLineF>{left};
    QTest::newRow("bottom") << Insets(0, 0, 1, 0) << QList<QLineF>{bottom};
    QTest::newRow("right") << Insets(0, 0, 0, 1) << QList<QLineF>{right};
    QTest::newRow("all but the right") << Insets(1, 1, 1, 0) << QList<QLineF>{top, bottom, left};
    QTest::newRow("negative is none") << Insets(-1, 1, -1, -1) << QList<QLineF>{left};
}

void tst_SimpleBorder::onlySidesWithAnInsetAreDrawn()
{
    QFETCH(Insets, insets);
    const SimpleBorder border(nullptr, 1);

    const auto calls = record(
        [&](QPainter *painter) { border.drawBorderRect(painter, QRect(0, 0, 10, 10), insets); });

    QTEST(linesOf(calls), "lines");
}

void tst_SimpleBorder::drawBorderRectTakesTheGivenInsets()
{
    const SimpleBorder border(nullptr, 0);

    const auto calls = record([&](QPainter *painter) {
        border.drawBorderRect(painter, QRect(5, 6, 7, 8), Insets(9, 9, 9, 9));
    });

    QCOMPARE(linesOf(calls),
             QList<QLineF>({{5, 6, 11, 6}, {11, 6, 11, 13}, {11, 13, 5, 13}, {5, 13, 5, 6}}));
}

void tst_SimpleBorder::drawBorderRectRefusesANullPainterAndAnInvalidRect()
{
    const SimpleBorder border(nullptr, 1);

    border.drawBorderRect(nullptr, QRect(0, 0, 10, 10), Insets(1, 1, 1, 1));
    const auto calls = record([&](QPainter *painter) {
        border.drawBorderRect(painter, QRect(0, 0, 0, 10), Insets(1, 1, 1, 1));
    });

    QCOMPARE(calls.size(), 0);
}

void tst_SimpleBorder::painterStateIsRestored()
{
    SimpleBorder border(nullptr, 1);
    border.setColor(Qt::red);

    const auto calls = record([&](QPainter *painter) {
        painter->setPen(QPen(Qt::green, 3));
        border.render(painter, optionFor(QRect(0, 0, 10, 10)));
        painter->drawPoint(0, 0);
    });

    QCOMPARE(calls.last().pen, QPen(Qt::green, 3));
}

void tst_SimpleBorder::pixelsOfAWideBorderFormOneThinFrame()
{
    SimpleBorder border(nullptr, 5);
    border.setColor(Qt::red);

    const QImage image = paintedImage(QSize(50, 50), [&](QPainter *painter) {
        border.render(painter, optionFor(QRect(10, 10, 30, 30)));
    });

    // From toBorderRect(): (12, 12) to (37, 37).
    QCOMPARE(extentOf(image, Qt::red), QRect(QPoint(12, 12), QPoint(37, 37)));
    QCOMPARE(countPixels(image, Qt::red), 4 * 26 - 4);
}

void tst_SimpleBorder::frameOfOnePixelIsPaintedAtAnyScale_data()
{
    QTest::addColumn<double>("scale");
    for (double scale : {1.0, 2.0, 3.0})
        QTest::addRow("%g", scale) << scale;
}

// Its sides are lines without length, which Qt stretches when they are scaled.
void tst_SimpleBorder::frameOfOnePixelIsPaintedAtAnyScale()
{
    QFETCH(double, scale);
    SimpleBorder border(nullptr, 1);
    border.setColor(Qt::red);
    const QRect rect(10, 10, 1, 1);

    const QImage image = paintedImage(QSize(60, 60), [&](QPainter *painter) {
        painter->scale(scale, scale);
        border.render(painter, optionFor(rect));
    });

    const QRect painted = extentOf(image, Qt::red);
    QVERIFY(painted.isValid());
    const QRect scaled = QRectF(10 * scale, 10 * scale, scale, scale).toAlignedRect();
    QVERIFY(scaled.adjusted(-1, -1, 1, 1).contains(painted));
}

void tst_SimpleBorder::picture()
{
    SimpleBorder thin(nullptr, 1);
    SimpleBorder wide(nullptr, 5);
    SimpleBorder dashed(nullptr, 3);
    SimpleBorder uneven(nullptr, 1);
    wide.setColor(Qt::blue);
    dashed.setColor(Qt::red);
    dashed.setPenStyle(Qt::DashLine);
    uneven.setInsets(Insets(1, 20, 10, 0));

    FIGURA_COMPARE_GOLDEN(pictureOf({&thin, &wide, &dashed, &uneven}),
                          QStringLiteral("border_simple"));
}

QTEST_MAIN(tst_SimpleBorder)
#include "tst_simpleborder.moc"
