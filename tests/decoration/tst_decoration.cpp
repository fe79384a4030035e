#include "decoration_probe.h"

#include <figura/decoration/RelativeLocator.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/XYLayout.h>

#include <countingfigure.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const char *const NO_OWNER_ON_ADDING = "Decoration::addNotify(): no owner";
// With that class and operation on purpose.
const char *const NO_OWNER_ON_REMOVING = "DecorationFigure::addNotify(): no owner";

// A displayed root with an owner in it.
class Scene
{
public:
    Scene()
        : root(&manager)
    {
        root.setLayoutManager(new XYLayout(&root));
        root.setBounds(QRect(0, 0, 500, 500));
        root.add(&owner);
        owner.setBounds(QRect(100, 100, 50, 50));
        manager.clear();
    }

    void moveOwner() { owner.setBounds(owner.getBounds().translated(5, 5)); }

    RecordingUpdateManager manager;
    RootFigure root;
    Figure owner;
};

} // namespace

class tst_Decoration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newDecorationKnowsOwnerAndLocator();
    void newDecorationMayHaveNeither();
    void settersOnlyStore();
    void decorationIsAlwaysShowable();
    void decorationIsAShapeWithoutBackground();

    void constraintHoldsTheLocatorAsAnObject();
    void constraintHoldsNullWithoutALocator();
    void constraintHoldsNullForALocatorThatIsNoObject();
    void constraintPlacesTheDecorationInALayout();

    void addingWithoutOwnerIsReported();
    void addingMarksTheDecorationFirst();
    void removingWithoutOwnerIsReportedInOtherWords();
    void removingWithoutOwnerStillDetaches();
    void attachedDecorationFollowsItsOwner();
    void attachedDecorationFollowsTheAncestorsOfItsOwner();
    void detachedDecorationDoesNotFollow();
    void ownerSetLaterIsFollowedFromTheNextAttachmentOn();
    void formerOwnerIsFollowedUntilThen();
    void reparentedOwnerAsksForNothing();
    void moveAsksForValidationAndThenForPaint();
    void moveReachesTheUpdateManager();

    void validationPlacesTheDecoration();
    void validationNeitherLaysOutNorMakesValid();
    void decorationIsPlacedAtEveryValidationOfItsParent();
    void decorationMarkedValidIsNotPlaced();
    void externallyManagedDecorationIsNeverPlaced();
    void decorationWithoutLocatorStaysWhereItIs();
    void locatorThatIsNoObjectPlacesToo();
    void hiddenDecorationIsNotMovedByALocator();
    void movedOwnerTakesItsDecorationAlong();
};

void tst_Decoration::newDecorationKnowsOwnerAndLocator()
{
    QObject parent;
    Figure owner;
    ObjectLocator locator;
    const auto *decoration = new DecorationProbe(&owner, &locator, &parent);

    QCOMPARE(decoration->getOwner(), &owner);
    QCOMPARE(decoration->getLocator(), &locator);
    QVERIFY(!decoration->isManagedExternally());
    QCOMPARE(decoration->parent(), &parent);
    QCOMPARE(decoration->getParentFigure(), nullptr);
}

void tst_Decoration::newDecorationMayHaveNeither()
{
    QObject parent;
    const auto *decoration = new DecorationProbe(&parent);

    QCOMPARE(decoration->getOwner(), nullptr);
    QCOMPARE(decoration->getLocator(), nullptr);
    QVERIFY(!decoration->isManagedExternally());
    QCOMPARE(decoration->parent(), &parent);
}

void tst_Decoration::settersOnlyStore()
{
    Figure owner;
    ObjectLocator locator;
    DecorationProbe decoration;

    decoration.setOwner(&owner);
    decoration.setLocator(&locator);
    decoration.setManagedExternally(true);

    QCOMPARE(decoration.getOwner(), &owner);
    QCOMPARE(decoration.getLocator(), &locator);
    QVERIFY(decoration.isManagedExternally());
    QCOMPARE(decoration.log, QStringList());
    QCOMPARE(locator.placed.size(), 0);
    decoration.setOwner(nullptr);
    decoration.setLocator(nullptr);
    decoration.setManagedExternally(false);
    QCOMPARE(decoration.getOwner(), nullptr);
    QCOMPARE(decoration.getLocator(), nullptr);
    QVERIFY(!decoration.isManagedExternally());
}

