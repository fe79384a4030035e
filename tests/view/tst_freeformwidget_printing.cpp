#include "scene.h"

#include <pdfpages.h>

#include <figura/layout/PageLayout.h>

#include <QPageLayout>
#include <QPaintEngine>
#include <QPainter>
#include <QPrintEngine>
#include <QPrinter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Takes every drawing operation and shows none.
class BlindEngine : public QPaintEngine
{
public:
    BlindEngine()
        : QPaintEngine(AllFeatures)
    {
    }

    bool begins = true;
    int sessions = 0;

    bool begin(QPaintDevice *) override
    {
        ++sessions;
        return begins;
    }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
    void drawPath(const QPainterPath &) override {}
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
    Type type() const override { return User; }
};

// A printer of one kind of page, 600 dots per inch.
class PaperEngine : public QPrintEngine
{
public:
    QSize page{4960, 7016};
    QPrinter::PrinterState state = QPrinter::Active;
    int furtherPages = 0;

    void setProperty(PrintEnginePropertyKey, const QVariant &) override {}
    QVariant property(PrintEnginePropertyKey) const override { return {}; }
    bool newPage() override
    {
        ++furtherPages;
        return true;
    }
    bool abort() override { return true; }
    QPrinter::PrinterState printerState() const override { return state; }

    int metric(QPaintDevice::PaintDeviceMetric what) const override
    {
        switch (what) {
        case QPaintDevice::PdmWidth:
            return page.width();
        case QPaintDevice::PdmHeight:
            return page.height();
        case QPaintDevice::PdmDepth:
            return 24;
        case QPaintDevice::PdmDevicePixelRatio:
            return 1;
        case QPaintDevice::PdmDevicePixelRatioScaled:
            return int(QPaintDevice::devicePixelRatioFScale());
        default:
            return 600;
        }
    }
};

class PaperPrinter : public QPrinter
{
public:
    PaperPrinter() { setEngines(&paper, &painting); }

    PaperEngine paper;
    BlindEngine painting;
};

// Notes how it is rendered.
class WitnessLayer : public FreeformLayer
{
public:
    struct Rendering
    {
        QRect rect;
        QTransform transform;
    };
    QList<Rendering> renderings;
    QPalette palette;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        renderings.append({option.rect, painter->worldTransform()});
        palette = option.palette;
        painter->setPen(Qt::magenta);
        FreeformLayer::render(painter, option);
    }
};

class WitnessPage : public PageLayout
{
public:
    std::optional<QRectF> contentRect; // without it that of the base
    QList<QVariant> pages;
    QTransform transform;
    QPen pen;
    int rendered = -1;
    WitnessLayer *layer = nullptr;

    QRectF getContentRect(QPainter *painter) override
    {
        return contentRect ? *contentRect : PageLayout::getContentRect(painter);
    }

    void decoratePage(QPainter *painter, const QVariant &data) override
    {
        pages.append(data);
        transform = painter->worldTransform();
        pen = painter->pen();
        rendered = layer ? int(layer->renderings.size()) : -1;
        painter->fillRect(QRectF(10, 10, 50, 20), Qt::darkGreen);
    }
};

const QString sheet = QStringLiteral("sheet");

// A pane with one layer, of which another freeform layer is a child, because only such layers
// count when no area is given.
struct Document
{
    explicit Document(const QRect &figureRect = QRect(100, 200, 300, 100))
    {
        pane.addLayer(&layer, sheet);
        layer.add(&inner);
        inner.add(&figure, figureRect);
        inner.setFreeformBounds(figureRect);
        viewer.setContent(&pane);
        viewer.setXYMargins(10, 20);
        pane.setFreeformBounds(QRect(-2000, -2000, 5000, 5000));
        inner.setFreeformBounds(QRect(-2000, -2000, 5000, 5000));
    }

    FreeformLayeredPane pane;
    WitnessLayer layer;
    FreeformLayer inner;
    Figure figure{nullptr, Qt::red};
    FreeformViewer viewer;

    FreeformWidget *widget() { return qobject_cast<FreeformWidget *>(viewer.widget()); }
};

// A file with one A4 page at 72 dots per inch, that is, of 595 x 842 points.
struct Pdf
{
    Pdf()
        : path(dir.filePath(QStringLiteral("page.pdf")))
    {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setFullPage(true);
        printer.setResolution(72);
    }

