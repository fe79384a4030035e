#include "scenes.h"

#include <QtMath>

using namespace Velmora::Figura;

namespace GuideSamples {
namespace {

/// Puts the children on a circle, the first at the top.
class CircleLayout : public Layout
{
public:
    explicit CircleLayout(QObject *parent = nullptr)
        : Layout(parent)
    {
    }

protected:
    QSize calculatePreferredSize() override { return 4 * largestChild(); }
    QSize calculateMinimumSize() override { return 2 * largestChild(); }

    bool performLayout(const QRect &clientArea) override
    {
        const QSize room = clientArea.size() - largestChild();
        const QList<Figure *> children = childFigures();
        for (int i = 0; i < children.size(); ++i) {
            const double angle = 2 * M_PI * i / double(children.size());
            const QPointF way(qSin(angle) * room.width() / 2, -qCos(angle) * room.height() / 2);
            QRect place(QPoint(), children.at(i)->getPreferredSize());
            place.moveCenter(clientArea.center() + way.toPoint());
            children.at(i)->setBounds(place);
        }
        return true;
    }

private:
    QSize largestChild()
    {
        QSize largest;
        const QList<Figure *> children = childFigures();
        for (Figure *child : children)
            largest = largest.expandedTo(child->getPreferredSize());
        return largest;
    }
};

} // namespace

QImage circleLayout()
{
    FreeformLayeredPane pane;
    auto *layer = new FreeformLayer(&pane);
    pane.addLayer(layer, QStringLiteral("figures"));

    auto *clock = addShape<Ellipse>(layer, sand, QRect(20, 20, 200, 200));
    clock->setMargin(6);
    clock->setLayoutManager(new CircleLayout(clock));
    for (int hour = 0; hour < 12; ++hour) {
        const QString name = QString::number(hour == 0 ? 12 : hour);
        clock->add(new TextFigure(name, clock, Qt::transparent));
    }
    return grab(&pane, QSize(244, 244));
}

} // namespace GuideSamples
