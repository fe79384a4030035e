#include "scene.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTransform>

#include <algorithm>
#include <cmath>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

int roundAway(double value)
{
    return static_cast<int>(value < 0 ? std::ceil(value - 0.5) : std::floor(value + 0.5));
}

// What a widget of an always shown viewer without visible scroll bars has to do, told once more in
// plain numbers.
class Model
{
public:
    static constexpr QSize smallest{300, 200};

    double scale = 1;
    double minimum = -1;
    double maximum = -1;
    QPoint origin;
    QPoint margins{50, 50};
    QRect extent;
    QRect bounds;
    QSize viewport;
    QSize widget;
    QPoint scroll;
    QSize range;

    explicit Model(const QSize &viewportSize)
        : bounds(QPoint(0, 0), viewportSize)
        , viewport(viewportSize)
        , widget(viewportSize.expandedTo(smallest))
        , range(widget - viewport)
    {
    }

    double setScale(double wanted, const QPoint *at)
    {
        return wanted < 0 ? fit(wanted) : zoom(clamp(wanted), at, nullptr);
    }

    double setScaleAt(double wanted, const QPoint &at)
    {
        const double clamped = clamp(wanted);
        return clamped < 0 || clamped == scale ? scale : zoom(clamped, nullptr, &at);
    }

    void setScaleBounds(double a, double b)
    {
        minimum = std::min(a, b);
        maximum = std::max(a, b);
        if (minimum > 0)
            setScale(scale, nullptr);
    }

    QRect viewRect() const
    {
        return QRectF(scroll.x() / scale + origin.x(), scroll.y() / scale + origin.y(),
                      viewport.width() / scale, viewport.height() / scale)
            .toRect();
    }

private:
    double clamp(double wanted) const
    {
        const bool bounded = minimum > 0 && maximum > 0;
        return bounded ? std::clamp(wanted, minimum, maximum) : wanted;
    }

    QRect grown() const
    {
        return extent.adjusted(-margins.x(), -margins.y(), margins.x(), margins.y());
    }

    double fit(double wanted)
    {
        if (!extent.isValid())
            return wanted;
        const QRect whole = grown();
        const double fitting = std::min(double(viewport.width()) / whole.width(),
                                        double(viewport.height()) / whole.height());
        // The transform, and with it the view rectangle, is still that of the former scale.
        const QRect formerView = viewRect();
        scale = fitting;
        const QPoint at = whole.center() - QPoint(int(viewport.width() / fitting) / 2,
                                                  int(viewport.height() / fitting) / 2);
        zoom(clamp(fitting), &at, nullptr, &formerView);
        return fitting;
    }

    double zoom(double wanted, const QPoint *topLeft, const QPoint *fixed,
                const QRect *formerView = nullptr)
    {
        if (wanted <= 0 || !extent.isValid() || (wanted == scale && !topLeft))
            return scale;
        QRect view = formerView ? *formerView : viewRect();
        if (wanted != scale)
            view = scaledAbout(view, fixed ? *fixed : view.center(), scale / wanted);
        scale = wanted;
        if (topLeft)
            view.moveTopLeft(*topLeft);
        bounds = grown().contains(view) ? grown() : grown().united(view);
        origin = bounds.topLeft();
        widget = QRectF(0, 0, bounds.width() * scale, bounds.height() * scale)
                     .toRect()
                     .size()
                     .expandedTo(smallest);
        scrollTo({roundAway((view.x() - origin.x()) * scale),
                  roundAway((view.y() - origin.y()) * scale)});
        return scale;
    }

    static QRect scaledAbout(const QRect &rect, const QPoint &point, double factor)
    {
        return QTransform::fromScale(factor, factor)
            .mapRect(rect.translated(-point))
            .translated(point);
    }

    void scrollTo(const QPoint &offset)
    {
        range = (widget - viewport).expandedTo(QSize(0, 0));
        scroll = {std::clamp(offset.x(), 0, range.width()),
                  std::clamp(offset.y(), 0, range.height())};
    }
};

QString text(const Model &m)
{
    QString result;
    QDebug(&result) << m.scale << m.origin << m.bounds << m.widget << m.range << m.scroll;
    return result;
}

