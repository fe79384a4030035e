#include "subject.h"

#include <QGuiApplication>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

constexpr double scales[] = {0.1, 0.33, 0.5, 0.75, 1.0, 1.1, 1.25, 1.5, 2.0, 3.0, 4.0, 7.3};

enum Extra { None, Grid, FocusFrame, Band, ElasticBand };
constexpr int extraCount = 5;

const char *const extraNames[] = {"plain", "grid", "focus frame", "band", "elastic band"};

// What the whole view shows besides the figures.
void addExtra(PixelStage &stage, int extra)
{
    stage.pane.setSnapSize(stage.units(9));
    stage.pane.setDrawGrid(extra == Grid);
    stage.viewer.setHighlightStyle(extra == Band ? 1 : 0);
    stage.viewer.setHighlighted(extra == FocusFrame || extra == Band);
    if (extra == ElasticBand)
        stage.viewer.elasticBand() = stage.units(50, 30, 90, 70);
    // The elastic band is a variable that the application changes: it asks for the repaint.
    stage.viewer.update();
}

void scroll(PixelStage &stage, int dx, int dy)
{
    const QPoint location = stage.viewer.getViewLocation();
    stage.viewer.setViewLocation(location + QPoint(stage.units(dx), stage.units(dy)));
}

QList<Kind> allKinds()
{
    return shapeKinds() + contentKinds() + polylineKinds() + connectionKinds() + containerKinds();
}

} // namespace

class tst_ViewPixels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void screenIsWhatAFullRepaintGives_data();
    void screenIsWhatAFullRepaintGives();
};

// Every kind at every scale; the other circumstances take turns, so that each meets each. With
// several device pixels to a unit, where there is more to compare, at every second scale.
void tst_ViewPixels::screenIsWhatAFullRepaintGives_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("lineWidth");
    QTest::addColumn<bool>("antialias");
    QTest::addColumn<bool>("scrolled");
    QTest::addColumn<int>("extra");

    const QList<Kind> kinds = allKinds();
    const bool isSparse = qGuiApp->devicePixelRatio() != 1.0;
    int row = -1;
    for (int kind = 0; kind < kinds.size(); ++kind) {
        for (double scale : scales) {
            ++row;
            if (isSparse && (row + kind) % 2)
                continue;
            const int lineWidth = 1 + (row * 5 + row / 9) % 9;
            const bool antialias = (row + row / 12) % 2;
            const bool scrolled = (row / 2 + row / 24) % 2;
            const int extra = (row + row / 5) % extraCount;
            QTest::addRow("%s, scale %g, width %d%s%s, %s", kinds[kind].name, scale, lineWidth,
                          antialias ? ", smooth" : "", scrolled ? ", scrolled" : "",
                          extraNames[extra])
                << kind << scale << lineWidth << antialias << scrolled << extra;
        }
    }
}

void tst_ViewPixels::screenIsWhatAFullRepaintGives()
{
    QFETCH(int, kind);
    QFETCH(double, scale);
    QFETCH(int, lineWidth);
    QFETCH(bool, antialias);
    QFETCH(bool, scrolled);
    QFETCH(int, extra);
    PixelStage stage;
    stage.stage.setAntialias(antialias);
    QVERIFY(stage.show(scale, scrolled ? QPoint(-3, -2) : QPoint(0, 0)));
    addExtra(stage, extra);
    if (scrolled)
        scroll(stage, 11, 7);

    Subject subject{stage, lineWidth, nullptr, {}};
    allKinds()[kind].build(subject);
    subject.steps.prepend({"appears", [] {}});

    for (const Subject::Step &step : std::as_const(subject.steps)) {
        step.take();
        const QString stale = stage.stalePixels();
        QVERIFY2(stale.isEmpty(), qPrintable(QString::fromUtf8(step.name + ": ") + stale));
    }
}

QTEST_MAIN(tst_ViewPixels)
#include "tst_view_pixels.moc"
