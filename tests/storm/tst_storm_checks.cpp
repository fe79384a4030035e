#include <checks.h>
#include <play.h>
#include <probe.h>
#include <updatewatch.h>
#include <watchedrouter.h>
#include <world.h>

#include <figura/connection/PolylineConnection.h>
#include <figura/connection/XYAnchor.h>
#include <figura/decoration/Decoration.h>
#include <figura/figure/SimpleBorder.h>
#include <figura/layout/VBoxLayout.h>
#include <figura/layout/XYLayout.h>

#include <QPainter>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Storm;

namespace {

using Spoiler = void (*)(World &);

Layer *anyLayer(World &world)
{
    return qobject_cast<Layer *>(world.content()->childFigures().first());
}

/// Is not found, although it holds the point.
class BlindFigure : public Probed<Figure>
{
public:
    using Probed::Probed;

    Figure *findFigureAt(int, int, const ITreeSearch &) const override { return nullptr; }
};

/// Reaches no update manager.
class LostFigure : public Probed<Figure>
{
public:
    using Probed::Probed;

    UpdateManager *getUpdateManager() const override { return nullptr; }
};

/// Changes its colour without a word.
class Chameleon : public Probed<Figure>
{
public:
    using Probed::Probed;

    QColor color = Qt::red;

protected:
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        painter->fillRect(option.rect, color);
    }
};

/// Shows only what lies in it.
class Badge : public Probed<Decoration>
{
public:
    using Probed::Probed;

protected:
    void regeneratePath(const QRectF & /*rect*/) override {}
};

/// Is somewhere else whenever it is painted, and invalid again.
class RestlessFigure : public Probed<Figure>
{
public:
    using Probed::Probed;

protected:
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        painter->fillRect(option.rect, Qt::red);
        auto *self = const_cast<RestlessFigure *>(this);
        self->setBounds(getBoundsNow().translated(getBoundsNow().x() < 60 ? 7 : -40, 0));
        self->revalidate();
    }

private:
    QRect getBoundsNow() const { return const_cast<RestlessFigure *>(this)->getBounds(); }
};

/// Keeps the lines of connections that have left it.
class GreedyRouter : public WatchedRouter
{
public:
    void remove(IConnection *) override {}
};

/// Refuses to become valid.
class LazyFigure : public Probed<Figure>
{
public:
    using Probed::Probed;

    void validate() override {}
};

/// Calls for the validation of another figure while it arranges its children.
class MeddlingLayout : public XYLayout
{
public:
    MeddlingLayout(Figure *owner, Figure *victim)
        : XYLayout(owner)
        , m_victim(victim)
    {
    }

protected:
    bool performLayout(const QRect &clientArea) override
    {
        m_victim->revalidate();
        return XYLayout::performLayout(clientArea);
    }

private:
    Figure *const m_victim;
};

template<class T>
T *addTo(World &world, const QRect &bounds)
{
    auto *figure = world.adopt(new T(world));
    anyLayer(world)->add(figure, bounds);
    return figure;
}

// With a column for children.
Badge *addBadge(World &world)
{
    auto *owner = addTo<Probed<Figure>>(world, QRect(100, 10, 10, 10));
    auto *badge = world.adopt(new Badge(world, owner, nullptr));
    badge->setLayoutManager(new VBoxLayout(badge));
    anyLayer(world)->add(badge, QRect(10, 10, 60, 90));
    return badge;
}

void leaveParent(World &world)
{
    auto *figure = addTo<Probed<Figure>>(world, QRect(10, 10, 30, 20));
    figure->setParentFigure(nullptr);
}

void stayAttached(World &world)
{
    auto *figure = world.adopt(new Probed<Figure>(world));
    figure->addNotify();
}

void stayAttachedBelowWhatIsNot(World &world)
{
    auto *figure = world.adopt(new Probed<Figure>(world));
    world.makePane()->childFigures().first()->add(figure, QRect(10, 10, 30, 20));
    figure->addNotify();
}

void loseTheManager(World &world)
{
    addTo<LostFigure>(world, QRect(10, 10, 30, 20));
}

void hideFromSearches(World &world)
{
    addTo<BlindFigure>(world, QRect(0, 0, 90, 90));
}

void changeColor(World &world)
{
    auto *figure = addTo<Chameleon>(world, QRect(10, 10, 30, 20));
    world.settle();
    figure->color = Qt::blue;
}

