#include <figura/decoration/BendpointLocator.h>

#include <figura/connection/IConnection.h>

namespace Velmora::Figura {

BendpointLocator::BendpointLocator(IConnection *connection, int index, QObject *parent)
    : ConnectionLocator(connection, parent)
    , m_index(index)
{
}

BendpointLocator::~BendpointLocator() = default;

int BendpointLocator::getIndex() const
{
    return m_index;
}

QPoint BendpointLocator::getReferencePoint()
{
    IConnection *connection = getConnection();
    const int index = getIndex();
    const QList<QPoint> points = connection ? connection->getPoints() : QList<QPoint>();
    if (!connection || index >= points.size()) {
        QMessageLogger().warning("BendpointLocator::getReferencePoint(): index, %d, out-of-bound",
                                 index);
        return QPoint();
    }
    QPoint point = points.value(index);
    return connection->translateToAbsolute(point);
}

} // namespace Velmora::Figura
