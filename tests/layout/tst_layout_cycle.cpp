#include "layout_fixtures.h"

#include <figura/figure/SimpleBorder.h>

#include <countingfigure.h>

#include <QImage>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Paints a layout of a scene on a picture that nobody looks at.
void renderLayout(Layout *layout, const QRect &area = QRect(0, 0, 100, 100))
{
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = area;
    layout->render(&painter, option);
}

} // namespace

class tst_LayoutCycle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void sizesAreComputedOnceAndCached();
    void sizesAreComputedAnewAfterInvalidate();
    void invalidSizesAreNotCached();
    void eachSizeHasItsOwnCache();
    void emptyButValidSizesAreCached();
    void figureTakesItsSizesFromTheLayout();

    void layoutOfNullIsRefusedEvenWhenLaidOut();
    void layoutRunsOnceUntilInvalidated();
    void failedLayoutIsTriedAgain();
    void layoutCountsAsDoneOnlyAfterItsRun();
    void clientAreaIsPassedInTheChildrensCoordinates_data();
    void clientAreaIsPassedInTheChildrensCoordinates();
    void unresolvedBoundsPassTheClientAreaUntranslated();
    void layoutAsksTheGivenContainerForItsClientArea();

    void validateLaysOutAndInvalidateForgets();
    void resizeForgetsTheLayoutAndAMoveDoesNot();
    void addedChildMakesTheLayoutStale();
    void removalFromADisplayedContainerMakesTheLayoutStale();
    void removalFromADetachedContainerDoesNot();
    void replacedLayoutManagerIsNotInvalidated();

    void renderLaysOutOnDemand();
    void renderKeepsAFinishedLayout();
    void renderOfNullPainterDoesNothing();
    void renderWithoutContainerDoesNothing();
    void renderTriesAFailedLayoutAgainAndPaintsNothing();
    void laidOutCanBeSetByASubclass();
};

void tst_LayoutCycle::sizesAreComputedOnceAndCached()
{
    Scene<ProbeLayout> scene;

    QCOMPARE(scene.layout.getPreferredSize(), QSize(100, 50));
    QCOMPARE(scene.layout.getMinimumSize(), QSize(10, 5));
    scene.layout.preferredSize = QSize(1, 1);
    scene.layout.minimumSize = QSize(1, 1);

    QCOMPARE(scene.layout.getPreferredSize(), QSize(100, 50));
    QCOMPARE(scene.layout.getMinimumSize(), QSize(10, 5));
    QCOMPARE(scene.layout.preferredCalls, 1);
    QCOMPARE(scene.layout.minimumCalls, 1);
}

void tst_LayoutCycle::sizesAreComputedAnewAfterInvalidate()
{
    Scene<ProbeLayout> scene;
    scene.layout.getPreferredSize();
    scene.layout.getMinimumSize();
    scene.layout.preferredSize = QSize(7, 8);
    scene.layout.minimumSize = QSize(5, 6);

    scene.layout.invalidate();

    QCOMPARE(scene.layout.getPreferredSize(), QSize(7, 8));
    QCOMPARE(scene.layout.getMinimumSize(), QSize(5, 6));
}

void tst_LayoutCycle::invalidSizesAreNotCached()
{
    Scene<ProbeLayout> scene;
    scene.layout.preferredSize = QSize();
    scene.layout.minimumSize = QSize();

    QVERIFY(!scene.layout.getPreferredSize().isValid());
    QVERIFY(!scene.layout.getMinimumSize().isValid());
    QVERIFY(!scene.layout.getPreferredSize().isValid());
    QVERIFY(!scene.layout.getMinimumSize().isValid());

    QCOMPARE(scene.layout.preferredCalls, 2);
    QCOMPARE(scene.layout.minimumCalls, 2);
}

void tst_LayoutCycle::eachSizeHasItsOwnCache()
{
    Scene<ProbeLayout> scene;

    scene.layout.getMinimumSize();
    QCOMPARE(scene.layout.preferredCalls, 0);

    scene.layout.getPreferredSize();
    QCOMPARE(scene.layout.minimumCalls, 1);
}

void tst_LayoutCycle::emptyButValidSizesAreCached()
{
    Scene<ProbeLayout> scene;
    scene.layout.preferredSize = QSize(0, 0);
    scene.layout.minimumSize = QSize(0, 0);

    scene.layout.getPreferredSize();
    scene.layout.getPreferredSize();
    scene.layout.getMinimumSize();
    scene.layout.getMinimumSize();

    QCOMPARE(scene.layout.preferredCalls, 1);
    QCOMPARE(scene.layout.minimumCalls, 1);
}

