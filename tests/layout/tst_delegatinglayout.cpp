#include "layout_fixtures.h"
#include "locatorprobe.h"

#include <figura/layout/DelegatingLayout.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

class tst_DelegatingLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void cleanup() { deleteDeferred(); }

    void layoutIsAbsoluteAndDoesNotClip();
    void minimumSizeHoldsThePreferredSizes();
    void hiddenChildrenCountForTheSizes();
    void minimumSizeWithoutContainerIsInvalid();
    void minimumSizeWithoutChildrenIsEmpty();
    void preferredSizeIsTheCachedMinimum();
    void locatorsPlaceTheirChildren();
    void hiddenChildrenArePlacedToo();
    void locatorsAreAskedInChildOrder();
    void locatorIsFoundBehindItsOwnPointerType();
    void otherChildrenStayWhereTheyAre_data();
    void otherChildrenStayWhereTheyAre();
    void childOfADeletedLocatorStaysWhereItIs();
    void areaIsNotUsed();
    void performLayoutWithoutChildrenSucceeds();
    void oneLocatorMayServeManyChildren();
    void eachLayoutAsksTheLocatorAgain();

private:
    QObject m_owner;
    QObject m_noLocator{&m_owner};
};

void tst_DelegatingLayout::layoutIsAbsoluteAndDoesNotClip()
{
    Scene<DelegatingLayout> scene;

    QVERIFY(!scene.layout.isRelativeLayout());
    QVERIFY(!scene.layout.isClipping());
}

// The preferred sizes, not the minimum sizes: on purpose.
void tst_DelegatingLayout::minimumSizeHoldsThePreferredSizes()
{
    Scene<DelegatingLayout> scene;
    SizedFigure wide(QSize(70, 30), QSize(500, 500));
    SizedFigure tall(QSize(20, 90), QSize(1, 1));
    scene.layout.add(&wide);
    scene.layout.add(&tall);

    QCOMPARE(scene.layout.getMinimumSize(), QSize(70, 90));
}

void tst_DelegatingLayout::hiddenChildrenCountForTheSizes()
{
    Scene<DelegatingLayout> scene;
    SizedFigure hidden(QSize(70, 30));
    scene.layout.add(&hidden);
    hidden.setVisible(false);

    QCOMPARE(scene.freshMinimum(), QSize(70, 30));
    QCOMPARE(scene.freshPreferred(), QSize(70, 30));
}

void tst_DelegatingLayout::minimumSizeWithoutContainerIsInvalid()
{
    Scene<DelegatingLayout> scene;
    SizedFigure child(QSize(70, 30));
    scene.layout.add(&child);
    scene.layout.setFigure(nullptr);

    QCOMPARE(scene.layout.calculateMinimumSize(), QSize());
}

void tst_DelegatingLayout::minimumSizeWithoutChildrenIsEmpty()
{
    Scene<DelegatingLayout> scene;

    QVERIFY(scene.layout.getMinimumSize().isEmpty());
    QCOMPARE(scene.layout.getPreferredSize(), scene.layout.getMinimumSize());
}

void tst_DelegatingLayout::preferredSizeIsTheCachedMinimum()
{
    Scene<DelegatingLayout> scene;
    SizedFigure child(QSize(70, 30));
    scene.layout.add(&child);
    scene.layout.getMinimumSize();

    child.preferred = QSize(700, 300);

    QCOMPARE(scene.layout.getPreferredSize(), QSize(70, 30));
    QCOMPARE(scene.freshPreferred(), QSize(700, 300));
}

void tst_DelegatingLayout::locatorsPlaceTheirChildren()
{
    Scene<DelegatingLayout> scene(QRect(100, 100, 50, 50));
    SizedFigure a;
    SizedFigure b;
    LocatorProbe first(QRect(1, 2, 3, 4), &m_owner);
    LocatorProbe second(QRect(-5, -6, 7, 8), &m_owner);
    scene.layout.add(&a, asConstraint(&first));
    scene.layout.add(&b, asConstraint(&second));
    a.setBounds(QRect(0, 0, 1, 1));
    b.setBounds(QRect(0, 0, 1, 1));

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 50, 50)));

    QCOMPARE(a.getBounds(), QRect(1, 2, 3, 4));
    QCOMPARE(b.getBounds(), QRect(-5, -6, 7, 8));
}

void tst_DelegatingLayout::hiddenChildrenArePlacedToo()
{
    Scene<DelegatingLayout> scene;
    SizedFigure child;
    LocatorProbe locator(QRect(1, 2, 3, 4), &m_owner);
    scene.layout.add(&child, asConstraint(&locator));
    child.setVisible(false);
    child.setBounds(QRect(0, 0, 1, 1));

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 50, 50)));

    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
}

