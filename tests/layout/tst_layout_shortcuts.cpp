#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Rectangle.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/UpdateManager.h>

#include <QPainter>
#include <QPixmap>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

using namespace Velmora::Figura;

// A layout of exactly a class of the library takes shortcuts: it looks up what lies where, and
// visits only children for which there is something to do. A subclass asks every child each time.
// Whatever happens to the children, both have to come to the same.

namespace {

class PlainLayout : public FreeformLayout
{
public:
    using FreeformLayout::FreeformLayout;
};

// A figure of the application, which may do anything; this one is wider than it says.
class OwnFigure : public Figure
{
public:
    OwnFigure()
        : Figure(nullptr, Qt::darkGreen)
    {
    }
    bool contains(const QPoint &point) const override
    {
        return const_cast<OwnFigure *>(this)->getBounds().adjusted(-30, 0, 30, 0).contains(point);
    }
    QRect resolveBounds(const QRect &rect) override
    {
        const QRect resolved = Figure::resolveBounds(rect);
        return resolved.adjusted(0, 0, -(resolved.width() % 10), 0);
    }
};

/// A viewer with one layer of many figures; the same operations can be done to several.
class World
{
public:
    explicit World(FreeformLayout *layout)
        : layer(nullptr)
    {
        if (layout) {
            layout->setParent(&layer);
            layer.setLayoutManager(layout);
        }
        pane.addLayer(&layer, QStringLiteral("figures"));
        pane.setBounds(QRect(0, 0, 600, 400));
        layer.setBounds(QRect(0, 0, 600, 400));
        viewer.setContent(&pane);
        used = qobject_cast<FreeformLayout *>(layer.getLayoutManager());
        extents = std::make_unique<QSignalSpy>(used, &FreeformLayout::extentChanged);
    }

    void settle() { viewer.getUpdateManager()->performUpdate(); }

    int indexOf(const Figure *figure) const
    {
        for (std::size_t i = 0; i < figures.size(); ++i) {
            if (figures[i].get() == figure)
                return int(i);
        }
        return figure == &layer ? -2 : -1;
    }

    QList<int> indexesOf(const QList<Figure *> &list) const
    {
        QList<int> indexes;
        for (const Figure *figure : list)
            indexes.append(indexOf(figure));
        return indexes;
    }

    FreeformViewer viewer;
    FreeformLayeredPane pane;
    FreeformLayer layer;
    std::vector<std::unique_ptr<Figure>> figures;
    std::vector<std::unique_ptr<QObject>> others;
    FreeformLayout *used = nullptr;
    std::unique_ptr<QSignalSpy> extents;
};

/// Calls for the validation of all other children of a layer while it arranges its own.
class DisturbingLayout : public XYLayout
{
public:
    explicit DisturbingLayout(const World &world)
        : m_world(world)
    {
    }

protected:
    bool performLayout(const QRect &clientArea) override
    {
        for (const std::unique_ptr<Figure> &figure : m_world.figures) {
            if (figure && figure.get() != getFigure())
                figure->revalidate();
        }
        return XYLayout::performLayout(clientArea);
    }

private:
    const World &m_world;
};

QRect randomRect(QRandomGenerator &random)
{
    const int large = random.bounded(10) == 0 ? 300 : 40;
    return {random.bounded(-100, 600), random.bounded(-100, 400), random.bounded(1, large),
            random.bounded(1, large)};
}

using Operation = std::function<void(World &)>;

Operation addFigure(QRandomGenerator &random)
{
    const int kind = random.bounded(8);
    const int index = random.bounded(3) == 0 ? random.bounded(40) : -1;
    const QRect rect = randomRect(random);
    return [=](World &world) {
        std::unique_ptr<Figure> figure;
        if (kind == 0)
            figure = std::make_unique<OwnFigure>();
        else if (kind == 1)
            figure = std::make_unique<Ellipse>(nullptr);
        else if (kind == 2)
            figure = std::make_unique<Figure>(nullptr, Qt::blue);
        else
            figure = std::make_unique<Rectangle>(nullptr);
        world.layer.add(figure.get(), rect, index);
        rebuildPaths(figure.get());
        world.figures.push_back(std::move(figure));
    };
}

Operation connectFigures(QRandomGenerator &random, const World &model)
{
    // Only every other figure, so that the rest can be destroyed without a word from its anchors.
    const int from = random.bounded(int(model.figures.size())) / 2 * 2;
    const int to = random.bounded(int(model.figures.size())) / 2 * 2;
    return [from, to](World &world) {
        auto source = std::make_unique<ChopboxAnchor>(world.figures[from].get(), nullptr);
        auto target = std::make_unique<ChopboxAnchor>(world.figures[to].get(), nullptr);
        auto line = std::make_unique<PolylineConnection>(nullptr);
        line->setSourceAnchor(source.get());
        line->setTargetAnchor(target.get());
        world.layer.add(line.get());
        world.others.push_back(std::move(source));
        world.others.push_back(std::move(target));
        world.figures.push_back(std::move(line));
    };
}

Operation changeFigure(QRandomGenerator &random, const World &model)
{
    const int index = random.bounded(int(model.figures.size()));
    const int kind = random.bounded(11);
    const QRect rect = randomRect(random);
    return [=](World &world) {
        Figure *figure = world.figures[index].get();
        switch (kind) {
        case 0:
            figure->setVisible(!figure->isVisible());
            break;
        case 1:
            world.used->setConstraint(figure, rect);
            break;
        case 2:
            world.used->setConstraint(figure, QRectF(rect).adjusted(0.4, 0.4, 0.6, 0.6));
            break;
        case 3:
            if (auto *shape = qobject_cast<Shape *>(figure))
                shape->setLineWidth(rect.width() % 9 + 1);
            break;
        case 4:
            world.layer.remove(figure);
            break;
        case 5:
            world.layer.add(figure, rect, rect.height());
            break;
        case 6:
            if (index % 2 == 1)
                world.figures[index] = std::make_unique<Rectangle>(nullptr);
            break;
        case 7:
            figure->revalidate();
            break;
        default:
            figure->setBounds(rect);
        }
    };
}

Operation changeAll(QRandomGenerator &random)
{
    const int kind = random.bounded(4);
    const QPoint step(random.bounded(-20, 20), random.bounded(-20, 20));
    return [=](World &world) {
        if (kind == 0)
            world.layer.setBounds(world.layer.getBounds().translated(step));
        else if (kind == 1)
            world.layer.revalidate();
        else if (kind == 2)
            world.settle();
        else
            world.used->getFreeformExtent();
    };
}

Operation randomOperation(QRandomGenerator &random, const World &model)
{
    const int kind = random.bounded(10);
    if (model.figures.size() < 60 || kind == 0)
        return addFigure(random);
    if (kind == 1)
        return connectFigures(random, model);
    return kind < 8 ? changeFigure(random, model) : changeAll(random);
}

QList<QRect> boundsOf(const World &world)
{
    QList<QRect> bounds;
    for (const auto &figure : world.figures)
        bounds.append(figure->getBounds());
    return bounds;
}

QImage pictureOf(World &world, const QRect &clip)
{
    QImage image(600, 400, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.palette = world.viewer.palette();
    option.rect = clip;
    painter.setClipRect(clip);
    world.pane.render(&painter, option);
    return image;
}

} // namespace

class tst_Layout_Shortcuts : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void shortcutsComeToTheSameAsAskingEveryChild_data();
    void shortcutsComeToTheSameAsAskingEveryChild();
    void crowdThatIsDisturbedByItsFirstChildIsValidatedAsWell();

private:
    static void compare(World &quick, World &plain, QRandomGenerator &random);
};

