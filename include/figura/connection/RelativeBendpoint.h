#pragma once

#include <figura/connection/Bendpoint.h>
#include <figura/export.h>
#include <figura/figure/InterfacePointer.h>

#include <QMetaType>
#include <QSize>

#include <cstddef>
#include <type_traits>

namespace Velmora::Figura {

class IConnection;

/// A point between the anchors of a connection, which moves with the connected figures.
///
/// Travels by value in a QVariant; a copy has no parent. The connection is not owned; one that is
/// destroyed counts as none.
class FIGURA_EXPORT RelativeBendpoint : public Bendpoint
{
    Q_OBJECT
    Q_MOC_INCLUDE("figura/connection/IConnection.h")
    Q_PROPERTY(IConnection *connection READ getConnection WRITE setConnection)
    Q_PROPERTY(float weight READ getWeight WRITE setWeight)
    Q_PROPERTY(QSize relativeDim1 READ getRelativeDim1)
    Q_PROPERTY(QSize relativeDim2 READ getRelativeDim2)

public:
    /// \a connection may be null.
    explicit RelativeBendpoint(IConnection *connection, QObject *parent = nullptr);
    explicit RelativeBendpoint(QObject *parent = nullptr); ///< Without a connection.
    explicit RelativeBendpoint(std::nullptr_t);            ///< With neither.

    /// A class that is both a connection and a QObject is taken for the connection.
    template<typename Connection,
             std::enable_if_t<std::is_convertible_v<Connection *, IConnection *> &&
                                  std::is_convertible_v<Connection *, QObject *>,
                              int> = 0>
    explicit RelativeBendpoint(Connection *connection, QObject *parent = nullptr)
        : RelativeBendpoint(static_cast<IConnection *>(connection), parent)
    {
    }

    /// The same wish for the same connection, without a parent.
    RelativeBendpoint(const RelativeBendpoint &other);
    ~RelativeBendpoint() override;

    /// Takes all over but the parent.
    RelativeBendpoint &operator=(const RelativeBendpoint &other);

    IConnection *getConnection() const;          ///< Null when there is none.
    void setConnection(IConnection *connection); ///< Not owned; null for none.

    float getWeight() const; ///< 0 lies at the source side, 1 at the target side; 0.5 at first.
    void setWeight(float weight); ///< Not checked: a value outside 0 to 1 lies beyond the anchors.

    QSize getRelativeDim1() const; ///< The offset from the source anchor's reference point.
    QSize getRelativeDim2() const; ///< The offset from the target anchor's reference point.
    /// Set both before use: at first they are invalid sizes, which count as (-1, -1).
    void setRelativeDimensions(const QSize &dim1, const QSize &dim2);

    QPoint getLocation() override; ///< (0, 0) without a connection or an anchor of it.
    void setLocation(const QPoint &location) override; ///< Does nothing.
    bool isNull() const;                               ///< True without a connection.

private:
    InterfacePointer<IConnection> m_connection;
    float m_weight = 0.5F;
    QSize m_relativeDim1;
    QSize m_relativeDim2;
};

} // namespace Velmora::Figura

Q_DECLARE_METATYPE(Velmora::Figura::RelativeBendpoint)
