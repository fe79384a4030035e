#include "fixtures.h"

#include <logcapture.h>

#include <figura/figure/IPropertyChangeListener.h>

#include <QTest>

#include <malloc.h>
#include <memory>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// Implements the interface, but cannot be connected to.
class NoObjectListener : public IPropertyChangeListener
{
public:
    int calls = 0;

    void propertyChanged(const QString &, const QVariant &, const QVariant &) override { ++calls; }
};

} // namespace

/// Remembers the changes that it is told.
class PropertyListener : public QObject, public IPropertyChangeListener
{
    Q_OBJECT

public:
    struct Change
    {
        QString name;
        QVariant oldValue;
        QVariant newValue;
    };

    QList<Change> changes;

public Q_SLOTS:
    void propertyChanged(const QString &propertyName, const QVariant &oldValue,
                         const QVariant &newValue) override
    {
        changes.append({propertyName, oldValue, newValue});
    }
};

/// An object that lacks the slot.
class SlotlessListener : public QObject, public IPropertyChangeListener
{
    Q_OBJECT

public:
    int calls = 0;

    void propertyChanged(const QString &, const QVariant &, const QVariant &) override { ++calls; }
};

class tst_Property_Listeners : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listenerIsToldNameOldAndNewValue();
    void propertiesOfSubclassesReachTheListener();
    void listenerAddedTwiceIsCalledTwice();
    void oneRemovalDisconnectsAltogether();
    void removalLeavesOtherListenersAndFigures();
    void removalOfAStrangerDoesNothing();
    void listenerThatIsNoObjectIsNeverCalledAndNotReported();
    void listenerWithoutTheSlotIsNeverCalled();
    void nullListenerIsIgnored();
    void destroyedListenerIsForgotten();
    void manyListenersComeAndGo();
    void listenersThatDieOneByOneDoNotPileUp();
};

void tst_Property_Listeners::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Property_Listeners::listenerIsToldNameOldAndNewValue()
{
    Figure first;
    Figure second;
    Figure figure;
    PropertyListener listener;
    figure.setParentFigure(&first);
    figure.addPropertyChangeListener(&listener);

    figure.setParentFigure(&second);

    QCOMPARE(listener.changes.size(), 1);
    QCOMPARE(listener.changes[0].name, Figure::PROPERTY_PARENT);
    QCOMPARE(listener.changes[0].oldValue.value<Figure *>(), &first);
    QCOMPARE(listener.changes[0].newValue.value<Figure *>(), &second);
}

void tst_Property_Listeners::propertiesOfSubclassesReachTheListener()
{
    Figure figure;
    PropertyListener listener;
    figure.addPropertyChangeListener(&listener);

    Q_EMIT figure.propertyChanged(QStringLiteral("points"), 1, 2);

    QCOMPARE(listener.changes.size(), 1);
    QCOMPARE(listener.changes[0].name, QStringLiteral("points"));
    QCOMPARE(listener.changes[0].oldValue, QVariant(1));
    QCOMPARE(listener.changes[0].newValue, QVariant(2));
}

void tst_Property_Listeners::listenerAddedTwiceIsCalledTwice()
{
    Figure figure;
    PropertyListener listener;
    figure.addPropertyChangeListener(&listener);
    figure.addPropertyChangeListener(&listener);

    figure.setParentFigure(nullptr);

    QCOMPARE(listener.changes.size(), 2);
}

void tst_Property_Listeners::oneRemovalDisconnectsAltogether()
{
    Figure figure;
    PropertyListener listener;
    figure.addPropertyChangeListener(&listener);
    figure.addPropertyChangeListener(&listener);

    figure.removePropertyChangeListener(&listener);
    figure.setParentFigure(nullptr);

    QCOMPARE(listener.changes.size(), 0);
}

