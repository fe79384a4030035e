#include "layout_fixtures.h"
#include "locatorprobe.h"

#include <QPointer>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Remembers what is applied, and what is stored at that moment.
class ApplyingLayout : public ProbeLayout
{
public:
    QList<Figure *> children;
    QList<QVariant> applied;
    QList<QVariant> stored;
    bool accepts = true;

    bool applyConstraint(Figure *child, const QVariant &constraint) override
    {
        children.append(child);
        applied.append(constraint);
        stored.append(getConstraint(child));
        return ProbeLayout::applyConstraint(child, constraint) && accepts;
    }
};

} // namespace

class tst_LayoutConstraints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void cleanup() { deleteDeferred(); }

    void constraintOfNullIsRefused();
    void constraintOfStrangerIsRefused();
    void constraintIsStoredAndApplied();
    void constraintIsStoredEvenWhenItCannotBeApplied_data();
    void constraintIsStoredEvenWhenItCannotBeApplied();

    void listenersHearOfDifferentConstraintsOnly_data();
    void listenersHearOfDifferentConstraintsOnly();
    void listenersHearOfAConstraintBeforeItIsStored();
    void listenersHearOfTheConstraintGivenToAdd();
    void samePointerInAnotherTypeCountsAsEqual();
    void anotherPointerCountsAsDifferent();

    void applyingRefusesNullChildAndInvalidConstraint();
    void applyingAcceptsAnyOtherConstraintAndMovesNothing_data();
    void applyingAcceptsAnyOtherConstraintAndMovesNothing();
    void applyingALocatorRelocatesTheChild();
    void locatorIsFoundBehindItsOwnPointerType();
    void locatorThatDoesNotDeclareItsInterfaceIsNone();
    void bareInterfacePointerIsNoObject();
    void addingWithALocatorRelocatesOnce();

    void parentlessLocatorIsDeletedLaterWhenItsChildIsRemoved();
    void parentlessLocatorIsDeletedLaterWhenReplaced_data();
    void parentlessLocatorIsDeletedLaterWhenReplaced();
    void locatorWithParentIsKept();
    void sameLocatorAgainIsKept();
    void sameLocatorInAnotherTypeIsKept();
    void ownershipIsAskedWhenTheConstraintGoes();
    void parentlessFigureAsConstraintIsDeletedLaterToo();
    void onlyTheRemovedChildsLocatorIsDeleted();
    void constraintReadsAsInvalidOnceItsObjectIsDestroyed();
    void locatorDeletedWhileInUseLeavesItsChildInPlace();
    void locatorDeletedWhileInUseCanBeReplaced();
    void childOfADeletedLocatorCanBeRemoved();
    void sharedLocatorGoesWithTheFirstRemovedChild();

private:
    QObject m_owner;
    QObject m_owned{&m_owner};
};

void tst_LayoutConstraints::constraintOfNullIsRefused()
{
    Scene<ProbeLayout> scene;
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    QVERIFY(!scene.layout.setConstraint(nullptr, 1));

    QCOMPARE(listener.calls, QStringList());
}

void tst_LayoutConstraints::constraintOfStrangerIsRefused()
{
    Scene<ApplyingLayout> scene;
    Figure stranger;
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    QVERIFY(!scene.layout.setConstraint(&stranger, 1));

    QCOMPARE(listener.calls, QStringList());
    QVERIFY(!scene.layout.getConstraint(&stranger).isValid());
    QVERIFY(!scene.layout.getHelper(&stranger));
}

void tst_LayoutConstraints::constraintIsStoredAndApplied()
{
    Figure container;
    ApplyingLayout layout;
    container.setLayoutManager(&layout);
    Figure child;
    layout.add(&child, 1);
    QCOMPARE(layout.applied, QList<QVariant>{1});

    QVERIFY(layout.setConstraint(&child, QRect(1, 2, 3, 4)));

    QCOMPARE(layout.getConstraint(&child), QVariant(QRect(1, 2, 3, 4)));
    QCOMPARE(layout.children, (QList<Figure *>{&child, &child}));
    QCOMPARE(layout.applied.last(), QVariant(QRect(1, 2, 3, 4)));
    QCOMPARE(layout.stored.last(), QVariant(QRect(1, 2, 3, 4)));
}

