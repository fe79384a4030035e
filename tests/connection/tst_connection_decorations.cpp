#include "connection_fixtures.h"

#include <figura/decoration/ArrowLocator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

QByteArray warning(const QString &className, bool atSource)
{
    return QStringLiteral("%1::%2(): decoration not a figure")
        .arg(className, atSource ? QStringLiteral("setSourceDecoration")
                                 : QStringLiteral("setTargetDecoration"))
        .toLatin1();
}

void expectWarning(const QString &className, bool atSource)
{
    QTest::ignoreMessage(QtWarningMsg, warning(className, atSource).constData());
}

void deleteLeftovers()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Everything a figure can be asked, answered by a figure that it is not derived from.
class DecorationWithoutAFigure : public IRotatableDecoration
{
public:
    Border *getBorder() const override { return nullptr; }
    void setBorder(Border *) override {}
    QSize getMinimumSize() override { return QSize(); }
    bool setMinimumSize(const QSize &) override { return false; }
    QSize getMaximumSize() override { return QSize(); }
    bool setMaximumSize(const QSize &) override { return false; }
    QSize getPreferredSize() override { return QSize(); }
    bool setPreferredSize(const QSize &) override { return false; }
    int getMargin() const override { return 0; }
    void setMargin(int) override {}
    QRect getClientArea() override { return QRect(); }
    QRect calculateContentRect(const QRect &rect) override { return rect; }
    QRect getBounds() override { return QRect(); }
    void setBounds(const QRect &) override {}
    QRect getBoundingRect() override { return QRect(); }
    bool isEnabled() const override { return false; }
    void setEnabled(bool) override {}
    bool isVisible() const override { return false; }
    void setVisible(bool) override {}
    QColor getBackgroundColor() override { return QColor(); }
    void setBackgroundColor(const QColor &) override {}
    Figure *getTooltip() const override { return nullptr; }
    void setTooltip(Figure *) override {}
    void addNotify() override {}
    void removeNotify() override {}
    Figure *getParentFigure() const override { return nullptr; }
    void setParentFigure(Figure *) override {}
    Layout *getLayoutManager() const override { return nullptr; }
    Layout *setLayoutManager(Layout *) override { return nullptr; }
    UpdateManager *getUpdateManager() const override { return nullptr; }
    bool add(Figure *, const QVariant &, int) override { return false; }
    bool add(Figure *, unsigned int, unsigned int, int) override { return false; }
    bool remove(Figure *) override { return false; }
    QList<Figure *> childFigures() override { return {}; }
    int childFigureCount() const override { return 0; }
    Figure *findFigureAt(const QPoint &) const override { return nullptr; }
    Figure *findFigureAt(int, int, const ITreeSearch &) const override { return nullptr; }
    Figure *findFigureAt(int, int) const override { return nullptr; }
    void findFigures(QList<Figure *> &, const QRect &, const ITreeSearch &, bool) const override {}
    QList<Figure *> findFigures(const QRect &, bool) override { return {}; }
    Figure *findFigureAtExcluding(int, int, const QList<Figure *> &) const override
    {
        return nullptr;
    }
    bool contains(const QPoint &) const override { return false; }
    bool isContained(const QRect &) const override { return false; }
    bool isIntersecting(const QRect &) const override { return false; }
    Qt::Orientations expandingDirections() override { return {}; }
    void setExpandingDirections(Qt::Orientations) override {}
    void render(QPainter *, const QStyleOptionViewItem &) override {}
    void invalidate() override {}
    void validate() override {}
    void translate(int, int) override {}
    QPointF &translateFromParent(QPointF &point) override { return point; }
    QRectF &translateFromParent(QRectF &rect) override { return rect; }
    QPoint &translateFromParent(QPoint &point) override { return point; }
    QRect &translateFromParent(QRect &rect) override { return rect; }
    QPointF &translateToParent(QPointF &point) override { return point; }
    QRectF &translateToParent(QRectF &rect) override { return rect; }
    QPoint &translateToParent(QPoint &point) override { return point; }
    QRect &translateToParent(QRect &rect) override { return rect; }
    QPointF &translateToAbsolute(QPointF &point) override { return point; }
    QRectF &translateToAbsolute(QRectF &rect) override { return rect; }
    QPoint &translateToAbsolute(QPoint &point) override { return point; }
    QRect &translateToAbsolute(QRect &rect) override { return rect; }
    QPointF &translateToRelative(QPointF &point) override { return point; }
    QRectF &translateToRelative(QRectF &rect) override { return rect; }
    QPoint &translateToRelative(QPoint &point) override { return point; }
    QRect &translateToRelative(QRect &rect) override { return rect; }
    void addAncestorListener(IAncestorListener *) override {}
    void removeAncestorListener(IAncestorListener *) override {}
    void addPropertyChangeListener(IPropertyChangeListener *) override {}
    void removePropertyChangeListener(IPropertyChangeListener *) override {}
    void erase() override {}
    void revalidate() override {}
    void repaint(const QRect &) override {}
    void repaint(int, int, int, int) override {}
    void repaint() override {}
    void setLocation(const QPointF &) override {}
    void setLocation(const QPoint &) override {}
    void setReferencePoint(const QPointF &) override {}
    void setReferencePoint(const QPoint &) override {}
};

} // namespace

