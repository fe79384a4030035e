#include "scene/LabelLocator.h"

#include "scene/Way.h"

#include <figura/connection/PolylineConnection.h>

namespace Editor {

LabelLocator::LabelLocator(Velmora::Figura::PolylineConnection *connection)
    : QObject(connection)
    , m_connection(connection)
{
}

void LabelLocator::setPlace(int percent, const QPoint &offset)
{
    m_percent = percent;
    m_offset = offset;
}

void LabelLocator::relocate(Velmora::Figura::Figure *target)
{
    QRect rect(QPoint(), target->getPreferredSize());
    rect.moveCenter(Way::pointAt(m_connection->getPoints(), m_percent) + m_offset);
    target->setBounds(rect);
}

} // namespace Editor
