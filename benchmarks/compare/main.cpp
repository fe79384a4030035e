// Compares Figura with QGraphicsView and with a bare painter; see docs/performance.md.

#include "comparison.h"
#include "instructions.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>

#include <cstdio>

namespace {

const QList<SideKind> allSides{{QStringLiteral("figura"), makeFiguraSide},
                               {QStringLiteral("floor"), makeFloorSide},
                               {QStringLiteral("flat"), makeFlatSide},
                               {QStringLiteral("tiled"), makeTiledSide},
                               {QStringLiteral("objects"), makeObjectSide}};

QList<SideKind> sidesNamed(const QString &names)
{
    QList<SideKind> sides = allSides;
    if (!names.isEmpty())
        sides.removeIf(
            [&names](const SideKind &side) { return !names.split(u',').contains(side.name); });
    return sides;
}

QStringList workloadsGiven(const QCommandLineParser &options)
{
    return options.value(QStringLiteral("workloads")).split(u',', Qt::SkipEmptyParts);
}

bool write(const QString &path, const QByteArray &json)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(json) == json.size();
}

int run(const QCommandLineParser &options)
{
    Plan plan;
    plan.count = options.value(QStringLiteral("count")).toInt();
    plan.repetitions = options.value(QStringLiteral("repetitions")).toInt();
    plan.buildRepetitions = options.value(QStringLiteral("builds")).toInt();
    plan.millisecondsPerRepetition = options.value(QStringLiteral("milliseconds")).toDouble();
    plan.sides = sidesNamed(options.value(QStringLiteral("sides")));
    plan.workloads = workloadsGiven(options);

    Results results;
    compare(plan, results);
    if (options.isSet(QStringLiteral("router")))
        measureRouter(plan, results);
    printTable(plan, results);

    const QString path = options.value(QStringLiteral("json"));
    if (!path.isEmpty() && !write(path, toJson(plan, results))) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QCommandLineParser options;
    const auto text = [](const char *t) { return QString::fromLatin1(t); };
    options.addOptions(
        {{text("count"), text("Rectangles"), text("n"), text("10000")},
         {text("repetitions"), text("Of each workload"), text("n"), text("9")},
         {text("builds"), text("Repetitions of building and destroying"), text("n"), text("9")},
         {text("milliseconds"), text("For one repetition"), text("ms"), text("20")},
         {text("sides"), text("Names, separated by commas"), text("names")},
         {text("workloads"), text("Names, separated by commas"), text("names")},
         {text("router"), text("Measure the Manhattan router too")},
         {text("json"), text("Where to write the results"), text("file")},
         {text("instructions"), text("Only run for callgrind to count")}});
    options.addHelpOption();
    options.process(application);

    if (options.isSet(QStringLiteral("instructions"))) {
        const QList<SideKind> sides = sidesNamed(options.value(QStringLiteral("sides")));
        return countInstructions(options.value(QStringLiteral("count")).toInt(),
                                 workloadsGiven(options), sides.constFirst().make)
                   ? 0
                   : 1;
    }
    return run(options);
}