// What lies in it is laid out by its paint, and not excused for that.
void changeColorInDecoration(World &world)
{
    auto *badge = addBadge(world);
    auto *figure = world.adopt(new Chameleon(world));
    badge->add(figure, QSize(20, 10));
    world.settle();
    figure->color = Qt::blue;
}

void keepLines(World &world)
{
    auto *router = new GreedyRouter;
    world.routers.add(router);
    auto *connection = world.adopt(new Probed<PolylineConnection>(world));
    connection->setSourceAnchor(new XYAnchor(QPoint(20, 20), connection));
    connection->setTargetAnchor(new XYAnchor(QPoint(120, 90), connection));
    connection->setConnectionRouter(router);
    anyLayer(world)->add(connection);
    world.settle();
    connection->setConnectionRouter(nullptr);
}

void stayInvalid(World &world)
{
    addTo<LazyFigure>(world, QRect(10, 10, 30, 20));
}

void grumble(World &)
{
    qWarning("QStorm: something is odd");
}

} // namespace

class tst_StormChecks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newWorldIsFlawless();
    void flawIsNoticed_data();
    void flawIsNoticed();
    void firstFaultStays();
    void operationWaitsForItsMoment();
    void whatWaitsIsNotRunBetweenChecks();
    void destroyedViewerIsMadeAnew();
    void whatMovesWithEveryPaintIsNotCompared();
    void decorationThatLaysOutWhenItIsPaintedIsNoFlaw();
    void borderThatDiesIsNoFlaw();
    void droppedFigureIsMissedUntilItIsValid();
    void figureIsNotMissedBeforeTheTurnThatFollowsFromAnother();
    void figureThatIsInvalidOnceMoreWasNotDropped();
    void figuresThatDisturbEachOtherAreLetGoOf();
    void turnToComeIsNotForgottenWhenAPaintIsQuicker();
    void figureThatNeededNoTurnIsMissedWhenItIsDroppedAgain();
    void figureWhoseTurnNeverCameIsMissed();
    void figureIsLetGoOfOnlyWhenItIsDroppedInItsOwnTurn();
    void figureWhosePassIsStillToComeIsNotDropped();
    void figureQueuedInASlotBeforeThePassIsNotDropped();
    void figureThatIsBeingRemovedNeedNotBecomeValid();
    void formerContentMayStayAttached();
    void childrenThatComeWhileALayoutIsChangedStayBehind();
    void childrenOfADestroyedLayoutMayStayAttached();
};

void tst_StormChecks::newWorldIsFlawless()
{
    QByteArray fault;
    World world(fault);

    runChecks(world);

    QCOMPARE(fault, QByteArray());
}

void tst_StormChecks::flawIsNoticed_data()
{
    QTest::addColumn<Spoiler>("spoil");
    QTest::addColumn<QByteArray>("kind");
    QTest::newRow("a child without its parent") << Spoiler(leaveParent) << QByteArray("tree");
    QTest::newRow("attached to nothing") << Spoiler(stayAttached) << QByteArray("tree");
    QTest::newRow("attached below what is not")
        << Spoiler(stayAttachedBelowWhatIsNot) << QByteArray("tree");
    QTest::newRow("without the viewer's manager") << Spoiler(loseTheManager) << QByteArray("tree");
    QTest::newRow("hidden from searches") << Spoiler(hideFromSearches) << QByteArray("hit test");
    QTest::newRow("painted anew by nobody") << Spoiler(changeColor) << QByteArray("picture");
    QTest::newRow("painted anew by nobody in a decoration")
        << Spoiler(changeColorInDecoration) << QByteArray("picture");
    QTest::newRow("lines of a former connection")
        << Spoiler(keepLines) << QByteArray("reservations");
    QTest::newRow("never valid") << Spoiler(stayInvalid) << QByteArray("validity");
    QTest::newRow("a warning of Qt") << Spoiler(grumble) << QByteArray("message");
}

void tst_StormChecks::flawIsNoticed()
{
    QFETCH(Spoiler, spoil);
    QFETCH(QByteArray, kind);
    QByteArray fault;
    World world(fault);

    spoil(world);
    runChecks(world);

    QVERIFY2(fault.startsWith(kind + ": "), fault.constData());
}

void tst_StormChecks::firstFaultStays()
{
    QByteArray fault;
    World world(fault);

    world.report("first", "one");
    world.report("second", "two");

    QCOMPARE(fault, QByteArray("first: one"));
}

