#include "decoration_fixtures.h"

#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/decoration/ArrowLocator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>

#include <place.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Alignment = ConnectionLocator::Alignment;
using Points = QList<QPoint>;

namespace {

const auto MIDDLE = ConnectionLocator::MIDDLE;
const auto SOURCE = ConnectionLocator::SOURCE;
const auto TARGET = ConnectionLocator::TARGET;

const char *const NOT_ROTATABLE =
    "ArrowLocator::relocate(): no connection or target figure not a rotatable decoration";
const char *const TOO_FEW = "ArrowLocator::relocate(): connection contains less than 2 points";

// Writes down how it is placed and turned.
class TurnedFigure : public Figure, public IRotatableDecoration
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IRotatableDecoration)

public:
    QStringList log;

    void setLocation(const QPointF &point) override { note("location", point); }
    void setLocation(const QPoint &point) override { note("integer location", point); }
    void setReferencePoint(const QPointF &point) override { note("reference", point); }
    void setReferencePoint(const QPoint &point) override { note("integer reference", point); }

private:
    void note(const char *what, const QPointF &point)
    {
        log.append(
            QStringLiteral("%1 %2,%3").arg(QLatin1String(what)).arg(point.x()).arg(point.y()));
    }
};

// Has the operations, but does not declare the interface.
class UndeclaredFigure : public Figure, public IRotatableDecoration
{
public:
    int calls = 0;

    void setLocation(const QPointF &) override { ++calls; }
    void setLocation(const QPoint &) override { ++calls; }
    void setReferencePoint(const QPointF &) override { ++calls; }
    void setReferencePoint(const QPoint &) override { ++calls; }
};

class OpenLocator : public ArrowLocator
{
public:
    using ArrowLocator::ArrowLocator;
    using ArrowLocator::getConnection;
    using ArrowLocator::setAlignment;
    using ArrowLocator::setConnection;
};

// Says something else about its points as floating ones than as integer ones.
class TwoFacedConnection : public PolylineConnection
{
public:
    int getPointCount() const override { return 4; }
    QPointF getPointF(int index) override { return QPointF(index + 0.5, -index); }
    QPoint getPoint(int) override { return QPoint(-1, -1); }
    QList<QPoint> getPoints() override { return {}; }
    QList<QPointF> getPointsF() override { return {}; }
};

} // namespace

class tst_ArrowLocator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newLocatorKnowsConnectionAndEnd_data();
    void newLocatorKnowsConnectionAndEnd();

    void arrowIsPlacedAtItsEndAndTurned_data();
    void arrowIsPlacedAtItsEndAndTurned();
    void pointsAreAskedForOneByOne_data();
    void pointsAreAskedForOneByOne();
    void fractionsReachTheArrow();
    void tooFewPointsAreReportedAfterTheArrowWasPlaced_data();
    void tooFewPointsAreReportedAfterTheArrowWasPlaced();
    void laterAlignmentPlacesButDoesNotTurn_data();
    void laterAlignmentPlacesButDoesNotTurn();
    void pointsStayInTheConnectionsCoordinates();
    void gapAndPositionDoNotCount();

    void missingConnectionIsReported();
    void plainFigureIsReported();
    void decorationThatDoesNotDeclareItsInterfaceIsReported();
    void missingConnectionAndPlainFigureAreReportedOnce();
    void nullAndHiddenTargetsAreLeftAloneSilently();
    void overriddenConnectionIsUsed();

    void bothArrowHeadsAreTurned();
    void connectionPlacesItsDecorationsByArrowLocators();
};

void tst_ArrowLocator::newLocatorKnowsConnectionAndEnd_data()
{
    QTest::addColumn<Alignment>("given");
    QTest::addColumn<Alignment>("alignment");
    QTest::newRow("source") << SOURCE << SOURCE;
    QTest::newRow("target") << TARGET << TARGET;
    QTest::newRow("middle becomes source") << MIDDLE << SOURCE;
}

void tst_ArrowLocator::newLocatorKnowsConnectionAndEnd()
{
    QFETCH(Alignment, given);
    QFETCH(Alignment, alignment);
    QObject parent;
    PolylineConnection connection;
    const auto *locator = new OpenLocator(&connection, given, &parent);

    QCOMPARE(locator->getAlignment(), alignment);
    QCOMPARE(locator->getConnection(), &connection);
    QCOMPARE(locator->parent(), &parent);
}

