#include "fixtures.h"

#include <figura/figure/ITreeSearch.h>
#include <figura/figure/SimpleBorder.h>

#include <QSet>
#include <QTest>

#include <memory>
#include <random>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// Accepts all but some figures, and skips others with all that is below them.
class SetSearch : public ITreeSearch
{
public:
    QSet<const Figure *> refused;
    QSet<const Figure *> pruned;
    mutable QList<const Figure *> askedToAccept;
    mutable QList<const Figure *> askedToPrune;

    bool accept(const Figure *figure) const override
    {
        askedToAccept.append(figure);
        return !refused.contains(figure);
    }

    bool prune(const Figure *figure) const override
    {
        askedToPrune.append(figure);
        return pruned.contains(figure);
    }
};

/// A random tree. What lies where is written down in root coordinates beside it, in paint order.
class RandomTree
{
public:
    struct Node
    {
        std::unique_ptr<ParentFigure> figure;
        QRect area; ///< In the coordinates of the root's bounds.
        int parent;
    };

    explicit RandomTree(unsigned int seed);

    QList<Figure *> found(const QPoint &point) const;
    QList<Figure *> found(const QRect &rect, bool containedOnly) const;

    std::vector<Node> nodes; ///< Every figure before its children: the order of painting.
    SetSearch search;

    int pick(int lowest, int highest);

private:
    void grow(int parent, const QPoint &origin, int depth);
    bool isSearched(int index, const std::function<bool(const QRect &)> &reaches) const;
    void addInPostOrder(int index, const std::function<bool(int)> &wanted,
                        QList<Figure *> *result) const;

    std::mt19937 m_random;
    std::vector<std::unique_ptr<SimpleBorder>> m_borders;
};

RandomTree::RandomTree(unsigned int seed)
    : m_random(seed)
{
    grow(-1, QPoint(0, 0), 0);
}

int RandomTree::pick(int lowest, int highest)
{
    return lowest + int(m_random() % unsigned(highest - lowest + 1));
}

// Builds a figure and what is below it; origin is where the coordinates of its bounds begin.
void RandomTree::grow(int parent, const QPoint &origin, int depth)
{
    const bool relative = pick(0, 3) != 0;
    auto owned = std::make_unique<ParentFigure>(relative);
    ParentFigure *figure = owned.get();
    const int margin = pick(0, 3);
    const int inset = pick(0, 3);
    m_borders.push_back(std::make_unique<SimpleBorder>(nullptr, inset));
    figure->setBorder(m_borders.back().get());
    figure->setMargin(margin);

    const QRect bounds =
        depth == 0
            ? QRect(20, 30, 200, 200)
            : QRect(QPoint(pick(-20, 60), pick(-20, 60)) - origin + nodes[parent].area.topLeft(),
                    QSize(pick(1, 120), pick(1, 120)));
    figure->setBounds(bounds);
    if (pick(0, 9) == 0)
        figure->setVisible(false);
    if (pick(0, 4) == 0)
        search.refused.insert(figure);
    if (pick(0, 29) == 0)
        search.pruned.insert(figure);
    if (parent >= 0)
        nodes[parent].figure->add(figure);

    const int index = int(nodes.size());
    nodes.push_back({std::move(owned), bounds.translated(origin), parent});
    const QPoint shift(margin + inset, margin + inset);
    const QPoint childOrigin = relative ? nodes[index].area.topLeft() + shift : origin;
    const int children = depth < 4 ? pick(depth == 0 ? 3 : 0, depth == 0 ? 6 : 3) : 0;
    for (int i = 0; i < children; ++i)
        grow(index, childOrigin, depth + 1);
}

// A figure is looked at when the search reaches it and everything above it.
bool RandomTree::isSearched(int index, const std::function<bool(const QRect &)> &reaches) const
{
    for (int i = index; i >= 0; i = nodes[i].parent) {
        Figure *figure = nodes[i].figure.get();
        const bool shown = nodes[i].parent < 0 || figure->isVisible();
        if (!shown || search.pruned.contains(figure) || !reaches(nodes[i].area))
            return false;
    }
    return true;
}

