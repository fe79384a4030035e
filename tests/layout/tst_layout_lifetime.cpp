#include "layout_fixtures.h"
#include "locatorprobe.h"

#include <countingfigure.h>

#include <figura/figure/ExclusionSearch.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/FreeformStackLayout.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/layout/VBoxLayout.h>

#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionViewItem>
#include <QTest>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const QList<const char *> LAYOUT_NAMES{"XY",    "freeform",   "horizontal box", "vertical box",
                                       "stack", "delegating", "freeform stack"};

Layout *newLayout(const QByteArray &name)
{
    if (name == "XY")
        return new XYLayout;
    if (name == "freeform")
        return new FreeformLayout;
    if (name == "horizontal box")
        return new HBoxLayout;
    if (name == "vertical box")
        return new VBoxLayout;
    if (name == "stack")
        return new StackLayout;
    if (name == "delegating")
        return new DelegatingLayout;
    return new FreeformStackLayout;
}

void renderLayout(Layout *layout)
{
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 100, 100);
    layout->render(&painter, option);
}

// Does what an application may do at any time with what is left of a scene.
void useLayout(Layout *layout)
{
    layout->invalidate();
    layout->getMinimumSize();
    layout->getPreferredSize();
    layout->layout(layout->getFigure());
    renderLayout(layout);
    layout->findDescendantAtExcluding(1, 1, ExclusionSearch({}));
    for (Figure *child : layout->childFigures()) {
        layout->setConstraint(child, layout->getConstraint(child));
        child->setBounds(child->getBounds().translated(1, 1));
    }
}

void useFigure(Figure *figure)
{
    figure->setBounds(QRect(QPoint(figure->getBounds().x() + 1, 0), QSize(50, 50)));
    figure->revalidate();
    figure->validate();
    figure->repaint();
    figure->findFigureAt(10, 10);
    figure->childFigures();
}

// What a layout does that takes it from child to child and calls out. Searches only read.
enum Walk { Rendering, LayingOut, Measuring };
const QList<QPair<Walk, const char *>> WALKS{
    {Rendering, "rendering"}, {LayingOut, "laying out"}, {Measuring, "measuring"}};

bool asksChildren(const QByteArray &layout, Walk walk)
{
    if (layout == "freeform")
        return walk != Measuring;
    return layout != "freeform stack" || walk == Rendering;
}

void carryOut(Walk walk, Layout *layout)
{
    if (walk == Rendering)
        renderLayout(layout);
    else if (walk == LayingOut)
        layout->layout(layout->getFigure());
    else
        layout->getPreferredSize();
}

// Does once, when the watched walk comes by, what it was told to do.
class Actor : public SizedFigure
{
public:
    Walk watched = Rendering;
    std::function<void()> act;
    int visits = 0;

    void visit(Walk walk)
    {
        if (walk != watched)
            return;
        ++visits;
        if (const auto action = std::exchange(act, nullptr))
            action();
    }

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        SizedFigure::render(painter, option);
        visit(Rendering);
    }
    void setBounds(const QRect &rect) override
    {
        SizedFigure::setBounds(rect);
        visit(LayingOut);
    }
    QSize getPreferredSize() override
    {
        const QSize size = SizedFigure::getPreferredSize();
        visit(Measuring);
        return size;
    }
    QSize getMinimumSize() override
    {
        const QSize size = SizedFigure::getMinimumSize();
        visit(Measuring);
        return size;
    }
};

// Five children of a displayed figure; the middle one acts.
struct Stage
{
    explicit Stage(const QByteArray &layoutName)
        : layout(newLayout(layoutName))
    {
        figure->setLayoutManager(layout);
        figure->setBounds(QRect(0, 0, 60, 60));
        figure->addNotify();
        locator.setParent(&owner);
        for (int i = 0; i < 5; ++i) {
            auto *child = new Actor;
            children.append(child);
            layout->add(child, constraintFor(layoutName, i));
        }
        figure->validate();
    }
    ~Stage()
    {
        for (const QPointer<Actor> &child : children)
            delete child;
        delete layout;
        delete figure;
    }
    Q_DISABLE_COPY_MOVE(Stage)

