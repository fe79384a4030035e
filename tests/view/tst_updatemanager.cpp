#include <figura/layout/XYLayout.h>
#include <figura/view/UpdateManager.h>

#include <countingfigure.h>
#include <fakeviewer.h>
#include <logcapture.h>
#include <rootfigure.h>

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Tells the test when it is validated.
class HookFigure : public Figure
{
public:
    explicit HookFigure(std::function<void()> hook = {})
        : onValidate(std::move(hook))
    {
    }

    std::function<void()> onValidate;
    int validations = 0;

    void validate() override
    {
        ++validations;
        if (onValidate)
            onValidate();
        Figure::validate();
    }
};

struct Managed
{
    Managed() { manager.setViewer(&viewer); }

    FakeViewer viewer;
    UpdateManager manager;
};

using Operation = std::function<void(UpdateManager &, Figure &)>;

} // namespace

Q_DECLARE_METATYPE(Operation)

class tst_UpdateManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void viewerIsNullAtFirstAndThenWhatWasSet();
    void parentOwnsTheManager();
    void operationWithoutViewerOnlyWarns_data();
    void operationWithoutViewerOnlyWarns();
    void operationIsRefusedAgainOnceTheViewerIsTakenAway();
    void warningCarriesNoFileAndLine();
    void nullFigureIsRefused();
    void refusedNullFigureIsNotQueued();

    void queuedFigureIsValidatedByPerformUpdate();
    void queuingSchedulesNothing();
    void figureQueuedTwiceIsValidatedOnce();
    void queueIsValidatedInOrderOfArrival();
    void figureQueuedInPlaceOfADestroyedOneIsDroppedToo();
    void invisibleFigureIsValidatedToo();
    void validFigureStaysAsItIs();
    void emptyQueueAnnouncesNothing();
    void queueIsEmptyAfterThePass();
    void aboutToValidateCarriesTheViewerAndComesFirst();
    void figureQueuedByTheAnnouncementIsValidatedInThePass();
    void figureQueuedInsideThePassIsDropped();
    void figureQueuedAgainInsideItsOwnValidationIsDropped();
    void droppedFigureMayBeQueuedAnew();
    void destructionDropsTheQueueUnvalidated();

    void destroyedFigureLeavesTheQueue();
    void figureDestroyedByTheAnnouncementIsSkipped();
    void figureDestroyedByAnEarlierOneInThePassIsSkipped();

    void damageOfFigureIsReportedInAbsoluteCoordinates();
    void damageOfRootIsReportedUnchanged();
    void damageIsForwardedAsItIs_data();
    void damageIsForwardedAsItIs();
    void everyDamageIsForwardedAtOnceAndUnmerged();

    void revalidateOfDeepChildQueuesOnlyTheRoot();
    void repaintOfFigureReachesTheViewer();
};

void tst_UpdateManager::viewerIsNullAtFirstAndThenWhatWasSet()
{
    FakeViewer viewer;
    UpdateManager manager;

    QCOMPARE(manager.getViewer(), nullptr);
    manager.setViewer(&viewer);
    QCOMPARE(manager.getViewer(), &viewer);
}

void tst_UpdateManager::parentOwnsTheManager()
{
    auto owner = std::make_unique<QObject>();
    QPointer<UpdateManager> manager = new UpdateManager(owner.get());

    owner.reset();

    QVERIFY(manager.isNull());
}

void tst_UpdateManager::operationWithoutViewerOnlyWarns_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QByteArray>("message");

    QTest::newRow("damage of a figure")
        << Operation([](UpdateManager &m, Figure &f) { m.addDirtyRegion(&f, QRect(0, 0, 5, 5)); })
        << QByteArray("UpdateManager::addDirtyRegion(): no managed widget");
    QTest::newRow("damage") << Operation([](UpdateManager &m, Figure &) {
        m.addDirtyRegion(QRect(0, 0, 5, 5));
    }) << QByteArray("UpdateManager::addDirtyRegion(): no managed widget");
    QTest::newRow("invalid figure")
        << Operation([](UpdateManager &m, Figure &f) { m.addInvalidFigure(&f); })
        << QByteArray("UpdateManager::addInvalidFigure(): no managed widget");
    QTest::newRow("null figure: the viewer is asked for first")
        << Operation([](UpdateManager &m, Figure &) { m.addInvalidFigure(nullptr); })
        << QByteArray("UpdateManager::addInvalidFigure(): no managed widget");
    QTest::newRow("update") << Operation([](UpdateManager &m, Figure &) { m.performUpdate(); })
                            << QByteArray("UpdateManager::performUpdate(): no managed widget");
}

