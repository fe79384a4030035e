#include "scene.h"

#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/Polyline.h>
#include <figura/figure/SimpleBorder.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Polygon.h>

#include <countingfigure.h>

#include <QPainter>
#include <QRandomGenerator>
#include <QScreen>
#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// A shown viewer and what stands on its screen.
class Screen
{
public:
    Screen()
    {
        scene.widget()->setProperty("backgroundColor", QColor(250, 250, 240));
        scene.pane.addLayer(&upper, QStringLiteral("upper"));
        isShown = scene.show();
    }

    Scene scene;
    FreeformLayer upper;
    bool isShown = false;

    // Only what was asked for is painted.
    QImage incremental()
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
            QEvent update(QEvent::UpdateRequest);
            QCoreApplication::sendEvent(&scene.viewer, &update);
        }
        const QPixmap pixels = scene.viewer.screen()->grabWindow(scene.viewer.winId());
        return pixels.toImage().convertToFormat(QImage::Format_RGB32);
    }

    QImage full() { return scene.viewer.grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

// Has its own idea of how wide the viewer is to be, and says so while it is being resized.
class Widener : public QObject
{
public:
    explicit Widener(QWidget &window)
        : m_window(window)
    {
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize && m_window.width() < leastWidth)
            m_window.resize(leastWidth, m_window.height());
        return false;
    }

private:
    static constexpr int leastWidth = 260;
    QWidget &m_window;
};

// Figures of all sorts that a random hand moves about.
class Crowd
{
public:
    Crowd(Screen &screen, quint32 seed)
        : m_screen(screen)
        , m_random(seed)
    {
    }

    void step()
    {
        switch (number(0, 9)) {
        case 0:
        case 1:
            add();
            break;
        case 2:
            remove();
            break;
        case 3:
            withAny([this](Figure *f) { f->setVisible(!f->isVisible() || number(0, 1)); });
            break;
        case 4:
            withAny([this](Figure *f) { f->setBackgroundColor(color()); });
            break;
        case 5:
            withAny([this](Figure *f) { constrain(f, rect()); });
            break;
        case 6:
            withAny([this](Figure *f) { f->highlightClientArea(!f->isClientAreaHighlighted()); });
            break;
        case 7:
            addTo(any());
            break;
        default:
            withAny([this](Figure *f) { f->setBounds(rect()); });
        }
    }

private:
    int number(int from, int to) { return m_random.bounded(from, to + 1); }
    QRect rect() { return {number(-40, 380), number(-40, 280), number(1, 90), number(1, 90)}; }
    QColor color() { return QColor::fromHsv(number(0, 359), 200, 220, number(0, 2) ? 255 : 120); }

    Figure *any()
    {
        return m_figures.empty() ? nullptr : m_figures[number(0, int(m_figures.size()) - 1)].get();
    }

    template<class Change>
    void withAny(Change change)
    {
        if (Figure *figure = any())
            change(figure);
    }

    Figure *make()
    {
        auto figure = std::make_unique<Figure>(nullptr, color());
        if (number(0, 1))
            figure->setBorder(new SimpleBorder(figure.get(), 1));
        if (number(0, 1))
            figure->setLayoutManager(new XYLayout(figure.get()));
        m_figures.push_back(std::move(figure));
        return m_figures.back().get();
    }

    void add()
    {
        FreeformLayer &layer = number(0, 1) ? m_screen.scene.layer : m_screen.upper;
        layer.add(make(), rect(), number(-1, 3));
    }

    void addTo(Figure *parent)
    {
        if (parent && parent->getLayoutManager())
            parent->add(make(),
                        QRect(number(-5, 60), number(-5, 60), number(1, 40), number(1, 40)));
    }

    void constrain(Figure *figure, const QRect &constraint)
    {
        figure->getParentFigure()->getLayoutManager()->setConstraint(figure, constraint);
    }

    // Only leaves, so that no child is left behind without a parent.
    void remove()
    {
        Figure *figure = any();
        if (!figure || !figure->getParentFigure() ||
            (figure->getLayoutManager() && figure->childFigureCount() > 0))
            return;
        figure->getParentFigure()->remove(figure);
        std::erase_if(m_figures, [figure](const auto &owned) { return owned.get() == figure; });
    }