void tst_LayoutCycle::figureTakesItsSizesFromTheLayout()
{
    Scene<ProbeLayout> scene;
    scene.figure.setMargin(3);

    QCOMPARE(scene.figure.getPreferredSize(), QSize(106, 56));
    QCOMPARE(scene.figure.getMinimumSize(), QSize(16, 11));
}

void tst_LayoutCycle::layoutOfNullIsRefusedEvenWhenLaidOut()
{
    Scene<ProbeLayout> scene;

    QVERIFY(!scene.layout.layout(nullptr));
    QVERIFY(scene.layout.clientAreas.isEmpty());

    scene.layout.setLaidOut(true);
    QVERIFY(!scene.layout.layout(nullptr));
}

void tst_LayoutCycle::layoutRunsOnceUntilInvalidated()
{
    Scene<ProbeLayout> scene;

    QVERIFY(scene.layout.layout(&scene.figure));
    QVERIFY(scene.layout.isLaidOut());
    QVERIFY(scene.layout.layout(&scene.figure));
    QCOMPARE(scene.layout.clientAreas.count(), 1);

    scene.layout.invalidate();
    QVERIFY(!scene.layout.isLaidOut());
    QVERIFY(scene.layout.layout(&scene.figure));
    QCOMPARE(scene.layout.clientAreas.count(), 2);
}

void tst_LayoutCycle::failedLayoutIsTriedAgain()
{
    Scene<ProbeLayout> scene;
    scene.layout.performs = false;

    QVERIFY(!scene.layout.layout(&scene.figure));
    QVERIFY(!scene.layout.isLaidOut());
    QVERIFY(!scene.layout.layout(&scene.figure));
    QCOMPARE(scene.layout.clientAreas.count(), 2);

    scene.layout.performs = true;
    QVERIFY(scene.layout.layout(&scene.figure));
    QVERIFY(scene.layout.isLaidOut());
}

void tst_LayoutCycle::layoutCountsAsDoneOnlyAfterItsRun()
{
    Scene<ProbeLayout> scene;
    bool laidOutThen = true;
    scene.layout.whilePerforming = [&] { laidOutThen = scene.layout.isLaidOut(); };

    scene.layout.layout(&scene.figure);

    QVERIFY(!laidOutThen);
}

void tst_LayoutCycle::clientAreaIsPassedInTheChildrensCoordinates_data()
{
    QTest::addColumn<bool>("relative");
    QTest::addColumn<int>("margin");
    QTest::addColumn<QList<int>>("insets"); // top, left, bottom, right; empty: no border
    QTest::addColumn<QRect>("expected");

    const QList<int> none;
    const QList<int> equal{2, 2, 2, 2};
    const QList<int> unequal{1, 2, 3, 4};
    QTest::newRow("plain, relative") << true << 0 << none << QRect(0, 0, 100, 50);
    QTest::newRow("plain, absolute") << false << 0 << none << QRect(10, 20, 100, 50);
    QTest::newRow("margin, relative") << true << 3 << none << QRect(0, 0, 94, 44);
    QTest::newRow("margin, absolute") << false << 3 << none << QRect(13, 23, 94, 44);
    QTest::newRow("border, relative") << true << 3 << equal << QRect(0, 0, 90, 40);
    QTest::newRow("border, absolute") << false << 3 << equal << QRect(15, 25, 90, 40);
    // The left and right insets cross over when they shrink a rectangle but not when they shift
    // coordinates, on purpose: the corner is off by their difference.
    QTest::newRow("unequal border, relative") << true << 0 << unequal << QRect(2, 0, 94, 46);
    QTest::newRow("unequal border, absolute") << false << 0 << unequal << QRect(14, 21, 94, 46);
}

void tst_LayoutCycle::clientAreaIsPassedInTheChildrensCoordinates()
{
    QFETCH(bool, relative);
    QFETCH(int, margin);
    QFETCH(QList<int>, insets);
    QFETCH(QRect, expected);
    SimpleBorder border;
    Scene<ProbeLayout> scene(QRect(10, 20, 100, 50));
    scene.layout.relative = relative;
    scene.figure.setMargin(margin);
    if (!insets.isEmpty()) {
        border.setInsets(Insets(insets[0], insets[1], insets[2], insets[3]));
        scene.figure.setBorder(&border);
    }

    scene.layout.layout(&scene.figure);

    QCOMPARE(scene.layout.clientAreas, QList<QRect>{expected});
}

// The client area resolves what the coordinate translation takes as it is, on purpose.
void tst_LayoutCycle::unresolvedBoundsPassTheClientAreaUntranslated()
{
    Scene<ProbeLayout> scene;
    scene.figure.setMargin(2);

    scene.layout.layout(&scene.figure);

    QCOMPARE(scene.layout.clientAreas, QList<QRect>{QRect(2, 2, 100, 50)});
}

