#include <figura/diagram/exportDiagram.h>

#include "exportpages_p.h"

#include <figura/diagram/Diagram.h>

#include <QBuffer>
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QMimeData>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <QScreen>
#include <QSvgGenerator>
#include <QtNumeric>

#include <algorithm>
#include <memory>

namespace Velmora::Figura {
namespace {

using Format = DiagramExport::Format;

// A picture of this many pixels takes 256 MB; more makes other programs choke on it.
constexpr double largestPicture = 64.0 * 1024 * 1024;
constexpr int longestPicture = 32767; // Qt's painter counts no further
constexpr int mostPages = 10000;

// Lines keep their width in content units on devices finer than this; else they become pixels.
constexpr int fineDpi = 300;
constexpr double unitsPerInch = 96.0;
constexpr double inchInMillimetres = 25.4;

int screenDpi()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? qRound(screen->logicalDotsPerInch()) : qRound(unitsPerInch);
}

// Texts are measured for the screen. On a device that claims another resolution they would be
// larger or smaller than the figures that hold them.
template<class Device>
class ScreenLike : public Device
{
public:
    using Device::Device;

protected:
    int metric(QPaintDevice::PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case QPaintDevice::PdmDpiX:
        case QPaintDevice::PdmDpiY:
            return screenDpi();
        case QPaintDevice::PdmPhysicalDpiX:
        case QPaintDevice::PdmPhysicalDpiY:
            return fineDpi;
        default:
            return Device::metric(metric);
        }
    }
};

bool fail(QString *error, const QString &reason)
{
    if (error)
        *error = reason;
    return false;
}

ExportSubject subjectOf(Diagram *diagram, const DiagramExport &options)
{
    ExportSubject subject{diagram, options.figures, options.area, options.background};
    if (diagram && !subject.area.isValid()) {
        subject.area =
            options.figures.isEmpty() ? diagram->getExtent() : diagram->getExtent(options.figures);
    }
    const int margin = std::max(options.margin, 0);
    if (subject.area.isValid())
        subject.area.adjust(-margin, -margin, margin, margin);
    return subject;
}

bool isEmpty(const ExportSubject &subject, QString *error)
{
    if (subject.diagram && subject.area.isValid())
        return false;
    fail(error, QStringLiteral("There is nothing to export."));
    return true;
}

Format formatOf(const QString &path, Format format)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (format != Format::Auto)
        return format;
    if (suffix == QLatin1String("svg"))
        return Format::Svg;
    if (suffix == QLatin1String("pdf"))
        return Format::Pdf;
    return suffix == QLatin1String("png") ? Format::Png : Format::Auto;
}

// Twice as large inside as outside: at scale 1 a line one unit wide would become a hairline.
bool writeSvg(QIODevice *device, const ExportSubject &subject, const DiagramExport &options,
              QString *error)
{
    constexpr int detail = 2;
    ScreenLike<QSvgGenerator> generator;
    generator.setOutputDevice(device);
    generator.setResolution(screenDpi());
    generator.setTitle(options.title);
    generator.setSize(subject.area.size());
    generator.setViewBox(QRect(QPoint(0, 0), subject.area.size() * detail));

    QPainter painter;
    if (!painter.begin(&generator))
        return fail(error, QStringLiteral("The SVG cannot be written."));
    painter.scale(detail, detail);
    painter.translate(-subject.area.topLeft());
    subject.paint(&painter);
    return true;
}

// Before pages are counted: the number may be beyond all that an integer holds.
bool canBeTiled(const DiagramExport &options, const QRect &area, const QSizeF &page, double unit,
                QString *error)
{
    const double scale = unit * options.tileScale;
    if (!(scale > 0.0) || !qIsFinite(scale))
        return fail(error, QStringLiteral("The scale of the tiles is not usable."));
    const double across = area.width() * scale / page.width();
    const double down = area.height() * scale / page.height();
    if ((across + 1.0) * (down + 1.0) > mostPages)
        return fail(error, QStringLiteral("That would take more than %1 pages.").arg(mostPages));
    return true;
}

/// \a device is a printer or a writer that has its page layout.
template<class Device>
bool paintOnPages(Device *device, const ExportSubject &subject, const DiagramExport &options,
                  QString *error)
{
    const QSizeF page = device->pageLayout().paintRectPixels(device->resolution()).size();
    const double unit = device->resolution() / unitsPerInch;
    if (page.isEmpty())
        return fail(error, QStringLiteral("The page has no room for the diagram."));
    if (options.tiled && !canBeTiled(options, subject.area, page, unit, error))
        return false;

    QPainter painter;
    if (painter.begin(device) &&
        paintPages(&painter, subject, ExportPages(options, subject.area, page, unit),
                   [device]() { return device->newPage(); }))
        return true;
    return fail(error, QStringLiteral("The pages cannot be written."));
}

// \a layout instead of that in the options.
bool writePdf(QIODevice *device, const ExportSubject &subject, const DiagramExport &options,
              const QPageLayout &layout, QString *error)
{
    ScreenLike<QPdfWriter> writer(device);
    writer.setPageLayout(layout);
    writer.setTitle(options.title);
    return paintOnPages(&writer, subject, options, error);
}

