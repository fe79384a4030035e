#include "connection_fixtures.h"

#include <figura/connection/NullRouter.h>
#include <figura/view/IViewport.h>

#include <fakeviewer.h>
#include <place.h>

#include <QSignalSpy>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Writes what it is told into the list that the connection and its router write into as well.
class LoggingManager : public RecordingUpdateManager
{
public:
    QStringList *log = nullptr;

    using RecordingUpdateManager::addDirtyRegion;

    void addDirtyRegion(Figure *figure, const QRect &rect) override
    {
        if (log)
            log->append(QStringLiteral("dirty"));
        RecordingUpdateManager::addDirtyRegion(figure, rect);
    }

    void addInvalidFigure(Figure *figure) override
    {
        if (log)
            log->append(QStringLiteral("queue"));
        RecordingUpdateManager::addInvalidFigure(figure);
    }
};

// Remembers whether its listeners were attached when they came and went.
class SeeingAnchor : public XYAnchor
{
public:
    QList<bool> attached;

    void addAnchorListener(IAnchorListener *listener) override
    {
        see(listener);
        XYAnchor::addAnchorListener(listener);
    }

    void removeAnchorListener(IAnchorListener *listener) override
    {
        see(listener);
        XYAnchor::removeAnchorListener(listener);
    }

private:
    void see(IAnchorListener *listener)
    {
        attached.append(dynamic_cast<Figure *>(listener)->getFlag(Figure::FLAG_NOTIFIED));
    }
};

class CountingViewport : public IViewport
{
public:
    int updates = 0;
    int repaints = 0;

    Figure *getContent() const override { return nullptr; }
    int getPageStep(Qt::Orientation) const override { return 0; }
    QPoint getViewLocation() override { return QPoint(); }
    QRect getViewRect() override { return QRect(); }
    bool setContent(Figure *) override { return false; }
    void setViewLocation(const QPoint &, bool) override {}
    void update() override { ++updates; }
    void repaint() override { ++repaints; }
    void resizeViewport(const QSize &) override {}
    void setXYMargins(int, int) override {}
    QPointF toContent(const QPointF &point) override { return point; }
    QPoint toContent(const QPoint &point) override { return point; }
    QRectF toContent(const QRectF &rect) override { return rect; }
    QRect toContent(const QRect &rect) override { return rect; }
    QPointF fromContent(const QPointF &point) override { return point; }
    QPoint fromContent(const QPoint &point) override { return point; }
    QRectF fromContent(const QRectF &rect) override { return rect; }
    QRect fromContent(const QRect &rect) override { return rect; }
};

class ViewportViewer : public FakeViewer
{
public:
    CountingViewport viewport;

    IViewport *getViewport() override { return &viewport; }
};

// A displayed parent away from the origin, and a connection with a logging router.
class Scene
{
public:
    LoggingManager manager;
    RootFigure root{&manager};
    Place parent{QPoint(100, 200)};
    LoggingRouter router;
    AnyConnectionPointer wire;

    explicit Scene(const QString &className)
        : wire(makeConnection(className))
    {
        root.setLayoutManager(new XYLayout(&root));
        root.add(&parent);
        wire->connection().setConnectionRouter(&router);
        router.log = &wire->log;
        clear();
    }

    void show()
    {
        parent.add(&wire->figure());
        root.validate();
        clear();
    }

    void clear()
    {
        wire->log.clear();
        router.own.clear();
        manager.clear();
    }
};

} // namespace

