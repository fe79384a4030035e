#pragma once

#include <figura/connection/IBendpoint.h>
#include <figura/export.h>

#include <QObject>

namespace Velmora::Figura {

/// The base of the bendpoints.
class FIGURA_EXPORT Bendpoint : public QObject, public IBendpoint
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IBendpoint)
    Q_PROPERTY(QPoint location READ getLocation WRITE setLocation)

public:
    explicit Bendpoint(QObject *parent = nullptr); ///< \a parent owns the bendpoint as a QObject.
    ~Bendpoint() override;
};

} // namespace Velmora::Figura
