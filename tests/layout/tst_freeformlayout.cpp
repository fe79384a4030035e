#include "layout_fixtures.h"
#include "locatorprobe.h"

#include <figura/figure/SimpleBorder.h>
#include <figura/layout/FreeformLayout.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class OpenFreeformLayout : public Opened<FreeformLayout>
{
public:
    using Opened<FreeformLayout>::Opened;
    using FreeformLayout::calculateFreeformExtent;
};

// Tells how many listen to its moves.
class HeardFigure : public SizedFigure
{
public:
    int listeners() const { return receivers(SIGNAL(figureMoved(Figure *))); }
};

struct FreeformScene
{
    explicit FreeformScene(bool contentMonitored = true)
        : layout(nullptr, contentMonitored)
    {
        figure.setLayoutManager(&layout);
        figure.setBounds(QRect(0, 0, 100, 100));
    }

    HeardFigure figure;
    OpenFreeformLayout layout;
};

void addBothForms()
{
    QTest::addColumn<bool>("withStretches");
    QTest::newRow("with a constraint") << false;
    QTest::newRow("with stretches") << true;
}

bool addChild(Layout *layout, Figure *child, bool withStretches)
{
    return withStretches ? layout->add(child, 1, 2, -1) : layout->add(child, QRect(0, 0, 10, 10));
}

} // namespace

class tst_FreeformLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void layoutIsAbsoluteAndClips();
    void contentIsMonitoredByDefault();
    void originIsAlwaysZero();

    void extentIsTheUnionOfTheRectangles();
    void extentMayLieAtNegativeCoordinates();
    void extentDoesNotReachForTheOrigin();
    void extentRoundsFloatingRectangles();
    void extentResolvesUnsetSizes();
    void extentResolvesHoweverManySizesAreUnset_data();
    void extentResolvesHoweverManySizesAreUnset();
    void extentCountsRectanglesOnly_data();
    void extentCountsRectanglesOnly();
    void extentSkipsHiddenChildren();
    void extentWithoutContainerIsInvalid();
    void extentWithoutChildrenIsInvalid();
    void extentIsGrownByTheBorder();
    void extentOfAnEmptyFigureIsItsBorder();
    void extentIsResolvedByTheChild();

    void extentIsCachedUntilExamined();
    void invalidExtentIsComputedAgain();
    void examiningAnnouncesChangesOnly();
    void examiningStoresBeforeItAnnounces();
    void examiningForTheFirstTimeAnnouncesAnyExtent();
    void invalidateKeepsTheExtent();
    void performLayoutDoesNotRefreshTheExtent();

    void addingDoesNotExamineTheExtent_data() { addBothForms(); }
    void addingDoesNotExamineTheExtent();
    void addResultIsPassedOn();
    void removingTheDefiningChildAnnouncesOnce();
    void removingTheLastChildAnnouncesAnInvalidExtent();
    void removingACoveredChildAnnouncesNothing();
    void removingBeforeTheFirstExtentComputesIt();
    void removingAStrangerDoesNotExamine();
    void destroyedChildCountsNoMore();
    void childThatComesAndGoesLeavesNoTrace_data();
    void childThatComesAndGoesLeavesNoTrace();

    void extentFollowsAMovedChild_data() { addBothForms(); }
    void extentFollowsAMovedChild();
    void extentStaysBeforeTheFirstLayout();
    void unmonitoredExtentStays_data() { addBothForms(); }
    void unmonitoredExtentStays();
    void addConnectsAChildWhileMonitored_data() { addBothForms(); }
    void addConnectsAChildWhileMonitored();
    void refusedChildIsNotConnected();
    void removeDisconnectsTheChild();

    void monitoringWatchesTheContainerItself();
    void monitoringStopsWatchingTheContainer();
    void monitoringKeepsTheChildrenConnected();
    void monitoringTwiceConnectsOnce();
    void monitoringFromTheStartDoesNotWatchTheContainer();
    void monitoringWithoutContainerIsOnlyStored();

    void minimumSizeIsTheSizeOfTheExtent();
    void minimumSizeWithoutChildrenIsZero();
    void preferredSizeIsTheMinimumWithoutAllowance();
    void sizesUseTheCachedExtent();
    void rectanglesArePlacedAsInAnXYLayout();
    void movedChildKeepsItsNewPlace();

private:
    QObject m_owner;
    LocatorProbe m_locator{QRect(), &m_owner};
};

