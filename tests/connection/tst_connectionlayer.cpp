#include "connection_fixtures.h"

#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/NullRouter.h>

#include <pixels.h>

#include <QSignalSpy>
#include <QStyleOptionViewItem>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// A layer that counts its own repaints.
class CountingLayer : public ConnectionLayer
{
public:
    int repaints = 0;

    using ConnectionLayer::ConnectionLayer;
    using ConnectionLayer::repaint;

    void repaint() override
    {
        ++repaints;
        ConnectionLayer::repaint();
    }

    void repaint(const QRect &rect) override
    {
        ++repaints;
        ConnectionLayer::repaint(rect);
    }
};

// Remembers the hint and leaves its traces on the painter.
class HintFigure : public Figure
{
public:
    mutable QList<bool> hints;

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &) const override
    {
        hints.append(painter->testRenderHint(QPainter::Antialiasing));
    }
};

bool addTo(ConnectionLayer &layer, Figure *figure, bool withStretch, int index = -1)
{
    return withStretch ? layer.add(figure, 1U, 2U, index) : layer.add(figure, QVariant(), index);
}

void addFormRows()
{
    QTest::addColumn<bool>("withStretch");
    QTest::newRow("with a constraint") << false;
    QTest::newRow("with stretches") << true;
}

} // namespace

class tst_ConnectionLayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newLayerHasNoRouter();
    void constructorTakesParentAndFlag();
    void addedConnectionGetsTheRouter_data() { addFormRows(); }
    void addedConnectionGetsTheRouter();
    void connectionMayBeAddedBelowOthers_data() { addFormRows(); }
    void connectionMayBeAddedBelowOthers();
    void addedFloatingConnectionGetsTheRouter_data() { addFormRows(); }
    void addedFloatingConnectionGetsTheRouter();
    void layerWithoutARouterLeavesTheConnectionsOwn_data() { addFormRows(); }
    void layerWithoutARouterLeavesTheConnectionsOwn();
    void routerIsHandedOverEvenWhenTheAddFails_data() { addFormRows(); }
    void routerIsHandedOverEvenWhenTheAddFails();
    void routerIsHandedOverAfterTheAdd();
    void plainFiguresAreAdded_data() { addFormRows(); }
    void plainFiguresAreAdded();
    void nullIsNotAdded_data() { addFormRows(); }
    void nullIsNotAdded();
    void newRouterLeavesPresentConnectionsAlone();
    void removedConnectionFallsBackToTheSharedRouter();
    void routerIsResetBeforeTheRemoval();
    void strangeConnectionLosesItsRouterToo();
    void removedPlainFigureIsGone();
    void antialiasingIsOffAtFirst();
    void antialiasingTakesEffectWithTheNextPaint();
    void antialiasingDoesNotRepaint();
    void painterIsAsBeforeAfterwards();
    void layerTurnsAntialiasingOffForItself();
    void nothingIsPaintedWithoutAPainter();
};

void tst_ConnectionLayer::newLayerHasNoRouter()
{
    QVERIFY(!ConnectionLayer(nullptr, false).getConnectionRouter());
}

void tst_ConnectionLayer::constructorTakesParentAndFlag()
{
    QObject parent;

    ConnectionLayer monitored(&parent, true);
    ConnectionLayer unmonitored(&parent, false);

    QCOMPARE(monitored.parent(), &parent);
    QVERIFY(monitored.isContentMonitored());
    QVERIFY(!unmonitored.isContentMonitored());
}

void tst_ConnectionLayer::addedConnectionGetsTheRouter()
{
    QFETCH(bool, withStretch);
    NullRouter router(nullptr);
    PolylineConnection connection(nullptr);
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);

    QVERIFY(addTo(layer, &connection, withStretch));

    QCOMPARE(layer.getConnectionRouter(), &router);
    QCOMPARE(connection.getConnectionRouter(), &router);
    QCOMPARE(layer.childFigures(), QList<Figure *>{&connection});
}

