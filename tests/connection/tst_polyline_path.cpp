#include "anypolyline.h"

#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <figura/layout/FreeformLayout.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPointF>;

namespace {

const Points TRIANGLE{{0, 0}, {100, 0}, {100, 80}};

void addClassRows()
{
    QTest::addColumn<QString>("className");
    for (const QString &className : polylineClasses)
        QTest::newRow(qPrintable(className)) << className;
}

// Bends every line through one more point.
class BentPolyline : public ShapeProbe<Polyline>
{
public:
    QList<QPoint> getLinePoints() override
    {
        return QList<QPoint>{QPoint(-50, -50)} + Polyline::getLinePoints();
    }
};

class BentPolylineF : public ShapeProbe<PolylineF>
{
public:
    QList<QPointF> getLinePoints() override
    {
        return QList<QPointF>{QPointF(-0.5, -0.5)} + PolylineF::getLinePoints();
    }
};

} // namespace

class tst_PolylinePath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newPolylineHasAnEmptyPathAndNoFill_data() { addClassRows(); }
    void newPolylineHasAnEmptyPathAndNoFill();
    void fillCanBeTurnedOn_data() { addClassRows(); }
    void fillCanBeTurnedOn();
    void pathGoesThroughThePointsInOrder_data() { addClassRows(); }
    void pathGoesThroughThePointsInOrder();
    void pathKeepsFractions();
    void pathNeedsTwoPoints_data() { addClassRows(); }
    void pathNeedsTwoPoints();
    void pathBecomesEmptyAgain_data() { addClassRows(); }
    void pathBecomesEmptyAgain();
    void rectangleIsIgnored_data() { addClassRows(); }
    void rectangleIsIgnored();

    void detachedPolylineHasNoPath_data() { addClassRows(); }
    void detachedPolylineHasNoPath();
    void attachingAloneBuildsNoPath_data() { addClassRows(); }
    void attachingAloneBuildsNoPath();
    void nextChangeAfterAttachingBringsAllPoints_data() { addClassRows(); }
    void nextChangeAfterAttachingBringsAllPoints();
    void pathOfPointsGivenBeforeIsReportedWhenItComes_data();
    void pathOfPointsGivenBeforeIsReportedWhenItComes();
    void detachedAgainKeepsItsOldPath_data() { addClassRows(); }
    void detachedAgainKeepsItsOldPath();

    void overriddenPointsMakeThePath();
    void overriddenFloatingPointsMakeThePath();
};

void tst_PolylinePath::newPolylineHasAnEmptyPathAndNoFill()
{
    QFETCH(QString, className);

    const AnyPolylinePointer line = makePolyline(className);

    QCOMPARE(line->path(), QPainterPath());
    QVERIFY(!line->shape().getFill());
    QCOMPARE(line->shape().getBounds(), QRect(0, 0, 0, 0));
}

void tst_PolylinePath::fillCanBeTurnedOn()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);

    line->shape().setFill(true);
    line->shape().addNotify();
    line->setLinePoints(TRIANGLE);

    QVERIFY(line->shape().getFill());
}

void tst_PolylinePath::pathGoesThroughThePointsInOrder()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);
    line->shape().addNotify();

    line->setLinePoints(TRIANGLE);

    const QPainterPath path = line->path();
    QCOMPARE(path.elementCount(), 3);
    QCOMPARE(path.elementAt(0).type, QPainterPath::MoveToElement);
    QCOMPARE(path.elementAt(1).type, QPainterPath::LineToElement);
    QCOMPARE(path.elementAt(2).type, QPainterPath::LineToElement);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(QPointF(path.elementAt(i)), TRIANGLE[i]);
}

void tst_PolylinePath::pathKeepsFractions()
{
    ShapeProbe<PolylineF> line;
    line.addNotify();

    line.setEndPoints(QPointF(0.125, 0.25), QPointF(10.5, -3.75));

    QCOMPARE(QPointF(line.getPainterPath().elementAt(0)), QPointF(0.125, 0.25));
    QCOMPARE(QPointF(line.getPainterPath().elementAt(1)), QPointF(10.5, -3.75));
}

