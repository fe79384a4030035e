#include "GraphLoader.h"

#include "EngineMessages.h"
#include "GraphFile.h"
#include "GraphReader.h"

#include <gvc.h>

#include <QFileInfo>

#include <memory>

namespace GraphViewer {
namespace {

struct CloseGraph
{
    void operator()(Agraph_t *graph) const { agclose(graph); }
};
using GraphPointer = std::unique_ptr<Agraph_t, CloseGraph>;

// What an earlier text has behind its first graph, in the same line, the engine's reader still
// holds and would take for the beginning of the next.
void forgetEarlierText()
{
    const EngineMessages ignored;
    while (const GraphPointer rest{agmemread("")}) {
    }
}

// One for as long as the process lives: the engine's text plugin remembers the name of the last
// font beyond the end of the context that owns it.
GVC_t *engineContext()
{
    static GVC_t *const context = gvContext();
    return context;
}

// A layout must go before its graph does.
class Layout
{
public:
    Layout(GVC_t *context, Agraph_t *graph, const QByteArray &engine)
        : m_context(context)
        , m_graph(graph)
        , m_done(gvLayout(context, graph, engine.constData()) == 0)
    {
    }
    ~Layout() { gvFreeLayout(m_context, m_graph); }
    Q_DISABLE_COPY_MOVE(Layout)

    // With no output file the engine only attaches its drawing operations to the graph.
    bool attachDrawing() const
    {
        return m_done && gvRender(m_context, m_graph, "xdot", nullptr) == 0;
    }

private:
    GVC_t *m_context;
    Agraph_t *m_graph;
    bool m_done;
};

QByteArray attribute(Agraph_t *graph, const char *name)
{
    return QByteArray(agget(graph, const_cast<char *>(name)));
}

void setAttribute(Agraph_t *graph, const char *name, QByteArray value)
{
    agsafeset(graph, const_cast<char *>(name), value.data(), const_cast<char *>(""));
}

// A "layout" in the graph would win over the engine that we name, so a wish of the user's has to
// replace it.
QByteArray settleEngine(Agraph_t *graph, const QString &wish)
{
    if (!wish.isEmpty())
        setAttribute(graph, "layout", wish.toLatin1());
    const QByteArray asked = attribute(graph, "layout");
    return asked.isEmpty() ? QByteArrayLiteral("dot") : asked;
}

// Images are named relative to the graph file, wherever we are started.
void settleImagePath(Agraph_t *graph, const QString &folder)
{
    if (attribute(graph, "imagepath").isEmpty())
        setAttribute(graph, "imagepath", folder.toUtf8());
}

QString orElse(const QString &text, const QString &otherwise)
{
    return text.isEmpty() ? otherwise : text;
}

QString whyTooMany(Agraph_t *graph, const GraphLoader::Limits &limits)
{
    if (agnnodes(graph) > limits.nodes) {
        return QStringLiteral("the graph is too large: %1 nodes (the limit is %2)")
            .arg(agnnodes(graph))
            .arg(limits.nodes);
    }
    if (agnedges(graph) > limits.edges) {
        return QStringLiteral("the graph is too large: %1 edges (the limit is %2)")
            .arg(agnedges(graph))
            .arg(limits.edges);
    }
    return {};
}

// Some attributes make the engine answer with coordinates that are no numbers, or that are more
// than a figure's whole units can hold.
bool isUsable(const QPointF &point)
{
    constexpr double farthest = 100'000'000;
    return qAbs(point.x()) <= farthest &&
           qAbs(point.y()) <= farthest; // false for what is no number
}

bool isUsable(const QRectF &box)
{
    return isUsable(box.topLeft()) && isUsable(box.bottomRight());
}

bool isUsable(const GraphModel &graph)
{
    const auto boxOk = [](const GraphBox &box) { return isUsable(box.box); };
    const auto edgeOk = [](const GraphEdge &edge) {
        return !edge.routed || (isUsable(edge.start) && isUsable(edge.end));
    };
    return isUsable(graph.box) &&
           std::all_of(graph.clusters.cbegin(), graph.clusters.cend(), boxOk) &&
           std::all_of(graph.nodes.cbegin(), graph.nodes.cend(), boxOk) &&
           std::all_of(graph.edges.cbegin(), graph.edges.cend(), edgeOk);
}

} // namespace

GraphLoader::GraphLoader(const QString &engine)
    : m_engine(engine)
{
}

GraphLoader::Limits GraphLoader::defaultLimits()
{
    return {GraphFile::MaximumSize, 20'000, 50'000};
}

QStringList GraphLoader::engines()
{
    return {QStringLiteral("dot"), QStringLiteral("neato"), QStringLiteral("fdp"),
            QStringLiteral("circo"), QStringLiteral("twopi")};
}

LoadReply GraphLoader::load(const QString &path) const
{
    const FileText file = GraphFile::read(path, m_limits.bytes);
    LoadReply reply = file.error.isEmpty() ? layOut(file.text, QFileInfo(path).absolutePath())
                                           : LoadReply::failure(file.error);
    if (!reply.ok())
        reply.error.prepend(path + QStringLiteral(": "));
    return reply;
}

LoadReply GraphLoader::layOut(const QByteArray &text, const QString &folder) const
{
    forgetEarlierText();
    const EngineMessages messages;
    GVC_t *const context = engineContext();
    agreadline(1); // an earlier text has left its own line number
    const GraphPointer graph(agmemread(text.constData()));
    if (!graph) {
        return LoadReply::failure(
            orElse(messages.firstError(), QStringLiteral("the file holds no complete graph")));
    }

    const QString tooMany = whyTooMany(graph.get(), m_limits);
    if (!tooMany.isEmpty())
        return LoadReply::failure(tooMany);

    const QByteArray engine = settleEngine(graph.get(), m_engine);
    settleImagePath(graph.get(), folder);
    const Layout layout(context, graph.get(), engine);
    if (!layout.attachDrawing()) {
        return LoadReply::failure(
            orElse(messages.firstError(), QStringLiteral("the layout engine refused the graph")));
    }

    LoadReply reply;
    reply.graph = GraphReader(graph.get()).read();
    if (!isUsable(reply.graph)) {
        return LoadReply::failure(
            QStringLiteral("the layout engine placed the graph beyond all bounds"));
    }
    reply.graph.engine = QString::fromUtf8(engine);
    reply.graph.folder = folder;
    reply.graph.remarks = messages.lines();
    return reply;
}

} // namespace GraphViewer
