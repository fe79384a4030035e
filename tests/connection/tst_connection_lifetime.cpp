#include "connection_fixtures.h"

#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/connection/NullRouter.h>
#include <figura/decoration/MidpointLocator.h>
#include <figura/decoration/PolygonDecoration.h>

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Everything around a connection, each part to be destroyed at any time.
class World : public DisplayedTree
{
public:
    explicit World(const QString &className, const QString &routerName)
    {
        layer = new ConnectionLayer(nullptr, false);
        owner = new Figure;
        otherOwner = new Figure;
        source = new ChopboxAnchor(owner.data());
        target = new ChopboxAnchor(otherOwner.data());
        router = makeRouter(routerName);
        decoration = new PolygonDecoration(nullptr);
        label = new Figure;
        label->setPreferredSize(QSize(20, 10));
        connection = make(className);
        locator = new MidpointLocator(wire, 0, nullptr);

        layer->setConnectionRouter(dynamic_cast<IConnectionRouter *>(router.data()));
        root.add(owner);
        root.add(otherOwner);
        root.add(layer);
        owner->setBounds(QRect(0, 0, 100, 50));
        otherOwner->setBounds(QRect(200, 100, 100, 50));
        layer->add(connection);
        decorate();
        connection->add(label, QVariant::fromValue(locator.data()));
        wire->setSourceAnchor(dynamic_cast<IConnectionAnchor *>(source.data()));
        wire->setTargetAnchor(dynamic_cast<IConnectionAnchor *>(target.data()));
        root.validate();
    }

    ~World()
    {
        for (const QString &part : parts())
            destroy(part);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QStringList parts()
    {
        return QStringLiteral("connection source target owner otherOwner router decoration locator "
                              "label layer")
            .split(QLatin1Char(' '));
    }

    void destroy(const QString &part) { delete object(part); }

    QObject *object(const QString &part) const
    {
        const QList<QPair<QString, QObject *>> all{
            {QStringLiteral("connection"), connection}, {QStringLiteral("source"), source},
            {QStringLiteral("target"), target},         {QStringLiteral("owner"), owner},
            {QStringLiteral("otherOwner"), otherOwner}, {QStringLiteral("router"), router},
            {QStringLiteral("decoration"), decoration}, {QStringLiteral("locator"), locator},
            {QStringLiteral("label"), label},           {QStringLiteral("layer"), layer}};
        for (const auto &[name, present] : all) {
            if (name == part)
                return present;
        }
        return nullptr;
    }

    // Everything that can go on with what is left.
    void exercise()
    {
        if (owner)
            owner->setBounds(owner->getBounds().translated(3, 1));
        if (otherOwner)
            otherOwner->setBounds(otherOwner->getBounds().translated(-3, 1));
        if (connection) {
            connection->revalidate();
            wire->getRoutingConstraint();
            connection->contains(QPoint(5, 5));
        }
        validate();
    }

    // A layer is validated on its own: its children's changes go no further up.
    void validate()
    {
        root.validate();
        if (layer)
            layer->validate();
    }

    QPointer<ConnectionLayer> layer;
    QPointer<Figure> connection;
    IConnection *wire = nullptr;
    QPointer<QObject> source;
    QPointer<QObject> target;
    QPointer<Figure> owner;
    QPointer<Figure> otherOwner;
    QPointer<QObject> router;
    QPointer<PolygonDecoration> decoration;
    QPointer<QObject> locator;
    QPointer<Figure> label;

private:
    Figure *make(const QString &className)
    {
        if (className == QStringLiteral("PolylineConnection")) {
            auto *made = new PolylineConnection(nullptr);
            wire = made;
            return made;
        }
        auto *made = new PolylineFConnection(nullptr);
        wire = made;
        return made;
    }

    void decorate()
    {
        if (auto *integer = qobject_cast<PolylineConnection *>(connection.data()))
            integer->setTargetDecoration(decoration);
        else if (auto *floating = qobject_cast<PolylineFConnection *>(connection.data()))
            floating->setTargetDecoration(decoration);
    }

    static QObject *makeRouter(const QString &name)
    {
        if (name == QStringLiteral("bendpoint"))
            return new BendpointConnectionRouter(nullptr);
        if (name == QStringLiteral("Manhattan"))
            return new ManhattanConnectionRouter(nullptr);
        return new NullRouter(nullptr);
    }
};

void addRows(const std::function<void(const QString &, const QString &)> &addRow)
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("routerName");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    for (const char *className : {"PolylineConnection", "PolylineFConnection"}) {
        for (const char *routerName : {"straight", "bendpoint", "Manhattan"})
            addRow(QString::fromLatin1(className), QString::fromLatin1(routerName));
    }
}

