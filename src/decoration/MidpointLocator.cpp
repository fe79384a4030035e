#include <figura/decoration/MidpointLocator.h>

#include "midpoint_p.h"

#include <figura/connection/IConnection.h>

namespace Velmora::Figura {

MidpointLocator::MidpointLocator(IConnection *connection, int index, QObject *parent)
    : ConnectionLocator(connection, parent)
    , m_index(index)
{
}

MidpointLocator::~MidpointLocator() = default;

int MidpointLocator::getIndex() const
{
    return m_index;
}

// Only the upper end of the range is tested; points outside it count as (0, 0).
QPoint MidpointLocator::getReferencePoint()
{
    IConnection *connection = getConnection();
    const int index = getIndex();
    if (!connection || index >= connection->getPointCount()) {
        QMessageLogger().warning("MidpointLocator::getReferencePoint(): index, %d, out-of-bound",
                                 index);
        return QPoint();
    }
    QPoint a = connection->getPoint(index);
    connection->translateToAbsolute(a);
    QPoint b = connection->getPoint(index + 1);
    connection->translateToAbsolute(b);
    return midpoint(a, b);
}

} // namespace Velmora::Figura
