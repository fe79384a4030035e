#include "figure/workcounters_p.h"

#include <figura/figure/Border.h>
#include <figura/geometry/Insets.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Rectangle.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/UpdateManager.h>

#include <QPainter>
#include <QPaintEvent>
#include <QRandomGenerator>
#include <QScreen>
#include <QStyleOptionViewItem>
#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora::Figura;

namespace {

// What the widget is asked to paint.
class PaintRecorder : public QObject
{
public:
    explicit PaintRecorder(QWidget *widget) { widget->installEventFilter(this); }

    QList<QRegion> regions;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            regions.append(static_cast<QPaintEvent *>(event)->region());
        return false;
    }
};

// A shown viewer with a field of rectangles, far larger than what is visible.
class Field
{
public:
    static constexpr int columns = 40;
    static constexpr int rows = 40;

    Field()
    {
        viewer.setFrameShape(QFrame::NoFrame);
        viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        viewer.resize(400, 300);
        pane.addLayer(&layer, QStringLiteral("figures"));
        viewer.setContent(&pane);
        for (int i = 0; i < columns * rows; ++i)
            add(QRect(i % columns * 50, i / columns * 40, 40, 30), i);
        QPoint corner(0, 0);
        viewer.setScale(1.0, &corner);
        viewer.show();
        isShown = QTest::qWaitForWindowExposed(&viewer);
        settle();
    }

    void settle()
    {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }

    Rectangle &at(int column, int row) { return *boxes[row * columns + column]; }

    QImage onScreen()
    {
        settle();
        const QPixmap pixels = viewer.screen()->grabWindow(viewer.winId());
        return pixels.toImage().convertToFormat(QImage::Format_RGB32);
    }

    QImage repainted() { return viewer.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    FreeformLayeredPane pane;
    FreeformLayer layer;
    FreeformViewer viewer;
    std::vector<std::unique_ptr<Rectangle>> boxes;
    bool isShown = false;

private:
    void add(const QRect &rect, int index)
    {
        boxes.push_back(std::make_unique<Rectangle>(nullptr));
        boxes.back()->setEnabledFGColor(Qt::black);
        boxes.back()->setEnabledBGColor(QColor::fromHsv(index * 37 % 360, 100, 230));
        layer.add(boxes.back().get(), rect);
        boxes.back()->rebuildPath();
    }
};

// A frame outside the figure.
class OuterBorder : public Border
{
public:
    static constexpr int width = 8;

    OuterBorder() { setInsets(Insets(-width, -width, -width, -width)); }

    void render(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        const QRect outer = option.rect.adjusted(-width, -width, width, width);
        painter->setClipRegion(QRegion(outer) - option.rect);
        painter->fillRect(outer, Qt::darkRed);
    }
};

// Paints a widget into the air while it is painted itself.
class NestingFigure : public Figure
{
public:
    QWidget *inner = nullptr;
    mutable int paints = 0;

protected:
    void drawFigure(QPainter *, const QStyleOptionViewItem &) const override
    {
        ++paints;
        inner->grab();
    }
};

// Draws others into a picture while it is painted itself.
class DrawingFigure : public Figure
{
public:
    Figure *others = nullptr;
    mutable QImage drawn;

    QImage draw() const
    {
        QImage image(200, 200, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = image.rect();
        others->render(&painter, option);
        return image;
    }

protected:
    void drawFigure(QPainter *, const QStyleOptionViewItem &) const override { drawn = draw(); }
};

} // namespace

class tst_View_Damage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void changeOutsideTheViewportAsksForNoPaint();
    void fewChangesArePaintedEachByItself_data();
    void fewChangesArePaintedEachByItself();
    void manyChangesArePaintedAsOneRectangle_data();
    void manyChangesArePaintedAsOneRectangle();
    void changeByTheUpdateOfAPaintIsPaintedOnlyOnce_data();
    void changeByTheUpdateOfAPaintIsPaintedOnlyOnce();
    void whatLiesBetweenTwoFarChangesIsNotPainted();
    void whatLiesBetweenIsNotPaintedAfterAnotherViewerWasPainted();
    void whatIsDrawnElsewhereMeanwhileIsComplete();
    void figureIsPaintedAgainWhereOnlyItsBorderReaches();
    void whatABorderHasLeftIsDamagedOnceMore();
    void gridIsDamagedAsFarAsItBeginsBeforeItsPane();
    void recoloringOneOfManyTurnsToFewFigures();
    void movingOneOfManyTurnsToFewFigures();
    void manyChangesLeaveTheRightPixels_data();
    void manyChangesLeaveTheRightPixels();
};

void tst_View_Damage::changeOutsideTheViewportAsksForNoPaint()
{
    Field field;
    QVERIFY(field.isShown);
    const PaintRecorder recorder(field.viewer.widget());

    field.at(30, 30).setEnabledBGColor(Qt::red);
    field.settle();
    QVERIFY(recorder.regions.isEmpty());

    field.viewer.setViewLocation(QPoint(1400, 1150), false);
    QCOMPARE(field.onScreen(), field.repainted());
}

