#include "connection_fixtures.h"

#include <figura/connection/NullRouter.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/ILocator.h>

#include <place.h>

#include <QSignalSpy>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// A displayed connection without a route of its own.
class Scene : public DisplayedTree
{
public:
    LoggingRouter router;
    XYAnchor source{QPoint(10, 20)};
    XYAnchor target{QPoint(40, 60)};
    AnyConnectionPointer wire;

    explicit Scene(const QString &className)
        : wire(makeConnection(className))
    {
        wire->connection().setConnectionRouter(&router);
        root.add(&wire->figure());
        router.log = &wire->log;
        wire->log.clear();
    }

    Figure &figure() { return wire->figure(); }

    void setAnchors()
    {
        wire->connection().setSourceAnchor(&source);
        wire->connection().setTargetAnchor(&target);
        wire->log.clear();
    }
};

// Remembers how the connection was when a child was placed.
class SeeingLocator : public QObject, public ILocator
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::ILocator)

public:
    explicit SeeingLocator(IConnection &connection)
        : m_connection(connection)
    {
    }

    QList<QPoint> seen;
    QRect boundsThen;

    void relocate(Figure *) override
    {
        seen = m_connection.getPoints();
        boundsThen = m_connection.getBounds();
    }

private:
    IConnection &m_connection;
};

} // namespace

class tst_ConnectionLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newConnectionIsADiagonalWithoutBounds_data() { addConnectionClassRows(); }
    void newConnectionIsADiagonalWithoutBounds();
    void newConnectionHasADelegatingLayout_data() { addConnectionClassRows(); }
    void newConnectionHasADelegatingLayout();
    void unroutedConnectionGetsItsBoundsGrownByOne_data() { addConnectionClassRows(); }
    void unroutedConnectionGetsItsBoundsGrownByOne();
    void connectionIsRoutedOnlyWithBothAnchors_data();
    void connectionIsRoutedOnlyWithBothAnchors();
    void connectionWithoutAnAnchorKeepsItsPoints_data() { addConnectionEndRows(); }
    void connectionWithoutAnAnchorKeepsItsPoints();
    void eachClassAsksForItsOwnKindOfRoute_data() { addConnectionClassRows(); }
    void eachClassAsksForItsOwnKindOfRoute();
    void childrenAreLaidOutAfterTheRoute_data() { addConnectionClassRows(); }
    void childrenAreLaidOutAfterTheRoute();
    void pathIsAnnouncedWithAnEmptyRectangle_data() { addConnectionClassRows(); }
    void pathIsAnnouncedWithAnEmptyRectangle();
    void boundsAreThoseOfTheNewRoute_data() { addConnectionClassRows(); }
    void boundsAreThoseOfTheNewRoute();
    void boundsHoldTheChildrenGrownByOne_data() { addConnectionClassRows(); }
    void boundsHoldTheChildrenGrownByOne();
    void childrenWithoutBoundsDoNotCount_data() { addConnectionClassRows(); }
    void childrenWithoutBoundsDoNotCount();
    void emptyChildAtAPlaceCounts_data() { addConnectionClassRows(); }
    void emptyChildAtAPlaceCounts();
    void boundsStayUntilTheNextLayout_data() { addConnectionClassRows(); }
    void boundsStayUntilTheNextLayout();
    void movedConnectionRepaintsAndThenAnnouncesItself_data() { addConnectionClassRows(); }
    void movedConnectionRepaintsAndThenAnnouncesItself();
    void newAreaIsRepainted_data() { addConnectionClassRows(); }
    void newAreaIsRepainted();
    void routeOfNoExtentLeavesNullBoundsAndTellsNobody_data();
    void routeOfNoExtentLeavesNullBoundsAndTellsNobody();
    void childrenDoNotCountWithoutALine_data() { addConnectionClassRows(); }
    void childrenDoNotCountWithoutALine();
    void detachedLayoutHasNoPathAndNoBounds_data() { addConnectionClassRows(); }
    void detachedLayoutHasNoPathAndNoBounds();
    void childrenOfTheConnectionAreHits_data() { addConnectionClassRows(); }
    void childrenOfTheConnectionAreHits();
};

void tst_ConnectionLayout::newConnectionIsADiagonalWithoutBounds()
{
    QFETCH(QString, className);

    AnyConnectionPointer wire = makeConnection(className);

    QCOMPARE(wire->connection().getPoints(), QList<QPoint>({{0, 0}, {100, 100}}));
    QCOMPARE(wire->connection().getPointsF(), QList<QPointF>({{0, 0}, {100, 100}}));
    QCOMPARE(wire->figure().getBounds(), QRect());
    QVERIFY(wire->figure().getBounds().isNull());
}

void tst_ConnectionLayout::newConnectionHasADelegatingLayout()
{
    QFETCH(QString, className);

    AnyConnectionPointer wire = makeConnection(className);

    QVERIFY(qobject_cast<DelegatingLayout *>(wire->figure().getLayoutManager()));
}

