#include <figura/layout/XYLayout.h>
#include <figura/shape/Rectangle.h>

#include <figureprobe.h>

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const char *const STILL_INVALID = "Figure::resolveBounds(): resolved bounds still invalid";

QPainterPath rectPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

// Moves its parent whenever it hears that it is attached or detached.
class MeddlingChild : public Figure
{
public:
    void addNotify() override
    {
        Figure::addNotify();
        getParentFigure()->setBounds(QRect(0, 0, 10, 10));
    }

    void removeNotify() override
    {
        getParentFigure()->setBounds(QRect(0, 0, 20, 20));
        Figure::removeNotify();
    }
};

class ForwardShape : public ShapeProbe<Rectangle>
{
public:
    QRect resolveBounds(const QRect &rect) override { return rect.translated(5, 5); }
};

} // namespace

class tst_ShapeBounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newShapeHasAnEmptyPath();
    void pathIsAnnouncedAndRebuiltBeforeTheBoundsAreStored();
    void rebuiltPathPrecedesAllThatFigureDoes();
    void pathRectangleIsShrunkByHalfTheLineWidth_data();
    void pathRectangleIsShrunkByHalfTheLineWidth();
    void equalBoundsAnnounceNothing();
    void moveAloneRebuildsThePath();
    void resizeAloneRebuildsThePath();
    void dimensionsComeFromThePreferredSizeBeforeTheyAreShrunk();
    void boundsThatResolveToTheStoredOnesAnnounceNothing();
    void overriddenResolutionIsHonoured();
    void unresolvableBoundsAreReportedTwiceAndStoredAllTheSame();

    void detachedShapeAnnouncesButBuildsNoPath();
    void attachingAloneBuildsNoPath();
    void attachedFirstAndSetThenBuildsThePath();
    void constraintGivenOnAddingBuildsNoPath();
    void detachedAgainKeepsItsOldPath();
    void attachedTwiceBuildsTwiceAndIsDetachedAtOnce();
    void lineWidthAloneDoesNotRebuildThePath();
    void pathConnectionIsMadeAfterTheChildrenAreTold();
    void pathConnectionIsCutBeforeTheChildrenAreTold();
};

void tst_ShapeBounds::newShapeHasAnEmptyPath()
{
    const ShapeProbe<Rectangle> shape;

    QCOMPARE(shape.getPainterPath(), QPainterPath());
}

void tst_ShapeBounds::pathIsAnnouncedAndRebuiltBeforeTheBoundsAreStored()
{
    ShapeProbe<Rectangle> shape;
    shape.addNotify();
    shape.setBounds(QRect(1, 2, 3, 4));
    QList<QRect> seen;
    connect(&shape, &Shape::pathChanged, &shape, [&] { seen.append(shape.getBounds()); });

    shape.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(seen, QList<QRect>{QRect(1, 2, 3, 4)});
    QCOMPARE(shape.getBounds(), QRect(10, 10, 100, 50));
}

void tst_ShapeBounds::rebuiltPathPrecedesAllThatFigureDoes()
{
    ShapeProbe<Rectangle> shape;
    shape.addNotify();

    shape.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(shape.log, QStringList({QStringLiteral("pathChanged"),
                                     QStringLiteral("regeneratePath"), QStringLiteral("erase"),
                                     QStringLiteral("figureMoved"), QStringLiteral("repaint")}));
}

void tst_ShapeBounds::pathRectangleIsShrunkByHalfTheLineWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QRectF>("expected");
    QTest::newRow("0") << 0 << QRectF(10, 10, 100, 50);
    QTest::newRow("1, the odd unit goes right and below") << 1 << QRectF(10, 10, 99, 49);
    QTest::newRow("2") << 2 << QRectF(11, 11, 98, 48);
    QTest::newRow("3") << 3 << QRectF(11, 11, 97, 47);
    QTest::newRow("4") << 4 << QRectF(12, 12, 96, 46);
    QTest::newRow("5") << 5 << QRectF(12, 12, 95, 45);
    QTest::newRow("6") << 6 << QRectF(13, 13, 94, 44);
    QTest::newRow("7") << 7 << QRectF(13, 13, 93, 43);
    QTest::newRow("8") << 8 << QRectF(14, 14, 92, 42);
    QTest::newRow("9") << 9 << QRectF(14, 14, 91, 41);
}

