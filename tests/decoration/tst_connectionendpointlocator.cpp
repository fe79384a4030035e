#include "decoration_fixtures.h"
#include "endpoint_reference.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/XYAnchor.h>
#include <figura/decoration/ConnectionEndpointLocator.h>

#include <place.h>

#include <QRandomGenerator>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;
using Side = EndpointReference::Side;

namespace {

const bool SOURCE_END = false;
const bool TARGET_END = true;
const QSize LABEL(20, 10);

// A figure with any box, also one that setBounds() would complete.
class BoxFigure : public Figure
{
public:
    explicit BoxFigure(const QRect &box)
        : m_box(box)
    {
    }

    QRect getBounds() override { return m_box; }

private:
    QRect m_box;
};

QRect placed(IConnection *connection, bool end, int uDistance = 14, int vDistance = 4,
             const QSize &size = LABEL)
{
    Label label(size);
    ConnectionEndpointLocator locator(connection, end);
    locator.setUDistance(uDistance);
    locator.setVDistance(vDistance);
    locator.relocate(&label);
    return label.getBounds();
}

// At which side of the box a line that begins at \a start is taken to leave. The line goes nowhere;
// where a tiny label lands tells the sides apart.
Side sideAt(const QPoint &start, const QRect &box)
{
    BoxFigure figure(box);
    ChopboxAnchor anchor(&figure);
    PolylineConnection connection;
    connection.setSourceAnchor(&anchor);
    connection.setPoints({start, start});
    const QPoint way = placed(&connection, SOURCE_END, 100, 2, QSize(1, 1)).topLeft() - start;

    if (way.x() == 100)
        return EndpointReference::Right;
    if (way.x() == -101)
        return EndpointReference::Left;
    return way.y() == 100 ? EndpointReference::Down : EndpointReference::Up;
}

QPoint randomPoint(QRandomGenerator &random, int reach)
{
    const int x = random.bounded(-reach, reach + 1);
    return QPoint(x, random.bounded(-reach, reach + 1));
}

QSize randomSize(QRandomGenerator &random, int smallest, int largest)
{
    const int width = random.bounded(smallest, largest + 1);
    return QSize(width, random.bounded(smallest, largest + 1));
}

// Narrow boxes come up as often as others.
QRect randomBox(QRandomGenerator &random)
{
    const QSize size = random.bounded(2) ? randomSize(random, 0, 3) : randomSize(random, 1, 80);
    return QRect(randomPoint(random, 60), size);
}

// Points on the diagonals come up often.
QPoint randomStart(QRandomGenerator &random, const QRect &box)
{
    if (random.bounded(3) == 0)
        return box.center() + randomPoint(random, 3);
    const QPoint corners[] = {box.topLeft(), box.bottomRight(), box.topRight(), box.bottomLeft()};
    if (random.bounded(2) == 0)
        return corners[random.bounded(4)];
    return box.center() + randomPoint(random, 90);
}

} // namespace

Q_DECLARE_METATYPE(Side)

class tst_ConnectionEndpointLocator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newLocatorHasItsDistances();
    void settersOnlyStore();

    void labelLiesBesideTheEnd_data();
    void labelLiesBesideTheEnd();
    void labelFollowsTheSlopeOfTheLine_data();
    void labelFollowsTheSlopeOfTheLine();
    void placeAcrossTheLineIsTruncatedTowardZero();

    void sideWithoutOwnerGoesByTheFirstStep_data();
    void sideWithoutOwnerGoesByTheFirstStep();
    void sideOfAnOwnerGoesByTheDiagonals_data();
    void sideOfAnOwnerGoesByTheDiagonals();
    void sideOfANarrowOwnerIsStillFound_data();
    void sideOfANarrowOwnerIsStillFound();
    void ownerOfTheOtherEndDoesNotCount();
    void ownersBoxIsTranslatedToTheConnection();
    void anchorWithoutOwnerCountsAsNone();

    void sourceEndIsTheFirstPointAndTargetEndTheLast();
    void labelsOwnParentDoesNotCount();
    void locatorIsUsedAgainAtAnotherSide();
    void floatingPointsAreRounded();
    void randomLabelsAgreeWithoutOwner();
    void randomLabelsAgreeWithOwner();

    void tooFewPointsLeaveTheLabelAlone_data();
    void tooFewPointsLeaveTheLabelAlone();
    void missingConnectionLeavesTheLabelAlone();
    void nullAndHiddenLabelsAreLeftAlone();
};

