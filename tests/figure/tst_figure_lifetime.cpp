#include "fixtures.h"

#include <ancestorrecorder.h>
#include <fakeviewer.h>
#include <logcapture.h>
#include <recordingdevice.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <figura/figure/SimpleBorder.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>

#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A displayed tree of three generations, of which everything can be destroyed.
class World
{
public:
    World();
    ~World();

    /// Calls every operation that has to do with other objects, on all figures that are left.
    void use();
    void destroy(const QString &name) { delete objects.value(name); }

    template<typename T>
    T *get(const char *name) const
    {
        return static_cast<T *>(objects.value(QLatin1String(name)).data());
    }
    Figure *figure(const char *name) const { return get<Figure>(name); }
    Figure *root() const { return figure("root"); }
    Figure *parent() const { return figure("parent"); }
    Figure *child() const { return figure("child"); }
    Figure *sibling() const { return figure("sibling"); }

    FakeViewer viewer;
    QMap<QString, QPointer<QObject>> objects;

private:
    void keep(const char *name, QObject *object) { objects.insert(QLatin1String(name), object); }
};

World::World()
{
    auto *updates = new RecordingUpdateManager;
    auto *root = new RootFigure(updates);
    auto *rootLayout = new PlainLayout;
    auto *parent = new CountingFigure;
    auto *parentLayout = new PlainLayout(false);
    auto *child = new CountingFigure;
    auto *sibling = new CountingFigure;
    auto *border = new SimpleBorder(nullptr, 2);
    auto *tooltip = new Figure;
    auto *listener = new AncestorRecorder;

    updates->setViewer(&viewer);
    root->setLayoutManager(rootLayout);
    root->setBounds(QRect(0, 0, 100, 100));
    root->add(parent);
    parent->setLayoutManager(parentLayout);
    parent->setBorder(border);
    parent->setTooltip(tooltip);
    parent->setBounds(QRect(10, 10, 50, 50));
    parent->add(child);
    parent->add(sibling);
    child->setBorder(border);
    child->setBounds(QRect(20, 20, 10, 10));
    child->addAncestorListener(listener);
    sibling->setBounds(QRect(25, 25, 10, 10));

    keep("updates", updates);
    keep("root", root);
    keep("root layout", rootLayout);
    keep("parent", parent);
    keep("parent layout", parentLayout);
    keep("child", child);
    keep("sibling", sibling);
    keep("border", border);
    keep("tooltip", tooltip);
    keep("listener", listener);
}

World::~World()
{
    for (const QPointer<QObject> &object : std::as_const(objects))
        delete object;
}

void useFigure(Figure *figure, AncestorRecorder *listener)
{
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 200, 200);
    record([&](QPainter *painter) { figure->render(painter, option); });
    QPoint point(1, 2);
    QRectF rect(1, 2, 3, 4);
    figure->translateToAbsolute(point);
    figure->translateToRelative(point);
    figure->translateToParent(rect);
    figure->translateFromParent(rect);
    figure->findFigureAt(22, 22);
    figure->findFigures(QRect(0, 0, 100, 100), false);
    figure->getPreferredSize();
    figure->getMinimumSize();
    figure->getClientArea();
    figure->expandingDirections();
    figure->getUpdateManager();
    for (Figure *child : figure->childFigures())
        child->getBounds();
    figure->setBounds(figure->getBounds().translated(1, 1).adjusted(0, 0, 1, 1));
    figure->translate(1, 1);
    figure->setVisible(!figure->isVisible());
    figure->setVisible(!figure->isVisible());
    figure->erase();
    figure->repaint();
    figure->revalidate();
    figure->validate();
    if (listener) {
        figure->addAncestorListener(listener);
        figure->removeAncestorListener(listener);
    }
}

void World::use()
{
    auto *listener = get<AncestorRecorder>("listener");
    for (const char *name : {"root", "parent", "child", "sibling"}) {
        if (figure(name))
            useFigure(figure(name), listener);
    }
    if (auto *updates = get<UpdateManager>("updates"))
        updates->performUpdate();
}

/// What can be told to whom while something happens to the child of a world.
struct Event
{
    const char *name;
    std::function<void(World &, const std::function<void()> &)> connect;
    std::function<void(World &)> cause;
};

