#include "scene.h"

#include <fakeviewer.h>
#include <pixels.h>

#include <QPainter>
#include <QProxyStyle>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleOption>
#include <QTest>

#include <functional>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Notes the bands and frames that the widget asks for, and draws nothing of them. It is given to
// the widget alone, so that a call to the application's style does not pass for one to the
// widget's.
class FrameStyle : public QProxyStyle
{
public:
    struct Call
    {
        QString what;
        QRect rect;
        QStyle::State state;
        QTransform transform;
        QColor base;
        QRubberBand::Shape shape = QRubberBand::Line;
        bool opaque = true;
    };

    FrameStyle()
        : QProxyStyle(QStringLiteral("fusion"))
    {
    }

    mutable QList<Call> calls;

    QStringList order() const
    {
        QStringList names;
        for (const Call &call : calls)
            names.append(call.what);
        return names;
    }

    void note(const QString &what) const
    {
        Call call;
        call.what = what;
        calls.append(call);
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        const auto *band = qstyleoption_cast<const QStyleOptionRubberBand *>(option);
        if (element == CE_RubberBand && band)
            calls.append({QStringLiteral("band"), band->rect, band->state, painter->transform(),
                          band->palette.color(QPalette::Base), band->shape, band->opaque});
        else
            QProxyStyle::drawControl(element, option, painter, widget);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        const auto *frame = qstyleoption_cast<const QStyleOptionFocusRect *>(option);
        if (element == PE_FrameFocusRect && frame)
            calls.append({QStringLiteral("frame"), frame->rect, frame->state, painter->transform(),
                          frame->palette.color(QPalette::Base)});
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
};

// Notes how it is painted.
class WitnessPane : public FreeformLayeredPane
{
public:
    QList<QRect> rects;
    QList<QTransform> transforms;
    QPalette palette;
    std::function<void()> onRender;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        rects.append(option.rect);
        transforms.append(painter->worldTransform());
        palette = option.palette;
        if (onRender)
            onRender();
        FreeformLayeredPane::render(painter, option);
    }
};

// Hands out painters that are shifted already, as a redirecting subclass may do.
class ShiftedWidget : public FreeformWidget
{
public:
    using FreeformWidget::FreeformWidget;

    int shift = 0;

protected:
    void initPainter(QPainter *painter) const override
    {
        FreeformWidget::initPainter(painter);
        painter->translate(shift, 0);
    }
};

// A widget that no viewer scrolls, with a content and an update manager of its own.
struct Lone
{
    Lone()
    {
        manager.setViewer(&fake);
        pane.addLayer(&layer, QStringLiteral("layer"));
        pane.setFreeformBounds(QRect(0, 0, 300, 200));
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::green);
        widget.setPalette(palette);
        widget.resize(300, 200);
    }

    void complete()
    {
        widget.setUpdateManager(&manager);
        widget.setContent(&pane);
    }

    QImage grab() { return widget.grab().toImage(); }

    FakeViewer fake;
    UpdateManager manager;
    WitnessPane pane;
    FreeformLayer layer;
    ShiftedWidget widget{nullptr};
};

bool isAll(const QImage &image, const QColor &color)
{
    QImage expected(image.size(), image.format());
    expected.fill(color);
    return image == expected;
}

QColor colorOf(const QImage &image, int x, int y)
{
    return colorAt(image, QPoint(x, y));
}

// At scale 2, with the point at origin at (-50, -50): 1400 x 1000 pixels.
void zoom(Scene &scene)
{
    QPoint topLeft;
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScale(2, &topLeft);
}

} // namespace

class tst_FreeformWidgetPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void nothingIsPaintedWithoutUpdateManager();
    void nothingIsPaintedWithoutContent();
    void nothingIsPaintedAfterTheUpdateManagerWasTakenAway();

    void backgroundIsTheColourOfTheProperty_data();
    void backgroundIsTheColourOfTheProperty();
    void backgroundWithoutPropertyIsTheBaseColour();
    void translucentBackgroundIsLaidOverTheBaseColourOnce();
    void onlyTheDamageIsFilled();

    void validationComesBeforePainting();
    void paintingWithNothingQueuedAnnouncesNoValidation();
    void transformOfThePainterIsReplaced();
    void painterCarriesScaleAndOrigin();
    void damageReachesTheContentInLogicalCoordinates_data();
    void damageReachesTheContentInLogicalCoordinates();
    void contentIsRenderedWithTheOptionsOfTheWidget();
    void figuresAreScaledAndMoved();

    void noBandIsDrawnWhileItIsInvalid();
    void bandIsDrawnInLogicalCoordinates();
    void bandIsCutALittleOutsideTheWidget();
    void bandOutsideTheWidgetIsCutToNothingVisible();
    void bandIsDrawnOverTheContent();

    void noFrameIsDrawnWithoutHighlight();
    void frameFollowsTheHighlightStyle_data();
    void frameFollowsTheHighlightStyle();
    void frameSurroundsTheVisiblePart();
    void frameIsDrawnInWidgetCoordinatesOverTheBand();
    void widgetWithoutViewerDrawsNoFrame();
    void highlightRepaintsOnlyOnChange();
    void highlightStyleRepaintsOnlyWhileHighlighted();
};

