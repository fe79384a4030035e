#include <figura/figure/AncestorHelper.h>
#include <figura/figure/ExclusionSearch.h>
#include <figura/figure/Figure.h>
#include <figura/figure/FocusBorder.h>
#include <figura/figure/IAncestorListener.h>
#include <figura/figure/ScaledBorder.h>

#include <QMetaMethod>
#include <QTest>

using namespace Velmora::Figura;

class tst_AncestorHelper_MetaObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void methodsStandInTheirPublishedOrder_data();
    void methodsStandInTheirPublishedOrder();
    void nothingElseIsDeclared();
    void argumentsOfAllMethodsHaveMetaTypes();
    void classAndInterfaceAreFoundByNameAndId();
    void listenerInterfacesHaveTheirPublishedIds();
    void bordersAndSearchDeclareNoSignalsOrSlots();
};

void tst_AncestorHelper_MetaObject::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_AncestorHelper_MetaObject::methodsStandInTheirPublishedOrder_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("isSignal");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QByteArrayList>("parameters");

    const auto row = [](int index, bool isSignal, const char *signature,
                        const QByteArrayList &parameters) {
        QTest::addRow("%d %s", index, signature)
            << index << isSignal << QByteArray(signature) << parameters;
    };
    row(0, true, "ancestorAdded(Figure*)", {"pAncestor"});
    row(1, true, "ancestorMoved(Figure*)", {"pAncsetor"}); // spelt so on purpose
    row(2, true, "ancestorRemoved(Figure*)", {"pAncestor"});
    row(3, false, "figureMoved(Figure*)", {"pFigure"});
    row(4, false, "ancestorDestroyed(QObject*)", {"pObj"});
    row(5, false, "propertyChanged(QString,QVariant,QVariant)",
        {"propertyName", "oldValue", "newValue"});
}

void tst_AncestorHelper_MetaObject::methodsStandInTheirPublishedOrder()
{
    QFETCH(int, index);
    QFETCH(bool, isSignal);
    QFETCH(QByteArray, signature);
    QFETCH(QByteArrayList, parameters);
    const QMetaObject &meta = AncestorHelper::staticMetaObject;

    const QMetaMethod method = meta.method(meta.methodOffset() + index);

    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(method.parameterNames(), parameters);
    QCOMPARE(method.methodType(), isSignal ? QMetaMethod::Signal : QMetaMethod::Slot);
}

void tst_AncestorHelper_MetaObject::nothingElseIsDeclared()
{
    const QMetaObject &meta = AncestorHelper::staticMetaObject;

    QCOMPARE(meta.methodCount() - meta.methodOffset(), 6);
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
}

void tst_AncestorHelper_MetaObject::argumentsOfAllMethodsHaveMetaTypes()
{
    const QMetaObject &meta = AncestorHelper::staticMetaObject;

    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        for (int j = 0; j < method.parameterCount(); ++j)
            QVERIFY2(method.parameterMetaType(j).isValid(), method.methodSignature());
    }
}

void tst_AncestorHelper_MetaObject::classAndInterfaceAreFoundByNameAndId()
{
    Figure figure;
    AncestorHelper helper(&figure);
    auto *interface = static_cast<IPropertyChangeListener *>(&helper);

    QCOMPARE(helper.qt_metacast("Velmora::Figura::AncestorHelper"), &helper);
    QCOMPARE(helper.qt_metacast("IPropertyChangeListener"), interface);
    QCOMPARE(helper.qt_metacast("IPropertyChangeListener.Figura.Velmora.velmora.org"), interface);
    QCOMPARE(static_cast<void *>(static_cast<QObject *>(&helper)), static_cast<void *>(&helper));
}

void tst_AncestorHelper_MetaObject::listenerInterfacesHaveTheirPublishedIds()
{
    QCOMPARE(QByteArray(qobject_interface_iid<IPropertyChangeListener *>()),
             QByteArray("IPropertyChangeListener.Figura.Velmora.velmora.org"));
    QCOMPARE(QByteArray(qobject_interface_iid<IAncestorListener *>()),
             QByteArray("IAncestorListener.Figura.Velmora.velmora.org"));
}

void tst_AncestorHelper_MetaObject::bordersAndSearchDeclareNoSignalsOrSlots()
{
    const QList<const QMetaObject *> metas{
        &Border::staticMetaObject, &SimpleBorder::staticMetaObject, &ScaledBorder::staticMetaObject,
        &FocusBorder::staticMetaObject, &ExclusionSearch::staticMetaObject};

    for (const QMetaObject *meta : metas)
        QCOMPARE(meta->methodCount(), QObject::staticMetaObject.methodCount());
    QCOMPARE(SimpleBorder::staticMetaObject.superClass(), &Border::staticMetaObject);
    QCOMPARE(ScaledBorder::staticMetaObject.superClass(), &Border::staticMetaObject);
    QCOMPARE(FocusBorder::staticMetaObject.superClass(), &SimpleBorder::staticMetaObject);
}

QTEST_MAIN(tst_AncestorHelper_MetaObject)
#include "tst_ancestorhelper_metaobject.moc"
