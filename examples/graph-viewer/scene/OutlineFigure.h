#pragma once

#include "load/Drawing.h"

#include <figura/shape/Shape.h>

namespace GraphViewer {

/// A shape of any outline, drawn exactly as the layout engine has computed it.
///
/// The library's own shapes fit whole units; an outline keeps the fractions, so that arrow heads
/// touch the nodes at every zoom. Given other bounds it is scaled to fit them.
class OutlineFigure : public Velmora::Figura::Shape
{
    Q_OBJECT

public:
    /// \a origin is the corner of the figure that this one is to be part of; the stroke is in the
    /// coordinates of the whole graph.
    OutlineFigure(const Stroke &stroke, const QPoint &origin, QObject *parent);

    QRect box() const; ///< In the coordinates of the figure it is part of.

    QRect getBoundingRect() override; ///< With the pen, which reaches beyond the bounds.
    QSize getMinimumSize() override;  ///< None: the engine knows best how small a thing is.

protected:
    void regeneratePath(const QRectF &rect) override;
    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    QPainterPath m_outline;
    QPoint m_origin;
    QBrush m_gradient; // in the coordinates of the whole graph
    QRectF m_home;     // the rectangle for which m_outline is right
};

} // namespace GraphViewer
