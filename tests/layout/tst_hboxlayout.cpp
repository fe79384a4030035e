#include "box_model.h"

#include <figura/figure/SimpleBorder.h>
#include <figura/layout/HBoxLayout.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Rows of children that differ only in width.
QList<BoxChild> childrenOfWidths(const QList<int> &widths)
{
    QList<BoxChild> children;
    for (const int width : widths)
        children.append(BoxChild{QSize(width, 10 + width), QSize(width, 5)});
    return children;
}

QList<int> widthsOf(const QList<QRect> &places)
{
    QList<int> widths;
    for (const QRect &place : places)
        widths.append(place.width());
    return widths;
}

BoxResult layOutRow(const Box &box)
{
    return layOut<HBoxLayout>(box);
}

} // namespace

class tst_HBoxLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newLayoutCentresAndIsRelative();

    void sizesAddUpAlongTheRow();
    void sizesWithoutContainerAreZero();
    void sizesWithoutChildrenAreZero();
    void negativeSpacingCountsAsNone();
    void leadingChildWithoutWidthGetsNoSpacing();
    void hiddenChildrenCountForNothing();
    void constraintReplacesThePreferredSize();
    void floatingConstraintIsNotUsed();
    void negativeConstraintIsCountedAsItIs();
    void minimumSizeIgnoresConstraints();

    void childrenStandSideBySide();
    void positionsStartAtZeroWhereverTheRectangleIs();
    void extraWidthIsSharedByStretch_data();
    void extraWidthIsSharedByStretch();
    void shareIsComputedWithoutOverflow();
    void verticalStretchDoesNotCount();
    void hiddenStretchDoesNotCount();
    void extraIsWhatTheCachedPreferredSizeLeaves();
    void missingWidthIsNotTakenAway();
    void childIsAlignedInItsCell_data();
    void childIsAlignedInItsCell();
    void childThatExpandsInEitherDirectionFillsItsCell_data();
    void childThatExpandsInEitherDirectionFillsItsCell();
    void childWithALayoutExpandsAsThatSays();
    void hiddenChildKeepsItsBounds();
    void emptyChildIsResolvedByItself();
    void invalidRectangleIsRefused_data();
    void invalidRectangleIsRefused();
    void validRectangleIsEnough();
    void layoutFollowsTheContainersClientArea();

    void layoutAgreesWithTheModel();
};

void tst_HBoxLayout::newLayoutCentresAndIsRelative()
{
    Scene<HBoxLayout> scene;

    QCOMPARE(scene.layout.getAligment(), Qt::AlignCenter);
    QCOMPARE(scene.layout.getSpacing(), 2);
    QVERIFY(scene.layout.isRelativeLayout());
    QVERIFY(scene.layout.isClipping());
}

void tst_HBoxLayout::sizesAddUpAlongTheRow()
{
    Box box{QSize(200, 50), 5, Qt::AlignCenter, childrenOfWidths({10, 20, 30})};

    const BoxResult result = layOutRow(box);

    QCOMPARE(result.preferred, QSize(70, 40));
    QCOMPARE(result.minimum, QSize(70, 5));
}

void tst_HBoxLayout::sizesWithoutContainerAreZero()
{
    Scene<HBoxLayout> scene;
    SizedFigure child(QSize(10, 10), QSize(5, 5));
    scene.layout.add(&child);
    scene.layout.setFigure(nullptr);

    QCOMPARE(scene.layout.calculateMinimumSize(), QSize(0, 0));
    QCOMPARE(scene.layout.calculatePreferredSize(), QSize(0, 0));
}

void tst_HBoxLayout::sizesWithoutChildrenAreZero()
{
    Scene<HBoxLayout> scene;

    QCOMPARE(scene.layout.getMinimumSize(), QSize(0, 0));
    QCOMPARE(scene.layout.getPreferredSize(), QSize(0, 0));
}

void tst_HBoxLayout::negativeSpacingCountsAsNone()
{
    Box box{QSize(200, 50), -5, Qt::AlignLeft | Qt::AlignTop, childrenOfWidths({10, 20})};

    const BoxResult result = layOutRow(box);

    QCOMPARE(result.preferred.width(), 30);
    QCOMPARE(result.minimum.width(), 30);
    QCOMPARE(result.places.at(1).x(), 10);
}

