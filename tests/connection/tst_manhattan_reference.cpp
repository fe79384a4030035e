#include "manhattan_fixtures.h"
#include "manhattan_reference.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/XYAnchor.h>

#include <place.h>
#include <rootfigure.h>

#include <QRandomGenerator>
#include <QTest>

#include <array>
#include <memory>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using End = ManhattanReference::End;

namespace {

const int PAIRS = 1500;
const int SEQUENCES = 40;
const int STEPS = 120;
const int CONNECTIONS = 8;

enum AnchorKind { Chopbox, Ellipse, Point };

int between(QRandomGenerator &random, int lowest, int highest)
{
    return random.bounded(lowest, highest + 1);
}

QPoint randomPoint(QRandomGenerator &random, int lowest, int highest)
{
    const int x = between(random, lowest, highest);
    return QPoint(x, between(random, lowest, highest));
}

QRect randomBox(QRandomGenerator &random, int lowest, int highest, int largest)
{
    const QPoint corner = randomPoint(random, lowest, highest);
    const int width = between(random, 1, largest);
    return QRect(corner, QSize(width, between(random, 1, largest)));
}

AnchorKind randomKind(QRandomGenerator &random)
{
    static const AnchorKind kinds[] = {Chopbox, Chopbox, Ellipse, Point};
    return kinds[random.bounded(4)];
}

QString toText(const QRect &box)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(box.x())
        .arg(box.y())
        .arg(box.width())
        .arg(box.height());
}

QString toText(const QList<QPoint> &points)
{
    QStringList parts;
    for (const QPoint &point : points)
        parts.append(QStringLiteral("%1,%2").arg(point.x()).arg(point.y()));
    return parts.join(QLatin1Char(' '));
}

QString compare(const QList<QPoint> &actual, const QList<QPoint> &expected, const QString &scene)
{
    if (actual == expected)
        return QString();
    return QStringLiteral("%1: got %2, expected %3").arg(scene, toText(actual), toText(expected));
}

// A figure at a known absolute place, below a parent with coordinates of its own, and an anchor on
// it, or at its corner without knowing it.
class Post
{
public:
    Post(const QRect &box, AnchorKind kind, const QPoint &corner)
        : m_place(corner)
        , m_kind(kind)
        , m_box(box)
    {
        m_place.add(&m_figure);
        m_figure.setBounds(box.translated(-corner));
        if (kind == Chopbox)
            m_anchor = std::make_unique<ChopboxAnchor>(&m_figure);
        else if (kind == Ellipse)
            m_anchor = std::make_unique<EllipseAnchor>(&m_figure);
        else
            m_anchor = std::make_unique<XYAnchor>(box.topLeft());
    }

    ConnectionAnchorBase *anchor() const { return m_anchor.get(); }

    End end(const Post &other) const
    {
        const QPoint point = m_anchor->getLocation(other.m_anchor->getReferencePoint());
        return {point, m_kind == Point ? ManhattanReference::boxAround(point) : m_box};
    }

    QString toText() const
    {
        static const char *const names[] = {"chopbox", "ellipse", "point"};
        return QLatin1String(names[m_kind]) + QLatin1Char(' ') + ::toText(m_box);
    }

private:
    Place m_place;
    AnchorKind m_kind;
    QRect m_box;
    Figure m_figure;
    std::unique_ptr<ConnectionAnchorBase> m_anchor;
};

// A detached connection between two posts, in coordinates that begin elsewhere.
class Link
{
public:
    Link(QRandomGenerator &random, const QRect &source, const QRect &target, int reach = 60)
        : origin(randomPoint(random, -reach, reach))
        , m_place(origin)
        , m_source(source, randomKind(random), randomPoint(random, -50, 50))
        , m_target(target, randomKind(random), randomPoint(random, -50, 50))
        , connection(new PolylineConnection)
    {
        m_place.add(connection.get());
        connection->setSourceAnchor(m_source.anchor());
        connection->setTargetAnchor(m_target.anchor());
    }

    QList<QPoint> expectedRoute(ManhattanReference &reference, int key) const
    {
        return reference.route(key, m_source.end(m_target), m_target.end(m_source), origin);
    }

    QString toText() const
    {
        return QStringLiteral("%1 to %2 at %3,%4")
            .arg(m_source.toText(), m_target.toText())
            .arg(origin.x())
            .arg(origin.y());
    }

    QPoint origin;

private:
    Place m_place;
    Post m_source;
    Post m_target;

public:
    std::unique_ptr<PolylineConnection> connection; // dies first
};

