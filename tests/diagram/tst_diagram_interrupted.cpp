#include "diagram_fixtures.h"

#include <figura/layout/ILayoutListener.h>
#include <figura/layout/XYLayout.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

using Deed = std::function<void()>;

/// Does something, once, when it has been validated, moved or painted.
class Doer : public Rectangle
{
public:
    Deed whenValidated;
    Deed whenMoved;
    Deed whenPainted;
    Deed whenEverValidated;

    void validate() override
    {
        const QPointer<Doer> alive(this);
        Rectangle::validate();
        if (const Deed act = alive ? whenEverValidated : nullptr)
            act();
        else if (alive)
            doOnce(&whenValidated);
    }

    void setBounds(const QRect &rect) override
    {
        const QPointer<Doer> alive(this); // moves are told, and may be its end
        Rectangle::setBounds(rect);
        if (alive)
            doOnce(&whenMoved);
    }

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        Rectangle::render(painter, option);
        doOnce(&whenPainted);
    }

private:
    static void doOnce(Deed *deed)
    {
        if (const Deed act = std::exchange(*deed, nullptr))
            act();
    }
};

/// A stack of two in a diagram; the lower one does something.
class StackScene
{
public:
    StackScene()
    {
        box->setLayoutManager(new StackLayout(box));
        box->add(doer);
        box->add(upper);
        diagram->add(box.data(), QRect(0, 0, 100, 100));
    }
    ~StackScene()
    {
        diagram.reset();
        delete doer;
        delete upper;
    }
    Q_DISABLE_COPY_MOVE(StackScene)

    std::unique_ptr<Diagram> diagram = std::make_unique<Diagram>();
    QPointer<Rectangle> box = new Rectangle;
    QPointer<Doer> doer = new Doer;
    QPointer<Doer> upper = new Doer;

    void destroy(const QString &victim)
    {
        if (victim == QStringLiteral("box"))
            delete box;
        else if (victim == QStringLiteral("itself"))
            delete doer;
        else if (victim == QStringLiteral("the other"))
            delete upper;
        else if (victim == QStringLiteral("taken out"))
            box->remove(upper);
        else
            diagram.reset();
    }
};

/// Hears of constraints, and does something once.
class Witness : public ILayoutListener
{
public:
    Deed whenConstrained;

    void invalidate(Figure *) override {}
    bool layout(Figure *) override { return false; }
    void postLayout(Figure *) override {}
    void remove(Figure *) override {}
    void setConstraint(Figure *, const QVariant &) override
    {
        if (const Deed act = std::exchange(whenConstrained, nullptr))
            act();
    }
};

void addVictimRows()
{
    QTest::addColumn<QString>("victim");
    for (const char *victim : {"box", "itself", "the other", "taken out", "diagram"})
        QTest::newRow(victim) << QString::fromLatin1(victim);
}

} // namespace

class tst_DiagramInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void anythingMayGoWhileAMoveSettles_data() { addVictimRows(); }
    void anythingMayGoWhileAMoveSettles();
    void anythingMayGoWhileTheDiagramIsValidated_data() { addVictimRows(); }
    void anythingMayGoWhileTheDiagramIsValidated();
    void figureMayGoWhileItIsResized();
    void anythingMayGoWhileInnerFiguresSettle_data();
    void anythingMayGoWhileInnerFiguresSettle();
    void diagramMayGoWhileItIsValidatedFor_data();
    void diagramMayGoWhileItIsValidatedFor();
    void figureMayGoWhileAnotherIsValidated();
    void figureMayGoWhileAListenerHearsOfItsMove_data();
    void figureMayGoWhileAListenerHearsOfItsMove();
    void connectionsFromWhatIsLeftOverGo();
    void figureMayGoWhileItIsPlaced_data();
    void figureMayGoWhileItIsPlaced();
    void anythingMayGoWhileTheDiagramIsPainted_data() { addVictimRows(); }
    void anythingMayGoWhileTheDiagramIsPainted();
    void innerFiguresMayGoWhileTheirConnectionsGo();
    void connectionsMayGoWhileLooseOnesGo();
};

void tst_DiagramInterrupted::anythingMayGoWhileAMoveSettles()
{
    QFETCH(QString, victim);
    StackScene scene;
    bool struck = false;
    scene.doer->whenMoved = [&] {
        struck = true;
        scene.destroy(victim);
    };

    scene.box->setBounds(QRect(50, 50, 100, 100));

    QVERIFY(struck);
    if (scene.diagram && scene.box) {
        scene.diagram->validate();
        QCOMPARE(scene.box->getBounds(), QRect(50, 50, 100, 100));
        for (Figure *child : scene.box->childFigures())
            QCOMPARE(child->getBounds(), QRect(50, 50, 100, 100));
    }
}

