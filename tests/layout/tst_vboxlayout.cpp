#include "box_model.h"

#include <figura/layout/HBoxLayout.h>
#include <figura/layout/VBoxLayout.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Columns of children that differ only in height.
QList<BoxChild> childrenOfHeights(const QList<int> &heights)
{
    QList<BoxChild> children;
    for (const int height : heights)
        children.append(BoxChild{QSize(10 + height, height), QSize(5, height)});
    return children;
}

QList<int> heightsOf(const QList<QRect> &places)
{
    QList<int> heights;
    for (const QRect &place : places)
        heights.append(place.height());
    return heights;
}

BoxResult layOutColumn(const Box &box)
{
    return layOut<VBoxLayout>(box);
}

} // namespace

class tst_VBoxLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newLayoutStartsLeftAndCentresVertically();

    void sizesAddUpAlongTheColumn();
    void sizesWithoutContainerAreZero();
    void sizesWithoutChildrenAreZero();
    void negativeSpacingCountsAsNone();
    void leadingChildWithoutHeightGetsNoSpacing();
    void hiddenChildrenCountForNothing();
    void constraintReplacesThePreferredSize();
    void floatingConstraintIsNotUsed();

    void childrenStandBelowEachOther();
    void positionsStartAtZeroWhereverTheRectangleIs();
    void extraHeightIsSharedByStretch_data();
    void extraHeightIsSharedByStretch();
    void shareIsComputedWithoutOverflow();
    void horizontalStretchDoesNotCount();
    void hiddenStretchDoesNotCount();
    void missingHeightIsNotTakenAway();
    void childIsLeftAlignedAndCentredVerticallyByDefault();
    void childThatExpandsInEitherDirectionFillsItsCell_data();
    void childThatExpandsInEitherDirectionFillsItsCell();
    void hiddenChildKeepsItsBounds();
    void invalidRectangleIsRefused_data();
    void invalidRectangleIsRefused();
    void validRectangleIsEnough();

    void layoutAgreesWithTheModel();
    void columnIsARowWithItsAxesExchanged();
};