void tst_FreeformWidgetPainting::nothingIsPaintedWithoutUpdateManager()
{
    Lone lone;
    Figure figure(nullptr, Qt::red);
    lone.layer.add(&figure, QRect(10, 10, 50, 50));
    lone.widget.setProperty("backgroundColor", QColor(Qt::blue));
    lone.widget.setContent(&lone.pane);

    QVERIFY(isAll(lone.grab(), Qt::green));

    QVERIFY(lone.pane.rects.isEmpty());
}

void tst_FreeformWidgetPainting::nothingIsPaintedWithoutContent()
{
    Lone lone;
    lone.widget.setProperty("backgroundColor", QColor(Qt::blue));
    lone.widget.elasticBand() = QRect(10, 10, 50, 50);
    lone.widget.setUpdateManager(&lone.manager);
    Figure queued;
    lone.manager.addInvalidFigure(&queued);

    QVERIFY(isAll(lone.grab(), Qt::green));

    QVERIFY(!queued.getFlag(Figure::FLAG_VALID));
}

void tst_FreeformWidgetPainting::nothingIsPaintedAfterTheUpdateManagerWasTakenAway()
{
    Lone lone;
    lone.complete();
    lone.widget.setProperty("backgroundColor", QColor(Qt::blue));

    lone.widget.setUpdateManager(nullptr);

    QVERIFY(isAll(lone.grab(), Qt::green));
}

void tst_FreeformWidgetPainting::backgroundIsTheColourOfTheProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("colour") << QVariant(QColor(Qt::blue)) << QColor(Qt::blue);
    QTest::newRow("name of a colour") << QVariant(QStringLiteral("blue")) << QColor(Qt::blue);
    QTest::newRow("invalid colour") << QVariant(QColor()) << QColor(Qt::green);
    QTest::newRow("no colour at all") << QVariant(QSize(3, 4)) << QColor(Qt::green);
}

void tst_FreeformWidgetPainting::backgroundIsTheColourOfTheProperty()
{
    QFETCH(QVariant, value);
    QFETCH(QColor, expected);
    Lone lone;
    lone.complete();

    lone.widget.setProperty("backgroundColor", value);

    QVERIFY(isAll(lone.grab(), expected));
}

void tst_FreeformWidgetPainting::backgroundWithoutPropertyIsTheBaseColour()
{
    Lone lone;
    lone.complete();

    QVERIFY(isAll(lone.grab(), Qt::green));
}

void tst_FreeformWidgetPainting::translucentBackgroundIsLaidOverTheBaseColourOnce()
{
    Scene scene;
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    scene.widget()->setPalette(palette);
    scene.widget()->setProperty("backgroundColor", QColor(0, 0, 0, 51));
    QVERIFY(scene.show());

    const QImage image = scene.widget()->grab().toImage();

    QVERIFY(qAbs(colorOf(image, 100, 100).red() - 204) <= 1);
}

void tst_FreeformWidgetPainting::onlyTheDamageIsFilled()
{
    Scene scene;
    scene.widget()->setProperty("backgroundColor", QColor(Qt::blue));
    QVERIFY(scene.show());
    scene.widget()->setProperty("backgroundColor", QColor(Qt::red));
    scene.widget()->repaint(QRect(10, 20, 30, 40));

    const QImage image = scene.viewer.screen()->grabWindow(scene.viewer.winId()).toImage();
    QCOMPARE(colorOf(image, 10, 20), QColor(Qt::red));
    QCOMPARE(colorOf(image, 39, 59), QColor(Qt::red));
    QCOMPARE(colorOf(image, 9, 20), QColor(Qt::blue));
    QCOMPARE(colorOf(image, 40, 60), QColor(Qt::blue));
}

