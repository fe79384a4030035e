#include "fixtures.h"

#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <figura/figure/SimpleBorder.h>

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A figure with fixed answers, which the rules about bounds have to ask for.
class FixedFigure : public OpenFigure
{
public:
    QRect boundsAnswer;

    QRect getBounds() override { return boundsAnswer; }
    QSize getMinimumSize() override { return QSize(21, 22); }
    QSize getPreferredSize() override { return QSize(31, 32); }
};

} // namespace

class tst_Figure_Bounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    // Fields.
    void newFigureIsDetachedVisibleEnabledAndWithoutSize();
    void constructorTakesTheOwnerAndTheBackground();
    void ownerIsNotTheParentFigure();
    void getFlagTellsWhetherAnyBitOfTheMaskIsSet();
    void setFlagSetsOrClearsAllBitsOfTheMask();
    void settersOfBorderTooltipAndMarginOnlyStore();
    void negativeMarginIsStoredAsZero();
    void expandingDirectionsAreMasked();
    void expandingDirectionsComeFromTheLayoutIfThereIsOne();

    // Colours and highlight.
    void backgroundColourIsStoredAndRepaintsEvenWhenEqual();
    void highlightStyleRepaintsOnlyWhileHighlighted();
    void highlightingAlwaysRepaints();

    // Resolution.
    void resolveBoundsTakesMissingSizesFromThePreferredSize_data();
    void resolveBoundsTakesMissingSizesFromThePreferredSize();
    void resolveBoundsReportsWhatStaysInvalid_data();
    void resolveBoundsReportsWhatStaysInvalid();
    void resolveBoundsAsksTheVirtualPreferredSize();

    // setBounds.
    void equalBoundsHaveNoEffect();
    void boundsThatResolveToTheCurrentOnesHaveNoEffect();
    void boundsWithoutASizeTakeThePreferredOne();
    void invalidBoundsAreReportedAndStoredAllTheSame();
    void moveTranslatesTheChildrenButDoesNotInvalidate();
    void resizeInvalidatesButDoesNotMove();
    void moveAndResizeDoBoth();
    void changeOfOneCoordinateIsEnough_data();
    void changeOfOneCoordinateIsEnough();
    void oldAreaIsErasedFirstAndFigureMovedComesBeforeTheRepaint();
    void hiddenFigureIsNotErasedButMovesAndTellsSo();
    void figureMovedSeesTheNewBounds();
    void resolveBoundsIsCalledVirtually();

    // Translation.
    void primTranslateMovesTheBoundsThenTranslatesEachChildInOrder();
    void translateLeavesAFigureWithoutALayoutWhereItIs();
    void translateLeavesAFigureWithARelativeLayoutWhereItIs();
    void translateMovesAFigureWithANonRelativeLayout();
    void translateReachesDescendantsThatShareTheCoordinates();
    void translateByNothingStillTells();

    // Client area.
    void localCoordinatesFollowTheLayout();
    void boundingRectIsTheVirtualBounds();
    void resizeMinimumIsTheVirtualMinimumWhateverTheHandle();
    void contentRectIsTheRectLessBorderAndMargin_data();
    void contentRectIsTheRectLessBorderAndMargin();
    void rectForContentIsTheInverse_data();
    void rectForContentIsTheInverse();
    void clientAreaIsInTheCoordinatesOfTheBounds();
    void clientAreaResolvesTheBounds();
    void clientAreaOfInvalidBoundsIsTheseBounds();
};

