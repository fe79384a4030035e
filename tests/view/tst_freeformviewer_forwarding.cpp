#include "scene.h"

#include <figura/layout/PageLayout.h>

#include <recordingupdatemanager.h>

#include <QMimeData>
#include <QPixmap>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

constexpr const char *refusal =
    "FreeformWidget::setContent(): assigned content not a FreeformedLayeredPane";

class EmptyPage : public PageLayout
{
public:
    void decoratePage(QPainter *, const QVariant &) override {}
};

void runDeferredDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A pane with one layer, "sheet", that holds another freeform layer of 30 x 20 units.
struct Document
{
    Document()
    {
        pane.addLayer(&layer, QStringLiteral("sheet"));
        layer.add(&inner);
        inner.add(&figure, QRect(0, 0, 30, 20));
        viewer.setContent(&pane);
        pane.setFreeformBounds(QRect(-100, -100, 500, 500));
        inner.setFreeformBounds(QRect(-100, -100, 500, 500));
    }

    FreeformLayeredPane pane;
    FreeformLayer layer;
    FreeformLayer inner;
    Figure figure{nullptr, Qt::red};
    FreeformViewer viewer;
};

QImage imageOf(const QMimeData &data)
{
    return data.imageData().value<QPixmap>().toImage();
}

} // namespace

class tst_FreeformViewerForwarding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void viewerComesWithWidgetAndUpdateManagerWiredTogether();
    void viewerStandsInTheDark();
    void viewerDestroysItsWidgetAndUpdateManager();
    void managerTakenOverByAnotherViewerStaysWithIt();
    void viewerIsItsOwnViewport();

    void newUpdateManagerReplacesTheFormerOne();
    void nullUpdateManagerOnlyDropsTheFormerOne();
    void updateManagerInUseIsDeletedWhenSetAgain();
    void updateManagerMayBeSetAfterNull();
    void queueOfReplacedUpdateManagerIsDropped();

    void contentIsThatOfTheWidget();
    void otherContentIsRefused();
    void extentHandlingIsForwarded();
    void marginsAreForwarded();
    void scaleIsThatOfTheWidget();
    void highlightIsForwarded();
    void elasticBandIsThatOfTheWidget();
    void viewerWithoutItsWidgetHasScaleOneAndKeepsNoBand();
    void pageLayoutIsStored();
    void destroyedPageLayoutIsForgotten();

    void pageStepsAreThoseOfTheScrollBars();
    void pageStepOfAnyOtherOrientationIsZero_data();
    void pageStepOfAnyOtherOrientationIsZero();
    void viewportIsResizedWithTheViewer();
    void updateAndRepaintAreThoseOfTheWidget();
    void updateOfARectangleIsThatOfTheFrame();

    void copyStoresThePictureOfTheLayer();
    void copyOfARectangleAddsTheMargins();
    void copyOfNothingStoresNoPicture();
    void copyWithoutMimeDataIsIgnored();
};

void tst_FreeformViewerForwarding::viewerComesWithWidgetAndUpdateManagerWiredTogether()
{
    FreeformViewer viewer;
    auto *widget = qobject_cast<FreeformWidget *>(viewer.widget());

    QVERIFY(widget);
    QVERIFY(viewer.getUpdateManager());
    QCOMPARE(viewer.getUpdateManager()->parent(), &viewer);
    QCOMPARE(viewer.getUpdateManager()->getViewer(), static_cast<IFigureViewer *>(&viewer));
    QCOMPARE(widget->getUpdateManager(), viewer.getUpdateManager());
    QCOMPARE(viewer.getContent(), nullptr);
    QCOMPARE(viewer.getPageLayout(), nullptr);
    QCOMPARE(widget->windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::Widget));
}

void tst_FreeformViewerForwarding::viewerStandsInTheDark()
{
    FreeformViewer viewer;

    QCOMPARE(viewer.backgroundRole(), QPalette::Dark);
    QCOMPARE(viewer.widget()->backgroundRole(), QPalette::Base);
}

void tst_FreeformViewerForwarding::viewerDestroysItsWidgetAndUpdateManager()
{
    auto viewer = std::make_unique<FreeformViewer>();
    const QPointer<QWidget> widget = viewer->widget();
    const QPointer<UpdateManager> manager = viewer->getUpdateManager();

    viewer.reset();

    QVERIFY(widget.isNull());
    QVERIFY(manager.isNull());
}

void tst_FreeformViewerForwarding::managerTakenOverByAnotherViewerStaysWithIt()
{
    UpdateManager manager;
    FreeformViewer next;
    auto former = std::make_unique<FreeformViewer>();
    former->setUpdateManager(&manager);
    next.setUpdateManager(&manager);

    former.reset();

    QCOMPARE(manager.getViewer(), static_cast<IFigureViewer *>(&next));
}

void tst_FreeformViewerForwarding::viewerIsItsOwnViewport()
{
    FreeformViewer viewer;

    QCOMPARE(viewer.getViewport(), static_cast<IViewport *>(&viewer));
}

