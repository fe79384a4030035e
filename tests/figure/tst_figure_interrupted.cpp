#include "fixtures.h"

#include <mortalfigure.h>
#include <mortallayout.h>
#include <mortalmanager.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <figura/figure/AncestorHelper.h>
#include <figura/figure/ITreeSearch.h>
#include <figura/layout/XYLayout.h>

#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QRegion>
#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <QTest>

#include <functional>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class MortalSearch : public ITreeSearch
{
public:
    explicit MortalSearch(Fate *fate)
        : m_fate(fate)
    {
    }

    // Who is asked for must still be there.
    bool accept(const Figure *figure) const override
    {
        const bool isVisible = figure->isVisible();
        m_fate->reach("search", "accept");
        return isVisible;
    }
    bool prune(const Figure *figure) const override
    {
        const bool isHidden = !figure->isVisible();
        m_fate->reach("search", "prune");
        return isHidden;
    }

private:
    Fate *m_fate;
};

/// A displayed figure that is taken away in the middle of what it does.
class MortalScene
{
public:
    MortalScene()
    {
        root.setLayoutManager(new PlainLayout);
        root.getLayoutManager()->setParent(&root);
        root.setBounds(QRect(0, 0, 100, 100));
        root.add(figure);
        figure->setBounds(QRect(10, 10, 50, 50));
    }
    ~MortalScene() { delete figure; }
    Q_DISABLE_COPY_MOVE(MortalScene)

    void addChild()
    {
        figure->setLayoutManager(&inner);
        figure->add(&child);
        child.setBounds(QRect(20, 20, 10, 10));
    }

    Fate fate;
    MortalManager manager{&fate, "manager"};
    RootFigure root{&manager};
    MortalSearch search{&fate};
    QPointer<Figure> figure = new MortalFigure<Figure>(&fate, "figure");
    MortalLayout<XYLayout> inner{&fate, "inner"};
    MortalFigure<Figure> child{&fate, "child"};
};

using Operation = std::function<void(MortalScene *)>;

/// Whose protected operations can be called from outside.
class OpenHelper : public AncestorHelper
{
public:
    using AncestorHelper::addAncestors;
    using AncestorHelper::AncestorHelper;
    using AncestorHelper::removeAncestors;
};

} // namespace

class tst_FigureInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void figureMayGoInAnOperation_data();
    void figureMayGoInAnOperation();
    void figureThatGoesIsNotFound_data();
    void figureThatGoesIsNotFound();
    void ancestorMayGoWhileItsMoveIsTold();
    void newParentMayGoWhileTheOldOneIsLeft();
    void helperOfNobodyPassesOnWhatItIsTold();
    void helperKeepsWatchingWhenAStrangerIsLeft();
    void helperMayHookItsFigureAgain();
    void figureWithoutABorderNeedsNoMoreThanItsContent();
    void listOfItsOwnIdeaIsFollowed();
    void unclippedChildrenOfARelativeLayoutMoveAlong();
};