    // Leaves a stale layout with something to do, and visits still to be counted.
    void watch(Walk walk)
    {
        layout->invalidate();
        for (const QPointer<Actor> &child : children) {
            child->setBounds(QRect(0, 0, 6, 6));
            child->watched = walk;
            child->visits = 0;
        }
    }

    QVariant constraintFor(const QByteArray &layoutName, int index)
    {
        if (layoutName == "delegating")
            return asConstraint(&locator);
        return layoutName == "XY" || layoutName == "freeform"
                   ? QVariant(QRect(10 * index, 0, 10, 10))
                   : QVariant();
    }

    QList<Figure *> alive() const
    {
        QList<Figure *> result;
        for (const QPointer<Actor> &child : children) {
            if (child)
                result.append(child);
        }
        return result;
    }

    QPointer<Figure> figure = new Figure;
    QPointer<Layout> layout;
    QList<QPointer<Actor>> children;
    SizedFigure added;
    QObject owner;
    LocatorProbe locator{QRect(1, 2, 3, 4)};
};

struct Action
{
    const char *name;
    void (*run)(Stage *stage);
    bool sparesTheLayout = true;
};

const QList<Action> ACTIONS{
    {"deletes the next", [](Stage *stage) { delete stage->children[3]; }},
    {"deletes the former", [](Stage *stage) { delete stage->children[1]; }},
    {"deletes the last", [](Stage *stage) { delete stage->children[4]; }},
    {"deletes all others",
     [](Stage *stage) {
         for (const int i : {0, 1, 3, 4})
             delete stage->children[i];
     }},
    {"removes the next", [](Stage *stage) { stage->layout->remove(stage->children[3]); }},
    {"removes the former", [](Stage *stage) { stage->layout->remove(stage->children[1]); }},
    {"removes itself", [](Stage *stage) { stage->layout->remove(stage->children[2]); }},
    {"removes all",
     [](Stage *stage) {
         for (const QPointer<Actor> &child : stage->children)
             stage->layout->remove(child);
     }},
    {"adds one below", [](Stage *stage) { stage->layout->add(&stage->added, QVariant(), 0); }},
    {"adds one on top", [](Stage *stage) { stage->layout->add(&stage->added); }},
    {"deletes the container", [](Stage *stage) { delete stage->figure; }, false},
    {"deletes the layout", [](Stage *stage) { delete stage->layout; }, false},
    {"deletes everything else",
     [](Stage *stage) {
         for (const int i : {0, 1, 3, 4})
             delete stage->children[i];
         delete stage->layout;
         delete stage->figure;
     },
     false}};

} // namespace

class tst_LayoutLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void cleanup() { deleteDeferred(); }

    void partsMayBeDestroyedInAnyOrder_data();
    void partsMayBeDestroyedInAnyOrder();

    void destroyedChildLeavesTheLayout();
    void destroyedChildLeavesALayoutWithoutContainer();
    void destroyedChildIsNoStretchAnyMore();
    void destroyedChildMakesADisplayedLayoutStale();
    void removedChildIsNotWatchedAnyMore();
    void newChildMayTakeTheAddressOfADestroyedOne();
    void childDestroyedAsAnOwnedObjectOfItsContainer();
    void destroyedContainerIsForgotten();
    void destroyedLayoutIsForgotten();
    void containerOwnsItsLayoutAndChildren();

    void childrenMayChangeWhileWalking_data();
    void childrenMayChangeWhileWalking();
    void laterChildrenAreStillVisited_data();
    void laterChildrenAreStillVisited();

    void childMayBeRemovedWhileItIsAdded_data();
    void childMayBeRemovedWhileItIsAdded();
    void childThatCameBackWhileItWasAddedIsAttachedOnce();
    void locatorMayGoWhileItsTargetIsAdded();
    void locatorMayGoWhileListenersHearOfIt();
    void newChildMayTakeTheAddressOfOneThatWentWhileLeaving();
    void orphanOfADisplayedTreeIsNotAttachedTwice();
    void orphanOfADisplayedTreeIsDetachedInAHiddenOne();
    void childMayBeDestroyedWhileItIsRemoved();
    void childMayBeRemovedByAListenerOfItsRemoval();
    void containerMayBeDestroyedByAListener_data();
    void containerMayBeDestroyedByAListener();
    void containerMayBeDestroyedWhileAPaintLaysItOut();
    void layoutMayBeDestroyedByAListener_data();
    void layoutMayBeDestroyedByAListener();
    void locatorMayRemoveItsTarget();
    void locatorMayReplaceItself();
    void locatorMayDeleteItself();
    void childMayBeRemovedWhenItsConstraintChanges();
    void layoutMayBeDestroyedWhenAConstraintChanges();
    void layoutMayBeDestroyedWhenTheExtentChanges();
    void childMayBeRemovedFromASlotOfItsMove();
};

