#include "anypolyline.h"

#include <figura/layout/XYLayout.h>

#include <QLineF>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPointF>;

namespace Velmora::Figura::Test {

// The segment test is private and nothing calls it. Only an explicit instantiation may name it.
template<typename Tag, typename Tag::Type Member>
struct Reveal
{
    friend typename Tag::Type reveal(Tag) { return Member; }
};

struct IntegerSegmentTest
{
    using Type = bool (Polyline::*)(const QPoint &, const QPoint &, const QPoint &, int) const;
    friend Type reveal(IntegerSegmentTest);
};

struct FloatingSegmentTest
{
    using Type = bool (PolylineF::*)(const QPointF &, const QPointF &, const QPointF &, int) const;
    friend Type reveal(FloatingSegmentTest);
};

template struct Reveal<IntegerSegmentTest, &Polyline::lineContainsPoint>;
template struct Reveal<FloatingSegmentTest, &PolylineF::lineContainsPoint>;

} // namespace Velmora::Figura::Test

namespace {

const QString INTEGER = QStringLiteral("Polyline");
const QString FLOATING = QStringLiteral("PolylineF");
const Points HORIZONTAL{{10, 50}, {110, 50}};

void addClassRows()
{
    QTest::addColumn<QString>("className");
    for (const QString &className : polylineClasses)
        QTest::newRow(qPrintable(className)) << className;
}

AnyPolylinePointer attachedLine(const QString &className, const Points &points)
{
    AnyPolylinePointer line = makePolyline(className);
    line->shape().addNotify();
    line->setLinePoints(points);
    return line;
}

// The tolerance is shared by all lines of a class, so a test that changes it puts it back.
class ToleranceChange
{
public:
    ToleranceChange(int &tolerance, int value)
        : m_tolerance(tolerance)
        , m_former(tolerance)
    {
        m_tolerance = value;
    }
    ~ToleranceChange() { m_tolerance = m_former; }
    Q_DISABLE_COPY_MOVE(ToleranceChange)

private:
    int &m_tolerance;
    int m_former;
};

// Answers as it is told, and writes down what it is asked.
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

template<typename Line>
class ElsewhereLine : public Line
{
public:
    QRect getBounds() override { return QRect(1000, 1000, 10, 10); }
};

enum Verdict { Miss, Unsure, Hit };

struct Segment
{
    double along; // 0 at the start, 1 at the end
    double beside;
    double distance;
};

Segment measure(const QPointF &a, const QPointF &b, const QPointF &p)
{
    const QPointF d = b - a;
    const double length = std::hypot(d.x(), d.y());
    const double along = QPointF::dotProduct(p - a, d) / (length * length);
    const QPointF nearest = a + std::clamp(along, 0.0, 1.0) * d;
    const double cross = d.x() * (p - a).y() - d.y() * (p - a).x();
    return {along, std::abs(cross) / length, QLineF(nearest, p).length()};
}

// Surely hit beside the inner part of a segment. Surely missed where neither a stroke nor the
// square cap at its end reaches. Fractions move the box, which is a whole number of units wide.
Verdict judge(const Points &points, const QPointF &p, int tolerance, bool whole)
{
    const double hitReach = tolerance - (whole ? 0.1 : 1.0);
    const double strokeReach = tolerance + 0.1;
    const double capReach = tolerance * std::sqrt(2.0) + 0.1;
    bool far = true;
    for (int i = 1; i < points.size(); ++i) {
        const Segment s = measure(points[i - 1], points[i], p);
        if (s.along > 0.01 && s.along < 0.99 && s.beside < hitReach)
            return Hit;
        const bool isBeside = s.along > 0 && s.along < 1;
        far = far && s.distance > (isBeside ? strokeReach : capReach);
    }
    return far ? Miss : Unsure;
}

Points randomPoints(QRandomGenerator &random, bool whole)
{
    Points points;
    const int count = random.bounded(2, 6);
    while (points.size() < count) {
        QPointF next(random.bounded(200.0), random.bounded(200.0));
        if (whole)
            next = next.toPoint();
        if (points.isEmpty() || QLineF(points.last(), next).length() > 30)
            points.append(next);
    }
    return points;
}

QPoint randomProbe(QRandomGenerator &random, const Points &points)
{
    const int i = random.bounded(1, int(points.size()));
    const QPointF on = points[i - 1] + random.generateDouble() * (points[i] - points[i - 1]);
    return (on + QPointF(random.bounded(40.0) - 20, random.bounded(40.0) - 20)).toPoint();
}

} // namespace

