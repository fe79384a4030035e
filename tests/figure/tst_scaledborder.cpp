#include "borderpicture.h"

#include <golden.h>
#include <recordingdevice.h>

#include <figura/figure/ScaledBorder.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

QList<PaintCall> rendered(const Border &border, const QRect &rect)
{
    return record([&](QPainter *painter) { border.render(painter, optionFor(rect)); });
}

} // namespace

class tst_ScaledBorder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void widthGivesTheInsetsOnAllSides_data();
    void widthGivesTheInsetsOnAllSides();
    void takesAParent();
    void nothingIsPaintedWithoutAPainterInsetsOrRect();
    void linesAreAsWideAsTheInsetAndShiftedByHalfOfIt();
    void everySideTakesItsOwnWidth();
    void onlySidesWithAnInsetAreDrawn_data();
    void onlySidesWithAnInsetAreDrawn();
    void penKeepsColourAndStyles();
    void innerMarginDrawsASecondFrame();
    void noSecondFrameWithoutAPositiveInnerMargin_data();
    void noSecondFrameWithoutAPositiveInnerMargin();
    void noSecondFrameWhereThereIsNoRoom();
    void drawBorderRectRefusesANullPainterAndAnInvalidRect();
    void painterStateIsRestored();
    void picture();
};

void tst_ScaledBorder::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_ScaledBorder::widthGivesTheInsetsOnAllSides_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("inset");

    QTest::newRow("negative") << -5 << 0;
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("five") << 5 << 5;
}

void tst_ScaledBorder::widthGivesTheInsetsOnAllSides()
{
    QFETCH(int, width);
    QFETCH(int, inset);

    QCOMPARE(ScaledBorder(nullptr, width).getInsets(), Insets(inset, inset, inset, inset));
}

void tst_ScaledBorder::takesAParent()
{
    QObject parent;

    QCOMPARE((new ScaledBorder(&parent, 1))->parent(), &parent);
}

void tst_ScaledBorder::nothingIsPaintedWithoutAPainterInsetsOrRect()
{
    ScaledBorder border(nullptr, 1);
    border.setInnerMarginBorder(2);
    ScaledBorder none(nullptr, 0);
    none.setInnerMarginBorder(2);

    border.render(nullptr, optionFor(QRect(0, 0, 10, 10)));
    QCOMPARE(rendered(none, QRect(0, 0, 10, 10)).size(), 0);
    QCOMPARE(rendered(border, QRect()).size(), 0);
    QCOMPARE(rendered(border, QRect(5, 5, 10, 0)).size(), 0);
}

void tst_ScaledBorder::linesAreAsWideAsTheInsetAndShiftedByHalfOfIt()
{
    const auto calls = rendered(ScaledBorder(nullptr, 5), QRect(100, 200, 50, 60));

    // The border rectangle runs from (102, 202) to (147, 257).
    QCOMPARE(calls.size(), 4);
    for (const PaintCall &call : calls) {
        QCOMPARE(call.kind, PaintCall::Lines);
        QVERIFY(!call.isInteger);
        QCOMPARE(call.pen.widthF(), 5.0);
    }
    QCOMPARE(linesOf(calls), QList<QLineF>({{104.5, 204.5, 147, 204.5},
                                            {149.5, 204.5, 149.5, 257},
                                            {147, 259.5, 104.5, 259.5},
                                            {104.5, 257, 104.5, 204.5}}));
}

void tst_ScaledBorder::everySideTakesItsOwnWidth()
{
    const ScaledBorder border(nullptr, 1);

    const auto calls = record([&](QPainter *painter) {
        border.drawBorderRect(painter, QRect(0, 0, 101, 201), Insets(1, 2, 3, 4));
    });

    QCOMPARE(calls.size(), 4);
    QCOMPARE(calls[0].pen.widthF(), 1.0);
    QCOMPARE(calls[1].pen.widthF(), 4.0);
    QCOMPARE(calls[2].pen.widthF(), 3.0);
    QCOMPARE(calls[3].pen.widthF(), 2.0);
    QCOMPARE(
        linesOf(calls),
        QList<QLineF>(
            {{0.5, 0.5, 100, 0.5}, {102, 2, 102, 200}, {100, 201.5, 1.5, 201.5}, {1, 200, 1, 1}}));
}

void tst_ScaledBorder::onlySidesWithAnInsetAreDrawn_data()
{
    QTest::addColumn<Insets>("insets");
    QTest::addColumn<QList<QLineF>>("lines");

    QTest::newRow("top") << Insets(2, 0, 0, 0) << QList<QLineF>{{1, 1, 9, 1}};
    QTest::newRow("left") << Insets(0, 2, 0, 0) << QList<QLineF>{{1, 9, 1, 1}};
    QTest::newRow("bottom") << Insets(0, 0, 2, 0) << QList<QLineF>{{9, 10, 1, 10}};
    QTest::newRow("right") << Insets(0, 0, 0, 2) << QList<QLineF>{{10, 1, 10, 9}};
    QTest::newRow("negative is none") << Insets(-2, 2, -2, -2) << QList<QLineF>{{1, 9, 1, 1}};
}

