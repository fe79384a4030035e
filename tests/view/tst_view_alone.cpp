#include "scene.h"

#include <countingfigure.h>
#include <pixels.h>

#include <figura/layout/StackLayout.h>
#include <figura/layout/XYLayout.h>

#include <QMimeData>
#include <QPrinter>
#include <QResizeEvent>
#include <QScreen>
#include <QStyleOptionViewItem>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

// A canvas without a viewer, a viewer without a canvas, and what else is usually there and may be
// missing.

namespace {

class OpenViewer : public FreeformViewer
{
public:
    using FreeformViewer::mousePressEvent;
    using FreeformViewer::resizeEvent;
    using FreeformViewer::scrollContentsBy;
};

/// A canvas that is a window of its own.
class LoneCanvas
{
public:
    LoneCanvas()
    {
        pane.addLayer(&layer, QStringLiteral("figures"));
        layer.add(&figure, QRect(0, 0, 400, 200));
        widget.setContent(&pane);
        widget.setMargins(0, 0);
        widget.resize(400, 300);
    }

    FreeformLayeredPane pane;
    FreeformLayer layer;
    Figure figure{nullptr, Qt::red};
    FreeformWidget widget{nullptr};
};

/// Does something once while it is validated.
class BusyFigure : public Figure
{
public:
    std::function<void()> act;

    void validate() override
    {
        if (const auto deed = std::exchange(act, nullptr))
            deed();
        Figure::validate();
    }
};

} // namespace

class tst_ViewAlone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void canvasWithoutAViewerIsZoomed();
    void canvasWithoutAViewerFitsItsContent();
    void canvasWithoutRoomKeepsItsScale();
    void canvasWithoutAViewerPaintsAfterAChange();
    void canvasWithoutAViewerPrints();
    void viewerWithoutACanvasMapsByItsScrollBars();
    void viewerWithoutACanvasDoesNothing();
    void missingEventsAreIgnored();
    void missingPrinterIsIgnored();
    void unknownLayerLeavesAnEmptyPage();
    void managerMayServeAnotherCanvas();
    void manyInvalidFiguresAreAllValidated();
    void passInsideAPassValidatesAtOnce();
    void layerWithAnotherLayoutMonitorsNothing();
    void gridNeedsAPainter();
    void pictureInsideAPaintIsWhole();
    void canvasThatWasTakenOutIsAWindow_data();
    void canvasThatWasTakenOutIsAWindow();
    void otherWidgetsAreScrolledAsInAnyScrollArea();
    void secondTurnNeedsAManagerWithAViewer_data();
    void secondTurnNeedsAManagerWithAViewer();
    void figureMayBeQueuedWhileItIsValidated();
};

void tst_ViewAlone::canvasWithoutAViewerIsZoomed()
{
    LoneCanvas canvas;

    QCOMPARE(canvas.widget.setScale(2.0), 2.0);

    QCOMPARE(canvas.widget.getScale(), 2.0);
    QVERIFY(canvas.widget.width() >= 800);
    QVERIFY(canvas.pane.getBounds().contains(QRect(0, 0, 400, 200)));
}

void tst_ViewAlone::canvasWithoutAViewerFitsItsContent()
{
    LoneCanvas canvas;
    canvas.layer.getLayoutManager()->setConstraint(&canvas.figure, QRect(0, 0, 800, 200));

    QCOMPARE(canvas.widget.setScale(-1.0), 0.5);

    QCOMPARE(canvas.widget.getScale(), 0.5);
}

void tst_ViewAlone::canvasWithoutRoomKeepsItsScale()
{
    LoneCanvas canvas;
    canvas.widget.setMinimumSize(0, 0);
    canvas.widget.resize(0, 0);

    QCOMPARE(canvas.widget.setScale(-1.0), 1.0);

    QCOMPARE(canvas.widget.getScale(), 1.0);
}

// All of a window counts as visible.
void tst_ViewAlone::canvasWithoutAViewerPaintsAfterAChange()
{
    FreeformViewer other;
    LoneCanvas canvas;
    canvas.widget.setUpdateManager(other.getUpdateManager());
    canvas.widget.ensureViewable(QRect(0, 0, 400, 300), false, true);
    canvas.widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas.widget));

    canvas.figure.setBackgroundColor(Qt::green);
    canvas.figure.repaint();
    const QImage image = canvas.widget.grab().toImage();

    QCOMPARE(colorAt(image, QPoint(10, 10)), QColor(Qt::green));
}