class tst_PolylineHittest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void integerLineIsEasierToHit();
    void pointBesideALineIsHitWithinTheTolerance_data();
    void pointBesideALineIsHitWithinTheTolerance();
    void strokeReachesBeyondTheEndsByTheTolerance_data() { addClassRows(); }
    void strokeReachesBeyondTheEndsByTheTolerance();
    void toleranceIsReadAtEveryTest_data() { addClassRows(); }
    void toleranceIsReadAtEveryTest();
    void toleranceOfOneClassLeavesTheOtherAlone();
    void wideLineIsHitNoFartherThanANarrowOne_data() { addClassRows(); }
    void wideLineIsHitNoFartherThanANarrowOne();
    void detachedLineIsMissed_data() { addClassRows(); }
    void detachedLineIsMissed();
    void insideOfACornerIsMissedHoweverItIsFilled_data() { addClassRows(); }
    void insideOfACornerIsMissedHoweverItIsFilled();
    void randomLinesAgreeWithTheDistance_data() { addClassRows(); }
    void randomLinesAgreeWithTheDistance();

    void overriddenBoundsAreHonoured();
    void boxAroundTheBoundsIsWidenedByHalfTheLineWidth_data();
    void boxAroundTheBoundsIsWidenedByHalfTheLineWidth();
    void childInsideTheBoxIsHit_data() { addClassRows(); }
    void childInsideTheBoxIsHit();
    void childIsNotAskedOnTheLine_data() { addClassRows(); }
    void childIsNotAskedOnTheLine();
    void firstChildThatIsHitEndsTheSearch_data() { addClassRows(); }
    void firstChildThatIsHitEndsTheSearch();

    void segmentTestGoesByTheBoxForStraightLines_data();
    void segmentTestGoesByTheBoxForStraightLines();
    void segmentTestTruncatesTheSquaredDistance_data();
    void segmentTestTruncatesTheSquaredDistance();
    void floatingSegmentTestTakesFractions();
};

void tst_PolylineHittest::initTestCase()
{
    QCOMPARE(Polyline::M_tolerance, 6);
    QCOMPARE(PolylineF::M_tolerance, 2);
}

void tst_PolylineHittest::integerLineIsEasierToHit()
{
    const AnyPolylinePointer integer = attachedLine(INTEGER, HORIZONTAL);
    const AnyPolylinePointer floating = attachedLine(FLOATING, HORIZONTAL);

    QVERIFY(integer->shape().contains(QPoint(60, 54)));
    QVERIFY(!floating->shape().contains(QPoint(60, 54)));
}

void tst_PolylineHittest::pointBesideALineIsHitWithinTheTolerance_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<int>("distance");
    QTest::addColumn<bool>("hit");
    QTest::newRow("Polyline: on it") << INTEGER << 0 << true;
    QTest::newRow("Polyline: 5 beside it") << INTEGER << 5 << true;
    QTest::newRow("Polyline: 7 beside it") << INTEGER << 7 << false;
    QTest::newRow("PolylineF: on it") << FLOATING << 0 << true;
    QTest::newRow("PolylineF: 1 beside it") << FLOATING << 1 << true;
    QTest::newRow("PolylineF: 3 beside it") << FLOATING << 3 << false;
}

void tst_PolylineHittest::pointBesideALineIsHitWithinTheTolerance()
{
    QFETCH(QString, className);
    QFETCH(int, distance);
    QFETCH(bool, hit);
    const AnyPolylinePointer horizontal = attachedLine(className, HORIZONTAL);
    const AnyPolylinePointer vertical = attachedLine(className, {{50, 10}, {50, 110}});

    QCOMPARE(horizontal->shape().contains(QPoint(60, 50 - distance)), hit);
    QCOMPARE(horizontal->shape().contains(QPoint(60, 50 + distance)), hit);
    QCOMPARE(vertical->shape().contains(QPoint(50 - distance, 60)), hit);
    QCOMPARE(vertical->shape().contains(QPoint(50 + distance, 60)), hit);
}