void tst_HBoxLayout::leadingChildWithoutWidthGetsNoSpacing()
{
    Box box{QSize(200, 50), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfWidths({10, 20})};
    box.children.prepend(BoxChild{QSize(0, 10), QSize(0, 10), {}, 0, 0, true, Qt::Horizontal});

    QTest::ignoreMessage(QtDebugMsg, "Figure::resolveBounds(): resolved bounds still invalid");
    const BoxResult result = layOutRow(box);

    QCOMPARE(result.preferred.width(), 35);
    QCOMPARE(result.minimum.width(), 35);
    QCOMPARE(result.places.at(1).x(), 5); // placing adds the spacing all the same
}

void tst_HBoxLayout::hiddenChildrenCountForNothing()
{
    Box box{QSize(200, 50), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfWidths({10, 90, 20})};
    box.children[1].visible = false;

    const BoxResult result = layOutRow(box);

    QCOMPARE(result.preferred, QSize(35, 30));
    QCOMPARE(result.minimum, QSize(35, 5));
    QCOMPARE(result.places.at(2).x(), 15);
}

void tst_HBoxLayout::constraintReplacesThePreferredSize()
{
    Box box{QSize(200, 50), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfWidths({10, 20})};
    box.children[0].constraint = QSize(40, 3); // raised to the minimum height of 5

    const BoxResult result = layOutRow(box);

    QCOMPARE(result.preferred, QSize(65, 30));
    QCOMPARE(result.places.at(0), QRect(0, 0, 40, 5));
    QCOMPARE(result.places.at(1).x(), 45);
}

void tst_HBoxLayout::floatingConstraintIsNotUsed()
{
    Box box{QSize(200, 50), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfWidths({10, 20})};
    box.children[0].constraint = QSizeF(40, 50);

    const BoxResult result = layOutRow(box);

    QCOMPARE(result.preferred, QSize(35, 30));
    QCOMPARE(result.places.at(0), QRect(0, 0, 10, 20));
}

void tst_HBoxLayout::negativeConstraintIsCountedAsItIs()
{
    Scene<HBoxLayout> scene;
    scene.layout.setSpacing(5);
    SizedFigure a(QSize(30, 30));
    SizedFigure b(QSize(20, 20));
    scene.layout.add(&a, QSize(-1, 8));
    scene.layout.add(&b);

    // Nothing stands before the second child yet, as the first one is not wider than 0.
    QCOMPARE(scene.freshPreferred(), QSize(19, 20));
}

void tst_HBoxLayout::minimumSizeIgnoresConstraints()
{
    Box box{QSize(200, 50), 5, Qt::AlignCenter, childrenOfWidths({10, 20})};
    box.children[0].constraint = QSize(40, 50);

    QCOMPARE(layOutRow(box).minimum, QSize(35, 5));
}

void tst_HBoxLayout::childrenStandSideBySide()
{
    Box box{QSize(70, 40), 5, Qt::AlignLeft | Qt::AlignTop, childrenOfWidths({10, 20, 30})};

    QCOMPARE(layOutRow(box).places,
             (QList<QRect>{QRect(0, 0, 10, 20), QRect(15, 0, 20, 30), QRect(40, 0, 30, 40)}));
}

void tst_HBoxLayout::positionsStartAtZeroWhereverTheRectangleIs()
{
    Scene<HBoxLayout> scene;
    SizedFigure child(QSize(10, 10));
    child.setExpandingDirections(Qt::Vertical);
    scene.layout.add(&child);

    QVERIFY(scene.layout.performLayout(QRect(70, 80, 50, 40)));

    QCOMPARE(child.getBounds(), QRect(0, 0, 10, 40));
}

void tst_HBoxLayout::extraWidthIsSharedByStretch_data()
{
    QTest::addColumn<int>("extra");
    QTest::addColumn<QList<int>>("stretches");
    QTest::addColumn<QList<int>>("widths");

    // Three children, each 10 wide.
    const auto row = [](const char *name, int extra, const QList<int> &stretches,
                        const QList<int> &widths) {
        QTest::newRow(name) << extra << stretches << widths;
    };
    row("one to two", 30, {1, 2, 0}, {20, 30, 10});
    row("nobody stretches", 30, {0, 0, 0}, {10, 10, 10});
    row("only one stretches", 30, {0, 7, 0}, {10, 40, 10});
    row("equal", 30, {5, 5, 5}, {20, 20, 20});
    row("fractions are cut off", 10, {1, 2, 0}, {13, 16, 10});
    row("one pixel among three", 1, {1, 1, 1}, {10, 10, 10});
    row("one pixel for one", 1, {0, 0, 1}, {10, 10, 11});
    row("nothing extra", 0, {1, 1, 1}, {10, 10, 10});
    row("too little", -15, {1, 1, 1}, {10, 10, 10});
}

