#include <figura/layout/FreeformLayout.h>
#include <figura/layout/StackLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/view/FreeformLayer.h>

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;

class tst_FreeformLayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void layerComesWithOneFreeformLayoutOfItsOwn();
    void contentIsMonitoredUnlessToldOtherwise();
    void monitoringIsForwardedToTheLayout();
    void layerIsFoundAsFreeformFigure();

    void extentWithoutChildrenIsInvalid();
    void extentCoversTheChildren();
    void extentGrowsByThePadding_data();
    void extentGrowsByThePadding();
    void negativePaddingCountsAsZero();
    void newPaddingAnnouncesNothing();
    void extentIsInvalidWithAnotherLayout();

    void freeformBoundsBecomeTheBounds();
    void sameFreeformBoundsHaveNoEffect();
    void freeformBoundsAreIgnoredWithAnotherLayout();

    void changeOfTheExtentIsAnnounced();
    void moveOfUnmonitoredChildIsNotAnnounced();
    void sameExtentIsNotAnnouncedTwice();
    void extentChangedIsEmittedThroughTheInterfaceToo();
};

void tst_FreeformLayer::layerComesWithOneFreeformLayoutOfItsOwn()
{
    FreeformLayer layer;

    QVERIFY(qobject_cast<FreeformLayout *>(layer.getLayoutManager()));
    QCOMPARE(layer.findChildren<Velmora::Figura::Layout *>(),
             QList<Velmora::Figura::Layout *>{layer.getLayoutManager()});
}

void tst_FreeformLayer::contentIsMonitoredUnlessToldOtherwise()
{
    QVERIFY(FreeformLayer().isContentMonitored());
    QVERIFY(FreeformLayer(nullptr, true).isContentMonitored());
    QVERIFY(!FreeformLayer(nullptr, false).isContentMonitored());
}

void tst_FreeformLayer::monitoringIsForwardedToTheLayout()
{
    FreeformLayer layer;
    auto *layout = qobject_cast<FreeformLayout *>(layer.getLayoutManager());

    layer.setContentMonitored(false);
    QVERIFY(!layout->isContentMonitored());
    layout->setContentMonitored(true);
    QVERIFY(layer.isContentMonitored());
}

void tst_FreeformLayer::layerIsFoundAsFreeformFigure()
{
    FreeformLayer layer;
    QObject *object = &layer;

    QCOMPARE(qobject_cast<IFreeformFigure *>(object), static_cast<IFreeformFigure *>(&layer));
}

void tst_FreeformLayer::extentWithoutChildrenIsInvalid()
{
    FreeformLayer layer;

    QVERIFY(!layer.getFreeformExtent().isValid());
}

void tst_FreeformLayer::extentCoversTheChildren()
{
    Figure first;
    Figure second;
    FreeformLayer layer;

    layer.add(&first, QRect(-50, -40, 10, 10));
    layer.add(&second, QRect(100, 20, 30, 30));

    QCOMPARE(layer.getFreeformExtent(), QRect(-50, -40, 180, 90));
}

void tst_FreeformLayer::extentGrowsByThePadding_data()
{
    QTest::addColumn<int>("padding");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("none") << 0 << QRect(10, 10, 20, 20);
    QTest::newRow("one") << 1 << QRect(9, 9, 22, 22);
    QTest::newRow("five") << 5 << QRect(5, 5, 30, 30);
    QTest::newRow("negative") << -3 << QRect(10, 10, 20, 20);
}

void tst_FreeformLayer::extentGrowsByThePadding()
{
    QFETCH(int, padding);
    QFETCH(QRect, expected);
    Figure child;
    FreeformLayer layer;
    layer.add(&child, QRect(10, 10, 20, 20));

    layer.setExtentPadding(padding);

    QCOMPARE(layer.getFreeformExtent(), expected);
}

void tst_FreeformLayer::negativePaddingCountsAsZero()
{
    FreeformLayer layer;
    QCOMPARE(layer.getExtentPadding(), 0);

    layer.setExtentPadding(7);
    QCOMPARE(layer.getExtentPadding(), 7);
    layer.setExtentPadding(-3);
    QCOMPARE(layer.getExtentPadding(), 0);
}