void tst_ConnectionEndpointLocator::newLocatorHasItsDistances()
{
    QObject parent;
    PolylineConnection connection;
    const auto *locator = new ConnectionEndpointLocator(&connection, TARGET_END, &parent);

    QCOMPARE(locator->getUDistance(), 14);
    QCOMPARE(locator->getVDistance(), 4);
    QCOMPARE(locator->parent(), &parent);
}

void tst_ConnectionEndpointLocator::settersOnlyStore()
{
    PolylineConnection connection;
    Label label(LABEL);
    ConnectionEndpointLocator locator(&connection, SOURCE_END);
    locator.relocate(&label);
    const QRect before = label.getBounds();

    locator.setUDistance(-3);
    locator.setVDistance(-8);

    QCOMPARE(locator.getUDistance(), -3);
    QCOMPARE(locator.getVDistance(), -8);
    QCOMPARE(label.getBounds(), before);
}

void tst_ConnectionEndpointLocator::labelLiesBesideTheEnd_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<int>("uDistance");
    QTest::addColumn<int>("vDistance");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("expected");
    const QPoint right(100, 0);
    const QPoint down(0, 100);
    QTest::newRow("right") << right << 14 << 4 << LABEL << QRect(114, 54, 20, 10);
    QTest::newRow("left") << -right << 14 << 4 << LABEL << QRect(66, 54, 20, 10);
    QTest::newRow("down") << down << 14 << 4 << LABEL << QRect(104, 64, 20, 10);
    QTest::newRow("up") << -down << 14 << 4 << LABEL << QRect(104, 26, 20, 10);

    QTest::newRow("right, on the line") << right << 14 << 0 << LABEL << QRect(114, 45, 20, 10);
    QTest::newRow("down, on the line") << down << 14 << 0 << LABEL << QRect(90, 64, 20, 10);
    QTest::newRow("right, beyond it") << right << 14 << -4 << LABEL << QRect(114, 36, 20, 10);
    QTest::newRow("left, beyond it") << -right << 14 << -4 << LABEL << QRect(66, 36, 20, 10);
    QTest::newRow("down, beyond it") << down << 14 << -4 << LABEL << QRect(76, 64, 20, 10);
    QTest::newRow("up, beyond it") << -down << 14 << -4 << LABEL << QRect(76, 26, 20, 10);

    QTest::newRow("half of an odd height is truncated")
        << right << 14 << 0 << QSize(21, 11) << QRect(114, 45, 21, 11);
    QTest::newRow("half of an odd width is truncated")
        << down << 14 << 0 << QSize(21, 11) << QRect(90, 64, 21, 11);
    QTest::newRow("no distance along") << -right << 0 << 1 << LABEL << QRect(80, 51, 20, 10);
    QTest::newRow("negative distance along") << right << -30 << 1 << LABEL << QRect(70, 51, 20, 10);
    QTest::newRow("negative distance along to the left")
        << -right << -30 << 1 << LABEL << QRect(110, 51, 20, 10);
}

void tst_ConnectionEndpointLocator::labelLiesBesideTheEnd()
{
    QFETCH(QPoint, way);
    QFETCH(int, uDistance);
    QFETCH(int, vDistance);
    QFETCH(QSize, size);
    QFETCH(QRect, expected);
    const QPoint start(100, 50);
    PolylineConnection connection;
    connection.setPoints({start, start + way});

    QCOMPARE(placed(&connection, SOURCE_END, uDistance, vDistance, size), expected);
}

