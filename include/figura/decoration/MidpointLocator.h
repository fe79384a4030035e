#pragma once

#include <figura/decoration/ConnectionLocator.h>
#include <figura/export.h>

namespace Velmora::Figura {

/// Places a figure beside the middle of one segment of a connection.
class FIGURA_EXPORT MidpointLocator : public ConnectionLocator
{
    Q_OBJECT

public:
    /// \a index is that of the segment's first point. \a connection is not owned.
    MidpointLocator(IConnection *connection, int index, QObject *parent = nullptr);
    ~MidpointLocator() override;

protected:
    /// Warns and gives (0, 0) for an index not below the point count. The last index counts (0, 0)
    /// as the segment's other end, on purpose.
    QPoint getReferencePoint() override;

    int getIndex() const; ///< As given to the constructor.

private:
    int m_index;
};

} // namespace Velmora::Figura