void addPairRows()
{
    addRows([](const QString &className, const QString &routerName) {
        for (const QString &first : World::parts()) {
            for (const QString &second : World::parts()) {
                if (first != second)
                    QTest::addRow("%s, %s: %s, then %s", qPrintable(className),
                                  qPrintable(routerName), qPrintable(first), qPrintable(second))
                        << className << routerName << first << second;
            }
        }
    });
}

void addSlotRows()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("routerName");
    QTest::addColumn<QString>("event");
    QTest::addColumn<QString>("part");
    for (const char *className : {"PolylineConnection", "PolylineFConnection"}) {
        for (const char *routerName : {"bendpoint", "Manhattan"}) {
            for (const char *event :
                 {"anchorMoved", "figureMoved", "pathChanged", "ownerMoved", "routerChanged"}) {
                for (const QString &part : World::parts())
                    QTest::addRow("%s, %s, %s: %s", className, routerName, event, qPrintable(part))
                        << QString::fromLatin1(className) << QString::fromLatin1(routerName)
                        << QString::fromLatin1(event) << part;
            }
        }
    }
}

} // namespace

class tst_ConnectionLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // An anchor without its owner says so whenever it is asked; all else keeps silent.
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!.*no owner present)")));
    }

    void partsMayBeDestroyedInAnyOrderAtRest_data() { addPairRows(); }
    void partsMayBeDestroyedInAnyOrderAtRest();
    void partsMayBeDestroyedInsideASlot_data() { addSlotRows(); }
    void partsMayBeDestroyedInsideASlot();
    void destroyedRouterLeavesTheSharedOne_data() { addConnectionClassRows(); }
    void destroyedRouterLeavesTheSharedOne();
    void laterListenersFindNullForARouterThatWent_data() { addConnectionClassRows(); }
    void laterListenersFindNullForARouterThatWent();
    void destroyedAnchorIsForgotten_data() { addConnectionEndRows(); }
    void destroyedAnchorIsForgotten();
    void destroyedConnectionNoLongerListens_data() { addConnectionClassRows(); }
    void destroyedConnectionNoLongerListens();
    void destroyedConnectionCallsNoRouter_data() { addConnectionClassRows(); }
    void destroyedConnectionCallsNoRouter();
    void destroyedLayerRouterIsForgotten();
    void connectionMayGoWhileItsDecorationIsReplaced_data() { addConnectionEndRows(); }
    void connectionMayGoWhileItsDecorationIsReplaced();
    void connectionMayGoWhileItIsDecorated_data() { addConnectionEndRows(); }
    void connectionMayGoWhileItIsDecorated();
};

void tst_ConnectionLifetime::partsMayBeDestroyedInAnyOrderAtRest()
{
    QFETCH(QString, className);
    QFETCH(QString, routerName);
    QFETCH(QString, first);
    QFETCH(QString, second);
    World world(className, routerName);

    world.destroy(first);
    world.exercise();
    world.destroy(second);
    world.exercise();

    QVERIFY(!world.object(first));
    QVERIFY(!world.object(second));
}

void tst_ConnectionLifetime::partsMayBeDestroyedInsideASlot()
{
    QFETCH(QString, className);
    QFETCH(QString, routerName);
    QFETCH(QString, event);
    QFETCH(QString, part);
    World world(className, routerName);
    QObject context;
    const auto destroy = [&] { world.destroy(part); };
    if (event == QStringLiteral("anchorMoved"))
        connect(qobject_cast<ConnectionAnchorBase *>(world.source.data()),
                &ConnectionAnchorBase::anchorMoved, &context, destroy);
    else if (event == QStringLiteral("figureMoved"))
        connect(world.connection.data(), &Figure::figureMoved, &context, destroy);
    else if (event == QStringLiteral("pathChanged"))
        connect(qobject_cast<Shape *>(world.connection.data()), &Shape::pathChanged, &context,
                destroy);
    else if (event == QStringLiteral("ownerMoved"))
        connect(world.owner.data(), &Figure::figureMoved, &context, destroy);
    else
        connect(world.connection.data(), &Figure::propertyChanged, &context, destroy);

    world.exercise();
    if (event == QStringLiteral("routerChanged") && world.connection)
        world.wire->setConnectionRouter(nullptr);
    world.exercise();

    QVERIFY(!world.object(part));
}

