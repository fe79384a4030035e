#include "layout_fixtures.h"

#include <countingfigure.h>
#include <mortalfigure.h>
#include <mortallayout.h>

#include <figura/figure/ITreeSearch.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/FreeformStackLayout.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/layout/VBoxLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>
#include <figura/view/FreeformLayer.h>

#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionViewItem>
#include <QTest>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class MortalLayer : public Mortal<FreeformLayer>
{
public:
    using Mortal::Mortal;

    QRect getFreeformExtent() override
    {
        return with("getFreeformExtent", [&] { return FreeformLayer::getFreeformExtent(); });
    }
};

/// A displayed container with two children, all of which announce what is asked of them.
class Stage
{
public:
    explicit Stage(Layout *taken)
        : layout(taken)
    {
        container->setLayoutManager(layout);
        container->setBounds(QRect(0, 0, 100, 100));
        container->addNotify();
        for (const QPointer<Figure> &child : {first, second}) {
            child->setPreferredSize(QSize(10, 10));
            container->add(child, QRect(5, 5, 10, 10));
        }
        container->validate();
    }
    ~Stage()
    {
        delete first;
        delete second;
        delete layout;
        delete container;
    }
    Q_DISABLE_COPY_MOVE(Stage)

    void destroy(const QString &victim)
    {
        if (victim == QStringLiteral("layout"))
            delete layout;
        else if (victim == QStringLiteral("container"))
            delete container;
        else if (victim == QStringLiteral("first"))
            delete first;
        else
            delete second;
    }

    Fate fate;
    QPointer<Layout> layout;
    QPointer<Figure> container = new MortalFigure<Figure>(&fate, "container");
    QPointer<Figure> first = new MortalFigure<Figure>(&fate, "first");
    QPointer<Figure> second = new MortalFigure<Figure>(&fate, "second");
};

using Operation = std::function<void(Stage *)>;
using Maker = std::function<Layout *()>;

void addRows(const char *name, const Maker &maker, const char *moment, const QStringList &victims,
             const Operation &operation, int occurrence = 1)
{
    for (const QString &victim : victims)
        QTest::addRow("%s, %s %d: %s", name, moment, occurrence, qPrintable(victim))
            << maker << QString::fromLatin1(moment) << occurrence << victim << operation;
}

/// A search that does something when it has come to a certain figure.
class ActingSearch : public ITreeSearch
{
public:
    const Figure *trigger = nullptr;
    std::function<void()> act;
    bool acceptsAll = true;
    mutable QList<const Figure *> asked;

    bool accept(const Figure *) const override { return acceptsAll; }
    bool prune(const Figure *figure) const override
    {
        asked.append(figure);
        if (figure == trigger && act)
            act();
        return false;
    }
};

/// So many rectangles side by side, ten in a row, that they are not asked one by one.
class Crowd
{
public:
    explicit Crowd(int count = 60)
    {
        parent.setLayoutManager(new XYLayout(&parent));
        parent.setBounds(QRect(0, 0, 1000, 1000));
        for (int i = 0; i < count; ++i)
            add(std::make_unique<Rectangle>(), QRect(i % 10 * 20, i / 10 * 20, 20, 20));
        parent.validate();
    }

    Figure *add(std::unique_ptr<Figure> figure, const QRect &rect)
    {
        Figure *added = figure.get();
        parent.add(added, rect);
        figures.push_back(std::move(figure));
        return added;
    }

    Figure *at(int index) const { return figures[std::size_t(index)].get(); }
    QList<Figure *> in(const QRect &rect)
    {
        QList<Figure *> found = parent.findFigures(rect, false);
        found.removeAll(&parent);
        return found;
    }

    Figure parent;
    std::vector<std::unique_ptr<Figure>> figures;
};

/// Does not survive the question for its client area.
class VanishingFigure : public Figure
{
public:
    bool isDoomed = false;

    QRect getClientArea() override
    {
        const QRect area = Figure::getClientArea();
        if (isDoomed)
            delete this;
        return area;
    }
};

} // namespace

