#pragma once

#include <figura/connection/AbstractRouter.h>
#include <figura/export.h>
#include <figura/geometry/Ray.h>

#include <QMap>

#include <memory>

class QRect;

namespace Velmora::Figura {

class LineSet;

/// Routes in horizontal and vertical segments that leave and enter the boxes by their nearest
/// sides.
///
/// Inner segments lie on even rows and columns that are reserved for the connection until it is
/// routed anew, invalidated, removed or destroyed; later connections take the next free ones.
class FIGURA_EXPORT ManhattanConnectionRouter : public AbstractRouter
{
    Q_OBJECT

public:
    /// \a parent owns the router as a QObject.
    explicit ManhattanConnectionRouter(QObject *parent = nullptr);
    ~ManhattanConnectionRouter() override;

    static const Ray UP;    ///< (0, -1)
    static const Ray DOWN;  ///< (0, 1)
    static const Ray LEFT;  ///< (-1, 0)
    static const Ray RIGHT; ///< (1, 0)

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    /// Out of the side of \a box nearest to \a point, or into it when \a reversed.
    virtual Ray getDirection(const QRect &box, const QPoint &point, bool reversed);
    /// Out of the target's box at the end point.
    virtual Ray getEndDirection(IConnection *connection);
    /// Out of the source's box at the start point.
    virtual Ray getStartDirection(IConnection *connection);
    /// Whether a horizontal segment may lie at y = \a row: nobody has reserved it.
    virtual bool rowUsable(IConnection *connection, int row) const;
    /// Whether a vertical segment may lie at x = \a column: nobody has reserved it.
    virtual bool colUsable(IConnection *connection, int column) const;

    void invalidate(IConnection *connection) override; ///< Releases the connection's lines.
    void remove(IConnection *connection) override;     ///< Releases the connection's lines.
    /// Also reserves the lines. Empty when an anchor is missing.
    QList<QPoint> doRoute(IConnection *connection) override;
    /// The points of doRoute() as floating ones.
    QList<QPointF> doRouteF(IConnection *connection) override;

protected:
    /// True for a column that \a connection itself holds.
    bool isColumnReservedBy(IConnection *connection, int column) const;
    /// True for a row that \a connection itself holds.
    bool isRowReservedBy(IConnection *connection, int row) const;
    /// Turns one coordinate for each segment (\a positions, the first segment horizontal or not)
    /// into points, and moves inner segments to free lines, which it reserves.
    QList<QPoint> processPositions(const Ray &start, const Ray &end, const QList<int> &positions,
                                   bool horizontal, IConnection *connection);
    void removeReservedLines(IConnection *connection); ///< Gives back all lines of \a connection.
    void reserveColumn(IConnection *connection, int column); ///< Null is ignored.
    void reserveRow(IConnection *connection, int row);       ///< Null is ignored.

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

    const std::unique_ptr<LineSet> m_usedColumns;
    const std::unique_ptr<LineSet> m_usedRows;
    QMap<IConnection *, Reservation> m_reservations;
};

} // namespace Velmora::Figura
