#pragma once

#include <QSize>
#include <QString>

namespace Editor {

/// What the user has asked for.
struct CommandLine
{
    enum class Request { Run, Inform, Refuse };

    Request request = Request::Run;
    QString text; ///< What to print for Inform and Refuse.
    QString file;
    QString sample;    ///< To open instead of a file.
    QString picture;   ///< Where to render the window to; empty means to show it.
    QString exported;  ///< Where to export the diagram to; no window is shown then.
    QSize size;        ///< Of the window; invalid for the usual one.
    QList<int> chosen; ///< Ids to select.
    bool dark = false;
    bool grid = false;

    /// \a arguments begin with the program's name.
    static CommandLine parse(const QStringList &arguments);

    // These may be asked before there is an application.

    /// Whether the arguments need no display.
    static bool isOffscreen(int argc, char **argv);
    /// Pixels for one unit of the window, as text; empty for what the screen has.
    static QByteArray scaleFactor(int argc, char **argv);
};

} // namespace Editor
