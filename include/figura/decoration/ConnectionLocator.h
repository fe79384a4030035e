#pragma once

#include <figura/decoration/Locator.h>
#include <figura/export.h>
#include <figura/figure/InterfacePointer.h>

#include <QList>
#include <QPoint>

namespace Velmora::Figura {

class IConnection;

/// Places a figure beside the start, the middle or the end of a connection.
///
/// The connection is not owned; one that is destroyed counts as none.
class FIGURA_EXPORT ConnectionLocator : public Locator
{
    Q_OBJECT

public:
    /// Which part of the connection: its middle, its first or its last point.
    enum Alignment { MIDDLE = 0, SOURCE = 1, TARGET = 2 };

    explicit ConnectionLocator(IConnection *connection, QObject *parent = nullptr); ///< MIDDLE.
    /// \a connection is not owned.
    ConnectionLocator(IConnection *connection, Alignment alignment, QObject *parent = nullptr);
    ~ConnectionLocator() override;

protected:
    QPoint getReferencePoint() override; ///< (0, 0) without a connection.

    // New virtual operations; the order of the virtual table depends on their place.
    virtual IConnection *getConnection() const; ///< Null when there is none.
    /// The point of the list that the alignment names; (0, 0) of an empty list.
    virtual QPoint getLocation(QList<QPoint> points);

public:
    Alignment getAlignment() const; ///< MIDDLE at first.

protected:
    void setAlignment(Alignment alignment);      ///< Only stores.
    void setConnection(IConnection *connection); ///< Not owned; only stores.
    /// The index among \a count points that the alignment names; -1 when there is none.
    int getLocationIndex(int count) const;

private:
    InterfacePointer<IConnection> m_connection;
    Alignment m_alignment = MIDDLE;
};

} // namespace Velmora::Figura
