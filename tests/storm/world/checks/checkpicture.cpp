#include "../checks.h"
#include "../updatewatch.h"
#include "../world.h"

#include <cstring>
#include <optional>

namespace Velmora::Figura::Storm {
namespace {

constexpr int mostAttempts = 4;

/// What the screen shows, and what a full repaint does.
struct Pictures
{
    QImage screen;
    QImage full;
};

// A full repaint that has something to validate shows what comes after the screen, and so does one
// that lays out what a decoration holds. A connection that is anchored to its own label, say, and
// places it, moves with every paint, for ever: then there is nothing to compare.
std::optional<Pictures> takePictures(World &world)
{
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const QImage screen = world.stage.screen();
        const UpdateWatch *manager = world.updateManager();
        const int changes = manager ? manager->changes() : 0;
        const QImage full = world.stage.full();
        if (!manager || manager->changes() == changes)
            return Pictures{screen, full};
        world.settle();
    }
    return std::nullopt;
}

bool areEqual(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return false;
    for (int y = 0; y < a.height(); ++y) {
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), size_t(a.width()) * 4) != 0)
            return false;
    }
    return true;
}

QList<QPoint> differences(const QImage &a, const QImage &b)
{
    QList<QPoint> points;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                points.append(QPoint(x, y));
        }
    }
    return points;
}

QByteArray describe(const QList<QPoint> &points)
{
    return QByteArray::number(points.size()) + " stale pixels, the first at (" +
           QByteArray::number(points.first().x()) + ", " + QByteArray::number(points.first().y()) +
           ")";
}

void checkDifferences(World &world, const QImage &screen, const QImage &full)
{
    const QList<QPoint> stale = world.stage.withoutExcuse(differences(screen, full), screen);
    if (!stale.isEmpty())
        world.report("picture", describe(stale));
}

} // namespace

void checkPicture(World &world)
{
    if (!world.stage.widget())
        return;
    const std::optional<Pictures> pictures = takePictures(world);
    if (!pictures)
        return;
    const auto &[screen, full] = *pictures;
    if (areEqual(screen, full))
        world.stage.forgetPaints();
    else if (screen.size() != full.size())
        world.report("picture", "the window has another size");
    else
        checkDifferences(world, screen, full);
}

} // namespace Velmora::Figura::Storm
