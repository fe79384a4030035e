#include "storm.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>

using namespace Velmora::Figura::Storm;

namespace {

constexpr char description[] =
    "Runs random operations on a shown viewer and checks what comes of them.\n"
    "A failing run prints its seed and the shortest list of operations that still fails.";

QCommandLineOption option(const char *name, const char *text, const char *value = "")
{
    return {QLatin1String(name), QLatin1String(text), QLatin1String(value)};
}

Request requestFrom(const QCommandLineParser &parser)
{
    Request request;
    const QStringList seeds = parser.value(QStringLiteral("seed")).split(u'-');
    request.firstSeed = seeds.first().toUInt();
    request.lastSeed = seeds.last().toUInt();
    request.operations = parser.value(QStringLiteral("operations")).toLongLong();
    return request;
}

// Short ones, from which a fuzzer can make its way.
bool writeCorpus(const QString &directory)
{
    QDir().mkpath(directory);
    for (quint32 seed = 1; seed <= 24; ++seed) {
        QFile file(QStringLiteral("%1/seed-%2").arg(directory).arg(seed, 2, 10, QLatin1Char('0')));
        if (!file.open(QIODevice::WriteOnly))
            return false;
        file.write(encode(generate(seed, 0, 10 * int(seed))));
    }
    return true;
}

bool explainFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray content = file.readAll();
    const std::optional<Script> script = fromText(content);
    return script && explain(*script);
}

// What the fuzzer has found, as a list.
bool explainBytes(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) && explain(decode(file.readAll()));
}

bool run(const QCommandLineParser &parser)
{
    const QStringList rest = parser.positionalArguments();
    if (parser.isSet(QStringLiteral("play")))
        return playFile(parser.value(QStringLiteral("play")));
    if (parser.isSet(QStringLiteral("episodes")))
        return playEpisodes(parser.value(QStringLiteral("episodes")).toUInt(),
                            rest.value(0).toUInt(), rest.value(1).toUInt());
    if (parser.isSet(QStringLiteral("replay")))
        return explainFile(parser.value(QStringLiteral("replay")));
    if (parser.isSet(QStringLiteral("episode")))
        return explain(generate(requestFrom(parser).firstSeed,
                                parser.value(QStringLiteral("episode")).toUInt(),
                                operationsPerEpisode));
    if (parser.isSet(QStringLiteral("bytes")))
        return explainBytes(parser.value(QStringLiteral("bytes")));
    if (parser.isSet(QStringLiteral("corpus")))
        return writeCorpus(parser.value(QStringLiteral("corpus")));
    return raise(requestFrom(parser));
}

} // namespace

int main(int argc, char *argv[])
{
    // The same run everywhere: no display, and no order that depends on chance.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QHashSeed::setDeterministicGlobalSeed();
    const QApplication application(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("seed"), QStringLiteral("One seed, or several: 1-5."),
                      QStringLiteral("seed"), QStringLiteral("1")});
    parser.addOption({QStringLiteral("operations"),
                      QStringLiteral("How many operations for each seed."), QStringLiteral("count"),
                      QStringLiteral("10000")});
    parser.addOption(
        option("replay", "Runs a list of operations; one that fails is shrunk.", "file"));
    parser.addOption(option("episode", "Runs one episode of a seed.", "number"));
    parser.addOption(option("bytes", "The same with an input of the fuzzer.", "file"));
    parser.addOption(option("corpus", "Writes inputs for the fuzzer to begin with.", "directory"));
    parser.addOption(
        option("play", "Runs a list here and now; used by the program itself.", "file"));
    parser.addOption(
        option("episodes", "Runs episodes here and now; used by the program itself.", "seed"));
    parser.process(application);
    return run(parser) ? 0 : 1;
}
