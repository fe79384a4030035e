#include "fixtures.h"

#include <pixels.h>
#include <recordingdevice.h>
#include <recordingstyle.h>

#include <figura/figure/SimpleBorder.h>

#include <QApplication>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

QStyleOptionViewItem optionFor(const QRect &rect)
{
    QStyleOptionViewItem option;
    option.rect = rect;
    return option;
}

QList<PaintCall> rendered(Figure &figure, const QRect &damage)
{
    return record([&](QPainter *painter) { figure.render(painter, optionFor(damage)); });
}

/// A figure that remembers the rectangle that each of its drawing operations got.
class RectFigure : public ParentFigure
{
public:
    using ParentFigure::ParentFigure;

    mutable QList<QRect> backgroundRects;
    mutable QList<QRect> figureRects;
    mutable QList<QRect> borderRects;
    mutable QList<QRect> childrenRects;
    mutable QStyleOptionViewItem lastOption;

protected:
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        backgroundRects.append(option.rect);
        ParentFigure::drawBackground(painter, option);
    }

    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        figureRects.append(option.rect);
        lastOption = option;
        ParentFigure::drawFigure(painter, option);
    }

    void drawBorder(QPainter *painter, const QStyleOptionViewItem &option,
                    const Border *border) const override
    {
        borderRects.append(option.rect);
        ParentFigure::drawBorder(painter, option, border);
    }

    void drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        childrenRects.append(option.rect);
        ParentFigure::drawChildren(painter, option);
    }
};

/// A figure that draws an ellipse where it is, with whatever the painter is set to.
class EllipseFigure : public ParentFigure
{
public:
    using ParentFigure::ParentFigure;

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        painter->drawEllipse(option.rect);
    }
};

/// A figure that leaves the painter in another state.
class CarelessFigure : public ParentFigure
{
protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &) const override
    {
        painter->setOpacity(0.25);
        painter->translate(1000, 1000);
        painter->setClipRect(0, 0, 1, 1);
    }
};

} // namespace

class tst_Figure_Rendering : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    // What is skipped.
    void nothingIsPaintedWithoutAPainter();
    void invalidBoundsAreReportedAndPaintNothingNotEvenTheChildren_data();
    void invalidBoundsAreReportedAndPaintNothingNotEvenTheChildren();
    void wideBoundingRectCountsInsteadOfTheBounds();
    void subtreeBesideTheDamageIsSkippedAsAWhole_data();
    void subtreeBesideTheDamageIsSkippedAsAWhole();
    void childrenAreSkippedWhenTheDamageMissesTheClientArea();
    void childrenAreSkippedWhenThereIsNoClientArea();
    void childBesideTheDamageIsSkipped();

    // Order and rectangles.
    void backgroundFigureAndBorderComeBeforeTheChildren();
    void childrenArePaintedInTheirOrderTheTopmostLast();
    void ownPartsGetTheWholeAbsoluteBoundingRect();
    void childrenGetTheDamagedPartOfTheClientArea();
    void rectanglesAreAbsoluteAtEveryDepth();
    void contentRectIsCalculatedVirtually();
    void restOfTheOptionReachesEveryFigure();
    void painterStateIsRestoredAfterTheBorder();
    void painterIsNeverTranslated();

    // The parts.
    void backgroundIsFilledUnlessTransparent_data();
    void backgroundIsFilledUnlessTransparent();
    void drawFigureOfThePlainFigureDrawsNothing();
    void drawBorderDrawsTheGivenBorderOrNothing();
    void drawChildrenNeedsALayoutAndAValidRect();

    // Highlight.
    void highlightIsDrawnOverTheClientArea_data();
    void highlightIsDrawnOverTheClientArea();
    void highlightComesAfterTheChildrenAndOutsideTheirClip();
    void highlightIsDrawnEvenWhenNoChildIsDamaged();
    void highlightIsNotDrawnWithoutAClientArea();
    void highlightIsDrawnWithThePaintersOwnState();
    void noHighlightUnlessAskedFor();

    // Pixels.
    void childIsClippedToTheClientArea();
    void backgroundFillsTheBoundsBeyondTheDamage();
    void childrenOverlapTheBorderOfTheirParentNever();
    void laterChildCoversTheEarlierOne();
    void halfTransparentBackgroundLetsTheParentThrough();
};