void tst_ShapeBounds::pathRectangleIsShrunkByHalfTheLineWidth()
{
    QFETCH(int, width);
    QFETCH(QRectF, expected);
    ShapeProbe<Rectangle> shape;
    shape.setLineWidth(width);
    shape.addNotify();

    shape.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(shape.announcedRects, QList<QRectF>{expected});
    QCOMPARE(shape.regeneratedRects, QList<QRectF>{expected});
    QCOMPARE(shape.getPainterPath(), rectPath(expected));
}

void tst_ShapeBounds::equalBoundsAnnounceNothing()
{
    ShapeProbe<Rectangle> shape;
    shape.addNotify();
    shape.setBounds(QRect(10, 10, 100, 50));
    shape.log.clear();

    shape.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(shape.log, QStringList());
    QCOMPARE(shape.announcedRects.size(), 1);
}

void tst_ShapeBounds::moveAloneRebuildsThePath()
{
    ShapeProbe<Rectangle> shape;
    shape.addNotify();
    shape.setBounds(QRect(10, 10, 100, 50));

    shape.setBounds(QRect(20, 10, 100, 50));

    QCOMPARE(shape.getPainterPath(), rectPath(QRectF(20, 10, 99, 49)));
}

void tst_ShapeBounds::resizeAloneRebuildsThePath()
{
    ShapeProbe<Rectangle> shape;
    shape.addNotify();
    shape.setBounds(QRect(10, 10, 100, 50));

    shape.setBounds(QRect(10, 10, 100, 60));

    QCOMPARE(shape.getPainterPath(), rectPath(QRectF(10, 10, 99, 59)));
}

void tst_ShapeBounds::dimensionsComeFromThePreferredSizeBeforeTheyAreShrunk()
{
    ShapeProbe<Rectangle> shape;
    shape.setPreferredSize(QSize(30, 20));
    shape.addNotify();

    shape.setBounds(QRect(10, 10, 0, 0));

    QCOMPARE(shape.announcedRects, QList<QRectF>{QRectF(10, 10, 29, 19)});
    QCOMPARE(shape.getBounds(), QRect(10, 10, 30, 20));
}

void tst_ShapeBounds::boundsThatResolveToTheStoredOnesAnnounceNothing()
{
    ShapeProbe<Rectangle> shape;
    shape.setPreferredSize(QSize(30, 20));
    shape.addNotify();
    shape.setBounds(QRect(10, 10, 30, 20));
    shape.log.clear();

    shape.setBounds(QRect(10, 10, 0, 0));

    QCOMPARE(shape.log, QStringList());
}

void tst_ShapeBounds::overriddenResolutionIsHonoured()
{
    ForwardShape shape;
    shape.addNotify();

    shape.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(shape.announcedRects, QList<QRectF>{QRectF(15, 15, 99, 49)});
    QCOMPARE(shape.getBounds(), QRect(15, 15, 100, 50));
}

// Once by the shape, once more by the base, which resolves the rectangle for itself.
void tst_ShapeBounds::unresolvableBoundsAreReportedTwiceAndStoredAllTheSame()
{
    ShapeProbe<Rectangle> shape;
    QTest::ignoreMessage(QtDebugMsg, STILL_INVALID);
    QTest::ignoreMessage(QtDebugMsg, STILL_INVALID);

    shape.setBounds(QRect(5, 6, 0, 0));

    QCOMPARE(shape.announcedRects, QList<QRectF>{QRectF(5, 6, -1, -1)});
    QCOMPARE(shape.getBounds(), QRect(5, 6, 0, 0));
}

