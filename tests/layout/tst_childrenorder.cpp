#include <layout/layoutchildren_p.h>

#include <figura/figure/Figure.h>

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Velmora::Figura;

namespace {

/// Children that are never looked at, only told apart, beside a plain list that does the same.
class Crowd
{
public:
    explicit Crowd(int count)
    {
        for (int i = 0; i < count; ++i)
            add(-1);
    }

    void add(int index)
    {
        m_figures.push_back(std::make_unique<Figure>());
        Figure *figure = m_figures.back().get();
        children.insert(index, figure, std::make_unique<LayoutChildren::Record>(QVariant(), 0, 0));
        const bool inside = index >= 0 && index < model.size();
        model.insert(inside ? index : model.size(), figure);
    }

    void remove(Figure *figure)
    {
        const auto record = children.takeRecord(figure);
        children.remove(figure, record.get());
        model.removeOne(figure);
    }

    LayoutChildren children;
    QList<Figure *> model;

private:
    std::vector<std::unique_ptr<Figure>> m_figures;
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
    void childThatLeavesStaysInItsPlaceWithoutARecord();
    void childMayComeBackWhileItLeaves();
    void revisionTellsEveryChange();
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
        QCOMPARE(crowd.children.count(), int(crowd.model.size()));
        if (random.bounded(3) == 0)
            QCOMPARE(crowd.children.figures(), crowd.model);
    }

    QCOMPARE(crowd.children.figures(), crowd.model);
}

void tst_ChildrenOrder::childrenMayComeBetweenTheSameTwoForEver()
{
    Crowd crowd(2);

    for (int i = 0; i < 200; ++i)
        crowd.add(1);

    QCOMPARE(crowd.children.figures(), crowd.model);
    const quint64 before = crowd.children.effort();
    for (Figure *figure : inOrder(crowd.model, QStringLiteral("random")))
        crowd.remove(figure);
    QCOMPARE(crowd.children.count(), 0);
    QVERIFY(crowd.children.effort() - before <= 2 * 202);
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

    for (Figure *figure : inOrder(crowd.model, order))
        crowd.remove(figure);

    QCOMPARE(crowd.children.count(), 0);
    QVERIFY2(crowd.children.effort() <= 2 * quint64(count),
             qPrintable(QString::number(crowd.children.effort())));
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

    for (Figure *figure : inOrder(crowd.model, order)) {
        crowd.remove(figure);
        QCOMPARE(crowd.children.figures().size(), crowd.model.size());
    }

    QCOMPARE(crowd.children.effort(), quint64(0));
}

void tst_ChildrenOrder::gapsDoNotPileUpWhileNobodyLooks()
{
    Crowd crowd(3);

    for (int i = 0; i < 1000; ++i) {
        crowd.add(-1);
        crowd.remove(crowd.model.at(1));
    }

    QCOMPARE(crowd.children.count(), 3);
    // Each look closes what gaps there are: had a thousand been left, this one would tell.
    const quint64 before = crowd.children.effort();
    QCOMPARE(crowd.children.figures(), crowd.model);
    QVERIFY(crowd.children.effort() - before <= 8);
}

void tst_ChildrenOrder::childThatLeavesStaysInItsPlaceWithoutARecord()
{
    Crowd crowd(3);
    Figure *leaving = crowd.model.at(1);

    const auto record = crowd.children.takeRecord(leaving);

    QVERIFY(record);
    QVERIFY(!crowd.children.record(leaving));
    QCOMPARE(crowd.children.figures(), crowd.model);
    crowd.children.remove(leaving, nullptr);
    crowd.model.removeOne(leaving);
    QCOMPARE(crowd.children.figures(), crowd.model);
    crowd.children.remove(leaving, nullptr);
    QCOMPARE(crowd.children.figures(), crowd.model);
}

void tst_ChildrenOrder::childMayComeBackWhileItLeaves()
{
    Crowd crowd(3);
    Figure *leaving = crowd.model.at(0);

    const auto record = crowd.children.takeRecord(leaving);
    crowd.children.insert(-1, leaving, std::make_unique<LayoutChildren::Record>(QVariant(), 0, 0));
    crowd.children.remove(leaving, record.get());

    QCOMPARE(crowd.children.figures(),
             QList<Figure *>({crowd.model.at(1), crowd.model.at(2), leaving}));
    QVERIFY(crowd.children.record(leaving));
}

void tst_ChildrenOrder::revisionTellsEveryChange()
{
    Crowd crowd(2);
    const Crowd other(2);
    QSet<quint64> revisions{crowd.children.revision(), other.children.revision()};

    crowd.add(1);
    revisions.insert(crowd.children.revision());
    crowd.remove(crowd.model.at(0));
    revisions.insert(crowd.children.revision());
    const quint64 last = crowd.children.revision();
    crowd.children.figures();

    QCOMPARE(revisions.size(), 4);
    QCOMPARE(crowd.children.revision(), last);
}

QTEST_MAIN(tst_ChildrenOrder)
#include "tst_childrenorder.moc"