void tst_VBoxLayout::newLayoutStartsLeftAndCentresVertically()
{
    Scene<VBoxLayout> scene;

    QCOMPARE(scene.layout.getAligment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(scene.layout.getSpacing(), 2);
    QVERIFY(scene.layout.isRelativeLayout());
    QVERIFY(scene.layout.isClipping());
}

void tst_VBoxLayout::sizesAddUpAlongTheColumn()
{
    Box box{QSize(50, 200), 5, Qt::AlignCenter, childrenOfHeights({10, 20, 30})};

    const BoxResult result = layOutColumn(box);

    QCOMPARE(result.preferred, QSize(40, 70));
    QCOMPARE(result.minimum, QSize(5, 70));
}

void tst_VBoxLayout::sizesWithoutContainerAreZero()
{
    Scene<VBoxLayout> scene;
    SizedFigure child(QSize(10, 10), QSize(5, 5));
    scene.layout.add(&child);
    scene.layout.setFigure(nullptr);

    QCOMPARE(scene.layout.calculateMinimumSize(), QSize(0, 0));
    QCOMPARE(scene.layout.calculatePreferredSize(), QSize(0, 0));
}

void tst_VBoxLayout::sizesWithoutChildrenAreZero()
{
    Scene<VBoxLayout> scene;

    QCOMPARE(scene.layout.getMinimumSize(), QSize(0, 0));
    QCOMPARE(scene.layout.getPreferredSize(), QSize(0, 0));
}

void tst_VBoxLayout::negativeSpacingCountsAsNone()
{
    Box box{QSize(50, 200), -5, Qt::AlignLeft | Qt::AlignTop, childrenOfHeights({10, 20})};

    const BoxResult result = layOutColumn(box);

    QCOMPARE(result.preferred.height(), 30);
    QCOMPARE(result.minimum.height(), 30);
    QCOMPARE(result.places.at(1).y(), 10);
}

void tst_VBoxLayout::leadingChildWithoutHeightGetsNoSpacing()
{
    Box box{QSize(50, 200), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfHeights({10, 20})};
    box.children.prepend(BoxChild{QSize(10, 0), QSize(10, 0), {}, 0, 0, true, Qt::Vertical});

    QTest::ignoreMessage(QtDebugMsg, "Figure::resolveBounds(): resolved bounds still invalid");
    const BoxResult result = layOutColumn(box);

    QCOMPARE(result.preferred.height(), 35);
    QCOMPARE(result.minimum.height(), 35);
    QCOMPARE(result.places.at(1).y(), 5); // placing adds the spacing all the same
}

void tst_VBoxLayout::hiddenChildrenCountForNothing()
{
    Box box{QSize(50, 200), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfHeights({10, 90, 20})};
    box.children[1].visible = false;

    const BoxResult result = layOutColumn(box);

    QCOMPARE(result.preferred, QSize(30, 35));
    QCOMPARE(result.minimum, QSize(5, 35));
    QCOMPARE(result.places.at(2).y(), 15);
}

void tst_VBoxLayout::constraintReplacesThePreferredSize()
{
    Box box{QSize(50, 200), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfHeights({10, 20})};
    box.children[0].constraint = QSize(3, 40); // raised to the minimum width of 5

    const BoxResult result = layOutColumn(box);

    QCOMPARE(result.preferred, QSize(30, 65));
    QCOMPARE(result.minimum, QSize(5, 35));
    QCOMPARE(result.places.at(0), QRect(0, 0, 5, 40));
    QCOMPARE(result.places.at(1).y(), 45);
}

void tst_VBoxLayout::floatingConstraintIsNotUsed()
{
    Box box{QSize(50, 200), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfHeights({10, 20})};
    box.children[0].constraint = QSizeF(50, 40);

    const BoxResult result = layOutColumn(box);

    QCOMPARE(result.preferred, QSize(30, 35));
    QCOMPARE(result.places.at(0), QRect(0, 0, 20, 10));
}

void tst_VBoxLayout::childrenStandBelowEachOther()
{
    Box box{QSize(40, 70), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfHeights({10, 20, 30})};

    QCOMPARE(layOutColumn(box).places,
             (QList<QRect>{QRect(0, 0, 20, 10), QRect(0, 15, 30, 20), QRect(0, 40, 40, 30)}));
}

void tst_VBoxLayout::positionsStartAtZeroWhereverTheRectangleIs()
{
    Scene<VBoxLayout> scene;
    SizedFigure child(QSize(10, 10));
    child.setExpandingDirections(Qt::Horizontal);
    scene.layout.add(&child);

    QVERIFY(scene.layout.performLayout(QRect(70, 80, 50, 40)));

    QCOMPARE(child.getBounds(), QRect(0, 0, 50, 10));
}

void tst_VBoxLayout::extraHeightIsSharedByStretch_data()
{
    QTest::addColumn<int>("extra");
    QTest::addColumn<QList<int>>("stretches");
    QTest::addColumn<QList<int>>("heights");

    // Three children, each 10 high.
    const auto row = [](const char *name, int extra, const QList<int> &stretches,
                        const QList<int> &heights) {
        QTest::newRow(name) << extra << stretches << heights;
    };
    row("one to two", 30, {1, 2, 0}, {20, 30, 10});
    row("nobody stretches", 30, {0, 0, 0}, {10, 10, 10});
    row("only one stretches", 30, {0, 7, 0}, {10, 40, 10});
    row("fractions are cut off", 10, {1, 2, 0}, {13, 16, 10});
    row("one pixel among three", 1, {1, 1, 1}, {10, 10, 10});
    row("one pixel for one", 1, {0, 0, 1}, {10, 10, 11});
    row("nothing extra", 0, {1, 1, 1}, {10, 10, 10});
    row("too little", -15, {1, 1, 1}, {10, 10, 10});
}

void tst_VBoxLayout::extraHeightIsSharedByStretch()
{
    QFETCH(int, extra);
    QFETCH(QList<int>, stretches);
    QFETCH(QList<int>, heights);
    Box box{QSize(20, 38 + extra), 4, Qt::AlignCenter, childrenOfHeights({10, 10, 10})};
    for (int i = 0; i < 3; ++i) {
        box.children[i].vStretch = unsigned(stretches.at(i));
        box.children[i].expanding = Qt::Vertical;
    }

    const BoxResult result = layOutColumn(box);

    QCOMPARE(heightsOf(result.places), heights);
    QCOMPARE(result.places.at(1).y(), heights.at(0) + 4);
    QCOMPARE(result.places.at(2).y(), heights.at(0) + heights.at(1) + 8);
}

// The product of stretch and extra height exceeds 32 bits.
void tst_VBoxLayout::shareIsComputedWithoutOverflow()
{
    Box box{QSize(20, 3000), 0, Qt::AlignCenter, childrenOfHeights({500, 500})};
    box.children[0].vStretch = 3000000000u;
    box.children[1].vStretch = 1000000000u;
    box.children[0].expanding = Qt::Vertical;
    box.children[1].expanding = Qt::Vertical;

    QCOMPARE(heightsOf(layOutColumn(box).places), (QList<int>{2000, 1000}));
}

void tst_VBoxLayout::horizontalStretchDoesNotCount()
{
    Box box{QSize(20, 100), 0, Qt::AlignCenter, childrenOfHeights({10, 10})};
    box.children[0].hStretch = 5;
    box.children[0].expanding = Qt::Vertical;

    QCOMPARE(heightsOf(layOutColumn(box).places), (QList<int>{10, 10}));
}

void tst_VBoxLayout::hiddenStretchDoesNotCount()
{
    Box box{QSize(20, 50), 0, Qt::AlignCenter, childrenOfHeights({10, 10})};
    box.children[0].vStretch = 3;
    box.children[1].vStretch = 1;
    box.children[1].expanding = Qt::Vertical;
    box.children[0].visible = false;

    QCOMPARE(layOutColumn(box).places.at(1), QRect(0, 0, 20, 50));
}

void tst_VBoxLayout::missingHeightIsNotTakenAway()
{
    Box box{QSize(5, 20), 4, Qt::AlignLeft | Qt::AlignTop, childrenOfHeights({30, 30})};

    QCOMPARE(layOutColumn(box).places, (QList<QRect>{QRect(0, 0, 40, 30), QRect(0, 34, 40, 30)}));
}

void tst_VBoxLayout::childIsLeftAlignedAndCentredVerticallyByDefault()
{
    Scene<VBoxLayout> scene(QRect(0, 0, 40, 40));
    SizedFigure child(QSize(10, 10));
    scene.layout.add(&child, 1, 0, -1);

    scene.figure.validate();

    QCOMPARE(child.getBounds(), QRect(0, 15, 10, 10));
}

void tst_VBoxLayout::childThatExpandsInEitherDirectionFillsItsCell_data()
{
    QTest::addColumn<int>("directions");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("neither") << 0 << QRect(15, 15, 10, 10);
    QTest::newRow("horizontal") << int(Qt::Horizontal) << QRect(0, 0, 40, 40);
    QTest::newRow("vertical") << int(Qt::Vertical) << QRect(0, 0, 40, 40);
    QTest::newRow("both") << int(Qt::Horizontal | Qt::Vertical) << QRect(0, 0, 40, 40);
}

void tst_VBoxLayout::childThatExpandsInEitherDirectionFillsItsCell()
{
    QFETCH(int, directions);
    QFETCH(QRect, expected);
    Box box{QSize(40, 40), 0, Qt::AlignCenter, {BoxChild()}};
    box.children[0].vStretch = 1;
    box.children[0].expanding = Qt::Orientations(directions);

    QCOMPARE(layOutColumn(box).places, QList<QRect>{expected});
}

void tst_VBoxLayout::hiddenChildKeepsItsBounds()
{
    Scene<VBoxLayout> scene;
    SizedFigure hidden(QSize(10, 10));
    hidden.setBounds(QRect(1, 2, 3, 4));
    hidden.setVisible(false);
    scene.layout.add(&hidden);

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 50, 20)));

    QCOMPARE(hidden.getBounds(), QRect(1, 2, 3, 4));
}

