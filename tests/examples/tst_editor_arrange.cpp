#include "arrange/Alignment.h"
#include "arrange/Handle.h"
#include "arrange/Snapping.h"

#include <QRegularExpression>
#include <QTest>

using namespace Editor;

class tst_EditorArrange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void figuresAreAligned_data();
    void figuresAreAligned();
    void gapsBecomeEqual();
    void gapsBecomeEqualDownwardsToo();
    void twoFiguresCannotBeDistributed();
    void overlappingFiguresAreDistributedByTheirMiddles();
    void aCoordinateGoesToTheNearestGridLine();
    void aMoveSnapsToTheNearestLineOfAnother();
    void aMoveBeyondTheToleranceDoesNotSnap();
    void guidesConnectAllThatIsInLine();
    void aResizeSnapsTheSidesThatMove();
    void theGridCatchesTheFirstLine();
    void aHandleMovesItsSides_data();
    void aHandleMovesItsSides();
    void aFigureDoesNotShrinkBeyondTheSmallest();
    void theShapeIsKeptOnRequest();
    void handlesLieOnTheirSides();
};

void tst_EditorArrange::figuresAreAligned_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<QList<QRect>>("expected");
    const auto row = [](const char *name, Side side, const QRect &a, const QRect &b) {
        QTest::newRow(name) << int(side) << QList<QRect>{a, b};
    };
    row("left", Side::Left, {10, 10, 40, 20}, {10, 60, 20, 30});
    row("centre", Side::Centre, {30, 10, 40, 20}, {40, 60, 20, 30});
    row("right", Side::Right, {50, 10, 40, 20}, {70, 60, 20, 30});
    row("top", Side::Top, {10, 10, 40, 20}, {70, 10, 20, 30});
    row("middle", Side::Middle, {10, 40, 40, 20}, {70, 35, 20, 30});
    row("bottom", Side::Bottom, {10, 70, 40, 20}, {70, 60, 20, 30});
}

void tst_EditorArrange::figuresAreAligned()
{
    QFETCH(int, side);
    QFETCH(QList<QRect>, expected);

    const QList<QRect> result =
        aligned({{10, 10, 40, 20}, {70, 60, 20, 30}}, static_cast<Side>(side));

    QCOMPARE(result, expected);
}

void tst_EditorArrange::gapsBecomeEqual()
{
    const QList<QRect> rects = {{0, 0, 10, 10}, {90, 5, 10, 10}, {20, 0, 30, 10}, {15, 9, 10, 10}};

    QCOMPARE(distributed(rects, Qt::Horizontal),
             (QList<QRect>{{0, 0, 10, 10}, {90, 5, 10, 10}, {47, 0, 30, 10}, {23, 9, 10, 10}}));
}

void tst_EditorArrange::gapsBecomeEqualDownwardsToo()
{
    const QList<QRect> rects = {{0, 0, 10, 10}, {5, 30, 10, 20}, {7, 80, 10, 10}};

    QCOMPARE(distributed(rects, Qt::Vertical),
             (QList<QRect>{{0, 0, 10, 10}, {5, 35, 10, 20}, {7, 80, 10, 10}}));
}

void tst_EditorArrange::twoFiguresCannotBeDistributed()
{
    const QList<QRect> rects = {{0, 0, 10, 10}, {90, 5, 10, 10}};

    QCOMPARE(distributed(rects, Qt::Horizontal), rects);
    QCOMPARE(distributed({}, Qt::Horizontal), QList<QRect>());
    QCOMPARE(aligned({}, Side::Left), QList<QRect>());
}

void tst_EditorArrange::overlappingFiguresAreDistributedByTheirMiddles()
{
    const QList<QRect> rects = {{0, 0, 100, 10}, {20, 0, 20, 10}, {80, 0, 40, 10}};

    const QList<QRect> result = distributed(rects, Qt::Horizontal);

    QCOMPARE(result.at(1).left(), 20); // its middle is the leftmost: it stays
    QCOMPARE(result.at(2).left(), 80);
    QCOMPARE(result.at(0).left(), 10); // 30 units too many are shared: -30 each side
}

void tst_EditorArrange::aCoordinateGoesToTheNearestGridLine()
{
    QCOMPARE(toGrid(14, 10), 10);
    QCOMPARE(toGrid(15, 10), 20);
    QCOMPARE(toGrid(-14, 10), -10);
    QCOMPARE(toGrid(-16, 10), -20);
    QCOMPARE(toGrid(QPoint(7, -3), 5), QPoint(5, -5));
}

void tst_EditorArrange::aMoveSnapsToTheNearestLineOfAnother()
{
    const QRect dragged(103, 50, 40, 20);

    const Snap snap = snapToOthers(dragged, SnapLines::ofMoved(dragged),
                                   {{100, 200, 80, 30}, {104, 300, 10, 10}}, 5);

    QCOMPARE(snap.offset, QPoint(1, 0));
    QCOMPARE(snap.guides, QList<QLine>{QLine(104, 50, 104, 309)});
}

void tst_EditorArrange::aMoveBeyondTheToleranceDoesNotSnap()
{
    const QRect dragged(110, 50, 40, 20);

    const Snap snap = snapToOthers(dragged, SnapLines::ofMoved(dragged), {{0, 200, 80, 30}}, 5);

    QCOMPARE(snap.offset, QPoint());
    QVERIFY(snap.guides.isEmpty());
}