void tst_FreeformLayout::layoutIsAbsoluteAndClips()
{
    FreeformScene scene;

    QVERIFY(!scene.layout.isRelativeLayout());
    QVERIFY(scene.layout.isClipping());
}

void tst_FreeformLayout::contentIsMonitoredByDefault()
{
    QVERIFY(FreeformLayout().isContentMonitored());
    QVERIFY(FreeformLayout(nullptr, true).isContentMonitored());
    QVERIFY(!FreeformLayout(nullptr, false).isContentMonitored());
}

void tst_FreeformLayout::originIsAlwaysZero()
{
    SimpleBorder border(nullptr, 2);
    FreeformScene scene;
    scene.figure.setBounds(QRect(10, 20, 30, 40));
    scene.figure.setBorder(&border);
    scene.figure.setMargin(3);

    QCOMPARE(scene.layout.getOrigin(&scene.figure), QPoint(0, 0));
    QCOMPARE(scene.layout.getOrigin(nullptr), QPoint(0, 0));
}

void tst_FreeformLayout::extentIsTheUnionOfTheRectangles()
{
    FreeformScene scene;
    SizedFigure a;
    SizedFigure b;
    scene.layout.add(&a, QRect(10, 20, 30, 40));
    scene.layout.add(&b, QRect(100, 5, 10, 10));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 5, 100, 55));
    QCOMPARE(scene.layout.calculateFreeformExtent(), QRect(10, 5, 100, 55));
}

void tst_FreeformLayout::extentMayLieAtNegativeCoordinates()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(-50, -50, 10, 10));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(-50, -50, 10, 10));
}

void tst_FreeformLayout::extentDoesNotReachForTheOrigin()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(500, 600, 10, 20));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(500, 600, 10, 20));
}

void tst_FreeformLayout::extentRoundsFloatingRectangles()
{
    const QRectF given(9.6, -3.7, 10.4, 20.5);
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, given);

    QCOMPARE(scene.layout.getFreeformExtent(), given.toRect());
}

void tst_FreeformLayout::extentResolvesUnsetSizes()
{
    FreeformScene scene;
    SizedFigure child(QSize(30, 20));
    scene.layout.add(&child, QRect(5, 6, 0, 7));
    QCOMPARE(scene.layout.getConstraint(&child), QVariant(QRect(5, 6, 0, 7)));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(5, 6, 30, 7));
}

void tst_FreeformLayout::extentResolvesHoweverManySizesAreUnset_data()
{
    QTest::addColumn<int>("count");
    for (int count = 0; count <= 3; ++count)
        QTest::addRow("%d", count) << count;
}

// In a layout of exactly this class, which keeps what children of its own kind contribute.
void tst_FreeformLayout::extentResolvesHoweverManySizesAreUnset()
{
    QFETCH(int, count);
    Figure container;
    FreeformLayout layout(&container);
    container.setLayoutManager(&layout);
    const auto add = [&](const QRect &rect) {
        auto *child = new Figure(&container);
        child->setPreferredSize(QSize(30, 20));
        layout.add(child, rect);
    };

    add(QRect(0, 0, 30, 20));
    for (int i = 1; i <= count; ++i)
        add(QRect(100 * i, 0, 0, 0));

    QCOMPARE(layout.getFreeformExtent(), QRect(0, 0, 100 * count + 30, 20));
}

void tst_FreeformLayout::extentCountsRectanglesOnly_data()
{
    QTest::addColumn<QVariant>("constraint");
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("size") << QVariant(QSize(500, 500));
    QTest::newRow("text") << QVariant(QStringLiteral("here"));
    QTest::newRow("locator") << asConstraint(&m_locator);
}

void tst_FreeformLayout::extentCountsRectanglesOnly()
{
    QFETCH(QVariant, constraint);
    FreeformScene scene;
    SizedFigure counting;
    SizedFigure other;
    scene.layout.add(&counting, QRect(10, 20, 30, 40));
    scene.layout.add(&other, constraint);
    other.setBounds(QRect(200, 200, 10, 10));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::extentSkipsHiddenChildren()
{
    FreeformScene scene;
    SizedFigure shown;
    SizedFigure hidden;
    scene.layout.add(&shown, QRect(10, 20, 30, 40));
    scene.layout.add(&hidden, QRect(100, 5, 10, 10));
    hidden.setVisible(false);

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::extentWithoutContainerIsInvalid()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.setFigure(nullptr);

    QVERIFY(!scene.layout.calculateFreeformExtent().isValid());
}

void tst_FreeformLayout::extentWithoutChildrenIsInvalid()
{
    FreeformScene scene;

    QVERIFY(!scene.layout.getFreeformExtent().isValid());
}

// The left and right insets cross over on purpose, here as everywhere.
void tst_FreeformLayout::extentIsGrownByTheBorder()
{
    SimpleBorder border;
    border.setInsets(Insets(1, 2, 3, 4));
    FreeformScene scene;
    scene.figure.setBorder(&border);
    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(6, 19, 36, 44));
}

