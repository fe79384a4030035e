#include <figura/connection/IConnection.h>

namespace Velmora::Figura {

const QString IConnection::PROPERTY_CONNECTION_ROUTER = QStringLiteral("connectionRouter");
const QString IConnection::PROPERTY_POINTS = QStringLiteral("points");
const QString IConnection::PROPERTY_POINTSF = QStringLiteral("pointsf");

IConnection::~IConnection() = default;

} // namespace Velmora::Figura