void tst_FreeformWidgetPainting::validationComesBeforePainting()
{
    Lone lone;
    lone.complete();
    QStringList order;
    connect(&lone.manager, &UpdateManager::aboutToValidate, this,
            [&order] { order.append(QStringLiteral("validate")); });
    lone.pane.onRender = [&] {
        order.append(QStringLiteral("render"));
        QVERIFY(lone.pane.getFlag(Figure::FLAG_VALID));
    };

    lone.grab();

    QCOMPARE(order, (QStringList{QStringLiteral("validate"), QStringLiteral("render")}));
}

void tst_FreeformWidgetPainting::paintingWithNothingQueuedAnnouncesNoValidation()
{
    Lone lone;
    lone.complete();
    lone.grab();
    QSignalSpy announced(&lone.manager, &UpdateManager::aboutToValidate);

    lone.grab();

    QCOMPARE(announced.count(), 0);
    QCOMPARE(lone.pane.rects.size(), 2);
}

void tst_FreeformWidgetPainting::transformOfThePainterIsReplaced()
{
    Lone lone;
    lone.complete();
    lone.widget.shift = 1000;

    lone.grab();

    QCOMPARE(lone.pane.transforms, QList<QTransform>{QTransform()});
}

void tst_FreeformWidgetPainting::painterCarriesScaleAndOrigin()
{
    FreeformViewer viewer;
    WitnessPane pane;
    FreeformLayer layer;
    Figure figure;
    QPoint topLeft;
    pane.addLayer(&layer, QStringLiteral("layer"));
    layer.add(&figure, QRect(0, 0, 600, 400));
    viewer.setContent(&pane);
    viewer.setScale(2, &topLeft);

    viewer.widget()->grab();

    QCOMPARE(pane.transforms, QList<QTransform>{QTransform(2, 0, 0, 2, 100, 100)});
}

void tst_FreeformWidgetPainting::damageReachesTheContentInLogicalCoordinates_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QRect>("damage");
    QTest::addColumn<QRectF>("logical");
    QTest::newRow("scale 1") << 1.0 << QRect(11, 21, 31, 41) << QRectF(-39, -29, 31, 41);
    QTest::newRow("even") << 2.0 << QRect(10, 20, 30, 40) << QRectF(-45, -40, 15, 20);
    QTest::newRow("odd corner") << 2.0 << QRect(11, 21, 31, 41) << QRectF(-44.5, -39.5, 15.5, 20.5);
    QTest::newRow("odd size") << 2.0 << QRect(10, 20, 31, 43) << QRectF(-45, -40, 15.5, 21.5);
    QTest::newRow("pixels larger than units")
        << 0.5 << QRect(10, 20, 31, 43) << QRectF(-30, -10, 62, 86);
    QTest::newRow("edges on whole units")
        << 1.5 << QRect(15, 30, 45, 60) << QRectF(-40, -30, 30, 40);
}

void tst_FreeformWidgetPainting::damageReachesTheContentInLogicalCoordinates()
{
    QFETCH(double, scale);
    QFETCH(QRect, damage);
    QFETCH(QRectF, logical);
    FreeformViewer viewer;
    WitnessPane pane;
    FreeformLayer layer;
    Figure figure;
    QPoint topLeft(-50, -50);
    pane.addLayer(&layer, QStringLiteral("layer"));
    layer.add(&figure, QRect(0, 0, 2000, 1500));
    viewer.setContent(&pane);
    viewer.show();
    QVERIFY(QTest::qWaitForWindowExposed(&viewer));
    viewer.setScale(scale, &topLeft);
    settle(&viewer);
    pane.rects.clear();

    viewer.widget()->repaint(damage);

    // At other scales than 1 a little more is painted, so that units on the edge are not left out,
    // nor figures beside it that reach in with half of their pen.
    const double least = scale == 1.0 ? 0 : 0.5;
    const int more = scale == 1.0 ? 0 : int(2 / scale) + 2;
    QCOMPARE(pane.rects.size(), 1);
    QVERIFY(QRectF(pane.rects.first()).contains(logical.adjusted(-least, -least, least, least)));
    QVERIFY(logical.toRect().adjusted(-more, -more, more, more).contains(pane.rects.first()));
}

void tst_FreeformWidgetPainting::contentIsRenderedWithTheOptionsOfTheWidget()
{
    Lone lone;
    lone.complete();

    lone.grab();

    QCOMPARE(lone.pane.palette.color(QPalette::Base), QColor(Qt::green));
}

