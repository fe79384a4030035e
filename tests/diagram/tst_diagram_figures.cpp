#include "diagram_fixtures.h"

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const QColor FILL(0xd7, 0xe8, 0xfa);

// A box with one text in a stack, whose children do not follow it by themselves.
Rectangle *stackedBox(TextFigure **text)
{
    auto *box = painted<Rectangle>();
    box->setLayoutManager(new StackLayout(box));
    *text = new TextFigure(QStringLiteral("x"), box, Qt::transparent);
    box->add(*text);
    return box;
}

} // namespace

class tst_DiagramFigures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void layersStandInTheirOrder();
    void figureIsPaintedWhetherShownOrNot_data();
    void figureIsPaintedWhetherShownOrNot();
    void figureLiesWhereItWasPut();
    void figureMovedBeforeItIsShownStaysThere();
    void smallFigureIsNotEnlarged();
    void chosenSizeFollowsTheContent();
    void chosenSizeEndsWithAnotherSize();
    void polygonIsFitted();
    void polygonWithoutARectangleStaysAtItsPoints();
    void repeatedFittingDoesNotWearAPolygonOut();
    void nestedShapesAreBuilt_data();
    void nestedShapesAreBuilt();
    void childrenOfAStackFollow();
    void childrenOfNestedStacksFollow();
    void canvasMovesNothing();
    void refusedFigures_data();
    void refusedFigures();
    void signalsTellOfFigures();
    void signalsTellOfMoves();
    void paintOrderCanBeChanged();
    void polygonTellsOfMovesAfterAChangeOfOrder();
    void textIsWrittenIntoFigures_data();
    void textIsWrittenIntoFigures();
    void textCanBeReadOnItsFill_data();
    void textCanBeReadOnItsFill();
    void textIsReplaced();
    void textIsRefusedAmongOtherChildren();
    void figuresAreFound();
    void extentHoldsWhatIsPainted();
    void lateLayerShowsAtOnce();
    void feedbackHasItsOutlineAtOnce();
    void removedFiguresAreGone();
};

void tst_DiagramFigures::layersStandInTheirOrder()
{
    const Diagram diagram;

    const QList<Figure *> layers = diagram.getPane()->childFigures();

    QCOMPARE(layers, QList<Figure *>({diagram.getFigureLayer(), diagram.getConnectionLayer(),
                                      diagram.getFeedbackLayer()}));
    QCOMPARE(diagram.getPane()->getLayer(Diagram::FIGURES), diagram.getFigureLayer());
    QCOMPARE(diagram.getPane()->getLayer(Diagram::CONNECTIONS), diagram.getConnectionLayer());
    QCOMPARE(diagram.getPane()->getLayer(Diagram::FEEDBACK), diagram.getFeedbackLayer());
}

void tst_DiagramFigures::figureIsPaintedWhetherShownOrNot_data()
{
    QTest::addColumn<bool>("shownFirst");
    QTest::newRow("never shown") << false;
    QTest::newRow("shown first") << true;
}

void tst_DiagramFigures::figureIsPaintedWhetherShownOrNot()
{
    QFETCH(bool, shownFirst);
    Diagram diagram;
    DiagramView view;
    if (shownFirst) {
        view.setDiagram(&diagram);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
    }

    diagram.add(painted<Rectangle>(), QRect(20, 20, 40, 30));

    QCOMPARE(colorAt(picture(diagram), 40, 35), FILL);
    QCOMPARE(colorAt(picture(diagram), 70, 35), QColor(Qt::white));
    if (!shownFirst)
        return;
    QCoreApplication::processEvents();
    const QPoint middle = view.fromContent(QPoint(40, 35));
    QCOMPARE(colorAt(view.viewport()->grab().toImage(), middle.x(), middle.y()), FILL);
}

