#include "connection_fixtures.h"

#include <mortalconnection.h>
#include <mortalfigure.h>
#include <mortalmanager.h>

#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/connection/NullRouter.h>
#include <figura/connection/RelativeBendpoint.h>
#include <figura/decoration/ArrowLocator.h>
#include <figura/decoration/PolygonDecoration.h>

#include <QPointer>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A displayed root; what it shows is taken away in the middle of an operation.
class MortalTree
{
public:
    MortalTree()
    {
        root.setLayoutManager(new XYLayout(&root));
        root.setBounds(QRect(0, 0, 500, 500));
    }

    Fate fate;
    MortalManager manager{&fate, "manager"};
    RootFigure root{&manager};
};

/// A line of either class, four wide, between two points.
template<class LineClass>
class MortalLine : public MortalTree
{
public:
    MortalLine()
    {
        root.add(line);
        line->setLineWidth(4);
        line->addPoint({10, 10});
        line->addPoint({60, 40});
        QObject::connect(line, &Shape::pathChanged, line,
                         [this] { fate.reach("line", "pathChanged"); });
    }
    ~MortalLine() { delete line; }
    Q_DISABLE_COPY_MOVE(MortalLine)

    QPointer<MortalFigure<LineClass>> line = new MortalFigure<LineClass>(&fate, "line");
};

template<class LineClass>
void change(LineClass *line, const QString &operation)
{
    if (operation == QStringLiteral("setPoint"))
        line->setPoint({20, 20}, 0);
    else if (operation == QStringLiteral("removePoint"))
        line->removePoint(1);
    else if (operation == QStringLiteral("removeAllPoints"))
        line->removeAllPoints();
    else if (operation == QStringLiteral("setEndPoints"))
        line->setEndPoints({20, 20}, {80, 80});
    else if (operation == QStringLiteral("thinner"))
        line->setLineWidth(1);
    else
        line->setLineWidth(9);
}

// True when the line was there until the moment came, and nothing has come after it.
template<class LineClass>
bool endsWithTheLine(const QString &operation, const QString &moment)
{
    MortalLine<LineClass> scene;
    scene.fate.at(moment, 1, [&] { delete scene.line; });
    change(scene.line.data(), operation);
    return scene.fate.hasStruck() && !scene.line && scene.root.childFigures().isEmpty();
}

/// A connection of either class between two anchors, with everything that it asks.
class MortalWire : public MortalTree
{
public:
    explicit MortalWire(const QString &className)
    {
        if (className == QStringLiteral("PolylineConnection"))
            take(new PolylineConnection);
        else
            take(new PolylineFConnection);
        wire->setConnectionRouter(&router);
        root.add(figure);
        wire->setSourceAnchor(source);
        wire->setTargetAnchor(target);
        figure->validate();
    }
    ~MortalWire()
    {
        delete figure;
        delete source;
        delete target;
    }
    Q_DISABLE_COPY_MOVE(MortalWire)

    MortalRouter<NullRouter> router{&fate, "router"};
    QPointer<MortalAnchor<XYAnchor>> source =
        new MortalAnchor<XYAnchor>(&fate, "source", QPoint(10, 10));
    QPointer<MortalAnchor<XYAnchor>> target =
        new MortalAnchor<XYAnchor>(&fate, "target", QPoint(90, 50));
    MortalFigure<Figure> child{&fate, "child"};
    QPointer<Figure> figure;
    IConnection *wire = nullptr;

private:
    template<class Wire>
    void take(Wire *made)
    {
        figure = made;
        wire = made;
    }
};

using WireOperation = std::function<void(MortalWire *)>;

/// Two anchors and a connection that nobody routes but the test, with a router of class Base.
template<class Base>
class Question
{
public:
    Question()
    {
        connection->setSourceAnchor(source);
        connection->setTargetAnchor(target);
    }
    ~Question()
    {
        delete connection;
        delete router;
        delete source;
        delete target;
    }
    Q_DISABLE_COPY_MOVE(Question)