    Screen &m_screen;
    QRandomGenerator m_random;
    std::vector<std::unique_ptr<Figure>> m_figures;
};

QRect differenceOf(const QImage &a, const QImage &b)
{
    QRect difference;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                difference |= QRect(x, y, 1, 1);
        }
    }
    return difference;
}

} // namespace

class tst_ViewIncremental : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void changesLeaveThePixelsOfAFullRepaint_data();
    void changesLeaveThePixelsOfAFullRepaint();
    void scrolledViewLeavesThePixelsOfAFullRepaint();
    void changedGridLeavesThePixelsOfAFullRepaint();
    void gridThatBeginsBeforeItsPaneLeavesThePixelsOfAFullRepaint_data();
    void gridThatBeginsBeforeItsPaneLeavesThePixelsOfAFullRepaint();
    void cornerOfTheScrollBarsFollowsAWindowThatIsResizedTwiceAtOnce();
    void scrolledHighlightLeavesThePixelsOfAFullRepaint_data();
    void scrolledHighlightLeavesThePixelsOfAFullRepaint();
    void movedFigureLeavesNoTrailAtAnyScale_data();
    void movedFigureLeavesNoTrailAtAnyScale();
    void thinLineThatGoesLeavesNothing_data();
    void thinLineThatGoesLeavesNothing();
    void movedFigureIsPaintedWhereItWentAndGoneWhereItWas();
    void damageSmallerThanAUnitIsPaintedToo();
    void figuresOutsideTheDamageAreNotPainted();
    void childrenOutsideTheDamageAreNotPainted();
    void hiddenFigureIsNeverPainted();
    void idleViewerPaintsNothing();
};

void tst_ViewIncremental::changesLeaveThePixelsOfAFullRepaint_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 12; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_ViewIncremental::changesLeaveThePixelsOfAFullRepaint()
{
    QFETCH(quint32, seed);
    Screen screen;
    Crowd crowd(screen, seed);
    QVERIFY(screen.isShown);

    for (int round = 0; round < 25; ++round) {
        for (int i = 0; i < 4; ++i)
            crowd.step();
        const QImage incremental = screen.incremental();
        const QImage full = screen.full();
        QCOMPARE(incremental.size(), full.size());
        const QRect difference = differenceOf(incremental, full);
        QVERIFY2(difference.isNull(), qPrintable(QStringLiteral("round %1: (%2, %3) %4 x %5")
                                                     .arg(round)
                                                     .arg(difference.x())
                                                     .arg(difference.y())
                                                     .arg(difference.width())
                                                     .arg(difference.height())));
    }
}

void tst_ViewIncremental::scrolledViewLeavesThePixelsOfAFullRepaint()
{
    Screen screen;
    Crowd crowd(screen, 99);
    QVERIFY(screen.isShown);

    for (int round = 0; round < 20; ++round) {
        crowd.step();
        screen.scene.viewer.setViewLocation(QPoint(round % 7 * 13 - 30, round % 5 * 17 - 30));
        crowd.step();
        const QImage incremental = screen.incremental();
        QVERIFY(differenceOf(incremental, screen.full()).isNull());
    }
}

void tst_ViewIncremental::changedGridLeavesThePixelsOfAFullRepaint()
{
    Screen screen;
    screen.scene.addFigure(QRect(33, 44, 55, 66), Qt::red);
    QVERIFY(screen.isShown);

    for (int snapSize : {5, 7, 1, 12}) {
        screen.scene.pane.setDrawGrid(true);
        screen.scene.pane.setSnapSize(snapSize);
        const QImage incremental = screen.incremental();
        QVERIFY(differenceOf(incremental, screen.full()).isNull());
    }
    screen.scene.pane.setDrawGrid(false);
    const QImage incremental = screen.incremental();
    QVERIFY(differenceOf(incremental, screen.full()).isNull());
}

void tst_ViewIncremental::gridThatBeginsBeforeItsPaneLeavesThePixelsOfAFullRepaint_data()
{
    QTest::addColumn<int>("snapSize");
    QTest::addColumn<double>("scale");
    for (int snapSize : {2, 7, 10}) {
        for (double scale : {0.5, 1.0, 1.25, 2.0})
            QTest::addRow("snap size %d, scale %g", snapSize, scale) << snapSize << scale;
    }
}

