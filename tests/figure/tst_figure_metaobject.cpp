#include "fixtures.h"

#include <figura/figure/IFigure.h>

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <type_traits>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// Another interface that is an IFigure, as those of connections are.
class IMarkedFigure : public virtual IFigure
{
public:
    virtual int mark() const = 0;
};

class MarkedFigure : public Figure, public virtual IMarkedFigure
{
public:
    int mark() const override { return 7; }
};

/// The place of a virtual operation in the table of its class, as the common C++ ABI encodes it.
template<typename Function>
qsizetype slotOf(Function function)
{
    struct Encoded
    {
        qptrdiff offset;
        qptrdiff adjustment;
    };
    static_assert(sizeof(Function) == sizeof(Encoded));
    Encoded encoded;
    memcpy(&encoded, &function, sizeof encoded);
    return encoded.offset / qsizetype(sizeof(void *));
}

/// Names the protected operations of a figure so that their place can be asked for.
class Exposed : public Figure
{
public:
    static QList<qsizetype> ownSlots()
    {
        return {slotOf(&Exposed::resolveBounds),  slotOf(&Exposed::getResizeMinimum),
                slotOf(&Exposed::layout),         slotOf(&Exposed::calculateContentSize),
                slotOf(&Exposed::drawBackground), slotOf(&Exposed::drawFigure),
                slotOf(&Exposed::drawBorder),     slotOf(&Exposed::drawChildren),
                slotOf(&Exposed::isValidateRoot), slotOf(&Exposed::primTranslate)};
    }
};

QList<qsizetype> countedFrom(qsizetype first, qsizetype count)
{
    QList<qsizetype> result;
    for (qsizetype i = 0; i < count; ++i)
        result.append(first + i);
    return result;
}

} // namespace

class tst_Figure_MetaObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void methodsStandInTheirPublishedOrder_data();
    void methodsStandInTheirPublishedOrder();
    void noOtherMethodIsDeclared();
    void argumentsOfAllMethodsHaveMetaTypes();
    void signalsWithFiguresTravelThroughSpies();
    void classAndInterfaceAreFoundByNameAndId();
    void figureIsAnObjectFirst();
    void figureThatIsAnInterfaceTwiceHoldsOneIFigure();
    void flagsHaveTheirPublishedValues();
    void flagsAreCompileTimeConstants();
    void parentPropertyIsCalledParent();
    void interfaceOperationsStandInTheirPublishedOrder();
    void figureOperationsStandInTheirPublishedOrder();
};

void tst_Figure_MetaObject::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Figure_MetaObject::methodsStandInTheirPublishedOrder_data()
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
    row(3, true, "figureMoved(Figure*)", {"pFigure"});
    row(4, true, "propertyChanged(QString,QVariant,QVariant)",
        {"propertyName", "oldValue", "newValue"});
    row(5, false, "erase()", {});
    row(6, false, "revalidate()", {});
    row(7, false, "repaint()", {});
    row(8, false, "repaint(int,int,int,int)", {"x", "y", "w", "h"});
    row(9, false, "repaint(QRect)", {"rect"});
}

void tst_Figure_MetaObject::methodsStandInTheirPublishedOrder()
{
    QFETCH(int, index);
    QFETCH(bool, isSignal);
    QFETCH(QByteArray, signature);
    QFETCH(QByteArrayList, parameters);
    const QMetaObject &meta = Figure::staticMetaObject;

    const QMetaMethod method = meta.method(meta.methodOffset() + index);

    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(method.parameterNames(), parameters);
    QCOMPARE(method.methodType(), isSignal ? QMetaMethod::Signal : QMetaMethod::Slot);
    QCOMPARE(method.access(), QMetaMethod::Public);
    QCOMPARE(method.returnMetaType(), QMetaType::fromType<void>());
}

void tst_Figure_MetaObject::noOtherMethodIsDeclared()
{
    const QMetaObject &meta = Figure::staticMetaObject;

    QCOMPARE(meta.methodCount() - meta.methodOffset(), 10);
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 0);
    QCOMPARE(meta.constructorCount(), 0);
    QCOMPARE(meta.classInfoCount() - meta.classInfoOffset(), 0);
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
}

