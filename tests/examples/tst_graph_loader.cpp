#include "graphfixtures.h"

#include "load/ModelStream.h"

#include <QDataStream>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <clocale>

using namespace GraphViewer;
using GraphFixtures::Folder;
using GraphFixtures::graph;

namespace {

const GraphBox *find(const QList<GraphBox> &boxes, const char *name)
{
    for (const GraphBox &box : boxes) {
        if (box.name == QLatin1String(name))
            return &box;
    }
    qFatal("no box called %s", name);
}

QStringList names(const QList<GraphBox> &boxes)
{
    QStringList result;
    for (const GraphBox &box : boxes)
        result << box.name;
    return result;
}

QStringList texts(const Drawing &drawing)
{
    QStringList result;
    for (const TextSpan &span : drawing.texts)
        result << span.text;
    return result;
}

QByteArray streamed(const LoadReply &reply)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << reply;
    return bytes;
}

/// Gives the process a language with a decimal comma, made here: few machines have one installed.
class DecimalComma
{
public:
    DecimalComma()
    {
        QProcess::execute(QStringLiteral("localedef"),
                          {QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                           QStringLiteral("UTF-8"),
                           m_folder.filePath(QStringLiteral("de_DE.UTF-8"))});
        qputenv("LOCPATH", QFile::encodeName(m_folder.path()));
        setlocale(LC_NUMERIC, "de_DE.UTF-8");
    }
    ~DecimalComma()
    {
        setlocale(LC_NUMERIC, m_before.constData());
        qunsetenv("LOCPATH");
    }
    Q_DISABLE_COPY_MOVE(DecimalComma)

    static bool isInForce() { return QByteArray(localeconv()->decimal_point) == ","; }

private:
    QTemporaryDir m_folder;
    QByteArray m_before{setlocale(LC_NUMERIC, nullptr)};
};

} // namespace

class tst_GraphLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void theTopLeftCornerIsTheOrigin();
    void aNodeHasTheBoxThatItAsksFor();
    void nodesEdgesAndClustersAreAllThere();
    void innerClustersFollowOuterOnes();
    void anEdgeEndsWhereItsArrowHeadDoes();
    void anUndirectedEdgeIsNamedWithADoubleHyphen();
    void anInvisibleEdgeHasNothingToDraw();
    void anEdgeHasItsLabels();
    void aLabelHasALineForEachOfItsLines();
    void anHtmlLabelIsTextWithTraits();
    void aRecordHasItsFieldsAndTheLinesBetweenThem();
    void anEmptyGraphIsAGraph();
    void aStrictGraphKeepsOneOfParallelEdges();
    void aNamelessGraphHasNoName();
    void namesInLatin1AreUnderstood();
    void theWhitePaperOfTheEngineIsLeftOut();
    void aBackgroundOfTheGraphsOwnIsKept_data();
    void aBackgroundOfTheGraphsOwnIsKept();
    void everyEngineLaysOut_data();
    void everyEngineLaysOut();
    void theEngineInTheFileIsTakenUnlessAnotherIsNamed();
    void imagesAreFoundBesideTheFile();
    void ofSeveralGraphsTheFirstIsTaken();
    void textBehindTheFirstGraphDoesNotComeBeforeTheNext_data();
    void textBehindTheFirstGraphDoesNotComeBeforeTheNext();
    void aDecimalCommaOfTheProcessIsOfNoConsequence();
    void theOrderOfPaintingIsTheGraphs();
    void textThatIsNoGraphIsRefused_data();
    void textThatIsNoGraphIsRefused();
    void anEngineThatDoesNotExistIsRefused();
    void aGraphPlacedBeyondAllBoundsIsRefused_data();
    void aGraphPlacedBeyondAllBoundsIsRefused();
    void moreNodesThanTheLimitAreRefused();
    void moreEdgesThanTheLimitAreRefused();
    void aFaultThatDoesNotStopTheEngineIsARemark();
    void aReplyTravelsThroughAStream();
    void aReplyThatIsCutOffIsNoticed();
};

