#include "mortalmessages.h"
#include "mortalworld.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

bool concernsPages(const QString &moment)
{
    return moment.startsWith(QStringLiteral("page::"));
}

// How often each operation of the application is called while nothing is destroyed. Pages are only
// printed for those that have to do with them.
QMap<QString, int> reachedMoments()
{
    QMap<QString, int> all;
    for (const bool printsPages : {false, true}) {
        MortalWorld world;
        world.fate.count();
        world.printsPages = printsPages;
        world.live();
        const QMap<QString, int> reached = world.fate.reached();
        for (auto it = reached.cbegin(); it != reached.cend(); ++it) {
            if (concernsPages(it.key()) == printsPages)
                all.insert(it.key(), it.value());
        }
    }
    return all;
}

// One row in so many; all of them, which takes minutes, when the environment says so.
bool isChosen(int row)
{
    static const bool wantsAll = qEnvironmentVariableIsSet("FIGURA_ALL_DELETIONS");
    return wantsAll || row % 3 == 0;
}

} // namespace

class tst_DeleteInCallbacks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepQuietAboutBounds(); }
    void init() { failOnUnexpectedWarnings(); }

    void worldIsSoundWhileNothingIsDestroyed();
    void everyKindOfCallbackIsReached_data();
    void everyKindOfCallbackIsReached();
    void anythingMayGoInACallback_data();
    void anythingMayGoInACallback();
    void anythingMayGoAtRest_data();
    void anythingMayGoAtRest();
    void everythingMayGoInAnyOrder_data();
    void everythingMayGoInAnyOrder();
};

void tst_DeleteInCallbacks::worldIsSoundWhileNothingIsDestroyed()
{
    MortalWorld world;

    QCOMPARE(world.contradictions(), QStringList());
    QCOMPARE(world.pictureError(), QString());
    world.live();
    QCOMPARE(world.contradictions(), QStringList());
    QCOMPARE(world.pictureError(), QString());
}

void tst_DeleteInCallbacks::everyKindOfCallbackIsReached_data()
{
    QTest::addColumn<QString>("moment");
    const QMap<QString, QStringList> operations{
        {QStringLiteral("member"),
         {"resolveBounds",  "getPreferredSize", "getMinimumSize", "calculateContentSize",
          "setBounds",      "translate",        "contains",       "isContained",
          "isIntersecting", "render",           "drawBackground", "drawFigure",
          "drawBorder",     "invalidate",       "validate",       "layout",
          "erase",          "revalidate",       "repaint",        "setParentFigure",
          "addNotify",      "removeNotify"}},
        {QStringLiteral("group"), {"primTranslate", "drawChildren"}},
        {QStringLiteral("group layout"),
         {"calculateMinimumSize", "performLayout", "applyConstraint", "setConstraint", "layout",
          "invalidate", "render", "remove"}},
        {QStringLiteral("box layout"), {"calculatePreferredSize"}},
        {QStringLiteral("layout listener"),
         {"invalidate", "layout", "postLayout", "remove", "setConstraint"}},
        {QStringLiteral("listener"),
         {"ancestorAdded", "ancestorMoved", "ancestorRemoved", "propertyChanged", "anchorMoved"}},
        {QStringLiteral("grid router"), {"invalidate", "remove", "route", "doRoute"}},
        {QStringLiteral("bend router"), {"routeF", "setConstraint"}},
        {QStringLiteral("source anchor"),
         {"addAnchorListener", "removeAnchorListener", "getLocation", "getReferencePoint"}},
        {QStringLiteral("middle"), {"relocate", "getReferencePoint"}},
        {QStringLiteral("search"), {"accept", "prune"}},
        {QStringLiteral("page"), {"getContentRect", "decoratePage"}}};
    for (auto it = operations.cbegin(); it != operations.cend(); ++it) {
        for (const QString &operation : it.value()) {
            const QString moment = it.key() + QLatin1String("::") + operation;
            QTest::newRow(qPrintable(moment)) << moment;
        }
    }
}

// So that the rows below leave out none of them.
void tst_DeleteInCallbacks::everyKindOfCallbackIsReached()
{
    QFETCH(QString, moment);
    static const QMap<QString, int> reached = reachedMoments();

    QVERIFY(reached.value(moment) > 0);
}

void tst_DeleteInCallbacks::anythingMayGoInACallback_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<int>("occurrence");
    QTest::addColumn<QString>("victim");

    const QStringList victims = MortalWorld().partNames();
    const QMap<QString, int> reached = reachedMoments();
    int row = 0;
    for (auto it = reached.cbegin(); it != reached.cend(); ++it) {
        for (const QString &victim : victims) {
            const int occurrence = 1 + row % it.value();
            if (!isChosen(row++))
                continue;
            QTest::addRow("%s, %d: %s", qPrintable(it.key()), occurrence, qPrintable(victim))
                << it.key() << occurrence << victim;
        }
    }
}

void tst_DeleteInCallbacks::anythingMayGoInACallback()
{
    QFETCH(QString, moment);
    QFETCH(int, occurrence);
    QFETCH(QString, victim);
    MortalWorld world;
    world.fate.at(moment, occurrence, [&] { world.destroy(victim); });
    world.printsPages = concernsPages(moment);

    world.live();

    QVERIFY(world.fate.hasStruck());
    QVERIFY(!world.part(victim));
    QCOMPARE(world.contradictions(), QStringList());
    QCOMPARE(world.pictureError(), QString());
}

void tst_DeleteInCallbacks::anythingMayGoAtRest_data()
{
    QTest::addColumn<QString>("victim");
    for (const QString &victim : MortalWorld().partNames())
        QTest::newRow(qPrintable(victim)) << victim;
}

void tst_DeleteInCallbacks::anythingMayGoAtRest()
{
    QFETCH(QString, victim);
    MortalWorld world;

    world.destroy(victim);

    QVERIFY(!world.part(victim));
    QCOMPARE(world.contradictions(), QStringList());
    QCOMPARE(world.pictureError(), QString());
    world.live();
    QCOMPARE(world.contradictions(), QStringList());
    QCOMPARE(world.pictureError(), QString());
}

void tst_DeleteInCallbacks::everythingMayGoInAnyOrder_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 40; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_DeleteInCallbacks::everythingMayGoInAnyOrder()
{
    QFETCH(quint32, seed);
    MortalWorld world;
    QStringList order = world.partNames();
    QRandomGenerator random(seed);
    std::shuffle(order.begin(), order.end(), random);

    for (const QString &victim : std::as_const(order)) {
        world.destroy(victim);
        world.live();
        QCOMPARE(world.contradictions(), QStringList());
        QVERIFY2(world.pictureError().isEmpty(), qPrintable(victim));
    }
}

QTEST_MAIN(tst_DeleteInCallbacks)
#include "tst_delete_in_callbacks.moc"