void tst_FigureInterrupted::figureMayGoInAnOperation_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<Operation>("operation");
    const auto row = [](const char *name, const char *moment, const Operation &operation) {
        QTest::addRow("%s, %s", name, moment) << QString::fromLatin1(moment) << operation;
    };
    const Operation hide = [](MortalScene *scene) { scene->figure->setVisible(false); };
    const Operation show = [](MortalScene *scene) {
        scene->figure->setVisible(false);
        scene->figure->setVisible(true);
    };
    row("hidden", "figure::erase", hide);
    row("hidden", "manager::addDirtyRegion", hide);
    row("hidden", "figure::revalidate", hide);
    row("shown", "figure::repaint", show);
    row("measured", "figure::resolveBounds", [](MortalScene *scene) {
        QCOMPARE(scene->figure->getClientArea(), QRect(10, 10, 50, 50));
    });
    const Operation place = [](MortalScene *scene) {
        scene->figure->setBounds(QRect(30, 20, 60, 40));
    };
    row("placed", "figure::resolveBounds", place);
    row("placed", "figure::erase", place);
    row("placed", "figure::primTranslate", place);
    row("moved by its parent", "figure::primTranslate", [](MortalScene *scene) {
        PlainLayout absolute(false);
        scene->figure->setLayoutManager(&absolute);
        scene->figure->translate(3, 4);
    });
    row("revalidated", "figure::invalidate",
        [](MortalScene *scene) { scene->figure->revalidate(); });
    const Operation prefer = [](MortalScene *scene) {
        scene->figure->invalidate();
        scene->figure->getPreferredSize();
    };
    row("asked what it prefers", "figure::calculateContentSize", prefer);
    row("asked what it prefers", "figure::getMinimumSize", prefer);
    row("asked what it needs", "inner::calculateMinimumSize", [](MortalScene *scene) {
        scene->addChild();
        scene->figure->getMinimumSize();
    });
    row("taken off", "child::removeNotify", [](MortalScene *scene) {
        scene->addChild();
        scene->figure->removeNotify();
    });
    const Operation draw = [](MortalScene *scene) {
        QImage image(100, 100, QImage::Format_RGB32);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = image.rect();
        scene->figure->render(&painter, option);
    };
    row("painted", "figure::drawBackground", draw);
    row("painted", "figure::drawFigure", draw);
}

void tst_FigureInterrupted::figureMayGoInAnOperation()
{
    QFETCH(QString, moment);
    QFETCH(Operation, operation);
    MortalScene scene;
    scene.fate.at(moment, 1, [&] { delete scene.figure; });

    operation(&scene);

    QVERIFY(scene.fate.hasStruck());
    QVERIFY(!scene.figure);
    QVERIFY(scene.root.childFigures().isEmpty());
}

void tst_FigureInterrupted::figureThatGoesIsNotFound_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<bool>("byPoint");
    for (const char *moment :
         {"figure::contains", "child::contains", "search::prune", "search::accept"})
        QTest::addRow("at a point, %s", moment) << QString::fromLatin1(moment) << true;
    for (const char *moment : {"figure::isIntersecting", "child::isIntersecting",
                               "figure::isContained", "search::prune", "search::accept"})
        QTest::addRow("in a rectangle, %s", moment) << QString::fromLatin1(moment) << false;
}

void tst_FigureInterrupted::figureThatGoesIsNotFound()
{
    QFETCH(QString, moment);
    QFETCH(bool, byPoint);
    MortalScene scene;
    if (moment.startsWith(QStringLiteral("child")))
        scene.addChild();
    const Figure *asked = scene.figure;
    scene.fate.at(moment, 1, [&] { delete scene.figure; });

    Figure *found = nullptr;
    QList<Figure *> all;
    if (byPoint)
        found = asked->findFigureAt(20, 20, scene.search);
    else
        asked->findFigures(all, QRect(0, 0, 100, 100), scene.search, true);

    QVERIFY(scene.fate.hasStruck());
    QVERIFY(!scene.figure);
    QVERIFY(!found);
    QVERIFY(!all.contains(asked));
}

void tst_FigureInterrupted::ancestorMayGoWhileItsMoveIsTold()
{
    QPointer<ParentFigure> parent = new ParentFigure;
    Figure first;
    Figure second;
    parent->add(&first);
    parent->add(&second);
    AncestorHelper helper(&first);
    AncestorHelper other(&second);
    const QSignalSpy told(&other, &AncestorHelper::ancestorMoved);
    connect(&helper, &AncestorHelper::ancestorMoved, this, [&] { delete parent; });

    Q_EMIT parent->figureMoved(parent);

    QVERIFY(!parent);
    QCOMPARE(told.count(), 0);
    QVERIFY(!second.getParentFigure());
}

void tst_FigureInterrupted::newParentMayGoWhileTheOldOneIsLeft()
{
    ParentFigure before;
    QPointer<ParentFigure> after = new ParentFigure;
    Figure child;
    before.add(&child);
    AncestorHelper helper(&child);
    const QSignalSpy added(&helper, &AncestorHelper::ancestorAdded);
    connect(&helper, &AncestorHelper::ancestorRemoved, this, [&] { delete after; });

    child.setParentFigure(after);

    QVERIFY(!after);
    QCOMPARE(added.count(), 0);
}

