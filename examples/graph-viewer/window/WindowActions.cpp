#include "WindowActions.h"

#include "load/GraphLoader.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

namespace GraphViewer {
namespace {

// Ctrl+= is the key that has the plus sign on many keyboards. Named twice it would be ambiguous.
QList<QKeySequence> zoomInKeys()
{
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::ZoomIn);
    const QKeySequence equals(QStringLiteral("Ctrl+="));
    if (!keys.contains(equals))
        keys << equals;
    return keys;
}

} // namespace

WindowActions::WindowActions(QMainWindow *window)
    : QObject(window)
    , m_window(window)
{
    createFileActions();
    createViewActions();
    createEngineActions();
    createRoutingActions();
    createMenus();
    createToolBar();
    setGraphPresent(false);
}

QAction *WindowActions::create(const QString &text, const QList<QKeySequence> &keys,
                               const QString &icon)
{
    auto *action = new QAction(QIcon::fromTheme(icon), text, m_window);
    action->setShortcuts(keys);
    m_window->addAction(action);
    return action;
}

void WindowActions::createFileActions()
{
    open = create(tr("&Open..."), {QKeySequence::Open}, QStringLiteral("document-open"));
    reload = create(tr("&Reload"), {QKeySequence::Refresh}, QStringLiteral("view-refresh"));
    exportPdf = create(tr("&Export as PDF..."), {QKeySequence(tr("Ctrl+E"))});
    print = create(tr("&Print..."), {QKeySequence::Print}, QStringLiteral("document-print"));
    copy = create(tr("&Copy picture"), {QKeySequence::Copy}, QStringLiteral("edit-copy"));
    quit = create(tr("&Quit"), {QKeySequence(tr("Ctrl+Q"))}, QStringLiteral("application-exit"));
    cancel = create(tr("&Stop laying out"), {QKeySequence(Qt::Key_Escape)},
                    QStringLiteral("process-stop"));
    cancel->setEnabled(false);
}

void WindowActions::createViewActions()
{
    zoomIn = create(tr("Zoom &in"), zoomInKeys(), QStringLiteral("zoom-in"));
    zoomOut = create(tr("Zoom &out"), {QKeySequence::ZoomOut}, QStringLiteral("zoom-out"));
    fit = create(tr("&Fit"), {QKeySequence(tr("Ctrl+0"))}, QStringLiteral("zoom-fit-best"));
    normalSize =
        create(tr("&100 %"), {QKeySequence(tr("Ctrl+1"))}, QStringLiteral("zoom-original"));
    grid = create(tr("&Grid"), {QKeySequence(tr("Ctrl+G"))});
    grid->setCheckable(true);
}

void WindowActions::createEngineActions()
{
    m_engines = new QActionGroup(this);
    m_engines->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    const QStringList names = GraphLoader::engines();
    for (const QString &name : names) {
        QAction *action = m_engines->addAction(name);
        action->setCheckable(true);
        // Also when it is the checked one: choosing it again lays out anew.
        connect(action, &QAction::triggered, this, [this, name] {
            setEngine(name);
            Q_EMIT engineChosen(name);
        });
    }
}

void WindowActions::createRoutingActions()
{
    m_routings = new QActionGroup(this);
    const QStringList names = EdgeRouting::names();
    for (const QString &name : names) {
        QAction *action = m_routings->addAction(name);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this,
                [this, name] { Q_EMIT routingChosen(EdgeRouting::fromName(name)); });
    }
    setRouting(Routing::Engine);
}

void WindowActions::setRouting(Routing routing)
{
    m_routings->actions().at(static_cast<int>(routing))->setChecked(true);
}

void WindowActions::createMenus()
{
    QMenu *file = m_window->menuBar()->addMenu(tr("&File"));
    file->addActions({open, reload});
    file->addSeparator();
    file->addActions({exportPdf, print, copy});
    file->addSeparator();
    file->addAction(quit);

    QMenu *view = m_window->menuBar()->addMenu(tr("&View"));
    view->addActions({zoomIn, zoomOut, fit, normalSize});
    view->addSeparator();
    view->addAction(grid);

    QMenu *layout = m_window->menuBar()->addMenu(tr("&Layout"));
    layout->addActions(m_engines->actions());
    layout->addSeparator();
    layout->addMenu(tr("&Routing"))->addActions(m_routings->actions());
    layout->addSeparator();
    layout->addAction(cancel);
}

void WindowActions::createToolBar()
{
    QToolBar *bar = m_window->addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setToolButtonStyle(Qt::ToolButtonFollowStyle);
    bar->addActions({open, reload});
    bar->addSeparator();
    bar->addActions({zoomOut, normalSize, zoomIn, fit, grid});
    bar->addSeparator();
    bar->addActions(m_engines->actions());
}

void WindowActions::setGraphPresent(bool present)
{
    for (QAction *action : {exportPdf, print, copy, zoomIn, zoomOut, fit, normalSize, grid})
        action->setEnabled(present);
}

void WindowActions::setEngine(const QString &engine)
{
    const QList<QAction *> actions = m_engines->actions();
    for (QAction *action : actions)
        action->setChecked(action->text() == engine);
}

} // namespace GraphViewer
