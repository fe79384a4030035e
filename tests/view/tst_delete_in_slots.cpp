#include "mortalmessages.h"
#include "mortalworld.h"

#include <QMetaMethod>
#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Every signal that the library declares, of one object.
QList<QMetaMethod> signalsOf(const QObject *object)
{
    QList<QMetaMethod> found;
    for (int i = 0; i < object->metaObject()->methodCount(); ++i) {
        const QMetaMethod method = object->metaObject()->method(i);
        const QByteArray declaredBy = method.enclosingMetaObject()->className();
        if (method.methodType() == QMetaMethod::Signal &&
            declaredBy.startsWith("Velmora::Figura::"))
            found.append(method);
    }
    return found;
}

/// Passes a signal on as a moment of the fate that it is given.
class Messenger : public QObject
{
    Q_OBJECT

public:
    Messenger(const QString &name, QObject *sender, const QMetaMethod &signal)
        : m_name(name.toLatin1())
        , m_signal(signal.name())
    {
        const int slot = staticMetaObject.indexOfSlot("pass()");
        connect(sender, signal, this, staticMetaObject.method(slot));
    }

    Fate *fate = nullptr;

public Q_SLOTS:
    void pass()
    {
        if (fate)
            fate->reach(m_name, m_signal.constData());
    }

private:
    QByteArray m_name;
    QByteArray m_signal;
};

/// A world, and messengers of all signals of its parts; a part that the world makes itself is
/// listened to before anybody else does.
class HeardWorld
{
public:
    HeardWorld()
        : world([this](const QString &name, QObject *part) { listen(name, part); })
    {
        for (const std::unique_ptr<Messenger> &messenger : messengers)
            messenger->fate = &world.fate;
    }

    void listen(const QString &name, QObject *part)
    {
        for (const QMetaMethod &signal : signalsOf(part))
            messengers.push_back(std::make_unique<Messenger>(name, part, signal));
    }

    std::vector<std::unique_ptr<Messenger>> messengers;
    MortalWorld world;
};

// How often each signal of each part comes while nothing is destroyed.
QMap<QString, int> heardSignals()
{
    Fate counter;
    HeardWorld heard;
    for (const std::unique_ptr<Messenger> &messenger : heard.messengers)
        messenger->fate = &counter;
    counter.count();
    heard.world.live();
    return counter.reached();
}

} // namespace

class tst_DeleteInSlots : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepQuietAboutBounds(); }
    void init() { failOnUnexpectedWarnings(); }

    void everySignalIsHeard();
    void anythingMayGoInTheFirstSlot_data() { addRows(true); }
    void anythingMayGoInTheFirstSlot();
    void anythingMayGoInTheLastSlot_data() { addRows(false); }
    void anythingMayGoInTheLastSlot();

private:
    void addRows(bool comesFirst);
    void liveAndDie(MortalWorld *world);
};

// So that the rows below leave out no signal, not even one that is added some day.
void tst_DeleteInSlots::everySignalIsHeard()
{
    QSet<QString> declared;
    const MortalWorld world;
    for (const QString &name : world.partNames()) {
        for (const QMetaMethod &signal : signalsOf(world.part(name)))
            declared.insert(QString::fromLatin1(signal.name()));
    }

    QSet<QString> heard;
    for (const QString &moment : heardSignals().keys())
        heard.insert(moment.section(QLatin1String("::"), 1));

    QVERIFY(declared.size() >= 11);
    QCOMPARE(heard, declared);
}

void tst_DeleteInSlots::addRows(bool comesFirst)
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<int>("occurrence");
    QTest::addColumn<QString>("victim");

    const QStringList victims = MortalWorld().partNames();
    const QMap<QString, int> heard = heardSignals();
    static const bool wantsAll = qEnvironmentVariableIsSet("FIGURA_ALL_DELETIONS");
    int row = 0;
    for (auto it = heard.cbegin(); it != heard.cend(); ++it) {
        for (const QString &victim : victims) {
            const int occurrence = comesFirst ? 1 : 1 + row % it.value();
            // Each pair goes one way; both, which takes minutes, when the environment says so.
            if ((row++ % 2 == 0) != comesFirst && !wantsAll)
                continue;
            QTest::addRow("%s, %d: %s", qPrintable(it.key()), occurrence, qPrintable(victim))
                << it.key() << occurrence << victim;
        }
    }
}

void tst_DeleteInSlots::liveAndDie(MortalWorld *world)
{
    QFETCH(QString, moment);
    QFETCH(int, occurrence);
    QFETCH(QString, victim);
    world->fate.at(moment, occurrence, [&] { world->destroy(victim); });

    world->live();

    QVERIFY(world->fate.hasStruck());
    QVERIFY(!world->part(victim));
    QCOMPARE(world->contradictions(), QStringList());
    QCOMPARE(world->pictureError(), QString());
}

void tst_DeleteInSlots::anythingMayGoInTheFirstSlot()
{
    HeardWorld heard;

    liveAndDie(&heard.world);
}

void tst_DeleteInSlots::anythingMayGoInTheLastSlot()
{
    QFETCH(QString, moment);
    MortalWorld world;
    const QStringList names = moment.split(QStringLiteral("::"));
    std::unique_ptr<Messenger> messenger;
    for (const QMetaMethod &signal : signalsOf(world.part(names.first()))) {
        if (signal.name() == names.last().toLatin1())
            messenger =
                std::make_unique<Messenger>(names.first(), world.part(names.first()), signal);
    }
    messenger->fate = &world.fate;

    liveAndDie(&world);
}

QTEST_MAIN(tst_DeleteInSlots)
#include "tst_delete_in_slots.moc"