Q_DECLARE_METATYPE(Operation)
Q_DECLARE_METATYPE(Maker)

class tst_LayoutInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void partsMayGoInAnOperation_data();
    void partsMayGoInAnOperation();
    void stackMayGoWhileItMeasuresItsLayers_data();
    void stackMayGoWhileItMeasuresItsLayers();
    void containerMayGoWhileItsListenersAreCalled_data();
    void containerMayGoWhileItsListenersAreCalled();
    void orphanThatWasNeverDisplayedIsAttachedWithItsTree();
    void childrenMayLeaveDuringASearch_data();
    void childrenMayLeaveDuringASearch();
    void childrenMayComeDuringASearch();
    void gapsAmongTheChildrenAreNoChildren();
    void gapsAreNoChildrenAfterManyMoves();
    void childrenThatAnswerForThemselvesAreFound();
    void childrenOfAnySizeAreFound_data();
    void childrenOfAnySizeAreFound();
    void childrenThatBecomeStaleDuringAPassAreInTime_data();
    void childrenThatBecomeStaleDuringAPassAreInTime();
    void childBehindAGapThatClosesDuringAPassIsInTime();
    void layoutOfAContainerThatGoesWhenItIsAskedForItsAreaFails();
};

void tst_LayoutInterrupted::partsMayGoInAnOperation_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<QString>("moment");
    QTest::addColumn<int>("occurrence");
    QTest::addColumn<QString>("victim");
    QTest::addColumn<Operation>("operation");
    const Maker freeform = [] { return new FreeformLayout; };
    const Maker row = [] { return new HBoxLayout; };
    const Maker column = [] { return new VBoxLayout; };
    const Maker xy = [] { return new XYLayout; };
    const QStringList parts{QStringLiteral("layout"), QStringLiteral("container"),
                            QStringLiteral("first"), QStringLiteral("second")};
    const Operation measure = [](Stage *stage) {
        auto *layout = qobject_cast<FreeformLayout *>(stage->layout.data());
        layout->examineExtent();
    };
    const Operation ask = [](Stage *stage) {
        qobject_cast<FreeformLayout *>(stage->layout.data())->getFreeformExtent();
    };
    // So that no extent is kept that could be the answer.
    const Maker unwatched = [] { return new FreeformLayout(nullptr, false); };
    const Operation constrain = [](Stage *stage) {
        stage->layout->setConstraint(stage->first, QSize(20, 20));
    };
    const Operation layOut = [](Stage *stage) {
        stage->first->revalidate();
        stage->container->validate();
    };
    const Operation prefer = [](Stage *stage) {
        stage->layout->setConstraint(stage->first, QRect(5, 5, -1, -1));
    };
    // Whoever is told of the new constraint looks at the child.
    const Operation move = [](Stage *stage) {
        connect(qobject_cast<XYLayout *>(stage->layout.data()), &XYLayout::constraintChanged,
                [](const Figure *child) { QVERIFY(child->isVisible()); });
        stage->first->setBounds(QRect(6, 6, 10, 10));
    };
    const Operation paint = [](Stage *stage) {
        QImage image(100, 100, QImage::Format_RGB32);
        QPainter painter(&image);
        stage->layout->invalidate();
        stage->layout->render(&painter, QStyleOptionViewItem());
    };
    const Operation remove = [](Stage *stage) { stage->layout->remove(stage->first); };
    addRows("freeform", freeform, "first::resolveBounds", parts, measure);
    addRows("freeform", freeform, "second::resolveBounds", parts, measure);
    addRows("unwatched freeform", unwatched, "first::resolveBounds", parts, ask);
    for (const auto &[name, box] : {std::pair("row", row), std::pair("column", column)}) {
        addRows(name, box, "first::getMinimumSize", parts, constrain);
        addRows(name, box, "first::setBounds", parts, constrain);
        addRows(name, box, "first::getPreferredSize", parts, layOut);
        addRows(name, box, "first::getPreferredSize", parts, layOut, 2); // no longer for the whole
        addRows(name, box, "first::getPreferredSize", parts, paint);
    }
    addRows("XY", xy, "container::resolveBounds", parts, layOut);
    addRows("XY", xy, "first::removeNotify", parts, remove);
    addRows("XY", xy, "first::erase", parts, remove);
    addRows("XY", xy, "first::setParentFigure", parts, remove);
    addRows("XY", xy, "first::getPreferredSize", parts, prefer);
    addRows("XY", xy, "first::setBounds", parts, move);
    addRows("freeform", freeform, "first::setParentFigure", parts, remove);
}