void tst_DiagramFigures::figureLiesWhereItWasPut()
{
    Diagram diagram;
    auto *figure = diagram.add(painted<Ellipse>(), QRect(-20, 30, 40, 50));

    QCOMPARE(figure->getBounds(), QRect(-20, 30, 40, 50));
    QVERIFY(diagram.setBounds(figure, QRect(1, 2, 3, 4)));
    QCOMPARE(figure->getBounds(), QRect(1, 2, 3, 4));
    diagram.validate();
    QCOMPARE(figure->getBounds(), QRect(1, 2, 3, 4));
    QCOMPARE(figure->parent(), diagram.getFigureLayer());
}

// The layout of a layer would put it back.
void tst_DiagramFigures::figureMovedBeforeItIsShownStaysThere()
{
    Diagram diagram;
    auto *figure = diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));

    figure->setBounds(QRect(100, 100, 40, 40));
    diagram.validate();

    QCOMPARE(figure->getBounds(), QRect(100, 100, 40, 40));
}

void tst_DiagramFigures::smallFigureIsNotEnlarged()
{
    Diagram diagram;
    auto *text = new TextFigure(QStringLiteral("much longer than that"));

    diagram.add(text, QRect(10, 10, 12, 5));
    diagram.validate();

    QCOMPARE(text->getBounds(), QRect(10, 10, 12, 5));
}

void tst_DiagramFigures::chosenSizeFollowsTheContent()
{
    Diagram diagram;
    auto *text = diagram.add(new TextFigure(QStringLiteral("short")), QRect(10, 20, -1, -1));
    const int before = text->getBounds().width();

    text->setText(QStringLiteral("not so short any more"));
    diagram.validate();
    diagram.setBounds(text, QRect(QPoint(30, 40), QSize(0, 0)));

    QVERIFY(text->getBounds().width() > before);
    QCOMPARE(text->getBounds().topLeft(), QPoint(30, 40));
    QCOMPARE(text->getBounds().size(), text->getPreferredSize());
}

void tst_DiagramFigures::chosenSizeEndsWithAnotherSize()
{
    Diagram diagram;
    auto *text = diagram.add(new TextFigure(QStringLiteral("short")), QRect(10, 20, -1, -1));
    const QSize size = text->getBounds().size();

    text->setBounds(QRect(50, 20, size.width() + 30, size.height()));
    text->setText(QStringLiteral("a"));
    diagram.validate();

    QCOMPARE(text->getBounds().width(), size.width() + 30);
}

void tst_DiagramFigures::polygonIsFitted()
{
    Diagram diagram;
    auto *shape = diagram.add(diamond(), QRect(100, 100, 80, 60));

    QCOMPARE(shape->getBounds(), QRect(100, 100, 80, 60));
    QCOMPARE(shape->getLinePoints(), QList<QPoint>({QPoint(140, 100), QPoint(180, 130),
                                                    QPoint(140, 160), QPoint(100, 130)}));
    QVERIFY(diagram.setBounds(shape, QRect(0, 0, 10, 10)));
    QCOMPARE(shape->getBounds(), QRect(0, 0, 10, 10));
    QVERIFY(!diagram.setBounds(shape, QRect(5, 5, 0, 0)));
    QCOMPARE(shape->getBounds(), QRect(0, 0, 10, 10));
}

void tst_DiagramFigures::polygonWithoutARectangleStaysAtItsPoints()
{
    Diagram diagram;
    auto *line = new PolylineF;
    line->setLinePoints({QPointF(10.5, 10), QPointF(60, 40)});

    diagram.add(line, QRect());

    QCOMPARE(line->getLinePoints(), QList<QPointF>({QPointF(10.5, 10), QPointF(60, 40)}));
    QVERIFY(line->getBounds().isValid());
}

// Integer points lose a little with every fit; those that were given do not.
void tst_DiagramFigures::repeatedFittingDoesNotWearAPolygonOut()
{
    Diagram diagram;
    auto *shape = diagram.add(diamond(), QRect(0, 0, 41, 37));
    const QList<QPoint> before = shape->getLinePoints();

    for (int size = 41; size > 0; --size)
        diagram.setBounds(shape, QRect(0, 0, size, size));
    diagram.setBounds(shape, QRect(0, 0, 41, 37));

    QCOMPARE(shape->getLinePoints(), before);
}

