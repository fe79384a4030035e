#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>

#include <place.h>

#include <QRandomGenerator>
#include <QTest>

#include <cmath>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

template<typename Number>
int halfAwayFromZero(Number value)
{
    const Number half = Number(0.5);
    return int(value < 0 ? value - half : value + half);
}

// Where the line from the middle of the box to the reference point leaves the box, which reaches
// one pixel further to the left and to the top. All in single precision but for the two divisions
// by halves.
QPoint boxReference(const QRect &box, const QPoint &reference)
{
    const int left = box.x() - 1;
    const int top = box.y() - 1;
    const int width = box.width() + 1;
    const int height = box.height() + 1;
    const auto cx = float(left + width * 0.5);
    const auto cy = float(top + height * 0.5);
    const QPoint centre{int(cx), int(cy)};
    if (width <= 0 || height <= 0 || reference == centre)
        return centre;

    const float dx = float(reference.x()) - cx;
    const float dy = float(reference.y()) - cy;
    const float vertical = std::fabs(dy) / float(height);
    const float horizontal = std::fabs(dx) / float(width);
    const float scale = vertical > horizontal ? vertical : horizontal;
    const auto share = float(0.5 / double(scale));
    const float stepX = share * dx;
    const float stepY = share * dy;
    const float x = cx + stepX;
    const float y = cy + stepY;
    return QPoint(halfAwayFromZero(x), halfAwayFromZero(y));
}

QPoint ellipseReference(const QRect &box, const QPoint &reference)
{
    const double width = box.width();
    const double height = box.height();
    const double cx = box.x() + width / 2;
    const double cy = box.y() + height / 2;
    const double dx = reference.x() - cx;
    const double dy = reference.y() - cy;
    if (dx == 0)
        return QPoint(reference.x(), halfAwayFromZero(dy > 0 ? box.y() + height : double(box.y())));
    if (dy == 0)
        return QPoint(halfAwayFromZero(dx > 0 ? box.x() + width : double(box.x())), reference.y());

    const double k = width * dy / (height * dx);
    const double ex = width * (dx > 0 ? 0.5 : -0.5) / std::sqrt(k * k + 1);
    const double ey = height * (dy > 0 ? 0.5 : -0.5) / std::sqrt(1 / (k * k) + 1);
    return QPoint(halfAwayFromZero(cx + ex), halfAwayFromZero(cy + ey));
}

// Sometimes near the box, sometimes exactly above, below or beside the middle.
QPoint randomReference(QRandomGenerator &random, const QRect &box)
{
    const int reach = random.bounded(4) == 0 ? 6000 : 150;
    QPoint point(random.bounded(-reach, reach), random.bounded(-reach, reach));
    switch (random.bounded(6)) {
    case 0:
        point.setX(box.x() + box.width() / 2);
        break;
    case 1:
        point.setY(box.y() + box.height() / 2);
        break;
    case 2:
        point = box.center() + QPoint(random.bounded(-2, 3), random.bounded(-2, 3));
        break;
    default:
        break;
    }
    return point;
}

QRect randomBox(QRandomGenerator &random)
{
    const int size = random.bounded(3) == 0 ? 5 : 300;
    return QRect(random.bounded(-500, 500), random.bounded(-500, 500), random.bounded(1, size),
                 random.bounded(1, size));
}

template<typename Anchor, typename Reference>
void compareRandomly(const Reference &expected, quint32 seed)
{
    QRandomGenerator random(seed);
    Place parent;
    Figure owner;
    parent.add(&owner);
    Anchor anchor(&owner);
    for (int i = 0; i < 20000; ++i) {
        const QPoint corner(random.bounded(-200, 200), random.bounded(-200, 200));
        const QRect box = randomBox(random);
        const QPoint reference = randomReference(random, box);
        parent.setBounds(QRect(corner, QSize(1000, 1000)));
        owner.setBounds(box.translated(-corner));

        const QPoint found = anchor.getLocation(reference);
        const QPoint wanted = expected(box, reference);
        if (found != wanted)
            qInfo() << "case" << i << box << reference;
        QCOMPARE(found, wanted);
    }
}

