#pragma once

#include <figura/shape/Shape.h>

namespace Editor {

/// A square on its corner. A shape and not one of the library's polygons: those stay at their
/// points, and so no layout can place them.
class DiamondFigure : public Velmora::Figura::Shape
{
    Q_OBJECT

public:
    explicit DiamondFigure(QObject *parent = nullptr);

protected:
    void regeneratePath(const QRectF &rect) override;
};

} // namespace Editor
