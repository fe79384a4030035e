#include "instructions.h"

#include "comparison.h"
#include "paintwatch.h"
#include "workloads.h"

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#define HAS_CALLGRIND 1
#endif

#if HAS_CALLGRIND
namespace {

constexpr int warmUpSteps = 4;
constexpr int countedSteps = 10;

template<typename Work>
void counted(const QString &name, int units, Work work)
{
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT(qPrintable(name + u'/' + QString::number(units)));
}

void runSteps(const Workload &workload, Side &side, PaintWatch &watch, int first, int count)
{
    for (int step = first; step < first + count; ++step) {
        workload.step(side, step);
        if (workload.paints)
            watch.awaitPaint();
    }
}

void countWorkload(const Workload &workload, Side &side, PaintWatch &watch)
{
    workload.prepare(side);
    side.repaintAll();
    watch.awaitPaint();
    runSteps(workload, side, watch, 0, warmUpSteps);
    counted(workload.name, countedSteps,
            [&] { runSteps(workload, side, watch, warmUpSteps, countedSteps); });
    workload.restore(side);
}

} // namespace

bool countInstructions(int count, const QStringList &workloads, const SideMaker &makeSide)
{
    if (!RUNNING_ON_VALGRIND)
        return false;

    if (workloads.isEmpty() || workloads.contains(QStringLiteral("routes"))) {
        countRoutes([](const QString &name, int units, const std::function<void()> &work) {
            counted(name, units, work);
        });
    }
    const Scene scene(count);
    std::unique_ptr<Side> side = makeSide(scene);
    std::unique_ptr<PaintWatch> watch;
    counted(QStringLiteral("build"), count, [&] {
        side->build(true);
        watch = std::make_unique<PaintWatch>(side->canvas());
        watch->awaitPaint();
    });
    for (const Workload &workload : workloadsNamed(workloads, scene)) {
        // Grows with what is shown, by its nature.
        if (!workloads.isEmpty() || workload.name != QStringLiteral("whole scene fitted"))
            countWorkload(workload, *side, *watch);
    }
    counted(QStringLiteral("destroy"), count, [&] { side.reset(); });
    return true;
}
#else
bool countInstructions(int /*count*/, const QStringList & /*workloads*/,
                       const SideMaker & /*makeSide*/)
{
    return false;
}
#endif
