#include "fixtures.h"

#include <figura/figure/SimpleBorder.h>

#include <QTest>

#include <memory>
#include <random>
#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A random tree, and beside it nothing but the numbers that decide about its coordinates.
class RandomTree
{
public:
    struct Node
    {
        std::unique_ptr<ParentFigure> figure;
        std::unique_ptr<SimpleBorder> border;
        int parent = -1;
        bool relative = true;
        QRect bounds;
        int margin = 0;
        int top = 0;
        int left = 0;
    };

    explicit RandomTree(unsigned int seed);

    /// How far the coordinates of this node's children lie from those of its own bounds.
    QPoint childOffset(const Node &node) const;
    /// How far the coordinates of this node's bounds lie from those of the root's.
    QPoint absoluteOffset(const Node &node) const;

    std::vector<Node> nodes;

private:
    int pick(int lowest, int highest);
    Node makeNode(int index);

    std::mt19937 m_random;
};

RandomTree::RandomTree(unsigned int seed)
    : m_random(seed)
{
    const int count = pick(1, 12);
    for (int i = 0; i < count; ++i) {
        nodes.push_back(makeNode(i));
        const Node &node = nodes.back();
        if (node.parent >= 0)
            nodes[node.parent].figure->add(node.figure.get());
    }
    // Last, as a figure moves those below it that share its coordinates.
    for (Node &node : nodes)
        node.bounds = node.figure->getBounds();
}

RandomTree::Node RandomTree::makeNode(int index)
{
    Node node;
    node.parent = index == 0 ? -1 : pick(std::max(0, index - 3), index - 1);
    node.relative = pick(0, 3) != 0;
    node.figure = std::make_unique<ParentFigure>(node.relative);
    node.margin = pick(0, 2) == 0 ? pick(1, 9) : 0;
    node.figure->setMargin(node.margin);
    if (pick(0, 1) == 0) {
        node.top = pick(0, 9);
        node.left = pick(0, 9);
        node.border = std::make_unique<SimpleBorder>(nullptr, 0);
        node.border->setInsets(Insets(node.top, node.left, pick(0, 9), pick(0, 9)));
        node.figure->setBorder(node.border.get());
    }
    if (pick(0, 7) != 0)
        node.figure->setBounds(QRect(pick(-500, 500), pick(-500, 500), pick(1, 300), pick(1, 300)));
    return node;
}

int RandomTree::pick(int lowest, int highest)
{
    return lowest + int(m_random() % unsigned(highest - lowest + 1));
}

QPoint RandomTree::childOffset(const Node &node) const
{
    if (!node.relative || node.bounds.isEmpty())
        return QPoint(0, 0);
    return node.bounds.topLeft() + QPoint(node.margin + node.left, node.margin + node.top);
}

QPoint RandomTree::absoluteOffset(const Node &node) const
{
    QPoint offset;
    for (int i = node.parent; i >= 0; i = nodes[i].parent)
        offset += childOffset(nodes[i]);
    return offset;
}

/// What stands for each of the four types in the same test.
template<typename T>
struct Sample;

template<>
struct Sample<QPoint>
{
    static QPoint value() { return QPoint(123, -456); }
    static QPoint moved(const QPoint &offset) { return value() + offset; }
};

template<>
struct Sample<QPointF>
{
    static QPointF value() { return QPointF(123.25, -456.5); }
    static QPointF moved(const QPoint &offset) { return value() + QPointF(offset); }
};

template<>
struct Sample<QRect>
{
    static QRect value() { return QRect(123, -456, 78, 90); }
    static QRect moved(const QPoint &offset) { return value().translated(offset); }
};

template<>
struct Sample<QRectF>
{
    static QRectF value() { return QRectF(123.25, -456.5, 78.75, 90.125); }
    static QRectF moved(const QPoint &offset) { return value().translated(QPointF(offset)); }
};

template<typename T>
void checkNode(const RandomTree &tree, const RandomTree::Node &node)
{
    const QPoint toParent = tree.childOffset(node);
    const QPoint toAbsolute = tree.absoluteOffset(node);
    Figure *figure = node.figure.get();

    T value = Sample<T>::value();
    QCOMPARE(figure->translateToParent(value), Sample<T>::moved(toParent));
    QCOMPARE(figure->translateFromParent(value), Sample<T>::value());
    QCOMPARE(figure->translateFromParent(value), Sample<T>::moved(-toParent));

    value = Sample<T>::value();
    QCOMPARE(figure->translateToAbsolute(value), Sample<T>::moved(toAbsolute));
    QCOMPARE(figure->translateToRelative(value), Sample<T>::value());
    QCOMPARE(figure->translateToRelative(value), Sample<T>::moved(-toAbsolute));
}

