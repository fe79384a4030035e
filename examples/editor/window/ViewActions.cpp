#include "window/ViewActions.h"

#include "edit/Workbench.h"

#include <figura/diagram/DiagramView.h>
#include <figura/view/FreeformLayeredPane.h>

#include <QAction>
#include <QMenu>
#include <QToolBar>

using Velmora::Figura::DiagramView;

namespace Editor {
namespace {

// Coarser when zoomed out: lines closer than a few pixels would be one grey area.
int gridStep(int step, double scale)
{
    constexpr double fewPixels = 8;
    while (step * scale < fewPixels)
        step *= 5;
    return step;
}

} // namespace

ViewActions::ViewActions(Workbench &bench, QWidget *window)
    : QObject(window)
    , m_bench(bench)
    , m_window(window)
{
    createZoom();
    createSwitches();
    showGrid();
}

template<class Do>
QAction *ViewActions::create(const QString &text, const QKeySequence &keys, const QString &icon,
                             const Do &action)
{
    auto *result = new QAction(QIcon::fromTheme(icon), text, m_window);
    result->setShortcut(keys);
    connect(result, &QAction::triggered, m_bench.view(), action);
    m_window->addAction(result);
    return result;
}

void ViewActions::createZoom()
{
    m_zoom << create(tr("Zoom &in"), QKeySequence::ZoomIn, QStringLiteral("zoom-in"),
                     &DiagramView::zoomIn)
           << create(tr("Zoom &out"), QKeySequence::ZoomOut, QStringLiteral("zoom-out"),
                     &DiagramView::zoomOut)
           << create(tr("&Fit"), QKeySequence(tr("Ctrl+9")), QStringLiteral("zoom-fit-best"),
                     &DiagramView::zoomToFit)
           << create(tr("&100 %"), QKeySequence(tr("Ctrl+0")), QStringLiteral("zoom-original"),
                     &DiagramView::zoomToNormal);
}

QAction *ViewActions::createSwitch(const QString &text, const QKeySequence &keys, bool on)
{
    auto *result = new QAction(text, m_window);
    result->setCheckable(true);
    result->setChecked(on);
    result->setShortcut(keys);
    m_window->addAction(result);
    return result;
}

void ViewActions::createSwitches()
{
    grid = createSwitch(tr("&Grid"), QKeySequence(tr("Ctrl+G")), false);
    snapToGrid = createSwitch(tr("&Snap to grid"), QKeySequence(tr("Ctrl+Shift+G")),
                              m_bench.options.snapToGrid);
    snapToOthers = createSwitch(tr("Snap to &figures"), {}, m_bench.options.snapToOthers);
    dark = createSwitch(tr("&Dark"), {}, false);
    connect(grid, &QAction::toggled, this, &ViewActions::showGrid);
    connect(m_bench.view(), &DiagramView::scaleChanged, this, &ViewActions::showGrid);
    connect(snapToGrid, &QAction::toggled, this,
            [this](bool on) { m_bench.options.snapToGrid = on; });
    connect(snapToOthers, &QAction::toggled, this,
            [this](bool on) { m_bench.options.snapToOthers = on; });
    connect(dark, &QAction::triggered, this, &ViewActions::darkWanted);
}

void ViewActions::showGrid()
{
    const double scale = m_bench.view()->getScale();
    m_bench.diagram().getPane()->setSnapSize(gridStep(m_bench.options.gridStep, scale));
    m_bench.diagram().getPane()->setDrawGrid(grid->isChecked());
}

void ViewActions::fill(QMenu *menu) const
{
    menu->addActions(m_zoom);
    menu->addSeparator();
    menu->addActions({grid, snapToGrid, snapToOthers});
    menu->addSeparator();
    menu->addAction(dark);
}

void ViewActions::fill(QToolBar *bar) const
{
    bar->addActions(m_zoom);
}

} // namespace Editor
