#pragma once

#include "side.h"

#include <QStringList>

/// Does each workload some times on one side, for callgrind to count: one dump each, named
/// "workload/units", where units is what the count has to be divided by. Only \a workloads and not
/// building and destroying, unless they are empty. False without callgrind.
bool countInstructions(int count, const QStringList &workloads, const SideMaker &makeSide);
