#include <liveheap.h>

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/decoration/MidpointLocator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/figure/SimpleBorder.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/TextFigure.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/UpdateManager.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QPainter>
#include <QPainterPath>
#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

// Whoever builds, edits and throws away diagrams all day must not need more memory in the evening.

namespace {

int setting(const char *name, int usual)
{
    const int wanted = qEnvironmentVariableIntValue(name);
    return wanted > 0 ? wanted : usual;
}

/// What outlives the diagrams, and could keep something of them.
template<class Base>
class Counted : public Base
{
public:
    using Base::Base;

    int connectionCount() const
    {
        return this->receivers(SIGNAL(figureMoved(Figure *))) +
               this->receivers(SIGNAL(propertyChanged(QString, QVariant, QVariant))) +
               this->receivers(SIGNAL(ancestorMoved(Figure *))) +
               this->receivers(SIGNAL(extentChanged())) +
               this->receivers(SIGNAL(destroyed(QObject *)));
    }
};

/// More than any diagram asks of Qt's painter, which keeps the room that a line has once needed.
class Scribble : public Figure
{
public:
    Scribble() { setBounds(QRect(0, 0, 400, 300)); }

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem & /*option*/) const override
    {
        QPainterPath path;
        for (int i = 0; i < 12; ++i)
            path.addEllipse(QPointF(200, 150), 20 + i * 12, 20 + i * 9);
        for (bool isSmooth : {false, true}) {
            painter->setRenderHint(QPainter::Antialiasing, isSmooth);
            painter->drawPath(path);
            painter->strokePath(path, QPen(Qt::black, 3));
        }
    }
};

/// A viewer with a layer for nodes and one for their connections.
class Desk
{
public:
    Desk()
    {
        pane.addLayer(&nodes, QStringLiteral("nodes"));
        pane.addLayer(&edges, QStringLiteral("edges"));
        edges.setConnectionRouter(&router);
        viewer.resize(400, 300);
        viewer.setContent(&pane);
        viewer.show();
        scribble();
    }

    void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        viewer.QWidget::repaint();
        viewer.getUpdateManager()->performUpdate(); // where nothing has asked for a repaint
    }

    void scribble()
    {
        Scribble figure;
        nodes.add(&figure, figure.getBounds());
        settle();
    }

    int connectionCount() const
    {
        return pane.connectionCount() + nodes.connectionCount() + edges.connectionCount();
    }

    // Only a queue that holds something announces that it is worked off.
    qsizetype queuedUpdates()
    {
        const QSignalSpy validated(viewer.getUpdateManager(), &UpdateManager::aboutToValidate);
        viewer.getUpdateManager()->performUpdate();
        return validated.count();
    }

    int reservedLines() const
    {
        int lines = 0;
        for (int line = 0; line < 4000; ++line)
            lines += !router.rowUsable(nullptr, line) + !router.colUsable(nullptr, line);
        return lines;
    }

    Counted<FreeformLayeredPane> pane;
    Counted<FreeformLayer> nodes;
    Counted<ConnectionLayer> edges;
    ManhattanConnectionRouter router;
    FreeformViewer viewer;
};

/// Nodes in rows, each joined to the next, with labels and arrow heads. All belong to one object.
class Diagram
{
public:
    Diagram(Desk &desk, int figureCount)
        : m_desk(desk)
    {
        while (m_figures < figureCount)
            addStep();
    }

    void edit(int round)
    {
        for (qsizetype i = 0; i < m_nodes.size(); i += 7)
            m_nodes.at(i)->setBounds(m_nodes.at(i)->getBounds().translated(round % 5 - 2, 3));
        for (qsizetype i = 0; i < m_nodes.size(); i += 11)
            m_nodes.at(i)->setVisible(!m_nodes.at(i)->isVisible());
        for (qsizetype i = 0; i < m_edges.size(); i += 9)
            m_edges.at(i)->setSourceAnchor(new ChopboxAnchor(m_nodes.at(i / 2), m_edges.at(i)));
        for (qsizetype i = 0; i < m_labels.size(); i += 5)
            m_labels.at(i)->setText(QString::number(round % 3));
    }

private:
    // A node of one kind or another, and from the second on an edge with a label and a head.
    void addStep()
    {
        addNode();
        if (m_nodes.size() > 1)
            addEdge();
    }

