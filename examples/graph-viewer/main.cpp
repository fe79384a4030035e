#include "load/LayoutWorker.h"
#include "window/Session.h"

#include <QApplication>

#include <cstdio>

using GraphViewer::CommandLine;
using GraphViewer::Session;
using GraphViewer::LayoutWorker::isMeant;

namespace {

bool hasDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") ||
           !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
    return true;
#endif
}

// Qt ends the program when it finds no display, so it must not look for one in vain.
void chooseOffscreenPlatform()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

int print(FILE *stream, const QString &text)
{
    std::fputs(qPrintable(text), stream);
    return stream == stdout ? 0 : 1;
}

int refuse(const QString &why)
{
    return print(stderr, QStringLiteral("graph-viewer: %1\n").arg(why));
}

} // namespace

int main(int argc, char **argv)
{
    if (isMeant(argc, argv))
        GraphViewer::LayoutWorker::run(argv);

    const bool display = hasDisplay();
    if (!display || CommandLine::isOffscreen(argc, argv))
        chooseOffscreenPlatform();
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("graph-viewer"));

    const CommandLine commandLine = CommandLine::parse(QApplication::arguments());
    if (commandLine.request == CommandLine::Request::Inform)
        return print(stdout, commandLine.text);
    if (commandLine.request == CommandLine::Request::Refuse)
        return refuse(commandLine.text);
    if (!display && commandLine.picture.isEmpty())
        return refuse(QStringLiteral("there is no display; --render OUT.png needs none"));
    return Session(commandLine).run();
}