void tst_FreeformViewerForwarding::newUpdateManagerReplacesTheFormerOne()
{
    Scene scene;
    const QPointer<UpdateManager> former = scene.viewer.getUpdateManager();
    UpdateManager manager;

    scene.viewer.setUpdateManager(&manager);

    QCOMPARE(scene.viewer.getUpdateManager(), &manager);
    QCOMPARE(scene.widget()->getUpdateManager(), &manager);
    QCOMPARE(scene.pane.getUpdateManager(), &manager);
    QCOMPARE(manager.getViewer(), static_cast<IFigureViewer *>(&scene.viewer));
    QVERIFY(!former.isNull());
    runDeferredDeletes();
    QVERIFY(former.isNull());
}

void tst_FreeformViewerForwarding::nullUpdateManagerOnlyDropsTheFormerOne()
{
    FreeformViewer viewer;
    auto *widget = qobject_cast<FreeformWidget *>(viewer.widget());
    const QPointer<UpdateManager> former = viewer.getUpdateManager();

    viewer.setUpdateManager(nullptr);

    QCOMPARE(viewer.getUpdateManager(), nullptr);
    QCOMPARE(widget->getUpdateManager(), former.data());
    runDeferredDeletes();
    QVERIFY(former.isNull());
}

// There is no test for the same one, on purpose: callers must not do this.
void tst_FreeformViewerForwarding::updateManagerInUseIsDeletedWhenSetAgain()
{
    FreeformViewer viewer;
    const QPointer<UpdateManager> manager = viewer.getUpdateManager();

    viewer.setUpdateManager(manager);

    QCOMPARE(viewer.getUpdateManager(), manager.data());
    runDeferredDeletes();
    QVERIFY(manager.isNull());
}

void tst_FreeformViewerForwarding::updateManagerMayBeSetAfterNull()
{
    Scene scene;
    UpdateManager manager;
    scene.viewer.setUpdateManager(nullptr);
    runDeferredDeletes();

    scene.viewer.setUpdateManager(&manager);

    QCOMPARE(scene.viewer.getUpdateManager(), &manager);
    QCOMPARE(scene.pane.getUpdateManager(), &manager);
}

void tst_FreeformViewerForwarding::queueOfReplacedUpdateManagerIsDropped()
{
    Scene scene;
    RecordingUpdateManager manager;
    scene.layer.revalidate();

    scene.viewer.setUpdateManager(&manager);

    QVERIFY(manager.requests().isEmpty());
    scene.widget()->grab();
    QVERIFY(!scene.layer.getFlag(Figure::FLAG_VALID));
}

void tst_FreeformViewerForwarding::contentIsThatOfTheWidget()
{
    FreeformLayeredPane pane;
    FreeformViewer viewer;
    IViewport *viewport = &viewer;

    QVERIFY(viewport->setContent(&pane));

    QCOMPARE(viewport->getContent(), &pane);
    QCOMPARE(qobject_cast<FreeformWidget *>(viewer.widget())->getContent(), &pane);
}

void tst_FreeformViewerForwarding::otherContentIsRefused()
{
    Figure figure;
    FreeformViewer viewer;

    QTest::ignoreMessage(QtWarningMsg, refusal);
    QVERIFY(!viewer.setContent(&figure));

    QCOMPARE(viewer.getContent(), nullptr);
}

void tst_FreeformViewerForwarding::extentHandlingIsForwarded()
{
    Scene scene;
    QVERIFY(scene.viewer.extentHandlingEnabled());

    scene.viewer.enableExtentHandling(false);
    QVERIFY(!scene.widget()->extentHandlingEnabled());
    QVERIFY(!scene.viewer.extentHandlingEnabled());
    scene.widget()->enableExtentHandling(true);
    QVERIFY(scene.viewer.extentHandlingEnabled());
}

void tst_FreeformViewerForwarding::marginsAreForwarded()
{
    Scene scene;

    scene.viewer.setXYMargins(-5, 10);

    QCOMPARE(scene.widget()->getXMargin(), 0);
    QCOMPARE(scene.widget()->getYMargin(), 10);
}

void tst_FreeformViewerForwarding::scaleIsThatOfTheWidget()
{
    Scene scene;
    scene.pane.extent = QRect(0, 0, 600, 400);

    scene.widget()->setScale(3);

    QCOMPARE(scene.viewer.getScale(), 3.0);
}

void tst_FreeformViewerForwarding::highlightIsForwarded()
{
    Scene scene;

    scene.viewer.setHighlighted(true);
    scene.viewer.setHighlightStyle(1);

    QVERIFY(scene.widget()->isHighlighted());
    QCOMPARE(scene.widget()->getHighlightStyle(), 1);
}

void tst_FreeformViewerForwarding::elasticBandIsThatOfTheWidget()
{
    Scene scene;
    IFigureViewer *viewer = &scene.viewer;

    viewer->elasticBand() = QRect(1, 2, 3, 4);

    QCOMPARE(&viewer->elasticBand(), &scene.widget()->elasticBand());
    QCOMPARE(scene.widget()->elasticBand(), QRect(1, 2, 3, 4));
}

