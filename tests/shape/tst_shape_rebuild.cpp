#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>

#include <figureprobe.h>
#include <recordingdevice.h>

#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

QPainterPath rectPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

int paintedPaths(Figure &figure)
{
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 1000, 1000);
    return callsOfKind(record([&](QPainter *painter) { figure.render(painter, option); }),
                       PaintCall::Path)
        .size();
}

} // namespace

class tst_ShapeRebuild : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void pathIsBuiltForTheBoundsWithoutBeingAttached();
    void pathIsBuiltOnceWhileAttached();
    void newLineWidthIsTakenIntoAccount();
    void rebuildingRepaints();
    void formerAreaIsErasedFirst();
    void boundsStayAsTheyAre();
    void shapeWithoutBoundsIsLeftAlone();
    void polylineGetsItsPathFromItsPointsWithoutBeingAttached();
    void floatingPolylineGetsItsPathLikewise();
    void treeIsRebuiltFromItsRootDownThroughOtherFigures();
    void hiddenShapesAreRebuiltToo();
    void nullTreeIsIgnored();
    void treeBuiltBeforeItIsShownPaintsNothingUntilItIsRebuilt();
};

void tst_ShapeRebuild::pathIsBuiltForTheBoundsWithoutBeingAttached()
{
    ShapeProbe<Rectangle> shape;
    shape.setBounds(QRect(10, 10, 100, 50));
    QCOMPARE(shape.getPainterPath(), QPainterPath());

    shape.rebuildPath();

    QCOMPARE(shape.getPainterPath(), rectPath(QRectF(10, 10, 99, 49)));
}

void tst_ShapeRebuild::pathIsBuiltOnceWhileAttached()
{
    ShapeProbe<Rectangle> shape;
    shape.setBounds(QRect(10, 10, 100, 50));
    shape.addNotify();

    shape.rebuildPath();

    QCOMPARE(shape.regeneratedRects, QList<QRectF>{QRectF(10, 10, 99, 49)});
}

void tst_ShapeRebuild::newLineWidthIsTakenIntoAccount()
{
    ShapeProbe<Rectangle> shape;
    shape.addNotify();
    shape.setBounds(QRect(10, 10, 100, 50));
    shape.setLineWidth(5);

    shape.rebuildPath();

    QCOMPARE(shape.getPainterPath(), rectPath(QRectF(12, 12, 95, 45)));
}

void tst_ShapeRebuild::rebuildingRepaints()
{
    ShapeProbe<Rectangle> shape;
    shape.setBounds(QRect(10, 10, 100, 50));
    shape.log.clear();

    shape.rebuildPath();

    QVERIFY(!shape.log.isEmpty());
    QCOMPARE(shape.log.last(), QStringLiteral("repaint"));
}

// A polyline may leave the place where it was.
void tst_ShapeRebuild::formerAreaIsErasedFirst()
{
    ShapeProbe<Polyline> line;
    line.addNotify();
    line.setEndPoints(QPoint(10, 10), QPoint(40, 30));
    line.removeNotify();
    line.setEndPoints(QPoint(50, 50), QPoint(90, 80));
    line.log.clear();
    line.detail = [&line] { return QString::number(line.getBounds().left()); };

    line.rebuildPath();

    QCOMPARE(line.log.first(), QStringLiteral("erase 10"));
    QCOMPARE(line.log.last(), QStringLiteral("repaint 50"));
}

void tst_ShapeRebuild::boundsStayAsTheyAre()
{
    ShapeProbe<Rectangle> shape;
    shape.setBounds(QRect(10, 10, 100, 50));
    shape.log.clear();

    shape.rebuildPath();

    QCOMPARE(shape.getBounds(), QRect(10, 10, 100, 50));
    QVERIFY(!shape.log.contains(QStringLiteral("figureMoved")));
}

void tst_ShapeRebuild::shapeWithoutBoundsIsLeftAlone()
{
    ShapeProbe<Rectangle> shape;

    shape.rebuildPath();

    QCOMPARE(shape.getPainterPath(), QPainterPath());
    QCOMPARE(shape.log, QStringList());
}

void tst_ShapeRebuild::polylineGetsItsPathFromItsPointsWithoutBeingAttached()
{
    Polyline line;
    line.setEndPoints(QPoint(10, 10), QPoint(40, 30));

    line.rebuildPath();

    QCOMPARE(line.getBounds(), QRect(10, 10, 30, 20));
}

void tst_ShapeRebuild::floatingPolylineGetsItsPathLikewise()
{
    PolylineF line;
    line.setEndPoints(QPointF(10, 10), QPointF(40, 30));

    line.rebuildPath();

    QCOMPARE(line.getBounds(), QRect(10, 10, 30, 20));
}

void tst_ShapeRebuild::treeIsRebuiltFromItsRootDownThroughOtherFigures()
{
    ShapeProbe<Rectangle> root;
    root.setLayoutManager(new XYLayout(&root));
    root.setBounds(QRect(0, 0, 200, 200));
    Figure group;
    group.setLayoutManager(new XYLayout(&group));
    root.add(&group, QRect(0, 0, 200, 200));
    ShapeProbe<Ellipse> ellipse;
    group.add(&ellipse, QRect(10, 10, 50, 50));
    Polygon polygon;
    group.add(&polygon);
    polygon.setLinePoints({QPoint(0, 0), QPoint(9, 0), QPoint(9, 9)});

    rebuildPaths(&root);

    QCOMPARE(root.getPainterPath(), rectPath(QRectF(0, 0, 199, 199)));
    QCOMPARE(ellipse.getPainterPath().boundingRect(), QRectF(10, 10, 49, 49));
    QCOMPARE(polygon.getBounds(), QRect(0, 0, 9, 9));
}

void tst_ShapeRebuild::hiddenShapesAreRebuiltToo()
{
    Figure root;
    root.setLayoutManager(new XYLayout(&root));
    ShapeProbe<Rectangle> shape;
    root.add(&shape, QRect(10, 10, 50, 50));
    shape.setVisible(false);

    rebuildPaths(&root);

    QCOMPARE(shape.getPainterPath(), rectPath(QRectF(10, 10, 49, 49)));
}

void tst_ShapeRebuild::nullTreeIsIgnored()
{
    rebuildPaths(nullptr);
}

void tst_ShapeRebuild::treeBuiltBeforeItIsShownPaintsNothingUntilItIsRebuilt()
{
    Figure root;
    root.setLayoutManager(new XYLayout(&root));
    root.setBounds(QRect(0, 0, 200, 200));
    Rectangle rectangle;
    root.add(&rectangle, QRect(10, 10, 50, 50));
    Polyline line;
    line.setEndPoints(QPoint(100, 100), QPoint(150, 150));
    root.add(&line);
    root.addNotify();
    QCOMPARE(paintedPaths(root), 0);

    rebuildPaths(&root);

    QCOMPARE(paintedPaths(root), 2);
}

QTEST_MAIN(tst_ShapeRebuild)
#include "tst_shape_rebuild.moc"