void tst_DiagramInterrupted::anythingMayGoWhileTheDiagramIsValidated()
{
    QFETCH(QString, victim);
    StackScene scene;
    bool struck = false;
    scene.doer->whenValidated = [&] {
        struck = true;
        scene.destroy(victim);
    };
    scene.doer->revalidate();

    scene.box->validate();

    QVERIFY(struck);
    if (scene.diagram)
        QCOMPARE(scene.diagram->getFigures().size(), scene.box ? 1 : 0);
}

void tst_DiagramInterrupted::figureMayGoWhileItIsResized()
{
    Diagram diagram;
    QPointer<Doer> doer = diagram.add(new Doer, QRect(0, 0, 40, 40));
    const QSignalSpy moved(&diagram, &Diagram::figureMoved);
    doer->whenValidated = [&] { delete doer; };

    diagram.setBounds(doer, QRect(0, 0, 80, 80));

    QVERIFY(!doer);
    QCOMPARE(moved.count(), 0);
    QVERIFY(diagram.getFigures().isEmpty());
}

void tst_DiagramInterrupted::figureMayGoWhileItIsPlaced_data()
{
    QTest::addColumn<QString>("victim");
    for (const char *victim : {"figure", "layout", "diagram"})
        QTest::newRow(victim) << QString::fromLatin1(victim);
}

void tst_DiagramInterrupted::figureMayGoWhileItIsPlaced()
{
    QFETCH(QString, victim);
    auto diagram = std::make_unique<Diagram>();
    QPointer<Doer> doer = diagram->add(new Doer, QRect(0, 0, 40, 40));
    Layout *layout = diagram->getFigureLayer()->getLayoutManager();
    bool struck = false;
    doer->whenMoved = [&] {
        struck = true;
        if (victim == QStringLiteral("figure"))
            delete doer;
        else if (victim == QStringLiteral("layout"))
            delete layout;
        else
            diagram.reset();
    };

    layout->setConstraint(doer, QRect(10, 10, -1, -1));

    QVERIFY(struck);
    QCOMPARE(doer.isNull(), victim != QStringLiteral("layout"));
    delete doer;
}

void tst_DiagramInterrupted::anythingMayGoWhileTheDiagramIsPainted()
{
    QFETCH(QString, victim);
    StackScene scene;
    auto *last = scene.diagram->add(painted<Rectangle>(Qt::red), QRect(200, 0, 40, 40));
    Q_UNUSED(last)
    bool struck = false;
    scene.doer->whenPainted = [&] {
        struck = true;
        scene.destroy(victim);
    };
    const QSize size(300, 100);
    Diagram *diagram = scene.diagram.get();

    const QImage image = paintedImage(
        size, [&](QPainter *painter) { diagram->render(painter, QRect(QPoint(0, 0), size)); });

    QVERIFY(struck);
    QCOMPARE(colorAt(image, 220, 20), scene.diagram ? QColor(Qt::red) : QColor(Qt::white));
}

void tst_DiagramInterrupted::innerFiguresMayGoWhileTheirConnectionsGo()
{
    StackScene scene;
    auto *other = scene.diagram->add(new Rectangle, QRect(200, 0, 40, 40));
    scene.diagram->connect(other, scene.doer);
    scene.diagram->connect(other, scene.upper);
    connect(scene.diagram.get(), &Diagram::connectionRemoved, this, [&] { delete scene.upper; });

    scene.diagram->remove(scene.box);

    QVERIFY(!scene.upper);
    QVERIFY(scene.diagram->getConnections().isEmpty());
    QCOMPARE(scene.diagram->getFigures(), QList<Figure *>{other});
}

// One loses its end with the box, and its slot takes the other one along.
void tst_DiagramInterrupted::connectionsMayGoWhileLooseOnesGo()
{
    StackScene scene;
    auto *other = scene.diagram->add(new Rectangle, QRect(200, 0, 40, 40));
    scene.diagram->connect(other, scene.doer);
    scene.diagram->connect(scene.upper, other);
    scene.diagram->connect(other, other);
    int removals = 0;
    connect(scene.diagram.get(), &Diagram::connectionRemoved, this, [&] {
        ++removals;
        const QList<PolylineConnection *> left = scene.diagram->getConnections();
        for (PolylineConnection *connection : left)
            scene.diagram->remove(connection);
    });

    delete scene.box;

    QCOMPARE(removals, 3);
    QVERIFY(scene.diagram->getConnections().isEmpty());
}

void tst_DiagramInterrupted::anythingMayGoWhileInnerFiguresSettle_data()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<int>("validation");
    for (const char *victim : {"box", "itself", "the other", "taken out"}) {
        for (const int validation : {1, 2, 3})
            QTest::addRow("%s, validation %d", victim, validation)
                << QString::fromLatin1(victim) << validation;
    }
}