    void destroy(const QString &victim)
    {
        if (victim == QStringLiteral("connection"))
            delete connection;
        else if (victim == QStringLiteral("router"))
            delete router;
        else if (victim == QStringLiteral("source"))
            delete source;
        else
            delete target;
    }

    Fate fate;
    QPointer<MortalAnchor<XYAnchor>> source =
        new MortalAnchor<XYAnchor>(&fate, "source", QPoint(10, 10));
    QPointer<MortalAnchor<XYAnchor>> target =
        new MortalAnchor<XYAnchor>(&fate, "target", QPoint(90, 50));
    QPointer<PolylineConnection> connection = new PolylineConnection;
    QPointer<Base> router = new Base;
};

void addVictimRows()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<QString>("moment");
    QTest::addColumn<int>("occurrence");
    for (const char *victim : {"connection", "router"}) {
        for (const char *moment : {"source::getReferencePoint", "source::getLocation",
                                   "target::getReferencePoint", "target::getLocation"}) {
            for (const int occurrence : {1, 2})
                QTest::addRow("%s in %s, %d", victim, moment, occurrence)
                    << QString::fromLatin1(victim) << QString::fromLatin1(moment) << occurrence;
        }
    }
}

} // namespace

Q_DECLARE_METATYPE(WireOperation)

class tst_ConnectionInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void lineMayGoWhileItChanges_data();
    void lineMayGoWhileItChanges();
    void connectionMayGoInAnOperation_data();
    void connectionMayGoInAnOperation();
    void connectionMayGoWhenItsNewPlaceIsDamaged_data();
    void connectionMayGoWhenItsNewPlaceIsDamaged();
    void layerMayGoWhileItTakesAConnection_data();
    void layerMayGoWhileItTakesAConnection();
    void layerMayGoWhileItGivesUpAConnection();
    void tipMayGoWhileItIsReplaced();
    void straightRouteEndsWithItsParts_data();
    void straightRouteEndsWithItsParts();
    void rectangularRouteEndsWithItsParts_data() { addVictimRows(); }
    void rectangularRouteEndsWithItsParts();
    void directionIsLeftOnceTheRouterIsGone_data();
    void directionIsLeftOnceTheRouterIsGone();
    void bentRouteEndsWithItsParts_data();
    void bentRouteEndsWithItsParts();
    void routeWithoutAConnectionIsEmpty();
    void bentRouteNeedsBothAnchors_data();
    void bentRouteNeedsBothAnchors();
    void bendpointWithoutPartsLiesAtTheOrigin_data();
    void bendpointWithoutPartsLiesAtTheOrigin();
    void bendpointWithoutItsTargetLiesByItsSource();
    void bentRouteDoesWithoutAnAnchorThatGoes();
    void straightRouteDoesWithoutAnAnchorThatGoes();
    void lineThatIsReservedTwiceIsGivenBackOnce();
    void partsMayGoWhileATipIsPlaced_data();
    void partsMayGoWhileATipIsPlaced();
    void connectionWithoutAParentAsksForNoRepaint();
};

void tst_ConnectionInterrupted::lineMayGoWhileItChanges_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("moment");
    const auto row = [](const char *operation, const char *moment) {
        QTest::addRow("%s, %s", operation, moment)
            << QString::fromLatin1(operation) << QString::fromLatin1(moment);
    };
    for (const char *operation :
         {"setPoint", "removePoint", "removeAllPoints", "setEndPoints", "thinner"})
        row(operation, "line::erase");
    for (const char *operation :
         {"setPoint", "removePoint", "removeAllPoints", "setEndPoints", "thinner", "wider"})
        row(operation, "line::pathChanged");
    row("wider", "line::repaint");
    row("thinner", "manager::addDirtyRegion");
}