void tst_PolylinePath::pathNeedsTwoPoints()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);
    line->shape().addNotify();

    line->addPoint({10, 10});
    QCOMPARE(line->path(), QPainterPath());
    QCOMPARE(line->shape().getBounds(), QRect(0, 0, 0, 0));
    line->addPoint({30, 20});

    QCOMPARE(line->path(), pathThrough({{10, 10}, {30, 20}}));
}

void tst_PolylinePath::pathBecomesEmptyAgain()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);
    line->shape().addNotify();
    line->setLinePoints({{10, 10}, {30, 20}});

    line->removePoint(0);

    QCOMPARE(line->path(), QPainterPath());
}

void tst_PolylinePath::rectangleIsIgnored()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);
    line->setLinePoints(TRIANGLE);

    line->regeneratePath(QRectF(500, 500, 10, 10));

    QCOMPARE(line->path(), pathThrough(TRIANGLE));
}

void tst_PolylinePath::detachedPolylineHasNoPath()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);

    line->setLinePoints(TRIANGLE);

    QCOMPARE(line->path(), QPainterPath());
    QCOMPARE(line->shape().getBounds(), QRect(0, 0, 0, 0));
}

void tst_PolylinePath::attachingAloneBuildsNoPath()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);
    line->setLinePoints(TRIANGLE);

    line->shape().addNotify();

    QCOMPARE(line->path(), QPainterPath());
}

void tst_PolylinePath::nextChangeAfterAttachingBringsAllPoints()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);
    line->setLinePoints(TRIANGLE);
    line->shape().addNotify();

    line->addPoint({0, 80});

    QCOMPARE(line->path(), pathThrough(TRIANGLE + Points{{0, 80}}));
}

void tst_PolylinePath::pathOfPointsGivenBeforeIsReportedWhenItComes_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("change");
    for (const QString &className : polylineClasses) {
        for (const QString &change : {QStringLiteral("wider"), QStringLiteral("one point less")})
            QTest::addRow("%s, %s", qPrintable(className), qPrintable(change))
                << className << change;
    }
}

// Both changes alone would ask for less than what comes into sight.
void tst_PolylinePath::pathOfPointsGivenBeforeIsReportedWhenItComes()
{
    QFETCH(QString, className);
    QFETCH(QString, change);
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new FreeformLayout(&root));
    const AnyPolylinePointer line = makePolyline(className);
    line->setLinePoints(TRIANGLE);
    root.add(&line->shape());
    manager.clear();

    if (change == QStringLiteral("wider"))
        line->shape().setLineWidth(5);
    else
        line->removePoint(1);

    const QList<QRect> damage = manager.dirtyRects();
    QVERIFY(!damage.isEmpty());
    QVERIFY(damage.constLast().contains(line->path().boundingRect().toRect()));
}

void tst_PolylinePath::detachedAgainKeepsItsOldPath()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);
    line->shape().addNotify();
    line->setLinePoints(TRIANGLE);

    line->shape().removeNotify();
    line->setLinePoints({{500, 500}, {600, 600}, {700, 500}});

    QCOMPARE(line->getPoint(0), QPoint(500, 500));
    QCOMPARE(line->path(), pathThrough(TRIANGLE));
    QCOMPARE(line->shape().getBounds(), QRect(0, 0, 100, 80));
}

void tst_PolylinePath::overriddenPointsMakeThePath()
{
    BentPolyline line;
    line.addNotify();

    line.addPoint(QPoint(10, 10));

    QCOMPARE(line.getPainterPath(), pathThrough({{-50, -50}, {10, 10}}));
    QCOMPARE(line.getPointCount(), 1);
}

void tst_PolylinePath::overriddenFloatingPointsMakeThePath()
{
    BentPolylineF line;
    line.addNotify();

    line.addPoint(QPointF(10.25, 10));

    QCOMPARE(line.getPainterPath(), pathThrough({{-0.5, -0.5}, {10.25, 10}}));
    QCOMPARE(line.getPointCount(), 1);
}

QTEST_MAIN(tst_PolylinePath)
#include "tst_polyline_path.moc"