class tst_ConnectionAnchoring : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newConnectionHasNoAnchors_data() { addConnectionClassRows(); }
    void newConnectionHasNoAnchors();
    void anchorSetWhileDetachedIsNotHooked_data() { addConnectionEndRows(); }
    void anchorSetWhileDetachedIsNotHooked();
    void anchorSetWhileDetachedIsHookedWhenAttached_data() { addConnectionEndRows(); }
    void anchorSetWhileDetachedIsHookedWhenAttached();
    void sourceIsHookedBeforeTarget_data() { addConnectionClassRows(); }
    void sourceIsHookedBeforeTarget();
    void sourceIsUnhookedBeforeTargetAndThenTheRouterForgets_data() { addConnectionClassRows(); }
    void sourceIsUnhookedBeforeTargetAndThenTheRouterForgets();
    void connectionIsAttachedWhileItsAnchorsAreHooked_data() { addConnectionEndRows(); }
    void connectionIsAttachedWhileItsAnchorsAreHooked();
    void anchorSetWhileAttachedIsHookedAtOnce_data() { addConnectionEndRows(); }
    void anchorSetWhileAttachedIsHookedAtOnce();
    void anchorIsHookedUnderAnyParentEvenADetachedOne_data() { addConnectionEndRows(); }
    void anchorIsHookedUnderAnyParentEvenADetachedOne();
    void formerAnchorIsUnhookedBeforeTheNewOneIsHooked_data() { addConnectionEndRows(); }
    void formerAnchorIsUnhookedBeforeTheNewOneIsHooked();
    void sameAnchorIsNeitherHookedNorRevalidatedAgain_data() { addConnectionEndRows(); }
    void sameAnchorIsNeitherHookedNorRevalidatedAgain();
    void nullAnchorUnhooksAndRevalidates_data() { addConnectionEndRows(); }
    void nullAnchorUnhooksAndRevalidates();
    void newAnchorRevalidatesOnce_data() { addConnectionEndRows(); }
    void newAnchorRevalidatesOnce();
    void oneAnchorForBothEndsIsHookedTwice_data() { addConnectionClassRows(); }
    void oneAnchorForBothEndsIsHookedTwice();
    void reattachedConnectionHooksAgain_data() { addConnectionEndRows(); }
    void reattachedConnectionHooksAgain();
    void movedAnchorRevalidates_data() { addConnectionEndRows(); }
    void movedAnchorRevalidates();
    void strangeAnchorRevalidatesToo_data() { addConnectionClassRows(); }
    void strangeAnchorRevalidatesToo();
    void detachedConnectionHearsNothing_data() { addConnectionEndRows(); }
    void detachedConnectionHearsNothing();
    void revalidationDamagesThenQueuesThenTellsTheRouter_data() { addConnectionClassRows(); }
    void revalidationDamagesThenQueuesThenTellsTheRouter();
    void oldAreaIsDamageOfTheParentInItsOwnCoordinates_data() { addConnectionClassRows(); }
    void oldAreaIsDamageOfTheParentInItsOwnCoordinates();
    void unknownBoundsUpdateTheWholeViewport_data() { addConnectionClassRows(); }
    void unknownBoundsUpdateTheWholeViewport();
    void knownBoundsLeaveTheViewportAlone_data() { addConnectionClassRows(); }
    void knownBoundsLeaveTheViewportAlone();
    void unknownBoundsWithoutAViewerDoNoHarm_data() { addConnectionClassRows(); }
    void unknownBoundsWithoutAViewerDoNoHarm();
    void detachedRevalidationOnlyTellsTheRouter_data() { addConnectionClassRows(); }
    void detachedRevalidationOnlyTellsTheRouter();
    void hiddenConnectionStillReportsItsOldArea_data() { addConnectionClassRows(); }
    void hiddenConnectionStillReportsItsOldArea();
};

void tst_ConnectionAnchoring::newConnectionHasNoAnchors()
{
    QFETCH(QString, className);

    AnyConnectionPointer wire = makeConnection(className);

    QVERIFY(!wire->connection().getSourceAnchor());
    QVERIFY(!wire->connection().getTargetAnchor());
}

void tst_ConnectionAnchoring::anchorSetWhileDetachedIsNotHooked()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    QStringList log;
    LoggingAnchor anchor(&log);
    AnyConnectionPointer wire = makeConnection(className);

    setAnchor(wire->connection(), atSource, &anchor);

    QCOMPARE(log, QStringList());
    QCOMPARE(wire->connection().getSourceAnchor(), atSource ? &anchor : nullptr);
    QCOMPARE(wire->connection().getTargetAnchor(), atSource ? nullptr : &anchor);
}

void tst_ConnectionAnchoring::anchorSetWhileDetachedIsHookedWhenAttached()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    QStringList log;
    LoggingAnchor anchor(&log);
    Scene scene(className);
    setAnchor(scene.wire->connection(), atSource, &anchor);

    scene.parent.add(&scene.wire->figure());

    QCOMPARE(log, QStringList{"anchor add"});
}

void tst_ConnectionAnchoring::sourceIsHookedBeforeTarget()
{
    QFETCH(QString, className);
    QStringList log;
    LoggingAnchor source(&log, QStringLiteral("source"));
    LoggingAnchor target(&log, QStringLiteral("target"));
    Scene scene(className);
    scene.wire->connection().setTargetAnchor(&target);
    scene.wire->connection().setSourceAnchor(&source);

    scene.wire->figure().addNotify();

    QCOMPARE(log, QStringList({"source add", "target add"}));
}

void tst_ConnectionAnchoring::sourceIsUnhookedBeforeTargetAndThenTheRouterForgets()
{
    QFETCH(QString, className);
    Scene scene(className);
    LoggingAnchor source(&scene.wire->log, QStringLiteral("source"));
    LoggingAnchor target(&scene.wire->log, QStringLiteral("target"));
    scene.wire->connection().setTargetAnchor(&target);
    scene.wire->connection().setSourceAnchor(&source);
    scene.show();

    scene.wire->figure().removeNotify();

    QCOMPARE(scene.wire->log, QStringList({"source remove", "target remove", "router remove"}));
}

