#include "GraphReader.h"

#include <gvc.h>

namespace GraphViewer {
namespace {

// The engine's origin is anywhere and its y grows upwards; ours is the top left corner.
QTransform flipped(Agraph_t *graph)
{
    const boxf box = GD_bb(graph);
    return QTransform(1, 0, 0, -1, -box.LL.x, box.UR.y);
}

QPointF qt(const pointf &point)
{
    return {point.x, point.y};
}

// The engine paints white paper under every graph that names no background. We leave it out, so
// that the grid behind the graph can be seen.
bool isPaper(const Stroke &stroke)
{
    return stroke.pen.style() == Qt::NoPen && stroke.brush == QBrush(Qt::white);
}

// The engine makes up names for graphs that have none.
QString withoutMadeUpName(const QString &name)
{
    return name.startsWith(QLatin1Char('%')) ? QString() : name;
}

} // namespace

GraphReader::GraphReader(Agraph_s *graph)
    : m_graph(graph)
    , m_toScene(flipped(graph))
    , m_parser(m_toScene)
{
}

GraphModel GraphReader::read()
{
    const boxf box = GD_bb(m_graph);
    m_model.name = withoutMadeUpName(text(agnameof(m_graph)));
    m_model.directed = agisdirected(m_graph);
    m_model.box = toScene(box.LL.x, box.LL.y, box.UR.x, box.UR.y);
    m_model.edgesFirst = attribute(m_graph, "outputorder") == QLatin1String("edgesfirst");
    readBackground();
    readClusters(m_graph);
    readNodes();
    readEdges();
    return m_model;
}

void GraphReader::readBackground()
{
    m_model.background = drawing(m_graph, {"_draw_"});
    m_model.label = drawing(m_graph, {"_ldraw_"});
    if (attribute(m_graph, "bgcolor").isEmpty())
        m_model.background.strokes.removeIf(isPaper);
}

void GraphReader::readNodes()
{
    m_model.nodes.reserve(agnnodes(m_graph));
    for (Agnode_t *node = agfstnode(m_graph); node; node = agnxtnode(m_graph, node)) {
        m_nodeIndices.insert(node, static_cast<int>(m_model.nodes.size()));
        m_model.nodes << readNode(node);
    }
}

GraphBox GraphReader::readNode(Agnode_s *node)
{
    const pointf centre = ND_coord(node);
    const double height = ND_ht(node);
    GraphBox result;
    result.name = text(agnameof(node));
    result.shape = text(ND_shape(node)->name);
    result.box = toScene(centre.x - ND_lw(node), centre.y - height / 2, centre.x + ND_rw(node),
                         centre.y + height / 2);
    result.body = drawing(node, {"_draw_"});
    result.label = drawing(node, {"_ldraw_"});
    return result;
}

void GraphReader::readClusters(Agraph_s *graph)
{
    for (int i = 1; i <= GD_n_cluster(graph); ++i) {
        Agraph_t *cluster = GD_clust(graph)[i];
        const boxf box = GD_bb(cluster);
        GraphBox result;
        result.name = text(agnameof(cluster));
        result.box = toScene(box.LL.x, box.LL.y, box.UR.x, box.UR.y);
        result.body = drawing(cluster, {"_draw_"});
        result.label = drawing(cluster, {"_ldraw_"});
        m_model.clusters << result;
        readClusters(cluster);
    }
}

void GraphReader::readEdges()
{
    m_model.edges.reserve(agnedges(m_graph));
    for (Agnode_t *node = agfstnode(m_graph); node; node = agnxtnode(m_graph, node)) {
        for (Agedge_t *edge = agfstout(m_graph, node); edge; edge = agnxtout(m_graph, edge))
            m_model.edges << readEdge(edge);
    }
}

GraphEdge GraphReader::readEdge(Agedge_s *edge)
{
    GraphEdge result;
    result.tail = m_nodeIndices.value(agtail(edge), -1);
    result.head = m_nodeIndices.value(aghead(edge), -1);
    result.name = text(agnameof(agtail(edge))) +
                  (m_model.directed ? QStringLiteral(" -> ") : QStringLiteral(" -- ")) +
                  text(agnameof(aghead(edge)));
    result.line = drawing(edge, {"_draw_"});
    result.arrows = drawing(edge, {"_tdraw_", "_hdraw_"});
    result.label = drawing(edge, {"_ldraw_"});
    result.atTail = readEnd(edge, false);
    result.atHead = readEnd(edge, true);
    const QString size = attribute(edge, "arrowsize");
    result.arrowSize = size.isEmpty() ? 1 : size.toDouble();
    readEnds(edge, &result);
    return result;
}

void GraphReader::readEnds(Agedge_s *edge, GraphEdge *result) const
{
    const splines *curves = ED_spl(edge);
    result->routed = curves && curves->size > 0;
    if (!result->routed)
        return;

    const bezier &first = curves->list[0];
    const bezier &last = curves->list[curves->size - 1];
    result->start = m_toScene.map(qt(first.sflag ? first.sp : first.list[0]));
    result->end = m_toScene.map(qt(last.eflag ? last.ep : last.list[last.size - 1]));
    for (int i = 0; i < curves->size; ++i)
        readCurve(curves->list[i], &result->curve);
}

// Several curves are those of an edge that is interrupted; we run straight over the gap.
void GraphReader::readCurve(const bezier &curve, QPainterPath *path) const
{
    const auto point = [&](int index) { return m_toScene.map(qt(curve.list[index])); };
    if (path->isEmpty())
        path->moveTo(point(0));
    else
        path->lineTo(point(0));
    for (int i = 0; i + 3 < curve.size; i += 3)
        path->cubicTo(point(i + 1), point(i + 2), point(i + 3));
}

EdgeEnd GraphReader::readEnd(Agedge_s *edge, bool head)
{
    EdgeEnd end;
    end.arrow = QStringLiteral("none");
    if (hasArrow(edge, head)) {
        const QString named = attribute(edge, head ? "arrowhead" : "arrowtail");
        end.arrow = named.isEmpty() ? QStringLiteral("normal") : named;
    }
    end.label = drawing(edge, {head ? "_hldraw_" : "_tldraw_"});
    return end;
}

bool GraphReader::hasArrow(Agedge_s *edge, bool head) const
{
    const QString direction = attribute(edge, "dir");
    if (direction.isEmpty())
        return head && m_model.directed;
    return direction == QLatin1String("both") ||
           direction == QLatin1String(head ? "forward" : "back");
}

QRectF GraphReader::toScene(double left, double bottom, double right, double top) const
{
    return m_toScene.mapRect(QRectF(QPointF(left, bottom), QPointF(right, top)));
}

Drawing GraphReader::drawing(void *element, std::initializer_list<const char *> attributes)
{
    Drawing result;
    for (const char *attribute : attributes)
        m_parser.parse(QByteArray(agget(element, const_cast<char *>(attribute))), &result);
    return result;
}

QString GraphReader::attribute(void *element, const char *name) const
{
    return text(agget(element, const_cast<char *>(name)));
}

// The engine turns labels into UTF-8, but keeps names in the graph's own encoding.
QString GraphReader::text(const char *bytes) const
{
    constexpr unsigned char latin1 = 1;
    return GD_charset(m_graph) == latin1 ? QString::fromLatin1(bytes) : QString::fromUtf8(bytes);
}

} // namespace GraphViewer