    QTemporaryDir dir;
    QString path;
    QPrinter printer{QPrinter::ScreenResolution};

    QList<QImage> pages() const { return pdfPages(path, 72); }
};

QRect boundsOfColor(const QImage &image, const QColor &color)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

bool isNear(const QRect &a, const QRect &b, int distance)
{
    return qAbs(a.left() - b.left()) <= distance && qAbs(a.top() - b.top()) <= distance &&
           qAbs(a.right() - b.right()) <= distance && qAbs(a.bottom() - b.bottom()) <= distance;
}

bool isFuzzyEqual(const QTransform &a, const QTransform &b)
{
    return qFuzzyCompare(a.m11(), b.m11()) && qFuzzyCompare(a.m22(), b.m22()) &&
           qAbs(a.dx() - b.dx()) < 1e-6 && qAbs(a.dy() - b.dy()) < 1e-6 && a.m12() == 0 &&
           a.m21() == 0;
}

// Moves the area's corner to that of the page and scales by f.
QTransform pageTransform(const QRectF &page, const QRectF &area, double f)
{
    return {f, 0, 0, f, page.x() - area.x() * f, page.y() - area.y() * f};
}

} // namespace

class tst_FreeformWidgetPrinting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void areaIsScaledToFitThePage_data();
    void areaIsScaledToFitThePage();
    void optionCarriesTheAreaAndTheWidgetsPalette();
    void pageLayoutTellsWhereTheContentGoes();
    void pageWithoutRoomIsLeftEmpty();
    void pageLayoutIsCalledAfterThePageWithAnInvalidVariant();
    void pageLayoutGetsThePainterAsItWas();
    void onePageIsPrinted();
    void figuresAreValidatedBeforePrinting();
    void zoomAndScrollDoNotMatter();

    void areaWithoutRectangleIsTheExtentOfTheFreeformChildren();
    void flatRectangleCountsAsNone();
    void allFreeformChildrenCount();
    void layerWithoutFreeformChildrenPrintsNothing();
    void layerWithoutFreeformChildrenIsPrintedWithARectangle();
    void unknownLayerPrintsNothing();
    void layerOfNestedPaneIsPrinted();
    void withoutContentNothingIsPrinted();
    void withoutUpdateManagerNothingIsPrinted();
    void abortedOrFailedPrinterGetsNothing_data();
    void abortedOrFailedPrinterGetsNothing();
    void printerThatCannotBeginGetsNothing();
    void viewerPrintsThroughItsWidget();

    void pdfShowsTheLayerFittedToThePage();
    void pdfShowsTheLayerInsideThePageLayout();

    void pixmapShowsTheAreaWithItsMargins();
    void pixmapIsNotScaled();
    void pixmapOptionCarriesTheArea();
    void pixmapIsFilledWithTheBaseColourOfTheColourGroup();
    void pixmapOfNothingIsNull_data();
    void pixmapOfNothingIsNull();
    void pixmapThatIsTooLargeIsNull();
    void figuresAreValidatedBeforeAPixmapIsMade();
};

void tst_FreeformWidgetPrinting::areaIsScaledToFitThePage_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("area");
    QTest::addColumn<double>("factor");
    QTest::newRow("width decides") << QRect(10, 20, 600, 200) << QRect(0, 0, 620, 240) << 8.0;
    QTest::newRow("height decides")
        << QRect(-90, -80, 10, 837) << QRect(-100, -100, 30, 877) << 8.0;
    QTest::newRow("larger than the page")
        << QRect(0, 0, 9900, 100) << QRect(-10, -20, 9920, 140) << 0.5;
}

void tst_FreeformWidgetPrinting::areaIsScaledToFitThePage()
{
    QFETCH(QRect, rect);
    QFETCH(QRect, area);
    QFETCH(double, factor);
    Document document;
    PaperPrinter printer;

    document.widget()->print(&printer, sheet, rect);

    QCOMPARE(document.layer.renderings.size(), 1);
    QCOMPARE(document.layer.renderings.first().rect, area);
    QVERIFY(isFuzzyEqual(document.layer.renderings.first().transform,
                         pageTransform(QRectF(0, 0, 4960, 7016), area, factor)));
}