void tst_ConnectionAnchoring::connectionIsAttachedWhileItsAnchorsAreHooked()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    SeeingAnchor anchor;
    Scene scene(className);
    setAnchor(scene.wire->connection(), atSource, &anchor);

    scene.parent.add(&scene.wire->figure());
    QCOMPARE(anchor.attached, QList<bool>{true});

    QVERIFY(scene.parent.remove(&scene.wire->figure()));
    QCOMPARE(anchor.attached, QList<bool>({true, true}));
}

void tst_ConnectionAnchoring::anchorSetWhileAttachedIsHookedAtOnce()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    Scene scene(className);
    scene.show();
    LoggingAnchor anchor(&scene.wire->log);

    setAnchor(scene.wire->connection(), atSource, &anchor);

    QCOMPARE(scene.wire->log,
             QStringList({"anchor add", "revalidate", "invalidate", "router invalidate"}));
}

// The parent figure counts here, not whether the tree is displayed.
void tst_ConnectionAnchoring::anchorIsHookedUnderAnyParentEvenADetachedOne()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    QStringList log;
    LoggingAnchor anchor(&log);
    Place parent;
    AnyConnectionPointer wire = makeConnection(className);
    parent.add(&wire->figure());

    setAnchor(wire->connection(), atSource, &anchor);
    wire->figure().addNotify();

    QCOMPARE(log, QStringList{"anchor add"});
}

void tst_ConnectionAnchoring::formerAnchorIsUnhookedBeforeTheNewOneIsHooked()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    QStringList log;
    LoggingAnchor former(&log, QStringLiteral("former"));
    LoggingAnchor next(&log, QStringLiteral("next"));
    Scene scene(className);
    setAnchor(scene.wire->connection(), atSource, &former);
    scene.show();
    log.clear();

    setAnchor(scene.wire->connection(), atSource, &next);

    QCOMPARE(log, QStringList({"former remove", "next add"}));
}

void tst_ConnectionAnchoring::sameAnchorIsNeitherHookedNorRevalidatedAgain()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    Scene scene(className);
    LoggingAnchor anchor(&scene.wire->log);
    setAnchor(scene.wire->connection(), atSource, &anchor);
    scene.show();

    setAnchor(scene.wire->connection(), atSource, &anchor);

    QCOMPARE(scene.wire->log, QStringList());
}

void tst_ConnectionAnchoring::nullAnchorUnhooksAndRevalidates()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    Scene scene(className);
    LoggingAnchor anchor(&scene.wire->log);
    setAnchor(scene.wire->connection(), atSource, &anchor);
    scene.show();

    setAnchor(scene.wire->connection(), atSource, nullptr);

    QCOMPARE(scene.wire->log,
             QStringList({"anchor remove", "revalidate", "invalidate", "router invalidate"}));
}

void tst_ConnectionAnchoring::newAnchorRevalidatesOnce()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    XYAnchor anchor;
    AnyConnectionPointer wire = makeConnection(className);
    wire->log.clear();

    setAnchor(wire->connection(), atSource, &anchor);

    QCOMPARE(wire->log.count(QStringLiteral("revalidate")), 1);
}

void tst_ConnectionAnchoring::oneAnchorForBothEndsIsHookedTwice()
{
    QFETCH(QString, className);
    XYAnchor anchor;
    Scene scene(className);
    scene.wire->connection().setSourceAnchor(&anchor);
    scene.wire->connection().setTargetAnchor(&anchor);
    scene.show();

    anchor.setLocation(QPoint(1, 2));

    QCOMPARE(scene.wire->log.count(QStringLiteral("revalidate")), 2);
}

void tst_ConnectionAnchoring::reattachedConnectionHooksAgain()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    QStringList log;
    LoggingAnchor anchor(&log);
    Scene scene(className);
    setAnchor(scene.wire->connection(), atSource, &anchor);
    scene.show();

    QVERIFY(scene.parent.remove(&scene.wire->figure()));
    scene.parent.add(&scene.wire->figure());

    QCOMPARE(log, QStringList({"anchor add", "anchor remove", "anchor add"}));
}

void tst_ConnectionAnchoring::movedAnchorRevalidates()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    XYAnchor anchor;
    Scene scene(className);
    setAnchor(scene.wire->connection(), atSource, &anchor);
    scene.show();

    anchor.setLocation(QPoint(1, 2));

    QCOMPARE(scene.wire->log, QStringList({"revalidate", "invalidate", "router invalidate"}));
    QCOMPARE(scene.manager.invalidFigures(), QList<Figure *>{&scene.root});
}

