#include "layout_fixtures.h"

#include <logcapture.h>

#include <QImage>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const QString INVALIDATE = QStringLiteral("invalidate");
const QString LAYOUT = QStringLiteral("layout");
const QString POST_LAYOUT = QStringLiteral("postLayout");
const QString REMOVE = QStringLiteral("remove");
const QString SET_CONSTRAINT = QStringLiteral("setConstraint");

// Two listeners that share one journal, so that their order shows.
struct Pair
{
    explicit Pair(Layout *layout)
    {
        first.onCall = [this](const QString &call) { journal.append("first " + call); };
        second.onCall = [this](const QString &call) { journal.append("second " + call); };
        layout->addListener(&first);
        layout->addListener(&second);
    }

    ListenerProbe first;
    ListenerProbe second;
    QStringList journal;
};

class PaintCounter : public Figure
{
public:
    int renders = 0;

    void render(QPainter *, const QStyleOptionViewItem &) override { ++renders; }
};

// Does each of the five things once that listeners are told of.
void doEverything(ProbeLayout *layout)
{
    Figure child;
    layout->add(&child, 1);
    layout->invalidate();
    layout->layout(layout->getFigure());
    layout->remove(&child);
}

void addOperations()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("invalidate") << INVALIDATE;
    QTest::newRow("layout") << LAYOUT;
    QTest::newRow("postLayout") << POST_LAYOUT;
    QTest::newRow("remove") << REMOVE;
    QTest::newRow("setConstraint") << SET_CONSTRAINT;
}

} // namespace

class tst_LayoutListeners : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void addingNullWarns();
    void removingNullWarns();
    void warningsCarryNoPlace();
    void listenerNeedsNoQObject();
    void listenerAddedTwiceIsCalledOnce();
    void removedListenerIsNotCalled();
    void listenerAddedTwiceIsGoneAfterOneRemoval();
    void removingAnUnknownListenerDoesNothing();
    void listenersAreCalledInOrderWithTheContainer();

    void invalidateIsAnnouncedBeforeAnythingIsForgotten();
    void invalidateOfTheContainerReachesTheListeners();
    void invalidateWithoutContainerPassesNull();
    void everyListenerIsAskedToLayOut();
    void anyListenerTakesTheLayoutOver_data();
    void anyListenerTakesTheLayoutOver();
    void childrenOfATakenOverLayoutAreNotPainted();
    void postLayoutFollowsTheLayout();
    void postLayoutFollowsAFailedLayoutToo();
    void finishedLayoutAsksNobody();
    void layoutOfNullAsksNobody();
    void removeIsAnnouncedOncePerChild();
    void setConstraintPassesTheNewConstraint();
    void sameObjectInAGuardedPointerIsNoNewConstraint();

    void listenerMayRemoveItself_data() { addOperations(); }
    void listenerMayRemoveItself();
    void listenerMayDeleteTheNextOne_data() { addOperations(); }
    void listenerMayDeleteTheNextOne();
    void listenerMayDeleteTheFormerOne_data() { addOperations(); }
    void listenerMayDeleteTheFormerOne();
    void listenerMayAddAnother_data() { addOperations(); }
    void listenerMayAddAnother();
};

void tst_LayoutListeners::addingNullWarns()
{
    ProbeLayout layout;

    QTest::ignoreMessage(QtWarningMsg, "Layout::addListener(): null listener");
    layout.addListener(nullptr);

    layout.invalidate(); // nothing null is called
}

void tst_LayoutListeners::removingNullWarns()
{
    ProbeLayout layout;

    QTest::ignoreMessage(QtWarningMsg, "Layout::removeListener(): null listener");
    layout.removeListener(nullptr);
}