void tst_ArrowLocator::arrowIsPlacedAtItsEndAndTurned_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<Alignment>("alignment");
    QTest::addColumn<QStringList>("log");
    const Points two{{1, 2}, {3, 4}};
    const Points four{{1, 2}, {3, 4}, {5, 6}, {7, 8}};
    QTest::newRow("source of four")
        << four << SOURCE << QStringList{"location 1,2", "reference 3,4"};
    QTest::newRow("target of four")
        << four << TARGET << QStringList{"location 7,8", "reference 5,6"};
    QTest::newRow("middle of four")
        << four << MIDDLE << QStringList{"location 1,2", "reference 3,4"};
    QTest::newRow("source of two") << two << SOURCE << QStringList{"location 1,2", "reference 3,4"};
    QTest::newRow("target of two") << two << TARGET << QStringList{"location 3,4", "reference 1,2"};
}

void tst_ArrowLocator::arrowIsPlacedAtItsEndAndTurned()
{
    QFETCH(Points, points);
    QFETCH(Alignment, alignment);
    QFETCH(QStringList, log);
    PolylineConnection connection;
    connection.setPoints(points);
    TurnedFigure arrow;

    ArrowLocator(&connection, alignment).relocate(&arrow);

    QCOMPARE(arrow.log, log);
    QCOMPARE(arrow.getBounds(), QRect());
}

void tst_ArrowLocator::pointsAreAskedForOneByOne_data()
{
    QTest::addColumn<Alignment>("alignment");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("source") << SOURCE << QStringList{"location 0.5,0", "reference 1.5,-1"};
    QTest::newRow("target") << TARGET << QStringList{"location 3.5,-3", "reference 2.5,-2"};
}

void tst_ArrowLocator::pointsAreAskedForOneByOne()
{
    QFETCH(Alignment, alignment);
    QFETCH(QStringList, log);
    TwoFacedConnection connection;
    TurnedFigure arrow;

    ArrowLocator(&connection, alignment).relocate(&arrow);

    QCOMPARE(arrow.log, log);
}

void tst_ArrowLocator::fractionsReachTheArrow()
{
    PolylineFConnection connection;
    connection.setPointsF({{0.25, -0.75}, {10.5, 20.5}});
    TurnedFigure arrow;

    ArrowLocator(&connection, SOURCE).relocate(&arrow);

    QCOMPARE(arrow.log, (QStringList{"location 0.25,-0.75", "reference 10.5,20.5"}));
}

void tst_ArrowLocator::tooFewPointsAreReportedAfterTheArrowWasPlaced_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<Alignment>("alignment");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("source of one") << Points{{7, 8}} << SOURCE << QStringList{"location 7,8"};
    QTest::newRow("target of one") << Points{{7, 8}} << TARGET << QStringList{"location 7,8"};
    QTest::newRow("source of none") << Points() << SOURCE << QStringList{"location 0,0"};
    QTest::newRow("target of none") << Points() << TARGET << QStringList{"location 0,0"};
}

void tst_ArrowLocator::tooFewPointsAreReportedAfterTheArrowWasPlaced()
{
    QFETCH(Points, points);
    QFETCH(Alignment, alignment);
    QFETCH(QStringList, log);
    PolylineConnection connection;
    connection.setPoints(points);
    TurnedFigure arrow;

    QTest::ignoreMessage(QtWarningMsg, TOO_FEW);
    ArrowLocator(&connection, alignment).relocate(&arrow);

    QCOMPARE(arrow.log, log);
}

void tst_ArrowLocator::laterAlignmentPlacesButDoesNotTurn_data()
{
    QTest::addColumn<Alignment>("alignment");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("middle") << MIDDLE << QStringList{"location 3,4"};
    QTest::newRow("unknown") << static_cast<Alignment>(3) << QStringList{"location 0,0"};
}

void tst_ArrowLocator::laterAlignmentPlacesButDoesNotTurn()
{
    QFETCH(Alignment, alignment);
    QFETCH(QStringList, log);
    PolylineConnection connection;
    connection.setPoints({{1, 2}, {3, 4}, {5, 6}});
    TurnedFigure arrow;
    OpenLocator locator(&connection, SOURCE);
    locator.setAlignment(alignment);

    locator.relocate(&arrow);

    QCOMPARE(arrow.log, log);
}

// The arrow is a child of the connection and shares its coordinates.
void tst_ArrowLocator::pointsStayInTheConnectionsCoordinates()
{
    Place place(QPoint(100, 200));
    PolylineConnection connection;
    place.add(&connection);
    connection.setPoints({{1, 2}, {3, 4}});
    TurnedFigure arrow;
    connection.add(&arrow);

    ArrowLocator(&connection, SOURCE).relocate(&arrow);

    QCOMPARE(arrow.log, (QStringList{"location 1,2", "reference 3,4"}));
}

