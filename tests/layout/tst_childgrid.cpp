#include <figure/workcounters_p.h>

#include <figura/figure/ExclusionSearch.h>
#include <figura/figure/Figure.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Polygon.h>

#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora::Figura;

namespace {

/// What a layout went to for one search.
struct Effort
{
    long visited;  // children turned to, and the end of the walk
    long compared; // areas looked at
};

/// Many children of a freeform layout, and searches among them.
class Crowd
{
public:
    Crowd() { m_container.setLayoutManager(&m_layout); }

    Figure *add(const QRect &bounds)
    {
        m_figures.push_back(std::make_unique<Figure>());
        m_figures.back()->setBounds(bounds);
        m_layout.add(m_figures.back().get(), bounds);
        return m_figures.back().get();
    }

    /// Squares in 32 columns and 32 rows, whose corners are \a pitch apart. They take up \a side
    /// with the one unit that is always added to what a figure paints.
    void addField(int side, int pitch)
    {
        for (int i = 0; i < 32 * 32; ++i)
            add(QRect(i % 32 * pitch + 1, i / 32 * pitch + 1, side - 2, side - 2));
    }

    QList<Figure *> find(const QRect &rect) const
    {
        QList<Figure *> found;
        m_layout.findDescendantFigures(found, rect, ExclusionSearch({}), false);
        return found;
    }

    // The first search takes in what has changed.
    Effort effort(const QRect &rect) const
    {
        find(rect);
        const WorkCounters before = workCounters();
        find(rect);
        return {workCounters().visited - before.visited, workCounters().compared - before.compared};
    }

    /// Takes \a figure over, with the bounds that it has.
    void adopt(Figure *figure)
    {
        m_figures.emplace_back(figure);
        m_layout.add(figure);
    }

    void remove(Figure *figure) { m_layout.remove(figure); }

private:
    Figure m_container;
    FreeformLayout m_layout;
    std::vector<std::unique_ptr<Figure>> m_figures;
};

QRect pixel(int x, int y)
{
    return {x, y, 1, 1};
}

} // namespace

class tst_ChildGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void searchLooksAtFourCellsOfTheSizeOfTheChildren_data();
    void searchLooksAtFourCellsOfTheSizeOfTheChildren();
    void largeChildrenDoNotMakeTheCellsOfSmallOnesLarger();
    void levelWithoutChildrenCostsNoSearch();
    void levelThatChildrenHaveLeftCostsNoSearch();
    void searchOfAsManyCellsAsChildrenUsesTheGrid_data();
    void searchOfAsManyCellsAsChildrenUsesTheGrid();
    void childOfAnySizeIsFoundAtItsEdges_data();
    void childOfAnySizeIsFoundAtItsEdges();
    void childWithoutValidBoundsIsTurnedToInEverySearch();
    void polygonIsTurnedToInEverySearchOnlyForItsChildren_data();
    void polygonIsTurnedToInEverySearchOnlyForItsChildren();
};

void tst_ChildGrid::searchLooksAtFourCellsOfTheSizeOfTheChildren_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("cell");
    QTest::newRow("a single pixel") << 3 << 128;
    QTest::newRow("as large as the smallest cell") << 128 << 128;
    QTest::newRow("just too large for the smallest cell") << 129 << 512;
    QTest::newRow("as large as the next cell") << 512 << 512;
    QTest::newRow("just too large for the next cell") << 513 << 2048;
    QTest::newRow("larger than a screen") << 8192 << 8192;
}

// One child a cell: with larger cells there would be sixteen in each.
void tst_ChildGrid::searchLooksAtFourCellsOfTheSizeOfTheChildren()
{
    QFETCH(int, side);
    QFETCH(int, cell);
    Crowd crowd;
    crowd.addField(side, cell);

    const QRect rect = pixel(10 * cell + 1, 20 * cell + 1);

    QCOMPARE(crowd.find(rect).size(), 1);
    QCOMPARE(crowd.effort(rect).compared, 4L);
    QCOMPARE(crowd.effort(rect).visited, 2L);
}

void tst_ChildGrid::largeChildrenDoNotMakeTheCellsOfSmallOnesLarger()
{
    Crowd crowd;
    crowd.addField(100, 128);
    for (int i = 0; i < 8; ++i)
        crowd.add(QRect(0, 0, 4000, 4000));

    const Effort effort = crowd.effort(pixel(1290, 2570));

    QCOMPARE(effort.compared, 4L + 8L);
    QCOMPARE(effort.visited, 1L + 8L + 1L);
}

void tst_ChildGrid::levelWithoutChildrenCostsNoSearch()
{
    Crowd crowd;
    crowd.addField(2000, 2048);

    // 32 columns of large cells, 500 of small ones.
    const Effort effort = crowd.effort(QRect(0, 100, 32 * 2048, 300));

    QCOMPARE(effort.compared, 32L);
    QCOMPARE(effort.visited, 32L + 1L);
}