void tst_GraphLoader::theTopLeftCornerIsTheOrigin()
{
    const GraphModel model = graph("digraph { a -> b }");

    QCOMPARE(model.box.topLeft(), QPointF(0, 0));
    const QRectF upper = find(model.nodes, "a")->box;
    const QRectF lower = find(model.nodes, "b")->box;
    QCOMPARE(upper.top(), 0.0);
    QCOMPARE(lower.bottom(), model.box.bottom());
    QVERIFY(upper.bottom() < lower.top());
}

void tst_GraphLoader::aNodeHasTheBoxThatItAsksFor()
{
    const GraphModel model =
        graph("graph { a [shape=box, fixedsize=true, width=2, height=0.5, label=\"\"] }");

    QCOMPARE(model.nodes.first().box, QRectF(0, 0, 144, 36));
    QCOMPARE(model.nodes.first().shape, QStringLiteral("box"));
    QCOMPARE(model.nodes.first().body.strokes.value(0).path.boundingRect(), QRectF(0, 0, 144, 36));
}

void tst_GraphLoader::nodesEdgesAndClustersAreAllThere()
{
    const GraphModel model =
        graph("digraph G { subgraph cluster_x { label=X; a; b } subgraph y { c } a -> b -> c }");

    QCOMPARE(names(model.nodes), QStringList({"a", "b", "c"}));
    QCOMPARE(names(model.clusters), QStringList("cluster_x"));
    QCOMPARE(texts(model.clusters.first().label), QStringList("X"));
    QVERIFY(model.clusters.first().box.contains(find(model.nodes, "a")->box));
    QCOMPARE(model.edges.size(), 2);
    QCOMPARE(model.edges.at(1).tail, 1);
    QCOMPARE(model.edges.at(1).head, 2);
    QCOMPARE(model.name, QStringLiteral("G"));
    QVERIFY(model.directed);
}

void tst_GraphLoader::innerClustersFollowOuterOnes()
{
    const GraphModel model = graph("graph { subgraph cluster_o { subgraph cluster_i { a } b } }");

    QCOMPARE(names(model.clusters), QStringList({"cluster_o", "cluster_i"}));
    QVERIFY(model.clusters.at(0).box.contains(model.clusters.at(1).box));
}

void tst_GraphLoader::anEdgeEndsWhereItsArrowHeadDoes()
{
    const GraphModel model = graph("digraph { a -> b }");

    const GraphEdge edge = model.edges.first();
    QVERIFY(edge.routed);
    const double gap = find(model.nodes, "b")->box.top() - edge.end.y();
    QVERIFY2(qAbs(gap) < 1, qPrintable(QString::number(gap)));
    QCOMPARE(edge.line.strokes.size(), 1);
    QCOMPARE(edge.arrows.strokes.size(), 1);
    QCOMPARE(edge.arrows.strokes.first().brush, QBrush(Qt::black));
}

void tst_GraphLoader::anUndirectedEdgeIsNamedWithADoubleHyphen()
{
    QCOMPARE(graph("graph { a -- b }").edges.first().name, QStringLiteral("a -- b"));
    QCOMPARE(graph("digraph { a -> b }").edges.first().name, QStringLiteral("a -> b"));
}

void tst_GraphLoader::anInvisibleEdgeHasNothingToDraw()
{
    const GraphModel model = graph("digraph { a -> b [style=invis, label=x] }");

    QVERIFY(model.edges.first().line.isEmpty());
    QVERIFY(model.edges.first().arrows.isEmpty());
}

void tst_GraphLoader::anEdgeHasItsLabels()
{
    const GraphModel model = graph("digraph { a -> b [label=mid, taillabel=t, headlabel=h] }");

    QCOMPARE(texts(model.edges.first().label), QStringList("mid"));
    QCOMPARE(texts(model.edges.first().atTail.label), QStringList("t"));
    QCOMPARE(texts(model.edges.first().atHead.label), QStringList("h"));
}

void tst_GraphLoader::aLabelHasALineForEachOfItsLines()
{
    const GraphModel model =
        graph("graph { a [shape=box, label=\"longest line\\nc\\ll\\lr\\r\"] }");

    const QList<TextSpan> lines = model.nodes.first().label.texts;
    QCOMPARE(texts(model.nodes.first().label), QStringList({"longest line", "c", "l", "r"}));
    QVERIFY(lines.at(0).left.y() < lines.at(1).left.y());
    QVERIFY(lines.at(2).left.x() < lines.at(3).left.x());
}

