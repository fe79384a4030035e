#include "diagram_fixtures.h"

#include <fulldisk.h>
#include <golden.h>
#include <pdfpages.h>

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPrinter>
#include <QProcess>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Format = DiagramExport::Format;

namespace {

// One of each kind, with a text and a connection.
class Sheet
{
public:
    Sheet()
    {
        Diagram::setText(box, QStringLiteral("Hello"));
        connection->setEnabledFGColor(Qt::blue);
        diagram.setArrow(connection, Diagram::End::Target, Diagram::Arrow::Filled);
    }

    Diagram diagram;
    Rectangle *box = diagram.add(painted<Rectangle>(), QRect(0, 0, 100, 50));
    Ellipse *circle = diagram.add(painted<Ellipse>(Qt::red), QRect(200, 100, 60, 60));
    PolylineConnection *connection = diagram.connect(box, circle);
    QTemporaryDir folder;

    QString path(const QString &name) const { return folder.filePath(name); }
};

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray exported(Diagram &diagram, const DiagramExport &options)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return exportDiagram(&diagram, &buffer, options) ? buffer.data() : QByteArray();
}

DiagramExport as(Format format)
{
    DiagramExport options;
    options.format = format;
    return options;
}

QImage svgPicture(const QByteArray &svg, double scale = 1.0)
{
    QSvgRenderer renderer(svg);
    // The units of the file are half as large as those of the content.
    const QSizeF size = renderer.viewBoxF().size() * scale / 2.0;
    return paintedImage(size.toSize(), [&](QPainter *painter) {
        painter->setRenderHint(QPainter::Antialiasing);
        renderer.render(painter);
    });
}

QByteArray output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished() ? process.readAllStandardOutput() : QByteArray();
}

// A pixel is a content unit.
constexpr int dpiOfUnits = 96;

// How much of the picture is clearly this colour.
QRect areaOf(const QImage &image, const QColor &color)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor there = image.pixelColor(x, y);
            const int distance = qAbs(there.red() - color.red()) +
                                 qAbs(there.green() - color.green()) +
                                 qAbs(there.blue() - color.blue());
            if (distance < 60)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

bool isNear(const QRect &a, const QRect &b, int tolerance)
{
    return b.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(a) &&
           a.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(b);
}

} // namespace

class tst_ExportDiagram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void suffixChoosesTheFormat_data();
    void suffixChoosesTheFormat();
    void namedFormatWins();
    void pngShowsTheDiagram_data();
    void pngShowsTheDiagram();
    void pngTellsItsResolution();
    void marginAndBackgroundAreApplied();
    void chosenFiguresAreExported();
    void chosenAreaIsExported();
    void feedbackIsNotExported();
    void svgShowsTheDiagram_data();
    void svgShowsTheDiagram();
    void svgKeepsLinesAsLines();
    void svgTextIsAsLargeAsOnTheScreen();
    void pdfPageShowsTheDiagram();
    void largeDiagramIsShrunkToOnePage();
    void tilesShowTheDiagramPieceByPiece();
    void tileScaleCounts();
    void titleIsStored_data();
    void titleIsStored();
    void clipboardTakesVectorAndPicture();
    void mimeDataKeepsOtherFormats();
    void printerGetsPages();
    void printedLinesAreAsWideAsOnTheScreen();
    void nothingToExportIsAnError_data();
    void nothingToExportIsAnError();
    void unusableOptionsAreErrors_data();
    void unusableOptionsAreErrors();
    void failureLeavesNoHalfFile_data();
    void failureLeavesNoHalfFile();
    void fullDiskLeavesTheOldFile_data();
    void fullDiskLeavesTheOldFile();
    void failingDeviceIsAnError();
    void exportChangesNothing();
};

void tst_ExportDiagram::suffixChoosesTheFormat_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("beginning");
    QTest::newRow("svg") << QStringLiteral("a.svg") << QByteArray("<?xml");
    QTest::newRow("SVG") << QStringLiteral("a.b.SVG") << QByteArray("<?xml");
    QTest::newRow("pdf") << QStringLiteral("a.pdf") << QByteArray("%PDF-");
    QTest::newRow("png") << QStringLiteral("a.png") << QByteArray("\x89PNG");
}