void tst_FreeformLayout::extentOfAnEmptyFigureIsItsBorder()
{
    SimpleBorder border(nullptr, 2);
    FreeformScene scene;
    scene.figure.setBorder(&border);

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(-2, -2, 4, 4));
}

void tst_FreeformLayout::extentIsResolvedByTheChild()
{
    class Snapping : public SizedFigure
    {
    public:
        QRect resolveBounds(const QRect &rect) override
        {
            return QRect(rect.topLeft(), QSize(64, 64));
        }
    };
    FreeformScene scene;
    Snapping child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 64, 64));
}

void tst_FreeformLayout::extentIsCachedUntilExamined()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.getFreeformExtent();
    scene.layout.getHelper(&child)->setConstraint(QRect(1, 2, 3, 4));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
    scene.layout.examineExtent();
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(1, 2, 3, 4));
}

void tst_FreeformLayout::invalidExtentIsComputedAgain()
{
    FreeformScene scene;
    SizedFigure child;
    QVERIFY(!scene.layout.getFreeformExtent().isValid());

    scene.layout.add(&child, QRect(10, 20, 30, 40));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::examiningAnnouncesChangesOnly()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.getFreeformExtent();
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    scene.layout.examineExtent();
    QCOMPARE(changed.count(), 0);

    scene.layout.getHelper(&child)->setConstraint(QRect(1, 2, 3, 4));
    scene.layout.examineExtent();
    scene.layout.examineExtent();
    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayout::examiningStoresBeforeItAnnounces()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.getFreeformExtent();
    QRect extentThen;
    connect(&scene.layout, &FreeformLayout::extentChanged, this,
            [&] { extentThen = scene.layout.getFreeformExtent(); });

    scene.layout.getHelper(&child)->setConstraint(QRect(1, 2, 3, 4));
    scene.layout.examineExtent();

    QCOMPARE(extentThen, QRect(1, 2, 3, 4));
}

void tst_FreeformLayout::examiningForTheFirstTimeAnnouncesAnyExtent()
{
    FreeformScene scene;
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);
    scene.layout.examineExtent();
    QCOMPARE(changed.count(), 0);

    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.examineExtent();

    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayout::invalidateKeepsTheExtent()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.getFreeformExtent();
    scene.layout.getHelper(&child)->setConstraint(QRect(1, 2, 3, 4));

    scene.figure.invalidate();

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::performLayoutDoesNotRefreshTheExtent()
{
    FreeformScene scene(false);
    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.getFreeformExtent();
    scene.layout.getHelper(&child)->setConstraint(QRect(1, 2, 3, 4));
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    scene.figure.invalidate();
    scene.figure.validate();

    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
    QCOMPARE(changed.count(), 0);
}

void tst_FreeformLayout::addingDoesNotExamineTheExtent()
{
    QFETCH(bool, withStretches);
    FreeformScene scene;
    SizedFigure first;
    SizedFigure second;
    scene.layout.add(&first, QRect(50, 50, 30, 40));
    scene.layout.getFreeformExtent();
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    QVERIFY(addChild(&scene.layout, &second, withStretches));

    QCOMPARE(changed.count(), 0);
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(50, 50, 30, 40));
}

void tst_FreeformLayout::addResultIsPassedOn()
{
    FreeformScene scene;
    SizedFigure child;
    QVERIFY(scene.layout.add(&child, QRect(1, 2, 3, 4)));

    QVERIFY(!scene.layout.add(&child, QRect(1, 2, 3, 4)));
    QVERIFY(!scene.layout.add(&child, 1, 2, -1));
    QVERIFY(!scene.layout.add(nullptr, QRect(1, 2, 3, 4)));
    QVERIFY(!scene.layout.add(nullptr, 1, 2, -1));
}

