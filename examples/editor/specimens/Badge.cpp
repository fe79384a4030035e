#include "specimens/Badge.h"

#include <QPainterPath>

namespace Editor::Specimens {

Badge::Badge(Velmora::Figura::Figure *owner, Velmora::Figura::ILocator *locator, QObject *parent)
    : Decoration(owner, locator, parent)
{
    setPreferredSize({18, 18});
}

void Badge::regeneratePath(const QRectF &rect)
{
    QPainterPath path;
    path.addEllipse(rect);
    painterPath() = path;
}

} // namespace Editor::Specimens
