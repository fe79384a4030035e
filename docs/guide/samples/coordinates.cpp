#include "scenes.h"

using namespace Velmora::Figura;

namespace GuideSamples {
namespace {

QString spelt(const char *system, const QPoint &point)
{
    return QStringLiteral("%1: (%2, %3)").arg(QLatin1String(system)).arg(point.x()).arg(point.y());
}

} // namespace

QImage coordinates()
{
    FreeformLayeredPane pane;
    auto *layer = new FreeformLayer(&pane);
    pane.addLayer(layer, QStringLiteral("figures"));

    auto *box = new Figure(layer, sand);
    box->setBorder(new SimpleBorder(box));    // 1 unit on each side
    box->setMargin(10);                       // and 10 more
    box->setLayoutManager(new XYLayout(box)); // children count from the client area
    layer->add(box, QRect(40, 30, 300, 150));

    auto *inner = new Figure(box, blue);
    box->add(inner, QRect(20, 10, 60, 40));
    pane.validate(); // nothing is shown yet, and so nothing laid out

    QPoint corner = inner->getBounds().topLeft();
    const QString inBounds = spelt("bounds", corner); // (20, 10)
    box->translateToParent(corner);
    const QString inBox = spelt("bounds of the box", corner); // (71, 51)

    QPoint absolute = inner->getBounds().topLeft();
    inner->translateToAbsolute(absolute);
    const QString inContent = spelt("absolute", absolute); // (71, 51)

    addShape<Ellipse>(layer, Qt::red, QRect(absolute - QPoint(3, 3), QSize(7, 7)));
    addText(layer, inBounds, QPoint(150, 55));
    addText(layer, inBox, QPoint(150, 85));
    addText(layer, inContent, QPoint(150, 115));
    return grab(&pane, QSize(400, 220));
}

} // namespace GuideSamples
