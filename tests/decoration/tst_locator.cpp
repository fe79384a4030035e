#include "decoration_fixtures.h"

#include <figura/decoration/Locator.h>
#include <figura/layout/DelegatingLayout.h>

#include <place.h>

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Pos = IPositionConstants;

namespace {

class PointLocator : public Locator
{
public:
    explicit PointLocator(const QPoint &point, QObject *parent = nullptr)
        : Locator(parent)
        , m_point(point)
    {
    }

    using Locator::getNewBounds;

    int asked = 0; ///< How often it was asked for its point.

protected:
    QPoint getReferencePoint() override
    {
        ++asked;
        return m_point;
    }

private:
    QPoint m_point;
};

} // namespace

class tst_Locator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newLocatorCentresWithoutGap();
    void constructorPassesItsParentOn();
    void settersOnlyStore();

    void newBoundsLieOnTheChosenSide_data();
    void newBoundsLieOnTheChosenSide();
    void gapIsUnusedWhileCentred();
    void halfSizesAreTruncatedTowardZero_data();
    void halfSizesAreTruncatedTowardZero();

    void relocateGivesThePreferredSize();
    void relocateUsesPositionAndGap();
    void relocateTranslatesThePointIntoTheTargetsCoordinates();
    void relocateUsesOverriddenBounds();
    void relocateLeavesNullAndHiddenFiguresAlone();
    void locatorIsALayoutConstraint();
};

void tst_Locator::newLocatorCentresWithoutGap()
{
    const PointLocator locator(QPoint(1, 2));

    QCOMPARE(locator.getGap(), 0);
    QCOMPARE(locator.getRelativePosition(), Pos::CENTER);
    QCOMPARE(locator.parent(), nullptr);
}

void tst_Locator::constructorPassesItsParentOn()
{
    QObject parent;
    const auto *locator = new PointLocator(QPoint(), &parent);

    QCOMPARE(locator->parent(), &parent);
}

void tst_Locator::settersOnlyStore()
{
    Label label(QSize(20, 10));
    PointLocator locator(QPoint(100, 100));
    locator.relocate(&label);
    const QSignalSpy moved(&label, &Figure::figureMoved);

    locator.setGap(-7);
    locator.setRelativePosition(Pos::SOUTH | Pos::EAST);

    QCOMPARE(locator.getGap(), -7);
    QCOMPARE(locator.getRelativePosition(), Pos::SOUTH_EAST);
    QCOMPARE(moved.count(), 0);
}

void tst_Locator::newBoundsLieOnTheChosenSide_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("centre") << Pos::CENTER << QRect(90, 95, 20, 10);
    QTest::newRow("none") << Pos::NONE << QRect(90, 95, 20, 10);
    QTest::newRow("north") << Pos::NORTH << QRect(90, 88, 20, 10);
    QTest::newRow("south") << Pos::SOUTH << QRect(90, 102, 20, 10);
    QTest::newRow("west") << Pos::WEST << QRect(78, 95, 20, 10);
    QTest::newRow("east") << Pos::EAST << QRect(102, 95, 20, 10);
    QTest::newRow("north west") << Pos::NORTH_WEST << QRect(78, 88, 20, 10);
    QTest::newRow("north east") << Pos::NORTH_EAST << QRect(102, 88, 20, 10);
    QTest::newRow("south west") << Pos::SOUTH_WEST << QRect(78, 102, 20, 10);
    QTest::newRow("south east") << Pos::SOUTH_EAST << QRect(102, 102, 20, 10);
    QTest::newRow("west wins over east") << Pos::EAST_WEST << QRect(78, 95, 20, 10);
    QTest::newRow("north wins over south") << Pos::NORTH_SOUTH << QRect(90, 88, 20, 10);
    QTest::newRow("centre with a side") << (Pos::CENTER | Pos::EAST) << QRect(102, 95, 20, 10);
    QTest::newRow("foreign bits") << 0x7FFFFFE2 << QRect(90, 95, 20, 10);
}

void tst_Locator::newBoundsLieOnTheChosenSide()
{
    QFETCH(int, position);
    QFETCH(QRect, expected);
    PointLocator locator(QPoint(0, 0));
    locator.setGap(2);
    locator.setRelativePosition(position);

    QCOMPARE(locator.getNewBounds(QSize(20, 10), QPoint(100, 100)), expected);
}

void tst_Locator::gapIsUnusedWhileCentred()
{
    PointLocator locator(QPoint(0, 0));
    locator.setGap(10);

    QCOMPARE(locator.getNewBounds(QSize(20, 10), QPoint(30, 40)), QRect(20, 35, 20, 10));
}