void tst_ConnectionAnchoring::strangeAnchorRevalidatesToo()
{
    QFETCH(QString, className);
    XYAnchor stranger;
    Scene scene(className);
    scene.show();

    scene.wire->listener().anchorMoved(&stranger);
    scene.wire->listener().anchorMoved(nullptr);

    QCOMPARE(scene.wire->log.count(QStringLiteral("revalidate")), 2);
}

void tst_ConnectionAnchoring::detachedConnectionHearsNothing()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    XYAnchor anchor;
    Scene scene(className);
    setAnchor(scene.wire->connection(), atSource, &anchor);
    scene.show();
    QVERIFY(scene.parent.remove(&scene.wire->figure()));
    scene.clear();

    anchor.setLocation(QPoint(1, 2));

    QCOMPARE(scene.wire->log, QStringList());
}

void tst_ConnectionAnchoring::revalidationDamagesThenQueuesThenTellsTheRouter()
{
    QFETCH(QString, className);
    Scene scene(className);
    scene.show();
    scene.manager.log = &scene.wire->log;

    scene.wire->figure().revalidate();

    QCOMPARE(scene.wire->log,
             QStringList({"revalidate", "dirty", "invalidate", "queue", "router invalidate"}));
    scene.manager.log = nullptr;
}

void tst_ConnectionAnchoring::oldAreaIsDamageOfTheParentInItsOwnCoordinates()
{
    QFETCH(QString, className);
    Scene scene(className);
    scene.show();
    QCOMPARE(scene.wire->figure().getBounds(), QRect(-1, -1, 102, 102));

    scene.wire->figure().revalidate();

    using Request = RecordingUpdateManager::Request;
    const QList<Request> expected{{Request::Dirty, &scene.parent, QRect(99, 199, 102, 102)}};
    QCOMPARE(scene.manager.dirtyRequests(), expected);
}

void tst_ConnectionAnchoring::unknownBoundsUpdateTheWholeViewport()
{
    QFETCH(QString, className);
    ViewportViewer viewer;
    Scene scene(className);
    scene.parent.add(&scene.wire->figure());
    scene.manager.setViewer(&viewer);
    scene.clear();
    viewer.viewport.updates = 0;

    scene.wire->figure().revalidate();

    QCOMPARE(viewer.viewport.updates, 1);
    QCOMPARE(viewer.viewport.repaints, 0);
    QCOMPARE(scene.manager.dirtyRects(), QList<QRect>());
    QCOMPARE(scene.manager.invalidFigures(), QList<Figure *>{&scene.root});
}

void tst_ConnectionAnchoring::knownBoundsLeaveTheViewportAlone()
{
    QFETCH(QString, className);
    ViewportViewer viewer;
    Scene scene(className);
    scene.show();
    scene.manager.setViewer(&viewer);

    scene.wire->figure().revalidate();

    QCOMPARE(viewer.viewport.updates, 0);
}

void tst_ConnectionAnchoring::unknownBoundsWithoutAViewerDoNoHarm()
{
    QFETCH(QString, className);
    Scene scene(className);
    scene.parent.add(&scene.wire->figure());
    scene.clear();

    scene.wire->figure().revalidate();
    QCOMPARE(scene.wire->log, QStringList({"revalidate", "invalidate", "router invalidate"}));

    FakeViewer viewer; // without a viewport
    scene.manager.setViewer(&viewer);
    scene.wire->figure().revalidate();
    QCOMPARE(scene.wire->log.count(QStringLiteral("router invalidate")), 2);
    scene.manager.setViewer(nullptr);
}

void tst_ConnectionAnchoring::detachedRevalidationOnlyTellsTheRouter()
{
    QFETCH(QString, className);
    Scene scene(className);

    scene.wire->figure().revalidate();

    QCOMPARE(scene.wire->log, QStringList({"revalidate", "invalidate", "router invalidate"}));
    QCOMPARE(scene.manager.requests().size(), 0);
}

void tst_ConnectionAnchoring::hiddenConnectionStillReportsItsOldArea()
{
    QFETCH(QString, className);
    Scene scene(className);
    scene.show();
    scene.wire->figure().setVisible(false);
    scene.manager.clear();

    scene.wire->figure().revalidate();

    QCOMPARE(scene.manager.dirtyRects(&scene.parent), QList<QRect>{QRect(99, 199, 102, 102)});
}

QTEST_MAIN(tst_ConnectionAnchoring)
#include "tst_connection_anchoring.moc"
