#include <mortalfigure.h>
#include <mortalmanager.h>
#include <rootfigure.h>

#include <figura/connection/PolylineF.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/TextFigure.h>

#include <QPointer>
#include <QTest>

#include <functional>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A rectangle that announces that it rebuilds its path.
class MortalRectangle : public MortalFigure<Rectangle>
{
public:
    using MortalFigure::MortalFigure;

protected:
    void regeneratePath(const QRectF &rect) override
    {
        with("regeneratePath", [&] { Rectangle::regeneratePath(rect); });
    }
};

/// A displayed figure of any class that is taken away in the middle of what it does.
class MortalScene
{
public:
    explicit MortalScene(const QString &kind)
    {
        if (kind == QStringLiteral("text"))
            figure = new MortalFigure<TextFigure>(&fate, "figure");
        else if (kind == QStringLiteral("pixmap"))
            figure = new MortalFigure<PixmapFigure>(&fate, "figure", QPixmap(10, 10));
        else
            figure = new MortalRectangle(&fate, "figure");
        root.setLayoutManager(new XYLayout(&root));
        root.setBounds(QRect(0, 0, 100, 100));
        root.add(figure, QRect(10, 10, 50, 50));
    }
    ~MortalScene() { delete figure; }
    Q_DISABLE_COPY_MOVE(MortalScene)

    template<class FigureType>
    FigureType *as() const
    {
        return qobject_cast<FigureType *>(figure.data());
    }

    Fate fate;
    MortalManager manager{&fate, "manager"};
    RootFigure root{&manager};
    QPointer<Figure> figure;
};

using Operation = std::function<void(MortalScene *)>;

} // namespace

class tst_ShapeInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void shapeMayGoInAnOperation_data();
    void shapeMayGoInAnOperation();
    void treeMayGoWhileItsPathsAreBuilt();
    void labelWithoutABoxKeepsItsDirections();
    void pointsThatAreNoNumbersAreLeftOut_data();
    void pointsThatAreNoNumbersAreLeftOut();
};

void tst_ShapeInterrupted::shapeMayGoInAnOperation_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("moment");
    QTest::addColumn<Operation>("operation");
    const auto row = [](const char *kind, const char *name, const char *moment,
                        const Operation &operation) {
        QTest::addRow("%s %s, %s", kind, name, moment)
            << QString::fromLatin1(kind) << QString::fromLatin1(moment) << operation;
    };
    const Operation write = [](MortalScene *scene) {
        scene->as<TextFigure>()->setText(QStringLiteral("other"));
    };
    const Operation show = [](MortalScene *scene) {
        scene->as<PixmapFigure>()->setPixmap(QPixmap(10, 10));
    };
    const Operation rebuild = [](MortalScene *scene) { scene->as<Shape>()->rebuildPath(); };
    const Operation place = [](MortalScene *scene) {
        scene->figure->setBounds(QRect(0, 0, 30, 30));
    };
    row("text", "written", "figure::revalidate", write);
    row("text", "written", "figure::repaint", write);
    row("pixmap", "shown", "figure::revalidate", show);
    for (const char *moment :
         {"figure::erase", "figure::resolveBounds", "figure::regeneratePath", "figure::repaint"})
        row("rectangle", "rebuilt", moment, rebuild);
    for (const char *moment : {"figure::resolveBounds", "figure::regeneratePath"})
        row("rectangle", "placed", moment, place);
}

void tst_ShapeInterrupted::shapeMayGoInAnOperation()
{
    QFETCH(QString, kind);
    QFETCH(QString, moment);
    QFETCH(Operation, operation);
    MortalScene scene(kind);
    scene.fate.at(moment, 1, [&] { delete scene.figure; });

    operation(&scene);

    QVERIFY(scene.fate.hasStruck());
    QVERIFY(!scene.figure);
    QVERIFY(scene.root.childFigures().isEmpty());
}

void tst_ShapeInterrupted::treeMayGoWhileItsPathsAreBuilt()
{
    MortalScene scene(QStringLiteral("rectangle"));
    scene.fate.at(QStringLiteral("figure::regeneratePath"), 1, [&] { delete scene.figure; });

    rebuildPaths(scene.figure);

    QVERIFY(scene.fate.hasStruck());
    QVERIFY(!scene.figure);
}

void tst_ShapeInterrupted::labelWithoutABoxKeepsItsDirections()
{
    LabelFigure label;
    delete label.getLayoutManager();

    label.setExpandingDirections(Qt::Horizontal);

    QCOMPARE(label.getLayoutManager(), nullptr);
    QCOMPARE(label.expandingDirections(), Qt::Horizontal);
}

void tst_ShapeInterrupted::pointsThatAreNoNumbersAreLeftOut_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::newRow("x is no number") << QPointF(qQNaN(), 5);
    QTest::newRow("y is no number") << QPointF(5, qQNaN());
    QTest::newRow("x is infinite") << QPointF(qInf(), 5);
    QTest::newRow("y is infinite") << QPointF(5, -qInf());
}

void tst_ShapeInterrupted::pointsThatAreNoNumbersAreLeftOut()
{
    QFETCH(QPointF, point);
    Fate fate;
    MortalManager manager(&fate, "manager");
    RootFigure root(&manager);
    root.setLayoutManager(new XYLayout(&root));
    PolylineF line;
    root.add(&line);

    line.setLinePoints({QPointF(1, 2), point, QPointF(11, 22)});

    QCOMPARE(line.getBounds(), QRect(1, 2, 10, 20));
}

Q_DECLARE_METATYPE(Operation)

QTEST_MAIN(tst_ShapeInterrupted)
#include "tst_shape_interrupted.moc"