void tst_GraphLoader::anHtmlLabelIsTextWithTraits()
{
    const GraphModel model = graph("graph { a [label=<<b>fat</b> <i>thin</i>>] }");

    const QList<TextSpan> spans = model.nodes.first().label.texts;
    QCOMPARE(spans.first().text, QStringLiteral("fat"));
    QCOMPARE(spans.first().style.traits, int(TextStyle::Bold));
    QCOMPARE(spans.last().text, QStringLiteral("thin"));
    QCOMPARE(spans.last().style.traits, int(TextStyle::Italic));
}

void tst_GraphLoader::aRecordHasItsFieldsAndTheLinesBetweenThem()
{
    const GraphModel model = graph("graph { a [shape=record, label=\"left|{up|down}\"] }");

    const GraphBox node = model.nodes.first();
    QCOMPARE(texts(node.label), QStringList({"left", "up", "down"}));
    QCOMPARE(node.body.strokes.size(), 3); // the outline and two lines
}

void tst_GraphLoader::anEmptyGraphIsAGraph()
{
    const GraphModel model = graph("digraph nothing {}");

    QCOMPARE(model.name, QStringLiteral("nothing"));
    QVERIFY(model.nodes.isEmpty());
}

void tst_GraphLoader::aStrictGraphKeepsOneOfParallelEdges()
{
    QCOMPARE(graph("strict graph { a -- b; a -- b }").edges.size(), 1);
    QCOMPARE(graph("graph { a -- b; a -- b }").edges.size(), 2);
}

void tst_GraphLoader::aNamelessGraphHasNoName()
{
    QCOMPARE(graph("graph { a }").name, QString());
}

void tst_GraphLoader::namesInLatin1AreUnderstood()
{
    const GraphModel model = graph("graph { charset=latin1; \"\xe4\xf6\" }");

    QCOMPARE(model.nodes.first().name, QString::fromLatin1("\xe4\xf6"));
    QCOMPARE(texts(model.nodes.first().label), QStringList(QString::fromLatin1("\xe4\xf6")));
}

void tst_GraphLoader::theWhitePaperOfTheEngineIsLeftOut()
{
    QVERIFY(graph("graph { a }").background.isEmpty());
}

void tst_GraphLoader::aBackgroundOfTheGraphsOwnIsKept_data()
{
    QTest::addColumn<QByteArray>("color");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("grey") << QByteArray("gray50") << QColor(127, 127, 127);
    QTest::newRow("white on purpose") << QByteArray("white") << QColor(Qt::white);
}

void tst_GraphLoader::aBackgroundOfTheGraphsOwnIsKept()
{
    QFETCH(QByteArray, color);
    QFETCH(QColor, expected);

    const GraphModel model = graph("graph { bgcolor=" + color + "; a }");

    QCOMPARE(model.background.strokes.size(), 1);
    QCOMPARE(model.background.strokes.first().brush, QBrush(expected));
}

void tst_GraphLoader::everyEngineLaysOut_data()
{
    QTest::addColumn<QString>("engine");
    for (const QString &engine : GraphLoader::engines())
        QTest::newRow(qPrintable(engine)) << engine;
}

void tst_GraphLoader::everyEngineLaysOut()
{
    QFETCH(QString, engine);

    const GraphModel model = graph("digraph { a -> {b c d} -> e -> a }", engine);

    QCOMPARE(model.engine, engine);
    QCOMPARE(model.nodes.size(), 5);
    QCOMPARE(model.edges.size(), 7);
    for (const GraphBox &node : model.nodes)
        QVERIFY(model.box.adjusted(-1, -1, 1, 1).contains(node.box));
    for (const GraphEdge &edge : model.edges)
        QVERIFY(edge.routed);
}

void tst_GraphLoader::theEngineInTheFileIsTakenUnlessAnotherIsNamed()
{
    const QByteArray text = "graph { layout=circo; a -- b -- c -- a }";

    QCOMPARE(graph(text).engine, QStringLiteral("circo"));
    QCOMPARE(graph(text, QStringLiteral("dot")).engine, QStringLiteral("dot"));
    QVERIFY(graph(text).nodes.first().box != graph(text, QStringLiteral("dot")).nodes.first().box);
    QCOMPARE(graph("graph { a }").engine, QStringLiteral("dot"));
}