void tst_ConnectionLayout::unroutedConnectionGetsItsBoundsGrownByOne()
{
    QFETCH(QString, className);
    Scene scene(className);

    scene.root.validate();

    QCOMPARE(scene.figure().getBounds(), QRect(-1, -1, 102, 102));
}

void tst_ConnectionLayout::connectionIsRoutedOnlyWithBothAnchors_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<bool>("withSource");
    QTest::addColumn<bool>("withTarget");
    for (const char *name : {"PolylineConnection", "PolylineFConnection"}) {
        QTest::addRow("%s: none", name) << QString::fromLatin1(name) << false << false;
        QTest::addRow("%s: source", name) << QString::fromLatin1(name) << true << false;
        QTest::addRow("%s: target", name) << QString::fromLatin1(name) << false << true;
        QTest::addRow("%s: both", name) << QString::fromLatin1(name) << true << true;
    }
}

void tst_ConnectionLayout::connectionIsRoutedOnlyWithBothAnchors()
{
    QFETCH(QString, className);
    QFETCH(bool, withSource);
    QFETCH(bool, withTarget);
    Scene scene(className);
    scene.wire->connection().setSourceAnchor(withSource ? &scene.source : nullptr);
    scene.wire->connection().setTargetAnchor(withTarget ? &scene.target : nullptr);
    scene.wire->log.clear();

    scene.root.validate();

    QCOMPARE(scene.wire->log.filter(QStringLiteral("router route")).size(),
             withSource && withTarget ? 1 : 0);
}

void tst_ConnectionLayout::connectionWithoutAnAnchorKeepsItsPoints()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    Scene scene(className);
    scene.setAnchors();
    scene.root.validate();

    setAnchor(scene.wire->connection(), atSource, nullptr);
    scene.router.points = {{500, 500}, {600, 600}};
    scene.root.validate();

    QCOMPARE(scene.wire->connection().getPoints(), QList<QPoint>({{3, 4}, {50, 60}}));
    QCOMPARE(scene.figure().getBounds(), QRect(2, 3, 49, 58));
}

void tst_ConnectionLayout::eachClassAsksForItsOwnKindOfRoute()
{
    QFETCH(QString, className);
    Scene scene(className);
    scene.setAnchors();
    scene.router.points = {{3.25, 4}, {50, 60.75}};

    scene.root.validate();

    const bool floating = className == QStringLiteral("PolylineFConnection");
    QCOMPARE(scene.wire->log.filter(QStringLiteral("router route")),
             QStringList{floating ? "router routeF" : "router route"});
    QCOMPARE(scene.wire->connection().getPointsF(),
             floating ? scene.router.points : QList<QPointF>({{3, 4}, {50, 61}}));
}

void tst_ConnectionLayout::childrenAreLaidOutAfterTheRoute()
{
    QFETCH(QString, className);
    Scene scene(className);
    scene.setAnchors();
    SeeingLocator locator(scene.wire->connection());
    Figure child;
    scene.figure().add(&child, QVariant::fromValue(static_cast<QObject *>(&locator)));

    scene.root.validate();

    QCOMPARE(locator.seen, QList<QPoint>({{3, 4}, {50, 60}}));
    QCOMPARE(locator.boundsThen, QRect());
}

void tst_ConnectionLayout::pathIsAnnouncedWithAnEmptyRectangle()
{
    QFETCH(QString, className);
    Scene scene(className);
    QSignalSpy announced(qobject_cast<Shape *>(&scene.figure()), &Shape::pathChanged);

    scene.root.validate();

    QCOMPARE(announced.count(), 1);
    QCOMPARE(announced.first().first().toRectF(), QRectF());
}

void tst_ConnectionLayout::boundsAreThoseOfTheNewRoute()
{
    QFETCH(QString, className);
    Scene scene(className);
    scene.root.validate();
    scene.setAnchors();

    scene.root.validate();

    QCOMPARE(scene.figure().getBounds(), QRect(2, 3, 49, 58));
}

void tst_ConnectionLayout::boundsHoldTheChildrenGrownByOne()
{
    QFETCH(QString, className);
    Scene scene(className);
    Figure first;
    Figure second;
    scene.figure().add(&first);
    scene.figure().add(&second);
    first.setBounds(QRect(200, 10, 20, 10));
    second.setBounds(QRect(-50, -60, 10, 10));

    scene.root.validate();

    QCOMPARE(scene.figure().getBounds(), QRect(-51, -61, 272, 162));
}

void tst_ConnectionLayout::childrenWithoutBoundsDoNotCount()
{
    QFETCH(QString, className);
    Scene scene(className);
    Figure child;
    scene.figure().add(&child);
    QVERIFY(child.getBounds().isNull());
    scene.wire->connection().setPoints({{100, 100}, {200, 200}});

    scene.root.validate();

    QCOMPARE(scene.figure().getBounds(), QRect(99, 99, 102, 102));
}