void tst_Figure_Rendering::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Figure_Rendering::nothingIsPaintedWithoutAPainter()
{
    CountingFigure figure;
    figure.setBounds(QRect(0, 0, 10, 10));

    figure.render(nullptr, optionFor(QRect(0, 0, 100, 100)));

    QCOMPARE(figure.calls().drawBackground, 0);
    QCOMPARE(figure.calls().drawFigure, 0);
    QCOMPARE(figure.calls().drawBorder, 0);
    QCOMPARE(figure.calls().drawChildren, 0);
}

void tst_Figure_Rendering::invalidBoundsAreReportedAndPaintNothingNotEvenTheChildren_data()
{
    QTest::addColumn<QRect>("bounds");

    QTest::newRow("none") << QRect(0, 0, 0, 0);
    QTest::newRow("no width") << QRect(5, 5, 0, 10);
}

void tst_Figure_Rendering::invalidBoundsAreReportedAndPaintNothingNotEvenTheChildren()
{
    QFETCH(QRect, bounds);
    ParentFigure figure;
    CountingFigure child;
    figure.add(&child);
    child.setBounds(QRect(0, 0, 10, 10));
    QTest::ignoreMessage(QtDebugMsg, "Figure::resolveBounds(): resolved bounds still invalid");
    figure.setBounds(bounds);

    QTest::ignoreMessage(QtDebugMsg, "Figure::render(): invalid figure bounds");
    rendered(figure, QRect(0, 0, 100, 100));

    QCOMPARE(figure.calls().drawBackground, 0);
    QCOMPARE(figure.calls().drawFigure, 0);
    QCOMPARE(figure.calls().drawChildren, 0);
    QCOMPARE(child.calls().render, 0);
}

void tst_Figure_Rendering::wideBoundingRectCountsInsteadOfTheBounds()
{
    class Wide : public RectFigure
    {
    public:
        QRect getBoundingRect() override { return getBounds().adjusted(-5, -5, 5, 5); }
    };
    Wide figure;
    figure.setBounds(QRect(10, 10, 10, 10));

    rendered(figure, QRect(0, 0, 6, 6));

    QCOMPARE(figure.figureRects, QList<QRect>({{5, 5, 20, 20}}));
}

void tst_Figure_Rendering::subtreeBesideTheDamageIsSkippedAsAWhole_data()
{
    QTest::addColumn<QRect>("damage");
    QTest::addColumn<int>("drawn");

    QTest::newRow("left of it") << QRect(0, 0, 10, 100) << 0;
    QTest::newRow("first column") << QRect(0, 0, 11, 100) << 1;
    QTest::newRow("above it") << QRect(0, 0, 100, 20) << 0;
    QTest::newRow("first row") << QRect(0, 0, 100, 21) << 1;
    QTest::newRow("right of it") << QRect(40, 0, 100, 100) << 0;
    QTest::newRow("last column") << QRect(39, 0, 100, 100) << 1;
    QTest::newRow("below it") << QRect(0, 60, 100, 100) << 0;
    QTest::newRow("last row") << QRect(0, 59, 100, 100) << 1;
    QTest::newRow("nothing is damaged") << QRect() << 0;
}

void tst_Figure_Rendering::subtreeBesideTheDamageIsSkippedAsAWhole()
{
    QFETCH(QRect, damage);
    ParentFigure figure;
    CountingFigure child;
    figure.setBounds(QRect(10, 20, 30, 40));
    figure.add(&child);
    child.setBounds(QRect(0, 0, 30, 40));

    rendered(figure, damage);

    QTEST(figure.calls().drawBackground, "drawn");
    QTEST(figure.calls().drawFigure, "drawn");
    QTEST(figure.calls().drawBorder, "drawn");
    QTEST(figure.calls().drawChildren, "drawn");
    QTEST(child.calls().render, "drawn");
}

