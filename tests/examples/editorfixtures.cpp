#include "editorfixtures.h"

#include "arrange/Alignment.h"
#include "commands/ChangeArrows.h"
#include "commands/ChangeBends.h"
#include "commands/ChangeFlow.h"
#include "commands/ChangeLane.h"
#include "commands/ChangeRouting.h"
#include "commands/ChangeStyle.h"
#include "commands/ChangeText.h"
#include "commands/CreateEdge.h"
#include "commands/CreateNode.h"
#include "commands/DeleteElements.h"
#include "commands/MoveLabel.h"
#include "commands/MoveNodes.h"
#include "commands/PlaceNodes.h"
#include "commands/Reconnect.h"
#include "commands/ReorderNodes.h"
#include "files/Clip.h"
#include "model/Document.h"
#include "model/Loops.h"
#include "model/Names.h"

#include <QBuffer>
#include <QImage>

namespace Editor {
namespace {

using Random = QRandomGenerator;

bool coin(Random &random)
{
    return random.bounded(2) == 1;
}

template<class Item>
Item anyOf(Random &random, const QList<Item> &items)
{
    return items.at(random.bounded(items.size()));
}

QPoint anyPoint(Random &random)
{
    return {random.bounded(900), random.bounded(600)};
}

QRect anyRect(Random &random)
{
    return {anyPoint(random), QSize(20 + random.bounded(150), 20 + random.bounded(90))};
}

QString anyText(Random &random)
{
    return anyOf<QString>(random, {QString(), QStringLiteral("Start"), QStringLiteral("two words"),
                                   QStringLiteral("Zeile\nzwei"), QStringLiteral("\"<&\\/"),
                                   QString::fromUtf8("\xc3\xa4\xe2\x82\xac\xf0\x9f\x8c\xb2")});
}

QColor anyColor(Random &random)
{
    return coin(random) ? QColor() : QColor::fromRgba(random.generate() | 0x80000000U);
}

Style anyStyle(Random &random)
{
    Style style;
    if (coin(random))
        return style;
    style.line = anyColor(random);
    style.fill = anyColor(random);
    style.text = anyColor(random);
    style.lineWidth = 1 + random.bounded(6);
    style.lineStyle = anyOf(random, Names::all<Qt::PenStyle>());
    style.fontFamily = coin(random) ? QString() : QStringLiteral("DejaVu Serif");
    style.fontSize = 6 + random.bounded(20);
    style.bold = coin(random);
    style.italic = coin(random);
    return style;
}

Node anyNode(Random &random, int id)
{
    static const QByteArray image = EditorFixtures::picture({6, 4}, Qt::darkGreen);
    Node node = EditorFixtures::node(id, anyRect(random), anyOf(random, Names::all<NodeKind>()));
    node.text = anyText(random);
    node.style = anyStyle(random);
    if (node.kind == NodeKind::Picture)
        node.picture = image;
    if (node.kind == NodeKind::Specimen)
        node.specimen = QStringLiteral("Ellipse");
    if (node.kind == NodeKind::Lane)
        node.flow = anyOf(random, Names::all<Qt::Orientation>());
    return node;
}

QList<QPoint> anyBends(Random &random)
{
    QList<QPoint> bends;
    for (int i = random.bounded(4); i > 0; --i)
        bends << anyPoint(random);
    return bends;
}

Edge anyEdge(Random &random, int id, const QList<Node> &nodes)
{
    const Node source = anyOf(random, nodes);
    Edge edge = EditorFixtures::edge(id, source.id, anyOf(random, nodes).id);
    edge.routing = anyOf(random, Names::all<Routing>());
    edge.bends = anyBends(random);
    edge.sourceArrow = anyOf(random, Names::all<Arrow>());
    edge.targetArrow = anyOf(random, Names::all<Arrow>());
    edge.label = anyText(random);
    edge.labelPercent = random.bounded(101);
    edge.labelOffset = QPoint(random.bounded(41) - 20, random.bounded(41) - 20);
    edge.style = anyStyle(random);
    if (edge.isLoop())
        bendLoop(edge, source.rect);
    return edge;
}

QList<int> some(Random &random, const QList<int> &ids)
{
    QList<int> chosen;
    for (int i = 1 + random.bounded(3); i > 0; --i) {
        if (const int id = anyOf(random, ids); !chosen.contains(id))
            chosen << id;
    }
    return chosen;
}

QList<int> lanes(const Document &document)
{
    QList<int> result;
    for (const int id : document.nodeOrder()) {
        if (document.node(id)->kind == NodeKind::Lane)
            result << id;
    }
    return result;
}

QHash<int, QRect> rectsOf(const Document &document, const QList<int> &ids)
{
    QHash<int, QRect> rects;
    for (const int id : ids)
        rects.insert(id, document.node(id)->rect);
    return rects;
}

QUndoCommand *changeLane(Random &random, Document &document)
{
    const QList<int> all = lanes(document);
    QList<int> ids = some(random, document.nodeOrder());
    ids.removeIf([&all](int id) { return all.contains(id); });
    const int lane = all.isEmpty() || coin(random) ? 0 : anyOf(random, all);
    const QList<int> inside = document.nodesIn(lane);
    const int before = lane == 0 || inside.isEmpty() ? 0 : anyOf(random, inside);
    return new ChangeLane(document, lane, before, rectsOf(document, ids));
}

QUndoCommand *align(Random &random, Document &document)
{
    const QList<int> ids = some(random, document.nodeOrder());
    QList<QRect> rects;
    for (const int id : ids)
        rects << document.node(id)->rect;
    rects = coin(random) ? aligned(rects, Side::Left) : distributed(rects, Qt::Vertical);
    QHash<int, QRect> places;
    for (qsizetype i = 0; i < ids.size(); ++i)
        places.insert(ids.at(i), rects.at(i));
    return new PlaceNodes(QStringLiteral("Align"), document, places);
}

QUndoCommand *duplicate(Random &random, Document &document)
{
    const Content content = Clip::copied(document, some(random, document.nodeOrder()), {});
    return new InsertElements(QStringLiteral("Paste"), document,
                              Clip::renewed(content, document, QPoint(20, 20)));
}

QUndoCommand *reconnect(Random &random, Document &document, int edge)
{
    return new Reconnect(document, edge,
                         coin(random) ? Reconnect::End::Source : Reconnect::End::Target,
                         anyOf(random, document.nodeOrder()));
}

QUndoCommand *edgeCommand(int which, Random &random, Document &document)
{
    const int edge = anyOf(random, document.edgeOrder());
    switch (which) {
    case 0:
        return new ChangeRouting(document, {edge}, anyOf(random, Names::all<Routing>()),
                                 {{edge, {QPoint(50, 60), QPoint(300, 60)}}});
    case 1:
        return new ChangeBends(document, edge, anyBends(random));
    case 2:
        return new ChangeArrows(
            document, {edge}, coin(random) ? ChangeArrows::End::Source : ChangeArrows::End::Target,
            anyOf(random, Names::all<Arrow>()));
    case 3:
        return new MoveLabel(document, edge, random.bounded(101), QPoint(5, random.bounded(30)));
    default:
        return reconnect(random, document, edge);
    }
}

QUndoCommand *nodeCommand(int which, Random &random, Document &document)
{
    const QList<int> ids = some(random, document.nodeOrder());
    switch (which) {
    case 0:
        return new CreateNode(document, anyNode(random, document.newId()));
    case 1:
        return new CreateEdge(document,
                              anyEdge(random, document.newId(), document.content().nodes));
    case 2:
        return new DeleteElements(document, ids);
    case 3:
        return new MoveNodes(document, ids, anyPoint(random) - QPoint(450, 300));
    case 4:
        return new PlaceNodes(QStringLiteral("Resize"), document, {{ids.first(), anyRect(random)}});
    case 5:
        return changeLane(random, document);
    case 6:
        return new ReorderNodes(document, ids, static_cast<ReorderNodes::Step>(random.bounded(4)));
    case 7:
        return new ChangeText(document, ids.first(), anyText(random));
    case 8:
        return new ChangeStyle(document, ids,
                               [style = anyStyle(random)](Style &old) { old = style; });
    case 9:
        return align(random, document);
    default:
        return duplicate(random, document);
    }
}

} // namespace

Node EditorFixtures::node(int id, const QRect &rect, NodeKind kind)
{
    Node node;
    node.id = id;
    node.rect = rect;
    node.kind = kind;
    return node;
}

Edge EditorFixtures::edge(int id, int source, int target)
{
    Edge edge;
    edge.id = id;
    edge.source = source;
    edge.target = target;
    return edge;
}

QByteArray EditorFixtures::picture(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

Content EditorFixtures::smallContent()
{
    Content content;
    content.nodes = {node(1, {20, 20, 100, 60}), node(2, {220, 30, 90, 50}, NodeKind::Ellipse),
                     node(3, {100, 200, 120, 70})};
    content.edges = {edge(4, 1, 2), edge(5, 2, 3)};
    content.edges.last().routing = Routing::Bendpoint;
    content.edges.last().bends = {QPoint(300, 150), QPoint(260, 220)};
    return content;
}

Content EditorFixtures::randomContent(QRandomGenerator &random, int nodes, int edges)
{
    Content content;
    int id = 0;
    QList<int> laneIds;
    for (int i = 0; i < nodes; ++i) {
        Node node = anyNode(random, id += 1 + random.bounded(3));
        if (node.kind == NodeKind::Lane)
            laneIds << node.id;
        else if (!laneIds.isEmpty() && random.bounded(4) == 0)
            node.lane = anyOf(random, laneIds);
        content.nodes << node;
    }
    for (int i = 0; i < edges && nodes > 0; ++i)
        content.edges << anyEdge(random, id += 1 + random.bounded(3), content.nodes);
    return content;
}

QUndoCommand *EditorFixtures::someCommand(int which, QRandomGenerator &random, Document &document)
{
    constexpr int nodeCommands = 11;
    if (document.nodeOrder().isEmpty())
        return new CreateNode(document, anyNode(random, document.newId()));
    if (which < nodeCommands)
        return nodeCommand(which, random, document);
    if (!document.edgeOrder().isEmpty())
        return edgeCommand(which - nodeCommands, random, document);
    return new CreateEdge(document, anyEdge(random, document.newId(), document.content().nodes));
}

QUndoCommand *EditorFixtures::randomCommand(QRandomGenerator &random, Document &document)
{
    if (const QList<int> all = lanes(document); !all.isEmpty() && random.bounded(12) == 0)
        return new ChangeFlow(document, all, anyOf(random, Names::all<Qt::Orientation>()));
    return someCommand(random.bounded(commandKinds), random, document);
}

} // namespace Editor