void tst_ConnectionEndpointLocator::labelFollowsTheSlopeOfTheLine_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<QRect>("box");
    QTest::addColumn<QPoint>("expected");
    const QRect none;
    const QRect atTheLeft(0, 0, 101, 101);
    const QRect above(50, -50, 101, 101);
    QTest::newRow("right and down") << QPoint(100, 25) << none << QPoint(114, 57);
    QTest::newRow("right and up") << QPoint(100, -25) << none << QPoint(114, 50);
    QTest::newRow("left and down") << QPoint(-100, 25) << none << QPoint(66, 57);
    QTest::newRow("left and up") << QPoint(-100, -25) << none << QPoint(66, 50);
    QTest::newRow("down and right") << QPoint(25, 100) << none << QPoint(107, 64);
    QTest::newRow("up and left") << QPoint(-25, -100) << none << QPoint(100, 26);
    QTest::newRow("diagonal") << QPoint(100, 100) << none << QPoint(118, 64);

    QTest::newRow("no steeper than the diagonal")
        << QPoint(10, 100) << atTheLeft << QPoint(114, 68);
    QTest::newRow("no steeper than the diagonal, up")
        << QPoint(10, -100) << atTheLeft << QPoint(114, 40);
    QTest::newRow("straight across counts as diagonal")
        << QPoint(0, -100) << atTheLeft << QPoint(114, 68);
    QTest::newRow("nowhere counts as diagonal") << QPoint(0, 0) << atTheLeft << QPoint(114, 68);
    QTest::newRow("back into the box") << QPoint(-100, 25) << atTheLeft << QPoint(114, 50);
    QTest::newRow("flat below a box") << QPoint(100, 10) << above << QPoint(118, 64);
    QTest::newRow("straight across below a box") << QPoint(-100, 0) << above << QPoint(118, 64);
}

void tst_ConnectionEndpointLocator::labelFollowsTheSlopeOfTheLine()
{
    QFETCH(QPoint, way);
    QFETCH(QRect, box);
    QFETCH(QPoint, expected);
    const QPoint start(100, 50);
    BoxFigure figure(box);
    ChopboxAnchor anchor(box.isValid() ? &figure : nullptr, nullptr);
    PolylineConnection connection;
    connection.setSourceAnchor(&anchor);
    connection.setPoints({start, start + way});

    QCOMPARE(placed(&connection, SOURCE_END), QRect(expected, LABEL));
}

void tst_ConnectionEndpointLocator::placeAcrossTheLineIsTruncatedTowardZero()
{
    PolylineConnection connection;

    connection.setPoints({{100, 50}, {200, 75}});
    QCOMPARE(placed(&connection, SOURCE_END).y(), 57); // 57.5
    connection.setPoints({{100, -60}, {200, -35}});
    QCOMPARE(placed(&connection, SOURCE_END).y(), -52); // -52.5
}

void tst_ConnectionEndpointLocator::sideWithoutOwnerGoesByTheFirstStep_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<Side>("side");
    QTest::newRow("right") << QPoint(10, 9) << EndpointReference::Right;
    QTest::newRow("left") << QPoint(-10, 9) << EndpointReference::Left;
    QTest::newRow("down") << QPoint(9, 10) << EndpointReference::Down;
    QTest::newRow("up") << QPoint(9, -10) << EndpointReference::Up;
    QTest::newRow("diagonally down") << QPoint(10, 10) << EndpointReference::Down;
    QTest::newRow("diagonally up") << QPoint(10, -10) << EndpointReference::Up;
    QTest::newRow("nowhere") << QPoint(0, 0) << EndpointReference::Up;
}

void tst_ConnectionEndpointLocator::sideWithoutOwnerGoesByTheFirstStep()
{
    QFETCH(QPoint, way);
    QFETCH(Side, side);
    const QPoint start(100, 50);
    PolylineConnection connection;
    connection.setPoints({start, start + way, QPoint(-500, 700)});

    QCOMPARE(placed(&connection, SOURCE_END),
             EndpointReference().place(LABEL, start, start + way, side));
}