void tst_Figure_MetaObject::argumentsOfAllMethodsHaveMetaTypes()
{
    const QMetaObject &meta = Figure::staticMetaObject;

    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        for (int j = 0; j < method.parameterCount(); ++j)
            QVERIFY2(method.parameterMetaType(j).isValid(), method.methodSignature());
    }
    QCOMPARE(meta.method(meta.methodOffset()).parameterMetaType(0),
             QMetaType::fromType<Figure *>());
}

void tst_Figure_MetaObject::signalsWithFiguresTravelThroughSpies()
{
    Figure figure;
    QSignalSpy added(&figure, &Figure::ancestorAdded);
    QSignalSpy queued(&figure, &Figure::figureMoved);
    Figure *received = nullptr;
    connect(
        &figure, &Figure::figureMoved, &figure, [&](Figure *moved) { received = moved; },
        Qt::QueuedConnection);

    Q_EMIT figure.ancestorAdded(&figure);
    Q_EMIT figure.figureMoved(&figure);
    QCoreApplication::processEvents();

    QCOMPARE(added[0][0].value<Figure *>(), &figure);
    QCOMPARE(queued[0][0].value<Figure *>(), &figure);
    QCOMPARE(received, &figure);
}

void tst_Figure_MetaObject::classAndInterfaceAreFoundByNameAndId()
{
    Figure figure;
    auto *interface = static_cast<IFigure *>(&figure);

    QCOMPARE(figure.qt_metacast("Velmora::Figura::Figure"), &figure);
    QCOMPARE(figure.qt_metacast("IFigure"), interface);
    QCOMPARE(figure.qt_metacast("IFigure.Figura.Velmora.velmora.org"), interface);
    QCOMPARE(figure.qt_metacast("QObject"), static_cast<QObject *>(&figure));
    QCOMPARE(figure.qt_metacast("ITreeSearch"), nullptr);
    QCOMPARE(figure.qt_metacast(nullptr), nullptr);
    QCOMPARE(qobject_cast<IFigure *>(static_cast<QObject *>(&figure)), interface);
    QCOMPARE(QByteArray(qobject_interface_iid<IFigure *>()),
             QByteArray("IFigure.Figura.Velmora.velmora.org"));
}

void tst_Figure_MetaObject::figureIsAnObjectFirst()
{
    Figure figure;

    QCOMPARE(static_cast<void *>(static_cast<QObject *>(&figure)), static_cast<void *>(&figure));
}

void tst_Figure_MetaObject::figureThatIsAnInterfaceTwiceHoldsOneIFigure()
{
    MarkedFigure figure;
    IMarkedFigure *marked = &figure;
    IFigure *throughFigure = static_cast<Figure *>(&figure);
    IFigure *throughInterface = marked;

    QCOMPARE(throughFigure, throughInterface);
    QCOMPARE(dynamic_cast<Figure *>(marked), &figure);
    marked->setBounds(QRect(1, 2, 3, 4));
    QCOMPARE(figure.getBounds(), QRect(1, 2, 3, 4));
}

void tst_Figure_MetaObject::flagsHaveTheirPublishedValues()
{
    QCOMPARE(Figure::FLAG_VALID, 0x1);
    QCOMPARE(Figure::FLAG_VISIBLE, 0x4);
    QCOMPARE(Figure::FLAG_ENABLED, 0x10);
    QCOMPARE(Figure::FLAG_USE_CONTENT_SIZE, 0x40);
    QCOMPARE(static_cast<unsigned int>(Figure::FLAG_NOTIFIED), 0x80000000u);
}

void tst_Figure_MetaObject::flagsAreCompileTimeConstants()
{
    static_assert((Figure::FLAG_VISIBLE | Figure::FLAG_ENABLED) == 0x14);
    static_assert(Figure::FLAG_NOTIFIED < 0);
    const int &taken = Figure::FLAG_NOTIFIED; // needs a definition

    QVERIFY(taken != 0);
}

void tst_Figure_MetaObject::parentPropertyIsCalledParent()
{
    QCOMPARE(Figure::PROPERTY_PARENT, QStringLiteral("parent"));
}

