#include "decoration_fixtures.h"

#include <figura/decoration/RelativeLocator.h>
#include <figura/geometry/IPositionConstants.h>
#include <figura/layout/DelegatingLayout.h>

#include <place.h>

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Pos = IPositionConstants;

namespace {

class OpenLocator : public RelativeLocator
{
public:
    using RelativeLocator::getReferenceBox;
    using RelativeLocator::getReferenceFigure;
    using RelativeLocator::RelativeLocator;
    using RelativeLocator::relativeX;
    using RelativeLocator::relativeY;
};

// Its coordinates are half as fine as those of the root.
class HalvedFigure : public Figure
{
public:
    using Figure::translateToAbsolute;

    QRectF &translateToAbsolute(QRectF &rect) override
    {
        rect = QRectF(rect.topLeft() * 2, rect.size() * 2);
        return rect;
    }
};

QPoint randomPoint(QRandomGenerator &random)
{
    const int x = random.bounded(-200, 200);
    return QPoint(x, random.bounded(-200, 200));
}

QSize randomSize(QRandomGenerator &random)
{
    const int width = random.bounded(1, 120);
    return QSize(width, random.bounded(1, 120));
}

} // namespace

class tst_RelativeLocator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void locationSetsTheFractions_data();
    void locationSetsTheFractions();
    void fractionsMayBeGivenDirectly();
    void wholeNumberIsALocationAndFractionsAreNot();
    void constructorsPassTheirParentOn();
    void settersOnlyStore();
    void referenceBoxIsThatOfTheBounds();

    void targetIsCentredOnAPointOfTheBox_data();
    void targetIsCentredOnAPointOfTheBox();
    void offsetIsTruncatedTowardZero_data();
    void offsetIsTruncatedTowardZero();
    void randomTargetsAreCentred();
    void boxIsTranslatedBetweenTheFigures();
    void lastPixelOfTheBoxIsLeftOutOfTheTranslation();
    void overriddenReferenceIsUsed();
    void missingReferenceLeavesTheTargetAlone();
    void nullAndHiddenTargetsAreLeftAlone();
    void hiddenReferenceStillCounts();
    void locatorIsALayoutConstraint();
};

void tst_RelativeLocator::locationSetsTheFractions_data()
{
    QTest::addColumn<int>("location");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::newRow("none") << Pos::NONE << 0.5 << 0.5;
    QTest::newRow("centre") << Pos::CENTER << 0.5 << 0.5;
    QTest::newRow("north") << Pos::NORTH << 0.5 << 0.0;
    QTest::newRow("south") << Pos::SOUTH << 0.5 << 1.0;
    QTest::newRow("west") << Pos::WEST << 0.0 << 0.5;
    QTest::newRow("east") << Pos::EAST << 1.0 << 0.5;
    QTest::newRow("north west") << Pos::NORTH_WEST << 0.0 << 0.0;
    QTest::newRow("north east") << Pos::NORTH_EAST << 1.0 << 0.0;
    QTest::newRow("south west") << Pos::SOUTH_WEST << 0.0 << 1.0;
    QTest::newRow("south east") << Pos::SOUTH_EAST << 1.0 << 1.0;
    QTest::newRow("north and south") << Pos::NORTH_SOUTH << 0.5 << 0.5;
    QTest::newRow("east and west") << Pos::EAST_WEST << 0.5 << 0.5;
    QTest::newRow("north, south and east") << (Pos::NORTH_SOUTH | Pos::EAST) << 1.0 << 0.5;
    QTest::newRow("centre with a corner") << (Pos::CENTER | Pos::SOUTH_WEST) << 0.0 << 1.0;
    QTest::newRow("foreign bits") << 0x7FFFFFE2 << 0.5 << 0.5;
}

void tst_RelativeLocator::locationSetsTheFractions()
{
    QFETCH(int, location);
    QFETCH(double, x);
    QFETCH(double, y);
    const OpenLocator made(nullptr, location);
    OpenLocator changed(nullptr, 0.25, 0.75);

    changed.setLocation(location);

    QCOMPARE(made.relativeX(), x);
    QCOMPARE(made.relativeY(), y);
    QCOMPARE(changed.relativeX(), x);
    QCOMPARE(changed.relativeY(), y);
}

void tst_RelativeLocator::fractionsMayBeGivenDirectly()
{
    const OpenLocator locator(nullptr, -0.25, 1.75);

    QCOMPARE(locator.relativeX(), -0.25);
    QCOMPARE(locator.relativeY(), 1.75);
}

