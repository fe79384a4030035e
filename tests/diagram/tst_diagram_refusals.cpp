#include "diagram_fixtures.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// Two boxes, and a connection between them.
class Pair
{
public:
    Diagram diagram;
    Rectangle *left = diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    Rectangle *right = diagram.add(painted<Rectangle>(), QRect(100, 0, 40, 40));
    PolylineConnection *wire = diagram.connect(left, right);
};

template<class Layout>
Rectangle *container(const QList<Figure *> &children)
{
    auto *box = new Rectangle;
    box->setLayoutManager(new Layout(box));
    for (Figure *child : children) {
        child->setParent(box);
        box->add(child);
    }
    return box;
}

} // namespace

class tst_DiagramRefusals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void connectionsNeedFiguresOfTheDiagram_data();
    void connectionsNeedFiguresOfTheDiagram();
    void connectionsThatLieElsewhereAreRefused_data();
    void connectionsThatLieElsewhereAreRefused();
    void connectionMayBeReconnectedOnlyToFiguresOfTheDiagram_data();
    void connectionMayBeReconnectedOnlyToFiguresOfTheDiagram();
    void anchorsOfTheProgramStayTheProgramsOwn();
    void strangersInTheLayerAreNoConnections();
    void arrowThatWasTakenOutIsReplaced();
    void figureInsideABoxIsPlacedAtOnce();
    void labelWithoutPartsHasNoText();
    void textNeedsAPlaceOfItsOwn();
    void textCanBeReadOnAnyFigure_data();
    void textCanBeReadOnAnyFigure();
    void floatingLinesAreFitted();
    void flatLinesAreFitted_data();
    void flatLinesAreFitted();
    void layerRefusesAFigureTwice();
    void constraintsMayBeFloating();
    void sizeOfItsOwnChoiceStaysThatWhenTheFigureMoves_data();
    void sizeOfItsOwnChoiceStaysThatWhenTheFigureMoves();
    void sizeThatSomebodyElseChoosesStays_data();
    void sizeThatSomebodyElseChoosesStays();
    void moveOfNobodyMovesNothing();
    void figuresWithoutBoundsTakeNoRoom();
    void nestedShapesWithoutBoundsHaveNoPath();
    void bendsNeedNoOwnersOfTheirAnchors();
    void hiddenFiguresAreNotPainted();
};

void tst_DiagramRefusals::connectionsNeedFiguresOfTheDiagram_data()
{
    QTest::addColumn<bool>("knowsSource");
    QTest::addColumn<bool>("knowsTarget");
    QTest::newRow("strange source") << false << true;
    QTest::newRow("strange target") << true << false;
    QTest::newRow("both strange") << false << false;
}

void tst_DiagramRefusals::connectionsNeedFiguresOfTheDiagram()
{
    QFETCH(bool, knowsSource);
    QFETCH(bool, knowsTarget);
    Pair pair;
    Rectangle stranger;
    PolylineConnection connection;
    Figure *source = knowsSource ? pair.left : &stranger;
    Figure *target = knowsTarget ? pair.right : &stranger;
    const QSignalSpy added(&pair.diagram, &Diagram::connectionAdded);

    QCOMPARE(pair.diagram.connect(source, target), nullptr);
    QVERIFY(!pair.diagram.add(&connection, source, target));
    QVERIFY(!pair.diagram.add(nullptr, source, target));

    QCOMPARE(added.count(), 0);
    QCOMPARE(pair.diagram.getConnections(), QList<PolylineConnection *>{pair.wire});
    QVERIFY(!connection.getParentFigure());
}

void tst_DiagramRefusals::connectionsThatLieElsewhereAreRefused_data()
{
    QTest::addColumn<bool>("hasParent");
    QTest::newRow("in another figure") << true;
    QTest::newRow("displayed by itself") << false;
}

void tst_DiagramRefusals::connectionsThatLieElsewhereAreRefused()
{
    QFETCH(bool, hasParent);
    Pair pair;
    PolylineConnection connection;
    ConnectionLayer layer;
    if (hasParent)
        layer.add(&connection);
    else
        connection.addNotify();

    QVERIFY(!pair.diagram.add(&connection, pair.left, pair.right));

    QCOMPARE(connection.getParentFigure(), hasParent ? &layer : nullptr);
    QCOMPARE(pair.diagram.getConnections().size(), 1);
}

