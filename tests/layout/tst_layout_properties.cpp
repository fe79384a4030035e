#include "layout_fixtures.h"

#include <figura/figure/SimpleBorder.h>
#include <figura/layout/FreeformLayout.h>

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// A second, plain account of what an XY layout knows, to compare the real one with.
class Model
{
public:
    struct Child
    {
        Figure *figure = nullptr;
        QSize preferred;
        QSize minimum;
        QVariant constraint{};
        QRect bounds{};
        bool visible = true;
    };

    QList<Child> children; // from bottom to top
    bool laidOut = false;
    bool displayed = false;

    void add(Child child, const QVariant &constraint, int index)
    {
        laidOut = false;
        child.constraint = resolved(child, constraint);
        place(&child, child.constraint);
        children.insert(index < 0 || index > children.count() ? children.count() : index, child);
    }

    void remove(int index)
    {
        children.removeAt(index);
        if (displayed)
            laidOut = false;
    }

    void setConstraint(int index, const QVariant &constraint)
    {
        Child &child = children[index];
        child.constraint = resolved(child, constraint);
        if (place(&child, child.constraint))
            follow(&child);
    }

    void move(int index, const QRect &bounds)
    {
        Child &child = children[index];
        if (place(&child, bounds))
            follow(&child);
    }

    void toggle(int index)
    {
        children[index].visible = !children[index].visible;
        laidOut = false;
    }

    void layOut()
    {
        if (laidOut)
            return;
        for (Child &child : children) {
            if (child.visible)
                place(&child, child.constraint);
        }
        laidOut = true;
    }

    QSize minimumSize() const
    {
        QRect area(0, 0, 1, 1);
        for (const Child &child : children) {
            const QRect rect = child.constraint.toRect();
            if (child.visible)
                area |= QRect(rect.topLeft(), rect.size().expandedTo(child.preferred));
        }
        return area.size();
    }

    QRect extent() const
    {
        QRect area;
        for (const Child &child : children) {
            if (child.visible && isRectangle(child.constraint))
                area |= filled(child, child.constraint.toRect());
        }
        return area;
    }

private:
    static bool isRectangle(const QVariant &constraint)
    {
        return constraint.typeId() == QMetaType::QRect || constraint.typeId() == QMetaType::QRectF;
    }

    template<class Number>
    static Number resolved(Number given, int minimum, int preferred)
    {
        if (given < 0)
            return Number(preferred);
        return given < Number(minimum) ? Number(minimum) : given;
    }

    static QVariant resolved(const Child &child, const QVariant &constraint)
    {
        if (constraint.typeId() == QMetaType::QRect) {
            const QRect r = constraint.toRect();
            return QRect(r.x(), r.y(),
                         resolved(r.width(), child.minimum.width(), child.preferred.width()),
                         resolved(r.height(), child.minimum.height(), child.preferred.height()));
        }
        if (constraint.typeId() == QMetaType::QRectF) {
            const QRectF r = constraint.toRectF();
            return QRectF(r.x(), r.y(),
                          resolved(r.width(), child.minimum.width(), child.preferred.width()),
                          resolved(r.height(), child.minimum.height(), child.preferred.height()));
        }
        return constraint;
    }

    static QRect filled(const Child &child, const QRect &rect)
    {
        if (rect.isValid())
            return rect;
        return QRect(rect.x(), rect.y(), rect.width() < 1 ? child.preferred.width() : rect.width(),
                     rect.height() < 1 ? child.preferred.height() : rect.height());
    }

    static bool place(Child *child, const QVariant &constraint)
    {
        if (!isRectangle(constraint))
            return false;
        const QRect bounds = filled(*child, constraint.toRect());
        if (bounds == child->bounds)
            return false;
        child->bounds = bounds;
        return true;
    }

    // Once laid out, a child that moves takes its constraint along, as an integer rectangle.
    void follow(Child *child) const
    {
        if (!laidOut || !isRectangle(child->constraint))
            return;
        child->constraint = resolved(*child, child->bounds);
        place(child, child->constraint);
    }
};

// Does the same to a model and to a layout.
template<class LayoutUnderTest>
class Player
{
public:
    Player(quint32 seed, LayoutUnderTest *layout)
        : m_random(seed)
        , m_layout(layout)
    {
        m_container.setLayoutManager(layout);
        m_container.setBounds(QRect(5, 6, 100, 100));
        if (below(2) == 0) {
            m_container.addNotify();
            model.displayed = true;
        }
    }

    ~Player()
    {
        for (const Model::Child &child : model.children)
            delete child.figure;
    }
    Q_DISABLE_COPY_MOVE(Player)

    Model model;
    bool destroysChildren = true; ///< Sometimes instead of removing them.

    Figure *container() { return &m_container; }

    void step()
    {
        const int count = int(model.children.count());
        const int action = below(12);
        if (count == 0 || action < 2)
            return add(count);
        const int index = below(count);
        if (action < 3)
            return remove(index);
        if (action < 6)
            return setConstraint(index);
        if (action < 9)
            return move(index);
        if (action < 10)
            return toggle(index);
        model.layOut();
        m_container.validate();
    }

private:
    int below(int limit) { return int(m_random.bounded(limit)); }