using Boxes = std::pair<QRect, QRect>;
using MakeBoxes = Boxes (*)(QRandomGenerator &);

Boxes farBoxes(QRandomGenerator &random)
{
    const QRect source = randomBox(random, 0, 700, 90);
    return {source, randomBox(random, 0, 700, 90)};
}

Boxes nearBoxes(QRandomGenerator &random)
{
    const QRect source = randomBox(random, 40, 120, 60);
    return {source, randomBox(random, 40, 120, 60)};
}

Boxes boxesAroundTheOrigin(QRandomGenerator &random)
{
    const QRect source = randomBox(random, -300, 250, 80);
    return {source, randomBox(random, -300, 250, 80)};
}

Boxes nestedBoxes(QRandomGenerator &random)
{
    const QRect outer = randomBox(random, -50, 150, 120).adjusted(0, 0, 20, 20);
    const QPoint corner(between(random, outer.left(), outer.right()),
                        between(random, outer.top(), outer.bottom()));
    const QRect inner = QRect(corner, QSize(between(random, 1, 40), between(random, 1, 40)));
    const QRect within = inner.intersected(outer);
    return random.bounded(2) ? Boxes(outer, within) : Boxes(within, outer);
}

Boxes coincidentBoxes(QRandomGenerator &random)
{
    const QRect box = randomBox(random, -50, 300, 60);
    return {box, box};
}

Boxes tinyBoxes(QRandomGenerator &random)
{
    const QRect source = randomBox(random, 0, 60, 4);
    return {source, randomBox(random, 0, 60, 4)};
}

Boxes alignedBoxes(QRandomGenerator &random)
{
    const QRect source = randomBox(random, 0, 300, 50);
    const int way = between(random, -200, 200);
    return {source, source.translated(random.bounded(2) ? QPoint(way, 0) : QPoint(0, way))};
}

// The columns and rows of the two are compared over all lines that the scenes of this file reach.
QString compareReservations(const OpenRouter &router, const ManhattanReference &reference,
                            const std::vector<std::unique_ptr<Link>> &links)
{
    for (int line = -30; line < 500; ++line) {
        if (router.colUsable(nullptr, line) != reference.isFree(ManhattanReference::X, line))
            return QStringLiteral("column %1").arg(line);
        if (router.rowUsable(nullptr, line) != reference.isFree(ManhattanReference::Y, line))
            return QStringLiteral("row %1").arg(line);
        for (int key = 0; key < int(links.size()); ++key) {
            IConnection *connection = links[key]->connection.get();
            if (router.isColumnReservedBy(connection, line) !=
                reference.isHeldBy(key, ManhattanReference::X, line))
                return QStringLiteral("column %1 of connection %2").arg(line).arg(key);
            if (router.isRowReservedBy(connection, line) !=
                reference.isHeldBy(key, ManhattanReference::Y, line))
                return QStringLiteral("row %1 of connection %2").arg(line).arg(key);
        }
    }
    return QString();
}

// All in nearly the same place, so that they want the same lines.
std::unique_ptr<Link> crowdedLink(QRandomGenerator &random)
{
    const int lowest = random.bounded(5) ? 100 : -40;
    const QRect source(randomPoint(random, lowest, lowest + 6), QSize(21, 21));
    const QPoint way = random.bounded(3) ? QPoint(60, 9) : QPoint(9, 60);
    const QRect target = randomBox(random, lowest, lowest + 6, 25).translated(way);
    return std::make_unique<Link>(random, source, target, 2);
}

// Connections on one router, with the reference beside it.
class Crowd
{
public:
    explicit Crowd(quint32 seed)
        : m_random(seed)
    {
        for (int key = 0; key < CONNECTIONS; ++key)
            links.push_back(crowdedLink(m_random));
    }

    // One random step; the difference it shows, or nothing.
    QString step()
    {
        const int key = m_random.bounded(CONNECTIONS);
        switch (m_random.bounded(10)) {
        case 0:
            return forget(key, &IConnectionRouter::invalidate);
        case 1:
            return forget(key, &IConnectionRouter::remove);
        case 2:
            return replace(key);
        default:
            return route(key);
        }
    }

    OpenRouter router;
    ManhattanReference reference;
    std::vector<std::unique_ptr<Link>> links;
    int evasions = 0; ///< Routes that differ from those on an empty router.

private:
    QString forget(int key, void (IConnectionRouter::*operation)(IConnection *))
    {
        (router.*operation)(links[key]->connection.get());
        reference.release(key);
        return QString();
    }