void tst_PolylineHittest::strokeReachesBeyondTheEndsByTheTolerance()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = attachedLine(className, HORIZONTAL);

    const int tolerance = line->tolerance();

    QVERIFY(line->shape().contains(QPoint(10 - tolerance + 1, 50)));
    QVERIFY(!line->shape().contains(QPoint(10 - tolerance - 1, 50)));
    QVERIFY(line->shape().contains(QPoint(110 + tolerance - 1, 50)));
    QVERIFY(!line->shape().contains(QPoint(110 + tolerance + 1, 50)));
}

void tst_PolylineHittest::toleranceIsReadAtEveryTest()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = attachedLine(className, HORIZONTAL);
    {
        const ToleranceChange change(line->tolerance(), 20);
        QVERIFY(line->shape().contains(QPoint(60, 69)));
        QVERIFY(!line->shape().contains(QPoint(60, 71)));
    }
    {
        const ToleranceChange change(line->tolerance(), 1);
        QVERIFY(line->shape().contains(QPoint(60, 50)));
        QVERIFY(!line->shape().contains(QPoint(60, 52)));
    }
    QVERIFY(!line->shape().contains(QPoint(60, 69)));
}

void tst_PolylineHittest::toleranceOfOneClassLeavesTheOtherAlone()
{
    const AnyPolylinePointer floating = attachedLine(FLOATING, HORIZONTAL);
    const ToleranceChange change(Polyline::M_tolerance, 20);

    QVERIFY(!floating->shape().contains(QPoint(60, 54)));
    QCOMPARE(PolylineF::M_tolerance, 2);
}

// The width widens only the box, not the stroke: the outer part of a very wide line is missed.
void tst_PolylineHittest::wideLineIsHitNoFartherThanANarrowOne()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = attachedLine(className, HORIZONTAL);
    const int tolerance = line->tolerance();

    line->shape().setLineWidth(41);

    QVERIFY(line->shape().contains(QPoint(60, 50 + tolerance - 1)));
    QVERIFY(!line->shape().contains(QPoint(60, 50 + tolerance + 1)));
    QVERIFY(!line->shape().contains(QPoint(60, 65)));
}

void tst_PolylineHittest::detachedLineIsMissed()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);

    line->setLinePoints(HORIZONTAL);

    QVERIFY(!line->shape().contains(QPoint(60, 50)));
    QVERIFY(!line->shape().contains(QPoint(0, 0)));
}

void tst_PolylineHittest::insideOfACornerIsMissedHoweverItIsFilled()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line =
        attachedLine(className, {{0, 0}, {100, 0}, {100, 100}, {0, 100}});
    line->shape().setFill(true);

    QVERIFY(!line->shape().contains(QPoint(50, 50)));
    QVERIFY(line->shape().contains(QPoint(100, 50)));
}

void tst_PolylineHittest::randomLinesAgreeWithTheDistance()
{
    QFETCH(QString, className);
    QRandomGenerator random(20240917);
    int hits = 0;
    int misses = 0;

    for (int i = 0; i < 300; ++i) {
        const Points points = randomPoints(random, className == INTEGER);
        const AnyPolylinePointer line = attachedLine(className, points);
        for (int k = 0; k < 20; ++k) {
            const QPoint p = randomProbe(random, points);
            const Verdict verdict = judge(points, p, line->tolerance(), className == INTEGER);
            if (verdict == Unsure)
                continue;
            verdict == Hit ? ++hits : ++misses;
            QVERIFY2(line->shape().contains(p) == (verdict == Hit),
                     qPrintable(
                         QStringLiteral("%1 at %2,%3").arg(toText(points)).arg(p.x()).arg(p.y())));
        }
    }

    QVERIFY(hits > 100);
    QVERIFY(misses > 100);
}

void tst_PolylineHittest::overriddenBoundsAreHonoured()
{
    ElsewhereLine<Polyline> line;
    line.addNotify();
    line.setEndPoints(QPoint(10, 50), QPoint(110, 50));
    ElsewhereLine<PolylineF> lineF;
    lineF.addNotify();
    lineF.setEndPoints(QPoint(10, 50), QPoint(110, 50));

    QVERIFY(!line.contains(QPoint(60, 50)));
    QVERIFY(!lineF.contains(QPoint(60, 50)));
}

