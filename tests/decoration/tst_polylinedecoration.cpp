#include <figura/decoration/PolylineDecoration.h>
#include <figura/geometry/Transform.h>

#include <recordingdevice.h>

#include <QPalette>
#include <QStyleOptionViewItem>
#include <QTest>

#include <cmath>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;

namespace {

class OpenDecoration : public PolylineDecoration
{
public:
    using PolylineDecoration::getLocation;
    using PolylineDecoration::getTransform;
    using PolylineDecoration::PolylineDecoration;
};

// Counts how often its points are due, and can keep them to itself.
class CountingDecoration : public PolylineDecoration
{
public:
    int recalculations = 0;
    bool isIdle = false;

protected:
    void recalculatePoints() override
    {
        ++recalculations;
        if (!isIdle)
            PolylineDecoration::recalculatePoints();
    }
};

QList<PaintCall> paint(Figure &figure)
{
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 1000, 1000);
    option.palette = QPalette(Qt::white);
    option.palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::red);
    return record([&](QPainter *painter) { figure.render(painter, option); });
}

} // namespace

class tst_PolylineDecoration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newDecorationIsNotFilled();
    void constructorPassesItsParentOn();
    void headIsPaintedOpenInThePalettesColour();

    void everySetterRecalculatesThePoints();
    void equalTemplateDoesNotRecalculate();
    void constructorRecalculatesItsOwnWay();
    void overriddenRecalculationIsUsed();

    void locationIsRounded_data();
    void locationIsRounded();
    void locationIsStoredUnrounded();
    void transformMapsTheTemplate();
    void transformIsTheSameObjectThroughout();
};

void tst_PolylineDecoration::newDecorationIsNotFilled()
{
    const PolylineDecoration decoration;

    QVERIFY(!decoration.getFill());
    QVERIFY(!decoration.getEnabledBGColor().isValid());
    QVERIFY(!decoration.getEnabledFGColor().isValid());
    QCOMPARE(decoration.getLineWidth(), 1);
    QVERIFY(decoration.isVisible());
    QCOMPARE(decoration.parent(), nullptr);
}

void tst_PolylineDecoration::constructorPassesItsParentOn()
{
    QObject parent;
    const auto *decoration = new PolylineDecoration(&parent);

    QCOMPARE(decoration->parent(), &parent);
    QCOMPARE(decoration->getParentFigure(), nullptr);
}

void tst_PolylineDecoration::headIsPaintedOpenInThePalettesColour()
{
    PolylineDecoration decoration;
    decoration.addNotify();
    decoration.setLocation(QPoint(100, 50));

    const QList<PaintCall> calls = paint(decoration);

    QPainterPath expected(QPointF(93, 53));
    expected.lineTo(100, 50);
    expected.lineTo(93, 47);
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].path, expected);
    QCOMPARE(calls[0].brush.style(), Qt::NoBrush);
    QCOMPARE(calls[0].pen.color(), QColor(Qt::red));
}

void tst_PolylineDecoration::everySetterRecalculatesThePoints()
{
    CountingDecoration decoration;

    decoration.setLocation(QPoint(1, 2));
    QCOMPARE(decoration.recalculations, 1);
    decoration.setLocation(QPointF(1, 2));
    QCOMPARE(decoration.recalculations, 2);
    decoration.setReferencePoint(QPoint(1, 2));
    QCOMPARE(decoration.recalculations, 3);
    decoration.setReferencePoint(QPointF(1, 2));
    QCOMPARE(decoration.recalculations, 4);
    decoration.setRotation(0);
    QCOMPARE(decoration.recalculations, 5);
    decoration.setScale(7, 3);
    QCOMPARE(decoration.recalculations, 6);
    decoration.setTemplate({{0, 0}});
    QCOMPARE(decoration.recalculations, 7);
}

void tst_PolylineDecoration::equalTemplateDoesNotRecalculate()
{
    CountingDecoration decoration;

    decoration.setTemplate({{-1, 1}, {0, 0}, {-1, -1}});

    QCOMPARE(decoration.recalculations, 0);
}

// An override is not reached before its own class is constructed.
void tst_PolylineDecoration::constructorRecalculatesItsOwnWay()
{
    CountingDecoration decoration;

    QCOMPARE(decoration.recalculations, 0);
    QCOMPARE(decoration.getLinePoints(), (Points{{-7, 3}, {0, 0}, {-7, -3}}));
}

void tst_PolylineDecoration::overriddenRecalculationIsUsed()
{
    CountingDecoration decoration;
    decoration.isIdle = true;

    decoration.setLocation(QPoint(100, 50));
    QCOMPARE(decoration.getLinePoints(), (Points{{-7, 3}, {0, 0}, {-7, -3}}));
    decoration.isIdle = false;
    decoration.setRotation(0);

    QCOMPARE(decoration.getLinePoints(), (Points{{93, 53}, {100, 50}, {93, 47}}));
}

void tst_PolylineDecoration::locationIsRounded_data()
{
    QTest::addColumn<QPointF>("location");
    QTest::addColumn<QPoint>("rounded");
    QTest::newRow("whole") << QPointF(3, -4) << QPoint(3, -4);
    QTest::newRow("halves go away from zero") << QPointF(2.5, -2.5) << QPoint(3, -3);
    QTest::newRow("less than half") << QPointF(2.4, -2.4) << QPoint(2, -2);
}

void tst_PolylineDecoration::locationIsRounded()
{
    QFETCH(QPointF, location);
    QFETCH(QPoint, rounded);
    OpenDecoration decoration;
    QCOMPARE(decoration.getLocation(), QPoint(0, 0));

    decoration.setLocation(location);

    QCOMPARE(decoration.getLocation(), rounded);
}

// 0.4 short of the reference, where a rounded location would lie beyond it.
void tst_PolylineDecoration::locationIsStoredUnrounded()
{
    OpenDecoration decoration;
    decoration.setLocation(QPointF(9.6, 0));

    decoration.setReferencePoint(QPointF(9.8, 0));

    QCOMPARE(decoration.getLinePoints(), (Points{{17, -3}, {10, 0}, {17, 3}}));
}

void tst_PolylineDecoration::transformMapsTheTemplate()
{
    OpenDecoration decoration;

    QCOMPARE(decoration.getTransform().getTransformed(QPoint(-1, 1)), QPoint(-7, 3));
    decoration.setLocation(QPointF(100, 50));
    decoration.setRotation(std::acos(-1.0) / 2);
    decoration.setScale(10, 2);
    QCOMPARE(decoration.getTransform().getTransformed(QPoint(-1, 1)), QPoint(98, 40));
}

void tst_PolylineDecoration::transformIsTheSameObjectThroughout()
{
    OpenDecoration decoration;
    const Transform *transform = &decoration.getTransform();

    decoration.setLocation(QPoint(100, 50));

    QCOMPARE(&decoration.getTransform(), transform);
}

QTEST_MAIN(tst_PolylineDecoration)
#include "tst_polylinedecoration.moc"
