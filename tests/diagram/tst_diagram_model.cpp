#include "diagram_fixtures.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// What a diagram should hold, kept in the plainest way.
struct Model
{
    struct Box
    {
        Figure *figure;
        QRect rect;
    };

    struct Line
    {
        PolylineConnection *connection;
        Figure *source;
        Figure *target;
        Diagram::Routing routing;
    };

    QList<Box> boxes; // in paint order
    QList<Line> lines;

    void remove(Figure *figure)
    {
        boxes.removeIf([=](const Box &box) { return box.figure == figure; });
        lines.removeIf([=](const Line &line) {
            return line.source == figure || line.target == figure || line.connection == figure;
        });
    }
};

/// Does the same at random to a diagram and to its model.
class Hand
{
public:
    Hand(Diagram &diagram, quint32 seed)
        : m_diagram(diagram)
        , m_random(seed)
    {
    }

    Model model;

    void step()
    {
        switch (number(0, 9)) {
        case 0:
        case 1:
        case 2:
            return add();
        case 3:
        case 4:
            return connectAny();
        case 5:
            return removeAny();
        case 6:
            return reorder();
        case 7:
            return changeLine();
        default:
            return move();
        }
    }

private:
    int number(int from, int to) { return m_random.bounded(from, to + 1); }
    QRect rect() { return {number(-200, 500), number(-200, 400), number(2, 120), number(2, 90)}; }
    Diagram::Routing routing() { return static_cast<Diagram::Routing>(number(0, 2)); }
    int anyBox() { return number(0, static_cast<int>(model.boxes.size()) - 1); }

    Figure *make()
    {
        switch (number(0, 4)) {
        case 0:
            return painted<Rectangle>();
        case 1:
            return painted<Ellipse>();
        case 2:
            return painted<RoundedRectangle>();
        case 3: {
            auto *box = painted<Rectangle>();
            Diagram::setText(box, QStringLiteral("text"));
            return box;
        }
        default:
            return diamond();
        }
    }

    void add()
    {
        const QRect place = rect();
        const int index = number(-1, static_cast<int>(model.boxes.size()));
        Figure *figure = m_diagram.add(make(), place, index);
        const bool inside = index >= 0 && index < model.boxes.size();
        model.boxes.insert(inside ? index : model.boxes.size(), {figure, place});
    }

    void connectAny()
    {
        if (model.boxes.isEmpty())
            return;
        Figure *source = model.boxes.at(anyBox()).figure;
        Figure *target = model.boxes.at(anyBox()).figure;
        const Diagram::Routing way = routing();
        model.lines.append({m_diagram.connect(source, target, way), source, target, way});
    }

    void removeAny()
    {
        Figure *figure = nullptr;
        if (number(0, 2) == 0 && !model.lines.isEmpty())
            figure = model.lines.at(number(0, static_cast<int>(model.lines.size()) - 1)).connection;
        else if (!model.boxes.isEmpty())
            figure = model.boxes.at(anyBox()).figure;
        if (number(0, 3) == 0)
            delete figure;
        else
            m_diagram.remove(figure);
        model.remove(figure);
    }

    void reorder()
    {
        if (model.boxes.isEmpty())
            return;
        const int from = anyBox();
        const int to = anyBox();
        m_diagram.setIndex(model.boxes.at(from).figure, to);
        model.boxes.move(from, to);
    }

    void changeLine()
    {
        if (model.lines.isEmpty())
            return;
        Model::Line &line = model.lines[number(0, static_cast<int>(model.lines.size()) - 1)];
        if (number(0, 1)) {
            line.routing = routing();
            m_diagram.setRouting(line.connection, line.routing);
            return;
        }
        line.target = model.boxes.at(anyBox()).figure;
        m_diagram.reconnect(line.connection, line.source, line.target);
    }

    void move()
    {
        if (model.boxes.isEmpty())
            return;
        Model::Box &box = model.boxes[anyBox()];
        box.rect = rect();
        m_diagram.setBounds(box.figure, box.rect);
    }

    Diagram &m_diagram;
    QRandomGenerator m_random;
};

QList<Figure *> figuresOf(const Model &model)
{
    QList<Figure *> figures;
    for (const Model::Box &box : model.boxes)
        figures << box.figure;
    return figures;
}