void tst_ConnectionEndpointLocator::sideOfAnOwnerGoesByTheDiagonals_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<Side>("side");
    QTest::newRow("right edge") << QPoint(100, 25) << EndpointReference::Right;
    QTest::newRow("left edge") << QPoint(0, 25) << EndpointReference::Left;
    QTest::newRow("bottom edge") << QPoint(45, 50) << EndpointReference::Down;
    QTest::newRow("top edge") << QPoint(55, 0) << EndpointReference::Up;
    QTest::newRow("below the centre") << QPoint(50, 26) << EndpointReference::Down;
    QTest::newRow("above the centre") << QPoint(50, 24) << EndpointReference::Up;
    QTest::newRow("centre") << QPoint(50, 25) << EndpointReference::Down;
    QTest::newRow("top left corner") << QPoint(0, 0) << EndpointReference::Left;
    QTest::newRow("top right corner") << QPoint(100, 0) << EndpointReference::Right;
    QTest::newRow("bottom left corner") << QPoint(0, 50) << EndpointReference::Left;
    QTest::newRow("bottom right corner") << QPoint(100, 50) << EndpointReference::Right;
    QTest::newRow("on a diagonal") << QPoint(60, 30) << EndpointReference::Right;
    QTest::newRow("just below it") << QPoint(60, 31) << EndpointReference::Down;
    QTest::newRow("just above the other") << QPoint(40, 29) << EndpointReference::Left;
    QTest::newRow("steep, far away") << QPoint(-300, 225) << EndpointReference::Down;
    QTest::newRow("flat, far away") << QPoint(-300, 199) << EndpointReference::Left;
}

void tst_ConnectionEndpointLocator::sideOfAnOwnerGoesByTheDiagonals()
{
    QFETCH(QPoint, start);
    QFETCH(Side, side);

    QCOMPARE(sideAt(start, QRect(0, 0, 101, 51)), side);
}

void tst_ConnectionEndpointLocator::sideOfANarrowOwnerIsStillFound_data()
{
    QTest::addColumn<QRect>("box");
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<Side>("side");
    const QRect one(10, 10, 1, 21);
    QTest::newRow("1 wide, right") << one << QPoint(11, 999) << EndpointReference::Right;
    QTest::newRow("1 wide, left") << one << QPoint(9, -999) << EndpointReference::Left;
    QTest::newRow("1 wide, below") << one << QPoint(10, 21) << EndpointReference::Down;
    QTest::newRow("1 wide, above") << one << QPoint(10, 19) << EndpointReference::Up;
    const QRect two(10, 10, 2, 21);
    QTest::newRow("2 wide, right") << two << QPoint(11, 999) << EndpointReference::Right;
    QTest::newRow("2 wide, left") << two << QPoint(9, -999) << EndpointReference::Left;
    QTest::newRow("2 wide, below") << two << QPoint(10, 21) << EndpointReference::Down;
    const QRect none(10, 10, 0, 21);
    QTest::newRow("0 wide, left") << none << QPoint(5, 20) << EndpointReference::Left;
    QTest::newRow("0 wide, steep") << none << QPoint(10, 31) << EndpointReference::Down;
    const QRect flat(10, 10, 21, 1);
    QTest::newRow("1 high, right") << flat << QPoint(30, 10) << EndpointReference::Right;
    QTest::newRow("1 high, just below") << flat << QPoint(999, 11) << EndpointReference::Down;
    QTest::newRow("1 high, just above") << flat << QPoint(999, 9) << EndpointReference::Up;
    const QRect dot(10, 10, 1, 1);
    QTest::newRow("dot, right") << dot << QPoint(99, 10) << EndpointReference::Down;
    QTest::newRow("dot, left and up") << dot << QPoint(0, 9) << EndpointReference::Up;
    QTest::newRow("2 by 2, right")
        << QRect(10, 10, 2, 2) << QPoint(99, 10) << EndpointReference::Down;
    QTest::newRow("3 by 3, right")
        << QRect(10, 10, 3, 3) << QPoint(99, 10) << EndpointReference::Right;
}

