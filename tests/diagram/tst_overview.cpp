#include "view_fixtures.h"

#include <countingfigure.h>

#include <QRandomGenerator>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// A view with an overview beside it, and figures that count how often they are painted.
class OverviewScene : public ViewScene
{
public:
    OverviewScene()
    {
        overview.resize(200, 150);
        for (int i = 0; i < 20; ++i) {
            counters << new CountingFigure(nullptr, QColor::fromHsv(i * 15, 200, 200));
            diagram.add(counters.constLast(), QRect(i % 5 * 400, i / 5 * 400, 200, 200));
        }
    }

    Overview overview{&view};
    QList<CountingFigure *> counters;

    bool showBoth()
    {
        const bool isExposed = show();
        overview.show();
        return isExposed && QTest::qWaitForWindowExposed(&overview) && waitForPicture();
    }

    // Longer than changes are gathered.
    bool waitForPicture()
    {
        QTest::qWait(250);
        settle();
        return true;
    }

    int takePaints()
    {
        int paints = 0;
        for (CountingFigure *counter : std::as_const(counters)) {
            paints += counter->calls().drawFigure;
            counter->resetCalls();
        }
        return paints;
    }

    QImage shown() { return overview.grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

} // namespace

class tst_Overview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void everythingIsShownSmall();
    void repaintsOfTheViewCostNothing();
    void changesAreGathered();
    void onlyWhatChangedIsPainted();
    void changesLeaveTheWholePicture_data();
    void changesLeaveTheWholePicture();
    void frameMarksTheVisiblePart();
    void mouseMovesTheView();
    void frameIsHeldWhereItIsTaken();
    void nothingIsPaintedWhileHidden();
    void otherDiagramIsShown();
    void missingViewAndDiagramAreBlank();
    void sameViewKeepsItsPicture();
    void endlessOverviewShowsNothing();
    void otherButtonsDoNotMoveTheView();
    void mouseMovesNothingWithoutADiagram();
};

void tst_Overview::everythingIsShownSmall()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    const QImage image = scene.shown();

    for (CountingFigure *figure : std::as_const(scene.counters)) {
        const QPoint middle =
            scene.overview.fromContent(QRectF(figure->getBounds())).center().toPoint();
        if (scene.view.getViewRect().intersects(figure->getBounds()))
            continue; // behind the veil
        QCOMPARE(image.pixel(middle), figure->getBackgroundColor().rgb());
    }
    const QPointF content(700, 300);
    QCOMPARE(scene.overview.toContent(
                 scene.overview.fromContent(QRectF(content, QSizeF(0, 0))).topLeft()),
             content);
}

void tst_Overview::repaintsOfTheViewCostNothing()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    const auto countPaints = [&] {
        scene.horizontalBar()->setValue(0);
        scene.waitForPicture();
        scene.takePaints();
        for (int i = 1; i <= 10; ++i) {
            scene.horizontalBar()->setValue(i * 10);
            scene.settle();
            scene.view.viewport()->repaint();
            scene.view.getCanvas()->repaint();
        }
        scene.waitForPicture();
        return scene.takePaints();
    };

    const int with = countPaints();
    scene.overview.setView(nullptr);
    const int without = countPaints();

    QVERIFY(without > 10);
    QCOMPARE(with, without);
}

void tst_Overview::changesAreGathered()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    scene.view.hide(); // only the overview paints
    scene.takePaints();

    for (int i = 0; i < 100; ++i)
        scene.counters.at(0)->setBackgroundColor(QColor(i, 0, 0));
    scene.waitForPicture();

    QCOMPARE(scene.takePaints(), 1);
}

void tst_Overview::onlyWhatChangedIsPainted()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    scene.view.hide();
    scene.takePaints();

    scene.counters.at(7)->setBackgroundColor(Qt::black);
    scene.counters.at(12)->setBackgroundColor(Qt::black);
    scene.waitForPicture();

    QCOMPARE(scene.counters.at(7)->calls().drawFigure, 1);
    QCOMPARE(scene.counters.at(12)->calls().drawFigure, 1);
    QCOMPARE(scene.takePaints(), 2);
}

void tst_Overview::changesLeaveTheWholePicture_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 5; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_Overview::changesLeaveTheWholePicture()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    for (int i = 0; i < 10; ++i)
        scene.diagram.connect(scene.counters.at(random.bounded(20)),
                              scene.counters.at(random.bounded(20)));

    for (int round = 0; round < 4; ++round) {
        for (int i = 0; i < 3; ++i)
            scene.counters.at(random.bounded(20))
                ->setBounds(QRect(random.bounded(1900), random.bounded(1500), 150, 120));
        scene.waitForPicture();
        const QImage changed = scene.shown();
        scene.overview.setView(nullptr);
        scene.overview.setView(&scene.view);
        QVERIFY(differenceOf(changed, scene.shown(), 4).isNull());
    }
}

void tst_Overview::frameMarksTheVisiblePart()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    scene.view.centerOn(QPointF(900, 700));
    scene.settle();

    const QRect frame =
        scene.overview.fromContent(scene.view.toContent(QRectF(scene.view.viewport()->rect())))
            .toAlignedRect();
    const QColor line = scene.overview.palette().color(QPalette::Highlight);
    const QImage image = scene.shown();
    for (int x = frame.left(); x < frame.right(); ++x)
        QCOMPARE(colorAt(image, x, frame.top()), line);
    for (int y = frame.top(); y < frame.bottom(); ++y)
        QCOMPARE(colorAt(image, frame.left(), y), line);
}