void tst_LayoutLifetime::partsMayBeDestroyedInAnyOrder_data()
{
    QTest::addColumn<QByteArray>("layoutName");
    QTest::addColumn<QString>("order");

    for (const char *layoutName : LAYOUT_NAMES) {
        QString order = QStringLiteral("0123");
        do {
            QTest::addRow("%s: %s", layoutName, qPrintable(order))
                << QByteArray(layoutName) << order;
        } while (std::next_permutation(order.begin(), order.end()));
    }
}

// The order's digits are container, layout, child and locator.
void tst_LayoutLifetime::partsMayBeDestroyedInAnyOrder()
{
    QFETCH(QByteArray, layoutName);
    QFETCH(QString, order);
    QPointer<Figure> container = new Figure;
    QPointer<Layout> layout = newLayout(layoutName);
    QPointer<Figure> child = new SizedFigure;
    QPointer<LocatorProbe> locator = new LocatorProbe(QRect(1, 2, 3, 4));
    const QList<QPointer<QObject>> parts{container.data(), layout.data(), child.data(),
                                         locator.data()};
    SizedFigure sibling;
    container->setLayoutManager(layout);
    container->setBounds(QRect(0, 0, 50, 50));
    container->addNotify();
    sibling.setBounds(QRect(0, 0, 5, 5));
    child->setBounds(QRect(0, 0, 5, 5));
    layout->add(child, asConstraint(locator));
    layout->add(&sibling, QRect(5, 6, 7, 8));

    for (const QChar part : std::as_const(order)) {
        delete parts.at(part.digitValue());
        if (layout)
            useLayout(layout);
        if (container)
            useFigure(container);
        if (child)
            useFigure(child);
        useFigure(&sibling);
        if (layout)
            QCOMPARE(layout->childFigures().count(), child ? 2 : 1);
        QCOMPARE(sibling.getParentFigure(), container.data());
    }
}

void tst_LayoutLifetime::destroyedChildLeavesTheLayout()
{
    Scene<ProbeLayout> scene;
    Figure staying;
    auto *child = new Figure;
    scene.layout.add(child, 5);
    scene.layout.add(&staying, 6);

    delete child;

    QCOMPARE(scene.layout.childFigures(), QList<Figure *>{&staying});
    QCOMPARE(scene.layout.childFigureCount(), 1);
    QVERIFY(!scene.layout.getHelper(child));
    QVERIFY(!scene.layout.getConstraint(child).isValid());
    QCOMPARE(scene.layout.getConstraint(&staying), QVariant(6));
    QVERIFY(!scene.layout.setConstraint(child, 7));
    QVERIFY(!scene.layout.remove(child));
}

void tst_LayoutLifetime::destroyedChildLeavesALayoutWithoutContainer()
{
    Scene<ProbeLayout> scene;
    auto *child = new Figure;
    scene.layout.add(child);
    scene.layout.setFigure(nullptr);

    delete child;

    QCOMPARE(scene.layout.childFigureCount(), 0);
}

void tst_LayoutLifetime::destroyedChildIsNoStretchAnyMore()
{
    Scene<ProbeLayout> scene;
    Figure staying;
    auto *child = new Figure;
    scene.layout.add(child, 1, 2, -1);
    scene.layout.add(&staying, 10, 20, -1);

    delete child;

    QCOMPARE(scene.layout.getVTotalStretch(), 10u);
    QCOMPARE(scene.layout.getHTotalStretch(), 20u);
}