// Of all that lie at the point, the one that is painted last.
QList<Figure *> RandomTree::found(const QPoint &point) const
{
    const auto reaches = [&](const QRect &area) { return area.contains(point); };
    for (int i = int(nodes.size()) - 1; i >= 0; --i) {
        Figure *figure = nodes[i].figure.get();
        if (isSearched(i, reaches) && !search.refused.contains(figure))
            return {figure};
    }
    return {};
}

QList<Figure *> RandomTree::found(const QRect &rect, bool containedOnly) const
{
    const auto reaches = [&](const QRect &area) { return area.intersects(rect); };
    const auto wanted = [&](int i) {
        return isSearched(i, reaches) && !search.refused.contains(nodes[i].figure.get()) &&
               (!containedOnly || rect.contains(nodes[i].area));
    };
    QList<Figure *> result;
    addInPostOrder(0, wanted, &result);
    return result;
}

void RandomTree::addInPostOrder(int index, const std::function<bool(int)> &wanted,
                                QList<Figure *> *result) const
{
    for (int i = index + 1; i < int(nodes.size()); ++i) {
        if (nodes[i].parent == index)
            addInPostOrder(i, wanted, result);
    }
    if (wanted(index))
        result->append(nodes[index].figure.get());
}

} // namespace

class tst_Figure_HitTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void edgesBelongToTheFigure_data();
    void edgesBelongToTheFigure();
    void containedMeansWhollyInsideEdgesIncluded_data();
    void containedMeansWhollyInsideEdgesIncluded();
    void intersectingMeansOnePixelInCommon_data();
    void intersectingMeansOnePixelInCommon();
    void testsUseTheVirtualBounds();

    void figureIsFoundUpToItsLastPixel();
    void descendantsArePreferredToTheirAncestors();
    void laterSiblingIsPreferred();
    void childOutsideItsParentIsNotFound();
    void searchDescendsInChildCoordinates();
    void refusedFigureLeadsToItsDescendantsOrToWhatIsBelow();
    void prunedFigureHidesItsDescendants();
    void prunedRootGivesNothing();
    void refusedRootWithoutAHitGivesNothing();
    void searchIsNotAskedAboutFiguresThatAreMissed();
    void figureWithoutALayoutIsItsOwnAnswer();
    void allFormsOfFindFigureAtAgree();
    void excludedFiguresAreInvisibleWithAllBelowThem();

    void figuresInARectComeDescendantsFirst();
    void figuresInARectMayBeFoundWithoutTheirParent();
    void figuresInARectObeyTheSearch();
    void figuresInARectAreAppended();
    void figuresInARectWithoutASearchAreAll();

    void randomTreesEqualBruteForceAtPoints();
    void randomTreesEqualBruteForceInRectangles();
};

void tst_Figure_HitTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Figure_HitTest::edgesBelongToTheFigure_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("contained");

    QTest::newRow("top left") << QPoint(10, 20) << true;
    QTest::newRow("bottom right") << QPoint(39, 59) << true;
    QTest::newRow("left of it") << QPoint(9, 30) << false;
    QTest::newRow("above it") << QPoint(20, 19) << false;
    QTest::newRow("right of it") << QPoint(40, 30) << false;
    QTest::newRow("below it") << QPoint(20, 60) << false;
}

void tst_Figure_HitTest::edgesBelongToTheFigure()
{
    QFETCH(QPoint, point);
    Figure figure;
    figure.setBounds(QRect(10, 20, 30, 40));

    QTEST(figure.contains(point), "contained");
}

void tst_Figure_HitTest::containedMeansWhollyInsideEdgesIncluded_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<bool>("contained");

    QTest::newRow("the bounds themselves") << QRect(10, 20, 30, 40) << true;
    QTest::newRow("larger") << QRect(0, 0, 100, 100) << true;
    QTest::newRow("a pixel short on the left") << QRect(11, 20, 29, 40) << false;
    QTest::newRow("a pixel short at the bottom") << QRect(10, 20, 30, 39) << false;
}

void tst_Figure_HitTest::containedMeansWhollyInsideEdgesIncluded()
{
    QFETCH(QRect, rect);
    Figure figure;
    figure.setBounds(QRect(10, 20, 30, 40));

    QTEST(figure.isContained(rect), "contained");
}

