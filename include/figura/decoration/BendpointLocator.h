#pragma once

#include <figura/decoration/ConnectionLocator.h>
#include <figura/export.h>

namespace Velmora::Figura {

/// Places a figure beside one point of a connection.
class FIGURA_EXPORT BendpointLocator : public ConnectionLocator
{
    Q_OBJECT

public:
    /// \a index counts the connection's points from 0. \a connection is not owned.
    BendpointLocator(IConnection *connection, int index, QObject *parent = nullptr);
    ~BendpointLocator() override;

protected:
    /// Warns and gives (0, 0) for an index not below the point count; a negative one gives (0, 0).
    QPoint getReferencePoint() override;

    int getIndex() const; ///< As given to the constructor.

private:
    int m_index;
};

} // namespace Velmora::Figura
