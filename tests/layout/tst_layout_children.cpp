#include "layout_fixtures.h"

#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QSignalSpy>
#include <QTest>

#include <climits>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Writes what is done to it into a journal, together with what its layout holds of it then.
class JournalFigure : public Figure
{
public:
    using Figure::repaint;

    ProbeLayout *layoutToAsk = nullptr;
    QStringList journal;

    void note(const QString &step)
    {
        if (!layoutToAsk)
            return;
        const bool listed = layoutToAsk->childFigures().contains(this);
        const bool recorded = layoutToAsk->getHelper(this) != nullptr;
        journal.append(step + (listed ? QStringLiteral(" listed") : QString()) +
                       (recorded ? QStringLiteral(" recorded") : QString()));
    }

    void setParentFigure(Figure *parent) override
    {
        note(parent ? QStringLiteral("adopted") : QStringLiteral("orphaned"));
        Figure::setParentFigure(parent);
    }
    void revalidate() override
    {
        note(QStringLiteral("revalidated"));
        Figure::revalidate();
    }
    void addNotify() override
    {
        note(QStringLiteral("notified"));
        Figure::addNotify();
    }
    void removeNotify() override
    {
        note(QStringLiteral("denotified"));
        Figure::removeNotify();
    }
    void erase() override
    {
        note(QStringLiteral("erased"));
        Figure::erase();
    }
    void repaint() override
    {
        note(QStringLiteral("repainted"));
        Figure::repaint();
    }
};

class JournalContainer : public Figure
{
public:
    JournalFigure *childToTell = nullptr;

    void revalidate() override
    {
        if (childToTell)
            childToTell->note(QStringLiteral("container revalidated"));
        Figure::revalidate();
    }
};

class JournalLayout : public ProbeLayout
{
public:
    JournalFigure *childToTell = nullptr;
    QList<QVariant> constraints;

    bool setConstraint(Figure *child, const QVariant &constraint) override
    {
        constraints.append(constraint);
        if (childToTell)
            childToTell->note(QStringLiteral("constrained"));
        return ProbeLayout::setConstraint(child, constraint);
    }
};

struct JournalScene
{
    JournalScene()
    {
        container.setLayoutManager(&layout);
        child.layoutToAsk = &layout;
        container.childToTell = &child;
        layout.childToTell = &child;
    }
    ~JournalScene() { container.childToTell = nullptr; } // the child dies first
    Q_DISABLE_COPY_MOVE(JournalScene)

    JournalContainer container;
    JournalLayout layout;
    JournalFigure child;
};

bool addChild(Layout *layout, Figure *child, bool withStretches, int index = -1)
{
    return withStretches ? layout->add(child, 1, 2, index) : layout->add(child, QVariant(), index);
}

void addBothForms()
{
    QTest::addColumn<bool>("withStretches");
    QTest::newRow("with a constraint") << false;
    QTest::newRow("with stretches") << true;
}

} // namespace

class tst_LayoutChildren : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newLayoutHasItsDefaults();
    void alignmentIsStoredAsGiven();
    void spacingStoresAnyValue();
    void expandingDirectionsAreMasked_data();
    void expandingDirectionsAreMasked();
    void figureGivesItselfToItsLayout();
    void replacedLayoutLosesItsFigureAndKeepsItsChildren();

    void addWithoutContainerIsRefused_data() { addBothForms(); }
    void addWithoutContainerIsRefused();
    void addOfNullIsRefused_data() { addBothForms(); }
    void addOfNullIsRefused();
    void addingTwiceIsRefusedAndLeavesTheListAlone_data() { addBothForms(); }
    void addingTwiceIsRefusedAndLeavesTheListAlone();
    void refusedAddKeepsTheFirstRecord();
    void addInsertsAtTheIndexOrAppends_data();
    void addInsertsAtTheIndexOrAppends();
    void addAppendsByDefault();
    void addMakesTheContainerTheParentFigure_data() { addBothForms(); }
    void addMakesTheContainerTheParentFigure();
    void addStoresTheConstraintWithoutStretches();
    void addStoresVerticalBeforeHorizontalStretch();
    void addWithStretchesSetsAnInvalidConstraint();
    void recordStandsWhenTheConstraintIsSet();
    void addRunsItsStepsInOrder_data() { addBothForms(); }
    void addRunsItsStepsInOrder();
    void addToDetachedContainerDoesNotNotify_data() { addBothForms(); }
    void addToDetachedContainerDoesNotNotify();
    void addUnderDisplayedRootQueuesTheRootAndRepaintsTheChild();
    void childOfAnotherLayoutStaysThereToo();

    void removeOfStrangersIsRefused();
    void removeRunsItsStepsInOrder();
    void removeFromDetachedContainerNeitherDenotifiesNorRevalidates();
    void removeUnderDisplayedRootErasesTheChildsArea();
    void removedChildMayComeBackWithAFreshRecord();

    void childFiguresIsACopy();
    void countFollowsTheList();
    void strangersHaveNeitherRecordNorConstraint();
    void helperTakesVerticalBeforeHorizontalStretch();
    void copiedHelperKnowsTheObjectOfItsConstraint();
    void stretchTotalsCountVisibleChildrenOnly();
    void stretchTotalsWithoutChildrenAreZero();
    void destructorLeavesChildrenAndContainerAlive();
};