QImage createPicture(const ExportSubject &subject, const DiagramExport &options, QString *error)
{
    const double ratio = options.devicePixelRatio;
    const QSizeF exact = QSizeF(subject.area.size()) * ratio;
    const bool usable = exact.width() >= 1 && exact.height() >= 1 &&
                        std::max(exact.width(), exact.height()) <= longestPicture &&
                        exact.width() * exact.height() <= largestPicture;
    QImage picture;
    if (usable)
        picture = QImage(exact.toSize(), QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) {
        fail(error, QStringLiteral("A picture of %1 x %2 pixels cannot be made.")
                        .arg(exact.width(), 0, 'f', 0)
                        .arg(exact.height(), 0, 'f', 0));
        return {};
    }

    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.scale(ratio, ratio);
    painter.translate(-subject.area.topLeft());
    subject.paint(&painter);
    painter.end();
    // Only now: figures would measure their texts by it.
    const int dotsPerMetre = qRound(unitsPerInch * ratio * 1000.0 / inchInMillimetres);
    picture.setDotsPerMeterX(dotsPerMetre);
    picture.setDotsPerMeterY(dotsPerMetre);
    return picture;
}

bool writePng(QIODevice *device, const ExportSubject &subject, const DiagramExport &options,
              QString *error)
{
    const QImage picture = createPicture(subject, options, error);
    if (picture.isNull())
        return false;
    QImageWriter writer(device, "png");
    if (!options.title.isEmpty())
        writer.setText(QStringLiteral("Title"), options.title);
    return writer.write(picture) || fail(error, writer.errorString());
}

bool write(QIODevice *device, const ExportSubject &subject, const DiagramExport &options,
           Format format, QString *error)
{
    switch (format) {
    case Format::Svg:
        return writeSvg(device, subject, options, error);
    case Format::Pdf:
        return writePdf(device, subject, options, options.pageLayout, error);
    case Format::Png:
        return writePng(device, subject, options, error);
    case Format::Auto:
        break;
    }
    return fail(error, QStringLiteral("The format is not known; it is SVG, PDF or PNG."));
}

// In memory first: writers do not tell when their device is full.
bool encode(QByteArray *bytes, const ExportSubject &subject, const DiagramExport &options,
            Format format, QString *error)
{
    QBuffer buffer(bytes);
    buffer.open(QIODevice::WriteOnly);
    return write(&buffer, subject, options, format, error);
}

// One page as large as what is on it.
QPageLayout tightPage(const QRect &area)
{
    constexpr double pointsPerInch = 72.0;
    const QSizeF points = QSizeF(area.size()) * pointsPerInch / unitsPerInch;
    const QPageSize size(points, QPageSize::Point, QString(), QPageSize::ExactMatch);
    return QPageLayout(size, QPageLayout::Portrait, QMarginsF());
}

bool encodeTightPdf(QByteArray *bytes, const ExportSubject &subject, DiagramExport options,
                    QString *error)
{
    options.tiled = false;
    QBuffer buffer(bytes);
    buffer.open(QIODevice::WriteOnly);
    return writePdf(&buffer, subject, options, tightPage(subject.area), error);
}

} // namespace

bool exportDiagram(Diagram *diagram, const QString &path, const DiagramExport &options,
                   QString *error)
{
    const ExportSubject subject = subjectOf(diagram, options);
    QByteArray bytes;
    if (isEmpty(subject, error) ||
        !encode(&bytes, subject, options, formatOf(path, options.format), error))
        return false;
    QSaveFile file(path);
    // What is still in its buffer when it commits, a full disk swallows without a word.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit())
        return fail(error, QStringLiteral("%1: %2").arg(path, file.errorString()));
    return true;
}

bool exportDiagram(Diagram *diagram, QIODevice *device, const DiagramExport &options,
                   QString *error)
{
    const ExportSubject subject = subjectOf(diagram, options);
    QByteArray bytes;
    if (isEmpty(subject, error) || !encode(&bytes, subject, options, options.format, error))
        return false;
    if (!device || !device->isWritable())
        return fail(error, QStringLiteral("The device cannot be written to."));
    return device->write(bytes) == bytes.size() || fail(error, device->errorString());
}

bool exportDiagram(Diagram *diagram, QMimeData *mimeData, const DiagramExport &options,
                   QString *error)
{
    const ExportSubject subject = subjectOf(diagram, options);
    QByteArray svg;
    QByteArray pdf;
    if (!mimeData || isEmpty(subject, error) ||
        !encode(&svg, subject, options, Format::Svg, error) ||
        !encodeTightPdf(&pdf, subject, options, error))
        return false;
    const QImage picture = createPicture(subject, options, error);
    if (picture.isNull())
        return false;
    mimeData->setData(QStringLiteral("image/svg+xml"), svg);
    mimeData->setData(QStringLiteral("application/pdf"), pdf);
    mimeData->setImageData(picture);
    return true;
}

bool exportDiagram(Diagram *diagram, QClipboard *clipboard, const DiagramExport &options,
                   QString *error)
{
    auto data = std::make_unique<QMimeData>();
    if (!clipboard || !exportDiagram(diagram, data.get(), options, error))
        return false;
    clipboard->setMimeData(data.release());
    return true;
}

// The printer is not ours, so it is told to be like the screen: else it would enlarge all texts.
bool exportDiagram(Diagram *diagram, QPrinter *printer, const DiagramExport &options,
                   QString *error)
{
    const ExportSubject subject = subjectOf(diagram, options);
    if (!printer || isEmpty(subject, error))
        return false;
    printer->setResolution(screenDpi());
    return paintOnPages(printer, subject, options, error);
}

} // namespace Velmora::Figura
