#include "commands/ChangeBends.h"
#include "commands/ChangeLane.h"
#include "commands/ChangeRouting.h"
#include "commands/ChangeText.h"
#include "commands/DeleteElements.h"
#include "commands/MoveNodes.h"
#include "commands/PlaceNodes.h"
#include "commands/Reconnect.h"
#include "commands/ReorderNodes.h"
#include "editorfixtures.h"
#include "files/Clip.h"
#include "model/Document.h"

#include <QMimeData>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

using namespace Editor;
using namespace Editor::EditorFixtures;

class tst_EditorCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void anySequenceIsUndoneAndRedone_data();
    void anySequenceIsUndoneAndRedone();
    void aDragIsOneStep();
    void twoDragsAreTwoSteps();
    void aDragThatEndsWhereItBeganLeavesNoStep();
    void aDragMayChangeMoreAndMore();
    void aMoveTakesTheBendsBetweenTheNodesAlong();
    void aMoveStopsAtTheEdgeOfTheWorld();
    void whatIsInALaneIsDeletedWithIt();
    void edgesAreDeletedWithTheirNodes();
    void nodesChangeTheirOrder_data();
    void nodesChangeTheirOrder();
    void aNodeGoesIntoALaneBeforeAnother();
    void bendsMakeAnEdgeRunThroughThem();
    void anEdgeRoutedByBendpointsTakesOverItsCorners();
    void aLoopAlwaysHasBends();
    void aCopyHasNewIdsAndKeepsItsConnections();
    void aCopyOutOfALaneLiesWhereItIsSeen();
    void aClipThatIsDamagedIsNone();
    void onlyWhatChangesIsAnnounced();
};

namespace {

QList<int> idsOf(const QList<Node> &nodes)
{
    QList<int> ids;
    for (const Node &node : nodes)
        ids << node.id;
    return ids;
}

} // namespace

void tst_EditorCommands::anySequenceIsUndoneAndRedone_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 60; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_EditorCommands::anySequenceIsUndoneAndRedone()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    Document document;
    document.setContent(randomContent(random, 8, 8));
    QUndoStack stack;
    QList<Content> states = {document.content()};

    for (int i = 0; i < 60; ++i) {
        stack.push(randomCommand(random, document));
        states << document.content();
        QCOMPARE(problemOf(states.last()), QString());
    }

    for (qsizetype i = states.size() - 2; i >= 0; --i) {
        stack.undo();
        QVERIFY2(document.content() == states.at(i), qPrintable(stack.redoText()));
    }
    for (qsizetype i = 1; i < states.size(); ++i) {
        stack.redo();
        QVERIFY2(document.content() == states.at(i), qPrintable(stack.undoText()));
    }
}

void tst_EditorCommands::aDragIsOneStep()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;
    const int series = ChangeElements::newSeries();

    for (int i = 0; i < 10; ++i)
        stack.push(new MoveNodes(document, {1}, QPoint(3, 1), series));

    QCOMPARE(stack.count(), 1);
    QCOMPARE(document.node(1)->rect, QRect(50, 30, 100, 60));
    stack.undo();
    QCOMPARE(document.content(), smallContent());
    stack.redo();
    QCOMPARE(document.node(1)->rect, QRect(50, 30, 100, 60));
}

void tst_EditorCommands::twoDragsAreTwoSteps()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;

    stack.push(new MoveNodes(document, {1}, QPoint(3, 0), ChangeElements::newSeries()));
    stack.push(new MoveNodes(document, {1}, QPoint(3, 0), ChangeElements::newSeries()));
    stack.push(new MoveNodes(document, {1}, QPoint(3, 0)));
    stack.push(new MoveNodes(document, {1}, QPoint(3, 0)));

    QCOMPARE(stack.count(), 4);
}

void tst_EditorCommands::aDragThatEndsWhereItBeganLeavesNoStep()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;
    const int series = ChangeElements::newSeries();

    stack.push(new MoveNodes(document, {1, 2}, QPoint(30, 10), series));
    stack.push(new MoveNodes(document, {1, 2}, QPoint(-30, -10), series));

    QCOMPARE(stack.count(), 0);
    QCOMPARE(document.content(), smallContent());
}

void tst_EditorCommands::aDragMayChangeMoreAndMore()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;
    const int series = ChangeElements::newSeries();

    stack.push(new MoveNodes(document, {1}, QPoint(5, 5), series));
    stack.push(new MoveNodes(document, {2, 3}, QPoint(5, 5), series));
    stack.push(new MoveNodes(document, {3, 1}, QPoint(1, 1), series));

    QCOMPARE(stack.count(), 1);
    stack.undo();
    QCOMPARE(document.content(), smallContent());
    stack.redo();
    QCOMPARE(document.node(1)->rect.topLeft(), QPoint(26, 26));
    QCOMPARE(document.node(2)->rect.topLeft(), QPoint(225, 35));
    QCOMPARE(document.node(3)->rect.topLeft(), QPoint(106, 206));
}

