#include <figura/layout/FreeformStackLayout.h>
#include <figura/layout/StackLayout.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>

#include <countingfigure.h>
#include <recordingdevice.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");

// Counts how often its extent is asked for, which a stack layout does once an examination.
class ExtentLayer : public FreeformLayer
{
public:
    QRect extent{0, 0, 10, 10};
    int asked = 0;

    QRect getFreeformExtent() override
    {
        ++asked;
        return extent;
    }
};

bool isWatched(FreeformLayeredPane &pane, Figure *layer)
{
    return QObject::disconnect(layer, SIGNAL(extentChanged()), pane.getLayoutManager(),
                               SLOT(examineExtent()));
}

using AddLayer = void (*)(FreeformLayeredPane &, Layer *, const QString &);

} // namespace

Q_DECLARE_METATYPE(AddLayer)

class tst_FreeformLayeredPane : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void paneComesWithOneFreeformStackLayoutOfItsOwn();
    void paneIsFoundAsFreeformFigure();
    void extentChangedIsEmittedThroughTheInterfaceToo();

    void extentIsThatOfAllLayers();
    void hiddenLayerCountsInTheExtent();
    void ordinaryLayerDoesNotCountInTheExtent();
    void extentWithoutLayersIsInvalid();
    void extentIsInvalidWithAnotherLayout();

    void freeformBoundsGoToThePaneAndItsFreeformLayers();
    void freeformBoundsSkipHiddenLayers();
    void sameFreeformBoundsReachNoLayer();
    void freeformBoundsAreIgnoredWithAnotherLayout();

    void changeOfTheLayoutsExtentIsRelayed();
    void changeOfLayersExtentIsRelayed_data();
    void changeOfLayersExtentIsRelayed();
    void changeOfNestedPanesExtentIsRelayed();
    void sameUnionIsNotRelayed();
    void moveOfFigureInLayerChangesTheExtentOfThePane();

    void freeformLayerIsWatched_data() { additions(); }
    void freeformLayerIsWatched();
    void ordinaryLayerIsNotWatched();
    void refusedLayerIsWatchedAllTheSame_data() { additions(); }
    void refusedLayerIsWatchedAllTheSame();
    void layerAddedTwiceIsExaminedTwice();
    void layerWithEmptyKeyIsNotWatched_data() { additions(); }
    void layerWithEmptyKeyIsNotWatched();
    void nullLayerIsOnlyRefused_data() { additions(); }
    void nullLayerIsOnlyRefused();
    void removedLayerIsNotWatchedAnyMore();
    void removedNestedPaneIsNotWatchedAnyMore();
    void layerLeavesWhenTheLayoutIsGone();
    void removalOfUnknownKeyGivesNull();

    void backgroundColourIsNotPainted();
    void renderPaintsTheLayersInOrder();
    void gridSettersRepaintOnlyOnChange();

private:
    static void additions();
};

void tst_FreeformLayeredPane::additions()
{
    QTest::addColumn<AddLayer>("add");
    QTest::addColumn<QByteArray>("operation");

    QTest::newRow("added") << AddLayer([](FreeformLayeredPane &p, Layer *l, const QString &k) {
        p.addLayer(l, k);
    }) << QByteArray("addLayerAbove");
    QTest::newRow("above") << AddLayer([](FreeformLayeredPane &p, Layer *l, const QString &k) {
        p.addLayerAbove(l, k, nullptr);
    }) << QByteArray("addLayerAbove");
    QTest::newRow("beneath") << AddLayer([](FreeformLayeredPane &p, Layer *l, const QString &k) {
        p.addLayerBeneath(l, k, nullptr);
    }) << QByteArray("addLayerBeneath");
}

void tst_FreeformLayeredPane::paneComesWithOneFreeformStackLayoutOfItsOwn()
{
    FreeformLayeredPane pane;

    QVERIFY(qobject_cast<FreeformStackLayout *>(pane.getLayoutManager()));
    QCOMPARE(pane.findChildren<Velmora::Figura::Layout *>(),
             QList<Velmora::Figura::Layout *>{pane.getLayoutManager()});
}

void tst_FreeformLayeredPane::paneIsFoundAsFreeformFigure()
{
    FreeformLayeredPane pane;
    QObject *object = &pane;

    QCOMPARE(qobject_cast<IFreeformFigure *>(object), static_cast<IFreeformFigure *>(&pane));
}

