#include "fixtures.h"

#include <fakeviewer.h>
#include <logcapture.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <figura/figure/SimpleBorder.h>

#include <QRegion>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A displayed root at (100, 200) with one child at (10, 20) in it.
struct DisplayedTree
{
    explicit DisplayedTree(bool relative = true)
        : layout(relative)
        , root(&updates)
    {
        updates.setViewer(&viewer);
        root.setLayoutManager(&layout);
        root.setBounds(QRect(100, 200, 300, 300));
        root.add(&child);
        child.setBounds(QRect(10, 20, 30, 40));
        updates.clear();
        viewer.updatedRects.clear();
    }

    FakeViewer viewer;
    RecordingUpdateManager updates;
    PlainLayout layout;
    RootFigure root;
    CountingFigure child;
};

bool covers(const QList<QRect> &rects, const QRect &area)
{
    QRegion region;
    for (const QRect &rect : rects)
        region += rect;
    return (QRegion(area) - region).isEmpty();
}

} // namespace

class tst_Figure_Damage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    // repaint
    void repaintHandsItsRectToTheUpdateManager();
    void repaintWithCoordinatesIsTheSame();
    void repaintWithoutArgumentsTakesTheBoundingRect();
    void invalidRectIsNotReported_data();
    void invalidRectIsNotReported();
    void hiddenFigureReportsNothing();
    void detachedFigureReportsNothingAndIsSilent();
    void rectMayLieOutsideTheFigure();
    void everyFormLeadsToTheOneWithARect();
    void reportsArriveAtTheViewerInAbsoluteCoordinates();

    // erase
    void eraseRepaintsTheOwnAreaOfTheParent();
    void eraseLeavesCoordinatesAloneUnderANonRelativeLayout();
    void eraseTakesTheWideBoundingRect();
    void eraseOfARootDoesNothing();
    void eraseOfAHiddenFigureDoesNothing();
    void eraseOfAnInvalidRectDoesNothing();

    // Slots.
    void slotsReachTheOverrides();

    // What changes report.
    void moveDamagesTheOldAndTheNewArea();
    void resizeDamagesTheOldAndTheNewArea();
    void addingAndRemovingDamageTheAreaOfTheChild();
    void coloursAndHighlightDamageTheWholeFigure();
};

void tst_Figure_Damage::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Figure_Damage::repaintHandsItsRectToTheUpdateManager()
{
    DisplayedTree tree;

    tree.child.repaint(QRect(11, 22, 3, 4));

    QCOMPARE(tree.updates.requests().size(), 1);
    QCOMPARE(tree.updates.dirtyRects(&tree.child), QList<QRect>({{11, 22, 3, 4}}));
}

void tst_Figure_Damage::repaintWithCoordinatesIsTheSame()
{
    DisplayedTree tree;

    tree.child.repaint(11, 22, 3, 4);

    QCOMPARE(tree.updates.dirtyRects(&tree.child), QList<QRect>({{11, 22, 3, 4}}));
}

void tst_Figure_Damage::repaintWithoutArgumentsTakesTheBoundingRect()
{
    class Wide : public Figure
    {
    public:
        QRect getBoundingRect() override { return getBounds().adjusted(-5, -6, 7, 8); }
    };
    DisplayedTree tree;
    Wide wide;
    tree.root.add(&wide);
    wide.setBounds(QRect(10, 20, 30, 40));
    tree.updates.clear();

    wide.repaint();

    QCOMPARE(tree.updates.dirtyRects(&wide), QList<QRect>({{5, 14, 42, 54}}));
}

void tst_Figure_Damage::invalidRectIsNotReported_data()
{
    QTest::addColumn<QRect>("rect");

    QTest::newRow("none") << QRect();
    QTest::newRow("no width") << QRect(1, 2, 0, 4);
    QTest::newRow("no height") << QRect(1, 2, 3, 0);
    QTest::newRow("negative") << QRect(1, 2, -3, -4);
}