void tst_ArrowLocator::gapAndPositionDoNotCount()
{
    PolylineConnection connection;
    connection.setPoints({{1, 2}, {3, 4}});
    TurnedFigure arrow;
    ArrowLocator locator(&connection, SOURCE);
    locator.setGap(20);
    locator.setRelativePosition(IPositionConstants::SOUTH_EAST);

    locator.relocate(&arrow);

    QCOMPARE(arrow.log, (QStringList{"location 1,2", "reference 3,4"}));
}

void tst_ArrowLocator::missingConnectionIsReported()
{
    TurnedFigure arrow;

    QTest::ignoreMessage(QtWarningMsg, NOT_ROTATABLE);
    ArrowLocator(nullptr, SOURCE).relocate(&arrow);

    QCOMPARE(arrow.log, QStringList());
}

void tst_ArrowLocator::plainFigureIsReported()
{
    PolylineConnection connection;
    Label label(QSize(20, 10));

    QTest::ignoreMessage(QtWarningMsg, NOT_ROTATABLE);
    ArrowLocator(&connection, SOURCE).relocate(&label);

    QCOMPARE(label.getBounds(), QRect());
}

// The interface is looked for by its id, not by a cast.
void tst_ArrowLocator::decorationThatDoesNotDeclareItsInterfaceIsReported()
{
    PolylineConnection connection;
    UndeclaredFigure arrow;

    QTest::ignoreMessage(QtWarningMsg, NOT_ROTATABLE);
    ArrowLocator(&connection, SOURCE).relocate(&arrow);

    QCOMPARE(arrow.calls, 0);
}

void tst_ArrowLocator::missingConnectionAndPlainFigureAreReportedOnce()
{
    Label label(QSize(20, 10));

    QTest::ignoreMessage(QtWarningMsg, NOT_ROTATABLE);
    ArrowLocator(nullptr, TARGET).relocate(&label);

    QCOMPARE(label.getBounds(), QRect());
}

void tst_ArrowLocator::nullAndHiddenTargetsAreLeftAloneSilently()
{
    PolylineConnection connection;
    TurnedFigure arrow;
    arrow.setVisible(false);
    Label label(QSize(20, 10));
    label.setVisible(false);
    ArrowLocator locator(&connection, SOURCE);

    locator.relocate(nullptr);
    locator.relocate(&arrow);
    locator.relocate(&label);
    ArrowLocator(nullptr, SOURCE).relocate(&arrow);

    QCOMPARE(arrow.log, QStringList());
}

void tst_ArrowLocator::overriddenConnectionIsUsed()
{
    class OtherLocator : public OpenLocator
    {
    public:
        using OpenLocator::OpenLocator;
        IConnection *other = nullptr;
        IConnection *getConnection() const override { return other; }
    };
    PolylineConnection connection;
    OtherLocator locator(nullptr, TARGET);
    locator.other = &connection;
    TurnedFigure arrow;

    locator.relocate(&arrow);

    QCOMPARE(arrow.log, (QStringList{"location 100,100", "reference 0,0"}));
}

void tst_ArrowLocator::bothArrowHeadsAreTurned()
{
    PolylineConnection connection;
    connection.setPoints({{100, 50}, {0, 50}});
    PolygonDecoration polygon;
    PolylineDecoration polyline;
    ArrowLocator locator(&connection, SOURCE);

    locator.relocate(&polygon);
    locator.relocate(&polyline);

    const Points expected{{93, 53}, {100, 50}, {93, 47}};
    QCOMPARE(polygon.getLinePoints(), expected);
    QCOMPARE(polyline.getLinePoints(), expected);
}

void tst_ArrowLocator::connectionPlacesItsDecorationsByArrowLocators()
{
    PolylineConnection connection;
    PolygonDecoration source;
    PolylineDecoration target;
    connection.setPoints({{10, 20}, {10, 90}, {80, 90}});

    connection.setSourceDecoration(&source);
    connection.setTargetDecoration(&target);

    QCOMPARE(source.getLinePoints().value(1), QPoint(10, 20));
    QCOMPARE(source.getLinePoints().value(0).y(), 27);
    QCOMPARE(target.getLinePoints(), (Points{{73, 93}, {80, 90}, {73, 87}}));
    connection.setPoints({{10, 20}, {10, 90}, {85, 90}});
    connection.validate();
    QCOMPARE(target.getLinePoints(), (Points{{78, 93}, {85, 90}, {78, 87}}));
}

QTEST_MAIN(tst_ArrowLocator)
#include "tst_arrowlocator.moc"
