#include "layout_fixtures.h"

#include <figura/layout/FreeformStackLayout.h>
#include <figura/view/IFreeformFigure.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// A layer with an extent set by the test; counts how often it is asked and what it is given.
class FreeformProbe : public Figure, public IFreeformFigure
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IFreeformFigure)

public:
    explicit FreeformProbe(const QRect &freeformExtent)
        : extent(freeformExtent)
    {
    }

    QRect extent;
    int asked = 0;
    QList<QRect> given;

    QRect getFreeformExtent() override
    {
        ++asked;
        return extent;
    }
    void setFreeformBounds(const QRect &rect) override
    {
        given.append(rect);
        setBounds(rect);
    }

Q_SIGNALS:
    void extentChanged() override;
};

class OpenFreeformStackLayout : public Opened<FreeformStackLayout>
{
public:
    using FreeformStackLayout::calculateFreeformExtent;
    using FreeformStackLayout::getCurrentChildBounds;
};

struct StackScene
{
    StackScene()
    {
        figure.setLayoutManager(&layout);
        figure.setBounds(QRect(0, 0, 100, 100));
    }

    Figure figure;
    OpenFreeformStackLayout layout;
};

} // namespace

class tst_FreeformStackLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void layoutIsAbsoluteAndClips();
    void newLayoutCountsAsLaidOut();

    void extentIsTheUnionOfTheLayers();
    void extentSkipsOrdinaryChildren();
    void extentCountsHiddenLayersToo();
    void extentOfLayersWithoutContentIsInvalid();
    void extentWithoutContainerIsInvalid();
    void extentIsCachedUntilExamined();
    void invalidExtentIsComputedAgain();
    void examiningAnnouncesChangesOnly();
    void examiningStoresBeforeItAnnounces();
    void addingAndRemovingDoNotExamine();
    void destroyedLayerCountsNoMore();

    void minimumSizeIsTheSizeOfTheExtent();
    void minimumSizeWithoutChildrenIsZero();
    void preferredSizeIsTheMinimum();

    void freeformBoundsGoToTheVisibleLayers();
    void freeformBoundsAreNotStored();
    void layoutPassLeavesTheLayersAlone();
    void performLayoutSucceedsWithoutARectangle();
};

void tst_FreeformStackLayout::layoutIsAbsoluteAndClips()
{
    StackScene scene;

    QVERIFY(!scene.layout.isRelativeLayout());
    QVERIFY(scene.layout.isClipping());
}

void tst_FreeformStackLayout::newLayoutCountsAsLaidOut()
{
    StackScene scene;
    OpenFreeformStackLayout fresh;
    ListenerProbe listener;
    fresh.addListener(&listener);

    QVERIFY(fresh.isLaidOut());
    QVERIFY(fresh.layout(&scene.figure));
    QCOMPARE(listener.calls, QStringList());

    fresh.invalidate();
    QVERIFY(!fresh.isLaidOut());
}

void tst_FreeformStackLayout::extentIsTheUnionOfTheLayers()
{
    StackScene scene;
    FreeformProbe a(QRect(10, 20, 30, 40));
    FreeformProbe b(QRect(-100, -5, 10, 10));
    FreeformProbe empty((QRect()));
    scene.layout.add(&a);
    scene.layout.add(&b);
    scene.layout.add(&empty);

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(-100, -5, 140, 65));
    QCOMPARE(scene.layout.calculateFreeformExtent(), QRect(-100, -5, 140, 65));
}

