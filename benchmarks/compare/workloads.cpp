#include "workloads.h"

#include <QHash>

#include <algorithm>
#include <memory>

namespace {

constexpr int movedAtOnce = 1000;
constexpr int scrollStep = 16;
constexpr int removalsAtMost = 20;
constexpr double zoomedOut = 0.8;

void nothing(Side & /*side*/) {}

int alternating(int step)
{
    return step % 2 == 0 ? 1 : -1;
}

QColor colorOf(int step)
{
    return QColor::fromHsv(step * 53 % 360, 120, 220);
}

QRect initialView(const Scene &scene)
{
    QRect view(QPoint(), Scene::view);
    view.moveCenter(scene.area().center());
    return view;
}

QRect visibleArea(const Scene &scene)
{
    return initialView(scene).adjusted(60, 60, -60, -60) & scene.area();
}

QList<int> visibleBoxes(const Scene &scene)
{
    QList<int> boxes;
    for (int i = 0; i < scene.count(); ++i) {
        if (visibleArea(scene).contains(scene.rect(i)))
            boxes.append(i);
    }
    return boxes;
}

QList<int> visibleHubs(const Scene &scene)
{
    QList<int> hubs = scene.hubs();
    hubs.removeIf([&scene](int hub) { return !visibleArea(scene).contains(scene.rect(hub)); });
    return hubs;
}

Workload recolorOne(const Scene &scene)
{
    const QList<int> boxes = visibleBoxes(scene);
    return {QStringLiteral("recolor one"), true, nothing,
            [boxes](Side &side, int step) {
                side.recolor(boxes[step * 7 % boxes.size()], colorOf(step));
            },
            nothing};
}

Workload recolorTwo(const Scene &scene)
{
    const QList<int> boxes = visibleBoxes(scene);
    return {QStringLiteral("recolor two far apart"), true, nothing,
            [boxes](Side &side, int step) {
                side.recolor(boxes[step % 5], colorOf(step));
                side.recolor(boxes[boxes.size() - 1 - step % 5], colorOf(step));
            },
            nothing};
}

Workload dragHub(const Scene &scene)
{
    const int hub = visibleHubs(scene).value(visibleHubs(scene).size() / 2);
    return {QStringLiteral("drag a hub"), true, nothing,
            [hub](Side &side, int step) { side.moveBy(hub, QPoint(alternating(step), 0)); },
            nothing};
}

Workload pointQuery(const Scene &scene)
{
    const auto numbers = std::make_shared<Numbers>();
    const QSize size = scene.area().size();
    return {QStringLiteral("topmost at a point"), false, nothing,
            [numbers, size](Side &side, int) {
                side.topmostAt({numbers->below(size.width()), numbers->below(size.height())});
            },
            nothing};
}

Workload rectQuery(const Scene &scene)
{
    const auto numbers = std::make_shared<Numbers>();
    const QSize size = scene.area().size() - QSize(200, 200);
    return {QStringLiteral("figures in 200 x 200"), false, nothing,
            [numbers, size](Side &side, int) {
                const QPoint corner(numbers->below(size.width()), numbers->below(size.height()));
                side.countIn(QRect(corner, QSize(200, 200)));
            },
            nothing};
}

Workload moveMany(const Scene &scene)
{
    const int stride = std::max(1, scene.count() / movedAtOnce);
    return {QStringLiteral("move 1000"), true, nothing,
            [stride](Side &side, int step) {
                for (int i = 0; i < movedAtOnce; ++i)
                    side.moveBy(i * stride, QPoint(0, alternating(step)));
            },
            nothing};
}

Workload paintView()
{
    return {QStringLiteral("paint the view"), true, nothing,
            [](Side &side, int) { side.repaintAll(); }, nothing};
}

Workload scroll()
{
    return {
        QStringLiteral("scroll by 16"), true, nothing,
        [](Side &side, int step) { side.scrollBy(step / 4 % 2 == 0 ? scrollStep : -scrollStep); },
        nothing};
}

Workload zoom()
{
    return {QStringLiteral("zoom step"), true, nothing,
            [](Side &side, int step) { side.setScale(step % 2 == 0 ? zoomedOut : 1.0); },
            [](Side &side) { side.setScale(1.0); }};
}

Workload paintFitted(const Scene &scene)
{
    const QPoint corner = initialView(scene).topLeft();
    return {QStringLiteral("whole scene fitted"), true, [](Side &side) { side.fit(); },
            [](Side &side, int) { side.repaintAll(); },
            [corner](Side &side) {
                side.setScale(1.0);
                side.lookAt(corner);
            }};
}

Workload removeHub(const Scene &scene)
{
    // Every third one from the first on, so that no two share a line.
    const auto next = std::make_shared<QHash<const Side *, int>>();
    const QList<int> hubs = scene.hubs();
    return {QStringLiteral("remove one with its lines"),
            false,
            nothing,
            [next, hubs](Side &side, int) {
                int &index = (*next)[&side];
                side.removeHub(hubs[qint64(index) * 7919 % hubs.size()]);
                ++index;
            },
            nothing,
            std::min(removalsAtMost, int(hubs.size()) / 12)};
}

} // namespace

QList<Workload> makeWorkloads(const Scene &scene)
{
    QList<Workload> all{recolorOne(scene),  recolorTwo(scene), dragHub(scene),
                        pointQuery(scene),  rectQuery(scene),  moveMany(scene),
                        paintView(),        scroll(),          zoom(),
                        paintFitted(scene), removeHub(scene)};
    const QPoint corner = initialView(scene).topLeft();
    for (Workload &workload : all) {
        workload.prepare = [prepare = workload.prepare, corner](Side &side) {
            side.lookAt(corner);
            prepare(side);
        };
    }
    return all;
}

QList<Workload> workloadsNamed(const QStringList &names, const Scene &scene)
{
    QList<Workload> workloads = makeWorkloads(scene);
    if (!names.isEmpty())
        workloads.removeIf([&names](const Workload &each) { return !names.contains(each.name); });
    return workloads;
}