void tst_DiagramRefusals::connectionMayBeReconnectedOnlyToFiguresOfTheDiagram_data()
{
    connectionsNeedFiguresOfTheDiagram_data();
}

void tst_DiagramRefusals::connectionMayBeReconnectedOnlyToFiguresOfTheDiagram()
{
    QFETCH(bool, knowsSource);
    QFETCH(bool, knowsTarget);
    Pair pair;
    Rectangle stranger;
    PolylineConnection other;

    QVERIFY(!pair.diagram.reconnect(pair.wire, knowsSource ? pair.right : &stranger,
                                    knowsTarget ? pair.left : &stranger));
    QVERIFY(!pair.diagram.reconnect(&other, pair.right, pair.left));

    QCOMPARE(pair.diagram.getSource(pair.wire), pair.left);
    QCOMPARE(pair.diagram.getTarget(pair.wire), pair.right);
}

void tst_DiagramRefusals::anchorsOfTheProgramStayTheProgramsOwn()
{
    Pair pair;
    QPointer<ChopboxAnchor> own = new ChopboxAnchor(pair.left);
    auto *made = dynamic_cast<QObject *>(pair.wire->getTargetAnchor());
    const QPointer<QObject> madeByTheDiagram(made);
    pair.wire->setSourceAnchor(own);

    QVERIFY(pair.diagram.reconnect(pair.wire, pair.right, pair.left));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(own);
    QVERIFY(!madeByTheDiagram);
    delete own;
}

void tst_DiagramRefusals::strangersInTheLayerAreNoConnections()
{
    Pair pair;
    auto *plain = new Figure(&pair.diagram, Qt::red);
    auto *unknown = new PolylineConnection(&pair.diagram);

    pair.diagram.getConnectionLayer()->add(plain);
    pair.diagram.getConnectionLayer()->add(unknown);

    QCOMPARE(pair.diagram.getConnections(), QList<PolylineConnection *>{pair.wire});
    QCOMPARE(pair.diagram.getRouting(unknown), Diagram::Routing::Straight);
    QVERIFY(!pair.diagram.setRouting(unknown, Diagram::Routing::Manhattan));
    QVERIFY(pair.diagram.getBendpoints(unknown).isEmpty());
    QVERIFY(!pair.diagram.setBendpoints(unknown, {QPoint(1, 2)}));
    QCOMPARE(pair.diagram.getSource(unknown), nullptr);
    QCOMPARE(pair.diagram.getTarget(unknown), nullptr);
}

void tst_DiagramRefusals::arrowThatWasTakenOutIsReplaced()
{
    Pair pair;
    pair.diagram.setArrow(pair.wire, Diagram::End::Target, Diagram::Arrow::Filled);
    const QPointer<Figure> head = pair.wire->childFigures().constFirst();
    pair.wire->remove(head);

    QVERIFY(pair.diagram.setArrow(pair.wire, Diagram::End::Target, Diagram::Arrow::Open));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(!head);
    QCOMPARE(pair.wire->childFigureCount(), 1);
    QVERIFY(qobject_cast<PolylineDecoration *>(pair.wire->childFigures().constFirst()));
}

// There is no rectangle that its layout would keep.
void tst_DiagramRefusals::figureInsideABoxIsPlacedAtOnce()
{
    Diagram diagram;
    auto *inner = new Rectangle;
    diagram.add(container<HBoxLayout>({inner}), QRect(0, 0, 100, 100));

    QVERIFY(diagram.setBounds(inner, QRect(1, 2, 30, 40)));

    QCOMPARE(inner->getBounds(), QRect(1, 2, 30, 40));
}

void tst_DiagramRefusals::labelWithoutPartsHasNoText()
{
    LabelFigure label(QStringLiteral("text"));
    QCOMPARE(Diagram::setText(&label, QStringLiteral("other")),
             qobject_cast<TextFigure *>(label.childFigures().constLast()));

    label.setOrientation(Qt::Vertical); // which leaves the parts behind

    QCOMPARE(Diagram::setText(&label, QStringLiteral("third")), nullptr);
}

void tst_DiagramRefusals::textNeedsAPlaceOfItsOwn()
{
    Diagram diagram;
    auto *empty = diagram.add(container<XYLayout>({}), QRect(0, 0, 40, 40));
    auto *full = diagram.add(container<XYLayout>({new TextFigure(QStringLiteral("a")),
                                                  new TextFigure(QStringLiteral("b"))}),
                             QRect(100, 0, 40, 40));

    QCOMPARE(Diagram::setText(empty, QStringLiteral("x")), nullptr);
    QCOMPARE(Diagram::setText(full, QStringLiteral("x")), nullptr);

    QCOMPARE(empty->childFigureCount(), 0);
    QCOMPARE(full->childFigureCount(), 2);
}