void tst_EditorCommands::aMoveTakesTheBendsBetweenTheNodesAlong()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;

    stack.push(new MoveNodes(document, {2}, QPoint(10, 20)));
    QCOMPARE(document.edge(5)->bends.first(), QPoint(300, 150)); // one end alone leaves them

    stack.push(new MoveNodes(document, {2, 3}, QPoint(10, 20)));
    QCOMPARE(document.edge(5)->bends, (QList<QPoint>{QPoint(310, 170), QPoint(270, 240)}));
}

void tst_EditorCommands::aMoveStopsAtTheEdgeOfTheWorld()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;

    stack.push(new MoveNodes(document, {1, 3}, QPoint(1'000'000, -1'000'000)));

    QCOMPARE(document.node(3)->rect.right(), Limits::area.right());
    QCOMPARE(document.node(1)->rect.top(), Limits::area.top());
    QCOMPARE(document.node(3)->rect.topLeft() - document.node(1)->rect.topLeft(), QPoint(80, 180));
}

void tst_EditorCommands::whatIsInALaneIsDeletedWithIt()
{
    Content content = smallContent();
    content.nodes << node(9, {400, 0, 100, 300}, NodeKind::Lane);
    content.nodes[0].lane = 9;
    Document document;
    document.setContent(content);
    QUndoStack stack;

    stack.push(new DeleteElements(document, {9}));

    QCOMPARE(document.nodeOrder(), (QList<int>{2, 3}));
    QCOMPARE(document.edgeOrder(), QList<int>{5});
    stack.undo();
    QCOMPARE(document.content(), content);
}

void tst_EditorCommands::edgesAreDeletedWithTheirNodes()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;

    stack.push(new DeleteElements(document, {3}));

    QCOMPARE(document.nodeOrder(), (QList<int>{1, 2}));
    QCOMPARE(document.edgeOrder(), QList<int>{4});
}

void tst_EditorCommands::nodesChangeTheirOrder_data()
{
    using Step = ReorderNodes::Step;
    QTest::addColumn<QList<int>>("chosen");
    QTest::addColumn<int>("step");
    QTest::addColumn<QList<int>>("expected");
    QTest::newRow("to the front") << QList<int>{2, 1} << int(Step::ToFront)
                                  << QList<int>{3, 4, 1, 2};
    QTest::newRow("to the back") << QList<int>{4, 2} << int(Step::ToBack) << QList<int>{2, 4, 1, 3};
    QTest::newRow("forward") << QList<int>{1} << int(Step::Forward) << QList<int>{2, 1, 3, 4};
    QTest::newRow("a block forward")
        << QList<int>{1, 2} << int(Step::Forward) << QList<int>{3, 1, 2, 4};
    QTest::newRow("a block at the end")
        << QList<int>{3, 4} << int(Step::Forward) << QList<int>{1, 2, 3, 4};
    QTest::newRow("backward") << QList<int>{4} << int(Step::Backward) << QList<int>{1, 2, 4, 3};
    QTest::newRow("a block backward")
        << QList<int>{3, 4} << int(Step::Backward) << QList<int>{1, 3, 4, 2};
    QTest::newRow("one of two at the end")
        << QList<int>{1, 3} << int(Step::Backward) << QList<int>{1, 3, 2, 4};
}

void tst_EditorCommands::nodesChangeTheirOrder()
{
    QFETCH(QList<int>, chosen);
    QFETCH(int, step);
    QFETCH(QList<int>, expected);
    Content content;
    for (int id = 1; id <= 4; ++id)
        content.nodes << node(id, {0, 0, 50, 50});
    Document document;
    document.setContent(content);
    QUndoStack stack;

    stack.push(new ReorderNodes(document, chosen, static_cast<ReorderNodes::Step>(step)));

    QCOMPARE(document.nodeOrder(), expected);
    stack.undo();
    QCOMPARE(document.nodeOrder(), (QList<int>{1, 2, 3, 4}));
}