void tst_ConnectionEndpointLocator::sideOfANarrowOwnerIsStillFound()
{
    QFETCH(QRect, box);
    QFETCH(QPoint, start);
    QFETCH(Side, side);

    QCOMPARE(sideAt(start, box), side);
}

void tst_ConnectionEndpointLocator::ownerOfTheOtherEndDoesNotCount()
{
    BoxFigure below(QRect(50, 51, 101, 101));
    ChopboxAnchor anchor(&below);
    XYAnchor free(QPoint(0, 0));
    PolylineConnection connection;
    connection.setPoints({{100, 50}, {200, 50}, {100, 50}});

    connection.setSourceAnchor(&anchor);
    connection.setTargetAnchor(&free);
    QCOMPARE(placed(&connection, SOURCE_END).y(), 26);
    QCOMPARE(placed(&connection, TARGET_END), QRect(114, 54, 20, 10));
    connection.setSourceAnchor(nullptr);
    connection.setTargetAnchor(&anchor);
    QCOMPARE(placed(&connection, SOURCE_END), QRect(114, 54, 20, 10));
    QCOMPARE(placed(&connection, TARGET_END).y(), 26);
}

void tst_ConnectionEndpointLocator::ownersBoxIsTranslatedToTheConnection()
{
    Place root(QPoint(1000, 2000));
    Place left(QPoint(-300, 40));
    Place right(QPoint(70, -5));
    root.add(&left);
    root.add(&right);
    Figure owner;
    left.add(&owner);
    owner.setBounds(QRect(380, -60, 101, 51)); // (10, -15) for the connection
    ChopboxAnchor anchor(&owner);
    PolylineConnection connection;
    right.add(&connection);
    connection.setSourceAnchor(&anchor);

    connection.setPoints({{60, 36}, {60, 36}});
    QCOMPARE(placed(&connection, SOURCE_END).y(), 50);
    connection.setPoints({{111, 10}, {111, 10}});
    QCOMPARE(placed(&connection, SOURCE_END).x(), 125);
}

void tst_ConnectionEndpointLocator::anchorWithoutOwnerCountsAsNone()
{
    XYAnchor anchor(QPoint(0, 0));
    PolylineConnection connection;
    connection.setSourceAnchor(&anchor);
    connection.setTargetAnchor(&anchor);
    connection.setPoints({{100, 50}, {200, 50}});

    QCOMPARE(placed(&connection, SOURCE_END), QRect(114, 54, 20, 10));
    QCOMPARE(placed(&connection, TARGET_END), QRect(166, 54, 20, 10));
}

void tst_ConnectionEndpointLocator::sourceEndIsTheFirstPointAndTargetEndTheLast()
{
    PolylineConnection connection;
    connection.setPoints({{100, 50}, {200, 50}, {300, 300}, {300, 400}});

    QCOMPARE(placed(&connection, SOURCE_END), QRect(114, 54, 20, 10));
    QCOMPARE(placed(&connection, TARGET_END), QRect(304, 376, 20, 10));
}

// The place is meant for children of the connection, which share its coordinates.
void tst_ConnectionEndpointLocator::labelsOwnParentDoesNotCount()
{
    Place place(QPoint(1000, 2000));
    Label label(LABEL);
    place.add(&label);
    PolylineConnection connection;
    connection.setPoints({{100, 50}, {200, 50}});

    ConnectionEndpointLocator(&connection, SOURCE_END).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(114, 54, 20, 10));
}