void tst_Figure_Bounds::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Figure_Bounds::newFigureIsDetachedVisibleEnabledAndWithoutSize()
{
    OpenFigure figure;

    QVERIFY(!figure.parent());
    QVERIFY(!figure.getParentFigure());
    QVERIFY(!figure.getLayoutManager());
    QVERIFY(!figure.getBorder());
    QVERIFY(!figure.getTooltip());
    QVERIFY(!figure.getUpdateManager());
    QCOMPARE(figure.getMaximumSize(), QSize(134217727, 134217727));
    QCOMPARE(figure.getMargin(), 0);
    QCOMPARE(figure.getBounds(), QRect());
    QCOMPARE(figure.getBounds().size(), QSize(0, 0));
    QVERIFY(figure.isVisible());
    QVERIFY(figure.isEnabled());
    QVERIFY(!figure.isValid());
    QVERIFY(!figure.getFlag(~(Figure::FLAG_VISIBLE | Figure::FLAG_ENABLED)));
    QCOMPARE(figure.getBackgroundColor(), QColor(Qt::transparent));
    QCOMPARE(figure.expandingDirections(), Qt::Orientations());
    QVERIFY(!figure.isClientAreaHighlighted());
    QCOMPARE(figure.getHighlightStyle(), 1);

    figure.setValid(true);
    QCOMPARE(figure.getPreferredSize(), QSize());
}

void tst_Figure_Bounds::constructorTakesTheOwnerAndTheBackground()
{
    QObject owner;

    auto *figure = new Figure(&owner, Qt::red);

    QCOMPARE(figure->parent(), &owner);
    QCOMPARE(figure->getBackgroundColor(), QColor(Qt::red));
}

void tst_Figure_Bounds::ownerIsNotTheParentFigure()
{
    Figure owner;

    auto *figure = new Figure(&owner);

    QCOMPARE(figure->parent(), &owner);
    QVERIFY(!figure->getParentFigure());
}

void tst_Figure_Bounds::getFlagTellsWhetherAnyBitOfTheMaskIsSet()
{
    OpenFigure figure;

    QVERIFY(figure.getFlag(Figure::FLAG_VISIBLE));
    QVERIFY(figure.getFlag(Figure::FLAG_VISIBLE | Figure::FLAG_VALID));
    QVERIFY(!figure.getFlag(Figure::FLAG_VALID | Figure::FLAG_NOTIFIED));
    QVERIFY(!figure.getFlag(0));
}