void tst_LayoutCycle::layoutAsksTheGivenContainerForItsClientArea()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    Figure other;
    other.setBounds(QRect(5, 5, 40, 30));

    QVERIFY(scene.layout.layout(&other));

    QCOMPARE(scene.layout.clientAreas, QList<QRect>{QRect(0, 0, 40, 30)});
}

void tst_LayoutCycle::validateLaysOutAndInvalidateForgets()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));

    scene.figure.validate();
    QVERIFY(scene.layout.isLaidOut());

    scene.figure.invalidate();
    QVERIFY(!scene.layout.isLaidOut());
}

void tst_LayoutCycle::resizeForgetsTheLayoutAndAMoveDoesNot()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    scene.figure.validate();

    scene.figure.setBounds(QRect(50, 60, 100, 100));
    QVERIFY(scene.layout.isLaidOut());

    scene.figure.setBounds(QRect(50, 60, 100, 101));
    QVERIFY(!scene.layout.isLaidOut());
}

void tst_LayoutCycle::addedChildMakesTheLayoutStale()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    scene.figure.validate();
    Figure child;

    scene.layout.add(&child);

    QVERIFY(!scene.layout.isLaidOut());
}

void tst_LayoutCycle::removalFromADisplayedContainerMakesTheLayoutStale()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    Figure child;
    scene.layout.add(&child);
    scene.figure.addNotify();
    scene.figure.validate();

    scene.layout.remove(&child);

    QVERIFY(!scene.layout.isLaidOut());
}

void tst_LayoutCycle::removalFromADetachedContainerDoesNot()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    Figure child;
    scene.layout.add(&child);
    scene.figure.validate();

    scene.layout.remove(&child);

    QVERIFY(scene.layout.isLaidOut());
}

void tst_LayoutCycle::replacedLayoutManagerIsNotInvalidated()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    scene.figure.validate();
    ProbeLayout successor;
    successor.setLaidOut(true);

    scene.figure.setLayoutManager(&successor);

    QVERIFY(scene.layout.isLaidOut());
    QVERIFY(successor.isLaidOut());
}

void tst_LayoutCycle::renderLaysOutOnDemand()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    CountingFigure child;
    scene.layout.add(&child);
    child.setBounds(QRect(0, 0, 10, 10));
    scene.layout.whilePerforming = [&] { QCOMPARE(child.calls().render, 0); };

    renderLayout(&scene.layout);

    QCOMPARE(scene.layout.clientAreas, QList<QRect>{QRect(0, 0, 100, 100)});
    QVERIFY(scene.layout.isLaidOut());
    QCOMPARE(child.calls().render, 1);
}

void tst_LayoutCycle::renderKeepsAFinishedLayout()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    scene.figure.validate();

    renderLayout(&scene.layout);

    QCOMPARE(scene.layout.clientAreas.count(), 1);
}

void tst_LayoutCycle::renderOfNullPainterDoesNothing()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    CountingFigure child;
    scene.layout.add(&child);

    scene.layout.render(nullptr, QStyleOptionViewItem());

    QVERIFY(scene.layout.clientAreas.isEmpty());
    QCOMPARE(child.calls().render, 0);
}

void tst_LayoutCycle::renderWithoutContainerDoesNothing()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    CountingFigure child;
    scene.layout.add(&child);
    scene.layout.setFigure(nullptr);
    scene.layout.setLaidOut(true);

    renderLayout(&scene.layout);

    QCOMPARE(child.calls().render, 0);
}

void tst_LayoutCycle::renderTriesAFailedLayoutAgainAndPaintsNothing()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    CountingFigure child;
    scene.layout.add(&child);
    child.setBounds(QRect(0, 0, 10, 10));
    scene.layout.performs = false;

    renderLayout(&scene.layout);
    renderLayout(&scene.layout);

    QCOMPARE(scene.layout.clientAreas.count(), 2);
    QCOMPARE(child.calls().render, 0);
}

void tst_LayoutCycle::laidOutCanBeSetByASubclass()
{
    Scene<ProbeLayout> scene;

    scene.layout.setLaidOut(true);
    QVERIFY(scene.layout.isLaidOut());
    QVERIFY(scene.layout.layout(&scene.figure));
    QVERIFY(scene.layout.clientAreas.isEmpty());

    scene.layout.setLaidOut(false);
    QVERIFY(!scene.layout.isLaidOut());
}

QTEST_MAIN(tst_LayoutCycle)
#include "tst_layout_cycle.moc"