class tst_ConnectionDecorations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newConnectionHasNoDecorations_data() { addConnectionEndRows(); }
    void newConnectionHasNoDecorations();
    void decorationBecomesTheLastChild_data() { addConnectionEndRows(); }
    void decorationBecomesTheLastChild();
    void decorationOwnsAnArrowLocatorOfItsEnd_data() { addConnectionEndRows(); }
    void decorationOwnsAnArrowLocatorOfItsEnd();
    void decorationPointsAlongItsEndOfTheLine_data() { addConnectionEndRows(); }
    void decorationPointsAlongItsEndOfTheLine();
    void bothEndsAreDecoratedIndependently_data() { addConnectionClassRows(); }
    void bothEndsAreDecoratedIndependently();
    void replacedDecorationIsRemovedAndDeletedLater_data() { addConnectionEndRows(); }
    void replacedDecorationIsRemovedAndDeletedLater();
    void sameDecorationStays_data() { addConnectionEndRows(); }
    void sameDecorationStays();
    void nullRemovesDeletesAndWarns_data() { addConnectionEndRows(); }
    void nullRemovesDeletesAndWarns();
    void nullWithoutADecorationDoesNothing_data() { addConnectionEndRows(); }
    void nullWithoutADecorationDoesNothing();
    void decorationThatIsNoFigureIsStoredWithAWarning_data() { addConnectionEndRows(); }
    void decorationThatIsNoFigureIsStoredWithAWarning();
    void decorationThatIsNoFigureIsReplacedWithoutBeingDeleted_data() { addConnectionEndRows(); }
    void decorationThatIsNoFigureIsReplacedWithoutBeingDeleted();
    void decorationGoesWithItsConnection_data() { addConnectionEndRows(); }
    void decorationGoesWithItsConnection();
    void decorationWithAParentObjectStaysWhenTheConnectionGoes_data() { addConnectionEndRows(); }
    void decorationWithAParentObjectStaysWhenTheConnectionGoes();
    void decorationCountsForTheBounds_data() { addConnectionEndRows(); }
    void decorationCountsForTheBounds();
    void deletedDecorationIsForgotten_data() { addConnectionEndRows(); }
    void deletedDecorationIsForgotten();
};

void tst_ConnectionDecorations::newConnectionHasNoDecorations()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);

    AnyConnectionPointer wire = makeConnection(className);

    QVERIFY(!wire->decoration(atSource));
    QCOMPARE(wire->figure().childFigureCount(), 0);
}