void tst_UpdateManager::operationWithoutViewerOnlyWarns()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, message);
    FakeViewer viewer;
    UpdateManager manager;
    HookFigure figure;
    QSignalSpy announced(&manager, &UpdateManager::aboutToValidate);

    QTest::ignoreMessage(QtWarningMsg, message.constData());
    operation(manager, figure);
    manager.setViewer(&viewer);
    manager.performUpdate();

    QCOMPARE(figure.validations, 0);
    QCOMPARE(announced.count(), 0);
    QVERIFY(viewer.updatedRects.isEmpty());
}

void tst_UpdateManager::operationIsRefusedAgainOnceTheViewerIsTakenAway()
{
    Managed managed;
    HookFigure figure;
    managed.manager.addInvalidFigure(&figure);
    managed.manager.setViewer(nullptr);

    QTest::ignoreMessage(QtWarningMsg, "UpdateManager::performUpdate(): no managed widget");
    managed.manager.performUpdate();

    QCOMPARE(figure.validations, 0);
}

void tst_UpdateManager::warningCarriesNoFileAndLine()
{
    UpdateManager manager;
    LogCapture log;

    manager.performUpdate();

    QCOMPARE(log.messages().size(), 1);
    QCOMPARE(log.messages().first().type, QtWarningMsg);
    QVERIFY(!log.messages().first().hasPlace);
}

void tst_UpdateManager::nullFigureIsRefused()
{
    Managed managed;

    QTest::ignoreMessage(QtWarningMsg, "UpdateManager::addInvalidFigure(): null figure pointer");
    managed.manager.addInvalidFigure(nullptr);
}

void tst_UpdateManager::refusedNullFigureIsNotQueued()
{
    Managed managed;
    QSignalSpy announced(&managed.manager, &UpdateManager::aboutToValidate);

    QTest::ignoreMessage(QtWarningMsg, "UpdateManager::addInvalidFigure(): null figure pointer");
    managed.manager.addInvalidFigure(nullptr);
    managed.manager.performUpdate();

    QCOMPARE(announced.count(), 0);
}

void tst_UpdateManager::queuedFigureIsValidatedByPerformUpdate()
{
    Managed managed;
    HookFigure figure;

    managed.manager.addInvalidFigure(&figure);
    managed.manager.performUpdate();

    QCOMPARE(figure.validations, 1);
    QVERIFY(figure.getFlag(Figure::FLAG_VALID));
}

void tst_UpdateManager::queuingSchedulesNothing()
{
    Managed managed;
    HookFigure figure;

    managed.manager.addInvalidFigure(&figure);
    QCoreApplication::processEvents();

    QCOMPARE(figure.validations, 0);
    QVERIFY(managed.viewer.updatedRects.isEmpty());
}

void tst_UpdateManager::figureQueuedTwiceIsValidatedOnce()
{
    Managed managed;
    HookFigure first;
    HookFigure second;

    managed.manager.addInvalidFigure(&first);
    managed.manager.addInvalidFigure(&second);
    managed.manager.addInvalidFigure(&first);
    managed.manager.addInvalidFigure(&second);
    managed.manager.performUpdate();

    QCOMPARE(first.validations, 1);
    QCOMPARE(second.validations, 1);
}

void tst_UpdateManager::queueIsValidatedInOrderOfArrival()
{
    Managed managed;
    QString order;
    HookFigure a([&order] { order += u'a'; });
    HookFigure b([&order] { order += u'b'; });
    HookFigure c([&order] { order += u'c'; });

    for (Figure *figure : {&c, &a, &b, &c})
        managed.manager.addInvalidFigure(figure);
    managed.manager.performUpdate();

    QCOMPARE(order, QStringLiteral("cab"));
}

void tst_UpdateManager::figureQueuedInPlaceOfADestroyedOneIsDroppedToo()
{
    Managed managed;
    HookFigure late;
    HookFigure second;
    HookFigure third;
    auto doomed = std::make_unique<HookFigure>();
    HookFigure first([&] {
        doomed.reset();
        managed.manager.addInvalidFigure(&late);
    });
    for (Figure *figure : QList<Figure *>{&first, doomed.get(), &second, &third})
        managed.manager.addInvalidFigure(figure);

    managed.manager.performUpdate();

    QCOMPARE(late.validations, 0);
    QCOMPARE(second.validations, 1);
    QCOMPARE(third.validations, 1);
}

void tst_UpdateManager::invisibleFigureIsValidatedToo()
{
    Managed managed;
    HookFigure figure;
    figure.setVisible(false);

    managed.manager.addInvalidFigure(&figure);
    managed.manager.performUpdate();

    QCOMPARE(figure.validations, 1);
}