QString text(Scene &scene)
{
    QString result;
    QDebug(&result) << scene.widget()->getScale() << scene.widget()->getPointAtOrigin().toPoint()
                    << scene.pane.getBounds() << scene.widget()->size()
                    << QSize(scene.horizontalBar()->maximum(), scene.verticalBar()->maximum())
                    << scene.scrollOffset();
    return result;
}

// Shown, with an extent of (0, 0, 600, 400) and the margins of 50.
struct ShownScene : Scene
{
    ShownScene() { pane.extent = QRect(0, 0, 600, 400); }
};

QPointF onScreen(Scene &scene, const QPoint &point)
{
    return scene.viewer.fromContent(QPointF(point));
}

bool isNear(const QPointF &a, const QPointF &b, double distance)
{
    return std::abs(a.x() - b.x()) <= distance && std::abs(a.y() - b.y()) <= distance;
}

} // namespace

class tst_FreeformWidgetScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void scaleIsUnchangedWithoutContent();
    void scaleIsUnchangedWithoutExtent();
    void fitWithoutExtentGivesItsArgumentBack_data();
    void fitWithoutExtentGivesItsArgumentBack();
    void scaleZeroIsIgnored_data();
    void scaleZeroIsIgnored();
    void scaleThatIsNotFiniteIsIgnored_data();
    void scaleThatIsNotFiniteIsIgnored();
    void scaleThatIsSetAlreadyIsIgnored();
    void scaleThatIsSetAlreadyStillMovesToTheGivenPoint();

    void scaleIsClampedOnlyBetweenTwoPositiveBounds_data();
    void scaleIsClampedOnlyBetweenTwoPositiveBounds();
    void boundsAreAppliedToTheCurrentScale_data();
    void boundsAreAppliedToTheCurrentScale();
    void resetBoundsClampNoMoreAndRescaleNothing();
    void clampedScaleEqualToTheCurrentOneIsIgnored();

    void zoomSetsBoundsOriginSizeAndScrollBars();
    void zoomGrowsTheBoundsToHoldTheView();
    void zoomToPointMakesItTheTopLeftCorner();
    void marginsBelongToTheBounds();
    void resizingIsTrueOnlyWhileTheScaleChanges();
    void resizingIsFalseAgainWhenNothingIsDone();
    void pageStepsFollowTheViewport();
    void widgetInViewportIsPlacedByItsScrollValues();
    void widgetSmallerThanViewportIsPlacedAtItsTopLeft();
    void widgetIsPlacedFromTheRightInRightToLeftViewers();
    void equalSizeResizesNothing();

    void fitShowsTheWholeExtent_data();
    void fitShowsTheWholeExtent();
    void fitCentresTheExtent();
    void fitStoresItsScaleBeforeTheBoundsApply();

    void scaleAtPointIsUnchangedWhenNegativeOrEqual();
    void scaleAtPointIsUnchangedWithoutExtent();
    void scaleAtPointIsClamped();
    void scaleAtPointKeepsThePointOnTheScreen_data();
    void scaleAtPointKeepsThePointOnTheScreen();
    void zoomKeepsTheCentreOnTheScreen_data();
    void zoomKeepsTheCentreOnTheScreen();

    void everyZoomFollowsTheRules_data();
    void everyZoomFollowsTheRules();
};

void tst_FreeformWidgetScale::scaleIsUnchangedWithoutContent()
{
    FreeformViewer viewer;
    FreeformWidget widget(&viewer);

    QCOMPARE(widget.setScale(2), 1.0);
    QCOMPARE(widget.setScale(-3), -3.0);
    QCOMPARE(widget.setScaleAt(2, QPoint(0, 0)), 1.0);
    widget.setScaleBounds(2, 4);

    QCOMPARE(widget.getScale(), 1.0);
}

void tst_FreeformWidgetScale::scaleIsUnchangedWithoutExtent()
{
    Scene scene;
    const QPoint at(10, 10);
    QVERIFY(scene.show());
    const QString before = text(scene);

    QCOMPARE(scene.widget()->setScale(2, nullptr), 1.0);
    QCOMPARE(scene.widget()->setScale(2, &at), 1.0);

    QCOMPARE(text(scene), before);
    QVERIFY(!scene.widget()->isResizing());
}

void tst_FreeformWidgetScale::fitWithoutExtentGivesItsArgumentBack_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("-1") << -1.0;
    QTest::newRow("-2.5") << -2.5;
}