void tst_LayoutInterrupted::partsMayGoInAnOperation()
{
    QFETCH(Maker, maker);
    QFETCH(QString, moment);
    QFETCH(int, occurrence);
    QFETCH(QString, victim);
    QFETCH(Operation, operation);
    Stage stage(maker());
    stage.fate.at(moment, occurrence, [&] { stage.destroy(victim); });

    operation(&stage);

    QVERIFY(stage.fate.hasStruck());
    const QList<QPointer<Figure>> left{stage.first, stage.second};
    for (const QPointer<Figure> &child : left) {
        const bool isListed = stage.layout && child && stage.layout->childFigures().contains(child);
        if (isListed && stage.container)
            QCOMPARE(child->getParentFigure(), stage.container.data());
        if (child && !stage.container)
            QVERIFY(!child->getParentFigure());
    }
    if (stage.layout)
        QVERIFY(stage.layout->childFigures().size() <= 2);
}

void tst_LayoutInterrupted::stackMayGoWhileItMeasuresItsLayers_data()
{
    QTest::addColumn<bool>("examined");
    QTest::addColumn<bool>("whole");
    QTest::newRow("asked, the layout") << false << false;
    QTest::newRow("asked, the container") << false << true;
    QTest::newRow("examined, the layout") << true << false;
    QTest::newRow("examined, the container") << true << true;
}

void tst_LayoutInterrupted::stackMayGoWhileItMeasuresItsLayers()
{
    QFETCH(bool, examined);
    QFETCH(bool, whole);
    Fate fate;
    QPointer<Figure> container = new Figure;
    QPointer<FreeformStackLayout> layout = new FreeformStackLayout(container);
    container->setLayoutManager(layout);
    MortalLayer first(&fate, "first");
    MortalLayer second(&fate, "second");
    container->add(&first);
    container->add(&second);
    fate.at(QStringLiteral("first::getFreeformExtent"), 1, [&] {
        if (whole)
            delete container;
        else
            delete layout;
    });

    if (examined)
        layout->examineExtent();
    else
        layout->getFreeformExtent();

    QVERIFY(fate.hasStruck());
    QVERIFY(!layout);
    delete container;
}

void tst_LayoutInterrupted::containerMayGoWhileItsListenersAreCalled_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<bool>("isLaidOut");
    QTest::addColumn<int>("calls");
    QTest::newRow("asked whether they lay it out") << QStringLiteral("layout") << false << 1;
    QTest::newRow("told of its layout") << QStringLiteral("postLayout") << true << 3;
}

void tst_LayoutInterrupted::containerMayGoWhileItsListenersAreCalled()
{
    QFETCH(QString, moment);
    QPointer<Figure> container = new Figure;
    ProbeLayout layout;
    container->setLayoutManager(&layout);
    container->setBounds(QRect(0, 0, 10, 10));
    ListenerProbe first;
    ListenerProbe second;
    layout.addListener(&first);
    layout.addListener(&second);
    const auto strike = [&](const QString &call) {
        if (call == moment)
            delete container;
    };
    first.onCall = strike;
    second.onCall = strike;

    QTEST(layout.layout(container), "isLaidOut");

    QVERIFY(!container);
    QTEST(int(first.calls.size() + second.calls.size()), "calls");
    QTEST(!layout.clientAreas.isEmpty(), "isLaidOut");
}

