#include "scene.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/layout/XYLayout.h>

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class HookLayout : public XYLayout
{
public:
    int layouts = 0;
    std::function<void()> onLayout;

protected:
    bool performLayout(const QRect &clientArea) override
    {
        ++layouts;
        if (onLayout)
            onLayout();
        return XYLayout::performLayout(clientArea);
    }
};

class HookFigure : public Figure
{
public:
    HookFigure() { setLayoutManager(&layout); }

    HookLayout layout;
};

// Invalid again as soon as it has been validated.
class RestlessFigure : public Figure
{
public:
    int validations = 0;

    void validate() override
    {
        ++validations;
        Figure::validate();
        revalidate();
        repaint();
    }
};

void turnEvents()
{
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents();
}

// A layer "wires" below that of the figures: in a pass that validates both, the wires come first.
class Stage : public Scene
{
public:
    Stage()
    {
        pane.addLayerBeneath(&wires, QStringLiteral("wires"), &layer);
        wires.add(&low, QRect(0, 0, 50, 50));
        layer.add(&high, QRect(60, 0, 200, 200));
        isShown = show();
    }

    // Lays the upper figure out in a pass of its own, which is over when this returns.
    void passOverHigh()
    {
        high.revalidate();
        viewer.getUpdateManager()->performUpdate();
    }

    FreeformLayer wires;
    HookFigure low;
    HookFigure high;
    bool isShown = false;
};

// What the layout of the upper figure moves, a fixed figure, and the connection between both.
struct Wired
{
    explicit Wired(Stage &stage, FreeformLayer &layer)
    {
        stage.high.add(&moved, QRect(10, 10, 20, 20));
        stage.layer.add(&fixed, QRect(10, 250, 20, 20));
        connection.setSourceAnchor(new ChopboxAnchor(&moved, &moved));
        connection.setTargetAnchor(new ChopboxAnchor(&fixed, &fixed));
        connection.setEnabledFGColor(Qt::red);
        connection.setLineWidth(3);
        layer.add(&connection, QVariant(), 0);
    }

    QPoint wantedStart() const
    {
        return connection.getSourceAnchor()->getLocation(
            connection.getTargetAnchor()->getReferencePoint());
    }

    Figure moved{nullptr, Qt::blue};
    Figure fixed{nullptr, Qt::green};
    PolylineConnection connection;
};

} // namespace

class tst_ViewSecondTurn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void connectionMovedByALayoutIsRoutedAndShownLater_data();
    void connectionMovedByALayoutIsRoutedAndShownLater();
    void droppedFigureIsNotInTheQueue();
    void droppedFigureRevalidatesOnce();
    void figureThatIsStillToComeNeedsNoSecondTurn();
    void figureThatIsValidByThenIsLeftAlone();
    void figureThatIsValidByThenMayStillNeedATurn();
    void figureDestroyedByThenIsForgotten();
    void figureDestroyedInThePassThatItIsLateForIsForgotten_data();
    void figureDestroyedInThePassThatItIsLateForIsForgotten();
    void widgetDestroyedByThenDoesNothing();
    void passWithoutAWidgetValidatesAndNoMore();
    void viewerWithoutUpdateManagerByThenDoesNothing();
    void layoutThatInvalidatesItselfComesToRest();
    void figureThatIsNeverValidHasOneSecondTurnForEachPass();
    void layoutsThatInvalidateEachOtherComeToRest();
};

void tst_ViewSecondTurn::connectionMovedByALayoutIsRoutedAndShownLater_data()
{
    QTest::addColumn<bool>("sameLayer");
    QTest::newRow("in another layer") << false;
    QTest::newRow("in the same layer") << true;
}