void tst_Figure_Rendering::childrenAreSkippedWhenTheDamageMissesTheClientArea()
{
    ParentFigure figure;
    figure.setMargin(10);
    figure.setBounds(QRect(0, 0, 100, 100));

    rendered(figure, QRect(0, 0, 10, 100));

    QCOMPARE(figure.calls().drawFigure, 1);
    QCOMPARE(figure.calls().drawChildren, 0);
}

void tst_Figure_Rendering::childrenAreSkippedWhenThereIsNoClientArea()
{
    ParentFigure figure;
    figure.setMargin(50);
    figure.setBounds(QRect(0, 0, 100, 100));

    rendered(figure, QRect(0, 0, 100, 100));

    QCOMPARE(figure.calls().drawBorder, 1);
    QCOMPARE(figure.calls().drawChildren, 0);
}

void tst_Figure_Rendering::childBesideTheDamageIsSkipped()
{
    ParentFigure figure;
    CountingFigure damaged;
    CountingFigure spared;
    figure.setBounds(QRect(0, 0, 100, 100));
    figure.add(&damaged);
    figure.add(&spared);
    damaged.setBounds(QRect(0, 0, 50, 100));
    spared.setBounds(QRect(50, 0, 50, 100));

    rendered(figure, QRect(0, 0, 50, 100));

    QCOMPARE(damaged.calls().drawFigure, 1);
    QCOMPARE(spared.calls().drawFigure, 0);
}

void tst_Figure_Rendering::backgroundFigureAndBorderComeBeforeTheChildren()
{
    QStringList log;
    LoggingFigure figure(QStringLiteral("parent"), &log);
    LoggingFigure child(QStringLiteral("child"), &log);
    figure.setBounds(QRect(0, 0, 100, 100));
    figure.add(&child);
    child.setBounds(QRect(0, 0, 100, 100));
    figure.validate();
    log.clear();

    rendered(figure, QRect(0, 0, 100, 100));

    QCOMPARE(log, QStringList({"parent background", "parent figure", "parent border",
                               "child background", "child figure", "child border"}));
}

void tst_Figure_Rendering::childrenArePaintedInTheirOrderTheTopmostLast()
{
    ParentFigure figure;
    Figure bottom(nullptr, Qt::red);
    Figure top(nullptr, Qt::blue);
    figure.setBounds(QRect(0, 0, 100, 100));
    figure.add(&top);
    figure.add(&bottom, QVariant(), 0);
    bottom.setBounds(QRect(0, 0, 10, 10));
    top.setBounds(QRect(0, 0, 20, 20));

    const auto calls = rendered(figure, QRect(0, 0, 100, 100));

    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls[0].brush.color(), QColor(Qt::red));
    QCOMPARE(calls[1].brush.color(), QColor(Qt::blue));
}

void tst_Figure_Rendering::ownPartsGetTheWholeAbsoluteBoundingRect()
{
    ParentFigure root;
    RectFigure figure;
    root.setBounds(QRect(100, 200, 300, 300));
    root.add(&figure);
    figure.setBounds(QRect(10, 20, 30, 40));

    rendered(root, QRect(112, 222, 3, 3));

    const QList<QRect> whole{{110, 220, 30, 40}};
    QCOMPARE(figure.backgroundRects, whole);
    QCOMPARE(figure.figureRects, whole);
    QCOMPARE(figure.borderRects, whole);
}

void tst_Figure_Rendering::childrenGetTheDamagedPartOfTheClientArea()
{
    SimpleBorder border(nullptr, 0);
    border.setInsets(Insets(1, 2, 3, 4));
    RectFigure figure;
    figure.setBorder(&border);
    figure.setMargin(5);
    figure.setBounds(QRect(100, 200, 50, 60));

    rendered(figure, QRect(0, 0, 1000, 1000));
    rendered(figure, QRect(0, 0, 120, 1000));

    QCOMPARE(figure.childrenRects, QList<QRect>({{109, 206, 34, 46}, {109, 206, 11, 46}}));
}

