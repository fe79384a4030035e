#include <figura/shape/Rectangle.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>

#include <QTest>

#include <cstdlib>
#include <memory>
#include <vector>

#if defined(__SANITIZE_ADDRESS__) || !defined(__GLIBC__)
#define COUNTS_ALLOCATIONS 0 // the sanitizer has an allocator of its own
#else
#define COUNTS_ALLOCATIONS 1
#endif

namespace {

long allocations = 0;

} // namespace

#if COUNTS_ALLOCATIONS
// Those of the program take the place of those of the C library, for all libraries.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *memory, size_t size);

void *malloc(size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}

void *calloc(size_t count, size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}

void *realloc(void *memory, size_t size)
{
    ++allocations;
    return __libc_realloc(memory, size);
}
}
#endif

using namespace Velmora::Figura;

namespace {

// A shown viewer of so many rectangles, most of them out of sight.
class Field
{
public:
    explicit Field(int count)
    {
        pane.addLayer(&layer, QStringLiteral("figures"));
        viewer.resize(400, 300);
        viewer.setContent(&pane);
        for (int i = 0; i < count; ++i) {
            boxes.push_back(std::make_unique<Rectangle>(nullptr));
            boxes.back()->setEnabledFGColor(Qt::black);
            boxes.back()->setEnabledBGColor(Qt::white);
            layer.add(boxes.back().get(), QRect(i % 100 * 50, i / 100 * 40, 40, 30));
            boxes.back()->rebuildPath();
        }
        viewer.show();
        isShown = QTest::qWaitForWindowExposed(&viewer);
        for (int step = 0; step < 20; ++step)
            recolor(step);
    }

    // To pixels.
    void recolor(int step)
    {
        boxes[3]->setEnabledBGColor(QColor::fromHsv(step * 17 % 360, 200, 200));
        QCoreApplication::processEvents();
    }

    FreeformLayeredPane pane;
    FreeformLayer layer;
    FreeformViewer viewer;
    std::vector<std::unique_ptr<Rectangle>> boxes;
    bool isShown = false;
};

template<typename Work>
long allocationsIn(Work work)
{
    const long before = allocations;
    work();
    return allocations - before;
}

long allocationsOfAPaint(Field &field)
{
    return allocationsIn([&field] {
        for (int step = 0; step < 20; ++step)
            field.recolor(step);
    });
}

} // namespace

class tst_View_Allocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
        if (!COUNTS_ALLOCATIONS)
            QSKIP("the allocator cannot be counted here");
    }

    void allocationsAreSeen();
    void recoloringWhatWaitsForItsPaintAllocatesNothing();
    void recoloringToPixelsAllocatesNoMoreAmongMany();
};

void tst_View_Allocations::allocationsAreSeen()
{
    QCOMPARE(allocationsIn([] { QByteArray(1000, 'a').detach(); }), 1);
}

void tst_View_Allocations::recoloringWhatWaitsForItsPaintAllocatesNothing()
{
    Field field(1000);
    QVERIFY(field.isShown);
    field.boxes[3]->setEnabledBGColor(Qt::red);

    const long made = allocationsIn([&field] {
        field.boxes[3]->setEnabledBGColor(Qt::green);
        field.boxes[3]->setEnabledBGColor(Qt::blue);
    });

    QCOMPARE(made, 0);
}

// Qt allocates for each paint event; nothing may be added for figures that do not change.
void tst_View_Allocations::recoloringToPixelsAllocatesNoMoreAmongMany()
{
    Field few(1000);
    Field many(100000);
    QVERIFY(few.isShown && many.isShown);

    const long amongFew = allocationsOfAPaint(few);
    const long amongMany = allocationsOfAPaint(many);

    QVERIFY(amongFew > 0);
    QCOMPARE(amongMany, amongFew);
}

QTEST_MAIN(tst_View_Allocations)
#include "tst_view_allocations.moc"