void tst_LayoutListeners::warningsCarryNoPlace()
{
    ProbeLayout layout;
    LogCapture log;

    layout.addListener(nullptr);
    layout.removeListener(nullptr);

    QCOMPARE(log.messages().count(), 2);
    QVERIFY(!log.messages().at(0).hasPlace);
    QVERIFY(!log.messages().at(1).hasPlace);
    QCOMPARE(log.texts(QtWarningMsg).count(), 2);
}

void tst_LayoutListeners::listenerNeedsNoQObject()
{
    ProbeLayout layout;
    ListenerProbe listener;

    layout.addListener(&listener);
    layout.invalidate();

    QCOMPARE(listener.calls, QStringList{INVALIDATE});
}

void tst_LayoutListeners::listenerAddedTwiceIsCalledOnce()
{
    ProbeLayout layout;
    ListenerProbe listener;

    layout.addListener(&listener);
    layout.addListener(&listener);
    layout.invalidate();

    QCOMPARE(listener.calls, QStringList{INVALIDATE});
}

void tst_LayoutListeners::removedListenerIsNotCalled()
{
    Scene<ProbeLayout> scene;
    Pair pair(&scene.layout);

    scene.layout.removeListener(&pair.first);
    doEverything(&scene.layout);

    QCOMPARE(pair.first.calls, QStringList());
    QVERIFY(!pair.second.calls.isEmpty());
}

void tst_LayoutListeners::listenerAddedTwiceIsGoneAfterOneRemoval()
{
    ProbeLayout layout;
    ListenerProbe listener;
    layout.addListener(&listener);
    layout.addListener(&listener);

    layout.removeListener(&listener);
    layout.invalidate();

    QCOMPARE(listener.calls, QStringList());
}

void tst_LayoutListeners::removingAnUnknownListenerDoesNothing()
{
    ProbeLayout layout;
    ListenerProbe known;
    ListenerProbe unknown;
    layout.addListener(&known);

    layout.removeListener(&unknown);
    layout.invalidate();

    QCOMPARE(known.calls, QStringList{INVALIDATE});
}

void tst_LayoutListeners::listenersAreCalledInOrderWithTheContainer()
{
    Scene<ProbeLayout> scene;
    Pair pair(&scene.layout);
    Figure child;
    scene.layout.add(&child);
    pair.journal.clear();

    scene.layout.setConstraint(&child, 5);
    scene.layout.invalidate();
    scene.layout.layout(&scene.figure);
    scene.layout.remove(&child);

    QCOMPARE(pair.journal,
             (QStringList{"first setConstraint", "second setConstraint", "first invalidate",
                          "second invalidate", "first layout", "second layout", "first postLayout",
                          "second postLayout", "first remove", "second remove"}));
    QCOMPARE(pair.first.containers.count(&scene.figure), pair.first.containers.count());
}

void tst_LayoutListeners::invalidateIsAnnouncedBeforeAnythingIsForgotten()
{
    Scene<ProbeLayout> scene;
    scene.layout.setLaidOut(true);
    scene.layout.getPreferredSize();
    ListenerProbe listener;
    bool laidOutThen = false;
    int callsThen = 0;
    listener.onCall = [&](const QString &) {
        laidOutThen = scene.layout.isLaidOut();
        scene.layout.getPreferredSize();
        callsThen = scene.layout.preferredCalls;
    };
    scene.layout.addListener(&listener);

    scene.layout.invalidate();

    QVERIFY(laidOutThen);
    QCOMPARE(callsThen, 1);
    QVERIFY(!scene.layout.isLaidOut());
}

void tst_LayoutListeners::invalidateOfTheContainerReachesTheListeners()
{
    Scene<ProbeLayout> scene;
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    scene.figure.invalidate();

    QCOMPARE(listener.calls, QStringList{INVALIDATE});
    QCOMPARE(listener.containers, QList<Figure *>{&scene.figure});
}

void tst_LayoutListeners::invalidateWithoutContainerPassesNull()
{
    ProbeLayout layout;
    ListenerProbe listener;
    layout.addListener(&listener);

    layout.invalidate();

    QCOMPARE(listener.containers, QList<Figure *>{nullptr});
}

