#include "editordriver.h"
#include "editorfixtures.h"
#include "model/Document.h"
#include "window/EditorWindow.h"

#include <figura/diagram/Diagram.h>
#include <figura/diagram/DiagramView.h>
#include <figura/shape/Shape.h>
#include <figura/view/FreeformWidget.h>

#include <QElapsedTimer>
#include <QPaintEvent>
#include <QRegularExpression>
#include <QTest>

using namespace Editor;
using namespace Editor::EditorFixtures;

/// Two thousand figures and as many connections.
class tst_EditorLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_driver.reset(); }
    void aDragPaintsOnlyWhatIsNear_data();
    void aDragPaintsOnlyWhatIsNear();
    void aDragAtAnyZoomPaintsOnlyPartOfTheView();
    void theWholeDocumentMovesAsOneStep();

private:
    std::unique_ptr<EditorDriver> m_driver;
};

namespace {

constexpr int columns = 50;
constexpr int rows = 40;
constexpr QSize cell{140, 90};

QPoint cornerOf(int index)
{
    return {20 + index % columns * cell.width(), 20 + index / columns * cell.height()};
}

Content manyFigures()
{
    Content content;
    const int count = columns * rows;
    for (int i = 0; i < count; ++i) {
        Node node = EditorFixtures::node(i + 1, QRect(cornerOf(i), QSize(90, 50)),
                                         i % 3 ? NodeKind::Rectangle : NodeKind::Ellipse);
        node.text = QString::number(i + 1);
        content.nodes << node;
    }
    for (int i = 0; i < count; ++i) {
        const int next = i % columns == columns - 1 ? (i + columns) % count : i + 1;
        content.edges << edge(count + i + 1, i + 1, next + 1);
    }
    return content;
}

/// What the canvas was asked to paint.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget *canvas) { canvas->installEventFilter(this); }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            const QRegion region = static_cast<QPaintEvent *>(event)->region();
            m_region = m_region.united(region);
            ++m_paints;
        }
        return false;
    }

    QRect area() const { return m_region.boundingRect(); }
    int paints() const { return m_paints; }
    void reset()
    {
        m_region = QRegion();
        m_paints = 0;
    }

private:
    QRegion m_region;
    int m_paints = 0;
};

struct Painted
{
    int figures = 0;
    int connections = 0;
};

// Figures and connections paint themselves when the damage meets them.
Painted countIn(Workbench &bench, const QRect &content)
{
    Painted painted;
    const auto figures = bench.diagram().getFigures();
    for (auto *figure : figures)
        painted.figures += figure->getBoundingRect().intersects(content);
    const auto connections = bench.diagram().getConnections();
    for (auto *connection : connections)
        painted.connections += connection->getBoundingRect().intersects(content);
    return painted;
}

} // namespace

void tst_EditorLoad::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!.*propagateSizeHints)")));
    m_driver = std::make_unique<EditorDriver>();
    m_driver->open(manyFigures());
}

void tst_EditorLoad::aDragPaintsOnlyWhatIsNear_data()
{
    QTest::addColumn<bool>("snaps");
    QTest::addColumn<int>("mostFigures");
    QTest::newRow("alone") << false << 12;
    QTest::newRow("with guides") << true << 80; // which reach to whatever is in line
}

void tst_EditorLoad::aDragPaintsOnlyWhatIsNear()
{
    QFETCH(bool, snaps);
    QFETCH(int, mostFigures);
    Workbench &bench = m_driver->window().bench();
    bench.options.snapToGrid = false;
    bench.options.snapToOthers = snaps;
    const QPoint start = cornerOf(102) + QPoint(45, 25);
    m_driver->press(start);
    m_driver->moveTo(start + QPoint(12, 0));
    QApplication::processEvents();
    PaintWatch watch(m_driver->canvas());
    Painted most;
    QElapsedTimer timer;
    timer.start();
    constexpr int steps = 40;

    for (int i = 1; i <= steps; ++i) {
        watch.reset();
        m_driver->moveTo(start + QPoint(12 + i, i));
        QApplication::processEvents();
        const QRect area = m_driver->canvas()->toLogical(QRectF(watch.area())).toAlignedRect();
        const Painted painted = countIn(bench, area);
        QVERIFY(watch.paints() <= 1);
        most.figures = qMax(most.figures, painted.figures);
        most.connections = qMax(most.connections, painted.connections);
    }

    qInfo("%.1f ms a step; at most %d figures and %d connections painted",
          double(timer.nsecsElapsed()) / 1e6 / steps, most.figures, most.connections);
    m_driver->release(start + QPoint(12 + steps, steps));
    QVERIFY(most.figures >= 1 && most.figures <= mostFigures);
    QVERIFY(most.connections >= 2 && most.connections <= mostFigures + 8);
    QCOMPARE(bench.history().count(), 1);
}

void tst_EditorLoad::aDragAtAnyZoomPaintsOnlyPartOfTheView()
{
    Workbench &bench = m_driver->window().bench();
    bench.view()->zoomToFit();
    QApplication::processEvents();
    const QPoint start = cornerOf(1025) + QPoint(45, 25);
    m_driver->press(start);
    m_driver->moveTo(start + QPoint(100, 100));
    QApplication::processEvents();
    PaintWatch watch(m_driver->canvas());

    m_driver->moveTo(start + QPoint(140, 120));
    QApplication::processEvents();

    const Painted painted =
        countIn(bench, m_driver->canvas()->toLogical(QRectF(watch.area())).toAlignedRect());
    m_driver->release(start + QPoint(140, 120));
    QVERIFY2(painted.figures > 0 && painted.figures < 60,
             qPrintable(QString::number(painted.figures)));
}

void tst_EditorLoad::theWholeDocumentMovesAsOneStep()
{
    Workbench &bench = m_driver->window().bench();
    bench.selection().selectAll();
    const Content before = bench.document().content();

    m_driver->drag(cornerOf(51) + QPoint(45, 25), cornerOf(51) + QPoint(75, 45));

    QCOMPARE(bench.history().count(), 1);
    QCOMPARE(bench.document().node(2000)->rect.topLeft(), cornerOf(1999) + QPoint(30, 20));
    bench.history().undo();
    QVERIFY(bench.document().content() == before);
}

QTEST_MAIN(tst_EditorLoad)
#include "tst_editor_load.moc"
