#include "files/DocumentReader.h"

#include "files/JsonFields.h"
#include "files/Pictures.h"
#include "model/Names.h"

#include <QJsonDocument>

namespace Editor {
namespace {

constexpr int longestName = 200;

QString item(const char *list, qsizetype index)
{
    return QStringLiteral("%1[%2]").arg(QLatin1String(list)).arg(index);
}

void readStyle(const QJsonValue &value, const QString &where, QString &problem, Style &style)
{
    if (value.isUndefined())
        return;
    JsonFields fields(value, where + QStringLiteral(".style"), problem);
    fields.read(QStringLiteral("line"), &style.line);
    fields.read(QStringLiteral("fill"), &style.fill);
    fields.read(QStringLiteral("text"), &style.text);
    fields.read(QStringLiteral("lineWidth"), &style.lineWidth, 1, Style::largestLineWidth);
    fields.readWord(QStringLiteral("lineStyle"), &style.lineStyle, Names::find<Qt::PenStyle>);
    fields.read(QStringLiteral("fontFamily"), &style.fontFamily, longestName);
    fields.read(QStringLiteral("fontSize"), &style.fontSize, Style::smallestFont,
                Style::largestFont);
    fields.read(QStringLiteral("bold"), &style.bold);
    fields.read(QStringLiteral("italic"), &style.italic);
}

void readPicture(JsonFields &fields, Node &node)
{
    const QString key = QStringLiteral("picture");
    fields.readBase64(key, &node.picture, Limits::picture);
    if (!fields.ok() || node.picture.isEmpty())
        return;
    if (const QString problem = Pictures::problemOf(node.picture); !problem.isEmpty())
        fields.fail(key, problem);
}

Node readNode(const QJsonValue &value, const QString &where, QString &problem)
{
    Node node;
    JsonFields fields(value, where, problem);
    for (const char *key : {"id", "kind", "rect"})
        fields.demand(QLatin1String(key));
    fields.read(QStringLiteral("id"), &node.id, 1, Limits::id);
    fields.readWord(QStringLiteral("kind"), &node.kind, Names::find<NodeKind>);
    fields.read(QStringLiteral("rect"), &node.rect);
    fields.read(QStringLiteral("lane"), &node.lane, 1, Limits::id);
    fields.read(QStringLiteral("text"), &node.text, Limits::text);
    fields.read(QStringLiteral("specimen"), &node.specimen, longestName);
    fields.readWord(QStringLiteral("flow"), &node.flow, Names::find<Qt::Orientation>);
    readPicture(fields, node);
    readStyle(fields.object(QStringLiteral("style")), where, problem, node.style);
    return node;
}

QList<QPoint> readBends(JsonFields &fields)
{
    const QString key = QStringLiteral("bends");
    QList<QPoint> bends;
    const QJsonArray array = fields.array(key, Limits::bends);
    for (const QJsonValue value : array) {
        QList<int> ints;
        if (!JsonFields::toInts(value, 2, &ints)) {
            fields.fail(key, QStringLiteral("not pairs of whole numbers"));
            return {};
        }
        bends << QPoint(ints.at(0), ints.at(1));
    }
    return bends;
}

Edge readEdge(const QJsonValue &value, const QString &where, QString &problem)
{
    Edge edge;
    JsonFields fields(value, where, problem);
    for (const char *key : {"id", "source", "target"})
        fields.demand(QLatin1String(key));
    fields.read(QStringLiteral("id"), &edge.id, 1, Limits::id);
    fields.read(QStringLiteral("source"), &edge.source, 1, Limits::id);
    fields.read(QStringLiteral("target"), &edge.target, 1, Limits::id);
    fields.readWord(QStringLiteral("routing"), &edge.routing, Names::find<Routing>);
    edge.bends = readBends(fields);
    fields.readWord(QStringLiteral("sourceArrow"), &edge.sourceArrow, Names::find<Arrow>);
    fields.readWord(QStringLiteral("targetArrow"), &edge.targetArrow, Names::find<Arrow>);
    fields.read(QStringLiteral("label"), &edge.label, Limits::text);
    fields.read(QStringLiteral("labelPercent"), &edge.labelPercent, 0, 100);
    fields.read(QStringLiteral("labelOffset"), &edge.labelOffset);
    readStyle(fields.object(QStringLiteral("style")), where, problem, edge.style);
    return edge;
}

// Another format or a later version would meet complaints about its details otherwise.
void readHeader(JsonFields &fields)
{
    QString name;
    fields.read(QStringLiteral("format"), &name, longestName);
    if (name != Format::name)
        fields.fail(QStringLiteral("format"), QStringLiteral("this is no diagram of this editor"));
    int version = 0;
    fields.read(QStringLiteral("version"), &version, 1, Limits::id);
    if (version > Format::version)
        fields.fail(QStringLiteral("version"),
                    QStringLiteral("%1 is newer than this editor, which reads %2")
                        .arg(version)
                        .arg(Format::version));
    fields.demand(QStringLiteral("version"));
}

Content readContent(const QJsonObject &object, QString &problem)
{
    JsonFields fields(object, QString(), problem);
    readHeader(fields);
    Content content;
    const QJsonArray nodes = fields.array(QStringLiteral("nodes"), Limits::nodes);
    for (qsizetype i = 0; i < nodes.size() && fields.ok(); ++i)
        content.nodes << readNode(nodes.at(i), item("nodes", i), problem);
    const QJsonArray edges = fields.array(QStringLiteral("edges"), Limits::edges);
    for (qsizetype i = 0; i < edges.size() && fields.ok(); ++i)
        content.edges << readEdge(edges.at(i), item("edges", i), problem);
    return content;
}

} // namespace

ReadResult DocumentReader::read(const QJsonObject &object)
{
    ReadResult result;
    result.content = readContent(object, result.problem);
    if (result.ok())
        result.problem = problemOf(result.content);
    if (!result.ok())
        result.content = {};
    return result;
}

ReadResult DocumentReader::read(const QByteArray &json)
{
    if (json.isEmpty())
        return {{}, QStringLiteral("the file is empty")};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return {{},
                QStringLiteral("damaged, or no diagram: %1 at byte %2")
                    .arg(error.errorString())
                    .arg(error.offset)};
    if (!document.isObject())
        return {{}, QStringLiteral("this is no diagram of this editor")};
    return read(document.object());
}

} // namespace Editor
