#include <figura/layout/StackLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/LayeredPane.h>

#include <recordingdevice.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QStyleOptionViewItem>
#include <QTest>

#include <functional>
#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

using MakeLayer = std::function<Layer *(QObject *)>;

} // namespace

Q_DECLARE_METATYPE(MakeLayer)

class tst_Layer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void everyLayerIsTransparent_data() { layerClasses(); }
    void everyLayerIsTransparent();
    void parentOwnsTheLayer_data() { layerClasses(); }
    void parentOwnsTheLayer();
    void layerHasNoParentFigureAtFirst_data() { layerClasses(); }
    void layerHasNoParentFigureAtFirst();
    void changeInsideLayerQueuesTheLayerAndNotTheRoot_data() { layerClasses(); }
    void changeInsideLayerQueuesTheLayerAndNotTheRoot();
    void changeInsideLayerLeavesTheRootValid();
    void plainLayerHasNoLayoutManager();
    void plainLayerPaintsNothing();

private:
    static void layerClasses();
};

void tst_Layer::layerClasses()
{
    QTest::addColumn<MakeLayer>("make");
    QTest::newRow("layer") << MakeLayer([](QObject *p) { return new Layer(p); });
    QTest::newRow("layered pane") << MakeLayer([](QObject *p) { return new LayeredPane(p); });
    QTest::newRow("freeform layer")
        << MakeLayer([](QObject *p) { return new FreeformLayer(p, true); });
    QTest::newRow("freeform layered pane")
        << MakeLayer([](QObject *p) { return new FreeformLayeredPane(p); });
}

void tst_Layer::everyLayerIsTransparent()
{
    QFETCH(MakeLayer, make);
    const std::unique_ptr<Layer> layer(make(nullptr));

    QCOMPARE(layer->getBackgroundColor(), QColor(Qt::transparent));
}

void tst_Layer::parentOwnsTheLayer()
{
    QFETCH(MakeLayer, make);
    auto owner = std::make_unique<QObject>();
    const QPointer<Layer> layer = make(owner.get());
    QCOMPARE(layer->parent(), owner.get());

    owner.reset();

    QVERIFY(layer.isNull());
}

void tst_Layer::layerHasNoParentFigureAtFirst()
{
    QFETCH(MakeLayer, make);
    Figure owner;
    const std::unique_ptr<Layer> layer(make(&owner));

    QCOMPARE(layer->getParentFigure(), nullptr);
}

// A change in one layer does not concern the others, so the climb for revalidation ends there.
void tst_Layer::changeInsideLayerQueuesTheLayerAndNotTheRoot()
{
    QFETCH(MakeLayer, make);
    Figure child;
    const std::unique_ptr<Layer> layer(make(nullptr));
    layer->setLayoutManager(new XYLayout(layer.get()));
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new StackLayout(&root));
    root.add(layer.get());
    layer->add(&child, QRect(1, 2, 3, 4));
    manager.clear();

    child.revalidate();

    QCOMPARE(manager.invalidFigures(), QList<Figure *>{layer.get()});
}

void tst_Layer::changeInsideLayerLeavesTheRootValid()
{
    Figure child;
    Layer layer;
    layer.setLayoutManager(new XYLayout(&layer));
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new StackLayout(&root));
    root.setBounds(QRect(0, 0, 50, 50));
    root.add(&layer);
    layer.add(&child, QRect(1, 2, 3, 4));
    root.validate();

    child.revalidate();

    QVERIFY(!layer.getFlag(Figure::FLAG_VALID));
    QVERIFY(root.getFlag(Figure::FLAG_VALID));
}

void tst_Layer::plainLayerHasNoLayoutManager()
{
    Layer layer;

    QCOMPARE(layer.getLayoutManager(), nullptr);
}

void tst_Layer::plainLayerPaintsNothing()
{
    Layer layer;
    layer.setBounds(QRect(0, 0, 50, 50));

    const QList<PaintCall> calls = record([&layer](QPainter *painter) {
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 50, 50);
        layer.render(painter, option);
    });

    QVERIFY(calls.isEmpty());
}

QTEST_MAIN(tst_Layer)
#include "tst_layer.moc"
