#include <figura/geometry/IPositionConstants.h>
#include <figura/geometry/IStyleConstants.h>

#include <QTest>

using namespace Velmora::Figura;
using Pos = IPositionConstants;

class tst_PositionConstants : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void codesHaveTheirPublishedValues_data();
    void codesHaveTheirPublishedValues();
    void cornersAreTheOrOfTheirSides();
    void alignmentCodesOverlapTheCompassCodesOnPurpose();
    void highlightStylesHaveTheirPublishedValues();
    void codesAreCompileTimeConstants();
};

void tst_PositionConstants::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_PositionConstants::codesHaveTheirPublishedValues_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("value");

    QTest::newRow("NONE") << Pos::NONE << 0;
    QTest::newRow("NORTH") << Pos::NORTH << 1;
    QTest::newRow("CENTER") << Pos::CENTER << 2;
    QTest::newRow("SOUTH") << Pos::SOUTH << 4;
    QTest::newRow("WEST") << Pos::WEST << 8;
    QTest::newRow("EAST") << Pos::EAST << 16;
    QTest::newRow("NORTH_EAST") << Pos::NORTH_EAST << 17;
    QTest::newRow("NORTH_WEST") << Pos::NORTH_WEST << 9;
    QTest::newRow("SOUTH_EAST") << Pos::SOUTH_EAST << 20;
    QTest::newRow("SOUTH_WEST") << Pos::SOUTH_WEST << 12;
    QTest::newRow("NORTH_SOUTH") << Pos::NORTH_SOUTH << 5;
    QTest::newRow("EAST_WEST") << Pos::EAST_WEST << 24;
    QTest::newRow("LEFT") << Pos::LEFT << 1;
    QTest::newRow("RIGHT") << Pos::RIGHT << 4;
    QTest::newRow("TOP") << Pos::TOP << 8;
    QTest::newRow("MIDDLE") << Pos::MIDDLE << 16;
    QTest::newRow("BOTTOM") << Pos::BOTTOM << 32;
}

void tst_PositionConstants::codesHaveTheirPublishedValues()
{
    QFETCH(int, code);

    QTEST(code, "value");
}

void tst_PositionConstants::cornersAreTheOrOfTheirSides()
{
    QCOMPARE(Pos::NORTH | Pos::EAST, Pos::NORTH_EAST);
    QCOMPARE(Pos::NORTH | Pos::WEST, Pos::NORTH_WEST);
    QCOMPARE(Pos::SOUTH | Pos::EAST, Pos::SOUTH_EAST);
    QCOMPARE(Pos::SOUTH | Pos::WEST, Pos::SOUTH_WEST);
    QCOMPARE(Pos::NORTH | Pos::SOUTH, Pos::NORTH_SOUTH);
    QCOMPARE(Pos::EAST | Pos::WEST, Pos::EAST_WEST);
}

void tst_PositionConstants::alignmentCodesOverlapTheCompassCodesOnPurpose()
{
    QCOMPARE(Pos::LEFT, Pos::NORTH);
    QCOMPARE(Pos::RIGHT, Pos::SOUTH);
    QCOMPARE(Pos::TOP, Pos::WEST);
    QCOMPARE(Pos::MIDDLE, Pos::EAST);
}

void tst_PositionConstants::highlightStylesHaveTheirPublishedValues()
{
    QCOMPARE(IStyleConstants::HIGHLIGHT_FOCUSRECT, 0);
    QCOMPARE(IStyleConstants::HIGHLIGHT_RUBBERBAND, 1);
}

void tst_PositionConstants::codesAreCompileTimeConstants()
{
    constexpr int combined = Pos::NORTH_EAST | Pos::CENTER | IStyleConstants::HIGHLIGHT_FOCUSRECT;
    static_assert(combined == 19);
    const int &taken = Pos::BOTTOM; // needs a definition, which an in-class constant may lack

    QCOMPARE(taken, 32);
}

QTEST_APPLESS_MAIN(tst_PositionConstants)
#include "tst_positionconstants.moc"