void tst_View_Damage::fewChangesArePaintedEachByItself_data()
{
    QTest::addColumn<int>("outOfSight");
    QTest::newRow("all in sight") << 0;
    QTest::newRow("beside many that are out of sight") << 40;
}

void tst_View_Damage::fewChangesArePaintedEachByItself()
{
    QFETCH(int, outOfSight);
    Field field;
    QVERIFY(field.isShown);
    const PaintRecorder recorder(field.viewer.widget());

    for (int i = 0; i < outOfSight; ++i)
        field.at(i, 30).setEnabledBGColor(Qt::red);
    field.at(0, 0).setEnabledBGColor(Qt::red);
    field.at(5, 5).setEnabledBGColor(Qt::red);
    field.settle();

    QCOMPARE(recorder.regions.size(), 1);
    QCOMPARE(recorder.regions.first().rectCount(), 2);
}

void tst_View_Damage::manyChangesArePaintedAsOneRectangle_data()
{
    QTest::addColumn<int>("changes");
    QTest::addColumn<int>("rects");
    QTest::newRow("the last that are told apart") << 32 << 32;
    QTest::newRow("the first that are not") << 33 << 1;
    QTest::newRow("more") << 42 << 1;
}

void tst_View_Damage::manyChangesArePaintedAsOneRectangle()
{
    QFETCH(int, changes);
    Field field;
    QVERIFY(field.isShown);
    const PaintRecorder recorder(field.viewer.widget());

    for (int i = 0; i < changes; ++i)
        field.at(i % 7, i / 7).setEnabledBGColor(Qt::red);
    field.settle();

    QCOMPARE(recorder.regions.size(), 1);
    QTEST(recorder.regions.first().rectCount(), "rects");
}

void tst_View_Damage::changeByTheUpdateOfAPaintIsPaintedOnlyOnce_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("paints");
    QTest::newRow("where the paint is still to come") << 0 << 1;
    QTest::newRow("where it does not come") << 5 << 2;
}

void tst_View_Damage::changeByTheUpdateOfAPaintIsPaintedOnlyOnce()
{
    QFETCH(int, column);
    Field field;
    QVERIFY(field.isShown);
    connect(
        field.viewer.getUpdateManager(), &UpdateManager::aboutToValidate, this,
        [&]() { field.at(column, 0).setEnabledBGColor(Qt::red); }, Qt::SingleShotConnection);
    const PaintRecorder recorder(field.viewer.widget());

    field.at(0, 0).revalidate();
    field.at(0, 0).repaint();
    field.settle();

    QTEST(int(recorder.regions.size()), "paints");
    QCOMPARE(field.onScreen(), field.repainted());
}

void tst_View_Damage::whatLiesBetweenTwoFarChangesIsNotPainted()
{
    Field field;
    QVERIFY(field.isShown);
    const long before = workCounters().painted;

    field.at(0, 0).setEnabledBGColor(Qt::red);
    field.at(6, 6).setEnabledBGColor(Qt::red);
    field.settle();

    // The pane, the layer, and the two with those that touch them.
    const long painted = workCounters().painted - before;
    QVERIFY2(painted >= 4 && painted <= 12, qPrintable(QString::number(painted)));
}

void tst_View_Damage::whatLiesBetweenIsNotPaintedAfterAnotherViewerWasPainted()
{
    FreeformViewer inner;
    FreeformLayeredPane innerPane;
    inner.setContent(&innerPane);
    Field field;
    FreeformLayer beneath;
    NestingFigure nesting;
    nesting.inner = inner.widget();
    beneath.add(&nesting, QRect(0, 0, 10, 10));
    field.pane.addLayerBeneath(&beneath, QStringLiteral("beneath"), &field.layer);
    beneath.setBounds(field.layer.getBounds());
    field.settle();
    QVERIFY(field.isShown);
    nesting.paints = 0;
    const long before = workCounters().painted;

    field.at(0, 0).setEnabledBGColor(Qt::red);
    field.at(6, 6).setEnabledBGColor(Qt::red);
    field.settle();

    QCOMPARE(nesting.paints, 1);
    // As without the other viewer, and its own.
    const long painted = workCounters().painted - before;
    QVERIFY2(painted >= 5 && painted <= 16, qPrintable(QString::number(painted)));
}

// The damage is that of the widget.
void tst_View_Damage::whatIsDrawnElsewhereMeanwhileIsComplete()
{
    Figure others;
    XYLayout layout;
    others.setLayoutManager(&layout);
    others.setBounds(QRect(0, 0, 200, 200));
    std::vector<std::unique_ptr<Rectangle>> squares;
    for (int i = 0; i < 100; ++i) {
        squares.push_back(std::make_unique<Rectangle>(nullptr));
        squares.back()->setEnabledFGColor(Qt::blue);
        layout.add(squares.back().get(), QRect(i % 10 * 20, i / 10 * 20, 15, 15));
    }
    others.validate();
    DrawingFigure drawing;
    drawing.others = &others;
    Field field;
    QVERIFY(field.isShown);
    field.layer.add(&drawing, QRect(45, 0, 4, 4));
    field.settle();
    drawing.drawn = QImage();

    drawing.repaint();
    field.settle();

    QCOMPARE(drawing.drawn, drawing.draw());
}