void tst_FreeformWidgetPrinting::optionCarriesTheAreaAndTheWidgetsPalette()
{
    Document document;
    PaperPrinter printer;
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::yellow);
    document.widget()->setPalette(palette);

    document.widget()->print(&printer, sheet, QRect(0, 0, 100, 100));

    QCOMPARE(document.layer.renderings.first().rect, QRect(-10, -20, 120, 140));
    QCOMPARE(document.layer.palette.color(QPalette::Base), QColor(Qt::yellow));
}

void tst_FreeformWidgetPrinting::pageLayoutTellsWhereTheContentGoes()
{
    Document document;
    PaperPrinter printer;
    WitnessPage page;
    document.viewer.setPageLayout(&page);

    document.widget()->print(&printer, sheet, QRect(10, 20, 600, 200));
    page.contentRect = QRectF(100, 200, 1240, 9999);
    document.widget()->print(&printer, sheet, QRect(10, 20, 600, 200));

    const QRectF area(0, 0, 620, 240);
    QCOMPARE(document.layer.renderings.size(), 2);
    QVERIFY(isFuzzyEqual(document.layer.renderings.at(0).transform,
                         pageTransform(QRectF(472, 472, 4016, 6072), area, 4016 / 620.0)));
    QVERIFY(isFuzzyEqual(document.layer.renderings.at(1).transform,
                         pageTransform(*page.contentRect, area, 2)));
}

void tst_FreeformWidgetPrinting::pageWithoutRoomIsLeftEmpty()
{
    Document document;
    PaperPrinter printer;
    WitnessPage page;
    page.contentRect = QRectF(100, 200, 0, 300);
    document.viewer.setPageLayout(&page);

    document.widget()->print(&printer, sheet, QRect(10, 20, 600, 200));

    QVERIFY(document.layer.renderings.isEmpty());
    QVERIFY(page.pages.isEmpty());
}

void tst_FreeformWidgetPrinting::pageLayoutIsCalledAfterThePageWithAnInvalidVariant()
{
    Document document;
    PaperPrinter printer;
    WitnessPage page;
    page.layer = &document.layer;
    document.viewer.setPageLayout(&page);

    document.widget()->print(&printer, sheet, QRect(0, 0, 100, 100));

    QCOMPARE(page.pages, QList<QVariant>{QVariant()});
    QCOMPARE(page.rendered, 1);
}

void tst_FreeformWidgetPrinting::pageLayoutGetsThePainterAsItWas()
{
    Document document;
    PaperPrinter printer;
    WitnessPage page;
    document.viewer.setPageLayout(&page);

    document.widget()->print(&printer, sheet, QRect(0, 0, 100, 100));

    QCOMPARE(page.transform, QTransform());
    QVERIFY(page.pen.color() != QColor(Qt::magenta)); // which the layer left behind
}

void tst_FreeformWidgetPrinting::onePageIsPrinted()
{
    Document document;
    PaperPrinter printer;

    document.widget()->print(&printer, sheet, QRect(0, 0, 100000, 100000));

    QCOMPARE(document.layer.renderings.size(), 1);
    QCOMPARE(printer.painting.sessions, 1);
    QCOMPARE(printer.paper.furtherPages, 0);
}

void tst_FreeformWidgetPrinting::figuresAreValidatedBeforePrinting()
{
    Document document;
    PaperPrinter printer;
    QSignalSpy announced(document.viewer.getUpdateManager(), &UpdateManager::aboutToValidate);
    QVERIFY(!document.pane.getFlag(Figure::FLAG_VALID));

    document.widget()->print(&printer, sheet, QRect(0, 0, 100, 100));

    QCOMPARE(announced.count(), 1);
    QVERIFY(document.pane.getFlag(Figure::FLAG_VALID));
}

void tst_FreeformWidgetPrinting::zoomAndScrollDoNotMatter()
{
    Document document;
    PaperPrinter printer;
    document.viewer.setScale(3);

    document.widget()->print(&printer, sheet, QRect(10, 20, 600, 200));

    QVERIFY(isFuzzyEqual(document.layer.renderings.first().transform,
                         pageTransform(QRectF(0, 0, 4960, 7016), QRectF(0, 0, 620, 240), 8)));
}

