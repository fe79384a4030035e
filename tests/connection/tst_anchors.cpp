#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/IAnchorListener.h>
#include <figura/connection/XYAnchor.h>

#include <place.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class Listener : public QObject, public IAnchorListener
{
    Q_OBJECT

public:
    QList<IConnectionAnchor *> moved;

public Q_SLOTS:
    void anchorMoved(IConnectionAnchor *anchor) override { moved.append(anchor); }
};

class BareListener : public IAnchorListener
{
public:
    int moves = 0;

    void anchorMoved(IConnectionAnchor *) override { ++moves; }
};

class PlainAnchor : public AbstractConnectionAnchor
{
public:
    using AbstractConnectionAnchor::AbstractConnectionAnchor;

    QPoint getLocation(const QPoint &) override { return QPoint(); }
};

class Owner : public Figure
{
public:
    int watchers = 0; // how often it was asked to tell, less how often to stop
    int calls = 0;

    explicit Owner(const QRect &bounds = QRect(0, 0, 100, 50)) { setBounds(bounds); }

    void addAncestorListener(IAncestorListener *listener) override
    {
        ++watchers;
        ++calls;
        Figure::addAncestorListener(listener);
    }

    void removeAncestorListener(IAncestorListener *listener) override
    {
        --watchers;
        ++calls;
        Figure::removeAncestorListener(listener);
    }

    void move() { setBounds(getBounds().translated(1, 0)); }
};

} // namespace

class tst_Anchors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void listenerAddedTwiceHearsEveryMoveTwice();
    void oneRemovalDisconnectsAListenerAddedTwice();
    void listenerThatIsNoObjectIsRefused();
    void listenerThatIsNoObjectCannotBeRemoved();
    void nullListenerIsReportedByTheBase();
    void nullListenerIsIgnoredByAnchorsWithAnOwner();
    void removingANullListenerStillStopsAnAnchorWithAnOwner();
    void refusedListenerStillMakesTheAnchorFollow();
    void constructorDoesNotFollowTheOwner();
    void firstListenerMakesTheAnchorFollowItsOwner();
    void secondListenerDoesNotFollowTheOwnerTwice();
    void removingOneListenerStopsTheAnchorForAllOthers();
    void anchorFollowsAgainOnceAListenerIsAdded();
    void removalOfAStrangerStopsTheAnchorToo();
    void movesOfAncestorsAreAnnounced();
    void movesAreAnnouncedWithTheAnchorItself();
    void addedAndRemovedAncestorsAreNotAnnounced();
    void setOwnerFollowsAtOnce();
    void setOwnerLeavesTheOldOwner();
    void setOwnerToNullStopsFollowing();
    void setOwnerToTheSameFigureStaysFollowing();
    void listenerAddedAfterSetOwnerDoesNotFollowTwice();
    void anchorWithoutOwnerStartsToFollowOnlyWithOne();
    void newOwnerIsFollowedAfterTheOldOneDied();
    void ownerIsForgottenWhenItDies();
    void plainReferencePointIsTheRoundedCentre_data();
    void plainReferencePointIsTheRoundedCentre();
    void boxReferencePointIsTheIntegerCentreOfTheUngrownBox_data();
    void boxReferencePointIsTheIntegerCentreOfTheUngrownBox();
    void boxReferencePointFollowsTheOverriddenBox();
    void ellipseReferencePointIsTheRoundedCentre();
    void referencePointsAreAbsolute();
    void plainAnchorWithoutOwnerHasItsReferencePointAtTheOrigin();
    void boxAnchorWithoutOwnerWarnsAndAnswersTheOrigin();
    void ellipseAnchorWithoutOwnerWarnsAndAnswersTheOrigin();
    void boxAnchorsAreEqualWithTheSameOwnerAndBox();
    void constructorsKeepOwnerAndParentApart();
    void destructorDoesNotCallTheOwner();
};

void tst_Anchors::listenerAddedTwiceHearsEveryMoveTwice()
{
    XYAnchor anchor(QPoint(1, 2));
    Listener listener;
    anchor.addAnchorListener(&listener);
    anchor.addAnchorListener(&listener);

    anchor.setLocation(QPoint(3, 4));

    QCOMPARE(listener.moved, QList<IConnectionAnchor *>({&anchor, &anchor}));
}