class BoxAnchor : public ChopboxAnchor
{
public:
    using ChopboxAnchor::ChopboxAnchor;
    using ChopboxAnchor::getBox;
};

class GivenBoxAnchor : public ChopboxAnchor
{
public:
    GivenBoxAnchor(Figure *owner, const QRect &box)
        : ChopboxAnchor(owner)
        , m_box(box)
    {
    }

protected:
    QRect getBox() override { return m_box; }

private:
    QRect m_box;
};

} // namespace

class tst_Chop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void boxIsLeftAtTheKnownPixel_data();
    void boxIsLeftAtTheKnownPixel();
    void boxIsLeftWhereTheReferenceSays();
    void figureWithoutSizeIsChoppedAsOnePixel();
    void boxThatIsEmptyEvenWhenGrownAnswersItsTruncatedCentre_data();
    void boxThatIsEmptyEvenWhenGrownAnswersItsTruncatedCentre();
    void suppliedBoxIsChoppedInsteadOfTheBounds();
    void boxIsTheBoundsInCoordinatesOfTheParent();
    void boxWithoutOwnerIsNull();
    void truncatedCentreIsAnsweredToItself_data();
    void truncatedCentreIsAnsweredToItself();
    void boxGrowsBeforeItIsTranslated();
    void ellipseIsLeftAtTheKnownPixel_data();
    void ellipseIsLeftAtTheKnownPixel();
    void ellipseIsLeftWhereTheReferenceSays();
    void ellipseIsAbsolute();
    void ellipseWithoutSizeEndsAtItsPoint();
};

void tst_Chop::boxIsLeftAtTheKnownPixel_data()
{
    QTest::addColumn<QPoint>("reference");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("to the right") << QPoint(200, 24) << QPoint(100, 24);
    QTest::newRow("truncated centre") << QPoint(49, 24) << QPoint(49, 24);
    QTest::newRow("above, on the grown edge") << QPoint(50, -100) << QPoint(50, -1);
    // s = 50.5 / 149.5: x is -1, and y is 24.5 - 0.17
    QTest::newRow("to the left, on the grown edge") << QPoint(-100, 24) << QPoint(-1, 24);
    QTest::newRow("below, on the edge that did not grow") << QPoint(50, 200) << QPoint(50, 50);
    QTest::newRow("inside, still sent to the border") << QPoint(60, 24) << QPoint(100, 22);
}

void tst_Chop::boxIsLeftAtTheKnownPixel()
{
    QFETCH(QPoint, reference);
    Figure owner;
    owner.setBounds(QRect(0, 0, 100, 50));

    QTEST(ChopboxAnchor(&owner).getLocation(reference), "expected");
}

void tst_Chop::boxIsLeftWhereTheReferenceSays()
{
    compareRandomly<ChopboxAnchor>(boxReference, 20261);
}

void tst_Chop::figureWithoutSizeIsChoppedAsOnePixel()
{
    Figure owner;
    owner.setPreferredSize(QSize(0, 0));
    owner.setBounds(QRect(10, 10, 0, 0));
    QCOMPARE(owner.getBounds(), QRect(10, 10, 0, 0));

    QCOMPARE(ChopboxAnchor(&owner).getLocation(QPoint(100, 9)), QPoint(10, 9));
}

void tst_Chop::boxThatIsEmptyEvenWhenGrownAnswersItsTruncatedCentre_data()
{
    QTest::addColumn<QRect>("box");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("no width") << QRect(20, 30, -1, 11) << QPoint(19, 35);
    QTest::newRow("negative height") << QRect(20, 30, 10, -4) << QPoint(24, 27);
    QTest::newRow("left of the origin, truncated toward zero")
        << QRect(-20, -30, 10, -4) << QPoint(-15, -32);
}

void tst_Chop::boxThatIsEmptyEvenWhenGrownAnswersItsTruncatedCentre()
{
    QFETCH(QRect, box);
    Figure owner;

    QTEST(GivenBoxAnchor(&owner, box).getLocation(QPoint(100, 9)), "expected");
}

void tst_Chop::suppliedBoxIsChoppedInsteadOfTheBounds()
{
    Figure owner;
    owner.setBounds(QRect(0, 0, 1000, 1000));

    QCOMPARE(GivenBoxAnchor(&owner, QRect(0, 0, 100, 50)).getLocation(QPoint(200, 24)),
             QPoint(100, 24));
}