void tst_GraphLoader::imagesAreFoundBesideTheFile()
{
    const Folder folder;
    QImage image(80, 40, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(folder.path(QStringLiteral("red.png"))));
    const QString path = folder.write(QStringLiteral("x.gv"),
                                      "graph { a [shape=box, fixedsize=true, width=2, height=1, "
                                      "label=\"\", image=\"red.png\", imagescale=both] }");

    const LoadReply reply = GraphLoader().load(path);

    QVERIFY2(reply.ok(), qPrintable(reply.error));
    QCOMPARE(reply.graph.remarks, QStringList());
    const QList<Picture> pictures = reply.graph.nodes.first().body.pictures;
    QCOMPARE(pictures.size(), 1);
    QCOMPARE(pictures.first().file, QStringLiteral("red.png"));
    QCOMPARE(pictures.first().box, QRectF(0, 0, 144, 72));
    QCOMPARE(reply.graph.folder, QFileInfo(path).absolutePath());
}

void tst_GraphLoader::ofSeveralGraphsTheFirstIsTaken()
{
    const GraphModel model = graph("graph one { a } graph two { b }");

    QCOMPARE(model.name, QStringLiteral("one"));
    QCOMPARE(names(model.nodes), QStringList("a"));
}

void tst_GraphLoader::textBehindTheFirstGraphDoesNotComeBeforeTheNext_data()
{
    QTest::addColumn<QByteArray>("rest");
    QTest::newRow("another graph") << QByteArray("graph two { b }");
    QTest::newRow("two more") << QByteArray("graph two { b } graph three { c }");
    QTest::newRow("prose") << QByteArray("Dear all,");
    QTest::newRow("half a graph") << QByteArray("graph two { b");
}

void tst_GraphLoader::textBehindTheFirstGraphDoesNotComeBeforeTheNext()
{
    QFETCH(QByteArray, rest);
    QCOMPARE(graph("graph one { a } " + rest).name, QStringLiteral("one"));

    const GraphModel next = graph("graph next { d }");

    QCOMPARE(next.name, QStringLiteral("next"));
    QCOMPARE(names(next.nodes), QStringList("d"));
    QCOMPARE(next.remarks, QStringList());
}

// The engine takes a point itself while it works; what it has written is ours to read.
void tst_GraphLoader::aDecimalCommaOfTheProcessIsOfNoConsequence()
{
    const Folder folder;
    const QString file = folder.write(QStringLiteral("half.gv"),
                                      "digraph { nodesep=0.33 a [width=1.5, fixedsize=true]"
                                      " b [penwidth=2.5, style=filled, fillcolor=\"0.2 0.3 0.7\"]"
                                      " a -> b [arrowsize=0.7, label=z, fontsize=10.5] }");
    const QByteArray expected = streamed(GraphLoader().load(file));
    const DecimalComma comma;
    QVERIFY2(DecimalComma::isInForce(), "Debian's package locales is not installed");

    const LoadReply reply = GraphLoader().load(file);

    QVERIFY(DecimalComma::isInForce());
    QCOMPARE(streamed(reply), expected);
    QCOMPARE(reply.graph.nodes.first().box.width(), 108.0);
}

void tst_GraphLoader::theOrderOfPaintingIsTheGraphs()
{
    QVERIFY(!graph("graph { a }").edgesFirst);
    QVERIFY(!graph("graph { outputorder=nodesfirst; a }").edgesFirst);
    QVERIFY(graph("graph { outputorder=edgesfirst; a }").edgesFirst);
}

// Only faults that leave the engine's reader in order: the reader keeps its state for the next
// text. A string without an end is tested where each text has a process of its own.
void tst_GraphLoader::textThatIsNoGraphIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const QString incomplete = QStringLiteral("the file holds no complete graph");
    QTest::newRow("only a comment") << QByteArray("/* nothing */\n") << incomplete;
    QTest::newRow("prose") << QByteArray("Dear all,\n")
                           << QStringLiteral("syntax error in line 1 near 'Dear'");
    QTest::newRow("edge to nowhere") << QByteArray("digraph {\n a -> ;\n}\n")
                                     << QStringLiteral("syntax error in line 2 near ';'");
}