    Figure *makeNode()
    {
        switch (m_nodes.size() % 4) {
        case 0:
            return new Rectangle(&m_owner);
        case 1:
            return new Ellipse(&m_owner);
        case 2:
            return new LabelFigure(QStringLiteral("node"), QPixmap(), Qt::Horizontal, &m_owner);
        default:
            return makeBox();
        }
    }

    Figure *makeBox()
    {
        auto *box = new Figure(&m_owner, Qt::yellow);
        box->setLayoutManager(new HBoxLayout(box));
        box->setBorder(new SimpleBorder(box, 2));
        box->add(new TextFigure(QStringLiteral("in a box"), box));
        ++m_figures;
        return box;
    }

    void addNode()
    {
        const int i = int(m_nodes.size());
        m_nodes.append(makeNode());
        m_desk.nodes.add(m_nodes.last(), QRect(i % 40 * 90, i / 40 * 60, 60, 30));
        ++m_figures;
    }

    void addEdge()
    {
        auto *edge = new PolylineConnection(&m_owner);
        edge->setSourceAnchor(new ChopboxAnchor(m_nodes.at(m_nodes.size() - 2), edge));
        edge->setTargetAnchor(new ChopboxAnchor(m_nodes.last(), edge));
        edge->setTargetDecoration(new PolygonDecoration(edge));
        auto *label = new TextFigure(QStringLiteral("edge"), edge);
        edge->add(label, QVariant::fromValue<QObject *>(new MidpointLocator(edge, 0, label)));
        m_desk.edges.add(edge);
        m_edges.append(edge);
        m_labels.append(label);
        m_figures += 3;
    }

    Desk &m_desk;
    QObject m_owner; // takes all figures along when it goes
    int m_figures = 0;
    QList<Figure *> m_nodes;
    QList<PolylineConnection *> m_edges;
    QList<TextFigure *> m_labels;
};

void liveAndDie(Desk &desk, int figureCount, int round)
{
    Diagram diagram(desk, figureCount);
    desk.settle();
    diagram.edit(round);
    desk.settle();
    for (double scale : {0.2, 2.0, 1.0}) {
        desk.viewer.setScale(scale);
        desk.settle();
    }
}

} // namespace

class tst_Soak : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void manyDiagramsLeaveNothingBehind();
};

void tst_Soak::manyDiagramsLeaveNothingBehind()
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    const int figureCount = setting("FIGURA_SOAK_FIGURES", 1000);
    const int rounds = setting("FIGURA_SOAK_ROUNDS", 30);
    const int warmUp = qMin(20, rounds / 2); // until caches are full
    Desk desk;
    qint64 heap = 0;
    int connections = 0;

    for (int round = 1; round <= rounds; ++round) {
        liveAndDie(desk, figureCount, round);
        desk.settle();
        QCOMPARE(desk.queuedUpdates(), 0);
        QCOMPARE(desk.reservedLines(), 0);
        if (round == warmUp) {
            heap = liveBytes();
            connections = desk.connectionCount();
        }
    }

    QCOMPARE(desk.connectionCount(), connections);
    qInfo("heap in use after round %d: %lld, after round %d: %lld; %d connections", warmUp, heap,
          rounds, liveBytes(), connections);
    if (heap == 0)
        QSKIP("nobody counts what is allocated");
    QVERIFY(liveBytes() <= heap + heap / 100);
}

QTEST_MAIN(tst_Soak)
#include "tst_soak.moc"