    // The old one is destroyed, and the router has to notice by itself.
    QString replace(int key)
    {
        links[key].reset();
        reference.release(key);
        links[key] = crowdedLink(m_random);
        return QString();
    }

    QString route(int key)
    {
        const Link &link = *links[key];
        const QList<QPoint> expected = link.expectedRoute(reference, key);
        ManhattanReference empty;
        evasions += expected == link.expectedRoute(empty, key) ? 0 : 1;
        return compare(router.doRoute(link.connection.get()), expected, link.toText());
    }

    QRandomGenerator m_random;
};

// Posts and connections that all are displayed, so that moves reach the router by themselves.
class LiveScene
{
public:
    LiveScene()
        : m_root(nullptr)
        , m_random(20250117)
    {
        m_root.setLayoutManager(new XYLayout(&m_root));
        m_root.setBounds(QRect(0, 0, 1000, 1000));
        for (Figure &figure : m_figures) {
            m_root.add(&figure);
            moveRandomly(figure);
        }
        for (int key = 0; key < int(m_wires.size()); ++key)
            wire(m_wires[key], key);
        m_root.validate();
        routeAll();
    }

    // Moves one figure; the connections at it are then routed anew, in the order of the tree.
    void step()
    {
        Figure &moved = m_figures[m_random.bounded(int(m_figures.size()))];
        moveRandomly(moved);
        QList<int> stale;
        for (int key = 0; key < int(m_wires.size()); ++key) {
            if (m_wires[key].touches(moved))
                stale.append(key);
        }
        for (const int key : stale)
            m_reference.release(key);
        m_root.validate();
        for (const int key : stale)
            m_wires[key].expected = expectedRoute(key);
    }

    QString difference()
    {
        for (Wire &wire : m_wires) {
            const QString found = compare(wire.points(), wire.expected, QStringLiteral("live"));
            if (!found.isEmpty())
                return found;
        }
        return QString();
    }

private:
    struct Wire
    {
        std::unique_ptr<ChopboxAnchor> source;
        std::unique_ptr<ChopboxAnchor> target;
        std::unique_ptr<PolylineConnection> connection;
        std::unique_ptr<PolylineFConnection> floating; // every other wire is this one instead
        QList<QPoint> expected;

        bool touches(const Figure &figure) const
        {
            return source->getOwner() == &figure || target->getOwner() == &figure;
        }

        QList<QPoint> points()
        {
            return connection ? connection->getPoints() : floating->getPoints();
        }
    };

    void moveRandomly(Figure &figure) { figure.setBounds(randomBox(m_random, 20, 200, 40)); }

    template<typename Class>
    std::unique_ptr<Class> connect(const Wire &wire)
    {
        auto connection = std::make_unique<Class>();
        connection->setConnectionRouter(&m_router);
        connection->setSourceAnchor(wire.source.get());
        connection->setTargetAnchor(wire.target.get());
        m_root.add(connection.get());
        return connection;
    }

    void wire(Wire &wire, int key)
    {
        const int count = int(m_figures.size());
        wire.source = std::make_unique<ChopboxAnchor>(&m_figures[key % count]);
        wire.target = std::make_unique<ChopboxAnchor>(&m_figures[(key + 1 + key / count) % count]);
        if (key % 2 == 0)
            wire.connection = connect<PolylineConnection>(wire);
        else
            wire.floating = connect<PolylineFConnection>(wire);
    }

    QList<QPoint> expectedRoute(int key)
    {
        const Wire &wire = m_wires[key];
        const End source{wire.source->getLocation(wire.target->getReferencePoint()),
                         wire.source->getOwner()->getBounds()};
        const End target{wire.target->getLocation(wire.source->getReferencePoint()),
                         wire.target->getOwner()->getBounds()};
        return m_reference.route(key, source, target, QPoint());
    }

    void routeAll()
    {
        for (int key = 0; key < int(m_wires.size()); ++key)
            m_wires[key].expected = expectedRoute(key);
    }

    RootFigure m_root;
    QRandomGenerator m_random;
    ManhattanConnectionRouter m_router;
    ManhattanReference m_reference;
    std::array<Figure, 5> m_figures;
    std::array<Wire, 9> m_wires;
};

} // namespace

Q_DECLARE_METATYPE(MakeBoxes)

class tst_ManhattanReference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void randomDirectionsAgree();
    void randomPairsOfBoxesAgree_data();
    void randomPairsOfBoxesAgree();
    void randomPositionsAgree();
    void randomSequencesOnOneRouterAgree();
    void displayedConnectionsAgreeWhenTheirFiguresMove();
};

