#pragma once

#include <figura/diagram/Diagram.h>
#include <figura/shape/TextFigure.h>

#include <array>

namespace Velmora::Figura {

/// What a diagram knows of one connection. The ends are figures that are part of the diagram.
struct DiagramLink
{
    struct Head
    {
        Diagram::Arrow arrow = Diagram::Arrow::None;
        QPointer<Figure> figure;
    };

    Head &head(Diagram::End end) { return heads[end == Diagram::End::Target ? 1 : 0]; }

    Figure *source = nullptr;
    Figure *target = nullptr;
    Diagram::Routing routing = Diagram::Routing::Straight;
    std::array<Head, 2> heads;
    QPointer<TextFigure> label;
};

/// The connections of a diagram, to be found by themselves and by their ends.
class DiagramLinks
{
public:
    using Connections = QList<PolylineConnection *>;

    DiagramLink *find(const PolylineConnection *connection);
    Connections at(const Figure *end) const; ///< Each once.
    Connections all() const;                 ///< In no order.

    void insert(PolylineConnection *connection, Diagram::Routing routing);
    void setEnds(PolylineConnection *connection, Figure *source, Figure *target);
    bool remove(PolylineConnection *connection);

private:
    void enlist(PolylineConnection *connection, const Figure *end);
    void strike(PolylineConnection *connection, const Figure *end);

    QHash<const PolylineConnection *, DiagramLink> m_links;
    QHash<const Figure *, Connections> m_byEnd;
};

} // namespace Velmora::Figura