void tst_LayoutConstraints::constraintIsStoredEvenWhenItCannotBeApplied_data()
{
    QTest::addColumn<QVariant>("constraint");
    QTest::newRow("refused by the subclass") << QVariant(5);
    QTest::newRow("invalid") << QVariant();
}

void tst_LayoutConstraints::constraintIsStoredEvenWhenItCannotBeApplied()
{
    QFETCH(QVariant, constraint);
    Figure container;
    ApplyingLayout layout;
    layout.accepts = false;
    container.setLayoutManager(&layout);
    Figure child;
    layout.add(&child, 1);

    QVERIFY(layout.setConstraint(&child, constraint));

    QCOMPARE(layout.getConstraint(&child), constraint);
}

void tst_LayoutConstraints::listenersHearOfDifferentConstraintsOnly_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("given");
    QTest::addColumn<bool>("heard");

    const QVariant rect = QRect(1, 2, 3, 4);
    QTest::newRow("the same rectangle") << rect << rect << false;
    QTest::newRow("another rectangle") << rect << QVariant(QRect(1, 2, 3, 5)) << true;
    QTest::newRow("another type") << rect << QVariant(QRectF(1, 2, 3, 4)) << true;
    QTest::newRow("equal numbers of two types") << QVariant(1) << QVariant(1.0) << false;
    QTest::newRow("invalid again") << QVariant() << QVariant() << false;
    QTest::newRow("invalid to valid") << QVariant() << rect << true;
    QTest::newRow("valid to invalid") << rect << QVariant() << true;
}

void tst_LayoutConstraints::listenersHearOfDifferentConstraintsOnly()
{
    QFETCH(QVariant, stored);
    QFETCH(QVariant, given);
    QFETCH(bool, heard);
    Scene<ProbeLayout> scene;
    Figure child;
    scene.layout.add(&child, stored);
    ListenerProbe listener;
    ListenerProbe second;
    scene.layout.addListener(&listener);
    scene.layout.addListener(&second);

    QVERIFY(scene.layout.setConstraint(&child, given));

    QCOMPARE(listener.calls.count(QStringLiteral("setConstraint")), heard ? 1 : 0);
    QCOMPARE(second.calls, listener.calls);
    QCOMPARE(listener.constraints, heard ? QList<QVariant>{given} : QList<QVariant>());
    if (heard)
        QCOMPARE(listener.containers, QList<Figure *>{&scene.figure});
    QCOMPARE(scene.layout.getConstraint(&child).typeId(), given.typeId());
}

void tst_LayoutConstraints::listenersHearOfAConstraintBeforeItIsStored()
{
    Scene<ProbeLayout> scene;
    Figure child;
    scene.layout.add(&child, 1);
    ListenerProbe listener;
    QVariant storedThen;
    listener.onCall = [&](const QString &) { storedThen = scene.layout.getConstraint(&child); };
    scene.layout.addListener(&listener);

    scene.layout.setConstraint(&child, 2);

    QCOMPARE(storedThen, QVariant(1));
    QCOMPARE(scene.layout.getConstraint(&child), QVariant(2));
}

void tst_LayoutConstraints::listenersHearOfTheConstraintGivenToAdd()
{
    Scene<ProbeLayout> scene;
    Figure child;
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    scene.layout.add(&child, QRect(1, 2, 3, 4));

    QCOMPARE(listener.constraints, QList<QVariant>{QRect(1, 2, 3, 4)});
}

void tst_LayoutConstraints::samePointerInAnotherTypeCountsAsEqual()
{
    Scene<ProbeLayout> scene;
    Figure child;
    LocatorProbe locator(QRect(), &child);
    scene.layout.add(&child, asConstraint(&locator));
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    scene.layout.setConstraint(&child, QVariant::fromValue(&locator));

    QCOMPARE(listener.calls, QStringList());
}

