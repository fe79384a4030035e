#include <figure/workcounters_p.h>

#include <figura/figure/Figure.h>
#include <figura/layout/XYLayout.h>

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

using namespace Velmora::Figura;

namespace {

/// The children of a layout, beside a plain list that does the same.
class Crowd
{
public:
    explicit Crowd(int count)
    {
        m_container.setLayoutManager(&children);
        for (int i = 0; i < count; ++i)
            add(-1);
    }

    void add(int index)
    {
        m_figures.push_back(std::make_unique<Figure>());
        Figure *figure = m_figures.back().get();
        children.add(figure, QVariant(), index);
        const bool inside = index >= 0 && index < model.size();
        model.insert(inside ? index : model.size(), figure);
    }

    void remove(Figure *figure)
    {
        children.remove(figure);
        model.removeOne(figure);
    }

    QList<Figure *> order() { return children.childFigures(); }

    XYLayout children;
    QList<Figure *> model;

private:
    Figure m_container;
    std::vector<std::unique_ptr<Figure>> m_figures;
};

/// How many places in lists were written anew since it was made.
class Effort
{
public:
    long spent() const { return workCounters().shifted - m_before; }

private:
    const long m_before = workCounters().shifted;
};

QList<Figure *> inOrder(const QList<Figure *> &figures, const QString &order)
{
    QList<Figure *> result = figures;
    QRandomGenerator random(1);
    if (order == QStringLiteral("backward"))
        std::reverse(result.begin(), result.end());
    else if (order == QStringLiteral("random"))
        std::shuffle(result.begin(), result.end(), random);
    return result;
}

} // namespace

class tst_ChildrenOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void childrenKeepTheOrderOfAPlainList_data();
    void childrenKeepTheOrderOfAPlainList();
    void childrenMayComeBetweenTheSameTwoForEver();
    void childThatLeavesIsNotSearchedFor_data();
    void childThatLeavesIsNotSearchedFor();
    void eitherEndMayBeTakenWhileTheListIsRead_data();
    void eitherEndMayBeTakenWhileTheListIsRead();
    void gapsDoNotPileUpWhileNobodyLooks();
    void gapThatClosesMovesAndNumbersAllChildren();
    void childThatLeavesStaysInItsPlaceWithoutARecord();
    void childMayComeBackWhileItLeaves();
};

void tst_ChildrenOrder::childrenKeepTheOrderOfAPlainList_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 50; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_ChildrenOrder::childrenKeepTheOrderOfAPlainList()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    Crowd crowd(5);

    for (int step = 0; step < 400; ++step) {
        const int count = int(crowd.model.size());
        if (random.bounded(5) < 2 || count == 0)
            crowd.add(random.bounded(-1, count + 2));
        else
            crowd.remove(crowd.model.at(random.bounded(count)));
        QCOMPARE(crowd.children.childFigureCount(), int(crowd.model.size()));
        if (random.bounded(3) == 0)
            QCOMPARE(crowd.order(), crowd.model);
    }

    QCOMPARE(crowd.order(), crowd.model);
}

void tst_ChildrenOrder::childrenMayComeBetweenTheSameTwoForEver()
{
    Crowd crowd(2);

    for (int i = 0; i < 200; ++i)
        crowd.add(1);

    QCOMPARE(crowd.order(), crowd.model);
    const Effort effort;
    for (Figure *figure : inOrder(crowd.model, QStringLiteral("random")))
        crowd.remove(figure);
    QCOMPARE(crowd.children.childFigureCount(), 0);
    QVERIFY(effort.spent() >= 202); // they had to be numbered once
    QVERIFY2(effort.spent() <= 5 * 202, qPrintable(QString::number(effort.spent())));
}

void tst_ChildrenOrder::childThatLeavesIsNotSearchedFor_data()
{
    QTest::addColumn<QString>("order");
    QTest::addColumn<int>("count");
    for (const int count : {1000, 8000}) {
        for (const char *order : {"forward", "backward", "random"})
            QTest::addRow("%s, %d", order, count) << QString::fromLatin1(order) << count;
    }
}

// Whatever their number, each costs the same.
void tst_ChildrenOrder::childThatLeavesIsNotSearchedFor()
{
    QFETCH(QString, order);
    QFETCH(int, count);
    Crowd crowd(count);
    const Effort effort;

    for (Figure *figure : inOrder(crowd.model, order))
        crowd.remove(figure);

    QCOMPARE(crowd.children.childFigureCount(), 0);
    QVERIFY2(effort.spent() <= 4 * count, qPrintable(QString::number(effort.spent())));
}

void tst_ChildrenOrder::eitherEndMayBeTakenWhileTheListIsRead_data()
{
    QTest::addColumn<QString>("order");
    QTest::newRow("forward") << QStringLiteral("forward");
    QTest::newRow("backward") << QStringLiteral("backward");
}

void tst_ChildrenOrder::eitherEndMayBeTakenWhileTheListIsRead()
{
    QFETCH(QString, order);
    Crowd crowd(1000);
    const Effort effort;

    for (Figure *figure : inOrder(crowd.model, order)) {
        crowd.remove(figure);
        QCOMPARE(crowd.order().size(), crowd.model.size());
    }

    QCOMPARE(effort.spent(), 0L);
}

void tst_ChildrenOrder::gapsDoNotPileUpWhileNobodyLooks()
{
    Crowd crowd(3);

    for (int i = 0; i < 1000; ++i) {
        crowd.add(-1);
        crowd.remove(crowd.model.at(1));
    }

    QCOMPARE(crowd.children.childFigureCount(), 3);
    // Each look closes what gaps there are: had a thousand been left, this one would tell.
    const Effort effort;
    QCOMPARE(crowd.order(), crowd.model);
    QVERIFY(effort.spent() <= 8);
}

// Which is why it has to wait until somebody looks.
void tst_ChildrenOrder::gapThatClosesMovesAndNumbersAllChildren()
{
    Crowd crowd(1000);
    crowd.remove(crowd.model.at(500));
    const Effort effort;

    QCOMPARE(crowd.order(), crowd.model);
    QCOMPARE(effort.spent(), 1000L);
    crowd.remove(crowd.model.at(500));
    QCOMPARE(effort.spent(), 1000L + 999L);
}

// Its parent figure is taken from it before it leaves the list.
void tst_ChildrenOrder::childThatLeavesStaysInItsPlaceWithoutARecord()
{
    Crowd crowd(3);
    Figure *leaving = crowd.model.at(1);
    bool seen = false;
    connect(leaving, &Figure::propertyChanged, this, [&]() {
        seen = true;
        QVERIFY(!crowd.children.setConstraint(leaving, QVariant()));
        QCOMPARE(crowd.order(), crowd.model);
    });

    crowd.children.remove(leaving);

    QVERIFY(seen);
    crowd.model.removeOne(leaving);
    QCOMPARE(crowd.order(), crowd.model);
}

void tst_ChildrenOrder::childMayComeBackWhileItLeaves()
{
    Crowd crowd(3);
    Figure *leaving = crowd.model.at(0);
    bool isBack = false;
    connect(leaving, &Figure::propertyChanged, this, [&]() {
        if (!std::exchange(isBack, true))
            crowd.children.add(leaving, QRect(1, 2, 3, 4));
    });

    crowd.children.remove(leaving);

    QCOMPARE(crowd.order(), QList<Figure *>({crowd.model.at(1), crowd.model.at(2), leaving}));
    QCOMPARE(crowd.children.getConstraint(leaving).toRect(), QRect(1, 2, 3, 4));
}

QTEST_MAIN(tst_ChildrenOrder)
#include "tst_childrenorder.moc"
