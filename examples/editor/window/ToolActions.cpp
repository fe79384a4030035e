#include "window/ToolActions.h"

#include "edit/Operations.h"
#include "edit/Workbench.h"
#include "files/Pictures.h"
#include "model/Names.h"
#include "panels/PalettePanel.h"
#include "tools/ToolBox.h"

#include <figura/diagram/DiagramView.h>

#include <QAction>
#include <QActionGroup>
#include <QFileDialog>
#include <QMenu>
#include <QToolBar>

namespace Editor {

ToolActions::ToolActions(Workbench &bench, ToolBox &tools, PalettePanel &palette, QWidget *window)
    : QObject(window)
    , m_bench(bench)
    , m_tools(tools)
    , m_palette(palette)
    , m_window(window)
    , m_routings(new QActionGroup(this))
{
    createTools();
    createRoutings();
    connect(&palette, &PalettePanel::kindChosen, this, &ToolActions::beginCreating);
    connect(&tools, &ToolBox::toolChanged, this, &ToolActions::showTool);
}

void ToolActions::createTools()
{
    auto *group = new QActionGroup(this);
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    const auto add = [this, group](const QString &text, const char *key, auto choose) {
        QAction *action = group->addAction(text);
        action->setCheckable(true);
        action->setShortcut(QKeySequence(QLatin1String(key)));
        connect(action, &QAction::triggered, &m_tools, choose);
        m_window->addAction(action);
        return action;
    };
    select = add(tr("&Select"), "V", &ToolBox::select);
    connectNodes = add(tr("&Connect"), "C", &ToolBox::connectNodes);
    pan = add(tr("&Hand"), "H", &ToolBox::pan);
    select->setChecked(true);
}

void ToolActions::createRoutings()
{
    const QList<Routing> all = Names::all<Routing>();
    for (const Routing routing : all) {
        QAction *action = m_routings->addAction(Names::of(routing));
        action->setCheckable(true);
        action->setChecked(routing == m_bench.options.routing);
        connect(action, &QAction::triggered, this,
                [this, routing] { Operations::setRouting(m_bench, routing); });
    }
}

void ToolActions::fill(QMenu *menu) const
{
    menu->addActions({select, connectNodes, pan});
    menu->addSection(tr("Routing"));
    menu->addActions(m_routings->actions());
}

void ToolActions::fill(QToolBar *bar) const
{
    bar->addActions({select, connectNodes, pan});
}

void ToolActions::beginCreating(NodeKind kind)
{
    if (kind == NodeKind::Picture)
        askForPicture();
    else
        m_tools.create(CreateTool::patternOf(kind));
    m_bench.view()->setFocus();
}

void ToolActions::askForPicture(const QPoint *content)
{
    const QString path = QFileDialog::getOpenFileName(
        m_window, tr("Choose a picture"), QString(),
        tr("Pictures (*.png *.jpg *.jpeg *.gif *.bmp *.svg);;All files (*)"));
    QString problem;
    const QByteArray bytes = path.isEmpty() ? QByteArray() : Pictures::load(path, &problem);
    if (!problem.isEmpty())
        Q_EMIT failed(problem);
    if (bytes.isEmpty()) {
        m_tools.select();
        return;
    }
    if (content)
        Operations::create(m_bench, Operations::pictureNode(bytes, *content));
    else
        m_tools.create(Operations::pictureNode(bytes, QPoint()));
}

void ToolActions::showTool()
{
    const ToolBox::Kind kind = m_tools.kind();
    select->setChecked(kind == ToolBox::Kind::Select);
    connectNodes->setChecked(kind == ToolBox::Kind::Connect);
    pan->setChecked(kind == ToolBox::Kind::Pan);
    if (kind != ToolBox::Kind::Create)
        m_palette.clearChoice();
}

} // namespace Editor
