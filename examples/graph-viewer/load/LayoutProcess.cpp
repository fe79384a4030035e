#include "LayoutProcess.h"

#include "LayoutWorker.h"
#include "ModelStream.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QProcess>

namespace GraphViewer {

LayoutProcess::LayoutProcess(QObject *parent)
    : QObject(parent)
    , m_program(QCoreApplication::applicationFilePath())
{
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, &LayoutProcess::handleTimeout);
}

LayoutProcess::~LayoutProcess()
{
    cancel();
}

void LayoutProcess::setProgram(const QString &program)
{
    m_program = program;
}

void LayoutProcess::setTimeLimit(std::chrono::seconds limit)
{
    m_deadline.setInterval(limit);
}

void LayoutProcess::start(const QString &path, const QString &engine)
{
    cancel();
    m_path = path;
    m_process = new QProcess(this);
    // The engine's own chatter: what matters of it is in the reply.
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process, &QProcess::finished, this, &LayoutProcess::handleEnd);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            handleFailedStart();
    });
    if (m_deadline.interval() > 0)
        m_deadline.start();
    m_process->start(m_program, {QString::fromLatin1(LayoutWorker::Switch), path, engine});
}

void LayoutProcess::cancel()
{
    m_deadline.stop();
    if (!m_process)
        return;
    m_process->disconnect(this);
    m_process->kill();
    m_process->waitForFinished();
    m_process->deleteLater();
    m_process = nullptr;
}

bool LayoutProcess::isRunning() const
{
    return m_process != nullptr;
}

void LayoutProcess::handleEnd()
{
    if (m_process->exitStatus() == QProcess::CrashExit) {
        fail(tr("the layout engine crashed on this graph; another engine may do better"));
        return;
    }
    LoadReply reply;
    QDataStream stream(m_process->readAllStandardOutput());
    stream >> reply;
    if (stream.status() == QDataStream::Ok)
        end(reply);
    else
        fail(tr("the layout engine gave up without a result; another engine may do better"));
}

void LayoutProcess::handleFailedStart()
{
    fail(tr("the layout could not be started: %1").arg(m_process->errorString()));
}

void LayoutProcess::handleTimeout()
{
    fail(
        tr("no layout after %1 s; another engine may be faster").arg(m_deadline.interval() / 1000));
}

void LayoutProcess::fail(const QString &reason)
{
    end(LoadReply::failure(m_path + QStringLiteral(": ") + reason));
}

void LayoutProcess::end(const LoadReply &reply)
{
    cancel();
    Q_EMIT finished(reply);
}

} // namespace GraphViewer
