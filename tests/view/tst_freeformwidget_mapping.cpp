#include "scene.h"

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// A scene at a scale, with its point at origin at (-50, -50).
class ScaledScene : public Scene
{
public:
    explicit ScaledScene(double scale)
    {
        QPoint topLeft;
        pane.extent = QRect(0, 0, 2000, 1500);
        viewer.setScale(scale, &topLeft);
    }
};

} // namespace

class tst_FreeformWidgetMapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void mappingIsTheIdentityAtFirst();
    void widgetPointIsDividedByTheScaleAndMovedByTheOrigin_data();
    void widgetPointIsDividedByTheScaleAndMovedByTheOrigin();
    void rectanglesAreMappedAsTheirCorners();
    void mappingThereAndBackIsTheIdentity();
    void pointAtOriginMovesTheMapping();
    void pointAtOriginKeepsTheScale();
    void newPointAtOriginRepaints();
    void fractionsAreKept();
    void viewOptionsComeFromTheWidget();
};

void tst_FreeformWidgetMapping::mappingIsTheIdentityAtFirst()
{
    FreeformWidget widget(nullptr);

    QCOMPARE(widget.toLogical(QPointF(3.5, -7)), QPointF(3.5, -7));
    QCOMPARE(widget.fromLogical(QPointF(3.5, -7)), QPointF(3.5, -7));
    QCOMPARE(widget.toLogical(QRectF(1, 2, 3, 4)), QRectF(1, 2, 3, 4));
    QCOMPARE(widget.fromLogical(QRectF(1, 2, 3, 4)), QRectF(1, 2, 3, 4));
}

void tst_FreeformWidgetMapping::widgetPointIsDividedByTheScaleAndMovedByTheOrigin_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QPointF>("widgetPoint");
    QTest::addColumn<QPointF>("logicalPoint");

    QTest::newRow("scale 2, corner") << 2.0 << QPointF(0, 0) << QPointF(-50, -50);
    QTest::newRow("scale 2") << 2.0 << QPointF(110, 50) << QPointF(5, -25);
    QTest::newRow("scale 2, odd") << 2.0 << QPointF(1, 3) << QPointF(-49.5, -48.5);
    QTest::newRow("scale 0.5") << 0.5 << QPointF(10, 20) << QPointF(-30, -10);
    QTest::newRow("scale 4") << 4.0 << QPointF(-8, 2) << QPointF(-52, -49.5);
}

void tst_FreeformWidgetMapping::widgetPointIsDividedByTheScaleAndMovedByTheOrigin()
{
    QFETCH(double, scale);
    QFETCH(QPointF, widgetPoint);
    QFETCH(QPointF, logicalPoint);
    ScaledScene scene(scale);
    QCOMPARE(scene.widget()->getScale(), scale);
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(-50, -50));

    QCOMPARE(scene.widget()->toLogical(widgetPoint), logicalPoint);
    QCOMPARE(scene.widget()->fromLogical(logicalPoint), widgetPoint);
}

void tst_FreeformWidgetMapping::rectanglesAreMappedAsTheirCorners()
{
    ScaledScene scene(2);

    QCOMPARE(scene.widget()->toLogical(QRectF(100, 40, 11, 6)), QRectF(0, -30, 5.5, 3));
    QCOMPARE(scene.widget()->fromLogical(QRectF(0, -30, 5.5, 3)), QRectF(100, 40, 11, 6));
}

void tst_FreeformWidgetMapping::mappingThereAndBackIsTheIdentity()
{
    ScaledScene scene(1.7);
    const QPointF point(123.25, -77.5);

    const QPointF back = scene.widget()->toLogical(scene.widget()->fromLogical(point));

    QVERIFY(qAbs(back.x() - point.x()) < 1e-9);
    QVERIFY(qAbs(back.y() - point.y()) < 1e-9);
}

void tst_FreeformWidgetMapping::pointAtOriginMovesTheMapping()
{
    FreeformWidget widget(nullptr);

    widget.setPointAtOrigin(QPoint(-30, 40));

    QCOMPARE(widget.getPointAtOrigin(), QPointF(-30, 40));
    QCOMPARE(widget.toLogical(QPointF(0, 0)), QPointF(-30, 40));
    QCOMPARE(widget.fromLogical(QPointF(0, 0)), QPointF(30, -40));
}

void tst_FreeformWidgetMapping::pointAtOriginKeepsTheScale()
{
    ScaledScene scene(2);

    scene.widget()->setPointAtOrigin(QPoint(10, 20));

    QCOMPARE(scene.widget()->getScale(), 2.0);
    QCOMPARE(scene.widget()->toLogical(QPointF(4, 6)), QPointF(12, 23));
    QCOMPARE(scene.widget()->fromLogical(QPointF(12, 23)), QPointF(4, 6));
}

void tst_FreeformWidgetMapping::newPointAtOriginRepaints()
{
    Scene scene;
    QVERIFY(scene.show());
    EventCounter paints(scene.widget(), QEvent::Paint);

    scene.widget()->setPointAtOrigin(QPoint(10, 20));

    QTRY_VERIFY(paints.count > 0);
}

void tst_FreeformWidgetMapping::fractionsAreKept()
{
    ScaledScene scene(3);

    const QPointF logical = scene.widget()->toLogical(QPointF(1, 2));

    QCOMPARE(logical, QPointF(-50 + 1 / 3.0, -50 + 2 / 3.0));
}

void tst_FreeformWidgetMapping::viewOptionsComeFromTheWidget()
{
    FreeformWidget widget(nullptr);
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::darkGreen);
    QFont font;
    font.setPixelSize(31);
    widget.setPalette(palette);
    widget.setFont(font);
    widget.setLayoutDirection(Qt::RightToLeft);
    widget.resize(321, 234);

    const QStyleOptionViewItem option = widget.viewOptions();

    QCOMPARE(option.palette.color(QPalette::Base), QColor(Qt::darkGreen));
    QCOMPARE(option.rect, QRect(0, 0, 321, 234));
    QCOMPARE(option.direction, Qt::RightToLeft);
    QCOMPARE(option.fontMetrics, widget.fontMetrics());
    QVERIFY(option.state & QStyle::State_Enabled);
    widget.setEnabled(false);
    QVERIFY(!(widget.viewOptions().state & QStyle::State_Enabled));
}

QTEST_MAIN(tst_FreeformWidgetMapping)
#include "tst_freeformwidget_mapping.moc"