void tst_Anchors::oneRemovalDisconnectsAListenerAddedTwice()
{
    XYAnchor anchor;
    Listener listener;
    Listener other;
    anchor.addAnchorListener(&listener);
    anchor.addAnchorListener(&other);
    anchor.addAnchorListener(&listener);

    anchor.removeAnchorListener(&listener);
    anchor.setLocation(QPoint(3, 4));

    QCOMPARE(listener.moved.size(), 0);
    QCOMPARE(other.moved.size(), 1);
}

void tst_Anchors::listenerThatIsNoObjectIsRefused()
{
    XYAnchor anchor;
    BareListener listener;

    QTest::ignoreMessage(QtWarningMsg,
                         "ConnectionAnchorBase::addAnchorListener(): listener not a QObject");
    anchor.addAnchorListener(&listener);
    anchor.setLocation(QPoint(3, 4));

    QCOMPARE(listener.moves, 0);
}

void tst_Anchors::listenerThatIsNoObjectCannotBeRemoved()
{
    XYAnchor anchor;
    BareListener bare;
    Listener listener;
    anchor.addAnchorListener(&listener);

    QTest::ignoreMessage(QtWarningMsg,
                         "ConnectionAnchorBase::removeAnchorListener(): listener not a QObject");
    anchor.removeAnchorListener(&bare);
    anchor.setLocation(QPoint(3, 4));

    QCOMPARE(listener.moved.size(), 1);
}

void tst_Anchors::nullListenerIsReportedByTheBase()
{
    XYAnchor anchor;

    QTest::ignoreMessage(QtWarningMsg,
                         "ConnectionAnchorBase::addAnchorListener(): listener not a QObject");
    anchor.addAnchorListener(nullptr);
    QTest::ignoreMessage(QtWarningMsg,
                         "ConnectionAnchorBase::removeAnchorListener(): listener not a QObject");
    anchor.removeAnchorListener(nullptr);
}

void tst_Anchors::nullListenerIsIgnoredByAnchorsWithAnOwner()
{
    Owner owner;
    PlainAnchor anchor(&owner);

    anchor.addAnchorListener(nullptr);

    QCOMPARE(owner.watchers, 0);
}

void tst_Anchors::removingANullListenerStillStopsAnAnchorWithAnOwner()
{
    Owner owner;
    PlainAnchor anchor(&owner);
    Listener listener;
    anchor.addAnchorListener(&listener);

    QTest::ignoreMessage(QtWarningMsg,
                         "ConnectionAnchorBase::removeAnchorListener(): listener not a QObject");
    anchor.removeAnchorListener(nullptr);
    owner.move();

    QCOMPARE(owner.watchers, 0);
    QCOMPARE(listener.moved.size(), 0);
}

void tst_Anchors::refusedListenerStillMakesTheAnchorFollow()
{
    Owner owner;
    PlainAnchor anchor(&owner);
    BareListener listener;

    QTest::ignoreMessage(QtWarningMsg,
                         "ConnectionAnchorBase::addAnchorListener(): listener not a QObject");
    anchor.addAnchorListener(&listener);

    QCOMPARE(owner.watchers, 1);
}

void tst_Anchors::constructorDoesNotFollowTheOwner()
{
    Owner owner;
    PlainAnchor anchor(&owner);
    QSignalSpy moved(&anchor, &ConnectionAnchorBase::anchorMoved);

    owner.move();

    QCOMPARE(owner.calls, 0);
    QCOMPARE(moved.count(), 0);
}

void tst_Anchors::firstListenerMakesTheAnchorFollowItsOwner()
{
    Owner owner;
    PlainAnchor anchor(&owner);
    Listener listener;

    anchor.addAnchorListener(&listener);
    owner.move();

    QCOMPARE(owner.watchers, 1);
    QCOMPARE(listener.moved, QList<IConnectionAnchor *>({&anchor}));
}

