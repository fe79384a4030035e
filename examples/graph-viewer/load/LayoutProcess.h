#pragma once

#include "GraphModel.h"

#include <QObject>
#include <QTimer>

#include <chrono>

class QProcess;

namespace GraphViewer {

/// Reads a graph file and lays it out in a process of its own.
///
/// So the window stays alive meanwhile, and a graph on which the layout engine crashes, exits or
/// never ends costs no more than a message.
class LayoutProcess : public QObject
{
    Q_OBJECT

public:
    explicit LayoutProcess(QObject *parent = nullptr);
    ~LayoutProcess() override;

    void setProgram(const QString &program); ///< The graph viewer; at first the running program.
    void setTimeLimit(std::chrono::seconds limit); ///< 0 means none.

    /// Ends in finished(), unless it is started anew or cancelled before.
    void start(const QString &path, const QString &engine);
    void cancel();
    bool isRunning() const;

Q_SIGNALS:
    void finished(const GraphViewer::LoadReply &reply);

private:
    void handleEnd();
    void handleFailedStart();
    void handleTimeout();
    void end(const LoadReply &reply);
    void fail(const QString &reason);

    QString m_program;
    QString m_path;
    QProcess *m_process = nullptr;
    QTimer m_deadline;
};

} // namespace GraphViewer
