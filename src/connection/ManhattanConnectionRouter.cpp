#include <figura/connection/ManhattanConnectionRouter.h>

#include "lineset_p.h"
#include "points_p.h"
#include "routing_p.h"

#include <figura/connection/IConnectionAnchor.h>
#include <figura/figure/Figure.h>

#include <QVarLengthArray>

#include <functional>
#include <optional>
#include <typeinfo>

namespace Velmora::Figura {
namespace {

constexpr int stubLength = 10;

using Lines = QVarLengthArray<int, 8>;

// A Ray in plain numbers: a Ray is a QObject, and a route would take a dozen of them.
struct Vector
{
    Vector(int xPart, int yPart)
        : x(xPart)
        , y(yPart)
    {
    }
    explicit Vector(const Ray &ray)
        : Vector(ray.x(), ray.y())
    {
    }
    explicit Vector(const QPoint &point)
        : Vector(point.x(), point.y())
    {
    }

    int dotProduct(const Vector &other) const { return x * other.x + y * other.y; }
    bool isHorizontal() const { return x != 0; } // a diagonal counts as horizontal, on purpose

    int x;
    int y;
};

const Vector up(0, -1);
const Vector down(0, 1);
const Vector left(-1, 0);
const Vector right(1, 0);

// Distances are compared in a fixed order, so that ties go to the top over the left and to the
// bottom over the top, while the right side wins only when it is strictly nearer.
Vector sideOf(const QRect &box, const QPoint &point, bool reversed)
{
    int distance = qAbs(box.left() - point.x());
    const Vector *direction = reversed ? &right : &left;
    if (const int top = qAbs(box.top() - point.y()); top <= distance) {
        distance = top;
        direction = reversed ? &down : &up;
    }
    if (const int bottom = qAbs(box.bottom() - point.y()); bottom <= distance) {
        distance = bottom;
        direction = reversed ? &up : &down;
    }
    if (qAbs(box.right() - point.x()) < distance)
        direction = reversed ? &left : &right;
    return *direction;
}

// The coordinate along \a direction of the end of a stub; negative ones lose their sign, on
// purpose.
int stubEnd(const Vector &point, const Vector &direction)
{
    return qAbs(direction.dotProduct(
        {point.x + stubLength * direction.x, point.y + stubLength * direction.y}));
}

int along(const Vector &point, bool horizontal)
{
    return horizontal ? point.y : point.x;
}

QRect boxAt(IConnectionAnchor *anchor, const QPoint &point)
{
    Figure *owner = anchor ? anchor->getOwner() : nullptr;
    if (!owner)
        return QRect(point.x() - 1, point.y() - 1, 2, 2);
    QRect box = owner->getBounds();
    return owner->translateToAbsolute(box);
}

/// A route as one coordinate for each segment: the y of a horizontal one, the x of a vertical one.
class Positions
{
public:
    Positions(const Vector &start, const Vector &end, const Vector &startDirection,
              const Vector &endDirection)
        : m_start(start)
        , m_end(end)
        , m_startDirection(startDirection)
        , m_endDirection(endDirection)
        , m_average((start.x + end.x) / 2, (start.y + end.y) / 2)
        , m_distance(end.x - start.x, end.y - start.y)
        , m_horizontal(startDirection.isHorizontal())
    {
    }

    const Lines &compute()
    {
        m_list.append(along(m_start, m_horizontal));
        m_horizontal = !m_horizontal;
        const int turn = m_startDirection.dotProduct(m_endDirection);
        if (turn == 0)
            turnOnce();
        else if (turn < 0)
            meetHeadOn();
        else
            turnBack();
        m_list.append(along(m_end, m_horizontal));
        return m_list;
    }

private:
    bool startsAway() const { return m_startDirection.dotProduct(m_distance) < 0; }
    bool endsAway() const { return m_endDirection.dotProduct(m_distance) > 0; }
    int startStub() const { return stubEnd(m_start, m_startDirection); }
    int endStub() const { return stubEnd(m_end, m_endDirection); }

