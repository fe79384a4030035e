#include <figura/layout/FreeformLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Rectangle.h>

#include <figureprobe.h>
#include <recordingdevice.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QPalette>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const QRect BOUNDS(10, 10, 100, 50);
const QRectF PATH_RECT(10, 10, 99, 49);

QPainterPath rectPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

// Every role that a shape may ask for has a colour of its own, all others are black.
QStyleOptionViewItem optionWithPalette()
{
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 1000, 1000);
    option.palette = QPalette(Qt::black);
    option.palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::red);
    option.palette.setColor(QPalette::Active, QPalette::Button, Qt::green);
    option.palette.setColor(QPalette::Disabled, QPalette::Button, Qt::blue);
    option.palette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::yellow);
    return option;
}

// An attached rectangle that has its path.
class ReadyShape : public ShapeProbe<Rectangle>
{
public:
    ReadyShape()
    {
        addNotify();
        setBounds(BOUNDS);
        log.clear();
    }
};

// Keeps what it is asked to draw, and leaves a mess behind.
class UntidyShape : public ReadyShape
{
public:
    mutable QList<QStyleOptionViewItem> options;

protected:
    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        options.append(option);
        painter->setPen(QPen(Qt::magenta, 7));
        painter->setBrush(Qt::magenta);
        painter->translate(3, 3);
        painter->setOpacity(0.5);
    }
};

// Has no path, and draws all the same.
class MarkingShape : public ShapeProbe<Rectangle>
{
protected:
    void drawShape(QPainter *painter, const QStyleOptionViewItem &) const override
    {
        painter->drawLine(QLineF(1, 2, 3, 4));
    }
};

template<typename Shape>
QList<PaintCall> draw(const Shape &shape, const QStyleOptionViewItem &option = optionWithPalette())
{
    return record([&](QPainter *painter) { shape.drawFigure(painter, option); });
}

template<typename Shape>
PaintCall drawOn(const Shape &shape, int dpi, const QTransform &transform)
{
    RecordingDevice device(QSize(1000, 1000), dpi);
    QPainter painter(&device);
    painter.setTransform(transform);
    shape.drawFigure(&painter, optionWithPalette());
    painter.end();
    return device.calls().value(0);
}

// QPen calls every pen of width 0 cosmetic; what was set shows when it has a width.
bool isSetCosmetic(QPen pen)
{
    pen.setWidth(1);
    return pen.isCosmetic();
}

} // namespace

class tst_ShapePainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void nullPainterIsIgnored();
    void renderDrawsThePathOnce();
    void emptyPathDrawsNothingButAdoptsTheColours();
    void emptyPathLeavesDrawShapeItsPenAndBrush();
    void drawShapeAloneUsesThePainterAsItIs();

    void penAndBrushHaveTheEnabledColours();
    void penAndBrushBothHaveTheDisabledForeground();
    void brushIsSolidOrNone_data();
    void brushIsSolidOrNone();
    void penHasTheLineStyle_data();
    void penHasTheLineStyle();
    void capAndJoinStylesAreNotApplied();

    void penWidthFollowsScaleStyleAndResolution_data();
    void penWidthFollowsScaleStyleAndResolution();
    void onlyTheHorizontalFactorOfTheTransformCounts_data();
    void onlyTheHorizontalFactorOfTheTransformCounts();

    void paletteColoursAreAdoptedWhileEnabled();
    void adoptedColoursOutliveThePalette();
    void oneMissingColourAsksForOneRepaint_data();
    void oneMissingColourAsksForOneRepaint();
    void paletteColourIsAdoptedWhileDisabled();
    void paletteWithoutTheDisabledColourIsAskedForAnother();
    void disabledColoursLeaveTheEnabledOnesAlone();
    void adoptionReachesTheUpdateManager();

    void optionIsShrunkByHalfTheLineWidth_data();
    void optionIsShrunkByHalfTheLineWidth();
    void optionKeepsAllElse();
    void renderHandsTheAbsoluteBoundsOn();
    void painterIsRestored();

    void pathIsDrawnWhereTheParentsClientAreaLies();
    void detachedPathIsDrawnUnmoved();
    void absolutePathMovesAnyPathWhileAttached();
    void clipIsNarrowedToTheAbsolutePath();
    void clipIsSetWhereThereIsNone();
    void emptyPathLeavesTheClipAlone();
    void pathThatHasOnlyMovedHidesEverything();
};