void tst_Chop::boxIsTheBoundsInCoordinatesOfTheParent()
{
    Place parent(QPoint(500, 600));
    Figure owner;
    parent.add(&owner);
    owner.setBounds(QRect(1, 2, 30, 40));

    QCOMPARE(BoxAnchor(&owner).getBox(), QRect(1, 2, 30, 40));
}

void tst_Chop::boxWithoutOwnerIsNull()
{
    QCOMPARE(BoxAnchor(nullptr).getBox(), QRect());
}

void tst_Chop::truncatedCentreIsAnsweredToItself_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<QPoint>("centre");
    // The grown box of (-100, -50, 100, 50) has its centre at (-50.5, -25.5).
    QTest::newRow("negative") << QRect(-100, -50, 100, 50) << QPoint(-50, -25);
    QTest::newRow("whole") << QRect(0, 0, 101, 51) << QPoint(50, 25);
    QTest::newRow("around the origin") << QRect(0, 0, 1, 1) << QPoint(0, 0);
}

void tst_Chop::truncatedCentreIsAnsweredToItself()
{
    QFETCH(QRect, bounds);
    QFETCH(QPoint, centre);
    Figure owner;
    owner.setBounds(bounds);

    QCOMPARE(ChopboxAnchor(&owner).getLocation(centre), centre);
}

void tst_Chop::boxGrowsBeforeItIsTranslated()
{
    Place parent(QPoint(1000, 2000));
    Figure owner;
    parent.add(&owner);
    owner.setBounds(QRect(0, 0, 100, 50));

    QCOMPARE(ChopboxAnchor(&owner).getLocation(QPoint(1050, 1900)), QPoint(1050, 1999));
    QCOMPARE(ChopboxAnchor(&owner).getLocation(QPoint(1200, 2024)), QPoint(1100, 2024));
}

void tst_Chop::ellipseIsLeftAtTheKnownPixel_data()
{
    QTest::addColumn<QPoint>("reference");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("to the right") << QPoint(300, 25) << QPoint(100, 25);
    QTest::newRow("to the left") << QPoint(-300, 25) << QPoint(0, 25);
    QTest::newRow("at the centre, the top") << QPoint(50, 25) << QPoint(50, 0);
    QTest::newRow("above") << QPoint(50, -25) << QPoint(50, 0);
    QTest::newRow("below") << QPoint(50, 90) << QPoint(50, 50);
    // Along the diagonal k is 1: half of each side over the root of 2.
    QTest::newRow("lower right") << QPoint(250, 125) << QPoint(85, 43);
    QTest::newRow("upper left") << QPoint(-150, -75) << QPoint(15, 7);
    QTest::newRow("upper right") << QPoint(250, -75) << QPoint(85, 7);
    QTest::newRow("lower left") << QPoint(-150, 125) << QPoint(15, 43);
}

void tst_Chop::ellipseIsLeftAtTheKnownPixel()
{
    QFETCH(QPoint, reference);
    Figure owner;
    owner.setBounds(QRect(0, 0, 100, 50));

    QTEST(EllipseAnchor(&owner).getLocation(reference), "expected");
}

void tst_Chop::ellipseIsLeftWhereTheReferenceSays()
{
    compareRandomly<EllipseAnchor>(ellipseReference, 20262);
}

void tst_Chop::ellipseIsAbsolute()
{
    Place parent(QPoint(1000, 2000));
    Figure owner;
    parent.add(&owner);
    owner.setBounds(QRect(0, 0, 100, 50));

    QCOMPARE(EllipseAnchor(&owner).getLocation(QPoint(1300, 2025)), QPoint(1100, 2025));
}

void tst_Chop::ellipseWithoutSizeEndsAtItsPoint()
{
    Figure owner;
    owner.setBounds(QRect(30, 40, 0, 0));

    QCOMPARE(EllipseAnchor(&owner).getLocation(QPoint(90, 70)), QPoint(30, 40));
}

QTEST_MAIN(tst_Chop)
#include "tst_chop.moc"
