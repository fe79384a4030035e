#include "load/XdotParser.h"

#include <QRegularExpression>
#include <QTest>

using namespace GraphViewer;

namespace {

// As for a graph that is 100 units high.
const QTransform flip(1, 0, 0, -1, 0, 100);

Drawing parsed(const QByteArray &text)
{
    Drawing drawing;
    if (!XdotParser(flip).parse(text, &drawing))
        QTest::qFail("the text was refused", __FILE__, __LINE__);
    return drawing;
}

QPointF at(const QPainterPath &path, int index)
{
    return {path.elementAt(index).x, path.elementAt(index).y};
}

} // namespace

class tst_GraphXdot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void anEllipseIsTurnedUpsideDown();
    void aPolygonIsClosedAndAPolylineIsNot();
    void aSplineIsACurve();
    void capitalLettersAreFilledExceptForSplines_data();
    void capitalLettersAreFilledExceptForSplines();
    void colorsAndStylesStayUntilTheyChange();
    void eachTextBeginsWithAThinBlackPen();
    void aTransparentPenDrawsNoLine();
    void aStyleSetsThePen_data();
    void aStyleSetsThePen();
    void aTextBeginsWhereItsJustificationSays_data();
    void aTextBeginsWhereItsJustificationSays();
    void aTextCarriesFontColorAndTraits();
    void aTextIsCountedInBytes();
    void aPictureHangsFromItsUpperCorner();
    void aTextThatBreaksOffIsRefused_data();
    void aTextThatBreaksOffIsRefused();
    void whatCameBeforeTheFaultIsKept();
};

void tst_GraphXdot::anEllipseIsTurnedUpsideDown()
{
    const Drawing drawing = parsed("e 27 18 20 10");

    QCOMPARE(drawing.strokes.size(), 1);
    QCOMPARE(drawing.strokes.first().path.boundingRect(), QRectF(7, 72, 40, 20));
}

void tst_GraphXdot::aPolygonIsClosedAndAPolylineIsNot()
{
    const Drawing drawing = parsed("p 3 0 0 10 0 10 10 L 3 0 0 10 0 10 10 ");

    QCOMPARE(drawing.strokes.size(), 2);
    const QPainterPath polygon = drawing.strokes.at(0).path;
    const QPainterPath polyline = drawing.strokes.at(1).path;
    QCOMPARE(polygon.elementCount(), 4);
    QCOMPARE(at(polygon, 3), QPointF(0, 100));
    QCOMPARE(polyline.elementCount(), 3);
    QCOMPARE(at(polyline, 2), QPointF(10, 90));
}

void tst_GraphXdot::aSplineIsACurve()
{
    const Drawing drawing = parsed("B 7 0 0 1 1 2 2 3 3 4 4 5 5 6 6");

    const QPainterPath path = drawing.strokes.value(0).path;
    QCOMPARE(path.elementCount(), 7);
    QVERIFY(path.elementAt(1).isCurveTo());
    QVERIFY(path.elementAt(4).isCurveTo());
    QCOMPARE(path.currentPosition(), QPointF(6, 94));
}

void tst_GraphXdot::capitalLettersAreFilledExceptForSplines_data()
{
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<bool>("filled");
    QTest::newRow("ellipse") << QByteArray("e 5 5 5 5") << false;
    QTest::newRow("filled ellipse") << QByteArray("E 5 5 5 5") << true;
    QTest::newRow("polygon") << QByteArray("p 3 0 0 9 0 9 9") << false;
    QTest::newRow("filled polygon") << QByteArray("P 3 0 0 9 0 9 9") << true;
    QTest::newRow("spline") << QByteArray("B 4 0 0 1 1 2 2 3 3") << false;
    QTest::newRow("filled spline") << QByteArray("b 4 0 0 1 1 2 2 3 3") << true;
}

void tst_GraphXdot::capitalLettersAreFilledExceptForSplines()
{
    QFETCH(QByteArray, operation);
    QFETCH(bool, filled);

    const Drawing drawing = parsed("C 7 -#ff8000 " + operation);

    QCOMPARE(drawing.strokes.size(), 1);
    QCOMPARE(drawing.strokes.first().brush, filled ? QBrush(QColor(255, 128, 0)) : QBrush());
}

void tst_GraphXdot::colorsAndStylesStayUntilTheyChange()
{
    const Drawing drawing =
        parsed("S 6 -dashed c 7 -#ff0000 e 5 5 5 5 e 9 9 5 5 S 5 -solid c 7 -#0000ff e 7 7 5 5");

    QCOMPARE(drawing.strokes.size(), 3);
    QCOMPARE(drawing.strokes.at(1).pen.color(), QColor(Qt::red));
    QCOMPARE(drawing.strokes.at(1).pen.style(), Qt::DashLine);
    QCOMPARE(drawing.strokes.at(2).pen.color(), QColor(Qt::blue));
    QCOMPARE(drawing.strokes.at(2).pen.style(), Qt::SolidLine);
}

void tst_GraphXdot::eachTextBeginsWithAThinBlackPen()
{
    XdotParser parser(flip);
    Drawing drawing;
    QVERIFY(parser.parse("S 15 -setlinewidth(3) c 7 -#ff0000 t 1 e 5 5 5 5", &drawing));

    QVERIFY(parser.parse("e 5 5 5 5 T 0 0 0 9 1 -x", &drawing));

    QCOMPARE(drawing.strokes.at(1).pen, QPen(Qt::black));
    QCOMPARE(drawing.texts.at(0).style.traits, 0);
}

