#include "fixtures.h"

#include <figura/figure/ExclusionSearch.h>

#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

class tst_ExclusionSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyFigureIsAccepted();
    void listedFiguresArePruned();
    void emptyListPrunesOnlyNull();
    void nullIsPruned();
    void destroyedFigureIsOnlyCompared();
    void laterChangesOfTheListHaveNoEffect();
    void excludedParentHidesItsChildren();
    void takesAParent();
    void interfaceIsFoundByNameAndId();
};

void tst_ExclusionSearch::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_ExclusionSearch::everyFigureIsAccepted()
{
    Figure listed;
    Figure other;
    const ExclusionSearch search({&listed});

    QVERIFY(search.accept(&listed));
    QVERIFY(search.accept(&other));
    QVERIFY(search.accept(nullptr));
}

void tst_ExclusionSearch::listedFiguresArePruned()
{
    Figure first;
    Figure second;
    Figure other;
    const ExclusionSearch search({&first, &second});

    QVERIFY(search.prune(&first));
    QVERIFY(search.prune(&second));
    QVERIFY(!search.prune(&other));
}

void tst_ExclusionSearch::emptyListPrunesOnlyNull()
{
    Figure figure;
    const ExclusionSearch search({});

    QVERIFY(!search.prune(&figure));
    QVERIFY(search.prune(nullptr));
}

void tst_ExclusionSearch::nullIsPruned()
{
    Figure listed;

    QVERIFY(ExclusionSearch({&listed}).prune(nullptr));
}

void tst_ExclusionSearch::destroyedFigureIsOnlyCompared()
{
    auto excluded = std::make_unique<Figure>();
    const Figure other;
    const ExclusionSearch search({excluded.get()});

    excluded.reset();

    QVERIFY(!search.prune(&other));
}

void tst_ExclusionSearch::laterChangesOfTheListHaveNoEffect()
{
    Figure before;
    Figure after;
    QList<Figure *> list{&before};
    const ExclusionSearch search(list);

    list = {&after};

    QVERIFY(search.prune(&before));
    QVERIFY(!search.prune(&after));
}

void tst_ExclusionSearch::excludedParentHidesItsChildren()
{
    ParentFigure root;
    ParentFigure parent;
    Figure child;
    root.setBounds(QRect(0, 0, 100, 100));
    root.add(&parent);
    parent.add(&child);
    parent.setBounds(QRect(0, 0, 50, 50));
    child.setBounds(QRect(0, 0, 50, 50));
    const ExclusionSearch search({&parent});
    QList<Figure *> found;

    root.findFigures(found, QRect(0, 0, 100, 100), search, false);

    QCOMPARE(root.findFigureAt(5, 5, search), &root);
    QCOMPARE(root.findFigureAtExcluding(5, 5, {&parent}), &root);
    QCOMPARE(found, QList<Figure *>({&root}));
}

void tst_ExclusionSearch::takesAParent()
{
    QObject parent;

    QCOMPARE((new ExclusionSearch({}, &parent))->parent(), &parent);
}

void tst_ExclusionSearch::interfaceIsFoundByNameAndId()
{
    ExclusionSearch search({});
    auto *interface = static_cast<ITreeSearch *>(&search);

    QCOMPARE(search.qt_metacast("Velmora::Figura::ExclusionSearch"), &search);
    QCOMPARE(search.qt_metacast("ITreeSearch"), interface);
    QCOMPARE(search.qt_metacast("ITreeSearch.Morvane.Velmora.velmora.org"), interface);
    QCOMPARE(search.qt_metacast("ITreeSearch.Figura.Velmora.velmora.org"), nullptr);
    QCOMPARE(static_cast<void *>(static_cast<QObject *>(&search)), static_cast<void *>(&search));
}

QTEST_MAIN(tst_ExclusionSearch)
#include "tst_exclusionsearch.moc"
