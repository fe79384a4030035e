#include "scene.h"

#include <figura/layout/PageLayout.h>

#include <pixels.h>

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class EmptyPage : public PageLayout
{
public:
    void decoratePage(QPainter *, const QVariant &) override {}
};

// Calls the test back when it is painted.
class HookFigure : public Figure
{
public:
    explicit HookFigure(const QColor &color)
        : Figure(nullptr, color)
    {
    }

    std::function<void()> onDraw;

protected:
    void drawFigure(QPainter *, const QStyleOptionViewItem &) const override
    {
        const std::function<void()> hook = onDraw; // outlives the figure
        if (hook)
            hook();
    }
};

enum class Part {
    Content,
    LowerLayer,
    UpperLayer,
    First,
    Hook,
    Last,
    Nested,
    Manager,
    Page,
    Widget,
    Viewer,
};

const QList<Part> allParts{Part::Content, Part::LowerLayer, Part::UpperLayer, Part::First,
                           Part::Hook,    Part::Last,       Part::Nested,     Part::Manager,
                           Part::Page,    Part::Widget,     Part::Viewer};

const char *nameOf(Part part)
{
    static const char *const names[] = {"content", "lower layer", "upper layer",   "first figure",
                                        "hook",    "last figure", "nested figure", "update manager",
                                        "page",    "widget",      "viewer"};
    return names[int(part)];
}

// A shown viewer all of whose parts may be destroyed by hand. What is left goes at the end.
class Parts
{
public:
    Parts()
    {
        pane->addLayer(lower, QStringLiteral("lower"));
        pane->addLayer(upper, QStringLiteral("upper"));
        last->setLayoutManager(new FreeformLayout(last));
        lower->add(first, QRect(10, 10, 50, 50));
        lower->add(hook, QRect(30, 30, 50, 50));
        lower->add(last, QRect(50, 50, 50, 50));
        last->add(nested, QRect(60, 60, 20, 20));
        upper->add(top, QRect(0, 0, 15, 15));
        manager = viewer->getUpdateManager();
        widget = viewer->widget();
        viewer->setPageLayout(page);
        viewer->setContent(pane);
        viewer->resize(400, 300);
        viewer->show();
        // Before that a real display paints nothing.
        isExposed = QTest::qWaitForWindowExposed(viewer);
        settle(viewer);
    }

    ~Parts()
    {
        for (Part part : allParts)
            destroy(part);
        delete top;
    }

    bool isExposed = false;
    QPointer<FreeformLayeredPane> pane = new FreeformLayeredPane;
    QPointer<FreeformLayer> lower = new FreeformLayer;
    QPointer<FreeformLayer> upper = new FreeformLayer;
    QPointer<Figure> first = new Figure(nullptr, Qt::red);
    QPointer<HookFigure> hook = new HookFigure(Qt::green);
    QPointer<Figure> last = new Figure(nullptr, Qt::blue);
    QPointer<Figure> nested = new Figure(nullptr, Qt::yellow);
    QPointer<Figure> top = new Figure(nullptr, Qt::black);
    QPointer<PageLayout> page = new EmptyPage;
    QPointer<FreeformViewer> viewer = new FreeformViewer;
    QPointer<UpdateManager> manager;
    QPointer<QWidget> widget;

    QObject *object(Part part) const
    {
        switch (part) {
        case Part::Content:
            return pane;
        case Part::LowerLayer:
            return lower;
        case Part::UpperLayer:
            return upper;
        case Part::First:
            return first;
        case Part::Hook:
            return hook;
        case Part::Last:
            return last;
        case Part::Nested:
            return nested;
        case Part::Manager:
            return manager;
        case Part::Page:
            return page;
        case Part::Widget:
            return widget;
        case Part::Viewer:
            return viewer;
        }
        return nullptr;
    }

    void destroy(Part part) { delete object(part); }

    // Touches all that is still there.
    void use()
    {
        for (const QPointer<Figure> &figure :
             {first, QPointer<Figure>(hook.data()), last, nested}) {
            if (!figure)
                continue;
            figure->setBounds(figure->getBounds().translated(1, 1));
            figure->revalidate();
            figure->repaint();
        }
        if (viewer)
            useViewer();
        QCoreApplication::processEvents();
    }

private:
    void useViewer()
    {
        viewer->setScale(viewer->getScale() > 1 ? 1 : 2);
        viewer->scaleToFit();
        viewer->setViewLocation(QPoint(5, 5));
        viewer->setViewLocation(QPoint(7, 7), true);
        viewer->resize(viewer->width() == 400 ? QSize(410, 310) : QSize(400, 300));
        viewer->getLastClickLocation();
        viewer->resetLastClickLocation();
        viewer->updateContentRect(QRect(0, 0, 10, 10));
        viewer->toContent(viewer->fromContent(QRect(1, 2, 3, 4)));
        viewer->toGlobal(viewer->fromGlobal(QPoint(1, 2)));
        viewer->elasticBand() = QRect();
        viewer->setHighlighted(true);
        viewer->setHighlightStyle(1);
        viewer->setScaleBounds(0.1, 10);
        viewer->resetScaleBounds();
        viewer->setXYMargins(50, 50);
        viewer->enableExtentHandling(true);
        viewer->extentHandlingEnabled();
        viewer->getContent();
        viewer->getUpdateManager();
        viewer->getPageLayout();
        viewer->update();
        viewer->repaint();
        viewer->horizontalScrollBar()->setSliderDown(true);
        viewer->horizontalScrollBar()->setSliderDown(false);
        settle(viewer);
    }
};