void tst_LayoutChildren::newLayoutHasItsDefaults()
{
    QObject owner;
    auto *layout = new ProbeLayout;
    layout->setParent(&owner);

    QCOMPARE(layout->getFigure(), nullptr);
    QCOMPARE(layout->getAligment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(int(layout->getAligment()), 0x81);
    QCOMPARE(layout->getSpacing(), 2);
    QCOMPARE(layout->expandingDirections(), Qt::Horizontal | Qt::Vertical);
    QVERIFY(!layout->isLaidOut());
    QCOMPARE(layout->childFigureCount(), 0);
    QVERIFY(layout->childFigures().isEmpty());
    QVERIFY(layout->Layout::isRelativeLayout());
    QVERIFY(layout->Opened<Layout>::isClipping());
}

void tst_LayoutChildren::alignmentIsStoredAsGiven()
{
    ProbeLayout layout;

    layout.setAlignment(Qt::AlignRight | Qt::AlignTop);

    QCOMPARE(layout.getAligment(), Qt::AlignRight | Qt::AlignTop);
}

void tst_LayoutChildren::spacingStoresAnyValue()
{
    ProbeLayout layout;

    layout.setSpacing(-7);
    QCOMPARE(layout.getSpacing(), -7);

    layout.setSpacing(INT_MAX);
    QCOMPARE(layout.getSpacing(), INT_MAX);
}

void tst_LayoutChildren::expandingDirectionsAreMasked_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("expected");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("horizontal") << 1 << 1;
    QTest::newRow("vertical") << 2 << 2;
    QTest::newRow("both") << 3 << 3;
    QTest::newRow("foreign bits alone") << 0xf0 << 0;
    QTest::newRow("foreign bits too") << 0xfe << 2;
}

void tst_LayoutChildren::expandingDirectionsAreMasked()
{
    QFETCH(int, given);
    QFETCH(int, expected);
    ProbeLayout layout;

    layout.setExpandingDirections(Qt::Orientations(given));

    QCOMPARE(int(layout.expandingDirections()), expected);
}

void tst_LayoutChildren::figureGivesItselfToItsLayout()
{
    Figure figure;
    ProbeLayout layout;

    figure.setLayoutManager(&layout);

    QCOMPARE(layout.getFigure(), &figure);
}

void tst_LayoutChildren::replacedLayoutLosesItsFigureAndKeepsItsChildren()
{
    Scene<ProbeLayout> scene;
    ProbeLayout successor;
    Figure child;
    scene.layout.add(&child);

    scene.figure.setLayoutManager(&successor);

    QCOMPARE(scene.layout.getFigure(), nullptr);
    QCOMPARE(scene.layout.childFigureCount(), 1);
    QCOMPARE(successor.getFigure(), &scene.figure);
    QCOMPARE(successor.childFigureCount(), 0);
}

void tst_LayoutChildren::addWithoutContainerIsRefused()
{
    QFETCH(bool, withStretches);
    ProbeLayout layout;
    Figure child;

    QVERIFY(!addChild(&layout, &child, withStretches));

    QCOMPARE(layout.childFigureCount(), 0);
    QCOMPARE(layout.getHelper(&child), nullptr);
}

