#include "scenes.h"

#include <QPixmap>

using namespace Velmora::Figura;

namespace GuideSamples {

QImage grab(FreeformLayeredPane *pane, const QSize &size)
{
    rebuildPaths(pane);
    FreeformViewer viewer;
    viewer.setContent(pane);
    viewer.resize(size);
    viewer.show();
    return viewer.grab().toImage();
}

TextFigure *addText(Figure *layer, const QString &text, const QPoint &place)
{
    auto *figure = new TextFigure(text, layer, Qt::transparent);
    layer->add(figure, QRect(place, QSize(-1, -1)));
    return figure;
}

} // namespace GuideSamples
