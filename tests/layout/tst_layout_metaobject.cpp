#include "layout_fixtures.h"
#include "locatorprobe.h"

#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/FreeformStackLayout.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/layout/PageLayout.h>
#include <figura/layout/VBoxLayout.h>

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <cstring>
#include <type_traits>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class PageLayoutProbe : public PageLayout
{
public:
    void decoratePage(QPainter *, const QVariant &) override {}
};

// A listener that is a QObject as well, so that it can be found through the meta-object.
class ObjectListener : public QObject, public ListenerProbe
{
};

QStringList ownMethods(const QMetaObject &object)
{
    QStringList result;
    for (int i = object.methodOffset(); i < object.methodCount(); ++i) {
        const QMetaMethod method = object.method(i);
        const QString kind = method.methodType() == QMetaMethod::Signal ? QStringLiteral("signal ")
                                                                        : QStringLiteral("slot ");
        result.append(kind + QString::fromLatin1(method.methodSignature()));
    }
    return result;
}

const QMetaObject *metaObjectOf(int index)
{
    static const QList<const QMetaObject *> objects{&Layout::staticMetaObject,
                                                    &XYLayout::staticMetaObject,
                                                    &FreeformLayout::staticMetaObject,
                                                    &HBoxLayout::staticMetaObject,
                                                    &VBoxLayout::staticMetaObject,
                                                    &StackLayout::staticMetaObject,
                                                    &FreeformStackLayout::staticMetaObject,
                                                    &DelegatingLayout::staticMetaObject,
                                                    &PageLayout::staticMetaObject};
    return objects.at(index);
}

// The place of a virtual operation in its class's table, as the Itanium C++ ABI writes it into a
// pointer to member: one more than the offset in bytes.
template<class Pointer>
int slotOf(Pointer member)
{
    std::ptrdiff_t word = 0;
    std::memcpy(&word, &member, sizeof(word));
    return word % 2 == 1 ? int((word - 1) / std::ptrdiff_t(sizeof(void *))) : -1;
}

QList<int> consecutive(int first, int count)
{
    QList<int> result;
    for (int i = 0; i < count; ++i)
        result.append(first + i);
    return result;
}

using OpenLayout = Opened<Layout>;

} // namespace

class tst_LayoutMetaObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void interfaceIdsAreThePublishedOnes();
    void locatorIsFoundByNameAndById();
    void otherObjectsAreNoLocators();
    void classesStandInTheirFamily_data();
    void classesStandInTheirFamily();
    void signalsAndSlotsStandInTheirOrder_data();
    void signalsAndSlotsStandInTheirOrder();
    void childMovedIsReachedThroughTheMetaObject();
    void examineExtentIsVirtualInAStack();
    void layoutAndPageLayoutAreAbstract();
    void virtualOperationsOfLayoutStandInTheirOrder();
    void virtualOperationsOfSubclassesStandInTheirOrder();
};

void tst_LayoutMetaObject::interfaceIdsAreThePublishedOnes()
{
    QCOMPARE(QByteArray(qobject_interface_iid<ILocator *>()),
             QByteArray("ILocator.Figura.Velmora.velmora.org"));
    QCOMPARE(QByteArray(qobject_interface_iid<ILayoutListener *>()),
             QByteArray("ILayoutListener.Figura.Velmora.velmora.org"));
}

void tst_LayoutMetaObject::locatorIsFoundByNameAndById()
{
    LocatorProbe locator;
    QObject *object = &locator;
    auto *expected = static_cast<ILocator *>(&locator);

    QCOMPARE(object->qt_metacast("ILocator"), static_cast<void *>(expected));
    QCOMPARE(object->qt_metacast("ILocator.Figura.Velmora.velmora.org"),
             static_cast<void *>(expected));
    QCOMPARE(qobject_cast<ILocator *>(object), expected);
    QCOMPARE(object->qt_metacast("ILocator.Figura.Velmora"), nullptr);
}