void tst_StormChecks::operationWaitsForItsMoment()
{
    QByteArray fault;
    World world(fault);
    auto *figure = addTo<Probed<Figure>>(world, QRect(10, 10, 30, 20));
    world.catchNext(Moment::Moved);
    world.perform(Operation{codeOf("complain"), {7}});
    QCOMPARE(fault, QByteArray());

    figure->setBounds(QRect(20, 10, 30, 20));

    QCOMPARE(fault, QByteArray("complaint: 7"));
}

void tst_StormChecks::whatWaitsIsNotRunBetweenChecks()
{
    QByteArray fault;
    World world(fault);
    addTo<Probed<Figure>>(world, QRect(10, 10, 30, 20));
    world.settle();
    world.catchNext(Moment::Draw);
    world.perform(Operation{codeOf("complain"), {7}});

    runChecks(world); // paints all figures

    QCOMPARE(fault, QByteArray());
}

void tst_StormChecks::destroyedViewerIsMadeAnew()
{
    QByteArray fault;
    World world(fault);
    FreeformLayeredPane *pane = world.content();

    world.perform(Operation{codeOf("destroyViewer"), {}});
    QVERIFY(!world.stage.viewer());
    runChecks(world);

    QVERIFY(world.stage.viewer());
    QCOMPARE(world.content(), pane);
    QCOMPARE(fault, QByteArray());
}

void tst_StormChecks::whatMovesWithEveryPaintIsNotCompared()
{
    QByteArray fault;
    World world(fault);
    auto *figure = addTo<RestlessFigure>(world, QRect(10, 10, 30, 20));
    world.settle();
    const QRect before = figure->getBounds();
    world.settle();
    QVERIFY(figure->getBounds() != before);

    world.checkAtRest(checkPicture);

    QCOMPARE(fault, QByteArray());
}

// A child without a size moves the others, and asks for no repaint.
void tst_StormChecks::decorationThatLaysOutWhenItIsPaintedIsNoFlaw()
{
    QByteArray fault;
    World world(fault);
    Badge *badge = addBadge(world);
    badge->getLayoutManager()->setSpacing(8);
    auto *figure = world.adopt(new Chameleon(world));
    badge->add(figure, QSize(20, 10));
    runChecks(world);
    const QRect before = figure->getBounds();

    badge->add(world.adopt(new Probed<Figure>(world)), QVariant(), 0);
    world.settle();
    QCOMPARE(figure->getBounds(), before);
    world.checkAtRest(checkPicture);

    QVERIFY(figure->getBounds() != before);
    QCOMPARE(fault, QByteArray());
}

// As documented: a border tells nobody, so the storm looks at the result of a repaint.
void tst_StormChecks::borderThatDiesIsNoFlaw()
{
    QByteArray fault;
    World world(fault);
    auto *figure = addTo<Probed<Figure>>(world, QRect(10, 10, 30, 20));
    Border *border = new SimpleBorder(nullptr, 3);
    world.adopt(border);
    figure->setBorder(border);
    runChecks(world);
    QCOMPARE(fault, QByteArray());

    delete border;
    runChecks(world);

    QCOMPARE(fault, QByteArray());
}

// Puts a layout below one layer that disturbs a figure in the other.
Figure *addMeddler(World &world)
{
    auto *victim = addTo<Probed<Figure>>(world, QRect(10, 10, 30, 20));
    auto *meddler = world.adopt(new Probed<Figure>(world));
    meddler->setLayoutManager(new MeddlingLayout(meddler, victim));
    world.content()->childFigures().last()->add(meddler, QRect(60, 10, 30, 20));
    world.settle();
    world.drops.grantTurns(); // what it has done meanwhile does not count
    return meddler;
}

// Lets a pass drop the returned layer.
Layer *dropLayer(World &world)
{
    addMeddler(world)->revalidate();
    world.updateManager()->performUpdate();
    return anyLayer(world);
}

void tst_StormChecks::droppedFigureIsMissedUntilItIsValid()
{
    QByteArray fault;
    World world(fault);

    dropLayer(world);
    world.checkAtRest(checkValidity);

    QVERIFY2(fault.startsWith("validity: "), fault.constData());
}