// Only a rectangle of no width and no height is null; a flat one is not.
void tst_ConnectionLayout::emptyChildAtAPlaceCounts()
{
    QFETCH(QString, className);
    Scene scene(className);
    Figure child;
    child.setPreferredSize(QSize(30, 0));
    scene.figure().add(&child);
    child.setBounds(QRect(300, 50, 30, 0));
    QCOMPARE(child.getBounds(), QRect(300, 50, 30, 0));

    scene.root.validate();

    QCOMPARE(scene.figure().getBounds(), QRect(-1, -1, 332, 102));
}

void tst_ConnectionLayout::boundsStayUntilTheNextLayout()
{
    QFETCH(QString, className);
    Scene scene(className);
    scene.root.validate();

    scene.wire->connection().setPoints({{500, 500}, {600, 600}});
    QCOMPARE(scene.figure().getBounds(), QRect(-1, -1, 102, 102));

    scene.figure().revalidate();
    scene.root.validate();
    QCOMPARE(scene.figure().getBounds(), QRect(499, 499, 102, 102));
}

void tst_ConnectionLayout::movedConnectionRepaintsAndThenAnnouncesItself()
{
    QFETCH(QString, className);
    Scene scene(className);
    QList<Figure *> moved;
    connect(&scene.figure(), &Figure::figureMoved, this, [&](Figure *figure) {
        moved.append(figure);
        scene.wire->log.append(QStringLiteral("moved"));
    });

    scene.root.validate();

    QCOMPARE(scene.wire->log, QStringList({"repaint", "moved"}));
    QCOMPARE(moved, QList<Figure *>{&scene.figure()});
}

void tst_ConnectionLayout::newAreaIsRepainted()
{
    QFETCH(QString, className);
    Scene scene(className);
    scene.manager.clear();

    scene.root.validate();

    QCOMPARE(scene.manager.dirtyRects(&scene.figure()), QList<QRect>{QRect(-1, -1, 102, 102)});
}

void tst_ConnectionLayout::routeOfNoExtentLeavesNullBoundsAndTellsNobody_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QList<QPointF>>("points");
    // Two equal points of the integer class make a box of one pixel; three do not.
    QTest::newRow("PolylineConnection: three points on each other")
        << QStringLiteral("PolylineConnection") << QList<QPointF>{{5, 5}, {5, 5}, {5, 5}};
    QTest::newRow("PolylineConnection: one point")
        << QStringLiteral("PolylineConnection") << QList<QPointF>{{5, 5}};
    QTest::newRow("PolylineFConnection: two points on each other")
        << QStringLiteral("PolylineFConnection") << QList<QPointF>{{5, 5}, {5, 5}};
    QTest::newRow("PolylineFConnection: no point")
        << QStringLiteral("PolylineFConnection") << QList<QPointF>();
}

void tst_ConnectionLayout::routeOfNoExtentLeavesNullBoundsAndTellsNobody()
{
    QFETCH(QString, className);
    QFETCH(QList<QPointF>, points);
    Scene scene(className);
    scene.root.validate();
    scene.wire->connection().setPointsF(points);
    scene.figure().revalidate();
    scene.wire->log.clear();
    QSignalSpy moved(&scene.figure(), &Figure::figureMoved);

    scene.root.validate();

    QVERIFY(scene.figure().getBounds().isNull());
    QCOMPARE(moved.count(), 0);
    QCOMPARE(scene.wire->log, QStringList());
}

void tst_ConnectionLayout::childrenDoNotCountWithoutALine()
{
    QFETCH(QString, className);
    Scene scene(className);
    Figure child;
    scene.figure().add(&child);
    child.setBounds(QRect(200, 10, 20, 10));
    scene.wire->connection().setPoints({});

    scene.root.validate();

    QVERIFY(scene.figure().getBounds().isNull());
}

// Only the path of a displayed polyline follows its points.
void tst_ConnectionLayout::detachedLayoutHasNoPathAndNoBounds()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);

    wire->figure().validate();

    const bool floating = className == QStringLiteral("PolylineFConnection");
    // An empty path of the integer class still counts as two points, and is one pixel each way.
    QCOMPARE(wire->figure().getBounds(), floating ? QRect(0, 0, 0, 0) : QRect(-1, -1, 3, 3));
}

void tst_ConnectionLayout::childrenOfTheConnectionAreHits()
{
    QFETCH(QString, className);
    Scene scene(className);
    Figure child;
    scene.figure().add(&child);
    child.setBounds(QRect(200, 10, 20, 10));
    QVERIFY(!scene.figure().contains(QPoint(210, 15)));

    scene.root.validate();

    QVERIFY(scene.figure().contains(QPoint(210, 15)));
    QVERIFY(scene.figure().contains(QPoint(50, 50)));
    QVERIFY(!scene.figure().contains(QPoint(150, 15)));
}

QTEST_MAIN(tst_ConnectionLayout)
#include "tst_connection_layout.moc"
