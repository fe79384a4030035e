#include "decoration_fixtures.h"
#include "decoration_probe.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/XYAnchor.h>
#include <figura/decoration/ArrowLocator.h>
#include <figura/decoration/BendpointLocator.h>
#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/MidpointLocator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/decoration/RelativeLocator.h>
#include <figura/layout/XYLayout.h>

#include <rootfigure.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const QRect UNTOUCHED(1, 2, 3, 4);

class Displayed : public RootFigure
{
public:
    Displayed()
        : RootFigure(nullptr)
    {
        setLayoutManager(new XYLayout(this));
        setBounds(QRect(0, 0, 1000, 1000));
    }
};

class OpenLocator : public ConnectionLocator
{
public:
    using ConnectionLocator::ConnectionLocator;
    using ConnectionLocator::getConnection;
};

class OpenRelativeLocator : public RelativeLocator
{
public:
    using RelativeLocator::getReferenceBox;
    using RelativeLocator::getReferenceFigure;
    using RelativeLocator::RelativeLocator;
};

/// Does something when it is asked how large it would like to be.
class MeasuredFigure : public Figure
{
public:
    std::function<void()> whenMeasured;

    QSize getPreferredSize() override
    {
        if (whenMeasured)
            whenMeasured();
        return {20, 10};
    }
};

class OpenConnection : public PolylineConnection
{
public:
    using PolylineConnection::getSourceDecoration;
    using PolylineConnection::getTargetDecoration;
};

class OpenFloatingConnection : public PolylineFConnection
{
public:
    using PolylineFConnection::getSourceDecoration;
    using PolylineFConnection::getTargetDecoration;
};

void deliverDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A connection of either class, with one decoration at each end.
struct Decorated
{
    explicit Decorated(bool isFloating, QObject *decorationParent = nullptr)
        : source(new PolygonDecoration(decorationParent))
        , target(new PolylineDecoration(decorationParent))
    {
        if (isFloating)
            connection = decorate(std::make_unique<OpenFloatingConnection>());
        else
            connection = decorate(std::make_unique<OpenConnection>());
    }

    template<typename Class>
    std::unique_ptr<Figure> decorate(std::unique_ptr<Class> made)
    {
        made->setSourceDecoration(source);
        made->setTargetDecoration(target);
        setSource = [c = made.get()](IRotatableDecoration *d) { c->setSourceDecoration(d); };
        getSource = [c = made.get()] { return c->getSourceDecoration(); };
        return made;
    }

    QPointer<PolygonDecoration> source;
    QPointer<PolylineDecoration> target;
    std::unique_ptr<Figure> connection;
    std::function<void(IRotatableDecoration *)> setSource;
    std::function<IRotatableDecoration *()> getSource;
};

void addConnectionRows()
{
    QTest::addColumn<bool>("isFloating");
    QTest::newRow("PolylineConnection") << false;
    QTest::newRow("PolylineFConnection") << true;
}

void addMoments()
{
    QTest::addColumn<bool>("isSetLater");
    QTest::newRow("given from the beginning") << false;
    QTest::newRow("set later") << true;
}

} // namespace

class tst_DecorationLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void cleanup() { deliverDeletions(); }

    void locatorsOfADeadConnectionGoToTheOrigin();
    void indexedLocatorsOfADeadConnectionReportTheirIndex();
    void arrowLocatorOfADeadConnectionReportsIt();
    void endpointLocatorOfADeadConnectionDoesNothing();
    void endpointLocatorThatGoesWhileItMeasuresPlacesNothing();
    void endpointLocatorForgetsADeadOwner();
    void endpointLocatorForgetsADeadAnchor();
    void relativeLocatorOfADeadFigureDoesNothing();
    void labelSurvivesItsConnection();
    void labelSurvivesItsLocator();
    void locatorDestroyedWhileItsConnectionIsLaidOut();

    void deadOwnerCountsAsNone_data() { addMoments(); }
    void deadOwnerCountsAsNone();
    void deadLocatorCountsAsNone_data() { addMoments(); }
    void deadLocatorCountsAsNone();
    void decorationIsDeletedWhileItsOwnerLives();
    void decorationIsDeletedBySomebodyWhoHearsOfTheMove();
    void ownerIsDeletedWhileItsDecorationIsAttached();
    void decorationIsDeletedByAChildThatIsAttached();
    void ownerDeletedBeforeTheDecorationIsTakenOut();
    void ownersLifeAndDeathMakeNoDecorationValid();

    void connectionTakesItsDecorationsAlong_data() { addConnectionRows(); }
    void connectionTakesItsDecorationsAlong();
    void decorationsWithAParentStayWithIt_data() { addConnectionRows(); }
    void decorationsWithAParentStayWithIt();
    void decorationDestroyedBeforeItsConnection_data() { addConnectionRows(); }
    void decorationDestroyedBeforeItsConnection();
    void decorationsOnTheStackOutliveTheConnection();
    void replacedDecorationIsDeletedLater_data() { addConnectionRows(); }
    void replacedDecorationIsDeletedLater();
    void replacedDecorationThatIsDeadAlreadyIsForgotten_data() { addConnectionRows(); }
    void replacedDecorationThatIsDeadAlreadyIsForgotten();
    void arrowLocatorDiesWithItsDecoration();
    void attachedConnectionDiesWithItsDecorations_data() { addConnectionRows(); }
    void attachedConnectionDiesWithItsDecorations();
    void connectionDeletedWhileItsDecorationHears();
};