template<typename T>
void checkTrees()
{
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        const RandomTree tree(seed);
        for (const RandomTree::Node &node : tree.nodes) {
            checkNode<T>(tree, node);
            if (QTest::currentTestFailed()) {
                qInfo("in the tree of seed %u", seed);
                return;
            }
        }
    }
}

/// Both translations that a single figure makes, for any of the types.
template<typename T>
void checkOffset(Figure &figure, const QPoint &offset)
{
    T value = Sample<T>::value();
    QCOMPARE(&figure.translateToParent(value), &value);
    QCOMPARE(value, Sample<T>::moved(offset));

    value = Sample<T>::value();
    QCOMPARE(&figure.translateFromParent(value), &value);
    QCOMPARE(value, Sample<T>::moved(-offset));
}

void checkOffsetOfEachType(Figure &figure, const QPoint &offset)
{
    checkOffset<QPoint>(figure, offset);
    checkOffset<QPointF>(figure, offset);
    checkOffset<QRect>(figure, offset);
    checkOffset<QRectF>(figure, offset);
}

} // namespace

class tst_Figure_Coordinates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void childOffsetIsTheCornerOfTheClientArea();
    void figureWithoutALayoutShiftsToo();
    void leftInsetCountsThoughTheClientAreaUsesTheRightOne();
    void nonRelativeLayoutSharesTheCoordinates();
    void invalidBoundsChangeNothing_data();
    void invalidBoundsChangeNothing();
    void boundsAndMarginAreAskedVirtually();
    void rootCoordinatesAreAbsolute();
    void absoluteTranslationLeavesTheOwnOffsetOut();
    void translationsReturnTheirArgument();
    void sizesOfRectanglesAreKeptEvenWhenInvalid();
    void overridesOfTheAncestorsTakePart();
    void randomTreesEqualANaiveModelForPoints();
    void randomTreesEqualANaiveModelForFloatingPoints();
    void randomTreesEqualANaiveModelForRectangles();
    void randomTreesEqualANaiveModelForFloatingRectangles();
};

void tst_Figure_Coordinates::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Figure_Coordinates::childOffsetIsTheCornerOfTheClientArea()
{
    SimpleBorder border(nullptr, 5);
    ParentFigure figure;
    figure.setBounds(QRect(100, 200, 50, 60));
    checkOffsetOfEachType(figure, QPoint(100, 200));

    figure.setMargin(7);
    checkOffsetOfEachType(figure, QPoint(107, 207));

    figure.setBorder(&border);
    checkOffsetOfEachType(figure, QPoint(112, 212));
    QCOMPARE(figure.getClientArea().topLeft(), QPoint(112, 212));
}

void tst_Figure_Coordinates::figureWithoutALayoutShiftsToo()
{
    Figure figure;

    figure.setBounds(QRect(100, 200, 50, 60));

    checkOffsetOfEachType(figure, QPoint(100, 200));
}

// Not crossed over here: with unequal insets the children's origin is not the client area's corner.
void tst_Figure_Coordinates::leftInsetCountsThoughTheClientAreaUsesTheRightOne()
{
    SimpleBorder border(nullptr, 0);
    border.setInsets(Insets(1, 2, 3, 4));
    ParentFigure figure;
    figure.setBounds(QRect(100, 200, 50, 60));

    figure.setBorder(&border);

    checkOffsetOfEachType(figure, QPoint(102, 201));
    QCOMPARE(figure.getClientArea().topLeft(), QPoint(104, 201));
}

void tst_Figure_Coordinates::nonRelativeLayoutSharesTheCoordinates()
{
    SimpleBorder border(nullptr, 5);
    ParentFigure figure(false);
    figure.setMargin(7);
    figure.setBorder(&border);

    figure.setBounds(QRect(100, 200, 50, 60));

    checkOffsetOfEachType(figure, QPoint(0, 0));
}

void tst_Figure_Coordinates::invalidBoundsChangeNothing_data()
{
    QTest::addColumn<QRect>("bounds");

    QTest::newRow("none") << QRect();
    QTest::newRow("no height") << QRect(10, 20, 5, 0);
}

void tst_Figure_Coordinates::invalidBoundsChangeNothing()
{
    QFETCH(QRect, bounds);
    SimpleBorder border(nullptr, 5);
    ParentFigure figure;
    figure.setMargin(7);
    figure.setBorder(&border);
    figure.setMaximumSize(QSize(0, 0));

    QTest::ignoreMessage(QtDebugMsg, "Figure::resolveBounds(): resolved bounds still invalid");
    figure.setBounds(bounds);

    checkOffsetOfEachType(figure, QPoint(0, 0));
}