void tst_ViewAlone::canvasWithoutAViewerPrints()
{
    FreeformViewer other;
    LoneCanvas canvas;
    canvas.widget.setUpdateManager(other.getUpdateManager());
    canvas.widget.ensureViewable(QRect(0, 0, 400, 300), false, true);
    const QRect area(0, 0, 400, 200);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("page.pdf"));
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);

    canvas.widget.print(&printer, QStringLiteral("figures"), area);

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith("%PDF"));
    const QImage picture = canvas.widget.printToPixmap(QStringLiteral("figures"), area).toImage();
    QCOMPARE(picture.pixelColor(10, 10), QColor(Qt::red));
}

void tst_ViewAlone::viewerWithoutACanvasMapsByItsScrollBars()
{
    FreeformViewer viewer;
    delete viewer.widget();
    viewer.horizontalScrollBar()->setRange(0, 100);
    viewer.horizontalScrollBar()->setValue(30);

    QCOMPARE(viewer.toContent(QPointF(5, 6)), QPointF(35, 6));
    QCOMPARE(viewer.fromContent(QPointF(35, 6)), QPointF(5, 6));
    QCOMPARE(viewer.toContent(QRectF(5, 6, 7, 8)), QRectF(35, 6, 7, 8));
    QCOMPARE(viewer.fromContent(QRectF(35, 6, 7, 8)), QRectF(5, 6, 7, 8));
}

void tst_ViewAlone::viewerWithoutACanvasDoesNothing()
{
    OpenViewer viewer;
    viewer.resize(200, 150);
    delete viewer.widget();
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("page.pdf"));
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    QMimeData data;
    auto *manager = new UpdateManager(&viewer);

    viewer.print(&printer, QStringLiteral("figures"));
    viewer.copy(&data, QStringLiteral("figures"));
    viewer.copy(nullptr, QStringLiteral("figures"));
    viewer.setUpdateManager(manager);
    viewer.updateContentRect(QRect(0, 0, 10, 10));
    viewer.scrollContentsBy(3, 4);
    QResizeEvent event(QSize(300, 200), QSize(200, 150));
    viewer.resizeEvent(&event);

    QVERIFY(!QFile::exists(path));
    QVERIFY(!data.hasImage());
    QCOMPARE(viewer.getUpdateManager(), manager);
    QCOMPARE(manager->getViewer(), static_cast<IFigureViewer *>(&viewer));
    QCOMPARE(viewer.getScale(), 1.0);
}

void tst_ViewAlone::missingEventsAreIgnored()
{
    OpenViewer viewer;
    const QPoint before = viewer.getLastClickLocation();

    viewer.mousePressEvent(nullptr);
    viewer.resizeEvent(nullptr);

    QCOMPARE(viewer.getLastClickLocation(), before);
}

void tst_ViewAlone::missingPrinterIsIgnored()
{
    Scene scene;
    Figure figure(nullptr, Qt::red);
    scene.layer.add(&figure, QRect(0, 0, 10, 10));
    figure.revalidate();

    scene.viewer.print(nullptr, QStringLiteral("figures"));

    QVERIFY(!figure.getFlag(Figure::FLAG_VALID)); // nothing was even validated for it
}

void tst_ViewAlone::unknownLayerLeavesAnEmptyPage()
{
    Scene scene;
    CountingFigure figure(nullptr, Qt::red);
    scene.layer.add(&figure, QRect(0, 0, 10, 10));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("page.pdf"));
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);

    scene.viewer.print(&printer, QStringLiteral("unknown"), QRect(0, 0, 100, 100));

    QVERIFY(QFile::exists(path));
    QCOMPARE(figure.calls().drawFigure, 0);
}

void tst_ViewAlone::managerMayServeAnotherCanvas()
{
    FreeformViewer first;
    FreeformViewer second;
    FreeformWidget *canvas = qobject_cast<FreeformWidget *>(first.widget());
    FreeformWidget *other = qobject_cast<FreeformWidget *>(second.widget());
    UpdateManager *shared = first.getUpdateManager();
    other->setUpdateManager(shared);

    canvas->setUpdateManager(nullptr);

    QCOMPARE(canvas->getUpdateManager(), nullptr);
    QCOMPARE(other->getUpdateManager(), shared);
}