void tst_GraphLoader::textThatIsNoGraphIsRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, error);
    const Folder folder;
    const QString path = folder.write(QStringLiteral("bad.gv"), text);

    const LoadReply reply = GraphLoader().load(path);

    QCOMPARE(reply.error, path + QStringLiteral(": ") + error);
}

void tst_GraphLoader::anEngineThatDoesNotExistIsRefused()
{
    const LoadReply reply = GraphFixtures::load("graph { layout=magic; a }");

    QVERIFY2(reply.error.contains(
                 QStringLiteral("graph.gv: Layout type: \"magic\" not recognized. Use one of: ")),
             qPrintable(reply.error));
    QVERIFY(!reply.error.contains(QLatin1Char('\n')));
}

void tst_GraphLoader::aGraphPlacedBeyondAllBoundsIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("engine");
    QTest::newRow("no number") << QByteArray("graph { a [pos=\"nan,nan\"] }")
                               << QStringLiteral("neato");
    QTest::newRow("too wide") << QByteArray("graph { a [width=3000000] }") << QStringLiteral("dot");
}

void tst_GraphLoader::aGraphPlacedBeyondAllBoundsIsRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, engine);

    const LoadReply reply = GraphFixtures::load(text, engine);

    QVERIFY2(reply.error.endsWith(
                 QStringLiteral("graph.gv: the layout engine placed the graph beyond all bounds")),
             qPrintable(reply.error));
}

void tst_GraphLoader::moreNodesThanTheLimitAreRefused()
{
    const Folder folder;
    const QString path = folder.write(QStringLiteral("n.gv"), "graph { a b c d }");
    GraphLoader loader;

    loader.setLimits({1000, 4, 10});
    QVERIFY(loader.load(path).ok());

    loader.setLimits({1000, 3, 10});
    QCOMPARE(loader.load(path).error,
             path + QStringLiteral(": the graph is too large: 4 nodes (the limit is 3)"));
}

void tst_GraphLoader::moreEdgesThanTheLimitAreRefused()
{
    const Folder folder;
    const QString path = folder.write(QStringLiteral("e.gv"), "graph { a -- b -- c -- a }");
    GraphLoader loader;

    loader.setLimits({1000, 10, 2});

    QCOMPARE(loader.load(path).error,
             path + QStringLiteral(": the graph is too large: 3 edges (the limit is 2)"));
}

void tst_GraphLoader::aFaultThatDoesNotStopTheEngineIsARemark()
{
    const GraphModel model = graph("graph { a [shape=nosuchshape] b [shape=nosuchshape] }");

    QCOMPARE(model.nodes.size(), 2);
    QCOMPARE(model.remarks, QStringList("using box for unknown shape nosuchshape"));
}

void tst_GraphLoader::aReplyTravelsThroughAStream()
{
    const LoadReply sent = GraphFixtures::load(
        "digraph G { bgcolor=gray; label=title; outputorder=edgesfirst; subgraph cluster_a { a "
        "[style=filled, fillcolor=\"red:blue\", label=<<b>x</b>>] } a -> b [label=l, "
        "style=dashed]; b [shape=nosuch] }");
    QVERIFY(sent.ok());
    const QByteArray bytes = streamed(sent);

    LoadReply received;
    QDataStream stream(bytes);
    stream >> received;

    QCOMPARE(stream.status(), QDataStream::Ok);
    QVERIFY(stream.atEnd());
    QCOMPARE(streamed(received), bytes);
    QCOMPARE(received.graph.edges.first().name, QStringLiteral("a -> b"));
    QCOMPARE(received.graph.remarks, sent.graph.remarks);
}

void tst_GraphLoader::aReplyThatIsCutOffIsNoticed()
{
    const QByteArray bytes = streamed(GraphFixtures::load("digraph { a -> b }"));

    LoadReply received;
    QDataStream stream(bytes.chopped(1));
    stream >> received;

    QVERIFY(stream.status() != QDataStream::Ok);
}

QTEST_GUILESS_MAIN(tst_GraphLoader)
#include "tst_graph_loader.moc"
