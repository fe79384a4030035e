#pragma once

#include <figura/Figura.h>

#include <QImage>

/// The scenes of the guide: each is made by the code that a chapter quotes, and returns its
/// picture.
namespace GuideSamples {

QImage circleLayout();
QImage coordinates();
QImage damage();
QImage diagrams();
QImage diamonds();
QImage manyFigures();
QImage routers();
QImage survivors();
QImage zoomedAtMouse();

/// The pane in a viewer of that size, in pixels, at its upper left corner.
QImage grab(Velmora::Figura::FreeformLayeredPane *pane, const QSize &size);

/// A text on transparent ground, in its preferred size.
Velmora::Figura::TextFigure *addText(Velmora::Figura::Figure *layer, const QString &text,
                                     const QPoint &place);

/// A filled shape at \a place.
template<typename ShapeType>
ShapeType *addShape(Velmora::Figura::Figure *layer, const QColor &color, const QRect &place)
{
    auto *shape = new ShapeType(layer);
    shape->setEnabledBGColor(color);
    layer->add(shape, place);
    return shape;
}

inline const QColor blue(0xd7, 0xe8, 0xfa);
inline const QColor sand(0xfb, 0xe3, 0xc0);
inline const QColor green(0xd9, 0xee, 0xd3);

} // namespace GuideSamples