// Users that were compiled earlier call by place: a new operation may only be appended.
void tst_Figure_MetaObject::interfaceOperationsStandInTheirPublishedOrder()
{
    using F = IFigure;
    const QList<qsizetype> found{
        slotOf(&F::getBorder),
        slotOf(&F::setBorder),
        slotOf(&F::getMinimumSize),
        slotOf(&F::setMinimumSize),
        slotOf(&F::getMaximumSize),
        slotOf(&F::setMaximumSize),
        slotOf(&F::getPreferredSize),
        slotOf(&F::setPreferredSize),
        slotOf(&F::getMargin),
        slotOf(&F::setMargin),
        slotOf(&F::getClientArea),
        slotOf(&F::calculateContentRect),
        slotOf(&F::getBounds),
        slotOf(&F::setBounds),
        slotOf(&F::getBoundingRect),
        slotOf(&F::isEnabled),
        slotOf(&F::setEnabled),
        slotOf(&F::isVisible),
        slotOf(&F::setVisible),
        slotOf(&F::getBackgroundColor),
        slotOf(&F::setBackgroundColor),
        slotOf(&F::getTooltip),
        slotOf(&F::setTooltip),
        slotOf(&F::addNotify),
        slotOf(&F::removeNotify),
        slotOf(&F::getParentFigure),
        slotOf(&F::setParentFigure),
        slotOf(&F::getLayoutManager),
        slotOf(&F::setLayoutManager),
        slotOf(&F::getUpdateManager),
        slotOf(qOverload<Figure *, const QVariant &, int>(&F::add)),
        slotOf(qOverload<Figure *, unsigned int, unsigned int, int>(&F::add)),
        slotOf(&F::remove),
        slotOf(&F::childFigures),
        slotOf(&F::childFigureCount),
        slotOf(qOverload<const QPoint &>(&F::findFigureAt)),
        slotOf(qOverload<int, int, const ITreeSearch &>(&F::findFigureAt)),
        slotOf(qOverload<int, int>(&F::findFigureAt)),
        slotOf(qOverload<QList<Figure *> &, const QRect &, const ITreeSearch &, bool>(
            &F::findFigures)),
        slotOf(qOverload<const QRect &, bool>(&F::findFigures)),
        slotOf(&F::findFigureAtExcluding),
        slotOf(&F::contains),
        slotOf(&F::isContained),
        slotOf(&F::isIntersecting),
        slotOf(&F::expandingDirections),
        slotOf(&F::setExpandingDirections),
        slotOf(&F::render),
        slotOf(&F::invalidate),
        slotOf(&F::validate),
        slotOf(&F::translate),
        slotOf(qOverload<QPointF &>(&F::translateFromParent)),
        slotOf(qOverload<QRectF &>(&F::translateFromParent)),
        slotOf(qOverload<QPoint &>(&F::translateFromParent)),
        slotOf(qOverload<QRect &>(&F::translateFromParent)),
        slotOf(qOverload<QPointF &>(&F::translateToParent)),
        slotOf(qOverload<QRectF &>(&F::translateToParent)),
        slotOf(qOverload<QPoint &>(&F::translateToParent)),
        slotOf(qOverload<QRect &>(&F::translateToParent)),
        slotOf(qOverload<QPointF &>(&F::translateToAbsolute)),
        slotOf(qOverload<QRectF &>(&F::translateToAbsolute)),
        slotOf(qOverload<QPoint &>(&F::translateToAbsolute)),
        slotOf(qOverload<QRect &>(&F::translateToAbsolute)),
        slotOf(qOverload<QPointF &>(&F::translateToRelative)),
        slotOf(qOverload<QRectF &>(&F::translateToRelative)),
        slotOf(qOverload<QPoint &>(&F::translateToRelative)),
        slotOf(qOverload<QRect &>(&F::translateToRelative)),
        slotOf(&F::addAncestorListener),
        slotOf(&F::removeAncestorListener),
        slotOf(&F::addPropertyChangeListener),
        slotOf(&F::removePropertyChangeListener),
        slotOf(&F::erase),
        slotOf(&F::revalidate),
        slotOf(qOverload<const QRect &>(&F::repaint)),
        slotOf(qOverload<int, int, int, int>(&F::repaint)),
        slotOf(qOverload<>(&F::repaint)),
    };

    // The destructor stands first, and takes two places.
    QCOMPARE(found, countedFrom(2, found.size()));
}

void tst_Figure_MetaObject::figureOperationsStandInTheirPublishedOrder()
{
    const QList<qsizetype> found = Exposed::ownSlots();
    constexpr qsizetype ofQObject = 12; // three for moc, two destructors, seven handlers

    QCOMPARE(found, countedFrom(ofQObject, found.size()));
}

QTEST_MAIN(tst_Figure_MetaObject)
#include "tst_figure_metaobject.moc"