void tst_FreeformWidgetPrinting::areaWithoutRectangleIsTheExtentOfTheFreeformChildren()
{
    Document document(QRect(100, 200, 300, 100));
    PaperPrinter printer;

    document.widget()->print(&printer, sheet);

    QCOMPARE(document.layer.renderings.first().rect, QRect(90, 180, 320, 140));
}

void tst_FreeformWidgetPrinting::flatRectangleCountsAsNone()
{
    Document document(QRect(100, 200, 300, 100));
    PaperPrinter printer;

    document.widget()->print(&printer, sheet, QRect(5, 5, 0, 30));

    QCOMPARE(document.layer.renderings.size(), 1);
    QCOMPARE(document.layer.renderings.first().rect, QRect(90, 180, 320, 140));
}

void tst_FreeformWidgetPrinting::allFreeformChildrenCount()
{
    Document document(QRect(100, 200, 300, 100));
    Figure figure;
    Figure ordinary;
    FreeformLayer second;
    document.layer.add(&second);
    document.layer.add(&ordinary, QRect(-5000, -5000, 10000, 10000));
    second.add(&figure, QRect(-50, -40, 20, 20));
    PaperPrinter printer;

    QTest::ignoreMessage(QtDebugMsg, "Figure::render(): invalid figure bounds"); // of the second
    document.widget()->print(&printer, sheet);

    QCOMPARE(document.layer.renderings.first().rect, QRect(-60, -60, 470, 380));
}

// The layer itself does not count as one of its children, on purpose: give the rectangle.
void tst_FreeformWidgetPrinting::layerWithoutFreeformChildrenPrintsNothing()
{
    Document document;
    document.layer.remove(&document.inner);
    Figure figure;
    document.layer.add(&figure, QRect(0, 0, 100, 100));
    PaperPrinter printer;
    WitnessPage page;
    document.viewer.setPageLayout(&page);
    QVERIFY(document.layer.getFreeformExtent().isValid());

    document.widget()->print(&printer, sheet);
    document.widget()->print(&printer, sheet, QRect(0, 0, 0, 100));

    QVERIFY(document.layer.renderings.isEmpty());
    QVERIFY(page.pages.isEmpty());
}

void tst_FreeformWidgetPrinting::layerWithoutFreeformChildrenIsPrintedWithARectangle()
{
    Document document;
    document.layer.remove(&document.inner);
    PaperPrinter printer;

    document.widget()->print(&printer, sheet, QRect(0, 0, 100, 100));

    QCOMPARE(document.layer.renderings.size(), 1);
}

void tst_FreeformWidgetPrinting::unknownLayerPrintsNothing()
{
    Document document;
    PaperPrinter printer;
    WitnessPage page;
    document.viewer.setPageLayout(&page);

    document.widget()->print(&printer, QStringLiteral("other"), QRect(0, 0, 100, 100));

    QVERIFY(document.layer.renderings.isEmpty());
    QVERIFY(page.pages.isEmpty());
}

void tst_FreeformWidgetPrinting::layerOfNestedPaneIsPrinted()
{
    WitnessLayer layer;
    FreeformLayeredPane nested;
    Document document;
    nested.addLayer(&layer, QStringLiteral("deep"));
    document.pane.addLayer(&nested, QStringLiteral("nested"));
    nested.setFreeformBounds(QRect(-2000, -2000, 5000, 5000));
    PaperPrinter printer;

    document.widget()->print(&printer, QStringLiteral("deep"), QRect(0, 0, 100, 100));

    QCOMPARE(layer.renderings.size(), 1);
    QVERIFY(document.layer.renderings.isEmpty());
}

void tst_FreeformWidgetPrinting::withoutContentNothingIsPrinted()
{
    FreeformViewer viewer;
    PaperPrinter printer;
    WitnessPage page;
    viewer.setPageLayout(&page);

    viewer.print(&printer, sheet, QRect(0, 0, 100, 100));

    QVERIFY(page.pages.isEmpty());
}