void tst_ScaledBorder::onlySidesWithAnInsetAreDrawn()
{
    QFETCH(Insets, insets);
    const ScaledBorder border(nullptr, 1);

    const auto calls = record(
        [&](QPainter *painter) { border.drawBorderRect(painter, QRect(0, 0, 10, 10), insets); });

    QTEST(linesOf(calls), "lines");
}

void tst_ScaledBorder::penKeepsColourAndStyles()
{
    ScaledBorder border(nullptr, 3);
    border.setColor(Qt::red);
    border.setPenStyle(Qt::DashLine);
    border.setPenCapStyle(Qt::FlatCap);
    border.setPenJoinStyle(Qt::MiterJoin);

    const auto calls = rendered(border, QRect(0, 0, 100, 100));

    QCOMPARE(calls.size(), 4);
    for (const PaintCall &call : calls)
        QCOMPARE(call.pen, QPen(Qt::red, 3, Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
}

void tst_ScaledBorder::innerMarginDrawsASecondFrame()
{
    ScaledBorder border(nullptr, 1);
    border.setInnerMarginBorder(3);

    const auto calls = rendered(border, QRect(0, 0, 100, 100));

    QCOMPARE(calls.size(), 8);
    const QList<QLineF> lines = linesOf(calls);
    QCOMPARE(lines.first(4), QList<QLineF>({{0.5, 0.5, 99, 0.5},
                                            {99.5, 0.5, 99.5, 99},
                                            {99, 99.5, 0.5, 99.5},
                                            {0.5, 99, 0.5, 0.5}}));
    QCOMPARE(lines.last(4), QList<QLineF>({{3.5, 3.5, 96, 3.5},
                                           {96.5, 3.5, 96.5, 96},
                                           {96, 96.5, 3.5, 96.5},
                                           {3.5, 96, 3.5, 3.5}}));
}

void tst_ScaledBorder::noSecondFrameWithoutAPositiveInnerMargin_data()
{
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("lines");

    QTest::newRow("negative") << -3 << 4;
    QTest::newRow("zero") << 0 << 4;
    QTest::newRow("one") << 1 << 8;
}

void tst_ScaledBorder::noSecondFrameWithoutAPositiveInnerMargin()
{
    QFETCH(int, margin);
    ScaledBorder border(nullptr, 1);

    border.setInnerMarginBorder(margin);

    QTEST(int(rendered(border, QRect(0, 0, 100, 100)).size()), "lines");
}

void tst_ScaledBorder::noSecondFrameWhereThereIsNoRoom()
{
    ScaledBorder border(nullptr, 1);

    border.setInnerMarginBorder(5);

    QCOMPARE(rendered(border, QRect(0, 0, 10, 10)).size(), 4);
    QCOMPARE(rendered(border, QRect(0, 0, 11, 11)).size(), 8);
}

void tst_ScaledBorder::drawBorderRectRefusesANullPainterAndAnInvalidRect()
{
    const ScaledBorder border(nullptr, 1);

    border.drawBorderRect(nullptr, QRect(0, 0, 10, 10), Insets(1, 1, 1, 1));
    const auto calls = record([&](QPainter *painter) {
        border.drawBorderRect(painter, QRect(0, 0, 10, 0), Insets(1, 1, 1, 1));
    });

    QCOMPARE(calls.size(), 0);
}

void tst_ScaledBorder::painterStateIsRestored()
{
    ScaledBorder border(nullptr, 2);
    border.setInnerMarginBorder(2);

    const auto calls = record([&](QPainter *painter) {
        painter->setPen(QPen(Qt::green, 3));
        border.render(painter, optionFor(QRect(0, 0, 100, 100)));
        painter->drawPoint(0, 0);
    });

    QCOMPARE(calls.last().pen, QPen(Qt::green, 3));
}

void tst_ScaledBorder::picture()
{
    ScaledBorder thin(nullptr, 1);
    ScaledBorder wide(nullptr, 5);
    ScaledBorder twofold(nullptr, 1);
    ScaledBorder uneven(nullptr, 1);
    wide.setColor(Qt::blue);
    twofold.setInnerMarginBorder(3);
    uneven.setInsets(Insets(1, 8, 4, 0));
    uneven.setColor(Qt::red);

    FIGURA_COMPARE_GOLDEN(pictureOf({&thin, &wide, &twofold, &uneven}),
                          QStringLiteral("border_scaled"));
}

QTEST_MAIN(tst_ScaledBorder)
#include "tst_scaledborder.moc"