void tst_DiagramRefusals::textCanBeReadOnAnyFigure_data()
{
    QTest::addColumn<bool>("isShape");
    QTest::addColumn<bool>("isFilled");
    QTest::addColumn<QColor>("fill");
    QTest::addColumn<QColor>("ink");
    QTest::newRow("dark figure") << false << true << QColor(Qt::darkBlue) << QColor(Qt::white);
    QTest::newRow("light figure") << false << true << QColor(Qt::yellow) << QColor(Qt::black);
    QTest::newRow("transparent figure")
        << false << true << QColor(Qt::transparent) << QColor(Qt::green);
    QTest::newRow("transparent shape")
        << true << true << QColor(Qt::transparent) << QColor(Qt::green);
    QTest::newRow("outline alone") << true << false << QColor(Qt::darkBlue) << QColor(Qt::green);
    QTest::newRow("outline without a colour") << true << false << QColor() << QColor(Qt::green);
}

void tst_DiagramRefusals::textCanBeReadOnAnyFigure()
{
    QFETCH(bool, isShape);
    QFETCH(bool, isFilled);
    QFETCH(QColor, fill);
    QFETCH(QColor, ink);
    const QPalette before = QGuiApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::Active, QPalette::Text, Qt::green);
    QGuiApplication::setPalette(palette);
    Figure figure(nullptr, fill);
    Rectangle shape;
    shape.setEnabledBGColor(fill);
    shape.setFill(isFilled);

    const TextFigure *text = Diagram::setText(isShape ? &shape : &figure, QStringLiteral("x"));
    QGuiApplication::setPalette(before);

    QCOMPARE(text->getTextColor(), ink);
}

void tst_DiagramRefusals::floatingLinesAreFitted()
{
    Diagram diagram;
    auto *line = new PolylineF;
    line->setLinePoints({QPointF(0, 0), QPointF(10, 20)});
    diagram.add(line, QRect(100, 100, 20, 40));

    QVERIFY(diagram.setBounds(line, QRect(200, 200, 40, 40)));

    QCOMPARE(line->getLinePoints().size(), 2);
    QCOMPARE(line->getLinePoints().constFirst(), QPointF(200, 200));
    QVERIFY(line->getLinePoints().constLast().x() > 230);
}

void tst_DiagramRefusals::flatLinesAreFitted_data()
{
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("level") << QPoint(20, 0) << QPoint(139, 100);
    QTest::newRow("upright") << QPoint(0, 20) << QPoint(100, 139);
    QTest::newRow("a point") << QPoint(0, 0) << QPoint(100, 100);
}

// What has no width has nothing to be stretched.
void tst_DiagramRefusals::flatLinesAreFitted()
{
    QFETCH(QPoint, end);
    QFETCH(QPoint, expected);
    Diagram diagram;
    auto *line = new Polyline;
    line->setLinePoints({QPoint(0, 0), end});

    diagram.add(line, QRect(100, 100, 40, 40));

    const QPoint last = line->getLinePoints().constLast();
    QCOMPARE(line->getLinePoints().constFirst(), QPoint(100, 100));
    QVERIFY2((last - expected).manhattanLength() <= 2,
             qPrintable(QStringLiteral("%1, %2").arg(last.x()).arg(last.y())));
}

void tst_DiagramRefusals::layerRefusesAFigureTwice()
{
    Pair pair;

    QVERIFY(!pair.diagram.getFigureLayer()->add(pair.left, QRect(5, 5, 10, 10)));

    QCOMPARE(pair.diagram.getFigures().size(), 2);
    QCOMPARE(pair.left->getBounds(), QRect(0, 0, 40, 40));
}

void tst_DiagramRefusals::constraintsMayBeFloating()
{
    Pair pair;
    Layout *layout = pair.diagram.getFigureLayer()->getLayoutManager();

    QVERIFY(layout->setConstraint(pair.left, QRectF(10.2, 20.4, 30.0, 40.0)));

    QCOMPARE(pair.left->getBounds(), QRect(10, 20, 30, 40));
    pair.diagram.validate();
    QCOMPARE(pair.left->getBounds(), QRect(10, 20, 30, 40));
}