void tst_ConnectionDecorations::decorationBecomesTheLastChild()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    AnyConnectionPointer wire = makeConnection(className);
    Figure label;
    wire->figure().add(&label);
    auto *arrow = new PolygonDecoration(this);

    wire->setDecoration(atSource, arrow);

    QCOMPARE(wire->decoration(atSource), arrow);
    QVERIFY(!wire->decoration(!atSource));
    QCOMPARE(wire->figure().childFigures(), QList<Figure *>({&label, arrow}));
    QCOMPARE(arrow->parent(), this); // the parent object is the application's affair
    wire.reset();
    delete arrow;
}

void tst_ConnectionDecorations::decorationOwnsAnArrowLocatorOfItsEnd()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    AnyConnectionPointer wire = makeConnection(className);
    auto *arrow = new PolygonDecoration(nullptr);

    wire->setDecoration(atSource, arrow);

    const auto *locator = arrow->findChild<ArrowLocator *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(locator);
    QCOMPARE(locator->getAlignment(),
             atSource ? ConnectionLocator::SOURCE : ConnectionLocator::TARGET);
    wire.reset();
    deleteLeftovers();
}

void tst_ConnectionDecorations::decorationPointsAlongItsEndOfTheLine()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    DisplayedTree tree;
    AnyConnectionPointer wire = makeConnection(className);
    PolylineDecoration arrow(nullptr);
    arrow.setTemplate({{-10, 0}, {0, 0}});
    arrow.setScale(1, 1);
    tree.root.add(&wire->figure());
    wire->connection().setPoints({{10, 20}, {50, 20}, {50, 90}});
    wire->setDecoration(atSource, &arrow);

    tree.root.validate();

    const QList<QPoint> atStart{{20, 20}, {10, 20}};
    const QList<QPoint> atEnd{{50, 80}, {50, 90}};
    QCOMPARE(arrow.getLinePoints(), atSource ? atStart : atEnd);
    wire.reset();
}

void tst_ConnectionDecorations::bothEndsAreDecoratedIndependently()
{
    QFETCH(QString, className);
    AnyConnectionPointer wire = makeConnection(className);
    auto *source = new PolygonDecoration(nullptr);
    auto *target = new PolygonDecoration(nullptr);

    wire->setDecoration(true, source);
    wire->setDecoration(false, target);

    QCOMPARE(wire->figure().childFigures(), QList<Figure *>({source, target}));
    QCOMPARE(wire->decoration(true), source);
    QCOMPARE(wire->decoration(false), target);
    wire.reset();
    deleteLeftovers();
}

void tst_ConnectionDecorations::replacedDecorationIsRemovedAndDeletedLater()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    AnyConnectionPointer wire = makeConnection(className);
    QPointer<PolygonDecoration> former = new PolygonDecoration(nullptr);
    auto *next = new PolygonDecoration(nullptr);
    wire->setDecoration(atSource, former);

    wire->setDecoration(atSource, next);

    QVERIFY(former);
    QCOMPARE(wire->figure().childFigures(), QList<Figure *>{next});
    deleteLeftovers();
    QVERIFY(!former);
    wire.reset();
    deleteLeftovers();
}

void tst_ConnectionDecorations::sameDecorationStays()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    AnyConnectionPointer wire = makeConnection(className);
    QPointer<PolygonDecoration> arrow = new PolygonDecoration(nullptr);
    wire->setDecoration(atSource, arrow);

    wire->setDecoration(atSource, arrow);
    deleteLeftovers();

    QVERIFY(arrow);
    QCOMPARE(wire->figure().childFigures(), QList<Figure *>{arrow});
    QCOMPARE(arrow->findChildren<ArrowLocator *>().size(), 1);
    wire.reset();
    deleteLeftovers();
}

void tst_ConnectionDecorations::nullRemovesDeletesAndWarns()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    AnyConnectionPointer wire = makeConnection(className);
    QPointer<PolygonDecoration> arrow = new PolygonDecoration(nullptr);
    wire->setDecoration(atSource, arrow);

    expectWarning(className, atSource);
    wire->setDecoration(atSource, nullptr);

    QVERIFY(!wire->decoration(atSource));
    QCOMPARE(wire->figure().childFigureCount(), 0);
    QVERIFY(arrow);
    deleteLeftovers();
    QVERIFY(!arrow);
}

