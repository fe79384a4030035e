#include "layout_fixtures.h"

#include <figura/figure/ExclusionSearch.h>
#include <figura/layout/XYLayout.h>

#include <QRandomGenerator>
#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class ListSearch : public ITreeSearch
{
public:
    QList<const Figure *> rejected;
    QList<const Figure *> pruned;

    bool accept(const Figure *figure) const override { return !rejected.contains(figure); }
    bool prune(const Figure *figure) const override { return pruned.contains(figure); }
};

const ListSearch EVERYTHING;

struct PlacedFigure : Figure
{
    explicit PlacedFigure(const QRect &bounds) { setBounds(bounds); }
};

// Shows a figure that is no child of its own.
class FindingLayout : public XYLayout
{
public:
    explicit FindingLayout(Figure *found)
        : m_found(found)
    {
    }
    Figure *findDescendantAtExcluding(int /*x*/, int /*y*/,
                                      const ITreeSearch & /*search*/) const override
    {
        return m_found;
    }
    void findDescendantFigures(QList<Figure *> &result, const QRect & /*rect*/,
                               const ITreeSearch & /*search*/,
                               bool /*containedOnly*/) const override
    {
        result.append(m_found);
    }

private:
    Figure *m_found;
};

QList<Figure *> descendants(const Layout &layout, const QRect &rect, bool containedOnly,
                            const ITreeSearch &search = EVERYTHING)
{
    QList<Figure *> result;
    layout.findDescendantFigures(result, rect, search, containedOnly);
    return result;
}

} // namespace

class tst_LayoutSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void topmostChildIsTheOneAddedLast();
    void childInsertedAtTheBottomIsCovered();
    void hiddenChildIsNotHit();
    void pointBesideAllChildrenHitsNothing();
    void layoutWithoutChildrenHitsNothing();
    void searchGoesOnBelowARejectedChild();
    void prunedChildLetsTheOneBelowThrough();
    void descendantIsPreferredToItsAncestor();
    void pointIsInTheChildrensCoordinates();
    void excludedChildIsSeenThrough();

    void figuresAreListedFromBottomToTop();
    void hiddenChildIsNotListed();
    void listedFiguresAreAppended();
    void containedOnlyLeavesIntersectingChildrenOut();
    void searchAppliesToListedFigures();
    void descendantsStandBeforeTheirAncestor();

    void layoutOfTheApplicationIsAskedAlsoWithoutChildren();

    void hitsAgreeWithBruteForce();
};

void tst_LayoutSearch::topmostChildIsTheOneAddedLast()
{
    Scene<ProbeLayout> scene;
    PlacedFigure bottom(QRect(0, 0, 20, 20));
    PlacedFigure top(QRect(10, 10, 20, 20));
    scene.layout.add(&bottom);
    scene.layout.add(&top);

    QCOMPARE(scene.layout.findDescendantAtExcluding(15, 15, EVERYTHING), &top);
    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, EVERYTHING), &bottom);
    QCOMPARE(scene.layout.findDescendantAtExcluding(19, 19, EVERYTHING), &top);
    QCOMPARE(scene.layout.findDescendantAtExcluding(29, 29, EVERYTHING), &top);
}

void tst_LayoutSearch::childInsertedAtTheBottomIsCovered()
{
    Scene<ProbeLayout> scene;
    PlacedFigure first(QRect(0, 0, 20, 20));
    PlacedFigure second(QRect(0, 0, 20, 20));
    scene.layout.add(&first);

    scene.layout.add(&second, QVariant(), 0);

    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, EVERYTHING), &first);
}

void tst_LayoutSearch::hiddenChildIsNotHit()
{
    Scene<ProbeLayout> scene;
    PlacedFigure bottom(QRect(0, 0, 20, 20));
    PlacedFigure top(QRect(0, 0, 20, 20));
    scene.layout.add(&bottom);
    scene.layout.add(&top);

    top.setVisible(false);
    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, EVERYTHING), &bottom);

    bottom.setVisible(false);
    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, EVERYTHING), nullptr);
}

void tst_LayoutSearch::pointBesideAllChildrenHitsNothing()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    PlacedFigure child(QRect(0, 0, 20, 20));
    scene.layout.add(&child);

    QCOMPARE(scene.layout.findDescendantAtExcluding(20, 19, EVERYTHING), nullptr);
    QCOMPARE(scene.layout.findDescendantAtExcluding(-1, 0, EVERYTHING), nullptr);
}

