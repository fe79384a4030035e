#include <figura/layout/XYLayout.h>
#include <figura/shape/Polygon.h>

#include <figureprobe.h>

#include <QLineF>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

using Probe = ShapeProbe<Polygon>;

// Counts how often it is asked, and about which point.
class AskedFigure : public Figure
{
public:
    explicit AskedFigure(bool answer)
        : m_answer(answer)
    {
    }

    mutable QList<QPoint> points;

    bool contains(const QPoint &point) const override
    {
        points.append(point);
        return m_answer;
    }

private:
    bool m_answer;
};

// Its list of children is whatever the test says, null entries included.
class FosterPolygon : public Probe
{
public:
    QList<Figure *> children;
    QList<Figure *> childFigures() override { return children; }
};

// Counts the edges to the right of the point: inside when the count is odd.
bool isInside(const QList<QPoint> &corners, const QPoint &p)
{
    bool inside = false;
    for (int i = 0; i < corners.size(); ++i) {
        const QPointF a = corners[i];
        const QPointF b = corners[(i + 1) % corners.size()];
        if ((a.y() > p.y()) == (b.y() > p.y()))
            continue;
        const double crossing = a.x() + (p.y() - a.y()) / (b.y() - a.y()) * (b.x() - a.x());
        if (crossing > p.x())
            inside = !inside;
    }
    return inside;
}

bool isNearAnEdge(const QList<QPoint> &corners, const QPoint &p)
{
    for (int i = 0; i < corners.size(); ++i) {
        const QPointF a = corners[i];
        const QPointF d = QPointF(corners[(i + 1) % corners.size()]) - a;
        const double square = QPointF::dotProduct(d, d);
        const double along = square > 0 ? QPointF::dotProduct(p - a, d) / square : 0;
        if (QLineF(a + std::clamp(along, 0.0, 1.0) * d, p).length() < 1)
            return true;
    }
    return false;
}

QList<QPoint> randomCorners(QRandomGenerator &random)
{
    QList<QPoint> corners;
    const int count = random.bounded(3, 9);
    while (corners.size() < count)
        corners.append(QPoint(random.bounded(200), random.bounded(200)));
    return corners;
}

void makeTriangle(Probe &polygon)
{
    polygon.addNotify();
    polygon.setLinePoints({QPoint(0, 0), QPoint(100, 0), QPoint(100, 100)});
}

} // namespace

class tst_Polygon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void pathIsClosed();
    void pathOfTwoPointsGoesThereAndBack();
    void pathOfFewerPointsIsEmpty_data();
    void pathOfFewerPointsIsEmpty();
    void pathFollowsThePointsWhileAttached();
    void pathIgnoresItsRectangle();
    void boundsAreThoseOfThePoints();
    void twoPointsInARowAreOneHigh();

    void insideIsHitEvenWhenNotFilled();
    void outsideIsMissedHoweverNear();
    void randomPolygonsAgreeWithCountingCrossedEdges();
    void childIsHitOutsideThePath();
    void childIsAskedAboutTheSamePoint();
    void childIsNotAskedInsideThePath();
    void firstChildThatIsHitEndsTheSearch();
    void nullChildIsSkipped();
    void pointOutsideOfAllIsMissed();
};

void tst_Polygon::pathIsClosed()
{
    Probe polygon;
    makeTriangle(polygon);

    const QPainterPath path = polygon.getPainterPath();

    QCOMPARE(path.elementCount(), 4);
    QCOMPARE(path.elementAt(0).type, QPainterPath::MoveToElement);
    QCOMPARE(QPointF(path.elementAt(0)), QPointF(0, 0));
    QCOMPARE(QPointF(path.elementAt(1)), QPointF(100, 0));
    QCOMPARE(QPointF(path.elementAt(2)), QPointF(100, 100));
    QCOMPARE(path.elementAt(3).type, QPainterPath::LineToElement);
    QCOMPARE(QPointF(path.elementAt(3)), QPointF(0, 0));
}

void tst_Polygon::pathOfTwoPointsGoesThereAndBack()
{
    Probe polygon;
    polygon.addNotify();

    polygon.setEndPoints(QPoint(1, 2), QPoint(30, 40));

    QPainterPath expected(QPointF(1, 2));
    expected.lineTo(30, 40);
    expected.lineTo(1, 2);
    QCOMPARE(polygon.getPainterPath(), expected);
}

void tst_Polygon::pathOfFewerPointsIsEmpty_data()
{
    QTest::addColumn<QList<QPoint>>("points");
    QTest::newRow("none") << QList<QPoint>();
    QTest::newRow("one") << QList<QPoint>{QPoint(5, 5)};
}

void tst_Polygon::pathOfFewerPointsIsEmpty()
{
    QFETCH(QList<QPoint>, points);
    Probe polygon;
    makeTriangle(polygon);

    polygon.setLinePoints(points);

    QCOMPARE(polygon.getPainterPath(), QPainterPath());
}