void tst_Figure_Bounds::setFlagSetsOrClearsAllBitsOfTheMask()
{
    OpenFigure figure;
    const int mask = Figure::FLAG_USE_CONTENT_SIZE | Figure::FLAG_NOTIFIED;

    figure.setFlag(mask, true);
    QVERIFY(figure.getFlag(Figure::FLAG_USE_CONTENT_SIZE));
    QVERIFY(figure.getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(figure.isVisible());
    QVERIFY(!figure.isValid());

    figure.setFlag(mask | Figure::FLAG_VISIBLE, false);
    QVERIFY(!figure.getFlag(mask));
    QVERIFY(!figure.isVisible());
    QVERIFY(figure.isEnabled());
}

void tst_Figure_Bounds::settersOfBorderTooltipAndMarginOnlyStore()
{
    OpenFigure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.setValid(true);
    figure.resetCalls();
    SimpleBorder border(nullptr, 1);
    Figure tooltip;

    figure.setBorder(&border);
    figure.setTooltip(&tooltip);
    figure.setMargin(5);

    QCOMPARE(figure.getBorder(), &border);
    QCOMPARE(figure.getTooltip(), &tooltip);
    QCOMPARE(figure.getMargin(), 5);
    QVERIFY(figure.isValid());
    QCOMPARE(figure.calls().repaint, 0);
    QCOMPARE(figure.calls().revalidate, 0);

    figure.setBorder(nullptr);
    figure.setTooltip(nullptr);
    QVERIFY(!figure.getBorder());
    QVERIFY(!figure.getTooltip());
}

void tst_Figure_Bounds::negativeMarginIsStoredAsZero()
{
    Figure figure;
    figure.setMargin(7);

    figure.setMargin(-4);

    QCOMPARE(figure.getMargin(), 0);
}

void tst_Figure_Bounds::expandingDirectionsAreMasked()
{
    Figure figure;

    figure.setExpandingDirections(Qt::Orientations(0xFE));

    QCOMPARE(figure.expandingDirections(), Qt::Orientations(Qt::Vertical));
}

void tst_Figure_Bounds::expandingDirectionsComeFromTheLayoutIfThereIsOne()
{
    ParentFigure figure;
    figure.setExpandingDirections(Qt::Vertical);

    figure.plain->setExpandingDirections(Qt::Horizontal);

    QCOMPARE(figure.expandingDirections(), Qt::Orientations(Qt::Horizontal));
}

void tst_Figure_Bounds::backgroundColourIsStoredAndRepaintsEvenWhenEqual()
{
    CountingFigure figure;
    figure.setBounds(QRect(1, 2, 30, 40));
    figure.resetCalls();

    figure.setBackgroundColor(Qt::red);
    figure.setBackgroundColor(Qt::red);

    QCOMPARE(figure.getBackgroundColor(), QColor(Qt::red));
    QCOMPARE(figure.repaintedRects(), QList<QRect>({{1, 2, 30, 40}, {1, 2, 30, 40}}));
}

void tst_Figure_Bounds::highlightStyleRepaintsOnlyWhileHighlighted()
{
    CountingFigure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.resetCalls();

    figure.setHighlightStyle(0);
    QCOMPARE(figure.getHighlightStyle(), 0);
    QCOMPARE(figure.calls().repaint, 0);

    figure.highlightClientArea(true);
    figure.resetCalls();
    figure.setHighlightStyle(17);
    QCOMPARE(figure.getHighlightStyle(), 17);
    QCOMPARE(figure.calls().repaint, 1);
}

void tst_Figure_Bounds::highlightingAlwaysRepaints()
{
    CountingFigure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.resetCalls();

    figure.highlightClientArea(true);
    QVERIFY(figure.isClientAreaHighlighted());
    figure.highlightClientArea(true);
    figure.highlightClientArea(false);
    QVERIFY(!figure.isClientAreaHighlighted());

    QCOMPARE(figure.calls().repaint, 3);
}

void tst_Figure_Bounds::resolveBoundsTakesMissingSizesFromThePreferredSize_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QSize>("preferred");
    QTest::addColumn<QRect>("resolved");

    const QSize size(30, 20);
    QTest::newRow("valid stays") << QRect(1, 2, 3, 4) << size << QRect(1, 2, 3, 4);
    QTest::newRow("one pixel is valid") << QRect(1, 2, 1, 1) << size << QRect(1, 2, 1, 1);
    QTest::newRow("both missing") << QRect(10, 10, 0, 0) << size << QRect(10, 10, 30, 20);
    QTest::newRow("width missing") << QRect(10, 10, 0, 5) << size << QRect(10, 10, 30, 5);
    QTest::newRow("height missing") << QRect(10, 10, 5, 0) << size << QRect(10, 10, 5, 20);
    QTest::newRow("a width of one is none missing")
        << QRect(10, 10, 1, 0) << size << QRect(10, 10, 1, 20);
    QTest::newRow("a height of one is none missing")
        << QRect(10, 10, 0, 1) << size << QRect(10, 10, 30, 1);
    QTest::newRow("negative") << QRect(-10, -10, -1, -9) << size << QRect(-10, -10, 30, 20);
    QTest::newRow("preferred width is not needed")
        << QRect(1, 2, 3, 0) << QSize(0, 20) << QRect(1, 2, 3, 20);
    QTest::newRow("preferred of one") << QRect(1, 2, 0, 0) << QSize(1, 1) << QRect(1, 2, 1, 1);
}

void tst_Figure_Bounds::resolveBoundsTakesMissingSizesFromThePreferredSize()
{
    QFETCH(QRect, rect);
    QFETCH(QSize, preferred);
    Figure figure;
    figure.setPreferredSize(preferred);

    QTEST(figure.resolveBounds(rect), "resolved");
}

void tst_Figure_Bounds::resolveBoundsReportsWhatStaysInvalid_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QSize>("preferred");
    QTest::addColumn<QRect>("resolved");

    QTest::newRow("no preferred size") << QRect(1, 2, 0, 0) << QSize() << QRect(1, 2, 0, 0);
    QTest::newRow("negative size stays") << QRect(1, 2, -3, -4) << QSize() << QRect(1, 2, -3, -4);
    QTest::newRow("no preferred height") << QRect(1, 2, 0, 0) << QSize(5, 0) << QRect(1, 2, 5, 0);
    QTest::newRow("no preferred width") << QRect(1, 2, 0, 7) << QSize(0, 5) << QRect(1, 2, 0, 7);
}

