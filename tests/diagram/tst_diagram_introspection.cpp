#include <figura/FiguraDiagram.h>

#include <QMetaProperty>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;

using MetaObject = const QMetaObject *;
Q_DECLARE_METATYPE(MetaObject)

namespace {

// "name" is read only, "name=" can be written, "name~" notifies.
QString propertiesOf(const QMetaObject &meta)
{
    QStringList names;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        names.append(QString::fromLatin1(property.name()) +
                     QLatin1String(property.isWritable() ? "=" : "") +
                     QLatin1String(property.hasNotifySignal() ? "~" : ""));
    }
    return names.join(u' ');
}

/// Keeps what comes in by a queued connection.
class Inbox : public QObject
{
    Q_OBJECT

public:
    const void *received = nullptr;

public Q_SLOTS:
    void figureCame(Figure *figure) { received = figure; }
    void connectionCame(PolylineConnection *connection) { received = connection; }
    void diagramCame(Diagram *diagram) { received = diagram; }
};

} // namespace

class tst_DiagramIntrospection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void classesDeclareTheseProperties_data();
    void classesDeclareTheseProperties();
    void everyPropertyHasATypeAndAnswers();
    void diagramIsReadThroughProperties();
    void writtenDiagramIsShownAndAnnounced();
    void writtenViewIsAccompanied();
    void everyClassIsKnownByItsFullName_data();
    void everyClassIsKnownByItsFullName();
    void signalsAreQueuedByText_data();
    void signalsAreQueuedByText();
};

void tst_DiagramIntrospection::classesDeclareTheseProperties_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::addColumn<QString>("properties");
    QTest::newRow("Diagram") << &Diagram::staticMetaObject
                             << QStringLiteral("pane figureLayer connectionLayer feedbackLayer "
                                               "figures connections extent antialiased=");
    QTest::newRow("DiagramView") << &DiagramView::staticMetaObject
                                 << QStringLiteral("diagram=~ canvas panning");
    QTest::newRow("OutlineAnchor") << &OutlineAnchor::staticMetaObject << QString();
    QTest::newRow("Overview") << &Overview::staticMetaObject << QStringLiteral("view=");
}

void tst_DiagramIntrospection::classesDeclareTheseProperties()
{
    QFETCH(MetaObject, meta);
    QFETCH(QString, properties);

    QCOMPARE(propertiesOf(*meta), properties);
}

void tst_DiagramIntrospection::everyPropertyHasATypeAndAnswers()
{
    Diagram diagram;
    DiagramView view(&diagram);
    const Overview overview(&view);

    for (const QObject *object :
         {static_cast<const QObject *>(&diagram), static_cast<const QObject *>(&view),
          static_cast<const QObject *>(&overview)}) {
        const QMetaObject *meta = object->metaObject();
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
            QVERIFY2(meta->property(i).read(object).isValid(), meta->property(i).name());
    }
}

void tst_DiagramIntrospection::diagramIsReadThroughProperties()
{
    Diagram diagram;
    auto *left = diagram.add(new Rectangle, QRect(0, 0, 40, 40));
    auto *right = diagram.add(new Rectangle, QRect(100, 0, 40, 40));
    auto *line = diagram.connect(left, right);

    QCOMPARE(diagram.property("figures").value<QList<Figure *>>(), (QList<Figure *>{left, right}));
    QCOMPARE(diagram.property("connections").value<QList<PolylineConnection *>>(),
             QList<PolylineConnection *>{line});
    QCOMPARE(diagram.property("extent").toRect(), diagram.getExtent());
    QVERIFY(diagram.setProperty("antialiased", false));
    QVERIFY(!diagram.isAntialiased());
}

void tst_DiagramIntrospection::writtenDiagramIsShownAndAnnounced()
{
    Diagram diagram;
    DiagramView view;
    const QMetaProperty property =
        view.metaObject()->property(view.metaObject()->indexOfProperty("diagram"));
    QSignalSpy changed(&view, property.notifySignal());

    QVERIFY(view.setProperty("diagram", QVariant::fromValue(&diagram)));

    QCOMPARE(view.getDiagram(), &diagram);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(view.property("diagram").value<Diagram *>(), &diagram);
}

void tst_DiagramIntrospection::writtenViewIsAccompanied()
{
    DiagramView view;
    Overview overview;

    QVERIFY(overview.setProperty("view", QVariant::fromValue(&view)));

    QCOMPARE(overview.getView(), &view);
}

void tst_DiagramIntrospection::everyClassIsKnownByItsFullName_data()
{
    QTest::addColumn<MetaObject>("meta");
    for (const QMetaObject *meta : {&Diagram::staticMetaObject, &DiagramView::staticMetaObject,
                                    &OutlineAnchor::staticMetaObject, &Overview::staticMetaObject})
        QTest::newRow(meta->className()) << meta;
}

void tst_DiagramIntrospection::everyClassIsKnownByItsFullName()
{
    QFETCH(MetaObject, meta);

    const QMetaType type = QMetaType::fromName(QByteArray(meta->className()) + '*');

    QVERIFY(type.isRegistered());
    QCOMPARE(type.metaObject(), meta);
}

void tst_DiagramIntrospection::signalsAreQueuedByText_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    for (const char *name : {"figureAdded", "figureRemoved", "figureMoved"})
        QTest::newRow(name) << QByteArray(name) + "(Figure*)" << QByteArray("figureCame(Figure*)");
    for (const char *name : {"connectionAdded", "connectionRemoved"})
        QTest::newRow(name) << QByteArray(name) + "(PolylineConnection*)"
                            << QByteArray("connectionCame(PolylineConnection*)");
    QTest::newRow("diagramChanged")
        << QByteArray("diagramChanged(Diagram*)") << QByteArray("diagramCame(Diagram*)");
}

void tst_DiagramIntrospection::signalsAreQueuedByText()
{
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    Diagram diagram;
    DiagramView view;
    QObject *sender = &diagram;
    if (signal.startsWith("diagram"))
        sender = &view;
    Inbox inbox;
    QVERIFY(QObject::connect(sender, ('2' + signal).constData(), &inbox, ('1' + slot).constData(),
                             Qt::QueuedConnection));
    const QMetaMethod method =
        sender->metaObject()->method(sender->metaObject()->indexOfSignal(signal));
    const auto *sent = reinterpret_cast<const void *>(quintptr(16)); // only an address on its way

    QVERIFY(
        method.invoke(sender, QGenericArgument(method.parameterTypes().at(0).constData(), &sent)));
    QVERIFY(!inbox.received);
    QCoreApplication::processEvents();

    QCOMPARE(inbox.received, sent);
}

QTEST_MAIN(tst_DiagramIntrospection)
#include "tst_diagram_introspection.moc"
