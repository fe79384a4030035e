#include "diagram_fixtures.h"

#include <fulldisk.h>

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Format = DiagramExport::Format;

namespace {

const QString NOTHING = QStringLiteral("There is nothing to export.");

DiagramExport as(Format format)
{
    DiagramExport options;
    options.format = format;
    return options;
}

/// A device that takes only so many bytes.
class TightDevice : public QIODevice
{
public:
    explicit TightDevice(qint64 room)
        : m_room(room)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        setErrorString(QStringLiteral("no room"));
    }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 size) override
    {
        const qint64 taken = qMin(size, m_room);
        m_room -= taken;
        return taken;
    }

private:
    qint64 m_room;
};

/// Does something while it is painted.
class Doer : public Rectangle
{
public:
    explicit Doer(std::function<void()> deed)
        : m_deed(std::move(deed))
    {
    }

protected:
    void drawBackground(QPainter *, const QStyleOptionViewItem &) const override { m_deed(); }

private:
    std::function<void()> m_deed;
};

void toPdf(QPrinter *printer, const QString &path)
{
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(path);
}

} // namespace

class tst_ExportFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void nothingGoesNowhere();
    void emptyDiagramIsRefusedByEveryTarget();
    void missingTargetIsRefused();
    void fullDeviceIsAnError_data();
    void fullDeviceIsAnError();
    void largeFileOnAFullDiskLeavesNothing();
    void pictureMustHaveAUsableSize_data();
    void pictureMustHaveAUsableSize();
    void clipboardStaysWhenThePictureIsTooLarge();
    void scaleOfTilesMustBeANumber_data();
    void scaleOfTilesMustBeANumber();
    void pageMustHaveRoom();
    void printerPrintsTilesPageByPage();
    void printerThatCannotWriteIsAnError();
    void unknownFormatIsRefused();
    void hiddenFiguresAreNotExported();
};

void tst_ExportFailures::nothingGoesNowhere()
{
    QString error;

    QVERIFY(!exportDiagram(nullptr, static_cast<QClipboard *>(nullptr)));
    QVERIFY(!exportDiagram(nullptr, static_cast<QPrinter *>(nullptr)));
    QVERIFY(!exportDiagram(nullptr, static_cast<QIODevice *>(nullptr), as(Format::Png), &error));
    QCOMPARE(error, NOTHING);
}

void tst_ExportFailures::emptyDiagramIsRefusedByEveryTarget()
{
    Diagram diagram;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPrinter printer;
    QString error;
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));

    QVERIFY(!exportDiagram(&diagram, &buffer, as(Format::Svg), &error));
    QCOMPARE(std::exchange(error, {}), NOTHING);
    QVERIFY(!exportDiagram(&diagram, &printer, {}, &error));
    QCOMPARE(std::exchange(error, {}), NOTHING);
    QVERIFY(!exportDiagram(&diagram, QGuiApplication::clipboard(), {}, &error));
    QCOMPARE(error, NOTHING);

    QVERIFY(buffer.data().isEmpty());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("kept"));
}

void tst_ExportFailures::missingTargetIsRefused()
{
    Diagram diagram;
    diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));

    QVERIFY(!exportDiagram(&diagram, static_cast<QClipboard *>(nullptr)));
    QVERIFY(!exportDiagram(&diagram, static_cast<QPrinter *>(nullptr)));
    QVERIFY(!exportDiagram(&diagram, static_cast<QMimeData *>(nullptr)));
}

void tst_ExportFailures::fullDeviceIsAnError_data()
{
    QTest::addColumn<Format>("format");
    QTest::newRow("svg") << Format::Svg;
    QTest::newRow("pdf") << Format::Pdf;
    QTest::newRow("png") << Format::Png;
}

void tst_ExportFailures::fullDeviceIsAnError()
{
    QFETCH(Format, format);
    Diagram diagram;
    diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    TightDevice device(30);
    QString error;

    QVERIFY(!exportDiagram(&diagram, &device, as(format), &error));

    QCOMPARE(error, QStringLiteral("no room"));
}

// More at once than a file buffers.
void tst_ExportFailures::largeFileOnAFullDiskLeavesNothing()
{
    Diagram diagram;
    diagram.add(new TextFigure(QString(50000, QLatin1Char('x'))), QRect(0, 0, 200, 40));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.svg"));
    bool written = true;
    QString error;
    {
        const FullDisk disk(500);
        written = exportDiagram(&diagram, path, {}, &error);
    }

    QVERIFY(!written);
    QVERIFY2(error.startsWith(path + QLatin1String(": ")), qPrintable(error));
    QVERIFY(QDir(folder.path()).isEmpty());
}

void tst_ExportFailures::pictureMustHaveAUsableSize_data()
{
    QTest::addColumn<QRect>("area");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QString>("pixels");
    QTest::newRow("too narrow") << QRect(0, 0, 10, 1000) << 0.01 << QStringLiteral("0 x 10");
    QTest::newRow("too low") << QRect(0, 0, 1000, 10) << 0.01 << QStringLiteral("10 x 0");
    QTest::newRow("too wide") << QRect(0, 0, 40000, 10) << 1.0 << QStringLiteral("40000 x 10");
    QTest::newRow("too much") << QRect(0, 0, 20000, 20000) << 1.0
                              << QStringLiteral("20000 x 20000");
}

