#pragma once

#include <figura/export.h>
#include <figura/shape/Shape.h>

namespace Velmora::Figura {

/// A rectangle as large as its bounds.
class FIGURA_EXPORT Rectangle : public Shape
{
    Q_OBJECT

public:
    explicit Rectangle(QObject *parent = nullptr); ///< \a parent owns the figure as a QObject.
    ~Rectangle() override;

protected:
    void regeneratePath(const QRectF &rect) override;
};

} // namespace Velmora::Figura
