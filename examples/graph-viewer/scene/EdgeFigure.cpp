#include "EdgeFigure.h"

using Velmora::Figura::Figure;
using Velmora::Figura::Shape;

namespace GraphViewer {

EdgeFigure::EdgeFigure(const QString &title, const QRect &box, QObject *parent)
    : ElementFigure(Kind::Edge, title, {}, box, parent)
{
}

void EdgeFigure::setHot(bool hot)
{
    const QColor hotColor(0xe0, 0x4f, 0x00);
    const QList<Figure *> parts = childFigures();
    for (Figure *part : parts) {
        auto *shape = qobject_cast<Shape *>(part);
        if (!shape || hot == m_ownColors.contains(shape))
            continue;
        if (hot)
            m_ownColors.insert(shape, {shape->getEnabledFGColor(), shape->getEnabledBGColor()});
        const Colors colors = hot ? Colors{hotColor, hotColor} : m_ownColors.take(shape);
        shape->setEnabledFGColor(colors.line);
        shape->setEnabledBGColor(colors.fill);
    }
}

} // namespace GraphViewer