template<typename Signal>
auto onSignalOf(const char *sender, Signal signal)
{
    return [=](World &world, const std::function<void()> &action) {
        QObject::connect(static_cast<Figure *>(world.figure(sender)), signal, action);
    };
}

const QList<Event> &events()
{
    static const QList<Event> list{
        {"the child's bounds are set", onSignalOf("child", &Figure::figureMoved),
         [](World &world) { world.child()->setBounds(QRect(1, 2, 3, 4)); }},
        {"the child is translated", onSignalOf("child", &Figure::figureMoved),
         [](World &world) { world.child()->translate(1, 1); }},
        {"the parent takes the child along", onSignalOf("child", &Figure::figureMoved),
         [](World &world) { world.parent()->setBounds(QRect(11, 12, 50, 50)); }},
        {"the parent moves", onSignalOf("parent", &Figure::figureMoved),
         [](World &world) { world.parent()->setBounds(QRect(11, 12, 50, 50)); }},
        {"the child learns of its parent's move", onSignalOf("child", &Figure::ancestorMoved),
         [](World &world) { world.parent()->setBounds(QRect(11, 12, 50, 50)); }},
        {"the child is removed", onSignalOf("child", &Figure::propertyChanged),
         [](World &world) { world.parent()->remove(world.child()); }},
        {"the child learns that it is removed", onSignalOf("child", &Figure::ancestorRemoved),
         [](World &world) { world.parent()->remove(world.child()); }},
        {"the parent is removed", onSignalOf("child", &Figure::ancestorRemoved),
         [](World &world) { world.root()->remove(world.parent()); }},
        {"the child gets another parent", onSignalOf("child", &Figure::ancestorAdded),
         [](World &world) { world.child()->setParentFigure(world.root()); }},
        {"the child leaves for another parent", onSignalOf("child", &Figure::ancestorRemoved),
         [](World &world) { world.child()->setParentFigure(world.root()); }},
        {"the sibling is added again", onSignalOf("sibling", &Figure::propertyChanged),
         [](World &world) {
             world.parent()->remove(world.sibling());
             if (world.parent() && world.sibling())
                 world.parent()->add(world.sibling());
         }},
        {"the queue is about to be validated",
         [](World &world, const std::function<void()> &action) {
             QObject::connect(world.get<UpdateManager>("updates"), &UpdateManager::aboutToValidate,
                              action);
         },
         [](World &world) {
             world.child()->revalidate();
             world.get<UpdateManager>("updates")->performUpdate();
         }},
    };
    return list;
}

/// Writes down when it is validated.
class OrderlyFigure : public Figure
{
public:
    explicit OrderlyFigure(QList<Figure *> *validated)
        : m_validated(validated)
    {
    }

    void validate() override
    {
        m_validated->append(this);
        Figure::validate();
    }

private:
    QList<Figure *> *m_validated;
};

/// Destroys something when it is laid out or painted.
class DeadlyFigure : public ParentFigure
{
public:
    std::function<void()> whenLaidOut;
    mutable std::function<void()> whenPainted;

protected:
    void layout() override
    {
        if (const auto action = std::exchange(whenLaidOut, nullptr))
            action();
        else
            ParentFigure::layout();
    }

    void drawFigure(QPainter *, const QStyleOptionViewItem &) const override
    {
        if (const auto action = std::exchange(whenPainted, nullptr))
            action();
    }
};

} // namespace

class tst_Figure_Lifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    // What a figure forgets, and what it leaves alone.
    void destroyedObjectsCountAsNotSet();
    void destroyedFigureDestroysNothingElse();
    void destroyedChildLeavesItsParentSilently();
    void destroyedFigureDamagesTheAreaThatItShowed();
    void childrenOfADestroyedFigureAreLeftWithoutAParentSilently();
    void destroyedLayoutLeavesItsChildrenWithTheirParent();
    void destroyedFigureLeavesItsLayoutWithoutAFigure();

    void laterListenersFindNullForAParentThatWent_data();
    void laterListenersFindNullForAParentThatWent();

    // The queue.
    void destroyedFigureLeavesTheQueue();
    void newFigureMayTakeTheAddressOfAQueuedOne();
    void figureDestroyedWhileAnotherIsValidatedIsSkipped();
    void destroyedUpdateManagerCountsAsNone();

    // Everything.
    void anyOrderOfDestructionIsSafe();
    void anythingMayBeDestroyedInsideASlot_data();
    void anythingMayBeDestroyedInsideASlot();
    void siblingMayBeDestroyedWhileAFigureIsPainted_data();
    void siblingMayBeDestroyedWhileAFigureIsPainted();
    void siblingMayBeDestroyedWhileAFigureIsLaidOut_data();
    void siblingMayBeDestroyedWhileAFigureIsLaidOut();
};