void tst_LayoutMetaObject::otherObjectsAreNoLocators()
{
    Scene<ProbeLayout> scene;
    ObjectListener listener;

    QCOMPARE(qobject_cast<ILocator *>(&scene.figure), nullptr);
    QCOMPARE(qobject_cast<ILocator *>(&scene.layout), nullptr);
    QCOMPARE(qobject_cast<ILocator *>(static_cast<QObject *>(&listener)), nullptr);
}

void tst_LayoutMetaObject::classesStandInTheirFamily_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("base");
    QTest::newRow("Layout") << 0 << QByteArray("Layout") << QByteArray("QObject");
    QTest::newRow("XYLayout") << 1 << QByteArray("XYLayout") << QByteArray("Layout");
    QTest::newRow("FreeformLayout") << 2 << QByteArray("FreeformLayout") << QByteArray("XYLayout");
    QTest::newRow("HBoxLayout") << 3 << QByteArray("HBoxLayout") << QByteArray("Layout");
    QTest::newRow("VBoxLayout") << 4 << QByteArray("VBoxLayout") << QByteArray("Layout");
    QTest::newRow("StackLayout") << 5 << QByteArray("StackLayout") << QByteArray("Layout");
    QTest::newRow("FreeformStackLayout")
        << 6 << QByteArray("FreeformStackLayout") << QByteArray("StackLayout");
    QTest::newRow("DelegatingLayout")
        << 7 << QByteArray("DelegatingLayout") << QByteArray("Layout");
    QTest::newRow("PageLayout") << 8 << QByteArray("PageLayout") << QByteArray("QObject");
}

void tst_LayoutMetaObject::classesStandInTheirFamily()
{
    QFETCH(int, index);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, base);
    const QMetaObject *object = metaObjectOf(index);

    QCOMPARE(QByteArray(object->className()), "Velmora::Figura::" + name);
    const QByteArray qualified = base == "QObject" ? base : "Velmora::Figura::" + base;
    QCOMPARE(QByteArray(object->superClass()->className()), qualified);
}

void tst_LayoutMetaObject::signalsAndSlotsStandInTheirOrder_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");

    const QStringList extent{"signal extentChanged()", "slot examineExtent()"};
    QTest::newRow("Layout") << 0 << QStringList();
    QTest::newRow("XYLayout") << 1
                              << QStringList{"signal constraintChanged(Figure*)",
                                             "slot childMoved(Figure*)"};
    QTest::newRow("FreeformLayout") << 2 << extent;
    QTest::newRow("HBoxLayout") << 3 << QStringList();
    QTest::newRow("VBoxLayout") << 4 << QStringList();
    QTest::newRow("StackLayout") << 5 << QStringList();
    QTest::newRow("FreeformStackLayout") << 6 << extent;
    QTest::newRow("DelegatingLayout") << 7 << QStringList();
    QTest::newRow("PageLayout") << 8 << QStringList();
}

void tst_LayoutMetaObject::signalsAndSlotsStandInTheirOrder()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);

    QCOMPARE(ownMethods(*metaObjectOf(index)), expected);
}

// Applications connect by these texts, so the argument's type has to be spelt as it is here.
void tst_LayoutMetaObject::childMovedIsReachedThroughTheMetaObject()
{
    class Watcher : public XYLayout
    {
    public:
        QList<Figure *> moved;

        void childMoved(Figure *child) override { moved.append(child); }
    };
    Watcher layout;
    Figure figure;

    QVERIFY(connect(&figure, SIGNAL(figureMoved(Figure *)), &layout, SLOT(childMoved(Figure *))));
    QVERIFY(QSignalSpy(&layout, SIGNAL(constraintChanged(Figure *))).isValid());
    figure.translate(1, 1);

    QCOMPARE(layout.moved, QList<Figure *>{&figure});
}