void tst_ShapePainting::nullPainterIsIgnored()
{
    ReadyShape shape;

    shape.drawFigure(nullptr, optionWithPalette());

    QVERIFY(!shape.getEnabledFGColor().isValid());
    QCOMPARE(shape.log, QStringList());
}

void tst_ShapePainting::renderDrawsThePathOnce()
{
    ReadyShape shape;

    const QList<PaintCall> calls =
        record([&](QPainter *painter) { shape.render(painter, optionWithPalette()); });

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].kind, PaintCall::Path);
    QCOMPARE(calls[0].path, rectPath(PATH_RECT));
}

void tst_ShapePainting::emptyPathDrawsNothingButAdoptsTheColours()
{
    ShapeProbe<Rectangle> shape;
    shape.setBounds(BOUNDS);

    const QList<PaintCall> calls = draw(shape);

    QCOMPARE(calls.size(), 0);
    QCOMPARE(shape.getEnabledFGColor(), QColor(Qt::red));
    QCOMPARE(shape.getEnabledBGColor(), QColor(Qt::green));
}

void tst_ShapePainting::emptyPathLeavesDrawShapeItsPenAndBrush()
{
    const MarkingShape shape;

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.lines, QList<QLineF>{QLineF(1, 2, 3, 4)});
    QCOMPARE(call.pen.color(), QColor(Qt::red));
    QCOMPARE(call.brush, QBrush(Qt::green, Qt::SolidPattern));
}

void tst_ShapePainting::drawShapeAloneUsesThePainterAsItIs()
{
    const ReadyShape shape;

    const QList<PaintCall> calls = record([&](QPainter *painter) {
        painter->setPen(Qt::cyan);
        shape.drawShape(painter, QStyleOptionViewItem());
    });

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].pen, QPen(Qt::cyan));
    QCOMPARE(calls[0].path, rectPath(PATH_RECT));
}

void tst_ShapePainting::penAndBrushHaveTheEnabledColours()
{
    ReadyShape shape;
    shape.setEnabledFGColor(Qt::cyan);
    shape.setEnabledBGColor(Qt::magenta);
    shape.setDisabledFGColor(Qt::gray);

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.pen.color(), QColor(Qt::cyan));
    QCOMPARE(call.brush, QBrush(Qt::magenta, Qt::SolidPattern));
}

// The fill takes the foreground while disabled, on purpose.
void tst_ShapePainting::penAndBrushBothHaveTheDisabledForeground()
{
    ReadyShape shape;
    shape.setEnabledFGColor(Qt::cyan);
    shape.setEnabledBGColor(Qt::magenta);
    shape.setDisabledFGColor(Qt::darkBlue);
    shape.setDisabledBGColor(Qt::darkRed);
    shape.setEnabled(false);

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.pen.color(), QColor(Qt::darkBlue));
    QCOMPARE(call.brush, QBrush(Qt::darkBlue, Qt::SolidPattern));
}

void tst_ShapePainting::brushIsSolidOrNone_data()
{
    QTest::addColumn<bool>("fill");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<Qt::BrushStyle>("expected");
    QTest::newRow("filled") << true << true << Qt::SolidPattern;
    QTest::newRow("not filled") << false << true << Qt::NoBrush;
    QTest::newRow("filled, disabled") << true << false << Qt::SolidPattern;
    QTest::newRow("not filled, disabled") << false << false << Qt::NoBrush;
}

void tst_ShapePainting::brushIsSolidOrNone()
{
    QFETCH(bool, fill);
    QFETCH(bool, enabled);
    QFETCH(Qt::BrushStyle, expected);
    ReadyShape shape;
    shape.setFill(fill);
    shape.setEnabled(enabled);

    // The painter's own brush must not shine through.
    const QList<PaintCall> calls = record([&](QPainter *painter) {
        painter->setBrush(QBrush(Qt::cyan, Qt::Dense4Pattern));
        shape.drawFigure(painter, optionWithPalette());
    });

    QCOMPARE(calls.value(0).brush.style(), expected);
}