void tst_DelegatingLayout::locatorsAreAskedInChildOrder()
{
    Scene<DelegatingLayout> scene;
    SizedFigure a;
    SizedFigure b;
    SizedFigure c;
    LocatorProbe locator(QRect(), &m_owner);
    for (Figure *child : QList<Figure *>{&b, &c, &a})
        scene.layout.add(child, asConstraint(&locator));
    locator.targets.clear();

    scene.layout.performLayout(QRect(0, 0, 50, 50));

    QCOMPARE(locator.targets, (QList<Figure *>{&b, &c, &a}));
}

void tst_DelegatingLayout::locatorIsFoundBehindItsOwnPointerType()
{
    Scene<DelegatingLayout> scene;
    SizedFigure child;
    LocatorProbe locator(QRect(1, 2, 3, 4), &m_owner);
    scene.layout.add(&child, QVariant::fromValue(&locator));
    child.setBounds(QRect(0, 0, 1, 1));

    scene.layout.performLayout(QRect(0, 0, 50, 50));

    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
}

void tst_DelegatingLayout::otherChildrenStayWhereTheyAre_data()
{
    QTest::addColumn<QVariant>("constraint");
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("rectangle") << QVariant(QRect(1, 2, 3, 4));
    QTest::newRow("size") << QVariant(QSize(3, 4));
    QTest::newRow("null object") << asConstraint(nullptr);
    QTest::newRow("object that is no locator") << asConstraint(&m_noLocator);
}

void tst_DelegatingLayout::otherChildrenStayWhereTheyAre()
{
    QFETCH(QVariant, constraint);
    Scene<DelegatingLayout> scene;
    SizedFigure child;
    scene.layout.add(&child, constraint);
    child.setBounds(QRect(10, 20, 30, 40));

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 50, 50)));

    QCOMPARE(child.getBounds(), QRect(10, 20, 30, 40));
}

void tst_DelegatingLayout::childOfADeletedLocatorStaysWhereItIs()
{
    Scene<DelegatingLayout> scene;
    SizedFigure orphan;
    SizedFigure next;
    auto *locator = new LocatorProbe(QRect(1, 2, 3, 4));
    LocatorProbe living(QRect(5, 6, 7, 8), &m_owner);
    scene.layout.add(&orphan, asConstraint(locator));
    scene.layout.add(&next, asConstraint(&living));
    delete locator;
    orphan.setBounds(QRect(10, 20, 30, 40));
    next.setBounds(QRect(10, 20, 30, 40));

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 50, 50)));

    QCOMPARE(orphan.getBounds(), QRect(10, 20, 30, 40));
    QCOMPARE(next.getBounds(), QRect(5, 6, 7, 8));
}

void tst_DelegatingLayout::areaIsNotUsed()
{
    Scene<DelegatingLayout> scene;
    SizedFigure child;
    LocatorProbe locator(QRect(1, 2, 3, 4), &m_owner);
    scene.layout.add(&child, asConstraint(&locator));
    child.setBounds(QRect(0, 0, 1, 1));

    QVERIFY(scene.layout.performLayout(QRect()));

    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
}

void tst_DelegatingLayout::performLayoutWithoutChildrenSucceeds()
{
    Scene<DelegatingLayout> scene;

    QVERIFY(scene.layout.performLayout(QRect(0, 0, 50, 50)));
}

void tst_DelegatingLayout::oneLocatorMayServeManyChildren()
{
    Scene<DelegatingLayout> scene(QRect(0, 0, 50, 50));
    SizedFigure a;
    SizedFigure b;
    LocatorProbe locator(QRect(1, 2, 3, 4), &m_owner);
    scene.layout.add(&a, asConstraint(&locator));
    scene.layout.add(&b, asConstraint(&locator));
    locator.place = QRect(5, 6, 7, 8);

    scene.figure.validate();

    QCOMPARE(a.getBounds(), QRect(5, 6, 7, 8));
    QCOMPARE(b.getBounds(), QRect(5, 6, 7, 8));
}

void tst_DelegatingLayout::eachLayoutAsksTheLocatorAgain()
{
    Scene<DelegatingLayout> scene(QRect(0, 0, 50, 50));
    SizedFigure child;
    LocatorProbe locator(QRect(1, 2, 3, 4), &m_owner);
    scene.layout.add(&child, asConstraint(&locator));
    locator.targets.clear();

    scene.figure.validate();
    QCOMPARE(locator.targets.count(), 1);

    scene.figure.validate();
    QCOMPARE(locator.targets.count(), 1);

    scene.figure.invalidate();
    scene.figure.validate();
    QCOMPARE(locator.targets.count(), 2);
}

QTEST_MAIN(tst_DelegatingLayout)
#include "tst_delegatinglayout.moc"
