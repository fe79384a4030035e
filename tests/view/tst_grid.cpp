#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>

#include <golden.h>
#include <recordingdevice.h>

#include <QPainter>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Opens the background to the test, and notes the order of its two grids.
class GridPane : public FreeformLayeredPane
{
public:
    mutable QStringList grids;
    mutable QList<QRect> rects;

    using FreeformLayeredPane::drawBackground;

    void drawMainGrid(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        grids.append(QStringLiteral("main"));
        rects.append(option.rect);
        FreeformLayeredPane::drawMainGrid(painter, option);
    }

    void drawSubGrid(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        grids.append(QStringLiteral("sub"));
        rects.append(option.rect);
        FreeformLayeredPane::drawSubGrid(painter, option);
    }
};

QStyleOptionViewItem optionFor(const QRect &rect)
{
    QStyleOptionViewItem option;
    option.rect = rect;
    return option;
}

QList<PaintCall> recordBackground(const GridPane &pane, const QRect &rect)
{
    return record([&](QPainter *painter) { pane.drawBackground(painter, optionFor(rect)); });
}

QList<PaintCall> recordMainGrid(const GridPane &pane, const QRect &rect)
{
    return record([&](QPainter *painter) { pane.drawMainGrid(painter, optionFor(rect)); });
}

QList<PaintCall> recordSubGrid(const GridPane &pane, const QRect &rect)
{
    return record([&](QPainter *painter) { pane.drawSubGrid(painter, optionFor(rect)); });
}

QList<QLineF> horizontal(int left, int right, const QList<int> &ys)
{
    QList<QLineF> lines;
    for (int y : ys)
        lines.append(QLineF(left, y, right, y));
    return lines;
}

QList<QLineF> vertical(int top, int bottom, const QList<int> &xs)
{
    QList<QLineF> lines;
    for (int x : xs)
        lines.append(QLineF(x, top, x, bottom));
    return lines;
}

} // namespace

class tst_Grid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void gridIsOffAtFirst();
    void gridNeedsPainterSizeAndRectangle_data();
    void gridNeedsPainterSizeAndRectangle();
    void nullPainterIsIgnored();
    void subGridLiesOverTheMainGrid();
    void bothGridsGetTheWholeRectangle();
    void overriddenGridsReplaceTheUsualOnes();
    void painterIsLeftAsItWas();

    void mainGridIsSolidGrey();
    void subGridIsDottedLightGrey();
    void eachGridIsOneCall();
    void mainGridLinesAreFiveSnapsApart();
    void linesStandAtMultiplesOfTheSpacing_data();
    void linesStandAtMultiplesOfTheSpacing();
    void rectangleWithoutLinesDrawsNothing();
    void gridWithoutSpacingDrawsNothing();
    void fiveHugeSnapsAreStillHuge();

    void gridIsPaintedBehindTheLayers();
    void gridFollowsTheWholePaneAndNotTheDamage();
    void pictureOfGridIsAsKnown();
};

void tst_Grid::gridIsOffAtFirst()
{
    GridPane pane;

    QVERIFY(recordBackground(pane, QRect(0, 0, 100, 100)).isEmpty());
    QVERIFY(pane.grids.isEmpty());
}

void tst_Grid::gridNeedsPainterSizeAndRectangle_data()
{
    QTest::addColumn<int>("snapSize");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<bool>("isDrawn");
    QTest::newRow("snap size 5") << 5 << QRect(0, 0, 100, 100) << true;
    QTest::newRow("snap size 2") << 2 << QRect(0, 0, 100, 100) << true;
    QTest::newRow("snap size 1") << 1 << QRect(0, 0, 100, 100) << false;
    QTest::newRow("snap size 0") << 0 << QRect(0, 0, 100, 100) << false;
    QTest::newRow("snap size -5") << -5 << QRect(0, 0, 100, 100) << false;
    QTest::newRow("no rectangle") << 5 << QRect() << false;
    QTest::newRow("flat rectangle") << 5 << QRect(0, 0, 100, 0) << false;
}

void tst_Grid::gridNeedsPainterSizeAndRectangle()
{
    QFETCH(int, snapSize);
    QFETCH(QRect, rect);
    QFETCH(bool, isDrawn);
    GridPane pane;
    pane.setDrawGrid(true);
    pane.setSnapSize(snapSize);

    const QList<PaintCall> calls = recordBackground(pane, rect);

    QCOMPARE(!calls.isEmpty(), isDrawn);
    QCOMPARE(!pane.grids.isEmpty(), isDrawn);
}

void tst_Grid::nullPainterIsIgnored()
{
    GridPane pane;
    pane.setDrawGrid(true);

    pane.drawBackground(nullptr, optionFor(QRect(0, 0, 100, 100)));

    QVERIFY(pane.grids.isEmpty());
}

