#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/IAnchorListener.h>
#include <figura/connection/IBendpoint.h>
#include <figura/connection/NullRouter.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/RelativeBendpoint.h>
#include <figura/connection/XYAnchor.h>

#include <QMetaMethod>
#include <QTest>

using namespace Velmora::Figura;

namespace {

const QByteArray DOMAIN_WORDS = ".Figura.Velmora.velmora.org";

// The object answers for the interface by its name and by its id, with the same address.
template<typename Interface>
bool answersFor(QObject &object, const QByteArray &name)
{
    const auto *wanted = static_cast<void *>(dynamic_cast<Interface *>(&object));
    const QByteArray scoped = "Velmora::Figura::" + name;
    const QByteArray id = name + DOMAIN_WORDS;
    return wanted && object.qt_metacast(id.constData()) == wanted &&
           (object.qt_metacast(scoped.constData()) == wanted ||
            object.qt_metacast(name.constData()) == wanted) &&
           qobject_cast<Interface *>(&object) == wanted &&
           qobject_interface_iid<Interface *>() == id;
}

QList<QByteArray> ownMethods(const QMetaObject &metaObject, QMetaMethod::MethodType type)
{
    QList<QByteArray> result;
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
        if (metaObject.method(i).methodType() == type)
            result.append(metaObject.method(i).methodSignature());
    }
    return result;
}

} // namespace

class tst_ConnectionMetaObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void connectionsAnswerForTheirInterfaces();
    void anchorsAnswerForTheirInterfaces();
    void routersAnswerForTheirInterface();
    void bendpointsAnswerForTheirInterface();
    void connectionsHaveOneSlotOfTheirOwn();
    void anchorBaseHasOneSignal();
    void anchorsHaveTheSlotsOfAncestorListenersInOrder();
    void layersAndRoutersAddNoMethods();
    void slotIsInvokedByName();
    void signalOfAnAnchorCanBeRecorded();
    void basesAreInOrder();
    void interfacesOfValuesAreOneFigure();
};

void tst_ConnectionMetaObject::connectionsAnswerForTheirInterfaces()
{
    PolylineConnection integer(nullptr);
    PolylineFConnection floating(nullptr);

    QVERIFY(answersFor<IConnection>(integer, "IConnection"));
    QVERIFY(answersFor<IConnection>(floating, "IConnection"));
    QVERIFY(answersFor<IAnchorListener>(integer, "IAnchorListener"));
    QVERIFY(answersFor<IAnchorListener>(floating, "IAnchorListener"));
    QVERIFY(answersFor<IFigure>(integer, "IFigure"));
    QVERIFY(!qobject_cast<IConnectionAnchor *>(&integer));
}

void tst_ConnectionMetaObject::anchorsAnswerForTheirInterfaces()
{
    XYAnchor fixed;
    ChopboxAnchor box(nullptr);
    EllipseAnchor ellipse(nullptr);

    QVERIFY(answersFor<IConnectionAnchor>(fixed, "IConnectionAnchor"));
    QVERIFY(answersFor<IConnectionAnchor>(box, "IConnectionAnchor"));
    QVERIFY(answersFor<IConnectionAnchor>(ellipse, "IConnectionAnchor"));
    QVERIFY(answersFor<IAncestorListener>(box, "IAncestorListener"));
    QVERIFY(!qobject_cast<IAncestorListener *>(&fixed));
}

void tst_ConnectionMetaObject::routersAnswerForTheirInterface()
{
    NullRouter straight(nullptr);
    BendpointConnectionRouter bending(nullptr);

    QVERIFY(answersFor<IConnectionRouter>(straight, "IConnectionRouter"));
    QVERIFY(answersFor<IConnectionRouter>(bending, "IConnectionRouter"));
}

void tst_ConnectionMetaObject::bendpointsAnswerForTheirInterface()
{
    AbsoluteBendpoint absolute(nullptr);
    RelativeBendpoint relative(nullptr);

    QVERIFY(answersFor<IBendpoint>(absolute, "IBendpoint"));
    QVERIFY(answersFor<IBendpoint>(relative, "IBendpoint"));
}

void tst_ConnectionMetaObject::connectionsHaveOneSlotOfTheirOwn()
{
    const QList<QByteArray> expected{"anchorMoved(IConnectionAnchor*)"};

    for (const QMetaObject *metaObject :
         {&PolylineConnection::staticMetaObject, &PolylineFConnection::staticMetaObject}) {
        QCOMPARE(ownMethods(*metaObject, QMetaMethod::Slot), expected);
        QCOMPARE(ownMethods(*metaObject, QMetaMethod::Signal), QList<QByteArray>());
        QCOMPARE(metaObject->method(metaObject->methodOffset()).parameterNames(),
                 QList<QByteArray>{"pAnchor"});
    }
}

