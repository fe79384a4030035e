#include "graphfixtures.h"

#include "load/LayoutProcess.h"
#include "scene/EdgeConnection.h"
#include "scene/SceneBuilder.h"
#include "window/GraphView.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStandardPaths>

Q_DECLARE_METATYPE(GraphViewer::LoadReply)

using namespace GraphViewer;
using Kind = ElementFigure::Kind;

/// Every graph that Debian's package graphviz-doc brings, against what the engine's own program
/// says of it.
class tst_GraphCorpus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void graphIsAsTheEngineSays_data();
    void graphIsAsTheEngineSays();
    void graphIsPainted_data() { graphIsAsTheEngineSays_data(); }
    void graphIsPainted();
    void graphIsPaintedInEveryRouting_data() { graphIsAsTheEngineSays_data(); }
    void graphIsPaintedInEveryRouting();

private:
    QStringList m_files;
};

namespace {

constexpr double oneUnit = 1.0;

QByteArray output(const QString &program, const QStringList &arguments, const QString &folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    if (!process.waitForFinished(120'000))
        return {};
    return process.readAllStandardOutput();
}

// Unpacked by a program that is not ours; the engine's does not read packed files.
QString unpacked(const QString &path, const GraphFixtures::Folder &folder)
{
    if (!path.endsWith(QLatin1String(".gz")))
        return path;
    return folder.write(QStringLiteral("unpacked.gv"),
                        output(QStringLiteral("gzip"), {QStringLiteral("-dc"), path}, QString()));
}

QJsonObject engineSays(const QString &path)
{
    const GraphFixtures::Folder folder;
    const QByteArray json =
        output(QStringLiteral("dot"), {QStringLiteral("-Tjson"), unpacked(path, folder)},
               QFileInfo(path).absolutePath());
    // It copies the bytes of graphs in Latin-1 as they are.
    QJsonDocument document = QJsonDocument::fromJson(json);
    if (document.isNull())
        document = QJsonDocument::fromJson(QString::fromLatin1(json).toUtf8());
    return document.object();
}

// As a window does it, in a process of its own: the engine keeps some state from one layout to the
// next, and then places a few nodes differently.
LoadReply load(const QString &path)
{
    LayoutProcess process;
    process.setProgram(QStringLiteral(GRAPH_VIEWER));
    const QSignalSpy finished(&process, &LayoutProcess::finished);
    process.start(path, QStringLiteral("dot"));
    if (!QTest::qWaitFor([&finished] { return !finished.isEmpty(); }, 120'000))
        return LoadReply::failure(QStringLiteral("no layout in two minutes"));
    return finished.first().first().value<LoadReply>();
}

double number(const QJsonValue &value)
{
    return value.toString().toDouble();
}

// The engine's points have the lower left corner of the graph's box as their origin.
struct Flip
{
    double left = 0;
    double top = 0;

    explicit Flip(const QJsonObject &root)
    {
        const QStringList box = root[QStringLiteral("bb")].toString().split(QLatin1Char(','));
        left = box.value(0).toDouble();
        top = box.value(3).toDouble();
    }

    QPointF operator()(const QString &pair) const
    {
        const QStringList numbers = pair.split(QLatin1Char(','));
        return {numbers.value(0).toDouble() - left, top - numbers.value(1).toDouble()};
    }
};

QRectF boxOf(const QJsonObject &node, const Flip &flip)
{
    constexpr double inch = 72;
    const QSizeF size(number(node[QStringLiteral("width")]) * inch,
                      number(node[QStringLiteral("height")]) * inch);
    QRectF box(QPointF(), size);
    box.moveCenter(flip(node[QStringLiteral("pos")].toString()));
    return box;
}

// "s,1,2 e,3,4 5,6 7,8 ...": the arrow tips, where there are any, and then the curve.
std::pair<QPointF, QPointF> endsOf(const QJsonObject &edge, const Flip &flip)
{
    const QStringList curves =
        edge[QStringLiteral("pos")].toString().split(QLatin1Char(';'), Qt::SkipEmptyParts);
    QStringList first = curves.value(0).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QStringList last = curves.isEmpty()
                                 ? QStringList()
                                 : curves.last().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QString start;
    QString end = last.value(last.size() - 1);
    for (const QString &point : first) {
        if (point.startsWith(QLatin1String("s,")))
            start = point.mid(2);
        else if (start.isEmpty() && !point.startsWith(QLatin1String("e,")))
            start = point;
    }
    for (const QString &point : last) {
        if (point.startsWith(QLatin1String("e,")))
            end = point.mid(2);
    }
    return {flip(start), flip(end)};
}

bool isNear(const QPointF &a, const QPointF &b)
{
    return qAbs(a.x() - b.x()) <= oneUnit && qAbs(a.y() - b.y()) <= oneUnit;
}

bool isNear(const QRectF &a, const QRectF &b)
{
    return isNear(a.topLeft(), b.topLeft()) && isNear(a.bottomRight(), b.bottomRight());
}

QString text(const QRectF &rect)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

QString text(const QPointF &point)
{
    return QStringLiteral("%1,%2").arg(point.x()).arg(point.y());
}

// In the engine's output clusters and other subgraphs come before the nodes.
QList<QJsonObject> objects(const QJsonObject &root, bool nodes)
{
    QList<QJsonObject> result;
    const QJsonArray all = root[QStringLiteral("objects")].toArray();
    const int subgraphs = root[QStringLiteral("_subgraph_cnt")].toInt();
    for (int i = 0; i < all.size(); ++i) {
        if ((i >= subgraphs) == nodes)
            result << all.at(i).toObject();
    }
    return result;
}

QStringList differencesOfNodes(const GraphModel &graph, GraphScene *scene, const QJsonObject &root)
{
    const Flip flip(root);
    const QList<QJsonObject> expected = objects(root, true);
    if (graph.nodes.size() != expected.size())
        return {QStringLiteral("%1 nodes, not %2").arg(graph.nodes.size()).arg(expected.size())};

    QStringList differences;
    const QList<ElementFigure *> figures = scene->elements(Kind::Node);
    for (int i = 0; i < expected.size(); ++i) {
        const QString name = expected.at(i)[QStringLiteral("name")].toString();
        const QRectF box = boxOf(expected.at(i), flip);
        const GraphBox node = graph.nodes.at(i);
        if (node.name != name)
            differences << QStringLiteral("node %1, not %2").arg(node.name, name);
        if (!isNear(node.box, box))
            differences << QStringLiteral("%1 at %2, not %3").arg(name, text(node.box), text(box));
        const QRectF figure = QRectF(figures.at(i)->getBounds());
        if (!isNear(figure, box))
            differences
                << QStringLiteral("figure of %1 at %2, not %3").arg(name, text(figure), text(box));
    }
    return differences;
}

QStringList differencesOfEdges(const GraphModel &graph, const QJsonObject &root)
{
    const Flip flip(root);
    const int subgraphs = root[QStringLiteral("_subgraph_cnt")].toInt();
    const QJsonArray expected = root[QStringLiteral("edges")].toArray();
    if (graph.edges.size() != expected.size())
        return {QStringLiteral("%1 edges, not %2").arg(graph.edges.size()).arg(expected.size())};

    // The engine numbers the edges; ours follow their tails.
    QMultiHash<std::pair<int, int>, GraphEdge> edges;
    for (const GraphEdge &edge : graph.edges)
        edges.insert({edge.tail, edge.head}, edge);

    QStringList differences;
    for (const QJsonValue &value : expected) {
        const QJsonObject edge = value.toObject();
        const std::pair<int, int> nodes(edge[QStringLiteral("tail")].toInt() - subgraphs,
                                        edge[QStringLiteral("head")].toInt() - subgraphs);
        const auto [start, end] = endsOf(edge, flip);
        const QList<GraphEdge> candidates = edges.values(nodes);
        const bool routed = edge.contains(QStringLiteral("pos"));
        const bool found =
            std::any_of(candidates.cbegin(), candidates.cend(), [&](const GraphEdge &candidate) {
                return candidate.routed == routed &&
                       (!routed || (isNear(candidate.start, start) && isNear(candidate.end, end)));
            });
        if (!found)
            differences << QStringLiteral("no edge of nodes %1 and %2 from %3 to %4")
                               .arg(nodes.first)
                               .arg(nodes.second)
                               .arg(text(start), text(end));
    }
    return differences;
}

QStringList differencesOfClusters(const GraphModel &graph, const QJsonObject &root)
{
    const Flip flip(root);
    QMap<QString, QRectF> expected;
    for (const QJsonObject &subgraph : objects(root, false)) {
        const QStringList box = subgraph[QStringLiteral("bb")].toString().split(QLatin1Char(','));
        if (box.size() == 4) {
            const QPointF lowerLeft = flip(box.at(0) + QLatin1Char(',') + box.at(1));
            const QPointF upperRight = flip(box.at(2) + QLatin1Char(',') + box.at(3));
            expected.insert(subgraph[QStringLiteral("name")].toString(),
                            QRectF(lowerLeft, upperRight).normalized());
        }
    }

    QStringList differences;
    for (const GraphBox &cluster : graph.clusters) {
        if (!isNear(cluster.box, expected.take(cluster.name)))
            differences << QStringLiteral("cluster %1 at %2").arg(cluster.name, text(cluster.box));
    }
    for (auto it = expected.cbegin(); it != expected.cend(); ++it)
        differences << QStringLiteral("no cluster %1").arg(it.key());
    return differences;
}

int inkOf(const QImage &image, const QRect &area)
{
    int ink = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            ink += image.pixelColor(x, y) != QColor(Qt::white);
    }
    return ink;
}

} // namespace

void tst_GraphCorpus::initTestCase()
{
    const QByteArray list =
        output(QStringLiteral("dpkg"), {QStringLiteral("-L"), QStringLiteral("graphviz-doc")}, {});
    const QStringList files = QString::fromUtf8(list).split(QLatin1Char('\n'));
    for (const QString &file : files) {
        if (file.endsWith(QLatin1String(".gv")) || file.endsWith(QLatin1String(".gv.gz")))
            m_files << file;
    }
    m_files.sort();
    QVERIFY2(m_files.size() >= 60, "Debian's package graphviz-doc is not installed");
    QVERIFY2(!QStandardPaths::findExecutable(QStringLiteral("dot")).isEmpty(),
             "the program dot of Debian's package graphviz is not installed");
}

void tst_GraphCorpus::graphIsAsTheEngineSays_data()
{
    QTest::addColumn<QString>("path");
    for (const QString &file : std::as_const(m_files))
        QTest::newRow(qPrintable(QFileInfo(file).fileName())) << file;
}

void tst_GraphCorpus::graphIsAsTheEngineSays()
{
    QFETCH(QString, path);
    const QJsonObject root = engineSays(path);

    const LoadReply reply = load(path);

    QCOMPARE(reply.ok(), !root.isEmpty()); // what the engine refuses, we refuse
    if (!reply.ok())
        return;
    const auto scene = SceneBuilder(reply.graph).build();
    const QStringList differences = differencesOfNodes(reply.graph, scene.get(), root) +
                                    differencesOfEdges(reply.graph, root) +
                                    differencesOfClusters(reply.graph, root);
    QVERIFY2(differences.isEmpty(), qPrintable(differences.join(QLatin1Char('\n'))));
}

void tst_GraphCorpus::graphIsPainted()
{
    QFETCH(QString, path);
    const LoadReply reply = load(path);
    QVERIFY2(reply.ok(), qPrintable(reply.error));
    const auto scene = SceneBuilder(reply.graph).build();

    GraphView view;
    view.resize(1000, 800);
    view.setScene(scene.get());
    view.show();
    const QImage image = view.grab().toImage();

    // Whatever the graph, something of each of its halves shows.
    const QRect all = view.fromContent(scene->area());
    QVERIFY(view.viewport()->rect().contains(all.adjusted(2, 2, -2, -2)));
    for (const QRect &half : {all.adjusted(0, 0, 0, -all.height() / 2 + 2),
                              all.adjusted(0, all.height() / 2 - 2, 0, 0)}) {
        const int ink = inkOf(image, half);
        QVERIFY2(ink > 20, qPrintable(QString::number(ink)));
    }
}

void tst_GraphCorpus::graphIsPaintedInEveryRouting()
{
    QFETCH(QString, path);
    const LoadReply reply = load(path);
    QVERIFY2(reply.ok(), qPrintable(reply.error));
    const auto scene = SceneBuilder(reply.graph).build();
    GraphView view;
    view.resize(1000, 800);
    view.setScene(scene.get());
    view.show();

    for (Routing routing : {Routing::Straight, Routing::Manhattan, Routing::Engine}) {
        scene->setRouting(routing);
        const QImage image = view.grab().toImage();
        QVERIFY(inkOf(image, view.fromContent(scene->area()) & image.rect()) > 20);
        for (EdgeConnection *edge : scene->edges()) {
            QVERIFY2(edge->getBounds().isValid(), qPrintable(edge->title()));
            QVERIFY2(edge->getPointCount() >= 2, qPrintable(edge->title()));
        }
    }
}

QTEST_MAIN(tst_GraphCorpus)
#include "tst_graph_corpus.moc"
