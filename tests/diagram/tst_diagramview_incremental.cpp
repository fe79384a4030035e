#include "view_fixtures.h"

#include <countingfigure.h>
#include <screenwatch.h>

#include <QRandomGenerator>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Figures and connections of all sorts that a random hand changes.
class Crowd
{
public:
    Crowd(Diagram &diagram, quint32 seed)
        : m_diagram(diagram)
        , m_frame(frame(diagram))
        , m_random(seed)
    {
    }

    void step()
    {
        switch (number(0, 14)) {
        case 0:
        case 1:
            m_diagram.add(make(), rect(), number(-1, 5));
            break;
        case 2:
            link();
            break;
        case 3:
            m_diagram.remove(anyOf(number(0, 1) ? figures() : lines()));
            break;
        case 4:
            if (Figure *figure = anyOf(figures()))
                figure->setVisible(!figure->isVisible());
            break;
        case 5:
            dress();
            break;
        case 6:
            m_diagram.setIndex(anyOf(number(0, 1) ? figures() : lines()), number(0, 5));
            break;
        case 7:
            Diagram::setText(anyOf(figures()), QString(number(0, 9), u'w'));
            break;
        case 8:
        case 9:
        case 10:
            rework();
            break;
        default:
            m_diagram.setBounds(anyOf(figures()), rect());
        }
    }

private:
    int number(int from, int to) { return m_random.bounded(from, to + 1); }
    QRect rect() { return {number(0, 340), number(0, 240), number(2, 90), number(2, 70)}; }
    QColor color() { return QColor::fromHsv(number(0, 359), 200, 220, number(0, 2) ? 255 : 120); }

    // Around all there will be, so that the canvas keeps its size: another one is painted whole.
    static QList<Figure *> frame(Diagram &diagram)
    {
        return {diagram.add(painted<Rectangle>(), QRect(-60, -60, 1000, 10)),
                diagram.add(painted<Rectangle>(), QRect(-60, 900, 1000, 10))};
    }

    QList<Figure *> figures()
    {
        QList<Figure *> all = m_diagram.getFigures();
        all.removeIf([this](Figure *figure) { return m_frame.contains(figure); });
        return all;
    }

    QList<Figure *> lines()
    {
        const QList<PolylineConnection *> all = m_diagram.getConnections();
        return QList<Figure *>(all.cbegin(), all.cend());
    }

    Figure *anyOf(const QList<Figure *> &figures)
    {
        return figures.isEmpty() ? nullptr : figures.at(number(0, int(figures.size()) - 1));
    }

    Shape *make()
    {
        Shape *shape = nullptr;
        switch (number(0, 3)) {
        case 0:
            shape = painted<Rectangle>(color());
            break;
        case 1:
            shape = painted<Ellipse>(color());
            break;
        case 2:
            shape = painted<RoundedRectangle>(color());
            break;
        default:
            shape = diamond();
        }
        shape->setLineWidth(number(1, 4));
        return shape;
    }

    void link()
    {
        PolylineConnection *line = m_diagram.connect(anyOf(figures()), anyOf(figures()),
                                                     static_cast<Diagram::Routing>(number(0, 2)));
        if (!line)
            return;
        line->setEnabledFGColor(color());
        line->setLineWidth(number(1, 5));
        for (int i = number(0, 3); i > 0; --i)
            equip(line);
    }

    // A line that is shown already.
    void rework()
    {
        if (auto *line = qobject_cast<PolylineConnection *>(anyOf(lines())))
            equip(line);
    }

    void equip(PolylineConnection *line)
    {
        switch (number(0, 3)) {
        case 0:
            m_diagram.setBendpoints(line, {QPoint(number(0, 380), number(0, 280))});
            break;
        case 1:
            m_diagram.setArrow(line, static_cast<Diagram::End>(number(0, 1)),
                               static_cast<Diagram::Arrow>(number(0, 2)));
            break;
        case 2:
            m_diagram.setRouting(line, static_cast<Diagram::Routing>(number(0, 2)));
            break;
        default:
            m_diagram.setLabel(line, QString(number(0, 9), u'l'));
        }
    }