// More than are kept without a look for those that have gone.
void tst_ViewAlone::manyInvalidFiguresAreAllValidated()
{
    Scene scene;
    std::vector<std::unique_ptr<FreeformLayer>> layers;
    for (int i = 0; i < 300; ++i) {
        layers.push_back(std::make_unique<FreeformLayer>());
        layers.back()->setBounds(QRect(0, 0, 10, 10));
        scene.pane.addLayer(layers.back().get(), QString::number(i));
    }
    scene.viewer.getUpdateManager()->performUpdate();
    for (const auto &layer : layers)
        layer->revalidate();
    for (int i = 0; i < 100; ++i)
        layers[std::size_t(i)].reset();
    for (std::size_t i = 100; i < layers.size(); ++i)
        layers[i]->revalidate();

    scene.viewer.getUpdateManager()->performUpdate();

    for (std::size_t i = 100; i < layers.size(); ++i)
        QVERIFY(layers[i]->getFlag(Figure::FLAG_VALID));
}

void tst_ViewAlone::passInsideAPassValidatesAtOnce()
{
    Scene scene;
    FreeformLayer upper;
    scene.pane.addLayer(&upper, QStringLiteral("upper"));
    BusyFigure figure;
    Figure waiting;
    scene.layer.add(&figure, QRect(0, 0, 10, 10));
    upper.add(&waiting, QRect(20, 0, 10, 10));
    scene.viewer.getUpdateManager()->performUpdate();
    figure.revalidate();
    waiting.revalidate();
    bool isValidInside = false;
    figure.act = [&] {
        scene.viewer.getUpdateManager()->performUpdate();
        isValidInside = waiting.getFlag(Figure::FLAG_VALID);
    };

    scene.viewer.getUpdateManager()->performUpdate();

    QVERIFY(isValidInside);
    QVERIFY(figure.getFlag(Figure::FLAG_VALID));
}

void tst_ViewAlone::layerWithAnotherLayoutMonitorsNothing()
{
    FreeformLayer layer;
    delete layer.setLayoutManager(new XYLayout(&layer));

    layer.setContentMonitored(true);
    QVERIFY(!layer.isContentMonitored());
    delete layer.setLayoutManager(new FreeformLayout(&layer, false));
    QVERIFY(!layer.isContentMonitored());
    layer.setContentMonitored(true);

    QVERIFY(layer.isContentMonitored());
}

void tst_ViewAlone::gridNeedsAPainter()
{
    class OpenPane : public FreeformLayeredPane
    {
    public:
        using FreeformLayeredPane::drawMainGrid;
        using FreeformLayeredPane::drawSubGrid;
    };
    OpenPane pane;
    pane.setDrawGrid(true);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 60, 60);

    pane.drawMainGrid(nullptr, option);
    pane.drawSubGrid(nullptr, option);
    const QImage image =
        paintedImage(QSize(60, 60), [&](QPainter *painter) { pane.drawMainGrid(painter, option); });

    QVERIFY(countPixels(image, Qt::gray) > 0);
}

// Only the outer painter is bound to what is damaged.
void tst_ViewAlone::pictureInsideAPaintIsWhole()
{
    class Photographer : public Figure
    {
    public:
        Figure *subject = nullptr;
        mutable QImage photograph;

    protected:
        void drawFigure(QPainter *, const QStyleOptionViewItem &) const override
        {
            QStyleOptionViewItem option;
            option.rect = QRect(0, 0, 100, 100);
            photograph = paintedImage(QSize(100, 100),
                                      [&](QPainter *painter) { subject->render(painter, option); });
        }
    };
    Figure subject(nullptr, Qt::white);
    subject.setLayoutManager(new XYLayout(&subject));
    subject.setBounds(QRect(0, 0, 100, 100));
    for (int i = 0; i < 100; ++i) { // so many that they are looked up
        auto *child = new Figure(&subject, Qt::blue);
        subject.add(child, QRect(i % 10 * 10, i / 10 * 10, 2, 2));
    }
    Scene scene;
    Photographer photographer;
    photographer.subject = &subject;
    scene.layer.add(&photographer, QRect(0, 0, 100, 100));
    QVERIFY(scene.show());

    photographer.photograph = QImage();
    photographer.repaint(QRect(0, 0, 5, 5));
    photographer.repaint(QRect(90, 90, 5, 5));
    settle(&scene.viewer);

    QCOMPARE(countPixels(photographer.photograph, Qt::blue), 400);
}

