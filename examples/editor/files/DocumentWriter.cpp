#include "files/DocumentReader.h"
#include "model/Names.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Editor {
namespace {

/// Leaves out what a reader would assume anyway.
class Fields
{
public:
    template<class Value>
    void add(const char *key, const Value &value, const Value &usual)
    {
        if (value != usual)
            m_object.insert(QLatin1String(key), toJson(value));
    }

    void insert(const char *key, const QJsonValue &value)
    {
        m_object.insert(QLatin1String(key), value);
    }

    const QJsonObject &object() const { return m_object; }

    static QJsonValue toJson(int value) { return value; }
    static QJsonValue toJson(bool value) { return value; }
    static QJsonValue toJson(const QString &value) { return value; }
    static QJsonValue toJson(const QColor &value) { return value.name(QColor::HexArgb); }
    static QJsonValue toJson(const QPoint &value) { return QJsonArray{value.x(), value.y()}; }
    static QJsonValue toJson(const QRect &value)
    {
        return QJsonArray{value.x(), value.y(), value.width(), value.height()};
    }
    static QJsonValue toJson(const QByteArray &value)
    {
        return QString::fromLatin1(value.toBase64());
    }
    static QJsonValue toJson(const QList<QPoint> &value)
    {
        QJsonArray array;
        for (const QPoint &point : value)
            array.append(toJson(point));
        return array;
    }
    template<class Enum>
    static QJsonValue toJson(Enum value) requires std::is_enum_v<Enum>
    {
        return Names::of(value);
    }

private:
    QJsonObject m_object;
};

void addStyle(Fields &fields, const Style &style)
{
    const Style usual;
    Fields own;
    own.add("line", style.line, usual.line);
    own.add("fill", style.fill, usual.fill);
    own.add("text", style.text, usual.text);
    own.add("lineWidth", style.lineWidth, usual.lineWidth);
    own.add("lineStyle", style.lineStyle, usual.lineStyle);
    own.add("fontFamily", style.fontFamily, usual.fontFamily);
    own.add("fontSize", style.fontSize, usual.fontSize);
    own.add("bold", style.bold, usual.bold);
    own.add("italic", style.italic, usual.italic);
    if (!own.object().isEmpty())
        fields.insert("style", own.object());
}

QJsonObject toObject(const Node &node)
{
    const Node usual;
    Fields fields;
    fields.insert("id", node.id);
    fields.insert("kind", Names::of(node.kind));
    fields.insert("rect", Fields::toJson(node.rect));
    fields.add("lane", node.lane, usual.lane);
    fields.add("text", node.text, usual.text);
    fields.add("picture", node.picture, usual.picture);
    fields.add("specimen", node.specimen, usual.specimen);
    fields.add("flow", node.flow, usual.flow);
    addStyle(fields, node.style);
    return fields.object();
}

QJsonObject toObject(const Edge &edge)
{
    const Edge usual;
    Fields fields;
    fields.insert("id", edge.id);
    fields.insert("source", edge.source);
    fields.insert("target", edge.target);
    fields.add("routing", edge.routing, usual.routing);
    fields.add("bends", edge.bends, usual.bends);
    fields.add("sourceArrow", edge.sourceArrow, usual.sourceArrow);
    fields.add("targetArrow", edge.targetArrow, usual.targetArrow);
    fields.add("label", edge.label, usual.label);
    fields.add("labelPercent", edge.labelPercent, usual.labelPercent);
    fields.add("labelOffset", edge.labelOffset, usual.labelOffset);
    addStyle(fields, edge.style);
    return fields.object();
}

template<class Item>
QJsonArray toArray(const QList<Item> &items)
{
    QJsonArray array;
    for (const Item &item : items)
        array.append(toObject(item));
    return array;
}

} // namespace

QJsonObject DocumentWriter::toObject(const Content &content)
{
    return {{QStringLiteral("format"), Format::name},
            {QStringLiteral("version"), Format::version},
            {QStringLiteral("nodes"), toArray(content.nodes)},
            {QStringLiteral("edges"), toArray(content.edges)}};
}

QByteArray DocumentWriter::write(const Content &content)
{
    return QJsonDocument(toObject(content)).toJson();
}

} // namespace Editor
