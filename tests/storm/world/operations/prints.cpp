#include "../world.h"

#include <QMimeData>
#include <QPainter>
#include <QPrinter>

// Printing, and copying a picture.

namespace Velmora::Figura::Storm {
namespace {

/// Draws its own frame on each page.
class FramedPage : public PageLayout
{
public:
    using PageLayout::PageLayout;

    void decoratePage(QPainter *painter, const QVariant &) override
    {
        painter->drawRect(getContentRect(painter));
    }
};

QString anyLayer(World &world, Numbers &numbers)
{
    auto *layer = world.pick<Layer>(numbers);
    return layer ? layer->objectName() : QString();
}

void printPages(World &world, Numbers &numbers)
{
    FreeformViewer *viewer = world.stage.viewer();
    if (!viewer)
        return;
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QStringLiteral("/dev/null"));
    const QString layer = anyLayer(world, numbers);
    viewer->print(&printer, layer, numbers.coin() ? numbers.rect() : QRect());
}

void copyPicture(World &world, Numbers &numbers)
{
    FreeformViewer *viewer = world.stage.viewer();
    if (!viewer)
        return;
    QMimeData data;
    const QString layer = anyLayer(world, numbers);
    viewer->copy(&data, layer, numbers.coin() ? numbers.rect() : QRect());
}

void setPageLayout(World &world, Numbers &numbers)
{
    FreeformViewer *viewer = world.stage.viewer();
    if (!viewer)
        return;
    auto *page = numbers.oneIn(4) ? nullptr : new FramedPage(numbers.coin() ? viewer : nullptr);
    if (page)
        world.pageLayouts.add(page);
    viewer->setPageLayout(page);
}

} // namespace

QList<Entry> printOperations()
{
    return {
        {"print", 6, 1, Place::OutsidePaint, printPages},
        {"copyPicture", 6, 4, Place::OutsidePaint, copyPicture},
        {"setPageLayout", 2, 2, Place::Anywhere, setPageLayout},
    };
}

} // namespace Velmora::Figura::Storm
