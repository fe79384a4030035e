#include "window/CommandLine.h"

#include <QCommandLineParser>
#include <QRegularExpression>

namespace Editor {
namespace {

const QString renderName = QStringLiteral("render");
const QString exportName = QStringLiteral("export");
const QString sampleName = QStringLiteral("sample");
const QString sizeName = QStringLiteral("size");
const QString selectName = QStringLiteral("select");
const QString darkName = QStringLiteral("dark");
const QString gridName = QStringLiteral("grid");
const QString scaleName = QStringLiteral("scale");

CommandLine answer(CommandLine::Request request, const QString &text)
{
    CommandLine commandLine;
    commandLine.request = request;
    commandLine.text = text;
    return commandLine;
}

CommandLine refusal(const QString &why)
{
    return answer(CommandLine::Request::Refuse,
                  QStringLiteral("%1 (--help tells what there is)").arg(why));
}

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral("Edits diagrams."));
    parser.addHelpOption();
    parser.addOptions({
        {renderName, QStringLiteral("Renders the window to a picture; needs no display."),
         QStringLiteral("OUT.png")},
        {exportName, QStringLiteral("Exports the diagram as SVG, PDF or PNG; needs no display."),
         QStringLiteral("OUT")},
        {sampleName, QStringLiteral("Opens a sample: gallery, state-machine or network-plan."),
         QStringLiteral("NAME")},
        {sizeName, QStringLiteral("The size of the window, for example 1280x800."),
         QStringLiteral("SIZE")},
        {scaleName, QStringLiteral("Pixels for one unit of the window, for example 2."),
         QStringLiteral("FACTOR")},
        {selectName, QStringLiteral("Selects nodes and edges by their numbers, as in 3,4."),
         QStringLiteral("IDS")},
        {darkName, QStringLiteral("Dark colours.")},
        {gridName, QStringLiteral("Shows the grid.")},
    });
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The diagram to open."),
                                 QStringLiteral("[file]"));
}

QSize toSize(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{3,4})x(\\d{3,4})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    return match.hasMatch() ? QSize(match.captured(1).toInt(), match.captured(2).toInt()) : QSize();
}

QList<int> toIds(const QString &text)
{
    QList<int> ids;
    const QStringList parts = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &part : parts)
        ids << part.toInt();
    return ids;
}

CommandLine accepted(const QCommandLineParser &parser)
{
    CommandLine commandLine;
    commandLine.file = parser.positionalArguments().value(0);
    commandLine.sample = parser.value(sampleName);
    commandLine.picture = parser.value(renderName);
    commandLine.exported = parser.value(exportName);
    commandLine.size = toSize(parser.value(sizeName));
    commandLine.chosen = toIds(parser.value(selectName));
    commandLine.dark = parser.isSet(darkName);
    commandLine.grid = parser.isSet(gridName);
    return commandLine;
}

bool names(const char *argument, const QString &option)
{
    const QString text = QString::fromLocal8Bit(argument);
    return text == QStringLiteral("--") + option ||
           text.startsWith(QStringLiteral("--%1=").arg(option));
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments))
        return refusal(parser.errorText());
    if (parser.isSet(QStringLiteral("help")))
        return answer(Request::Inform, parser.helpText());
    if (parser.positionalArguments().size() > 1)
        return refusal(QStringLiteral("more than one file"));
    const CommandLine result = accepted(parser);
    if (!result.sample.isEmpty() && !result.file.isEmpty())
        return refusal(QStringLiteral("a sample and a file"));
    if (parser.isSet(sizeName) && !result.size.isValid())
        return refusal(QStringLiteral("'%1' is not a size").arg(parser.value(sizeName)));
    if (!result.exported.isEmpty() && result.file.isEmpty() && result.sample.isEmpty())
        return refusal(QStringLiteral("no file to export"));
    return result;
}

bool CommandLine::isOffscreen(int argc, char **argv)
{
    return std::any_of(argv + 1, argv + argc, [](const char *argument) {
        return names(argument, renderName) || names(argument, exportName);
    });
}

QByteArray CommandLine::scaleFactor(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (!names(argv[i], scaleName))
            continue;
        const QByteArray argument(argv[i]);
        const qsizetype sign = argument.indexOf('=');
        if (sign >= 0)
            return argument.mid(sign + 1);
        return i + 1 < argc ? QByteArray(argv[i + 1]) : QByteArray();
    }
    return {};
}

} // namespace Editor
