#include "anypolyline.h"

#include <figura/layout/FreeformLayout.h>
#include <figura/shape/Polygon.h>

#include <countingfigure.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPointF>;

namespace {

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
    line->log().clear();
    return line;
}

} // namespace

class tst_PolylineBounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void boundsAreThoseOfThePath_data();
    void boundsAreThoseOfThePath();
    void fractionsAreRoundedAsByTheRectangle_data();
    void fractionsAreRoundedAsByTheRectangle();
    void twoDetachedPointsAreStillOneUnitEachWay();
    void lineWidthDoesNotWidenTheBounds_data() { addClassRows(); }
    void lineWidthDoesNotWidenTheBounds();
    void settingBoundsDoesNothing_data() { addClassRows(); }
    void settingBoundsDoesNothing();
    void translatingLeavesThePointsAlone_data() { addClassRows(); }
    void translatingLeavesThePointsAlone();
    void translatingAPolylineThatSharesCoordinatesLeavesItsChildrenAlone_data() { addClassRows(); }
    void translatingAPolylineThatSharesCoordinatesLeavesItsChildrenAlone();
    void boundsAreResolvedToThemselves_data() { addClassRows(); }
    void boundsAreResolvedToThemselves();
    void damageIsReportedWithTheBoundsOfBothTimes();
    void destroyedPolylineLeavesItsAreaAsDamage_data() { addClassRows(); }
    void destroyedPolylineLeavesItsAreaAsDamage();
};

void tst_PolylineBounds::boundsAreThoseOfThePath_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<Points>("points");
    QTest::addColumn<QRect>("expected");

    const auto add = [](const char *name, const Points &points, const QRect &integer,
                        const QRect &floating) {
        QTest::addRow("Polyline: %s", name) << QStringLiteral("Polyline") << points << integer;
        QTest::addRow("PolylineF: %s", name) << QStringLiteral("PolylineF") << points << floating;
    };
    add("no points", {}, QRect(0, 0, 0, 0), QRect(0, 0, 0, 0));
    add("one point", {{30, 40}}, QRect(0, 0, 0, 0), QRect(0, 0, 0, 0));
    add("slanting", {{10, 50}, {40, 30}}, QRect(10, 30, 30, 20), QRect(10, 30, 30, 20));
    add("horizontal", {{10, 10}, {30, 10}}, QRect(10, 10, 20, 1), QRect(10, 10, 20, 0));
    add("vertical", {{10, 10}, {10, 30}}, QRect(10, 10, 1, 20), QRect(10, 10, 0, 20));
    add("twice the same", {{10, 10}, {10, 10}}, QRect(10, 10, 1, 1), QRect(10, 10, 0, 0));
    add("horizontal, three points", {{10, 10}, {20, 10}, {30, 10}}, QRect(10, 10, 20, 0),
        QRect(10, 10, 20, 0));
    add("vertical, three points", {{10, 10}, {10, 20}, {10, 30}}, QRect(10, 10, 0, 20),
        QRect(10, 10, 0, 20));
    add("negative", {{-10, -20}, {5, -40}, {0, 0}}, QRect(-10, -40, 15, 40),
        QRect(-10, -40, 15, 40));
}

void tst_PolylineBounds::boundsAreThoseOfThePath()
{
    QFETCH(QString, className);
    QFETCH(Points, points);
    QFETCH(QRect, expected);

    const AnyPolylinePointer line = attachedLine(className, points);

    QCOMPARE(line->shape().getBounds(), expected);
    QCOMPARE(line->shape().getBoundingRect(), expected);
}

void tst_PolylineBounds::fractionsAreRoundedAsByTheRectangle_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<QRectF>("exact");
    QTest::newRow("down and up") << Points{{0.25, 0.25}, {10.75, 20.75}}
                                 << QRectF(0.25, 0.25, 10.5, 20.5);
    QTest::newRow("halves") << Points{{0.5, -0.5}, {10.5, 20.5}} << QRectF(0.5, -0.5, 10, 21);
}

void tst_PolylineBounds::fractionsAreRoundedAsByTheRectangle()
{
    QFETCH(Points, points);
    QFETCH(QRectF, exact);

    const AnyPolylinePointer line = attachedLine(QStringLiteral("PolylineF"), points);

    QCOMPARE(line->shape().getBounds(), exact.toRect());
}

