#include "scene.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int hubSpacing = 8;
constexpr int linesPerHub = 4;
constexpr int pitchX = Scene::box.width() + Scene::gap;
constexpr int pitchY = Scene::box.height() + Scene::gap;

// The four next ones first; the rest replaces those that are missing at the edge of the grid.
constexpr std::array<QPoint, 12> around{QPoint(1, 0), QPoint(-1, 0),  QPoint(0, 1),  QPoint(0, -1),
                                        QPoint(1, 1), QPoint(-1, -1), QPoint(1, -1), QPoint(-1, 1),
                                        QPoint(2, 0), QPoint(-2, 0),  QPoint(0, 2),  QPoint(0, -2)};

} // namespace

Scene::Scene(int count)
    : m_count(count)
    , m_columns(std::max(1, int(std::ceil(std::sqrt(count * double(pitchY) / pitchX)))))
{
    for (int hub = hubSpacing / 2; hub < count; hub += hubSpacing)
        connectHub(hub);
}

void Scene::connectHub(int hub)
{
    m_hubs.append(hub);
    const QPoint place(hub % m_columns, hub / m_columns);
    int missing = linesPerHub;
    for (const QPoint &step : around) {
        const QPoint other = place + step;
        const int index = other.y() * m_columns + other.x();
        const bool inside =
            other.x() >= 0 && other.x() < m_columns && index >= 0 && index < m_count;
        if (!inside || missing == 0)
            continue;
        m_edges.append({hub, index});
        --missing;
    }
}

QRect Scene::area() const
{
    return {0, 0, m_columns * pitchX - gap, rows() * pitchY - gap};
}

QRect Scene::rect(int index) const
{
    return {QPoint(index % m_columns * pitchX, index / m_columns * pitchY), box};
}

QColor Scene::color(int index) const
{
    return QColor::fromHsv(index * 37 % 360, 90, 230);
}

int Scene::indexAt(int column, int row) const
{
    const int index =
        std::clamp(row, 0, rows() - 1) * m_columns + std::clamp(column, 0, m_columns - 1);
    return std::min(index, m_count - 1);
}

QPointF chop(const QRectF &box, const QPointF &target)
{
    const QPointF centre = box.center();
    const QPointF d = target - centre;
    if (d.isNull())
        return centre;
    const double scale =
        0.5 / std::max(std::abs(d.x()) / box.width(), std::abs(d.y()) / box.height());
    return centre + d * scale;
}

int Numbers::below(int bound)
{
    m_state ^= m_state << 13;
    m_state ^= m_state >> 7;
    m_state ^= m_state << 17;
    return int(m_state % quint64(bound));
}