void tst_FreeformWidgetPainting::figuresAreScaledAndMoved()
{
    Scene scene;
    scene.addFigure(QRect(10, 10, 20, 5), Qt::red);
    scene.widget()->setProperty("backgroundColor", QColor(Qt::white));
    zoom(scene);

    const QImage image = scene.widget()->grab().toImage();

    QCOMPARE(image.deviceIndependentSize(), QSizeF(1400, 1000));
    QCOMPARE(colorOf(image, 120, 120), QColor(Qt::red));
    QCOMPARE(colorOf(image, 159, 129), QColor(Qt::red));
    QCOMPARE(colorOf(image, 119, 120), QColor(Qt::white));
    QCOMPARE(colorOf(image, 120, 119), QColor(Qt::white));
    QCOMPARE(colorOf(image, 160, 129), QColor(Qt::white));
    QCOMPARE(colorOf(image, 159, 130), QColor(Qt::white));
}

void tst_FreeformWidgetPainting::noBandIsDrawnWhileItIsInvalid()
{
    FrameStyle style;
    Lone lone;
    lone.complete();
    lone.widget.setStyle(&style);
    lone.widget.elasticBand() = QRect(10, 10, 20, 0);

    lone.grab();

    QVERIFY(style.calls.isEmpty());
}

void tst_FreeformWidgetPainting::bandIsDrawnInLogicalCoordinates()
{
    FrameStyle style;
    Scene scene;
    zoom(scene);
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::yellow);
    scene.widget()->setPalette(palette);
    scene.widget()->setStyle(&style);
    scene.viewer.elasticBand() = QRect(-40, -30, 20, 10);

    scene.widget()->grab();

    QCOMPARE(style.order(), QStringList{QStringLiteral("band")});
    const FrameStyle::Call band = style.calls.first();
    QCOMPARE(band.rect, QRect(-40, -30, 20, 10));
    QCOMPARE(band.shape, QRubberBand::Rectangle);
    QVERIFY(!band.opaque);
    QCOMPARE(band.base, QColor(Qt::yellow));
    QCOMPARE(band.transform, QTransform(2, 0, 0, 2, 100, 100));
}

void tst_FreeformWidgetPainting::bandIsCutALittleOutsideTheWidget()
{
    FrameStyle style;
    Scene scene;
    zoom(scene);
    scene.widget()->setStyle(&style);
    QCOMPARE(scene.widget()->size(), QSize(1400, 1000));

    scene.viewer.elasticBand() = QRect(-1000, -1000, 5000, 5000);
    scene.widget()->grab();
    scene.viewer.elasticBand() = QRect(-1000, 0, 5000, 10);
    scene.widget()->grab();

    // 16 pixels are 8 units at scale 2.
    QCOMPARE(style.calls.size(), 2);
    QCOMPARE(style.calls.at(0).rect, QRect(-58, -58, 716, 516));
    QCOMPARE(style.calls.at(1).rect, QRect(-58, 0, 716, 10));
}

void tst_FreeformWidgetPainting::bandOutsideTheWidgetIsCutToNothingVisible()
{
    FrameStyle style;
    Scene scene;
    zoom(scene);
    scene.widget()->setStyle(&style);
    scene.viewer.elasticBand() = QRect(5000, 5000, 10, 10);

    scene.widget()->grab();

    for (const FrameStyle::Call &call : std::as_const(style.calls))
        QVERIFY(!call.rect.isValid());
}

void tst_FreeformWidgetPainting::bandIsDrawnOverTheContent()
{
    FrameStyle style;
    Lone lone;
    lone.complete();
    lone.widget.setStyle(&style);
    lone.widget.elasticBand() = QRect(10, 10, 20, 20);
    lone.pane.onRender = [&style] { style.note(QStringLiteral("content")); };

    lone.grab();

    QCOMPARE(style.order(), (QStringList{QStringLiteral("content"), QStringLiteral("band")}));
}

void tst_FreeformWidgetPainting::noFrameIsDrawnWithoutHighlight()
{
    FrameStyle style;
    Scene scene;
    scene.widget()->setStyle(&style);
    scene.viewer.setHighlightStyle(1);

    scene.widget()->grab();

    QVERIFY(style.calls.isEmpty());
}