void tst_LayoutLifetime::destroyedChildMakesADisplayedLayoutStale()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 50, 50));
    scene.figure.addNotify();
    auto *child = new Figure;
    scene.layout.add(child);
    scene.figure.validate();

    delete child;

    QVERIFY(!scene.layout.isLaidOut());
}

void tst_LayoutLifetime::removedChildIsNotWatchedAnyMore()
{
    Scene<ProbeLayout> former(QRect(0, 0, 50, 50));
    Scene<ProbeLayout> present;
    former.figure.addNotify();
    auto *child = new Figure;
    former.layout.add(child);
    former.layout.remove(child);
    former.figure.validate();
    present.layout.add(child);

    delete child;

    QVERIFY(former.layout.isLaidOut()); // it is none of its business any more
    QCOMPARE(former.layout.childFigureCount(), 0);
    QCOMPARE(present.layout.childFigureCount(), 0);
}

void tst_LayoutLifetime::newChildMayTakeTheAddressOfADestroyedOne()
{
    Scene<ProbeLayout> scene;
    alignas(Figure) unsigned char place[sizeof(Figure)];
    auto *former = new (place) Figure;
    scene.layout.add(former, 5, 6, -1);
    scene.layout.setConstraint(former, 7);
    former->~Figure();

    auto *present = new (place) Figure;
    QVERIFY(!scene.layout.getConstraint(present).isValid());
    QVERIFY(scene.layout.add(present));

    QCOMPARE(scene.layout.childFigureCount(), 1);
    QCOMPARE(scene.layout.getHelper(present)->vStretch, 0u);
    QVERIFY(!scene.layout.getConstraint(present).isValid());
    present->~Figure();
    QCOMPARE(scene.layout.childFigureCount(), 0);
}

void tst_LayoutLifetime::childDestroyedAsAnOwnedObjectOfItsContainer()
{
    QPointer<ProbeLayout> layout = new ProbeLayout;
    auto *container = new Figure;
    container->setLayoutManager(layout);
    for (int i = 0; i < 3; ++i)
        layout->add(new Figure(container));

    delete container;

    QVERIFY(layout);
    QCOMPARE(layout->childFigureCount(), 0);
    QCOMPARE(layout->getFigure(), nullptr);
    delete layout;
}

void tst_LayoutLifetime::destroyedContainerIsForgotten()
{
    ProbeLayout layout;
    auto *container = new Figure;
    container->setLayoutManager(&layout);
    Figure child;
    Figure late;
    layout.add(&child);

    delete container;

    QCOMPARE(layout.getFigure(), nullptr);
    QCOMPARE(child.getParentFigure(), nullptr);
    QCOMPARE(layout.childFigures(), QList<Figure *>{&child});
    QVERIFY(!layout.add(&late));
    QVERIFY(!layout.layout(layout.getFigure()));
    renderLayout(&layout);
    QVERIFY(layout.remove(&child));
}

void tst_LayoutLifetime::destroyedLayoutIsForgotten()
{
    Figure container;
    container.setBounds(QRect(0, 0, 50, 50));
    Figure child;
    auto *layout = new ProbeLayout;
    container.setLayoutManager(layout);
    container.add(&child);

    delete layout;

    QCOMPARE(container.getLayoutManager(), nullptr);
    QVERIFY(container.childFigures().isEmpty());
    QTest::ignoreMessage(QtDebugMsg, "Figure::add(): failed, no layout manager");
    QVERIFY(!container.add(&child));
    container.validate();
}

void tst_LayoutLifetime::containerOwnsItsLayoutAndChildren()
{
    auto *container = new Figure;
    QPointer<Layout> layout = new XYLayout(container);
    QPointer<Figure> before = new Figure(container);
    container->setLayoutManager(layout);
    layout->add(before, QRect(1, 2, 3, 4));
    QPointer<Figure> after = new Figure(container);
    layout->add(after, asConstraint(new LocatorProbe(QRect(), container)));

    delete container;

    QVERIFY(!layout);
    QVERIFY(!before);
    QVERIFY(!after);
}

