#include "edit/Selection.h"

#include "model/Document.h"

namespace Editor {

Selection::Selection(const Document &document, QObject *parent)
    : QObject(parent)
    , m_document(document)
{
}

QList<int> Selection::nodes() const
{
    QList<int> result = m_ids;
    result.removeIf([this](int id) { return !m_document.node(id); });
    return result;
}

QList<int> Selection::edges() const
{
    QList<int> result = m_ids;
    result.removeIf([this](int id) { return !m_document.edge(id); });
    return result;
}

int Selection::singleNode() const
{
    return m_ids.size() == 1 && m_document.node(m_ids.first()) ? m_ids.first() : 0;
}

int Selection::singleEdge() const
{
    return m_ids.size() == 1 && m_document.edge(m_ids.first()) ? m_ids.first() : 0;
}

void Selection::set(const QList<int> &ids)
{
    if (ids == m_ids)
        return;
    m_ids = ids;
    m_set = QSet<int>(ids.cbegin(), ids.cend());
    Q_EMIT changed();
}

void Selection::toggle(int id)
{
    QList<int> ids = m_ids;
    if (!ids.removeOne(id))
        ids << id;
    set(ids);
}

void Selection::add(const QList<int> &more)
{
    QList<int> ids = m_ids;
    for (const int id : more) {
        if (!m_set.contains(id))
            ids << id;
    }
    set(ids);
}

void Selection::selectAll()
{
    set(m_document.nodeOrder() + m_document.edgeOrder());
}

void Selection::prune()
{
    QList<int> ids = m_ids;
    ids.removeIf([this](int id) { return !m_document.node(id) && !m_document.edge(id); });
    set(ids);
}

} // namespace Editor
