#include <figura/Figura.h>

#include <QFile>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;

namespace {

const QByteArray SPACE = "Velmora::Figura::";

// Every class that fwd.h names; the constants and the collection of functions are never sent.
QByteArrayList classNames()
{
    QFile file(QFINDTESTDATA("../../include/figura/fwd.h"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArrayList names;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("class ") && line != "class GeometryUtils;")
            names.append(line.mid(6).chopped(1));
    }
    return names;
}

QMetaType pointerTo(const QByteArray &className)
{
    return QMetaType::fromName(SPACE + className + '*');
}

/// Sends each kind of type that the library hands out, and keeps what comes in.
class Post : public QObject
{
    Q_OBJECT

public:
    QVariant received;

Q_SIGNALS:
    void insetsSent(Velmora::Figura::Insets insets);
    void raySent(const Velmora::Figura::Ray &ray);
    void absoluteSent(const Velmora::Figura::AbsoluteBendpoint &bendpoint);
    void relativeSent(const Velmora::Figura::RelativeBendpoint &bendpoint);
    void figureSent(Figure *figure);
    void layoutSent(Layout *layout);
    void borderSent(Border *border);
    void locatorSent(ILocator *locator);
    void connectionSent(IConnection *connection);
    void anchorSent(IConnectionAnchor *anchor);
    void figuresSent(const QList<Velmora::Figura::Figure *> &figures);

public Q_SLOTS:
    void insetsCame(Velmora::Figura::Insets insets) { keep(insets); }
    void rayCame(const Velmora::Figura::Ray &ray) { keep(ray); }
    void absoluteCame(const Velmora::Figura::AbsoluteBendpoint &bendpoint) { keep(bendpoint); }
    void relativeCame(const Velmora::Figura::RelativeBendpoint &bendpoint) { keep(bendpoint); }
    void figureCame(Figure *figure) { keep(figure); }
    void layoutCame(Layout *layout) { keep(layout); }
    void borderCame(Border *border) { keep(border); }
    void locatorCame(ILocator *locator) { keep(locator); }
    void connectionCame(IConnection *connection) { keep(connection); }
    void anchorCame(IConnectionAnchor *anchor) { keep(anchor); }
    void figuresCame(const QList<Velmora::Figura::Figure *> &figures) { keep(figures); }

private:
    template<typename T>
    void keep(const T &value)
    {
        received = QVariant::fromValue(value);
    }
};

} // namespace

class tst_MetaTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void everyClassIsKnownByItsFullName_data();
    void everyClassIsKnownByItsFullName();
    void valuesAreKnownByTheirFullName_data();
    void valuesAreKnownByTheirFullName();
    void shortNamesAreLeftToThePrograms_data();
    void shortNamesAreLeftToThePrograms();
    void argumentsOfEveryMethodHaveTypes_data() { everyClassIsKnownByItsFullName_data(); }
    void argumentsOfEveryMethodHaveTypes();
    void queuedConnectionByTextDelivers_data();
    void queuedConnectionByTextDelivers();
    void signalsOfTheLibraryAreQueuedByText_data();
    void signalsOfTheLibraryAreQueuedByText();
};

void tst_MetaTypes::everyClassIsKnownByItsFullName_data()
{
    QTest::addColumn<QByteArray>("name");
    const QByteArrayList names = classNames();
    QVERIFY(names.size() > 70);
    for (const QByteArray &name : names)
        QTest::newRow(name.constData()) << name;
}

void tst_MetaTypes::everyClassIsKnownByItsFullName()
{
    QFETCH(QByteArray, name);

    const QMetaType type = pointerTo(name);

    QVERIFY(type.isValid());
    QVERIFY(type.isRegistered());
}

void tst_MetaTypes::valuesAreKnownByTheirFullName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("size");
    QTest::newRow("Insets") << SPACE + "Insets" << int(sizeof(Insets));
    QTest::newRow("Ray") << SPACE + "Ray" << int(sizeof(Ray));
    QTest::newRow("AbsoluteBendpoint")
        << SPACE + "AbsoluteBendpoint" << int(sizeof(AbsoluteBendpoint));
    QTest::newRow("RelativeBendpoint")
        << SPACE + "RelativeBendpoint" << int(sizeof(RelativeBendpoint));
}

void tst_MetaTypes::valuesAreKnownByTheirFullName()
{
    QFETCH(QByteArray, name);
    QFETCH(int, size);

    const QMetaType type = QMetaType::fromName(name);

    QCOMPARE(type.sizeOf(), size);
    QCOMPARE(QVariant(type).metaType(), type); // so that one can be made and copied
}

void tst_MetaTypes::shortNamesAreLeftToThePrograms_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name : {"Insets", "Ray", "Rectangle*", "Polygon*", "Layer*"})
        QTest::newRow(name) << QByteArray(name);
}

// A program may have a Ray of its own: under our number it would be copied with our size.
void tst_MetaTypes::shortNamesAreLeftToThePrograms()
{
    QFETCH(QByteArray, name);

    QVERIFY(!QMetaType::fromName(name).isValid());
}