void tst_DecorationLifetime::locatorsOfADeadConnectionGoToTheOrigin()
{
    auto connection = std::make_unique<PolylineConnection>();
    OpenLocator locator(connection.get(), ConnectionLocator::TARGET);
    Label label(QSize(20, 10));
    locator.relocate(&label);
    QCOMPARE(label.getBounds(), QRect(90, 95, 20, 10));

    connection.reset();

    QCOMPARE(locator.getConnection(), nullptr);
    locator.relocate(&label);
    QCOMPARE(label.getBounds(), QRect(-10, -5, 20, 10));
}

void tst_DecorationLifetime::indexedLocatorsOfADeadConnectionReportTheirIndex()
{
    auto connection = std::make_unique<PolylineConnection>();
    MidpointLocator midpoint(connection.get(), 0);
    BendpointLocator bendpoint(connection.get(), 1);
    Label label(QSize(20, 10));

    connection.reset();

    QTest::ignoreMessage(QtWarningMsg,
                         "MidpointLocator::getReferencePoint(): index, 0, out-of-bound");
    midpoint.relocate(&label);
    QTest::ignoreMessage(QtWarningMsg,
                         "BendpointLocator::getReferencePoint(): index, 1, out-of-bound");
    bendpoint.relocate(&label);
    QCOMPARE(label.getBounds(), QRect(-10, -5, 20, 10));
}

void tst_DecorationLifetime::arrowLocatorOfADeadConnectionReportsIt()
{
    auto connection = std::make_unique<PolylineConnection>();
    ArrowLocator locator(connection.get(), ConnectionLocator::TARGET);
    PolygonDecoration arrow;
    locator.relocate(&arrow);
    const QList<QPoint> before = arrow.getLinePoints();
    QCOMPARE(before.value(1), QPoint(100, 100));

    connection.reset();

    QTest::ignoreMessage(
        QtWarningMsg,
        "ArrowLocator::relocate(): no connection or target figure not a rotatable decoration");
    locator.relocate(&arrow);
    QCOMPARE(arrow.getLinePoints(), before);
}

void tst_DecorationLifetime::endpointLocatorThatGoesWhileItMeasuresPlacesNothing()
{
    PolylineConnection connection;
    connection.setEndPoints(QPoint(0, 0), QPoint(100, 50));
    const QPointer<ConnectionEndpointLocator> locator(
        new ConnectionEndpointLocator(&connection, true));
    MeasuredFigure label;
    label.setBounds(UNTOUCHED);
    label.whenMeasured = [&locator] { delete locator; };

    locator->relocate(&label);

    QVERIFY(!locator);
    QCOMPARE(label.getBounds(), UNTOUCHED);
}

void tst_DecorationLifetime::endpointLocatorOfADeadConnectionDoesNothing()
{
    auto connection = std::make_unique<PolylineConnection>();
    ConnectionEndpointLocator locator(connection.get(), false);
    Label label(QSize(20, 10));
    label.setBounds(UNTOUCHED);

    connection.reset();

    locator.relocate(&label);
    QCOMPARE(label.getBounds(), UNTOUCHED);
}

void tst_DecorationLifetime::endpointLocatorForgetsADeadOwner()
{
    auto owner = std::make_unique<Figure>();
    owner->setBounds(QRect(50, -52, 101, 101)); // above the start
    ChopboxAnchor anchor(owner.get());
    PolylineConnection connection;
    connection.setSourceAnchor(&anchor);
    connection.setPoints({{100, 50}, {200, 50}});
    ConnectionEndpointLocator locator(&connection, false);
    Label label(QSize(20, 10));
    locator.relocate(&label);
    QCOMPARE(label.getBounds().y(), 64);

    owner.reset();

    locator.relocate(&label);
    QCOMPARE(label.getBounds(), QRect(114, 54, 20, 10));
}

