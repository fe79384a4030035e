#include "fixtures.h"

#include <ancestorrecorder.h>
#include <logcapture.h>

#include <figura/figure/AncestorHelper.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

using Figures = QList<Figure *>;

/// Implements the interface, but cannot be connected to.
class NoObjectListener : public IAncestorListener
{
public:
    int calls = 0;

    void ancestorAdded(Figure *) override { ++calls; }
    void ancestorMoved(Figure *) override { ++calls; }
    void ancestorRemoved(Figure *) override { ++calls; }
};

/// Three generations, the youngest watched.
struct Family
{
    Family()
    {
        grandparent.add(&parent);
        parent.add(&child);
        child.addAncestorListener(&listener);
    }

    AncestorRecorder listener;
    ParentFigure grandparent;
    ParentFigure parent;
    Figure child;
};

/// Tells how many connections there are to what it emits.
class WatchedFigure : public ParentFigure
{
public:
    int connections() const
    {
        return receivers(SIGNAL(figureMoved(Figure *))) + receivers(SIGNAL(destroyed(QObject *))) +
               receivers(SIGNAL(propertyChanged(QString, QVariant, QVariant)));
    }
};

/// Grows the figure by a pixel. Unlike a move, that is told by the figure alone.
void nudge(Figure &figure)
{
    figure.setBounds(figure.getBounds().adjusted(0, 0, 1, 1));
}

} // namespace

class tst_Ancestor_Listeners : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    // Moves.
    void moveOfAnyAncestorIsTold();
    void figuresThatAMoveTakesAlongTellBeforeTheFigureThatMoves();
    void moveOfTheFigureItselfIsToldBesidesFigureMoved();
    void translationIsToldEvenWhenNothingMoves();
    void moveOfASiblingIsNotTold();

    // Changes of the chain.
    void removalTellsTheOldParent();
    void additionTellsTheNewParent();
    void directChangeTellsTheOldParentThenTheNewOne();
    void sameParentSetAgainIsToldAsRemovedAndAdded();
    void chainAboveARemovedFigureIsLetGo();
    void chainAboveANewParentIsWatched();
    void changeAboveAnAncestorIsToldAndRewired();
    void everyFigureOfTheChainIsWatchedOnce();

    // Registration.
    void everyListenerIsTold();
    void listenerAddedTwiceIsToldTwice();
    void listenerAddedTwiceAndRemovedOnceIsGoneButTheFigureIsStillWatched();
    void removedListenerIsNotToldAnyMore();
    void figureIsWatchedOnlyWhileThereAreListeners();
    void listenerAddedAfterAllWereRemovedIsTold();
    void removalOfAStrangerCountsAsARemoval();
    void watchGoesOnWhenTheCountIsBelowZero();
    void listenerThatIsNoObjectIsNeverCalledAndNotReported();
    void nullListenerIsIgnored();

    // Destruction.
    void destroyedAncestorEndsTheWatch_data();
    void destroyedAncestorEndsTheWatch();
    void listenerAddedAfterAnAncestorWasDestroyedIsNotTold();
    void newWatchBeginsAfterTheLastListenerWasRemoved();
    void destroyedListenerIsForgotten();
    void destroyedFigureTellsNobody();
    void listenerMayRemoveItselfWhileItIsTold_data();
    void listenerMayRemoveItselfWhileItIsTold();
    void destructionOfTheWholeChainFromTheTopIsSafe();

    // The helper alone.
    void helperSignalsAreRelayedByTheFigure();
    void helperIgnoresNullAndOtherProperties();
    void helperIgnoresParentsThatAreNoFigures();
    void helperTakesParentsAsObjectPointers();
    void helperRewiresThroughItsVirtualOperations();
    void destroyedHelperLetsGo();
    void helperThatOutlivesItsFigureIsForgottenAbove();
    void chainIsLetGoByTheLastListenerAndWatchedAnewByTheNext_data();
    void chainIsLetGoByTheLastListenerAndWatchedAnewByTheNext();
};

