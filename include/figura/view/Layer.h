#pragma once

#include <figura/export.h>
#include <figura/figure/Figure.h>

namespace Velmora::Figura {

/// A transparent figure; one sheet of a diagram.
class FIGURA_EXPORT Layer : public Figure
{
    Q_OBJECT

public:
    explicit Layer(QObject *parent = nullptr); ///< \a parent owns the layer as a QObject.
    ~Layer() override;

protected:
    bool isValidateRoot() const override; ///< True: changes inside do not concern other layers.
};

} // namespace Velmora::Figura