void tst_Figure_Bounds::resolveBoundsReportsWhatStaysInvalid()
{
    QFETCH(QRect, rect);
    QFETCH(QSize, preferred);
    Figure figure;
    figure.setPreferredSize(preferred);

    QTest::ignoreMessage(QtDebugMsg, "Figure::resolveBounds(): resolved bounds still invalid");
    QTEST(figure.resolveBounds(rect), "resolved");
}

void tst_Figure_Bounds::resolveBoundsAsksTheVirtualPreferredSize()
{
    FixedFigure figure;

    QCOMPARE(figure.resolveBounds(QRect(5, 6, 0, 0)), QRect(5, 6, 31, 32));
}

void tst_Figure_Bounds::equalBoundsHaveNoEffect()
{
    ParentFigure figure;
    figure.setBounds(QRect(1, 2, 30, 40));
    figure.setValid(true);
    figure.resetCalls();
    QSignalSpy moved(&figure, &Figure::figureMoved);

    figure.setBounds(QRect(1, 2, 30, 40));

    QCOMPARE(moved.count(), 0);
    QVERIFY(figure.isValid());
    QCOMPARE(figure.calls().erase, 0);
    QCOMPARE(figure.calls().primTranslate, 0);
    QCOMPARE(figure.calls().invalidate, 0);
    QCOMPARE(figure.calls().repaint, 0);
}

void tst_Figure_Bounds::boundsThatResolveToTheCurrentOnesHaveNoEffect()
{
    CountingFigure figure;
    figure.setPreferredSize(QSize(30, 20));
    figure.setBounds(QRect(10, 10, 30, 20));
    figure.resetCalls();
    QSignalSpy moved(&figure, &Figure::figureMoved);

    figure.setBounds(QRect(10, 10, 0, 0));

    QCOMPARE(moved.count(), 0);
    QCOMPARE(figure.calls().repaint, 0);
}

void tst_Figure_Bounds::boundsWithoutASizeTakeThePreferredOne()
{
    Figure figure;
    figure.setPreferredSize(QSize(30, 20));

    figure.setBounds(QRect(10, 10, 0, 0));

    QCOMPARE(figure.getBounds(), QRect(10, 10, 30, 20));
}

void tst_Figure_Bounds::invalidBoundsAreReportedAndStoredAllTheSame()
{
    Figure figure;
    QSignalSpy moved(&figure, &Figure::figureMoved);

    QTest::ignoreMessage(QtDebugMsg, "Figure::resolveBounds(): resolved bounds still invalid");
    figure.setBounds(QRect(10, 10, 0, 0));

    QCOMPARE(figure.getBounds(), QRect(10, 10, 0, 0));
    QCOMPARE(moved.count(), 1);
}

void tst_Figure_Bounds::moveTranslatesTheChildrenButDoesNotInvalidate()
{
    ParentFigure figure;
    CountingFigure first;
    CountingFigure second;
    figure.add(&first);
    figure.add(&second);
    figure.setBounds(QRect(0, 0, 30, 40));
    figure.setValid(true);
    figure.resetCalls();
    first.resetCalls();
    second.resetCalls();

    figure.setBounds(QRect(5, -7, 30, 40));

    QCOMPARE(figure.getBounds(), QRect(5, -7, 30, 40));
    QCOMPARE(figure.calls().primTranslate, 1);
    QCOMPARE(first.calls().translate, 1);
    QCOMPARE(second.calls().translate, 1);
    QCOMPARE(figure.calls().invalidate, 0);
    QVERIFY(figure.isValid());
}

void tst_Figure_Bounds::resizeInvalidatesButDoesNotMove()
{
    ParentFigure figure;
    CountingFigure child;
    figure.add(&child);
    figure.setBounds(QRect(1, 2, 30, 40));
    figure.setValid(true);
    figure.resetCalls();
    child.resetCalls();

    figure.setBounds(QRect(1, 2, 31, 40));

    QCOMPARE(figure.getBounds(), QRect(1, 2, 31, 40));
    QCOMPARE(figure.calls().invalidate, 1);
    QVERIFY(!figure.isValid());
    QCOMPARE(figure.calls().revalidate, 0);
    QCOMPARE(figure.calls().primTranslate, 0);
    QCOMPARE(child.calls().translate, 0);
}