void tst_ChildGrid::levelThatChildrenHaveLeftCostsNoSearch()
{
    Crowd crowd;
    crowd.addField(2000, 2048);
    Figure *leaving = crowd.add(QRect(0, 0, 10, 10));
    Figure *growing = crowd.add(QRect(0, 0, 10, 10));
    const QRect wide(0, 2048 * 5 + 100, 32 * 2048, 300);
    QCOMPARE(crowd.effort(wide).visited, 32L * 32L + 2L + 1L);

    crowd.remove(leaving);
    growing->setBounds(QRect(0, 0, 2000, 2000));

    QCOMPARE(crowd.effort(wide).visited, 32L + 1L);
}

void tst_ChildGrid::searchOfAsManyCellsAsChildrenUsesTheGrid_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("usesGrid");
    // Two rows of cells, and one column before those that the rectangle covers.
    QTest::newRow("as many cells as children") << 511 * 128 << true;
    QTest::newRow("two more") << 511 * 128 + 1 << false;
}

void tst_ChildGrid::searchOfAsManyCellsAsChildrenUsesTheGrid()
{
    QFETCH(int, width);
    QFETCH(bool, usesGrid);
    Crowd crowd;
    crowd.addField(100, 128);
    const QList<Figure *> leaving({crowd.add(pixel(0, 0)), crowd.add(pixel(0, 0))});
    crowd.find(pixel(0, 0));
    for (Figure *figure : leaving)
        crowd.remove(figure);

    const QRect beside(0, 100'000, width, 1);

    QCOMPARE(crowd.find(beside).size(), 0);
    QCOMPARE(crowd.effort(beside).visited, usesGrid ? 1L : 32L * 32L + 1L);
}

void tst_ChildGrid::childOfAnySizeIsFoundAtItsEdges_data()
{
    QTest::addColumn<QSize>("size");
    for (int power = 0; power < 31; ++power) {
        const int side = 1 << power;
        QTest::addRow("2 to the power of %d", power) << QSize(side, side);
        QTest::addRow("one more than 2 to the power of %d", power) << QSize(side + 1, side + 1);
    }
    QTest::newRow("wide") << QSize(100'000, 1);
    QTest::newRow("high") << QSize(1, 100'000);
}

void tst_ChildGrid::childOfAnySizeIsFoundAtItsEdges()
{
    QFETCH(QSize, size);
    Crowd crowd;
    crowd.addField(5, 7);
    const int far = -1'000'000'000;
    const QRect bounds(QPoint(far, far), size);
    const QList<Figure *> child({crowd.add(bounds)});

    QCOMPARE(crowd.find(pixel(far, far)), child);
    QCOMPARE(crowd.find(pixel(bounds.right(), far)), child);
    QCOMPARE(crowd.find(pixel(far, bounds.bottom())), child);
    QVERIFY(!crowd.find(pixel(far - 1, far)).contains(child.first()));
    QVERIFY(!crowd.find(pixel(far, bounds.bottom() + 1)).contains(child.first()));
}

void tst_ChildGrid::childWithoutValidBoundsIsTurnedToInEverySearch()
{
    Crowd crowd;
    crowd.addField(100, 128);
    for (int i = 0; i < 2; ++i)
        QTest::ignoreMessage(QtDebugMsg, "Figure::resolveBounds(): resolved bounds still invalid");
    crowd.add(QRect(10'000'000, 0, 0, 0));

    const Effort effort = crowd.effort(pixel(1290, 2570));

    QCOMPARE(effort.compared, 4L);
    QCOMPARE(effort.visited, 1L + 1L + 1L);
}

void tst_ChildGrid::polygonIsTurnedToInEverySearchOnlyForItsChildren_data()
{
    QTest::addColumn<bool>("hasLayout");
    QTest::newRow("without a layout") << false;
    QTest::newRow("with a layout") << true;
}

// They may lie outside, and a point in one of them is in the polygon.
void tst_ChildGrid::polygonIsTurnedToInEverySearchOnlyForItsChildren()
{
    QFETCH(bool, hasLayout);
    Crowd crowd;
    crowd.addField(100, 128);
    auto *polygon = new Polygon(nullptr);
    polygon->setLinePoints({QPoint(9000, 9000), QPoint(9050, 9000), QPoint(9000, 9050)});
    if (hasLayout)
        polygon->setLayoutManager(new XYLayout(polygon));
    polygon->rebuildPath();
    crowd.adopt(polygon);

    const Effort effort = crowd.effort(pixel(1290, 2570));

    QCOMPARE(effort.visited, 1L + 1L + (hasLayout ? 1L : 0L));
}

QTEST_MAIN(tst_ChildGrid)
#include "tst_childgrid.moc"