void tst_FreeformWidgetScale::fitWithoutExtentGivesItsArgumentBack()
{
    QFETCH(double, scale);
    Scene scene;
    QVERIFY(scene.show());
    const QString before = text(scene);

    QCOMPARE(scene.widget()->setScale(scale, nullptr), scale);

    QCOMPARE(text(scene), before);
}

void tst_FreeformWidgetScale::scaleZeroIsIgnored_data()
{
    QTest::addColumn<bool>("withPoint");
    QTest::newRow("about the centre") << false;
    QTest::newRow("with a point") << true;
}

// There is no inverse of it.
void tst_FreeformWidgetScale::scaleZeroIsIgnored()
{
    QFETCH(bool, withPoint);
    ShownScene scene;
    const QPoint at(10, 10);
    QVERIFY(scene.show());
    const QString before = text(scene);

    QCOMPARE(scene.widget()->setScale(0, withPoint ? &at : nullptr), 1.0);
    QCOMPARE(scene.widget()->setScaleAt(0, at), 1.0);

    QCOMPARE(text(scene), before);
    QVERIFY(!scene.widget()->isResizing());
}

void tst_FreeformWidgetScale::scaleThatIsNotFiniteIsIgnored_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("infinite") << qInf();
    QTest::newRow("not a number") << qQNaN();
}

void tst_FreeformWidgetScale::scaleThatIsNotFiniteIsIgnored()
{
    QFETCH(double, scale);
    ShownScene scene;
    const QPoint at(10, 10);
    QVERIFY(scene.show());
    const QString before = text(scene);

    QCOMPARE(scene.widget()->setScale(scale, &at), 1.0);
    QCOMPARE(scene.widget()->setScaleAt(scale, at), 1.0);

    QCOMPARE(text(scene), before);
}

void tst_FreeformWidgetScale::scaleThatIsSetAlreadyIsIgnored()
{
    ShownScene scene;
    QVERIFY(scene.show());
    const QString before = text(scene);

    QCOMPARE(scene.widget()->setScale(1, nullptr), 1.0);

    QCOMPARE(text(scene), before);
    QCOMPARE(scene.pane.getBounds(), QRect(0, 0, 400, 300));
}

void tst_FreeformWidgetScale::scaleThatIsSetAlreadyStillMovesToTheGivenPoint()
{
    ShownScene scene;
    const QPoint at(120, 80);
    QVERIFY(scene.show());

    QCOMPARE(scene.widget()->setScale(1, &at), 1.0);

    QCOMPARE(scene.pane.getBounds(), QRect(-50, -50, 700, 500));
    QCOMPARE(scene.viewer.getViewRect(), QRect(120, 80, 400, 300));
}

void tst_FreeformWidgetScale::scaleIsClampedOnlyBetweenTwoPositiveBounds_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("expected");

    QTest::newRow("above the maximum") << 0.5 << 4.0 << 5.0 << 4.0;
    QTest::newRow("below the minimum") << 0.5 << 4.0 << 0.25 << 0.5;
    QTest::newRow("between") << 0.5 << 4.0 << 3.0 << 3.0;
    QTest::newRow("at the maximum") << 0.5 << 4.0 << 4.0 << 4.0;
    QTest::newRow("at the minimum") << 0.5 << 4.0 << 0.5 << 0.5;
    QTest::newRow("larger one first: above") << 4.0 << 0.5 << 5.0 << 4.0;
    QTest::newRow("larger one first: below") << 4.0 << 0.5 << 0.25 << 0.5;
    QTest::newRow("zero is raised to the minimum") << 0.5 << 4.0 << 0.0 << 0.5;
    QTest::newRow("maximum alone") << -1.0 << 4.0 << 5.0 << 5.0;
    QTest::newRow("minimum alone") << 0.5 << -1.0 << 0.25 << 0.25;
    QTest::newRow("minimum zero") << 0.0 << 4.0 << 5.0 << 5.0;
    QTest::newRow("none") << -1.0 << -1.0 << 9.0 << 9.0;
}