// The first lines lie up to one spacing before a corner in the positive.
void tst_ViewIncremental::gridThatBeginsBeforeItsPaneLeavesThePixelsOfAFullRepaint()
{
    QFETCH(int, snapSize);
    QFETCH(double, scale);
    Screen screen;
    QVERIFY(screen.isShown);
    FreeformLayeredPane &pane = screen.scene.pane;
    screen.scene.addFigure(QRect(0, 0, 400, 300), Qt::transparent);
    screen.scene.viewer.setScale(scale);
    pane.setFreeformBounds(QRect(138, 89, 150, 120));
    screen.incremental();

    pane.setSnapSize(snapSize);
    pane.setDrawGrid(true);
    const QImage shown = screen.incremental();
    QVERIFY(differenceOf(shown, screen.full()).isNull());

    // Only what lies before the pane.
    const QRect inner = screen.scene.widget()->fromLogical(QRectF(pane.getBounds())).toRect();
    screen.scene.widget()->update(QRect(0, 0, inner.left(), inner.bottom()));
    screen.scene.widget()->update(QRect(0, 0, inner.right(), inner.top()));
    const QImage paintedInPart = screen.incremental();
    QVERIFY(differenceOf(paintedInPart, shown).isNull());

    pane.setDrawGrid(false);
    const QImage withoutGrid = screen.incremental();
    QVERIFY(differenceOf(withoutGrid, screen.full()).isNull());
    QVERIFY(!differenceOf(withoutGrid, shown).isNull());
}

void tst_ViewIncremental::cornerOfTheScrollBarsFollowsAWindowThatIsResizedTwiceAtOnce()
{
    Screen screen;
    QVERIFY(screen.isShown);
    FreeformViewer &viewer = screen.scene.viewer;
    viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    screen.scene.addFigure(QRect(0, 0, 900, 800), Qt::red);
    viewer.resize(300, 150);
    screen.incremental();
    Widener widener(viewer);
    viewer.viewport()->installEventFilter(&widener);

    viewer.resize(253, 120);
    viewer.repaint(); // the scroll area arranges its parts for the second size only later

    const QImage incremental = screen.incremental();
    QCOMPARE(incremental.width(), 260);
    QVERIFY(screen.scene.verticalBar()->isVisible() && screen.scene.horizontalBar()->isVisible());
    QVERIFY(differenceOf(incremental, screen.full()).isNull());
}

void tst_ViewIncremental::scrolledHighlightLeavesThePixelsOfAFullRepaint_data()
{
    QTest::addColumn<int>("highlightStyle");
    QTest::newRow("focus frame") << 0;
    QTest::newRow("rubber band") << 1;
}

// The frame belongs to the visible part, while Qt would scroll its pixels along with the rest.
void tst_ViewIncremental::scrolledHighlightLeavesThePixelsOfAFullRepaint()
{
    QFETCH(int, highlightStyle);
    Screen screen;
    screen.scene.addFigure(QRect(33, 44, 55, 66), Qt::red);
    QVERIFY(screen.isShown);
    screen.scene.viewer.setHighlightStyle(highlightStyle);
    screen.scene.viewer.setHighlighted(true);
    screen.scene.widget()->ensureViewable(QRect(0, 0, 900, 800), false, true);

    for (const QPoint &offset : {QPoint(37, 0), QPoint(37, 23), QPoint(0, 0), QPoint(300, 200)}) {
        screen.scene.scrollTo(offset);
        const QImage incremental = screen.incremental();
        QVERIFY(differenceOf(incremental, screen.full()).isNull());
    }
}

void tst_ViewIncremental::movedFigureLeavesNoTrailAtAnyScale_data()
{
    QTest::addColumn<double>("scale");
    for (double scale : {0.37, 0.5, 0.8, 1.0, 1.3, 1.75, 2.0, 3.3})
        QTest::addRow("%g", scale) << scale;
}

