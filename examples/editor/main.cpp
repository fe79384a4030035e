#include "window/Session.h"

#include <QApplication>

#include <cstdio>

using Editor::CommandLine;
using Editor::Session;

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

// Qt reads its environment when the application is made.
void prepareEnvironment(int argc, char **argv, bool display)
{
    const bool offscreen = !display || CommandLine::isOffscreen(argc, argv);
    if (offscreen && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (const QByteArray factor = CommandLine::scaleFactor(argc, argv); !factor.isEmpty())
        qputenv("QT_SCALE_FACTOR", factor);
}

int print(FILE *stream, const QString &text)
{
    std::fputs(qPrintable(text), stream);
    return stream == stdout ? 0 : 1;
}

int refuse(const QString &why)
{
    return print(stderr, QStringLiteral("diagram-editor: %1\n").arg(why));
}

} // namespace

int main(int argc, char **argv)
{
    const bool display = hasDisplay();
    prepareEnvironment(argc, argv, display);
    const QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Figura"));
    QApplication::setApplicationName(QStringLiteral("diagram-editor"));

    const CommandLine commandLine = CommandLine::parse(QApplication::arguments());
    if (commandLine.request == CommandLine::Request::Inform)
        return print(stdout, commandLine.text);
    if (commandLine.request == CommandLine::Request::Refuse)
        return refuse(commandLine.text);
    if (!display && commandLine.picture.isEmpty() && commandLine.exported.isEmpty())
        return refuse(QStringLiteral("there is no display; --render and --export need none"));
    return Session(commandLine).run();
}
