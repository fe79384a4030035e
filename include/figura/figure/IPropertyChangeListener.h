#pragma once

#include <figura/export.h>

#include <QObject>

class QVariant;

namespace Velmora::Figura {

/// Learns of a figure's named properties: Figure::addPropertyChangeListener().
///
/// An implementation must be a QObject that declares the operation as a slot.
class FIGURA_EXPORT IPropertyChangeListener
{
public:
    virtual ~IPropertyChangeListener();

    /// Values are as the announcing figure documents them.
    virtual void propertyChanged(const QString &propertyName, const QVariant &oldValue,
                                 const QVariant &newValue) = 0;
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IPropertyChangeListener,
                    "IPropertyChangeListener.Figura.Velmora.velmora.org")