// At other scales than 1 units and pixels do not end together, and half of a line is outside.
void tst_ViewIncremental::movedFigureLeavesNoTrailAtAnyScale()
{
    QFETCH(double, scale);
    const QColor ground(250, 250, 240);
    Screen screen;
    QVERIFY(screen.isShown);
    Figure *figure = screen.scene.addFigure(QRect(10, 10, 23, 17), Qt::red);
    figure->setBorder(new SimpleBorder(figure, 1));
    QPoint topLeft;
    screen.scene.viewer.setScale(scale, &topLeft);
    screen.incremental();

    for (int step = 1; step <= 14; ++step) {
        figure->setBounds(QRect(10 + step * 5, 10 + step * 3 % 40, 23, 17));
        screen.incremental();
    }

    QImage image = screen.incremental();
    const QRect left = screen.scene.viewer.fromContent(figure->getBounds()).adjusted(-6, -6, 6, 6);
    QCOMPARE(image.pixelColor(left.center()), QColor(Qt::red));
    QPainter(&image).fillRect(left, ground);
    QImage empty(image.size(), image.format());
    empty.fill(ground);
    const QRect trail = differenceOf(image, empty);
    QVERIFY2(trail.isNull(), qPrintable(QStringLiteral("(%1, %2) %3 x %4")
                                            .arg(trail.x())
                                            .arg(trail.y())
                                            .arg(trail.width())
                                            .arg(trail.height())));
}

void tst_ViewIncremental::thinLineThatGoesLeavesNothing_data()
{
    QTest::addColumn<bool>("isPolygon");
    QTest::addColumn<bool>("antialias");
    QTest::addColumn<Qt::PenStyle>("style");
    for (bool isPolygon : {false, true}) {
        for (bool antialias : {false, true}) {
            for (Qt::PenStyle style : {Qt::SolidLine, Qt::DotLine})
                QTest::addRow("%s%s%s", isPolygon ? "polygon" : "polyline",
                              antialias ? ", smooth" : "", style == Qt::DotLine ? ", dotted" : "")
                    << isPolygon << antialias << style;
        }
    }
}

// Where the thinnest lines end, and where they turn sharply, Qt paints a pixel more than half of
// their width.
void tst_ViewIncremental::thinLineThatGoesLeavesNothing()
{
    QFETCH(bool, isPolygon);
    QFETCH(bool, antialias);
    QFETCH(Qt::PenStyle, style);
    Screen screen;
    QVERIFY(screen.isShown);
    ConnectionLayer layer(nullptr, false);
    layer.setAntialias(antialias);
    screen.scene.pane.addLayer(&layer, QStringLiteral("lines"));
    layer.setFreeformBounds(screen.scene.pane.getBounds());
    const std::unique_ptr<Polyline> line(isPolygon ? new Polygon(nullptr) : new Polyline(nullptr));
    line->setFill(false);
    line->setLineStyle(style);
    layer.add(line.get());
    const QImage empty = screen.incremental();
    QRandomGenerator random(3);

    for (int round = 0; round < 150; ++round) {
        QList<QPoint> points;
        for (int i = 0; i < 3; ++i)
            points.append(QPoint(random.bounded(20, 160), random.bounded(20, 50)));
        line->setLinePoints(points);
        screen.scene.viewer.update();
        QVERIFY(screen.incremental() != empty);
        line->removeAllPoints();
        const QRect left = differenceOf(screen.incremental(), empty);
        QVERIFY2(left.isNull(), qPrintable(QStringLiteral("round %1: (%2, %3) %4 x %5")
                                               .arg(round)
                                               .arg(left.x())
                                               .arg(left.y())
                                               .arg(left.width())
                                               .arg(left.height())));
    }
}

void tst_ViewIncremental::movedFigureIsPaintedWhereItWentAndGoneWhereItWas()
{
    Screen screen;
    Figure *figure = screen.scene.addFigure(QRect(10, 10, 30, 30), Qt::red);
    QVERIFY(screen.isShown);
    QCOMPARE(screen.incremental().pixelColor(10, 10), QColor(Qt::red));

    figure->setBounds(QRect(100, 120, 30, 30));

    const QImage image = screen.incremental();
    QCOMPARE(image.pixelColor(10, 10), QColor(250, 250, 240));
    QCOMPARE(image.pixelColor(39, 39), QColor(250, 250, 240));
    QCOMPARE(image.pixelColor(100, 120), QColor(Qt::red));
    QCOMPARE(image.pixelColor(129, 149), QColor(Qt::red));
    QCOMPARE(image.pixelColor(130, 150), QColor(250, 250, 240));
}

