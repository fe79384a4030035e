#include "graphfixtures.h"

#include "scene/EdgeConnection.h"
#include "scene/GraphScene.h"
#include "window/GraphView.h"
#include "window/GraphWindow.h"
#include "window/PictureExport.h"
#include "window/WindowActions.h"

#include <figura/view/FreeformWidget.h>

#include <pixels.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QStatusBar>
#include <QToolBar>
#include <QWheelEvent>

using namespace GraphViewer;
using Velmora::Figura::Test::colorAt;
using Kind = ElementFigure::Kind;

namespace {

const QByteArray flow = "digraph flow { subgraph cluster_x { label=Stage; mill } mine -> mill; "
                        "mill -> \"shop\" [label=\"by road\"] }";

QByteArray largeGraph()
{
    QByteArray text = "digraph large { node [shape=box];";
    for (int i = 1; i < 60; ++i)
        text += " n" + QByteArray::number(i / 3) + " -> n" + QByteArray::number(i) + ";";
    return text + " }";
}

void wheel(GraphView *view, const QPoint &position, int notches, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(position, view->viewport()->mapToGlobal(position), QPoint(),
                      QPoint(0, 120 * notches), Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view->viewport(), &event);
}

void drop(GraphWindow *window, const QList<QUrl> &urls, bool *accepted)
{
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(200, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &enter);
    *accepted = enter.isAccepted();
    if (!*accepted)
        return;
    QDropEvent event(QPointF(200, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &event);
}

double distance(const QPointF &a, const QPointF &b)
{
    return qMax(qAbs(a.x() - b.x()), qAbs(a.y() - b.y()));
}

} // namespace

class tst_GraphWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void aGraphIsShownWithItsNumbers();
    void aLargeGraphIsShownAsAWholeButASmallOneIsNotMagnified();
    void theWheelScrolls();
    void ctrlWheelZoomsAboutTheCursor_data();
    void ctrlWheelZoomsAboutTheCursor();
    void aZoomedPictureIsPaintedAtThePlaceUnderTheCursor();
    void zoomingHasLimits();
    void draggingMovesThePaper();
    void shortcutsZoom_data();
    void shortcutsZoom();
    void theScaleIsInTheStatusBar();
    void theTitleOfTheElementUnderTheMouseIsInTheStatusBar();
    void leavingTheCanvasPutsTheLightOut();
    void openingAnotherFileForgetsTheElementUnderTheMouse();
    void theGridIsShownAndHiddenAndStays();
    void theGridGetsCoarserWhenZoomedOut();
    void anEngineOfTheMenuLaysOutAnew();
    void aRoutingOfTheMenuIsKeptForTheNextGraph();
    void aDroppedFileIsOpened();
    void whatIsNoSingleFileCannotBeDropped();
    void aFileThatCannotBeShownIsAMessageAndChangesNothing();
    void aRemarkOfTheEngineCanBeRead();
    void escapeStopsLayingOut();
    void withoutAGraphThereIsNothingToPrint();
    void aPdfHoldsTheGraph();
    void aPdfThatCannotBeWrittenIsAMessage();
    void theCopiedPictureIsTheGraph();
    void theLightOfTheMouseIsNoPartOfThePicture();
    void aGraphTooLargeForAPictureIsNotCopied();

private:
    void open(const QByteArray &text, const QString &name = QStringLiteral("graph.gv"));
    ElementFigure *element(const QString &title) const;
    Element *edge(const QString &title) const;
    QPoint place(Element *element) const;
    void hover(const QPoint &point) const;
    void press(const QString &keys) const;
    GraphView *view() const { return m_window->view(); }
    QString label(const char *name) const
    {
        return m_window->findChild<QLabel *>(QLatin1String(name))->text();
    }

    GraphFixtures::Folder m_folder;
    std::unique_ptr<GraphWindow> m_window;
};

void tst_GraphWindow::init()
{
    // Qt's offscreen platform says so of every window with a minimum size.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!.*propagateSizeHints)")));
    m_window = std::make_unique<GraphWindow>();
    m_window->layoutProcess().setProgram(QStringLiteral(GRAPH_VIEWER));
    m_window->resize(800, 600);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_window->activateWindow();
}