void tst_ConnectionLayer::connectionMayBeAddedBelowOthers()
{
    QFETCH(bool, withStretch);
    PolylineConnection upper(nullptr);
    PolylineConnection uppermost(nullptr);
    PolylineConnection lower(nullptr);
    ConnectionLayer layer(nullptr, false);
    layer.add(&upper);
    layer.add(&uppermost);

    QVERIFY(addTo(layer, &lower, withStretch, 0));

    QCOMPARE(layer.childFigures(), (QList<Figure *>{&lower, &upper, &uppermost}));
}

void tst_ConnectionLayer::addedFloatingConnectionGetsTheRouter()
{
    QFETCH(bool, withStretch);
    NullRouter router(nullptr);
    PolylineFConnection connection(nullptr);
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);

    QVERIFY(addTo(layer, &connection, withStretch));

    QCOMPARE(connection.getConnectionRouter(), &router);
}

void tst_ConnectionLayer::layerWithoutARouterLeavesTheConnectionsOwn()
{
    QFETCH(bool, withStretch);
    NullRouter router(nullptr);
    PolylineConnection connection(nullptr);
    connection.setConnectionRouter(&router);
    ConnectionLayer layer(nullptr, false);

    QVERIFY(addTo(layer, &connection, withStretch));

    QCOMPARE(connection.getConnectionRouter(), &router);
}

void tst_ConnectionLayer::routerIsHandedOverEvenWhenTheAddFails()
{
    QFETCH(bool, withStretch);
    NullRouter router(nullptr);
    PolylineConnection connection(nullptr);
    ConnectionLayer layer(nullptr, false);
    delete layer.getLayoutManager();
    layer.setConnectionRouter(&router);

    QTest::ignoreMessage(QtDebugMsg, "Figure::add(): failed, no layout manager");
    QVERIFY(!addTo(layer, &connection, withStretch));

    QCOMPARE(connection.getConnectionRouter(), &router);
}

void tst_ConnectionLayer::routerIsHandedOverAfterTheAdd()
{
    NullRouter router(nullptr);
    PolylineConnection connection(nullptr);
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);
    QStringList announced;
    connect(&connection, &Figure::propertyChanged, this,
            [&](const QString &name) { announced.append(name); });

    layer.add(&connection);

    QCOMPARE(announced, QStringList({"parent", "connectionRouter"}));
}

void tst_ConnectionLayer::plainFiguresAreAdded()
{
    QFETCH(bool, withStretch);
    NullRouter router(nullptr);
    Figure figure;
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);

    QVERIFY(addTo(layer, &figure, withStretch));

    QCOMPARE(layer.childFigures(), QList<Figure *>{&figure});
}

void tst_ConnectionLayer::nullIsNotAdded()
{
    QFETCH(bool, withStretch);
    NullRouter router(nullptr);
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);

    QVERIFY(!addTo(layer, nullptr, withStretch));
}

void tst_ConnectionLayer::newRouterLeavesPresentConnectionsAlone()
{
    NullRouter former(nullptr);
    NullRouter next(nullptr);
    PolylineConnection present(nullptr);
    PolylineConnection later(nullptr);
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&former);
    layer.add(&present);

    layer.setConnectionRouter(&next);
    layer.add(&later);

    QCOMPARE(present.getConnectionRouter(), &former);
    QCOMPARE(later.getConnectionRouter(), &next);
}

void tst_ConnectionLayer::removedConnectionFallsBackToTheSharedRouter()
{
    LoggingRouter router;
    PolylineConnection connection(nullptr);
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);
    layer.add(&connection);
    router.own.clear();

    QVERIFY(layer.remove(&connection));

    QCOMPARE(connection.getConnectionRouter(), NullRouter::instance());
    QCOMPARE(router.own, QStringList{"router remove"});
    QCOMPARE(layer.childFigureCount(), 0);
}

void tst_ConnectionLayer::routerIsResetBeforeTheRemoval()
{
    NullRouter router(nullptr);
    PolylineConnection connection(nullptr);
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);
    layer.add(&connection);
    QStringList announced;
    connect(&connection, &Figure::propertyChanged, this,
            [&](const QString &name) { announced.append(name); });

    layer.remove(&connection);

    QCOMPARE(announced, QStringList({"connectionRouter", "parent"}));
}

