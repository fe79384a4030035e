#include "scene.h"

#include <figura/view/LayeredPane.h>

#include <logcapture.h>
#include <recordingupdatemanager.h>

#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

constexpr const char *refusal =
    "FreeformWidget::setContent(): assigned content not a FreeformedLayeredPane";

bool isWatched(Figure *content, FreeformWidget *widget)
{
    return QObject::disconnect(content, SIGNAL(extentChanged()), widget,
                               SLOT(contentExtentChanged()));
}

} // namespace

class tst_FreeformWidgetContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void widgetStartsWithoutContentAtScaleOne();
    void widgetTracksTheMouseAndShowsTheBaseColour();
    void widgetIsAtLeast300By200();
    void windowFlagsAreTaken();

    void paneBecomesTheContent();
    void anyOtherFigureIsRefused_data();
    void anyOtherFigureIsRefused();
    void refusedContentLeavesTheFormerOne();
    void refusalCarriesNoFileAndLine();

    void contentBecomesTransparent();
    void contentAndItsLayersAreNotified();
    void extentOfContentIsWatched();
    void contentIsQueuedForValidation();
    void contentGetsTheUpdateManager();
    void contentLosesItsUpdateManagerInWidgetWithoutOne();
    void formerContentIsLetGoAsItIs();
    void sameContentAgainIsConnectedAndNotifiedAgain();

    void updateManagerIsHandedToTheContent();
    void updateManagerThatIsSetAlreadyIsNotHandedOnAgain();
    void newUpdateManagerTakesNoQueueOver();
    void nullUpdateManagerReachesTheContent();
    void attachedFigureReportsToTheUpdateManagerOfTheWidget();
};

void tst_FreeformWidgetContent::widgetStartsWithoutContentAtScaleOne()
{
    FreeformViewer viewer;
    FreeformWidget widget(&viewer);

    QCOMPARE(widget.getContent(), nullptr);
    QCOMPARE(widget.getUpdateManager(), nullptr);
    QCOMPARE(widget.getScale(), 1.0);
    QCOMPARE(widget.getPointAtOrigin(), QPointF(0, 0));
    QCOMPARE(widget.getXMargin(), 50);
    QCOMPARE(widget.getYMargin(), 50);
    QCOMPARE(widget.elasticBand(), QRect());
    QCOMPARE(widget.getHighlightStyle(), 0);
    QVERIFY(!widget.isHighlighted());
    QVERIFY(!widget.isResizing());
    QVERIFY(widget.extentHandlingEnabled());
    QCOMPARE(widget.parentWidget(), &viewer);
}

void tst_FreeformWidgetContent::widgetTracksTheMouseAndShowsTheBaseColour()
{
    FreeformViewer viewer;
    FreeformWidget widget(&viewer);

    QVERIFY(widget.testAttribute(Qt::WA_Hover));
    QVERIFY(widget.testAttribute(Qt::WA_MouseTracking));
    QVERIFY(widget.hasMouseTracking());
    QCOMPARE(widget.backgroundRole(), QPalette::Base);
    QVERIFY(widget.autoFillBackground());
}

void tst_FreeformWidgetContent::widgetIsAtLeast300By200()
{
    FreeformWidget widget(nullptr);

    QCOMPARE(widget.minimumSize(), QSize(300, 200));
}

void tst_FreeformWidgetContent::windowFlagsAreTaken()
{
    FreeformViewer viewer;
    FreeformWidget widget(&viewer, Qt::Tool);

    QVERIFY(widget.isWindow());
    QCOMPARE(widget.windowType(), Qt::Tool);
}

void tst_FreeformWidgetContent::paneBecomesTheContent()
{
    FreeformLayeredPane pane;
    FreeformWidget widget(nullptr);

    QVERIFY(widget.setContent(&pane));

    QCOMPARE(widget.getContent(), &pane);
}