void tst_ViewSecondTurn::connectionMovedByALayoutIsRoutedAndShownLater()
{
    QFETCH(bool, sameLayer);
    Stage stage;
    Wired wired(stage, sameLayer ? stage.layer : stage.wires);
    QVERIFY(stage.isShown);
    settle(&stage.viewer);
    turnEvents();

    stage.high.layout.onLayout = [&] {
        stage.high.layout.setConstraint(&wired.moved, QRect(150, 10, 20, 20));
    };
    stage.high.revalidate();
    stage.high.repaint();
    turnEvents();

    QCOMPARE(wired.connection.getStart(), wired.wantedStart());
    QVERIFY(wired.connection.getFlag(Figure::FLAG_VALID));
    const QImage screen = stage.viewer.screen()->grabWindow(stage.viewer.winId()).toImage();
    const QPoint middle =
        stage.viewer.fromContent((wired.connection.getStart() + wired.connection.getEnd()) / 2);
    QCOMPARE(screen.pixelColor(middle), QColor(Qt::red));
}

void tst_ViewSecondTurn::droppedFigureIsNotInTheQueue()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] { stage.low.revalidate(); };

    stage.passOverHigh();
    QVERIFY(!stage.wires.getFlag(Figure::FLAG_VALID));
    QSignalSpy passes(stage.viewer.getUpdateManager(), &UpdateManager::aboutToValidate);
    stage.viewer.getUpdateManager()->performUpdate();

    QCOMPARE(passes.count(), 0);
}

void tst_ViewSecondTurn::droppedFigureRevalidatesOnce()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] { stage.low.revalidate(); };
    stage.passOverHigh();
    stage.low.layout.layouts = 0;
    QSignalSpy passes(stage.viewer.getUpdateManager(), &UpdateManager::aboutToValidate);

    turnEvents();

    QCOMPARE(stage.low.layout.layouts, 1);
    QCOMPARE(passes.count(), 1);
    QVERIFY(stage.low.getFlag(Figure::FLAG_VALID));
    QVERIFY(stage.wires.getFlag(Figure::FLAG_VALID));
}

void tst_ViewSecondTurn::figureThatIsStillToComeNeedsNoSecondTurn()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] { stage.low.revalidate(); };

    stage.high.revalidate();
    stage.low.revalidate();
    stage.low.layout.layouts = 0;
    stage.viewer.getUpdateManager()->performUpdate();
    QSignalSpy passes(stage.viewer.getUpdateManager(), &UpdateManager::aboutToValidate);
    turnEvents();

    QCOMPARE(stage.low.layout.layouts, 1);
    QCOMPARE(passes.count(), 0);
}

void tst_ViewSecondTurn::figureThatIsValidByThenIsLeftAlone()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] { stage.low.revalidate(); };
    stage.passOverHigh();
    stage.pane.validate();
    stage.wires.validate();
    stage.low.layout.layouts = 0;
    QSignalSpy passes(stage.viewer.getUpdateManager(), &UpdateManager::aboutToValidate);

    turnEvents();

    QCOMPARE(stage.low.layout.layouts, 0);
    QCOMPARE(passes.count(), 0);
}

void tst_ViewSecondTurn::figureThatIsValidByThenMayStillNeedATurn()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] { stage.low.revalidate(); };
    stage.passOverHigh();
    stage.pane.validate();
    stage.wires.validate();

    stage.high.revalidate(); // so that the pass of the second turn calls for the lower one again
    turnEvents();

    QVERIFY(stage.low.getFlag(Figure::FLAG_VALID));
    QVERIFY(stage.wires.getFlag(Figure::FLAG_VALID));
}

void tst_ViewSecondTurn::figureDestroyedByThenIsForgotten()
{
    Stage stage;
    QVERIFY(stage.isShown);
    auto late = std::make_unique<FreeformLayer>(nullptr);
    stage.pane.addLayerBeneath(late.get(), QStringLiteral("late"), &stage.wires);
    turnEvents();
    stage.high.layout.onLayout = [&] {
        if (late)
            late->revalidate();
    };
    stage.passOverHigh();

    late.reset();
    stage.high.layout.layouts = 0;
    turnEvents();

    QCOMPARE(stage.high.layout.layouts, 0);
}

void tst_ViewSecondTurn::figureDestroyedInThePassThatItIsLateForIsForgotten_data()
{
    QTest::addColumn<bool>("isLayer");
    QTest::newRow("a layer") << true;
    QTest::newRow("a figure in the layer that is validated") << false;
}