void tst_ShapePainting::penHasTheLineStyle_data()
{
    QTest::addColumn<Qt::PenStyle>("style");
    QTest::newRow("none") << Qt::NoPen;
    QTest::newRow("solid") << Qt::SolidLine;
    QTest::newRow("dashes") << Qt::DashLine;
    QTest::newRow("dots") << Qt::DotLine;
    QTest::newRow("dash, dot") << Qt::DashDotLine;
    QTest::newRow("dash, dot, dot") << Qt::DashDotDotLine;
}

void tst_ShapePainting::penHasTheLineStyle()
{
    QFETCH(Qt::PenStyle, style);
    ReadyShape shape;
    shape.setLineStyle(style);

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.pen.style(), style);
}

void tst_ShapePainting::capAndJoinStylesAreNotApplied()
{
    ReadyShape shape;
    shape.setCapStyle(Qt::RoundCap);
    shape.setJoinStyle(Qt::RoundJoin);

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.pen.capStyle(), QPen().capStyle());
    QCOMPARE(call.pen.joinStyle(), QPen().joinStyle());
}

void tst_ShapePainting::penWidthFollowsScaleStyleAndResolution_data()
{
    QTest::addColumn<int>("dpi");
    QTest::addColumn<Qt::PenStyle>("style");
    QTest::addColumn<int>("lineWidth");
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("width");
    QTest::addColumn<bool>("cosmetic");

    const Qt::PenStyle solid = Qt::SolidLine;
    const Qt::PenStyle dash = Qt::DashLine;
    QTest::newRow("screen, half size") << 96 << solid << 1 << 0.5 << 0.0 << true;
    QTest::newRow("screen, full size") << 96 << solid << 1 << 1.0 << 1.0 << true;
    QTest::newRow("screen, double size") << 96 << solid << 1 << 2.0 << 2.0 << true;
    QTest::newRow("screen, rounds up above a half") << 96 << solid << 1 << 0.6 << 1.0 << true;
    QTest::newRow("screen, a half rounds down") << 96 << solid << 1 << 1.5 << 1.0 << true;
    QTest::newRow("screen, 3 at half size") << 96 << solid << 3 << 0.5 << 1.0 << true;
    QTest::newRow("screen, 3 at double size") << 96 << solid << 3 << 2.0 << 6.0 << true;
    QTest::newRow("screen, 5 at half size") << 96 << solid << 5 << 0.5 << 2.0 << true;
    QTest::newRow("screen, no width") << 96 << solid << 0 << 1.0 << 0.0 << true;

    QTest::newRow("screen, dashes, half size") << 96 << dash << 1 << 0.5 << 0.0 << false;
    QTest::newRow("screen, dashes, full size") << 96 << dash << 1 << 1.0 << 0.0 << false;
    QTest::newRow("screen, dashes, double size") << 96 << dash << 1 << 2.0 << 1.0 << false;
    QTest::newRow("screen, dashes, 2 at half size") << 96 << dash << 2 << 0.5 << 0.0 << false;
    QTest::newRow("screen, dashes, 3 at half size") << 96 << dash << 3 << 0.5 << 3.0 << false;
    QTest::newRow("screen, dashes, 3 at full size") << 96 << dash << 3 << 1.0 << 3.0 << false;
    QTest::newRow("screen, no line") << 96 << Qt::NoPen << 3 << 2.0 << 3.0 << false;

    QTest::newRow("printer, half size") << 300 << solid << 1 << 0.5 << 0.0 << false;
    QTest::newRow("printer, full size") << 300 << solid << 1 << 1.0 << 0.0 << false;
    QTest::newRow("printer, double size") << 300 << solid << 1 << 2.0 << 1.0 << false;
    QTest::newRow("printer, 3 at half size") << 300 << solid << 3 << 0.5 << 3.0 << false;
    QTest::newRow("printer, 3 at double size") << 300 << solid << 3 << 2.0 << 3.0 << false;
    QTest::newRow("printer, dashes") << 300 << dash << 3 << 2.0 << 3.0 << false;

    QTest::newRow("149 dpi is a screen") << 149 << solid << 1 << 2.0 << 2.0 << true;
    QTest::newRow("150 dpi is a printer") << 150 << solid << 1 << 2.0 << 1.0 << false;
}