void tst_FreeformWidgetPrinting::withoutUpdateManagerNothingIsPrinted()
{
    Document document;
    PaperPrinter printer;
    WitnessPage page;
    document.viewer.setPageLayout(&page);
    document.widget()->setUpdateManager(nullptr);

    document.widget()->print(&printer, sheet, QRect(0, 0, 100, 100));

    QVERIFY(document.layer.renderings.isEmpty());
    QVERIFY(page.pages.isEmpty());
}

void tst_FreeformWidgetPrinting::abortedOrFailedPrinterGetsNothing_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("expected");
    QTest::newRow("aborted") << int(QPrinter::Aborted) << 0;
    QTest::newRow("failed") << int(QPrinter::Error) << 0;
    QTest::newRow("active") << int(QPrinter::Active) << 1;
    QTest::newRow("idle") << int(QPrinter::Idle) << 1;
}

void tst_FreeformWidgetPrinting::abortedOrFailedPrinterGetsNothing()
{
    QFETCH(int, state);
    QFETCH(int, expected);
    Document document;
    PaperPrinter printer;
    WitnessPage page;
    document.viewer.setPageLayout(&page);
    printer.paper.state = QPrinter::PrinterState(state);

    document.widget()->print(&printer, sheet, QRect(0, 0, 100, 100));

    QCOMPARE(document.layer.renderings.size(), expected);
    QCOMPARE(page.pages.size(), expected);
}

void tst_FreeformWidgetPrinting::printerThatCannotBeginGetsNothing()
{
    Document document;
    PaperPrinter printer;
    WitnessPage page;
    document.viewer.setPageLayout(&page);
    printer.painting.begins = false;
    QSignalSpy announced(document.viewer.getUpdateManager(), &UpdateManager::aboutToValidate);

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^QPainter::begin")));
    document.widget()->print(&printer, sheet, QRect(0, 0, 100, 100));

    QVERIFY(document.layer.renderings.isEmpty());
    QVERIFY(page.pages.isEmpty());
    QCOMPARE(announced.count(), 0);
}

void tst_FreeformWidgetPrinting::viewerPrintsThroughItsWidget()
{
    Document document;
    PaperPrinter printer;

    document.viewer.print(&printer, sheet, QRect(0, 0, 100, 100));
    document.viewer.print(&printer, sheet);

    QCOMPARE(document.layer.renderings.size(), 2);
    QCOMPARE(document.layer.renderings.at(0).rect, QRect(-10, -20, 120, 140));
    QCOMPARE(document.layer.renderings.at(1).rect, QRect(90, 180, 320, 140));
}

// The area (0, 0, 595, 421) fills the page from edge to edge, and its upper half.
void tst_FreeformWidgetPrinting::pdfShowsTheLayerFittedToThePage()
{
    Document document(QRect(100, 200, 300, 100));
    Pdf pdf;
    const QRect page = pdf.printer.pageLayout().fullRectPoints();

    document.widget()->print(&pdf.printer, sheet, QRect(10, 20, page.width() - 20, 381));

    const QList<QImage> pages = pdf.pages();
    QCOMPARE(pages.size(), 1);
    QVERIFY(isNear(QRect(QPoint(0, 0), pages.first().size()), page, 1));
    QVERIFY(isNear(boundsOfColor(pages.first(), Qt::red), QRect(100, 200, 300, 100), 1));
}

void tst_FreeformWidgetPrinting::pdfShowsTheLayerInsideThePageLayout()
{
    Document document(QRect(100, 200, 300, 100));
    WitnessPage page;
    Pdf pdf;
    document.viewer.setPageLayout(&page);

    document.widget()->print(&pdf.printer, sheet);

    // 20 millimetres are 56 points. The area (90, 180, 320, 140) is as wide as the rest.
    const double f = (pdf.printer.width() - 112) / 320.0;
    const QList<QImage> pages = pdf.pages();
    QCOMPARE(pages.size(), 1);
    QVERIFY(isNear(boundsOfColor(pages.first(), Qt::red),
                   QRectF(56 + 10 * f, 56 + 20 * f, 300 * f, 100 * f).toRect(), 1));
    QVERIFY(isNear(boundsOfColor(pages.first(), Qt::darkGreen), QRect(10, 10, 50, 20), 1));
}