void tst_FreeformLayout::removingTheDefiningChildAnnouncesOnce()
{
    FreeformScene scene;
    SizedFigure inner;
    SizedFigure outer;
    scene.layout.add(&inner, QRect(10, 10, 10, 10));
    scene.layout.add(&outer, QRect(0, 0, 100, 100));
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(0, 0, 100, 100));
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);
    QRect extentThen;
    connect(&scene.layout, &FreeformLayout::extentChanged, this,
            [&] { extentThen = scene.layout.getFreeformExtent(); });

    QVERIFY(scene.layout.remove(&outer));

    QCOMPARE(changed.count(), 1);
    QCOMPARE(extentThen, QRect(10, 10, 10, 10));
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 10, 10, 10));
}

void tst_FreeformLayout::removingTheLastChildAnnouncesAnInvalidExtent()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(0, 0, 100, 100));
    scene.layout.getFreeformExtent();
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    scene.layout.remove(&child);

    QCOMPARE(changed.count(), 1);
    QVERIFY(!scene.layout.getFreeformExtent().isValid());
}

void tst_FreeformLayout::removingACoveredChildAnnouncesNothing()
{
    FreeformScene scene;
    SizedFigure inner;
    SizedFigure outer;
    scene.layout.add(&inner, QRect(10, 10, 10, 10));
    scene.layout.add(&outer, QRect(0, 0, 100, 100));
    scene.layout.getFreeformExtent();
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    scene.layout.remove(&inner);

    QCOMPARE(changed.count(), 0);
}

void tst_FreeformLayout::removingBeforeTheFirstExtentComputesIt()
{
    FreeformScene scene;
    SizedFigure staying;
    SizedFigure leaving;
    scene.layout.add(&staying, QRect(10, 10, 10, 10));
    scene.layout.add(&leaving, QRect(0, 0, 100, 100));
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    scene.layout.remove(&leaving);
    QCOMPARE(changed.count(), 1);

    scene.layout.getHelper(&staying)->setConstraint(QRect(1, 2, 3, 4));
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 10, 10, 10));
}

void tst_FreeformLayout::removingAStrangerDoesNotExamine()
{
    FreeformScene scene;
    SizedFigure child;
    SizedFigure stranger;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.getFreeformExtent();
    scene.layout.getHelper(&child)->setConstraint(QRect(1, 2, 3, 4));
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    QVERIFY(!scene.layout.remove(&stranger));
    QVERIFY(!scene.layout.remove(nullptr));

    QCOMPARE(changed.count(), 0);
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::destroyedChildCountsNoMore()
{
    FreeformScene scene;
    SizedFigure staying;
    auto destroyed = std::make_unique<SizedFigure>();
    scene.layout.add(&staying, QRect(10, 10, 10, 10));
    scene.layout.add(destroyed.get(), QRect(0, 0, 100, 100));
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(0, 0, 100, 100));

    destroyed.reset();

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 10, 10, 10));
}

void tst_FreeformLayout::childThatComesAndGoesLeavesNoTrace_data()
{
    QTest::addColumn<int>("count");
    for (int count = 1; count <= 65; ++count)
        QTest::addRow("after %d others", count) << count;
}

// Nobody looks at the extent meanwhile.
void tst_FreeformLayout::childThatComesAndGoesLeavesNoTrace()
{
    QFETCH(int, count);
    Figure container;
    FreeformLayout layout; // itself, which takes shortcuts
    container.setLayoutManager(&layout);
    std::vector<std::unique_ptr<Figure>> others;
    for (int i = 0; i < count; ++i) {
        others.push_back(std::make_unique<Figure>());
        layout.add(others.back().get(), QRect(10 * i, 10, 10, 10));
    }
    const QRect extent(0, 10, 10 * count, 10);
    QCOMPARE(layout.getFreeformExtent(), extent);

    auto passing = std::make_unique<Figure>();
    layout.add(passing.get(), QRect(0, 0, 2000, 2000));
    passing.reset();
    layout.examineExtent();

    QCOMPARE(layout.getFreeformExtent(), extent);
}

void tst_FreeformLayout::extentFollowsAMovedChild()
{
    QFETCH(bool, withStretches);
    FreeformScene scene;
    SizedFigure child;
    QVERIFY(addChild(&scene.layout, &child, withStretches));
    scene.layout.setConstraint(&child, QRect(10, 20, 30, 40));
    scene.figure.validate();
    scene.layout.getFreeformExtent();
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    child.setBounds(QRect(-10, -20, 30, 40));

    QCOMPARE(changed.count(), 1);
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(-10, -20, 30, 40));
}