void tst_Anchors::secondListenerDoesNotFollowTheOwnerTwice()
{
    Owner owner;
    PlainAnchor anchor(&owner);
    Listener first;
    Listener second;

    anchor.addAnchorListener(&first);
    anchor.addAnchorListener(&second);
    owner.move();

    QCOMPARE(owner.watchers, 1);
    QCOMPARE(first.moved.size(), 1);
    QCOMPARE(second.moved.size(), 1);
}

void tst_Anchors::removingOneListenerStopsTheAnchorForAllOthers()
{
    Owner owner;
    PlainAnchor anchor(&owner);
    Listener first;
    Listener second;
    anchor.addAnchorListener(&first);
    anchor.addAnchorListener(&second);

    anchor.removeAnchorListener(&first);
    owner.move();

    QCOMPARE(owner.watchers, 0);
    QCOMPARE(second.moved.size(), 0);
}

void tst_Anchors::anchorFollowsAgainOnceAListenerIsAdded()
{
    Owner owner;
    PlainAnchor anchor(&owner);
    Listener first;
    Listener second;
    anchor.addAnchorListener(&first);
    anchor.addAnchorListener(&second);
    anchor.removeAnchorListener(&first);

    anchor.addAnchorListener(&first);
    owner.move();

    QCOMPARE(owner.watchers, 1);
    QCOMPARE(first.moved.size(), 1);
    QCOMPARE(second.moved.size(), 1);
}

void tst_Anchors::removalOfAStrangerStopsTheAnchorToo()
{
    Owner owner;
    PlainAnchor anchor(&owner);
    Listener listener;
    Listener stranger;
    anchor.addAnchorListener(&listener);

    anchor.removeAnchorListener(&stranger);
    owner.move();

    QCOMPARE(owner.watchers, 0);
    QCOMPARE(listener.moved.size(), 0);
}

void tst_Anchors::movesOfAncestorsAreAnnounced()
{
    Place grandparent;
    Place parent;
    Owner owner;
    grandparent.add(&parent);
    parent.add(&owner);
    PlainAnchor anchor(&owner);
    Listener listener;
    anchor.addAnchorListener(&listener);

    // The moved figure tells its children, whose move is one of the chain as well.
    grandparent.setBounds(grandparent.getBounds().translated(5, 0));

    QCOMPARE(listener.moved, QList<IConnectionAnchor *>({&anchor, &anchor}));
}

void tst_Anchors::movesAreAnnouncedWithTheAnchorItself()
{
    PlainAnchor anchor(nullptr);
    QList<IConnectionAnchor *> announced;
    connect(&anchor, &ConnectionAnchorBase::anchorMoved, &anchor,
            [&announced](IConnectionAnchor *which) { announced.append(which); });

    anchor.ancestorMoved(nullptr);

    QCOMPARE(announced, QList<IConnectionAnchor *>({&anchor}));
}

void tst_Anchors::addedAndRemovedAncestorsAreNotAnnounced()
{
    Place parent;
    Owner owner;
    PlainAnchor anchor(&owner);
    Listener listener;
    anchor.addAnchorListener(&listener);

    owner.setParentFigure(&parent);
    owner.setParentFigure(nullptr);
    anchor.ancestorAdded(&parent);
    anchor.ancestorRemoved(&parent);

    QCOMPARE(listener.moved.size(), 0);
}

void tst_Anchors::setOwnerFollowsAtOnce()
{
    Owner owner;
    PlainAnchor anchor(nullptr);
    QSignalSpy moved(&anchor, &ConnectionAnchorBase::anchorMoved);

    anchor.setOwner(&owner);
    owner.move();

    QCOMPARE(anchor.getOwner(), &owner);
    QCOMPARE(owner.watchers, 1);
    QCOMPARE(moved.count(), 1);
}

void tst_Anchors::setOwnerLeavesTheOldOwner()
{
    Owner first;
    Owner second;
    PlainAnchor anchor(&first);
    Listener listener;
    anchor.addAnchorListener(&listener);

    anchor.setOwner(&second);
    first.move();

    QCOMPARE(first.watchers, 0);
    QCOMPARE(second.watchers, 1);
    QCOMPARE(listener.moved.size(), 0);
}