void tst_Figure_Coordinates::boundsAndMarginAreAskedVirtually()
{
    class Elsewhere : public Figure
    {
    public:
        QRect getBounds() override { return QRect(1000, 2000, 10, 10); }
        int getMargin() const override { return 40; }
    };
    Elsewhere figure;

    checkOffsetOfEachType(figure, QPoint(1040, 2040));
}

void tst_Figure_Coordinates::rootCoordinatesAreAbsolute()
{
    ParentFigure root;
    root.setMargin(7);
    root.setBounds(QRect(100, 200, 50, 60));
    QPoint point(1, 2);

    QCOMPARE(root.translateToAbsolute(point), QPoint(1, 2));
    QCOMPARE(root.translateToRelative(point), QPoint(1, 2));
}

void tst_Figure_Coordinates::absoluteTranslationLeavesTheOwnOffsetOut()
{
    ParentFigure root;
    ParentFigure child;
    Figure grandchild;
    root.add(&child);
    child.add(&grandchild);
    root.setBounds(QRect(100, 200, 50, 60));
    child.setBounds(QRect(10, 20, 50, 60));
    grandchild.setBounds(QRect(1, 2, 50, 60));
    QRect ofChild = child.getBounds();
    QRect ofGrandchild = grandchild.getBounds();

    child.translateToAbsolute(ofChild);
    grandchild.translateToAbsolute(ofGrandchild);

    QCOMPARE(ofChild, QRect(110, 220, 50, 60));
    QCOMPARE(ofGrandchild, QRect(111, 222, 50, 60));
}

void tst_Figure_Coordinates::translationsReturnTheirArgument()
{
    ParentFigure root;
    Figure child;
    root.add(&child);
    root.setBounds(QRect(100, 200, 50, 60));
    QPoint point;
    QPointF pointF;
    QRect rect;
    QRectF rectF;

    QCOMPARE(&child.translateToAbsolute(point), &point);
    QCOMPARE(&child.translateToAbsolute(pointF), &pointF);
    QCOMPARE(&child.translateToAbsolute(rect), &rect);
    QCOMPARE(&child.translateToAbsolute(rectF), &rectF);
    QCOMPARE(&child.translateToRelative(point), &point);
    QCOMPARE(&child.translateToRelative(pointF), &pointF);
    QCOMPARE(&child.translateToRelative(rect), &rect);
    QCOMPARE(&child.translateToRelative(rectF), &rectF);
}

void tst_Figure_Coordinates::sizesOfRectanglesAreKeptEvenWhenInvalid()
{
    ParentFigure root;
    Figure child;
    root.add(&child);
    root.setBounds(QRect(100, 200, 50, 60));
    QRect rect(1, 2, -3, 0);
    QRectF rectF(1, 2, -3, 0);

    QCOMPARE(child.translateToAbsolute(rect), QRect(101, 202, -3, 0));
    QCOMPARE(child.translateToAbsolute(rectF), QRectF(101, 202, -3, 0));
}

void tst_Figure_Coordinates::overridesOfTheAncestorsTakePart()
{
    class Scaling : public ParentFigure
    {
    public:
        using ParentFigure::translateFromParent;
        using ParentFigure::translateToParent;
        QPoint &translateToParent(QPoint &point) override { return point *= 2; }
        QPoint &translateFromParent(QPoint &point) override { return point /= 2; }
    };
    ParentFigure root;
    Scaling scaling;
    Figure child;
    root.add(&scaling);
    scaling.add(&child);
    root.setBounds(QRect(100, 200, 50, 60));
    QPoint point(3, 4);

    QCOMPARE(child.translateToAbsolute(point), QPoint(106, 208));
    QCOMPARE(child.translateToRelative(point), QPoint(3, 4));
}

void tst_Figure_Coordinates::randomTreesEqualANaiveModelForPoints()
{
    checkTrees<QPoint>();
}

void tst_Figure_Coordinates::randomTreesEqualANaiveModelForFloatingPoints()
{
    checkTrees<QPointF>();
}

void tst_Figure_Coordinates::randomTreesEqualANaiveModelForRectangles()
{
    checkTrees<QRect>();
}

void tst_Figure_Coordinates::randomTreesEqualANaiveModelForFloatingRectangles()
{
    checkTrees<QRectF>();
}

QTEST_MAIN(tst_Figure_Coordinates)
#include "tst_figure_coordinates.moc"
