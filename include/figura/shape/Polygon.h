#pragma once

#include <figura/connection/Polyline.h>
#include <figura/export.h>

namespace Velmora::Figura {

/// A polyline whose last point is joined to the first. Not filled at first, as all polylines.
class FIGURA_EXPORT Polygon : public Polyline
{
    Q_OBJECT

public:
    explicit Polygon(QObject *parent = nullptr); ///< Without points.
    ~Polygon() override;

    bool contains(const QPoint &point) const override; ///< Inside the path, or in a child.

protected:
    void regeneratePath(const QRectF &rect) override;
};

} // namespace Velmora::Figura
