#pragma once

#include "load/Drawing.h"

#include <figura/connection/PolylineF.h>

namespace GraphViewer {

/// One curve of an edge, flattened.
class EdgeLine : public Velmora::Figura::PolylineF
{
    Q_OBJECT

public:
    /// \a points are in the coordinates of the figure that the line is to be part of.
    EdgeLine(const QPolygonF &points, const QPen &pen, QObject *parent);

    QRect getBoundingRect() override; ///< With the pen; a straight line has no area without it.

    /// The lines of \a path, close enough to its curves for eight times their size.
    static QList<QPolygonF> flatten(const QPainterPath &path);

protected:
    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override;
};

} // namespace GraphViewer