void tst_VBoxLayout::invalidRectangleIsRefused_data()
{
    QTest::addColumn<QRect>("area");
    QTest::newRow("nothing") << QRect();
    QTest::newRow("no width") << QRect(0, 0, 0, 10);
    QTest::newRow("no height") << QRect(0, 0, 10, 0);
    QTest::newRow("negative") << QRect(0, 0, -5, -5);
}

void tst_VBoxLayout::invalidRectangleIsRefused()
{
    QFETCH(QRect, area);
    Scene<VBoxLayout> scene;
    SizedFigure child(QSize(10, 10));
    child.setBounds(QRect(1, 2, 3, 4));
    scene.layout.add(&child);

    QVERIFY(!scene.layout.performLayout(area));

    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
}

void tst_VBoxLayout::validRectangleIsEnough()
{
    Scene<VBoxLayout> scene;

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 1, 1)));
}

void tst_VBoxLayout::layoutAgreesWithTheModel()
{
    QRandomGenerator random(32);
    for (int round = 0; round < 500; ++round) {
        const Box box = randomBox(&random);

        const BoxResult actual = layOutColumn(box);

        const BoxResult expected = modelColumn(box);
        QCOMPARE(actual.minimum, expected.minimum);
        QCOMPARE(actual.preferred, expected.preferred);
        QCOMPARE(actual.places, expected.places);
    }
}

void tst_VBoxLayout::columnIsARowWithItsAxesExchanged()
{
    QRandomGenerator random(33);
    for (int round = 0; round < 500; ++round) {
        const Box box = randomBox(&random);

        const BoxResult column = layOutColumn(transposed(box));

        const BoxResult row = layOut<HBoxLayout>(box);
        QCOMPARE(transposed(column).minimum, row.minimum);
        QCOMPARE(transposed(column).preferred, row.preferred);
        QCOMPARE(transposed(column).places, row.places);
    }
}

QTEST_MAIN(tst_VBoxLayout)
#include "tst_vboxlayout.moc"