void tst_Anchors::setOwnerToNullStopsFollowing()
{
    Owner owner;
    PlainAnchor anchor(nullptr);
    anchor.setOwner(&owner);

    anchor.setOwner(nullptr);

    QVERIFY(!anchor.getOwner());
    QCOMPARE(owner.watchers, 0);
}

void tst_Anchors::setOwnerToTheSameFigureStaysFollowing()
{
    Owner owner;
    PlainAnchor anchor(&owner);
    anchor.setOwner(&owner);

    anchor.setOwner(&owner);

    QCOMPARE(owner.watchers, 1);
    QCOMPARE(owner.calls, 3); // on, off and on again
}

void tst_Anchors::listenerAddedAfterSetOwnerDoesNotFollowTwice()
{
    Owner owner;
    PlainAnchor anchor(nullptr);
    Listener listener;
    anchor.setOwner(&owner);

    anchor.addAnchorListener(&listener);
    owner.move();

    QCOMPARE(owner.watchers, 1);
    QCOMPARE(listener.moved.size(), 1);
}

void tst_Anchors::anchorWithoutOwnerStartsToFollowOnlyWithOne()
{
    Owner owner;
    PlainAnchor anchor(nullptr);
    Listener listener;

    anchor.addAnchorListener(&listener);
    anchor.setOwner(&owner);
    owner.move();

    QCOMPARE(owner.watchers, 1);
    QCOMPARE(listener.moved.size(), 1);
}

void tst_Anchors::newOwnerIsFollowedAfterTheOldOneDied()
{
    auto first = std::make_unique<Owner>();
    Owner second;
    PlainAnchor anchor(first.get());
    Listener listener;
    anchor.addAnchorListener(&listener);

    first.reset();
    anchor.setOwner(&second);
    second.move();

    QCOMPARE(second.watchers, 1);
    QCOMPARE(listener.moved.size(), 1);
}

void tst_Anchors::ownerIsForgottenWhenItDies()
{
    auto owner = std::make_unique<Owner>();
    PlainAnchor anchor(owner.get());
    Listener listener;
    anchor.addAnchorListener(&listener);

    owner.reset();
    anchor.removeAnchorListener(&listener);

    QVERIFY(!anchor.getOwner());
    QCOMPARE(anchor.getReferencePoint(), QPoint());
}

void tst_Anchors::plainReferencePointIsTheRoundedCentre_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("even") << QRect(0, 0, 100, 50) << QPoint(50, 25);
    QTest::newRow("odd") << QRect(0, 0, 101, 51) << QPoint(51, 26);
    QTest::newRow("negative, halves away from zero")
        << QRect(-101, -51, 101, 51) << QPoint(-51, -26);
    QTest::newRow("negative, even") << QRect(-100, -50, 100, 50) << QPoint(-50, -25);
}

void tst_Anchors::plainReferencePointIsTheRoundedCentre()
{
    QFETCH(QRect, bounds);
    Owner owner(bounds);

    QTEST(PlainAnchor(&owner).getReferencePoint(), "expected");
}

void tst_Anchors::boxReferencePointIsTheIntegerCentreOfTheUngrownBox_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::newRow("even") << QRect(0, 0, 100, 50);
    QTest::newRow("odd") << QRect(0, 0, 101, 51);
    QTest::newRow("negative") << QRect(-101, -52, 101, 51);
    QTest::newRow("empty") << QRect(10, 10, 0, 0);
}

void tst_Anchors::boxReferencePointIsTheIntegerCentreOfTheUngrownBox()
{
    QFETCH(QRect, bounds);
    Owner owner;
    owner.setPreferredSize(QSize(0, 0));
    owner.setBounds(bounds);

    QCOMPARE(ChopboxAnchor(&owner).getReferencePoint(), bounds.center());
}

void tst_Anchors::boxReferencePointFollowsTheOverriddenBox()
{
    class Inner : public ChopboxAnchor
    {
    public:
        using ChopboxAnchor::ChopboxAnchor;

    protected:
        QRect getBox() override { return QRect(20, 20, 10, 10); }
    };
    Owner owner;

    QCOMPARE(Inner(&owner).getReferencePoint(), QPoint(24, 24));
}

