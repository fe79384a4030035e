#pragma once

#include <figura/connection/AbstractConnectionAnchor.h>
#include <figura/export.h>

namespace Velmora::Figura {

/// Ends a connection on the ellipse inscribed in the owner's bounds.
class FIGURA_EXPORT EllipseAnchor : public AbstractConnectionAnchor
{
    Q_OBJECT

public:
    /// An anchor on \a owner, which may be null.
    explicit EllipseAnchor(Figure *owner, QObject *parent = nullptr);
    explicit EllipseAnchor(QObject *parent = nullptr); ///< Without an owner.
    explicit EllipseAnchor(std::nullptr_t);            ///< With neither.
    ~EllipseAnchor() override;

    /// Warns and gives (0, 0) without an owner.
    QPoint getLocation(const QPoint &reference) override;
};

} // namespace Velmora::Figura