void tst_ExportDiagram::suffixChoosesTheFormat()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, beginning);
    Sheet sheet;
    QString error;

    QVERIFY2(exportDiagram(&sheet.diagram, sheet.path(name), {}, &error), qPrintable(error));

    QVERIFY(bytesOf(sheet.path(name)).startsWith(beginning));
    QVERIFY(error.isEmpty());
}

void tst_ExportDiagram::namedFormatWins()
{
    Sheet sheet;

    QVERIFY(exportDiagram(&sheet.diagram, sheet.path(QStringLiteral("a.png")), as(Format::Svg)));

    QVERIFY(bytesOf(sheet.path(QStringLiteral("a.png"))).startsWith("<?xml"));
}

void tst_ExportDiagram::pngShowsTheDiagram_data()
{
    QTest::addColumn<double>("ratio");
    for (double ratio : {0.5, 1.0, 1.5, 2.0, 3.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_ExportDiagram::pngShowsTheDiagram()
{
    QFETCH(double, ratio);
    Sheet sheet;
    DiagramExport options = as(Format::Png);
    options.devicePixelRatio = ratio;
    options.background = Qt::white;

    const QImage image = QImage::fromData(exported(sheet.diagram, options));

    const QRect extent = sheet.diagram.getExtent().adjusted(-10, -10, 10, 10);
    QCOMPARE(image.size(), (QSizeF(extent.size()) * ratio).toSize());
    QCOMPARE(colorAt(image, int(240 * ratio), int(140 * ratio)), QColor(Qt::red));
    const QRect circle = areaOf(image, Qt::red);
    QVERIFY(isNear(circle, QRectF(QPointF(210, 110) * ratio, QSizeF(60, 60) * ratio).toRect(),
                   int(2 * ratio) + 2));
    QVERIFY(countPixels(image, Qt::black,
                        QRectF(QPointF(11, 11) * ratio, QSizeF(98, 48) * ratio).toRect()) > 0);
}

void tst_ExportDiagram::pngTellsItsResolution()
{
    Sheet sheet;
    DiagramExport options = as(Format::Png);
    options.devicePixelRatio = 2.0;
    options.background = QColor();

    const QImage image = QImage::fromData(exported(sheet.diagram, options));

    QCOMPARE(qRound(image.dotsPerMeterX() * 0.0254), 192);
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
}

void tst_ExportDiagram::marginAndBackgroundAreApplied()
{
    Diagram diagram;
    diagram.add(new Figure(nullptr, Qt::red), QRect(100, 100, 30, 20));
    DiagramExport options = as(Format::Png);
    options.margin = 7;
    options.background = Qt::yellow;

    const QImage image = QImage::fromData(exported(diagram, options));
    QCOMPARE(image.size(), QSize(44, 34));
    QCOMPARE(extentOf(image, Qt::red), QRect(7, 7, 30, 20));
    QCOMPARE(countPixels(image, Qt::yellow), 44 * 34 - 30 * 20);

    options.margin = -5;
    QCOMPARE(QImage::fromData(exported(diagram, options)).size(), QSize(30, 20));
}

void tst_ExportDiagram::chosenFiguresAreExported()
{
    Sheet sheet;
    auto *third = sheet.diagram.add(new Figure(nullptr, Qt::green), QRect(50, 20, 200, 100));
    sheet.diagram.connect(sheet.box, third)->setEnabledFGColor(Qt::magenta);
    DiagramExport options = as(Format::Png);
    options.background = Qt::white;
    options.figures = {sheet.box, sheet.circle};

    const QImage image = QImage::fromData(exported(sheet.diagram, options));
    QCOMPARE(countPixels(image, Qt::green), 0);
    QVERIFY(!areaOf(image, Qt::magenta).isValid());
    QVERIFY(areaOf(image, Qt::blue).isValid());

    options.figures = {sheet.circle};
    const QImage alone = QImage::fromData(exported(sheet.diagram, options));
    QCOMPARE(alone.size(), QSize(80, 80));
    QVERIFY(!areaOf(alone, Qt::blue).isValid());
}

void tst_ExportDiagram::chosenAreaIsExported()
{
    Sheet sheet;
    DiagramExport options = as(Format::Png);
    options.area = QRect(200, 100, 30, 30);
    options.margin = 0;
    options.background = QColor();

    const QImage image = QImage::fromData(exported(sheet.diagram, options));

    QCOMPARE(image.size(), QSize(30, 30));
    QCOMPARE(colorAt(image, 28, 28), QColor(Qt::red));
    QCOMPARE(image.pixelColor(1, 1).alpha(), 0);
}

void tst_ExportDiagram::feedbackIsNotExported()
{
    Sheet sheet;
    sheet.diagram.getPane()->setDrawGrid(true);
    const QByteArray before = exported(sheet.diagram, as(Format::Png));

    sheet.diagram.getFeedbackLayer()->add(new Figure(&sheet.diagram, Qt::green),
                                          QRect(0, 0, 400, 400));

    QCOMPARE(exported(sheet.diagram, as(Format::Png)), before);
}

void tst_ExportDiagram::svgShowsTheDiagram_data()
{
    QTest::addColumn<double>("scale");
    for (double scale : {1.0, 3.0})
        QTest::addRow("%g", scale) << scale;
}

void tst_ExportDiagram::svgShowsTheDiagram()
{
    QFETCH(double, scale);
    Sheet sheet;
    const QRect extent = sheet.diagram.getExtent().adjusted(-10, -10, 10, 10);

    const QImage image = svgPicture(exported(sheet.diagram, as(Format::Svg)), scale);

    QVERIFY(qAbs(image.width() - extent.width() * scale) <= scale);
    const QRectF circle(QPointF(210, 110) * scale, QSizeF(60, 60) * scale);
    QVERIFY(isNear(areaOf(image, Qt::red), circle.toRect(), int(3 * scale)));
    QVERIFY(areaOf(image, Qt::blue).isValid());
    // The line grows with the picture.
    int width = 0;
    for (int y = 0; y < image.height() / 3; ++y)
        width += colorAt(image, int(60 * scale), y).lightness() < 128 ? 1 : 0;
    QVERIFY2(width >= scale && width <= 4 * scale + 16, qPrintable(QString::number(width)));
}

void tst_ExportDiagram::svgKeepsLinesAsLines()
{
    Sheet sheet;

    const QByteArray svg = exported(sheet.diagram, as(Format::Svg));

    QVERIFY(!svg.contains("<image"));
    QVERIFY(!svg.contains("non-scaling-stroke"));
    QVERIFY(svg.contains("Hello"));
    QVERIFY(svg.contains("stroke-width=\"1\""));
}

void tst_ExportDiagram::svgTextIsAsLargeAsOnTheScreen()
{
    Diagram diagram;
    auto *text = new TextFigure(QStringLiteral("WWWWWWWW"), nullptr, Qt::transparent);
    diagram.add(text, QRect(0, 0, -1, -1));
    DiagramExport options = as(Format::Svg);
    options.margin = 0;
    const QImage expected = picture(diagram, text->getBounds().size());

    const QImage image = svgPicture(exported(diagram, options));

    QVERIFY(isNear(areaOf(image, Qt::black), areaOf(expected, Qt::black), 3));
}

void tst_ExportDiagram::pdfPageShowsTheDiagram()
{
    Sheet sheet;
    QVERIFY(exportDiagram(&sheet.diagram, sheet.path(QStringLiteral("a.pdf"))));

    const QList<QImage> pages = pdfPages(sheet.path(QStringLiteral("a.pdf")), dpiOfUnits);

    QCOMPARE(pages.size(), 1);
    // A4, and 10 mm of margin: 38 pixels.
    QVERIFY(isNear(QRect(QPoint(0, 0), pages.at(0).size()), QRect(0, 0, 794, 1123), 2));
    QVERIFY(isNear(areaOf(pages.at(0), Qt::red), QRect(38 + 210, 38 + 110, 60, 60), 3));
    const QByteArray text = output(QStringLiteral("pdftotext"),
                                   {sheet.path(QStringLiteral("a.pdf")), QStringLiteral("-")});
    QVERIFY(text.contains("Hello"));
}

void tst_ExportDiagram::largeDiagramIsShrunkToOnePage()
{
    Sheet sheet;
    sheet.diagram.setBounds(sheet.circle, QRect(3000, 2000, 600, 600));
    QVERIFY(exportDiagram(&sheet.diagram, sheet.path(QStringLiteral("a.pdf"))));

    const QList<QImage> pages = pdfPages(sheet.path(QStringLiteral("a.pdf")), dpiOfUnits);

    QCOMPARE(pages.size(), 1);
    const QRect circle = areaOf(pages.at(0), Qt::red);
    const double factor = (794 - 2 * 37.8) / 3620;
    QVERIFY(
        isNear(circle,
               QRectF(QPointF(37.8, 37.8) + QPointF(3010, 2010) * factor, QSizeF(600, 600) * factor)
                   .toRect(),
               3));
}

void tst_ExportDiagram::tilesShowTheDiagramPieceByPiece()
{
    Diagram diagram;
    // A page has room for 718 x 1047 units. On the second of two, and below it.
    diagram.add(new Figure(nullptr, Qt::red), QRect(0, 0, 10, 10));
    diagram.add(new Figure(nullptr, Qt::green), QRect(800, 300, 100, 50));
    diagram.add(new Figure(nullptr, Qt::blue), QRect(900, 1100, 30, 30));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.pdf"));
    DiagramExport options;
    options.tiled = true;
    options.margin = 0;
    QVERIFY(exportDiagram(&diagram, path, options));

    const QList<QImage> pages = pdfPages(path, dpiOfUnits);

    QCOMPARE(pages.size(), 4);
    const double page = 793.7 - 2 * 37.8;
    const double height = 1122.5 - 2 * 37.8;
    QVERIFY(isNear(areaOf(pages.at(0), Qt::red), QRect(38, 38, 10, 10), 2));
    QVERIFY(!areaOf(pages.at(0), Qt::green).isValid());
    QVERIFY(isNear(areaOf(pages.at(1), QColor(Qt::green)),
                   QRect(qRound(37.8 + 800 - page), 38 + 300, 100, 50), 2));
    QVERIFY(!areaOf(pages.at(2), Qt::blue).isValid());
    QVERIFY(isNear(areaOf(pages.at(3), Qt::blue),
                   QRect(qRound(37.8 + 900 - page), qRound(37.8 + 1100 - height), 30, 30), 2));
}

void tst_ExportDiagram::tileScaleCounts()
{
    Sheet sheet;
    DiagramExport options;
    options.tiled = true;
    options.tileScale = 5.0;
    const QString path = sheet.path(QStringLiteral("a.pdf"));
    QVERIFY(exportDiagram(&sheet.diagram, path, options));

    const QList<QImage> pages = pdfPages(path, dpiOfUnits);

    QCOMPARE(pages.size(), 2); // 1400 x 900 units
    const QRect circle = areaOf(pages.at(1), Qt::red);
    QVERIFY2(isNear(circle, QRect(qRound(37.8 + 1050 - 718.1), 38 + 550, 300, 300), 12),
             qPrintable(QStringLiteral("(%1, %2) %3 x %4")
                            .arg(circle.x())
                            .arg(circle.y())
                            .arg(circle.width())
                            .arg(circle.height())));
}

void tst_ExportDiagram::titleIsStored_data()
{
    QTest::addColumn<Format>("format");
    QTest::newRow("svg") << Format::Svg;
    QTest::newRow("png") << Format::Png;
}

void tst_ExportDiagram::titleIsStored()
{
    QFETCH(Format, format);
    Sheet sheet;
    DiagramExport options = as(format);
    options.title = QStringLiteral("Plan of the house");

    const QByteArray bytes = exported(sheet.diagram, options);

    if (format == Format::Svg)
        QVERIFY(bytes.contains("<title>Plan of the house</title>"));
    else
        QCOMPARE(QImage::fromData(bytes).text(QStringLiteral("Title")), options.title);
}

void tst_ExportDiagram::clipboardTakesVectorAndPicture()
{
    Sheet sheet;
    QString error;

    QVERIFY2(exportDiagram(&sheet.diagram, QGuiApplication::clipboard(), {}, &error),
             qPrintable(error));

    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data->data(QStringLiteral("image/svg+xml")).startsWith("<?xml"));
    QVERIFY(data->data(QStringLiteral("application/pdf")).startsWith("%PDF-"));
    QVERIFY(data->hasImage());
    const QRect extent = sheet.diagram.getExtent().adjusted(-10, -10, 10, 10);
    QCOMPARE(data->imageData().value<QImage>().size(), extent.size());
}

void tst_ExportDiagram::mimeDataKeepsOtherFormats()
{
    Sheet sheet;
    QMimeData data;
    data.setData(QStringLiteral("application/x-own"), "own");

    QVERIFY(exportDiagram(&sheet.diagram, &data));

    QCOMPARE(data.data(QStringLiteral("application/x-own")), QByteArray("own"));
    QVERIFY(data.hasFormat(QStringLiteral("image/svg+xml")));
}

void tst_ExportDiagram::printerGetsPages()
{
    Sheet sheet;
    const QString path = sheet.path(QStringLiteral("printed.pdf"));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    printer.setPageSize(QPageSize(QPageSize::A4));

    QVERIFY(exportDiagram(&sheet.diagram, &printer));

    const QList<QImage> pages = pdfPages(path, dpiOfUnits);
    QCOMPARE(pages.size(), 1);
    QVERIFY(isNear(areaOf(pages.at(0), Qt::red), QRect(38 + 210, 38 + 110, 60, 60), 3));
}

void tst_ExportDiagram::printedLinesAreAsWideAsOnTheScreen()
{
    Sheet sheet;
    sheet.box->setLineWidth(1);
    sheet.box->setEnabledFGColor(Qt::black);
    const QString path = sheet.path(QStringLiteral("printed.pdf"));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    DiagramExport options;
    options.figures = {sheet.box};

    QVERIFY(exportDiagram(&sheet.diagram, &printer, options));

    constexpr int fineness = 4; // pixels for one content unit
    const QImage page = pdfPages(path, dpiOfUnits * fineness).value(0);
    const QRect box = areaOf(page, sheet.box->getEnabledBGColor());
    QVERIFY(box.isValid());
    int dark = 0;
    for (int y = box.top() - 20; y < box.bottom() + 20; ++y)
        dark += qGray(page.pixel(box.left() + box.width() / 8, y)) < 40; // beside the text
    QVERIFY2(dark >= 2 * fineness - 2 && dark <= 2 * fineness + 2,
             qPrintable(QString::number(dark)));
}

void tst_ExportDiagram::nothingToExportIsAnError_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("no diagram") << 0;
    QTest::newRow("empty diagram") << 1;
    QTest::newRow("figures of another diagram") << 2;
}

void tst_ExportDiagram::nothingToExportIsAnError()
{
    QFETCH(int, kind);
    Diagram diagram;
    Figure stranger;
    DiagramExport options;
    if (kind == 2)
        options.figures = {&stranger};
    Diagram *subject = kind == 0 ? nullptr : &diagram;
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.png"));
    QMimeData data;
    QString error;

    QVERIFY(!exportDiagram(subject, path, options, &error));
    QCOMPARE(error, QStringLiteral("There is nothing to export."));
    QVERIFY(!QFile::exists(path));
    QVERIFY(!exportDiagram(subject, path, options));
    QVERIFY(!exportDiagram(subject, &data, options));
    QVERIFY(data.formats().isEmpty());
}

void tst_ExportDiagram::unusableOptionsAreErrors_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<DiagramExport>("options");
    QTest::addColumn<QString>("message");
    DiagramExport options;
    QTest::newRow("unknown suffix") << QStringLiteral("a.doc") << options
                                    << QStringLiteral("The format is not known; it is SVG, PDF or "
                                                      "PNG.");
    options.devicePixelRatio = 1000;
    QTest::newRow("huge picture") << QStringLiteral("a.png") << options
                                  << QStringLiteral("A picture of 280000 x 180000 pixels cannot "
                                                    "be made.");
    options.devicePixelRatio = qQNaN();
    QTest::newRow("no ratio") << QStringLiteral("a.png") << options
                              << QStringLiteral("A picture of nan x nan pixels cannot be made.");
    options.tiled = true;
    options.tileScale = 0.0;
    QTest::newRow("tiles of nothing") << QStringLiteral("a.pdf") << options
                                      << QStringLiteral("The scale of the tiles is not usable.");
    options.tileScale = 1e6;
    QTest::newRow("too many pages") << QStringLiteral("a.pdf") << options
                                    << QStringLiteral("That would take more than 10000 pages.");
}

