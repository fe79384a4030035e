#include <figura/Figura.h>

#include <QPropertyAnimation>
#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;

class tst_PropertyAnimation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void animationMovesPropertyHalfwayAndToItsEnd_data();
    void animationMovesPropertyHalfwayAndToItsEnd();
    void animatedBoundsMoveTheFigureLikeItsSetter();
    void animatedColourAsksForRepaint();
    void animatedAnchorTakesItsConnectionAlong();
    void animatedScaleIsAnnounced();
};

void tst_PropertyAnimation::animationMovesPropertyHalfwayAndToItsEnd_data()
{
    QTest::addColumn<QObject *>("object");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("from");
    QTest::addColumn<QVariant>("half");
    QTest::addColumn<QVariant>("to");

    const auto row = [](QObject *object, const char *property, const QVariant &from,
                        const QVariant &half, const QVariant &to) {
        QTest::addRow("%s::%s", object->metaObject()->className(), property)
            << object << QByteArray(property) << from << half << to;
    };
    auto *figure = new Figure(this);
    row(figure, "bounds", QRect(0, 0, 10, 10), QRect(10, 20, 30, 10), QRect(20, 40, 50, 10));
    row(figure, "backgroundColor", QColor(0, 0, 0), QColor(100, 50, 10), QColor(200, 100, 20));
    row(figure, "margin", 0, 4, 8);
    auto *rectangle = new RoundedRectangle(this);
    row(rectangle, "lineWidth", 1, 3, 5);
    row(rectangle, "enabledBGColor", QColor(0, 0, 0), QColor(50, 50, 50), QColor(100, 100, 100));
    row(rectangle, "xRnd", 0, 20, 40);
    auto *polyline = new Polyline(this);
    polyline->setLinePoints({QPoint(), QPoint()});
    row(polyline, "start", QPoint(0, 0), QPoint(5, 10), QPoint(10, 20));
    auto *smooth = new PolylineF(this);
    smooth->setLinePoints({QPointF(), QPointF()});
    row(smooth, "end", QPointF(0, 0), QPointF(0.25, 0.5), QPointF(0.5, 1));
    row(new XYAnchor(QPoint(), this), "location", QPoint(0, 0), QPoint(4, 4), QPoint(8, 8));
    row(new AbsoluteBendpoint(this), "location", QPoint(0, 0), QPoint(4, 4), QPoint(8, 8));
    row(new RelativeBendpoint(this), "weight", 0.0F, 0.25F, 0.5F);
    row(new HBoxLayout(this), "spacing", 2, 4, 6);
    row(new SimpleBorder(this), "color", QColor(0, 0, 0), QColor(10, 10, 10), QColor(20, 20, 20));
}

// By setting the time, so that the clock of the machine has no say.
void tst_PropertyAnimation::animationMovesPropertyHalfwayAndToItsEnd()
{
    QFETCH(QObject *, object);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, from);
    QFETCH(QVariant, half);
    QFETCH(QVariant, to);
    QPropertyAnimation animation(object, property);
    animation.setDuration(1000);
    animation.setStartValue(from);
    animation.setEndValue(to);

    animation.start();
    animation.pause();
    QCOMPARE(object->property(property.constData()), from);
    animation.setCurrentTime(500);
    QCOMPARE(object->property(property.constData()), half);
    animation.setCurrentTime(1000);

    QCOMPARE(object->property(property.constData()), to);
}

void tst_PropertyAnimation::animatedBoundsMoveTheFigureLikeItsSetter()
{
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    parent.setBounds(QRect(0, 0, 200, 200));
    auto *child = new Figure(&parent);
    parent.add(child, QRect(0, 0, 10, 10));
    parent.validate();
    QSignalSpy moved(child, &Figure::figureMoved);
    QPropertyAnimation animation(child, "bounds");
    animation.setDuration(100);
    animation.setEndValue(QRect(100, 0, 10, 10));

    animation.start();
    animation.pause();
    animation.setCurrentTime(50);

    QCOMPARE(moved.count(), 1);
    QCOMPARE(child->getBounds(), QRect(50, 0, 10, 10));
    QCOMPARE(parent.getLayoutManager()->getConstraint(child).toRect(), QRect(50, 0, 10, 10));
}

namespace {

/// Counts the repaints that a colour asks for.
class WatchedFigure : public Figure
{
public:
    int repaints = 0;

    using Figure::repaint;
    void repaint() override { ++repaints; }
};

} // namespace

void tst_PropertyAnimation::animatedColourAsksForRepaint()
{
    WatchedFigure figure;
    QPropertyAnimation animation(&figure, "backgroundColor");
    animation.setDuration(100);
    animation.setStartValue(QColor(Qt::black));
    animation.setEndValue(QColor(Qt::white));

    animation.start();
    animation.pause();
    const int before = figure.repaints;
    animation.setCurrentTime(50);

    QCOMPARE(figure.repaints, before + 1);
}

void tst_PropertyAnimation::animatedAnchorTakesItsConnectionAlong()
{
    XYAnchor source;
    XYAnchor target(QPoint(100, 100));
    Figure root;
    root.setLayoutManager(new FreeformLayout(&root));
    auto *connection = new PolylineConnection(&root);
    root.add(connection);
    connection->setSourceAnchor(&source);
    connection->setTargetAnchor(&target);
    root.addNotify();
    QPropertyAnimation animation(&source, "location");
    animation.setDuration(100);
    animation.setEndValue(QPoint(40, 20));

    animation.start();
    animation.pause();
    animation.setCurrentTime(50);
    root.validate();

    QCOMPARE(connection->getStart(), QPoint(20, 10));
}

void tst_PropertyAnimation::animatedScaleIsAnnounced()
{
    FreeformLayeredPane pane;
    auto *layer = new FreeformLayer(&pane);
    pane.addLayer(layer, QStringLiteral("figures"));
    layer->add(new Figure(layer), QRect(0, 0, 100, 100));
    FreeformViewer viewer;
    viewer.setContent(&pane);
    QSignalSpy announced(&viewer, &FreeformViewer::scaleChanged);
    QPropertyAnimation animation(&viewer, "scale");
    animation.setDuration(100);
    animation.setStartValue(1.0);
    animation.setEndValue(2.0);

    animation.start();
    animation.pause();
    animation.setCurrentTime(50);

    QCOMPARE(viewer.getScale(), 1.5);
    QCOMPARE(announced.last().first().toDouble(), 1.5);
}

QTEST_MAIN(tst_PropertyAnimation)
#include "tst_property_animation.moc"
