#include "model/Content.h"

#include <QHash>
#include <QSet>

namespace Editor {
namespace {

QString at(const char *list, qsizetype index, const QString &problem)
{
    return QStringLiteral("%1[%2]%3").arg(QLatin1String(list)).arg(index).arg(problem);
}

bool isSize(int length)
{
    return length >= Limits::smallestSize && length <= Limits::size;
}

bool isPlaceable(const QRect &rect)
{
    return isSize(rect.width()) && isSize(rect.height()) && Limits::area.contains(rect);
}

/// Goes through a content once, remembering what it has met.
class Check
{
public:
    explicit Check(const Content &content)
        : m_content(content)
    {
    }

    QString run()
    {
        if (m_content.nodes.size() > Limits::nodes)
            return QStringLiteral("nodes: more than %1").arg(Limits::nodes);
        if (m_content.edges.size() > Limits::edges)
            return QStringLiteral("edges: more than %1").arg(Limits::edges);
        for (const Node &node : m_content.nodes)
            m_kinds.insert(node.id, node.kind);
        for (qsizetype i = 0; i < m_content.nodes.size(); ++i) {
            if (const QString problem = problemOfNode(m_content.nodes.at(i)); !problem.isEmpty())
                return at("nodes", i, problem);
        }
        for (qsizetype i = 0; i < m_content.edges.size(); ++i) {
            if (const QString problem = problemOfEdge(m_content.edges.at(i)); !problem.isEmpty())
                return at("edges", i, problem);
        }
        return {};
    }

private:
    QString problemOfId(int id)
    {
        if (id < 1 || id > Limits::id)
            return QStringLiteral(".id: %1 is out of range").arg(id);
        if (m_ids.contains(id))
            return QStringLiteral(".id: %1 is there twice").arg(id);
        m_ids.insert(id);
        return {};
    }

    QString problemOfNode(const Node &node)
    {
        if (const QString problem = problemOfId(node.id); !problem.isEmpty())
            return problem;
        if (!isPlaceable(node.rect))
            return QStringLiteral(".rect: too large, too small or too far out");
        if (node.lane == 0)
            return {};
        if (node.kind == NodeKind::Lane)
            return QStringLiteral(".lane: a lane cannot be in a lane");
        if (!m_kinds.contains(node.lane) || m_kinds.value(node.lane) != NodeKind::Lane)
            return QStringLiteral(".lane: there is no lane %1").arg(node.lane);
        return {};
    }

    QString problemOfEdge(const Edge &edge)
    {
        if (const QString problem = problemOfId(edge.id); !problem.isEmpty())
            return problem;
        if (!m_kinds.contains(edge.source))
            return QStringLiteral(".source: there is no node %1").arg(edge.source);
        if (!m_kinds.contains(edge.target))
            return QStringLiteral(".target: there is no node %1").arg(edge.target);
        for (const QPoint &bend : edge.bends) {
            if (!Limits::area.contains(bend))
                return QStringLiteral(".bends: too far out");
        }
        return {};
    }

    const Content &m_content;
    QHash<int, NodeKind> m_kinds;
    QSet<int> m_ids;
};

} // namespace

QRect fitted(const QRect &rect)
{
    const QSize size(qBound(Limits::smallestSize, rect.width(), Limits::size),
                     qBound(Limits::smallestSize, rect.height(), Limits::size));
    const QRect sized(rect.topLeft(), size);
    return sized.translated(fittedOffset(sized, QPoint()));
}

QPoint fittedOffset(const QRect &rect, const QPoint &offset)
{
    const QRect area = Limits::area;
    return {qBound(area.left() - rect.left(), offset.x(), area.right() - rect.right()),
            qBound(area.top() - rect.top(), offset.y(), area.bottom() - rect.bottom())};
}

QPoint fitted(const QPoint &point)
{
    const QRect area = Limits::area;
    return {qBound(area.left(), point.x(), area.right()),
            qBound(area.top(), point.y(), area.bottom())};
}

QString problemOf(const Content &content)
{
    return Check(content).run();
}

} // namespace Editor
