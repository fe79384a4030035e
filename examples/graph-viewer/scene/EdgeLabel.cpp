#include "EdgeLabel.h"

#include "EdgeConnection.h"

#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/ConnectionLocator.h>

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

QSize EdgeLabel::getPreferredSize()
{
    return home().size();
}

} // namespace GraphViewer