void tst_ShapePainting::penWidthFollowsScaleStyleAndResolution()
{
    QFETCH(int, dpi);
    QFETCH(Qt::PenStyle, style);
    QFETCH(int, lineWidth);
    QFETCH(double, scale);
    QFETCH(double, width);
    QFETCH(bool, cosmetic);
    ReadyShape shape;
    shape.setLineStyle(style);
    shape.setLineWidth(lineWidth);

    const PaintCall call = drawOn(shape, dpi, QTransform::fromScale(scale, scale));

    QCOMPARE(call.kind, PaintCall::Path);
    QCOMPARE(call.pen.widthF(), width);
    QCOMPARE(isSetCosmetic(call.pen), cosmetic);
}

void tst_ShapePainting::onlyTheHorizontalFactorOfTheTransformCounts_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<double>("width");
    QTest::newRow("high") << QTransform::fromScale(2, 7) << 6.0;
    QTest::newRow("wide") << QTransform::fromScale(7, 2) << 21.0;
    QTest::newRow("moved") << QTransform::fromTranslate(50, 60) << 3.0;
    QTest::newRow("a quarter turn has none") << QTransform(0, 1, -1, 0, 0, 0) << 0.0;
}

void tst_ShapePainting::onlyTheHorizontalFactorOfTheTransformCounts()
{
    QFETCH(QTransform, transform);
    QFETCH(double, width);
    ReadyShape shape;
    shape.setLineWidth(3);

    const PaintCall call = drawOn(shape, 96, transform);

    QCOMPARE(call.pen.widthF(), width);
}

void tst_ShapePainting::paletteColoursAreAdoptedWhileEnabled()
{
    ReadyShape shape;
    const QString repaint = QStringLiteral("repaint");

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.pen.color(), QColor(Qt::red));
    QCOMPARE(call.brush.color(), QColor(Qt::green));
    QCOMPARE(shape.getEnabledFGColor(), QColor(Qt::red));
    QCOMPARE(shape.getEnabledBGColor(), QColor(Qt::green));
    QVERIFY(!shape.getDisabledFGColor().isValid());
    QCOMPARE(shape.log, QStringList({repaint, repaint}));
}

void tst_ShapePainting::adoptedColoursOutliveThePalette()
{
    ReadyShape shape;
    draw(shape);
    shape.log.clear();
    QStyleOptionViewItem other = optionWithPalette();
    other.palette = QPalette(Qt::white);

    const PaintCall call = draw(shape, other).value(0);

    QCOMPARE(call.pen.color(), QColor(Qt::red));
    QCOMPARE(call.brush.color(), QColor(Qt::green));
    QCOMPARE(shape.log, QStringList());
}

void tst_ShapePainting::oneMissingColourAsksForOneRepaint_data()
{
    QTest::addColumn<QColor>("foreground");
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QColor>("pen");
    QTest::addColumn<QColor>("brush");
    const QColor cyan(Qt::cyan);
    QTest::newRow("foreground") << QColor() << cyan << QColor(Qt::red) << cyan;
    QTest::newRow("background") << cyan << QColor() << cyan << QColor(Qt::green);
}

void tst_ShapePainting::oneMissingColourAsksForOneRepaint()
{
    QFETCH(QColor, foreground);
    QFETCH(QColor, background);
    QFETCH(QColor, pen);
    QFETCH(QColor, brush);
    ReadyShape shape;
    shape.setEnabledFGColor(foreground);
    shape.setEnabledBGColor(background);
    shape.log.clear();

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.pen.color(), pen);
    QCOMPARE(call.brush.color(), brush);
    QCOMPARE(shape.log, QStringList{QStringLiteral("repaint")});
}