void tst_ConnectionInterrupted::lineMayGoWhileItChanges()
{
    QFETCH(QString, operation);
    QFETCH(QString, moment);

    QVERIFY(endsWithTheLine<Polyline>(operation, moment));
    QVERIFY(endsWithTheLine<PolylineF>(operation, moment));
}

void tst_ConnectionInterrupted::connectionMayGoInAnOperation_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("moment");
    QTest::addColumn<WireOperation>("operation");
    const auto rows = [](const char *name, const char *moment, const WireOperation &operation) {
        for (const char *className : {"PolylineConnection", "PolylineFConnection"})
            QTest::addRow("%s, %s: %s", className, moment, name)
                << QString::fromLatin1(className) << QString::fromLatin1(moment) << operation;
    };
    const WireOperation revalidate = [](MortalWire *scene) { scene->figure->revalidate(); };
    rows("revalidated", "manager::addDirtyRegion", revalidate);
    rows("revalidated", "manager::addInvalidFigure", revalidate);
    rows("revalidated", "router::invalidate", revalidate);
    rows("taken out", "source::removeAnchorListener",
         [](MortalWire *scene) { scene->root.remove(scene->figure); });
    rows("freed of its anchor", "source::removeAnchorListener",
         [](MortalWire *scene) { scene->wire->setSourceAnchor(nullptr); });
    rows("given an anchor", "source::addAnchorListener", [](MortalWire *scene) {
        scene->wire->setTargetAnchor(nullptr);
        scene->wire->setTargetAnchor(scene->source);
    });
    rows("given bendpoints", "router::setConstraint",
         [](MortalWire *scene) { scene->wire->setRoutingConstraint(5); });
    rows("given another router", "router::remove",
         [](MortalWire *scene) { scene->wire->setConnectionRouter(nullptr); });
    rows("routed", "router::doRoute", [](MortalWire *scene) { scene->router.routeF(scene->wire); });
    rows("routed in integers", "router::doRoute",
         [](MortalWire *scene) { scene->router.route(scene->wire); });
    rows("put back", "source::addAnchorListener", [](MortalWire *scene) {
        scene->root.remove(scene->figure);
        scene->root.add(scene->figure);
    });
    rows("put back with a child", "child::addNotify", [](MortalWire *scene) {
        scene->root.remove(scene->figure);
        scene->figure->add(&scene->child);
        scene->root.add(scene->figure);
    });
}

void tst_ConnectionInterrupted::connectionMayGoInAnOperation()
{
    QFETCH(QString, className);
    QFETCH(QString, moment);
    QFETCH(WireOperation, operation);
    MortalWire scene(className);
    scene.fate.at(moment, 1, [&] { delete scene.figure; });

    operation(&scene);

    QVERIFY(scene.fate.hasStruck());
    QVERIFY(!scene.figure);
    QVERIFY(scene.root.childFigures().isEmpty());
    QCOMPARE(scene.target->listenerCount(), 0);
}

void tst_ConnectionInterrupted::connectionMayGoWhenItsNewPlaceIsDamaged_data()
{
    QTest::addColumn<QString>("className");
    QTest::newRow("integer") << QStringLiteral("PolylineConnection");
    QTest::newRow("floating") << QStringLiteral("PolylineFConnection");
}

// Without a source nobody routes it, which would be damage as well.
void tst_ConnectionInterrupted::connectionMayGoWhenItsNewPlaceIsDamaged()
{
    QFETCH(QString, className);
    MortalWire scene(className);
    scene.wire->setSourceAnchor(nullptr);
    scene.figure->invalidate();
    scene.fate.at(QStringLiteral("manager::addDirtyRegion"), 1, [&] { delete scene.figure; });

    scene.figure->validate();

    QVERIFY(scene.fate.hasStruck());
    QVERIFY(!scene.figure);
}

void tst_ConnectionInterrupted::layerMayGoWhileItTakesAConnection_data()
{
    QTest::addColumn<bool>("withStretches");
    QTest::newRow("with stretches") << true;
    QTest::newRow("with a constraint") << false;
}