void tst_UpdateManager::validFigureStaysAsItIs()
{
    Managed managed;
    CountingFigure figure;
    figure.validate();
    figure.resetCalls();

    managed.manager.addInvalidFigure(&figure);
    managed.manager.performUpdate();

    QCOMPARE(figure.calls().validate, 1);
    QCOMPARE(figure.calls().layout, 0);
}

void tst_UpdateManager::emptyQueueAnnouncesNothing()
{
    Managed managed;
    QSignalSpy announced(&managed.manager, &UpdateManager::aboutToValidate);

    managed.manager.performUpdate();

    QCOMPARE(announced.count(), 0);
}

void tst_UpdateManager::queueIsEmptyAfterThePass()
{
    Managed managed;
    HookFigure figure;
    managed.manager.addInvalidFigure(&figure);
    managed.manager.performUpdate();
    QSignalSpy announced(&managed.manager, &UpdateManager::aboutToValidate);

    managed.manager.performUpdate();

    QCOMPARE(figure.validations, 1);
    QCOMPARE(announced.count(), 0);
}

void tst_UpdateManager::aboutToValidateCarriesTheViewerAndComesFirst()
{
    Managed managed;
    HookFigure figure;
    int validationsWhenAnnounced = -1;
    QObject::connect(&managed.manager, &UpdateManager::aboutToValidate,
                     [&] { validationsWhenAnnounced = figure.validations; });
    QSignalSpy announced(&managed.manager, &UpdateManager::aboutToValidate);

    managed.manager.addInvalidFigure(&figure);
    managed.manager.performUpdate();

    QCOMPARE(validationsWhenAnnounced, 0);
    QCOMPARE(announced.count(), 1);
    QCOMPARE(announced.first().first().value<IFigureViewer *>(), &managed.viewer);
}

void tst_UpdateManager::figureQueuedByTheAnnouncementIsValidatedInThePass()
{
    Managed managed;
    HookFigure first;
    HookFigure late;
    QObject::connect(&managed.manager, &UpdateManager::aboutToValidate,
                     [&] { managed.manager.addInvalidFigure(&late); });

    managed.manager.addInvalidFigure(&first);
    managed.manager.performUpdate();

    QCOMPARE(late.validations, 1);
}

// Dropped on purpose: a figure that still needs work invalidates itself again, and its repaint
// request brings the next pass.
void tst_UpdateManager::figureQueuedInsideThePassIsDropped()
{
    Managed managed;
    HookFigure late;
    HookFigure first([&] { managed.manager.addInvalidFigure(&late); });
    managed.manager.addInvalidFigure(&first);

    managed.manager.performUpdate();
    QCOMPARE(late.validations, 0);

    QSignalSpy announced(&managed.manager, &UpdateManager::aboutToValidate);
    managed.manager.performUpdate();
    QCOMPARE(late.validations, 0);
    QCOMPARE(announced.count(), 0);
}

void tst_UpdateManager::figureQueuedAgainInsideItsOwnValidationIsDropped()
{
    Managed managed;
    HookFigure figure;
    figure.onValidate = [&] { managed.manager.addInvalidFigure(&figure); };

    managed.manager.addInvalidFigure(&figure);
    managed.manager.performUpdate();
    managed.manager.performUpdate();

    QCOMPARE(figure.validations, 1);
}

void tst_UpdateManager::droppedFigureMayBeQueuedAnew()
{
    Managed managed;
    HookFigure late;
    HookFigure first([&] { managed.manager.addInvalidFigure(&late); });
    managed.manager.addInvalidFigure(&first);
    managed.manager.performUpdate();

    managed.manager.addInvalidFigure(&late);
    managed.manager.performUpdate();

    QCOMPARE(late.validations, 1);
}

void tst_UpdateManager::destructionDropsTheQueueUnvalidated()
{
    FakeViewer viewer;
    HookFigure figure;
    auto manager = std::make_unique<UpdateManager>();
    manager->setViewer(&viewer);
    manager->addInvalidFigure(&figure);

    manager.reset();

    QCOMPARE(figure.validations, 0);
}

void tst_UpdateManager::destroyedFigureLeavesTheQueue()
{
    Managed managed;
    QSignalSpy announced(&managed.manager, &UpdateManager::aboutToValidate);
    auto figure = std::make_unique<HookFigure>();
    managed.manager.addInvalidFigure(figure.get());

    figure.reset();
    managed.manager.performUpdate();

    QCOMPARE(announced.count(), 0);
}