void tst_Property_Listeners::removalLeavesOtherListenersAndFigures()
{
    Figure figure;
    Figure other;
    PropertyListener removed;
    PropertyListener staying;
    figure.addPropertyChangeListener(&removed);
    figure.addPropertyChangeListener(&staying);
    other.addPropertyChangeListener(&removed);

    figure.removePropertyChangeListener(&removed);
    figure.setParentFigure(nullptr);
    other.setParentFigure(nullptr);

    QCOMPARE(staying.changes.size(), 1);
    QCOMPARE(removed.changes.size(), 1);
}

void tst_Property_Listeners::removalOfAStrangerDoesNothing()
{
    Figure figure;
    PropertyListener listener;
    PropertyListener stranger;
    figure.addPropertyChangeListener(&listener);
    LogCapture log;

    figure.removePropertyChangeListener(&stranger);
    figure.setParentFigure(nullptr);

    QCOMPARE(listener.changes.size(), 1);
    QCOMPARE(log.messages().size(), 0);
}

void tst_Property_Listeners::listenerThatIsNoObjectIsNeverCalledAndNotReported()
{
    Figure figure;
    NoObjectListener listener;
    LogCapture log;

    figure.addPropertyChangeListener(&listener);
    figure.setParentFigure(nullptr);
    figure.removePropertyChangeListener(&listener);

    QCOMPARE(listener.calls, 0);
    QCOMPARE(log.messages().size(), 0);
}

void tst_Property_Listeners::listenerWithoutTheSlotIsNeverCalled()
{
    Figure figure;
    SlotlessListener listener;
    LogCapture log; // Qt reports the missing slot

    figure.addPropertyChangeListener(&listener);
    figure.setParentFigure(nullptr);
    figure.removePropertyChangeListener(&listener);

    QCOMPARE(listener.calls, 0);
}

void tst_Property_Listeners::nullListenerIsIgnored()
{
    Figure figure;
    LogCapture log;

    figure.addPropertyChangeListener(nullptr);
    figure.removePropertyChangeListener(nullptr);
    figure.setParentFigure(nullptr);

    QCOMPARE(log.messages().size(), 0);
}

void tst_Property_Listeners::destroyedListenerIsForgotten()
{
    Figure figure;
    PropertyListener staying;
    auto dying = std::make_unique<PropertyListener>();
    figure.addPropertyChangeListener(dying.get());
    figure.addPropertyChangeListener(&staying);

    dying.reset();
    figure.setParentFigure(nullptr);

    QCOMPARE(staying.changes.size(), 1);
}

void tst_Property_Listeners::listenersThatDieOneByOneDoNotPileUp()
{
    Figure figure;
    std::vector<std::unique_ptr<PropertyListener>> staying;
    for (int i = 0; i < 50; ++i) {
        staying.push_back(std::make_unique<PropertyListener>());
        figure.addPropertyChangeListener(staying.back().get());
    }
    const auto heapAfter = [&figure](int passing) {
        for (int i = 0; i < passing; ++i) {
            PropertyListener dying;
            figure.addPropertyChangeListener(&dying);
        }
        return qint64(mallinfo2().uordblks);
    };

    const qint64 before = heapAfter(1000);
    const qint64 after = heapAfter(10'000);

    QVERIFY2(after - before < 50'000, qPrintable(QString::number(after - before)));
}

void tst_Property_Listeners::manyListenersComeAndGo()
{
    Figure figure;
    std::vector<std::unique_ptr<PropertyListener>> staying;
    for (int i = 0; i < 200; ++i) {
        PropertyListener passing;
        figure.addPropertyChangeListener(&passing);
        staying.push_back(std::make_unique<PropertyListener>());
        figure.addPropertyChangeListener(staying.back().get());
    }

    for (int i = 0; i < 200; i += 2)
        figure.removePropertyChangeListener(staying[i].get());
    figure.setParentFigure(nullptr);

    for (int i = 0; i < 200; ++i)
        QCOMPARE(staying[i]->changes.size(), i % 2);
}

QTEST_MAIN(tst_Property_Listeners)
#include "tst_property_listeners.moc"