void tst_LayoutInterrupted::orphanThatWasNeverDisplayedIsAttachedWithItsTree()
{
    Scene<XYLayout> hidden;
    auto *former = new Figure;
    former->setLayoutManager(new XYLayout(former));
    CountingFigure child;
    former->add(&child);
    delete former;
    Scene<XYLayout> shown;
    shown.figure.addNotify();

    hidden.layout.add(&child);
    QCOMPARE(child.calls().addNotify, 0);
    hidden.layout.remove(&child);
    shown.layout.add(&child);

    QCOMPARE(child.calls().addNotify, 1);
    QVERIFY(child.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_LayoutInterrupted::childrenMayLeaveDuringASearch_data()
{
    QTest::addColumn<bool>("upwards");
    QTest::addColumn<int>("leaving");
    QTest::addColumn<bool>("isDestroyed");
    for (const bool upwards : {false, true}) {
        for (const bool isDestroyed : {false, true}) {
            const QByteArray way = QByteArray(upwards ? "in a rectangle" : "at a point") +
                                   (isDestroyed ? ", destroyed: " : ", taken out: ");
            QTest::addRow("%sthe first of all", way.data()) << upwards << 0 << isDestroyed;
            QTest::addRow("%sone in between", way.data()) << upwards << 45 << isDestroyed;
            QTest::addRow("%sone that lies there", way.data()) << upwards << 61 << isDestroyed;
        }
    }
}

// A search in a rectangle begins with the lowest child, one at a point with the topmost. Whoever
// leaves in between is not asked any more.
void tst_LayoutInterrupted::childrenMayLeaveDuringASearch()
{
    QFETCH(bool, upwards);
    QFETCH(int, leaving);
    QFETCH(bool, isDestroyed);
    Crowd crowd;
    const Figure *gone = nullptr;
    for (int i = 0; i < 3; ++i)
        crowd.add(std::make_unique<Rectangle>(), QRect(80, 0, 20, 20));
    crowd.parent.validate();
    rebuildPaths(&crowd.parent);
    crowd.parent.findFigureAt(85, 5);
    crowd.parent.remove(crowd.at(30)); // leaves a gap
    ActingSearch search;
    search.acceptsAll = upwards;
    search.trigger = upwards ? crowd.at(4) : crowd.at(62);
    search.act = [&] {
        gone = crowd.at(leaving);
        if (isDestroyed)
            crowd.figures[std::size_t(leaving)].reset();
        else
            crowd.parent.remove(crowd.at(leaving));
    };
    QList<Figure *> found;
    const Figure *const lying = crowd.at(61);

    if (upwards)
        crowd.parent.findFigures(found, QRect(85, 5, 1, 1), search, false);
    else
        QVERIFY(!crowd.parent.findFigureAt(85, 5, search));

    QVERIFY(search.asked.contains(crowd.at(upwards ? 62 : 4)));
    QCOMPARE(search.asked.contains(lying), leaving != 61);
    QVERIFY(!search.asked.contains(crowd.at(30)));
    QVERIFY(gone);
    QVERIFY(!search.asked.contains(gone));
}

void tst_LayoutInterrupted::childrenMayComeDuringASearch()
{
    Crowd crowd;
    auto *top = crowd.add(std::make_unique<Rectangle>(), QRect(80, 0, 20, 20));
    crowd.parent.validate();
    Rectangle late;
    ActingSearch search;
    search.trigger = top;
    search.act = [&] { crowd.parent.add(&late, QRect(80, 0, 20, 20)); };
    QList<Figure *> found;

    crowd.parent.findFigures(found, QRect(85, 5, 1, 1), search, false);

    QVERIFY(found.contains(top));
    QVERIFY(found.contains(crowd.at(4)));
    QCOMPARE(found.count(top), 1);
}

void tst_LayoutInterrupted::gapsAmongTheChildrenAreNoChildren()
{
    Crowd crowd;
    QVERIFY(crowd.in(QRect(0, 0, 200, 200)).size() >= 60);
    for (int i = 10; i < 20; ++i)
        crowd.parent.remove(crowd.at(i));

    // So often that the search looks whether it has missed somebody.
    QList<Figure *> found;
    for (int i = 0; i < 1200; ++i)
        found = crowd.in(QRect(0, 0, 200, 200));

    QCOMPARE(found.size(), 50);
    for (int i = 0; i < 60; ++i)
        QCOMPARE(found.contains(crowd.at(i)), i < 10 || i >= 20);
}

void tst_LayoutInterrupted::gapsAreNoChildrenAfterManyMoves()
{
    Crowd crowd(400);
    Rectangle first;
    crowd.in(QRect(0, 0, 200, 200));
    crowd.parent.add(&first, QRect(0, 0, 20, 20), 0); // all are numbered anew
    crowd.parent.remove(crowd.at(30));
    for (const auto &figure : crowd.figures)
        figure->setBounds(figure->getBounds().translated(300, 0));

    QCOMPARE(crowd.in(QRect(0, 0, 250, 990)), QList<Figure *>{&first});
    QCOMPARE(crowd.in(QRect(301, 0, 500, 990)).size(), 399);
}

// What their bounds say does not tell where they are.
void tst_LayoutInterrupted::childrenThatAnswerForThemselvesAreFound()
{
    class Wide : public Figure
    {
    public:
        bool isIntersecting(const QRect &) const override { return true; }
    };
    Crowd crowd;
    Figure *wide = crowd.add(std::make_unique<Wide>(), QRect(900, 900, 5, 5));
    auto polygon = std::make_unique<Polygon>();
    polygon->setLinePoints({QPoint(800, 800), QPoint(810, 800), QPoint(800, 810)});
    polygon->setLayoutManager(new XYLayout(polygon.get()));
    auto *inPolygon = new Figure(polygon.get(), Qt::red);
    polygon->add(inPolygon, QRect(500, 500, 10, 10));
    crowd.add(std::move(polygon), QRect(800, 800, 10, 10));
    crowd.at(3)->setBounds(QRect(0, 0, -5, -5));
    crowd.at(4)->setParentFigure(nullptr);

    const QList<Figure *> found = crowd.in(QRect(1, 1, 5, 5));

    QVERIFY(found.contains(wide));
    QVERIFY(found.contains(crowd.at(0)));
    QVERIFY(!found.contains(crowd.at(3)));
    QVERIFY(!found.contains(inPolygon));
    QVERIFY(crowd.parent.findFigureAt(505, 505) != &crowd.parent); // hit by what is in it
    crowd.at(4)->setParentFigure(&crowd.parent);
}

void tst_LayoutInterrupted::childrenOfAnySizeAreFound_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("searched");
    QTest::addColumn<bool>("isThere");
    const QRect point(1, 1, 1, 1);
    QTest::newRow("as large as numbers go")
        << QRect(-1000000000, -1000000000, 2000000000, 2000000000) << point << true;
    QTest::newRow("one unit") << QRect(1, 1, 1, 1) << point << true;
    QTest::newRow("a search as large as numbers go")
        << QRect(1, 1, 1, 1) << QRect(-1000000000, -1000000000, 2000000000, 2000000000) << true;
    QTest::newRow("a search of nothing") << QRect(1, 1, 1, 1) << QRect() << false;
    QTest::newRow("elsewhere") << QRect(500, 500, 1, 1) << point << false;
}

void tst_LayoutInterrupted::childrenOfAnySizeAreFound()
{
    QFETCH(QRect, rect);
    QFETCH(QRect, searched);
    QFETCH(bool, isThere);
    Crowd crowd;
    crowd.parent.setBounds(QRect(-1000000000, -1000000000, 2000000000, 2000000000));
    crowd.parent.setLayoutManager(nullptr);
    Figure parent;
    parent.setLayoutManager(new FreeformLayout(&parent));
    parent.setBounds(QRect(-1000000000, -1000000000, 2000000000, 2000000000));
    for (const auto &figure : crowd.figures) {
        figure->setParentFigure(nullptr);
        parent.add(figure.get(), figure->getBounds());
    }
    Rectangle special;
    parent.add(&special, rect);

    QCOMPARE(parent.findFigures(searched, false).contains(&special), isThere);
}

void tst_LayoutInterrupted::childrenThatBecomeStaleDuringAPassAreInTime_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("leaving");
    QTest::addColumn<bool>("renumbered");
    QTest::newRow("nobody else, and who called leaves") << 1 << 0 << 5 << true;
    QTest::newRow("one ahead") << 100 << 100 << -1 << false;
    QTest::newRow("many ahead") << 100 << 199 << -1 << false;
    QTest::newRow("one before who waits, who called leaves") << 100 << 100 << 5 << true;
    QTest::newRow("one ahead, who called leaves") << 170 << 170 << 5 << true;
    QTest::newRow("many ahead, who called leaves") << 165 << 199 << 5 << true;
    QTest::newRow("many ahead, one before leaves") << 100 << 199 << 2 << true;
    QTest::newRow("many ahead, one of them leaves") << 100 << 199 << 150 << true;
    QTest::newRow("many ahead, one of them leaves a gap") << 100 << 199 << 150 << false;
    QTest::newRow("one ahead, who called leaves a gap") << 100 << 100 << 5 << false;
}

