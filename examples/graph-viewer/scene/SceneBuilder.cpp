#include "SceneBuilder.h"

#include "EdgeConnection.h"
#include "PictureFigure.h"
#include "TextLine.h"

#include <QDir>

using Velmora::Figura::rebuildPaths;

namespace GraphViewer {
namespace {

QString textOf(const Drawing &drawing)
{
    QStringList words;
    for (const TextSpan &span : drawing.texts)
        words << span.text;
    return words.join(QLatin1Char(' ')).simplified();
}

QString titleOf(const QString &name, const Drawing &label)
{
    const QString text = textOf(label);
    return text.isEmpty() || text == name ? name : name + QStringLiteral(": ") + text;
}

QRectF areaOf(const Drawing &drawing)
{
    QRectF area;
    for (const Stroke &stroke : drawing.strokes)
        area |= stroke.path.boundingRect().adjusted(-0.5, -0.5, 0.5, 0.5);
    for (const TextSpan &span : drawing.texts) {
        const double height = span.style.size;
        area |= QRectF(span.left.x(), span.left.y() - height, qMax(span.width, 1.0), height * 1.25);
    }
    for (const Picture &picture : drawing.pictures)
        area |= picture.box;
    return area;
}

QRect wholeUnits(const QRectF &area)
{
    const QRect rect = area.toRect();
    return {rect.topLeft(), rect.size().expandedTo(QSize(1, 1))};
}

// A node without an outline (plain text, HTML) is hit within its box.
Stroke outlineOf(const GraphBox &box)
{
    if (!box.body.strokes.isEmpty())
        return box.body.strokes.first();
    Stroke stroke{{}, QPen(Qt::NoPen), QBrush(Qt::NoBrush)};
    stroke.path.addRect(box.box);
    return stroke;
}

} // namespace

SceneBuilder::SceneBuilder(const GraphModel &graph)
    : m_graph(graph)
{
}

std::unique_ptr<GraphScene> SceneBuilder::build()
{
    m_scene = std::make_unique<GraphScene>(m_graph.edgesFirst);
    addBackground();
    for (const GraphBox &cluster : m_graph.clusters)
        addBox(cluster, ElementFigure::Kind::Cluster);
    for (const GraphBox &node : m_graph.nodes)
        m_nodes << addBox(node, ElementFigure::Kind::Node);
    countEdges();
    for (const GraphEdge &edge : m_graph.edges)
        addEdge(edge);
    // The tree is not shown yet, so no shape has had its path made by a change of bounds.
    rebuildPaths(m_scene->content());
    return std::move(m_scene);
}

// It covers the whole graph, so that an empty graph has an extent too. Connections have none of
// their own, and curves may swing out of the engine's box.
void SceneBuilder::addBackground()
{
    QRectF area = m_graph.box.united(areaOf(m_graph.label));
    for (const GraphEdge &edge : m_graph.edges)
        area |= areaOf(edge.line) | areaOf(edge.arrows);
    ElementFigure *paper = addElement(ElementFigure::Kind::Background, {}, {}, area);
    addParts(paper, m_graph.background);
    addParts(paper, m_graph.label);
}

ElementFigure *SceneBuilder::addBox(const GraphBox &box, ElementFigure::Kind kind)
{
    const bool drawn = !box.body.isEmpty() || !box.label.isEmpty();
    ElementFigure *element =
        addElement(kind, drawn ? titleOf(box.name, box.label) : QString(), outlineOf(box), box.box);
    addParts(element, box.body, 1);
    addParts(element, box.label);
    element->setShape(box.shape);
    return element;
}

void SceneBuilder::countEdges()
{
    for (const GraphEdge &edge : m_graph.edges)
        ++m_bundles[std::minmax(edge.tail, edge.head)].edges;
}

// The sides of a line are those of its direction, so edges back count from the other side.
double SceneBuilder::lane(const GraphEdge &edge)
{
    Bundle &bundle = m_bundles[std::minmax(edge.tail, edge.head)];
    const double lane = bundle.placed++ - (bundle.edges - 1) / 2.0;
    return edge.tail < edge.head ? lane : -lane;
}

void SceneBuilder::addEdge(const GraphEdge &edge)
{
    EdgeConnection *figure = nullptr;
    const bool drawn = !(areaOf(edge.line) | areaOf(edge.arrows)).isEmpty();
    if (drawn && edge.routed && edge.tail >= 0 && edge.head >= 0) {
        figure = m_scene->addEdge(std::make_unique<EdgeConnection>(titleOf(edge.name, edge.label),
                                                                   edge, m_nodes.at(edge.tail),
                                                                   m_nodes.at(edge.head), nullptr),
                                  lane(edge));
    }
    addEdgeLabels(edge, figure);
}

void SceneBuilder::addEdgeLabels(const GraphEdge &edge, EdgeConnection *figure)
{
    const QString title = titleOf(edge.name, edge.label);
    addEdgeLabel(edge.label, EdgeLabel::Place::Middle, title, figure);
    addEdgeLabel(edge.atTail.label, EdgeLabel::Place::Tail, title, figure);
    addEdgeLabel(edge.atHead.label, EdgeLabel::Place::Head, title, figure);
}

void SceneBuilder::addEdgeLabel(const Drawing &label, EdgeLabel::Place place, const QString &title,
                                EdgeConnection *figure)
{
    if (label.isEmpty())
        return;
    const QRectF area = areaOf(label);
    ElementFigure *element =
        figure ? m_scene->addLabel(
                     std::make_unique<EdgeLabel>(place, title, wholeUnits(area), figure), figure)
               : addElement(ElementFigure::Kind::Label, title, {}, area);
    addParts(element, label);
}

ElementFigure *SceneBuilder::addElement(ElementFigure::Kind kind, const QString &title,
                                        const Stroke &outline, const QRectF &box)
{
    return m_scene->add(
        std::make_unique<ElementFigure>(kind, title, outline, wholeUnits(box), nullptr));
}

void SceneBuilder::addParts(ElementFigure *element, const Drawing &drawing, int firstStroke)
{
    const QPoint origin = element->home().topLeft();
    for (const Stroke &stroke : drawing.strokes.mid(firstStroke)) {
        auto *part = new OutlineFigure(stroke, origin, element);
        element->addPart(part, part->box());
    }
    for (const Picture &picture : drawing.pictures) {
        const QString file = QDir(m_graph.folder).filePath(picture.file);
        element->addPart(new PictureFigure(file, element),
                         picture.box.translated(-origin).toRect());
    }
    for (const TextSpan &span : drawing.texts) {
        auto *part = new TextLine(span, origin, element);
        element->addPart(part, part->box());
    }
}

} // namespace GraphViewer
