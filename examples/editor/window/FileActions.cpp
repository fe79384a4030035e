#include "window/FileActions.h"

#include "edit/Workbench.h"
#include "window/Keeper.h"
#include "window/LightColors.h"

#include <figura/diagram/exportDiagram.h>

#include <QFileDialog>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>

using Velmora::Figura::DiagramExport;

namespace Editor {

FileActions::FileActions(Workbench &bench, Keeper &keeper, QWidget *window)
    : QObject(window)
    , m_bench(bench)
    , m_keeper(keeper)
    , m_window(window)
{
}

void FileActions::fill(QMenu *menu)
{
    addFileActions(menu);
    addSamples(menu->addMenu(tr("Sa&mples")));
    menu->addSeparator();
    addExportActions(menu);
    menu->addSeparator();
    menu->addAction(tr("&Quit"), QKeySequence(tr("Ctrl+Q")), this, &FileActions::quitWanted);
}

void FileActions::addFileActions(QMenu *menu)
{
    menu->addAction(tr("&New"), QKeySequence::New, &m_keeper, &Keeper::startNew);
    menu->addAction(tr("&Open..."), QKeySequence::Open, &m_keeper, &Keeper::askAndOpen);
    QMenu *recent = menu->addMenu(tr("&Recent files"));
    recent->setObjectName(QStringLiteral("recentFiles"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { showRecent(recent); });
    menu->addSeparator();
    menu->addAction(tr("&Save"), QKeySequence::Save, &m_keeper, &Keeper::save);
    menu->addAction(tr("Save &as..."), QKeySequence(tr("Ctrl+Shift+S")), &m_keeper,
                    &Keeper::saveAs);
}

void FileActions::showRecent(QMenu *menu)
{
    menu->clear();
    const QStringList paths = m_keeper.recentFiles().paths();
    for (const QString &path : paths)
        menu->addAction(path, &m_keeper, [this, path] { m_keeper.open(path); });
    if (paths.isEmpty())
        menu->addAction(tr("(none yet)"))->setEnabled(false);
}

void FileActions::addSamples(QMenu *menu)
{
    const QStringList names = Keeper::sampleNames();
    for (const QString &name : names)
        menu->addAction(QString(name).replace(QLatin1Char('-'), QLatin1Char(' ')), &m_keeper,
                        [this, name] { m_keeper.openSample(name); });
}

void FileActions::addExportActions(QMenu *menu)
{
    menu->addAction(tr("&Print..."), QKeySequence::Print, this, &FileActions::print);
    menu->addAction(tr("&Export..."), QKeySequence(tr("Ctrl+E")), this,
                    [this] { askAndExport(false, false); });
    menu->addAction(tr("Export se&lection..."), this, [this] { askAndExport(true, false); });
    menu->addAction(tr("Export as &tiled pages..."), this, [this] { askAndExport(false, true); });
}

void FileActions::askAndExport(bool onlySelection, bool tiled)
{
    const QString filter = tiled ? tr("PDF (*.pdf)") : tr("Pictures (*.svg *.pdf *.png)");
    const QString path =
        QFileDialog::getSaveFileName(m_window, tr("Export the diagram"), QString(), filter);
    if (path.isEmpty())
        return;
    const QString problem = exportTo(path, onlySelection, tiled);
    if (problem.isEmpty())
        Q_EMIT done(tr("Exported to %1").arg(path));
    else
        Q_EMIT failed(problem);
}

QString FileActions::exportTo(const QString &path, bool onlySelection, bool tiled)
{
    const LightColors colors(m_bench.scene());
    DiagramExport options;
    options.title = m_keeper.name();
    options.background = m_bench.scene().theme().paper;
    options.devicePixelRatio = 2;
    options.tiled = tiled;
    if (onlySelection)
        options.figures = m_bench.scene().figuresOf(m_bench.selection().nodes());
    QString error;
    exportDiagram(&m_bench.diagram(), path, options, &error);
    return error;
}

void FileActions::print()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const LightColors colors(m_bench.scene());
    DiagramExport options;
    options.title = m_keeper.name();
    QString error;
    if (!exportDiagram(&m_bench.diagram(), &printer, options, &error))
        Q_EMIT failed(error);
}

} // namespace Editor