// A pass goes through the children in their order, and meets those that have become stale meanwhile
// and lie ahead, also when the list changes.
void tst_LayoutInterrupted::childrenThatBecomeStaleDuringAPassAreInTime()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, leaving);
    QFETCH(bool, renumbered);
    Crowd crowd(200);
    ProbeLayout inner;
    Rectangle passing;
    crowd.at(5)->setLayoutManager(&inner);
    crowd.parent.validate();
    bool hasActed = false;
    inner.whilePerforming = [&] {
        if (std::exchange(hasActed, true))
            return;
        if (leaving >= 0)
            crowd.parent.remove(crowd.at(leaving));
        if (leaving >= 0 && renumbered)
            crowd.parent.add(&passing, QRect(0, 0, 5, 5), 0);
        for (int i = first; i <= last; ++i)
            crowd.at(i)->invalidate();
    };
    crowd.at(5)->revalidate();
    if (first <= last)
        crowd.at(160)->invalidate(); // waits already
    inner.invalidate();

    crowd.parent.validate();

    QVERIFY(hasActed);
    for (int i = 100; i < 200; ++i)
        QVERIFY2(crowd.at(i)->getFlag(Figure::FLAG_VALID) || i == leaving,
                 qPrintable(QString::number(i)));
}

// The one that has called moves forward in the list, and so does the one that comes next.
void tst_LayoutInterrupted::childBehindAGapThatClosesDuringAPassIsInTime()
{
    Crowd crowd(200);
    ProbeLayout inner;
    crowd.at(5)->setLayoutManager(&inner);
    crowd.parent.validate();
    bool hasActed = false;
    inner.whilePerforming = [&] {
        if (std::exchange(hasActed, true))
            return;
        for (int i : {1, 2, 3})
            crowd.parent.remove(crowd.at(i));
        QCOMPARE(crowd.parent.childFigures().size(), 197);
        crowd.at(6)->invalidate();
    };
    inner.invalidate();
    crowd.at(5)->revalidate();

    crowd.parent.validate();

    QVERIFY(hasActed);
    QVERIFY(crowd.at(6)->getFlag(Figure::FLAG_VALID));
}

void tst_LayoutInterrupted::layoutOfAContainerThatGoesWhenItIsAskedForItsAreaFails()
{
    ProbeLayout layout;
    const QPointer<VanishingFigure> container(new VanishingFigure);
    container->setBounds(QRect(0, 0, 100, 100));
    container->setLayoutManager(&layout);
    container->isDoomed = true;

    QVERIFY(!layout.layout(container));

    QVERIFY(!container);
}

QTEST_MAIN(tst_LayoutInterrupted)
#include "tst_layout_interrupted.moc"