void tst_LayoutChildren::addOfNullIsRefused()
{
    QFETCH(bool, withStretches);
    Scene<ProbeLayout> scene;

    QVERIFY(!addChild(&scene.layout, nullptr, withStretches));

    QCOMPARE(scene.layout.childFigureCount(), 0);
}

void tst_LayoutChildren::addingTwiceIsRefusedAndLeavesTheListAlone()
{
    QFETCH(bool, withStretches);
    Scene<ProbeLayout> scene;
    Figure first;
    Figure second;
    QVERIFY(addChild(&scene.layout, &first, withStretches));
    QVERIFY(addChild(&scene.layout, &second, withStretches));

    QVERIFY(!addChild(&scene.layout, &first, withStretches));
    QVERIFY(!addChild(&scene.layout, &second, withStretches, 0));

    QCOMPARE(scene.layout.childFigures(), (QList<Figure *>{&first, &second}));
}

void tst_LayoutChildren::refusedAddKeepsTheFirstRecord()
{
    Scene<ProbeLayout> scene;
    Figure child;
    scene.layout.add(&child, QStringLiteral("first"));
    QSignalSpy changed(&child, &Figure::propertyChanged);

    QVERIFY(!scene.layout.add(&child, QStringLiteral("second")));
    QVERIFY(!scene.layout.add(&child, 3, 4, 0));

    QCOMPARE(scene.layout.getConstraint(&child), QVariant(QStringLiteral("first")));
    QCOMPARE(scene.layout.getHelper(&child)->vStretch, 0u);
    QCOMPARE(changed.count(), 0);
}

void tst_LayoutChildren::addInsertsAtTheIndexOrAppends_data()
{
    QTest::addColumn<bool>("withStretches");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("expected");

    const QList<bool> forms{false, true};
    for (const bool withStretches : forms) {
        const char *form = withStretches ? "stretches" : "constraint";
        QTest::addRow("%s: 0 is the bottom", form) << withStretches << 0 << 0;
        QTest::addRow("%s: 1 is in between", form) << withStretches << 1 << 1;
        QTest::addRow("%s: the last place", form) << withStretches << 2 << 2;
        QTest::addRow("%s: the count appends", form) << withStretches << 3 << 3;
        QTest::addRow("%s: beyond the count", form) << withStretches << 4 << 3;
        QTest::addRow("%s: far beyond", form) << withStretches << INT_MAX << 3;
        QTest::addRow("%s: -1", form) << withStretches << -1 << 3;
        QTest::addRow("%s: far below", form) << withStretches << INT_MIN << 3;
    }
}

void tst_LayoutChildren::addInsertsAtTheIndexOrAppends()
{
    QFETCH(bool, withStretches);
    QFETCH(int, index);
    QFETCH(int, expected);
    Scene<ProbeLayout> scene;
    Figure a;
    Figure b;
    Figure c;
    Figure added;
    scene.layout.add(&a);
    scene.layout.add(&b);
    scene.layout.add(&c);

    QVERIFY(addChild(&scene.layout, &added, withStretches, index));

    QCOMPARE(scene.layout.childFigureCount(), 4);
    QCOMPARE(scene.layout.childFigures().indexOf(&added), expected);
}

void tst_LayoutChildren::addAppendsByDefault()
{
    Scene<ProbeLayout> scene;
    Figure first;
    Figure second;

    QVERIFY(scene.figure.add(&first));
    QVERIFY(scene.figure.add(&second, QRect(1, 2, 3, 4)));

    QCOMPARE(scene.figure.childFigures(), (QList<Figure *>{&first, &second}));
}

void tst_LayoutChildren::addMakesTheContainerTheParentFigure()
{
    QFETCH(bool, withStretches);
    Scene<ProbeLayout> scene;
    Figure child;
    QSignalSpy changed(&child, &Figure::propertyChanged);

    addChild(&scene.layout, &child, withStretches);

    QCOMPARE(child.getParentFigure(), &scene.figure);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), Figure::PROPERTY_PARENT);
    QCOMPARE(changed.at(0).at(2).value<Figure *>(), &scene.figure);
}

