#include "diagram_fixtures.h"

#include <QLineF>
#include <QTest>

#include <algorithm>
#include <optional>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

class tst_OutlineAnchor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void lineEndsAtTheOutline_data();
    void lineEndsAtTheOutline();
    void outermostCrossingBeforeTheReferenceCounts_data();
    void outermostCrossingBeforeTheReferenceCounts();
    void referenceInsideLeadsOnToTheOutline();
    void referenceInTheMiddleIsTheAnswer();
    void shapeWithoutAPathCountsAsItsBounds();
    void nestedShapeAnswersInAbsoluteCoordinates();
    void missingOwnerIsReported();
    void referenceInTheMiddleOfALoopLeadsOnToTheNextEdge();
    void ownersThatAreNoShapesCountAsTheirBounds();
    void lastEdgeBeforeTheReferenceCountsInAnyOrder_data();
    void lastEdgeBeforeTheReferenceCountsInAnyOrder();
    void endsLieOnTheOutlineWhereverTheReferenceIs();
};

void tst_OutlineAnchor::lineEndsAtTheOutline_data()
{
    QTest::addColumn<QPoint>("reference");
    QTest::addColumn<QPoint>("expected");
    // A diamond from (100, 100) to (140, 140).
    QTest::newRow("right") << QPoint(300, 120) << QPoint(140, 120);
    QTest::newRow("left") << QPoint(0, 120) << QPoint(100, 120);
    QTest::newRow("top") << QPoint(120, 0) << QPoint(120, 100);
    QTest::newRow("bottom") << QPoint(120, 300) << QPoint(120, 140);
    QTest::newRow("middle of a side") << QPoint(220, 220) << QPoint(130, 130);
    QTest::newRow("other side") << QPoint(20, 220) << QPoint(110, 130);
}

void tst_OutlineAnchor::lineEndsAtTheOutline()
{
    QFETCH(QPoint, reference);
    QFETCH(QPoint, expected);
    Diagram diagram;
    OutlineAnchor anchor(diagram.add(diamond(), QRect(100, 100, 40, 40)));

    QCOMPARE(anchor.getLocation(reference), expected);
}

void tst_OutlineAnchor::outermostCrossingBeforeTheReferenceCounts_data()
{
    QTest::addColumn<QPoint>("reference");
    QTest::addColumn<QPoint>("expected");
    // A U, open at the top, with arms 20 wide and 60 apart; the centre (150, 150) lies in the base.
    QTest::newRow("beyond the arm") << QPoint(350, 150) << QPoint(200, 150);
    QTest::newRow("between the arms") << QPoint(150, 110) << QPoint(150, 140);
    QTest::newRow("through the opening") << QPoint(150, 0) << QPoint(150, 140);
    QTest::newRow("inside the arm") << QPoint(190, 150) << QPoint(200, 150);
}

void tst_OutlineAnchor::outermostCrossingBeforeTheReferenceCounts()
{
    QFETCH(QPoint, reference);
    QFETCH(QPoint, expected);
    Diagram diagram;
    auto *shape = new Polygon;
    shape->setLinePoints({QPoint(100, 100), QPoint(120, 100), QPoint(120, 140), QPoint(180, 140),
                          QPoint(180, 100), QPoint(200, 100), QPoint(200, 200), QPoint(100, 200)});
    OutlineAnchor anchor(diagram.add(shape, QRect()));

    QCOMPARE(anchor.getLocation(reference), expected);
}

void tst_OutlineAnchor::referenceInsideLeadsOnToTheOutline()
{
    Diagram diagram;
    OutlineAnchor anchor(diagram.add(diamond(), QRect(100, 100, 40, 40)));

    QCOMPARE(anchor.getLocation(QPoint(123, 120)), QPoint(140, 120));
}

void tst_OutlineAnchor::referenceInTheMiddleIsTheAnswer()
{
    Diagram diagram;
    OutlineAnchor anchor(diagram.add(diamond(), QRect(100, 100, 40, 40)));

    QCOMPARE(anchor.getLocation(anchor.getReferencePoint()), anchor.getReferencePoint());
}