void tst_Ancestor_Listeners::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Ancestor_Listeners::moveOfAnyAncestorIsTold()
{
    Family family;

    nudge(family.grandparent);
    QCOMPARE(family.listener.all, Figures({&family.grandparent}));

    family.listener.clear();
    nudge(family.parent);
    QCOMPARE(family.listener.moved, Figures({&family.parent}));
}

void tst_Ancestor_Listeners::figuresThatAMoveTakesAlongTellBeforeTheFigureThatMoves()
{
    Family family;
    family.grandparent.setBounds(QRect(0, 0, 10, 10));
    family.parent.setBounds(QRect(0, 0, 10, 10));
    family.listener.clear();

    family.grandparent.setBounds(QRect(5, 5, 10, 10));
    QCOMPARE(family.listener.moved, Figures({&family.parent, &family.grandparent}));

    family.listener.clear();
    family.parent.setBounds(QRect(5, 5, 10, 10));
    QCOMPARE(family.listener.moved, Figures({&family.child, &family.parent}));
}

void tst_Ancestor_Listeners::moveOfTheFigureItselfIsToldBesidesFigureMoved()
{
    Family family;
    QSignalSpy moved(&family.child, &Figure::figureMoved);

    nudge(family.child);

    QCOMPARE(family.listener.moved, Figures({&family.child}));
    QCOMPARE(moved.count(), 1);
}

void tst_Ancestor_Listeners::translationIsToldEvenWhenNothingMoves()
{
    Family family;

    family.parent.translate(0, 0);

    QCOMPARE(family.listener.moved, Figures({&family.parent}));
}

void tst_Ancestor_Listeners::moveOfASiblingIsNotTold()
{
    Family family;
    Figure sibling;
    family.parent.add(&sibling);
    family.listener.clear();

    nudge(sibling);

    QCOMPARE(family.listener.all, Figures());
}

void tst_Ancestor_Listeners::removalTellsTheOldParent()
{
    Family family;

    family.parent.remove(&family.child);

    QCOMPARE(family.listener.all, Figures({&family.parent}));
    QCOMPARE(family.listener.removed, Figures({&family.parent}));
}

void tst_Ancestor_Listeners::additionTellsTheNewParent()
{
    Family family;
    ParentFigure other;
    family.parent.remove(&family.child);
    family.listener.clear();

    other.add(&family.child);

    QCOMPARE(family.listener.all, Figures({&other}));
    QCOMPARE(family.listener.added, Figures({&other}));
}

void tst_Ancestor_Listeners::directChangeTellsTheOldParentThenTheNewOne()
{
    Family family;
    Figure other;

    family.child.setParentFigure(&other);

    QCOMPARE(family.listener.all, Figures({&family.parent, &other}));
    QCOMPARE(family.listener.removed, Figures({&family.parent}));
    QCOMPARE(family.listener.added, Figures({&other}));
}

void tst_Ancestor_Listeners::sameParentSetAgainIsToldAsRemovedAndAdded()
{
    Family family;

    family.child.setParentFigure(&family.parent);

    QCOMPARE(family.listener.removed, Figures({&family.parent}));
    QCOMPARE(family.listener.added, Figures({&family.parent}));
    family.listener.clear();
    nudge(family.grandparent);
    QCOMPARE(family.listener.moved, Figures({&family.grandparent}));
}

void tst_Ancestor_Listeners::chainAboveARemovedFigureIsLetGo()
{
    Family family;
    family.parent.remove(&family.child);
    family.listener.clear();

    nudge(family.parent);
    nudge(family.grandparent);
    family.grandparent.remove(&family.parent);
    QCOMPARE(family.listener.all, Figures());

    nudge(family.child);
    QCOMPARE(family.listener.moved, Figures({&family.child}));
}

void tst_Ancestor_Listeners::chainAboveANewParentIsWatched()
{
    ParentFigure newGrandparent;
    ParentFigure newParent;
    Family family;
    newGrandparent.add(&newParent);
    family.parent.remove(&family.child);
    newParent.add(&family.child);
    family.listener.clear();

    nudge(newGrandparent);
    nudge(newParent);

    QCOMPARE(family.listener.moved, Figures({&newGrandparent, &newParent}));
}

