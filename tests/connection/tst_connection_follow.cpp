#include "connection_fixtures.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>

#include <place.h>

#include <QRandomGenerator>

#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Boxes in places in layers, with connections in a layer above them, which is moved as well.
class World : public DisplayedTree
{
public:
    explicit World(const QString &className, quint32 seed)
        : m_random(seed)
    {
        for (Place &layer : layers)
            root.add(&layer);
        for (int i = 0; i < 6; ++i) {
            layers[i % 2].add(&places[i]);
            places[i].setBounds(randomRect());
        }
        for (int i = 0; i < 12; ++i)
            addBox(i);
        root.add(&wires);
        for (int i = 0; i < 10; ++i)
            addConnection(className, i);
        root.validate();
    }

    // One change of any kind.
    void change()
    {
        switch (m_random.bounded(6)) {
        case 0:
        case 1:
            anyBox().setBounds(randomRect());
            break;
        case 2:
            anyPlace().setBounds(randomRect());
            break;
        case 3:
            anyPlace().translate(m_random.bounded(-30, 30), m_random.bounded(-30, 30));
            break;
        case 4:
            layers[m_random.bounded(2)].setBounds(randomRect());
            break;
        default:
            moveToAnotherParent();
            break;
        }
    }

    // What every end has to be: the answer of its anchor, looking at the other end.
    void compareEnds()
    {
        for (const AnyConnectionPointer &wire : m_wires) {
            IConnection &connection = wire->connection();
            IConnectionAnchor *source = connection.getSourceAnchor();
            IConnectionAnchor *target = connection.getTargetAnchor();
            QPoint start = source->getLocation(target->getReferencePoint());
            QPoint end = target->getLocation(source->getReferencePoint());
            connection.translateToRelative(start);
            connection.translateToRelative(end);
            QCOMPARE(connection.getPoints(), QList<QPoint>({start, end}));
            if (start == end)
                continue; // a box within a box: a line of no extent may have no bounds
            QVERIFY(connection.getBounds().contains(start));
            QVERIFY(connection.getBounds().contains(end));
        }
    }

private:
    QRect randomRect()
    {
        return QRect(m_random.bounded(-300, 300), m_random.bounded(-300, 300),
                     m_random.bounded(1, 120), m_random.bounded(1, 120));
    }

    Figure &anyBox() { return boxes[m_random.bounded(12)]; }
    Place &anyPlace() { return places[m_random.bounded(6)]; }

    void addBox(int index)
    {
        places[index % 6].add(&boxes[index]);
        boxes[index].setBounds(randomRect());
    }

    void addConnection(const QString &className, int index)
    {
        AnyConnectionPointer wire = makeConnection(className);
        wires.add(&wire->figure());
        wire->connection().setSourceAnchor(makeAnchor(index));
        wire->connection().setTargetAnchor(makeAnchor(11 - index % 5));
        m_wires.push_back(std::move(wire));
    }

    // An anchor of its own for each end: a shared one stops following for all.
    IConnectionAnchor *makeAnchor(int box)
    {
        if (box % 2 == 0)
            return new ChopboxAnchor(&boxes[box], &m_anchors);
        return new EllipseAnchor(&boxes[box], &m_anchors);
    }

    void moveToAnotherParent()
    {
        Place &place = anyPlace();
        Place &layer = layers[m_random.bounded(2)];
        if (m_random.bounded(2) == 0) {
            Figure &box = anyBox();
            box.getParentFigure()->remove(&box);
            place.add(&box);
            box.translate(1, 0); // a new parent alone is not announced as a move
        } else if (place.getParentFigure() != &layer) {
            place.getParentFigure()->remove(&place);
            layer.add(&place);
            place.translate(1, 0);
        }
    }

    QRandomGenerator m_random;

public:
    Place layers[2];
    Place places[6];
    Figure boxes[12];
    Place wires;

private:
    QObject m_anchors; // outlived by nothing that listens
    std::vector<AnyConnectionPointer> m_wires;
};

void addFollowRows()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<quint32>("seed");
    for (const char *name : {"PolylineConnection", "PolylineFConnection"}) {
        for (quint32 seed = 1; seed <= 5; ++seed)
            QTest::addRow("%s, seed %u", name, seed) << QString::fromLatin1(name) << seed;
    }
}

} // namespace