// It is dropped in the second turn of one that was dropped itself.
void tst_StormChecks::figureIsNotMissedBeforeTheTurnThatFollowsFromAnother()
{
    QByteArray fault;
    World world(fault);
    auto *victim = addTo<Probed<Figure>>(world, QRect(10, 10, 30, 20));
    auto *relay = world.adopt(new Probed<Figure>(world));
    auto *meddler = addTo<Probed<Figure>>(world, QRect(60, 10, 30, 20));
    world.content()->childFigures().last()->add(relay, QRect(60, 40, 30, 20));
    relay->setLayoutManager(new MeddlingLayout(relay, victim));
    meddler->setLayoutManager(new MeddlingLayout(meddler, relay));
    world.settle();
    meddler->revalidate();
    world.updateManager()->performUpdate();
    QVERIFY(!relay->getFlag(Figure::FLAG_VALID));

    world.stage.takeSecondTurns();
    world.checkAtRest(checkValidity);

    QCOMPARE(fault, QByteArray());
    QVERIFY(relay->getFlag(Figure::FLAG_VALID));
    QVERIFY(victim->getFlag(Figure::FLAG_VALID));
}

void tst_StormChecks::figureThatIsInvalidOnceMoreWasNotDropped()
{
    QByteArray fault;
    World world(fault);

    Layer *layer = dropLayer(world);
    world.stage.settle();
    QVERIFY(layer->getFlag(Figure::FLAG_VALID));
    layer->setBounds(layer->getBounds().adjusted(0, 0, 9, 9)); // asks for no update
    QVERIFY(!layer->getFlag(Figure::FLAG_VALID));
    world.checkAtRest(checkValidity);

    QCOMPARE(fault, QByteArray());
}

// Each has had its second turn, whichever manager was in charge.
void tst_StormChecks::figuresThatDisturbEachOtherAreLetGoOf()
{
    QByteArray fault;
    World world(fault);
    auto *first = addTo<Probed<Figure>>(world, QRect(10, 10, 30, 20));
    auto *second = world.adopt(new Probed<Figure>(world));
    world.content()->childFigures().last()->add(second, QRect(60, 10, 30, 20));
    first->setLayoutManager(new MeddlingLayout(first, second));
    second->setLayoutManager(new MeddlingLayout(second, first));
    first->revalidate();
    world.updateManager()->performUpdate();

    world.watchUpdates();
    runChecks(world);

    QVERIFY(!first->getFlag(Figure::FLAG_VALID) || !second->getFlag(Figure::FLAG_VALID));
    QCOMPARE(fault, QByteArray());
}

// It was dropped in the second turn of others, so that its own one is still to come.
void tst_StormChecks::turnToComeIsNotForgottenWhenAPaintIsQuicker()
{
    DropLedger ledger;
    Figure figure(nullptr, Qt::red);
    figure.invalidate();
    ledger.takeTurns();
    ledger.record({&figure});
    figure.validate();
    ledger.grantTurns();
    ledger.record({});
    figure.invalidate();

    ledger.takeTurns();
    ledger.record({&figure});

    QCOMPARE(ledger.leftInvalid(nullptr), QList<Figure *>());
}

void tst_StormChecks::figureThatNeededNoTurnIsMissedWhenItIsDroppedAgain()
{
    DropLedger ledger;
    Figure figure(nullptr, Qt::red);
    figure.invalidate();
    ledger.record({&figure});
    figure.validate();

    ledger.takeTurns();
    figure.invalidate();
    ledger.record({&figure});

    QCOMPARE(ledger.leftInvalid(nullptr), QList<Figure *>{&figure});
}

// However many paints were quicker.
void tst_StormChecks::figureWhoseTurnNeverCameIsMissed()
{
    DropLedger ledger;
    Figure figure(nullptr, Qt::red);
    figure.invalidate();
    ledger.grantTurns();
    ledger.record({&figure});

    ledger.grantTurns();
    ledger.record({&figure});

    QCOMPARE(ledger.leftInvalid(nullptr), QList<Figure *>{&figure});
}

// The second time it is dropped in that of others.
void tst_StormChecks::figureIsLetGoOfOnlyWhenItIsDroppedInItsOwnTurn()
{
    DropLedger ledger;
    Figure figure(nullptr, Qt::red);
    figure.invalidate();
    ledger.record({&figure});
    ledger.takeTurns();
    ledger.record({&figure});
    QCOMPARE(ledger.leftInvalid(nullptr), QList<Figure *>());

    ledger.grantTurns();
    ledger.record({});
    ledger.takeTurns();
    ledger.record({&figure});

    QCOMPARE(ledger.leftInvalid(nullptr), QList<Figure *>{&figure});
}