void tst_FreeformWidgetScale::scaleIsClampedOnlyBetweenTwoPositiveBounds()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(double, scale);
    QFETCH(double, expected);
    ShownScene scene;
    QVERIFY(scene.show());
    scene.widget()->setScaleBounds(a, b);

    QCOMPARE(scene.widget()->setScale(scale, nullptr), expected);

    QCOMPARE(scene.widget()->getScale(), expected);
}

void tst_FreeformWidgetScale::boundsAreAppliedToTheCurrentScale_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<double>("expected");

    QTest::newRow("too large") << 0.5 << 2.0 << 2.0;
    QTest::newRow("too small") << 5.0 << 4.0 << 4.0;
    QTest::newRow("inside") << 2.0 << 4.0 << 3.0;
    QTest::newRow("maximum alone") << -1.0 << 2.0 << 3.0;
    QTest::newRow("minimum zero") << 2.0 << 0.0 << 3.0;
}

void tst_FreeformWidgetScale::boundsAreAppliedToTheCurrentScale()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(double, expected);
    ShownScene scene;
    QVERIFY(scene.show());
    scene.widget()->setScale(3, nullptr);

    scene.widget()->setScaleBounds(a, b);

    QCOMPARE(scene.widget()->getScale(), expected);
    QCOMPARE(scene.widget()->size(), (QSizeF(700, 500) * expected).toSize());
}

void tst_FreeformWidgetScale::resetBoundsClampNoMoreAndRescaleNothing()
{
    ShownScene scene;
    QVERIFY(scene.show());
    scene.widget()->setScaleBounds(2, 4);
    QCOMPARE(scene.widget()->getScale(), 2.0);
    const QString before = text(scene);

    scene.widget()->resetScaleBounds();
    QCOMPARE(text(scene), before);

    QCOMPARE(scene.widget()->setScale(8, nullptr), 8.0);
    QCOMPARE(scene.widget()->setScale(0.5, nullptr), 0.5);
}

void tst_FreeformWidgetScale::clampedScaleEqualToTheCurrentOneIsIgnored()
{
    ShownScene scene;
    QVERIFY(scene.show());
    scene.widget()->setScaleBounds(0.5, 1);
    const QString before = text(scene);

    QCOMPARE(scene.widget()->setScale(7, nullptr), 1.0);

    QCOMPARE(text(scene), before);
}

// The view (0, 0, 400, 300), made half as large about (199, 149), has its corner at (99, 75).
void tst_FreeformWidgetScale::zoomSetsBoundsOriginSizeAndScrollBars()
{
    ShownScene scene;
    QVERIFY(scene.show());

    QCOMPARE(scene.widget()->setScale(2, nullptr), 2.0);

    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(-50, -50));
    QCOMPARE(scene.pane.getBounds(), QRect(-50, -50, 700, 500));
    QCOMPARE(scene.layer.getBounds(), QRect(-50, -50, 700, 500));
    QCOMPARE(scene.widget()->size(), QSize(1400, 1000));
    QCOMPARE(scene.horizontalBar()->minimum(), 0);
    QCOMPARE(scene.horizontalBar()->maximum(), 1000);
    QCOMPARE(scene.verticalBar()->minimum(), 0);
    QCOMPARE(scene.verticalBar()->maximum(), 700);
    QCOMPARE(scene.viewer.getViewRect(), QRect(99, 74, 200, 150));
    QCOMPARE(scene.scrollOffset(), QPoint(298, 248));
}

void tst_FreeformWidgetScale::zoomGrowsTheBoundsToHoldTheView()
{
    ShownScene scene;
    QVERIFY(scene.show());

    scene.widget()->setScale(0.25, nullptr);

    // (-199, -149, 400, 300) times four, about (199, 149).
    QCOMPARE(scene.pane.getBounds(), QRect(-597, -447, 1600, 1200));
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(-597, -447));
    QCOMPARE(scene.widget()->size(), QSize(400, 300));
    QCOMPARE(scene.scrollOffset(), QPoint(0, 0));
}

void tst_FreeformWidgetScale::zoomToPointMakesItTheTopLeftCorner()
{
    ShownScene scene;
    const QPoint at(-130, 210);
    QVERIFY(scene.show());

    scene.widget()->setScale(2, &at);

    QCOMPARE(scene.viewer.getViewRect(), QRect(-130, 210, 200, 150));
    QCOMPARE(scene.pane.getBounds(), QRect(-130, -50, 780, 500));
    QCOMPARE(scene.scrollOffset(), QPoint(0, 520));
}