    void dress()
    {
        auto *shape = qobject_cast<Shape *>(anyOf(number(0, 1) ? figures() : lines()));
        if (!shape)
            return;
        shape->setEnabledFGColor(color());
        shape->setLineWidth(number(1, 5));
    }

    Diagram &m_diagram;
    QList<Figure *> m_frame;
    QRandomGenerator m_random;
};

} // namespace

class tst_DiagramViewIncremental : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void changesLeaveThePixelsOfAFullRepaint_data();
    void changesLeaveThePixelsOfAFullRepaint();
    void draggedFigureRepaintsWhatItTouches();
    void idleViewPaintsNothing();
};

void tst_DiagramViewIncremental::changesLeaveThePixelsOfAFullRepaint_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<bool>("smooth");
    QTest::addColumn<double>("scale");
    quint32 seed = 0;
    for (bool smooth : {true, false}) {
        for (double scale : {1.0, 0.43, 1.7}) {
            for (int i = 0; i < 3; ++i, ++seed)
                QTest::addRow("%u, %s, %g", seed, smooth ? "smooth" : "sharp", scale)
                    << seed << smooth << scale;
        }
    }
}

void tst_DiagramViewIncremental::changesLeaveThePixelsOfAFullRepaint()
{
    QFETCH(quint32, seed);
    QFETCH(bool, smooth);
    QFETCH(double, scale);
    ViewScene scene;
    scene.diagram.setAntialiased(smooth);
    Crowd crowd(scene.diagram, seed);
    QVERIFY(scene.show());
    ScreenWatch screen(&scene.view);
    scene.view.zoomAbout(scale, QPointF(30, 20));

    for (int round = 0; round < 100; ++round) {
        crowd.step();
        if (round % 20 == 19)
            scene.horizontalBar()->setValue(scene.horizontalBar()->value() + 13);
        const QString stale = screen.stalePixels();
        QVERIFY2(stale.isEmpty(), qPrintable(QStringLiteral("round %1: %2").arg(round).arg(stale)));
    }
}

// Of a thousand, those near the old and the new place.
void tst_DiagramViewIncremental::draggedFigureRepaintsWhatItTouches()
{
    ViewScene scene(QSize(800, 600));
    QList<CountingFigure *> others;
    for (int i = 0; i < 1000; ++i) {
        auto *figure = new CountingFigure(nullptr, Qt::yellow);
        scene.diagram.add(figure, QRect(i % 40 * 20, i / 40 * 24, 16, 20));
        others << figure;
    }
    auto *dragged = scene.diagram.add(painted<Rectangle>(), QRect(300, 300, 30, 30));
    QVERIFY(scene.show());
    for (CountingFigure *figure : std::as_const(others))
        figure->resetCalls();

    for (int step = 1; step <= 10; ++step) {
        dragged->setBounds(QRect(300 + step * 3, 300, 30, 30));
        scene.settle();
    }

    int paints = 0;
    for (CountingFigure *figure : std::as_const(others))
        paints += figure->calls().drawFigure;
    QVERIFY2(paints > 0 && paints < 10 * 12, qPrintable(QString::number(paints)));
}

void tst_DiagramViewIncremental::idleViewPaintsNothing()
{
    ViewScene scene;
    auto *figure = new CountingFigure(nullptr, Qt::yellow);
    scene.diagram.add(figure, QRect(10, 10, 40, 40));
    scene.diagram.connect(figure, scene.diagram.add(painted<Ellipse>(), QRect(100, 10, 40, 40)));
    QVERIFY(scene.show());
    figure->resetCalls();

    scene.settle();
    scene.settle();

    QCOMPARE(figure->calls().drawFigure, 0);
}

QTEST_MAIN(tst_DiagramViewIncremental)
#include "tst_diagramview_incremental.moc"
