#pragma once

#include <figura/export.h>
#include <figura/shape/Shape.h>

namespace Velmora::Figura {

/// An ellipse inscribed in its bounds.
class FIGURA_EXPORT Ellipse : public Shape
{
    Q_OBJECT

public:
    explicit Ellipse(QObject *parent = nullptr); ///< \a parent owns the figure as a QObject.
    ~Ellipse() override;

protected:
    void regeneratePath(const QRectF &rect) override;
};

} // namespace Velmora::Figura