void tst_EditorCommands::aNodeGoesIntoALaneBeforeAnother()
{
    Content content = smallContent();
    content.nodes.prepend(node(9, {400, 0, 100, 300}, NodeKind::Lane));
    content.nodes[1].lane = 9;
    Document document;
    document.setContent(content);
    QUndoStack stack;

    stack.push(new ChangeLane(document, 9, 1, {{3, QRect(0, 0, 60, 40)}}));

    QCOMPARE(document.nodesIn(9), (QList<int>{3, 1}));
    QCOMPARE(document.node(3)->rect, QRect(0, 0, 60, 40));
    stack.push(new ChangeLane(document, 9, 0, {{3, QRect(0, 0, 60, 40)}}));
    QCOMPARE(document.nodesIn(9), (QList<int>{1, 3}));
}

void tst_EditorCommands::bendsMakeAnEdgeRunThroughThem()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;

    stack.push(new ChangeBends(document, 4, {QPoint(1, 2)}));

    QCOMPARE(document.edge(4)->routing, Routing::Bendpoint);
    QCOMPARE(document.edge(4)->bends, QList<QPoint>{QPoint(1, 2)});
}

void tst_EditorCommands::anEdgeRoutedByBendpointsTakesOverItsCorners()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;
    const QHash<int, QList<QPoint>> corners = {{4, {QPoint(7, 7)}}, {5, {QPoint(8, 8)}}};

    stack.push(new ChangeRouting(document, {4, 5}, Routing::Bendpoint, corners));

    QCOMPARE(document.edge(4)->bends, QList<QPoint>{QPoint(7, 7)});
    QCOMPARE(document.edge(5)->bends.size(), 2); // it has its own
}

void tst_EditorCommands::aLoopAlwaysHasBends()
{
    Document document;
    document.setContent(smallContent());
    QUndoStack stack;

    stack.push(new Reconnect(document, 4, Reconnect::End::Target, 1));
    stack.push(new ChangeRouting(document, {4}, Routing::Manhattan));

    QVERIFY(document.edge(4)->isLoop());
    QCOMPARE(document.edge(4)->routing, Routing::Bendpoint);
    QVERIFY(document.edge(4)->bends.size() > 1);
}

void tst_EditorCommands::aCopyHasNewIdsAndKeepsItsConnections()
{
    Document document;
    document.setContent(smallContent());
    QMimeData data;

    Clip::write(&data, Clip::copied(document, {2, 3, 4}, {}));
    const Content copy = Clip::renewed(Clip::read(&data), document, QPoint(10, 5));

    QCOMPARE(idsOf(copy.nodes), (QList<int>{6, 7}));
    QCOMPARE(copy.nodes.first().rect, QRect(230, 35, 90, 50));
    QCOMPARE(copy.edges.size(), 1); // the other one would have one end only
    QCOMPARE(copy.edges.first().source, 6);
    QCOMPARE(copy.edges.first().target, 7);
    QCOMPARE(copy.edges.first().bends.first(), QPoint(310, 155));
}

void tst_EditorCommands::aCopyOutOfALaneLiesWhereItIsSeen()
{
    Content content = smallContent();
    content.nodes << node(9, {400, 0, 100, 300}, NodeKind::Lane);
    content.nodes[0].lane = 9;
    Document document;
    document.setContent(content);

    const Content node = Clip::copied(document, {1}, {{1, QRect(410, 30, 100, 60)}});
    const Content lane = Clip::copied(document, {9}, {{1, QRect(410, 30, 100, 60)}});

    QCOMPARE(node.nodes.first().lane, 0);
    QCOMPARE(node.nodes.first().rect, QRect(410, 30, 100, 60));
    QCOMPARE(idsOf(lane.nodes), (QList<int>{1, 9}));
    QCOMPARE(lane.nodes.first().lane, 9);
}

void tst_EditorCommands::aClipThatIsDamagedIsNone()
{
    QMimeData data;
    QVERIFY(!Clip::isIn(&data));
    QVERIFY(!Clip::isIn(nullptr));

    data.setData(Clip::mimeType, "{\"nodes\":");

    QVERIFY(Clip::isIn(&data));
    QVERIFY(Clip::read(&data).isEmpty());
}

void tst_EditorCommands::onlyWhatChangesIsAnnounced()
{
    Document document;
    document.setContent(smallContent());
    QSignalSpy nodes(&document, &Document::nodeChanged);
    QSignalSpy edges(&document, &Document::edgeChanged);
    QSignalSpy order(&document, &Document::nodesReordered);
    QUndoStack stack;

    stack.push(new PlaceNodes(QStringLiteral("Align"), document,
                              {{1, document.node(1)->rect}, {2, QRect(0, 0, 50, 50)}}));
    stack.push(new ChangeText(document, 3, QString()));

    QCOMPARE(nodes.count(), 1);
    QCOMPARE(nodes.first().first().toInt(), 2);
    QCOMPARE(edges.count() + order.count(), 0);
}

QTEST_MAIN(tst_EditorCommands)
#include "tst_editor_commands.moc"