void tst_DiagramFigures::nestedShapesAreBuilt_data()
{
    QTest::addColumn<bool>("addedFirst");
    QTest::newRow("before the outer one is added") << false;
    QTest::newRow("after it") << true;
}

void tst_DiagramFigures::nestedShapesAreBuilt()
{
    QFETCH(bool, addedFirst);
    Diagram diagram;
    auto *lane = painted<Rectangle>(Qt::yellow);
    lane->setLayoutManager(new XYLayout(lane));
    auto *inner = painted<Rectangle>(Qt::red);
    inner->setParent(lane);

    if (addedFirst)
        diagram.add(lane, QRect(20, 20, 100, 100));
    lane->add(inner, QRect(10, 10, 30, 30));
    if (!addedFirst)
        diagram.add(lane, QRect(20, 20, 100, 100));

    QCOMPARE(colorAt(picture(diagram), 45, 45), QColor(Qt::red));
    QCOMPARE(colorAt(picture(diagram), 80, 80), QColor(Qt::yellow));
}

void tst_DiagramFigures::childrenOfAStackFollow()
{
    Diagram diagram;
    TextFigure *text = nullptr;
    auto *box = diagram.add(stackedBox(&text), QRect(10, 10, 80, 40));

    diagram.setBounds(box, QRect(110, 60, 80, 40));
    QCOMPARE(text->getBounds(), QRect(110, 60, 80, 40));
    box->setBounds(QRect(5, 5, 60, 30));
    QCOMPARE(text->getBounds(), QRect(5, 5, 60, 30));
}

void tst_DiagramFigures::childrenOfNestedStacksFollow()
{
    Diagram diagram;
    TextFigure *text = nullptr;
    auto *lane = painted<Rectangle>();
    lane->setLayoutManager(new HBoxLayout(lane));
    auto *box = stackedBox(&text);
    box->setParent(lane);
    lane->add(box, 1, 1, -1);
    diagram.add(lane, QRect(10, 10, 200, 80));

    auto *first = painted<Rectangle>();
    first->setParent(lane);
    first->setMinimumSize(QSize(40, 20));
    lane->add(first, 0, 0, 0);
    diagram.validate();

    QVERIFY(box->getBounds().x() > 0);
    QCOMPARE(text->getBounds(), box->getClientArea());
}

// With a layer, the corner of the canvas would shift every figure that has a stack.
void tst_DiagramFigures::canvasMovesNothing()
{
    Diagram diagram;
    TextFigure *text = nullptr;
    auto *box = diagram.add(stackedBox(&text), QRect(10, 10, 80, 40));
    auto *other = diagram.add(painted<Ellipse>(), QRect(200, 100, 40, 40));
    PolylineConnection *connection = diagram.connect(box, other);
    const QList<QPoint> points = connection->getPoints();
    const QSignalSpy moved(&diagram, &Diagram::figureMoved);
    const QSignalSpy routed(connection, &Figure::figureMoved);

    diagram.getPane()->setFreeformBounds(QRect(-300, -300, 1000, 1000));
    diagram.getPane()->setFreeformBounds(QRect(-100, -500, 1000, 1000));
    diagram.validate();

    QCOMPARE(box->getBounds(), QRect(10, 10, 80, 40));
    QCOMPARE(text->getBounds(), QRect(10, 10, 80, 40));
    QCOMPARE(connection->getPoints(), points);
    QCOMPARE(moved.count(), 0);
    QCOMPARE(routed.count(), 0);
}

void tst_DiagramFigures::refusedFigures_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("null") << 0;
    QTest::newRow("a connection") << 1;
    QTest::newRow("one that is there") << 2;
    QTest::newRow("one inside another") << 3;
    QTest::newRow("one of another diagram") << 4;
    QTest::newRow("the pane") << 5;
}

