#include "scenes.h"

#include <QPixmap>

using namespace Velmora::Figura;

namespace GuideSamples {

QImage manyFigures()
{
    FreeformLayeredPane pane;
    // The extent is asked for in the end, not looked after at the move of each figure.
    auto *layer = new FreeformLayer(&pane, false);
    pane.addLayer(layer, QStringLiteral("figures"));
    for (int row = 0; row < 100; ++row) {
        for (int column = 0; column < 100; ++column) {
            const QColor color = QColor::fromHsv((row * 3 + column * 2) % 360, 90, 230);
            auto *tile = addShape<Rectangle>(layer, color, QRect(12 * column, 8 * row, 10, 6));
            tile->setLineStyle(Qt::NoPen);
        }
    }
    rebuildPaths(&pane);

    FreeformViewer viewer; // only now: what is not shown yet asks for no repaint
    viewer.setContent(&pane);
    viewer.resize(420, 290);
    viewer.show();
    viewer.scaleToFit();
    return viewer.grab().toImage();
}

} // namespace GuideSamples
