#pragma once

#include <figura/export.h>

#include <QObject>

namespace Velmora::Figura {

class Figure;

/// Places one figure by a reference of its own. As a layout constraint it travels as
/// QVariant::fromValue<QObject *>(locator).
class FIGURA_EXPORT ILocator
{
public:
    virtual ~ILocator();

    virtual void relocate(Figure *target) = 0; ///< Sets the bounds of \a target.
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::ILocator, "ILocator.Figura.Velmora.velmora.org")
