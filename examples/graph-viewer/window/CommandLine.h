#pragma once

#include "scene/EdgeRouting.h"

#include <chrono>

namespace GraphViewer {

/// What the user has asked for.
struct CommandLine
{
    enum class Request { Run, Inform, Refuse };

    Request request = Request::Run;
    QString text; ///< What to print for Inform and Refuse.
    QString file; ///< May be empty, but not when there is a picture to render.
    QString engine;
    Routing routing = Routing::Engine;
    QString picture; ///< Where to render the window to; empty means to show it.
    std::chrono::seconds timeLimit{};

    /// \a arguments begin with the program's name.
    static CommandLine parse(const QStringList &arguments);

    /// Whether these arguments need no display. May be asked before there is an application.
    static bool isOffscreen(int argc, char **argv);
};

} // namespace GraphViewer