class tst_ConnectionFollow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void endsFollowEveryMove_data() { addFollowRows(); }
    void endsFollowEveryMove();
    void endsFollowSeveralMovesAtOnce_data() { addFollowRows(); }
    void endsFollowSeveralMovesAtOnce();
    void connectionOfMovedLayerIsRoutedAnew_data() { addConnectionClassRows(); }
    void connectionOfMovedLayerIsRoutedAnew();
    void resizedOwnerIsFollowed_data() { addConnectionClassRows(); }
    void resizedOwnerIsFollowed();
    void sharedAnchorStopsForTheOtherConnection_data() { addConnectionClassRows(); }
    void sharedAnchorStopsForTheOtherConnection();
};

void tst_ConnectionFollow::endsFollowEveryMove()
{
    QFETCH(QString, className);
    QFETCH(quint32, seed);
    World world(className, seed);
    world.compareEnds();

    for (int i = 0; i < 300 && !QTest::currentTestFailed(); ++i) {
        world.change();
        world.root.validate();
        world.compareEnds();
    }
}

void tst_ConnectionFollow::endsFollowSeveralMovesAtOnce()
{
    QFETCH(QString, className);
    QFETCH(quint32, seed);
    World world(className, seed + 100);

    for (int i = 0; i < 60 && !QTest::currentTestFailed(); ++i) {
        for (int changes = 0; changes < 7; ++changes)
            world.change();
        world.root.validate();
        world.compareEnds();
    }
}

// Moving the connections' own parent moves no anchor: they are routed with the next revalidation.
void tst_ConnectionFollow::connectionOfMovedLayerIsRoutedAnew()
{
    QFETCH(QString, className);
    World world(className, 7);

    world.wires.setBounds(QRect(40, 50, 900, 900));
    for (Figure *figure : world.wires.childFigures())
        figure->revalidate();
    world.root.validate();

    world.compareEnds();
}

void tst_ConnectionFollow::resizedOwnerIsFollowed()
{
    QFETCH(QString, className);
    DisplayedTree tree;
    Figure owner;
    tree.root.add(&owner);
    owner.setBounds(QRect(0, 0, 100, 50));
    ChopboxAnchor source(&owner);
    XYAnchor target(QPoint(300, 24));
    AnyConnectionPointer wire = makeConnection(className);
    tree.root.add(&wire->figure());
    wire->connection().setSourceAnchor(&source);
    wire->connection().setTargetAnchor(&target);
    tree.root.validate();
    QCOMPARE(wire->connection().getPoint(0), QPoint(100, 24));

    owner.setBounds(QRect(0, 0, 200, 50));
    tree.root.validate();

    QCOMPARE(wire->connection().getPoint(0), QPoint(200, 24));
}

// Kept on purpose: removing any listener stops the anchor, whoever else is listening.
void tst_ConnectionFollow::sharedAnchorStopsForTheOtherConnection()
{
    QFETCH(QString, className);
    DisplayedTree tree;
    Figure owner;
    tree.root.add(&owner);
    owner.setBounds(QRect(0, 0, 100, 50));
    ChopboxAnchor shared(&owner);
    XYAnchor target(QPoint(300, 24));
    AnyConnectionPointer stays = makeConnection(className);
    AnyConnectionPointer leaves = makeConnection(className);
    for (const AnyConnectionPointer *wire : {&stays, &leaves}) {
        tree.root.add(&(*wire)->figure());
        (*wire)->connection().setSourceAnchor(&shared);
        (*wire)->connection().setTargetAnchor(&target);
    }
    tree.root.validate();

    tree.root.remove(&leaves->figure());
    stays->log.clear();
    owner.setBounds(QRect(50, 0, 100, 50));
    QCOMPARE(stays->log, QStringList());

    tree.root.add(&leaves->figure());
    owner.setBounds(QRect(60, 0, 100, 50));
    QCOMPARE(stays->log.count(QStringLiteral("revalidate")), 1);
}

QTEST_MAIN(tst_ConnectionFollow)
#include "tst_connection_follow.moc"
