#include "scene.h"

#include <mortalfigure.h>
#include <pixels.h>

#include <figura/layout/PageLayout.h>
#include <figura/layout/StackLayout.h>
#include <figura/layout/XYLayout.h>

#include <QMimeData>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPointer>
#include <QPrinter>
#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <QTemporaryDir>

#include <functional>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A content that announces what a canvas asks of it.
class MortalPane : public Mortal<FreeformLayeredPane>
{
public:
    using Mortal::Mortal;

    QRect getFreeformExtent() override
    {
        return with("getFreeformExtent", [&] { return FreeformLayeredPane::getFreeformExtent(); });
    }
    void setFreeformBounds(const QRect &rect) override
    {
        with("setFreeformBounds", [&] { FreeformLayeredPane::setFreeformBounds(rect); });
    }
};

/// A layer that announces that its extent was asked for.
class MortalLayer : public Mortal<FreeformLayer>
{
public:
    using Mortal::Mortal;

    QRect getFreeformExtent() override
    {
        return with("getFreeformExtent", [&] { return FreeformLayer::getFreeformExtent(); });
    }
};

/// A page that announces that it was measured.
class MortalPage : public Mortal<PageLayout>
{
public:
    using Mortal::Mortal;

    QRectF getContentRect(QPainter *painter) override
    {
        return with("getContentRect", [&] { return PageLayout::getContentRect(painter); });
    }
    void decoratePage(QPainter *, const QVariant &) override {}
};

class OpenViewer : public FreeformViewer
{
public:
    using FreeformViewer::mousePressEvent;
    using FreeformViewer::resizeEvent;
    using FreeformViewer::scrollContentsBy;
};

/// A viewer of a figure larger than it, all of which can be destroyed.
class MortalView
{
public:
    MortalView()
    {
        pane->addLayer(group, QStringLiteral("group"));
        group->addLayer(layer, QStringLiteral("figures"));
        layer->add(figure, QRect(0, 0, 1000, 1000));
        viewer->resize(200, 150);
        viewer->setContent(pane);
        viewer->getUpdateManager()->performUpdate();
        widget()->ensureViewable(QRect(-90, -90, 1200, 1200), false, true);
        viewer->horizontalScrollBar()->setRange(0, 900);
        viewer->verticalScrollBar()->setRange(0, 900);
        const auto announce = [this](const char *who, const char *what) {
            return [this, who, what] { fate.reach(who, what); };
        };
        QObject::connect(viewer->getUpdateManager(), &UpdateManager::aboutToValidate, pane,
                         announce("manager", "aboutToValidate"));
        QObject::connect(viewer->horizontalScrollBar(), &QScrollBar::valueChanged, pane,
                         announce("horizontal bar", "valueChanged"));
        QObject::connect(viewer->verticalScrollBar(), &QScrollBar::valueChanged, pane,
                         announce("vertical bar", "valueChanged"));
    }
    ~MortalView()
    {
        delete viewer;
        delete pane;
        delete group;
        delete layer;
        delete figure;
    }
    Q_DISABLE_COPY_MOVE(MortalView)

    // As when the slider of a scroll bar is let go.
    void shrink() const { QMetaObject::invokeMethod(viewer, "evaluateContentBounds"); }
    FreeformWidget *widget() const { return qobject_cast<FreeformWidget *>(viewer->widget()); }

    void destroy(const QString &victim)
    {
        if (victim == QStringLiteral("viewer"))
            delete viewer;
        else if (victim == QStringLiteral("widget"))
            delete viewer->widget();
        else
            delete pane;
    }

    Fate fate;
    QPointer<OpenViewer> viewer = new OpenViewer;
    QPointer<MortalPane> pane = new MortalPane(&fate, "pane");
    QPointer<FreeformLayeredPane> group = new FreeformLayeredPane;
    QPointer<FreeformLayer> layer = new MortalLayer(&fate, "layer");
    QPointer<Figure> figure = new MortalFigure<Figure>(&fate, "figure", nullptr, Qt::red);
};

using Operation = std::function<void(MortalView *)>;

/// Calls back while it is validated.
class BusyFigure : public Figure
{
public:
    std::function<void()> whileValidated;
    int validations = 0;

    void validate() override
    {
        ++validations;
        if (const auto act = std::exchange(whileValidated, nullptr))
            act();
        Figure::validate();
    }
};

class OpenWidget : public FreeformWidget
{
public:
    using FreeformWidget::FreeformWidget;
    using FreeformWidget::paintEvent;
};

} // namespace

