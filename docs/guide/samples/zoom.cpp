#include "scenes.h"

#include <QApplication>
#include <QPixmap>
#include <QWheelEvent>

#include <cmath>

using namespace Velmora::Figura;

namespace GuideSamples {
namespace {

class ZoomingViewer : public FreeformViewer
{
public:
    /// The figure under the mouse is what a program acts on.
    Figure *figureAt(const QPoint &viewportPoint)
    {
        return getContent() ? getContent()->findFigureAt(toContent(viewportPoint)) : nullptr;
    }

protected:
    // With Ctrl, what is under the mouse stays under the mouse.
    void wheelEvent(QWheelEvent *event) override
    {
        auto *canvas = qobject_cast<FreeformWidget *>(widget());
        if (!canvas || !event->modifiers().testFlag(Qt::ControlModifier)) {
            FreeformViewer::wheelEvent(event);
            return;
        }
        const double factor = std::pow(1.2, event->angleDelta().y() / 120.0);
        canvas->setScaleAt(getScale() * factor, toContent(event->position().toPoint()));
        event->accept();
    }
};

void turnWheel(QWidget *viewport, const QPoint &place, int notches)
{
    QWheelEvent event(place, viewport->mapToGlobal(place), QPoint(), QPoint(0, 120 * notches),
                      Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport, &event);
}

} // namespace

QImage zoomedAtMouse()
{
    FreeformLayeredPane pane;
    auto *layer = new FreeformLayer(&pane);
    pane.addLayer(layer, QStringLiteral("figures"));
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 5; ++column)
            addShape<Ellipse>(layer, blue, QRect(20 + 70 * column, 20 + 70 * row, 50, 50));
    }
    rebuildPaths(&pane);

    ZoomingViewer viewer;
    viewer.setContent(&pane);
    viewer.setScaleBounds(0.25, 8);
    viewer.resize(400, 240);
    viewer.show();
    viewer.grab(); // shows it once, so that there is something to point at

    const QPoint mouse(185, 115);
    if (auto *hit = qobject_cast<Ellipse *>(viewer.figureAt(mouse)))
        hit->setEnabledBGColor(sand);
    turnWheel(viewer.viewport(), mouse, 3);
    return viewer.grab().toImage();
}

} // namespace GuideSamples