void tst_LayoutSearch::layoutWithoutChildrenHitsNothing()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));

    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, EVERYTHING), nullptr);
    QCOMPARE(descendants(scene.layout, QRect(0, 0, 100, 100), false), QList<Figure *>());
}

void tst_LayoutSearch::searchGoesOnBelowARejectedChild()
{
    Scene<ProbeLayout> scene;
    PlacedFigure bottom(QRect(0, 0, 20, 20));
    PlacedFigure top(QRect(0, 0, 20, 20));
    scene.layout.add(&bottom);
    scene.layout.add(&top);
    ListSearch search;

    search.rejected = {&top};
    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, search), &bottom);

    search.rejected = {&top, &bottom};
    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, search), nullptr);
}

void tst_LayoutSearch::prunedChildLetsTheOneBelowThrough()
{
    Scene<ProbeLayout> scene;
    PlacedFigure bottom(QRect(0, 0, 20, 20));
    Scene<ProbeLayout> top(QRect(0, 0, 20, 20));
    PlacedFigure grandchild(QRect(0, 0, 20, 20));
    scene.layout.add(&bottom);
    scene.layout.add(&top.figure);
    top.layout.add(&grandchild);
    ListSearch search;
    search.pruned = {&top.figure};

    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, search), &bottom);
}

void tst_LayoutSearch::descendantIsPreferredToItsAncestor()
{
    Scene<ProbeLayout> scene;
    Scene<ProbeLayout> child(QRect(10, 10, 50, 50));
    PlacedFigure grandchild(QRect(5, 5, 10, 10));
    scene.layout.add(&child.figure);
    child.layout.add(&grandchild);

    QCOMPARE(scene.layout.findDescendantAtExcluding(20, 20, EVERYTHING), &grandchild);
    QCOMPARE(scene.layout.findDescendantAtExcluding(30, 30, EVERYTHING), &child.figure);
}

void tst_LayoutSearch::pointIsInTheChildrensCoordinates()
{
    Scene<ProbeLayout> scene(QRect(100, 200, 50, 50));
    PlacedFigure child(QRect(0, 0, 10, 10));
    scene.layout.add(&child);

    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, EVERYTHING), &child);
    QCOMPARE(scene.layout.findDescendantAtExcluding(105, 205, EVERYTHING), nullptr);
    QCOMPARE(scene.figure.findFigureAt(105, 205), &child);
}

void tst_LayoutSearch::excludedChildIsSeenThrough()
{
    Scene<ProbeLayout> scene;
    PlacedFigure bottom(QRect(0, 0, 20, 20));
    PlacedFigure top(QRect(0, 0, 20, 20));
    scene.layout.add(&bottom);
    scene.layout.add(&top);
    const ExclusionSearch search({&top});

    QCOMPARE(scene.layout.findDescendantAtExcluding(5, 5, search), &bottom);
}

void tst_LayoutSearch::figuresAreListedFromBottomToTop()
{
    Scene<ProbeLayout> scene;
    PlacedFigure a(QRect(0, 0, 20, 20));
    PlacedFigure b(QRect(10, 10, 20, 20));
    PlacedFigure outside(QRect(50, 50, 20, 20));
    PlacedFigure c(QRect(15, 15, 20, 20));
    for (Figure *child : QList<Figure *>{&a, &b, &outside, &c})
        scene.layout.add(child);

    QCOMPARE(descendants(scene.layout, QRect(16, 16, 2, 2), false), (QList<Figure *>{&a, &b, &c}));
}

void tst_LayoutSearch::hiddenChildIsNotListed()
{
    Scene<ProbeLayout> scene;
    PlacedFigure a(QRect(0, 0, 20, 20));
    PlacedFigure b(QRect(0, 0, 20, 20));
    scene.layout.add(&a);
    scene.layout.add(&b);
    a.setVisible(false);

    QCOMPARE(descendants(scene.layout, QRect(0, 0, 50, 50), false), QList<Figure *>{&b});
}

