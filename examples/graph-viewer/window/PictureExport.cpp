#include "PictureExport.h"

#include "GraphPage.h"
#include "GraphView.h"
#include "scene/GraphScene.h"

#include <QFile>
#include <QPrinter>

namespace GraphViewer {
namespace {

// A picture of this many pixels takes 256 MB; more makes other programs choke on the clipboard.
constexpr qint64 largestPicture = 64 * 1024 * 1024;

bool isWide(const QRect &area)
{
    return area.width() > area.height();
}

} // namespace

PictureExport::PictureExport(GraphView *view, const QString &caption)
    : m_view(view)
    , m_caption(caption)
{
}

void PictureExport::print(QPrinter *printer) const
{
    GraphPage page(m_caption);
    m_view->setPageLayout(&page);
    m_view->print(printer, GraphScene::DiagramKey);
    m_view->setPageLayout(nullptr);
}

QString PictureExport::writePdf(const QString &path) const
{
    QFile probe(path); // a printer has no words for what went wrong
    if (!probe.open(QIODevice::WriteOnly))
        return QStringLiteral("%1: cannot be written: %2").arg(path, probe.errorString());
    probe.close();

    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setDocName(m_caption);
    printer.setPageOrientation(isWide(m_view->scene()->area()) ? QPageLayout::Landscape
                                                               : QPageLayout::Portrait);
    print(&printer);
    return {};
}

QString PictureExport::copyTo(QMimeData *data) const
{
    const QSize size = m_view->scene()->area().size();
    if (qint64(size.width()) * size.height() > largestPicture) {
        return QStringLiteral("the graph is too large to be copied as a picture (%1 x %2 pixels)")
            .arg(size.width())
            .arg(size.height());
    }
    m_view->copy(data, GraphScene::DiagramKey);
    return {};
}

} // namespace GraphViewer