void tst_LayoutChildren::addStoresTheConstraintWithoutStretches()
{
    Scene<ProbeLayout> scene;
    Figure child;

    scene.layout.add(&child, QRect(1, 2, 3, 4));

    const Layout::LayoutHelper *helper = scene.layout.getHelper(&child);
    QVERIFY(helper);
    QCOMPARE(helper->getConstraint(), QVariant(QRect(1, 2, 3, 4)));
    QCOMPARE(helper->vStretch, 0u);
    QCOMPARE(helper->hStretch, 0u);
    QCOMPARE(scene.layout.getConstraint(&child), QVariant(QRect(1, 2, 3, 4)));
}

void tst_LayoutChildren::addStoresVerticalBeforeHorizontalStretch()
{
    Scene<ProbeLayout> scene;
    Figure child;

    QVERIFY(scene.figure.add(&child, 3, 4000000000u, -1));

    const Layout::LayoutHelper *helper = scene.layout.getHelper(&child);
    QVERIFY(helper);
    QVERIFY(!helper->getConstraint().isValid());
    QCOMPARE(helper->vStretch, 3u);
    QCOMPARE(helper->hStretch, 4000000000u);
    QCOMPARE(scene.layout.getVTotalStretch(), 3u);
    QCOMPARE(scene.layout.getHTotalStretch(), 4000000000u);
}

void tst_LayoutChildren::addWithStretchesSetsAnInvalidConstraint()
{
    JournalScene scene;
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    QVERIFY(scene.layout.add(&scene.child, 1, 2, -1));

    QCOMPARE(scene.layout.constraints, QList<QVariant>{QVariant()});
    QVERIFY(!listener.calls.contains(QStringLiteral("setConstraint")));
}

void tst_LayoutChildren::recordStandsWhenTheConstraintIsSet()
{
    class Layout : public ProbeLayout
    {
    public:
        QVariant seen = 1;
        unsigned int vStretch = 0;
        unsigned int hStretch = 0;

        bool setConstraint(Figure *child, const QVariant &constraint) override
        {
            seen = getHelper(child)->getConstraint();
            vStretch = getHelper(child)->vStretch;
            hStretch = getHelper(child)->hStretch;
            return ProbeLayout::setConstraint(child, constraint);
        }
    };
    Figure container;
    Layout layout;
    container.setLayoutManager(&layout);
    Figure plain;
    Figure stretched;

    layout.add(&plain, 5);
    QVERIFY(!layout.seen.isValid());
    QCOMPARE(layout.vStretch, 0u);
    QCOMPARE(layout.hStretch, 0u);

    layout.add(&stretched, 6, 7, -1);
    QVERIFY(!layout.seen.isValid());
    QCOMPARE(layout.vStretch, 6u);
    QCOMPARE(layout.hStretch, 7u);
}

void tst_LayoutChildren::addRunsItsStepsInOrder()
{
    QFETCH(bool, withStretches);
    JournalScene scene;
    scene.container.addNotify();

    addChild(&scene.layout, &scene.child, withStretches);

    // Whether the record stands at the adoption is left open: nothing can be read from it yet.
    QVERIFY(!scene.child.journal.isEmpty());
    QVERIFY(scene.child.journal.takeFirst().startsWith(QStringLiteral("adopted listed")));
    QCOMPARE(scene.child.journal,
             (QStringList{QStringLiteral("constrained listed recorded"),
                          QStringLiteral("revalidated listed recorded"),
                          QStringLiteral("container revalidated listed recorded"),
                          QStringLiteral("notified listed recorded"),
                          QStringLiteral("repainted listed recorded")}));
}