void tst_Figure_HitTest::intersectingMeansOnePixelInCommon_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<bool>("intersecting");

    QTest::newRow("inside") << QRect(15, 25, 1, 1) << true;
    QTest::newRow("around") << QRect(0, 0, 100, 100) << true;
    QTest::newRow("last pixel") << QRect(39, 59, 10, 10) << true;
    QTest::newRow("beside") << QRect(40, 20, 10, 40) << false;
    QTest::newRow("below") << QRect(10, 60, 30, 10) << false;
}

void tst_Figure_HitTest::intersectingMeansOnePixelInCommon()
{
    QFETCH(QRect, rect);
    Figure figure;
    figure.setBounds(QRect(10, 20, 30, 40));

    QTEST(figure.isIntersecting(rect), "intersecting");
}

void tst_Figure_HitTest::testsUseTheVirtualBounds()
{
    class Elsewhere : public Figure
    {
    public:
        QRect getBounds() override { return QRect(500, 500, 10, 10); }
    };
    Elsewhere figure;

    QVERIFY(figure.contains(QPoint(505, 505)));
    QVERIFY(figure.isContained(QRect(500, 500, 10, 10)));
    QVERIFY(figure.isIntersecting(QRect(509, 509, 5, 5)));
}

void tst_Figure_HitTest::figureIsFoundUpToItsLastPixel()
{
    Figure figure;
    figure.setBounds(QRect(10, 20, 30, 40));

    QCOMPARE(figure.findFigureAt(39, 59), &figure);
    QCOMPARE(figure.findFigureAt(40, 59), nullptr);
    QCOMPARE(figure.findFigureAt(39, 60), nullptr);
}

void tst_Figure_HitTest::descendantsArePreferredToTheirAncestors()
{
    ParentFigure root;
    ParentFigure child;
    Figure grandchild;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&child);
    child.setBounds(QRect(10, 10, 50, 50));
    child.add(&grandchild);
    grandchild.setBounds(QRect(10, 10, 10, 10));

    QCOMPARE(root.findFigureAt(25, 25), &grandchild);
    QCOMPARE(root.findFigureAt(15, 15), &child);
    QCOMPARE(root.findFigureAt(5, 5), &root);
}

void tst_Figure_HitTest::laterSiblingIsPreferred()
{
    ParentFigure root;
    Figure bottom;
    Figure top;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&bottom);
    root.add(&top);
    bottom.setBounds(QRect(10, 10, 20, 20));
    top.setBounds(QRect(20, 20, 20, 20));

    QCOMPARE(root.findFigureAt(25, 25), &top);
    QCOMPARE(root.findFigureAt(15, 15), &bottom);
}

void tst_Figure_HitTest::childOutsideItsParentIsNotFound()
{
    ParentFigure root;
    Figure child;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&child);
    child.setBounds(QRect(150, 0, 10, 10));

    QCOMPARE(root.findFigureAt(155, 5), nullptr);
    QCOMPARE(root.findFigures(QRect(150, 0, 10, 10), false), QList<Figure *>());
}

void tst_Figure_HitTest::searchDescendsInChildCoordinates()
{
    SimpleBorder border(nullptr, 2);
    ParentFigure root;
    ParentFigure sharing(false);
    Figure leaf;
    root.setBorder(&border);
    root.setMargin(3);
    root.setBounds(QRect(1000, 2000, 100, 100));
    root.add(&sharing);
    sharing.setBounds(QRect(10, 20, 50, 50));
    sharing.add(&leaf);
    leaf.setBounds(QRect(30, 40, 1, 1));

    QCOMPARE(root.findFigureAt(1035, 2045), &leaf);
    QCOMPARE(root.findFigureAt(1034, 2045), &sharing);
    QCOMPARE(root.findFigureAt(1014, 2045), &root);
}

void tst_Figure_HitTest::refusedFigureLeadsToItsDescendantsOrToWhatIsBelow()
{
    ParentFigure root;
    Figure below;
    ParentFigure refused;
    Figure inside;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&below);
    root.add(&refused);
    refused.add(&inside);
    below.setBounds(QRect(0, 0, 50, 50));
    refused.setBounds(QRect(0, 0, 50, 50));
    inside.setBounds(QRect(0, 0, 10, 10));
    SetSearch search;
    search.refused = {&refused};

    QCOMPARE(root.findFigureAt(5, 5, search), &inside);
    QCOMPARE(root.findFigureAt(20, 20, search), &below);
}

