#include "EdgeLabel.h"

#include "EdgeConnection.h"

#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/ConnectionLocator.h>

#include <QPainter>
#include <QStyleOptionViewItem>

using Velmora::Figura::ConnectionEndpointLocator;
using Velmora::Figura::ConnectionLocator;
using Velmora::Figura::Figure;
using Velmora::Figura::ILocator;

namespace GraphViewer {
namespace {

std::unique_ptr<ILocator> createLocator(EdgeLabel::Place place, EdgeConnection *edge)
{
    if (place == EdgeLabel::Place::Middle)
        return std::make_unique<ConnectionLocator>(edge, nullptr);
    return std::make_unique<ConnectionEndpointLocator>(edge, place == EdgeLabel::Place::Head);
}

} // namespace

EdgeLabel::EdgeLabel(Place place, const QString &title, const QRect &box, EdgeConnection *edge,
                     QObject *parent)
    : ElementFigure(Kind::Label, title, {}, box, parent)
    , m_place(place)
    , m_locator(createLocator(place, edge))
{
    // A connection tells that it has moved after each layout.
    connect(edge, &Figure::figureMoved, this, &EdgeLabel::relocate);
}

EdgeLabel::~EdgeLabel() = default;

void EdgeLabel::followEdge(bool follow)
{
    const bool goesHome = m_follows && !follow;
    m_follows = follow;
    if (goesHome)
        setBounds(home());
}

void EdgeLabel::relocate()
{
    if (m_follows)
        m_locator->relocate(this);
}

// On the line, the text could not be read without some paper beneath.
void EdgeLabel::drawShape(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (m_follows && m_place == Place::Middle)
        painter->fillRect(option.rect, QColor(255, 255, 255, 150));
    ElementFigure::drawShape(painter, option);
}

QSize EdgeLabel::getPreferredSize()
{
    return home().size();
}

} // namespace GraphViewer