void tst_View_Damage::figureIsPaintedAgainWhereOnlyItsBorderReaches()
{
    OuterBorder border;
    Field field;
    QVERIFY(field.isShown);
    field.at(3, 3).setBorder(&border);
    field.at(3, 3).repaint();
    field.settle();
    const long before = workCounters().painted;

    field.layer.repaint(QRect(144, 130, 2, 2));
    field.settle();

    // The pane, the layer, and the figure that begins at 150.
    QCOMPARE(workCounters().painted - before, 3L);
}

void tst_View_Damage::whatABorderHasLeftIsDamagedOnceMore()
{
    OuterBorder border;
    Field field;
    QVERIFY(field.isShown);
    Rectangle &box = field.at(3, 3);
    box.setBorder(&border);
    box.repaint();
    field.settle();
    PaintRecorder recorder(field.viewer.widget());
    const auto damagedBy = [&](const QRect &rect) {
        recorder.regions.clear();
        box.repaint(rect);
        field.settle();
        return recorder.regions.value(0).boundingRect().size();
    };
    const QSize more(2 * OuterBorder::width, 2 * OuterBorder::width);
    box.setBorder(nullptr);

    QCOMPARE(damagedBy(QRect(160, 130, 1, 1)), QSize(1, 1) + more);
    QCOMPARE(damagedBy(box.getBounds()), QSize(40, 30) + more);
    QCOMPARE(damagedBy(box.getBounds()), QSize(42, 32));
}

void tst_View_Damage::gridIsDamagedAsFarAsItBeginsBeforeItsPane()
{
    Field field;
    QVERIFY(field.isShown);
    field.pane.setFreeformBounds(QRect(88, 79, 100, 80));
    field.pane.setSnapSize(10);
    field.pane.setDrawGrid(true);
    field.settle();
    const PaintRecorder recorder(field.viewer.widget());

    field.pane.repaint();
    field.settle();

    // Main lines lie 50 apart: those before the corner at 50, which is 38 away.
    QCOMPARE(recorder.regions.size(), 1);
    QCOMPARE(recorder.regions.first().boundingRect().size(), QSize(100 + 2 * 38, 80 + 2 * 38));
}

void tst_View_Damage::recoloringOneOfManyTurnsToFewFigures()
{
    Field field;
    QVERIFY(field.isShown);
    const WorkCounters before = workCounters();

    field.at(3, 3).setEnabledBGColor(Qt::red);
    field.settle();

    QVERIFY(workCounters().visited > before.visited);
    QVERIFY2(workCounters().visited - before.visited <= 50,
             qPrintable(QString::number(workCounters().visited - before.visited)));
    QCOMPARE(workCounters().laidOut, before.laidOut);
}

void tst_View_Damage::movingOneOfManyTurnsToFewFigures()
{
    Field field;
    QVERIFY(field.isShown);
    const WorkCounters before = workCounters();

    field.at(3, 3).setBounds(QRect(155, 122, 40, 30));
    field.at(3, 3).revalidate();
    field.settle();

    QVERIFY(workCounters().laidOut > before.laidOut);
    QVERIFY2(workCounters().visited - before.visited <= 100,
             qPrintable(QString::number(workCounters().visited - before.visited)));
}

void tst_View_Damage::manyChangesLeaveTheRightPixels_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<double>("scale");
    for (quint32 seed = 1; seed <= 3; ++seed) {
        QTest::addRow("seed %u, as it is", seed) << seed << 1.0;
        QTest::addRow("seed %u, doubled", seed) << seed << 2.0;
    }
}

void tst_View_Damage::manyChangesLeaveTheRightPixels()
{
    QFETCH(quint32, seed);
    QFETCH(double, scale);
    Field field;
    QVERIFY(field.isShown);
    QRandomGenerator random(seed);
    field.viewer.setScale(scale, nullptr);
    field.viewer.setViewLocation(QPoint(300, 200), false);

    for (int round = 0; round < 20; ++round) {
        const int changes = random.bounded(1, 60);
        for (int i = 0; i < changes; ++i) {
            Rectangle &box = field.at(random.bounded(4, 16), random.bounded(3, 14));
            const QPoint step(random.bounded(-30, 30), random.bounded(-30, 30));
            if (random.bounded(3) == 0)
                box.setVisible(!box.isVisible());
            else if (random.bounded(3) == 0)
                box.setEnabledBGColor(QColor::fromHsv(random.bounded(360), 200, 200));
            else
                box.setBounds(box.getBounds().translated(step));
        }
        if (random.bounded(4) == 0)
            field.viewer.setViewLocation(QPoint(random.bounded(200, 400), random.bounded(100, 300)),
                                         false);
        const QImage screen = field.onScreen();
        QCOMPARE(screen, field.repainted());
    }
}

QTEST_MAIN(tst_View_Damage)
#include "tst_view_damage.moc"