void tst_DecorationLifetime::endpointLocatorForgetsADeadAnchor()
{
    Figure owner;
    owner.setBounds(QRect(50, -52, 101, 101));
    auto anchor = std::make_unique<ChopboxAnchor>(&owner);
    PolylineConnection connection;
    connection.setSourceAnchor(anchor.get());
    connection.setPoints({{100, 50}, {200, 50}});
    ConnectionEndpointLocator locator(&connection, false);
    Label label(QSize(20, 10));

    anchor.reset();

    locator.relocate(&label);
    QCOMPARE(label.getBounds(), QRect(114, 54, 20, 10));
}

void tst_DecorationLifetime::relativeLocatorOfADeadFigureDoesNothing()
{
    auto figure = std::make_unique<Figure>();
    figure->setBounds(QRect(0, 0, 100, 50));
    OpenRelativeLocator locator(figure.get(), 0.5, 0.5);
    Label label(QSize(20, 10));
    label.setBounds(UNTOUCHED);

    figure.reset();

    QCOMPARE(locator.getReferenceFigure(), nullptr);
    QCOMPARE(locator.getReferenceBox(), QRect());
    locator.relocate(&label);
    QCOMPARE(label.getBounds(), UNTOUCHED);
}

void tst_DecorationLifetime::labelSurvivesItsConnection()
{
    Displayed root;
    Label label(QSize(20, 10));
    auto connection = std::make_unique<PolylineConnection>();
    root.add(connection.get());
    auto *locator = new MidpointLocator(connection.get(), 0, connection.get());
    connection->add(&label, QVariant::fromValue<QObject *>(locator));
    root.validate();
    QCOMPARE(label.getBounds(), QRect(40, 45, 20, 10));

    connection.reset();

    QCOMPARE(label.getParentFigure(), nullptr);
    QCOMPARE(root.childFigureCount(), 0);
    label.setBounds(UNTOUCHED);
    root.revalidate();
    root.validate();
    QCOMPARE(label.getBounds(), UNTOUCHED);
}

void tst_DecorationLifetime::labelSurvivesItsLocator()
{
    Displayed root;
    Label label(QSize(20, 10));
    PolylineConnection connection;
    root.add(&connection);
    auto locator = std::make_unique<MidpointLocator>(&connection, 0);
    connection.add(&label, QVariant::fromValue<QObject *>(locator.get()));
    root.validate();

    locator.reset();

    label.setBounds(UNTOUCHED);
    connection.revalidate();
    root.validate();
    QCOMPARE(label.getBounds(), UNTOUCHED);
    QVERIFY(connection.remove(&label));
}

void tst_DecorationLifetime::locatorDestroyedWhileItsConnectionIsLaidOut()
{
    Displayed root;
    PolylineConnection connection;
    root.add(&connection);
    Label first(QSize(20, 10));
    Label second(QSize(20, 10));
    auto *firstLocator = new MidpointLocator(&connection, 0, &connection);
    auto *secondLocator = new MidpointLocator(&connection, 0, &connection);
    connection.add(&first, QVariant::fromValue<QObject *>(firstLocator));
    connection.add(&second, QVariant::fromValue<QObject *>(secondLocator));
    root.validate();
    first.setBounds(UNTOUCHED);
    second.setBounds(UNTOUCHED);
    connect(&first, &Figure::figureMoved, secondLocator, [=] { delete secondLocator; });

    connection.revalidate();
    root.validate();

    QCOMPARE(first.getBounds(), QRect(40, 45, 20, 10));
    QCOMPARE(second.getBounds(), UNTOUCHED);
}

void tst_DecorationLifetime::deadOwnerCountsAsNone()
{
    QFETCH(bool, isSetLater);
    auto owner = std::make_unique<Figure>();
    DecorationProbe decoration(isSetLater ? nullptr : owner.get(), nullptr);
    if (isSetLater)
        decoration.setOwner(owner.get());

    owner.reset();

    QCOMPARE(decoration.getOwner(), nullptr);
    QTest::ignoreMessage(QtWarningMsg, "Decoration::addNotify(): no owner");
    decoration.addNotify();
}