void tst_LayoutSearch::listedFiguresAreAppended()
{
    Scene<ProbeLayout> scene;
    Figure already;
    PlacedFigure child(QRect(0, 0, 20, 20));
    scene.layout.add(&child);
    QList<Figure *> result{&already};

    scene.layout.findDescendantFigures(result, QRect(0, 0, 5, 5), EVERYTHING, false);

    QCOMPARE(result, (QList<Figure *>{&already, &child}));
}

void tst_LayoutSearch::containedOnlyLeavesIntersectingChildrenOut()
{
    Scene<ProbeLayout> scene;
    PlacedFigure inside(QRect(5, 5, 10, 10));
    PlacedFigure across(QRect(10, 10, 50, 50));
    scene.layout.add(&inside);
    scene.layout.add(&across);

    QCOMPARE(descendants(scene.layout, QRect(5, 5, 10, 10), true), QList<Figure *>{&inside});
    QCOMPARE(descendants(scene.layout, QRect(5, 5, 10, 10), false),
             (QList<Figure *>{&inside, &across}));
}

void tst_LayoutSearch::searchAppliesToListedFigures()
{
    Scene<ProbeLayout> scene;
    Scene<ProbeLayout> rejected(QRect(0, 0, 20, 20));
    Scene<ProbeLayout> pruned(QRect(0, 0, 20, 20));
    PlacedFigure below(QRect(0, 0, 10, 10));
    PlacedFigure hiddenBelow(QRect(0, 0, 10, 10));
    scene.layout.add(&rejected.figure);
    scene.layout.add(&pruned.figure);
    rejected.layout.add(&below);
    pruned.layout.add(&hiddenBelow);
    ListSearch search;
    search.rejected = {&rejected.figure};
    search.pruned = {&pruned.figure};

    QCOMPARE(descendants(scene.layout, QRect(0, 0, 5, 5), false, search), QList<Figure *>{&below});
}

void tst_LayoutSearch::descendantsStandBeforeTheirAncestor()
{
    Scene<ProbeLayout> scene;
    Scene<ProbeLayout> child(QRect(10, 10, 50, 50));
    PlacedFigure grandchild(QRect(0, 0, 10, 10));
    scene.layout.add(&child.figure);
    child.layout.add(&grandchild);

    QCOMPARE(descendants(scene.layout, QRect(10, 10, 5, 5), false),
             (QList<Figure *>{&grandchild, &child.figure}));
}

void tst_LayoutSearch::layoutOfTheApplicationIsAskedAlsoWithoutChildren()
{
    Figure elsewhere(nullptr, Qt::transparent);
    FindingLayout layout(&elsewhere);
    PlacedFigure figure(QRect(0, 0, 50, 50));
    figure.setLayoutManager(&layout);

    QCOMPARE(figure.findFigureAt(10, 10), &elsewhere);
    QCOMPARE(figure.findFigures(QRect(0, 0, 5, 5), false), (QList<Figure *>{&elsewhere, &figure}));
}

void tst_LayoutSearch::hitsAgreeWithBruteForce()
{
    QRandomGenerator random(20);
    Scene<ProbeLayout> scene(QRect(0, 0, 60, 60));
    std::vector<std::unique_ptr<PlacedFigure>> children;
    for (int i = 0; i < 40; ++i) {
        const QRect bounds(random.bounded(50), random.bounded(50), random.bounded(1, 15),
                           random.bounded(1, 15));
        children.push_back(std::make_unique<PlacedFigure>(bounds));
        children.back()->setVisible(random.bounded(4) != 0);
        scene.layout.add(children.back().get(), QVariant(), random.bounded(i + 1));
    }

    for (int y = -1; y < 66; ++y) {
        for (int x = -1; x < 66; ++x) {
            Figure *expected = nullptr;
            QList<Figure *> expectedList;
            for (Figure *child : scene.layout.childFigures()) {
                const QRect b = child->getBounds();
                if (!child->isVisible() || x < b.x() || x >= b.x() + b.width() || y < b.y() ||
                    y >= b.y() + b.height())
                    continue;
                expected = child;
                expectedList.append(child);
            }
            QCOMPARE(scene.layout.findDescendantAtExcluding(x, y, EVERYTHING), expected);
            QCOMPARE(descendants(scene.layout, QRect(x, y, 1, 1), false), expectedList);
        }
    }
}

QTEST_MAIN(tst_LayoutSearch)
#include "tst_layout_search.moc"
