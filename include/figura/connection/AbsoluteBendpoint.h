#pragma once

#include <figura/connection/Bendpoint.h>
#include <figura/export.h>

#include <QMetaType>
#include <QPoint>

namespace Velmora::Figura {

/// A fixed point. Travels by value in a QVariant; a copy has no parent.
class FIGURA_EXPORT AbsoluteBendpoint : public Bendpoint
{
    Q_OBJECT

public:
    explicit AbsoluteBendpoint(QObject *parent = nullptr);      ///< At (0, 0).
    AbsoluteBendpoint(int x, int y, QObject *parent = nullptr); ///< At (\a x, \a y).
    /// At \a location.
    explicit AbsoluteBendpoint(const QPoint &location, QObject *parent = nullptr);
    AbsoluteBendpoint(const AbsoluteBendpoint &other); ///< The same point, without a parent.
    ~AbsoluteBendpoint() override;

    /// Takes the point over; the parent stays.
    AbsoluteBendpoint &operator=(const AbsoluteBendpoint &other);

    QPoint getLocation() override; ///< The stored point.
    /// Only stores: the connection is routed anew when it is revalidated.
    void setLocation(const QPoint &location) override;
    bool isNull() const; ///< True when both coordinates are 0.

private:
    QPoint m_location;
};

} // namespace Velmora::Figura

Q_DECLARE_METATYPE(Velmora::Figura::AbsoluteBendpoint)