void tst_Figure_Lifetime::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Figure_Lifetime::destroyedObjectsCountAsNotSet()
{
    ParentFigure figure;
    auto parent = std::make_unique<ParentFigure>();
    auto border = std::make_unique<SimpleBorder>(nullptr, 1);
    auto tooltip = std::make_unique<Figure>();
    parent->add(&figure);
    figure.setBorder(border.get());
    figure.setTooltip(tooltip.get());
    figure.setBounds(QRect(0, 0, 10, 10));

    parent.reset();
    border.reset();
    tooltip.reset();
    delete figure.plain;

    QCOMPARE(figure.getParentFigure(), nullptr);
    QCOMPARE(figure.getBorder(), nullptr);
    QCOMPARE(figure.getTooltip(), nullptr);
    QCOMPARE(figure.getLayoutManager(), nullptr);
    QCOMPARE(figure.getClientArea(), QRect(0, 0, 10, 10));
    QVERIFY(figure.useLocalCoordinates());
    QTest::ignoreMessage(QtDebugMsg, "Figure::childFigureCount(): failed, no layout manager");
    QCOMPARE(figure.childFigureCount(), 0);
}

void tst_Figure_Lifetime::destroyedFigureDestroysNothingElse()
{
    QPointer<PlainLayout> layout(new PlainLayout);
    QPointer<SimpleBorder> border(new SimpleBorder);
    QPointer<Figure> tooltip(new Figure);
    QPointer<Figure> child(new Figure);
    auto figure = std::make_unique<Figure>();
    figure->setLayoutManager(layout);
    figure->setBorder(border);
    figure->setTooltip(tooltip);
    figure->add(child);

    figure.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(layout);
    QVERIFY(border);
    QVERIFY(tooltip);
    QVERIFY(child);
    qDeleteAll(QObjectList{layout, border, tooltip, child});
}

void tst_Figure_Lifetime::destroyedChildLeavesItsParentSilently()
{
    ParentFigure parent;
    Figure staying;
    auto child = std::make_unique<Figure>();
    parent.add(child.get());
    parent.add(&staying);
    QSignalSpy moved(&parent, &Figure::figureMoved);
    QSignalSpy changed(&staying, &Figure::propertyChanged);

    child.reset();

    QCOMPARE(parent.childFigures(), QList<Figure *>({&staying}));
    QCOMPARE(parent.childFigureCount(), 1);
    QCOMPARE(moved.count(), 0);
    QCOMPARE(changed.count(), 0);
}

// Nobody else would ask for these pixels.
void tst_Figure_Lifetime::destroyedFigureDamagesTheAreaThatItShowed()
{
    PlainLayout layout;
    RecordingUpdateManager updates;
    RootFigure root(&updates);
    auto shown = std::make_unique<Figure>();
    auto hidden = std::make_unique<Figure>();
    root.setLayoutManager(&layout);
    root.setBounds(QRect(100, 200, 50, 50));
    root.add(shown.get());
    root.add(hidden.get());
    shown->setBounds(QRect(1, 2, 3, 4));
    hidden->setBounds(QRect(11, 12, 13, 14));
    hidden->setVisible(false);
    updates.clear();

    hidden.reset();
    QCOMPARE(updates.dirtyRects(), QList<QRect>());

    shown.reset();
    QCOMPARE(updates.dirtyRects(), QList<QRect>({{101, 202, 3, 4}}));
    QCOMPARE(updates.dirtyRequests().first().figure, &root);
}

void tst_Figure_Lifetime::childrenOfADestroyedFigureAreLeftWithoutAParentSilently()
{
    auto parent = std::make_unique<ParentFigure>();
    Figure child;
    parent->add(&child);
    QSignalSpy changed(&child, &Figure::propertyChanged);

    parent.reset();

    QCOMPARE(child.getParentFigure(), nullptr);
    QCOMPARE(changed.count(), 0);
    QRect rect(1, 2, 3, 4);
    QCOMPARE(child.translateToAbsolute(rect), QRect(1, 2, 3, 4));
}