    void turnOnce()
    {
        if (!startsAway() && !endsAway())
            return;
        m_list.append(startsAway() ? startStub() : along(m_average, m_horizontal));
        m_list.append(endsAway() ? endStub() : along(m_average, !m_horizontal));
    }

    void meetHeadOn()
    {
        const bool detour = startsAway();
        if (detour) {
            m_list.append(startStub());
            m_horizontal = !m_horizontal;
        }
        m_list.append(along(m_average, m_horizontal));
        if (detour)
            m_list.append(endStub());
        else
            m_horizontal = !m_horizontal;
    }

    // With the target ahead the stub is that of the start, on purpose.
    void turnBack()
    {
        m_list.append(startsAway() ? endStub() : startStub());
        m_horizontal = m_startDirection.isHorizontal();
    }

    const Vector m_start;
    const Vector m_end;
    const Vector m_startDirection;
    const Vector m_endDirection;
    const Vector m_average;
    const Vector m_distance;
    bool m_horizontal;
    Lines m_list;
};

struct Bounds
{
    int lower;
    int upper;
};

// How far from \a wanted a line may be looked for, given its neighbours on either side.
Bounds searchBounds(int wanted, int before, int after)
{
    const int low = qMin(before, after);
    const int high = qMax(before, after);
    const int nearest = low > wanted ? low : high;
    const int mirrored = 2 * wanted - nearest;
    if (nearest < wanted)
        return {nearest, mirrored};
    return {low <= wanted ? low : 2 * wanted - low, nearest};
}

// The first usable even line around \a wanted: that itself, then alternately above and below.
// A line that only ends the search is not reserved.
int lineNear(int wanted, const Bounds &bounds, const std::function<bool(int)> &usable,
             const std::function<void(int)> &reserve)
{
    const int first = wanted % 2 == 1 ? wanted - 1 : wanted; // a negative odd one stays, on purpose
    if (first < 1)
        return first;

    const auto attempt = [&](int line) -> std::optional<int> {
        if (usable(line)) {
            reserve(line);
            return line;
        }
        if (line <= bounds.lower)
            return line + 2;
        if (line >= bounds.upper)
            return line - 2;
        return std::nullopt;
    };
    std::optional<int> found = attempt(first);
    for (int offset = 2; !found && offset < first; offset += 2) {
        found = attempt(first + offset);
        if (!found)
            found = attempt(first - offset);
    }
    return found.value_or(first);
}

// The same where a line is usable unless it is taken: the nearest free one on either side is known
// at once, and the nearer of the two comes first, unless an end of the search comes before it.
int lineNear(int wanted, const Bounds &bounds, const LineSet &taken,
             const std::function<void(int)> &reserve)
{
    const int first = wanted % 2 == 1 ? wanted - 1 : wanted;
    if (first < 1)
        return first;
    if (!taken.contains(first)) {
        reserve(first);
        return first;
    }
    if (first <= bounds.lower)
        return first + 2;

    const qint64 most = first / 2;
    const qint64 toUpper = qMax<qint64>((qint64(bounds.upper) - first + 1) / 2, 0);
    const qint64 toLower = (qint64(first) - bounds.lower + 1) / 2;
    const qint64 upwards = qMin(taken.stepsToFree(first, 1, most), toUpper);
    const qint64 downwards = qMin(taken.stepsToFree(first, -1, most), toLower);
    if (qMin(upwards, downwards) >= most)
        return first;
    const int line = int(upwards <= downwards ? first + 2 * upwards : first - 2 * downwards);
    if (taken.contains(line))
        return line <= bounds.lower ? line + 2 : line - 2;
    reserve(line);
    return line;
}

// What a subclass thinks of a line is not known.
bool isPlain(const ManhattanConnectionRouter *router)
{
    return typeid(*router) == typeid(ManhattanConnectionRouter);
}

} // namespace

const Ray ManhattanConnectionRouter::UP(0, -1);
const Ray ManhattanConnectionRouter::DOWN(0, 1);
const Ray ManhattanConnectionRouter::LEFT(-1, 0);
const Ray ManhattanConnectionRouter::RIGHT(1, 0);

ManhattanConnectionRouter::ManhattanConnectionRouter(QObject *parent)
    : AbstractRouter(parent)
    , m_usedColumns(std::make_unique<LineSet>())
    , m_usedRows(std::make_unique<LineSet>())
{
}

ManhattanConnectionRouter::~ManhattanConnectionRouter() = default;

Ray ManhattanConnectionRouter::getDirection(const QRect &box, const QPoint &point, bool reversed)
{
    const Vector side = sideOf(box, point, reversed);
    return Ray(side.x, side.y);
}

Ray ManhattanConnectionRouter::getEndDirection(IConnection *connection)
{
    const QPointer<ManhattanConnectionRouter> alive(this);
    const Watched asked(connection);
    const QPoint point = getEndPoint(connection);
    const QRect box = boxAt(asked ? connection->getTargetAnchor() : nullptr, point);
    return alive ? getDirection(box, point, false) : LEFT;
}

Ray ManhattanConnectionRouter::getStartDirection(IConnection *connection)
{
    const QPointer<ManhattanConnectionRouter> alive(this);
    const Watched asked(connection);
    const QPoint point = getStartPoint(connection);
    const QRect box = boxAt(asked ? connection->getSourceAnchor() : nullptr, point);
    return alive ? getDirection(box, point, false) : LEFT;
}

bool ManhattanConnectionRouter::rowUsable(IConnection * /*connection*/, int row) const
{
    return !m_usedRows->contains(row);
}

bool ManhattanConnectionRouter::colUsable(IConnection * /*connection*/, int column) const
{
    return !m_usedColumns->contains(column);
}

void ManhattanConnectionRouter::invalidate(IConnection *connection)
{
    removeReservedLines(connection);
}

void ManhattanConnectionRouter::remove(IConnection *connection)
{
    removeReservedLines(connection);
}

QList<QPoint> ManhattanConnectionRouter::doRoute(IConnection *connection)
{
    if (!connection || !connection->getSourceAnchor() || !connection->getTargetAnchor())
        return {};

    const Routing goesOn(this, connection);
    QPoint start = getStartPoint(connection);
    if (!goesOn)
        return {};
    connection->translateToRelative(start);
    QPoint end = getEndPoint(connection);
    if (!goesOn)
        return {};
    connection->translateToRelative(end);
    // A subclass may have other directions in mind; nobody hears of the Rays otherwise.
    const bool isOwn = isPlain(this);
    const auto sideAt = [&](const QPoint &point, IConnectionAnchor *anchor) {
        return sideOf(boxAt(anchor, point), point, false);
    };
    const auto startSide = [&]() {
        const QPoint point = getStartPoint(connection);
        return sideAt(point, goesOn ? connection->getSourceAnchor() : nullptr);
    };
    const auto endSide = [&]() {
        const QPoint point = getEndPoint(connection);
        return sideAt(point, goesOn ? connection->getTargetAnchor() : nullptr);
    };
    const Vector startDirection = isOwn ? startSide() : Vector(getStartDirection(connection));
    if (!goesOn)
        return {};
    const Vector endDirection = isOwn ? endSide() : Vector(getEndDirection(connection));
    if (!goesOn)
        return {};

    Positions positions(Vector(start), Vector(end), startDirection, endDirection);
    const Lines &lines = positions.compute();
    return processPositions(Ray(start), Ray(end), QList<int>(lines.begin(), lines.end()),
                            startDirection.isHorizontal(), connection);
}

QList<QPointF> ManhattanConnectionRouter::doRouteF(IConnection *connection)
{
    return toFloating(doRoute(connection));
}

QList<QPoint> ManhattanConnectionRouter::processPositions(const Ray &start, const Ray &end,
                                                          const QList<int> &positions,
                                                          bool horizontal, IConnection *connection)
{
    removeReservedLines(connection);

    const qsizetype count = positions.size();
    const bool endsAtX = horizontal == (count % 2 == 1);
    Lines lines;
    lines.append(horizontal ? start.x() : start.y());
    lines.append(positions.constData(), count);
    lines.append(endsAtX ? end.x() : end.y());

    // The first and the last segment are fixed by the end points; those between are moved to free
    // lines, and what follows is reckoned from where they went.
    QList<QPoint> points;
    points.reserve(count + 1);
    points.append(QPoint(start.x(), start.y()));
    for (qsizetype k = 2; k <= count; ++k) {
        horizontal = !horizontal;
        int &line = lines[k];
        if (k < count) {
            line = horizontal ? getRowNear(connection, line, lines.at(k - 2), lines.at(k + 2))
                              : getColumnNear(connection, line, lines.at(k - 2), lines.at(k + 2));
        }
        const int previous = lines.at(k - 1);
        points.append(horizontal ? QPoint(previous, line) : QPoint(line, previous));
    }
    const QPoint last(end.x(), end.y());
    if (points.constLast() != last)
        points.append(last);
    return points;
}

int ManhattanConnectionRouter::getColumnNear(IConnection *connection, int wanted, int before,
                                             int after)
{
    const Bounds bounds = searchBounds(wanted, before, after);
    const auto reserve = [&](int column) { reserveColumn(connection, column); };
    if (isPlain(this))
        return lineNear(wanted, bounds, *m_usedColumns, reserve);
    const auto usable = [&](int column) { return colUsable(connection, column); };
    return lineNear(wanted, bounds, usable, reserve);
}

int ManhattanConnectionRouter::getRowNear(IConnection *connection, int wanted, int before,
                                          int after)
{
    const Bounds bounds = searchBounds(wanted, before, after);
    const auto reserve = [&](int row) { reserveRow(connection, row); };
    if (isPlain(this))
        return lineNear(wanted, bounds, *m_usedRows, reserve);
    const auto usable = [&](int row) { return rowUsable(connection, row); };
    return lineNear(wanted, bounds, usable, reserve);
}

bool ManhattanConnectionRouter::isColumnReservedBy(IConnection *connection, int column) const
{
    return m_reservations.value(connection).columns.contains(column);
}

bool ManhattanConnectionRouter::isRowReservedBy(IConnection *connection, int row) const
{
    return m_reservations.value(connection).rows.contains(row);
}

void ManhattanConnectionRouter::reserveColumn(IConnection *connection, int column)
{
    if (!connection)
        return;
    QList<int> &columns = reservationOf(connection).columns;
    if (!columns.contains(column))
        columns.append(column);
    m_usedColumns->insert(column);
}

void ManhattanConnectionRouter::reserveRow(IConnection *connection, int row)
{
    if (!connection)
        return;
    QList<int> &rows = reservationOf(connection).rows;
    if (!rows.contains(row))
        rows.append(row);
    m_usedRows->insert(row);
}

// A destroyed connection gives its lines back.
ManhattanConnectionRouter::Reservation &
ManhattanConnectionRouter::reservationOf(IConnection *connection)
{
    Reservation &reservation = m_reservations[connection];
    QObject *object = reservation.watch ? nullptr : objectOf(connection);
    if (object) {
        reservation.watch = connect(object, &QObject::destroyed, this,
                                    [this, connection]() { removeReservedLines(connection); });
    }
    return reservation;
}

void ManhattanConnectionRouter::removeReservedLines(IConnection *connection)
{
    if (m_reservations.isEmpty())
        return;
    const Reservation reservation = m_reservations.take(connection);
    disconnect(reservation.watch);
    for (const int column : reservation.columns)
        m_usedColumns->remove(column);
    for (const int row : reservation.rows)
        m_usedRows->remove(row);
}

} // namespace Velmora::Figura