class tst_ViewInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void partsMayGoInAnOperation_data();
    void partsMayGoInAnOperation();
    void picturesAreEmptyWhenTheirPartsGo_data();
    void picturesAreEmptyWhenTheirPartsGo();
    void nothingIsPrintedOncePartsAreGone_data();
    void nothingIsPrintedOncePartsAreGone();
    void widgetMayGoWhileAPaintValidates();
    void widgetMayGoOnASecondTurn_data();
    void widgetMayGoOnASecondTurn();
    void paneMayGoWhileItTakesALayer_data();
    void paneMayGoWhileItTakesALayer();
    void paneMayGoWhileItLosesALayer();
    void layerMayGoWhileItGetsItsName();
    void layerMayGoWhileItIsAdded_data();
    void layerMayGoWhileItIsAdded();
    void partsMayGoWhileAContentIsShown_data();
    void partsMayGoWhileAContentIsShown();
    void managerMayGoWhileItValidates();
    void partsMayGoWhileTheyArePrinted_data();
    void partsMayGoWhileTheyArePrinted();
};

void tst_ViewInterrupted::partsMayGoInAnOperation_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<QString>("victim");
    QTest::addColumn<Operation>("operation");
    const auto rows = [](const char *name, const char *moment, const QStringList &victims,
                         const Operation &operation) {
        for (const QString &victim : victims)
            QTest::addRow("%s, %s: %s", name, moment, qPrintable(victim))
                << QString::fromLatin1(moment) << victim << operation;
    };
    const QStringList all{QStringLiteral("viewer"), QStringLiteral("widget"),
                          QStringLiteral("pane")};
    const Operation fit = [](MortalView *view) { view->viewer->setScale(-1.0); };
    const Operation zoom = [](MortalView *view) { view->viewer->setScale(2.0); };
    const Operation shrink = [](MortalView *view) { view->shrink(); };
    const Operation move = [](MortalView *view) {
        view->viewer->setViewLocation(QPoint(-300, -200));
    };
    const Operation scroll = [](MortalView *view) {
        view->viewer->setViewLocation(QPoint(300, 200));
    };
    const Operation enlarge = [](MortalView *view) {
        QResizeEvent event(QSize(3000, 3000), view->viewer->size());
        view->viewer->viewport()->resize(3000, 3000);
        view->viewer->resizeEvent(&event);
    };
    for (const Operation &operation : {fit, zoom, shrink})
        rows("measured", "pane::getFreeformExtent", all, operation);
    rows("fitted twice", "pane::getFreeformExtent", all,
         [](MortalView *view) { view->viewer->scaleToFit(); });
    rows("zoomed", "pane::setFreeformBounds", all, zoom);
    rows("moved", "pane::setFreeformBounds", all, move);
    rows("resized", "pane::setFreeformBounds", all, enlarge);
    rows("shrunk", "pane::setFreeformBounds", all, shrink);
    rows("scrolled", "horizontal bar::valueChanged", all, scroll);
    rows("scrolled", "vertical bar::valueChanged", all, scroll);
    rows("zoomed", "horizontal bar::valueChanged", all, zoom);
    rows("zoomed", "vertical bar::valueChanged", all, zoom);
}

void tst_ViewInterrupted::partsMayGoInAnOperation()
{
    QFETCH(QString, moment);
    QFETCH(QString, victim);
    QFETCH(Operation, operation);
    MortalView view;
    view.fate.at(moment, 1, [&] { view.destroy(victim); });

    operation(&view);

    QVERIFY(view.fate.hasStruck());
    QCOMPARE(view.viewer.isNull(), victim == QStringLiteral("viewer"));
    QCOMPARE(view.pane.isNull(), victim == QStringLiteral("pane"));
    if (view.viewer) {
        QCOMPARE(view.viewer->widget() == nullptr, victim == QStringLiteral("widget"));
        QVERIFY(!view.viewer->getContent());
    }
}

void tst_ViewInterrupted::picturesAreEmptyWhenTheirPartsGo_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<QString>("victim");
    for (const char *moment : {"manager::aboutToValidate", "layer::getFreeformExtent"}) {
        for (const char *victim : {"viewer", "widget"})
            QTest::addRow("%s in %s", victim, moment)
                << QString::fromLatin1(moment) << QString::fromLatin1(victim);
    }
}

void tst_ViewInterrupted::picturesAreEmptyWhenTheirPartsGo()
{
    QFETCH(QString, moment);
    QFETCH(QString, victim);
    MortalView view;
    view.figure->revalidate();
    view.fate.at(moment, 1, [&] { view.destroy(victim); });

    const QPixmap picture = view.widget()->printToPixmap(QStringLiteral("group"));

    QVERIFY(view.fate.hasStruck());
    QVERIFY(picture.isNull());
}