    QVariant constraint()
    {
        const auto length = [this] { return below(5) == 0 ? -1 : below(30); };
        const QRect rect(below(100) - 50, below(100) - 50, length(), length());
        switch (below(6)) {
        case 0:
            return QVariant();
        case 1:
            return QVariant(QSize(below(30), below(30)));
        case 2:
            return QVariant(QRectF(rect.x() + below(4) * 0.25, rect.y() + 0.5,
                                   rect.width() + below(3) * 0.25, rect.height()));
        default:
            return QVariant(rect);
        }
    }

    void add(int count)
    {
        Model::Child child;
        child.preferred = QSize(1 + below(20), 1 + below(20));
        child.minimum = QSize(below(15), below(15));
        child.figure = new SizedFigure(child.preferred, child.minimum);
        const QVariant given = constraint();
        const int index = below(count + 3) - 1;
        model.add(child, given, index);
        QVERIFY(m_container.add(child.figure, given, index));
    }

    void remove(int index)
    {
        Figure *figure = model.children.at(index).figure;
        const bool destroyOnly = below(2) == 0 && destroysChildren;
        model.remove(index);
        if (!destroyOnly)
            QVERIFY(m_container.remove(figure));
        delete figure;
        if (destroyOnly) // whether that makes the layout stale is left open
            model.laidOut = m_layout->isLaidOut();
    }

    void setConstraint(int index)
    {
        const QVariant given = constraint();
        model.setConstraint(index, given);
        QVERIFY(m_layout->setConstraint(model.children.at(index).figure, given));
    }

    void move(int index)
    {
        const QRect bounds(below(100) - 50, below(100) - 50, 1 + below(30), 1 + below(30));
        Figure *figure = model.children.at(index).figure;
        model.move(index, bounds);
        figure->setBounds(bounds);
    }

    void toggle(int index)
    {
        model.toggle(index);
        model.children.at(index).figure->setVisible(model.children.at(index).visible);
    }

    QRandomGenerator m_random;
    Figure m_container;
    LayoutUnderTest *m_layout;
};

template<class LayoutUnderTest>
void compareChildren(LayoutUnderTest *layout, const Model &model)
{
    QCOMPARE(layout->isLaidOut(), model.laidOut);
    const QList<Figure *> figures = layout->childFigures();
    QCOMPARE(figures.count(), model.children.count());
    QCOMPARE(layout->childFigureCount(), int(model.children.count()));
    for (int i = 0; i < figures.count(); ++i) {
        const Model::Child &child = model.children.at(i);
        QCOMPARE(figures.at(i), child.figure);
        QCOMPARE(figures.at(i)->getBounds(), child.bounds);
        const QVariant constraint = layout->getConstraint(child.figure);
        QCOMPARE(constraint.typeId(), child.constraint.typeId());
        QCOMPARE(constraint, child.constraint);
    }
}

class OpenFreeformLayout : public Opened<FreeformLayout>
{
public:
    using FreeformLayout::calculateFreeformExtent;
};

void addSeeds()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 40; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

const int STEPS = 150;

} // namespace

class tst_LayoutProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void xyLayoutAgreesWithTheModel_data() { addSeeds(); }
    void xyLayoutAgreesWithTheModel();
    void freeformLayoutAgreesWithTheModel_data() { addSeeds(); }
    void freeformLayoutAgreesWithTheModel();
    void whoeverListensKnowsTheExtent_data() { addSeeds(); }
    void whoeverListensKnowsTheExtent();
};

void tst_LayoutProperties::xyLayoutAgreesWithTheModel()
{
    QFETCH(quint32, seed);
    Opened<XYLayout> layout;
    Player<Opened<XYLayout>> player(seed, &layout);

    for (int i = 0; i < STEPS && !QTest::currentTestFailed(); ++i) {
        player.step();

        compareChildren(&layout, player.model);
        QCOMPARE(layout.calculateMinimumSize(), player.model.minimumSize());
    }

    player.container()->invalidate();
    QCOMPARE(layout.getMinimumSize(), player.model.minimumSize());
    QCOMPARE(layout.getPreferredSize(), player.model.minimumSize() + QSize(10, 10));
}

void tst_LayoutProperties::freeformLayoutAgreesWithTheModel()
{
    QFETCH(quint32, seed);
    OpenFreeformLayout layout;
    Player<OpenFreeformLayout> player(seed, &layout);

    for (int i = 0; i < STEPS && !QTest::currentTestFailed(); ++i) {
        player.step();

        compareChildren(&layout, player.model);
        QCOMPARE(layout.calculateFreeformExtent(), player.model.extent());
    }

    layout.examineExtent();
    QCOMPARE(layout.getFreeformExtent(), player.model.extent());
    QCOMPARE(layout.calculateMinimumSize(), player.model.extent().size());
}

// Once known, the extent changes only along with the announcement of it.
void tst_LayoutProperties::whoeverListensKnowsTheExtent()
{
    QFETCH(quint32, seed);
    SimpleBorder border(nullptr, 2);
    OpenFreeformLayout layout;
    Player<OpenFreeformLayout> player(seed, &layout);
    player.container()->setBorder(&border);
    player.destroysChildren = false; // that voids the extent without a word
    QRect known = layout.getFreeformExtent();
    connect(&layout, &FreeformLayout::extentChanged, this, [&] {
        const QRect extent = layout.getFreeformExtent();
        QVERIFY(extent != known);
        known = extent;
    });

    for (int i = 0; i < STEPS; ++i) {
        player.step();

        QCOMPARE(layout.getFreeformExtent(), known);
    }
}

QTEST_MAIN(tst_LayoutProperties)
#include "tst_layout_properties.moc"