void tst_Figure_Bounds::moveAndResizeDoBoth()
{
    OpenFigure figure;
    figure.setBounds(QRect(1, 2, 30, 40));
    figure.resetCalls();

    figure.setBounds(QRect(10, 20, 300, 400));

    QCOMPARE(figure.getBounds(), QRect(10, 20, 300, 400));
    QCOMPARE(figure.calls().primTranslate, 1);
    QCOMPARE(figure.calls().invalidate, 1);
}

void tst_Figure_Bounds::changeOfOneCoordinateIsEnough_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<int>("moves");
    QTest::addColumn<int>("invalidations");

    QTest::newRow("x") << QRect(2, 1, 10, 10) << 1 << 0;
    QTest::newRow("y") << QRect(1, 2, 10, 10) << 1 << 0;
    QTest::newRow("width") << QRect(1, 1, 11, 10) << 0 << 1;
    QTest::newRow("height") << QRect(1, 1, 10, 11) << 0 << 1;
}

void tst_Figure_Bounds::changeOfOneCoordinateIsEnough()
{
    QFETCH(QRect, bounds);
    CountingFigure figure;
    figure.setBounds(QRect(1, 1, 10, 10));
    figure.resetCalls();
    QSignalSpy moved(&figure, &Figure::figureMoved);

    figure.setBounds(bounds);

    QCOMPARE(figure.getBounds(), bounds);
    QTEST(figure.calls().primTranslate, "moves");
    QTEST(figure.calls().invalidate, "invalidations");
    QCOMPARE(moved.count(), 1);
    QVERIFY(figure.calls().repaint > 0);
}

void tst_Figure_Bounds::oldAreaIsErasedFirstAndFigureMovedComesBeforeTheRepaint()
{
    QStringList log;
    LoggingFigure figure(QStringLiteral("figure"), &log);
    figure.setBounds(QRect(1, 2, 30, 40));
    log.clear();

    figure.setBounds(QRect(10, 20, 300, 400));

    QCOMPARE(log, QStringList({"figure erase", "figure primTranslate", "figure invalidate",
                               "figure figureMoved", "figure repaint"}));
}

void tst_Figure_Bounds::hiddenFigureIsNotErasedButMovesAndTellsSo()
{
    CountingFigure figure;
    figure.setBounds(QRect(1, 2, 30, 40));
    figure.setVisible(false);
    figure.resetCalls();
    QSignalSpy moved(&figure, &Figure::figureMoved);

    figure.setBounds(QRect(10, 20, 30, 40));

    QCOMPARE(figure.calls().erase, 0);
    QCOMPARE(figure.getBounds(), QRect(10, 20, 30, 40));
    QCOMPARE(moved.count(), 1);
}

void tst_Figure_Bounds::figureMovedSeesTheNewBounds()
{
    Figure figure;
    QList<QRect> seen;
    connect(&figure, &Figure::figureMoved, &figure, [&](Figure *moved) {
        QCOMPARE(moved, &figure);
        seen.append(moved->getBounds());
    });

    figure.setBounds(QRect(1, 2, 30, 40));

    QCOMPARE(seen, QList<QRect>({{1, 2, 30, 40}}));
}

void tst_Figure_Bounds::resolveBoundsIsCalledVirtually()
{
    class Snapping : public Figure
    {
    public:
        QRect resolveBounds(const QRect &rect) override { return rect.translated(100, 100); }
    };
    Snapping figure;

    figure.setBounds(QRect(1, 2, 3, 4));

    QCOMPARE(figure.getBounds(), QRect(101, 102, 3, 4));
    QCOMPARE(figure.getClientArea(), QRect(201, 202, 3, 4));
}