void tst_FreeformWidgetContent::anyOtherFigureIsRefused_data()
{
    QTest::addColumn<QSharedPointer<Figure>>("figure");
    QTest::newRow("null") << QSharedPointer<Figure>();
    QTest::newRow("figure") << QSharedPointer<Figure>(new Figure);
    QTest::newRow("layer") << QSharedPointer<Figure>(new Layer);
    QTest::newRow("layered pane") << QSharedPointer<Figure>(new LayeredPane);
    QTest::newRow("freeform layer") << QSharedPointer<Figure>(new FreeformLayer);
}

void tst_FreeformWidgetContent::anyOtherFigureIsRefused()
{
    QFETCH(QSharedPointer<Figure>, figure);
    FreeformWidget widget(nullptr);

    QTest::ignoreMessage(QtWarningMsg, refusal);
    QVERIFY(!widget.setContent(figure.get()));

    QCOMPARE(widget.getContent(), nullptr);
    QVERIFY(!figure || !figure->getFlag(Figure::FLAG_NOTIFIED));
}

void tst_FreeformWidgetContent::refusedContentLeavesTheFormerOne()
{
    FreeformLayeredPane pane;
    FreeformWidget widget(nullptr);
    widget.setContent(&pane);

    QTest::ignoreMessage(QtWarningMsg, refusal);
    QVERIFY(!widget.setContent(nullptr));

    QCOMPARE(widget.getContent(), &pane);
    QVERIFY(isWatched(&pane, &widget));
}

void tst_FreeformWidgetContent::refusalCarriesNoFileAndLine()
{
    FreeformWidget widget(nullptr);
    LogCapture log;

    widget.setContent(nullptr);

    QCOMPARE(log.messages().size(), 1);
    QVERIFY(!log.messages().first().hasPlace);
}

void tst_FreeformWidgetContent::contentBecomesTransparent()
{
    FreeformLayeredPane pane;
    FreeformWidget widget(nullptr);
    pane.setBackgroundColor(Qt::red);

    widget.setContent(&pane);

    QCOMPARE(pane.getBackgroundColor(), QColor(Qt::transparent));
}