void tst_FreeformViewerForwarding::viewerWithoutItsWidgetHasScaleOneAndKeepsNoBand()
{
    FreeformViewer viewer;
    delete viewer.takeWidget();

    viewer.elasticBand() = QRect(10, 20, 30, 40);

    QVERIFY(viewer.elasticBand().isNull());
    QCOMPARE(viewer.getScale(), 1.0);
}

void tst_FreeformViewerForwarding::pageLayoutIsStored()
{
    EmptyPage page;
    FreeformViewer viewer;

    viewer.setPageLayout(&page);
    QCOMPARE(viewer.getPageLayout(), &page);
    viewer.setPageLayout(nullptr);
    QCOMPARE(viewer.getPageLayout(), nullptr);
}

void tst_FreeformViewerForwarding::destroyedPageLayoutIsForgotten()
{
    FreeformViewer viewer;
    auto page = std::make_unique<EmptyPage>();
    viewer.setPageLayout(page.get());

    page.reset();

    QCOMPARE(viewer.getPageLayout(), nullptr);
}

void tst_FreeformViewerForwarding::pageStepsAreThoseOfTheScrollBars()
{
    FreeformViewer viewer;
    viewer.horizontalScrollBar()->setPageStep(123);
    viewer.verticalScrollBar()->setPageStep(45);

    QCOMPARE(viewer.getPageStep(Qt::Horizontal), 123);
    QCOMPARE(viewer.getPageStep(Qt::Vertical), 45);
}

void tst_FreeformViewerForwarding::pageStepOfAnyOtherOrientationIsZero_data()
{
    QTest::addColumn<int>("orientation");
    QTest::newRow("none") << 0;
    QTest::newRow("both") << 3;
    QTest::newRow("more") << 4;
}

void tst_FreeformViewerForwarding::pageStepOfAnyOtherOrientationIsZero()
{
    QFETCH(int, orientation);
    FreeformViewer viewer;

    QCOMPARE(viewer.getPageStep(Qt::Orientation(orientation)), 0);
}

void tst_FreeformViewerForwarding::viewportIsResizedWithTheViewer()
{
    FreeformViewer viewer;
    viewer.show();
    QVERIFY(QTest::qWaitForWindowExposed(&viewer));
    IViewport *viewport = &viewer;

    viewport->resizeViewport(QSize(432, 321));

    QCOMPARE(viewer.size(), QSize(432, 321));
    QCOMPARE(viewer.viewport()->size(), QSize(432, 321));
}

void tst_FreeformViewerForwarding::updateAndRepaintAreThoseOfTheWidget()
{
    Scene scene;
    QVERIFY(scene.show());
    EventCounter paints(scene.widget(), QEvent::Paint);
    EventCounter framePaints(&scene.viewer, QEvent::Paint);
    IViewport *viewport = &scene.viewer;

    viewport->repaint();
    QCOMPARE(paints.count, 1);
    viewport->update();
    QCOMPARE(paints.count, 1);
    QTRY_COMPARE(paints.count, 2);

    QCOMPARE(framePaints.count, 0);
}

void tst_FreeformViewerForwarding::updateOfARectangleIsThatOfTheFrame()
{
    Scene scene;
    scene.viewer.setFrameStyle(QFrame::Box | QFrame::Plain);
    QVERIFY(scene.show());
    EventCounter framePaints(&scene.viewer, QEvent::Paint);

    scene.viewer.repaint(QRect(0, 0, 1, 1));

    QCOMPARE(framePaints.count, 1);
}

void tst_FreeformViewerForwarding::copyStoresThePictureOfTheLayer()
{
    Document document;
    QMimeData data;

    document.viewer.copy(&data, QStringLiteral("sheet"));

    QVERIFY(data.hasImage());
    QCOMPARE(imageOf(data).size(), QSize(130, 120));
    QCOMPARE(imageOf(data).pixelColor(50, 50), QColor(Qt::red));
    QCOMPARE(imageOf(data).pixelColor(49, 50),
             document.viewer.widget()->palette().color(QPalette::Base));
}

void tst_FreeformViewerForwarding::copyOfARectangleAddsTheMargins()
{
    Document document;
    QMimeData data;
    document.viewer.setXYMargins(1, 2);

    document.viewer.copy(&data, QStringLiteral("sheet"), QRect(20, 10, 100, 50));

    QCOMPARE(imageOf(data).size(), QSize(102, 54));
    QCOMPARE(imageOf(data).pixelColor(10, 11), QColor(Qt::red));
}

void tst_FreeformViewerForwarding::copyOfNothingStoresNoPicture()
{
    Document document;
    QMimeData data;

    document.viewer.copy(&data, QStringLiteral("other"));

    QVERIFY(imageOf(data).isNull());
}

void tst_FreeformViewerForwarding::copyWithoutMimeDataIsIgnored()
{
    Document document;

    document.viewer.copy(nullptr, QStringLiteral("sheet"));

    QVERIFY(!document.pane.getFlag(Figure::FLAG_VALID)); // nothing was validated to be painted
}

QTEST_MAIN(tst_FreeformViewerForwarding)
#include "tst_freeformviewer_forwarding.moc"