void tst_Ancestor_Listeners::changeAboveAnAncestorIsToldAndRewired()
{
    ParentFigure newGrandparent;
    Family family;

    family.grandparent.remove(&family.parent);
    QCOMPARE(family.listener.removed, Figures({&family.grandparent}));
    newGrandparent.add(&family.parent);
    QCOMPARE(family.listener.added, Figures({&newGrandparent}));

    family.listener.clear();
    nudge(family.grandparent);
    QCOMPARE(family.listener.all, Figures());
    nudge(newGrandparent);
    nudge(family.parent);
    QCOMPARE(family.listener.moved, Figures({&newGrandparent, &family.parent}));
}

void tst_Ancestor_Listeners::everyFigureOfTheChainIsWatchedOnce()
{
    Family family;
    for (int i = 0; i < 3; ++i) {
        family.grandparent.remove(&family.parent);
        family.grandparent.add(&family.parent);
        family.parent.remove(&family.child);
        family.parent.add(&family.child);
    }
    family.listener.clear();

    nudge(family.grandparent);
    nudge(family.parent);
    nudge(family.child);

    QCOMPARE(family.listener.moved, Figures({&family.grandparent, &family.parent, &family.child}));
}

void tst_Ancestor_Listeners::everyListenerIsTold()
{
    AncestorRecorder second;
    Family family;
    family.child.addAncestorListener(&second);

    nudge(family.parent);

    QCOMPARE(family.listener.moved, Figures({&family.parent}));
    QCOMPARE(second.moved, Figures({&family.parent}));
}

void tst_Ancestor_Listeners::listenerAddedTwiceIsToldTwice()
{
    Family family;
    family.child.addAncestorListener(&family.listener);

    nudge(family.parent);

    QCOMPARE(family.listener.moved, Figures({&family.parent, &family.parent}));
}

void tst_Ancestor_Listeners::listenerAddedTwiceAndRemovedOnceIsGoneButTheFigureIsStillWatched()
{
    Family family;
    family.child.addAncestorListener(&family.listener);
    QSignalSpy watched(&family.child, &Figure::ancestorMoved);

    family.child.removeAncestorListener(&family.listener);
    nudge(family.parent);

    QCOMPARE(family.listener.all, Figures());
    QCOMPARE(watched.count(), 1);
}

void tst_Ancestor_Listeners::removedListenerIsNotToldAnyMore()
{
    AncestorRecorder staying;
    Family family;
    family.child.addAncestorListener(&staying);

    family.child.removeAncestorListener(&family.listener);
    nudge(family.parent);
    family.parent.remove(&family.child);
    family.parent.add(&family.child);

    QCOMPARE(family.listener.all, Figures());
    QCOMPARE(staying.moved, Figures({&family.parent}));
    QCOMPARE(staying.removed, Figures({&family.parent}));
    QCOMPARE(staying.added, Figures({&family.parent}));
}

void tst_Ancestor_Listeners::figureIsWatchedOnlyWhileThereAreListeners()
{
    ParentFigure parent;
    Figure child;
    AncestorRecorder first;
    AncestorRecorder second;
    parent.add(&child);
    QSignalSpy watched(&child, &Figure::ancestorMoved);

    nudge(parent);
    QCOMPARE(watched.count(), 0);

    child.addAncestorListener(&first);
    child.addAncestorListener(&second);
    child.removeAncestorListener(&first);
    nudge(parent);
    QCOMPARE(watched.count(), 1);

    child.removeAncestorListener(&second);
    nudge(parent);
    QCOMPARE(watched.count(), 1);
}

void tst_Ancestor_Listeners::listenerAddedAfterAllWereRemovedIsTold()
{
    Family family;
    family.child.removeAncestorListener(&family.listener);

    family.child.addAncestorListener(&family.listener);
    nudge(family.parent);

    QCOMPARE(family.listener.moved, Figures({&family.parent}));
}

// Only the number of listeners is kept, on purpose: who removes a stranger ends the watch.
void tst_Ancestor_Listeners::removalOfAStrangerCountsAsARemoval()
{
    AncestorRecorder stranger;
    Family family;

    family.child.removeAncestorListener(&stranger);
    nudge(family.parent);

    QCOMPARE(family.listener.all, Figures());
}