void tst_DecorationLifetime::deadLocatorCountsAsNone()
{
    QFETCH(bool, isSetLater);
    auto locator = std::make_unique<ObjectLocator>();
    DecorationProbe decoration(nullptr, isSetLater ? nullptr : locator.get());
    if (isSetLater)
        decoration.setLocator(locator.get());
    decoration.setBounds(UNTOUCHED);

    locator.reset();

    QCOMPARE(decoration.getLocator(), nullptr);
    QCOMPARE(decoration.getConstraint().value<QObject *>(), nullptr);
    decoration.validate();
    QCOMPARE(decoration.getBounds(), UNTOUCHED);
}

void tst_DecorationLifetime::decorationIsDeletedWhileItsOwnerLives()
{
    Displayed root;
    Figure owner;
    root.add(&owner);
    auto decoration = std::make_unique<DecorationProbe>(&owner, nullptr);
    root.add(decoration.get());

    decoration.reset();

    owner.setBounds(QRect(5, 5, 10, 10));
    root.validate();
    QCOMPARE(root.childFigureCount(), 1);
}

void tst_DecorationLifetime::decorationIsDeletedBySomebodyWhoHearsOfTheMove()
{
    Displayed root;
    Figure owner;
    root.add(&owner);
    QPointer<DecorationProbe> decoration = new DecorationProbe(&owner, nullptr);
    connect(&owner, &Figure::figureMoved, this, [=] { delete decoration; });
    root.add(decoration);

    owner.setBounds(QRect(5, 5, 10, 10));

    QVERIFY(!decoration);
    owner.setBounds(QRect(6, 6, 10, 10));
    root.validate();
}

void tst_DecorationLifetime::decorationIsDeletedByAChildThatIsAttached()
{
    class Child : public Figure
    {
    public:
        std::function<void()> whenAttached;

        void addNotify() override
        {
            Figure::addNotify();
            whenAttached();
        }
    };
    Displayed root;
    Figure owner;
    root.add(&owner);
    ObjectLocator locator;
    QPointer<DecorationProbe> decoration = new DecorationProbe(&owner, &locator);
    decoration->setLayoutManager(new XYLayout(decoration));
    Child child;
    child.whenAttached = [&] { delete decoration; };
    decoration->add(&child);

    root.add(decoration);

    QVERIFY(!decoration);
    QCOMPARE(root.childFigures(), QList<Figure *>{&owner});
}

