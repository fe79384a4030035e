#include "comparison.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>
#include <QThread>

#include <cstdio>

namespace {

const QString own = QStringLiteral("figura");

QString processorName()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.mid(line.indexOf(':') + 1)).trimmed();
    }
    return {};
}

// The largest share of memory that the process ever had, in MiB.
double peakMemory()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

QString machine()
{
    return QStringLiteral("%1, %2 cores, %3, Qt %4")
        .arg(processorName())
        .arg(QThread::idealThreadCount())
        .arg(QSysInfo::prettyProductName(), QString::fromLatin1(qVersion()));
}

void printRow(const Plan &plan, const Results &results, const QString &row)
{
    const auto medians = results.medians.value(row);
    std::printf("%-28s %3s", qPrintable(row), qPrintable(results.units.value(row)));
    for (const SideKind &kind : plan.sides)
        std::printf(" %12.2f", medians.value(kind.name, qQNaN()));
    for (const SideKind &kind : plan.sides) {
        if (kind.name != own)
            std::printf(" %8.2f", medians.value(own, qQNaN()) / medians.value(kind.name, qQNaN()));
    }
    std::printf("\n");
}

} // namespace

void printTable(const Plan &plan, const Results &results)
{
    std::printf("n = %d, medians of %d; %s\n", plan.count, plan.repetitions, qPrintable(machine()));
    std::printf("%-32s", "");
    for (const SideKind &kind : plan.sides)
        std::printf(" %12s", qPrintable(kind.name));
    for (const SideKind &kind : plan.sides) {
        if (kind.name != own)
            std::printf(" %8s", qPrintable(u'/' + kind.name));
    }
    std::printf("\n");
    for (const QString &row : results.rows)
        printRow(plan, results, row);
    std::printf("peak memory %.0f MiB\n", peakMemory());
}

QByteArray toJson(const Plan &plan, const Results &results)
{
    QJsonArray rows;
    for (const QString &row : results.rows) {
        QJsonObject medians;
        QJsonObject ratios;
        const auto measured = results.medians.value(row);
        for (auto side = measured.begin(); side != measured.end(); ++side) {
            medians[side.key()] = side.value();
            if (side.key() != own && measured.contains(own))
                ratios[side.key()] = measured.value(own) / side.value();
        }
        rows.append(QJsonObject{{QStringLiteral("workload"), row},
                                {QStringLiteral("unit"), results.units.value(row)},
                                {QStringLiteral("medians"), medians},
                                {QStringLiteral("figura_to"), ratios}});
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("machine"), machine()},
                                     {QStringLiteral("figures"), plan.count},
                                     {QStringLiteral("repetitions"), plan.repetitions},
                                     {QStringLiteral("peak_memory_mib"), peakMemory()},
                                     {QStringLiteral("rows"), rows}})
        .toJson();
}