void tst_Figure_HitTest::prunedFigureHidesItsDescendants()
{
    ParentFigure root;
    ParentFigure pruned;
    Figure inside;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&pruned);
    pruned.add(&inside);
    pruned.setBounds(QRect(0, 0, 50, 50));
    inside.setBounds(QRect(0, 0, 10, 10));
    SetSearch search;
    search.pruned = {&pruned};

    QCOMPARE(root.findFigureAt(5, 5, search), &root);
    QVERIFY(!search.askedToPrune.contains(&inside));
    QVERIFY(!search.askedToAccept.contains(&inside));
}

void tst_Figure_HitTest::prunedRootGivesNothing()
{
    ParentFigure root;
    Figure child;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&child);
    child.setBounds(QRect(0, 0, 50, 50));
    SetSearch search;
    search.pruned = {&root};
    QList<Figure *> result;

    QCOMPARE(root.findFigureAt(5, 5, search), nullptr);
    root.findFigures(result, QRect(0, 0, 100, 100), search, false);
    QCOMPARE(result, QList<Figure *>());
}

void tst_Figure_HitTest::refusedRootWithoutAHitGivesNothing()
{
    ParentFigure root;
    root.setBounds(QRect(0, 0, 100, 100));
    SetSearch search;
    search.refused = {&root};

    QCOMPARE(root.findFigureAt(5, 5, search), nullptr);
}

void tst_Figure_HitTest::searchIsNotAskedAboutFiguresThatAreMissed()
{
    ParentFigure root;
    Figure hit;
    Figure missed;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&hit);
    root.add(&missed);
    hit.setBounds(QRect(0, 0, 10, 10));
    missed.setBounds(QRect(50, 50, 10, 10));
    SetSearch search;

    root.findFigureAt(5, 5, search);

    QCOMPARE(search.askedToPrune, QList<const Figure *>({&root, &hit}));
    QCOMPARE(search.askedToAccept, QList<const Figure *>({&hit}));
}

void tst_Figure_HitTest::figureWithoutALayoutIsItsOwnAnswer()
{
    Figure figure;
    figure.setBounds(QRect(0, 0, 10, 10));

    QCOMPARE(figure.findFigureAt(5, 5), &figure);
    QCOMPARE(figure.findFigures(QRect(5, 5, 1, 1), false), QList<Figure *>({&figure}));
}

void tst_Figure_HitTest::allFormsOfFindFigureAtAgree()
{
    ParentFigure root;
    Figure child;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&child);
    child.setBounds(QRect(10, 20, 5, 5));

    QCOMPARE(root.findFigureAt(QPoint(12, 23)), &child);
    QCOMPARE(root.findFigureAt(12, 23), &child);
    QCOMPARE(root.findFigureAt(12, 23, SetSearch()), &child);
    QCOMPARE(root.findFigureAtExcluding(12, 23, {}), &child);
}

void tst_Figure_HitTest::excludedFiguresAreInvisibleWithAllBelowThem()
{
    ParentFigure root;
    Figure below;
    ParentFigure excluded;
    Figure inside;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&below);
    root.add(&excluded);
    excluded.add(&inside);
    below.setBounds(QRect(0, 0, 50, 50));
    excluded.setBounds(QRect(0, 0, 50, 50));
    inside.setBounds(QRect(0, 0, 10, 10));

    QCOMPARE(root.findFigureAtExcluding(5, 5, {}), &inside);
    QCOMPARE(root.findFigureAtExcluding(5, 5, {&excluded}), &below);
    QCOMPARE(root.findFigureAtExcluding(5, 5, {&inside}), &excluded);
    QCOMPARE(root.findFigureAtExcluding(5, 5, {&below, &excluded}), &root);
    QCOMPARE(root.findFigureAtExcluding(5, 5, {&root}), nullptr);
}

