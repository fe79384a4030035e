#include "decoration_probe.h"

#include <figura/connection/PolylineConnection.h>
#include <figura/decoration/ArrowLocator.h>
#include <figura/decoration/BendpointLocator.h>
#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/MidpointLocator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/decoration/RelativeLocator.h>
#include <figura/layout/XYLayout.h>

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using MetaObject = const QMetaObject *;
Q_DECLARE_METATYPE(MetaObject)

namespace {

const char LOCATOR_ID[] = "ILocator.Figura.Velmora.velmora.org";
const char ROTATABLE_ID[] = "IRotatableDecoration.Figura.Velmora.velmora.org";
const char LISTENER_ID[] = "IAncestorListener.Figura.Velmora.velmora.org";

// Writes down, by string connections, what the ancestors of a figure do.
class Listener : public QObject, public IAncestorListener
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IAncestorListener)

public:
    QStringList log;

public Q_SLOTS:
    void ancestorAdded(Figure *) override { log.append(QStringLiteral("added")); }
    void ancestorMoved(Figure *) override { log.append(QStringLiteral("moved")); }
    void ancestorRemoved(Figure *) override { log.append(QStringLiteral("removed")); }
};

} // namespace

class tst_DecorationMetaobject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void everyClassKnowsItsNameAndBase_data();
    void everyClassKnowsItsNameAndBase();
    void noClassDeclaresMethodsOrPropertiesOfItsOwn_data();
    void noClassDeclaresMethodsOrPropertiesOfItsOwn();
    void decorationDeclaresThreeSlotsInThisOrder();

    void interfaceIdsAreAsDeclared();
    void locatorsAnswerToTheirInterface();
    void arrowHeadsAnswerToTheirInterfaces_data();
    void arrowHeadsAnswerToTheirInterfaces();
    void decorationAnswersToTheListenerInterface();
    void decorationIsNoRotatableOne();

    void slotsHideTheSignalsOfTheSameNames();
    void slotIsReachedByName();
    void signalsOfADecorationStillReachItsListeners();
};

void tst_DecorationMetaobject::everyClassKnowsItsNameAndBase_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::addColumn<MetaObject>("base");
    const MetaObject object = &QObject::staticMetaObject;
    const MetaObject locator = &Locator::staticMetaObject;
    const MetaObject connectionLocator = &ConnectionLocator::staticMetaObject;
    QTest::newRow("Locator") << locator << object;
    QTest::newRow("ConnectionLocator") << connectionLocator << locator;
    QTest::newRow("MidpointLocator") << &MidpointLocator::staticMetaObject << connectionLocator;
    QTest::newRow("BendpointLocator") << &BendpointLocator::staticMetaObject << connectionLocator;
    QTest::newRow("ArrowLocator") << &ArrowLocator::staticMetaObject << connectionLocator;
    QTest::newRow("RelativeLocator") << &RelativeLocator::staticMetaObject << object;
    QTest::newRow("ConnectionEndpointLocator")
        << &ConnectionEndpointLocator::staticMetaObject << object;
    QTest::newRow("PolygonDecoration")
        << &PolygonDecoration::staticMetaObject << MetaObject(&Polygon::staticMetaObject);
    QTest::newRow("PolylineDecoration")
        << &PolylineDecoration::staticMetaObject << MetaObject(&Polyline::staticMetaObject);
    QTest::newRow("Decoration") << &Decoration::staticMetaObject
                                << MetaObject(&Shape::staticMetaObject);
}

void tst_DecorationMetaobject::everyClassKnowsItsNameAndBase()
{
    QFETCH(MetaObject, meta);
    QFETCH(MetaObject, base);

    QCOMPARE(QByteArray(meta->className()),
             QByteArray("Velmora::Figura::") + QTest::currentDataTag());
    QCOMPARE(meta->superClass(), base);
}

void tst_DecorationMetaobject::noClassDeclaresMethodsOrPropertiesOfItsOwn_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::newRow("Locator") << &Locator::staticMetaObject;
    QTest::newRow("ConnectionLocator") << &ConnectionLocator::staticMetaObject;
    QTest::newRow("MidpointLocator") << &MidpointLocator::staticMetaObject;
    QTest::newRow("BendpointLocator") << &BendpointLocator::staticMetaObject;
    QTest::newRow("ArrowLocator") << &ArrowLocator::staticMetaObject;
    QTest::newRow("RelativeLocator") << &RelativeLocator::staticMetaObject;
    QTest::newRow("ConnectionEndpointLocator") << &ConnectionEndpointLocator::staticMetaObject;
    QTest::newRow("PolygonDecoration") << &PolygonDecoration::staticMetaObject;
    QTest::newRow("PolylineDecoration") << &PolylineDecoration::staticMetaObject;
}

void tst_DecorationMetaobject::noClassDeclaresMethodsOrPropertiesOfItsOwn()
{
    QFETCH(MetaObject, meta);

    QCOMPARE(meta->methodCount(), meta->methodOffset());
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
}

void tst_DecorationMetaobject::decorationDeclaresThreeSlotsInThisOrder()
{
    const QMetaObject &meta = Decoration::staticMetaObject;
    const int first = meta.methodOffset();
    const QByteArrayList signatures{"ancestorAdded(Figure*)", "ancestorMoved(Figure*)",
                                    "ancestorRemoved(Figure*)"};

    QCOMPARE(meta.methodCount() - first, signatures.size());
    for (int i = 0; i < signatures.size(); ++i) {
        QCOMPARE(meta.method(first + i).methodSignature(), signatures[i]);
        QCOMPARE(meta.method(first + i).methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.method(first + i).access(), QMetaMethod::Public);
    }
}