void tst_GraphXdot::aTransparentPenDrawsNoLine()
{
    const Drawing drawing = parsed("c 9 -#fffffe00 C 7 -#ffffff P 3 0 0 9 0 9 9");

    QCOMPARE(drawing.strokes.value(0).pen.style(), Qt::NoPen);
    QCOMPARE(drawing.strokes.value(0).brush, QBrush(Qt::white));
}

void tst_GraphXdot::aStyleSetsThePen_data()
{
    QTest::addColumn<QByteArray>("style");
    QTest::addColumn<Qt::PenStyle>("expected");
    QTest::addColumn<double>("width");
    QTest::newRow("solid") << QByteArray("solid") << Qt::SolidLine << 1.0;
    QTest::newRow("dashed") << QByteArray("dashed") << Qt::DashLine << 1.0;
    QTest::newRow("dotted") << QByteArray("dotted") << Qt::DotLine << 1.0;
    QTest::newRow("bold") << QByteArray("bold") << Qt::SolidLine << 2.0;
    QTest::newRow("width") << QByteArray("setlinewidth(4.5)") << Qt::SolidLine << 4.5;
    QTest::newRow("shown by the operations") << QByteArray("rounded") << Qt::SolidLine << 1.0;
}

void tst_GraphXdot::aStyleSetsThePen()
{
    QFETCH(QByteArray, style);
    QFETCH(Qt::PenStyle, expected);
    QFETCH(double, width);

    const Drawing drawing =
        parsed("S " + QByteArray::number(style.size()) + " -" + style + " e 5 5 5 5");

    QCOMPARE(drawing.strokes.value(0).pen.style(), expected);
    QCOMPARE(drawing.strokes.value(0).pen.widthF(), width);
}

void tst_GraphXdot::aTextBeginsWhereItsJustificationSays_data()
{
    QTest::addColumn<QByteArray>("justification");
    QTest::addColumn<QPointF>("left");
    QTest::newRow("left") << QByteArray("-1") << QPointF(50, 80);
    QTest::newRow("centre") << QByteArray("0") << QPointF(35, 80);
    QTest::newRow("right") << QByteArray("1") << QPointF(20, 80);
}

void tst_GraphXdot::aTextBeginsWhereItsJustificationSays()
{
    QFETCH(QByteArray, justification);
    QFETCH(QPointF, left);

    const Drawing drawing = parsed("T 50 20 " + justification + " 30 5 -label");

    QCOMPARE(drawing.texts.size(), 1);
    QCOMPARE(drawing.texts.first().left, left);
    QCOMPARE(drawing.texts.first().width, 30.0);
}

void tst_GraphXdot::aTextCarriesFontColorAndTraits()
{
    const Drawing drawing =
        parsed("F 20.5 12 -Courier-Bold c 7 -#ff0000 t 6 T 0 0 -1 13 12 - two  blanks");

    const TextSpan span = drawing.texts.value(0);
    QCOMPARE(span.text, QStringLiteral(" two  blanks"));
    QCOMPARE(span.style.face, QStringLiteral("Courier-Bold"));
    QCOMPARE(span.style.size, 20.5);
    QCOMPARE(span.style.color, QColor(Qt::red));
    QCOMPARE(span.style.traits, TextStyle::Italic | TextStyle::Underline);
}

void tst_GraphXdot::aTextIsCountedInBytes()
{
    const Drawing drawing = parsed("T 0 0 -1 30 7 -\xc3\xa4"
                                   "b\xe2\x82\xac"
                                   "c e 5 5 5 5");

    QCOMPARE(drawing.texts.value(0).text, QString::fromUtf8("\xc3\xa4"
                                                            "b\xe2\x82\xac"
                                                            "c"));
    QCOMPARE(drawing.strokes.size(), 1);
}

void tst_GraphXdot::aPictureHangsFromItsUpperCorner()
{
    const Drawing drawing = parsed("I 10 20 30 40 7 -eqn.png");

    QCOMPARE(drawing.pictures.size(), 1);
    QCOMPARE(drawing.pictures.first().box, QRectF(10, 40, 30, 40));
    QCOMPARE(drawing.pictures.first().file, QStringLiteral("eqn.png"));
}

void tst_GraphXdot::aTextThatBreaksOffIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("unknown operation") << QByteArray("Z 1 2");
    QTest::newRow("no operation") << QByteArray("12 34");
    QTest::newRow("too few numbers") << QByteArray("e 1 2 3");
    QTest::newRow("too few points") << QByteArray("p 4 0 0 1 1 2 2");
    QTest::newRow("half a point") << QByteArray("p 2 0 0 1");
    QTest::newRow("not a number") << QByteArray("e 1 2 x 3");
    QTest::newRow("infinite") << QByteArray("e inf 2 3 3");
    QTest::newRow("text too short") << QByteArray("T 0 0 0 9 10 -short");
    QTest::newRow("negative length") << QByteArray("c -5 -#000000");
    QTest::newRow("no hyphen") << QByteArray("c 7 #000000");
    QTest::newRow("immense length") << QByteArray("c 2147483647 -#000000");
    QTest::newRow("immense count") << QByteArray("p 2147483647 0 0");
}

void tst_GraphXdot::aTextThatBreaksOffIsRefused()
{
    QFETCH(QByteArray, text);
    Drawing drawing;

    QVERIFY(!XdotParser(flip).parse(text, &drawing));

    QVERIFY(drawing.isEmpty());
}

void tst_GraphXdot::whatCameBeforeTheFaultIsKept()
{
    Drawing drawing;

    QVERIFY(!XdotParser(flip).parse("e 5 5 5 5 p 3 0 0 1", &drawing));

    QCOMPARE(drawing.strokes.size(), 1);
}

QTEST_GUILESS_MAIN(tst_GraphXdot)
#include "tst_graph_xdot.moc"