void addPartRows(const QList<Part> &parts)
{
    QTest::addColumn<int>("part");
    for (Part part : parts)
        QTest::newRow(nameOf(part)) << int(part);
}

const QList<Part> figures{Part::Content, Part::LowerLayer, Part::UpperLayer, Part::First,
                          Part::Hook,    Part::Last,       Part::Nested};

} // namespace

class tst_ViewLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void anyPartMayGoFirst_data() { addPartRows(allParts); }
    void anyPartMayGoFirst();
    void allPartsMayGoInAnyOrder_data();
    void allPartsMayGoInAnyOrder();
    void anyPartMayGoWhileValidationIsAnnounced_data() { addPartRows(allParts); }
    void anyPartMayGoWhileValidationIsAnnounced();
    void figuresManagerAndPageMayGoWhileAPaintEventValidates_data();
    void figuresManagerAndPageMayGoWhileAPaintEventValidates();
    void figuresManagerAndPageMayGoInsideAPaintEvent_data();
    void figuresManagerAndPageMayGoInsideAPaintEvent();
    void figuresMayGoInsideAZoom_data();
    void figuresMayGoInsideAZoom();
    void destroyedFigureIsNotPaintedAnyMore();
    void destroyedContentLeavesAnEmptyViewer();
    void viewerTakesANewContentAfterTheFormerOneIsGone();
    void viewerTakesANewManagerAfterTheFormerOneIsGone();
    void managerForgetsAViewerThatIsGone();
    void managerForgetsAViewerBeforeItsWidgetGoes();
    void whatIsShownGoesWithTheContentAndWithTheManager_data();
    void whatIsShownGoesWithTheContentAndWithTheManager();
    void widgetThatWasTakenOutOutlivesItsViewer();
};

void tst_ViewLifetime::anyPartMayGoFirst()
{
    QFETCH(int, part);
    Parts parts;

    parts.destroy(Part(part));
    QVERIFY(!parts.object(Part(part)));
    parts.use();
    parts.use();
}

void tst_ViewLifetime::allPartsMayGoInAnyOrder_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 60; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_ViewLifetime::allPartsMayGoInAnyOrder()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    QList<Part> order = allParts;
    std::shuffle(order.begin(), order.end(), random);
    Parts parts;

    for (Part part : std::as_const(order)) {
        parts.destroy(part);
        parts.use();
    }

    for (Part part : allParts)
        QVERIFY(!parts.object(part));
}

void tst_ViewLifetime::anyPartMayGoWhileValidationIsAnnounced()
{
    QFETCH(int, part);
    Parts parts;
    parts.first->revalidate();
    parts.pane->revalidate();
    connect(parts.manager, &UpdateManager::aboutToValidate, this,
            [&parts, part] { parts.destroy(Part(part)); });

    parts.manager->performUpdate();

    QVERIFY(!parts.object(Part(part)));
    parts.use();
}

void tst_ViewLifetime::figuresManagerAndPageMayGoWhileAPaintEventValidates_data()
{
    addPartRows(figures + QList<Part>{Part::Manager, Part::Page});
}

void tst_ViewLifetime::figuresManagerAndPageMayGoWhileAPaintEventValidates()
{
    QFETCH(int, part);
    Parts parts;
    parts.first->revalidate();
    connect(parts.manager, &UpdateManager::aboutToValidate, this,
            [&parts, part] { parts.destroy(Part(part)); });

    parts.widget->repaint();

    QVERIFY(!parts.object(Part(part)));
    parts.use();
}

// Also the figure that is being painted, and the figures above it.
void tst_ViewLifetime::figuresManagerAndPageMayGoInsideAPaintEvent_data()
{
    addPartRows(figures + QList<Part>{Part::Manager, Part::Page});
}

void tst_ViewLifetime::figuresManagerAndPageMayGoInsideAPaintEvent()
{
    QFETCH(int, part);
    Parts parts;
    parts.hook->onDraw = [&parts, part] { parts.destroy(Part(part)); };

    parts.widget->repaint();

    QVERIFY(!parts.object(Part(part)));
    parts.use();
}

void tst_ViewLifetime::figuresMayGoInsideAZoom_data()
{
    addPartRows(figures + QList<Part>{Part::Manager, Part::Page});
}