void tst_DecorationLifetime::ownerIsDeletedWhileItsDecorationIsAttached()
{
    Displayed root;
    auto owner = std::make_unique<Figure>();
    root.add(owner.get());
    ObjectLocator locator;
    DecorationProbe decoration(owner.get(), &locator);
    root.add(&decoration);

    owner.reset();

    root.invalidate();
    root.validate();
    QCOMPARE(locator.placed.size(), 1);
    QTest::ignoreMessage(QtWarningMsg, "DecorationFigure::addNotify(): no owner");
    root.remove(&decoration);
    QVERIFY(!decoration.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_DecorationLifetime::ownerDeletedBeforeTheDecorationIsTakenOut()
{
    Displayed root;
    auto owner = std::make_unique<Figure>();
    RelativeLocator locator(owner.get(), 0.5, 0.5);
    DecorationProbe decoration(owner.get(), &locator);
    root.add(&decoration);
    decoration.setBounds(UNTOUCHED);

    owner.reset();

    root.invalidate();
    root.validate();
    QCOMPARE(decoration.getBounds(), UNTOUCHED);
    QTest::ignoreMessage(QtWarningMsg, "DecorationFigure::addNotify(): no owner");
    root.remove(&decoration);
}

void tst_DecorationLifetime::ownersLifeAndDeathMakeNoDecorationValid()
{
    auto owner = std::make_unique<Figure>();
    DecorationProbe decoration(owner.get(), nullptr);

    decoration.validate();
    QVERIFY(!decoration.isValid());
    owner.reset();
    decoration.validate();
    QVERIFY(!decoration.isValid());
}

void tst_DecorationLifetime::connectionTakesItsDecorationsAlong()
{
    QFETCH(bool, isFloating);
    Decorated decorated(isFloating);

    decorated.connection.reset();

    QVERIFY(decorated.source); // not before the event loop turns
    QVERIFY(decorated.target);
    deliverDeletions();
    QVERIFY(!decorated.source);
    QVERIFY(!decorated.target);
}

void tst_DecorationLifetime::decorationsWithAParentStayWithIt()
{
    QFETCH(bool, isFloating);
    auto parent = std::make_unique<QObject>();
    Decorated decorated(isFloating, parent.get());

    decorated.connection.reset();
    deliverDeletions();

    QVERIFY(decorated.source);
    QVERIFY(decorated.target);
    QCOMPARE(decorated.source->parent(), parent.get());
    parent.reset();
    QVERIFY(!decorated.source);
}

void tst_DecorationLifetime::decorationDestroyedBeforeItsConnection()
{
    QFETCH(bool, isFloating);
    Decorated decorated(isFloating);

    delete decorated.source;
    QCOMPARE(decorated.getSource(), nullptr);
    QCOMPARE(decorated.connection->childFigureCount(), 1);
    decorated.connection->validate();
    decorated.connection.reset();
    deliverDeletions();

    QVERIFY(!decorated.target);
}

void tst_DecorationLifetime::decorationsOnTheStackOutliveTheConnection()
{
    PolygonDecoration source;
    PolylineDecoration target;
    {
        PolylineConnection connection;
        connection.setSourceDecoration(&source);
        connection.setTargetDecoration(&target);
    }

    QCOMPARE(source.getParentFigure(), nullptr);
    source.setLocation(QPoint(3, 4));
    QCOMPARE(source.getLinePoints().value(1), QPoint(3, 4));
}

void tst_DecorationLifetime::replacedDecorationIsDeletedLater()
{
    QFETCH(bool, isFloating);
    Decorated decorated(isFloating);
    auto *next = new PolylineDecoration;

    decorated.setSource(next);

    QVERIFY(decorated.source);
    QCOMPARE(decorated.source->getParentFigure(), nullptr);
    QCOMPARE(decorated.getSource(), next);
    const QList<Figure *> children{decorated.target, next};
    QCOMPARE(decorated.connection->childFigures(), children);
    deliverDeletions();
    QVERIFY(!decorated.source);
    QVERIFY(decorated.target);
}

void tst_DecorationLifetime::replacedDecorationThatIsDeadAlreadyIsForgotten()
{
    QFETCH(bool, isFloating);
    Decorated decorated(isFloating);
    auto *next = new PolygonDecoration;

    delete decorated.source;
    decorated.setSource(next);
    deliverDeletions();

    QCOMPARE(decorated.getSource(), next);
    QCOMPARE(decorated.connection->childFigureCount(), 2);
}

void tst_DecorationLifetime::arrowLocatorDiesWithItsDecoration()
{
    PolylineConnection connection;
    auto *decoration = new PolygonDecoration;
    connection.setSourceDecoration(decoration);
    const QPointer<ArrowLocator> locator = decoration->findChild<ArrowLocator *>();
    QVERIFY(locator);
    QCOMPARE(locator->getAlignment(), ConnectionLocator::SOURCE);

    delete decoration;

    QVERIFY(!locator);
    connection.validate();
}

void tst_DecorationLifetime::attachedConnectionDiesWithItsDecorations()
{
    QFETCH(bool, isFloating);
    Displayed root;
    Decorated decorated(isFloating);
    root.add(decorated.connection.get());
    root.validate();

    decorated.connection.reset();
    root.validate();
    deliverDeletions();

    QVERIFY(!decorated.source);
    QVERIFY(!decorated.target);
    QCOMPARE(root.childFigureCount(), 0);
}

// The decoration belongs to the connection as its owner, too, and hears of its moves.
void tst_DecorationLifetime::connectionDeletedWhileItsDecorationHears()
{
    Displayed root;
    XYAnchor start(QPoint(10, 10));
    XYAnchor end(QPoint(90, 90));
    auto connection = std::make_unique<PolylineConnection>();
    connection->setSourceAnchor(&start);
    connection->setTargetAnchor(&end);
    root.add(connection.get());
    DecorationProbe decoration(connection.get(), nullptr);
    root.add(&decoration);
    root.validate();
    decoration.log.clear();

    start.setLocation(QPoint(20, 20));
    root.validate();
    QCOMPARE(decoration.log, (QStringList{"revalidate", "repaint"}));
    connection.reset();
    end.setLocation(QPoint(80, 80));

    QCOMPARE(decoration.getOwner(), nullptr);
    QCOMPARE(decoration.log.size(), 2);
    QTest::ignoreMessage(QtWarningMsg, "DecorationFigure::addNotify(): no owner");
    root.remove(&decoration);
}

QTEST_MAIN(tst_DecorationLifetime)
#include "tst_decoration_lifetime.moc"