void tst_Figure_Rendering::rectanglesAreAbsoluteAtEveryDepth()
{
    ParentFigure root;
    ParentFigure sharing(false);
    RectFigure leaf;
    root.setMargin(1);
    root.setBounds(QRect(100, 200, 300, 300));
    root.add(&sharing);
    sharing.setBounds(QRect(10, 20, 200, 200));
    sharing.add(&leaf);
    leaf.setBounds(QRect(30, 40, 50, 60));
    leaf.setMargin(2);

    rendered(root, QRect(0, 0, 1000, 1000));

    QCOMPARE(leaf.figureRects, QList<QRect>({{131, 241, 50, 60}}));
    QCOMPARE(leaf.childrenRects, QList<QRect>({{133, 243, 46, 56}}));
}

void tst_Figure_Rendering::contentRectIsCalculatedVirtually()
{
    class Narrow : public RectFigure
    {
    public:
        QRect calculateContentRect(const QRect &rect) override
        {
            return QRect(rect.topLeft(), QSize(7, 7));
        }
    };
    Narrow figure;
    figure.setBounds(QRect(10, 10, 50, 50));

    rendered(figure, QRect(0, 0, 100, 100));

    QCOMPARE(figure.childrenRects, QList<QRect>({{10, 10, 7, 7}}));
}

void tst_Figure_Rendering::restOfTheOptionReachesEveryFigure()
{
    ParentFigure root;
    RectFigure figure;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&figure);
    figure.setBounds(QRect(0, 0, 10, 10));
    QStyleOptionViewItem option = optionFor(QRect(0, 0, 100, 100));
    option.text = QStringLiteral("a mark");
    option.state = QStyle::State_Selected;
    option.palette.setColor(QPalette::Text, Qt::magenta);

    record([&](QPainter *painter) { root.render(painter, option); });

    QCOMPARE(figure.lastOption.text, QStringLiteral("a mark"));
    QCOMPARE(figure.lastOption.state, QStyle::State(QStyle::State_Selected));
    QCOMPARE(figure.lastOption.palette.color(QPalette::Text), QColor(Qt::magenta));
    QCOMPARE(option.rect, QRect(0, 0, 100, 100));
}

void tst_Figure_Rendering::painterStateIsRestoredAfterTheBorder()
{
    SimpleBorder border(nullptr, 1);
    CarelessFigure figure;
    EllipseFigure child;
    figure.setBounds(QRect(0, 0, 100, 100));
    figure.setBorder(&border);
    figure.add(&child);
    child.setBounds(QRect(0, 0, 10, 10));

    const auto calls = record([&](QPainter *painter) {
        figure.render(painter, optionFor(QRect(0, 0, 100, 100)));
        painter->drawPoint(0, 0);
    });

    const PaintCall ofBorder = callsOfKind(calls, PaintCall::Lines).first();
    QCOMPARE(ofBorder.opacity, 0.25);
    const PaintCall ofChild = callsOfKind(calls, PaintCall::Ellipse).first();
    QCOMPARE(ofChild.opacity, 1.0);
    QCOMPARE(ofChild.transform, QTransform());
    const PaintCall afterwards = callsOfKind(calls, PaintCall::Points).first();
    QCOMPARE(afterwards.opacity, 1.0);
    QCOMPARE(afterwards.transform, QTransform());
    QVERIFY(!afterwards.isClipped);
}

void tst_Figure_Rendering::painterIsNeverTranslated()
{
    ParentFigure root;
    EllipseFigure figure;
    EllipseFigure child;
    root.setBounds(QRect(100, 200, 300, 300));
    root.add(&figure);
    figure.setBounds(QRect(10, 20, 200, 200));
    figure.add(&child);
    child.setBounds(QRect(1, 2, 3, 4));

    const auto calls = rendered(root, QRect(0, 0, 1000, 1000));

    const auto ellipses = callsOfKind(calls, PaintCall::Ellipse);
    QCOMPARE(ellipses.size(), 2);
    QCOMPARE(ellipses[1].rects, QList<QRectF>({{111, 222, 3, 4}}));
    QCOMPARE(ellipses[1].transform, QTransform());
}