void tst_EditorArrange::guidesConnectAllThatIsInLine()
{
    const QRect dragged(98, 52, 41, 21);

    const Snap snap = snapToOthers(dragged, SnapLines::ofMoved(dragged),
                                   {{100, 200, 41, 21}, {300, 50, 31, 21}}, 4);

    QCOMPARE(snap.offset, QPoint(2, -2));
    QCOMPARE(snap.guides, (QList<QLine>{QLine(100, 50, 100, 220), QLine(120, 50, 120, 220),
                                        QLine(140, 50, 140, 220), QLine(100, 50, 330, 50),
                                        QLine(100, 60, 330, 60), QLine(100, 70, 330, 70)}));
}

void tst_EditorArrange::aResizeSnapsTheSidesThatMove()
{
    const QRect rect(0, 0, 98, 48);

    const SnapLines lines = SnapLines::ofResized(rect, Qt::RightEdge);
    const Snap snap = snapToOthers(rect, lines, {{1, 100, 98, 20}}, 3);

    QCOMPARE(lines.xs, QList<int>{97});
    QVERIFY(lines.ys.isEmpty());
    QCOMPARE(snap.offset, QPoint(1, 0));
    QCOMPARE(snap.guides, QList<QLine>{QLine(98, 0, 98, 119)});
}

void tst_EditorArrange::theGridCatchesTheFirstLine()
{
    QCOMPARE(snapToGrid(SnapLines::ofMoved({13, 27, 44, 44}), 10).offset, QPoint(-3, 3));
    QCOMPARE(snapToGrid({{}, {8}}, 10).offset, QPoint(0, 2));
}

void tst_EditorArrange::aHandleMovesItsSides_data()
{
    QTest::addColumn<int>("edges");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("left") << int(Qt::LeftEdge) << QRect(15, 10, 35, 30);
    QTest::newRow("top left") << int(Qt::LeftEdge | Qt::TopEdge) << QRect(15, 17, 35, 23);
    QTest::newRow("top") << int(Qt::TopEdge) << QRect(10, 17, 40, 23);
    QTest::newRow("top right") << int(Qt::RightEdge | Qt::TopEdge) << QRect(10, 17, 45, 23);
    QTest::newRow("right") << int(Qt::RightEdge) << QRect(10, 10, 45, 30);
    QTest::newRow("bottom right") << int(Qt::RightEdge | Qt::BottomEdge) << QRect(10, 10, 45, 37);
    QTest::newRow("bottom") << int(Qt::BottomEdge) << QRect(10, 10, 40, 37);
    QTest::newRow("bottom left") << int(Qt::LeftEdge | Qt::BottomEdge) << QRect(15, 10, 35, 37);
}

void tst_EditorArrange::aHandleMovesItsSides()
{
    QFETCH(int, edges);
    QFETCH(QRect, expected);

    const QRect result = resized({10, 10, 40, 30}, Qt::Edges(edges), QPoint(5, 7), 8, false);

    QCOMPARE(result, expected);
}

void tst_EditorArrange::aFigureDoesNotShrinkBeyondTheSmallest()
{
    const QRect rect(10, 10, 40, 30);

    QCOMPARE(resized(rect, Qt::LeftEdge | Qt::TopEdge, {100, 100}, 8, false), QRect(42, 32, 8, 8));
    QCOMPARE(resized(rect, Qt::RightEdge | Qt::BottomEdge, {-100, -100}, 8, false),
             QRect(10, 10, 8, 8));
}

void tst_EditorArrange::theShapeIsKeptOnRequest()
{
    const QRect rect(10, 10, 40, 20);

    QCOMPARE(resized(rect, Qt::RightEdge | Qt::BottomEdge, {40, 0}, 8, true),
             QRect(10, 10, 80, 40));
    QCOMPARE(resized(rect, Qt::RightEdge | Qt::BottomEdge, {0, 20}, 8, true),
             QRect(10, 10, 80, 40));
    QCOMPARE(resized(rect, Qt::LeftEdge | Qt::TopEdge, {-40, 0}, 8, true), QRect(-30, -10, 80, 40));
    QCOMPARE(resized(rect, Qt::BottomEdge, {0, 10}, 8, true), QRect(10, 10, 60, 30));
}

void tst_EditorArrange::handlesLieOnTheirSides()
{
    const QRect rect(10, 10, 41, 31);

    QCOMPARE(resizeHandles().size(), 8);
    QCOMPARE(handlePoint(rect, Qt::LeftEdge | Qt::TopEdge), QPoint(10, 10));
    QCOMPARE(handlePoint(rect, Qt::BottomEdge), QPoint(30, 40));
    QCOMPARE(handleCursor(Qt::LeftEdge | Qt::TopEdge), Qt::SizeFDiagCursor);
    QCOMPARE(handleCursor(Qt::RightEdge | Qt::TopEdge), Qt::SizeBDiagCursor);
    QCOMPARE(handleCursor(Qt::LeftEdge), Qt::SizeHorCursor);
    QCOMPARE(handleCursor(Qt::TopEdge), Qt::SizeVerCursor);
}

QTEST_GUILESS_MAIN(tst_EditorArrange)
#include "tst_editor_arrange.moc"