void tst_ConnectionEndpointLocator::locatorIsUsedAgainAtAnotherSide()
{
    PolylineConnection connection;
    ConnectionEndpointLocator locator(&connection, SOURCE_END);
    Label label(LABEL);

    connection.setPoints({{100, 50}, {100, 150}});
    locator.relocate(&label);
    QCOMPARE(label.getBounds(), QRect(104, 64, 20, 10));
    connection.setPoints({{100, 50}, {200, 50}});
    locator.relocate(&label);
    QCOMPARE(label.getBounds(), QRect(114, 54, 20, 10));
}

void tst_ConnectionEndpointLocator::floatingPointsAreRounded()
{
    PolylineFConnection connection;
    connection.setPointsF({{99.5, 49.6}, {200, 50.4}});

    QCOMPARE(placed(&connection, SOURCE_END), QRect(114, 54, 20, 10));
}

void tst_ConnectionEndpointLocator::randomLabelsAgreeWithoutOwner()
{
    QRandomGenerator random(20240701);

    for (int i = 0; i < 4000; ++i) {
        const QPoint start = randomPoint(random, 100);
        const QPoint next = start + randomPoint(random, random.bounded(2) ? 4 : 90);
        const QSize size = randomSize(random, 1, 40);
        const EndpointReference reference{random.bounded(-20, 40), random.bounded(-9, 10)};
        PolylineConnection connection;
        connection.setPoints({start, next});

        QCOMPARE(placed(&connection, SOURCE_END, reference.uDistance, reference.vDistance, size),
                 reference.place(size, start, next, EndpointReference::sideOf(start, next)));
        QCOMPARE(placed(&connection, TARGET_END, reference.uDistance, reference.vDistance, size),
                 reference.place(size, next, start, EndpointReference::sideOf(next, start)));
    }
}

void tst_ConnectionEndpointLocator::randomLabelsAgreeWithOwner()
{
    QRandomGenerator random(20240702);

    for (int i = 0; i < 6000; ++i) {
        const QRect box = randomBox(random);
        const QPoint start = randomStart(random, box);
        const QPoint next = start + randomPoint(random, random.bounded(2) ? 4 : 90);
        const QSize size = randomSize(random, 1, 40);
        const EndpointReference reference{random.bounded(-20, 40), random.bounded(-9, 10)};
        BoxFigure figure(box);
        ChopboxAnchor anchor(&figure);
        PolylineConnection connection;
        connection.setTargetAnchor(&anchor);
        connection.setPoints({next, start});

        QCOMPARE(placed(&connection, TARGET_END, reference.uDistance, reference.vDistance, size),
                 reference.place(size, start, next, EndpointReference::sideOf(start, box)));
    }
}

void tst_ConnectionEndpointLocator::tooFewPointsLeaveTheLabelAlone_data()
{
    QTest::addColumn<Points>("points");
    QTest::newRow("none") << Points();
    QTest::newRow("one") << Points{{100, 50}};
}

void tst_ConnectionEndpointLocator::tooFewPointsLeaveTheLabelAlone()
{
    QFETCH(Points, points);
    PolylineConnection connection;
    connection.setPoints(points);

    QCOMPARE(placed(&connection, SOURCE_END), QRect());
    QCOMPARE(placed(&connection, TARGET_END), QRect());
}

void tst_ConnectionEndpointLocator::missingConnectionLeavesTheLabelAlone()
{
    QCOMPARE(placed(nullptr, SOURCE_END), QRect());
    QCOMPARE(placed(nullptr, TARGET_END), QRect());
}

void tst_ConnectionEndpointLocator::nullAndHiddenLabelsAreLeftAlone()
{
    PolylineConnection connection;
    Label label(LABEL);
    label.setVisible(false);
    ConnectionEndpointLocator locator(&connection, SOURCE_END);

    locator.relocate(nullptr);
    locator.relocate(&label);

    QCOMPARE(label.getBounds(), QRect());
}

QTEST_MAIN(tst_ConnectionEndpointLocator)
#include "tst_connectionendpointlocator.moc"
