#pragma once

#include <QList>
#include <QRect>

class QPainter;

namespace Velmora::Figura {

/// The damaged rectangles while a widget paints, in absolute coordinates.
///
/// Figures are handed only the rectangle that bounds all damage. When two far corners have changed,
/// nearly all that lies between them need not be painted again.
class PaintRegion
{
public:
    PaintRegion(const QPainter *painter, const QList<QRect> &rects);
    ~PaintRegion();
    PaintRegion(const PaintRegion &) = delete;
    PaintRegion &operator=(const PaintRegion &) = delete;

    /// The parts of \a rect to be painted with \a painter: all of it, unless that is the widget's.
    static QList<QRect> rectsFor(const QPainter *painter, const QRect &rect);
    /// Of the device of \a painter, which a widget takes long to tell.
    static int dotsPerInch(const QPainter *painter);

private:
    const QPainter *m_painter;
    const QList<QRect> m_rects;
    int m_dotsPerInch = 0;
    PaintRegion *m_outer; // a paint event may set off another one
};

} // namespace Velmora::Figura