void tst_HBoxLayout::extraWidthIsSharedByStretch()
{
    QFETCH(int, extra);
    QFETCH(QList<int>, stretches);
    QFETCH(QList<int>, widths);
    Box box{QSize(38 + extra, 20), 4, Qt::AlignCenter, childrenOfWidths({10, 10, 10})};
    for (int i = 0; i < 3; ++i) {
        box.children[i].hStretch = unsigned(stretches.at(i));
        box.children[i].expanding = Qt::Horizontal;
    }

    const BoxResult result = layOutRow(box);

    QCOMPARE(widthsOf(result.places), widths);
    QCOMPARE(result.places.at(1).x(), widths.at(0) + 4);
    QCOMPARE(result.places.at(2).x(), widths.at(0) + widths.at(1) + 8);
}

// The product of stretch and extra width exceeds 32 bits.
void tst_HBoxLayout::shareIsComputedWithoutOverflow()
{
    Box box{QSize(3000, 20), 0, Qt::AlignCenter, childrenOfWidths({500, 500})};
    box.children[0].hStretch = 3000000000u;
    box.children[1].hStretch = 1000000000u;
    box.children[0].expanding = Qt::Horizontal;
    box.children[1].expanding = Qt::Horizontal;

    QCOMPARE(widthsOf(layOutRow(box).places), (QList<int>{2000, 1000}));
}

void tst_HBoxLayout::verticalStretchDoesNotCount()
{
    Box box{QSize(100, 20), 0, Qt::AlignCenter, childrenOfWidths({10, 10})};
    box.children[0].vStretch = 5;
    box.children[0].expanding = Qt::Horizontal;

    QCOMPARE(widthsOf(layOutRow(box).places), (QList<int>{10, 10}));
}

void tst_HBoxLayout::hiddenStretchDoesNotCount()
{
    Box box{QSize(50, 20), 0, Qt::AlignCenter, childrenOfWidths({10, 10})};
    box.children[0].hStretch = 3;
    box.children[1].hStretch = 1;
    box.children[1].expanding = Qt::Horizontal;
    box.children[0].visible = false;

    QCOMPARE(layOutRow(box).places.at(1), QRect(0, 0, 50, 20));
}

void tst_HBoxLayout::extraIsWhatTheCachedPreferredSizeLeaves()
{
    Scene<HBoxLayout> scene;
    SizedFigure child(QSize(10, 10));
    child.setExpandingDirections(Qt::Horizontal);
    scene.layout.add(&child, 0, 1, -1);
    scene.layout.getPreferredSize();
    child.preferred = QSize(40, 10);

    scene.layout.performLayout(QRect(0, 0, 50, 20));

    QCOMPARE(child.getBounds(), QRect(0, 0, 80, 20));
}

void tst_HBoxLayout::missingWidthIsNotTakenAway()
{
    Box box{QSize(20, 5), 4, Qt::AlignLeft | Qt::AlignTop, childrenOfWidths({30, 30})};

    QCOMPARE(layOutRow(box).places, (QList<QRect>{QRect(0, 0, 30, 40), QRect(34, 0, 30, 40)}));
}

void tst_HBoxLayout::childIsAlignedInItsCell_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QPoint>("corner");

    // A child of 10 x 10 in a cell of 40 x 40.
    const auto row = [](const char *name, Qt::Alignment alignment, const QPoint &corner) {
        QTest::newRow(name) << int(alignment) << corner;
    };
    row("centre", Qt::AlignCenter, QPoint(15, 15));
    row("top left", Qt::AlignTop | Qt::AlignLeft, QPoint(0, 0));
    row("bottom right", Qt::AlignBottom | Qt::AlignRight, QPoint(30, 30));
    row("left, centred", Qt::AlignLeft | Qt::AlignVCenter, QPoint(0, 15));
    row("bottom, centred", Qt::AlignHCenter | Qt::AlignBottom, QPoint(15, 30));
}

void tst_HBoxLayout::childIsAlignedInItsCell()
{
    QFETCH(int, alignment);
    QFETCH(QPoint, corner);
    Box box{QSize(80, 40), 0, Qt::Alignment(alignment), childrenOfWidths({40, 10})};
    box.children[1].preferred = QSize(10, 10);
    box.children[1].hStretch = 1;

    QCOMPARE(layOutRow(box).places.at(1), QRect(QPoint(40, 0) + corner, QSize(10, 10)));
}