void tst_DiagramFigures::refusedFigures()
{
    QFETCH(int, kind);
    Diagram diagram;
    Diagram other;
    PolylineConnection connection;
    auto *present = diagram.add(new Rectangle, QRect(0, 0, 10, 10));
    auto *nested = new Rectangle(present);
    present->setLayoutManager(new XYLayout(present));
    present->add(nested);
    auto *foreign = other.add(new Rectangle, QRect(0, 0, 10, 10));
    const QList<Figure *> candidates{nullptr, &connection, present,
                                     nested,  foreign,     diagram.getPane()};
    const QSignalSpy added(&diagram, &Diagram::figureAdded);

    QCOMPARE(diagram.add(candidates.at(kind), QRect(5, 5, 5, 5)), nullptr);
    QCOMPARE(diagram.getFigures(), QList<Figure *>({present}));
    QCOMPARE(added.count(), 0);
    QVERIFY(!diagram.remove(kind == 2 ? nullptr : candidates.at(kind)));
    QVERIFY(!diagram.setIndex(kind == 2 ? nullptr : candidates.at(kind), 0));
    QCOMPARE(diagram.getIndex(kind == 2 ? nullptr : candidates.at(kind)), -1);
}

void tst_DiagramFigures::signalsTellOfFigures()
{
    Diagram diagram;
    QSignalSpy added(&diagram, &Diagram::figureAdded);
    QSignalSpy removed(&diagram, &Diagram::figureRemoved);

    auto *figure = diagram.add(new Rectangle, QRect(0, 0, 10, 10));
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.at(0).at(0).value<Figure *>(), figure);
    QVERIFY(diagram.contains(figure));

    QVERIFY(diagram.remove(figure));
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed.at(0).at(0).value<Figure *>(), figure);
    QVERIFY(!diagram.contains(figure));
    QVERIFY(!diagram.remove(figure));
}

void tst_DiagramFigures::signalsTellOfMoves()
{
    Diagram diagram;
    auto *box = diagram.add(new Rectangle, QRect(0, 0, 10, 10));
    auto *shape = diagram.add(diamond(), QRect(50, 50, 20, 20));
    QSignalSpy moved(&diagram, &Diagram::figureMoved);

    diagram.setBounds(box, QRect(0, 0, 10, 10));
    QCOMPARE(moved.count(), 0);
    box->setBounds(QRect(5, 5, 10, 10));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.at(0).at(0).value<Figure *>(), box);
    shape->setLinePoints({QPoint(0, 0), QPoint(10, 0), QPoint(10, 10)});
    QCOMPARE(moved.count(), 2);
    QCOMPARE(moved.at(1).at(0).value<Figure *>(), shape);
}

void tst_DiagramFigures::paintOrderCanBeChanged()
{
    Diagram diagram;
    auto *red = diagram.add(painted<Rectangle>(Qt::red), QRect(0, 0, 40, 40));
    auto *green = diagram.add(painted<Rectangle>(Qt::green), QRect(10, 10, 40, 40));
    auto *blue = diagram.add(painted<Rectangle>(Qt::blue), QRect(20, 20, 40, 40), 0);
    QCOMPARE(diagram.getFigures(), QList<Figure *>({blue, red, green}));
    QCOMPARE(colorAt(picture(diagram), 30, 30), QColor(Qt::green));

    QVERIFY(diagram.setIndex(blue, -1));
    QCOMPARE(diagram.getFigures(), QList<Figure *>({red, green, blue}));
    QCOMPARE(colorAt(picture(diagram), 30, 30), QColor(Qt::blue));
    QVERIFY(diagram.setIndex(green, 0));
    QCOMPARE(diagram.getIndex(green), 0);
    QCOMPARE(diagram.getIndex(red), 1);
    QCOMPARE(green->getBounds(), QRect(10, 10, 40, 40));
}