void tst_FreeformStackLayout::extentSkipsOrdinaryChildren()
{
    StackScene scene;
    FreeformProbe layer(QRect(10, 20, 30, 40));
    Figure ordinary;
    ordinary.setBounds(QRect(200, 200, 50, 50));
    scene.layout.add(&layer);
    scene.layout.add(&ordinary, QRect(300, 300, 5, 5));

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformStackLayout::extentCountsHiddenLayersToo()
{
    StackScene scene;
    FreeformProbe layer(QRect(10, 20, 30, 40));
    scene.layout.add(&layer);
    layer.setVisible(false);

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformStackLayout::extentOfLayersWithoutContentIsInvalid()
{
    StackScene scene;
    FreeformProbe layer((QRect()));
    QVERIFY(!scene.layout.getFreeformExtent().isValid());

    scene.layout.add(&layer);

    QVERIFY(!scene.layout.getFreeformExtent().isValid());
}

void tst_FreeformStackLayout::extentWithoutContainerIsInvalid()
{
    StackScene scene;
    FreeformProbe layer(QRect(10, 20, 30, 40));
    scene.layout.add(&layer);
    scene.layout.setFigure(nullptr);

    QVERIFY(!scene.layout.calculateFreeformExtent().isValid());
    QCOMPARE(layer.asked, 0);
}

void tst_FreeformStackLayout::extentIsCachedUntilExamined()
{
    StackScene scene;
    FreeformProbe layer(QRect(10, 20, 30, 40));
    scene.layout.add(&layer);
    scene.layout.getFreeformExtent();
    layer.extent = QRect(1, 2, 3, 4);

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
    QCOMPARE(layer.asked, 1);
    scene.layout.examineExtent();
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(1, 2, 3, 4));
}

void tst_FreeformStackLayout::invalidExtentIsComputedAgain()
{
    StackScene scene;
    FreeformProbe layer((QRect()));
    scene.layout.add(&layer);
    scene.layout.getFreeformExtent();

    layer.extent = QRect(1, 2, 3, 4);

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(1, 2, 3, 4));
}

void tst_FreeformStackLayout::examiningAnnouncesChangesOnly()
{
    StackScene scene;
    FreeformProbe a(QRect(0, 0, 100, 100));
    FreeformProbe b(QRect(10, 20, 30, 40));
    scene.layout.add(&a);
    scene.layout.add(&b);
    scene.layout.getFreeformExtent();
    QSignalSpy changed(&scene.layout, &FreeformStackLayout::extentChanged);

    b.extent = QRect(50, 50, 50, 50);
    scene.layout.examineExtent();
    QCOMPARE(changed.count(), 0);

    b.extent = QRect(50, 50, 51, 50);
    scene.layout.examineExtent();
    scene.layout.examineExtent();
    QCOMPARE(changed.count(), 1);
}

void tst_FreeformStackLayout::examiningStoresBeforeItAnnounces()
{
    StackScene scene;
    FreeformProbe layer(QRect(10, 20, 30, 40));
    scene.layout.add(&layer);
    QRect extentThen;
    int askedThen = 0;
    connect(&scene.layout, &FreeformStackLayout::extentChanged, this, [&] {
        extentThen = scene.layout.getFreeformExtent();
        askedThen = layer.asked;
    });

    scene.layout.examineExtent();

    QCOMPARE(extentThen, QRect(10, 20, 30, 40));
    QCOMPARE(askedThen, 1);
}

void tst_FreeformStackLayout::addingAndRemovingDoNotExamine()
{
    StackScene scene;
    FreeformProbe a(QRect(10, 20, 30, 40));
    FreeformProbe b(QRect(0, 0, 100, 100));
    scene.layout.add(&a);
    scene.layout.getFreeformExtent();
    QSignalSpy changed(&scene.layout, &FreeformStackLayout::extentChanged);

    scene.layout.add(&b);
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
    scene.layout.remove(&a);
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));

    QCOMPARE(changed.count(), 0);
}