void tst_ConnectionInterrupted::layerMayGoWhileItTakesAConnection()
{
    QFETCH(bool, withStretches);
    QPointer<ConnectionLayer> layer = new ConnectionLayer;
    LoggingRouter router;
    layer->setConnectionRouter(&router);
    PolylineConnection connection;
    connect(&connection, &Figure::propertyChanged, &connection, [&] { delete layer; });

    if (withStretches)
        layer->add(&connection, 0U, 0U, -1);
    else
        layer->add(&connection, QVariant(), -1);

    QVERIFY(!layer);
    QVERIFY(!connection.getParentFigure());
    QCOMPARE(connection.getConnectionRouter(), NullRouter::instance());
}

void tst_ConnectionInterrupted::layerMayGoWhileItGivesUpAConnection()
{
    Fate fate;
    QPointer<ConnectionLayer> layer = new ConnectionLayer;
    MortalRouter<NullRouter> router(&fate, "router");
    layer->setConnectionRouter(&router);
    PolylineConnection connection;
    layer->add(&connection, 0U, 0U, -1);
    fate.at(QStringLiteral("router::remove"), 1, [&] { delete layer; });

    QVERIFY(!layer->remove(&connection));

    QVERIFY(fate.hasStruck());
    QVERIFY(!layer);
    QVERIFY(!connection.getParentFigure());
}

void tst_ConnectionInterrupted::tipMayGoWhileItIsReplaced()
{
    PolylineConnection connection;
    QPointer<PolygonDecoration> tip = new PolygonDecoration;
    connection.setTargetDecoration(tip);
    connect(tip, &Figure::propertyChanged, this, [&] { delete tip; });

    auto *next = new PolygonDecoration;
    connection.setTargetDecoration(next);

    QVERIFY(!tip);
    QCOMPARE(connection.childFigures(), QList<Figure *>{next});
}

void tst_ConnectionInterrupted::straightRouteEndsWithItsParts_data()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<QString>("moment");
    for (const char *victim : {"connection", "router"}) {
        for (const char *moment : {"source::getLocation", "target::getLocation"})
            QTest::addRow("%s in %s", victim, moment)
                << QString::fromLatin1(victim) << QString::fromLatin1(moment);
    }
}

void tst_ConnectionInterrupted::straightRouteEndsWithItsParts()
{
    QFETCH(QString, victim);
    QFETCH(QString, moment);
    Question<NullRouter> question;
    question.fate.at(moment, 1, [&] { question.destroy(victim); });

    const QList<QPoint> points = question.router->doRoute(question.connection);

    QVERIFY(question.fate.hasStruck());
    QCOMPARE(points, QList<QPoint>());
}

void tst_ConnectionInterrupted::rectangularRouteEndsWithItsParts()
{
    QFETCH(QString, victim);
    QFETCH(QString, moment);
    QFETCH(int, occurrence);
    Question<ManhattanConnectionRouter> question;
    question.fate.at(moment, occurrence, [&] { question.destroy(victim); });

    const QList<QPoint> points = question.router->doRoute(question.connection);

    QVERIFY(question.fate.hasStruck());
    QCOMPARE(points, QList<QPoint>());
}

void tst_ConnectionInterrupted::directionIsLeftOnceTheRouterIsGone_data()
{
    QTest::addColumn<bool>("isStart");
    QTest::newRow("at the start") << true;
    QTest::newRow("at the end") << false;
}

void tst_ConnectionInterrupted::directionIsLeftOnceTheRouterIsGone()
{
    QFETCH(bool, isStart);
    Question<ManhattanConnectionRouter> question;
    question.fate.at(isStart ? QStringLiteral("source::getLocation")
                             : QStringLiteral("target::getLocation"),
                     1, [&] { question.destroy(QStringLiteral("router")); });

    const Ray direction = isStart ? question.router->getStartDirection(question.connection)
                                  : question.router->getEndDirection(question.connection);

    QVERIFY(question.fate.hasStruck());
    QCOMPARE(direction, ManhattanConnectionRouter::LEFT);
}