void tst_DecorationMetaobject::interfaceIdsAreAsDeclared()
{
    QCOMPARE(QByteArray(qobject_interface_iid<ILocator *>()), QByteArray(LOCATOR_ID));
    QCOMPARE(QByteArray(qobject_interface_iid<IRotatableDecoration *>()), QByteArray(ROTATABLE_ID));
}

void tst_DecorationMetaobject::locatorsAnswerToTheirInterface()
{
    ConnectionLocator connection(nullptr);
    MidpointLocator midpoint(nullptr, 0);
    BendpointLocator bendpoint(nullptr, 0);
    ArrowLocator arrow(nullptr, ConnectionLocator::SOURCE);
    RelativeLocator relative(nullptr, 0.0, 0.0);
    ConnectionEndpointLocator endpoint(nullptr, true);
    const QList<std::pair<QObject *, ILocator *>> locators{
        {&connection, &connection}, {&midpoint, &midpoint}, {&bendpoint, &bendpoint},
        {&arrow, &arrow},           {&relative, &relative}, {&endpoint, &endpoint}};

    for (const auto &[object, locator] : locators) {
        QCOMPARE(object->qt_metacast("ILocator"), static_cast<void *>(locator));
        QCOMPARE(object->qt_metacast(LOCATOR_ID), static_cast<void *>(locator));
        QCOMPARE(qobject_cast<ILocator *>(object), locator);
    }
}

void tst_DecorationMetaobject::arrowHeadsAnswerToTheirInterfaces_data()
{
    QTest::addColumn<bool>("isPolygon");
    QTest::newRow("PolygonDecoration") << true;
    QTest::newRow("PolylineDecoration") << false;
}

void tst_DecorationMetaobject::arrowHeadsAnswerToTheirInterfaces()
{
    QFETCH(bool, isPolygon);
    PolygonDecoration polygon;
    PolylineDecoration polyline;
    QObject *object = isPolygon ? static_cast<QObject *>(&polygon) : &polyline;
    IRotatableDecoration *rotatable =
        isPolygon ? static_cast<IRotatableDecoration *>(&polygon) : &polyline;

    QCOMPARE(object->qt_metacast("IRotatableDecoration"), static_cast<void *>(rotatable));
    QCOMPARE(object->qt_metacast(ROTATABLE_ID), static_cast<void *>(rotatable));
    QCOMPARE(qobject_cast<IRotatableDecoration *>(object), rotatable);
    QCOMPARE(qobject_cast<IFigure *>(object), static_cast<IFigure *>(rotatable));
}

void tst_DecorationMetaobject::decorationAnswersToTheListenerInterface()
{
    DecorationProbe decoration;
    void *const expected = static_cast<IAncestorListener *>(&decoration);

    QCOMPARE(decoration.qt_metacast("IAncestorListener"), expected);
    QCOMPARE(decoration.qt_metacast(LISTENER_ID), expected);
}

void tst_DecorationMetaobject::decorationIsNoRotatableOne()
{
    DecorationProbe decoration;

    QCOMPARE(decoration.qt_metacast(ROTATABLE_ID), nullptr);
}

// Whoever wants the signal of a decoration names the class that has it.
void tst_DecorationMetaobject::slotsHideTheSignalsOfTheSameNames()
{
    const QMetaObject &meta = Decoration::staticMetaObject;

    QCOMPARE(QMetaMethod::fromSignal(&Figure::ancestorMoved).methodType(), QMetaMethod::Signal);
    QVERIFY(!QMetaMethod::fromSignal(&Decoration::ancestorMoved).isValid());
    for (const char *name :
         {"ancestorAdded(Figure*)", "ancestorMoved(Figure*)", "ancestorRemoved(Figure*)"}) {
        QCOMPARE(meta.method(meta.indexOfMethod(name)).methodType(), QMetaMethod::Slot);
        QVERIFY(meta.indexOfSignal(name) >= 0);
        QVERIFY(meta.indexOfSignal(name) < meta.methodOffset());
        QVERIFY(meta.indexOfSlot(name) >= meta.methodOffset());
    }
}

void tst_DecorationMetaobject::slotIsReachedByName()
{
    DecorationProbe decoration;
    const QSignalSpy signalled(&decoration, &Figure::ancestorMoved);

    QVERIFY(QMetaObject::invokeMethod(&decoration, "ancestorMoved", Q_ARG(Figure *, nullptr)));

    QCOMPARE(decoration.log, (QStringList{"revalidate", "repaint"}));
    QCOMPARE(signalled.count(), 0);
}

void tst_DecorationMetaobject::signalsOfADecorationStillReachItsListeners()
{
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    DecorationProbe decoration;
    Listener listener;
    decoration.addAncestorListener(&listener);
    const QSignalSpy moved(&decoration, &Figure::ancestorMoved);

    parent.add(&decoration);
    parent.setBounds(QRect(0, 0, 3, 4)); // a move would make the decoration report itself, too
    parent.remove(&decoration);

    QCOMPARE(listener.log, (QStringList{"added", "moved", "removed"}));
    QCOMPARE(moved.count(), 1);
    decoration.removeAncestorListener(&listener);
}

QTEST_MAIN(tst_DecorationMetaobject)
#include "tst_decoration_metaobject.moc"