void tst_ViewInterrupted::nothingIsPrintedOncePartsAreGone_data()
{
    picturesAreEmptyWhenTheirPartsGo_data();
    QTest::newRow("content in manager::aboutToValidate")
        << QStringLiteral("manager::aboutToValidate") << QStringLiteral("pane");
}

void tst_ViewInterrupted::nothingIsPrintedOncePartsAreGone()
{
    QFETCH(QString, moment);
    QFETCH(QString, victim);
    MortalView view;
    const QTemporaryDir folder;
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("page.pdf")));
    view.figure->revalidate();
    bool isPainted = false;
    view.fate.at(moment, 1, [&] {
        view.destroy(victim);
        view.fate.at(QStringLiteral("figure::drawBackground"), 1, [&] { isPainted = true; });
    });

    view.viewer->print(&printer, QStringLiteral("group"));

    QVERIFY(!view.viewer || !view.viewer->getContent());
    QVERIFY(!isPainted);
}

// Outside of a real paint event: inside one, not even Qt lets a widget go.
void tst_ViewInterrupted::widgetMayGoWhileAPaintValidates()
{
    FreeformViewer viewer;
    FreeformLayeredPane pane;
    FreeformLayer layer;
    BusyFigure figure;
    pane.addLayer(&layer, QStringLiteral("figures"));
    layer.add(&figure, QRect(0, 0, 50, 50));
    UpdateManager manager;
    manager.setViewer(&viewer);
    QPointer<OpenWidget> widget = new OpenWidget(&viewer);
    widget->setUpdateManager(&manager);
    widget->setContent(&pane);
    manager.performUpdate();
    figure.revalidate();
    figure.whileValidated = [&] { delete widget; };
    QPaintEvent event(QRect(0, 0, 100, 100));

    widget->paintEvent(&event);

    QVERIFY(!widget);
    QVERIFY(figure.validations > 0);
}

void tst_ViewInterrupted::widgetMayGoOnASecondTurn_data()
{
    QTest::addColumn<QString>("moment");
    QTest::newRow("revalidated") << QStringLiteral("figure::revalidate");
    QTest::newRow("announced") << QStringLiteral("manager::aboutToValidate");
}

// What becomes stale during a pass gets a turn of its own.
void tst_ViewInterrupted::widgetMayGoOnASecondTurn()
{
    QFETCH(QString, moment);
    MortalView view;
    BusyFigure busy;
    view.layer->add(&busy, QRect(0, 0, 10, 10));
    view.viewer->getUpdateManager()->performUpdate();
    busy.whileValidated = [&] { view.figure->revalidate(); };
    busy.revalidate();
    view.viewer->getUpdateManager()->performUpdate();
    QVERIFY(!view.figure->getFlag(Figure::FLAG_VALID));

    view.fate.at(moment, 1, [&] { view.destroy(QStringLiteral("viewer")); });
    QCoreApplication::processEvents();

    QVERIFY(view.fate.hasStruck());
    QVERIFY(!view.viewer);
}

void tst_ViewInterrupted::paneMayGoWhileItTakesALayer_data()
{
    QTest::addColumn<bool>("beneath");
    QTest::addColumn<bool>("whenNamed");
    for (const bool beneath : {false, true}) {
        for (const bool whenNamed : {false, true})
            QTest::addRow("%s, %s", beneath ? "beneath" : "above", whenNamed ? "named" : "added")
                << beneath << whenNamed;
    }
}

void tst_ViewInterrupted::paneMayGoWhileItTakesALayer()
{
    QFETCH(bool, beneath);
    QFETCH(bool, whenNamed);
    QPointer<FreeformLayeredPane> pane = new FreeformLayeredPane;
    FreeformLayer first;
    FreeformLayer second;
    pane->addLayer(&first, QStringLiteral("first"));
    const auto destroy = [&] { delete pane; };
    if (whenNamed)
        connect(&second, &QObject::objectNameChanged, this, destroy);
    else
        connect(&second, &Figure::propertyChanged, this, destroy);

    if (beneath)
        pane->addLayerBeneath(&second, QStringLiteral("second"), &first);
    else
        pane->addLayerAbove(&second, QStringLiteral("second"), &first);

    QVERIFY(!pane);
    QVERIFY(!second.getParentFigure());
    QVERIFY(!first.getParentFigure());
}

void tst_ViewInterrupted::layerMayGoWhileItGetsItsName()
{
    FreeformLayeredPane pane;
    QPointer<FreeformLayer> layer = new FreeformLayer;
    connect(layer, &QObject::objectNameChanged, this, [&] { delete layer; });

    pane.addLayer(layer, QStringLiteral("layer"));

    QVERIFY(!layer);
    QCOMPARE(pane.childFigureCount(), 0);
    QVERIFY(!pane.getLayer(QStringLiteral("layer")));
}