void tst_Locator::halfSizesAreTruncatedTowardZero_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("gap");
    QTest::addColumn<int>("position");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("odd, centred") << QSize(21, 11) << 0 << Pos::CENTER << QPoint(-10, -5);
    QTest::newRow("odd, south east") << QSize(21, 11) << 3 << Pos::SOUTH_EAST << QPoint(3, 3);
    QTest::newRow("odd, north west") << QSize(21, 11) << 3 << Pos::NORTH_WEST << QPoint(-23, -13);
    QTest::newRow("one") << QSize(1, 1) << 0 << Pos::NORTH_WEST << QPoint(0, 0);
    QTest::newRow("negative gap") << QSize(20, 10) << -4 << Pos::SOUTH_EAST << QPoint(-4, -4);
    QTest::newRow("negative size, centred") << QSize(-3, -5) << 0 << Pos::CENTER << QPoint(1, 2);
    QTest::newRow("invalid size") << QSize() << 0 << Pos::NORTH_WEST << QPoint(0, 0);
}

void tst_Locator::halfSizesAreTruncatedTowardZero()
{
    QFETCH(QSize, size);
    QFETCH(int, gap);
    QFETCH(int, position);
    QFETCH(QPoint, expected);
    PointLocator locator(QPoint(0, 0));
    locator.setGap(gap);
    locator.setRelativePosition(position);

    const QRect bounds = locator.getNewBounds(size, QPoint(0, 0));

    QCOMPARE(bounds.topLeft(), expected);
    QCOMPARE(bounds.size(), size);
}

void tst_Locator::relocateGivesThePreferredSize()
{
    Label label(QSize(20, 10));
    label.setBounds(QRect(1, 2, 300, 400));

    PointLocator(QPoint(100, 100)).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(90, 95, 20, 10));
}

void tst_Locator::relocateUsesPositionAndGap()
{
    Label label(QSize(20, 10));
    PointLocator locator(QPoint(100, 100));
    locator.setRelativePosition(Pos::NORTH_EAST);
    locator.setGap(2);

    locator.relocate(&label);

    QCOMPARE(label.getBounds(), QRect(102, 88, 20, 10));
}

void tst_Locator::relocateTranslatesThePointIntoTheTargetsCoordinates()
{
    Place outer(QPoint(30, 40));
    Place inner(QPoint(7, -5));
    outer.add(&inner);
    Label label(QSize(20, 10));
    inner.add(&label);

    PointLocator(QPoint(100, 100)).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(53, 60, 20, 10));
}

void tst_Locator::relocateUsesOverriddenBounds()
{
    class FixedLocator : public PointLocator
    {
    public:
        using PointLocator::PointLocator;

        QSize size;
        QPoint point;

    protected:
        QRect getNewBounds(const QSize &newSize, const QPoint &newPoint) override
        {
            size = newSize;
            point = newPoint;
            return QRect(1, 2, 3, 4);
        }
    };
    Place place(QPoint(10, 20));
    Label label(QSize(20, 10));
    place.add(&label);
    FixedLocator locator(QPoint(100, 100));

    locator.relocate(&label);

    QCOMPARE(label.getBounds(), QRect(1, 2, 3, 4));
    QCOMPARE(locator.size, QSize(20, 10));
    QCOMPARE(locator.point, QPoint(90, 80));
}

void tst_Locator::relocateLeavesNullAndHiddenFiguresAlone()
{
    Label label(QSize(20, 10));
    label.setBounds(QRect(1, 2, 3, 4));
    label.setVisible(false);
    const QSignalSpy moved(&label, &Figure::figureMoved);
    PointLocator locator(QPoint(100, 100));

    locator.relocate(nullptr);
    locator.relocate(&label);

    QCOMPARE(label.getBounds(), QRect(1, 2, 3, 4));
    QCOMPARE(moved.count(), 0);
    QCOMPARE(locator.asked, 0);
}

void tst_Locator::locatorIsALayoutConstraint()
{
    Figure container;
    container.setLayoutManager(new DelegatingLayout(&container));
    container.setBounds(QRect(40, 50, 200, 200));
    Label label(QSize(20, 10));
    auto *locator = new PointLocator(QPoint(100, 100), &container);

    container.add(&label, QVariant::fromValue<QObject *>(locator));

    QCOMPARE(label.getBounds(), QRect(90, 95, 20, 10));
    label.setBounds(QRect(0, 0, 5, 5));
    container.validate();
    QCOMPARE(label.getBounds(), QRect(90, 95, 20, 10));
}

QTEST_MAIN(tst_Locator)
#include "tst_locator.moc"