void tst_PolylineHittest::boxAroundTheBoundsIsWidenedByHalfTheLineWidth_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<int>("lineWidth");
    QTest::addColumn<int>("reach");
    QTest::newRow("Polyline: 1") << INTEGER << 1 << 6;
    QTest::newRow("Polyline: 2") << INTEGER << 2 << 7;
    QTest::newRow("Polyline: 9, the odd half is dropped") << INTEGER << 9 << 10;
    QTest::newRow("Polyline: 10") << INTEGER << 10 << 11;
    QTest::newRow("PolylineF: 1") << FLOATING << 1 << 2;
    QTest::newRow("PolylineF: 2") << FLOATING << 2 << 3;
    QTest::newRow("PolylineF: 9, the odd half is dropped") << FLOATING << 9 << 6;
    QTest::newRow("PolylineF: 10") << FLOATING << 10 << 7;
}

// A child that says yes to everything shows where the box ends.
void tst_PolylineHittest::boxAroundTheBoundsIsWidenedByHalfTheLineWidth()
{
    QFETCH(QString, className);
    QFETCH(int, lineWidth);
    QFETCH(int, reach);
    AskedFigure child(true);
    const AnyPolylinePointer line = attachedLine(className, {{10, 10}, {50, 10}, {50, 50}});
    line->shape().setLineWidth(lineWidth);
    line->shape().setLayoutManager(new XYLayout(&line->shape()));
    line->shape().add(&child);
    const QRect box(10, 10, 40, 40);

    QCOMPARE(line->shape().getBounds(), box);
    QVERIFY(line->shape().contains(QPoint(box.left() - reach, 30)));
    QVERIFY(!line->shape().contains(QPoint(box.left() - reach - 1, 30)));
    QVERIFY(line->shape().contains(QPoint(20, box.top() - reach)));
    QVERIFY(!line->shape().contains(QPoint(20, box.top() - reach - 1)));
    QVERIFY(line->shape().contains(QPoint(box.right() + reach, 30)));
    QVERIFY(!line->shape().contains(QPoint(box.right() + reach + 1, 30)));
    QVERIFY(line->shape().contains(QPoint(20, box.bottom() + reach)));
    QVERIFY(!line->shape().contains(QPoint(20, box.bottom() + reach + 1)));
}

void tst_PolylineHittest::childInsideTheBoxIsHit()
{
    QFETCH(QString, className);
    Figure child;
    const AnyPolylinePointer line = attachedLine(className, {{0, 0}, {100, 0}, {100, 100}});
    line->shape().setLayoutManager(new XYLayout(&line->shape()));
    line->shape().add(&child);
    child.setBounds(QRect(20, 60, 10, 10));

    QVERIFY(line->shape().contains(QPoint(25, 65)));
    QVERIFY(!line->shape().contains(QPoint(40, 65)));
}

void tst_PolylineHittest::childIsNotAskedOnTheLine()
{
    QFETCH(QString, className);
    AskedFigure child(true);
    const AnyPolylinePointer line = attachedLine(className, HORIZONTAL);
    line->shape().setLayoutManager(new XYLayout(&line->shape()));
    line->shape().add(&child);

    QVERIFY(line->shape().contains(QPoint(60, 50)));
    QCOMPARE(child.points.size(), 0);
}

void tst_PolylineHittest::firstChildThatIsHitEndsTheSearch()
{
    QFETCH(QString, className);
    AskedFigure missed(false);
    AskedFigure hit(true);
    AskedFigure notAsked(true);
    const AnyPolylinePointer line = attachedLine(className, {{0, 0}, {100, 0}, {100, 100}});
    line->shape().setLayoutManager(new XYLayout(&line->shape()));
    line->shape().add(&missed);
    line->shape().add(&hit);
    line->shape().add(&notAsked);

    QVERIFY(line->shape().contains(QPoint(25, 65)));
    QCOMPARE(missed.points, QList<QPoint>{QPoint(25, 65)});
    QCOMPARE(hit.points, QList<QPoint>{QPoint(25, 65)});
    QCOMPARE(notAsked.points.size(), 0);
}