void tst_ConnectionInterrupted::bentRouteEndsWithItsParts_data()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<bool>("bent");
    for (const char *victim : {"connection", "router"}) {
        QTest::addRow("%s, with bendpoints", victim) << QString::fromLatin1(victim) << true;
        QTest::addRow("%s, without", victim) << QString::fromLatin1(victim) << false;
    }
}

void tst_ConnectionInterrupted::bentRouteEndsWithItsParts()
{
    QFETCH(QString, victim);
    QFETCH(bool, bent);
    Question<BendpointConnectionRouter> question;
    const QVariant bendpoint = QVariant::fromValue(RelativeBendpoint(question.connection.data()));
    if (bent)
        question.router->setConstraint(question.connection, QList<QVariant>{bendpoint, bendpoint});
    question.fate.at(QStringLiteral("source::getReferencePoint"), 1,
                     [&] { question.destroy(victim); });

    const QList<QPoint> points = question.router->doRoute(question.connection);

    QVERIFY(question.fate.hasStruck());
    QCOMPARE(points, QList<QPoint>());
}

void tst_ConnectionInterrupted::routeWithoutAConnectionIsEmpty()
{
    NullRouter straight;
    BendpointConnectionRouter bent;
    ManhattanConnectionRouter rectangular;

    QCOMPARE(straight.doRoute(nullptr), QList<QPoint>());
    QCOMPARE(bent.doRoute(nullptr), QList<QPoint>());
    QCOMPARE(rectangular.doRoute(nullptr), QList<QPoint>());
}

void tst_ConnectionInterrupted::bentRouteNeedsBothAnchors_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("source") << QStringLiteral("source");
    QTest::newRow("target") << QStringLiteral("target");
}

void tst_ConnectionInterrupted::bentRouteNeedsBothAnchors()
{
    QFETCH(QString, missing);
    Question<BendpointConnectionRouter> question;
    QCOMPARE(question.router->doRoute(question.connection),
             QList<QPoint>({QPoint(10, 10), QPoint(90, 50)}));

    question.destroy(missing);

    QCOMPARE(question.router->doRoute(question.connection), QList<QPoint>());
}

void tst_ConnectionInterrupted::bendpointWithoutPartsLiesAtTheOrigin_data()
{
    QTest::addColumn<QString>("victim");
    QTest::newRow("connection") << QStringLiteral("connection");
    QTest::newRow("bendpoint") << QStringLiteral("bendpoint");
}

void tst_ConnectionInterrupted::bendpointWithoutPartsLiesAtTheOrigin()
{
    QFETCH(QString, victim);
    Question<NullRouter> question;
    QPointer<RelativeBendpoint> bendpoint = new RelativeBendpoint(question.connection.data());
    bendpoint->setRelativeDimensions(QSize(1, 2), QSize(3, 4));
    QVERIFY(bendpoint->getLocation() != QPoint());
    question.fate.at(QStringLiteral("source::getReferencePoint"), 1, [&] {
        if (victim == QStringLiteral("bendpoint"))
            delete bendpoint;
        else
            question.destroy(victim);
    });

    const QPoint location = bendpoint->getLocation();

    QVERIFY(question.fate.hasStruck());
    QCOMPARE(location, QPoint());
    delete bendpoint;
}

void tst_ConnectionInterrupted::connectionWithoutAParentAsksForNoRepaint()
{
    // A root of a tree of its own, which knows its manager by itself.
    class RootConnection : public PolylineConnection
    {
    public:
        UpdateManager *getUpdateManager() const override { return manager; }

        UpdateManager *manager = nullptr;
    };
    RecordingUpdateManager manager;
    RootConnection connection;
    connection.manager = &manager;
    connection.setBounds(QRect(0, 0, 20, 20));
    connection.setEndPoints(QPoint(0, 0), QPoint(20, 20));
    connection.validate();
    QVERIFY(connection.getBounds().isValid());
    manager.clear();

    connection.revalidate();

    QCOMPARE(manager.dirtyRects(), QList<QRect>());
}

