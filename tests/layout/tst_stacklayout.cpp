#include "layout_fixtures.h"

#include <figura/layout/StackLayout.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

class tst_StackLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void layoutIsAbsoluteAndClips();
    void sizesWithoutChildrenAreInvalid();
    void minimumSizeHoldsEveryChild();
    void preferredSizeHoldsEveryChild();
    void hiddenChildCountsForTheSizesButGetsNoBounds();
    void everyVisibleChildGetsTheWholeArea();
    void childIsPlacedInTheContainersOwnCoordinates();
    void invalidAreaIsRefusedAndMovesNothing_data();
    void invalidAreaIsRefusedAndMovesNothing();
    void performLayoutWithoutChildrenSucceeds();
    void childrenFollowTheContainersSize();
    void constraintsAreStoredAndIgnored();
};

void tst_StackLayout::layoutIsAbsoluteAndClips()
{
    Scene<StackLayout> scene;

    QVERIFY(!scene.layout.isRelativeLayout());
    QVERIFY(scene.layout.isClipping());
}

void tst_StackLayout::sizesWithoutChildrenAreInvalid()
{
    Scene<StackLayout> scene;

    QCOMPARE(scene.layout.getMinimumSize(), QSize());
    QCOMPARE(scene.layout.getPreferredSize(), QSize());
}

void tst_StackLayout::minimumSizeHoldsEveryChild()
{
    Scene<StackLayout> scene;
    SizedFigure wide(QSize(500, 500), QSize(50, 10));
    SizedFigure tall(QSize(500, 500), QSize(20, 40));
    scene.layout.add(&wide);
    QCOMPARE(scene.freshMinimum(), QSize(50, 10));

    scene.layout.add(&tall);
    QCOMPARE(scene.freshMinimum(), QSize(50, 40));
}

void tst_StackLayout::preferredSizeHoldsEveryChild()
{
    Scene<StackLayout> scene;
    SizedFigure wide(QSize(70, 30), QSize(1, 1));
    SizedFigure tall(QSize(20, 90), QSize(1, 1));
    scene.layout.add(&wide);
    scene.layout.add(&tall);

    QCOMPARE(scene.layout.getPreferredSize(), QSize(70, 90));
}

void tst_StackLayout::hiddenChildCountsForTheSizesButGetsNoBounds()
{
    Scene<StackLayout> scene(QRect(0, 0, 100, 100));
    SizedFigure hidden(QSize(70, 30), QSize(50, 10));
    hidden.setVisible(false);
    hidden.setBounds(QRect(1, 2, 3, 4));
    scene.layout.add(&hidden);

    QCOMPARE(scene.layout.getMinimumSize(), QSize(50, 10));
    QCOMPARE(scene.layout.getPreferredSize(), QSize(70, 30));
    scene.figure.validate();
    QCOMPARE(hidden.getBounds(), QRect(1, 2, 3, 4));
}

void tst_StackLayout::everyVisibleChildGetsTheWholeArea()
{
    Scene<StackLayout> scene;
    SizedFigure a;
    SizedFigure b(QSize(500, 500), QSize(400, 400));
    scene.layout.add(&a);
    scene.layout.add(&b);

    QVERIFY(scene.layout.performLayout(QRect(-5, 6, 70, 80)));

    QCOMPARE(a.getBounds(), QRect(-5, 6, 70, 80));
    QCOMPARE(b.getBounds(), QRect(-5, 6, 70, 80));
}

void tst_StackLayout::childIsPlacedInTheContainersOwnCoordinates()
{
    Scene<StackLayout> scene(QRect(100, 200, 50, 40));
    scene.figure.setMargin(5);
    SizedFigure child;
    scene.layout.add(&child);

    scene.figure.validate();

    QCOMPARE(child.getBounds(), QRect(105, 205, 40, 30));
}

void tst_StackLayout::invalidAreaIsRefusedAndMovesNothing_data()
{
    QTest::addColumn<QRect>("area");
    QTest::newRow("nothing") << QRect();
    QTest::newRow("no width") << QRect(0, 0, 0, 10);
    QTest::newRow("no height") << QRect(0, 0, 10, 0);
    QTest::newRow("negative") << QRect(0, 0, -5, -5);
}

void tst_StackLayout::invalidAreaIsRefusedAndMovesNothing()
{
    QFETCH(QRect, area);
    Scene<StackLayout> scene;
    SizedFigure child;
    scene.layout.add(&child);
    child.setBounds(QRect(1, 2, 3, 4));

    QVERIFY(!scene.layout.performLayout(area));

    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
}

void tst_StackLayout::performLayoutWithoutChildrenSucceeds()
{
    Scene<StackLayout> scene;

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 1, 1)));
}

void tst_StackLayout::childrenFollowTheContainersSize()
{
    Scene<StackLayout> scene(QRect(0, 0, 100, 100));
    SizedFigure child;
    scene.layout.add(&child);
    scene.figure.validate();
    QCOMPARE(child.getBounds(), QRect(0, 0, 100, 100));

    scene.figure.setBounds(QRect(0, 0, 30, 20));
    scene.figure.validate();

    QCOMPARE(child.getBounds(), QRect(0, 0, 30, 20));
}

void tst_StackLayout::constraintsAreStoredAndIgnored()
{
    Scene<StackLayout> scene(QRect(0, 0, 100, 100));
    SizedFigure child;
    scene.layout.add(&child, QRect(1, 2, 3, 4));

    scene.figure.validate();

    QCOMPARE(scene.layout.getConstraint(&child), QVariant(QRect(1, 2, 3, 4)));
    QCOMPARE(child.getBounds(), QRect(0, 0, 100, 100));
}

QTEST_MAIN(tst_StackLayout)
#include "tst_stacklayout.moc"