void tst_MetaTypes::argumentsOfEveryMethodHaveTypes()
{
    QFETCH(QByteArray, name);
    const QMetaObject *meta = pointerTo(name).metaObject();
    if (!meta) // an interface
        return;

    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        for (int p = 0; p < method.parameterCount(); ++p)
            QVERIFY2(method.parameterMetaType(p).isValid(), method.methodSignature());
    }
}

void tst_MetaTypes::queuedConnectionByTextDelivers_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");

    auto *figure = new PolylineConnection(this);
    const auto row = [](const char *type, const char *name, const QVariant &value) {
        QTest::newRow(type) << QByteArray(type) << QByteArray(name) << value;
    };
    row("Velmora::Figura::Insets", "insets", QVariant::fromValue(Insets(1, 2, 3, 4)));
    row("Velmora::Figura::Ray", "ray", QVariant::fromValue(Ray(5, 6)));
    row("Velmora::Figura::AbsoluteBendpoint", "absolute",
        QVariant::fromValue(AbsoluteBendpoint(7, 8)));
    row("Velmora::Figura::RelativeBendpoint", "relative",
        QVariant::fromValue(RelativeBendpoint(figure)));
    row("Figure*", "figure", QVariant::fromValue<Figure *>(figure));
    row("Layout*", "layout", QVariant::fromValue<Layout *>(new XYLayout(this)));
    row("Border*", "border", QVariant::fromValue<Border *>(new SimpleBorder(this)));
    row("ILocator*", "locator",
        QVariant::fromValue<ILocator *>(new MidpointLocator(figure, 0, this)));
    row("IConnection*", "connection", QVariant::fromValue<IConnection *>(figure));
    row("IConnectionAnchor*", "anchor",
        QVariant::fromValue<IConnectionAnchor *>(new XYAnchor(QPoint(9, 9), this)));
    row("QList<Velmora::Figura::Figure*>", "figures", QVariant::fromValue(QList<Figure *>{figure}));
}

void tst_MetaTypes::queuedConnectionByTextDelivers()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);
    const QByteArray signal = name + "Sent(" + type + ')';
    const QByteArray slot = name + "Came(" + type + ')';
    Post post;
    QVERIFY(connect(&post, ('2' + signal).constData(), &post, ('1' + slot).constData(),
                    Qt::QueuedConnection));
    const QMetaMethod method = post.metaObject()->method(post.metaObject()->indexOfSignal(signal));

    QVERIFY(method.invoke(&post, QGenericArgument(type.constData(), value.constData())));
    QVERIFY(!post.received.isValid());
    QCoreApplication::processEvents();

    QCOMPARE(post.received.metaType(), value.metaType());
    if (type.endsWith('*'))
        QCOMPARE(*static_cast<void *const *>(post.received.constData()),
                 *static_cast<void *const *>(value.constData()));
    if (name == "insets")
        QCOMPARE(post.received.value<Insets>().left(), 2);
    if (name == "ray")
        QCOMPARE(post.received.value<Ray>().y(), 6);
}

void tst_MetaTypes::signalsOfTheLibraryAreQueuedByText_data()
{
    QTest::addColumn<QObject *>("sender");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    QTest::newRow("figureMoved") << static_cast<QObject *>(new Figure(this))
                                 << QByteArray("figureMoved(Figure*)")
                                 << QByteArray("figureCame(Figure*)");
    QTest::newRow("constraintChanged")
        << static_cast<QObject *>(new XYLayout(this)) << QByteArray("constraintChanged(Figure*)")
        << QByteArray("figureCame(Figure*)");
    QTest::newRow("anchorMoved") << static_cast<QObject *>(new XYAnchor(QPoint(), this))
                                 << QByteArray("anchorMoved(IConnectionAnchor*)")
                                 << QByteArray("anchorCame(IConnectionAnchor*)");
}

void tst_MetaTypes::signalsOfTheLibraryAreQueuedByText()
{
    QFETCH(QObject *, sender);
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    Post post;
    QSignalSpy spy(sender, ('2' + signal).constData());
    QVERIFY(connect(sender, ('2' + signal).constData(), &post, ('1' + slot).constData(),
                    Qt::QueuedConnection));
    Figure subject;
    XYAnchor anchor;
    void *sent = slot.startsWith("anchor")
                     ? static_cast<void *>(static_cast<IConnectionAnchor *>(&anchor))
                     : static_cast<void *>(&subject);
    const QMetaMethod method =
        sender->metaObject()->method(sender->metaObject()->indexOfSignal(signal));

    QVERIFY(
        method.invoke(sender, QGenericArgument(method.parameterTypes().at(0).constData(), &sent)));
    QCoreApplication::processEvents();

    QCOMPARE(spy.count(), 1);
    QCOMPARE(*static_cast<void *const *>(post.received.constData()), sent);
}

QTEST_MAIN(tst_MetaTypes)
#include "tst_metatypes.moc"