// Only a count of exactly zero ends the watch, on purpose.
void tst_Ancestor_Listeners::watchGoesOnWhenTheCountIsBelowZero()
{
    AncestorRecorder listener;
    AncestorRecorder stranger;
    ParentFigure parent;
    Figure child;
    parent.add(&child);
    child.removeAncestorListener(&stranger);
    child.addAncestorListener(&listener);
    QSignalSpy watched(&child, &Figure::ancestorMoved);

    child.removeAncestorListener(&listener);
    nudge(parent);

    QCOMPARE(listener.all, Figures());
    QCOMPARE(watched.count(), 1);
}

void tst_Ancestor_Listeners::listenerThatIsNoObjectIsNeverCalledAndNotReported()
{
    NoObjectListener listener;
    ParentFigure parent;
    Figure child;
    parent.add(&child);
    QSignalSpy watched(&child, &Figure::ancestorMoved);
    LogCapture log;

    child.addAncestorListener(&listener);
    nudge(parent);
    child.removeAncestorListener(&listener);

    QCOMPARE(listener.calls, 0);
    QCOMPARE(watched.count(), 0);
    QCOMPARE(log.messages().size(), 0);

    // It was not counted either.
    AncestorRecorder recorder;
    child.addAncestorListener(&recorder);
    child.removeAncestorListener(&listener);
    nudge(parent);
    QCOMPARE(recorder.moved, Figures({&parent}));
}

void tst_Ancestor_Listeners::nullListenerIsIgnored()
{
    Family family;
    LogCapture log;

    family.child.addAncestorListener(nullptr);
    family.child.removeAncestorListener(nullptr);
    nudge(family.parent);

    QCOMPARE(family.listener.moved, Figures({&family.parent}));
    QCOMPARE(log.messages().size(), 0);
}

void tst_Ancestor_Listeners::destroyedAncestorEndsTheWatch_data()
{
    QTest::addColumn<int>("generation");

    QTest::newRow("parent") << 1;
    QTest::newRow("grandparent") << 0;
}

void tst_Ancestor_Listeners::destroyedAncestorEndsTheWatch()
{
    QFETCH(int, generation);
    AncestorRecorder listener;
    std::unique_ptr<ParentFigure> chain[2] = {std::make_unique<ParentFigure>(),
                                              std::make_unique<ParentFigure>()};
    Figure child;
    chain[0]->add(chain[1].get());
    chain[1]->add(&child);
    child.addAncestorListener(&listener);

    chain[generation].reset();
    QCOMPARE(listener.all, Figures());

    nudge(child);
    if (chain[1])
        nudge(*chain[1]);
    child.setParentFigure(nullptr);
    QCOMPARE(listener.all, Figures());
}

// The watch has ended for good, and a listener that is left keeps it from beginning anew.
void tst_Ancestor_Listeners::listenerAddedAfterAnAncestorWasDestroyedIsNotTold()
{
    AncestorRecorder first;
    AncestorRecorder later;
    auto parent = std::make_unique<ParentFigure>();
    Figure child;
    parent->add(&child);
    child.addAncestorListener(&first);
    parent.reset();

    child.addAncestorListener(&later);
    nudge(child);

    QCOMPARE(first.all, Figures());
    QCOMPARE(later.all, Figures());
}

void tst_Ancestor_Listeners::newWatchBeginsAfterTheLastListenerWasRemoved()
{
    AncestorRecorder listener;
    auto parent = std::make_unique<ParentFigure>();
    Figure child;
    parent->add(&child);
    child.addAncestorListener(&listener);
    parent.reset();

    child.removeAncestorListener(&listener);
    child.addAncestorListener(&listener);
    nudge(child);

    QCOMPARE(listener.moved, Figures({&child}));
}

void tst_Ancestor_Listeners::destroyedListenerIsForgotten()
{
    Family family;
    auto dying = std::make_unique<AncestorRecorder>();
    family.child.addAncestorListener(dying.get());

    dying.reset();
    nudge(family.parent);

    QCOMPARE(family.listener.moved, Figures({&family.parent}));
}