// The one that has gone counts as lying at the origin.
void tst_ConnectionInterrupted::bendpointWithoutItsTargetLiesByItsSource()
{
    Question<NullRouter> question;
    RelativeBendpoint bendpoint(question.connection.data());
    bendpoint.setRelativeDimensions(QSize(2, 4), QSize(0, 0));
    question.fate.at(QStringLiteral("source::getReferencePoint"), 1,
                     [&] { question.destroy(QStringLiteral("target")); });

    const QPoint location = bendpoint.getLocation();

    QVERIFY(question.fate.hasStruck());
    QCOMPARE(location, QPoint(6, 7)); // half of (10 + 2, 10 + 4)
}

void tst_ConnectionInterrupted::bentRouteDoesWithoutAnAnchorThatGoes()
{
    Question<BendpointConnectionRouter> question;
    question.fate.at(QStringLiteral("target::getReferencePoint"), 1,
                     [&] { question.destroy(QStringLiteral("source")); });

    const QList<QPoint> points = question.router->doRoute(question.connection);

    QVERIFY(question.fate.hasStruck());
    QCOMPARE(points, QList<QPoint>({QPoint(0, 0), QPoint(90, 50)}));
}

// One that has gone is where null anchors are, and so is what was to point to it.
void tst_ConnectionInterrupted::straightRouteDoesWithoutAnAnchorThatGoes()
{
    Question<NullRouter> question;
    question.fate.at(QStringLiteral("target::getReferencePoint"), 1,
                     [&] { question.destroy(QStringLiteral("source")); });

    const QList<QPoint> points = question.router->doRoute(question.connection);

    QVERIFY(question.fate.hasStruck());
    QVERIFY(!question.source);
    QCOMPARE(points, QList<QPoint>({QPoint(0, 0), QPoint(0, 0)}));
}

void tst_ConnectionInterrupted::lineThatIsReservedTwiceIsGivenBackOnce()
{
    class OpenRouter : public ManhattanConnectionRouter
    {
    public:
        using ManhattanConnectionRouter::removeReservedLines;
        using ManhattanConnectionRouter::reserveColumn;
        using ManhattanConnectionRouter::reserveRow;
    };
    OpenRouter router;
    PolylineConnection connection;
    for (int time = 0; time < 2; ++time) {
        router.reserveColumn(&connection, 5);
        router.reserveRow(&connection, 7);
    }
    QVERIFY(!router.colUsable(nullptr, 5));
    QVERIFY(!router.rowUsable(nullptr, 7));

    router.removeReservedLines(&connection);

    QVERIFY(router.colUsable(nullptr, 5));
    QVERIFY(router.rowUsable(nullptr, 7));
}

void tst_ConnectionInterrupted::partsMayGoWhileATipIsPlaced_data()
{
    QTest::addColumn<bool>("isTip");
    QTest::newRow("the tip") << true;
    QTest::newRow("its locator") << false;
}

void tst_ConnectionInterrupted::partsMayGoWhileATipIsPlaced()
{
    QFETCH(bool, isTip);
    PolylineConnection connection;
    connection.setEndPoints(QPoint(0, 0), QPoint(50, 50));
    QPointer<ArrowLocator> locator = new ArrowLocator(&connection, ConnectionLocator::TARGET);
    QPointer<PolygonDecoration> tip = new PolygonDecoration;
    connect(tip, &Shape::pathChanged, this, [&] {
        if (isTip)
            delete tip;
        else
            delete locator;
    });

    locator->relocate(tip);

    QCOMPARE(tip.isNull(), isTip);
    QCOMPARE(locator.isNull(), !isTip);
    delete locator;
    delete tip;
}

QTEST_MAIN(tst_ConnectionInterrupted)
#include "tst_connection_interrupted.moc"
