#pragma once

#include "files/Recovery.h"
#include "window/CommandLine.h"
#include "window/EditorWindow.h"

#include <QSettings>

namespace Editor {

/// One run of the program: opens what the command line names, then shows, renders or exports it.
class Session : public QObject
{
    Q_OBJECT

public:
    explicit Session(const CommandLine &commandLine);

    int run(); ///< The exit code.

private:
    bool open();
    void offerRecovery();
    bool isWanted(const Recovery::Found &found);
    int renderPicture();
    int exportDiagram();

    CommandLine m_commandLine;
    QSettings m_settings;
    EditorWindow m_window;
    QString m_problem;
};

} // namespace Editor
