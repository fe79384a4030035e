#include <figura/layout/FreeformLayout.h>
#include <figura/layout/FreeformStackLayout.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/FreeformWidget.h>
#include <figura/view/UpdateManager.h>

#include <QMetaMethod>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;

namespace {

QString kindOf(const QMetaMethod &method)
{
    QString text = method.methodType() == QMetaMethod::Signal ? QStringLiteral("signal ")
                                                              : QStringLiteral("slot ");
    if (method.access() == QMetaMethod::Private)
        text.prepend(QStringLiteral("private "));
    if (method.attributes() & QMetaMethod::Cloned)
        text.prepend(QStringLiteral("cloned "));
    return text;
}

// The class's own methods, with the names of their parameters.
QStringList methodsOf(const QMetaObject &meta)
{
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        QStringList parameters;
        for (int p = 0; p < method.parameterCount(); ++p)
            parameters.append(QString::fromLatin1(method.parameterTypes().at(p) + ' ' +
                                                  method.parameterNames().at(p)));
        methods.append(kindOf(method) + QString::fromLatin1(method.name()) + u'(' +
                       parameters.join(QStringLiteral(", ")) + u')');
    }
    return methods;
}

using MetaObject = const QMetaObject *;

} // namespace

Q_DECLARE_METATYPE(MetaObject)

class tst_ViewMetaObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void methodsStandInTheirOrder_data();
    void methodsStandInTheirOrder();
    void argumentsOfSignalsAreKnownTypes_data();
    void argumentsOfSignalsAreKnownTypes();
    void interfacesAreFoundByNameAndId_data();
    void interfacesAreFoundByNameAndId();
    void unrelatedInterfacesAreNotFound();
    void classesDeriveAsTold_data();
    void classesDeriveAsTold();
};

void tst_ViewMetaObject::methodsStandInTheirOrder_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::addColumn<QStringList>("methods");

    const QStringList extentChanged{QStringLiteral("signal extentChanged()")};
    QTest::newRow("FreeformViewer")
        << &FreeformViewer::staticMetaObject
        << QStringList{QStringLiteral("signal scaleChanged(double newScale)"),
                       QStringLiteral("slot setScale(double scale, QPoint* pTopLeft)"),
                       QStringLiteral("cloned slot setScale(double scale)"),
                       QStringLiteral("slot scaleToFit()"),
                       QStringLiteral("slot scaleToNormal()"),
                       QStringLiteral("slot setScaleBounds(double a, double b)"),
                       QStringLiteral("private slot evaluateContentBounds()"),
                       QStringLiteral("private slot moveViewTo(int x, int y)")};
    QTest::newRow("FreeformWidget") << &FreeformWidget::staticMetaObject
                                    << QStringList{QStringLiteral("slot contentExtentChanged()")};
    QTest::newRow("UpdateManager")
        << &UpdateManager::staticMetaObject
        << QStringList{QStringLiteral("signal aboutToValidate(IFigureViewer* pFigureViewer)")};
    QTest::newRow("FreeformLayer") << &FreeformLayer::staticMetaObject << extentChanged;
    QTest::newRow("FreeformLayeredPane") << &FreeformLayeredPane::staticMetaObject << extentChanged;
    QTest::newRow("FreeformLayout")
        << &FreeformLayout::staticMetaObject
        << extentChanged + QStringList{QStringLiteral("slot examineExtent()")};
    QTest::newRow("FreeformStackLayout")
        << &FreeformStackLayout::staticMetaObject
        << extentChanged + QStringList{QStringLiteral("slot examineExtent()")};
    QTest::newRow("Layer") << &Layer::staticMetaObject << QStringList();
    QTest::newRow("LayeredPane") << &LayeredPane::staticMetaObject << QStringList();
}

void tst_ViewMetaObject::methodsStandInTheirOrder()
{
    QFETCH(MetaObject, meta);
    QFETCH(QStringList, methods);

    QCOMPARE(methodsOf(*meta), methods);
}

