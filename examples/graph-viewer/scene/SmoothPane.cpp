#include "SmoothPane.h"

#include <QPainter>

namespace GraphViewer {

void SmoothPane::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    if (!painter)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    FreeformLayeredPane::render(painter, option);
    painter->restore();
}

} // namespace GraphViewer
