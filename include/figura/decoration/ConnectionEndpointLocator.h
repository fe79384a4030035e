#pragma once

#include <figura/export.h>
#include <figura/figure/InterfacePointer.h>
#include <figura/geometry/Transposer.h>
#include <figura/layout/ILocator.h>

#include <QObject>

class QPoint;
class QSize;

namespace Velmora::Figura {

class IConnection;

/// Places a label near one end of a connection, at a distance along and across its last segment.
///
/// The connection is not owned; one that is destroyed counts as none.
class FIGURA_EXPORT ConnectionEndpointLocator : public QObject, public ILocator
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::ILocator)

public:
    /// \a end is true for the target end, false for the source end.
    ConnectionEndpointLocator(IConnection *connection, bool end, QObject *parent = nullptr);
    ~ConnectionEndpointLocator() override;

    int getUDistance() const;        ///< Along the connection from its end; 14 at first.
    void setUDistance(int distance); ///< Only stores.
    int getVDistance() const; ///< Across the connection; 4 at first, negative for the other side.
    void setVDistance(int distance); ///< Only stores.

    /// Leaves null and hidden figures alone, and does nothing with fewer than two points.
    void relocate(Figure *target) override;

private:
    IConnection *getConnection() const;
    bool isEnd() const;
    Figure *getConnectionOwner() const;
    int calculateConnectionLocation(const QPoint &start, const QPoint &next) const;
    int calculateConnectionLocation(const QPoint &start, const QPoint &topLeft,
                                    const QPoint &centre) const;
    double calculateTan(const QPoint &start, const QPoint &next) const;
    int calculateYShift(int labelWidth, int labelHeight) const;
    int sideOf(const QPoint &start, const QPoint &next) const;
    QPoint transposed(const QPoint &point) const;
    QSize transposed(const QSize &size) const;

    Transposer m_transposer;
    InterfacePointer<IConnection> m_connection;
    bool m_end;
    int m_uDistance = 14;
    int m_vDistance = 4;
};

} // namespace Velmora::Figura