void tst_Figure_Bounds::primTranslateMovesTheBoundsThenTranslatesEachChildInOrder()
{
    QStringList log;
    LoggingFigure figure(QStringLiteral("figure"), &log);
    LoggingFigure first(QStringLiteral("first"), &log);
    LoggingFigure second(QStringLiteral("second"), &log);
    figure.add(&first);
    figure.add(&second);
    figure.setBounds(QRect(0, 0, 30, 40));
    QRect seenByChild;
    connect(&first, &Figure::figureMoved, &first, [&] { seenByChild = figure.getBounds(); });
    log.clear();

    figure.primTranslate(3, 4);

    QCOMPARE(figure.getBounds(), QRect(3, 4, 30, 40));
    QCOMPARE(seenByChild, figure.getBounds());
    QCOMPARE(log, QStringList({"figure primTranslate", "first translate", "first figureMoved",
                               "second translate", "second figureMoved"}));
}

// Only descendants that share the coordinates of their parent follow its move, on purpose.
void tst_Figure_Bounds::translateLeavesAFigureWithoutALayoutWhereItIs()
{
    Figure figure;
    figure.setBounds(QRect(1, 2, 30, 40));
    QSignalSpy moved(&figure, &Figure::figureMoved);

    figure.translate(5, 5);

    QCOMPARE(figure.getBounds(), QRect(1, 2, 30, 40));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.first().first().value<Figure *>(), &figure);
}

void tst_Figure_Bounds::translateLeavesAFigureWithARelativeLayoutWhereItIs()
{
    ParentFigure figure(true);
    CountingFigure child;
    figure.add(&child);
    figure.setBounds(QRect(1, 2, 30, 40));
    child.resetCalls();
    QSignalSpy moved(&figure, &Figure::figureMoved);

    figure.translate(5, 5);

    QCOMPARE(figure.getBounds(), QRect(1, 2, 30, 40));
    QCOMPARE(child.calls().translate, 0);
    QCOMPARE(moved.count(), 1);
}

void tst_Figure_Bounds::translateMovesAFigureWithANonRelativeLayout()
{
    ParentFigure figure(false);
    figure.setBounds(QRect(1, 2, 30, 40));
    QRect seen;
    connect(&figure, &Figure::figureMoved, &figure, [&] { seen = figure.getBounds(); });
    QSignalSpy moved(&figure, &Figure::figureMoved);

    figure.translate(5, -6);

    QCOMPARE(figure.getBounds(), QRect(6, -4, 30, 40));
    QCOMPARE(seen, figure.getBounds());
    QCOMPARE(moved.count(), 1);
}

void tst_Figure_Bounds::translateReachesDescendantsThatShareTheCoordinates()
{
    ParentFigure root(false);
    ParentFigure sharing(false);
    ParentFigure relative(true);
    ParentFigure belowRelative(false);
    Figure leaf;
    root.add(&sharing);
    sharing.add(&relative);
    relative.add(&belowRelative);
    sharing.add(&leaf);
    for (Figure *figure : QList<Figure *>{&root, &sharing, &relative, &belowRelative, &leaf})
        figure->setBounds(QRect(0, 0, 10, 10));
    QSignalSpy leafMoved(&leaf, &Figure::figureMoved);
    QSignalSpy belowMoved(&belowRelative, &Figure::figureMoved);

    root.setBounds(QRect(7, 8, 10, 10));

    QCOMPARE(sharing.getBounds(), QRect(7, 8, 10, 10));
    QCOMPARE(relative.getBounds(), QRect(0, 0, 10, 10));
    QCOMPARE(belowRelative.getBounds(), QRect(0, 0, 10, 10));
    QCOMPARE(leaf.getBounds(), QRect(0, 0, 10, 10));
    QCOMPARE(leafMoved.count(), 1);
    QCOMPARE(belowMoved.count(), 0);
}

void tst_Figure_Bounds::translateByNothingStillTells()
{
    ParentFigure figure(false);
    QSignalSpy moved(&figure, &Figure::figureMoved);

    figure.translate(0, 0);

    QCOMPARE(moved.count(), 1);
}