void tst_RelativeLocator::wholeNumberIsALocationAndFractionsAreNot()
{
    const OpenLocator location(nullptr, 0, nullptr);
    const OpenLocator fractions(nullptr, 0.0, 0.0);

    QCOMPARE(location.relativeX(), 0.5);
    QCOMPARE(fractions.relativeX(), 0.0);
}

void tst_RelativeLocator::constructorsPassTheirParentOn()
{
    QObject parent;
    Figure figure;
    const auto *byLocation = new OpenLocator(&figure, Pos::NORTH, &parent);
    const auto *byFractions = new OpenLocator(&figure, 0.5, 0.5, &parent);

    QCOMPARE(byLocation->parent(), &parent);
    QCOMPARE(byLocation->getReferenceFigure(), &figure);
    QCOMPARE(byFractions->parent(), &parent);
    QCOMPARE(byFractions->getReferenceFigure(), &figure);
}

void tst_RelativeLocator::settersOnlyStore()
{
    Figure first;
    Figure second;
    first.setBounds(QRect(0, 0, 100, 50));
    second.setBounds(QRect(500, 0, 100, 50));
    Label label(QSize(20, 10));
    OpenLocator locator(&first, Pos::CENTER);
    locator.relocate(&label);
    const QSignalSpy moved(&label, &Figure::figureMoved);

    locator.setReferenceFigure(&second);
    locator.setLocation(Pos::SOUTH_EAST);

    QCOMPARE(locator.getReferenceFigure(), &second);
    QCOMPARE(moved.count(), 0);
}

void tst_RelativeLocator::referenceBoxIsThatOfTheBounds()
{
    Place place(QPoint(30, 40));
    Figure figure;
    place.add(&figure);
    figure.setBounds(QRect(1, 2, 30, 40));

    QCOMPARE(OpenLocator(&figure, Pos::NORTH).getReferenceBox(), QRect(1, 2, 30, 40));
    QCOMPARE(OpenLocator(nullptr, Pos::NORTH).getReferenceBox(), QRect());
}

void tst_RelativeLocator::targetIsCentredOnAPointOfTheBox_data()
{
    QTest::addColumn<int>("location");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("centre") << Pos::CENTER << QRect(50, 40, 20, 10);
    QTest::newRow("north west") << Pos::NORTH_WEST << QRect(0, 15, 20, 10);
    QTest::newRow("north") << Pos::NORTH << QRect(50, 15, 20, 10);
    QTest::newRow("east") << Pos::EAST << QRect(100, 40, 20, 10);
    QTest::newRow("south east") << Pos::SOUTH_EAST << QRect(100, 65, 20, 10);
    QTest::newRow("north and south") << Pos::NORTH_SOUTH << QRect(50, 40, 20, 10);
}

void tst_RelativeLocator::targetIsCentredOnAPointOfTheBox()
{
    QFETCH(int, location);
    QFETCH(QRect, expected);
    Figure figure;
    figure.setBounds(QRect(10, 20, 100, 50));
    Label label(QSize(20, 10));

    RelativeLocator(&figure, location).relocate(&label);

    QCOMPARE(label.getBounds(), expected);
}

void tst_RelativeLocator::offsetIsTruncatedTowardZero_data()
{
    QTest::addColumn<QSize>("box");
    QTest::addColumn<double>("fraction");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("offset");
    QTest::newRow("odd sizes count half of one more")
        << QSize(100, 50) << 0.0 << QSize(21, 11) << QPoint(-11, -6);
    QTest::newRow("even sizes count half")
        << QSize(100, 50) << 0.0 << QSize(20, 10) << QPoint(-10, -5);
    QTest::newRow("positive") << QSize(11, 15) << 0.5 << QSize(4, 4) << QPoint(3, 5);
    QTest::newRow("negative") << QSize(11, 15) << 0.25 << QSize(11, 16) << QPoint(-3, -4);
    QTest::newRow("just below zero") << QSize(11, 15) << 0.25 << QSize(5, 7) << QPoint(0, 0);
    QTest::newRow("beyond the box") << QSize(10, 20) << 1.5 << QSize(2, 2) << QPoint(14, 29);
}

void tst_RelativeLocator::offsetIsTruncatedTowardZero()
{
    QFETCH(QSize, box);
    QFETCH(double, fraction);
    QFETCH(QSize, size);
    QFETCH(QPoint, offset);
    Figure figure;
    figure.setBounds(QRect(QPoint(40, 60), box));
    Label label(size);

    RelativeLocator(&figure, fraction, fraction).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(QPoint(40, 60) + offset, size));
}