void tst_FreeformWidgetScale::marginsBelongToTheBounds()
{
    ShownScene scene;
    const QPoint at(0, 0);
    QVERIFY(scene.show());
    scene.widget()->setMargins(7, 0);

    scene.widget()->setScale(2, &at);

    QCOMPARE(scene.pane.getBounds(), QRect(-7, 0, 614, 400));
}

void tst_FreeformWidgetScale::resizingIsTrueOnlyWhileTheScaleChanges()
{
    ShownScene scene;
    QVERIFY(scene.show());
    QList<bool> resizing;
    connect(&scene.pane, &Figure::figureMoved, this,
            [&] { resizing.append(scene.widget()->isResizing()); });

    scene.widget()->setScale(2, nullptr);
    QCOMPARE(resizing, QList<bool>{true});
    QVERIFY(!scene.widget()->isResizing());

    scene.widget()->setScaleAt(3, QPoint(-400, -400));
    QCOMPARE(resizing, (QList<bool>{true, true}));
    QVERIFY(!scene.widget()->isResizing());

    scene.widget()->ensureViewable(QRect(-1000, -1000, 10, 10), false, true);
    QCOMPARE(resizing, (QList<bool>{true, true, false}));
}

void tst_FreeformWidgetScale::resizingIsFalseAgainWhenNothingIsDone()
{
    ShownScene scene;
    QVERIFY(scene.show());

    scene.widget()->setScale(1, nullptr);
    QVERIFY(!scene.widget()->isResizing());
    scene.pane.extent = QRect();
    scene.widget()->setScale(2, nullptr);
    QVERIFY(!scene.widget()->isResizing());
}

void tst_FreeformWidgetScale::pageStepsFollowTheViewport()
{
    ShownScene scene;
    QVERIFY(scene.show());
    scene.horizontalBar()->setPageStep(1);
    scene.verticalBar()->setPageStep(1);

    scene.widget()->setScale(2, nullptr);

    QCOMPARE(scene.horizontalBar()->pageStep(), 400);
    QCOMPARE(scene.verticalBar()->pageStep(), 300);
}

void tst_FreeformWidgetScale::widgetInViewportIsPlacedByItsScrollValues()
{
    ShownScene scene;
    QVERIFY(scene.show());

    scene.widget()->setScale(2, nullptr);

    QCOMPARE(scene.widget()->pos(), -scene.scrollOffset());
}

// Three times 133 units is one pixel less than the viewport.
void tst_FreeformWidgetScale::widgetSmallerThanViewportIsPlacedAtItsTopLeft()
{
    Scene scene(QSize(400, 300));
    const QPoint at(0, 0);
    QVERIFY(scene.show());
    scene.widget()->setMargins(0, 0);
    scene.pane.extent = QRect(0, 0, 1, 1);

    scene.widget()->setScale(3, nullptr);
    scene.widget()->setScale(3, &at);

    QCOMPARE(scene.widget()->width(), 399);
    QCOMPARE(scene.widget()->pos(), QPoint(0, 0));
    QCOMPARE(scene.horizontalBar()->maximum(), 0);
}

void tst_FreeformWidgetScale::widgetIsPlacedFromTheRightInRightToLeftViewers()
{
    ShownScene scene;
    scene.viewer.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(scene.show());

    scene.widget()->setScale(2, nullptr);

    const int fromTheRight = 400 - 1400 + scene.horizontalBar()->value();
    QCOMPARE(scene.widget()->pos(), QPoint(fromTheRight, -scene.verticalBar()->value()));
}

void tst_FreeformWidgetScale::equalSizeResizesNothing()
{
    ShownScene scene;
    const QPoint first(0, 0);
    const QPoint second(30, 40);
    QVERIFY(scene.show());
    scene.widget()->setScale(2, &first);
    EventCounter resizes(scene.widget(), QEvent::Resize);

    scene.widget()->setScale(2, &second);
    QCOMPARE(resizes.count, 0);
    scene.widget()->setScale(3, &second);
    QCOMPARE(resizes.count, 1);
}