void tst_LayoutChildren::addToDetachedContainerDoesNotNotify()
{
    QFETCH(bool, withStretches);
    JournalScene scene;

    addChild(&scene.layout, &scene.child, withStretches);

    QVERIFY(!scene.child.getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(scene.child.journal.filter(QStringLiteral("notified")).isEmpty());
    QCOMPARE(scene.child.journal.last(), QStringLiteral("repainted listed recorded"));
}

void tst_LayoutChildren::addUnderDisplayedRootQueuesTheRootAndRepaintsTheChild()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    ProbeLayout layout;
    root.setLayoutManager(&layout);
    root.setBounds(QRect(0, 0, 200, 200));
    Figure child;
    child.setBounds(QRect(10, 20, 30, 40));
    manager.clear();

    layout.add(&child);

    QVERIFY(child.getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(manager.invalidFigures(), QList<Figure *>{&root});
    QCOMPARE(manager.dirtyRects(&child), QList<QRect>{QRect(10, 20, 30, 40)});
}

// Nothing takes a child out of its former layout on purpose: that is the application's business.
void tst_LayoutChildren::childOfAnotherLayoutStaysThereToo()
{
    Scene<ProbeLayout> former;
    Scene<ProbeLayout> present;
    Figure child;
    former.layout.add(&child);

    QVERIFY(present.layout.add(&child));

    QCOMPARE(child.getParentFigure(), &present.figure);
    QCOMPARE(present.layout.childFigures(), QList<Figure *>{&child});
    QCOMPARE(former.layout.childFigures(), QList<Figure *>{&child});
}

void tst_LayoutChildren::removeOfStrangersIsRefused()
{
    Scene<ProbeLayout> scene;
    Figure child;
    Figure stranger;
    scene.layout.add(&child);
    ListenerProbe listener;
    scene.layout.addListener(&listener);

    QVERIFY(!scene.layout.remove(nullptr));
    QVERIFY(!scene.layout.remove(&stranger));
    QVERIFY(!scene.layout.remove(&scene.figure));

    QCOMPARE(scene.layout.childFigures(), QList<Figure *>{&child});
    QCOMPARE(listener.calls, QStringList());
}

void tst_LayoutChildren::removeRunsItsStepsInOrder()
{
    JournalScene scene;
    scene.container.addNotify();
    scene.layout.add(&scene.child);
    ListenerProbe listener;
    listener.onCall = [&](const QString &call) {
        if (call == QLatin1String("remove"))
            scene.child.note(QStringLiteral("listener told"));
    };
    scene.layout.addListener(&listener);
    scene.child.journal.clear();

    QVERIFY(scene.layout.remove(&scene.child));

    QCOMPARE(scene.child.journal,
             (QStringList{QStringLiteral("listener told listed recorded"),
                          QStringLiteral("denotified listed"),
                          QStringLiteral("container revalidated listed"),
                          QStringLiteral("erased listed"), QStringLiteral("orphaned listed")}));
    QVERIFY(scene.layout.childFigures().isEmpty());
    QCOMPARE(scene.child.getParentFigure(), nullptr);
    QVERIFY(!scene.child.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_LayoutChildren::removeFromDetachedContainerNeitherDenotifiesNorRevalidates()
{
    JournalScene scene;
    scene.layout.add(&scene.child);
    scene.child.journal.clear();

    QVERIFY(scene.layout.remove(&scene.child));

    QCOMPARE(scene.child.journal,
             (QStringList{QStringLiteral("erased listed"), QStringLiteral("orphaned listed")}));
}

void tst_LayoutChildren::removeUnderDisplayedRootErasesTheChildsArea()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    ProbeLayout layout;
    root.setLayoutManager(&layout);
    root.setBounds(QRect(100, 100, 200, 200));
    Figure child;
    child.setBounds(QRect(10, 20, 30, 40));
    layout.add(&child);
    manager.clear();

    layout.remove(&child);

    QCOMPARE(manager.invalidFigures(), QList<Figure *>{&root});
    QCOMPARE(manager.dirtyRects(&root), QList<QRect>{QRect(110, 120, 30, 40)});
    QCOMPARE(manager.dirtyRects().count(), 1);
}

void tst_LayoutChildren::removedChildMayComeBackWithAFreshRecord()
{
    Scene<ProbeLayout> scene;
    Figure child;
    scene.layout.add(&child, 5, 6, -1);
    scene.layout.setConstraint(&child, 7);

    scene.layout.remove(&child);
    QCOMPARE(scene.layout.getHelper(&child), nullptr);
    QVERIFY(!scene.layout.remove(&child));
    QVERIFY(scene.layout.add(&child));

    QVERIFY(!scene.layout.getConstraint(&child).isValid());
    QCOMPARE(scene.layout.getHelper(&child)->vStretch, 0u);
    QCOMPARE(scene.layout.getHelper(&child)->hStretch, 0u);
}

void tst_LayoutChildren::childFiguresIsACopy()
{
    Scene<ProbeLayout> scene;
    Figure child;
    scene.layout.add(&child);

    QList<Figure *> copy = scene.layout.childFigures();
    copy.clear();

    QCOMPARE(scene.layout.childFigures(), QList<Figure *>{&child});
}

void tst_LayoutChildren::countFollowsTheList()
{
    Scene<ProbeLayout> scene;
    Figure a;
    Figure b;

    scene.layout.add(&a);
    scene.layout.add(&b);
    QCOMPARE(scene.layout.childFigureCount(), 2);

    scene.layout.remove(&a);
    QCOMPARE(scene.layout.childFigureCount(), 1);
    QCOMPARE(scene.layout.childFigures(), QList<Figure *>{&b});
}

void tst_LayoutChildren::strangersHaveNeitherRecordNorConstraint()
{
    Scene<ProbeLayout> scene;
    Figure stranger;

    QCOMPARE(scene.layout.getHelper(&stranger), nullptr);
    QCOMPARE(scene.layout.getHelper(nullptr), nullptr);
    QVERIFY(!scene.layout.getConstraint(&stranger).isValid());
    QVERIFY(!scene.layout.getConstraint(nullptr).isValid());
}

void tst_LayoutChildren::helperTakesVerticalBeforeHorizontalStretch()
{
    const Layout::LayoutHelper helper(QRect(1, 2, 3, 4), 5, 6);

    QCOMPARE(helper.getConstraint(), QVariant(QRect(1, 2, 3, 4)));
    QCOMPARE(helper.vStretch, 5u);
    QCOMPARE(helper.hStretch, 6u);
}

void tst_LayoutChildren::copiedHelperKnowsTheObjectOfItsConstraint()
{
    auto object = std::make_unique<QObject>();
    const Layout::LayoutHelper helper(QVariant::fromValue(object.get()), 0, 0);
    const Layout::LayoutHelper copy(helper); // NOLINT(performance-unnecessary-copy-initialization)
    QCOMPARE(copy.getConstraint().value<QObject *>(), object.get());

    object.reset();

    QVERIFY(!copy.getConstraint().value<QObject *>());
}

void tst_LayoutChildren::stretchTotalsCountVisibleChildrenOnly()
{
    Scene<ProbeLayout> scene;
    Figure a;
    Figure b;
    Figure c;
    scene.layout.add(&a, 1, 10, -1);
    scene.layout.add(&b, 2, 20, -1);
    scene.layout.add(&c, 4, 40, -1);
    QCOMPARE(scene.layout.getVTotalStretch(), 7u);
    QCOMPARE(scene.layout.getHTotalStretch(), 70u);

    b.setVisible(false);
    QCOMPARE(scene.layout.getVTotalStretch(), 5u);
    QCOMPARE(scene.layout.getHTotalStretch(), 50u);

    b.setVisible(true);
    scene.layout.remove(&c);
    QCOMPARE(scene.layout.getVTotalStretch(), 3u);
    QCOMPARE(scene.layout.getHTotalStretch(), 30u);
}

void tst_LayoutChildren::stretchTotalsWithoutChildrenAreZero()
{
    Scene<ProbeLayout> scene;

    QCOMPARE(scene.layout.getVTotalStretch(), 0u);
    QCOMPARE(scene.layout.getHTotalStretch(), 0u);
}

void tst_LayoutChildren::destructorLeavesChildrenAndContainerAlive()
{
    QPointer<Figure> container = new Figure;
    QPointer<Figure> child = new Figure;
    auto *layout = new ProbeLayout;
    container->setLayoutManager(layout);
    layout->add(child);

    delete layout;

    QVERIFY(container);
    QVERIFY(child);
    QCOMPARE(container->getLayoutManager(), nullptr);
    delete child;
    delete container;
}

QTEST_MAIN(tst_LayoutChildren)
#include "tst_layout_children.moc"