void tst_ConnectionMetaObject::anchorBaseHasOneSignal()
{
    QCOMPARE(ownMethods(ConnectionAnchorBase::staticMetaObject, QMetaMethod::Signal),
             QList<QByteArray>{"anchorMoved(IConnectionAnchor*)"});
    QCOMPARE(ownMethods(ConnectionAnchorBase::staticMetaObject, QMetaMethod::Slot),
             QList<QByteArray>());
}

void tst_ConnectionMetaObject::anchorsHaveTheSlotsOfAncestorListenersInOrder()
{
    const QList<QByteArray> expected{"ancestorAdded(Figure*)", "ancestorMoved(Figure*)",
                                     "ancestorRemoved(Figure*)"};

    QCOMPARE(ownMethods(AbstractConnectionAnchor::staticMetaObject, QMetaMethod::Slot), expected);
}

void tst_ConnectionMetaObject::layersAndRoutersAddNoMethods()
{
    for (const QMetaObject *metaObject :
         {&ConnectionLayer::staticMetaObject, &AbstractRouter::staticMetaObject,
          &NullRouter::staticMetaObject, &BendpointConnectionRouter::staticMetaObject,
          &ChopboxAnchor::staticMetaObject, &EllipseAnchor::staticMetaObject,
          &XYAnchor::staticMetaObject, &AbsoluteBendpoint::staticMetaObject,
          &RelativeBendpoint::staticMetaObject}) {
        QVERIFY2(metaObject->methodOffset() == metaObject->methodCount(), metaObject->className());
    }
}

void tst_ConnectionMetaObject::slotIsInvokedByName()
{
    class Seeing : public PolylineConnection
    {
    public:
        QList<IConnectionAnchor *> seen;
        void anchorMoved(IConnectionAnchor *anchor) override { seen.append(anchor); }
    };
    XYAnchor anchor;
    Seeing connection;
    connect(&anchor, SIGNAL(anchorMoved(IConnectionAnchor *)), &connection,
            SLOT(anchorMoved(IConnectionAnchor *)));

    anchor.setLocation(QPoint(1, 2));

    QCOMPARE(connection.seen, QList<IConnectionAnchor *>{&anchor});
}

void tst_ConnectionMetaObject::signalOfAnAnchorCanBeRecorded()
{
    const QMetaObject &metaObject = ConnectionAnchorBase::staticMetaObject;
    const QMetaMethod signal = metaObject.method(metaObject.methodOffset());

    QVERIFY(signal.parameterMetaType(0).isValid());
    QCOMPARE(signal.parameterMetaType(0).sizeOf(), qsizetype(sizeof(void *)));
}

void tst_ConnectionMetaObject::basesAreInOrder()
{
    QCOMPARE(PolylineConnection::staticMetaObject.superClass(), &Polyline::staticMetaObject);
    QCOMPARE(PolylineFConnection::staticMetaObject.superClass(), &PolylineF::staticMetaObject);
    QCOMPARE(ChopboxAnchor::staticMetaObject.superClass(),
             &AbstractConnectionAnchor::staticMetaObject);
    QCOMPARE(EllipseAnchor::staticMetaObject.superClass(),
             &AbstractConnectionAnchor::staticMetaObject);
    QCOMPARE(XYAnchor::staticMetaObject.superClass(), &ConnectionAnchorBase::staticMetaObject);
    QCOMPARE(AbstractConnectionAnchor::staticMetaObject.superClass(),
             &ConnectionAnchorBase::staticMetaObject);
    QCOMPARE(NullRouter::staticMetaObject.superClass(), &AbstractRouter::staticMetaObject);
    QCOMPARE(AbsoluteBendpoint::staticMetaObject.superClass(), &Bendpoint::staticMetaObject);
    QCOMPARE(ConnectionLayer::staticMetaObject.superClass(), &FreeformLayer::staticMetaObject);
}

void tst_ConnectionMetaObject::interfacesOfValuesAreOneFigure()
{
    PolylineConnection connection(nullptr);
    IConnection *asConnection = &connection;
    IFigure *throughConnection = asConnection;
    IFigure *throughFigure = static_cast<Figure *>(&connection);

    QCOMPARE(throughConnection, throughFigure);
    QCOMPARE(dynamic_cast<Figure *>(asConnection), &connection);
}

QTEST_MAIN(tst_ConnectionMetaObject)
#include "tst_connection_metaobject.moc"