void tst_FreeformWidgetPainting::frameFollowsTheHighlightStyle_data()
{
    QTest::addColumn<int>("highlightStyle");
    QTest::addColumn<QString>("expected");
    QTest::newRow("0") << 0 << QStringLiteral("frame");
    QTest::newRow("1") << 1 << QStringLiteral("band");
    QTest::newRow("2") << 2 << QStringLiteral("frame");
    QTest::newRow("-1") << -1 << QStringLiteral("frame");
}

void tst_FreeformWidgetPainting::frameFollowsTheHighlightStyle()
{
    QFETCH(int, highlightStyle);
    QFETCH(QString, expected);
    FrameStyle style;
    Scene scene;
    scene.widget()->setStyle(&style);
    scene.viewer.setHighlighted(true);

    scene.viewer.setHighlightStyle(highlightStyle);
    QCOMPARE(scene.widget()->getHighlightStyle(), highlightStyle);
    scene.widget()->grab();

    QCOMPARE(style.order(), QStringList{expected});
    const FrameStyle::Call call = style.calls.first();
    if (expected == QStringLiteral("frame")) {
        QVERIFY(call.state & QStyle::State_KeyboardFocusChange);
    } else {
        QCOMPARE(call.shape, QRubberBand::Rectangle);
        QVERIFY(!call.opaque);
    }
    QVERIFY(call.state & QStyle::State_Enabled);
}

void tst_FreeformWidgetPainting::frameSurroundsTheVisiblePart()
{
    FrameStyle style;
    Scene scene;
    QVERIFY(scene.show());
    zoom(scene);
    scene.scrollTo(QPoint(100, 40));
    QCOMPARE(scene.scrollOffset(), QPoint(100, 40));
    scene.widget()->setStyle(&style);

    for (int highlightStyle : {0, 1}) {
        scene.viewer.setHighlighted(false);
        scene.viewer.setHighlightStyle(highlightStyle);
        scene.viewer.setHighlighted(true);
        style.calls.clear();
        scene.widget()->grab();

        QCOMPARE(style.calls.size(), 1);
        QCOMPARE(style.calls.first().rect, QRect(100, 40, 400, 300));
        QCOMPARE(style.calls.first().transform, QTransform());
    }
}

void tst_FreeformWidgetPainting::frameIsDrawnInWidgetCoordinatesOverTheBand()
{
    FrameStyle style;
    Scene scene;
    zoom(scene);
    scene.widget()->setStyle(&style);
    scene.viewer.elasticBand() = QRect(0, 0, 20, 20);
    scene.viewer.setHighlighted(true);

    scene.widget()->grab();

    QCOMPARE(style.order(), (QStringList{QStringLiteral("band"), QStringLiteral("frame")}));
    QCOMPARE(style.calls.first().transform, QTransform(2, 0, 0, 2, 100, 100));
    QCOMPARE(style.calls.last().transform, QTransform());
}

void tst_FreeformWidgetPainting::widgetWithoutViewerDrawsNoFrame()
{
    FrameStyle style;
    Lone lone;
    lone.complete();
    lone.widget.setStyle(&style);
    lone.widget.setHighlighted(true);

    lone.grab();

    QVERIFY(style.calls.isEmpty());
}

void tst_FreeformWidgetPainting::highlightRepaintsOnlyOnChange()
{
    Scene scene;
    QVERIFY(scene.show());
    EventCounter paints(scene.widget(), QEvent::Paint);

    scene.widget()->setHighlighted(false);
    QCOMPARE(paints.count, 0);
    scene.widget()->setHighlighted(true);
    QVERIFY(scene.widget()->isHighlighted());
    QCOMPARE(paints.count, 1);
    scene.widget()->setHighlighted(true);
    QCOMPARE(paints.count, 1);
    scene.widget()->setHighlighted(false);
    QVERIFY(!scene.widget()->isHighlighted());
    QCOMPARE(paints.count, 2);
}

void tst_FreeformWidgetPainting::highlightStyleRepaintsOnlyWhileHighlighted()
{
    Scene scene;
    QVERIFY(scene.show());
    EventCounter paints(scene.widget(), QEvent::Paint);

    scene.widget()->setHighlightStyle(1);
    QCOMPARE(paints.count, 0);
    scene.widget()->setHighlighted(true);
    QCOMPARE(paints.count, 1);
    scene.widget()->setHighlightStyle(0);
    QCOMPARE(paints.count, 2);
}

QTEST_MAIN(tst_FreeformWidgetPainting)
#include "tst_freeformwidget_painting.moc"