void tst_UpdateManager::figureDestroyedByTheAnnouncementIsSkipped()
{
    Managed managed;
    auto doomed = std::make_unique<HookFigure>();
    HookFigure other;
    QObject::connect(&managed.manager, &UpdateManager::aboutToValidate,
                     [&doomed] { doomed.reset(); });

    managed.manager.addInvalidFigure(doomed.get());
    managed.manager.addInvalidFigure(&other);
    managed.manager.performUpdate();

    QCOMPARE(other.validations, 1);
}

void tst_UpdateManager::figureDestroyedByAnEarlierOneInThePassIsSkipped()
{
    Managed managed;
    auto doomed = std::make_unique<HookFigure>();
    HookFigure first([&doomed] { doomed.reset(); });
    HookFigure last;

    managed.manager.addInvalidFigure(&first);
    managed.manager.addInvalidFigure(doomed.get());
    managed.manager.addInvalidFigure(&last);
    managed.manager.performUpdate();

    QCOMPARE(last.validations, 1);
}

void tst_UpdateManager::damageOfFigureIsReportedInAbsoluteCoordinates()
{
    Managed managed;
    Figure root;
    Figure parent;
    Figure child;
    root.setLayoutManager(new XYLayout(&root));
    parent.setLayoutManager(new XYLayout(&parent));
    root.setBounds(QRect(100, 200, 500, 500));
    root.add(&parent, QRect(10, 20, 300, 300));
    parent.add(&child, QRect(1, 2, 30, 30));

    managed.manager.addDirtyRegion(&child, QRect(1, 2, 3, 4));

    QCOMPARE(managed.viewer.updatedRects, QList<QRect>{QRect(111, 222, 3, 4)});
}

void tst_UpdateManager::damageOfRootIsReportedUnchanged()
{
    Managed managed;
    Figure root;
    root.setBounds(QRect(100, 200, 500, 500));

    managed.manager.addDirtyRegion(&root, QRect(1, 2, 3, 4));

    QCOMPARE(managed.viewer.updatedRects, QList<QRect>{QRect(1, 2, 3, 4)});
}

void tst_UpdateManager::damageIsForwardedAsItIs_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::newRow("usual") << QRect(-5, 7, 30, 40);
    QTest::newRow("null") << QRect();
    QTest::newRow("empty") << QRect(3, 4, 0, 10);
    QTest::newRow("negative size") << QRect(3, 4, -5, -6);
}

void tst_UpdateManager::damageIsForwardedAsItIs()
{
    QFETCH(QRect, rect);
    Managed managed;
    Figure figure;

    managed.manager.addDirtyRegion(rect);
    managed.manager.addDirtyRegion(&figure, rect);

    QCOMPARE(managed.viewer.updatedRects, (QList<QRect>{rect, rect}));
}

void tst_UpdateManager::everyDamageIsForwardedAtOnceAndUnmerged()
{
    Managed managed;
    const QRect first(0, 0, 10, 10);
    const QRect second(5, 5, 10, 10);

    managed.manager.addDirtyRegion(first);
    QCOMPARE(managed.viewer.updatedRects, QList<QRect>{first});
    managed.manager.addDirtyRegion(second);
    managed.manager.addDirtyRegion(first);

    QCOMPARE(managed.viewer.updatedRects, (QList<QRect>{first, second, first}));
}

void tst_UpdateManager::revalidateOfDeepChildQueuesOnlyTheRoot()
{
    Managed managed;
    HookFigure middle;
    HookFigure leaf;
    RootFigure root(&managed.manager);
    root.setLayoutManager(new XYLayout(&root));
    middle.setLayoutManager(new XYLayout(&middle));
    root.add(&middle, QRect(0, 0, 50, 50));
    middle.add(&leaf, QRect(0, 0, 20, 20));
    managed.manager.performUpdate();
    QVERIFY(root.getFlag(Figure::FLAG_VALID));
    middle.validations = 0;

    leaf.revalidate();
    QVERIFY(!root.getFlag(Figure::FLAG_VALID));
    managed.manager.performUpdate();

    // Once, by its parent: it did not stand in the queue itself.
    QCOMPARE(middle.validations, 1);
    QVERIFY(leaf.getFlag(Figure::FLAG_VALID));
    QVERIFY(root.getFlag(Figure::FLAG_VALID));
}

void tst_UpdateManager::repaintOfFigureReachesTheViewer()
{
    Managed managed;
    Figure child;
    RootFigure root(&managed.manager);
    root.setLayoutManager(new XYLayout(&root));
    root.setBounds(QRect(100, 100, 50, 50));
    root.add(&child, QRect(5, 6, 10, 10));
    managed.viewer.updatedRects.clear();

    child.repaint();

    QCOMPARE(managed.viewer.updatedRects, QList<QRect>{QRect(105, 106, 10, 10)});
}

QTEST_MAIN(tst_UpdateManager)
#include "tst_updatemanager.moc"