void tst_LayoutConstraints::anotherPointerCountsAsDifferent()
{
    Scene<ProbeLayout> scene;
    Figure child;
    QObject owner;
    auto *first = new LocatorProbe(QRect(), &owner);
    auto *second = new LocatorProbe(QRect(), &owner);
    scene.layout.add(&child, asConstraint(first));
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    scene.layout.setConstraint(&child, asConstraint(second));

    QCOMPARE(listener.calls, QStringList{QStringLiteral("setConstraint")});
}

void tst_LayoutConstraints::applyingRefusesNullChildAndInvalidConstraint()
{
    Scene<ProbeLayout> scene;
    Figure child;
    LocatorProbe locator;

    QVERIFY(!scene.layout.applyConstraint(&child, QVariant()));
    QVERIFY(!scene.layout.applyConstraint(nullptr, 1));
    QVERIFY(!scene.layout.applyConstraint(nullptr, asConstraint(&locator)));

    QVERIFY(locator.targets.isEmpty());
}

void tst_LayoutConstraints::applyingAcceptsAnyOtherConstraintAndMovesNothing_data()
{
    QTest::addColumn<QVariant>("constraint");
    QTest::newRow("rectangle") << QVariant(QRect(1, 2, 3, 4));
    QTest::newRow("number") << QVariant(1);
    QTest::newRow("null object") << asConstraint(nullptr);
    QTest::newRow("object that is no locator") << asConstraint(&m_owned);
}

void tst_LayoutConstraints::applyingAcceptsAnyOtherConstraintAndMovesNothing()
{
    QFETCH(QVariant, constraint);
    Scene<ProbeLayout> scene;
    Figure child;
    child.setBounds(QRect(10, 20, 30, 40));

    QVERIFY(scene.layout.applyConstraint(&child, constraint));

    QCOMPARE(child.getBounds(), QRect(10, 20, 30, 40));
}

void tst_LayoutConstraints::applyingALocatorRelocatesTheChild()
{
    Scene<ProbeLayout> scene;
    Figure child;
    LocatorProbe locator(QRect(5, 6, 7, 8));

    QVERIFY(scene.layout.applyConstraint(&child, asConstraint(&locator)));

    QCOMPARE(locator.targets, QList<Figure *>{&child});
    QCOMPARE(child.getBounds(), QRect(5, 6, 7, 8));
}

void tst_LayoutConstraints::locatorIsFoundBehindItsOwnPointerType()
{
    Scene<ProbeLayout> scene;
    Figure child;
    LocatorProbe locator;

    QVERIFY(scene.layout.applyConstraint(&child, QVariant::fromValue(&locator)));

    QCOMPARE(locator.targets, QList<Figure *>{&child});
}

// Interfaces are found by their ids, which an object has to declare.
void tst_LayoutConstraints::locatorThatDoesNotDeclareItsInterfaceIsNone()
{
    class Undeclared : public QObject, public ILocator
    {
    public:
        int relocations = 0;

        void relocate(Figure *) override { ++relocations; }
    };
    Scene<ProbeLayout> scene;
    Figure child;
    Undeclared locator;

    QVERIFY(scene.layout.applyConstraint(&child, asConstraint(&locator)));

    QCOMPARE(locator.relocations, 0);
}

// A pointer to the interface says nothing about the object behind it, neither to place nor to own.
void tst_LayoutConstraints::bareInterfacePointerIsNoObject()
{
    Scene<ProbeLayout> scene;
    Figure child;
    QPointer<LocatorProbe> locator = new LocatorProbe(QRect(5, 6, 7, 8));

    QVERIFY(scene.layout.add(&child, QVariant::fromValue<ILocator *>(locator.data())));
    scene.layout.remove(&child);
    deleteDeferred();

    QVERIFY(locator);
    QVERIFY(locator->targets.isEmpty());
    delete locator;
}

void tst_LayoutConstraints::addingWithALocatorRelocatesOnce()
{
    Scene<ProbeLayout> scene;
    Figure child;
    LocatorProbe locator(QRect(5, 6, 7, 8), &scene.layout);

    scene.layout.add(&child, asConstraint(&locator));

    QCOMPARE(locator.targets, QList<Figure *>{&child});
    QCOMPARE(child.getBounds(), QRect(5, 6, 7, 8));
}