void tst_LayoutMetaObject::examineExtentIsVirtualInAStack()
{
    class Watcher : public FreeformStackLayout
    {
    public:
        int examined = 0;

        void examineExtent() override { ++examined; }
    };
    Watcher layout;

    QVERIFY(QMetaObject::invokeMethod(&layout, "examineExtent"));

    QCOMPARE(layout.examined, 1);
}

void tst_LayoutMetaObject::layoutAndPageLayoutAreAbstract()
{
    QVERIFY(std::is_abstract_v<Layout>);
    QVERIFY(std::is_abstract_v<PageLayout>);
    QVERIFY(std::is_abstract_v<ILocator>);
    QVERIFY(std::is_abstract_v<ILayoutListener>);
    QVERIFY(!std::is_abstract_v<PageLayoutProbe>);
}

// Programs that were built against this library call by place.
void tst_LayoutMetaObject::virtualOperationsOfLayoutStandInTheirOrder()
{
#if defined(__GNUC__) && defined(__x86_64__)
    using L = OpenLayout;
    const QList<int> places{
        slotOf<bool (Layout::*)(Figure *, const QVariant &, int)>(&Layout::add),
        slotOf<bool (Layout::*)(Figure *, unsigned int, unsigned int, int)>(&Layout::add),
        slotOf(&Layout::remove),
        slotOf(&Layout::childFigures),
        slotOf(&Layout::childFigureCount),
        slotOf(&Layout::getConstraint),
        slotOf(&Layout::setConstraint),
        slotOf(&Layout::getPreferredSize),
        slotOf(&Layout::getMinimumSize),
        slotOf(&Layout::expandingDirections),
        slotOf(&Layout::setExpandingDirections),
        slotOf(&Layout::findDescendantFigures),
        slotOf(&Layout::findDescendantAtExcluding),
        slotOf(&Layout::isRelativeLayout),
        slotOf(&Layout::render),
        slotOf(&Layout::layout),
        slotOf(&Layout::invalidate),
        slotOf(&Layout::addListener),
        slotOf(&Layout::removeListener),
        slotOf(&L::calculatePreferredSize),
        slotOf(&L::calculateMinimumSize),
        slotOf(&L::performLayout),
        slotOf(&L::isClipping),
        slotOf(&L::applyConstraint)};

    QVERIFY(places.first() > 0);
    QCOMPARE(places, consecutive(places.first(), places.count()));
    QCOMPARE(slotOf(&Layout::getFigure), -1);
    QCOMPARE(slotOf(&Layout::getAligment), -1);
#else
    QSKIP("the pointer to a member is laid out otherwise here");
#endif
}

void tst_LayoutMetaObject::virtualOperationsOfSubclassesStandInTheirOrder()
{
#if defined(__GNUC__) && defined(__x86_64__)
    const int next = slotOf(&OpenLayout::applyConstraint) + 1;

    QCOMPARE((QList<int>{slotOf(&XYLayout::getOrigin), slotOf(&XYLayout::childMoved)}),
             consecutive(next, 2));
    QCOMPARE(slotOf(&FreeformStackLayout::examineExtent), next);
    QCOMPARE(slotOf(&PageLayout::decoratePage), slotOf(&PageLayout::getContentRect) + 1);
    QCOMPARE(slotOf(&FreeformLayout::examineExtent), -1);

    // The destructor takes two places.
    QCOMPARE(slotOf(&ILocator::relocate), 2);
    QCOMPARE((QList<int>{slotOf(&ILayoutListener::invalidate), slotOf(&ILayoutListener::layout),
                         slotOf(&ILayoutListener::postLayout), slotOf(&ILayoutListener::remove),
                         slotOf(&ILayoutListener::setConstraint)}),
             consecutive(2, 5));
#else
    QSKIP("the pointer to a member is laid out otherwise here");
#endif
}

QTEST_MAIN(tst_LayoutMetaObject)
#include "tst_layout_metaobject.moc"
