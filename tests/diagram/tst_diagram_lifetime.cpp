#include "diagram_fixtures.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// Does something while it is painted.
class Doer : public Rectangle
{
public:
    explicit Doer(std::function<void()> deed)
        : m_deed(std::move(deed))
    {
    }

protected:
    void drawBackground(QPainter *, const QStyleOptionViewItem &) const override { m_deed(); }

private:
    std::function<void()> m_deed;
};

} // namespace

class tst_DiagramLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void destroyedFigureLeaves_data();
    void destroyedFigureLeaves();
    void destroyedInnerFigureTakesItsConnectionsAlong();
    void destroyedContainerTakesInnerConnectionsAlong();
    void destroyedConnectionLeaves();
    void destroyedArrowAndLabelCountAsNone();
    void figureMayBeRemovedWhileItIsAdded();
    void figureMayBeRemovedWhileItMoves();
    void connectionMayBeRemovedWhileItIsAdded();
    void diagramMayGoBeforeItsView();
    void viewMayGoBeforeItsDiagram();
    void diagramMayGoWithPendingChanges();
    void figuresMayGoWhileTheyArePainted();
    void diagramMayBeEmptiedWhileItIsPainted();
    void canvasMayGoBeforeItsView();
    void overviewMayOutliveItsView();
};

void tst_DiagramLifetime::destroyedFigureLeaves_data()
{
    QTest::addColumn<bool>("isLine");
    QTest::newRow("box") << false;
    QTest::newRow("polygon") << true;
}

void tst_DiagramLifetime::destroyedFigureLeaves()
{
    QFETCH(bool, isLine);
    Diagram diagram;
    Shape *figure = isLine ? static_cast<Shape *>(diamond()) : new Rectangle;
    diagram.add(figure, QRect(0, 0, 40, 40));
    auto *other = diagram.add(new Rectangle, QRect(100, 0, 40, 40));
    diagram.connect(figure, other);
    diagram.connect(other, figure, Diagram::Routing::Manhattan);
    diagram.connect(figure, figure);
    QSignalSpy removed(&diagram, &Diagram::figureRemoved);
    QSignalSpy cut(&diagram, &Diagram::connectionRemoved);

    delete figure;

    QCOMPARE(diagram.getFigures(), QList<Figure *>({other}));
    QVERIFY(diagram.getConnections().isEmpty());
    QVERIFY(diagram.getConnections(other).isEmpty());
    QCOMPARE(removed.count(), 1);
    QCOMPARE(cut.count(), 3);
    diagram.validate();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(diagram.getExtent(), QRect(100, 0, 40, 40));
}

void tst_DiagramLifetime::destroyedInnerFigureTakesItsConnectionsAlong()
{
    Diagram diagram;
    auto *lane = new Rectangle;
    lane->setLayoutManager(new XYLayout(lane));
    auto *inner = new Rectangle(lane);
    lane->add(inner, QRect(10, 10, 20, 20));
    diagram.add(lane, QRect(0, 0, 100, 100));
    diagram.connect(lane, inner);

    delete inner;

    QVERIFY(diagram.getConnections().isEmpty());
    QCOMPARE(diagram.getFigures(), QList<Figure *>({lane}));
}

// What is not owned by the figure that it lies in is left over.
void tst_DiagramLifetime::destroyedContainerTakesInnerConnectionsAlong()
{
    Diagram diagram;
    Rectangle inner;
    auto *lane = new Rectangle;
    lane->setLayoutManager(new XYLayout(lane));
    lane->add(&inner, QRect(10, 10, 20, 20));
    diagram.add(lane, QRect(0, 0, 100, 100));
    auto *other = diagram.add(new Rectangle, QRect(200, 0, 40, 40));
    diagram.connect(other, &inner);

    delete lane;

    QVERIFY(diagram.getConnections().isEmpty());
    QVERIFY(diagram.getConnections(&inner).isEmpty());
}