void tst_ViewSecondTurn::figureDestroyedInThePassThatItIsLateForIsForgotten()
{
    QFETCH(bool, isLayer);
    Stage stage;
    QVERIFY(stage.isShown);
    auto layer = std::make_unique<FreeformLayer>(nullptr);
    auto late = isLayer ? std::unique_ptr<Figure>() : std::make_unique<Figure>();
    if (isLayer) {
        stage.pane.addLayerBeneath(layer.get(), QStringLiteral("late"), &stage.wires);
        late = std::move(layer);
    } else {
        stage.layer.add(late.get(), QRect(0, 100, 20, 20), 0);
    }
    settle(&stage.viewer);
    turnEvents();
    stage.high.layout.onLayout = [&] {
        if (!late)
            return;
        late->revalidate();
        late.reset();
    };
    stage.high.layout.layouts = 0;

    stage.passOverHigh();
    turnEvents();

    QVERIFY(!late);
    QVERIFY(stage.high.layout.layouts > 0);
    QVERIFY(stage.high.getFlag(Figure::FLAG_VALID));
}

void tst_ViewSecondTurn::widgetDestroyedByThenDoesNothing()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] { stage.low.revalidate(); };
    stage.passOverHigh();
    stage.low.layout.layouts = 0;

    delete stage.widget();
    turnEvents();

    QCOMPARE(stage.low.layout.layouts, 0);
}

void tst_ViewSecondTurn::passWithoutAWidgetValidatesAndNoMore()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] { stage.low.revalidate(); };
    settle(&stage.viewer);
    delete stage.widget();
    stage.high.layout.layouts = 0;
    stage.low.layout.layouts = 0;

    stage.high.invalidate();
    stage.viewer.getUpdateManager()->addInvalidFigure(&stage.high);
    stage.viewer.getUpdateManager()->performUpdate();
    turnEvents();

    QCOMPARE(stage.high.layout.layouts, 1);
    QCOMPARE(stage.low.layout.layouts, 0);
}

void tst_ViewSecondTurn::viewerWithoutUpdateManagerByThenDoesNothing()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] { stage.low.revalidate(); };
    stage.passOverHigh();
    stage.low.layout.layouts = 0;

    delete stage.viewer.getUpdateManager();
    turnEvents();

    QCOMPARE(stage.low.layout.layouts, 0);
}

void tst_ViewSecondTurn::layoutThatInvalidatesItselfComesToRest()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] {
        stage.high.revalidate();
        stage.high.repaint();
    };
    stage.high.layout.layouts = 0;

    stage.high.revalidate();
    stage.high.repaint();
    turnEvents();
    const int layouts = stage.high.layout.layouts;
    turnEvents();

    QVERIFY(layouts >= 1);
    QVERIFY2(layouts <= 2, qPrintable(QString::number(layouts)));
    QCOMPARE(stage.high.layout.layouts, layouts);
}

void tst_ViewSecondTurn::figureThatIsNeverValidHasOneSecondTurnForEachPass()
{
    Stage stage;
    RestlessFigure restless;
    stage.layer.add(&restless, QRect(0, 100, 20, 20));
    QVERIFY(stage.isShown);
    settle(&stage.viewer);
    turnEvents();

    for (int pass = 0; pass < 3; ++pass) {
        restless.validations = 0;
        stage.passOverHigh();
        QCOMPARE(restless.validations, 1);
        turnEvents();
        QCOMPARE(restless.validations, 2);
    }
}

void tst_ViewSecondTurn::layoutsThatInvalidateEachOtherComeToRest()
{
    Stage stage;
    QVERIFY(stage.isShown);
    stage.high.layout.onLayout = [&] { stage.low.revalidate(); };
    stage.low.layout.onLayout = [&] { stage.high.revalidate(); };
    stage.high.layout.layouts = 0;
    stage.low.layout.layouts = 0;

    stage.passOverHigh();
    turnEvents();
    const int layouts = stage.high.layout.layouts + stage.low.layout.layouts;
    turnEvents();

    QVERIFY2(layouts <= 4, qPrintable(QString::number(layouts)));
    QCOMPARE(stage.high.layout.layouts + stage.low.layout.layouts, layouts);
}

QTEST_MAIN(tst_ViewSecondTurn)
#include "tst_view_secondturn.moc"