void tst_LayoutLifetime::childrenMayChangeWhileWalking_data()
{
    QTest::addColumn<QByteArray>("layoutName");
    QTest::addColumn<int>("walk");
    QTest::addColumn<int>("action");

    for (const char *layoutName : LAYOUT_NAMES) {
        for (const auto &[walk, walkName] : WALKS) {
            if (!asksChildren(layoutName, walk))
                continue;
            for (int i = 0; i < ACTIONS.count(); ++i) {
                QTest::addRow("%s, %s: %s", layoutName, walkName, ACTIONS.at(i).name)
                    << QByteArray(layoutName) << int(walk) << i;
            }
        }
    }
}

void tst_LayoutLifetime::childrenMayChangeWhileWalking()
{
    QFETCH(QByteArray, layoutName);
    QFETCH(int, walk);
    QFETCH(int, action);
    Stage stage(layoutName);
    bool acted = false;
    stage.watch(Walk(walk));
    stage.children[2]->act = [&] {
        acted = true;
        ACTIONS.at(action).run(&stage);
    };

    carryOut(Walk(walk), stage.layout);

    QVERIFY(acted);
    QVERIFY(stage.children[2]);
    if (!stage.layout)
        return;
    for (Figure *child : stage.layout->childFigures())
        QVERIFY(child == &stage.added || stage.alive().contains(child));
    useLayout(stage.layout);
}

void tst_LayoutLifetime::laterChildrenAreStillVisited_data()
{
    QTest::addColumn<QByteArray>("layoutName");
    QTest::addColumn<int>("walk");
    QTest::addColumn<int>("action");

    for (const char *layoutName : LAYOUT_NAMES) {
        for (const auto &[walk, walkName] : WALKS) {
            if (!asksChildren(layoutName, walk))
                continue;
            for (const int action : {0, 1}) {
                QTest::addRow("%s, %s: %s", layoutName, walkName, ACTIONS.at(action).name)
                    << QByteArray(layoutName) << int(walk) << action;
            }
        }
    }
}

void tst_LayoutLifetime::laterChildrenAreStillVisited()
{
    QFETCH(QByteArray, layoutName);
    QFETCH(int, walk);
    QFETCH(int, action);
    Stage stage(layoutName);
    stage.watch(Walk(walk));
    stage.children[2]->act = [&] { ACTIONS.at(action).run(&stage); };

    carryOut(Walk(walk), stage.layout);

    QVERIFY(stage.children[0]->visits > 0);
    QCOMPARE(stage.children[0]->visits, stage.children[2]->visits);
    QCOMPARE(stage.children[4]->visits, stage.children[2]->visits);
}

void tst_LayoutLifetime::childMayBeRemovedWhileItIsAdded_data()
{
    QTest::addColumn<bool>("destroys");
    QTest::addColumn<QByteArray>("layoutName");
    for (const char *layoutName : LAYOUT_NAMES) {
        QTest::addRow("%s, removed", layoutName) << false << QByteArray(layoutName);
        QTest::addRow("%s, destroyed", layoutName) << true << QByteArray(layoutName);
    }
}

// The new parent is announced right at the beginning.
void tst_LayoutLifetime::childMayBeRemovedWhileItIsAdded()
{
    QFETCH(bool, destroys);
    QFETCH(QByteArray, layoutName);
    Figure container;
    const std::unique_ptr<Layout> layout(newLayout(layoutName));
    container.setLayoutManager(layout.get());
    container.addNotify();
    QPointer<Figure> child = new SizedFigure;
    bool acted = false;
    connect(child, &Figure::propertyChanged, this, [&] {
        if (std::exchange(acted, true))
            return;
        if (destroys)
            delete child;
        else
            layout->remove(child);
    });

    layout->add(child, QRect(1, 2, 3, 4));

    QVERIFY(acted);
    QCOMPARE(layout->childFigureCount(), 0);
    if (child)
        QVERIFY(!child->getFlag(Figure::FLAG_NOTIFIED));
    useLayout(layout.get());
    delete child;
}