void tst_DiagramLifetime::destroyedConnectionLeaves()
{
    Diagram diagram;
    auto *left = diagram.add(new Rectangle, QRect(0, 0, 40, 40));
    auto *right = diagram.add(new Rectangle, QRect(100, 0, 40, 40));
    QSignalSpy cut(&diagram, &Diagram::connectionRemoved);

    delete diagram.connect(left, right);

    QCOMPARE(cut.count(), 1);
    QVERIFY(diagram.getConnections().isEmpty());
    QVERIFY(diagram.getConnections(left).isEmpty());
    left->setBounds(QRect(0, 50, 40, 40));
    diagram.validate();
}

void tst_DiagramLifetime::destroyedArrowAndLabelCountAsNone()
{
    Diagram diagram;
    auto *left = diagram.add(new Rectangle, QRect(0, 0, 40, 40));
    auto *right = diagram.add(new Rectangle, QRect(100, 0, 40, 40));
    PolylineConnection *connection = diagram.connect(left, right);
    diagram.setArrow(connection, Diagram::End::Target, Diagram::Arrow::Filled);
    diagram.setLabel(connection, QStringLiteral("x"));

    qDeleteAll(connection->childFigures());

    QCOMPARE(diagram.getArrow(connection, Diagram::End::Target), Diagram::Arrow::None);
    QCOMPARE(diagram.getLabel(connection), nullptr);
    QVERIFY(diagram.setArrow(connection, Diagram::End::Target, Diagram::Arrow::Open));
    QVERIFY(diagram.setLabel(connection, QStringLiteral("y")));
    diagram.validate();
}

void tst_DiagramLifetime::figureMayBeRemovedWhileItIsAdded()
{
    Diagram diagram;
    diagram.connect(&diagram, &Diagram::figureAdded, &diagram,
                    [&](Figure *figure) { diagram.remove(figure); });

    diagram.add(new Rectangle, QRect(0, 0, 40, 40));

    QVERIFY(diagram.getFigures().isEmpty());
}

void tst_DiagramLifetime::figureMayBeRemovedWhileItMoves()
{
    Diagram diagram;
    auto *box = diagram.add(new Rectangle, QRect(0, 0, 40, 40));
    Diagram::setText(box, QStringLiteral("x"));
    diagram.connect(box, diagram.add(new Rectangle, QRect(100, 0, 40, 40)));
    diagram.connect(&diagram, &Diagram::figureMoved, &diagram,
                    [&](Figure *figure) { delete figure; });

    diagram.setBounds(box, QRect(5, 5, 50, 50));

    QCOMPARE(diagram.getFigures().size(), 1);
    diagram.validate();
}

void tst_DiagramLifetime::connectionMayBeRemovedWhileItIsAdded()
{
    Diagram diagram;
    auto *box = diagram.add(new Rectangle, QRect(0, 0, 40, 40));
    diagram.connect(&diagram, &Diagram::connectionAdded, &diagram,
                    [&](PolylineConnection *connection) { delete connection; });

    QCOMPARE(diagram.connect(box, box), nullptr);

    QVERIFY(diagram.getConnections().isEmpty());
}

void tst_DiagramLifetime::diagramMayGoBeforeItsView()
{
    auto diagram = std::make_unique<Diagram>();
    diagram->add(new Rectangle, QRect(0, 0, 40, 40));
    DiagramView view(diagram.get());
    const Overview overview(&view);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy changed(&view, &DiagramView::diagramChanged);

    diagram.reset();

    QCOMPARE(changed.count(), 1);
    QCOMPARE(view.getDiagram(), nullptr);
    view.grab();
    view.zoomIn();
    Diagram next;
    next.add(new Rectangle, QRect(0, 0, 40, 40));
    view.setDiagram(&next);
    view.grab();
    QCoreApplication::processEvents();
}

