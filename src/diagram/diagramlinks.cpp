#include "diagramlinks_p.h"

namespace Velmora::Figura {

DiagramLink *DiagramLinks::find(const PolylineConnection *connection)
{
    const auto found = m_links.find(connection);
    return found == m_links.end() ? nullptr : &*found;
}

DiagramLinks::Connections DiagramLinks::at(const Figure *end) const
{
    return m_byEnd.value(end);
}

DiagramLinks::Connections DiagramLinks::all() const
{
    Connections connections;
    for (const PolylineConnection *connection : m_links.keys())
        connections << const_cast<PolylineConnection *>(connection);
    return connections;
}

void DiagramLinks::insert(PolylineConnection *connection, Diagram::Routing routing)
{
    m_links[connection].routing = routing;
}

void DiagramLinks::setEnds(PolylineConnection *connection, Figure *source, Figure *target)
{
    DiagramLink *link = find(connection);
    strike(connection, link->source);
    strike(connection, link->target);
    link->source = source;
    link->target = target;
    enlist(connection, source);
    enlist(connection, target);
}

bool DiagramLinks::remove(PolylineConnection *connection)
{
    const DiagramLink *link = find(connection);
    if (!link)
        return false;
    strike(connection, link->source);
    strike(connection, link->target);
    m_links.remove(connection);
    return true;
}

void DiagramLinks::enlist(PolylineConnection *connection, const Figure *end)
{
    Connections &connections = m_byEnd[end];
    if (!connections.contains(connection))
        connections.append(connection);
}

void DiagramLinks::strike(PolylineConnection *connection, const Figure *end)
{
    const auto found = m_byEnd.find(end);
    if (found == m_byEnd.end())
        return;
    found->removeOne(connection);
    if (found->isEmpty())
        m_byEnd.erase(found);
}

} // namespace Velmora::Figura