void tst_ViewLifetime::figuresMayGoInsideAZoom()
{
    QFETCH(int, part);
    Parts parts;
    bool isDone = false;
    connect(parts.pane, &Figure::figureMoved, this, [&] {
        if (!isDone)
            parts.destroy(Part(part));
        isDone = true;
    });

    parts.viewer->setScale(3);

    QVERIFY(isDone);
    QVERIFY(!parts.object(Part(part)));
    QCOMPARE(parts.viewer->getScale(), 3.0);
    parts.use();
}

void tst_ViewLifetime::destroyedFigureIsNotPaintedAnyMore()
{
    Parts parts;
    const QPoint inside(20, 20);
    QCOMPARE(colorAt(parts.widget->grab().toImage(), inside), QColor(Qt::red));

    parts.destroy(Part::First);

    QVERIFY(colorAt(parts.widget->grab().toImage(), inside) != QColor(Qt::red));
}

void tst_ViewLifetime::destroyedContentLeavesAnEmptyViewer()
{
    Parts parts;

    parts.destroy(Part::Content);

    QCOMPARE(parts.viewer->getContent(), nullptr);
    QCOMPARE(parts.viewer->widget()->sizeHint(), QSize(300, 200));
    QVERIFY(parts.widget->grab().toImage().pixelColor(20, 20) != QColor(Qt::red));
}

void tst_ViewLifetime::viewerTakesANewContentAfterTheFormerOneIsGone()
{
    Parts parts;
    FreeformLayeredPane next;
    parts.destroy(Part::Content);

    QVERIFY(parts.viewer->setContent(&next));

    QCOMPARE(parts.viewer->getContent(), &next);
    QCOMPARE(next.getUpdateManager(), parts.manager.data());
    parts.use();
}

void tst_ViewLifetime::viewerTakesANewManagerAfterTheFormerOneIsGone()
{
    Parts parts;
    parts.destroy(Part::Manager);
    QCOMPARE(parts.viewer->getUpdateManager(), nullptr);
    UpdateManager next;

    parts.viewer->setUpdateManager(&next);

    QCOMPARE(parts.pane->getUpdateManager(), &next);
    parts.use();
    parts.destroy(Part::Viewer);
}

// Also one that it was given behind the viewer's back.
void tst_ViewLifetime::managerForgetsAViewerThatIsGone()
{
    UpdateManager manager;
    auto viewer = std::make_unique<FreeformViewer>();
    manager.setViewer(viewer.get());

    viewer.reset();

    QCOMPARE(manager.getViewer(), nullptr);
    QTest::ignoreMessage(QtWarningMsg, "UpdateManager::addDirtyRegion(): no managed widget");
    manager.addDirtyRegion(QRect(1, 2, 3, 4));
}

// The base classes of the viewer destroy the widget: nobody may call it by then.
void tst_ViewLifetime::managerForgetsAViewerBeforeItsWidgetGoes()
{
    UpdateManager manager;
    auto viewer = std::make_unique<FreeformViewer>();
    viewer->setUpdateManager(&manager);
    QCOMPARE(manager.getViewer(), static_cast<IFigureViewer *>(viewer.get()));
    bool isForgotten = false;
    connect(viewer->widget(), &QObject::destroyed, this,
            [&] { isForgotten = !manager.getViewer(); });

    viewer.reset();

    QVERIFY(isForgotten);
}

void tst_ViewLifetime::whatIsShownGoesWithTheContentAndWithTheManager_data()
{
    QTest::addColumn<int>("part");
    QTest::newRow("content") << int(Part::Content);
    QTest::newRow("manager") << int(Part::Manager);
}

void tst_ViewLifetime::whatIsShownGoesWithTheContentAndWithTheManager()
{
    QFETCH(int, part);
    Parts parts;
    QVERIFY(parts.isExposed);
    const auto color = [&parts] {
        QCoreApplication::processEvents();
        const QPixmap screen = parts.viewer->screen()->grabWindow(parts.viewer->winId());
        return colorAt(screen.toImage(), QPoint(25, 25));
    };
    QCOMPARE(color(), QColor(Qt::red));

    parts.destroy(Part(part));

    QVERIFY(color() != QColor(Qt::red));
}

void tst_ViewLifetime::widgetThatWasTakenOutOutlivesItsViewer()
{
    Parts parts;
    const std::unique_ptr<QWidget> widget(parts.viewer->takeWidget());
    QVERIFY(widget);
    parts.destroy(Part::Viewer);

    widget->resize(200, 100);
    widget->show();
    QHoverEvent hover(QEvent::HoverMove, QPointF(5, 5), QPointF(5, 5), QPointF(1, 1));
    QCoreApplication::sendEvent(widget.get(), &hover);
    settle(widget.get());

    QCOMPARE(qobject_cast<FreeformWidget *>(widget.get())->getContent(), parts.pane);
    parts.first->setBounds(QRect(1000, 1000, 10, 10));
    settle(widget.get());
    QCOMPARE(widget->grab().deviceIndependentSize().toSize(), widget->size());
}

QTEST_MAIN(tst_ViewLifetime)
#include "tst_view_lifetime.moc"