void tst_Overview::mouseMovesTheView()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    const QPointF wanted = scene.overview.toContent(QPointF(150, 100));

    QTest::mouseClick(&scene.overview, Qt::LeftButton, Qt::NoModifier, QPoint(150, 100));

    const QPointF centre = scene.view.toContent(QRectF(scene.view.viewport()->rect()).center());
    QVERIFY((centre - wanted).manhattanLength() < 3);
    const QPoint before = scene.view.getViewLocation();
    QTest::mouseClick(&scene.overview, Qt::RightButton, Qt::NoModifier, QPoint(20, 20));
    QCOMPARE(scene.view.getViewLocation(), before);
}

void tst_Overview::frameIsHeldWhereItIsTaken()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    scene.view.centerOn(QPointF(900, 700));
    const QPoint before = scene.view.getViewLocation();
    const QPoint taken = scene.overview.fromContent(QRectF(820, 640, 0, 0)).topLeft().toPoint();

    QTest::mousePress(&scene.overview, Qt::LeftButton, Qt::NoModifier, taken);
    QVERIFY((scene.view.getViewLocation() - before).manhattanLength() <= 2);
    QMouseEvent move(QEvent::MouseMove, taken + QPointF(20, 10),
                     scene.overview.mapToGlobal(taken + QPointF(20, 10)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&scene.overview, &move);

    const QPointF step =
        scene.overview.toContent(QPointF(20, 10)) - scene.overview.toContent(QPointF(0, 0));
    const QPointF moved = scene.view.getViewLocation() - before;
    QVERIFY((moved - step).manhattanLength() <= 4);
}

void tst_Overview::nothingIsPaintedWhileHidden()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    scene.view.hide();
    scene.overview.hide();
    scene.takePaints();

    scene.counters.at(3)->setBackgroundColor(Qt::black);
    scene.waitForPicture();
    QCOMPARE(scene.takePaints(), 0);
    scene.overview.show();
    scene.waitForPicture();

    const QPoint middle =
        scene.overview.fromContent(QRectF(scene.counters.at(3)->getBounds())).center().toPoint();
    QCOMPARE(colorAt(scene.shown(), middle.x(), middle.y()), QColor(Qt::black));
}

void tst_Overview::otherDiagramIsShown()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    Diagram other;
    other.add(new Figure(nullptr, Qt::red), QRect(0, 0, 5000, 5000));
    scene.view.setDiagram(&other);
    scene.waitForPicture();

    const QImage image = scene.shown();

    QCOMPARE(colorAt(image, 130, 100), QColor(Qt::red));
    scene.view.setDiagram(nullptr);
}

void tst_Overview::missingViewAndDiagramAreBlank()
{
    Overview overview;
    overview.resize(100, 80);
    const QImage blank = overview.grab().toImage();
    QTest::mouseClick(&overview, Qt::LeftButton, Qt::NoModifier, QPoint(50, 40));
    DiagramView view;

    overview.setView(&view);
    QTest::mouseClick(&overview, Qt::LeftButton, Qt::NoModifier, QPoint(50, 40));

    QVERIFY(differenceOf(overview.grab().toImage(), blank).isNull());
    QCOMPARE(overview.getView(), &view);
    QCOMPARE(overview.toContent(QPointF(1, 1)), QPointF());
    QCOMPARE(overview.fromContent(QRectF(1, 1, 1, 1)), QRectF());
}

void tst_Overview::sameViewKeepsItsPicture()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    scene.takePaints();

    scene.overview.setView(&scene.view);
    scene.shown();

    QCOMPARE(scene.takePaints(), 0);
}

// No picture of that size can be made.
void tst_Overview::endlessOverviewShowsNothing()
{
    OverviewScene scene;
    Overview blank;
    const auto shownBy = [](Overview *overview) {
        QImage image(20, 20, QImage::Format_RGB32);
        overview->resize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        overview->render(&image, QPoint(), QRegion(0, 0, 20, 20));
        return image;
    };
    scene.takePaints();

    QCOMPARE(shownBy(&scene.overview), shownBy(&blank));

    QCOMPARE(scene.takePaints(), 0);
    QCOMPARE(scene.overview.toContent(QPointF(1, 1)), QPointF());
    QCOMPARE(scene.overview.fromContent(QRectF(1, 1, 1, 1)), QRectF());
}

void tst_Overview::otherButtonsDoNotMoveTheView()
{
    OverviewScene scene;
    QVERIFY(scene.showBoth());
    const QPoint before = scene.view.getViewLocation();
    QMouseEvent move(QEvent::MouseMove, QPointF(150, 100),
                     scene.overview.mapToGlobal(QPointF(150, 100)), Qt::NoButton, Qt::RightButton,
                     Qt::NoModifier);

    QCoreApplication::sendEvent(&scene.overview, &move);

    QCOMPARE(scene.view.getViewLocation(), before);
}

void tst_Overview::mouseMovesNothingWithoutADiagram()
{
    DiagramView view;
    view.resize(100, 80);
    Overview overview(&view);
    QMouseEvent move(QEvent::MouseMove, QPointF(30, 20), overview.mapToGlobal(QPointF(30, 20)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);

    QCoreApplication::sendEvent(&overview, &move);
    QCOMPARE(view.getViewLocation(), QPoint(0, 0));
    overview.setView(nullptr);
    QCoreApplication::sendEvent(&overview, &move);

    QCOMPARE(view.getViewLocation(), QPoint(0, 0));
}

QTEST_MAIN(tst_Overview)
#include "tst_overview.moc"