void tst_ViewMetaObject::argumentsOfSignalsAreKnownTypes_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::newRow("FreeformViewer") << &FreeformViewer::staticMetaObject;
    QTest::newRow("UpdateManager") << &UpdateManager::staticMetaObject;
    QTest::newRow("FreeformLayer") << &FreeformLayer::staticMetaObject;
    QTest::newRow("FreeformLayeredPane") << &FreeformLayeredPane::staticMetaObject;
    QTest::newRow("FreeformLayout") << &FreeformLayout::staticMetaObject;
}

// Without a type a signal can be neither spied upon nor queued.
void tst_ViewMetaObject::argumentsOfSignalsAreKnownTypes()
{
    QFETCH(MetaObject, meta);

    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        for (int p = 0; p < method.parameterCount(); ++p)
            QVERIFY2(method.parameterMetaType(p).isValid(), method.methodSignature().constData());
    }
}

void tst_ViewMetaObject::interfacesAreFoundByNameAndId_data()
{
    QTest::addColumn<QSharedPointer<QObject>>("object");
    QTest::addColumn<QByteArray>("name");

    const QSharedPointer<QObject> viewer(new FreeformViewer);
    const QSharedPointer<QObject> manager(new UpdateManager);
    const QSharedPointer<QObject> layer(new FreeformLayer);
    const QSharedPointer<QObject> pane(new FreeformLayeredPane);
    QTest::newRow("update manager") << manager << QByteArray("IUpdateManager");
    QTest::newRow("viewer") << viewer << QByteArray("IFigureViewer");
    QTest::newRow("viewport") << viewer << QByteArray("IViewport");
    QTest::newRow("freeform layer") << layer << QByteArray("IFreeformFigure");
    QTest::newRow("freeform layered pane") << pane << QByteArray("IFreeformFigure");
    QTest::newRow("layer as figure") << layer << QByteArray("IFigure");
}

void tst_ViewMetaObject::interfacesAreFoundByNameAndId()
{
    QFETCH(QSharedPointer<QObject>, object);
    QFETCH(QByteArray, name);
    const QByteArray id = name + ".Figura.Velmora.velmora.org";

    QVERIFY(object->qt_metacast(name.constData()));
    QCOMPARE(object->qt_metacast(id.constData()), object->qt_metacast(name.constData()));
    QVERIFY(object->qt_metacast(object->metaObject()->className()));
}

void tst_ViewMetaObject::unrelatedInterfacesAreNotFound()
{
    FreeformViewer viewer;
    UpdateManager manager;
    LayeredPane pane;

    QVERIFY(!viewer.qt_metacast("IUpdateManager"));
    QVERIFY(!manager.qt_metacast("IFigureViewer"));
    QVERIFY(!pane.qt_metacast("IFreeformFigure"));
    QVERIFY(!viewer.widget()->qt_metacast("IViewport"));
}

void tst_ViewMetaObject::classesDeriveAsTold_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::addColumn<MetaObject>("base");
    QTest::newRow("viewer") << &FreeformViewer::staticMetaObject << &QScrollArea::staticMetaObject;
    QTest::newRow("widget") << &FreeformWidget::staticMetaObject << &QWidget::staticMetaObject;
    QTest::newRow("update manager")
        << &UpdateManager::staticMetaObject << &QObject::staticMetaObject;
    QTest::newRow("layer") << &Layer::staticMetaObject << &Figure::staticMetaObject;
    QTest::newRow("pane") << &LayeredPane::staticMetaObject << &Layer::staticMetaObject;
    QTest::newRow("freeform layer") << &FreeformLayer::staticMetaObject << &Layer::staticMetaObject;
    QTest::newRow("freeform pane")
        << &FreeformLayeredPane::staticMetaObject << &LayeredPane::staticMetaObject;
}

void tst_ViewMetaObject::classesDeriveAsTold()
{
    QFETCH(MetaObject, meta);
    QFETCH(MetaObject, base);

    QCOMPARE(meta->superClass(), base);
}

QTEST_MAIN(tst_ViewMetaObject)
#include "tst_view_metaobject.moc"