void tst_Figure_Rendering::backgroundIsFilledUnlessTransparent_data()
{
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<bool>("filled");

    QTest::newRow("transparent") << QColor(Qt::transparent) << false;
    QTest::newRow("opaque") << QColor(Qt::red) << true;
    QTest::newRow("half transparent") << QColor(255, 0, 0, 128) << true;
    QTest::newRow("invisible, but another colour") << QColor(255, 255, 255, 0) << true;
}

void tst_Figure_Rendering::backgroundIsFilledUnlessTransparent()
{
    QFETCH(QColor, colour);
    QFETCH(bool, filled);
    Figure figure(nullptr, colour);
    figure.setBounds(QRect(10, 20, 30, 40));

    const auto calls = rendered(figure, QRect(0, 0, 15, 25));

    QCOMPARE(calls.size(), filled ? 1 : 0);
    if (filled) {
        QCOMPARE(rectsOf(calls), QList<QRectF>({{10, 20, 30, 40}}));
        QCOMPARE(calls[0].brush.color(), colour);
        QCOMPARE(calls[0].pen.style(), Qt::NoPen);
    }
}

void tst_Figure_Rendering::drawFigureOfThePlainFigureDrawsNothing()
{
    OpenFigure figure(nullptr, Qt::red);

    const auto calls = record(
        [&](QPainter *painter) { figure.drawFigure(painter, optionFor(QRect(0, 0, 10, 10))); });

    QCOMPARE(calls.size(), 0);
}

void tst_Figure_Rendering::drawBorderDrawsTheGivenBorderOrNothing()
{
    SimpleBorder own(nullptr, 1);
    SimpleBorder given(nullptr, 1);
    given.setColor(Qt::green);
    OpenFigure figure;
    figure.setBorder(&own);
    const auto option = optionFor(QRect(0, 0, 10, 10));

    const auto without =
        record([&](QPainter *painter) { figure.drawBorder(painter, option, nullptr); });
    const auto with =
        record([&](QPainter *painter) { figure.drawBorder(painter, option, &given); });

    QCOMPARE(without.size(), 0);
    QCOMPARE(linesOf(with).size(), 4);
    QCOMPARE(with[0].pen.color(), QColor(Qt::green));
}

void tst_Figure_Rendering::drawChildrenNeedsALayoutAndAValidRect()
{
    OpenFigure bare;
    ParentFigure figure;

    record([&](QPainter *painter) {
        bare.drawChildren(painter, optionFor(QRect(0, 0, 10, 10)));
        figure.drawChildren(painter, optionFor(QRect(0, 0, 10, 0)));
    });
    QCOMPARE(figure.plain->renderings, 0);

    record(
        [&](QPainter *painter) { figure.drawChildren(painter, optionFor(QRect(0, 0, 10, 10))); });
    QCOMPARE(figure.plain->renderings, 1);
}

void tst_Figure_Rendering::highlightIsDrawnOverTheClientArea_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("rubberBand");

    QTest::newRow("focus rectangle") << 0 << false;
    QTest::newRow("rubber band") << 1 << true;
    QTest::newRow("any other value") << 17 << true;
    QTest::newRow("a negative value") << -1 << true;
}