void tst_FreeformWidgetPrinting::pixmapShowsTheAreaWithItsMargins()
{
    Document document(QRect(100, 200, 300, 100));
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::yellow);
    document.widget()->setPalette(palette);

    const QImage all = document.widget()->printToPixmap(sheet).toImage();
    const QImage part = document.widget()->printToPixmap(sheet, QRect(90, 190, 20, 20)).toImage();

    QCOMPARE(all.size(), QSize(320, 140));
    QCOMPARE(boundsOfColor(all, Qt::red), QRect(10, 20, 300, 100));
    QCOMPARE(all.pixelColor(0, 0), QColor(Qt::yellow));
    QCOMPARE(part.size(), QSize(40, 60));
    QCOMPARE(boundsOfColor(part, Qt::red), QRect(20, 30, 20, 30));
}

void tst_FreeformWidgetPrinting::pixmapIsNotScaled()
{
    Document document;
    document.viewer.setScale(3);

    QCOMPARE(document.widget()->printToPixmap(sheet).size(), QSize(320, 140));
    QCOMPARE(document.layer.renderings.first().transform, QTransform::fromTranslate(-90, -180));
}

void tst_FreeformWidgetPrinting::pixmapOptionCarriesTheArea()
{
    Document document;

    document.widget()->printToPixmap(sheet, QRect(0, 0, 100, 100));

    QCOMPARE(document.layer.renderings.size(), 1);
    QCOMPARE(document.layer.renderings.first().rect, QRect(-10, -20, 120, 140));
}

void tst_FreeformWidgetPrinting::pixmapIsFilledWithTheBaseColourOfTheColourGroup()
{
    Document document;
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::Inactive, QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::Disabled, QPalette::Base, Qt::cyan);
    document.widget()->setPalette(palette);
    QCOMPARE(document.widget()->printToPixmap(sheet).toImage().pixelColor(1, 1),
             QColor(Qt::yellow));

    document.viewer.setEnabled(false);
    QCOMPARE(document.widget()->printToPixmap(sheet).toImage().pixelColor(1, 1), QColor(Qt::cyan));
}

void tst_FreeformWidgetPrinting::pixmapOfNothingIsNull_data()
{
    QTest::addColumn<bool>("hasContent");
    QTest::addColumn<bool>("hasManager");
    QTest::addColumn<QString>("layer");
    QTest::addColumn<bool>("hasFreeformChild");
    QTest::addColumn<bool>("isNull");

    QTest::newRow("all is there") << true << true << sheet << true << false;
    QTest::newRow("no content") << false << true << sheet << true << true;
    QTest::newRow("no update manager") << true << false << sheet << true << true;
    QTest::newRow("no such layer") << true << true << QStringLiteral("other") << true << true;
    QTest::newRow("no area") << true << true << sheet << false << true;
}

void tst_FreeformWidgetPrinting::pixmapOfNothingIsNull()
{
    QFETCH(bool, hasContent);
    QFETCH(bool, hasManager);
    QFETCH(QString, layer);
    QFETCH(bool, hasFreeformChild);
    QFETCH(bool, isNull);
    Document document;
    FreeformWidget widget(&document.viewer);
    if (hasManager)
        widget.setUpdateManager(document.viewer.getUpdateManager());
    if (hasContent) {
        QTest::ignoreMessage(QtDebugMsg, "Figure::addNotify() should not be call multiple times");
        widget.setContent(&document.pane);
    }
    if (!hasFreeformChild)
        document.layer.remove(&document.inner);

    QCOMPARE(widget.printToPixmap(layer).isNull(), isNull);

    QCOMPARE(document.layer.renderings.isEmpty(), isNull);
}

void tst_FreeformWidgetPrinting::pixmapThatIsTooLargeIsNull()
{
    Document document;

    const QPixmap pixmap = document.widget()->printToPixmap(sheet, QRect(0, 0, 1 << 30, 1 << 30));

    QVERIFY(pixmap.isNull());
}

void tst_FreeformWidgetPrinting::figuresAreValidatedBeforeAPixmapIsMade()
{
    Document document;
    QVERIFY(!document.pane.getFlag(Figure::FLAG_VALID));

    document.widget()->printToPixmap(sheet);

    QVERIFY(document.pane.getFlag(Figure::FLAG_VALID));
}

QTEST_MAIN(tst_FreeformWidgetPrinting)
#include "tst_freeformwidget_printing.moc"
