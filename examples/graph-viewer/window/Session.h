#pragma once

#include "CommandLine.h"
#include "GraphWindow.h"

namespace GraphViewer {

/// One run of the program: opens the file that the command line names, then shows or renders the
/// window.
class Session : public QObject
{
    Q_OBJECT

public:
    explicit Session(const CommandLine &commandLine);

    int run(); ///< The exit code.

private:
    void start();
    void handleOpened();
    void handleFailure(const QString &message);
    void renderPicture();
    void resizeToGraph();

    CommandLine m_commandLine;
    GraphWindow m_window;
    int m_result = 0;
};

} // namespace GraphViewer