void tst_Figure_Lifetime::destroyedLayoutLeavesItsChildrenWithTheirParent()
{
    ParentFigure parent;
    Figure child;
    parent.add(&child);

    delete parent.plain;

    QCOMPARE(parent.childFigures(), QList<Figure *>());
    QCOMPARE(child.getParentFigure(), &parent);
}

void tst_Figure_Lifetime::destroyedFigureLeavesItsLayoutWithoutAFigure()
{
    PlainLayout layout;
    auto figure = std::make_unique<Figure>();
    Figure child;
    figure->setLayoutManager(&layout);

    figure.reset();

    QCOMPARE(layout.getFigure(), nullptr);
    QVERIFY(!layout.add(&child));
    layout.invalidate();
}

void tst_Figure_Lifetime::laterListenersFindNullForAParentThatWent_data()
{
    QTest::addColumn<QString>("victim");

    QTest::newRow("the parent before") << QStringLiteral("parent");
    QTest::newRow("the parent after") << QStringLiteral("root");
}

// The figure's own watch over its ancestors is such a listener.
void tst_Figure_Lifetime::laterListenersFindNullForAParentThatWent()
{
    QFETCH(QString, victim);
    World world;
    Figure *const child = world.sibling();
    QList<QObject *> parents;
    connect(child, &Figure::propertyChanged, this, [&] { world.destroy(victim); });
    child->addAncestorListener(world.get<AncestorRecorder>("listener"));
    connect(child, &Figure::propertyChanged, this,
            [&](const QString &, const QVariant &before, const QVariant &after) {
                parents = {before.value<QObject *>(), after.value<QObject *>()};
            });
    const QList<QObject *> expected{victim == QStringLiteral("parent") ? nullptr : world.parent(),
                                    victim == QStringLiteral("root") ? nullptr : world.root()};

    child->setParentFigure(world.root());

    QCOMPARE(parents, expected);
    QVERIFY(!world.figure(qPrintable(victim)));
}

void tst_Figure_Lifetime::destroyedFigureLeavesTheQueue()
{
    FakeViewer viewer;
    UpdateManager updates;
    updates.setViewer(&viewer);
    QSignalSpy validating(&updates, &UpdateManager::aboutToValidate);
    auto figure = std::make_unique<RootFigure>(&updates);
    figure->revalidate();

    figure.reset();
    updates.performUpdate();

    QCOMPARE(validating.count(), 0);
}

void tst_Figure_Lifetime::newFigureMayTakeTheAddressOfAQueuedOne()
{
    FakeViewer viewer;
    UpdateManager updates;
    updates.setViewer(&viewer);
    QList<Figure *> validated;
    alignas(OrderlyFigure) unsigned char place[sizeof(OrderlyFigure)];
    auto *former = new (place) OrderlyFigure(&validated);
    OrderlyFigure other(&validated);
    updates.addInvalidFigure(former);
    updates.addInvalidFigure(&other);
    former->~OrderlyFigure();

    // It comes to the end of the queue, and not into the place of the former one.
    auto *present = new (place) OrderlyFigure(&validated);
    updates.addInvalidFigure(present);
    updates.addInvalidFigure(present);
    updates.performUpdate();

    QCOMPARE(validated, QList<Figure *>({&other, present}));
    present->~OrderlyFigure();
}

void tst_Figure_Lifetime::figureDestroyedWhileAnotherIsValidatedIsSkipped()
{
    FakeViewer viewer;
    UpdateManager updates;
    updates.setViewer(&viewer);
    DeadlyFigure first;
    auto second = std::make_unique<CountingFigure>();
    CountingFigure third;
    first.whenLaidOut = [&] { second.reset(); };
    updates.addInvalidFigure(&first);
    updates.addInvalidFigure(second.get());
    updates.addInvalidFigure(&third);

    updates.performUpdate();

    QVERIFY(!second);
    QCOMPARE(third.calls().validate, 1);
}