void tst_DiagramLifetime::viewMayGoBeforeItsDiagram()
{
    Diagram diagram;
    auto *box = diagram.add(new Rectangle, QRect(0, 0, 40, 40));
    auto view = std::make_unique<DiagramView>(&diagram);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    box->setBounds(QRect(10, 10, 40, 40));

    view.reset();

    box->setBounds(QRect(20, 20, 40, 40));
    diagram.connect(box, diagram.add(new Ellipse, QRect(100, 0, 40, 40)));
    QCOMPARE(diagram.getExtent().topLeft(), QPoint(20, 0));
    DiagramView other(&diagram);
    other.grab();
}

void tst_DiagramLifetime::diagramMayGoWithPendingChanges()
{
    DiagramView view;
    {
        Diagram diagram;
        view.setDiagram(&diagram);
        auto *box = diagram.add(new Rectangle, QRect(0, 0, 40, 40));
        diagram.connect(box, diagram.add(diamond(), QRect(100, 0, 40, 40)),
                        Diagram::Routing::Manhattan);
        diagram.remove(box);
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(view.getDiagram(), nullptr);
}

void tst_DiagramLifetime::figuresMayGoWhileTheyArePainted()
{
    Diagram diagram;
    QPointer<Figure> next;
    diagram.add(new Doer([&] { delete next; }), QRect(0, 0, 40, 40));
    next = diagram.add(new Rectangle, QRect(100, 0, 40, 40));
    auto *last = diagram.add(painted<Rectangle>(Qt::red), QRect(200, 0, 40, 40));
    const QPointer<PolylineConnection> line = diagram.connect(next, last);

    const QImage image = picture(diagram);

    QVERIFY(!next);
    QCOMPARE(diagram.getFigures().size(), 2);
    QVERIFY(diagram.getConnections().isEmpty());
    QCOMPARE(colorAt(image, 220, 20), QColor(Qt::red));
}

void tst_DiagramLifetime::diagramMayBeEmptiedWhileItIsPainted()
{
    Diagram diagram;
    int paints = 0;
    for (int x : {0, 100, 200}) {
        auto *doer = new Doer([&] {
            ++paints;
            diagram.clear();
        });
        diagram.add(doer, QRect(x, 0, 40, 40));
    }

    picture(diagram);

    QVERIFY(paints >= 1);
    QVERIFY(diagram.getFigures().isEmpty());
}

void tst_DiagramLifetime::canvasMayGoBeforeItsView()
{
    Diagram diagram;
    auto *box = diagram.add(new Rectangle, QRect(0, 0, 40, 40));
    DiagramView view(&diagram);
    Overview overview(&view);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));

    delete view.getCanvas();

    QCOMPARE(view.getCanvas(), nullptr);
    box->setBounds(QRect(10, 10, 500, 500));
    view.zoomIn();
    view.zoomToFit();
    view.reveal(QRect(0, 0, 10, 10));
    QTest::keyClick(&view, Qt::Key_Space);
    QTest::ignoreMessage(QtWarningMsg,
                         "Mouse event \"MouseRelease\" not accepted by receiving widget");
    QTest::mouseClick(view.viewport(), Qt::MiddleButton, Qt::NoModifier, QPoint(5, 5));
    overview.grab();
    QCoreApplication::processEvents();
    view.setDiagram(nullptr);
    QCOMPARE(view.getDiagram(), nullptr);
    DiagramView other(&diagram);
    other.grab();
}

void tst_DiagramLifetime::overviewMayOutliveItsView()
{
    Diagram diagram;
    diagram.add(new Rectangle, QRect(0, 0, 40, 40));
    auto view = std::make_unique<DiagramView>(&diagram);
    Overview overview(view.get());
    overview.grab();

    view.reset();

    QCOMPARE(overview.getView(), nullptr);
    overview.grab();
    QTest::mouseClick(&overview, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QCOMPARE(overview.toContent(QPointF(1, 1)), QPointF());
}

QTEST_MAIN(tst_DiagramLifetime)
#include "tst_diagram_lifetime.moc"
