#include "graphfixtures.h"

#include "load/ColorParser.h"

#include <QRegularExpression>
#include <QTransform>

using namespace GraphViewer;

class tst_GraphColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void aColorIsReadFromItsDigits_data();
    void aColorIsReadFromItsDigits();
    void aLinearGradientRunsBetweenItsPoints();
    void aRadialGradientRunsBetweenItsCircles();
    void aGradientThatBreaksOffIsBlack_data();
    void aGradientThatBreaksOffIsBlack();
    void everyWayToNameAColorFillsANode_data();
    void everyWayToNameAColorFillsANode();
    void aColorThatTheEngineDoesNotKnowIsBlackAndRemarkedOn_data();
    void aColorThatTheEngineDoesNotKnowIsBlackAndRemarkedOn();
    void aListOfTwoFillColorsIsAGradient();
    void aListOfLineColorsDrawsParallelLines();
};

void tst_GraphColors::aColorIsReadFromItsDigits_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("opaque") << QByteArray("#12aBcD") << QColor(0x12, 0xab, 0xcd);
    QTest::newRow("with alpha") << QByteArray("#12abcd80") << QColor(0x12, 0xab, 0xcd, 0x80);
    QTest::newRow("transparent") << QByteArray("#fffffe00") << QColor(255, 255, 254, 0);
    QTest::newRow("empty") << QByteArray() << QColor(Qt::black);
    QTest::newRow("a name") << QByteArray("red") << QColor(Qt::black);
    QTest::newRow("too short") << QByteArray("#12345") << QColor(Qt::black);
    QTest::newRow("not digits") << QByteArray("#12345g") << QColor(Qt::black);
}

void tst_GraphColors::aColorIsReadFromItsDigits()
{
    QFETCH(QByteArray, text);
    QFETCH(QColor, expected);

    QCOMPARE(ColorParser::color(text), expected);
    QCOMPARE(ColorParser::brush(text, {}), QBrush(expected));
}

void tst_GraphColors::aLinearGradientRunsBetweenItsPoints()
{
    const QTransform flip(1, 0, 0, -1, 0, 100);

    const QBrush brush = ColorParser::brush("[0 10 50 20 2 0 7 -#ff0000 1 9 -#0000ff80]", flip);

    QCOMPARE(brush.style(), Qt::LinearGradientPattern);
    const auto *gradient = static_cast<const QLinearGradient *>(brush.gradient());
    QCOMPARE(gradient->start(), QPointF(0, 90));
    QCOMPARE(gradient->finalStop(), QPointF(50, 80));
    QCOMPARE(gradient->stops(),
             QGradientStops({{0, QColor(Qt::red)}, {1, QColor(0, 0, 255, 128)}}));
}

void tst_GraphColors::aRadialGradientRunsBetweenItsCircles()
{
    const QTransform flip(1, 0, 0, -1, 0, 100);

    const QBrush brush = ColorParser::brush("(30 40 5 31 42 25 2 0 7 -#ffffff 1 7 -#000000)", flip);

    QCOMPARE(brush.style(), Qt::RadialGradientPattern);
    const auto *gradient = static_cast<const QRadialGradient *>(brush.gradient());
    QCOMPARE(gradient->focalPoint(), QPointF(30, 60));
    QCOMPARE(gradient->focalRadius(), 5.0);
    QCOMPARE(gradient->center(), QPointF(31, 58));
    QCOMPARE(gradient->radius(), 25.0);
    QCOMPARE(gradient->stops(), QGradientStops({{0, QColor(Qt::white)}, {1, QColor(Qt::black)}}));
}

void tst_GraphColors::aGradientThatBreaksOffIsBlack_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("nothing") << QByteArray("[]");
    QTest::newRow("no bracket at the end") << QByteArray("[");
    QTest::newRow("too few points") << QByteArray("[0 10 50]");
    QTest::newRow("too few stops") << QByteArray("[0 10 50 20 2 0 7 -#ff0000]");
    QTest::newRow("stop without a colour") << QByteArray("(1 2 3 4 5 6 1 0)");
}

void tst_GraphColors::aGradientThatBreaksOffIsBlack()
{
    QFETCH(QByteArray, text);

    QCOMPARE(ColorParser::brush(text, {}), QBrush(Qt::black));
}

