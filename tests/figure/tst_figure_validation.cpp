#include "fixtures.h"

#include <fakeviewer.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <figura/figure/SimpleBorder.h>
#include <figura/view/Layer.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A figure that keeps its children's changes to itself.
class ValidateRoot : public ParentFigure
{
protected:
    bool isValidateRoot() const override { return true; }
};

} // namespace

class tst_Figure_Validation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void setValidSetsAndClearsTheFlag();
    void plainFigureIsNoValidateRoot();
    void invalidateClearsTheFlagAndInvalidatesTheLayout();
    void invalidateReachesNeitherChildrenNorParentNorTheUpdateManager();

    void validateDoesNothingForAValidFigure();
    void validateLaysOutThenValidatesTheChildrenInOrder();
    void figureBecomesValidOnlyAfterItsChildren();
    void validateReachesAllLevels();
    void validChildIsNotLaidOutAgain();
    void layoutHandsTheClientAreaToTheLayoutManager_data();
    void layoutHandsTheClientAreaToTheLayoutManager();
    void validateNeedsNoLayoutManager();

    void revalidateQueuesOnlyTheRoot();
    void revalidateInvalidatesTheWholeChainUpwards();
    void revalidateGoesUpThroughTheOverrides();
    void revalidateStopsAtAValidateRoot();
    void validateRootRevalidatedItselfIsQueued();
    void layerIsAValidateRoot();
    void revalidateOfADetachedTreeQueuesNothingButInvalidates();
    void performUpdateMakesTheTreeValidAgain();

private:
    RecordingUpdateManager m_updates;
};

void tst_Figure_Validation::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_updates.clear();
}

void tst_Figure_Validation::setValidSetsAndClearsTheFlag()
{
    OpenFigure figure;

    figure.setValid(true);
    QVERIFY(figure.isValid());
    QVERIFY(figure.getFlag(Figure::FLAG_VALID));

    figure.setValid(false);
    QVERIFY(!figure.isValid());
    QVERIFY(!figure.getFlag(Figure::FLAG_VALID));
}

void tst_Figure_Validation::plainFigureIsNoValidateRoot()
{
    QVERIFY(!OpenFigure().isValidateRoot());
}

void tst_Figure_Validation::invalidateClearsTheFlagAndInvalidatesTheLayout()
{
    ParentFigure figure;
    figure.setValid(true);

    figure.invalidate();

    QVERIFY(!figure.isValid());
    QCOMPARE(figure.plain->invalidations, 1);
}

void tst_Figure_Validation::invalidateReachesNeitherChildrenNorParentNorTheUpdateManager()
{
    RootFigure root(&m_updates);
    PlainLayout layout;
    ParentFigure middle;
    ParentFigure child;
    root.setLayoutManager(&layout);
    root.add(&middle);
    middle.add(&child);
    root.validate();
    m_updates.clear();

    middle.invalidate();

    QVERIFY(!middle.isValid());
    QVERIFY(root.getFlag(Figure::FLAG_VALID));
    QVERIFY(child.isValid());
    QCOMPARE(m_updates.requests().size(), 0);
}

void tst_Figure_Validation::validateDoesNothingForAValidFigure()
{
    ParentFigure figure;
    ParentFigure child;
    figure.add(&child);
    figure.setValid(true);
    child.resetCalls();

    figure.validate();

    QCOMPARE(figure.calls().layout, 0);
    QCOMPARE(child.calls().validate, 0);
    QVERIFY(!child.isValid());
}

void tst_Figure_Validation::validateLaysOutThenValidatesTheChildrenInOrder()
{
    QStringList log;
    LoggingFigure figure(QStringLiteral("parent"), &log);
    LoggingFigure first(QStringLiteral("first"), &log);
    LoggingFigure second(QStringLiteral("second"), &log);
    figure.add(&first);
    figure.add(&second);
    log.clear();

    figure.validate();

    QCOMPARE(log, QStringList({"parent validate", "parent layout", "first validate", "first layout",
                               "second validate", "second layout"}));
}

void tst_Figure_Validation::figureBecomesValidOnlyAfterItsChildren()
{
    class Watching : public OpenFigure
    {
    public:
        QList<bool> parentWasValid;

        void validate() override
        {
            parentWasValid.append(getParentFigure()->getFlag(FLAG_VALID));
            OpenFigure::validate();
        }
    };
    ParentFigure parent;
    Watching child;
    parent.add(&child);

    parent.validate();

    QCOMPARE(child.parentWasValid, QList<bool>({false}));
    QVERIFY(child.isValid());
    QVERIFY(parent.isValid());
}

void tst_Figure_Validation::validateReachesAllLevels()
{
    ParentFigure root;
    ParentFigure child;
    ParentFigure grandchild;
    root.add(&child);
    child.add(&grandchild);

    root.validate();

    QVERIFY(root.isValid());
    QVERIFY(child.isValid());
    QVERIFY(grandchild.isValid());
    QCOMPARE(grandchild.plain->laidOut.size(), 1);
}

void tst_Figure_Validation::validChildIsNotLaidOutAgain()
{
    ParentFigure root;
    ParentFigure child;
    root.add(&child);
    root.validate();
    root.invalidate();
    root.resetCalls();
    child.resetCalls();

    root.validate();

    QCOMPARE(root.calls().layout, 1);
    QCOMPARE(child.calls().validate, 1);
    QCOMPARE(child.calls().layout, 0);
}