// The extent counts constraints, and those follow moves only after the first layout.
void tst_FreeformLayout::extentStaysBeforeTheFirstLayout()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.getFreeformExtent();
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    child.setBounds(QRect(-10, -20, 30, 40));

    QCOMPARE(changed.count(), 0);
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::unmonitoredExtentStays()
{
    QFETCH(bool, withStretches);
    FreeformScene scene(false);
    SizedFigure child;
    QVERIFY(addChild(&scene.layout, &child, withStretches));
    scene.layout.setConstraint(&child, QRect(10, 20, 30, 40));
    scene.figure.validate();
    scene.layout.getFreeformExtent();
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    child.setBounds(QRect(-10, -20, 30, 40));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));

    scene.layout.examineExtent();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(-10, -20, 30, 40));
}

void tst_FreeformLayout::addConnectsAChildWhileMonitored()
{
    QFETCH(bool, withStretches);
    FreeformScene monitored(true);
    FreeformScene unmonitored(false);
    HeardFigure watched;
    HeardFigure unwatched;
    // The watch over the constraint is one connection, that over the extent another.
    QCOMPARE(watched.listeners(), 0);

    QVERIFY(addChild(&monitored.layout, &watched, withStretches));
    QVERIFY(addChild(&unmonitored.layout, &unwatched, withStretches));

    QCOMPARE(watched.listeners(), 2);
    QCOMPARE(unwatched.listeners(), 1);
}

void tst_FreeformLayout::refusedChildIsNotConnected()
{
    FreeformScene scene;
    HeardFigure child;
    scene.layout.add(&child, QRect(0, 0, 10, 10));

    QVERIFY(!scene.layout.add(&child, QRect(0, 0, 10, 10)));
    QVERIFY(!scene.layout.add(&child, 1, 2, -1));

    QCOMPARE(child.listeners(), 2);
}

void tst_FreeformLayout::removeDisconnectsTheChild()
{
    FreeformScene scene;
    HeardFigure child;
    HeardFigure addedBefore;
    scene.layout.add(&child, QRect(0, 0, 10, 10));
    scene.layout.add(&addedBefore, QRect(0, 0, 10, 10));

    QVERIFY(scene.layout.remove(&child));
    QCOMPARE(child.listeners(), 0);

    scene.layout.setContentMonitored(false);
    QVERIFY(scene.layout.remove(&addedBefore));
    QCOMPARE(addedBefore.listeners(), 0);
}

// Switching watches the container, whereas add() connects the children; this stays so.
void tst_FreeformLayout::monitoringWatchesTheContainerItself()
{
    FreeformScene scene(false);
    SizedFigure child;
    scene.layout.add(&child, QRect(10, 20, 30, 40));
    scene.layout.getFreeformExtent();
    scene.layout.getHelper(&child)->setConstraint(QRect(1, 2, 3, 4));
    QSignalSpy changed(&scene.layout, &FreeformLayout::extentChanged);

    scene.layout.setContentMonitored(true);
    QVERIFY(scene.layout.isContentMonitored());
    QCOMPARE(changed.count(), 0);
    scene.figure.setBounds(QRect(5, 5, 100, 100));

    QCOMPARE(changed.count(), 1);
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(1, 2, 3, 4));
}

void tst_FreeformLayout::monitoringStopsWatchingTheContainer()
{
    FreeformScene scene(false);
    const int listeners = scene.figure.listeners();

    scene.layout.setContentMonitored(true);
    QCOMPARE(scene.figure.listeners(), listeners + 1);
    scene.layout.setContentMonitored(false);

    QVERIFY(!scene.layout.isContentMonitored());
    QCOMPARE(scene.figure.listeners(), listeners);
    scene.layout.setContentMonitored(false);
    QCOMPARE(scene.figure.listeners(), listeners);
}

void tst_FreeformLayout::monitoringKeepsTheChildrenConnected()
{
    FreeformScene scene(true);
    HeardFigure before;
    HeardFigure after;
    scene.layout.add(&before, QRect(0, 0, 10, 10));

    scene.layout.setContentMonitored(false);
    scene.layout.add(&after, QRect(0, 0, 10, 10));
    QCOMPARE(before.listeners(), 2);
    QCOMPARE(after.listeners(), 1);

    scene.layout.setContentMonitored(true);
    QCOMPARE(before.listeners(), 2);
    QCOMPARE(after.listeners(), 1);
}

