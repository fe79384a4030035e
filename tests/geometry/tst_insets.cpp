#include <figura/geometry/Insets.h>

#include <QRect>
#include <QSize>
#include <QTest>

#include <type_traits>

using namespace Velmora::Figura;

class tst_Insets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void allSidesAreZeroAtFirst();
    void argumentsComeAsTopLeftBottomRight();
    void copyAndAssignmentTakeAllFourSides();
    void equalOnlyWhenAllFourSidesAre_data();
    void equalOnlyWhenAllFourSidesAre();
    void applyToMovesTheLeftEdgeByTheRightInsetAndTheRightEdgeByTheLeft();
    void stripFromMovesTheEdgesBackCrossedInTheSameWay();
    void stripFromIsTheExactInverseOfApplyTo_data();
    void stripFromIsTheExactInverseOfApplyTo();
    void rectangleOperationsReturnTheirArgument();
    void addToAndRemoveFromChangeASizeByBothSides();
    void nullOnlyWhenAllFourSidesAreZero_data();
    void nullOnlyWhenAllFourSidesAreZero();
    void negativeSidesWiden();
    void theDestructorIsVirtualThoughItIsNoObject();
};

void tst_Insets::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Insets::allSidesAreZeroAtFirst()
{
    QCOMPARE(Insets(), Insets(0, 0, 0, 0));
}

void tst_Insets::argumentsComeAsTopLeftBottomRight()
{
    const Insets insets(1, 2, 3, 4);

    QCOMPARE(insets.top(), 1);
    QCOMPARE(insets.left(), 2);
    QCOMPARE(insets.bottom(), 3);
    QCOMPARE(insets.right(), 4);
}

void tst_Insets::copyAndAssignmentTakeAllFourSides()
{
    const Insets insets(1, 2, 3, 4);
    const Insets copy(insets);
    Insets assigned(9, 9, 9, 9);

    Insets &result = (assigned = insets);

    QCOMPARE(copy.top(), 1);
    QCOMPARE(copy.left(), 2);
    QCOMPARE(copy.bottom(), 3);
    QCOMPARE(copy.right(), 4);
    QCOMPARE(assigned, copy);
    QCOMPARE(&result, &assigned);
}

void tst_Insets::equalOnlyWhenAllFourSidesAre_data()
{
    QTest::addColumn<Insets>("other");
    QTest::addColumn<bool>("equal");

    QTest::newRow("same") << Insets(1, 2, 3, 4) << true;
    QTest::newRow("other top") << Insets(0, 2, 3, 4) << false;
    QTest::newRow("other left") << Insets(1, 0, 3, 4) << false;
    QTest::newRow("other bottom") << Insets(1, 2, 0, 4) << false;
    QTest::newRow("other right") << Insets(1, 2, 3, 0) << false;
}

void tst_Insets::equalOnlyWhenAllFourSidesAre()
{
    QFETCH(Insets, other);
    QFETCH(bool, equal);

    QCOMPARE(Insets(1, 2, 3, 4) == other, equal);
    QCOMPARE(Insets(1, 2, 3, 4) != other, !equal);
}

// The crossing is on purpose; only unequal left and right insets show it.
void tst_Insets::applyToMovesTheLeftEdgeByTheRightInsetAndTheRightEdgeByTheLeft()
{
    const Insets insets(1, 2, 3, 4);
    QRect rect(0, 0, 100, 100);
    QRectF rectF(0, 0, 100, 100);

    insets.applyTo(rect);
    insets.applyTo(rectF);

    QCOMPARE(rect.left(), 4);
    QCOMPARE(rect.right(), 97);
    QCOMPARE(rect.width(), 94);
    QCOMPARE(rect.top(), 1);
    QCOMPARE(rect.bottom(), 96);
    QCOMPARE(rectF, QRectF(4, 1, 94, 96));
}

void tst_Insets::stripFromMovesTheEdgesBackCrossedInTheSameWay()
{
    const Insets insets(1, 2, 3, 4);
    QRect rect(10, 10, 20, 20);
    QRectF rectF(10.5, 10.5, 20, 20);

    insets.stripFrom(rect);
    insets.stripFrom(rectF);

    QCOMPARE(rect, QRect(6, 9, 26, 24));
    QCOMPARE(rectF, QRectF(6.5, 9.5, 26, 24));
}

void tst_Insets::stripFromIsTheExactInverseOfApplyTo_data()
{
    QTest::addColumn<QRect>("rect");

    QTest::newRow("ordinary") << QRect(5, -6, 70, 80);
    QTest::newRow("smaller than the insets") << QRect(5, 6, 1, 1);
    QTest::newRow("invalid") << QRect();
}

void tst_Insets::stripFromIsTheExactInverseOfApplyTo()
{
    QFETCH(QRect, rect);
    const Insets insets(1, 20, 3, 4);
    QRect changed = rect;
    QRectF changedF(rect);

    insets.stripFrom(insets.applyTo(changed));
    insets.stripFrom(insets.applyTo(changedF));

    QCOMPARE(changed, rect);
    QCOMPARE(changedF, QRectF(rect));
}

void tst_Insets::rectangleOperationsReturnTheirArgument()
{
    const Insets insets(1, 2, 3, 4);
    QRect rect;
    QRectF rectF;
    QSize size;

    QCOMPARE(&insets.applyTo(rect), &rect);
    QCOMPARE(&insets.applyTo(rectF), &rectF);
    QCOMPARE(&insets.stripFrom(rect), &rect);
    QCOMPARE(&insets.stripFrom(rectF), &rectF);
    QCOMPARE(&insets.addTo(size), &size);
    QCOMPARE(&insets.removeFrom(size), &size);
}

void tst_Insets::addToAndRemoveFromChangeASizeByBothSides()
{
    const Insets insets(1, 2, 30, 40);
    QSize grown(100, 200);
    QSize shrunk(100, 200);

    insets.addTo(grown);
    insets.removeFrom(shrunk);

    QCOMPARE(grown, QSize(142, 231));
    QCOMPARE(shrunk, QSize(58, 169));
}

void tst_Insets::nullOnlyWhenAllFourSidesAreZero_data()
{
    QTest::addColumn<Insets>("insets");
    QTest::addColumn<bool>("null");

    QTest::newRow("none") << Insets(0, 0, 0, 0) << true;
    QTest::newRow("top") << Insets(1, 0, 0, 0) << false;
    QTest::newRow("left") << Insets(0, 1, 0, 0) << false;
    QTest::newRow("bottom") << Insets(0, 0, 1, 0) << false;
    QTest::newRow("right") << Insets(0, 0, 0, 1) << false;
    QTest::newRow("sides that cancel out") << Insets(1, -1, -1, 1) << false;
}

void tst_Insets::nullOnlyWhenAllFourSidesAreZero()
{
    QFETCH(Insets, insets);

    QTEST(insets.isNull(), "null");
}

void tst_Insets::negativeSidesWiden()
{
    QRect rect(0, 0, 10, 10);
    QSize size(10, 10);

    Insets(-1, -2, -3, -4).applyTo(rect);
    Insets(-1, -2, -3, -4).addTo(size);

    QCOMPARE(rect, QRect(-4, -1, 16, 14));
    QCOMPARE(size, QSize(4, 6));
}

void tst_Insets::theDestructorIsVirtualThoughItIsNoObject()
{
    QVERIFY(std::has_virtual_destructor_v<Insets>);
    QVERIFY(!(std::is_base_of_v<QObject, Insets>));
}

QTEST_APPLESS_MAIN(tst_Insets)
#include "tst_insets.moc"