void tst_Figure_Rendering::highlightIsDrawnOverTheClientArea()
{
    QFETCH(int, style);
    QFETCH(bool, rubberBand);
    RecordingStyle drawn;
    ParentFigure root;
    Figure figure;
    root.setBounds(QRect(100, 200, 300, 300));
    root.add(&figure);
    figure.setMargin(3);
    figure.setBounds(QRect(10, 20, 30, 40));
    figure.setHighlightStyle(style);
    figure.highlightClientArea(true);
    QStyleOptionViewItem option = optionFor(QRect(0, 0, 1000, 1000));
    option.state = QStyle::State_Selected;

    record([&](QPainter *painter) { root.render(painter, option); });

    QCOMPARE(drawn.rubberBands.size(), rubberBand ? 1 : 0);
    QCOMPARE(drawn.focusRects.size(), rubberBand ? 0 : 1);
    const auto call = rubberBand ? drawn.rubberBands.first() : drawn.focusRects.first();
    QCOMPARE(call.rect, QRect(113, 223, 24, 34));
    QVERIFY(!call.hasWidget);
    if (rubberBand) {
        QCOMPARE(call.state, QStyle::State(QStyle::State_Selected));
        QVERIFY(call.isRectangle);
        QVERIFY(!call.isOpaque);
    } else {
        QCOMPARE(call.state, QStyle::State_Selected | QStyle::State_KeyboardFocusChange);
    }
}

void tst_Figure_Rendering::highlightComesAfterTheChildrenAndOutsideTheirClip()
{
    RecordingStyle drawn;
    ParentFigure figure;
    EllipseFigure child;
    figure.setBounds(QRect(0, 0, 100, 100));
    figure.add(&child);
    child.setBounds(QRect(0, 0, 10, 10));
    figure.highlightClientArea(true);

    const auto calls = rendered(figure, QRect(0, 0, 50, 50));

    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls[0].kind, PaintCall::Ellipse);
    QVERIFY(calls[0].isClipped);
    QCOMPARE(calls[1].kind, PaintCall::Rects);
    QCOMPARE(calls[1].rects, QList<QRectF>({{0, 0, 100, 100}}));
    QVERIFY(!calls[1].isClipped);
}

void tst_Figure_Rendering::highlightIsDrawnEvenWhenNoChildIsDamaged()
{
    RecordingStyle drawn;
    ParentFigure figure;
    figure.setMargin(10);
    figure.setBounds(QRect(0, 0, 100, 100));
    figure.highlightClientArea(true);

    rendered(figure, QRect(0, 0, 5, 5));

    QCOMPARE(figure.calls().drawChildren, 0);
    QCOMPARE(drawn.rubberBands.size(), 1);
    QCOMPARE(drawn.rubberBands.first().rect, QRect(10, 10, 80, 80));
}

void tst_Figure_Rendering::highlightIsNotDrawnWithoutAClientArea()
{
    RecordingStyle drawn;
    Figure figure;
    figure.setMargin(50);
    figure.setBounds(QRect(0, 0, 100, 100));
    figure.highlightClientArea(true);

    rendered(figure, QRect(0, 0, 100, 100));

    QCOMPARE(drawn.rubberBands.size(), 0);
}

void tst_Figure_Rendering::highlightIsDrawnWithThePaintersOwnState()
{
    RecordingStyle drawn;
    Figure figure;
    figure.setBounds(QRect(0, 0, 100, 100));
    figure.highlightClientArea(true);

    const auto calls = record([&](QPainter *painter) {
        painter->setPen(QPen(Qt::cyan, 7));
        figure.render(painter, optionFor(QRect(0, 0, 100, 100)));
    });

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].pen, QPen(Qt::cyan, 7));
}

void tst_Figure_Rendering::noHighlightUnlessAskedFor()
{
    RecordingStyle drawn;
    Figure figure;
    figure.setBounds(QRect(0, 0, 100, 100));

    rendered(figure, QRect(0, 0, 100, 100));
    figure.setHighlightStyle(0);
    rendered(figure, QRect(0, 0, 100, 100));

    QCOMPARE(drawn.rubberBands.size(), 0);
    QCOMPARE(drawn.focusRects.size(), 0);
}

void tst_Figure_Rendering::childIsClippedToTheClientArea()
{
    ParentFigure figure;
    Figure child(nullptr, Qt::red);
    figure.setMargin(10);
    figure.setBounds(QRect(20, 20, 50, 50));
    figure.add(&child);
    child.setBounds(QRect(-100, -100, 300, 300));

    const QImage image = paintedImage(QSize(100, 100), [&](QPainter *painter) {
        figure.render(painter, optionFor(QRect(0, 0, 100, 100)));
    });

    QVERIFY(isFilled(image, QRect(30, 30, 30, 30), Qt::red));
    QCOMPARE(countPixels(image, Qt::red), 900);
    QCOMPARE(countPixels(image, Qt::white), 10000 - 900);
}