void tst_Decoration::decorationIsAlwaysShowable()
{
    DecorationProbe decoration;

    QVERIFY(decoration.isShowable());
    decoration.setVisible(false);
    decoration.setManagedExternally(true);
    QVERIFY(decoration.isShowable());
}

void tst_Decoration::decorationIsAShapeWithoutBackground()
{
    DecorationProbe decoration;

    QCOMPARE(decoration.getBackgroundColor(), QColor(Qt::transparent));
    QVERIFY(decoration.getFill());
}

void tst_Decoration::constraintHoldsTheLocatorAsAnObject()
{
    ObjectLocator locator;
    DecorationProbe decoration(nullptr, &locator);

    const QVariant constraint = decoration.getConstraint();

    QCOMPARE(constraint.typeId(), int(QMetaType::QObjectStar));
    QCOMPARE(constraint.value<QObject *>(), &locator);
}

void tst_Decoration::constraintHoldsNullWithoutALocator()
{
    const DecorationProbe decoration;

    const QVariant constraint = decoration.getConstraint();

    QCOMPARE(constraint.typeId(), int(QMetaType::QObjectStar));
    QCOMPARE(constraint.value<QObject *>(), nullptr);
}

void tst_Decoration::constraintHoldsNullForALocatorThatIsNoObject()
{
    PlainLocator locator;
    const DecorationProbe decoration(nullptr, &locator);

    QCOMPARE(decoration.getLocator(), &locator);
    QCOMPARE(decoration.getConstraint().value<QObject *>(), nullptr);
}

void tst_Decoration::constraintPlacesTheDecorationInALayout()
{
    Figure container;
    container.setLayoutManager(new DelegatingLayout(&container));
    auto *locator = new ObjectLocator;
    locator->setParent(&container);
    DecorationProbe decoration(nullptr, locator);

    container.add(&decoration, decoration.getConstraint());

    QCOMPARE(decoration.getBounds(), QRect(1, 2, 30, 40));
}