void tst_Figure_Damage::invalidRectIsNotReported()
{
    QFETCH(QRect, rect);
    DisplayedTree tree;

    tree.child.repaint(rect);
    tree.child.repaint(rect.x(), rect.y(), rect.width(), rect.height());

    QCOMPARE(tree.updates.requests().size(), 0);
}

void tst_Figure_Damage::hiddenFigureReportsNothing()
{
    DisplayedTree tree;
    tree.child.setVisible(false);
    tree.updates.clear();

    tree.child.repaint(QRect(11, 22, 3, 4));

    QCOMPARE(tree.updates.requests().size(), 0);
}

void tst_Figure_Damage::detachedFigureReportsNothingAndIsSilent()
{
    DisplayedTree tree;
    tree.root.removeNotify();
    LogCapture log;

    tree.child.repaint(QRect(11, 22, 3, 4));
    tree.child.erase();
    tree.child.revalidate();

    QCOMPARE(tree.updates.requests().size(), 0);
    QCOMPARE(log.messages().size(), 0);
}

void tst_Figure_Damage::rectMayLieOutsideTheFigure()
{
    DisplayedTree tree;

    tree.child.repaint(QRect(-1000, -1000, 1, 1));

    QCOMPARE(tree.updates.dirtyRects(&tree.child), QList<QRect>({{-1000, -1000, 1, 1}}));
}

void tst_Figure_Damage::everyFormLeadsToTheOneWithARect()
{
    CountingFigure figure;
    figure.setBounds(QRect(1, 2, 3, 4));
    figure.resetCalls();

    figure.repaint();
    figure.repaint(5, 6, 7, 8);

    QCOMPARE(figure.repaintedRects(), QList<QRect>({{1, 2, 3, 4}, {5, 6, 7, 8}}));
}

void tst_Figure_Damage::reportsArriveAtTheViewerInAbsoluteCoordinates()
{
    DisplayedTree tree;

    tree.child.repaint();
    tree.root.repaint();

    QCOMPARE(tree.viewer.updatedRects, QList<QRect>({{110, 220, 30, 40}, {100, 200, 300, 300}}));
}

void tst_Figure_Damage::eraseRepaintsTheOwnAreaOfTheParent()
{
    SimpleBorder border(nullptr, 1);
    CountingFigure child;
    ParentFigure parent;
    parent.setBorder(&border);
    parent.setMargin(2);
    parent.setBounds(QRect(100, 200, 300, 300));
    parent.add(&child);
    child.setBounds(QRect(10, 20, 30, 40));
    parent.resetCalls();
    child.resetCalls();

    child.erase();

    QCOMPARE(parent.repaintedRects(), QList<QRect>({{113, 223, 30, 40}}));
    QCOMPARE(child.calls().repaint, 0);
}

void tst_Figure_Damage::eraseLeavesCoordinatesAloneUnderANonRelativeLayout()
{
    CountingFigure child;
    ParentFigure parent(false);
    parent.setBounds(QRect(100, 200, 300, 300));
    parent.add(&child);
    child.setBounds(QRect(110, 220, 30, 40));
    parent.resetCalls();

    child.erase();

    QCOMPARE(parent.repaintedRects(), QList<QRect>({{110, 220, 30, 40}}));
}

void tst_Figure_Damage::eraseTakesTheWideBoundingRect()
{
    class Wide : public Figure
    {
    public:
        QRect getBoundingRect() override { return getBounds().adjusted(-5, -6, 7, 8); }
    };
    Wide child;
    ParentFigure parent;
    parent.setBounds(QRect(100, 200, 300, 300));
    parent.add(&child);
    child.setBounds(QRect(10, 20, 30, 40));
    parent.resetCalls();

    child.erase();

    QCOMPARE(parent.repaintedRects(), QList<QRect>({{105, 214, 42, 54}}));
}

void tst_Figure_Damage::eraseOfARootDoesNothing()
{
    DisplayedTree tree;

    tree.root.erase();

    QCOMPARE(tree.updates.requests().size(), 0);
}