void tst_FreeformStackLayout::destroyedLayerCountsNoMore()
{
    StackScene scene;
    FreeformProbe staying(QRect(10, 20, 30, 40));
    auto destroyed = std::make_unique<FreeformProbe>(QRect(0, 0, 100, 100));
    scene.layout.add(&staying);
    scene.layout.add(destroyed.get());
    QCOMPARE(scene.layout.getFreeformExtent(), QRect(0, 0, 100, 100));

    destroyed.reset();

    QCOMPARE(scene.layout.getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformStackLayout::minimumSizeIsTheSizeOfTheExtent()
{
    StackScene scene;
    FreeformProbe layer(QRect(-10, -20, 30, 40));
    layer.setMinimumSize(QSize(500, 500));
    scene.layout.add(&layer);
    QCOMPARE(scene.layout.getMinimumSize(), QSize(30, 40));

    layer.extent = QRect(0, 0, 300, 400);
    scene.layout.invalidate();

    QCOMPARE(scene.layout.getMinimumSize(), QSize(30, 40)); // of the cached extent
}

void tst_FreeformStackLayout::minimumSizeWithoutChildrenIsZero()
{
    StackScene scene;

    QCOMPARE(scene.layout.getMinimumSize(), QSize(0, 0));
    QCOMPARE(scene.layout.getPreferredSize(), QSize(0, 0));
}

void tst_FreeformStackLayout::preferredSizeIsTheMinimum()
{
    StackScene scene;
    FreeformProbe layer(QRect(-10, -20, 30, 40));
    layer.setPreferredSize(QSize(500, 500));
    scene.layout.add(&layer);
    QCOMPARE(scene.layout.getPreferredSize(), QSize(30, 40));

    layer.extent = QRect(0, 0, 300, 400);
    scene.layout.examineExtent();

    QCOMPARE(scene.layout.calculateMinimumSize(), QSize(300, 400));
    QCOMPARE(scene.layout.calculatePreferredSize(), QSize(30, 40)); // of the cached minimum
}

void tst_FreeformStackLayout::freeformBoundsGoToTheVisibleLayers()
{
    StackScene scene;
    FreeformProbe shown(QRect(10, 20, 30, 40));
    FreeformProbe hidden(QRect(10, 20, 30, 40));
    Figure ordinary;
    for (Figure *child : QList<Figure *>{&shown, &hidden, &ordinary})
        scene.layout.add(child);
    hidden.setVisible(false);

    scene.layout.setFreeformBounds(QRect(-1, -2, 300, 400));

    QCOMPARE(shown.given, QList<QRect>{QRect(-1, -2, 300, 400)});
    QVERIFY(hidden.given.isEmpty());
    QVERIFY(!ordinary.getBounds().isValid());
}

void tst_FreeformStackLayout::freeformBoundsAreNotStored()
{
    StackScene scene;
    FreeformProbe layer(QRect(10, 20, 30, 40));
    scene.layout.add(&layer);
    QVERIFY(!scene.layout.getCurrentChildBounds().isValid());

    scene.layout.setFreeformBounds(QRect(-1, -2, 300, 400));

    QVERIFY(!scene.layout.getCurrentChildBounds().isValid());
}

// The layers take their bounds from setFreeformBounds() alone, on purpose.
void tst_FreeformStackLayout::layoutPassLeavesTheLayersAlone()
{
    StackScene scene;
    FreeformProbe layer(QRect(10, 20, 30, 40));
    Figure ordinary;
    scene.layout.add(&layer);
    scene.layout.add(&ordinary);
    layer.setBounds(QRect(1, 2, 3, 4));
    ordinary.setBounds(QRect(5, 6, 7, 8));
    scene.layout.setFreeformBounds(QRect(-1, -2, 300, 400));
    layer.given.clear();

    scene.figure.invalidate();
    scene.figure.validate();

    QVERIFY(layer.given.isEmpty());
    QCOMPARE(layer.getBounds(), QRect(-1, -2, 300, 400));
    QCOMPARE(ordinary.getBounds(), QRect(5, 6, 7, 8));
    QVERIFY(scene.layout.isLaidOut());
}

void tst_FreeformStackLayout::performLayoutSucceedsWithoutARectangle()
{
    StackScene scene;

    QVERIFY(scene.layout.performLayout(QRect()));
    QVERIFY(scene.layout.performLayout(QRect(0, 0, 10, 10)));
}

QTEST_MAIN(tst_FreeformStackLayout)
#include "tst_freeformstacklayout.moc"