void tst_GraphWindow::open(const QByteArray &text, const QString &name)
{
    const QSignalSpy opened(m_window.get(), &GraphWindow::opened);
    m_window->openFile(m_folder.write(name, text));
    QTRY_COMPARE_WITH_TIMEOUT(opened.size(), 1, 60'000);
}

ElementFigure *tst_GraphWindow::element(const QString &title) const
{
    for (Kind kind : {Kind::Cluster, Kind::Node, Kind::Label}) {
        for (ElementFigure *candidate : view()->scene()->elements(kind)) {
            if (candidate->title() == title)
                return candidate;
        }
    }
    qFatal("nothing is called %s", qPrintable(title));
}

Element *tst_GraphWindow::edge(const QString &title) const
{
    for (EdgeConnection *candidate : view()->scene()->edges()) {
        if (candidate->title() == title)
            return candidate;
    }
    qFatal("no edge is called %s", qPrintable(title));
}

// In the coordinates of the canvas, which is what the mouse is over.
QPoint tst_GraphWindow::place(Element *element) const
{
    return view()->canvas()->fromLogical(QPointF(element->absoluteRect().center())).toPoint();
}

// Qt leaves out a move to where the mouse has been last, which may be in an earlier window.
void tst_GraphWindow::hover(const QPoint &point) const
{
    QTest::mouseMove(view()->canvas(), point + QPoint(1, 1));
    QTest::mouseMove(view()->canvas(), point);
}

void tst_GraphWindow::press(const QString &keys) const
{
    QTest::keySequence(m_window.get(), QKeySequence(keys));
}

void tst_GraphWindow::aGraphIsShownWithItsNumbers()
{
    open(flow, QStringLiteral("flow.gv"));

    QCOMPARE(m_window->windowTitle(), QStringLiteral("flow.gv - Graph viewer"));
    QCOMPARE(label("summary"), QStringLiteral("dot, 3 nodes, 2 edges"));
    const QRect shown = view()->fromContent(view()->scene()->area());
    QVERIFY(view()->viewport()->rect().contains(shown));
}

void tst_GraphWindow::aLargeGraphIsShownAsAWholeButASmallOneIsNotMagnified()
{
    open(flow);
    QCOMPARE(view()->getScale(), 1.0);

    open(largeGraph());
    QVERIFY(view()->getScale() < 0.7);
    const QRect shown = view()->fromContent(view()->scene()->area());
    QVERIFY(view()->viewport()->rect().contains(shown));
}

void tst_GraphWindow::theWheelScrolls()
{
    open(largeGraph());
    view()->setScale(3);
    view()->verticalScrollBar()->setValue(0);
    const double scale = view()->getScale();

    wheel(view(), QPoint(300, 300), -1, Qt::NoModifier);

    QVERIFY(view()->verticalScrollBar()->value() > 0);
    QCOMPARE(view()->getScale(), scale);
}

void tst_GraphWindow::ctrlWheelZoomsAboutTheCursor_data()
{
    QTest::addColumn<QPoint>("cursor");
    QTest::addColumn<int>("notches");
    QTest::addColumn<double>("from");
    QTest::newRow("in at the centre") << QPoint(400, 250) << 1 << 1.0;
    QTest::newRow("in at a corner") << QPoint(3, 4) << 1 << 1.0;
    QTest::newRow("in from afar") << QPoint(611, 77) << 5 << 0.3;
    QTest::newRow("in from close by") << QPoint(123, 345) << 2 << 11.0;
    QTest::newRow("out") << QPoint(700, 100) << -1 << 1.0;
    QTest::newRow("out from close by") << QPoint(77, 400) << -3 << 20.0;
    QTest::newRow("out to afar") << QPoint(500, 400) << -8 << 1.0;
}

void tst_GraphWindow::ctrlWheelZoomsAboutTheCursor()
{
    QFETCH(QPoint, cursor);
    QFETCH(int, notches);
    QFETCH(double, from);
    open(largeGraph());
    view()->setScale(from);
    const double scale = view()->getScale();

    for (int i = 0; i < qAbs(notches); ++i) {
        const QPointF before = view()->toContent(QPointF(cursor));
        wheel(view(), cursor, notches > 0 ? 1 : -1, Qt::ControlModifier);
        const QPointF after = view()->fromContent(before);
        QVERIFY2(distance(after, cursor) <= 1,
                 qPrintable(QString::number(distance(after, cursor))));
    }

    QCOMPARE(view()->getScale(), scale * std::pow(1.25, notches));
}

void tst_GraphWindow::aZoomedPictureIsPaintedAtThePlaceUnderTheCursor()
{
    open("graph { a [shape=box, style=filled, fillcolor=\"#12ab34\", label=\"\"] "
         "b [shape=box, style=filled, fillcolor=\"#ab1234\", label=\"\"] }");
    const QPoint cursor = view()->fromContent(QPoint(117, 18)); // the middle of b
    const QColor color(0xab, 0x12, 0x34);
    QCOMPARE(colorAt(view()->viewport()->grab().toImage(), cursor), color);

    for (int i = 0; i < 8; ++i)
        wheel(view(), cursor, 1, Qt::ControlModifier);
    QCOMPARE(colorAt(view()->viewport()->grab().toImage(), cursor), color);

    for (int i = 0; i < 12; ++i)
        wheel(view(), cursor, -1, Qt::ControlModifier);
    QCOMPARE(colorAt(view()->viewport()->grab().toImage(), cursor), color);
}

void tst_GraphWindow::zoomingHasLimits()
{
    open(flow);

    wheel(view(), QPoint(300, 200), 100, Qt::ControlModifier);
    QCOMPARE(view()->getScale(), 32.0);

    wheel(view(), QPoint(300, 200), -200, Qt::ControlModifier);
    QCOMPARE(view()->getScale(), 0.002);
}

void tst_GraphWindow::draggingMovesThePaper()
{
    open(largeGraph());
    view()->setScale(3);
    const QPointF held = view()->toContent(QPointF(400, 200));
    QWidget *canvas = view()->canvas();
    const auto onCanvas = [this, canvas](const QPoint &point) {
        return canvas->mapFrom(view()->viewport(), point);
    };

    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, onCanvas(QPoint(400, 200)));
    QTest::mouseMove(canvas, onCanvas(QPoint(340, 160)));
    QCOMPARE(view()->cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, onCanvas(QPoint(340, 160)));

    QVERIFY(distance(view()->fromContent(held), QPointF(340, 160)) <= 1);
    QCOMPARE(view()->cursor().shape(), Qt::ArrowCursor);
}

