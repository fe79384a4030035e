#include "CommandLine.h"

#include "load/GraphLoader.h"

#include <QCommandLineParser>

namespace GraphViewer {
namespace {

struct Parser : QCommandLineParser
{
    QCommandLineOption engine{
        QStringLiteral("engine"),
        QStringLiteral("Lay the graph out with <name>: %1. Without this option it is the engine "
                       "that the file names, or dot.")
            .arg(GraphLoader::engines().join(QStringLiteral(", "))),
        QStringLiteral("name")};
    QCommandLineOption render{
        QStringLiteral("render"),
        QStringLiteral(
            "Do not open the window; render it to the picture <file>. Needs no display."),
        QStringLiteral("file")};
    QCommandLineOption routing{
        QStringLiteral("routing"),
        QStringLiteral(
            "Run the edges as <name> has it: %1. Without this option it is engine, which "
            "stands for the layout engine's own curves.")
            .arg(EdgeRouting::names().join(QStringLiteral(", "))),
        QStringLiteral("name"), EdgeRouting::names().first()};
    QCommandLineOption timeout{
        QStringLiteral("timeout"),
        QStringLiteral("Give up laying out after this many <seconds>; 0 means never."),
        QStringLiteral("seconds"), QStringLiteral("300")};
    QCommandLineOption help = addHelpOption();
    QCommandLineOption version = addVersionOption();

    Parser()
    {
        setApplicationDescription(QStringLiteral("Shows a Graphviz graph in a window."));
        addOptions({engine, routing, render, timeout});
        addPositionalArgument(QStringLiteral("file"),
                              QStringLiteral("The graph: a .gv or .dot file, or one packed with "
                                             "gzip."),
                              QStringLiteral("[file]"));
    }
};

CommandLine answer(CommandLine::Request request, const QString &text)
{
    CommandLine line;
    line.request = request;
    line.text = text;
    return line;
}

CommandLine refuse(const QString &why)
{
    return answer(CommandLine::Request::Refuse,
                  why + QStringLiteral(" (--help tells what there is)"));
}

QString whyRefused(const Parser &parser, bool timeLimitOk)
{
    const QString engine = parser.value(parser.engine);
    if (parser.positionalArguments().size() > 1)
        return QStringLiteral("more than one file");
    if (parser.isSet(parser.engine) && !GraphLoader::engines().contains(engine))
        return QStringLiteral("unknown engine '%1'").arg(engine);
    const QString routing = parser.value(parser.routing);
    if (!EdgeRouting::names().contains(routing))
        return QStringLiteral("unknown routing '%1'").arg(routing);
    if (!timeLimitOk)
        return QStringLiteral("'%1' is not a number of seconds").arg(parser.value(parser.timeout));
    if (parser.isSet(parser.render) && parser.positionalArguments().isEmpty())
        return QStringLiteral("no file to render");
    return {};
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    Parser parser;
    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (parser.isSet(parser.help))
        return answer(Request::Inform, parser.helpText());
    if (parser.isSet(parser.version))
        return answer(Request::Inform, QStringLiteral("graph-viewer 1.0.0\n"));

    bool timeLimitOk = false;
    const int seconds = parser.value(parser.timeout).toInt(&timeLimitOk);
    const QString why = whyRefused(parser, timeLimitOk && seconds >= 0 && seconds <= 1'000'000);
    if (!why.isEmpty())
        return refuse(why);

    CommandLine line;
    line.file = parser.positionalArguments().value(0);
    line.engine = parser.value(parser.engine);
    line.routing = EdgeRouting::fromName(parser.value(parser.routing));
    line.picture = parser.value(parser.render);
    line.timeLimit = std::chrono::seconds(seconds);
    return line;
}

bool CommandLine::isOffscreen(int argc, char **argv)
{
    return std::any_of(argv + 1, argv + argc, [](const char *argument) {
        return QByteArray(argument).startsWith("--render");
    });
}

} // namespace GraphViewer