void tst_Decoration::addingWithoutOwnerIsReported()
{
    DecorationProbe decoration;

    QTest::ignoreMessage(QtWarningMsg, NO_OWNER_ON_ADDING);
    decoration.addNotify();

    QVERIFY(decoration.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Decoration::addingMarksTheDecorationFirst()
{
    class WatchedFigure : public Figure
    {
    public:
        const Figure *decoration = nullptr;
        bool wasMarked = false;

        void addAncestorListener(IAncestorListener *listener) override
        {
            wasMarked = decoration->getFlag(FLAG_NOTIFIED);
            Figure::addAncestorListener(listener);
        }
    };
    WatchedFigure owner;
    DecorationProbe decoration(&owner, nullptr);
    owner.decoration = &decoration;

    decoration.addNotify();

    QVERIFY(owner.wasMarked);
}

void tst_Decoration::removingWithoutOwnerIsReportedInOtherWords()
{
    Figure owner;
    DecorationProbe decoration(&owner, nullptr);
    decoration.addNotify();
    decoration.setOwner(nullptr);

    QTest::ignoreMessage(QtWarningMsg, NO_OWNER_ON_REMOVING);
    decoration.removeNotify();

    QVERIFY(!decoration.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Decoration::removingWithoutOwnerStillDetaches()
{
    DecorationProbe decoration;
    Scene scene;

    QTest::ignoreMessage(QtWarningMsg, NO_OWNER_ON_ADDING);
    scene.root.add(&decoration);
    QVERIFY(decoration.getFlag(Figure::FLAG_NOTIFIED));
    QTest::ignoreMessage(QtWarningMsg, NO_OWNER_ON_REMOVING);
    scene.root.remove(&decoration);

    QVERIFY(!decoration.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Decoration::attachedDecorationFollowsItsOwner()
{
    Scene scene;
    DecorationProbe decoration(&scene.owner, nullptr);
    scene.root.add(&decoration);
    decoration.log.clear();

    scene.moveOwner();

    QCOMPARE(decoration.log, (QStringList{"revalidate", "repaint"}));
}

void tst_Decoration::attachedDecorationFollowsTheAncestorsOfItsOwner()
{
    Scene scene;
    Figure group;
    group.setLayoutManager(new XYLayout(&group));
    scene.root.add(&group);
    scene.root.remove(&scene.owner);
    group.add(&scene.owner);
    DecorationProbe decoration(&scene.owner, nullptr);
    scene.root.add(&decoration);
    decoration.log.clear();

    group.setBounds(QRect(10, 10, 300, 300));

    QVERIFY(decoration.log.contains(QStringLiteral("revalidate")));
    QCOMPARE(decoration.log.last(), QStringLiteral("repaint"));
}

void tst_Decoration::detachedDecorationDoesNotFollow()
{
    Scene scene;
    DecorationProbe decoration(&scene.owner, nullptr);

    scene.moveOwner();
    QCOMPARE(decoration.log, QStringList());
    scene.root.add(&decoration);
    scene.root.remove(&decoration);
    decoration.log.clear();
    scene.moveOwner();
    QCOMPARE(decoration.log, QStringList());
}

void tst_Decoration::ownerSetLaterIsFollowedFromTheNextAttachmentOn()
{
    Scene scene;
    Figure first;
    DecorationProbe decoration(&first, nullptr);
    scene.root.add(&decoration);
    decoration.setOwner(&scene.owner);
    decoration.log.clear();

    scene.moveOwner();
    QCOMPARE(decoration.log, QStringList());
    scene.root.remove(&decoration);
    scene.root.add(&decoration);
    decoration.log.clear();
    scene.moveOwner();

    QCOMPARE(decoration.log, (QStringList{"revalidate", "repaint"}));
}

void tst_Decoration::formerOwnerIsFollowedUntilThen()
{
    Scene scene;
    Figure second;
    DecorationProbe decoration(&scene.owner, nullptr);
    scene.root.add(&decoration);
    decoration.setOwner(&second);
    decoration.log.clear();

    scene.moveOwner();

    QCOMPARE(decoration.log, (QStringList{"revalidate", "repaint"}));
}

void tst_Decoration::reparentedOwnerAsksForNothing()
{
    Scene scene;
    DecorationProbe decoration(&scene.owner, nullptr);
    scene.root.add(&decoration);
    decoration.log.clear();

    scene.owner.setParentFigure(nullptr);
    scene.owner.setParentFigure(&scene.root);

    QCOMPARE(decoration.log, QStringList());
}

void tst_Decoration::moveAsksForValidationAndThenForPaint()
{
    DecorationProbe decoration;

    decoration.ancestorMoved(nullptr);
    QCOMPARE(decoration.log, (QStringList{"revalidate", "repaint"}));
    decoration.ancestorAdded(nullptr);
    decoration.ancestorRemoved(nullptr);
    QCOMPARE(decoration.log.size(), 2);
}

void tst_Decoration::moveReachesTheUpdateManager()
{
    using Request = RecordingUpdateManager::Request;
    Scene scene;
    DecorationProbe decoration(&scene.owner, nullptr);
    scene.root.add(&decoration);
    decoration.setBounds(QRect(1, 2, 30, 40));
    scene.manager.clear();

    decoration.ancestorMoved(&scene.owner);

    QCOMPARE(scene.manager.requests(),
             (QList<Request>{{Request::Invalid, &scene.root, QRect()},
                             {Request::Dirty, &decoration, QRect(1, 2, 30, 40)}}));
}

void tst_Decoration::validationPlacesTheDecoration()
{
    ObjectLocator locator;
    DecorationProbe decoration(nullptr, &locator);

    decoration.validate();

    QCOMPARE(locator.placed, QList<Figure *>{&decoration});
    QCOMPARE(decoration.getBounds(), QRect(1, 2, 30, 40));
}

void tst_Decoration::validationNeitherLaysOutNorMakesValid()
{
    ObjectLocator locator;
    DecorationProbe decoration(nullptr, &locator);
    decoration.setLayoutManager(new XYLayout(&decoration));
    CountingFigure child;
    decoration.add(&child, QRect(1, 2, 3, 4));
    child.setBounds(QRect(5, 6, 7, 8));

    decoration.validate();

    QVERIFY(!decoration.isValid());
    QCOMPARE(child.calls().validate, 0);
    QCOMPARE(child.getBounds(), QRect(5, 6, 7, 8));
}

void tst_Decoration::decorationIsPlacedAtEveryValidationOfItsParent()
{
    Scene scene;
    ObjectLocator locator;
    DecorationProbe decoration(&scene.owner, &locator);
    scene.root.add(&decoration);

    scene.root.validate();
    QCOMPARE(locator.placed.size(), 1);
    scene.root.validate();
    QCOMPARE(locator.placed.size(), 1); // the root itself is valid
    scene.root.invalidate();
    scene.root.validate();
    QCOMPARE(locator.placed.size(), 2);
}

void tst_Decoration::decorationMarkedValidIsNotPlaced()
{
    ObjectLocator locator;
    DecorationProbe decoration(nullptr, &locator);
    decoration.setValid(true);

    decoration.validate();

    QCOMPARE(locator.placed.size(), 0);
}

void tst_Decoration::externallyManagedDecorationIsNeverPlaced()
{
    Scene scene;
    ObjectLocator locator;
    DecorationProbe decoration(&scene.owner, &locator);
    decoration.setManagedExternally(true);
    scene.root.add(&decoration);

    scene.root.validate();
    scene.moveOwner();
    scene.root.validate();
    decoration.validate();

    QCOMPARE(locator.placed.size(), 0);
    decoration.setManagedExternally(false);
    decoration.validate();
    QCOMPARE(locator.placed.size(), 1);
}

void tst_Decoration::decorationWithoutLocatorStaysWhereItIs()
{
    DecorationProbe decoration;
    decoration.setBounds(QRect(5, 6, 7, 8));

    decoration.validate();

    QCOMPARE(decoration.getBounds(), QRect(5, 6, 7, 8));
    QVERIFY(!decoration.isValid());
}

void tst_Decoration::locatorThatIsNoObjectPlacesToo()
{
    PlainLocator locator;
    DecorationProbe decoration(nullptr, &locator);

    decoration.validate();

    QCOMPARE(decoration.getBounds(), QRect(1, 2, 30, 40));
}

void tst_Decoration::hiddenDecorationIsNotMovedByALocator()
{
    Figure owner;
    owner.setBounds(QRect(100, 100, 50, 50));
    RelativeLocator locator(&owner, 0.0, 0.0);
    DecorationProbe decoration(&owner, &locator);
    decoration.setBounds(QRect(5, 6, 7, 8));
    decoration.setVisible(false);

    decoration.validate();

    QCOMPARE(decoration.getBounds(), QRect(5, 6, 7, 8));
}

void tst_Decoration::movedOwnerTakesItsDecorationAlong()
{
    Scene scene;
    RelativeLocator locator(&scene.owner, 1.0, 0.0);
    DecorationProbe decoration(&scene.owner, &locator);
    decoration.setPreferredSize(QSize(10, 10));
    scene.root.add(&decoration);
    scene.root.validate();
    QCOMPARE(decoration.getBounds(), QRect(145, 95, 10, 10));

    scene.moveOwner();
    scene.root.validate();

    QCOMPARE(decoration.getBounds(), QRect(150, 100, 10, 10));
}

QTEST_MAIN(tst_Decoration)
#include "tst_decoration.moc"
