#pragma once

#include "workloads.h"

#include <QMap>
#include <QStringList>

#include <functional>

struct SideKind
{
    QString name;
    SideMaker make;
};

/// What was measured: the median of each workload and side, in microseconds or bytes.
struct Results
{
    QStringList rows; ///< In the order of measuring.
    QMap<QString, QMap<QString, double>> medians;
    QMap<QString, QString> units;

    void add(const QString &row, const QString &side, const QString &unit, double median);
};

struct Plan
{
    int count = 10000;
    int repetitions = 9;
    int buildRepetitions = 9;
    double millisecondsPerRepetition = 20;
    QList<SideKind> sides;
    QStringList workloads; ///< By name; all when empty, and only then those of life and memory.
};

/// Builds every side and lets them take turns at every workload.
void compare(const Plan &plan, Results &results);

/// Routes through a Manhattan router between neighbours and between random pairs.
void measureRouter(const Plan &plan, Results &results);

/// Calls \a counted with the name of each kind of routing, how many routes it makes, and a run of
/// it.
void countRoutes(
    const std::function<void(const QString &, int, const std::function<void()> &)> &counted);

void printTable(const Plan &plan, const Results &results);
QByteArray toJson(const Plan &plan, const Results &results);

double medianOf(QList<double> values);