void tst_Layout_Shortcuts::shortcutsComeToTheSameAsAskingEveryChild_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 12; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_Layout_Shortcuts::shortcutsComeToTheSameAsAskingEveryChild()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    World quick(nullptr);
    World plain(new PlainLayout(nullptr, true));

    for (int step = 0; step < 600; ++step) {
        const Operation operation = randomOperation(random, quick);
        operation(quick);
        operation(plain);
        if (step % 3 == 0)
            compare(quick, plain, random);
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_Layout_Shortcuts::compare(World &quick, World &plain, QRandomGenerator &random)
{
    quick.settle();
    plain.settle();
    QCOMPARE(boundsOf(quick), boundsOf(plain));
    QCOMPARE(quick.indexesOf(quick.layer.childFigures()),
             plain.indexesOf(plain.layer.childFigures()));
    QCOMPARE(quick.used->getFreeformExtent(), plain.used->getFreeformExtent());
    QCOMPARE(quick.extents->count(), plain.extents->count());

    for (int probe = 0; probe < 10; ++probe) {
        const QPoint point(random.bounded(-100, 700), random.bounded(-100, 500));
        QCOMPARE(quick.indexOf(quick.layer.findFigureAt(point)),
                 plain.indexOf(plain.layer.findFigureAt(point)));
        const QRect rect = randomRect(random);
        const bool containedOnly = probe % 2 == 0;
        QCOMPARE(quick.indexesOf(quick.layer.findFigures(rect, containedOnly)),
                 plain.indexesOf(plain.layer.findFigures(rect, containedOnly)));
    }
    const QRect clip = randomRect(random);
    QCOMPARE(pictureOf(quick, clip), pictureOf(plain, clip));
}

// More than the layout keeps apart, and with gaps where children were.
void tst_Layout_Shortcuts::crowdThatIsDisturbedByItsFirstChildIsValidatedAsWell()
{
    World world(nullptr);
    DisturbingLayout layout(world);
    for (int i = 0; i < 300; ++i) {
        world.figures.push_back(std::make_unique<Figure>(nullptr, Qt::blue));
        world.layer.add(world.figures.back().get(), QRect(i % 20 * 20, i / 20 * 20, 15, 15));
    }
    Figure &first = *world.figures.front();
    first.setLayoutManager(&layout);
    world.settle();
    for (const int gone : {20, 21, 200})
        world.figures[gone].reset();
    world.settle();

    first.revalidate();
    world.settle();

    for (const std::unique_ptr<Figure> &figure : world.figures)
        QVERIFY(!figure || figure->getFlag(Figure::FLAG_VALID));
}

QTEST_MAIN(tst_Layout_Shortcuts)
#include "tst_layout_shortcuts.moc"