void tst_FreeformWidgetScale::fitShowsTheWholeExtent_data()
{
    QTest::addColumn<QRect>("extent");
    QTest::addColumn<double>("expected");
    QTest::newRow("width decides") << QRect(0, 0, 700, 400) << 0.5;
    QTest::newRow("height decides") << QRect(-300, 700, 100, 1400) << 0.2;
    QTest::newRow("small content is enlarged") << QRect(-900, -900, 100, 20) << 2.0;
}

void tst_FreeformWidgetScale::fitShowsTheWholeExtent()
{
    QFETCH(QRect, extent);
    QFETCH(double, expected);
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = extent;

    QCOMPARE(scene.widget()->setScale(-1, nullptr), expected);
    QCOMPARE(scene.widget()->setScale(-1, nullptr), expected);

    QCOMPARE(scene.widget()->getScale(), expected);
    QVERIFY(scene.viewer.getViewRect().contains(extent));
}

// The centre of (-50, -50, 800, 500) is (349, 199); the view of 800 x 600 units lies around it.
void tst_FreeformWidgetScale::fitCentresTheExtent()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 700, 400);

    scene.widget()->setScale(-1, nullptr);
    QCOMPARE(scene.widget()->getPointAtOrigin(), QPointF(-51, -101));
    QCOMPARE(scene.scrollOffset(), QPoint(0, 0));
    // The view is still as large as at the former scale.
    QCOMPARE(scene.pane.getBounds(), QRect(-51, -101, 801, 551));

    scene.widget()->setScale(-1, nullptr);
    QCOMPARE(scene.pane.getBounds(), QRect(-51, -101, 801, 600));
}

// The answer is the fitting scale, the one in force is clamped, on purpose.
void tst_FreeformWidgetScale::fitStoresItsScaleBeforeTheBoundsApply()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 700, 400);
    scene.widget()->setScaleBounds(0.75, 4);

    QCOMPARE(scene.widget()->setScale(-1, nullptr), 0.5);

    QCOMPARE(scene.widget()->getScale(), 0.75);
}

void tst_FreeformWidgetScale::scaleAtPointIsUnchangedWhenNegativeOrEqual()
{
    ShownScene scene;
    QVERIFY(scene.show());
    const QString before = text(scene);

    QCOMPARE(scene.widget()->setScaleAt(-1, QPoint(10, 10)), 1.0);
    QCOMPARE(scene.widget()->setScaleAt(-0.5, QPoint(10, 10)), 1.0);
    QCOMPARE(scene.widget()->setScaleAt(1, QPoint(10, 10)), 1.0);

    QCOMPARE(text(scene), before);

    // Clamped it would be 0.5.
    scene.widget()->setScaleBounds(0.5, 4);
    QCOMPARE(scene.widget()->setScaleAt(-1, QPoint(10, 10)), 1.0);
    QCOMPARE(text(scene), before);
}

void tst_FreeformWidgetScale::scaleAtPointIsUnchangedWithoutExtent()
{
    Scene scene;
    QVERIFY(scene.show());
    const QString before = text(scene);

    QCOMPARE(scene.widget()->setScaleAt(2, QPoint(10, 10)), 1.0);

    QCOMPARE(text(scene), before);
    QVERIFY(!scene.widget()->isResizing());
}

void tst_FreeformWidgetScale::scaleAtPointIsClamped()
{
    ShownScene scene;
    QVERIFY(scene.show());
    scene.widget()->setScaleBounds(0.5, 4);

    QCOMPARE(scene.widget()->setScaleAt(10, QPoint(10, 10)), 4.0);
    QCOMPARE(scene.widget()->getScale(), 4.0);
    const QString before = text(scene);
    QCOMPARE(scene.widget()->setScaleAt(20, QPoint(300, 100)), 4.0);
    QCOMPARE(text(scene), before);
    QCOMPARE(scene.widget()->setScaleAt(0.1, QPoint(10, 10)), 0.5);
}

void tst_FreeformWidgetScale::scaleAtPointKeepsThePointOnTheScreen_data()
{
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<double>("scale");
    for (const QPoint &at : {QPoint(0, 0), QPoint(200, 150), QPoint(399, 299), QPoint(37, 251)}) {
        for (double scale : {0.1, 0.5, 0.9, 1.1, 2.0, 7.5})
            QTest::addRow("(%d, %d) at %g", at.x(), at.y(), scale) << at << scale;
    }
}