void tst_Figure_Bounds::localCoordinatesFollowTheLayout()
{
    QVERIFY(Figure().useLocalCoordinates());
    QVERIFY(ParentFigure(true).useLocalCoordinates());
    QVERIFY(!ParentFigure(false).useLocalCoordinates());
}

void tst_Figure_Bounds::boundingRectIsTheVirtualBounds()
{
    FixedFigure figure;
    figure.boundsAnswer = QRect(1, 2, 3, 4);

    QCOMPARE(figure.getBoundingRect(), QRect(1, 2, 3, 4));
}

void tst_Figure_Bounds::resizeMinimumIsTheVirtualMinimumWhateverTheHandle()
{
    FixedFigure figure;

    QCOMPARE(figure.getResizeMinimum(0), QSize(21, 22));
    QCOMPARE(figure.getResizeMinimum(17), QSize(21, 22));
}

void tst_Figure_Bounds::contentRectIsTheRectLessBorderAndMargin_data()
{
    QTest::addColumn<Insets>("insets");
    QTest::addColumn<int>("margin");
    QTest::addColumn<QRect>("content");

    QTest::newRow("neither") << Insets() << 0 << QRect(0, 0, 100, 100);
    QTest::newRow("margin") << Insets() << 5 << QRect(5, 5, 90, 90);
    QTest::newRow("margin of one") << Insets() << 1 << QRect(1, 1, 98, 98);
    QTest::newRow("border, left and right crossed")
        << Insets(1, 2, 3, 4) << 0 << QRect(4, 1, 94, 96);
    QTest::newRow("both") << Insets(1, 2, 3, 4) << 5 << QRect(9, 6, 84, 86);
    QTest::newRow("more than there is") << Insets() << 50 << QRect(50, 50, 0, 0);
}

void tst_Figure_Bounds::contentRectIsTheRectLessBorderAndMargin()
{
    QFETCH(Insets, insets);
    QFETCH(int, margin);
    SimpleBorder border(nullptr, 0);
    border.setInsets(insets);
    Figure figure;
    figure.setBorder(&border);
    figure.setMargin(margin);

    QTEST(figure.calculateContentRect(QRect(0, 0, 100, 100)), "content");
}

void tst_Figure_Bounds::rectForContentIsTheInverse_data()
{
    contentRectIsTheRectLessBorderAndMargin_data();
}

void tst_Figure_Bounds::rectForContentIsTheInverse()
{
    QFETCH(Insets, insets);
    QFETCH(int, margin);
    QFETCH(QRect, content);
    SimpleBorder border(nullptr, 0);
    border.setInsets(insets);
    Figure figure;
    figure.setBorder(&border);
    figure.setMargin(margin);

    QCOMPARE(figure.calculateRectForContent(content), QRect(0, 0, 100, 100));
}

void tst_Figure_Bounds::clientAreaIsInTheCoordinatesOfTheBounds()
{
    SimpleBorder border(nullptr, 2);
    ParentFigure parent;
    Figure figure;
    figure.setBorder(&border);
    figure.setMargin(3);
    parent.setBounds(QRect(1000, 1000, 100, 100));
    parent.add(&figure);

    figure.setBounds(QRect(10, 20, 100, 200));

    QCOMPARE(figure.getClientArea(), QRect(15, 25, 90, 190));
}

void tst_Figure_Bounds::clientAreaResolvesTheBounds()
{
    Figure figure;
    figure.setPreferredSize(QSize(30, 20));
    figure.setMargin(1);

    // The plain figure's preferred size takes the margin off once and adds it twice: 31 x 21.
    QCOMPARE(figure.getClientArea(), QRect(1, 1, 29, 19));
    QCOMPARE(figure.getBounds(), QRect());
}

void tst_Figure_Bounds::clientAreaOfInvalidBoundsIsTheseBounds()
{
    SimpleBorder border(nullptr, 2);
    Figure figure;
    figure.setBorder(&border);

    QTest::ignoreMessage(QtDebugMsg, "Figure::resolveBounds(): resolved bounds still invalid");
    QCOMPARE(figure.getClientArea(), QRect());
}

QTEST_MAIN(tst_Figure_Bounds)
#include "tst_figure_bounds.moc"
