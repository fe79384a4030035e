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

    /// Nanoseconds for each route, all of them found anew.
    double routeAll()
    {
        for (Route &route : m_routes)
            m_router.remove(route.line.get());
        QElapsedTimer timer;
        timer.start();
        for (Route &route : m_routes)
            m_router.route(route.line.get());
        return double(timer.nsecsElapsed()) / double(m_routes.size());
    }

private:
    std::vector<std::unique_ptr<Rectangle>> m_boxes;
    ManhattanConnectionRouter m_router;
    std::vector<Route> m_routes;
};

double medianRoute(RouterScene &scene, int repetitions)
{
    QList<double> samples;
    for (int i = 0; i < repetitions; ++i)
        samples.append(scene.routeAll() / 1000);
    return medianOf(samples);
}

} // namespace

void measureRouter(const Plan &plan, Results &results)
{
    const Scene scene(10000);
    RouterScene near(scene);
    RouterScene far(scene);
    Numbers numbers;
    for (int i = 0; i < scene.count(); ++i) {
        near.connectPair(i, i + 1 < scene.count() ? i + 1 : i - 1);
        const int other = numbers.below(scene.count());
        far.connectPair(i, other == i ? 0 : other);
    }
    const QString side = QStringLiteral("figura");
    results.add(QStringLiteral("Manhattan, neighbours"), side, QStringLiteral("us"),
                medianRoute(near, plan.repetitions));
    results.add(QStringLiteral("Manhattan, random pairs"), side, QStringLiteral("us"),
                medianRoute(far, plan.repetitions));
}