void tst_LayoutListeners::everyListenerIsAskedToLayOut()
{
    Scene<ProbeLayout> scene;
    Pair pair(&scene.layout);
    pair.first.takesOver = true;

    scene.layout.layout(&scene.figure);

    QCOMPARE(pair.journal, (QStringList{"first layout", "second layout", "first postLayout",
                                        "second postLayout"}));
}

void tst_LayoutListeners::anyListenerTakesTheLayoutOver_data()
{
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("second");
    QTest::newRow("the first") << true << false;
    QTest::newRow("the last") << false << true;
    QTest::newRow("both") << true << true;
}

void tst_LayoutListeners::anyListenerTakesTheLayoutOver()
{
    QFETCH(bool, first);
    QFETCH(bool, second);
    Scene<ProbeLayout> scene;
    Pair pair(&scene.layout);
    pair.first.takesOver = first;
    pair.second.takesOver = second;

    QVERIFY(!scene.layout.layout(&scene.figure));

    QVERIFY(!scene.layout.isLaidOut());
    QVERIFY(scene.layout.clientAreas.isEmpty());
    QCOMPARE(pair.first.calls.count(POST_LAYOUT), 1);
    QCOMPARE(pair.second.calls.count(POST_LAYOUT), 1);
}

// A layout that was taken over never counts as done, so it is asked again and paints no child.
void tst_LayoutListeners::childrenOfATakenOverLayoutAreNotPainted()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 50, 50));
    PaintCounter child;
    scene.layout.add(&child);
    child.setBounds(QRect(0, 0, 10, 10));
    ListenerProbe listener;
    listener.takesOver = true;
    scene.layout.addListener(&listener);
    QImage image(50, 50, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 50, 50);

    scene.layout.layout(&scene.figure);
    scene.layout.render(&painter, option);

    QCOMPARE(child.renders, 0);
    QCOMPARE(listener.calls, (QStringList{LAYOUT, POST_LAYOUT, LAYOUT, POST_LAYOUT}));
}

void tst_LayoutListeners::postLayoutFollowsTheLayout()
{
    Scene<ProbeLayout> scene;
    ListenerProbe listener;
    int performedThen = -1;
    listener.onCall = [&](const QString &call) {
        if (call == LAYOUT)
            QCOMPARE(scene.layout.clientAreas.count(), 0);
        if (call == POST_LAYOUT)
            performedThen = scene.layout.clientAreas.count();
    };
    scene.layout.addListener(&listener);

    QVERIFY(scene.layout.layout(&scene.figure));

    QCOMPARE(listener.calls, (QStringList{LAYOUT, POST_LAYOUT}));
    QCOMPARE(performedThen, 1);
    QVERIFY(scene.layout.isLaidOut());
}

void tst_LayoutListeners::postLayoutFollowsAFailedLayoutToo()
{
    Scene<ProbeLayout> scene;
    scene.layout.performs = false;
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    QVERIFY(!scene.layout.layout(&scene.figure));

    QCOMPARE(listener.calls, (QStringList{LAYOUT, POST_LAYOUT}));
}

void tst_LayoutListeners::finishedLayoutAsksNobody()
{
    Scene<ProbeLayout> scene;
    scene.layout.setLaidOut(true);
    ListenerProbe listener;
    listener.takesOver = true;
    scene.layout.addListener(&listener);

    QVERIFY(scene.layout.layout(&scene.figure));

    QCOMPARE(listener.calls, QStringList());
}

void tst_LayoutListeners::layoutOfNullAsksNobody()
{
    Scene<ProbeLayout> scene;
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    QVERIFY(!scene.layout.layout(nullptr));

    QCOMPARE(listener.calls, QStringList());
}