void tst_FreeformWidgetContent::contentAndItsLayersAreNotified()
{
    FreeformLayer layer;
    FreeformLayeredPane pane;
    FreeformWidget widget(nullptr);
    pane.addLayer(&layer, QStringLiteral("layer"));

    widget.setContent(&pane);

    QVERIFY(pane.getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(layer.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_FreeformWidgetContent::extentOfContentIsWatched()
{
    FreeformLayeredPane pane;
    FreeformWidget widget(nullptr);

    widget.setContent(&pane);

    QVERIFY(isWatched(&pane, &widget));
}

void tst_FreeformWidgetContent::contentIsQueuedForValidation()
{
    FreeformLayeredPane pane;
    RecordingUpdateManager manager;
    FreeformWidget widget(nullptr);
    widget.setUpdateManager(&manager);

    widget.setContent(&pane);

    QCOMPARE(manager.invalidFigures(), QList<Figure *>{&pane});
}

void tst_FreeformWidgetContent::contentGetsTheUpdateManager()
{
    FreeformLayer layer;
    FreeformLayeredPane pane;
    RecordingUpdateManager manager;
    FreeformWidget widget(nullptr);
    pane.addLayer(&layer, QStringLiteral("layer"));
    widget.setUpdateManager(&manager);

    widget.setContent(&pane);

    QCOMPARE(pane.getUpdateManager(), &manager);
    QCOMPARE(layer.getUpdateManager(), &manager);
}

void tst_FreeformWidgetContent::contentLosesItsUpdateManagerInWidgetWithoutOne()
{
    FreeformLayeredPane pane;
    RecordingUpdateManager manager;
    FreeformWidget first(nullptr);
    FreeformWidget second(nullptr);
    first.setUpdateManager(&manager);
    first.setContent(&pane);

    QTest::ignoreMessage(QtDebugMsg, "Figure::addNotify() should not be call multiple times");
    second.setContent(&pane);

    QCOMPARE(pane.getUpdateManager(), nullptr);
}

void tst_FreeformWidgetContent::formerContentIsLetGoAsItIs()
{
    FreeformLayeredPane former;
    FreeformLayeredPane next;
    RecordingUpdateManager manager;
    FreeformWidget widget(nullptr);
    widget.setUpdateManager(&manager);
    widget.setContent(&former);

    QVERIFY(widget.setContent(&next));

    QCOMPARE(widget.getContent(), &next);
    QVERIFY(former.getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(former.getUpdateManager(), &manager);
    QVERIFY(isWatched(&former, &widget));
    QVERIFY(isWatched(&next, &widget));
}

void tst_FreeformWidgetContent::sameContentAgainIsConnectedAndNotifiedAgain()
{
    ExtentPane pane;
    FreeformViewer viewer;
    viewer.setContent(&pane);

    QTest::ignoreMessage(QtDebugMsg, "Figure::addNotify() should not be call multiple times");
    QVERIFY(viewer.setContent(&pane));

    // One disconnection takes all connections of the pair, so they are counted at the signal.
    class Spy : public FreeformLayeredPane
    {
    public:
        using FreeformLayeredPane::receivers;
    };
    QCOMPARE((pane.*&Spy::receivers)(SIGNAL(extentChanged())), 2);
}

void tst_FreeformWidgetContent::updateManagerIsHandedToTheContent()
{
    FreeformLayeredPane pane;
    RecordingUpdateManager manager;
    FreeformWidget widget(nullptr);
    widget.setContent(&pane);
    QCOMPARE(pane.getUpdateManager(), nullptr);

    widget.setUpdateManager(&manager);

    QCOMPARE(widget.getUpdateManager(), &manager);
    QCOMPARE(pane.getUpdateManager(), &manager);
}

void tst_FreeformWidgetContent::updateManagerThatIsSetAlreadyIsNotHandedOnAgain()
{
    FreeformLayeredPane pane;
    RecordingUpdateManager first;
    RecordingUpdateManager second;
    FreeformWidget widget(nullptr);
    FreeformWidget other(nullptr);
    widget.setUpdateManager(&first);
    widget.setContent(&pane);
    QTest::ignoreMessage(QtDebugMsg, "Figure::addNotify() should not be call multiple times");
    other.setContent(&pane);
    other.setUpdateManager(&second);

    widget.setUpdateManager(&first);

    QCOMPARE(pane.getUpdateManager(), &second);
}

void tst_FreeformWidgetContent::newUpdateManagerTakesNoQueueOver()
{
    FreeformLayeredPane pane;
    RecordingUpdateManager first;
    RecordingUpdateManager second;
    FreeformWidget widget(nullptr);
    widget.setUpdateManager(&first);
    widget.setContent(&pane);

    widget.setUpdateManager(&second);

    QVERIFY(second.requests().isEmpty());
}

void tst_FreeformWidgetContent::nullUpdateManagerReachesTheContent()
{
    FreeformLayeredPane pane;
    RecordingUpdateManager manager;
    FreeformWidget widget(nullptr);
    widget.setUpdateManager(&manager);
    widget.setContent(&pane);

    widget.setUpdateManager(nullptr);

    QCOMPARE(widget.getUpdateManager(), nullptr);
    QCOMPARE(pane.getUpdateManager(), nullptr);
}

void tst_FreeformWidgetContent::attachedFigureReportsToTheUpdateManagerOfTheWidget()
{
    Figure figure;
    FreeformLayer layer;
    FreeformLayeredPane pane;
    RecordingUpdateManager manager;
    FreeformWidget widget(nullptr);
    widget.setUpdateManager(&manager);
    pane.addLayer(&layer, QStringLiteral("layer"));
    widget.setContent(&pane);
    manager.clear();

    layer.add(&figure, QRect(1, 2, 3, 4));

    QCOMPARE(manager.invalidFigures(), QList<Figure *>{&layer});
    QVERIFY(manager.dirtyRects(&figure).contains(QRect(1, 2, 3, 4)));
}

QTEST_MAIN(tst_FreeformWidgetContent)
#include "tst_freeformwidget_content.moc"