void tst_ConnectionLayer::strangeConnectionLosesItsRouterToo()
{
    NullRouter router(nullptr);
    PolylineConnection connection(nullptr);
    connection.setConnectionRouter(&router);
    ConnectionLayer layer(nullptr, false);

    QVERIFY(!layer.remove(&connection));

    QCOMPARE(connection.getConnectionRouter(), NullRouter::instance());
}

void tst_ConnectionLayer::removedPlainFigureIsGone()
{
    Figure figure;
    ConnectionLayer layer(nullptr, false);
    layer.add(&figure);

    QVERIFY(layer.remove(&figure));
    QCOMPARE(layer.childFigureCount(), 0);
}

void tst_ConnectionLayer::antialiasingIsOffAtFirst()
{
    HintFigure figure;
    ConnectionLayer layer(nullptr, false);
    layer.setBounds(QRect(0, 0, 40, 40));
    layer.add(&figure);
    figure.setBounds(QRect(5, 5, 20, 20));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 40, 40);

    paintedImage(QSize(40, 40), [&](QPainter *painter) { layer.render(painter, option); });

    QCOMPARE(figure.hints, QList<bool>{false});
}

void tst_ConnectionLayer::antialiasingTakesEffectWithTheNextPaint()
{
    HintFigure figure;
    ConnectionLayer layer(nullptr, false);
    layer.setBounds(QRect(0, 0, 40, 40));
    layer.add(&figure);
    figure.setBounds(QRect(5, 5, 20, 20));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 40, 40);

    paintedImage(QSize(40, 40), [&](QPainter *painter) {
        layer.setAntialias(true);
        layer.render(painter, option);
        layer.setAntialias(false);
        layer.render(painter, option);
    });

    QCOMPARE(figure.hints, QList<bool>({true, false}));
}

void tst_ConnectionLayer::antialiasingDoesNotRepaint()
{
    CountingLayer layer(nullptr, false);
    layer.setBounds(QRect(0, 0, 40, 40));
    layer.repaints = 0;

    layer.setAntialias(true);
    layer.setAntialias(false);

    QCOMPARE(layer.repaints, 0);
}

void tst_ConnectionLayer::painterIsAsBeforeAfterwards()
{
    ConnectionLayer layer(nullptr, false);
    layer.setBounds(QRect(0, 0, 40, 40));
    layer.setAntialias(true);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 40, 40);
    bool smoothAfterwards = true;

    paintedImage(QSize(40, 40), [&](QPainter *painter) {
        layer.render(painter, option);
        smoothAfterwards = painter->testRenderHint(QPainter::Antialiasing);
    });

    QVERIFY(!smoothAfterwards);
}

void tst_ConnectionLayer::layerTurnsAntialiasingOffForItself()
{
    HintFigure figure;
    ConnectionLayer layer(nullptr, false);
    layer.setBounds(QRect(0, 0, 40, 40));
    layer.add(&figure);
    figure.setBounds(QRect(5, 5, 20, 20));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 40, 40);
    bool smoothAfterwards = false;

    paintedImage(QSize(40, 40), [&](QPainter *painter) {
        painter->setRenderHint(QPainter::Antialiasing);
        layer.render(painter, option);
        smoothAfterwards = painter->testRenderHint(QPainter::Antialiasing);
    });

    QCOMPARE(figure.hints, QList<bool>{false});
    QVERIFY(smoothAfterwards);
}

void tst_ConnectionLayer::nothingIsPaintedWithoutAPainter()
{
    HintFigure figure;
    ConnectionLayer layer(nullptr, false);
    layer.setBounds(QRect(0, 0, 40, 40));
    layer.add(&figure);

    layer.render(nullptr, QStyleOptionViewItem());

    QCOMPARE(figure.hints, QList<bool>());
}

QTEST_MAIN(tst_ConnectionLayer)
#include "tst_connectionlayer.moc"
