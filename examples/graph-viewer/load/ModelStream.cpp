#include "ModelStream.h"

#include <QDataStream>

#include <concepts>
#include <tuple>

namespace GraphViewer {

// The members of each structure are listed once, for both directions.

template<typename T, typename Structure>
concept Is = std::same_as<std::remove_const_t<T>, Structure>;

auto members(Is<Stroke> auto &s)
{
    return std::tie(s.path, s.pen, s.brush);
}
auto members(Is<TextStyle> auto &s)
{
    return std::tie(s.face, s.size, s.traits, s.color);
}
auto members(Is<TextSpan> auto &s)
{
    return std::tie(s.text, s.style, s.left, s.width);
}
auto members(Is<Picture> auto &s)
{
    return std::tie(s.box, s.file);
}
auto members(Is<Drawing> auto &s)
{
    return std::tie(s.strokes, s.texts, s.pictures);
}
auto members(Is<GraphBox> auto &s)
{
    return std::tie(s.name, s.shape, s.box, s.body, s.label);
}
auto members(Is<EdgeEnd> auto &s)
{
    return std::tie(s.arrow, s.label);
}
auto members(Is<GraphEdge> auto &s)
{
    return std::tie(s.tail, s.head, s.name, s.routed, s.start, s.end, s.curve, s.line, s.arrows,
                    s.label, s.arrowSize, s.atTail, s.atHead);
}
auto members(Is<GraphModel> auto &s)
{
    return std::tie(s.name, s.engine, s.folder, s.directed, s.edgesFirst, s.box, s.background,
                    s.label, s.clusters, s.nodes, s.edges, s.remarks);
}

template<typename T>
concept Listed = requires(T &value)
{
    members(value);
};

template<Listed T>
QDataStream &operator<<(QDataStream &out, const T &value)
{
    std::apply([&out](const auto &...member) { (out << ... << member); }, members(value));
    return out;
}

template<Listed T>
QDataStream &operator>>(QDataStream &in, T &value)
{
    std::apply([&in](auto &...member) { (in >> ... >> member); }, members(value));
    return in;
}

QDataStream &operator<<(QDataStream &out, const LoadReply &reply)
{
    return out << reply.error << reply.graph;
}

QDataStream &operator>>(QDataStream &in, LoadReply &reply)
{
    return in >> reply.error >> reply.graph;
}

} // namespace GraphViewer