// Going out and in again builds the path behind whoever listened before.
void tst_DiagramFigures::polygonTellsOfMovesAfterAChangeOfOrder()
{
    Diagram diagram;
    auto *shape = diagram.add(diamond(), QRect(0, 0, 40, 40));
    auto *box = diagram.add(new Rectangle, QRect(200, 0, 40, 40));
    PolylineConnection *connection = diagram.connect(shape, box);

    diagram.setIndex(shape, -1);
    shape->setLinePoints({QPoint(20, 100), QPoint(40, 120), QPoint(20, 140), QPoint(0, 120)});
    diagram.validate();

    QCOMPARE(shape->getBounds(), QRect(0, 100, 40, 40));
    QVERIFY(connection->getPoint(0).y() > 90);
}

void tst_DiagramFigures::textIsWrittenIntoFigures_data()
{
    QTest::addColumn<Figure *>("figure");
    QTest::newRow("ellipse") << static_cast<Figure *>(painted<Ellipse>());
    QTest::newRow("polygon") << static_cast<Figure *>(diamond());
    QTest::newRow("text") << static_cast<Figure *>(new TextFigure(QStringLiteral("old")));
    QTest::newRow("label") << static_cast<Figure *>(
        new LabelFigure(QStringLiteral("old"), QPixmap(4, 4), Qt::Vertical, nullptr, Qt::white));
}

void tst_DiagramFigures::textIsWrittenIntoFigures()
{
    QFETCH(Figure *, figure);
    Diagram diagram;
    diagram.add(figure, QRect(20, 20, 120, 60));
    const QImage before = picture(diagram);

    TextFigure *text = Diagram::setText(figure, QStringLiteral("Hello"));
    QVERIFY(text);
    QCOMPARE(text->getText(), QStringLiteral("Hello"));
    const QRect written = differenceOf(before, picture(diagram));
    QVERIFY(written.isValid());
    QVERIFY(QRect(20, 20, 120, 60).contains(written));

    diagram.setBounds(figure, QRect(120, 120, 120, 60));
    const QImage after = picture(diagram);
    Diagram::setText(figure, QString());
    QCOMPARE(differenceOf(picture(diagram), after).width() > 5, true);
}

void tst_DiagramFigures::textCanBeReadOnItsFill_data()
{
    QTest::addColumn<QColor>("fill");
    QTest::addColumn<QColor>("ink");
    QTest::newRow("light") << QColor(0xd7, 0xe8, 0xfa) << QColor(Qt::black);
    QTest::newRow("dark") << QColor(0x20, 0x20, 0x60) << QColor(Qt::white);
    QTest::newRow("of the palette") << QColor() << QColor(Qt::red);
}

void tst_DiagramFigures::textCanBeReadOnItsFill()
{
    QFETCH(QColor, fill);
    QFETCH(QColor, ink);
    const QPalette before = QGuiApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::red);
    QGuiApplication::setPalette(palette);
    Diagram diagram;
    auto *box = diagram.add(painted<Rectangle>(fill), QRect(0, 0, 100, 50));

    const TextFigure *text = Diagram::setText(box, QStringLiteral("x"));
    QGuiApplication::setPalette(before);

    QCOMPARE(text->getTextColor(), ink);
}

void tst_DiagramFigures::textIsReplaced()
{
    Diagram diagram;
    auto *box = diagram.add(painted<Rectangle>(), QRect(20, 20, 120, 60));
    TextFigure *text = Diagram::setText(box, QStringLiteral("one"));

    QCOMPARE(Diagram::setText(box, QStringLiteral("two")), text);
    QCOMPARE(box->childFigureCount(), 1);
    QCOMPARE(text->getText(), QStringLiteral("two"));
}

void tst_DiagramFigures::textIsRefusedAmongOtherChildren()
{
    Rectangle box;
    Rectangle child;
    box.setLayoutManager(new XYLayout(&box));
    box.add(&child);

    QCOMPARE(Diagram::setText(&box, QStringLiteral("x")), nullptr);
    QCOMPARE(Diagram::setText(nullptr, QStringLiteral("x")), nullptr);
    QCOMPARE(box.childFigureCount(), 1);
}