void tst_Grid::subGridLiesOverTheMainGrid()
{
    GridPane pane;
    pane.setDrawGrid(true);

    const QList<PaintCall> calls = recordBackground(pane, QRect(0, 0, 100, 100));

    QCOMPARE(pane.grids, (QStringList{QStringLiteral("main"), QStringLiteral("sub")}));
    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls.first().pen.style(), Qt::SolidLine);
    QCOMPARE(calls.last().pen.style(), Qt::DotLine);
}

void tst_Grid::bothGridsGetTheWholeRectangle()
{
    const QRect rect(-7, 13, 100, 50);
    GridPane pane;
    pane.setDrawGrid(true);

    recordBackground(pane, rect);

    QCOMPARE(pane.rects, (QList<QRect>{rect, rect}));
}

void tst_Grid::overriddenGridsReplaceTheUsualOnes()
{
    class BarePane : public FreeformLayeredPane
    {
    public:
        using FreeformLayeredPane::drawBackground;
        void drawMainGrid(QPainter *, const QStyleOptionViewItem &) const override {}
        void drawSubGrid(QPainter *painter, const QStyleOptionViewItem &option) const override
        {
            painter->drawRect(option.rect);
        }
    };
    BarePane pane;
    pane.setDrawGrid(true);

    const QList<PaintCall> calls = record([&pane](QPainter *painter) {
        pane.drawBackground(painter, optionFor(QRect(0, 0, 100, 100)));
    });

    QCOMPARE(calls.size(), 1);
    QCOMPARE(rectsOf(calls), QList<QRectF>{QRectF(0, 0, 100, 100)});
}

void tst_Grid::painterIsLeftAsItWas()
{
    GridPane pane;
    pane.setDrawGrid(true);
    QPen before;
    QPen after;

    record([&](QPainter *painter) {
        painter->setPen(QPen(Qt::blue, 7, Qt::DashLine));
        before = painter->pen();
        pane.drawBackground(painter, optionFor(QRect(0, 0, 100, 100)));
        after = painter->pen();
    });

    QCOMPARE(after, before);
}

void tst_Grid::mainGridIsSolidGrey()
{
    GridPane pane;

    const QList<PaintCall> calls = recordMainGrid(pane, QRect(0, 0, 100, 100));

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().pen.color(), QColor(Qt::gray));
    QCOMPARE(calls.first().pen.widthF(), 1.0);
    QCOMPARE(calls.first().pen.style(), Qt::SolidLine);
}

void tst_Grid::subGridIsDottedLightGrey()
{
    GridPane pane;

    const QList<PaintCall> calls = recordSubGrid(pane, QRect(0, 0, 100, 100));

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().pen.color(), QColor(0xe0, 0xe0, 0xe0));
    QCOMPARE(calls.first().pen.widthF(), 1.0);
    QCOMPARE(calls.first().pen.style(), Qt::DotLine);
}

void tst_Grid::eachGridIsOneCall()
{
    GridPane pane;
    pane.setSnapSize(2);

    QCOMPARE(recordMainGrid(pane, QRect(0, 0, 500, 500)).size(), 1);
    QCOMPARE(recordSubGrid(pane, QRect(0, 0, 500, 500)).size(), 1);
}

void tst_Grid::mainGridLinesAreFiveSnapsApart()
{
    GridPane pane;

    const QList<QLineF> atFirst = linesOf(recordMainGrid(pane, QRect(0, 0, 101, 61)));
    QCOMPARE(atFirst, horizontal(0, 100, {0, 25, 50}) + vertical(0, 60, {0, 25, 50, 75}));

    pane.setSnapSize(8);
    const QList<QLineF> later = linesOf(recordMainGrid(pane, QRect(0, 0, 101, 61)));
    QCOMPARE(later, horizontal(0, 100, {0, 40}) + vertical(0, 60, {0, 40, 80}));
}