void tst_ViewInterrupted::paneMayGoWhileItLosesALayer()
{
    QPointer<FreeformLayeredPane> pane = new FreeformLayeredPane;
    FreeformLayer layer;
    pane->addLayer(&layer, QStringLiteral("layer"));
    connect(&layer, &Figure::propertyChanged, this, [&] { delete pane; });

    QCOMPARE(pane->removeLayer(QStringLiteral("layer")), &layer);

    QVERIFY(!pane);
    QVERIFY(!layer.getParentFigure());
}

void tst_ViewInterrupted::layerMayGoWhileItIsAdded_data()
{
    QTest::addColumn<bool>("isBeside");
    QTest::newRow("on top") << false;
    QTest::newRow("above another") << true;
}

void tst_ViewInterrupted::layerMayGoWhileItIsAdded()
{
    QFETCH(bool, isBeside);
    FreeformLayeredPane pane;
    FreeformLayer other;
    pane.addLayer(&other, QStringLiteral("other"));
    QPointer<FreeformLayer> layer = new FreeformLayer;
    connect(layer, &Figure::propertyChanged, this, [&] { delete layer; });

    pane.addLayerAbove(layer, QStringLiteral("layer"), isBeside ? &other : nullptr);

    QVERIFY(!layer);
    QCOMPARE(pane.childFigures(), QList<Figure *>{&other});
    QVERIFY(!pane.getLayer(QStringLiteral("layer")));
}

void tst_ViewInterrupted::partsMayGoWhileAContentIsShown_data()
{
    QTest::addColumn<bool>("isWidget");
    QTest::newRow("the widget") << true;
    QTest::newRow("the content") << false;
}

void tst_ViewInterrupted::partsMayGoWhileAContentIsShown()
{
    QFETCH(bool, isWidget);
    Fate fate;
    FreeformViewer viewer;
    QPointer<FreeformWidget> widget = new FreeformWidget(&viewer);
    QPointer<FreeformLayeredPane> pane = new FreeformLayeredPane;
    FreeformLayer layer;
    MortalFigure<Figure> figure(&fate, "figure");
    pane->addLayer(&layer, QStringLiteral("layer"));
    layer.add(&figure, QRect(0, 0, 10, 10));
    fate.at(QStringLiteral("figure::addNotify"), 1, [&] {
        if (isWidget)
            delete widget;
        else
            delete pane;
    });

    QVERIFY(!widget->setContent(pane));

    QVERIFY(fate.hasStruck());
    QCOMPARE(widget.isNull(), isWidget);
    if (widget)
        QVERIFY(!widget->getContent());
    delete pane;
}

void tst_ViewInterrupted::managerMayGoWhileItValidates()
{
    FreeformViewer viewer;
    FreeformLayeredPane pane;
    FreeformLayer layer;
    BusyFigure figure;
    pane.addLayer(&layer, QStringLiteral("figures"));
    layer.add(&figure, QRect(0, 0, 50, 50));
    QPointer<UpdateManager> manager = new UpdateManager;
    manager->setViewer(&viewer);
    manager->addInvalidFigure(&figure);
    manager->addInvalidFigure(&layer);
    figure.whileValidated = [&] { delete manager; };

    manager->performUpdate();

    QVERIFY(!manager);
    QCOMPARE(figure.validations, 1);
}

void tst_ViewInterrupted::partsMayGoWhileTheyArePrinted_data()
{
    QTest::addColumn<bool>("isWidget");
    QTest::newRow("the widget, when the page is measured") << true;
    QTest::newRow("the page layout, when the content is painted") << false;
}

void tst_ViewInterrupted::partsMayGoWhileTheyArePrinted()
{
    QFETCH(bool, isWidget);
    MortalView view;
    auto *page = new MortalPage(&view.fate, "page");
    QPointer<PageLayout> layout = page;
    view.viewer->setPageLayout(page);
    const QTemporaryDir folder;
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("page.pdf")));
    if (isWidget)
        view.fate.at(QStringLiteral("page::getContentRect"), 1,
                     [&] { view.destroy(QStringLiteral("widget")); });
    else
        view.fate.at(QStringLiteral("figure::drawBackground"), 1, [&] { delete layout; });

    view.viewer->print(&printer, QStringLiteral("group"));

    QVERIFY(view.fate.hasStruck());
    QCOMPARE(layout.isNull(), !isWidget);
    delete layout;
}

Q_DECLARE_METATYPE(Operation)

QTEST_MAIN(tst_ViewInterrupted)
#include "tst_view_interrupted.moc"
