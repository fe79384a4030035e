#include "connection/lineset_p.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/shape/Rectangle.h>

#include <QRandomGenerator>
#include <QSet>
#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora::Figura;

namespace {

constexpr int lineCount = 150;

// Asks for line after line, because the class is not known.
class AskingRouter : public ManhattanConnectionRouter
{
};

// Boxes in a narrow place, where lines run out.
class Crowd
{
public:
    Crowd(ManhattanConnectionRouter *router, quint32 seed)
        : m_router(router)
        , m_random(seed)
    {
        const int size = number(20, 160);
        for (int i = 0; i < 12; ++i) {
            m_boxes.push_back(std::make_unique<Rectangle>(nullptr));
            m_boxes.back()->setBounds({number(-20, size), number(-20, size), number(1, 40), 20});
        }
        for (int i = 0; i < lineCount; ++i)
            connectPair(number(0, 11), number(0, 11));
    }

    /// The points that come of one random step.
    QList<QPoint> step()
    {
        PolylineConnection *line = m_lines[number(0, lineCount - 1)].line.get();
        const int kind = number(0, 9);
        if (kind == 0)
            m_router->remove(line);
        else if (kind == 1)
            m_router->invalidate(line);
        else
            m_router->route(line);
        return line->getLinePoints();
    }

private:
    struct Line
    {
        std::unique_ptr<ChopboxAnchor> source;
        std::unique_ptr<ChopboxAnchor> target;
        std::unique_ptr<PolylineConnection> line;
    };

    int number(int from, int to) { return m_random.bounded(from, to + 1); }

    void connectPair(int from, int to)
    {
        Line made{std::make_unique<ChopboxAnchor>(m_boxes[from].get(), nullptr),
                  std::make_unique<ChopboxAnchor>(m_boxes[to].get(), nullptr),
                  std::make_unique<PolylineConnection>(nullptr)};
        made.line->setSourceAnchor(made.source.get());
        made.line->setTargetAnchor(made.target.get());
        m_lines.push_back(std::move(made));
    }

    ManhattanConnectionRouter *m_router;
    QRandomGenerator m_random;
    std::vector<std::unique_ptr<Rectangle>> m_boxes;
    std::vector<Line> m_lines;
};

// One line after the other.
qint64 plainStepsToFree(const QSet<int> &taken, int line, int sign, qint64 most)
{
    qint64 steps = 0;
    while (steps < most && taken.contains(int(line + 2 * sign * steps)))
        ++steps;
    return steps;
}

} // namespace

class tst_ManhattanLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void takenLinesAreThoseOfAPlainSet();
    void nearestFreeLineIsFoundAsByAsking_data();
    void nearestFreeLineIsFoundAsByAsking();
    void routesAreThoseOfARouterThatAsks_data();
    void routesAreThoseOfARouterThatAsks();
};

void tst_ManhattanLines::takenLinesAreThoseOfAPlainSet()
{
    LineSet lines;
    QSet<int> plain;
    QRandomGenerator random(1);

    for (int i = 0; i < 20000; ++i) {
        const int line = random.bounded(-700, 700);
        if (random.bounded(5) < 3) {
            lines.insert(line);
            plain.insert(line);
        } else {
            lines.remove(line);
            plain.remove(line);
        }
        const int asked = random.bounded(-700, 700);
        QCOMPARE(lines.contains(asked), plain.contains(asked));
    }
}

void tst_ManhattanLines::nearestFreeLineIsFoundAsByAsking_data()
{
    QTest::addColumn<int>("taken");
    for (int taken : {0, 10, 300, 900, 5000})
        QTest::addRow("%d taken", taken) << taken;
}

void tst_ManhattanLines::nearestFreeLineIsFoundAsByAsking()
{
    QFETCH(int, taken);
    LineSet lines;
    QSet<int> plain;
    QRandomGenerator random(2);
    for (int i = 0; i < taken; ++i) {
        const int line = random.bounded(-500, 500);
        lines.insert(line);
        plain.insert(line);
    }

    for (int line = -520; line < 520; ++line) {
        for (int sign : {1, -1}) {
            for (int most : {0, 1, 5, 64, 65, 400}) {
                const qint64 expected = plainStepsToFree(plain, line, sign, most);
                QCOMPARE(qMin<qint64>(lines.stepsToFree(line, sign, most), most), expected);
            }
        }
    }
}

void tst_ManhattanLines::routesAreThoseOfARouterThatAsks_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 0; seed < 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_ManhattanLines::routesAreThoseOfARouterThatAsks()
{
    QFETCH(quint32, seed);
    ManhattanConnectionRouter quick;
    AskingRouter asking;
    Crowd one(&quick, seed);
    Crowd other(&asking, seed);

    for (int i = 0; i < 600; ++i)
        QCOMPARE(one.step(), other.step());
}

QTEST_MAIN(tst_ManhattanLines)
#include "tst_manhattan_lines.moc"