void tst_Grid::linesStandAtMultiplesOfTheSpacing_data()
{
    QTest::addColumn<int>("spacing");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QList<int>>("ys");
    QTest::addColumn<QList<int>>("xs");

    QTest::newRow("at the origin")
        << 10 << QRect(0, 0, 31, 21) << QList<int>{0, 10} << QList<int>{0, 10, 20};
    QTest::newRow("right and bottom edge stay free")
        << 10 << QRect(0, 0, 21, 11) << QList<int>{0} << QList<int>{0, 10};
    QTest::newRow("one further is drawn")
        << 10 << QRect(0, 0, 22, 12) << QList<int>{0, 10} << QList<int>{0, 10, 20};
    QTest::newRow("positive corner: from above the rectangle")
        << 10 << QRect(13, 27, 20, 20) << QList<int>{20, 30, 40} << QList<int>{10, 20, 30};
    QTest::newRow("corner on a line")
        << 10 << QRect(20, 30, 15, 15) << QList<int>{30, 40} << QList<int>{20, 30};
    // The remainder keeps the sign of the dividend, so here the first line is inside.
    QTest::newRow("negative corner: from inside the rectangle")
        << 10 << QRect(-13, -27, 20, 20) << QList<int>{-20, -10} << QList<int>{-10, 0};
    QTest::newRow("negative corner on a line")
        << 10 << QRect(-20, -30, 15, 15) << QList<int>{-30, -20} << QList<int>{-20, -10};
    QTest::newRow("across the origin")
        << 7 << QRect(-10, -3, 20, 12) << QList<int>{0, 7} << QList<int>{-7, 0, 7};
    QTest::newRow("negative top, positive left")
        << 10 << QRect(13, -27, 20, 20) << QList<int>{-20, -10} << QList<int>{10, 20, 30};
}

void tst_Grid::linesStandAtMultiplesOfTheSpacing()
{
    QFETCH(int, spacing);
    QFETCH(QRect, rect);
    QFETCH(QList<int>, ys);
    QFETCH(QList<int>, xs);
    GridPane pane;
    pane.setSnapSize(spacing);

    const QList<QLineF> lines = linesOf(recordSubGrid(pane, rect));

    QCOMPARE(lines,
             horizontal(rect.left(), rect.right(), ys) + vertical(rect.top(), rect.bottom(), xs));
}

void tst_Grid::rectangleWithoutLinesDrawsNothing()
{
    GridPane pane;
    pane.setSnapSize(100);

    QVERIFY(linesOf(recordSubGrid(pane, QRect(-30, -30, 20, 20))).isEmpty());
}

void tst_Grid::gridWithoutSpacingDrawsNothing()
{
    GridPane pane;
    pane.setSnapSize(0);

    QVERIFY(linesOf(recordMainGrid(pane, QRect(0, 0, 100, 100))).isEmpty());
    QVERIFY(linesOf(recordSubGrid(pane, QRect(0, 0, 100, 100))).isEmpty());
}

// Five of them are 4 in the range of int.
void tst_Grid::fiveHugeSnapsAreStillHuge()
{
    const QRect rect(-10, -10, 30, 30);
    GridPane pane;
    pane.setSnapSize(858993460);

    const QList<QLineF> lines = linesOf(recordMainGrid(pane, rect));

    QCOMPARE(lines,
             horizontal(rect.left(), rect.right(), {0}) + vertical(rect.top(), rect.bottom(), {0}));
}

void tst_Grid::gridIsPaintedBehindTheLayers()
{
    Figure figure(nullptr, Qt::red);
    FreeformLayer layer;
    GridPane pane;
    pane.setDrawGrid(true);
    pane.addLayer(&layer, QStringLiteral("layer"));
    layer.add(&figure, QRect(0, 0, 30, 30));
    pane.setFreeformBounds(QRect(0, 0, 100, 100));

    const QList<PaintCall> calls = record(
        [&pane](QPainter *painter) { pane.render(painter, optionFor(QRect(0, 0, 100, 100))); });

    QCOMPARE(calls.size(), 3);
    QCOMPARE(calls.at(0).kind, PaintCall::Lines);
    QCOMPARE(calls.at(1).kind, PaintCall::Lines);
    QCOMPARE(calls.at(2).kind, PaintCall::Rects);
}

// A background is painted over the whole bounds, whatever part of them has to be painted anew.
void tst_Grid::gridFollowsTheWholePaneAndNotTheDamage()
{
    const QRect bounds(-20, -10, 100, 90);
    GridPane pane;
    pane.setDrawGrid(true);
    pane.setFreeformBounds(bounds);

    record([&pane](QPainter *painter) { pane.render(painter, optionFor(QRect(5, 5, 3, 3))); });

    QCOMPARE(pane.rects, (QList<QRect>{bounds, bounds}));
}

void tst_Grid::pictureOfGridIsAsKnown()
{
    Figure figure(nullptr, QColor(70, 130, 180));
    FreeformLayer layer;
    GridPane pane;
    pane.setDrawGrid(true);
    pane.addLayer(&layer, QStringLiteral("layer"));
    layer.add(&figure, QRect(-7, 3, 40, 21));
    pane.setFreeformBounds(QRect(-38, -22, 120, 80));
    QImage image(120, 80, QImage::Format_RGB32);
    image.fill(Qt::white);

    QPainter painter(&image);
    painter.translate(38, 22);
    pane.render(&painter, optionFor(pane.getBounds()));
    painter.end();

    FIGURA_COMPARE_GOLDEN(image, QStringLiteral("view_grid"));
}

QTEST_MAIN(tst_Grid)
#include "tst_grid.moc"