void tst_LayoutConstraints::parentlessLocatorIsDeletedLaterWhenItsChildIsRemoved()
{
    Scene<ProbeLayout> scene;
    Figure child;
    QPointer<LocatorProbe> locator = new LocatorProbe;
    scene.layout.add(&child, asConstraint(locator));

    scene.layout.remove(&child);

    QVERIFY(locator);
    deleteDeferred();
    QVERIFY(!locator);
}

void tst_LayoutConstraints::parentlessLocatorIsDeletedLaterWhenReplaced_data()
{
    QTest::addColumn<QVariant>("successor");
    QTest::newRow("by nothing") << QVariant();
    QTest::newRow("by a rectangle") << QVariant(QRect(1, 2, 3, 4));
    QTest::newRow("by another object") << asConstraint(&m_owned);
    QTest::newRow("by a null object") << asConstraint(nullptr);
}

void tst_LayoutConstraints::parentlessLocatorIsDeletedLaterWhenReplaced()
{
    QFETCH(QVariant, successor);
    Scene<ProbeLayout> scene;
    Figure child;
    QPointer<LocatorProbe> locator = new LocatorProbe;
    scene.layout.add(&child, asConstraint(locator));

    scene.layout.setConstraint(&child, successor);

    QVERIFY(locator);
    deleteDeferred();
    QVERIFY(!locator);
}

void tst_LayoutConstraints::locatorWithParentIsKept()
{
    Scene<ProbeLayout> scene;
    Figure child;
    QObject owner;
    QPointer<LocatorProbe> replaced = new LocatorProbe(QRect(), &owner);
    QPointer<LocatorProbe> removed = new LocatorProbe(QRect(), &owner);
    scene.layout.add(&child, asConstraint(replaced));

    scene.layout.setConstraint(&child, asConstraint(removed));
    scene.layout.remove(&child);
    deleteDeferred();

    QVERIFY(replaced);
    QVERIFY(removed);
}

// The object in use is not "replaced" when it is set again.
void tst_LayoutConstraints::sameLocatorAgainIsKept()
{
    Scene<ProbeLayout> scene;
    Figure child;
    QPointer<LocatorProbe> locator = new LocatorProbe;
    scene.layout.add(&child, asConstraint(locator));

    scene.layout.setConstraint(&child, asConstraint(locator));
    deleteDeferred();

    QVERIFY(locator);
    QCOMPARE(locator->targets, (QList<Figure *>{&child, &child}));
    scene.layout.remove(&child);
    deleteDeferred();
    QVERIFY(!locator);
}

void tst_LayoutConstraints::sameLocatorInAnotherTypeIsKept()
{
    Scene<ProbeLayout> scene;
    Figure child;
    QPointer<LocatorProbe> locator = new LocatorProbe;
    scene.layout.add(&child, asConstraint(locator));

    scene.layout.setConstraint(&child, QVariant::fromValue(locator.data()));
    deleteDeferred();

    QVERIFY(locator);
    scene.layout.remove(&child);
    deleteDeferred();
    QVERIFY(!locator);
}

void tst_LayoutConstraints::ownershipIsAskedWhenTheConstraintGoes()
{
    Scene<ProbeLayout> scene;
    Figure adoptedsTarget;
    Figure releasedsTarget;
    QObject owner;
    QPointer<LocatorProbe> adopted = new LocatorProbe;
    QPointer<LocatorProbe> released = new LocatorProbe(QRect(), &owner);
    scene.layout.add(&adoptedsTarget, asConstraint(adopted));
    scene.layout.add(&releasedsTarget, asConstraint(released));

    adopted->setParent(&owner);
    released->setParent(nullptr);
    scene.layout.remove(&adoptedsTarget);
    scene.layout.remove(&releasedsTarget);
    deleteDeferred();

    QVERIFY(adopted);
    QVERIFY(!released);
}