void tst_ManhattanReference::randomDirectionsAgree()
{
    QRandomGenerator random(20240501);
    ManhattanConnectionRouter router;

    for (int i = 0; i < 20000; ++i) {
        const QRect box = randomBox(random, -40, 40, 30);
        const QPoint point = randomPoint(random, -50, 80);
        const QPoint out = ManhattanReference::directionOut(box, point);
        const Ray leaving = router.getDirection(box, point, false);
        const Ray entering = router.getDirection(box, point, true);
        QVERIFY2(QPoint(leaving.x(), leaving.y()) == out, qPrintable(toText(box)));
        QVERIFY2(QPoint(entering.x(), entering.y()) == -out, qPrintable(toText(box)));
    }
}

void tst_ManhattanReference::randomPairsOfBoxesAgree_data()
{
    QTest::addColumn<MakeBoxes>("makeBoxes");
    QTest::newRow("far") << MakeBoxes(farBoxes);
    QTest::newRow("near") << MakeBoxes(nearBoxes);
    QTest::newRow("around the origin") << MakeBoxes(boxesAroundTheOrigin);
    QTest::newRow("nested") << MakeBoxes(nestedBoxes);
    QTest::newRow("coincident") << MakeBoxes(coincidentBoxes);
    QTest::newRow("tiny") << MakeBoxes(tinyBoxes);
    QTest::newRow("aligned") << MakeBoxes(alignedBoxes);
}

void tst_ManhattanReference::randomPairsOfBoxesAgree()
{
    QFETCH(MakeBoxes, makeBoxes);
    QRandomGenerator random(20240502);
    QSet<qsizetype> lengths;

    for (int i = 0; i < PAIRS; ++i) {
        const auto [source, target] = makeBoxes(random);
        const Link link(random, source, target);
        ManhattanReference reference;
        OpenRouter router;
        const QList<QPoint> expected = link.expectedRoute(reference, 0);
        const QString difference =
            compare(router.doRoute(link.connection.get()), expected, link.toText());
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
        lengths.insert(expected.size());
    }

    QVERIFY(lengths.size() >= 3); // the pairs reach more than one case
}

void tst_ManhattanReference::randomPositionsAgree()
{
    QRandomGenerator random(20240503);
    std::array<PolylineConnection, 3> connections;
    ManhattanReference reference;
    OpenRouter router;

    for (int i = 0; i < 4000; ++i) {
        const int key = random.bounded(int(connections.size()));
        const QPoint start = randomPoint(random, -20, 60);
        const QPoint end = randomPoint(random, -20, 60);
        QList<int> positions;
        for (int k = random.bounded(8); k > 0; --k)
            positions.append(between(random, -20, 60));
        const bool horizontal = random.bounded(2) == 1;

        const QList<QPoint> actual =
            router.processPositions(Ray(start), Ray(end), positions, horizontal, &connections[key]);
        const QList<QPoint> expected = reference.route(
            key, start, end, positions, horizontal ? ManhattanReference::Y : ManhattanReference::X);
        const QString difference =
            compare(actual, expected, QStringLiteral("positions in round %1").arg(i));
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
}

void tst_ManhattanReference::randomSequencesOnOneRouterAgree()
{
    int evasions = 0;

    for (int sequence = 0; sequence < SEQUENCES; ++sequence) {
        Crowd crowd(20240504 + sequence);
        for (int i = 0; i < STEPS; ++i) {
            const QString difference = crowd.step();
            QVERIFY2(difference.isEmpty(), qPrintable(difference));
            if (i % 10 != 0)
                continue;
            const QString line = compareReservations(crowd.router, crowd.reference, crowd.links);
            QVERIFY2(line.isEmpty(), qPrintable(line));
        }
        evasions += crowd.evasions;
    }

    // The connections do get in each other's way.
    QVERIFY2(evasions > SEQUENCES * STEPS / 30, qPrintable(QString::number(evasions)));
}

void tst_ManhattanReference::displayedConnectionsAgreeWhenTheirFiguresMove()
{
    LiveScene scene;
    const QString atFirst = scene.difference();
    QVERIFY2(atFirst.isEmpty(), qPrintable(atFirst));

    for (int i = 0; i < 300; ++i) {
        scene.step();
        const QString difference = scene.difference();
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
}

QTEST_MAIN(tst_ManhattanReference)
#include "tst_manhattan_reference.moc"