void tst_Figure_Lifetime::destroyedUpdateManagerCountsAsNone()
{
    FreeformViewer viewer;
    FreeformLayeredPane pane;
    FreeformLayer layer;
    pane.addLayer(&layer, QStringLiteral("layer"));
    viewer.setContent(&pane);
    QVERIFY(layer.getUpdateManager());
    QCOMPARE(layer.getUpdateManager(), viewer.getUpdateManager());

    delete viewer.getUpdateManager();

    QCOMPARE(layer.getUpdateManager(), nullptr);
    layer.setBounds(QRect(0, 0, 10, 10));
    layer.repaint();
    layer.revalidate();
    QVERIFY(layer.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Figure_Lifetime::anyOrderOfDestructionIsSafe()
{
    LogCapture log;
    QStringList order{QStringLiteral("border"),        QStringLiteral("child"),
                      QStringLiteral("listener"),      QStringLiteral("parent"),
                      QStringLiteral("parent layout"), QStringLiteral("root"),
                      QStringLiteral("root layout")};
    std::sort(order.begin(), order.end());
    int orders = 0;
    do {
        World world;
        for (const QString &name : std::as_const(order)) {
            world.destroy(name);
            world.use();
        }
        ++orders;
        log.clear();
    } while (std::next_permutation(order.begin(), order.end()));

    QCOMPARE(orders, 5040);
}

void tst_Figure_Lifetime::anythingMayBeDestroyedInsideASlot_data()
{
    QTest::addColumn<int>("event");
    QTest::addColumn<QString>("victim");

    const World names;
    for (int i = 0; i < events().size(); ++i) {
        for (const QString &victim : names.objects.keys()) {
            if (victim != QStringLiteral("updates"))
                QTest::addRow("%s, and destroys: %s", events()[i].name, qPrintable(victim))
                    << i << victim;
        }
    }
}

void tst_Figure_Lifetime::anythingMayBeDestroyedInsideASlot()
{
    QFETCH(int, event);
    QFETCH(QString, victim);
    LogCapture log;
    World world;
    bool happened = false;
    events()[event].connect(world, [&] {
        if (!std::exchange(happened, true))
            world.destroy(victim);
    });

    events()[event].cause(world);
    world.use();

    QVERIFY(happened);
    QVERIFY(!world.objects.value(victim));
}

void tst_Figure_Lifetime::siblingMayBeDestroyedWhileAFigureIsPainted_data()
{
    QTest::addColumn<int>("victim");

    QTest::newRow("earlier sibling") << 0;
    QTest::newRow("itself") << 1;
    QTest::newRow("later sibling") << 2;
    QTest::newRow("parent") << 3;
}

void tst_Figure_Lifetime::siblingMayBeDestroyedWhileAFigureIsPainted()
{
    QFETCH(int, victim);
    auto *parent = new ParentFigure;
    auto *earlier = new CountingFigure;
    auto *deadly = new DeadlyFigure;
    auto *later = new CountingFigure;
    parent->setBounds(QRect(0, 0, 100, 100));
    const QList<QPointer<Figure>> figures{earlier, deadly, later, parent};
    for (Figure *figure : QList<Figure *>{earlier, deadly, later}) {
        figure->setBounds(QRect(0, 0, 10, 10));
        parent->add(figure);
    }
    deadly->whenPainted = [&] { delete figures[victim]; };
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 100, 100);

    record([&](QPainter *painter) { parent->render(painter, option); });

    QVERIFY(!figures[victim]);
    if (victim < 2)
        QCOMPARE(later->calls().drawFigure, 1);
    for (const QPointer<Figure> &figure : figures)
        delete figure;
}

void tst_Figure_Lifetime::siblingMayBeDestroyedWhileAFigureIsLaidOut_data()
{
    siblingMayBeDestroyedWhileAFigureIsPainted_data();
}

void tst_Figure_Lifetime::siblingMayBeDestroyedWhileAFigureIsLaidOut()
{
    QFETCH(int, victim);
    auto *parent = new ParentFigure;
    auto *earlier = new CountingFigure;
    auto *deadly = new DeadlyFigure;
    auto *later = new CountingFigure;
    const QList<QPointer<Figure>> figures{earlier, deadly, later, parent};
    for (Figure *figure : QList<Figure *>{earlier, deadly, later})
        parent->add(figure);
    deadly->whenLaidOut = [&] { delete figures[victim]; };

    parent->validate();

    QVERIFY(!figures[victim]);
    if (victim < 2)
        QCOMPARE(later->calls().validate, 1);
    for (const QPointer<Figure> &figure : figures)
        delete figure;
}

QTEST_MAIN(tst_Figure_Lifetime)
#include "tst_figure_lifetime.moc"