// The role is that of the enabled background, on purpose.
void tst_ShapePainting::paletteColourIsAdoptedWhileDisabled()
{
    ReadyShape shape;
    shape.setEnabled(false);

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.pen.color(), QColor(Qt::blue));
    QCOMPARE(call.brush.color(), QColor(Qt::blue));
    QCOMPARE(shape.getDisabledFGColor(), QColor(Qt::blue));
    QCOMPARE(shape.log, QStringList{QStringLiteral("repaint")});
}

// The other one goes into the disabled background, which nobody can read: only the repaint tells.
void tst_ShapePainting::paletteWithoutTheDisabledColourIsAskedForAnother()
{
    ReadyShape shape;
    shape.setEnabled(false);
    QStyleOptionViewItem option = optionWithPalette();
    option.palette.setColor(QPalette::Disabled, QPalette::Button, QColor());
    const QString repaint = QStringLiteral("repaint");

    const PaintCall call = draw(shape, option).value(0);

    QVERIFY(!call.pen.color().isValid());
    QVERIFY(!call.brush.color().isValid());
    QVERIFY(!shape.getDisabledBGColor().isValid());
    QCOMPARE(shape.log, QStringList({repaint, repaint}));
}

void tst_ShapePainting::disabledColoursLeaveTheEnabledOnesAlone()
{
    ReadyShape shape;
    shape.setEnabled(false);

    draw(shape);

    QVERIFY(!shape.getEnabledFGColor().isValid());
    QVERIFY(!shape.getEnabledBGColor().isValid());
}

void tst_ShapePainting::adoptionReachesTheUpdateManager()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new FreeformLayout(&root));
    ShapeProbe<Rectangle> shape;
    root.add(&shape);
    shape.setBounds(BOUNDS);
    manager.clear();

    draw(shape);

    QCOMPARE(manager.dirtyRects(&shape), QList<QRect>({BOUNDS, BOUNDS}));
}

void tst_ShapePainting::optionIsShrunkByHalfTheLineWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("0") << 0 << QRect(10, 10, 100, 50);
    QTest::newRow("1") << 1 << QRect(10, 10, 99, 49);
    QTest::newRow("2") << 2 << QRect(11, 11, 98, 48);
    QTest::newRow("3") << 3 << QRect(11, 11, 97, 47);
    QTest::newRow("8") << 8 << QRect(14, 14, 92, 42);
    QTest::newRow("9") << 9 << QRect(14, 14, 91, 41);
}

void tst_ShapePainting::optionIsShrunkByHalfTheLineWidth()
{
    QFETCH(int, width);
    QFETCH(QRect, expected);
    UntidyShape shape;
    shape.setLineWidth(width);
    QStyleOptionViewItem option = optionWithPalette();
    option.rect = BOUNDS;

    draw(shape, option);

    QCOMPARE(shape.options.size(), 1);
    QCOMPARE(shape.options[0].rect, expected);
}

void tst_ShapePainting::optionKeepsAllElse()
{
    UntidyShape shape;
    QStyleOptionViewItem option = optionWithPalette();
    option.state = QStyle::State_Selected;
    option.text = QStringLiteral("kept");

    draw(shape, option);

    QCOMPARE(shape.options.value(0).palette, option.palette);
    QCOMPARE(shape.options.value(0).state, option.state);
    QCOMPARE(shape.options.value(0).text, option.text);
    QCOMPARE(option.rect, QRect(0, 0, 1000, 1000));
}

void tst_ShapePainting::renderHandsTheAbsoluteBoundsOn()
{
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    parent.setBounds(QRect(100, 200, 300, 300));
    UntidyShape shape;
    parent.add(&shape);
    shape.setBounds(BOUNDS);

    record([&](QPainter *painter) { shape.render(painter, optionWithPalette()); });

    QCOMPARE(shape.options.size(), 1);
    QCOMPARE(shape.options[0].rect, QRect(110, 210, 99, 49));
}