void tst_Figure_HitTest::figuresInARectComeDescendantsFirst()
{
    ParentFigure root;
    ParentFigure first;
    Figure second;
    Figure inFirst;
    Figure outside;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&first);
    root.add(&second);
    root.add(&outside);
    first.add(&inFirst);
    first.setBounds(QRect(0, 0, 20, 20));
    inFirst.setBounds(QRect(0, 0, 20, 20));
    second.setBounds(QRect(10, 10, 20, 20));
    outside.setBounds(QRect(80, 80, 20, 20));

    QCOMPARE(root.findFigures(QRect(15, 15, 5, 5), false),
             QList<Figure *>({&inFirst, &first, &second, &root}));
}

void tst_Figure_HitTest::figuresInARectMayBeFoundWithoutTheirParent()
{
    ParentFigure root;
    Figure inside;
    Figure across;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&inside);
    root.add(&across);
    inside.setBounds(QRect(10, 10, 10, 10));
    across.setBounds(QRect(15, 15, 30, 30));

    QCOMPARE(root.findFigures(QRect(5, 5, 20, 20), true), QList<Figure *>({&inside}));
    QCOMPARE(root.findFigures(QRect(-5, -5, 200, 200), true),
             QList<Figure *>({&inside, &across, &root}));
}

void tst_Figure_HitTest::figuresInARectObeyTheSearch()
{
    ParentFigure root;
    ParentFigure refused;
    Figure inRefused;
    ParentFigure pruned;
    Figure inPruned;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&refused);
    root.add(&pruned);
    refused.add(&inRefused);
    pruned.add(&inPruned);
    for (Figure *figure : QList<Figure *>{&refused, &inRefused, &pruned, &inPruned})
        figure->setBounds(QRect(0, 0, 50, 50));
    SetSearch search;
    search.refused = {&refused};
    search.pruned = {&pruned};
    QList<Figure *> result;

    root.findFigures(result, QRect(0, 0, 100, 100), search, false);

    QCOMPARE(result, QList<Figure *>({&inRefused, &root}));
}

void tst_Figure_HitTest::figuresInARectAreAppended()
{
    Figure before;
    Figure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    QList<Figure *> result{&before};

    figure.findFigures(result, QRect(0, 0, 10, 10), SetSearch(), true);

    QCOMPARE(result, QList<Figure *>({&before, &figure}));
}

void tst_Figure_HitTest::figuresInARectWithoutASearchAreAll()
{
    ParentFigure root;
    Figure child;
    root.setBounds(QRect(10, 10, 100, 100));
    root.add(&child);
    child.setBounds(QRect(0, 0, 10, 10));

    QCOMPARE(root.findFigures(QRect(0, 0, 500, 500), false), QList<Figure *>({&child, &root}));
    QCOMPARE(root.findFigures(QRect(0, 0, 5, 5), false), QList<Figure *>());
}

void tst_Figure_HitTest::randomTreesEqualBruteForceAtPoints()
{
    int hits = 0;
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        RandomTree tree(seed);
        for (int i = 0; i < 100; ++i) {
            const QPoint point(tree.pick(15, 225), tree.pick(25, 235));
            Figure *found = tree.nodes[0].figure->findFigureAt(point.x(), point.y(), tree.search);
            const QList<Figure *> expected = tree.found(point);
            QVERIFY2(found == expected.value(0), qPrintable(QString::number(seed)));
            hits += found && found != tree.nodes[0].figure.get() ? 1 : 0;
        }
    }
    QVERIFY2(hits > 3000, qPrintable(QString::number(hits)));
}

void tst_Figure_HitTest::randomTreesEqualBruteForceInRectangles()
{
    qsizetype hits = 0;
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        RandomTree tree(seed);
        for (int i = 0; i < 50; ++i) {
            const QRect rect(tree.pick(-50, 150), tree.pick(-50, 150), tree.pick(1, 300),
                             tree.pick(1, 300));
            for (const bool containedOnly : {false, true}) {
                QList<Figure *> found;
                tree.nodes[0].figure->findFigures(found, rect, tree.search, containedOnly);
                QVERIFY2(found == tree.found(rect, containedOnly),
                         qPrintable(QString::number(seed)));
                hits += containedOnly ? found.size() : 0;
            }
        }
    }
    QVERIFY2(hits > 3000, qPrintable(QString::number(hits)));
}

QTEST_MAIN(tst_Figure_HitTest)
#include "tst_figure_hittest.moc"