void tst_FreeformWidgetScale::scaleAtPointKeepsThePointOnTheScreen()
{
    QFETCH(QPoint, at);
    QFETCH(double, scale);
    ShownScene scene;
    QVERIFY(scene.show());
    const QPointF before = onScreen(scene, at);

    QCOMPARE(scene.widget()->setScaleAt(scale, at), scale);

    // The view rectangle is rounded to whole units.
    const QPointF after = onScreen(scene, at);
    QVERIFY2(isNear(after, before, scale + 1),
             qPrintable(QStringLiteral("%1, %2").arg(after.x()).arg(after.y())));
}

void tst_FreeformWidgetScale::zoomKeepsTheCentreOnTheScreen_data()
{
    QTest::addColumn<double>("scale");
    for (double scale : {0.05, 0.3, 0.99, 1.2, 3.0, 10.0})
        QTest::addRow("%g", scale) << scale;
}

void tst_FreeformWidgetScale::zoomKeepsTheCentreOnTheScreen()
{
    QFETCH(double, scale);
    ShownScene scene;
    QVERIFY(scene.show());
    const QPoint centre = scene.viewer.getViewRect().center();
    const QPointF before = onScreen(scene, centre);

    scene.widget()->setScale(scale, nullptr);

    QVERIFY(isNear(onScreen(scene, centre), before, scale + 1));
}

void tst_FreeformWidgetScale::everyZoomFollowsTheRules_data()
{
    QTest::addColumn<QSize>("viewport");
    QTest::addColumn<quint32>("seed");
    for (const QSize &size : {QSize(400, 300), QSize(401, 299), QSize(977, 613), QSize(150, 90)}) {
        for (quint32 seed = 1; seed <= 5; ++seed)
            QTest::addRow("%d x %d, %u", size.width(), size.height(), seed) << size << seed;
    }
}

// Random zooms, compared with the model after each.
void tst_FreeformWidgetScale::everyZoomFollowsTheRules()
{
    QFETCH(QSize, viewport);
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const auto number = [&random](int from, int to) { return random.bounded(from, to + 1); };
    const auto point = [&] { return QPoint(number(-1500, 1500), number(-1500, 1500)); };
    const auto scale = [&] { return std::exp(random.generateDouble() * 5 - 2.5); };
    Scene scene(viewport);
    Model model(viewport);
    QVERIFY(scene.show());
    QCOMPARE(text(scene), text(model));

    for (int step = 0; step < 200; ++step) {
        const QPoint at = point();
        const double wanted = number(0, 9) ? scale() : 0;
        double answer = 0;
        double expected = 0;
        switch (number(0, 8)) {
        case 0:
            model.extent = QRect(point(), QSize(number(1, 900), number(1, 900)));
            scene.pane.extent = model.extent;
            break;
        case 1:
            model.margins = QPoint(number(0, 60), number(0, 60));
            scene.widget()->setMargins(model.margins.x(), model.margins.y());
            break;
        case 2:
            model.scroll = QPoint(number(0, model.range.width()), number(0, model.range.height()));
            scene.scrollTo(model.scroll);
            break;
        case 3:
            model.minimum = model.maximum = -1;
            scene.widget()->resetScaleBounds();
            if (number(0, 1)) {
                const double other = scale();
                model.setScaleBounds(wanted, other);
                scene.widget()->setScaleBounds(wanted, other);
            }
            break;
        case 4:
            answer = scene.widget()->setScale(-1, nullptr);
            expected = model.setScale(-1, nullptr);
            break;
        case 5:
            answer = scene.widget()->setScaleAt(wanted, at);
            expected = model.setScaleAt(wanted, at);
            break;
        case 6:
            answer = scene.widget()->setScale(wanted, &at);
            expected = model.setScale(wanted, &at);
            break;
        default:
            answer = scene.widget()->setScale(wanted, nullptr);
            expected = model.setScale(wanted, nullptr);
        }
        QCOMPARE(answer, expected);
        QVERIFY2(text(scene) == text(model),
                 qPrintable(QStringLiteral("step %1:\n%2\n%3")
                                .arg(QString::number(step), text(scene), text(model))));
    }
}

QTEST_MAIN(tst_FreeformWidgetScale)
#include "tst_freeformwidget_scale.moc"