// Those inside are laid out anew, each in its turn.
void tst_DiagramInterrupted::anythingMayGoWhileInnerFiguresSettle()
{
    QFETCH(QString, victim);
    QFETCH(int, validation);
    StackScene scene;
    scene.doer->setLayoutManager(new StackLayout(scene.doer));
    scene.upper->setLayoutManager(new StackLayout(scene.upper));
    scene.box->validate();
    int validations = 0;
    int validationsOutside = 0;
    const Deed count = [&] {
        if (++validations == validation)
            scene.destroy(victim);
    };
    scene.doer->whenEverValidated = count;
    scene.upper->whenEverValidated = [&] {
        if (!scene.upper->getParentFigure())
            ++validationsOutside;
    };

    scene.box->setBounds(QRect(50, 50, 100, 100));
    if (scene.box)
        scene.box->revalidate();
    scene.diagram->validate();

    QVERIFY(validations >= 1);
    QCOMPARE(validationsOutside, 0);
    QCOMPARE(scene.diagram->getFigures().size(), scene.box ? 1 : 0);
    if (scene.box && scene.doer)
        QCOMPARE(scene.doer->getBounds(), scene.box->getBounds());
}

void tst_DiagramInterrupted::diagramMayGoWhileItIsValidatedFor_data()
{
    QTest::addColumn<std::function<void(Diagram *, QPainter *)>>("operation");
    using Operation = std::function<void(Diagram *, QPainter *)>;
    const QRect area(0, 0, 50, 50);
    QTest::newRow("itself") << Operation([](Diagram *diagram, QPainter *) { diagram->validate(); });
    QTest::newRow("its extent") << Operation(
        [](Diagram *diagram, QPainter *) { QCOMPARE(diagram->getExtent(), QRect()); });
    QTest::newRow("the extent of figures") << Operation([](Diagram *diagram, QPainter *) {
        QCOMPARE(diagram->getExtent(diagram->getFigures()), QRect());
    });
    QTest::newRow("a picture") << Operation(
        [area](Diagram *diagram, QPainter *painter) { diagram->render(painter, area); });
    QTest::newRow("a picture of figures") << Operation([area](Diagram *diagram, QPainter *painter) {
        diagram->render(painter, area, diagram->getFigures());
    });
}

void tst_DiagramInterrupted::diagramMayGoWhileItIsValidatedFor()
{
    using Operation = std::function<void(Diagram *, QPainter *)>;
    QFETCH(Operation, operation);
    StackScene scene;
    scene.diagram->validate();
    scene.doer->whenValidated = [&scene] { scene.diagram.reset(); };
    scene.doer->revalidate();
    QImage image(50, 50, QImage::Format_RGB32);
    QPainter painter(&image);

    operation(scene.diagram.get(), &painter);

    QVERIFY(!scene.diagram);
}

void tst_DiagramInterrupted::figureMayGoWhileAnotherIsValidated()
{
    Diagram diagram;
    QPointer<Doer> doer = diagram.add(new Doer, QRect(0, 0, 40, 40));
    QPointer<Figure> next = diagram.add(new Rectangle, QRect(100, 0, 40, 40));
    diagram.validate();
    doer->revalidate();
    next->revalidate();
    doer->whenValidated = [&] { delete next; };

    diagram.validate();

    QVERIFY(!next);
    QCOMPARE(diagram.getFigures(), QList<Figure *>{doer});
}

void tst_DiagramInterrupted::figureMayGoWhileAListenerHearsOfItsMove_data()
{
    QTest::addColumn<QString>("victim");
    for (const char *victim : {"figure", "layout", "diagram"})
        QTest::newRow(victim) << QString::fromLatin1(victim);
}

void tst_DiagramInterrupted::figureMayGoWhileAListenerHearsOfItsMove()
{
    QFETCH(QString, victim);
    auto diagram = std::make_unique<Diagram>();
    QPointer<Rectangle> box = diagram->add(new Rectangle, QRect(0, 0, 40, 40));
    QPointer<Layout> layout = diagram->getFigureLayer()->getLayoutManager();
    connect(qobject_cast<XYLayout *>(layout.data()), &XYLayout::constraintChanged, this,
            [](const Figure *child) { QVERIFY(child->isVisible()); });
    Witness witness;
    layout->addListener(&witness);
    witness.whenConstrained = [&] {
        if (victim == QStringLiteral("figure"))
            delete box;
        else if (victim == QStringLiteral("layout"))
            delete layout;
        else
            diagram.reset();
    };

    box->setBounds(QRect(10, 10, 40, 40));

    QVERIFY(!witness.whenConstrained);
    QCOMPARE(box.isNull(), victim != QStringLiteral("layout"));
    QCOMPARE(layout.isNull(), victim != QStringLiteral("figure"));
}

void tst_DiagramInterrupted::connectionsFromWhatIsLeftOverGo()
{
    StackScene scene;
    auto *other = scene.diagram->add(new Rectangle, QRect(200, 0, 40, 40));
    scene.diagram->connect(scene.doer, other);
    PolylineConnection *loop = scene.diagram->connect(other, other);

    delete scene.box;

    QCOMPARE(scene.diagram->getConnections(), QList<PolylineConnection *>{loop});
}

QTEST_MAIN(tst_DiagramInterrupted)
#include "tst_diagram_interrupted.moc"
