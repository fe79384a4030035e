#include "layout_fixtures.h"

#include <ancestorrecorder.h>

#include <figura/layout/FreeformLayout.h>
#include <figura/layout/XYLayout.h>

#include <QPointer>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A figure that counts how often anything is asked of it.
class AskedFigure : public Figure
{
public:
    explicit AskedFigure(int *count)
        : m_count(count)
    {
    }

    bool isVisible() const override { return counted(Figure::isVisible()); }
    QRect getBounds() override { return counted(Figure::getBounds()); }
    QSize getPreferredSize() override { return counted(Figure::getPreferredSize()); }
    QSize getMinimumSize() override { return counted(Figure::getMinimumSize()); }
    Figure *getParentFigure() const override { return counted(Figure::getParentFigure()); }
    Layout *getLayoutManager() const override { return counted(Figure::getLayoutManager()); }
    QRect resolveBounds(const QRect &rect) override { return counted(Figure::resolveBounds(rect)); }

private:
    template<typename Answer>
    Answer counted(Answer answer) const
    {
        ++*m_count;
        return answer;
    }

    int *m_count;
};

/// Counts how often its children are listed.
class ListedLayout : public Opened<XYLayout>
{
public:
    int listings = 0;

    QList<Figure *> childFigures() override
    {
        ++listings;
        return XYLayout::childFigures();
    }
};

/// Counts the connections to it that are undone one by one.
class LetGoFigure : public Figure
{
public:
    int undone = 0;

protected:
    void disconnectNotify(const QMetaMethod &) override { ++undone; }
};

/// A displayed container, and so many children.
template<class Container, class LayoutClass>
struct Family
{
    Container container;
    LayoutClass layout;
    std::vector<std::unique_ptr<Figure>> children;

    Family()
    {
        container.setLayoutManager(&layout);
        container.setBounds(QRect(0, 0, 1000, 1000));
        container.addNotify();
    }

    void adopt(std::unique_ptr<Figure> child)
    {
        layout.add(child.get(), QRect(int(children.size()), 0, 10, 10));
        children.push_back(std::move(child));
    }
};

void addCountRows()
{
    QTest::addColumn<int>("count");
    QTest::newRow("few") << 10;
    QTest::newRow("many") << 2000;
}

} // namespace

// The price of a deletion, in steps: it is the same however many figures there are.
class tst_DeletionCost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void nobodyIsAskedWhenAnotherFigureGoes_data() { addCountRows(); }
    void nobodyIsAskedWhenAnotherFigureGoes();
    void walkListsTheChildrenOnceWhateverGoes_data() { addCountRows(); }
    void walkListsTheChildrenOnceWhateverGoes();
    void watchedFiguresShareTheConnectionsToTheirContainer_data() { addCountRows(); }
    void watchedFiguresShareTheConnectionsToTheirContainer();
};

void tst_DeletionCost::nobodyIsAskedWhenAnotherFigureGoes()
{
    QFETCH(int, count);
    int questions = 0;
    Family<Figure, FreeformLayout> family;
    for (int i = 0; i < count; ++i)
        family.adopt(std::make_unique<AskedFigure>(&questions));
    family.container.validate();
    QRandomGenerator random(1);
    std::shuffle(family.children.begin(), family.children.end(), random);
    QVERIFY(questions > 0);
    questions = 0;

    for (std::unique_ptr<Figure> &child : family.children)
        child.reset();

    QCOMPARE(questions, 0);
    QCOMPARE(family.layout.childFigureCount(), 0);
}

void tst_DeletionCost::walkListsTheChildrenOnceWhateverGoes()
{
    QFETCH(int, count);
    Family<Figure, ListedLayout> family;
    for (int i = 0; i < count; ++i)
        family.adopt(std::make_unique<Figure>());
    int moved = 0;
    for (int i = 0; i + 1 < count; i += 2) {
        connect(family.children[i].get(), &Figure::figureMoved, this, [&, i] {
            ++moved;
            family.children[i + 1].reset();
        });
    }
    family.layout.listings = 0;

    family.container.translate(1, 1);
    family.container.setBounds(QRect(5, 5, 1000, 1000));

    QCOMPARE(moved, count / 2);
    QCOMPARE(family.layout.childFigureCount(), count / 2);
    QVERIFY2(family.layout.listings <= 4, qPrintable(QString::number(family.layout.listings)));
}

void tst_DeletionCost::watchedFiguresShareTheConnectionsToTheirContainer()
{
    QFETCH(int, count);
    AncestorRecorder listener;
    Family<LetGoFigure, FreeformLayout> family;
    for (int i = 0; i < count; ++i) {
        family.adopt(std::make_unique<Figure>());
        family.children.back()->addAncestorListener(&listener);
    }
    family.container.undone = 0;

    for (std::unique_ptr<Figure> &child : family.children)
        child.reset();

    // A move, the destruction and a change of a property of the container, once for all of them.
    QCOMPARE(family.container.undone, 3);
}

QTEST_MAIN(tst_DeletionCost)
#include "tst_deletion_cost.moc"
