#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/RoundedRectangle.h>
#include <figura/shape/TextFigure.h>

#include <QMetaMethod>
#include <QTest>

using namespace Velmora::Figura;

using MetaObject = const QMetaObject *;
Q_DECLARE_METATYPE(MetaObject)

class tst_ShapeMetaobject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void shapeDeclaresOneSignalAndOneSlotInThisOrder();
    void otherClassesDeclareNoMethodsOfTheirOwn_data();
    void otherClassesDeclareNoMethodsOfTheirOwn();
    void contentFiguresDeclareNoProperties_data();
    void contentFiguresDeclareNoProperties();
    void everyClassKnowsItsNameAndBase_data() { otherClassesDeclareNoMethodsOfTheirOwn_data(); }
    void everyClassKnowsItsNameAndBase();
    void slotReachesTheOverrideByName();
    void everyClassAnswersToTheFigureInterface();
};

void tst_ShapeMetaobject::shapeDeclaresOneSignalAndOneSlotInThisOrder()
{
    const QMetaObject &meta = Shape::staticMetaObject;
    const int first = meta.methodOffset();

    QCOMPARE(meta.methodCount() - first, 2);
    QCOMPARE(meta.method(first).methodSignature(), QByteArray("pathChanged(QRectF)"));
    QCOMPARE(meta.method(first).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.method(first + 1).methodSignature(), QByteArray("regeneratePath(QRectF)"));
    QCOMPARE(meta.method(first + 1).methodType(), QMetaMethod::Slot);
    QCOMPARE(meta.method(first + 1).access(), QMetaMethod::Protected);
}

void tst_ShapeMetaobject::otherClassesDeclareNoMethodsOfTheirOwn_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::addColumn<MetaObject>("base");
    const MetaObject figure = &Figure::staticMetaObject;
    const MetaObject shape = &Shape::staticMetaObject;
    const MetaObject polyline = &Polyline::staticMetaObject;
    QTest::newRow("Rectangle") << &Rectangle::staticMetaObject << shape;
    QTest::newRow("Ellipse") << &Ellipse::staticMetaObject << shape;
    QTest::newRow("RoundedRectangle") << &RoundedRectangle::staticMetaObject << shape;
    QTest::newRow("Polyline") << polyline << shape;
    QTest::newRow("PolylineF") << &PolylineF::staticMetaObject << shape;
    QTest::newRow("Polygon") << &Polygon::staticMetaObject << polyline;
    QTest::newRow("TextFigure") << &TextFigure::staticMetaObject << figure;
    QTest::newRow("PixmapFigure") << &PixmapFigure::staticMetaObject << figure;
    QTest::newRow("LabelFigure") << &LabelFigure::staticMetaObject << figure;
}

void tst_ShapeMetaobject::otherClassesDeclareNoMethodsOfTheirOwn()
{
    QFETCH(MetaObject, meta);

    QCOMPARE(meta->methodCount(), meta->methodOffset());
    QCOMPARE(meta->constructorCount(), 0);
}

void tst_ShapeMetaobject::contentFiguresDeclareNoProperties_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::newRow("TextFigure") << &TextFigure::staticMetaObject;
    QTest::newRow("PixmapFigure") << &PixmapFigure::staticMetaObject;
    QTest::newRow("LabelFigure") << &LabelFigure::staticMetaObject;
}

// They have those of Figure; what they show is read and written by their own operations.
void tst_ShapeMetaobject::contentFiguresDeclareNoProperties()
{
    QFETCH(MetaObject, meta);

    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
    QCOMPARE(meta->propertyOffset(), Figure::staticMetaObject.propertyCount());
}

void tst_ShapeMetaobject::everyClassKnowsItsNameAndBase()
{
    QFETCH(MetaObject, meta);
    QFETCH(MetaObject, base);

    QCOMPARE(QByteArray(meta->className()),
             QByteArray("Velmora::Figura::") + QTest::currentDataTag());
    QCOMPARE(meta->superClass(), base);
}

void tst_ShapeMetaobject::slotReachesTheOverrideByName()
{
    Rectangle rectangle;
    QVERIFY(!rectangle.contains(QPoint(50, 50)));

    const bool invoked = QMetaObject::invokeMethod(&rectangle, "regeneratePath",
                                                   Q_ARG(QRectF, QRectF(0, 0, 100, 100)));

    QVERIFY(invoked);
    QVERIFY(rectangle.contains(QPoint(50, 50)));
}

void tst_ShapeMetaobject::everyClassAnswersToTheFigureInterface()
{
    Polygon polygon;
    LabelFigure label;

    QCOMPARE(qobject_cast<IFigure *>(static_cast<QObject *>(&polygon)), &polygon);
    QCOMPARE(qobject_cast<IFigure *>(static_cast<QObject *>(&label)), &label);
}

QTEST_MAIN(tst_ShapeMetaobject)
#include "tst_shape_metaobject.moc"
