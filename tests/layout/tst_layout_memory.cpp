#include "layout_fixtures.h"

#include <liveheap.h>

#include <figura/layout/FreeformLayout.h>
#include <figura/layout/XYLayout.h>

#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

// A diagram that is closed should cost nothing more, although its layers live on.

namespace {

using LayoutMaker = Layout *(*)(QObject *);

template<class T>
Layout *make(QObject *owner)
{
    return new T(owner);
}

enum class Farewell { Removed, Destroyed };

class Children
{
public:
    Children(Figure &parent, int count)
    {
        for (int i = 0; i < count; ++i) {
            m_figures.push_back(std::make_unique<Figure>());
            parent.add(m_figures.back().get(), QRect(i % 50 * 200, i / 50 * 200, 8, 8));
        }
    }

    // The last one leaves first, and the first one last.
    void leave(Figure &parent, Farewell farewell)
    {
        while (!m_figures.empty()) {
            if (farewell == Farewell::Removed)
                parent.remove(m_figures.back().get());
            m_figures.pop_back();
        }
    }

private:
    std::vector<std::unique_ptr<Figure>> m_figures;
};

void fillAndEmpty(Figure &parent, int count, Farewell farewell)
{
    Children children(parent, count);
    parent.validate();
    parent.findFigureAt(5, 5); // so that the layout notes where its children lie
    children.leave(parent, farewell);
    parent.validate();
}

} // namespace

class tst_LayoutMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void layoutThatIsEmptyAgainHoldsNoMoreThanBefore_data();
    void layoutThatIsEmptyAgainHoldsNoMoreThanBefore();
};

void tst_LayoutMemory::layoutThatIsEmptyAgainHoldsNoMoreThanBefore_data()
{
    QTest::addColumn<LayoutMaker>("makeLayout");
    QTest::addColumn<Farewell>("farewell");
    QTest::newRow("children removed, XY") << LayoutMaker(make<XYLayout>) << Farewell::Removed;
    QTest::newRow("children destroyed, XY") << LayoutMaker(make<XYLayout>) << Farewell::Destroyed;
    QTest::newRow("children removed, freeform")
        << LayoutMaker(make<FreeformLayout>) << Farewell::Removed;
    QTest::newRow("children destroyed, freeform")
        << LayoutMaker(make<FreeformLayout>) << Farewell::Destroyed;
}

void tst_LayoutMemory::layoutThatIsEmptyAgainHoldsNoMoreThanBefore()
{
    QFETCH(LayoutMaker, makeLayout);
    QFETCH(Farewell, farewell);
    if (liveBytes() == 0)
        QSKIP("nobody counts what is allocated");
    Figure parent;
    parent.setLayoutManager(makeLayout(&parent));
    parent.setBounds(QRect(0, 0, 600, 600));
    fillAndEmpty(parent, 200, farewell);
    const qint64 before = liveBytes();

    fillAndEmpty(parent, 5000, farewell);

    QCOMPARE(liveBytes(), before);
}

QTEST_MAIN(tst_LayoutMemory)
#include "tst_layout_memory.moc"
