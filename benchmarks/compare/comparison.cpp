#include "comparison.h"

#include "paintwatch.h"

#include <QElapsedTimer>

#include <malloc.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double microsecondsPerNanosecond = 1e-3;

/// A side that is shown, with what is counted about it.
struct Entry
{
    explicit Entry(const SideKind &kind, const Scene &scene, bool withEdges = true)
        : name(kind.name)
        , side(kind.make(scene))
    {
        side->build(withEdges);
        watch = std::make_unique<PaintWatch>(side->canvas());
        watch->awaitPaint();
    }

    QString name;
    std::unique_ptr<Side> side;
    std::unique_ptr<PaintWatch> watch;
};

double heapBytes()
{
    const auto info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

void runSteps(const Workload &workload, Entry &entry, int first, int count)
{
    for (int step = first; step < first + count; ++step) {
        workload.step(*entry.side, step);
        if (workload.paints)
            entry.watch->awaitPaint();
    }
}

// An even number of steps, so that what alternates is back where it was.
int stepsFor(const Workload &workload, double nanosecondsPerStep, double milliseconds)
{
    const double fitting = milliseconds * 1e6 / std::max(nanosecondsPerStep, 1.0);
    const int steps = int(std::clamp(fitting, 2.0, double(std::max(workload.maximumSteps, 2))));
    return steps + steps % 2;
}

class Turn
{
public:
    Turn(const Workload &workload, Entry &entry, double milliseconds)
        : m_workload(workload)
        , m_entry(entry)
    {
        prepare();
        const double once = timed(2) / 2;
        m_steps = stepsFor(workload, once, milliseconds);
        workload.restore(*entry.side);
    }

    void take()
    {
        prepare();
        m_samples.append(timed(m_steps) / m_steps * microsecondsPerNanosecond);
        m_workload.restore(*m_entry.side);
    }

    double median() const { return medianOf(m_samples); }

private:
    // The first steps after another side's turn find cold caches and a scroll that still has to be
    // painted.
    void prepare()
    {
        m_workload.prepare(*m_entry.side);
        m_entry.side->repaintAll();
        m_entry.watch->awaitPaint();
        QCoreApplication::sendPostedEvents();
    }

    double timed(int steps)
    {
        QElapsedTimer timer;
        timer.start();
        runSteps(m_workload, m_entry, m_next, steps);
        m_next += steps;
        return double(timer.nsecsElapsed());
    }

    const Workload &m_workload;
    Entry &m_entry;
    int m_steps = 1;
    int m_next = 0;
    QList<double> m_samples;
};

void takeTurns(const Plan &plan, const Workload &workload,
               std::vector<std::unique_ptr<Entry>> &entries, Results &results)
{
    std::vector<std::unique_ptr<Turn>> turns;
    for (auto &entry : entries)
        turns.push_back(std::make_unique<Turn>(workload, *entry, plan.millisecondsPerRepetition));
    for (int repetition = 0; repetition < plan.repetitions; ++repetition) {
        for (auto &turn : turns)
            turn->take();
    }
    for (std::size_t i = 0; i < turns.size(); ++i)
        results.add(workload.name, entries[i]->name, QStringLiteral("us"), turns[i]->median());
}

void measureLife(const Plan &plan, const Scene &scene, Results &results)
{
    QMap<QString, QList<double>> built;
    QMap<QString, QList<double>> destroyed;
    for (int repetition = 0; repetition < plan.buildRepetitions; ++repetition) {
        for (const SideKind &kind : plan.sides) {
            QElapsedTimer timer;
            timer.start();
            auto entry = std::make_unique<Entry>(kind, scene);
            built[kind.name].append(double(timer.nsecsElapsed()) * microsecondsPerNanosecond);
            timer.restart();
            entry.reset();
            destroyed[kind.name].append(double(timer.nsecsElapsed()) * microsecondsPerNanosecond);
        }
    }
    for (const SideKind &kind : plan.sides) {
        results.add(QStringLiteral("build and first paint"), kind.name, QStringLiteral("us"),
                    medianOf(built[kind.name]));
        results.add(QStringLiteral("destroy all"), kind.name, QStringLiteral("us"),
                    medianOf(destroyed[kind.name]));
    }
}

double heapOf(const SideKind &kind, const Scene &scene, bool withEdges)
{
    const double before = heapBytes();
    const Entry entry(kind, scene, withEdges);
    return heapBytes() - before;
}

// Less what a window with hardly anything in it takes.
void measureHeap(const Plan &plan, const Scene &scene, Results &results)
{
    const Scene small(16);
    for (const SideKind &kind : plan.sides) {
        heapOf(kind, small, true); // fills Qt's caches
        const double window = heapOf(kind, small, false);
        const double boxes = heapOf(kind, scene, false);
        const double all = heapOf(kind, scene, true);
        results.add(QStringLiteral("heap per rectangle"), kind.name, QStringLiteral("B"),
                    (boxes - window) / scene.count());
        results.add(QStringLiteral("heap per connection"), kind.name, QStringLiteral("B"),
                    (all - boxes) / double(scene.edges().size()));
    }
}

// Sides that show different things cannot be compared. A few lines pass over the middle of a
// rectangle.
void checkAgreement(const Scene &scene, const std::vector<std::unique_ptr<Entry>> &entries)
{
    constexpr int probes = 200;
    for (const auto &entry : entries) {
        Numbers numbers;
        int found = 0;
        for (int probe = 0; probe < probes; ++probe) {
            const int index = numbers.below(scene.count());
            found += entry->side->topmostAt(scene.rect(index).center()) == index;
        }
        if (found < probes * 9 / 10)
            qFatal("%s finds %d of %d rectangles", qPrintable(entry->name), found, probes);
    }
}

} // namespace

double medianOf(QList<double> values)
{
    if (values.isEmpty())
        return std::nan("");
    const auto middle = values.begin() + values.size() / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void Results::add(const QString &row, const QString &side, const QString &unit, double median)
{
    if (!rows.contains(row))
        rows.append(row);
    medians[row][side] = median;
    units[row] = unit;
}

void compare(const Plan &plan, Results &results)
{
    const Scene scene(plan.count);
    if (plan.workloads.isEmpty()) {
        measureHeap(plan, scene, results);
        measureLife(plan, scene, results);
    }

    std::vector<std::unique_ptr<Entry>> entries;
    for (const SideKind &kind : plan.sides)
        entries.push_back(std::make_unique<Entry>(kind, scene));
    checkAgreement(scene, entries);
    for (const Workload &workload : workloadsNamed(plan.workloads, scene))
        takeTurns(plan, workload, entries, results);
}
