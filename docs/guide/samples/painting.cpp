#include "scenes.h"

#include <QPainterPath>
#include <QPolygonF>

using namespace Velmora::Figura;

namespace GuideSamples {
namespace {

/// A decision of a flow chart.
class Diamond : public Shape
{
public:
    explicit Diamond(QObject *parent = nullptr)
        : Shape(parent)
    {
    }

protected:
    // rect is where the outline goes: the bounds, less half of the line width.
    void regeneratePath(const QRectF &rect) override
    {
        QPainterPath path;
        path.addPolygon(QPolygonF(
            {QPointF(rect.center().x(), rect.top()), QPointF(rect.right(), rect.center().y()),
             QPointF(rect.center().x(), rect.bottom()), QPointF(rect.left(), rect.center().y())}));
        path.closeSubpath();
        painterPath() = path;
    }
};

} // namespace

QImage diamonds()
{
    FreeformLayeredPane pane;
    auto *layer = new FreeformLayer(&pane);
    pane.addLayer(layer, QStringLiteral("figures"));

    auto *plain = addShape<Diamond>(layer, blue, QRect(20, 20, 120, 80));
    plain->setLineWidth(2);
    auto *dashed = addShape<Diamond>(layer, sand, QRect(170, 20, 80, 80));
    dashed->setLineStyle(Qt::DashLine);
    auto *disabled = addShape<Diamond>(layer, green, QRect(280, 20, 80, 80));
    disabled->setEnabled(false);
    return grab(&pane, QSize(384, 124));
}

} // namespace GuideSamples