void tst_Figure_Rendering::backgroundFillsTheBoundsBeyondTheDamage()
{
    ParentFigure figure;
    Figure child(nullptr, Qt::red);
    figure.setBackgroundColor(Qt::blue);
    figure.setBounds(QRect(20, 20, 50, 50));
    figure.add(&child);
    child.setBounds(QRect(0, 0, 50, 50));

    const QImage image = paintedImage(QSize(100, 100), [&](QPainter *painter) {
        figure.render(painter, optionFor(QRect(0, 0, 30, 30)));
    });

    QCOMPARE(extentOf(image, Qt::blue), QRect(20, 20, 50, 50));
    QVERIFY(isFilled(image, QRect(20, 20, 10, 10), Qt::red));
    QCOMPARE(countPixels(image, Qt::red), 100);
    QCOMPARE(countPixels(image, Qt::blue), 2500 - 100);
}

void tst_Figure_Rendering::childrenOverlapTheBorderOfTheirParentNever()
{
    SimpleBorder border(nullptr, 1);
    border.setColor(Qt::green);
    ParentFigure figure;
    Figure child(nullptr, Qt::red);
    figure.setBorder(&border);
    figure.setBounds(QRect(20, 20, 50, 50));
    figure.add(&child);
    child.setBounds(QRect(-10, -10, 100, 100));

    const QImage image = paintedImage(QSize(100, 100), [&](QPainter *painter) {
        figure.render(painter, optionFor(QRect(0, 0, 100, 100)));
    });

    QVERIFY(isFilled(image, QRect(20, 20, 50, 1), Qt::green));
    QVERIFY(isFilled(image, QRect(20, 69, 50, 1), Qt::green));
    QVERIFY(isFilled(image, QRect(20, 20, 1, 50), Qt::green));
    QVERIFY(isFilled(image, QRect(69, 20, 1, 50), Qt::green));
    QVERIFY(isFilled(image, QRect(21, 21, 48, 48), Qt::red));
}

void tst_Figure_Rendering::laterChildCoversTheEarlierOne()
{
    ParentFigure figure;
    Figure earlier(nullptr, Qt::red);
    Figure later(nullptr, Qt::blue);
    figure.setBounds(QRect(0, 0, 100, 100));
    figure.add(&earlier);
    figure.add(&later);
    earlier.setBounds(QRect(10, 10, 20, 20));
    later.setBounds(QRect(20, 20, 20, 20));

    const QImage image = paintedImage(QSize(100, 100), [&](QPainter *painter) {
        figure.render(painter, optionFor(QRect(0, 0, 100, 100)));
    });

    QVERIFY(isFilled(image, QRect(20, 20, 20, 20), Qt::blue));
    QCOMPARE(countPixels(image, Qt::red), 400 - 100);
}

void tst_Figure_Rendering::halfTransparentBackgroundLetsTheParentThrough()
{
    ParentFigure figure;
    Figure child(nullptr, QColor(0, 0, 255, 128));
    figure.setBackgroundColor(Qt::red);
    figure.setBounds(QRect(0, 0, 50, 50));
    figure.add(&child);
    child.setBounds(QRect(10, 10, 10, 10));

    const QImage image = paintedImage(QSize(100, 100), [&](QPainter *painter) {
        figure.render(painter, optionFor(QRect(0, 0, 100, 100)));
    });

    const QColor mixed = image.pixelColor(15, 15);
    QVERIFY(qAbs(mixed.red() - 127) <= 1);
    QVERIFY(qAbs(mixed.blue() - 128) <= 1);
    QVERIFY(isFilled(image, QRect(10, 10, 10, 10), mixed));
    QCOMPARE(image.pixelColor(9, 9), QColor(Qt::red));
}

QTEST_MAIN(tst_Figure_Rendering)
#include "tst_figure_rendering.moc"