// The path is empty, yet the points are two.
void tst_PolylineBounds::twoDetachedPointsAreStillOneUnitEachWay()
{
    Polyline line;
    PolylineF lineF;

    line.setEndPoints(QPoint(10, 10), QPoint(30, 40));
    lineF.setEndPoints(QPoint(10, 10), QPoint(30, 40));

    QCOMPARE(line.getBounds(), QRect(0, 0, 1, 1));
    QCOMPARE(lineF.getBounds(), QRect(0, 0, 0, 0));
}

void tst_PolylineBounds::lineWidthDoesNotWidenTheBounds()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = attachedLine(className, {{10, 50}, {40, 30}});

    line->shape().setLineWidth(9);

    QCOMPARE(line->shape().getBounds(), QRect(10, 30, 30, 20));
    QCOMPARE(line->shape().getBoundingRect(), QRect(10, 30, 30, 20));
}

void tst_PolylineBounds::settingBoundsDoesNothing()
{
    QFETCH(QString, className);
    const Points points{{10, 50}, {40, 30}};
    const AnyPolylinePointer line = attachedLine(className, points);

    line->shape().setBounds(QRect(100, 100, 200, 200));

    QCOMPARE(line->shape().getBounds(), QRect(10, 30, 30, 20));
    QCOMPARE(line->getLinePoints(), points);
    QCOMPARE(line->log(), QStringList());
}

void tst_PolylineBounds::translatingLeavesThePointsAlone()
{
    QFETCH(QString, className);
    const Points points{{10, 50}, {40, 30}};
    const AnyPolylinePointer line = attachedLine(className, points);
    QSignalSpy moved(&line->shape(), &Figure::figureMoved);

    line->shape().translate(7, 8);
    line->primTranslate(7, 8);

    QCOMPARE(line->shape().getBounds(), QRect(10, 30, 30, 20));
    QCOMPARE(line->getLinePoints(), points);
    QCOMPARE(moved.count(), 1);
}

void tst_PolylineBounds::translatingAPolylineThatSharesCoordinatesLeavesItsChildrenAlone()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = attachedLine(className, {{10, 50}, {40, 30}});
    line->shape().setLayoutManager(new FreeformLayout(&line->shape()));
    CountingFigure child;
    line->shape().add(&child);
    child.setBounds(QRect(20, 20, 5, 5));
    child.resetCalls();

    line->shape().translate(7, 8);

    QCOMPARE(child.calls().translate, 0);
    QCOMPARE(line->shape().getBounds(), QRect(10, 30, 30, 20));
}

void tst_PolylineBounds::boundsAreResolvedToThemselves()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = attachedLine(className, {{10, 50}, {40, 30}});
    line->shape().setPreferredSize(QSize(70, 80));

    QCOMPARE(line->shape().resolveBounds(QRect(1, 2, 3, 4)), QRect(1, 2, 3, 4));
    QCOMPARE(line->shape().resolveBounds(QRect(1, 2, 0, 0)), QRect(1, 2, 0, 0));
    QCOMPARE(line->shape().resolveBounds(QRect(1, 2, -3, 4)), QRect(1, 2, -3, 4));
}

void tst_PolylineBounds::damageIsReportedWithTheBoundsOfBothTimes()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new FreeformLayout(&root));
    Polyline line;
    root.add(&line);
    line.setEndPoints(QPoint(0, 0), QPoint(10, 10));
    manager.clear();

    line.setPoint(QPoint(50, 60), 1);

    QCOMPARE(manager.dirtyRects(), QList<QRect>({QRect(0, 0, 10, 10), QRect(0, 0, 50, 60)}));
}

void tst_PolylineBounds::destroyedPolylineLeavesItsAreaAsDamage()
{
    QFETCH(QString, className);
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new FreeformLayout(&root));
    AnyPolylinePointer line = makePolyline(className);
    root.add(&line->shape());
    line->setLinePoints({{10, 50}, {40, 30}});
    manager.clear();

    line.reset();

    QVERIFY(manager.dirtyRects(&root).contains(QRect(10, 30, 30, 20)));
}

QTEST_MAIN(tst_PolylineBounds)
#include "tst_polyline_bounds.moc"