void tst_ShapeBounds::detachedShapeAnnouncesButBuildsNoPath()
{
    ShapeProbe<Rectangle> shape;

    shape.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(shape.announcedRects, QList<QRectF>{QRectF(10, 10, 99, 49)});
    QCOMPARE(shape.regeneratedRects, QList<QRectF>());
    QCOMPARE(shape.getPainterPath(), QPainterPath());
    QCOMPARE(shape.getBounds(), QRect(10, 10, 100, 50));
}

void tst_ShapeBounds::attachingAloneBuildsNoPath()
{
    ShapeProbe<Rectangle> shape;
    shape.setBounds(QRect(10, 10, 100, 50));

    shape.addNotify();
    shape.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(shape.getPainterPath(), QPainterPath());
}

void tst_ShapeBounds::attachedFirstAndSetThenBuildsThePath()
{
    Figure root;
    root.setLayoutManager(new XYLayout(&root));
    root.addNotify();
    ShapeProbe<Rectangle> shape;

    root.add(&shape);
    shape.setBounds(QRect(10, 10, 100, 50));

    QCOMPARE(shape.getPainterPath(), rectPath(QRectF(10, 10, 99, 49)));
}

// The layout applies the constraint before it attaches the child. rebuildPath() is the way out.
void tst_ShapeBounds::constraintGivenOnAddingBuildsNoPath()
{
    Figure root;
    root.setLayoutManager(new XYLayout(&root));
    root.addNotify();
    ShapeProbe<Rectangle> shape;

    root.add(&shape, QRect(10, 10, 100, 50));

    QCOMPARE(shape.getBounds(), QRect(10, 10, 100, 50));
    QCOMPARE(shape.getPainterPath(), QPainterPath());
}

void tst_ShapeBounds::detachedAgainKeepsItsOldPath()
{
    ShapeProbe<Rectangle> shape;
    shape.addNotify();
    shape.setBounds(QRect(10, 10, 100, 50));

    shape.removeNotify();
    shape.setBounds(QRect(20, 20, 200, 100));

    QCOMPARE(shape.announcedRects.size(), 2);
    QCOMPARE(shape.getPainterPath(), rectPath(QRectF(10, 10, 99, 49)));
    QVERIFY(!shape.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_ShapeBounds::attachedTwiceBuildsTwiceAndIsDetachedAtOnce()
{
    ShapeProbe<Rectangle> shape;
    shape.addNotify();
    QTest::ignoreMessage(QtDebugMsg, "Figure::addNotify() should not be call multiple times");
    shape.addNotify();

    shape.setBounds(QRect(10, 10, 100, 50));
    QCOMPARE(shape.regeneratedRects.size(), 2);
    shape.removeNotify();
    shape.setBounds(QRect(20, 20, 100, 50));

    QCOMPARE(shape.regeneratedRects.size(), 2);
}

void tst_ShapeBounds::lineWidthAloneDoesNotRebuildThePath()
{
    ShapeProbe<Rectangle> shape;
    shape.addNotify();
    shape.setBounds(QRect(10, 10, 100, 50));

    shape.setLineWidth(9);

    QCOMPARE(shape.announcedRects.size(), 1);
    QCOMPARE(shape.getPainterPath(), rectPath(QRectF(10, 10, 99, 49)));
}

void tst_ShapeBounds::pathConnectionIsMadeAfterTheChildrenAreTold()
{
    ShapeProbe<Rectangle> shape;
    shape.setLayoutManager(new XYLayout(&shape));
    MeddlingChild child;
    shape.add(&child);

    shape.addNotify();

    QVERIFY(shape.getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(shape.announcedRects.size(), 1);
    QCOMPARE(shape.regeneratedRects.size(), 0);
}

void tst_ShapeBounds::pathConnectionIsCutBeforeTheChildrenAreTold()
{
    ShapeProbe<Rectangle> shape;
    shape.setLayoutManager(new XYLayout(&shape));
    MeddlingChild child;
    shape.add(&child);
    shape.addNotify();

    shape.removeNotify();

    QVERIFY(!child.getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(shape.announcedRects.size(), 2);
    QCOMPARE(shape.regeneratedRects.size(), 0);
}

QTEST_MAIN(tst_ShapeBounds)
#include "tst_shape_bounds.moc"