void tst_ExportFailures::pictureMustHaveAUsableSize()
{
    QFETCH(QRect, area);
    QFETCH(double, ratio);
    QFETCH(QString, pixels);
    Diagram diagram;
    DiagramExport options = as(Format::Png);
    options.area = area;
    options.margin = 0;
    options.devicePixelRatio = ratio;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QString error;

    QVERIFY(!exportDiagram(&diagram, &buffer, options, &error));

    QCOMPARE(error, QStringLiteral("A picture of %1 pixels cannot be made.").arg(pixels));
    QVERIFY(buffer.data().isEmpty());
}

void tst_ExportFailures::clipboardStaysWhenThePictureIsTooLarge()
{
    Diagram diagram;
    diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    DiagramExport options;
    options.devicePixelRatio = 1e6;
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
    QMimeData data;
    QString error;

    QVERIFY(!exportDiagram(&diagram, QGuiApplication::clipboard(), options, &error));
    QVERIFY(!exportDiagram(&diagram, &data, options, &error));

    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("kept"));
    QVERIFY(data.formats().isEmpty());
    QCOMPARE(error, QStringLiteral("A picture of 60000000 x 60000000 pixels cannot be made."));
}

void tst_ExportFailures::scaleOfTilesMustBeANumber_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("infinite") << qInf();
    QTest::newRow("no number") << qQNaN();
    QTest::newRow("negative") << -1.0;
}

void tst_ExportFailures::scaleOfTilesMustBeANumber()
{
    QFETCH(double, scale);
    Diagram diagram;
    diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    DiagramExport options = as(Format::Pdf);
    options.tiled = true;
    options.tileScale = scale;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QString error;

    QVERIFY(!exportDiagram(&diagram, &buffer, options, &error));

    QCOMPARE(error, QStringLiteral("The scale of the tiles is not usable."));
}

void tst_ExportFailures::pageMustHaveRoom()
{
    Diagram diagram;
    diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    DiagramExport options = as(Format::Pdf);
    const QPageSize size(QSizeF(100, 100), QPageSize::Point, QString(), QPageSize::ExactMatch);
    options.pageLayout =
        QPageLayout(size, QPageLayout::Portrait, QMarginsF(70, 70, 70, 70), QPageLayout::Point);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QString error;

    QVERIFY(!exportDiagram(&diagram, &buffer, options, &error));

    QCOMPARE(error, QStringLiteral("The page has no room for the diagram."));
}

void tst_ExportFailures::printerPrintsTilesPageByPage()
{
    Diagram diagram;
    diagram.add(painted<Rectangle>(), QRect(0, 0, 1200, 40));
    const QTemporaryDir folder;
    QPrinter printer;
    toPdf(&printer, folder.filePath(QStringLiteral("a.pdf")));
    DiagramExport options;
    options.tiled = true;
    int pages = 0;
    diagram.add(new Doer([&] { ++pages; }), QRect(0, 0, 1200, 40));

    QVERIFY(exportDiagram(&diagram, &printer, options));

    QCOMPARE(pages, 2);
}

void tst_ExportFailures::printerThatCannotWriteIsAnError()
{
    Diagram diagram;
    diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    const QTemporaryDir folder;
    QPrinter printer;
    toPdf(&printer, folder.filePath(QStringLiteral("missing/a.pdf")));
    QString error;
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");

    QVERIFY(!exportDiagram(&diagram, &printer, {}, &error));

    QCOMPARE(error, QStringLiteral("The pages cannot be written."));
}

void tst_ExportFailures::unknownFormatIsRefused()
{
    Diagram diagram;
    diagram.add(painted<Rectangle>(), QRect(0, 0, 40, 40));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QString error;

    QVERIFY(!exportDiagram(&diagram, &buffer, as(static_cast<Format>(99)), &error));

    QCOMPARE(error, QStringLiteral("The format is not known; it is SVG, PDF or PNG."));
}

void tst_ExportFailures::hiddenFiguresAreNotExported()
{
    Diagram diagram;
    auto *shown = diagram.add(painted<Rectangle>(Qt::red), QRect(0, 0, 40, 40));
    auto *hidden = diagram.add(painted<Rectangle>(Qt::green), QRect(100, 0, 40, 40));
    hidden->setVisible(false);
    DiagramExport options = as(Format::Png);
    options.margin = 0;
    options.figures = {shown, hidden};
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);

    QVERIFY(exportDiagram(&diagram, &buffer, options));

    const QImage image = QImage::fromData(buffer.data());
    QVERIFY(image.width() < 100);
    QCOMPARE(countPixels(image, Qt::green), 0);
    QCOMPARE(diagram.findFigures(QRect(0, 0, 200, 200), false), QList<Figure *>{shown});
}

Q_DECLARE_METATYPE(Format)

QTEST_MAIN(tst_ExportFailures)
#include "tst_export_failures.moc"