void tst_ConnectionDecorations::nullWithoutADecorationDoesNothing()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    AnyConnectionPointer wire = makeConnection(className);

    wire->setDecoration(atSource, nullptr);

    QCOMPARE(wire->figure().childFigureCount(), 0);
}

void tst_ConnectionDecorations::decorationThatIsNoFigureIsStoredWithAWarning()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    DecorationWithoutAFigure decoration;
    AnyConnectionPointer wire = makeConnection(className);

    expectWarning(className, atSource);
    wire->setDecoration(atSource, &decoration);

    QCOMPARE(wire->decoration(atSource), &decoration);
    QCOMPARE(wire->figure().childFigureCount(), 0);
}

void tst_ConnectionDecorations::decorationThatIsNoFigureIsReplacedWithoutBeingDeleted()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    DecorationWithoutAFigure decoration;
    AnyConnectionPointer wire = makeConnection(className);
    expectWarning(className, atSource);
    wire->setDecoration(atSource, &decoration);
    auto *arrow = new PolygonDecoration(nullptr);

    wire->setDecoration(atSource, arrow);
    deleteLeftovers();

    QCOMPARE(wire->decoration(atSource), arrow);
    QCOMPARE(wire->figure().childFigures(), QList<Figure *>{arrow});
    wire.reset();
    deleteLeftovers();
}

void tst_ConnectionDecorations::decorationGoesWithItsConnection()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    QPointer<PolygonDecoration> arrow = new PolygonDecoration(nullptr);
    AnyConnectionPointer wire = makeConnection(className);
    wire->setDecoration(atSource, arrow);

    wire.reset();

    QVERIFY(arrow);
    QVERIFY(!arrow->parent());
    deleteLeftovers();
    QVERIFY(!arrow);
}

void tst_ConnectionDecorations::decorationWithAParentObjectStaysWhenTheConnectionGoes()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    QObject parent;
    QPointer<PolygonDecoration> arrow = new PolygonDecoration(&parent);
    AnyConnectionPointer wire = makeConnection(className);
    wire->setDecoration(atSource, arrow);

    wire.reset();
    deleteLeftovers();

    QVERIFY(arrow);
}

void tst_ConnectionDecorations::decorationCountsForTheBounds()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    DisplayedTree tree;
    AnyConnectionPointer wire = makeConnection(className);
    PolylineDecoration arrow(nullptr);
    arrow.setTemplate({{-10, -20}, {0, 0}, {-10, 20}});
    arrow.setScale(1, 1);
    tree.root.add(&wire->figure());
    wire->connection().setPoints({{10, 100}, {60, 100}, {110, 100}});
    wire->setDecoration(atSource, &arrow);

    tree.root.validate();

    const QRect line(9, 99, 102, 2);
    QCOMPARE(wire->figure().getBounds(), line | arrow.getBounds().adjusted(-1, -1, 1, 1));
    QCOMPARE(wire->figure().getBounds().height(), 42);
    wire.reset();
}

void tst_ConnectionDecorations::deletedDecorationIsForgotten()
{
    QFETCH(QString, className);
    QFETCH(bool, atSource);
    DisplayedTree tree;
    AnyConnectionPointer wire = makeConnection(className);
    tree.root.add(&wire->figure());
    auto *arrow = new PolygonDecoration(nullptr);
    wire->setDecoration(atSource, arrow);

    delete arrow;
    tree.root.validate();
    auto *next = new PolygonDecoration(nullptr);
    wire->setDecoration(atSource, next);

    QCOMPARE(wire->figure().childFigures(), QList<Figure *>{next});
    wire.reset();
    deleteLeftovers();
}

QTEST_MAIN(tst_ConnectionDecorations)
#include "tst_connection_decorations.moc"