void tst_Ancestor_Listeners::destroyedFigureTellsNobody()
{
    AncestorRecorder listener;
    ParentFigure parent;
    auto child = std::make_unique<Figure>();
    parent.add(child.get());
    child->addAncestorListener(&listener);

    child.reset();
    nudge(parent);

    QCOMPARE(listener.all, Figures());
}

void tst_Ancestor_Listeners::listenerMayRemoveItselfWhileItIsTold_data()
{
    QTest::addColumn<int>("event");

    QTest::newRow("moved") << 0;
    QTest::newRow("removed") << 1;
    QTest::newRow("added") << 2;
}

void tst_Ancestor_Listeners::listenerMayRemoveItselfWhileItIsTold()
{
    QFETCH(int, event);
    Figure other;
    Family family;
    Figure &child = family.child;
    AncestorRecorder &listener = family.listener;
    const auto leave = [&] { child.removeAncestorListener(&listener); };
    if (event == 0)
        connect(&child, &Figure::ancestorMoved, &child, leave);
    else if (event == 1)
        connect(&child, &Figure::ancestorRemoved, &child, leave);
    else
        connect(&child, &Figure::ancestorAdded, &child, leave);

    // To another parent at once, so that more is to be told after the removal.
    nudge(family.parent);
    child.setParentFigure(&other);
    listener.clear();
    nudge(other);

    QCOMPARE(listener.all, Figures());
    QCOMPARE(child.getParentFigure(), &other);
}

void tst_Ancestor_Listeners::destructionOfTheWholeChainFromTheTopIsSafe()
{
    AncestorRecorder listener;
    auto grandparent = std::make_unique<ParentFigure>();
    auto parent = std::make_unique<ParentFigure>();
    auto child = std::make_unique<Figure>();
    grandparent->add(parent.get());
    parent->add(child.get());
    child->addAncestorListener(&listener);

    grandparent.reset();
    parent.reset();
    child.reset();

    QCOMPARE(listener.all, Figures());
}

void tst_Ancestor_Listeners::helperSignalsAreRelayedByTheFigure()
{
    Figure figure;
    Figure ancestor;
    AncestorHelper helper(&figure);
    QSignalSpy added(&figure, &Figure::ancestorAdded);
    QSignalSpy moved(&figure, &Figure::ancestorMoved);
    QSignalSpy removed(&figure, &Figure::ancestorRemoved);

    Q_EMIT helper.ancestorAdded(&ancestor);
    Q_EMIT helper.ancestorMoved(&ancestor);
    Q_EMIT helper.ancestorMoved(&figure);
    Q_EMIT helper.ancestorRemoved(&ancestor);

    QCOMPARE(added.count(), 1);
    QCOMPARE(added[0][0].value<Figure *>(), &ancestor);
    QCOMPARE(moved.count(), 2);
    QCOMPARE(moved[1][0].value<Figure *>(), &figure);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed[0][0].value<Figure *>(), &ancestor);
}

void tst_Ancestor_Listeners::helperIgnoresNullAndOtherProperties()
{
    ParentFigure parent;
    Figure figure;
    parent.add(&figure);
    AncestorHelper helper(&figure);
    QSignalSpy moved(&helper, &AncestorHelper::ancestorMoved);
    QSignalSpy removed(&helper, &AncestorHelper::ancestorRemoved);

    helper.figureMoved(nullptr);
    helper.ancestorDestroyed(nullptr);
    helper.propertyChanged(QStringLiteral("points"), QVariant::fromValue<Figure *>(&parent),
                           QVariant::fromValue<Figure *>(nullptr));
    QCOMPARE(moved.count(), 0);
    QCOMPARE(removed.count(), 0);

    nudge(parent);
    QCOMPARE(moved.count(), 1);
}

