#include "model/Names.h"

namespace Editor::Names {
namespace {

template<class Enum>
struct Entry
{
    Enum value;
    const char *name;
};

constexpr Entry<NodeKind> nodeKinds[] = {
    {NodeKind::Rectangle, "rectangle"}, {NodeKind::Rounded, "rounded"},
    {NodeKind::Ellipse, "ellipse"},     {NodeKind::Diamond, "diamond"},
    {NodeKind::Text, "text"},           {NodeKind::Picture, "picture"},
    {NodeKind::Lane, "lane"},           {NodeKind::Specimen, "specimen"},
};
constexpr Entry<Routing> routings[] = {
    {Routing::Straight, "straight"},
    {Routing::Bendpoint, "bendpoint"},
    {Routing::Manhattan, "manhattan"},
};
constexpr Entry<Arrow> arrows[] = {
    {Arrow::None, "none"},
    {Arrow::Open, "open"},
    {Arrow::Filled, "filled"},
    {Arrow::Diamond, "diamond"},
};
constexpr Entry<Qt::PenStyle> lineStyles[] = {
    {Qt::SolidLine, "solid"},      {Qt::DashLine, "dash"}, {Qt::DotLine, "dot"},
    {Qt::DashDotLine, "dash-dot"}, {Qt::NoPen, "none"},
};
constexpr Entry<Qt::Orientation> orientations[] = {
    {Qt::Vertical, "vertical"},
    {Qt::Horizontal, "horizontal"},
};

template<class Enum>
constexpr auto &table()
{
    if constexpr (std::is_same_v<Enum, NodeKind>)
        return nodeKinds;
    else if constexpr (std::is_same_v<Enum, Routing>)
        return routings;
    else if constexpr (std::is_same_v<Enum, Arrow>)
        return arrows;
    else if constexpr (std::is_same_v<Enum, Qt::PenStyle>)
        return lineStyles;
    else
        return orientations;
}

template<class Enum>
QString nameOf(Enum value)
{
    for (const Entry<Enum> &entry : table<Enum>()) {
        if (entry.value == value)
            return QLatin1String(entry.name);
    }
    return {};
}

} // namespace

QString of(NodeKind kind)
{
    return nameOf(kind);
}

QString of(Routing routing)
{
    return nameOf(routing);
}

QString of(Arrow arrow)
{
    return nameOf(arrow);
}

QString of(Qt::PenStyle style)
{
    return nameOf(style);
}

QString of(Qt::Orientation orientation)
{
    return nameOf(orientation);
}

template<class Enum>
std::optional<Enum> find(const QString &name)
{
    for (const Entry<Enum> &entry : table<Enum>()) {
        if (name == QLatin1String(entry.name))
            return entry.value;
    }
    return std::nullopt;
}

template<class Enum>
QList<Enum> all()
{
    QList<Enum> result;
    for (const Entry<Enum> &entry : table<Enum>())
        result << entry.value;
    return result;
}

template std::optional<NodeKind> find(const QString &);
template std::optional<Routing> find(const QString &);
template std::optional<Arrow> find(const QString &);
template std::optional<Qt::PenStyle> find(const QString &);
template std::optional<Qt::Orientation> find(const QString &);

template QList<NodeKind> all();
template QList<Routing> all();
template QList<Arrow> all();
template QList<Qt::PenStyle> all();
template QList<Qt::Orientation> all();

} // namespace Editor::Names