void tst_ShapePainting::painterIsRestored()
{
    UntidyShape shape;

    record([&](QPainter *painter) {
        painter->setPen(QPen(Qt::cyan, 2));
        painter->setBrush(Qt::yellow);
        shape.drawFigure(painter, optionWithPalette());

        QCOMPARE(painter->pen(), QPen(Qt::cyan, 2));
        QCOMPARE(painter->brush(), QBrush(Qt::yellow));
        QCOMPARE(painter->transform(), QTransform());
        QCOMPARE(painter->opacity(), 1.0);
    });

    QCOMPARE(shape.options.size(), 1);
}

void tst_ShapePainting::pathIsDrawnWhereTheParentsClientAreaLies()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new FreeformLayout(&root));
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    parent.setMargin(3);
    root.add(&parent);
    parent.setBounds(QRect(100, 200, 300, 300));
    ShapeProbe<Rectangle> shape;
    parent.add(&shape);
    shape.setBounds(BOUNDS);

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.path, rectPath(PATH_RECT.translated(103, 203)));
    QCOMPARE(shape.getPainterPath(), rectPath(PATH_RECT));
    QCOMPARE(call.transform, QTransform());
}

void tst_ShapePainting::detachedPathIsDrawnUnmoved()
{
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    parent.setBounds(QRect(100, 200, 300, 300));
    ShapeProbe<Rectangle> shape;
    parent.add(&shape);
    shape.painterPath() = rectPath(PATH_RECT);

    const PaintCall call = draw(shape).value(0);

    QCOMPARE(call.path, rectPath(PATH_RECT));
}

void tst_ShapePainting::absolutePathMovesAnyPathWhileAttached()
{
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    parent.setBounds(QRect(100, 200, 300, 300));
    ShapeProbe<Rectangle> shape;
    parent.add(&shape);
    const QPainterPath path = rectPath(QRectF(1, 2, 3, 4));

    QCOMPARE(shape.absolutePath(path), path);
    parent.addNotify();
    QCOMPARE(shape.absolutePath(path), rectPath(QRectF(101, 202, 3, 4)));
    parent.removeNotify();
    QCOMPARE(shape.absolutePath(path), path);
}

void tst_ShapePainting::clipIsNarrowedToTheAbsolutePath()
{
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    parent.setBounds(QRect(100, 200, 300, 300));
    parent.addNotify();
    ShapeProbe<Rectangle> shape;
    parent.add(&shape);
    shape.painterPath() = rectPath(QRectF(10, 10, 100, 50));

    record([&](QPainter *painter) {
        painter->setClipRect(QRect(0, 0, 150, 1000));
        shape.clipToPath(painter);

        QCOMPARE(painter->clipRegion(), QRegion(110, 210, 40, 50));
    });
}

void tst_ShapePainting::clipIsSetWhereThereIsNone()
{
    ShapeProbe<Rectangle> shape;
    shape.painterPath() = rectPath(QRectF(10, 10, 100, 50));

    record([&](QPainter *painter) {
        shape.clipToPath(painter);

        QVERIFY(painter->hasClipping());
        QCOMPARE(painter->clipRegion(), QRegion(10, 10, 100, 50));
    });
}

void tst_ShapePainting::emptyPathLeavesTheClipAlone()
{
    const ShapeProbe<Rectangle> shape;

    record([&](QPainter *painter) {
        shape.clipToPath(painter);
        QVERIFY(!painter->hasClipping());

        painter->setClipRect(QRect(0, 0, 150, 100));
        shape.clipToPath(painter);
        QCOMPARE(painter->clipRegion(), QRegion(0, 0, 150, 100));
    });
}

void tst_ShapePainting::pathThatHasOnlyMovedHidesEverything()
{
    ShapeProbe<Rectangle> shape;
    shape.painterPath().moveTo(20, 20);

    record([&](QPainter *painter) {
        painter->setClipRect(QRect(0, 0, 150, 100));
        shape.clipToPath(painter);

        QVERIFY(painter->clipRegion().isEmpty());
    });
}

QTEST_MAIN(tst_ShapePainting)
#include "tst_shape_painting.moc"