void tst_ExportDiagram::unusableOptionsAreErrors()
{
    QFETCH(QString, name);
    QFETCH(DiagramExport, options);
    QFETCH(QString, message);
    Sheet sheet;
    QString error;

    QVERIFY(!exportDiagram(&sheet.diagram, sheet.path(name), options, &error));

    QCOMPARE(error, message);
    QVERIFY(!QFile::exists(sheet.path(name)));
}

void tst_ExportDiagram::failureLeavesNoHalfFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no folder") << QStringLiteral("missing/a.");
    QTest::newRow("a folder") << QStringLiteral("taken.");
}

void tst_ExportDiagram::failureLeavesNoHalfFile()
{
    QFETCH(QString, path);
    for (const QString &suffix :
         {QStringLiteral("svg"), QStringLiteral("pdf"), QStringLiteral("png")}) {
        Sheet sheet;
        QDir(sheet.folder.path()).mkdir(QStringLiteral("taken.") + suffix);
        const QStringList before = QDir(sheet.folder.path()).entryList();
        QString error;

        QVERIFY(!exportDiagram(&sheet.diagram, sheet.path(path + suffix), {}, &error));

        QVERIFY2(error.startsWith(sheet.path(path + suffix) + QLatin1String(": ")),
                 qPrintable(error));
        QCOMPARE(QDir(sheet.folder.path()).entryList(), before);
    }
}