QList<PolylineConnection *> connectionsAt(const Model &model, const Figure *figure)
{
    QList<PolylineConnection *> connections;
    for (const Model::Line &line : model.lines) {
        if (!figure || line.source == figure || line.target == figure)
            connections << line.connection;
    }
    return connections;
}

// Near enough for smooth edges, integer points and boxes that count a pixel more.
bool touches(Figure *figure, const QPoint &point)
{
    return figure->getBounds().adjusted(-2, -2, 2, 2).contains(point);
}

} // namespace

class tst_DiagramModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void diagramHoldsWhatItShould_data();
    void diagramHoldsWhatItShould();
    void picturesDependOnTheContentAlone_data();
    void picturesDependOnTheContentAlone();

private:
    static void compare(Diagram &diagram, const Model &model);
};

void tst_DiagramModel::diagramHoldsWhatItShould_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<bool>("shown");
    for (quint32 seed = 1; seed <= 20; ++seed)
        QTest::addRow("%u", seed) << seed << (seed % 2 == 0);
}

void tst_DiagramModel::diagramHoldsWhatItShould()
{
    QFETCH(quint32, seed);
    QFETCH(bool, shown);
    Diagram diagram;
    DiagramView view;
    if (shown) {
        view.setDiagram(&diagram);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
    }
    Hand hand(diagram, seed);

    for (int round = 0; round < 40; ++round) {
        for (int i = 0; i < 5; ++i)
            hand.step();
        if (shown)
            QCoreApplication::processEvents();
        else
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        compare(diagram, hand.model);
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_DiagramModel::compare(Diagram &diagram, const Model &model)
{
    QCOMPARE(diagram.getFigures(), figuresOf(model));
    QCOMPARE(diagram.getConnections(), connectionsAt(model, nullptr));
    diagram.validate();
    QRect extent;
    for (const Model::Box &box : model.boxes) {
        QCOMPARE(box.figure->getBounds(), box.rect);
        extent |= box.rect;
        const QList<PolylineConnection *> expected = connectionsAt(model, box.figure);
        const QList<PolylineConnection *> actual = diagram.getConnections(box.figure);
        QCOMPARE(QSet<PolylineConnection *>(actual.cbegin(), actual.cend()),
                 QSet<PolylineConnection *>(expected.cbegin(), expected.cend()));
    }
    for (const Model::Line &line : model.lines) {
        QCOMPARE(diagram.getSource(line.connection), line.source);
        QCOMPARE(diagram.getTarget(line.connection), line.target);
        QCOMPARE(diagram.getRouting(line.connection), line.routing);
        QVERIFY(touches(line.source, line.connection->getPoints().constFirst()));
        QVERIFY(touches(line.target, line.connection->getPoints().constLast()));
        extent |= line.connection->getBoundingRect();
    }
    QVERIFY(diagram.getExtent().contains(extent) || extent.isNull());
}

void tst_DiagramModel::picturesDependOnTheContentAlone_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 101; seed <= 110; ++seed)
        QTest::addRow("%u", seed) << seed;
}

// What was built up, moved about and partly removed looks like the same built at once.
void tst_DiagramModel::picturesDependOnTheContentAlone()
{
    QFETCH(quint32, seed);
    Diagram diagram;
    Hand hand(diagram, seed);
    for (int i = 0; i < 120; ++i)
        hand.step();
    diagram.reroute();
    const QImage before = picture(diagram);

    // Everything leaves its place and comes back.
    for (const Model::Box &box : std::as_const(hand.model.boxes))
        diagram.setBounds(box.figure, box.rect.translated(57, -31).adjusted(0, 0, 9, 5));
    diagram.validate();
    for (const Model::Box &box : std::as_const(hand.model.boxes))
        diagram.setBounds(box.figure, box.rect);
    diagram.reroute();

    const QRect difference = differenceOf(picture(diagram), before);
    QVERIFY2(difference.isNull(), qPrintable(QStringLiteral("%1, %2, %3 x %4")
                                                 .arg(difference.x())
                                                 .arg(difference.y())
                                                 .arg(difference.width())
                                                 .arg(difference.height())));
}

QTEST_MAIN(tst_DiagramModel)
#include "tst_diagram_model.moc"