void tst_PolylineHittest::segmentTestGoesByTheBoxForStraightLines_data()
{
    QTest::addColumn<QPoint>("a");
    QTest::addColumn<QPoint>("b");
    QTest::addColumn<QPoint>("p");
    QTest::addColumn<bool>("hit");
    QTest::newRow("horizontal, at the edge")
        << QPoint(0, 0) << QPoint(50, 0) << QPoint(25, 3) << true;
    QTest::newRow("horizontal, beyond") << QPoint(0, 0) << QPoint(50, 0) << QPoint(25, 4) << false;
    QTest::newRow("horizontal, in the corner of the box")
        << QPoint(0, 0) << QPoint(50, 0) << QPoint(53, 3) << true;
    QTest::newRow("horizontal, backwards")
        << QPoint(50, 0) << QPoint(0, 0) << QPoint(25, 3) << true;
    QTest::newRow("vertical, at the edge")
        << QPoint(0, 0) << QPoint(0, 50) << QPoint(-3, 25) << true;
    QTest::newRow("vertical, beyond") << QPoint(0, 0) << QPoint(0, 50) << QPoint(-4, 25) << false;
    QTest::newRow("slanting, outside the box")
        << QPoint(0, 0) << QPoint(50, 50) << QPoint(55, 55) << false;
    QTest::newRow("slanting backwards, near its end")
        << QPoint(50, 50) << QPoint(0, 0) << QPoint(2, 2) << true;
}

void tst_PolylineHittest::segmentTestGoesByTheBoxForStraightLines()
{
    QFETCH(QPoint, a);
    QFETCH(QPoint, b);
    QFETCH(QPoint, p);
    QFETCH(bool, hit);
    const Polyline line;
    const PolylineF lineF;

    QCOMPARE((line.*reveal(IntegerSegmentTest()))(a, b, p, 3), hit);
    QCOMPARE((lineF.*reveal(FloatingSegmentTest()))(a, b, p, 3), hit);
}

void tst_PolylineHittest::segmentTestTruncatesTheSquaredDistance_data()
{
    QTest::addColumn<QPoint>("b");
    QTest::addColumn<QPoint>("p");
    QTest::addColumn<bool>("hit");
    QTest::newRow("2 below the diagonal, square 2") << QPoint(10, 10) << QPoint(5, 7) << true;
    QTest::newRow("3 below the diagonal, square 4.5") << QPoint(10, 10) << QPoint(5, 8) << true;
    QTest::newRow("3 above the diagonal, square 4.5") << QPoint(10, 10) << QPoint(5, 2) << true;
    QTest::newRow("4 below the diagonal, square 8") << QPoint(10, 10) << QPoint(5, 9) << false;
    QTest::newRow("steep, square 3.2") << QPoint(10, 20) << QPoint(7, 10) << true;
    QTest::newRow("steep, square 5") << QPoint(10, 20) << QPoint(7, 9) << false;
}

void tst_PolylineHittest::segmentTestTruncatesTheSquaredDistance()
{
    QFETCH(QPoint, b);
    QFETCH(QPoint, p);
    QFETCH(bool, hit);
    const Polyline line;
    const PolylineF lineF;

    QCOMPARE((line.*reveal(IntegerSegmentTest()))(QPoint(0, 0), b, p, 2), hit);
    QCOMPARE((lineF.*reveal(FloatingSegmentTest()))(QPointF(0, 0), b, p, 2), hit);
}

void tst_PolylineHittest::floatingSegmentTestTakesFractions()
{
    const PolylineF line;
    const auto test = reveal(FloatingSegmentTest());

    QVERIFY((line.*test)(QPointF(0.5, 0.5), QPointF(20.5, 0.5), QPointF(10, 2.5), 2));
    QVERIFY(!(line.*test)(QPointF(0.5, 0.5), QPointF(20.5, 0.5), QPointF(10, 2.75), 2));
    QVERIFY((line.*test)(QPointF(0, 0), QPointF(10, 10), QPointF(5, 8.125), 2));
    QVERIFY(!(line.*test)(QPointF(0, 0), QPointF(10, 10), QPointF(5, 8.25), 2));
}

QTEST_MAIN(tst_PolylineHittest)
#include "tst_polyline_hittest.moc"