void tst_GraphColors::everyWayToNameAColorFillsANode_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("name") << QByteArray("red") << QColor(255, 0, 0);
    QTest::newRow("name with a shade") << QByteArray("antiquewhite3") << QColor(205, 192, 176);
    QTest::newRow("upper case") << QByteArray("SteelBlue") << QColor(70, 130, 180);
    QTest::newRow("digits") << QByteArray("#12ab0f") << QColor(0x12, 0xab, 0x0f);
    QTest::newRow("digits with alpha") << QByteArray("#12ab0f40") << QColor(0x12, 0xab, 0x0f, 0x40);
    QTest::newRow("hue, saturation, value") << QByteArray("0.5 1 1") << QColor(0, 255, 255);
    QTest::newRow("with commas") << QByteArray("0.333,1.0,1.0") << QColor(0, 255, 0);
    QTest::newRow("scheme") << QByteArray("/accent8/1") << QColor(127, 201, 127);
    QTest::newRow("name in a scheme") << QByteArray("/svg/green") << QColor(0, 128, 0);
    QTest::newRow("default scheme") << QByteArray("//green") << QColor(0, 255, 0);
}

void tst_GraphColors::everyWayToNameAColorFillsANode()
{
    QFETCH(QByteArray, attribute);
    QFETCH(QColor, expected);

    const GraphModel graph =
        GraphFixtures::graph("graph { a [style=filled, fillcolor=\"" + attribute + "\"] }");

    QCOMPARE(graph.nodes.size(), 1);
    const QColor color = graph.nodes.first().body.strokes.value(0).brush.color();
    QVERIFY2(qAbs(color.red() - expected.red()) <= 1, qPrintable(color.name(QColor::HexArgb)));
    QVERIFY2(qAbs(color.green() - expected.green()) <= 1, qPrintable(color.name(QColor::HexArgb)));
    QVERIFY2(qAbs(color.blue() - expected.blue()) <= 1, qPrintable(color.name(QColor::HexArgb)));
    QCOMPARE(color.alpha(), expected.alpha());
}

void tst_GraphColors::aColorThatTheEngineDoesNotKnowIsBlackAndRemarkedOn_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::newRow("no such name") << QByteArray("nosuchcolor");
    QTest::newRow("too few digits") << QByteArray("#1a3");
    QTest::newRow("no such scheme") << QByteArray("/nosuch8/1");
    QTest::newRow("beyond the scheme") << QByteArray("/accent8/9");
}

void tst_GraphColors::aColorThatTheEngineDoesNotKnowIsBlackAndRemarkedOn()
{
    QFETCH(QByteArray, attribute);

    const GraphModel graph =
        GraphFixtures::graph("graph { a [style=filled, fillcolor=\"" + attribute + "\"] }");

    QCOMPARE(graph.nodes.value(0).body.strokes.value(0).brush, QBrush(Qt::black));
    QCOMPARE(graph.remarks.size(), 1);
    QVERIFY2(graph.remarks.first().endsWith(QStringLiteral(" is not a known color.")),
             qPrintable(graph.remarks.first()));
}

void tst_GraphColors::aListOfTwoFillColorsIsAGradient()
{
    const GraphModel graph =
        GraphFixtures::graph("graph { a [shape=box, style=filled, fillcolor=\"red:blue\"] }");

    const QBrush brush = graph.nodes.value(0).body.strokes.value(0).brush;
    QCOMPARE(brush.style(), Qt::LinearGradientPattern);
    QCOMPARE(brush.gradient()->stops(),
             QGradientStops({{0, QColor(Qt::red)}, {1, QColor(Qt::blue)}}));
}

void tst_GraphColors::aListOfLineColorsDrawsParallelLines()
{
    const GraphModel graph = GraphFixtures::graph("digraph { a -> b [color=\"red:blue\"] }");

    const QList<Stroke> lines = graph.edges.value(0).line.strokes;
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(0).pen.color(), QColor(Qt::red));
    QCOMPARE(lines.at(1).pen.color(), QColor(Qt::blue));
    QVERIFY(lines.at(0).path != lines.at(1).path);
}

QTEST_GUILESS_MAIN(tst_GraphColors)
#include "tst_graph_colors.moc"