void tst_Ancestor_Listeners::helperIgnoresParentsThatAreNoFigures()
{
    QObject object;
    Figure figure;
    AncestorHelper helper(&figure);
    QSignalSpy added(&helper, &AncestorHelper::ancestorAdded);
    QSignalSpy removed(&helper, &AncestorHelper::ancestorRemoved);

    helper.propertyChanged(Figure::PROPERTY_PARENT, QVariant::fromValue<QObject *>(&object),
                           QVariant::fromValue<QObject *>(&object));
    helper.propertyChanged(Figure::PROPERTY_PARENT, QVariant(), QVariant(7));

    QCOMPARE(added.count(), 0);
    QCOMPARE(removed.count(), 0);
}

void tst_Ancestor_Listeners::helperTakesParentsAsObjectPointers()
{
    Figure parent;
    Figure figure;
    AncestorHelper helper(&figure);
    QSignalSpy added(&helper, &AncestorHelper::ancestorAdded);
    QSignalSpy moved(&helper, &AncestorHelper::ancestorMoved);

    helper.propertyChanged(Figure::PROPERTY_PARENT, QVariant(),
                           QVariant::fromValue<QObject *>(&parent));
    nudge(parent);

    QCOMPARE(added.count(), 1);
    QCOMPARE(added[0][0].value<Figure *>(), &parent);
    QCOMPARE(moved.count(), 1);
}

void tst_Ancestor_Listeners::helperRewiresThroughItsVirtualOperations()
{
    class Watching : public AncestorHelper
    {
    public:
        using AncestorHelper::AncestorHelper;
        Figures added;
        Figures removed;

    protected:
        void addAncestors(Figure *figure) override
        {
            added.append(figure);
            AncestorHelper::addAncestors(figure);
        }

        void removeAncestors(Figure *figure) override
        {
            removed.append(figure);
            AncestorHelper::removeAncestors(figure);
        }
    };
    Figure first;
    Figure second;
    Figure figure;
    figure.setParentFigure(&first);
    Watching helper(&figure);

    figure.setParentFigure(&second);

    QCOMPARE(helper.removed, Figures({&first}));
    QCOMPARE(helper.added, Figures({&second}));
}

void tst_Ancestor_Listeners::destroyedHelperLetsGo()
{
    ParentFigure parent;
    Figure figure;
    parent.add(&figure);
    auto helper = std::make_unique<AncestorHelper>(&figure);
    QSignalSpy moved(&figure, &Figure::ancestorMoved);

    helper.reset();
    nudge(parent);
    parent.remove(&figure);

    QCOMPARE(moved.count(), 0);
}

void tst_Ancestor_Listeners::helperThatOutlivesItsFigureIsForgottenAbove()
{
    ParentFigure root;
    auto figure = std::make_unique<Figure>();
    root.add(figure.get());
    auto helper = std::make_unique<AncestorHelper>(figure.get());
    const QSignalSpy moved(helper.get(), &AncestorHelper::ancestorMoved);

    figure.reset();
    root.setBounds(QRect(0, 0, 10, 10));
    helper.reset();
    root.setBounds(QRect(5, 5, 10, 10));

    QCOMPARE(moved.size(), 0);
}

void tst_Ancestor_Listeners::chainIsLetGoByTheLastListenerAndWatchedAnewByTheNext_data()
{
    QTest::addColumn<bool>("whileTold");
    QTest::newRow("at rest") << false;
    QTest::newRow("while it is told") << true;
}

void tst_Ancestor_Listeners::chainIsLetGoByTheLastListenerAndWatchedAnewByTheNext()
{
    QFETCH(bool, whileTold);
    AncestorRecorder listener;
    WatchedFigure parent;
    Figure child;
    parent.add(&child);
    const int connections = parent.connections();
    child.addAncestorListener(&listener);
    QCOMPARE(parent.connections(), connections + 3);
    const auto leave = [&] { child.removeAncestorListener(&listener); };
    if (whileTold) {
        connect(&child, &Figure::ancestorMoved, this, leave, Qt::SingleShotConnection);
        nudge(parent);
    } else {
        leave();
    }

    QCOMPARE(parent.connections(), connections);
    listener.clear();
    child.addAncestorListener(&listener);
    nudge(parent);

    QCOMPARE(listener.all, Figures({&parent}));
}

QTEST_MAIN(tst_Ancestor_Listeners)
#include "tst_ancestor_listeners.moc"