void tst_DiagramFigures::figuresAreFound()
{
    Diagram diagram;
    auto *lower = diagram.add(painted<Rectangle>(), QRect(0, 0, 100, 100));
    auto *upper = diagram.add(painted<Ellipse>(), QRect(50, 50, 100, 100));
    Diagram::setText(upper, QStringLiteral("inside"));

    QCOMPARE(diagram.findFigureAt(QPoint(10, 10)), lower);
    QCOMPARE(diagram.findFigureAt(QPoint(90, 90)), upper);
    QCOMPARE(diagram.findFigureAt(QPoint(54, 54)), lower); // beside the ellipse
    QCOMPARE(diagram.findFigureAt(QPoint(200, 10)), nullptr);
    QCOMPARE(diagram.findFigures(QRect(40, 40, 20, 20), false), QList<Figure *>({lower, upper}));
    QCOMPARE(diagram.findFigures(QRect(-5, -5, 110, 110), true), QList<Figure *>({lower}));
    upper->setVisible(false);
    QCOMPARE(diagram.findFigureAt(QPoint(90, 90)), lower);
}

void tst_DiagramFigures::extentHoldsWhatIsPainted()
{
    Diagram diagram;
    QVERIFY(!diagram.getExtent().isValid());
    auto *box = diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    auto *far = diagram.add(painted<Rectangle>(), QRect(200, 100, 40, 40));
    QCOMPARE(diagram.getExtent(), QRect(0, 0, 240, 140));

    PolylineConnection *connection = diagram.connect(box, far, Diagram::Routing::Bendpoints);
    diagram.setBendpoints(connection, {QPoint(100, 500)});
    QVERIFY(diagram.getExtent().contains(QPoint(100, 500)));
    QVERIFY(!diagram.getExtent({box}).contains(QPoint(100, 500)));
    QVERIFY(diagram.getExtent({box, far}).contains(QPoint(100, 500)));

    diagram.remove(connection);
    far->setVisible(false);
    QCOMPARE(diagram.getExtent(), QRect(0, 0, 40, 40));
    diagram.getFeedbackLayer()->add(new Rectangle(&diagram), QRect(900, 900, 10, 10));
    QCOMPARE(diagram.getExtent(), QRect(0, 0, 40, 40));
}

void tst_DiagramFigures::lateLayerShowsAtOnce()
{
    Diagram diagram;
    diagram.getPane()->setFreeformBounds(QRect(0, 0, 300, 200));
    auto *layer = new FreeformLayer(&diagram);

    diagram.getPane()->addLayer(layer, QStringLiteral("guides"));

    QCOMPARE(layer->getBounds(), QRect(0, 0, 300, 200));
}

namespace {

class OpenRectangle : public Rectangle
{
public:
    using Rectangle::getPainterPath;
    using Rectangle::Rectangle;
};

} // namespace

void tst_DiagramFigures::feedbackHasItsOutlineAtOnce()
{
    const Diagram diagram;
    auto *frame = new OpenRectangle(diagram.getFeedbackLayer());

    diagram.getFeedbackLayer()->add(frame, QRect(10, 20, 30, 40));

    QCOMPARE(frame->getPainterPath().boundingRect(), QRectF(10, 20, 29, 39));
}

void tst_DiagramFigures::removedFiguresAreGone()
{
    Diagram diagram;
    const QPointer<Figure> box = diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    const QPointer<Figure> other = diagram.add(painted<Rectangle>(), QRect(50, 0, 40, 40));

    diagram.remove(box);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(box.isNull());
    QVERIFY(!other.isNull());

    diagram.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(other.isNull());
    QCOMPARE(diagram.getFigureLayer()->childFigureCount(), 0);
}

QTEST_MAIN(tst_DiagramFigures)
#include "tst_diagram_figures.moc"
