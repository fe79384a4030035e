#include "window/Keeper.h"

#include "edit/Workbench.h"
#include "files/DocumentFile.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>

// At file scope, as the macro wants it: a static library's resources are not there by themselves.
static void initSamples()
{
    Q_INIT_RESOURCE(samples);
}

namespace Editor {
namespace {

const QString suffix = QStringLiteral(".figura");
const QString samplesFolder = QStringLiteral(":/samples");

QString filter()
{
    return Keeper::tr("Diagrams (*%1);;All files (*)").arg(suffix);
}

} // namespace

Keeper::Keeper(Workbench &bench, QSettings &settings, const QString &recoveryFolder,
               QWidget *window)
    : QObject(window)
    , m_bench(bench)
    , m_window(window)
    , m_recent(settings)
    , m_recovery(bench.document(), recoveryFolder)
{
    connect(&bench, &Workbench::documentChanged, this, &Keeper::noteStep);
}

QString Keeper::name() const
{
    return m_path.isEmpty() ? tr("Untitled") : QFileInfo(m_path).fileName();
}

bool Keeper::isModified() const
{
    return !m_bench.history().isClean();
}

void Keeper::noteStep()
{
    if (isModified())
        m_recovery.noteChange(m_path);
    else
        m_recovery.settle();
}

void Keeper::setPath(const QString &path)
{
    m_path = path;
    Q_EMIT pathChanged();
}

void Keeper::adopt(const Content &content, const QString &path)
{
    m_bench.open(content);
    m_recovery.settle();
    setPath(path);
}

bool Keeper::startNew()
{
    if (!mayLeave())
        return false;
    adopt({}, {});
    return true;
}

// Read first: a file that is damaged is no reason to ask about unsaved work.
bool Keeper::open(const QString &path)
{
    const ReadResult result = DocumentFile::load(path);
    if (!result.ok()) {
        Q_EMIT failed(result.problem);
        return false;
    }
    if (!mayLeave())
        return false;
    adopt(result.content, path);
    m_recent.add(path);
    return true;
}

bool Keeper::askAndOpen()
{
    const QString path = QFileDialog::getOpenFileName(m_window, tr("Open a diagram"),
                                                      QFileInfo(m_path).path(), filter());
    return !path.isEmpty() && open(path);
}

QStringList Keeper::sampleNames()
{
    initSamples();
    QStringList names;
    const QFileInfoList files =
        QDir(samplesFolder).entryInfoList({QLatin1Char('*') + suffix}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files)
        names << file.completeBaseName();
    return names;
}

bool Keeper::openSample(const QString &name)
{
    initSamples();
    const ReadResult result = DocumentFile::load(samplesFolder + QLatin1Char('/') + name + suffix);
    if (!result.ok()) {
        Q_EMIT failed(result.problem);
        return false;
    }
    if (!mayLeave())
        return false;
    adopt(result.content, {});
    return true;
}

bool Keeper::save()
{
    return m_path.isEmpty() ? saveAs() : saveTo(m_path);
}

bool Keeper::saveAs()
{
    QFileDialog dialog(m_window, tr("Save the diagram"), QFileInfo(m_path).path(), filter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix.mid(1));
    dialog.selectFile(m_path);
    return dialog.exec() == QDialog::Accepted && saveTo(dialog.selectedFiles().first());
}

bool Keeper::saveTo(const QString &path)
{
    const QString problem = DocumentFile::save(path, m_bench.document().content());
    if (!problem.isEmpty()) {
        Q_EMIT failed(problem);
        return false;
    }
    m_bench.history().setClean();
    m_recovery.settle();
    setPath(path);
    m_recent.add(path);
    Q_EMIT done(tr("Saved to %1").arg(path));
    return true;
}

bool Keeper::mayLeave()
{
    if (!isModified())
        return true;
    const auto answer = QMessageBox::warning(
        m_window, tr("Unsaved changes"), tr("%1 has changes that are not saved.").arg(name()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return save();
    return answer == QMessageBox::Discard;
}

void Keeper::recover(const Recovery::Found &found)
{
    adopt(found.content, found.origin);
    m_bench.history().resetClean(); // it is not what the file has
    m_recovery.writeNow(found.origin);
    Recovery::discard(found);
    Q_EMIT done(tr("Recovered what was not saved"));
}

} // namespace Editor