void tst_RelativeLocator::randomTargetsAreCentred()
{
    QRandomGenerator random(20240601);

    for (int i = 0; i < 3000; ++i) {
        Place place(randomPoint(random));
        Place other(randomPoint(random));
        Figure figure;
        place.add(&figure);
        figure.setBounds(QRect(randomPoint(random), randomSize(random)));
        Label label(randomSize(random));
        other.add(&label);
        const double x = random.bounded(2.0) - 0.5;
        const double y = random.bounded(2.0) - 0.5;

        RelativeLocator(&figure, x, y).relocate(&label);

        const QSize box = figure.getBounds().size();
        const QSize size = label.getPreferredSize();
        const QPoint corner = figure.getBounds().topLeft() + place.getBounds().topLeft() -
                              other.getBounds().topLeft();
        const QPoint offset(int(std::trunc(x * box.width() - (size.width() + 1) / 2)),
                            int(std::trunc(y * box.height() - (size.height() + 1) / 2)));
        QCOMPARE(label.getBounds(), QRect(corner + offset, size));
    }
}

void tst_RelativeLocator::boxIsTranslatedBetweenTheFigures()
{
    Place root(QPoint(1000, 2000));
    Place left(QPoint(30, 40));
    Place right(QPoint(-7, 5));
    root.add(&left);
    root.add(&right);
    Figure figure;
    left.add(&figure);
    figure.setBounds(QRect(10, 20, 100, 50));
    Label label(QSize(20, 10));
    right.add(&label);

    RelativeLocator(&figure, Pos::SOUTH_EAST).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(137, 100, 20, 10));
}

// A box of ten pixels ends at its ninth step: where coordinates are scaled on the way, its last
// pixel keeps its size.
void tst_RelativeLocator::lastPixelOfTheBoxIsLeftOutOfTheTranslation()
{
    HalvedFigure figure;
    figure.setBounds(QRect(5, 5, 10, 20));
    Label label(QSize(2, 2));

    RelativeLocator(&figure, 1.0, 1.0).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(10 + 19 - 1, 10 + 39 - 1, 2, 2));
}

void tst_RelativeLocator::overriddenReferenceIsUsed()
{
    class OtherLocator : public OpenLocator
    {
    public:
        using OpenLocator::OpenLocator;
        Figure *other = nullptr;
        Figure *getReferenceFigure() const override { return other; }
        QRect getReferenceBox() override { return QRect(0, 0, 10, 10); }
    };
    Place place(QPoint(100, 200));
    Figure figure;
    place.add(&figure);
    Label label(QSize(2, 2));
    OtherLocator locator(nullptr, Pos::NORTH_WEST);

    locator.relocate(&label);
    QCOMPARE(label.getBounds(), QRect());
    locator.other = &figure;
    locator.relocate(&label);
    QCOMPARE(label.getBounds(), QRect(99, 199, 2, 2));
}

void tst_RelativeLocator::missingReferenceLeavesTheTargetAlone()
{
    Label label(QSize(20, 10));
    label.setBounds(QRect(1, 2, 3, 4));

    RelativeLocator(nullptr, Pos::CENTER).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(1, 2, 3, 4));
}

void tst_RelativeLocator::nullAndHiddenTargetsAreLeftAlone()
{
    Figure figure;
    figure.setBounds(QRect(10, 20, 100, 50));
    Label label(QSize(20, 10));
    label.setBounds(QRect(1, 2, 3, 4));
    label.setVisible(false);
    RelativeLocator locator(&figure, Pos::CENTER);

    locator.relocate(nullptr);
    locator.relocate(&label);

    QCOMPARE(label.getBounds(), QRect(1, 2, 3, 4));
}

void tst_RelativeLocator::hiddenReferenceStillCounts()
{
    Figure figure;
    figure.setBounds(QRect(10, 20, 100, 50));
    figure.setVisible(false);
    Label label(QSize(20, 10));

    RelativeLocator(&figure, Pos::CENTER).relocate(&label);

    QCOMPARE(label.getBounds(), QRect(50, 40, 20, 10));
}

void tst_RelativeLocator::locatorIsALayoutConstraint()
{
    Figure container;
    container.setLayoutManager(new DelegatingLayout(&container));
    container.setBounds(QRect(10, 20, 100, 50));
    Label label(QSize(20, 10));
    auto *locator = new RelativeLocator(&container, Pos::NORTH_WEST, &container);

    container.add(&label, QVariant::fromValue<QObject *>(locator));
    QCOMPARE(label.getBounds(), QRect(0, 15, 20, 10));
    container.setBounds(QRect(10, 20, 60, 50));
    locator->setLocation(Pos::EAST);
    container.validate();

    QCOMPARE(label.getBounds(), QRect(60, 40, 20, 10));
}

QTEST_MAIN(tst_RelativeLocator)
#include "tst_relativelocator.moc"