void tst_ConnectionLifetime::destroyedRouterLeavesTheSharedOne()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    auto router = std::make_unique<BendpointConnectionRouter>(nullptr);
    wire->connection().setConnectionRouter(router.get());

    router.reset();

    QCOMPARE(wire->connection().getConnectionRouter(), NullRouter::instance());
    wire->connection().setRoutingConstraint(42);
    wire->figure().revalidate();
}

void tst_ConnectionLifetime::laterListenersFindNullForARouterThatWent()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    auto before = std::make_unique<BendpointConnectionRouter>(nullptr);
    auto after = std::make_unique<ManhattanConnectionRouter>(nullptr);
    wire->connection().setConnectionRouter(before.get());
    QList<QObject *> routers{before.get(), after.get()};
    connect(&wire->figure(), &Figure::propertyChanged, this, [&] {
        before.reset();
        after.reset();
    });
    connect(&wire->figure(), &Figure::propertyChanged, this,
            [&](const QString &, const QVariant &old, const QVariant &next) {
                routers = {old.value<QObject *>(), next.value<QObject *>()};
            });

    wire->connection().setConnectionRouter(after.get());

    QCOMPARE(routers, QList<QObject *>({nullptr, nullptr}));
    QCOMPARE(wire->connection().getConnectionRouter(), NullRouter::instance());
}

void tst_ConnectionLifetime::destroyedAnchorIsForgotten()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    DisplayedTree tree;
    AnyConnectionPointer wire = makeConnection(className);
    tree.root.add(&wire->figure());
    auto anchor = std::make_unique<XYAnchor>(QPoint(1, 2));
    setAnchor(wire->connection(), atSource, anchor.get());

    anchor.reset();

    QVERIFY(!wire->connection().getSourceAnchor());
    QVERIFY(!wire->connection().getTargetAnchor());
    QStringList log;
    LoggingAnchor next(&log);
    setAnchor(wire->connection(), atSource, &next);
    QCOMPARE(log, QStringList{"anchor add"});
    wire.reset();
}

void tst_ConnectionLifetime::destroyedConnectionNoLongerListens()
{
    QFETCH(QString, className);
    DisplayedTree tree;
    Figure owner;
    tree.root.add(&owner);
    ChopboxAnchor anchor(&owner);
    AnyConnectionPointer wire = makeConnection(className);
    tree.root.add(&wire->figure());
    wire->connection().setSourceAnchor(&anchor);
    wire->connection().setTargetAnchor(&anchor);

    wire.reset();
    owner.setBounds(QRect(1, 2, 30, 40));
    tree.root.validate();

    QCOMPARE(tree.root.childFigures(), QList<Figure *>{&owner});
}

void tst_ConnectionLifetime::destroyedConnectionCallsNoRouter()
{
    QFETCH(QString, className);
    LoggingRouter router;
    AnyConnectionPointer wire = makeConnection(className);
    wire->connection().setConnectionRouter(&router);
    router.own.clear();

    wire.reset();

    QCOMPARE(router.own, QStringList());
}

void tst_ConnectionLifetime::destroyedLayerRouterIsForgotten()
{
    ConnectionLayer layer(nullptr, false);
    auto router = std::make_unique<NullRouter>(nullptr);
    PolylineConnection connection(nullptr);
    layer.setConnectionRouter(router.get());

    router.reset();
    layer.add(&connection);

    QVERIFY(!layer.getConnectionRouter());
    QCOMPARE(connection.getConnectionRouter(), NullRouter::instance());
}

void tst_ConnectionLifetime::connectionMayGoWhileItsDecorationIsReplaced()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    QObject owner;
    auto *former = new PolygonDecoration(&owner);
    auto *next = new PolygonDecoration(&owner);
    AnyConnectionPointer wire = makeConnection(className);
    wire->setDecoration(atSource, former);
    connect(former, &Figure::propertyChanged, &owner, [&] { wire.reset(); });

    wire->setDecoration(atSource, next);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(!wire);
    QVERIFY(!next->getParentFigure());
}

void tst_ConnectionLifetime::connectionMayGoWhileItIsDecorated()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    QObject owner;
    auto *decoration = new PolygonDecoration(&owner);
    AnyConnectionPointer wire = makeConnection(className);
    connect(decoration, &Figure::propertyChanged, &owner, [&] { wire.reset(); });

    wire->setDecoration(atSource, decoration);

    QVERIFY(!wire);
    QVERIFY(!decoration->getParentFigure());
}

QTEST_MAIN(tst_ConnectionLifetime)
#include "tst_connection_lifetime.moc"