void tst_FreeformLayeredPane::extentChangedIsEmittedThroughTheInterfaceToo()
{
    FreeformLayeredPane pane;
    IFreeformFigure *figure = &pane;
    QSignalSpy changed(&pane, &FreeformLayeredPane::extentChanged);

    Q_EMIT figure->extentChanged();

    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayeredPane::extentIsThatOfAllLayers()
{
    ExtentLayer first;
    ExtentLayer second;
    FreeformLayeredPane pane;
    first.extent = QRect(-10, -20, 5, 5);
    second.extent = QRect(40, 50, 10, 10);

    pane.addLayer(&first, a);
    pane.addLayer(&second, b);

    QCOMPARE(pane.getFreeformExtent(), QRect(-10, -20, 60, 80));
}

void tst_FreeformLayeredPane::hiddenLayerCountsInTheExtent()
{
    ExtentLayer layer;
    FreeformLayeredPane pane;
    pane.addLayer(&layer, a);

    layer.setVisible(false);

    QCOMPARE(pane.getFreeformExtent(), layer.extent);
}

void tst_FreeformLayeredPane::ordinaryLayerDoesNotCountInTheExtent()
{
    Layer ordinary;
    ExtentLayer freeform;
    FreeformLayeredPane pane;
    ordinary.setBounds(QRect(-500, -500, 5000, 5000));

    pane.addLayer(&ordinary, a);
    pane.addLayer(&freeform, b);

    QCOMPARE(pane.getFreeformExtent(), freeform.extent);
}

void tst_FreeformLayeredPane::extentWithoutLayersIsInvalid()
{
    FreeformLayeredPane pane;

    QVERIFY(!pane.getFreeformExtent().isValid());
}

void tst_FreeformLayeredPane::extentIsInvalidWithAnotherLayout()
{
    ExtentLayer layer;
    FreeformLayeredPane pane;
    pane.addLayer(&layer, a);
    QVERIFY(pane.getFreeformExtent().isValid());

    pane.setLayoutManager(new StackLayout(&pane));

    QVERIFY(!pane.getFreeformExtent().isValid());
}

void tst_FreeformLayeredPane::freeformBoundsGoToThePaneAndItsFreeformLayers()
{
    const QRect bounds(-20, -10, 300, 200);
    FreeformLayer freeform;
    FreeformLayer inner;
    Layer ordinary;
    FreeformLayeredPane nested;
    FreeformLayeredPane pane;
    pane.addLayer(&freeform, a);
    pane.addLayer(&nested, b);
    pane.addLayer(&ordinary, QStringLiteral("ordinary"));
    nested.addLayer(&inner, a);

    pane.setFreeformBounds(bounds);

    QCOMPARE(pane.getBounds(), bounds);
    QCOMPARE(freeform.getBounds(), bounds);
    QCOMPARE(nested.getBounds(), bounds);
    QCOMPARE(inner.getBounds(), bounds);
    QVERIFY(!ordinary.getBounds().isValid());
}

void tst_FreeformLayeredPane::freeformBoundsSkipHiddenLayers()
{
    FreeformLayer layer;
    FreeformLayeredPane pane;
    pane.addLayer(&layer, a);
    layer.setVisible(false);

    pane.setFreeformBounds(QRect(0, 0, 300, 200));

    QVERIFY(!layer.getBounds().isValid());
}

// A layer that comes later waits for the next change of the bounds.
void tst_FreeformLayeredPane::sameFreeformBoundsReachNoLayer()
{
    FreeformLayer late;
    FreeformLayeredPane pane;
    pane.setFreeformBounds(QRect(0, 0, 300, 200));
    QSignalSpy moved(&pane, &Figure::figureMoved);
    pane.addLayer(&late, a);

    pane.setFreeformBounds(QRect(0, 0, 300, 200));
    QCOMPARE(moved.count(), 0);
    QVERIFY(!late.getBounds().isValid());

    pane.setFreeformBounds(QRect(0, 0, 301, 200));
    QCOMPARE(late.getBounds(), QRect(0, 0, 301, 200));
}

void tst_FreeformLayeredPane::freeformBoundsAreIgnoredWithAnotherLayout()
{
    FreeformLayer layer;
    FreeformLayeredPane pane;
    pane.setLayoutManager(new StackLayout(&pane));
    pane.addLayer(&layer, a);
    pane.setBounds(QRect(0, 0, 5, 5));

    pane.setFreeformBounds(QRect(0, 0, 300, 200));

    QCOMPARE(pane.getBounds(), QRect(0, 0, 5, 5));
    QVERIFY(!layer.getBounds().isValid());
}

void tst_FreeformLayeredPane::changeOfTheLayoutsExtentIsRelayed()
{
    FreeformLayeredPane pane;
    auto *layout = qobject_cast<FreeformStackLayout *>(pane.getLayoutManager());
    QSignalSpy changed(&pane, &FreeformLayeredPane::extentChanged);

    Q_EMIT layout->extentChanged();

    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayeredPane::changeOfLayersExtentIsRelayed_data()
{
    additions();
}

void tst_FreeformLayeredPane::changeOfLayersExtentIsRelayed()
{
    QFETCH(AddLayer, add);
    ExtentLayer layer;
    FreeformLayeredPane pane;
    add(pane, &layer, a);
    pane.getFreeformExtent();
    QSignalSpy changed(&pane, &FreeformLayeredPane::extentChanged);

    layer.extent = QRect(0, 0, 99, 99);
    Q_EMIT layer.extentChanged();

    QCOMPARE(changed.count(), 1);
    QCOMPARE(pane.getFreeformExtent(), QRect(0, 0, 99, 99));
}

void tst_FreeformLayeredPane::changeOfNestedPanesExtentIsRelayed()
{
    ExtentLayer layer;
    FreeformLayeredPane nested;
    FreeformLayeredPane pane;
    nested.addLayer(&layer, a);
    pane.addLayer(&nested, b);
    pane.getFreeformExtent();
    QSignalSpy changed(&pane, &FreeformLayeredPane::extentChanged);

    layer.extent = QRect(0, 0, 99, 99);
    Q_EMIT layer.extentChanged();

    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayeredPane::sameUnionIsNotRelayed()
{
    ExtentLayer big;
    ExtentLayer small;
    FreeformLayeredPane pane;
    big.extent = QRect(0, 0, 100, 100);
    pane.addLayer(&big, a);
    pane.addLayer(&small, b);
    pane.getFreeformExtent();
    QSignalSpy changed(&pane, &FreeformLayeredPane::extentChanged);

    small.extent = QRect(50, 50, 10, 10);
    Q_EMIT small.extentChanged();

    QCOMPARE(changed.count(), 0);
}

void tst_FreeformLayeredPane::moveOfFigureInLayerChangesTheExtentOfThePane()
{
    Figure figure;
    FreeformLayer layer;
    FreeformLayeredPane pane;
    pane.addLayer(&layer, a);
    layer.add(&figure, QRect(10, 10, 20, 20));
    QCOMPARE(pane.getFreeformExtent(), QRect(10, 10, 20, 20));
    layer.validate();
    QSignalSpy changed(&pane, &FreeformLayeredPane::extentChanged);

    figure.setBounds(QRect(-100, 10, 20, 20));

    QCOMPARE(changed.count(), 1);
    QCOMPARE(pane.getFreeformExtent(), QRect(-100, 10, 20, 20));
}

void tst_FreeformLayeredPane::freeformLayerIsWatched()
{
    QFETCH(AddLayer, add);
    FreeformLayer layer;
    FreeformLayeredPane nested;
    FreeformLayeredPane pane;

    add(pane, &layer, a);
    add(pane, &nested, b);

    QVERIFY(isWatched(pane, &layer));
    QVERIFY(isWatched(pane, &nested));
}

// It has no such signal; a connection would be refused with a warning.
void tst_FreeformLayeredPane::ordinaryLayerIsNotWatched()
{
    Layer layer;
    LayeredPane nested;
    FreeformLayeredPane pane;

    pane.addLayer(&layer, a);
    pane.addLayer(&nested, b);

    QCOMPARE(pane.childFigureCount(), 2);
}

// The connection does not ask whether the layer was accepted, on purpose.
void tst_FreeformLayeredPane::refusedLayerIsWatchedAllTheSame()
{
    QFETCH(AddLayer, add);
    QFETCH(QByteArray, operation);
    FreeformLayer first;
    FreeformLayer refused;
    FreeformLayeredPane pane;
    pane.addLayer(&first, a);

    QTest::ignoreMessage(
        QtWarningMsg, ("LayeredPane::" + operation + "(): layer 'a' already exists").constData());
    add(pane, &refused, a);

    QCOMPARE(pane.childFigureCount(), 1);
    QVERIFY(isWatched(pane, &refused));
}

void tst_FreeformLayeredPane::layerAddedTwiceIsExaminedTwice()
{
    ExtentLayer layer;
    FreeformLayeredPane pane;
    pane.addLayer(&layer, a);
    QTest::ignoreMessage(QtWarningMsg, "LayeredPane::addLayerAbove(): layer 'a' already exists");
    pane.addLayer(&layer, a);
    layer.asked = 0;

    Q_EMIT layer.extentChanged();

    QCOMPARE(layer.asked, 2);
}

void tst_FreeformLayeredPane::layerWithEmptyKeyIsNotWatched()
{
    QFETCH(AddLayer, add);
    QFETCH(QByteArray, operation);
    FreeformLayer layer;
    FreeformLayeredPane pane;

    QTest::ignoreMessage(QtWarningMsg, ("LayeredPane::" + operation +
                                        "(): cannot add null layer or add with empty key")
                                           .constData());
    add(pane, &layer, QString());

    QVERIFY(!isWatched(pane, &layer));
}

void tst_FreeformLayeredPane::nullLayerIsOnlyRefused()
{
    QFETCH(AddLayer, add);
    QFETCH(QByteArray, operation);
    FreeformLayeredPane pane;

    QTest::ignoreMessage(QtWarningMsg, ("LayeredPane::" + operation +
                                        "(): cannot add null layer or add with empty key")
                                           .constData());
    add(pane, nullptr, a);

    QCOMPARE(pane.childFigureCount(), 0);
}

void tst_FreeformLayeredPane::removedLayerIsNotWatchedAnyMore()
{
    FreeformLayer layer;
    FreeformLayeredPane pane;
    pane.addLayer(&layer, a);

    QCOMPARE(pane.removeLayer(a), &layer);

    QVERIFY(!isWatched(pane, &layer));
    QCOMPARE(pane.childFigureCount(), 0);
}

void tst_FreeformLayeredPane::removedNestedPaneIsNotWatchedAnyMore()
{
    FreeformLayeredPane nested;
    FreeformLayeredPane pane;
    pane.addLayer(&nested, a);

    QCOMPARE(pane.removeLayer(a), &nested);

    QVERIFY(!isWatched(pane, &nested));
}

void tst_FreeformLayeredPane::layerLeavesWhenTheLayoutIsGone()
{
    FreeformLayer layer;
    FreeformLayeredPane pane;
    pane.addLayer(&layer, a);

    delete pane.getLayoutManager();

    QCOMPARE(pane.removeLayer(a), &layer);
    QCOMPARE(pane.removeLayer(a), nullptr);
    QCOMPARE(pane.getFreeformExtent(), QRect());
}

void tst_FreeformLayeredPane::removalOfUnknownKeyGivesNull()
{
    FreeformLayer layer;
    FreeformLayeredPane pane;
    pane.addLayer(&layer, a);

    QCOMPARE(pane.removeLayer(b), nullptr);

    QVERIFY(isWatched(pane, &layer));
}

// The background of a pane is its grid and nothing else, on purpose.
void tst_FreeformLayeredPane::backgroundColourIsNotPainted()
{
    FreeformLayeredPane pane;
    pane.setFreeformBounds(QRect(0, 0, 100, 100));
    pane.setBackgroundColor(Qt::red);

    const QList<PaintCall> calls = record([&pane](QPainter *painter) {
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 100, 100);
        pane.render(painter, option);
    });

    QVERIFY(calls.isEmpty());
}

void tst_FreeformLayeredPane::renderPaintsTheLayersInOrder()
{
    Figure low(nullptr, Qt::red);
    Figure high(nullptr, Qt::blue);
    FreeformLayer bottom;
    FreeformLayer top;
    FreeformLayeredPane pane;
    pane.addLayer(&top, a);
    pane.addLayerBeneath(&bottom, b, &top);
    top.add(&high, QRect(10, 10, 20, 20));
    bottom.add(&low, QRect(0, 0, 30, 30));
    pane.setFreeformBounds(QRect(0, 0, 100, 100));

    const QList<PaintCall> calls = record([&pane](QPainter *painter) {
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 100, 100);
        pane.render(painter, option);
    });

    QCOMPARE(rectsOf(calls), (QList<QRectF>{QRectF(0, 0, 30, 30), QRectF(10, 10, 20, 20)}));
}

void tst_FreeformLayeredPane::gridSettersRepaintOnlyOnChange()
{
    FreeformLayeredPane pane;
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new StackLayout(&root));
    root.add(&pane);
    pane.setFreeformBounds(QRect(0, 0, 100, 100));
    const QList<QRect> once{pane.getBounds()};

    manager.clear();
    pane.setDrawGrid(true);
    QCOMPARE(manager.dirtyRects(&pane), once);
    manager.clear();
    pane.setDrawGrid(true);
    QVERIFY(manager.dirtyRects().isEmpty());
    pane.setDrawGrid(false);
    QCOMPARE(manager.dirtyRects(&pane), once);

    manager.clear();
    pane.setSnapSize(5);
    QVERIFY(manager.dirtyRects().isEmpty());
    pane.setSnapSize(10);
    QCOMPARE(manager.dirtyRects(&pane), once);
}

QTEST_MAIN(tst_FreeformLayeredPane)
#include "tst_freeformlayeredpane.moc"
