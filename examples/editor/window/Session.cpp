#include "window/Session.h"

#include "window/FileActions.h"
#include "window/Keeper.h"
#include "window/ViewActions.h"

#include <figura/diagram/DiagramView.h>

#include <QApplication>
#include <QImageWriter>
#include <QMessageBox>
#include <QStandardPaths>

#include <cstdio>

namespace Editor {
namespace {

QString recoveryFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/recovery");
}

int tell(const QString &problem)
{
    std::fprintf(stderr, "diagram-editor: %s\n", qPrintable(problem));
    return 1;
}

} // namespace

Session::Session(const CommandLine &commandLine)
    : m_commandLine(commandLine)
    , m_window(m_settings, recoveryFolder())
{
    connect(&m_window.keeper(), &Keeper::failed, this,
            [this](const QString &problem) { m_problem = problem; });
    if (commandLine.size.isValid())
        m_window.resize(commandLine.size);
    if (commandLine.dark)
        m_window.setDark(true);
    m_window.viewActions().grid->setChecked(commandLine.grid);
}

bool Session::open()
{
    if (!m_commandLine.sample.isEmpty())
        return m_window.keeper().openSample(m_commandLine.sample);
    return m_commandLine.file.isEmpty() || m_window.keeper().open(m_commandLine.file);
}

int Session::run()
{
    if (!open())
        return tell(m_problem);
    m_window.bench().selection().set(m_commandLine.chosen);
    m_window.bench().selection().prune();
    if (!m_commandLine.exported.isEmpty())
        return exportDiagram();
    m_window.show();
    if (!m_commandLine.picture.isEmpty())
        return renderPicture();
    offerRecovery();
    return QApplication::exec();
}

// With a file on the command line the user wants that; the copies stay for another time.
void Session::offerRecovery()
{
    if (!m_commandLine.file.isEmpty() || !m_commandLine.sample.isEmpty())
        return;
    const QList<Recovery::Found> all = Recovery::abandoned(recoveryFolder());
    for (const Recovery::Found &found : all) {
        if (isWanted(found)) {
            m_window.keeper().recover(found);
            return;
        }
        Recovery::discard(found);
    }
}

bool Session::isWanted(const Recovery::Found &found)
{
    const QString name = found.origin.isEmpty() ? Keeper::tr("a new diagram") : found.origin;
    return QMessageBox::question(
               &m_window, Keeper::tr("Recover"),
               Keeper::tr("The editor ended while %1 was not saved. Recover the work?")
                   .arg(name)) == QMessageBox::Yes;
}

int Session::renderPicture()
{
    QApplication::processEvents(); // as many resizes and layouts as it takes
    m_window.bench().view()->zoomToFit();
    QApplication::processEvents();
    QImageWriter writer(m_commandLine.picture);
    if (writer.write(m_window.grab().toImage()))
        return 0;
    return tell(QStringLiteral("%1: %2").arg(m_commandLine.picture, writer.errorString()));
}

int Session::exportDiagram()
{
    const QString problem = m_window.files().exportTo(m_commandLine.exported, false, false);
    return problem.isEmpty() ? 0 : tell(problem);
}

} // namespace Editor