void tst_OutlineAnchor::shapeWithoutAPathCountsAsItsBounds()
{
    RoundedRectangle shape;
    shape.setBounds(QRect(100, 100, 40, 40));
    OutlineAnchor anchor(&shape);

    QCOMPARE(anchor.getLocation(QPoint(300, 120)), QPoint(140, 120));
}

void tst_OutlineAnchor::nestedShapeAnswersInAbsoluteCoordinates()
{
    Diagram diagram;
    auto *lane = new Rectangle;
    lane->setLayoutManager(new XYLayout(lane));
    auto *inner = diamond();
    inner->setParent(lane);
    lane->add(inner);
    diagram.add(lane, QRect(100, 50, 200, 200));
    OutlineAnchor anchor(inner);

    QCOMPARE(anchor.getLocation(QPoint(900, 70)), QPoint(140, 70));
}

void tst_OutlineAnchor::missingOwnerIsReported()
{
    OutlineAnchor anchor(nullptr);
    QTest::ignoreMessage(QtWarningMsg, "OutlineAnchor::getLocation(): no owner present");

    QCOMPARE(anchor.getLocation(QPoint(1, 2)), QPoint());
}

// Beyond the reference the first of several edges counts, whichever is listed first.
void tst_OutlineAnchor::referenceInTheMiddleOfALoopLeadsOnToTheNextEdge()
{
    Diagram diagram;
    auto *shape = new Polygon;
    // Two walls to the right of the centre (150, 150), the outer one first.
    shape->setLinePoints({QPoint(200, 100), QPoint(200, 200), QPoint(190, 200), QPoint(190, 110),
                          QPoint(180, 110), QPoint(180, 200), QPoint(100, 200), QPoint(100, 100)});
    OutlineAnchor anchor(diagram.add(shape, QRect()));

    QCOMPARE(anchor.getLocation(QPoint(160, 150)), QPoint(180, 150));
}

void tst_OutlineAnchor::ownersThatAreNoShapesCountAsTheirBounds()
{
    Figure figure;
    figure.setBounds(QRect(100, 100, 40, 40));
    Rectangle shape;
    OutlineAnchor anchor(&shape);
    anchor.setOwner(&figure);

    QCOMPARE(anchor.getLocation(QPoint(300, 120)), QPoint(140, 120));
}

void tst_OutlineAnchor::lastEdgeBeforeTheReferenceCountsInAnyOrder_data()
{
    QTest::addColumn<bool>("outerFirst");
    QTest::newRow("outer walls first") << true;
    QTest::newRow("inner walls first") << false;
}

void tst_OutlineAnchor::lastEdgeBeforeTheReferenceCountsInAnyOrder()
{
    QFETCH(bool, outerFirst);
    Diagram diagram;
    auto *shape = new Polygon;
    QList<QPoint> walls{QPoint(200, 100), QPoint(200, 200), QPoint(190, 200), QPoint(190, 110),
                        QPoint(180, 110), QPoint(180, 200), QPoint(100, 200), QPoint(100, 100)};
    if (!outerFirst)
        std::reverse(walls.begin(), walls.end());
    shape->setLinePoints(walls);
    OutlineAnchor anchor(diagram.add(shape, QRect()));

    QCOMPARE(anchor.getLocation(QPoint(185, 150)), QPoint(180, 150));
}

// The stroke of the outline, two units wide, holds every end.
void tst_OutlineAnchor::endsLieOnTheOutlineWhereverTheReferenceIs()
{
    Diagram diagram;
    auto *shape = diagram.add(painted<RoundedRectangle>(), QRect(100, 100, 120, 60));
    OutlineAnchor anchor(shape);
    QPainterPath outline;
    outline.addRoundedRect(QRectF(100, 100, 119, 59), 15, 7.5);
    QPainterPathStroker stroker;
    stroker.setWidth(2.5);
    const QPainterPath stroke = stroker.createStroke(outline);

    for (int degrees = 0; degrees < 360; ++degrees) {
        const QPointF reference = QLineF::fromPolar(500, degrees).p2() + QPointF(160, 130);
        const QPoint end = anchor.getLocation(reference.toPoint());
        QVERIFY2(stroke.contains(QPointF(end)), qPrintable(QString::number(degrees)));
    }
}

QTEST_MAIN(tst_OutlineAnchor)
#include "tst_outlineanchor.moc"