void tst_GraphWindow::shortcutsZoom_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("expected");
    QTest::newRow("in") << "Ctrl++" << 2.0 << 2.5;
    QTest::newRow("in without shift") << "Ctrl+=" << 2.0 << 2.5;
    QTest::newRow("out") << "Ctrl+-" << 2.5 << 2.0;
    QTest::newRow("100 %") << "Ctrl+1" << 3.0 << 1.0;
}

void tst_GraphWindow::shortcutsZoom()
{
    QFETCH(QString, keys);
    QFETCH(double, from);
    QFETCH(double, expected);
    open(flow);
    view()->setScale(from);

    press(keys);

    QCOMPARE(view()->getScale(), expected);
}

void tst_GraphWindow::theScaleIsInTheStatusBar()
{
    open(flow);
    view()->setScale(2.5);
    QCOMPARE(label("scale"), QStringLiteral("250 %"));

    press(QStringLiteral("Ctrl+0"));

    QVERIFY(view()->getScale() > 1); // fits also what is small
    QCOMPARE(label("scale"), QStringLiteral("%1 %").arg(100 * view()->getScale(), 0, 'g', 3));
    const QRect shown = view()->fromContent(view()->scene()->area());
    QVERIFY(view()->viewport()->rect().contains(shown));
}

void tst_GraphWindow::theTitleOfTheElementUnderTheMouseIsInTheStatusBar()
{
    open(flow);
    QWidget *canvas = view()->canvas();
    ElementFigure *cluster = element(QStringLiteral("cluster_x: Stage"));
    const QPoint inCluster =
        canvas->rect().topLeft() +
        view()->canvas()->fromLogical(QPointF(cluster->getBounds().topLeft())).toPoint() +
        QPoint(5, 5);

    hover(place(element(QStringLiteral("mine"))));
    QTRY_COMPARE(m_window->statusBar()->currentMessage(), QStringLiteral("mine"));
    QVERIFY(element(QStringLiteral("mine"))->isClientAreaHighlighted());

    hover(inCluster);
    QTRY_COMPARE(m_window->statusBar()->currentMessage(), QStringLiteral("cluster_x: Stage"));
    QVERIFY(!element(QStringLiteral("mine"))->isClientAreaHighlighted());

    hover(place(edge(QStringLiteral("mine -> mill"))));
    QTRY_COMPARE(m_window->statusBar()->currentMessage(), QStringLiteral("mine -> mill"));

    hover(QPoint(1, 1));
    QTRY_COMPARE(m_window->statusBar()->currentMessage(), QString());
}