void tst_DiagramRefusals::sizeOfItsOwnChoiceStaysThatWhenTheFigureMoves_data()
{
    QTest::addColumn<QSize>("wanted");
    QTest::addColumn<QSize>("grown");
    QTest::newRow("width") << QSize(-1, 60) << QSize(1, 0);
    QTest::newRow("height") << QSize(60, -1) << QSize(0, 1);
}

void tst_DiagramRefusals::sizeOfItsOwnChoiceStaysThatWhenTheFigureMoves()
{
    QFETCH(QSize, wanted);
    QFETCH(QSize, grown);
    Diagram diagram;
    auto *text = diagram.add(new TextFigure(QStringLiteral("a")), QRect(QPoint(10, 10), wanted));
    const QSize before = text->getBounds().size();

    text->setBounds(QRect(QPoint(50, 50), before));
    text->setFont(QFont(QString(), 60));
    diagram.validate();

    QCOMPARE(text->getBounds().topLeft(), QPoint(50, 50));
    const QSize after = text->getBounds().size();
    QCOMPARE(after.width() > before.width(), grown.width() == 1);
    QCOMPARE(after.height() > before.height(), grown.height() == 1);
}

void tst_DiagramRefusals::sizeThatSomebodyElseChoosesStays_data()
{
    QTest::addColumn<QSize>("wanted");
    QTest::newRow("width") << QSize(-1, 60);
    QTest::newRow("height") << QSize(60, -1);
    QTest::newRow("both") << QSize(-1, -1);
}

void tst_DiagramRefusals::sizeThatSomebodyElseChoosesStays()
{
    QFETCH(QSize, wanted);
    Diagram diagram;
    auto *text = diagram.add(new TextFigure(QStringLiteral("a")), QRect(QPoint(10, 10), wanted));

    text->setBounds(QRect(10, 10, 77, 88));
    text->setFont(QFont(QString(), 60));
    diagram.validate();

    QCOMPARE(text->getBounds(), QRect(10, 10, 77, 88));
}

void tst_DiagramRefusals::moveOfNobodyMovesNothing()
{
    Pair pair;
    Layout *layout = pair.diagram.getFigureLayer()->getLayoutManager();

    Q_EMIT pair.left->figureMoved(nullptr);

    QCOMPARE(layout->getConstraint(pair.left).toRect(), QRect(0, 0, 40, 40));
    QCOMPARE(pair.left->getBounds(), QRect(0, 0, 40, 40));
}

void tst_DiagramRefusals::figuresWithoutBoundsTakeNoRoom()
{
    Pair pair;
    const QRect before = pair.diagram.getExtent();

    pair.diagram.add(new Polyline, QRect());

    QCOMPARE(pair.diagram.getExtent(), before);
    QCOMPARE(pair.diagram.getFigures().size(), 3);
}

void tst_DiagramRefusals::hiddenFiguresAreNotPainted()
{
    Pair pair;
    pair.left->setVisible(false);

    QCOMPARE(colorAt(picture(pair.diagram), 20, 20), QColor(Qt::white));
    QCOMPARE(colorAt(picture(pair.diagram), 120, 20), pair.right->getEnabledBGColor());
}

void tst_DiagramRefusals::nestedShapesWithoutBoundsHaveNoPath()
{
    class PathRectangle : public Rectangle
    {
    public:
        using Rectangle::getPainterPath;
    };
    Diagram diagram;
    auto *inner = new PathRectangle;
    auto *box = diagram.add(container<XYLayout>({}), QRect(0, 0, 100, 100));
    diagram.validate();
    inner->setParent(box);
    box->add(inner, 0U, 0U, -1);
    inner->setVisible(false);
    box->revalidate();

    diagram.validate();

    QVERIFY(!inner->getBounds().isValid());
    QVERIFY(inner->getPainterPath().isEmpty());
}

// Anchors of the program may lie anywhere.
void tst_DiagramRefusals::bendsNeedNoOwnersOfTheirAnchors()
{
    Pair pair;
    XYAnchor anchor(QPoint(20, 300));
    pair.diagram.setRouting(pair.wire, Diagram::Routing::Bendpoints);

    pair.wire->setSourceAnchor(&anchor);
    pair.diagram.validate();

    QCOMPARE(pair.wire->getPoint(0), QPoint(20, 300));
    QCOMPARE(pair.wire->getPointCount(), 2);
}

QTEST_MAIN(tst_DiagramRefusals)
#include "tst_diagram_refusals.moc"