void tst_FigureInterrupted::helperOfNobodyPassesOnWhatItIsTold()
{
    AncestorHelper helper(nullptr);
    Figure figure;
    QSignalSpy moved(&helper, &AncestorHelper::ancestorMoved);

    Q_EMIT figure.figureMoved(&figure);
    QCOMPARE(moved.count(), 0);
    helper.figureMoved(&figure);

    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.takeFirst().constFirst().value<Figure *>(), &figure);
}

void tst_FigureInterrupted::helperKeepsWatchingWhenAStrangerIsLeft()
{
    ParentFigure parent;
    Figure child;
    Figure stranger;
    parent.add(&child);
    OpenHelper helper(&child);
    const QSignalSpy moved(&helper, &AncestorHelper::ancestorMoved);

    helper.removeAncestors(&stranger);
    Q_EMIT parent.figureMoved(&parent);
    QCOMPARE(moved.count(), 1);
    helper.removeAncestors(&parent);
    Q_EMIT parent.figureMoved(&parent);

    QCOMPARE(moved.count(), 1);
}

void tst_FigureInterrupted::helperMayHookItsFigureAgain()
{
    Figure figure;
    OpenHelper helper(&figure);
    const QSignalSpy moved(&helper, &AncestorHelper::ancestorMoved);

    helper.addAncestors(&figure);
    Q_EMIT figure.figureMoved(&figure);
    QCOMPARE(moved.count(), 2);
    helper.removeAncestors(&figure);
    Q_EMIT figure.figureMoved(&figure);

    QCOMPARE(moved.count(), 2);
}

void tst_FigureInterrupted::figureWithoutABorderNeedsNoMoreThanItsContent()
{
    class MeasuredFigure : public Figure
    {
    public:
        using Figure::calculateRectForContent;
    };
    MeasuredFigure figure;

    QCOMPARE(figure.calculateRectForContent(QRect(10, 10, 20, 20)), QRect(10, 10, 20, 20));
    figure.setMargin(3);

    QCOMPARE(figure.calculateRectForContent(QRect(10, 10, 20, 20)), QRect(7, 7, 26, 26));
}

// Some keep children that their layout does not know, or hide some that it does.
void tst_FigureInterrupted::listOfItsOwnIdeaIsFollowed()
{
    class Chooser : public ParentFigure
    {
    public:
        QList<Figure *> chosen;

        QList<Figure *> childFigures() override { return chosen; }
    };
    Chooser parent;
    CountingFigure hidden;
    CountingFigure listed;
    CountingFigure foreign;
    parent.add(&hidden);
    parent.add(&listed);
    parent.chosen = {&listed, &foreign, nullptr};

    parent.addNotify();

    QCOMPARE(hidden.calls().addNotify, 0);
    QCOMPARE(listed.calls().addNotify, 1);
    QCOMPARE(foreign.calls().addNotify, 1);
}

void tst_FigureInterrupted::unclippedChildrenOfARelativeLayoutMoveAlong()
{
    class LooseLayout : public XYLayout
    {
    public:
        using XYLayout::XYLayout;

    protected:
        bool isClipping() const override { return false; }
    };
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new XYLayout(&root));
    root.setBounds(QRect(0, 0, 500, 500));
    Figure box;
    Figure child(nullptr, Qt::red);
    box.setLayoutManager(new LooseLayout(&box));
    root.add(&box, QRect(100, 100, 20, 20));
    box.add(&child, QRect(30, 30, 40, 40)); // outside of the box
    root.validate();
    manager.clear();

    box.setBounds(QRect(200, 100, 20, 20));
    QRegion damage;
    for (const QRect &rect : manager.dirtyRects(&root))
        damage |= rect;

    QCOMPARE(child.getBounds(), QRect(30, 30, 40, 40));
    QVERIFY(box.useLocalCoordinates());
    QVERIFY(!damage.isEmpty());
}

Q_DECLARE_METATYPE(Operation)

QTEST_MAIN(tst_FigureInterrupted)
#include "tst_figure_interrupted.moc"