void tst_Figure_Damage::eraseOfAHiddenFigureDoesNothing()
{
    DisplayedTree tree;
    tree.child.setVisible(false);
    tree.updates.clear();

    tree.child.erase();

    QCOMPARE(tree.updates.requests().size(), 0);
}

void tst_Figure_Damage::eraseOfAnInvalidRectDoesNothing()
{
    CountingFigure child;
    ParentFigure parent;
    parent.setBounds(QRect(100, 200, 300, 300));
    parent.add(&child);
    parent.resetCalls();

    child.erase();

    QCOMPARE(parent.calls().repaint, 0);
}

void tst_Figure_Damage::slotsReachTheOverrides()
{
    CountingFigure figure;
    Figure *base = &figure;
    figure.setBounds(QRect(1, 2, 3, 4));
    figure.resetCalls();

    QVERIFY(QMetaObject::invokeMethod(base, "erase"));
    QVERIFY(QMetaObject::invokeMethod(base, "revalidate"));
    QVERIFY(QMetaObject::invokeMethod(base, "repaint"));
    QVERIFY(QMetaObject::invokeMethod(base, "repaint", Q_ARG(int, 5), Q_ARG(int, 6), Q_ARG(int, 7),
                                      Q_ARG(int, 8)));
    QVERIFY(QMetaObject::invokeMethod(base, "repaint", Q_ARG(QRect, QRect(9, 10, 11, 12))));

    QCOMPARE(figure.calls().erase, 1);
    QCOMPARE(figure.calls().revalidate, 1);
    QCOMPARE(figure.repaintedRects(), QList<QRect>({{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}}));
}

void tst_Figure_Damage::moveDamagesTheOldAndTheNewArea()
{
    DisplayedTree tree;

    tree.child.setBounds(QRect(200, 210, 30, 40));

    QVERIFY(covers(tree.viewer.updatedRects, QRect(110, 220, 30, 40)));
    QVERIFY(covers(tree.viewer.updatedRects, QRect(300, 410, 30, 40)));
    QVERIFY(!covers(tree.viewer.updatedRects, QRect(0, 0, 1000, 1000)));
}

void tst_Figure_Damage::resizeDamagesTheOldAndTheNewArea()
{
    DisplayedTree tree;

    tree.child.setBounds(QRect(10, 20, 5, 100));

    QVERIFY(covers(tree.viewer.updatedRects, QRect(110, 220, 30, 40)));
    QVERIFY(covers(tree.viewer.updatedRects, QRect(110, 220, 5, 100)));
}

void tst_Figure_Damage::addingAndRemovingDamageTheAreaOfTheChild()
{
    DisplayedTree tree;
    Figure figure;
    figure.setBounds(QRect(1, 2, 3, 4));

    tree.root.add(&figure);
    QVERIFY(covers(tree.viewer.updatedRects, QRect(101, 202, 3, 4)));

    tree.viewer.updatedRects.clear();
    tree.root.remove(&figure);
    QVERIFY(covers(tree.viewer.updatedRects, QRect(101, 202, 3, 4)));
}

void tst_Figure_Damage::coloursAndHighlightDamageTheWholeFigure()
{
    DisplayedTree tree;

    tree.child.setBackgroundColor(Qt::red);
    QVERIFY(covers(tree.viewer.updatedRects, QRect(110, 220, 30, 40)));

    tree.viewer.updatedRects.clear();
    tree.child.highlightClientArea(false); // as it is anyway
    QVERIFY(!tree.child.isClientAreaHighlighted());
    QVERIFY(covers(tree.viewer.updatedRects, QRect(110, 220, 30, 40)));

    tree.viewer.updatedRects.clear();
    tree.child.highlightClientArea(true);
    QVERIFY(covers(tree.viewer.updatedRects, QRect(110, 220, 30, 40)));

    tree.viewer.updatedRects.clear();
    tree.child.setHighlightStyle(0);
    QVERIFY(covers(tree.viewer.updatedRects, QRect(110, 220, 30, 40)));
}

QTEST_MAIN(tst_Figure_Damage)
#include "tst_figure_damage.moc"