void tst_GraphWindow::leavingTheCanvasPutsTheLightOut()
{
    open(flow);
    ElementFigure *mine = element(QStringLiteral("mine"));
    hover(place(mine));
    QTRY_VERIFY(mine->isClientAreaHighlighted());

    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(view()->canvas(), &leave);

    QVERIFY(!mine->isClientAreaHighlighted());
    QCOMPARE(m_window->statusBar()->currentMessage(), QString());
}

void tst_GraphWindow::openingAnotherFileForgetsTheElementUnderTheMouse()
{
    open(flow);
    ElementFigure *mine = element(QStringLiteral("mine"));
    hover(place(mine));
    QTRY_VERIFY(mine->isClientAreaHighlighted());

    open("graph { other }");
    hover(place(element(QStringLiteral("other"))));

    QTRY_COMPARE(m_window->statusBar()->currentMessage(), QStringLiteral("other"));
}

void tst_GraphWindow::theGridIsShownAndHiddenAndStays()
{
    const auto hasGrid = [this] {
        const QImage image = view()->viewport()->grab().toImage();
        int gray = 0;
        for (int y = 0; y < 90; ++y) { // at one and a half pixels a unit the finer lines melt
            for (int x = 0; x < 90; ++x)
                gray += image.pixelColor(x, y) == QColor(Qt::gray);
        }
        return gray > 20;
    };
    open(flow);
    QVERIFY(!hasGrid());

    press(QStringLiteral("Ctrl+G"));
    QVERIFY(hasGrid());

    open("graph { other }");
    QVERIFY(hasGrid());

    press(QStringLiteral("Ctrl+G"));
    QVERIFY(!hasGrid());
}

void tst_GraphWindow::theGridGetsCoarserWhenZoomedOut()
{
    open(largeGraph());
    press(QStringLiteral("Ctrl+G"));

    for (double scale : {2.0, 1.0, 0.3, 0.05}) {
        view()->setScale(scale);
        const QImage image = view()->viewport()->grab().toImage();
        int white = 0;
        for (int y = 0; y < 100; ++y) {
            for (int x = 0; x < 100; ++x)
                white += image.pixelColor(x, y) == QColor(Qt::white);
        }
        QVERIFY2(white > 6000, qPrintable(QStringLiteral("%1: %2").arg(scale).arg(white)));
    }
}