void tst_FreeformLayer::newPaddingAnnouncesNothing()
{
    Figure child;
    FreeformLayer layer;
    layer.add(&child, QRect(10, 10, 20, 20));
    layer.getFreeformExtent();
    QSignalSpy changed(&layer, &FreeformLayer::extentChanged);

    layer.setExtentPadding(5);

    QCOMPARE(changed.count(), 0);
}

void tst_FreeformLayer::extentIsInvalidWithAnotherLayout()
{
    Figure child;
    FreeformLayer layer;
    layer.setLayoutManager(new XYLayout(&layer));
    layer.add(&child, QRect(10, 10, 20, 20));
    layer.setExtentPadding(5);

    QVERIFY(!layer.getFreeformExtent().isValid());
}

void tst_FreeformLayer::freeformBoundsBecomeTheBounds()
{
    FreeformLayer layer;

    layer.setFreeformBounds(QRect(-20, -10, 300, 200));

    QCOMPARE(layer.getBounds(), QRect(-20, -10, 300, 200));
}

void tst_FreeformLayer::sameFreeformBoundsHaveNoEffect()
{
    FreeformLayer layer;
    layer.setFreeformBounds(QRect(-20, -10, 300, 200));
    QSignalSpy moved(&layer, &Figure::figureMoved);

    layer.setFreeformBounds(QRect(-20, -10, 300, 200));

    QCOMPARE(moved.count(), 0);
}

void tst_FreeformLayer::freeformBoundsAreIgnoredWithAnotherLayout()
{
    FreeformLayer layer;
    layer.setLayoutManager(new StackLayout(&layer));
    layer.setBounds(QRect(0, 0, 5, 5));

    layer.setFreeformBounds(QRect(-20, -10, 300, 200));

    QCOMPARE(layer.getBounds(), QRect(0, 0, 5, 5));
}

void tst_FreeformLayer::changeOfTheExtentIsAnnounced()
{
    Figure child;
    FreeformLayer layer;
    layer.add(&child, QRect(10, 10, 20, 20));
    layer.getFreeformExtent();
    layer.validate();
    QSignalSpy changed(&layer, &FreeformLayer::extentChanged);

    child.setBounds(QRect(40, 10, 20, 20));

    QCOMPARE(changed.count(), 1);
    QCOMPARE(layer.getFreeformExtent(), QRect(40, 10, 20, 20));
}

void tst_FreeformLayer::moveOfUnmonitoredChildIsNotAnnounced()
{
    Figure child;
    FreeformLayer layer(nullptr, false);
    layer.add(&child, QRect(10, 10, 20, 20));
    layer.getFreeformExtent();
    layer.validate();
    QSignalSpy changed(&layer, &FreeformLayer::extentChanged);

    child.setBounds(QRect(40, 10, 20, 20));

    QCOMPARE(changed.count(), 0);
    QCOMPARE(layer.getFreeformExtent(), QRect(10, 10, 20, 20));
}

void tst_FreeformLayer::sameExtentIsNotAnnouncedTwice()
{
    Figure big;
    Figure small;
    FreeformLayer layer;
    layer.add(&big, QRect(0, 0, 100, 100));
    layer.add(&small, QRect(10, 10, 20, 20));
    layer.getFreeformExtent();
    layer.validate();
    QSignalSpy changed(&layer, &FreeformLayer::extentChanged);

    small.setBounds(QRect(30, 30, 20, 20));

    QCOMPARE(changed.count(), 0);
}

void tst_FreeformLayer::extentChangedIsEmittedThroughTheInterfaceToo()
{
    FreeformLayer layer;
    IFreeformFigure *figure = &layer;
    QSignalSpy changed(&layer, &FreeformLayer::extentChanged);

    Q_EMIT figure->extentChanged();

    QCOMPARE(changed.count(), 1);
}

QTEST_MAIN(tst_FreeformLayer)
#include "tst_freeformlayer.moc"