void tst_ViewAlone::canvasThatWasTakenOutIsAWindow_data()
{
    QTest::addColumn<bool>("hasParent");
    QTest::newRow("of its own") << false;
    QTest::newRow("of the viewer") << true;
}

// Where it lies has nothing to do with what a parent shows.
void tst_ViewAlone::canvasThatWasTakenOutIsAWindow()
{
    QFETCH(bool, hasParent);
    Scene scene;
    Figure figure(nullptr, Qt::red);
    scene.layer.add(&figure, QRect(0, 0, 50, 50));
    QVERIFY(scene.show());
    const QPoint inside = scene.widget()->fromLogical(QPointF(10, 10)).toPoint();
    const std::unique_ptr<QWidget> canvas(scene.viewer.takeWidget());
    if (hasParent)
        canvas->setParent(&scene.viewer, Qt::Window);
    canvas->move(450, 350);
    canvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(canvas.get()));
    settle(canvas.get());

    figure.setBackgroundColor(Qt::green);
    figure.repaint();
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(canvas.get(), &update);
    }

    const QImage shown = canvas->screen()->grabWindow(canvas->winId()).toImage();
    QCOMPARE(colorAt(shown, inside), QColor(Qt::green));
}

void tst_ViewAlone::otherWidgetsAreScrolledAsInAnyScrollArea()
{
    Scene scene;
    QVERIFY(scene.show());
    auto *other = new QWidget;
    scene.viewer.setWidget(other);

    other->resize(1400, 1300);

    QCOMPARE(scene.horizontalBar()->maximum(), 1400 - scene.viewer.viewport()->width());
    QCOMPARE(scene.verticalBar()->maximum(), 1300 - scene.viewer.viewport()->height());
}

void tst_ViewAlone::secondTurnNeedsAManagerWithAViewer_data()
{
    QTest::addColumn<bool>("hasManager");
    QTest::newRow("no manager") << false;
    QTest::newRow("a manager without a viewer") << true;
}

// What becomes stale during a pass waits for another one, which nobody may be there to make.
void tst_ViewAlone::secondTurnNeedsAManagerWithAViewer()
{
    QFETCH(bool, hasManager);
    Scene scene;
    Figure figure;
    BusyFigure busy;
    scene.layer.add(&figure, QRect(0, 0, 10, 10));
    scene.layer.add(&busy, QRect(20, 0, 10, 10));
    scene.viewer.getUpdateManager()->performUpdate();
    busy.act = [&] { figure.revalidate(); };
    busy.revalidate();
    scene.viewer.getUpdateManager()->performUpdate();
    QVERIFY(!figure.getFlag(Figure::FLAG_VALID));

    if (hasManager) {
        scene.viewer.getUpdateManager()->setViewer(nullptr);
        for (int i = 0; i < 3; ++i)
            QTest::ignoreMessage(QtWarningMsg,
                                 "UpdateManager::addInvalidFigure(): no managed widget");
        for (int i = 0; i < 2; ++i)
            QTest::ignoreMessage(QtWarningMsg,
                                 "UpdateManager::addDirtyRegion(): no managed widget");
    } else {
        scene.widget()->setUpdateManager(nullptr);
    }
    QCoreApplication::processEvents();

    QVERIFY(!figure.getFlag(Figure::FLAG_VALID));
}

void tst_ViewAlone::figureMayBeQueuedWhileItIsValidated()
{
    Scene scene;
    BusyFigure busy;
    scene.layer.add(&busy, QRect(20, 0, 10, 10));
    UpdateManager *manager = scene.viewer.getUpdateManager();
    manager->performUpdate();
    busy.act = [&] {
        manager->addInvalidFigure(&busy);
        manager->addInvalidFigure(&scene.layer);
    };
    busy.revalidate();

    manager->performUpdate();
    QCoreApplication::processEvents();

    QVERIFY(busy.getFlag(Figure::FLAG_VALID));
    QVERIFY(scene.layer.getFlag(Figure::FLAG_VALID));
}

QTEST_MAIN(tst_ViewAlone)
#include "tst_view_alone.moc"