void tst_GraphWindow::anEngineOfTheMenuLaysOutAnew()
{
    open(flow);
    const auto action = [this](const char *name) {
        for (QAction *candidate : m_window->findChild<QToolBar *>()->actions()) {
            if (candidate->text() == QLatin1String(name))
                return candidate;
        }
        qFatal("no engine %s", name);
    };
    QVERIFY(action("dot")->isChecked());
    const QSignalSpy opened(m_window.get(), &GraphWindow::opened);

    action("circo")->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(opened.size(), 1, 60'000);

    QCOMPARE(label("summary"), QStringLiteral("circo, 3 nodes, 2 edges"));
    QVERIFY(action("circo")->isChecked());
    QVERIFY(!action("dot")->isChecked());
}

void tst_GraphWindow::aRoutingOfTheMenuIsKeptForTheNextGraph()
{
    open(flow);
    QCOMPARE(view()->scene()->routing(), Routing::Engine);
    QAction *manhattan = nullptr;
    for (QMenu *menu : m_window->menuBar()->findChildren<QMenu *>()) {
        for (QAction *action : menu->actions()) {
            if (action->text() == QLatin1String("manhattan"))
                manhattan = action;
        }
    }
    QVERIFY(manhattan);

    manhattan->trigger();
    QCOMPARE(view()->scene()->routing(), Routing::Manhattan);

    open("digraph { other -> one }");
    QCOMPARE(view()->scene()->routing(), Routing::Manhattan);
    QVERIFY(manhattan->isChecked());
}

void tst_GraphWindow::aDroppedFileIsOpened()
{
    const QString path = m_folder.write(QStringLiteral("dropped.gv"), flow);
    const QSignalSpy opened(m_window.get(), &GraphWindow::opened);
    bool accepted = false;

    drop(m_window.get(), {QUrl::fromLocalFile(path)}, &accepted);
    QVERIFY(accepted);
    QTRY_COMPARE_WITH_TIMEOUT(opened.size(), 1, 60'000);

    QCOMPARE(m_window->windowTitle(), QStringLiteral("dropped.gv - Graph viewer"));
}

void tst_GraphWindow::whatIsNoSingleFileCannotBeDropped()
{
    const QUrl file = QUrl::fromLocalFile(m_folder.write(QStringLiteral("a.gv"), flow));
    bool accepted = true;

    drop(m_window.get(), {file, file}, &accepted);
    QVERIFY(!accepted);

    drop(m_window.get(), {QUrl(QStringLiteral("mailto:somebody"))}, &accepted);
    QVERIFY(!accepted);

    drop(m_window.get(), {}, &accepted);
    QVERIFY(!accepted);
}

void tst_GraphWindow::aFileThatCannotBeShownIsAMessageAndChangesNothing()
{
    open(flow, QStringLiteral("good.gv"));
    const GraphScene *scene = view()->scene();
    const QString path = m_folder.write(QStringLiteral("bad.gv"), "digraph { -> }");
    const QSignalSpy failed(m_window.get(), &GraphWindow::failed);

    m_window->openFile(path);
    QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 1, 60'000);

    const QString message = path + QStringLiteral(": syntax error in line 1 near '->'");
    QCOMPARE(failed.first().first().toString(), message);
    auto *box = m_window->findChild<QMessageBox *>();
    QVERIFY(box);
    QCOMPARE(box->text(), message);
    box->close();
    QCOMPARE(view()->scene(), scene);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("good.gv - Graph viewer"));

    const QSignalSpy opened(m_window.get(), &GraphWindow::opened);
    m_window->commands()->reload->trigger(); // of the good one
    QTRY_COMPARE_WITH_TIMEOUT(opened.size(), 1, 60'000);
}

void tst_GraphWindow::aRemarkOfTheEngineCanBeRead()
{
    open("graph { a [shape=nosuch] }");

    QCOMPARE(label("summary"), QStringLiteral("dot, 1 node, 0 edges, 1 remark"));
    QCOMPARE(m_window->findChild<QLabel *>(QStringLiteral("summary"))->toolTip(),
             QStringLiteral("using box for unknown shape nosuch"));
}

void tst_GraphWindow::escapeStopsLayingOut()
{
    open(flow, QStringLiteral("good.gv"));
    const QString program = m_folder.write(QStringLiteral("slow"), "#!/bin/sh\nexec sleep 1000\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
    m_window->layoutProcess().setProgram(program);
    m_window->openFile(m_folder.path(QStringLiteral("slow.gv")));
    QCOMPARE(m_window->statusBar()->currentMessage(),
             QStringLiteral("Laying out slow.gv... (Esc stops it)"));

    press(QStringLiteral("Esc"));

    QVERIFY(!m_window->layoutProcess().isRunning());
    QCOMPARE(m_window->statusBar()->currentMessage(), QStringLiteral("Stopped."));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("good.gv - Graph viewer"));
}

void tst_GraphWindow::withoutAGraphThereIsNothingToPrint()
{
    QVERIFY(!m_window->commands()->print->isEnabled());
    QVERIFY(!m_window->commands()->copy->isEnabled());
    QVERIFY(!m_window->commands()->zoomIn->isEnabled());

    open(flow);

    QVERIFY(m_window->commands()->print->isEnabled());
    QVERIFY(m_window->commands()->copy->isEnabled());
    QVERIFY(m_window->commands()->zoomIn->isEnabled());
}

void tst_GraphWindow::aPdfHoldsTheGraph()
{
    const QString pdftotext = QStandardPaths::findExecutable(QStringLiteral("pdftotext"));
    const QString pdftoppm = QStandardPaths::findExecutable(QStringLiteral("pdftoppm"));
    QVERIFY2(!pdftotext.isEmpty() && !pdftoppm.isEmpty(), "Debian's package poppler-utils is not "
                                                          "installed");
    open("graph printed { bgcolor=\"#40c080\"; a [shape=box, label=\"ore\"] a -- b }",
         QStringLiteral("printed.gv"));
    const QString pdf = m_folder.path(QStringLiteral("out.pdf"));

    QCOMPARE(m_window->exportPdf(pdf), QString());

    QProcess process;
    process.start(pdftotext, {pdf, QStringLiteral("-")});
    QVERIFY(process.waitForFinished());
    const QString words = QString::fromUtf8(process.readAllStandardOutput());
    QVERIFY2(words.contains(QStringLiteral("ore")), qPrintable(words));
    QVERIFY2(words.contains(QStringLiteral("printed.gv")), qPrintable(words));
    process.start(pdftoppm,
                  {QStringLiteral("-png"), QStringLiteral("-singlefile"), QStringLiteral("-r"),
                   QStringLiteral("50"), pdf, m_folder.path(QStringLiteral("page"))});
    QVERIFY(process.waitForFinished());
    const QImage page(m_folder.path(QStringLiteral("page.png")));
    QVERIFY(page.height() > page.width()); // as the graph
    int green = 0;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            green += page.pixelColor(x, y) == QColor(0x40, 0xc0, 0x80);
    }
    // The page less 2 cm on each side, filled as far as the graph's shape allows.
    QVERIFY2(green > page.width() * page.height() / 5, qPrintable(QString::number(green)));
}

void tst_GraphWindow::aPdfThatCannotBeWrittenIsAMessage()
{
    open(flow);
    const QString pdf = m_folder.path(QStringLiteral("no/such/folder/out.pdf"));

    QCOMPARE(m_window->exportPdf(pdf),
             pdf + QStringLiteral(": cannot be written: No such file or directory"));
}

void tst_GraphWindow::theCopiedPictureIsTheGraph()
{
    open("graph { bgcolor=\"#40c080\"; a }");

    press(QStringLiteral("Ctrl+C"));

    const QImage image = qvariant_cast<QImage>(QApplication::clipboard()->mimeData()->imageData());
    const QSize margins(40, 40);
    QCOMPARE(image.size(), view()->scene()->area().size() + margins);
    QCOMPARE(image.pixelColor(22, 22), QColor(0x40, 0xc0, 0x80));
}

void tst_GraphWindow::theLightOfTheMouseIsNoPartOfThePicture()
{
    const auto copied = [this] {
        press(QStringLiteral("Ctrl+C"));
        return qvariant_cast<QImage>(QApplication::clipboard()->mimeData()->imageData());
    };
    open(flow);
    const QImage before = copied();
    ElementFigure *mine = element(QStringLiteral("mine"));
    hover(place(mine));
    QTRY_VERIFY(mine->isClientAreaHighlighted());

    const QImage after = copied();

    QCOMPARE(after, before);
}

void tst_GraphWindow::aGraphTooLargeForAPictureIsNotCopied()
{
    open("graph { a [width=200, height=100] }");
    QMimeData data;

    const QString error = PictureExport(view(), QString()).copyTo(&data);

    QCOMPARE(error, QStringLiteral("the graph is too large to be copied as a picture "
                                   "(14400 x 7200 pixels)"));
    QVERIFY(!data.hasImage());
}

QTEST_MAIN(tst_GraphWindow)
#include "tst_graph_window.moc"