void tst_FreeformLayout::monitoringTwiceConnectsOnce()
{
    FreeformScene scene(false);
    const int listeners = scene.figure.listeners();

    scene.layout.setContentMonitored(true);
    scene.layout.setContentMonitored(true);

    QCOMPARE(scene.figure.listeners(), listeners + 1);
}

void tst_FreeformLayout::monitoringFromTheStartDoesNotWatchTheContainer()
{
    FreeformScene monitored(true);
    FreeformScene unmonitored(false);
    QCOMPARE(monitored.figure.listeners(), unmonitored.figure.listeners());

    monitored.layout.setContentMonitored(true);
    QCOMPARE(monitored.figure.listeners(), unmonitored.figure.listeners());

    monitored.layout.setContentMonitored(false);
    monitored.layout.setContentMonitored(true);
    QCOMPARE(monitored.figure.listeners(), unmonitored.figure.listeners() + 1);
}

void tst_FreeformLayout::monitoringWithoutContainerIsOnlyStored()
{
    HeardFigure figure;
    FreeformLayout layout(nullptr, false);
    const int listeners = figure.listeners();

    layout.setContentMonitored(true);
    QVERIFY(layout.isContentMonitored());
    figure.setLayoutManager(&layout);

    QCOMPARE(figure.listeners(), listeners);
    layout.setContentMonitored(false);
    QVERIFY(!layout.isContentMonitored());
}

void tst_FreeformLayout::minimumSizeIsTheSizeOfTheExtent()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(-50, -60, 10, 20));

    QCOMPARE(scene.layout.getMinimumSize(), QSize(10, 20));
}

void tst_FreeformLayout::minimumSizeWithoutChildrenIsZero()
{
    FreeformScene scene;

    QCOMPARE(scene.layout.getMinimumSize(), QSize(0, 0));
    QCOMPARE(scene.layout.getPreferredSize(), QSize(0, 0));
}

void tst_FreeformLayout::preferredSizeIsTheMinimumWithoutAllowance()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(0, 0, 30, 40));
    QCOMPARE(scene.layout.getPreferredSize(), QSize(30, 40));

    scene.layout.getHelper(&child)->setConstraint(QRect(0, 0, 300, 400));
    scene.layout.examineExtent();

    QCOMPARE(scene.layout.getMinimumSize(), QSize(30, 40));
    QCOMPARE(scene.layout.calculatePreferredSize(), QSize(30, 40));
    QCOMPARE(scene.layout.calculateMinimumSize(), QSize(300, 400));
}

void tst_FreeformLayout::sizesUseTheCachedExtent()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(0, 0, 30, 40));
    scene.layout.getMinimumSize();
    scene.layout.getHelper(&child)->setConstraint(QRect(0, 0, 300, 400));

    scene.layout.invalidate();

    QCOMPARE(scene.layout.getMinimumSize(), QSize(30, 40));
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(0, 0, 30, 40));
}

void tst_FreeformLayout::rectanglesArePlacedAsInAnXYLayout()
{
    FreeformScene scene;
    scene.figure.setBounds(QRect(100, 200, 50, 50));
    SizedFigure child(QSize(30, 20), QSize(5, 6));
    scene.layout.add(&child, QRect(1, 2, -1, 4));

    QCOMPARE(scene.layout.getConstraint(&child), QVariant(QRect(1, 2, 30, 6)));
    scene.figure.validate();
    QCOMPARE(child.getBounds(), QRect(1, 2, 30, 6));
    QPoint corner(1, 2);
    QCOMPARE(child.translateToAbsolute(corner), QPoint(1, 2));
}

void tst_FreeformLayout::movedChildKeepsItsNewPlace()
{
    FreeformScene scene;
    SizedFigure child;
    scene.layout.add(&child, QRect(1, 2, 30, 40));
    scene.figure.validate();

    child.setBounds(QRect(11, 12, 31, 41));
    scene.figure.invalidate();
    scene.figure.validate();

    QCOMPARE(child.getBounds(), QRect(11, 12, 31, 41));
    QCOMPARE(scene.layout.getConstraint(&child), QVariant(QRect(11, 12, 31, 41)));
}

QTEST_MAIN(tst_FreeformLayout)
#include "tst_freeformlayout.moc"
