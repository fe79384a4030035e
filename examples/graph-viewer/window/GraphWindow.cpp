#include "GraphWindow.h"

#include "GraphView.h"
#include "HoverTracker.h"
#include "NodeDrag.h"
#include "PictureExport.h"
#include "scene/SceneBuilder.h"
#include "WindowActions.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>

namespace GraphViewer {
namespace {

QString droppedFile(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

// Coarser when zoomed out: lines closer than a few pixels would be one grey area.
int gridStep(double scale)
{
    constexpr double fewPixels = 8;
    int step = 10;
    while (step * scale < fewPixels)
        step *= 5;
    return step;
}

QString counted(qsizetype count, const QString &one, const QString &many)
{
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : many);
}

} // namespace

GraphWindow::GraphWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_view(new GraphView(this))
    , m_hover(new HoverTracker(m_view))
    , m_actions(new WindowActions(this))
{
    setWindowTitle(tr("Graph viewer"));
    setCentralWidget(m_view);
    setAcceptDrops(true);
    resize(1000, 700);
    createStatusBar();
    connectActions();
    new NodeDrag(m_view);

    connect(&m_layout, &LayoutProcess::finished, this, &GraphWindow::handleLayout);
    connect(m_hover, &HoverTracker::hovered, statusBar(),
            [this](const QString &title) { statusBar()->showMessage(title); });
    statusBar()->showMessage(tr("Open a graph file, or drop one here."));
}

// The view goes before its content, and the tracker before the view: a widget under the mouse still
// gets a leave event while it is being destroyed.
GraphWindow::~GraphWindow()
{
    delete m_hover;
    delete m_view;
}

void GraphWindow::createStatusBar()
{
    m_summary = new QLabel(this);
    m_summary->setObjectName(QStringLiteral("summary"));
    m_scale = new QLabel(this);
    m_scale->setObjectName(QStringLiteral("scale"));
    statusBar()->addPermanentWidget(m_summary);
    statusBar()->addPermanentWidget(m_scale);
    connect(m_view, &GraphView::scaleChanged, m_scale, [this] {
        m_scale->setText(QStringLiteral("%1 %").arg(100 * m_view->getScale(), 0, 'g', 3));
    });
}

void GraphWindow::connectActions()
{
    connect(m_actions->open, &QAction::triggered, this, &GraphWindow::askForFile);
    connect(m_actions->reload, &QAction::triggered, this, &GraphWindow::layOut);
    connect(m_actions->cancel, &QAction::triggered, this, &GraphWindow::stopLayingOut);
    connect(m_actions->exportPdf, &QAction::triggered, this, &GraphWindow::askForPdf);
    connect(m_actions->print, &QAction::triggered, this, &GraphWindow::askForPrinter);
    connect(m_actions->copy, &QAction::triggered, this, &GraphWindow::copyPicture);
    connect(m_actions->quit, &QAction::triggered, this, &GraphWindow::close);
    connect(m_actions->zoomIn, &QAction::triggered, m_view, &GraphView::zoomIn);
    connect(m_actions->zoomOut, &QAction::triggered, m_view, &GraphView::zoomOut);
    connect(m_actions->fit, &QAction::triggered, m_view, &GraphView::scaleToFit);
    connect(m_actions->normalSize, &QAction::triggered, m_view, &GraphView::scaleToNormal);
    connect(m_actions->grid, &QAction::toggled, this, &GraphWindow::showGrid);
    connect(m_view, &GraphView::scaleChanged, this,
            [this] { showGrid(m_actions->grid->isChecked()); });
    connect(m_actions, &WindowActions::engineChosen, this, [this](const QString &engine) {
        setEngine(engine);
        layOut();
    });
    connect(m_actions, &WindowActions::routingChosen, this, &GraphWindow::setRouting);
}

void GraphWindow::setRouting(Routing routing)
{
    m_routing = routing;
    m_actions->setRouting(routing);
    if (m_scene)
        m_scene->setRouting(routing);
}

void GraphWindow::setEngine(const QString &engine)
{
    m_wanted.engine = engine;
    m_actions->setEngine(engine);
}

void GraphWindow::openFile(const QString &path)
{
    m_wanted.path = path;
    layOut();
}

void GraphWindow::layOut()
{
    if (m_wanted.path.isEmpty())
        return;
    setBusy(true);
    m_layout.start(m_wanted.path, m_wanted.engine);
}

void GraphWindow::stopLayingOut()
{
    m_layout.cancel();
    setBusy(false);
    returnToShown();
    statusBar()->showMessage(tr("Stopped."));
}

void GraphWindow::returnToShown()
{
    m_wanted = m_shown;
    m_actions->setEngine(m_shownEngine);
}

void GraphWindow::setBusy(bool busy)
{
    m_actions->cancel->setEnabled(busy);
    if (busy) {
        setCursor(Qt::BusyCursor);
        statusBar()->showMessage(
            tr("Laying out %1... (Esc stops it)").arg(QFileInfo(m_wanted.path).fileName()));
    } else {
        unsetCursor();
        statusBar()->clearMessage();
    }
}

void GraphWindow::handleLayout(const LoadReply &reply)
{
    setBusy(false);
    if (reply.ok()) {
        m_shown = m_wanted;
        showGraph(reply.graph);
        Q_EMIT opened();
        return;
    }
    returnToShown();
    complain(reply.error);
    Q_EMIT failed(reply.error);
}

void GraphWindow::showGraph(const GraphModel &graph)
{
    std::unique_ptr<GraphScene> scene = SceneBuilder(graph).build();
    scene->setRouting(m_routing);
    m_view->setScene(scene.get());
    m_scene = std::move(scene); // the former one goes after the view has let go of it
    showGrid(m_actions->grid->isChecked());
    m_actions->setGraphPresent(true);
    m_shownEngine = graph.engine;
    m_actions->setEngine(m_shownEngine);
    describe(graph);
}

void GraphWindow::describe(const GraphModel &graph)
{
    setWindowTitle(tr("%1 - Graph viewer").arg(caption()));
    QStringList parts = {graph.engine, counted(graph.nodes.size(), tr("node"), tr("nodes")),
                         counted(graph.edges.size(), tr("edge"), tr("edges"))};
    if (!graph.remarks.isEmpty())
        parts << counted(graph.remarks.size(), tr("remark"), tr("remarks"));
    m_summary->setText(parts.join(QStringLiteral(", ")));
    m_summary->setToolTip(graph.remarks.join(QLatin1Char('\n')));
}

QString GraphWindow::caption() const
{
    return QFileInfo(m_shown.path).fileName();
}

void GraphWindow::showGrid(bool on)
{
    if (!m_scene)
        return;
    m_scene->content()->setSnapSize(gridStep(m_view->getScale()));
    m_scene->content()->setDrawGrid(on);
}

void GraphWindow::complain(const QString &message)
{
    if (!isVisible())
        return;
    auto *box =
        new QMessageBox(QMessageBox::Warning, tr("Graph viewer"), message, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void GraphWindow::askForFile()
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Open a graph"), QFileInfo(m_shown.path).path(),
                                     tr("Graphs (*.gv *.dot *.gv.gz *.dot.gz);;All files (*)"));
    if (!path.isEmpty())
        openFile(path);
}

void GraphWindow::askForPdf()
{
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Export as PDF"), m_shown.path + QStringLiteral(".pdf"), tr("PDF files (*.pdf)"));
    if (path.isEmpty())
        return;
    const QString error = exportPdf(path);
    if (!error.isEmpty())
        complain(error);
}

QString GraphWindow::exportPdf(const QString &path)
{
    const QString error = pictureExport().writePdf(path);
    if (error.isEmpty())
        statusBar()->showMessage(tr("Written to %1").arg(path));
    return error;
}

// What the mouse happens to be over is no part of the picture.
PictureExport GraphWindow::pictureExport()
{
    m_hover->reset();
    return {m_view, caption()};
}

void GraphWindow::askForPrinter()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        pictureExport().print(&printer);
}

void GraphWindow::copyPicture()
{
    auto picture = std::make_unique<QMimeData>();
    const QString error = pictureExport().copyTo(picture.get());
    if (!error.isEmpty()) {
        complain(error);
        return;
    }
    QApplication::clipboard()->setMimeData(picture.release());
    statusBar()->showMessage(tr("Copied."));
}

void GraphWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void GraphWindow::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    openFile(droppedFile(event->mimeData()));
}

} // namespace GraphViewer