// Any object counts, not only locators: on purpose, though easily overlooked.
void tst_LayoutConstraints::parentlessFigureAsConstraintIsDeletedLaterToo()
{
    Scene<ProbeLayout> scene;
    Figure child;
    QPointer<Figure> constraint = new Figure;
    scene.layout.add(&child, QVariant::fromValue(constraint.data()));

    scene.layout.remove(&child);
    deleteDeferred();

    QVERIFY(!constraint);
}

void tst_LayoutConstraints::onlyTheRemovedChildsLocatorIsDeleted()
{
    Scene<ProbeLayout> scene;
    Figure leaving;
    Figure staying;
    QPointer<LocatorProbe> first = new LocatorProbe;
    QPointer<LocatorProbe> second = new LocatorProbe;
    scene.layout.add(&leaving, asConstraint(first));
    scene.layout.add(&staying, asConstraint(second));

    scene.layout.remove(&leaving);
    deleteDeferred();

    QVERIFY(!first);
    QVERIFY(second);
    scene.layout.remove(&staying);
}

void tst_LayoutConstraints::constraintReadsAsInvalidOnceItsObjectIsDestroyed()
{
    Scene<ProbeLayout> scene;
    Figure child;
    auto *locator = new LocatorProbe;
    scene.layout.add(&child, QVariant::fromValue(locator));
    QCOMPARE(scene.layout.getConstraint(&child), QVariant::fromValue(locator));

    delete locator;

    QVERIFY(!scene.layout.getConstraint(&child).isValid());
    QVERIFY(!scene.layout.getHelper(&child)->getConstraint().isValid());
}

void tst_LayoutConstraints::locatorDeletedWhileInUseLeavesItsChildInPlace()
{
    Scene<ProbeLayout> scene;
    Figure child;
    auto *locator = new LocatorProbe(QRect(5, 6, 7, 8));
    scene.layout.add(&child, asConstraint(locator));

    delete locator;
    scene.figure.validate();

    QVERIFY(!scene.layout.getConstraint(&child).isValid());
    QCOMPARE(child.getBounds(), QRect(5, 6, 7, 8));
    QCOMPARE(scene.layout.childFigures(), QList<Figure *>{&child});
}

void tst_LayoutConstraints::locatorDeletedWhileInUseCanBeReplaced()
{
    Scene<ProbeLayout> scene;
    Figure child;
    auto *former = new LocatorProbe(QRect(5, 6, 7, 8));
    scene.layout.add(&child, asConstraint(former));
    ListenerProbe listener;
    scene.layout.addListener(&listener);
    delete former;

    LocatorProbe present(QRect(1, 1, 2, 2));
    QVERIFY(scene.layout.setConstraint(&child, asConstraint(&present)));
    QVERIFY(scene.layout.setConstraint(&child, QVariant()));

    QCOMPARE(child.getBounds(), QRect(1, 1, 2, 2));
    QCOMPARE(listener.calls.count(QStringLiteral("setConstraint")), 2);
}

void tst_LayoutConstraints::childOfADeletedLocatorCanBeRemoved()
{
    Scene<ProbeLayout> scene;
    Figure child;
    auto *locator = new LocatorProbe(QRect(5, 6, 7, 8));
    scene.layout.add(&child, asConstraint(locator));

    delete locator;

    QVERIFY(scene.layout.remove(&child));
    QCOMPARE(child.getBounds(), QRect(5, 6, 7, 8));
    QVERIFY(scene.layout.childFigures().isEmpty());
}

void tst_LayoutConstraints::sharedLocatorGoesWithTheFirstRemovedChild()
{
    Scene<ProbeLayout> scene;
    Figure first;
    Figure second;
    QPointer<LocatorProbe> locator = new LocatorProbe(QRect(5, 6, 7, 8));
    scene.layout.add(&first, asConstraint(locator));
    scene.layout.add(&second, asConstraint(locator));

    scene.layout.remove(&first);
    deleteDeferred();
    QVERIFY(!locator);

    scene.figure.validate();
    QCOMPARE(second.getBounds(), QRect(5, 6, 7, 8));
    QVERIFY(scene.layout.remove(&second));
}

QTEST_MAIN(tst_LayoutConstraints)
#include "tst_layout_constraints.moc"
