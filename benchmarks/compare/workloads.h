#pragma once

#include "side.h"

#include <QList>
#include <QStringList>

#include <functional>

/// One thing that a user does over and over, done by every side.
struct Workload
{
    QString name;
    bool paints; ///< Each step ends with a paint event.
    std::function<void(Side &)> prepare;
    std::function<void(Side &, int step)> step;
    std::function<void(Side &)> restore;
    int maximumSteps = 5000;
};

/// All that can be repeated on one scene, in an order in which none disturbs the next.
QList<Workload> makeWorkloads(const Scene &scene);
/// Only those in \a names, unless that is empty.
QList<Workload> workloadsNamed(const QStringList &names, const Scene &scene);
