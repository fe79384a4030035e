#include "window/EditorWindow.h"

#include "feedback/Feedback.h"
#include "panels/PalettePanel.h"
#include "panels/PropertyPanel.h"
#include "tools/ToolBox.h"
#include "window/Appearance.h"
#include "window/DropTarget.h"
#include "window/EditActions.h"
#include "window/FileActions.h"
#include "window/InlineEditor.h"
#include "window/Keeper.h"
#include "window/ToolActions.h"
#include "window/ViewActions.h"

#include <figura/diagram/DiagramView.h>
#include <figura/diagram/Overview.h>
#include <figura/view/FreeformWidget.h>

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QUndoView>

using Velmora::Figura::DiagramView;
using Velmora::Figura::Overview;

namespace Editor {
namespace {

const QString darkKey = QStringLiteral("dark");

} // namespace

EditorWindow::EditorWindow(QSettings &settings, const QString &recoveryFolder, QWidget *parent)
    : QMainWindow(parent)
    , m_settings(settings)
    , m_view(new DiagramView(this))
    , m_bench(std::make_unique<Workbench>(m_view))
    , m_tools(std::make_unique<ToolBox>(*m_bench))
    , m_drops(std::make_unique<DropTarget>(*m_bench))
    , m_palette(new PalettePanel(this))
    , m_inlineEditor(new InlineEditor(*m_bench))
    , m_keeper(new Keeper(*m_bench, settings, recoveryFolder, this))
    , m_edit(new EditActions(*m_bench, *m_inlineEditor, this))
    , m_files(new FileActions(*m_bench, *m_keeper, this))
    , m_viewActions(new ViewActions(*m_bench, this))
    , m_toolActions(new ToolActions(*m_bench, *m_tools, *m_palette, this))
{
    setCentralWidget(m_view);
    resize(1280, 800);
    createDocks();
    createMenus();
    createToolBar();
    createStatusBar();
    connectParts();
    setDark(settings.value(darkKey).toBool());
    showTitle();
    m_view->setFocus();
}

// The parts that look at the document go first: widgets are told of what happens even while they
// are destroyed.
EditorWindow::~EditorWindow()
{
    m_bench->history().disconnect();
    m_bench->selection().disconnect();
    m_bench->disconnect();
    m_drops.reset();
    m_tools.reset();
    delete m_inlineEditor;
    qDeleteAll(findChildren<QDockWidget *>());
    delete m_edit;
    delete m_keeper;
    m_bench.reset();
}

QDockWidget *EditorWindow::addDock(const QString &title, QWidget *content, Qt::DockWidgetArea area)
{
    auto *dock = new QDockWidget(title, this);
    dock->setObjectName(title);
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
}

void EditorWindow::createDocks()
{
    auto *overview = new Overview(m_view, this);
    auto *history = new QUndoView(&m_bench->history(), this);
    history->setEmptyLabel(tr("(opened)"));
    addDock(tr("Figures"), m_palette, Qt::LeftDockWidgetArea);
    addDock(tr("Overview"), overview, Qt::LeftDockWidgetArea);
    addDock(tr("Properties"), new PropertyPanel(*m_bench, this), Qt::RightDockWidgetArea);
    addDock(tr("History"), history, Qt::RightDockWidgetArea);
    const QList<QDockWidget *> docks = findChildren<QDockWidget *>();
    resizeDocks({docks.at(0), docks.at(2)}, {180, 260}, Qt::Horizontal);
    resizeDocks({docks.at(0), docks.at(1)}, {420, 180}, Qt::Vertical);
    resizeDocks({docks.at(2), docks.at(3)}, {460, 200}, Qt::Vertical);
}

void EditorWindow::createMenus()
{
    m_files->fill(menuBar()->addMenu(tr("&File")));
    m_edit->fillEditMenu(menuBar()->addMenu(tr("&Edit")));
    m_edit->fillArrangeMenu(menuBar()->addMenu(tr("&Arrange")));
    m_toolActions->fill(menuBar()->addMenu(tr("&Tools")));
    QMenu *view = menuBar()->addMenu(tr("&View"));
    m_viewActions->fill(view);
    view->addSection(tr("Panels"));
    const QList<QDockWidget *> docks = findChildren<QDockWidget *>();
    for (const QDockWidget *dock : docks)
        view->addAction(dock->toggleViewAction());
}

void EditorWindow::createToolBar()
{
    QToolBar *bar = addToolBar(tr("Tools"));
    bar->setMovable(false);
    m_toolActions->fill(bar);
    bar->addSeparator();
    bar->addActions({m_edit->undo, m_edit->redo});
    bar->addSeparator();
    m_viewActions->fill(bar);
    bar->addSeparator();
    bar->addActions({m_viewActions->grid, m_viewActions->dark});
}

void EditorWindow::createStatusBar()
{
    m_place = new QLabel(this);
    m_scale = new QLabel(this);
    statusBar()->addPermanentWidget(m_place);
    statusBar()->addPermanentWidget(m_scale);
    const auto showScale = [this] {
        m_scale->setText(QStringLiteral("%1 %").arg(100 * m_view->getScale(), 0, 'g', 3));
    };
    connect(m_view, &DiagramView::scaleChanged, m_scale, showScale);
    showScale();
}

void EditorWindow::connectParts()
{
    connect(m_tools.get(), &ToolBox::textEditWanted, m_inlineEditor, &InlineEditor::edit);
    connect(m_tools.get(), &ToolBox::pointerMoved, this, &EditorWindow::showPointer);
    connect(m_drops.get(), &DropTarget::failed, this, &EditorWindow::complain);
    connect(m_drops.get(), &DropTarget::documentDropped, m_keeper, &Keeper::open);
    connect(m_drops.get(), &DropTarget::pictureWanted, this,
            [this](const QPoint &content) { m_toolActions->askForPicture(&content); });
    connect(m_toolActions, &ToolActions::failed, this, &EditorWindow::complain);
    connect(m_keeper, &Keeper::failed, this, &EditorWindow::complain);
    connect(m_files, &FileActions::failed, this, &EditorWindow::complain);
    connect(m_files, &FileActions::quitWanted, this, &EditorWindow::close);
    const auto tell = [this](const QString &message) { statusBar()->showMessage(message, 5000); };
    connect(m_keeper, &Keeper::done, this, tell);
    connect(m_files, &FileActions::done, this, tell);
    connect(m_keeper, &Keeper::pathChanged, this, [this] {
        showTitle();
        m_view->zoomToFit();
    });
    connect(&m_bench->history(), &QUndoStack::cleanChanged, this, &EditorWindow::showTitle);
    connect(m_viewActions, &ViewActions::darkWanted, this, [this](bool dark) {
        setDark(dark);
        m_settings.setValue(darkKey, dark);
    });
}

void EditorWindow::showTitle()
{
    setWindowTitle(tr("%1[*] - Diagram editor").arg(m_keeper->name()));
    setWindowModified(m_keeper->isModified());
}

void EditorWindow::showPointer(const QPoint &content)
{
    m_place->setText(QStringLiteral("%1, %2").arg(content.x()).arg(content.y()));
}

void EditorWindow::setDark(bool dark)
{
    const Theme &theme = dark ? Theme::dark() : Theme::light();
    Appearance::apply(dark);
    m_viewActions->dark->setChecked(dark);
    m_bench->scene().setTheme(theme);
    m_bench->feedback().reset();
    m_view->getCanvas()->setProperty("backgroundColor", theme.paper);
    m_view->update();
    m_palette->setTheme(theme);
}

void EditorWindow::complain(const QString &problem)
{
    if (!isVisible())
        return;
    auto *box =
        new QMessageBox(QMessageBox::Warning, tr("Diagram editor"), problem, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

// What was opened before did not know how much room there would be.
void EditorWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(0, m_view, &DiagramView::zoomToFit);
}

void EditorWindow::closeEvent(QCloseEvent *event)
{
    if (!m_keeper->mayLeave()) {
        event->ignore();
        return;
    }
    m_keeper->recovery().settle();
    event->accept();
}

void EditorWindow::contextMenuEvent(QContextMenuEvent *event)
{
    if (!m_view->rect().contains(m_view->mapFromGlobal(event->globalPos())))
        return;
    const QPoint point = m_view->toContent(m_view->viewport()->mapFromGlobal(event->globalPos()));
    const int edge = m_bench->scene().edgeAt(point);
    const int id = edge ? edge : m_bench->scene().nodeAt(point);
    if (id != 0 && !m_bench->selection().contains(id))
        m_bench->selection().set({id});
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    m_edit->fillEditMenu(menu);
    menu->addSeparator();
    m_edit->fillArrangeMenu(menu->addMenu(tr("&Arrange")));
    menu->popup(event->globalPos());
}

} // namespace Editor