void tst_LayoutLifetime::childThatCameBackWhileItWasAddedIsAttachedOnce()
{
    Scene<ProbeLayout> scene;
    scene.figure.addNotify();
    CountingFigure child;
    bool acted = false;
    connect(&child, &Figure::propertyChanged, this, [&] {
        if (std::exchange(acted, true))
            return;
        scene.layout.remove(&child);
        scene.layout.add(&child, 6);
    });

    scene.layout.add(&child, 5);

    QVERIFY(acted);
    QCOMPARE(scene.layout.childFigures(), QList<Figure *>{&child});
    QCOMPARE(scene.layout.getConstraint(&child), QVariant(6)); // of the later call
    QCOMPARE(child.calls().addNotify, 1);
    QVERIFY(child.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_LayoutLifetime::locatorMayGoWhileItsTargetIsAdded()
{
    Scene<ProbeLayout> scene;
    SizedFigure child;
    QPointer<LocatorProbe> locator = new LocatorProbe(QRect(1, 2, 3, 4));
    connect(&child, &Figure::propertyChanged, this, [&] { delete locator; });

    QVERIFY(scene.layout.add(&child, QVariant::fromValue(locator.data())));

    QVERIFY(!locator);
    QVERIFY(!scene.layout.getConstraint(&child).isValid());
}

void tst_LayoutLifetime::locatorMayGoWhileListenersHearOfIt()
{
    Scene<ProbeLayout> scene;
    SizedFigure child;
    scene.layout.add(&child);
    QPointer<LocatorProbe> locator = new LocatorProbe(QRect(1, 2, 3, 4));
    ListenerProbe first;
    ListenerProbe second;
    first.onCall = [&](const QString &) { delete locator; };
    scene.layout.addListener(&first);
    scene.layout.addListener(&second);

    QVERIFY(scene.layout.setConstraint(&child, QVariant::fromValue(locator.data())));

    QVERIFY(!locator);
    QVERIFY(!second.constraints.first().isValid());
    QVERIFY(!scene.layout.getConstraint(&child).isValid());
}

void tst_LayoutLifetime::newChildMayTakeTheAddressOfOneThatWentWhileLeaving()
{
    Scene<ProbeLayout> scene;
    alignas(Figure) unsigned char place[sizeof(Figure)];
    auto *former = new (place) Figure;
    Figure staying;
    scene.layout.add(former);
    scene.layout.add(&staying);
    Figure *present = nullptr;
    connect(former, &Figure::propertyChanged, this, [&] {
        former->~Figure();
        present = new (place) Figure;
        scene.layout.add(present, 5);
    });

    scene.layout.remove(former);

    const QList<Figure *> children{&staying, present};
    QCOMPARE(scene.layout.childFigures(), children);
    QCOMPARE(scene.layout.getConstraint(present), QVariant(5));
    present->~Figure();
    QCOMPARE(scene.layout.childFigures(), QList<Figure *>{&staying});
}

void tst_LayoutLifetime::orphanOfADisplayedTreeIsNotAttachedTwice()
{
    Scene<ProbeLayout> scene;
    scene.figure.addNotify();
    auto former = std::make_unique<Scene<ProbeLayout>>();
    scene.layout.add(&former->figure);
    CountingFigure child;
    former->layout.add(&child);
    former.reset();

    scene.layout.add(&child);

    QCOMPARE(child.calls().addNotify, 1);
    QCOMPARE(child.calls().removeNotify, 0);
    QVERIFY(child.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_LayoutLifetime::orphanOfADisplayedTreeIsDetachedInAHiddenOne()
{
    Scene<ProbeLayout> hidden;
    auto former = std::make_unique<Scene<ProbeLayout>>();
    former->figure.addNotify();
    CountingFigure child;
    former->layout.add(&child);
    former.reset();
    QVERIFY(child.getFlag(Figure::FLAG_NOTIFIED)); // nobody has told it

    hidden.layout.add(&child);

    QVERIFY(!child.getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(child.calls().removeNotify, 1);
    hidden.figure.addNotify();
    QCOMPARE(child.calls().addNotify, 2);
    QVERIFY(child.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_LayoutLifetime::childMayBeDestroyedWhileItIsRemoved()
{
    Scene<ProbeLayout> scene;
    scene.figure.addNotify();
    QPointer<Figure> child = new Figure;
    Figure staying;
    scene.layout.add(child);
    scene.layout.add(&staying);
    connect(child, &Figure::propertyChanged, this, [&] { delete child; });

    scene.layout.remove(child);

    QVERIFY(!child);
    QCOMPARE(scene.layout.childFigures(), QList<Figure *>{&staying});
}

void tst_LayoutLifetime::childMayBeRemovedByAListenerOfItsRemoval()
{
    Scene<ProbeLayout> scene;
    Figure child;
    Figure staying;
    scene.layout.add(&child);
    scene.layout.add(&staying);
    ListenerProbe listener;
    listener.onCall = [&](const QString &call) {
        QCOMPARE(call, QStringLiteral("remove"));
        scene.layout.removeListener(&listener);
        scene.layout.remove(&child);
    };
    scene.layout.addListener(&listener);

    scene.layout.remove(&child);

    QCOMPARE(scene.layout.childFigures(), QList<Figure *>{&staying});
    QCOMPARE(child.getParentFigure(), nullptr);
}

void tst_LayoutLifetime::containerMayBeDestroyedByAListener_data()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("invalidate") << QStringLiteral("invalidate");
    QTest::newRow("layout") << QStringLiteral("layout");
    QTest::newRow("postLayout") << QStringLiteral("postLayout");
    QTest::newRow("remove") << QStringLiteral("remove");
    QTest::newRow("setConstraint") << QStringLiteral("setConstraint");
}

void tst_LayoutLifetime::containerMayBeDestroyedByAListener()
{
    QFETCH(QString, operation);
    ProbeLayout layout;
    QPointer<Figure> container = new Figure;
    container->setLayoutManager(&layout);
    container->setBounds(QRect(0, 0, 50, 50));
    container->addNotify();
    Figure child;
    layout.add(&child, 1);
    ListenerProbe listener;
    listener.onCall = [&](const QString &call) {
        if (call == operation)
            delete container;
    };
    layout.addListener(&listener);

    layout.invalidate();
    layout.layout(container);
    layout.setConstraint(&child, 2);
    layout.remove(&child);

    QVERIFY(!container);
    QCOMPARE(layout.getFigure(), nullptr);
    QCOMPARE(layout.childFigureCount(), 0);
}

void tst_LayoutLifetime::containerMayBeDestroyedWhileAPaintLaysItOut()
{
    ProbeLayout layout;
    QPointer<Figure> container = new Figure;
    container->setLayoutManager(&layout);
    container->setBounds(QRect(0, 0, 50, 50));
    CountingFigure child;
    child.setBounds(QRect(10, 10, 20, 20));
    layout.add(&child, 1);
    layout.whilePerforming = [&]() { delete container; };

    renderLayout(&layout);

    QVERIFY(!container);
    QCOMPARE(layout.clientAreas.size(), 1);
    QCOMPARE(child.calls().render, 0);
}

void tst_LayoutLifetime::layoutMayBeDestroyedByAListener_data()
{
    containerMayBeDestroyedByAListener_data();
}

void tst_LayoutLifetime::layoutMayBeDestroyedByAListener()
{
    QFETCH(QString, operation);
    QPointer<ProbeLayout> layout = new ProbeLayout;
    Figure container;
    container.setLayoutManager(layout);
    container.setBounds(QRect(0, 0, 50, 50));
    container.addNotify();
    Figure child;
    layout->add(&child, 1);
    ListenerProbe listener;
    ListenerProbe second;
    listener.onCall = [&](const QString &call) {
        if (call == operation)
            delete layout;
    };
    layout->addListener(&listener);
    layout->addListener(&second);

    layout->invalidate();
    if (layout)
        layout->layout(&container);
    if (layout)
        layout->setConstraint(&child, 2);
    if (layout)
        layout->remove(&child);

    QVERIFY(!layout);
    QCOMPARE(container.getLayoutManager(), nullptr);
}

namespace {

// A locator that runs a piece of the test.
class ActingLocator : public LocatorProbe
{
public:
    std::function<void(Figure *)> act;

    void relocate(Figure *target) override
    {
        LocatorProbe::relocate(target);
        if (const auto action = std::exchange(act, nullptr))
            action(target);
    }
};

} // namespace

void tst_LayoutLifetime::locatorMayRemoveItsTarget()
{
    Stage stage("delegating");
    QPointer<ActingLocator> locator = new ActingLocator;
    stage.layout->setConstraint(stage.children[2], asConstraint(locator));
    locator->act = [&](Figure *target) { stage.layout->remove(target); };

    stage.layout->invalidate();
    stage.layout->layout(stage.figure);

    QCOMPARE(stage.layout->childFigureCount(), 4);
    deleteDeferred();
    QVERIFY(!locator);
}

void tst_LayoutLifetime::locatorMayReplaceItself()
{
    Stage stage("delegating");
    QPointer<ActingLocator> locator = new ActingLocator;
    locator->act = [&](Figure *target) { stage.layout->setConstraint(target, QRect(1, 2, 3, 4)); };

    stage.layout->setConstraint(stage.children[2], asConstraint(locator));

    QCOMPARE(stage.layout->getConstraint(stage.children[2]), QVariant(QRect(1, 2, 3, 4)));
    deleteDeferred();
    QVERIFY(!locator);
}

void tst_LayoutLifetime::locatorMayDeleteItself()
{
    Stage stage("delegating");
    QPointer<ActingLocator> locator = new ActingLocator;
    stage.layout->setConstraint(stage.children[2], asConstraint(locator));
    locator->act = [&](Figure *) { delete locator; };

    stage.layout->invalidate();
    stage.layout->layout(stage.figure);

    QVERIFY(!locator);
    useLayout(stage.layout);
    QVERIFY(stage.layout->remove(stage.children[2]));
}

void tst_LayoutLifetime::childMayBeRemovedWhenItsConstraintChanges()
{
    Stage stage("freeform");
    auto *layout = qobject_cast<XYLayout *>(stage.layout);
    connect(layout, &XYLayout::constraintChanged, this,
            [&](Figure *child) { layout->remove(child); });

    stage.children[2]->setBounds(QRect(30, 30, 5, 5));

    QCOMPARE(layout->childFigureCount(), 4);
    QCOMPARE(stage.children[2]->getParentFigure(), nullptr);
}

void tst_LayoutLifetime::layoutMayBeDestroyedWhenAConstraintChanges()
{
    Stage stage("freeform");
    auto *layout = qobject_cast<XYLayout *>(stage.layout);
    connect(layout, &XYLayout::constraintChanged, this, [&] { delete stage.layout; });

    stage.children[2]->setBounds(QRect(30, 30, 5, 5));

    QVERIFY(!stage.layout);
    QCOMPARE(stage.children[2]->getBounds(), QRect(30, 30, 5, 5));
}

void tst_LayoutLifetime::layoutMayBeDestroyedWhenTheExtentChanges()
{
    Stage stage("freeform");
    auto *layout = qobject_cast<FreeformLayout *>(stage.layout);
    layout->getFreeformExtent();
    connect(layout, &FreeformLayout::extentChanged, this, [&] { delete stage.layout; });

    layout->remove(stage.children[4]);

    QVERIFY(!stage.layout);
    QCOMPARE(stage.children[4]->getParentFigure(), nullptr);
}

void tst_LayoutLifetime::childMayBeRemovedFromASlotOfItsMove()
{
    Stage stage("XY");
    stage.layout->invalidate();
    stage.children[2]->SizedFigure::setBounds(QRect(30, 30, 5, 5));
    connect(stage.children[2], &Figure::figureMoved, this,
            [&](Figure *child) { stage.layout->remove(child); });

    stage.layout->layout(stage.figure);

    QCOMPARE(stage.layout->childFigureCount(), 4);
    QCOMPARE(stage.children[4]->getBounds(), QRect(40, 0, 10, 10));
}

QTEST_MAIN(tst_LayoutLifetime)
#include "tst_layout_lifetime.moc"
