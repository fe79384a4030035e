#include "comparison.h"

#include <figura/Figura.h>

#include <QElapsedTimer>

#include <vector>

using namespace Velmora::Figura;

namespace {

struct Route
{
    std::unique_ptr<ChopboxAnchor> source;
    std::unique_ptr<ChopboxAnchor> target;
    std::unique_ptr<PolylineConnection> line;
};

class RouterScene
{
public:
    explicit RouterScene(const Scene &scene)
    {
        for (int i = 0; i < scene.count(); ++i) {
            m_boxes.push_back(std::make_unique<Rectangle>(nullptr));
            m_boxes.back()->setBounds(scene.rect(i));
        }
    }

    void connectPair(int from, int to)
    {
        Route route{std::make_unique<ChopboxAnchor>(m_boxes[from].get(), nullptr),
                    std::make_unique<ChopboxAnchor>(m_boxes[to].get(), nullptr),
                    std::make_unique<PolylineConnection>(nullptr)};
        route.line->setSourceAnchor(route.source.get());
        route.line->setTargetAnchor(route.target.get());
        m_routes.push_back(std::move(route));
    }

    void removeAll()
    {
        for (Route &route : m_routes)
            m_router.remove(route.line.get());
    }

    void routeAll()
    {
        for (Route &route : m_routes)
            m_router.route(route.line.get());
    }

    int count() const { return int(m_routes.size()); }

private:
    std::vector<std::unique_ptr<Rectangle>> m_boxes;
    ManhattanConnectionRouter m_router;
    std::vector<Route> m_routes;
};

double medianRoute(RouterScene &scene, int repetitions)
{
    QList<double> samples;
    for (int i = 0; i < repetitions; ++i) {
        scene.removeAll();
        QElapsedTimer timer;
        timer.start();
        scene.routeAll();
        samples.append(double(timer.nsecsElapsed()) / 1000 / scene.count());
    }
    return medianOf(samples);
}

/// 10000 routes between neighbours and 10000 between random pairs.
struct RouterScenes
{
    RouterScenes()
    {
        Numbers numbers;
        for (int i = 0; i < scene.count(); ++i) {
            near.connectPair(i, i + 1 < scene.count() ? i + 1 : i - 1);
            const int other = numbers.below(scene.count());
            far.connectPair(i, other == i ? 0 : other);
        }
    }

    const Scene scene{10000};
    RouterScene near{scene};
    RouterScene far{scene};
};

} // namespace

void measureRouter(const Plan &plan, Results &results)
{
    RouterScenes scenes;
    const QString side = QStringLiteral("figura");
    results.add(QStringLiteral("Manhattan, neighbours"), side, QStringLiteral("us"),
                medianRoute(scenes.near, plan.repetitions));
    results.add(QStringLiteral("Manhattan, random pairs"), side, QStringLiteral("us"),
                medianRoute(scenes.far, plan.repetitions));
}

void countRoutes(
    const std::function<void(const QString &, int, const std::function<void()> &)> &counted)
{
    RouterScenes scenes;
    for (RouterScene *scene : {&scenes.near, &scenes.far}) {
        scene->routeAll();
        scene->removeAll();
        counted(scene == &scenes.near ? QStringLiteral("Manhattan, neighbours")
                                      : QStringLiteral("Manhattan, random pairs"),
                scene->count(), [scene] { scene->routeAll(); });
    }
}
