#pragma once

#include <figura/connection/AbstractRouter.h>
#include <figura/export.h>
#include <figura/geometry/Ray.h>

#include <QMap>
#include <QSet>

class QRect;

namespace Velmora::Figura {

/// Routes in horizontal and vertical segments that leave and enter the boxes by their nearest
/// sides.
///
/// Inner segments lie on even rows and columns that are reserved for the connection until it is
/// routed anew, invalidated, removed or destroyed; later connections take the next free ones.
class FIGURA_EXPORT ManhattanConnectionRouter : public AbstractRouter
{
    Q_OBJECT

public:
    explicit ManhattanConnectionRouter(QObject *parent = nullptr);
    ~ManhattanConnectionRouter() override;

    static const Ray UP;
    static const Ray DOWN;
    static const Ray LEFT;
    static const Ray RIGHT;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    /// Out of the side of \a box nearest to \a point, or into it when \a reversed.
    virtual Ray getDirection(const QRect &box, const QPoint &point, bool reversed);
    virtual Ray getEndDirection(IConnection *connection);
    virtual Ray getStartDirection(IConnection *connection);
    virtual bool rowUsable(IConnection *connection, int row) const;
    virtual bool colUsable(IConnection *connection, int column) const;

    void invalidate(IConnection *connection) override; ///< Releases the connection's lines.
    void remove(IConnection *connection) override;     ///< Releases the connection's lines.
    QList<QPoint> doRoute(IConnection *connection) override;
    QList<QPointF> doRouteF(IConnection *connection) override;

protected:
    bool isColumnReservedBy(IConnection *connection, int column) const;
    bool isRowReservedBy(IConnection *connection, int row) const;
    QList<QPoint> processPositions(const Ray &start, const Ray &end, const QList<int> &positions,
                                   bool horizontal, IConnection *connection);
    void removeReservedLines(IConnection *connection);
    void reserveColumn(IConnection *connection, int column);
    void reserveRow(IConnection *connection, int row);

private:
    struct Reservation
    {
        QList<int> columns;
        QList<int> rows;
        QMetaObject::Connection watch; // over the connection's life
    };

    int getColumnNear(IConnection *connection, int wanted, int before, int after);
    int getRowNear(IConnection *connection, int wanted, int before, int after);
    Reservation &reservationOf(IConnection *connection);

    QSet<int> m_usedColumns;
    QSet<int> m_usedRows;
    QMap<IConnection *, Reservation> m_reservations;
};

} // namespace Velmora::Figura