void tst_Polygon::pathFollowsThePointsWhileAttached()
{
    Probe polygon;
    makeTriangle(polygon);

    polygon.addPoint(QPoint(0, 100));

    QCOMPARE(polygon.getPainterPath().elementCount(), 5);
    QVERIFY(polygon.contains(QPoint(10, 90)));
}

void tst_Polygon::pathIgnoresItsRectangle()
{
    Probe polygon;
    makeTriangle(polygon);
    const QPainterPath before = polygon.getPainterPath();

    polygon.regeneratePath(QRectF(500, 500, 10, 10));

    QCOMPARE(polygon.getPainterPath(), before);
}

void tst_Polygon::boundsAreThoseOfThePoints()
{
    Probe polygon;
    makeTriangle(polygon);

    polygon.setBounds(QRect(500, 500, 10, 10));

    QCOMPARE(polygon.getBounds(), QRect(0, 0, 100, 100));
}

void tst_Polygon::twoPointsInARowAreOneHigh()
{
    Probe polygon;
    polygon.addNotify();

    polygon.setEndPoints(QPoint(10, 10), QPoint(30, 10));

    QCOMPARE(polygon.getBounds(), QRect(10, 10, 20, 1));
}

void tst_Polygon::insideIsHitEvenWhenNotFilled()
{
    Probe polygon;
    makeTriangle(polygon);

    QVERIFY(!polygon.getFill());
    QVERIFY(polygon.contains(QPoint(70, 30)));
}

// Unlike a polyline, which has a tolerance.
void tst_Polygon::outsideIsMissedHoweverNear()
{
    Probe polygon;
    makeTriangle(polygon);

    QVERIFY(!polygon.contains(QPoint(50, -1)));
    QVERIFY(!polygon.contains(QPoint(102, 50)));
    QVERIFY(!polygon.contains(QPoint(48, 52)));
}

void tst_Polygon::randomPolygonsAgreeWithCountingCrossedEdges()
{
    QRandomGenerator random(20240917);
    int hits = 0;
    int misses = 0;

    for (int i = 0; i < 300; ++i) {
        const QList<QPoint> corners = randomCorners(random);
        Polygon polygon;
        polygon.addNotify();
        polygon.setLinePoints(corners);
        for (int k = 0; k < 30; ++k) {
            const QPoint p(random.bounded(200), random.bounded(200));
            if (isNearAnEdge(corners, p))
                continue;
            const bool inside = isInside(corners, p);
            inside ? ++hits : ++misses;
            QCOMPARE(polygon.contains(p), inside);
        }
    }

    QVERIFY(hits > 1000);
    QVERIFY(misses > 1000);
}

void tst_Polygon::childIsHitOutsideThePath()
{
    Probe polygon;
    makeTriangle(polygon);
    polygon.setLayoutManager(new XYLayout(&polygon));
    Figure child;
    polygon.add(&child);
    child.setBounds(QRect(200, 200, 20, 20));

    QVERIFY(polygon.contains(QPoint(210, 210)));
    QVERIFY(!polygon.contains(QPoint(230, 230)));
}

void tst_Polygon::childIsAskedAboutTheSamePoint()
{
    FosterPolygon polygon;
    makeTriangle(polygon);
    AskedFigure child(true);
    polygon.children = {&child};

    QVERIFY(polygon.contains(QPoint(-30, 70)));
    QCOMPARE(child.points, QList<QPoint>{QPoint(-30, 70)});
}

void tst_Polygon::childIsNotAskedInsideThePath()
{
    FosterPolygon polygon;
    makeTriangle(polygon);
    AskedFigure child(true);
    polygon.children = {&child};

    QVERIFY(polygon.contains(QPoint(70, 30)));
    QCOMPARE(child.points.size(), 0);
}

void tst_Polygon::firstChildThatIsHitEndsTheSearch()
{
    FosterPolygon polygon;
    makeTriangle(polygon);
    AskedFigure missed(false);
    AskedFigure hit(true);
    AskedFigure notAsked(true);
    polygon.children = {&missed, &hit, &notAsked};

    QVERIFY(polygon.contains(QPoint(-30, 70)));
    QCOMPARE(missed.points.size(), 1);
    QCOMPARE(hit.points.size(), 1);
    QCOMPARE(notAsked.points.size(), 0);
}

void tst_Polygon::nullChildIsSkipped()
{
    FosterPolygon polygon;
    makeTriangle(polygon);
    AskedFigure child(true);
    polygon.children = {nullptr, &child};

    QVERIFY(polygon.contains(QPoint(-30, 70)));
}

void tst_Polygon::pointOutsideOfAllIsMissed()
{
    FosterPolygon polygon;
    makeTriangle(polygon);
    AskedFigure child(false);
    polygon.children = {&child};

    QVERIFY(!polygon.contains(QPoint(-30, 70)));
    QCOMPARE(child.points.size(), 1);
}

QTEST_MAIN(tst_Polygon)
#include "tst_polygon.moc"
