// The same figures on paper, in a PDF file and in a picture.
#include <figura/Figura.h>

#include <QApplication>
#include <QMimeData>
#include <QPainter>
#include <QPrinter>
#include <QPrintPreviewDialog>

using namespace Velmora::Figura;

namespace {

/// A title above the content and a line below it.
class TitledPage : public PageLayout
{
public:
    void decoratePage(QPainter *painter, const QVariant & /*data*/) override
    {
        const QRectF content = getContentRect(painter);
        painter->setFont(QFont(painter->font().family(), 24));
        painter->drawText(content.topLeft() - QPointF(0, painter->fontMetrics().height()),
                          QStringLiteral("The house"));
        painter->drawLine(content.bottomLeft(), content.bottomRight());
    }
};

void addRoom(FreeformLayer *layer, const QString &name, const QRect &place)
{
    auto *room = new Rectangle(layer);
    room->setEnabledBGColor(QColor(0xd7, 0xe8, 0xfa));
    room->setLayoutManager(new StackLayout(room));
    auto *text = new TextFigure(name, room, Qt::transparent);
    text->setAlignment(Qt::AlignCenter);
    room->add(text);
    layer->add(room, place);
}

// What goes on paper lies together in a pane within the pane: only that is printed.
void addDrawing(FreeformLayeredPane *pane)
{
    auto *printable = new FreeformLayeredPane(pane);
    pane->addLayer(printable, QStringLiteral("printable"));
    auto *plan = new FreeformLayer(printable);
    printable->addLayer(plan, QStringLiteral("plan"));
    addRoom(plan, QStringLiteral("Hall"), QRect(0, 0, 120, 160));
    addRoom(plan, QStringLiteral("Kitchen"), QRect(120, 0, 140, 80));
    addRoom(plan, QStringLiteral("Study"), QRect(120, 80, 140, 80));

    auto *screenOnly = new FreeformLayer(pane);
    pane->addLayer(screenOnly, QStringLiteral("screen only"));
    screenOnly->add(new TextFigure(QStringLiteral("not printed"), screenOnly),
                    QRect(90, 170, -1, -1));
}

bool writePdf(const FreeformViewer &viewer, const QString &fileName)
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    viewer.print(&printer, QStringLiteral("printable"));
    return printer.printerState() != QPrinter::Error;
}

bool writePicture(FreeformViewer &viewer, const QString &fileName)
{
    QMimeData data;
    viewer.copy(&data, QStringLiteral("printable"));
    return qvariant_cast<QImage>(data.imageData()).save(fileName);
}

void preview(const FreeformViewer &viewer)
{
    QPrintPreviewDialog dialog;
    QObject::connect(
        &dialog, &QPrintPreviewDialog::paintRequested, &viewer,
        [&viewer](QPrinter *printer) { viewer.print(printer, QStringLiteral("printable")); });
    dialog.exec();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    FreeformLayeredPane pane;
    addDrawing(&pane);
    rebuildPaths(&pane);

    FreeformViewer viewer;
    viewer.setContent(&pane);
    // A viewer that is on the screen sees to the bounds of its content; this one never gets there.
    pane.setFreeformBounds(pane.getFreeformExtent().adjusted(-10, -10, 10, 10));
    TitledPage page;
    viewer.setPageLayout(&page);
    viewer.setXYMargins(10, 10);

    const QString fileName = argc == 2 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (fileName.endsWith(QStringLiteral(".pdf")))
        return writePdf(viewer, fileName) ? 0 : 1;
    if (!fileName.isEmpty())
        return writePicture(viewer, fileName) ? 0 : 1;
    preview(viewer);
    return 0;
}