void tst_Anchors::ellipseReferencePointIsTheRoundedCentre()
{
    Owner owner(QRect(0, 0, 101, 50));

    QCOMPARE(EllipseAnchor(&owner).getReferencePoint(), QPoint(51, 25));
}

void tst_Anchors::referencePointsAreAbsolute()
{
    Place grandparent(QPoint(1000, 2000));
    Place parent(QPoint(100, 200));
    Owner owner(QRect(10, 20, 100, 50));
    grandparent.add(&parent);
    parent.add(&owner);

    QCOMPARE(PlainAnchor(&owner).getReferencePoint(), QPoint(1160, 2245));
    QCOMPARE(ChopboxAnchor(&owner).getReferencePoint(), QPoint(1159, 2244));
    QCOMPARE(EllipseAnchor(&owner).getReferencePoint(), QPoint(1160, 2245));
}

void tst_Anchors::plainAnchorWithoutOwnerHasItsReferencePointAtTheOrigin()
{
    QCOMPARE(PlainAnchor(nullptr).getReferencePoint(), QPoint(0, 0));
    QCOMPARE(EllipseAnchor(nullptr).getReferencePoint(), QPoint(0, 0));
}

void tst_Anchors::boxAnchorWithoutOwnerWarnsAndAnswersTheOrigin()
{
    ChopboxAnchor anchor(nullptr);

    QTest::ignoreMessage(QtWarningMsg, "ChopboxAnchor::getReferencePoint(): no owner present");
    QCOMPARE(anchor.getReferencePoint(), QPoint(0, 0));
    QTest::ignoreMessage(QtWarningMsg, "ChopboxAnchor::getLocation(): no owner present");
    QCOMPARE(anchor.getLocation(QPoint(30, 40)), QPoint(0, 0));
}

void tst_Anchors::ellipseAnchorWithoutOwnerWarnsAndAnswersTheOrigin()
{
    EllipseAnchor anchor(nullptr);

    QTest::ignoreMessage(QtWarningMsg, "EllipseAnchor::getLocation(): no owner present");
    QCOMPARE(anchor.getLocation(QPoint(30, 40)), QPoint(0, 0));
}

void tst_Anchors::boxAnchorsAreEqualWithTheSameOwnerAndBox()
{
    class Inner : public ChopboxAnchor
    {
    public:
        using ChopboxAnchor::ChopboxAnchor;

    protected:
        QRect getBox() override { return QRect(20, 20, 10, 10); }
    };
    Owner owner;
    Owner twin;

    QVERIFY(ChopboxAnchor(&owner) == ChopboxAnchor(&owner));
    QVERIFY(!(ChopboxAnchor(&owner) == ChopboxAnchor(&twin)));
    QVERIFY(!(ChopboxAnchor(&owner) == Inner(&owner)));
    QVERIFY(ChopboxAnchor(nullptr) == ChopboxAnchor(nullptr));
}

void tst_Anchors::constructorsKeepOwnerAndParentApart()
{
    Owner owner;
    QObject parent;

    ChopboxAnchor owned(&owner, &parent);
    EllipseAnchor ellipse(&owner);
    EllipseAnchor orphan(&parent);

    QCOMPARE(owned.getOwner(), &owner);
    QCOMPARE(owned.parent(), &parent);
    QCOMPARE(ellipse.getOwner(), &owner);
    QVERIFY(!ellipse.parent());
    QVERIFY(!orphan.getOwner());
    QCOMPARE(orphan.parent(), &parent);
}

void tst_Anchors::destructorDoesNotCallTheOwner()
{
    Owner owner;
    auto anchor = std::make_unique<PlainAnchor>(&owner);
    Listener listener;
    anchor->addAnchorListener(&listener);

    anchor.reset();
    owner.move();

    QCOMPARE(owner.watchers, 1);
    QCOMPARE(listener.moved.size(), 0);
}

QTEST_MAIN(tst_Anchors)
#include "tst_anchors.moc"