void tst_Figure_Validation::layoutHandsTheClientAreaToTheLayoutManager_data()
{
    QTest::addColumn<bool>("relative");
    QTest::addColumn<QRect>("area");

    QTest::newRow("relative, from the origin") << true << QRect(0, 0, 90, 190);
    QTest::newRow("in the coordinates of the bounds") << false << QRect(105, 205, 90, 190);
}

void tst_Figure_Validation::layoutHandsTheClientAreaToTheLayoutManager()
{
    QFETCH(bool, relative);
    QFETCH(QRect, area);
    SimpleBorder border(nullptr, 2);
    ParentFigure figure(relative);
    figure.setBorder(&border);
    figure.setMargin(3);
    figure.setBounds(QRect(100, 200, 100, 200));

    figure.layout();

    QCOMPARE(figure.plain->laidOut, QList<QRect>({area}));
}

void tst_Figure_Validation::validateNeedsNoLayoutManager()
{
    OpenFigure figure;

    figure.validate();

    QCOMPARE(figure.calls().layout, 1);
    QVERIFY(figure.isValid());
}

void tst_Figure_Validation::revalidateQueuesOnlyTheRoot()
{
    RootFigure root(&m_updates);
    PlainLayout layout;
    ParentFigure child;
    ParentFigure grandchild;
    ParentFigure leaf;
    root.setLayoutManager(&layout);
    root.add(&child);
    child.add(&grandchild);
    grandchild.add(&leaf);
    root.validate();
    m_updates.clear();

    leaf.revalidate();

    QCOMPARE(m_updates.requests().size(), 1);
    QCOMPARE(m_updates.invalidFigures(), QList<Figure *>({&root}));
}

void tst_Figure_Validation::revalidateInvalidatesTheWholeChainUpwards()
{
    ParentFigure root;
    ParentFigure child;
    ParentFigure sibling;
    ParentFigure leaf;
    root.add(&child);
    root.add(&sibling);
    child.add(&leaf);
    root.validate();
    root.plain->invalidations = 0;

    child.revalidate();

    QVERIFY(!root.isValid());
    QVERIFY(!child.isValid());
    QVERIFY(sibling.isValid());
    QVERIFY(leaf.isValid());
    QCOMPARE(root.plain->invalidations, 1);
}

void tst_Figure_Validation::revalidateGoesUpThroughTheOverrides()
{
    ParentFigure root;
    ParentFigure child;
    root.add(&child);
    root.resetCalls();
    child.resetCalls();

    child.revalidate();

    QCOMPARE(child.calls().invalidate, 1);
    QCOMPARE(root.calls().revalidate, 1);
    QCOMPARE(root.calls().invalidate, 1);
}

void tst_Figure_Validation::revalidateStopsAtAValidateRoot()
{
    RootFigure root(&m_updates);
    PlainLayout layout;
    ValidateRoot boundary;
    ParentFigure child;
    root.setLayoutManager(&layout);
    root.add(&boundary);
    boundary.add(&child);
    root.validate();
    m_updates.clear();

    child.revalidate();

    QCOMPARE(m_updates.invalidFigures(), QList<Figure *>({&boundary}));
    QVERIFY(!boundary.isValid());
    QVERIFY(root.getFlag(Figure::FLAG_VALID));
}

void tst_Figure_Validation::validateRootRevalidatedItselfIsQueued()
{
    RootFigure root(&m_updates);
    PlainLayout layout;
    ValidateRoot boundary;
    root.setLayoutManager(&layout);
    root.add(&boundary);
    root.validate();
    m_updates.clear();

    boundary.revalidate();

    QCOMPARE(m_updates.invalidFigures(), QList<Figure *>({&boundary}));
    QVERIFY(root.getFlag(Figure::FLAG_VALID));
}

void tst_Figure_Validation::layerIsAValidateRoot()
{
    RootFigure root(&m_updates);
    PlainLayout layout;
    PlainLayout layerLayout;
    Layer layer;
    Figure child;
    root.setLayoutManager(&layout);
    root.add(&layer);
    layer.setLayoutManager(&layerLayout);
    layer.add(&child);
    m_updates.clear();

    child.revalidate();

    QCOMPARE(m_updates.invalidFigures(), QList<Figure *>({&layer}));
}

void tst_Figure_Validation::revalidateOfADetachedTreeQueuesNothingButInvalidates()
{
    RootFigure root(&m_updates);
    PlainLayout layout;
    ParentFigure child;
    root.setLayoutManager(&layout);
    root.add(&child);
    root.validate();
    root.removeNotify();
    m_updates.clear();

    child.revalidate();

    QCOMPARE(m_updates.requests().size(), 0);
    QVERIFY(!child.isValid());
    QVERIFY(!root.getFlag(Figure::FLAG_VALID));
}

void tst_Figure_Validation::performUpdateMakesTheTreeValidAgain()
{
    FakeViewer viewer;
    RecordingUpdateManager updates;
    updates.setViewer(&viewer);
    RootFigure root(&updates);
    PlainLayout layout;
    ParentFigure child;
    root.setLayoutManager(&layout);
    root.add(&child);
    child.revalidate();

    updates.performUpdate();

    QVERIFY(root.getFlag(Figure::FLAG_VALID));
    QVERIFY(child.isValid());
}

QTEST_MAIN(tst_Figure_Validation)
#include "tst_figure_validation.moc"