// Rounded to the nearest units it would be empty.
void tst_ViewIncremental::damageSmallerThanAUnitIsPaintedToo()
{
    Screen screen;
    CountingFigure figure(nullptr, Qt::red);
    QPoint topLeft;
    QVERIFY(screen.isShown);
    screen.scene.layer.add(&figure, QRect(0, 0, 60, 50));
    screen.scene.viewer.setScale(4, &topLeft);
    screen.incremental();

    for (int x = 220; x < 228; ++x) {
        figure.resetCalls();
        screen.scene.widget()->repaint(QRect(x, 300, 1, 1));
        QCOMPARE(figure.calls().drawFigure, 1);
    }
}

void tst_ViewIncremental::figuresOutsideTheDamageAreNotPainted()
{
    Screen screen;
    CountingFigure changed(nullptr, Qt::red);
    CountingFigure near(nullptr, Qt::green);
    CountingFigure touching(nullptr, Qt::blue);
    CountingFigure far(nullptr, Qt::yellow);
    screen.scene.layer.add(&changed, QRect(10, 10, 30, 30));
    screen.scene.layer.add(&near, QRect(30, 30, 30, 30));
    screen.scene.layer.add(&touching, QRect(40, 10, 30, 20));
    screen.upper.add(&far, QRect(200, 200, 30, 30));
    QVERIFY(screen.isShown);
    screen.incremental();
    for (CountingFigure *figure : {&changed, &near, &touching, &far})
        figure->resetCalls();

    changed.repaint();
    screen.incremental();

    QCOMPARE(changed.calls().drawFigure, 1);
    QCOMPARE(near.calls().drawFigure, 1);
    QCOMPARE(touching.calls().drawFigure, 0);
    QCOMPARE(far.calls().drawFigure, 0);
}

void tst_ViewIncremental::childrenOutsideTheDamageAreNotPainted()
{
    Screen screen;
    CountingFigure parent(nullptr, Qt::white);
    CountingFigure changed(nullptr, Qt::red);
    CountingFigure sibling(nullptr, Qt::green);
    parent.setLayoutManager(new XYLayout(&parent));
    screen.scene.layer.add(&parent, QRect(50, 50, 200, 200));
    parent.add(&changed, QRect(10, 10, 30, 30));
    parent.add(&sibling, QRect(100, 100, 30, 30));
    QVERIFY(screen.isShown);
    screen.incremental();
    parent.resetCalls();
    changed.resetCalls();
    sibling.resetCalls();

    changed.setBackgroundColor(Qt::blue);
    screen.incremental();

    QCOMPARE(parent.calls().drawFigure, 1);
    QCOMPARE(changed.calls().drawFigure, 1);
    QCOMPARE(sibling.calls().drawFigure, 0);
}

void tst_ViewIncremental::hiddenFigureIsNeverPainted()
{
    Screen screen;
    CountingFigure hidden(nullptr, Qt::red);
    screen.scene.layer.add(&hidden, QRect(10, 10, 30, 30));
    QVERIFY(screen.isShown);
    screen.incremental();

    hidden.setVisible(false);
    hidden.resetCalls();
    const QImage image = screen.incremental();

    QCOMPARE(hidden.calls().render, 0);
    QCOMPARE(image.pixelColor(15, 15), QColor(250, 250, 240));
}

void tst_ViewIncremental::idleViewerPaintsNothing()
{
    Screen screen;
    CountingFigure figure(nullptr, Qt::red);
    screen.scene.layer.add(&figure, QRect(10, 10, 30, 30));
    QVERIFY(screen.isShown);
    screen.incremental();
    figure.resetCalls();

    screen.incremental();

    QCOMPARE(figure.calls().render, 0);
}

QTEST_MAIN(tst_ViewIncremental)
#include "tst_view_incremental.moc"