// Whether the ledger excuses \a figure when it is dropped now, as one that has had its turn.
bool isLetGo(World &world, Figure *figure)
{
    world.drops.takeTurns();
    figure->invalidate();
    world.drops.record({figure});
    return !world.drops.leftInvalid(world.updateManager()).contains(figure);
}

// It is in time, although it was called for while the pass was under way.
void tst_StormChecks::figureWhosePassIsStillToComeIsNotDropped()
{
    QByteArray fault;
    World world(fault);
    Figure *meddler = addMeddler(world);
    meddler->revalidate();
    anyLayer(world)->revalidate();
    world.content()->invalidate(); // so that nothing is valid up to the root

    world.updateManager()->performUpdate();

    QVERIFY(anyLayer(world)->getFlag(Figure::FLAG_VALID));
    QVERIFY(!isLetGo(world, anyLayer(world)));
}

void tst_StormChecks::figureQueuedInASlotBeforeThePassIsNotDropped()
{
    QByteArray fault;
    World world(fault);
    Figure *meddler = addMeddler(world);
    meddler->revalidate();
    world.content()->invalidate();
    world.catchNext(Moment::Validate);
    world.perform(Operation{codeOf("addShape"), {0}}); // into the other layer

    world.updateManager()->performUpdate();

    QCOMPARE(anyLayer(world)->childFigureCount(), 2);
    QVERIFY(anyLayer(world)->getFlag(Figure::FLAG_VALID));
    QVERIFY(!isLetGo(world, anyLayer(world)));
}

// It is listed until all are told, and one of those asks for an update.
void tst_StormChecks::figureThatIsBeingRemovedNeedNotBecomeValid()
{
    QByteArray fault;
    World world(fault);
    auto *figure = addTo<LazyFigure>(world, QRect(10, 10, 30, 20));
    connect(figure, &Figure::propertyChanged, world.updateManager(), &UpdateManager::performUpdate);

    anyLayer(world)->remove(figure);

    QVERIFY(!figure->getFlag(Figure::FLAG_VALID));
    QCOMPARE(fault, QByteArray());
}

// As documented: a viewer that goes tells nobody.
void tst_StormChecks::formerContentMayStayAttached()
{
    QByteArray fault;
    World world(fault);
    FreeformLayeredPane *former = world.content();
    world.perform(Operation{codeOf("destroyViewer"), {}});
    FreeformLayeredPane *pane = world.makePane();

    pane->addLayer(former, world.newKey());
    world.checkAtRest(checkTree);

    QVERIFY(former->getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(!pane->getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(fault, QByteArray());
}

void tst_StormChecks::childrenThatComeWhileALayoutIsChangedStayBehind()
{
    QByteArray fault;
    World world(fault);
    auto *parent = addTo<Probed<Figure>>(world, QRect(10, 10, 60, 60));
    parent->setLayoutManager(new XYLayout(parent));
    auto *child = world.adopt(new Probed<Figure>(world));
    auto *late = world.adopt(new Probed<Figure>(world));
    parent->add(child, QRect(0, 0, 10, 10));
    connect(
        child, &Figure::propertyChanged, parent,
        [=]() { parent->add(late, QRect(20, 20, 10, 10)); }, Qt::SingleShotConnection);

    world.perform(Operation{codeOf("changeLayout"), {0}}); // of the first one that is no layer
    runChecks(world);

    QCOMPARE(late->getParentFigure(), parent);
    QVERIFY(!parent->childFigures().contains(late));
    QVERIFY(parent->childFigures().contains(child));
    QCOMPARE(fault, QByteArray());
}

// As documented: they keep their parent figure, which has nothing to tell them by.
void tst_StormChecks::childrenOfADestroyedLayoutMayStayAttached()
{
    QByteArray fault;
    World world(fault);
    auto *parent = addTo<Probed<Figure>>(world, QRect(10, 10, 60, 60));
    parent->setLayoutManager(new XYLayout(parent));
    auto *child = world.adopt(new Probed<Figure>(world));
    parent->add(child, QRect(0, 0, 10, 10));
    world.noteForgotten({parent, child});

    delete parent->getLayoutManager();
    anyLayer(world)->remove(parent);
    parent->setParentFigure(anyLayer(world)); // so that it is below the content, and in no list
    world.checkAtRest(checkTree);

    QVERIFY(child->getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(!parent->getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(fault, QByteArray());
}

QTEST_MAIN(tst_StormChecks)
#include "tst_storm_checks.moc"