void tst_HBoxLayout::childThatExpandsInEitherDirectionFillsItsCell_data()
{
    QTest::addColumn<int>("directions");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("neither") << 0 << QRect(15, 15, 10, 10);
    QTest::newRow("horizontal") << int(Qt::Horizontal) << QRect(0, 0, 40, 40);
    QTest::newRow("vertical") << int(Qt::Vertical) << QRect(0, 0, 40, 40);
    QTest::newRow("both") << int(Qt::Horizontal | Qt::Vertical) << QRect(0, 0, 40, 40);
}

void tst_HBoxLayout::childThatExpandsInEitherDirectionFillsItsCell()
{
    QFETCH(int, directions);
    QFETCH(QRect, expected);
    Box box{QSize(40, 40), 0, Qt::AlignCenter, {BoxChild()}};
    box.children[0].hStretch = 1;
    box.children[0].expanding = Qt::Orientations(directions);

    QCOMPARE(layOutRow(box).places, QList<QRect>{expected});
}

void tst_HBoxLayout::childWithALayoutExpandsAsThatSays()
{
    Scene<HBoxLayout> scene(QRect(0, 0, 40, 40));
    Scene<ProbeLayout> child;
    child.layout.preferredSize = QSize(10, 10);
    scene.layout.add(&child.figure, 0, 1, -1);

    scene.figure.validate();
    QCOMPARE(child.figure.getBounds(), QRect(0, 0, 40, 40));

    child.layout.setExpandingDirections(Qt::Orientations());
    child.layout.preferredSize = QSize(10, 10);
    child.figure.revalidate();
    scene.figure.validate();
    QCOMPARE(child.figure.getBounds(), QRect(15, 15, 10, 10));
}

void tst_HBoxLayout::hiddenChildKeepsItsBounds()
{
    Scene<HBoxLayout> scene;
    SizedFigure hidden(QSize(10, 10));
    hidden.setBounds(QRect(1, 2, 3, 4));
    hidden.setVisible(false);
    scene.layout.add(&hidden);

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 50, 20)));

    QCOMPARE(hidden.getBounds(), QRect(1, 2, 3, 4));
}

void tst_HBoxLayout::emptyChildIsResolvedByItself()
{
    Scene<HBoxLayout> scene;
    SizedFigure child(QSize(30, 20));
    scene.layout.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    scene.layout.add(&child, QSize(-1, 8));

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 50, 20)));

    QCOMPARE(child.getBounds().size(), QSize(30, 8));
}

void tst_HBoxLayout::invalidRectangleIsRefused_data()
{
    QTest::addColumn<QRect>("area");
    QTest::newRow("nothing") << QRect();
    QTest::newRow("no width") << QRect(0, 0, 0, 10);
    QTest::newRow("no height") << QRect(0, 0, 10, 0);
    QTest::newRow("negative") << QRect(0, 0, -5, -5);
}

void tst_HBoxLayout::invalidRectangleIsRefused()
{
    QFETCH(QRect, area);
    Scene<HBoxLayout> scene;
    SizedFigure child(QSize(10, 10));
    child.setBounds(QRect(1, 2, 3, 4));
    scene.layout.add(&child);

    QVERIFY(!scene.layout.performLayout(area));

    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
}

void tst_HBoxLayout::validRectangleIsEnough()
{
    Scene<HBoxLayout> scene;

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 1, 1)));
}

void tst_HBoxLayout::layoutFollowsTheContainersClientArea()
{
    SimpleBorder border(nullptr, 2);
    Scene<HBoxLayout> scene(QRect(100, 200, 60, 50));
    scene.figure.setBorder(&border);
    scene.figure.setMargin(3);
    SizedFigure child(QSize(10, 10));
    child.setExpandingDirections(Qt::Horizontal);
    scene.layout.add(&child, 0, 1, -1);

    scene.figure.validate();
    QCOMPARE(child.getBounds(), QRect(0, 0, 50, 40));

    scene.figure.setBounds(QRect(0, 0, 80, 30));
    scene.figure.validate();
    QCOMPARE(child.getBounds(), QRect(0, 0, 70, 20));
}

void tst_HBoxLayout::layoutAgreesWithTheModel()
{
    QRandomGenerator random(31);
    for (int round = 0; round < 500; ++round) {
        const Box box = randomBox(&random);

        const BoxResult actual = layOutRow(box);

        const BoxResult expected = modelRow(box);
        QCOMPARE(actual.minimum, expected.minimum);
        QCOMPARE(actual.preferred, expected.preferred);
        QCOMPARE(actual.places, expected.places);
    }
}

QTEST_MAIN(tst_HBoxLayout)
#include "tst_hboxlayout.moc"
