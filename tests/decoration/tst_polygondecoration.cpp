#include <figura/decoration/PolygonDecoration.h>

#include <recordingdevice.h>

#include <QPalette>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;

namespace {

QStyleOptionViewItem optionWithPalette()
{
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 1000, 1000);
    option.palette = QPalette(Qt::white);
    option.palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::red);
    option.palette.setColor(QPalette::Disabled, QPalette::Button, Qt::blue);
    return option;
}

// Attached, so that it has its path, with the tip at (100, 50) and the body at its left.
class ReadyDecoration : public PolygonDecoration
{
public:
    ReadyDecoration()
    {
        addNotify();
        setLocation(QPoint(100, 50));
    }

    QList<PaintCall> paint()
    {
        return record([this](QPainter *painter) { render(painter, optionWithPalette()); });
    }
};

QPainterPath headPath()
{
    QPainterPath path(QPointF(93, 53));
    path.lineTo(100, 50);
    path.lineTo(93, 47);
    path.closeSubpath();
    return path;
}

} // namespace

class tst_PolygonDecoration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newDecorationIsFilledBlack();
    void constructorPassesItsParentOn();
    void outlineIsClosed();
    void headIsPaintedBlackWithThePalettesOutline();
    void disabledHeadIsPaintedInTheDisabledForeground();
    void insideIsHitAndOutsideIsMissed();
    void detachedHeadKeepsItsEmptyPath();
};

void tst_PolygonDecoration::newDecorationIsFilledBlack()
{
    const PolygonDecoration decoration;

    QVERIFY(decoration.getFill());
    QCOMPARE(decoration.getEnabledBGColor(), QColor(Qt::black));
    QVERIFY(!decoration.getEnabledFGColor().isValid());
    QVERIFY(!decoration.getDisabledFGColor().isValid());
    QCOMPARE(decoration.getLineWidth(), 1);
    QVERIFY(decoration.isVisible());
    QCOMPARE(decoration.parent(), nullptr);
}

void tst_PolygonDecoration::constructorPassesItsParentOn()
{
    QObject parent;
    const auto *decoration = new PolygonDecoration(&parent);

    QCOMPARE(decoration->parent(), &parent);
    QCOMPARE(decoration->getParentFigure(), nullptr);
}

void tst_PolygonDecoration::outlineIsClosed()
{
    ReadyDecoration decoration;

    const QList<PaintCall> calls = callsOfKind(decoration.paint(), PaintCall::Path);

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].path, headPath());
}

void tst_PolygonDecoration::headIsPaintedBlackWithThePalettesOutline()
{
    ReadyDecoration decoration;

    const QList<PaintCall> calls = decoration.paint();

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].brush, QBrush(Qt::black, Qt::SolidPattern));
    QCOMPARE(calls[0].pen.color(), QColor(Qt::red));
}

// As every shape: the disabled background is stored, but the foreground fills.
void tst_PolygonDecoration::disabledHeadIsPaintedInTheDisabledForeground()
{
    ReadyDecoration decoration;
    decoration.setEnabled(false);

    const QList<PaintCall> calls = decoration.paint();

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].brush, QBrush(Qt::blue, Qt::SolidPattern));
    QCOMPARE(calls[0].pen.color(), QColor(Qt::blue));
}

void tst_PolygonDecoration::insideIsHitAndOutsideIsMissed()
{
    const ReadyDecoration decoration;

    QVERIFY(decoration.contains(QPoint(95, 50)));
    QVERIFY(!decoration.contains(QPoint(98, 53)));
    QVERIFY(!decoration.contains(QPoint(90, 50)));
}

void tst_PolygonDecoration::detachedHeadKeepsItsEmptyPath()
{
    PolygonDecoration decoration;

    decoration.setLocation(QPoint(100, 50));

    QCOMPARE(decoration.getLinePoints(), (Points{{93, 53}, {100, 50}, {93, 47}}));
    QVERIFY(!decoration.contains(QPoint(95, 50)));
    QCOMPARE(decoration.getBounds(), QRect(0, 0, 0, 0));
}

QTEST_MAIN(tst_PolygonDecoration)
#include "tst_polygondecoration.moc"