void tst_ExportDiagram::fullDiskLeavesTheOldFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("svg") << QStringLiteral("a.svg");
    QTest::newRow("pdf") << QStringLiteral("a.pdf");
    QTest::newRow("png") << QStringLiteral("a.png");
}

void tst_ExportDiagram::fullDiskLeavesTheOldFile()
{
    QFETCH(QString, name);
    Sheet sheet;
    QVERIFY(exportDiagram(&sheet.diagram, sheet.path(name)));
    const QByteArray before = bytesOf(sheet.path(name));
    sheet.box->setEnabledBGColor(Qt::green);
    QString error;
    bool written = true;
    {
        const FullDisk disk(500);
        written = exportDiagram(&sheet.diagram, sheet.path(name), {}, &error);
    }

    QVERIFY(!written);
    QVERIFY(!error.isEmpty());
    QCOMPARE(bytesOf(sheet.path(name)), before);
    QCOMPARE(QDir(sheet.folder.path()).entryList(QDir::Files), QStringList(name));
}

void tst_ExportDiagram::failingDeviceIsAnError()
{
    Sheet sheet;
    QBuffer closed;
    QString error;

    QVERIFY(!exportDiagram(&sheet.diagram, &closed, as(Format::Png), &error));
    QCOMPARE(error, QStringLiteral("The device cannot be written to."));
    QVERIFY(!exportDiagram(&sheet.diagram, static_cast<QIODevice *>(nullptr), as(Format::Png)));
    closed.open(QIODevice::WriteOnly);
    QVERIFY(!exportDiagram(&sheet.diagram, &closed, {}, &error));
    QCOMPARE(error, QStringLiteral("The format is not known; it is SVG, PDF or PNG."));
}

void tst_ExportDiagram::exportChangesNothing()
{
    Sheet sheet;
    DiagramView view(&sheet.diagram);
    view.resize(400, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QImage before = view.grab().toImage();

    for (Format format : {Format::Svg, Format::Pdf, Format::Png})
        QVERIFY(!exported(sheet.diagram, as(format)).isEmpty());

    QVERIFY(differenceOf(view.grab().toImage(), before).isNull());
}

QTEST_MAIN(tst_ExportDiagram)
#include "tst_exportdiagram.moc"