void tst_LayoutListeners::removeIsAnnouncedOncePerChild()
{
    Scene<ProbeLayout> scene;
    Figure a;
    Figure b;
    scene.layout.add(&a);
    scene.layout.add(&b);
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    scene.layout.remove(&a);
    scene.layout.remove(&b);
    scene.layout.remove(&b);

    QCOMPARE(listener.calls, (QStringList{REMOVE, REMOVE}));
    QCOMPARE(listener.containers, (QList<Figure *>{&scene.figure, &scene.figure}));
}

void tst_LayoutListeners::setConstraintPassesTheNewConstraint()
{
    Scene<ProbeLayout> scene;
    Figure child;
    scene.layout.add(&child, 1);
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    scene.layout.setConstraint(&child, 2);
    scene.layout.setConstraint(&child, 2);
    scene.layout.setConstraint(&child, 3);

    QCOMPARE(listener.constraints, (QList<QVariant>{2, 3}));
    QCOMPARE(listener.containers, (QList<Figure *>{&scene.figure, &scene.figure}));
}

void tst_LayoutListeners::sameObjectInAGuardedPointerIsNoNewConstraint()
{
    QObject owner;
    auto *object = new QObject(&owner);
    Scene<ProbeLayout> scene;
    Figure child;
    ListenerProbe listener;
    scene.layout.add(&child, QVariant::fromValue(object));
    scene.layout.addListener(&listener);

    scene.layout.setConstraint(&child, QVariant::fromValue(QPointer<QObject>(object)));

    QVERIFY(listener.constraints.isEmpty());
}

void tst_LayoutListeners::listenerMayRemoveItself()
{
    QFETCH(QString, operation);
    Scene<ProbeLayout> scene;
    Pair pair(&scene.layout);
    pair.first.onCall = [&](const QString &call) {
        if (call == operation)
            scene.layout.removeListener(&pair.first);
    };

    doEverything(&scene.layout);

    QCOMPARE(pair.first.calls.last(), operation);
    QVERIFY(pair.second.calls.contains(operation));
}

void tst_LayoutListeners::listenerMayDeleteTheNextOne()
{
    QFETCH(QString, operation);
    Scene<ProbeLayout> scene;
    ListenerProbe first;
    auto next = std::make_unique<ListenerProbe>();
    ListenerProbe last;
    first.onCall = [&](const QString &call) {
        if (call != operation || !next)
            return;
        scene.layout.removeListener(next.get());
        next.reset();
    };
    scene.layout.addListener(&first);
    scene.layout.addListener(next.get());
    scene.layout.addListener(&last);

    doEverything(&scene.layout);

    QVERIFY(!next);
    QCOMPARE(last.calls, first.calls);
}

void tst_LayoutListeners::listenerMayDeleteTheFormerOne()
{
    QFETCH(QString, operation);
    Scene<ProbeLayout> scene;
    auto former = std::make_unique<ListenerProbe>();
    ListenerProbe middle;
    ListenerProbe last;
    middle.onCall = [&](const QString &call) {
        if (call != operation || !former)
            return;
        scene.layout.removeListener(former.get());
        former.reset();
    };
    scene.layout.addListener(former.get());
    scene.layout.addListener(&middle);
    scene.layout.addListener(&last);

    doEverything(&scene.layout);

    QVERIFY(!former);
    QCOMPARE(last.calls, middle.calls);
}

void tst_LayoutListeners::listenerMayAddAnother()
{
    QFETCH(QString, operation);
    Scene<ProbeLayout> scene;
    ListenerProbe first;
    ListenerProbe second;
    ListenerProbe added;
    first.onCall = [&](const QString &call) {
        if (call == operation)
            scene.layout.addListener(&added);
    };
    scene.layout.addListener(&first);
    scene.layout.addListener(&second);

    doEverything(&scene.layout);
    doEverything(&scene.layout);

    QCOMPARE(second.calls, first.calls);
    QVERIFY(added.calls.contains(operation));
}

QTEST_MAIN(tst_LayoutListeners)
#include "tst_layout_listeners.moc"
